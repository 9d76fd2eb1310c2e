"""Puts the stream of each workbook of a folder beside it, and a small workbook with its stream."""

import pathlib
import sys

import xlwt
from xlrd import compdoc

folder = pathlib.Path(sys.argv[1])
book = xlwt.Workbook(encoding="utf-8")
sheet = book.add_sheet("分析")
for row in range(3):
    sheet.write(row, 0, "文字" * row)
    sheet.write(row, 1, row)
sheet.write_merge(4, 4, 0, 2, xlwt.Formula("B1+B2"))
sheet.panes_frozen = True
sheet.horz_split_pos = 1
book.add_sheet("其它").write(0, 0, "文字")
book.save(folder / "small.xls")
for file in sorted(folder.glob("*.xls")):
    memory, base, length = compdoc.CompDoc(file.read_bytes()).locate_named_stream("Workbook")
    file.with_suffix(".stream").write_bytes(memory[base : base + length])
