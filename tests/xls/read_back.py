"""Prints a workbook as xlrd reads it, a line each sheet, merge, width and cell."""

import sys

import xlrd

book = xlrd.open_workbook(sys.argv[1], formatting_info=True)
for sheet in book.sheets():
    print(f"sheet|{sheet.name}|{sheet.nrows}x{sheet.ncols}|visible={sheet.visibility == 0}")
    for top, bottom, left, right in sorted(sheet.merged_cells):
        print(f"merge|{top},{left}:{bottom - 1},{right - 1}")
    for column, info in sorted(sheet.colinfo_map.items()):
        print(f"width|{column}|{info.width}")
    for row, info in sorted(sheet.rowinfo_map.items()):
        print(f"row|{row}|{info.height}")
    for row in range(sheet.nrows):
        for column in range(sheet.row_len(row)):
            cell = sheet.cell(row, column)
            if cell.ctype == xlrd.XL_CELL_EMPTY:
                continue
            look = book.xf_list[cell.xf_index]
            font = book.font_list[look.font_index]
            kind = {xlrd.XL_CELL_TEXT: "text", xlrd.XL_CELL_NUMBER: "number"}.get(cell.ctype, "blank")
            print(
                f"cell|{row},{column}|{kind}|{cell.value}|{book.format_map[look.format_key].format_str}"
                f"|{look.alignment.hor_align},{look.alignment.vert_align}|{look.border.left_line_style}"
                f"|{font.height}"
            )
