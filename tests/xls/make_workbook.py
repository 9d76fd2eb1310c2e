"""Writes a workbook of several sheets with formulas by xlwt."""

import sys

import xlwt

book = xlwt.Workbook(encoding="utf-8")
data = book.add_sheet("数据")
style = xlwt.easyxf("font: bold on, height 320; align: horiz center; borders: left thin", num_format_str="0.000")
for row in range(400):
    data.write(row, 0, f"客户{row}" if row % 3 else "长" * 3000)
    data.write(row, 1, row * 1.5, style)
    data.write(row, 2, xlwt.Formula(f"B{row + 1}*2"))
data.write_merge(400, 401, 0, 2, "合计", style)
data.col(0).width = 5000
data.panes_frozen = True
data.horz_split_pos = 1
data.portrait = False
data.header_str = b"&A"
total = book.add_sheet("汇总")
total.write(0, 0, xlwt.Formula("SUM('数据'!B1:B400)"))
total.write(1, 0, "文字")
book.add_sheet("空表").visibility = 1
book.save(sys.argv[1])
