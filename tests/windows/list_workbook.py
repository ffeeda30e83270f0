"""Lists a .xlsx file as sheetListing() lists a workbook."""
import sys

from openpyxl import load_workbook
from openpyxl.cell.cell import MergedCell
from openpyxl.utils.cell import range_boundaries


def looks(cell):
    fill, border, align = cell.fill, cell.border, cell.alignment
    sides = {side.style for side in (border.left, border.top, border.right, border.bottom)}
    text = ""
    if fill.fill_type == "solid" and fill.fgColor.rgb == "FFC0C0C0":
        text += "s"
    text += "b" if sides == {"thin"} and border.diagonal.style is None else ""
    text += "l" if align.horizontal == "left" else ""
    text += "m" if align.vertical == "center" else ""
    text += "t" if cell.number_format == "@" else ""
    text += "B%d" % cell.font.sz if cell.font.b else ""
    return text


def listed(cell):
    if isinstance(cell, MergedCell):
        return ""
    text = "" if cell.value is None else cell.value if isinstance(cell.value, str) else "#%g" % cell.value
    return text + ("~" + looks(cell) if looks(cell) else "")


sheet = load_workbook(sys.argv[1]).active
for row in sheet.iter_rows():
    print("|".join(listed(cell) for cell in row))
for block in sorted(sheet.merged_cells.ranges, key=lambda block: (block.min_row, block.min_col)):
    print("%d,%d-%d,%d" % (block.min_row, block.min_col, block.max_row, block.max_col))
