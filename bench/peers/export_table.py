"""Writes a table of fields between commas into a workbook by xlwt; arguments: table, workbook."""

import sys

import xlwt

book = xlwt.Workbook(encoding="utf-8")
sheet = book.add_sheet("报表")
text = xlwt.easyxf("font: height 210; borders: left thin, right thin, top thin, bottom thin", num_format_str="@")
number = xlwt.easyxf("font: height 210; borders: left thin, right thin, top thin, bottom thin", num_format_str="0.00_ ")
with open(sys.argv[1], encoding="utf-8") as table:
    for row, line in enumerate(table):
        for column, field in enumerate(line.rstrip("\n").split(",")):
            if column in (9, 10):
                sheet.write(row, column, float(field), number)
            else:
                sheet.write(row, column, field, text)
book.save(sys.argv[2])
