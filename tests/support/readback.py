#!/usr/bin/python3
"""Reads a workbook back with openpyxl, independently of the program that wrote it, and
prints one line per cell of the first sheet holding a value or a report's look:
    ref<TAB>type<TAB>value<TAB>bold<TAB>fill<TAB>font colour
type is n (number), s (text) or e (empty); fill and font colour are RGB or "-".
The first line is "template" or "workbook", what the file says it is."""
import sys

from openpyxl import load_workbook

wb = load_workbook(sys.argv[1])
print("template" if wb.template else "workbook")
ws = wb.worksheets[0]
for row in ws.iter_rows():
    for c in row:
        fill = c.fill.fgColor.rgb if c.fill is not None and c.fill.fill_type == "solid" else "-"
        colour = c.font.color.rgb if c.font is not None and c.font.color is not None else "-"
        if not isinstance(colour, str):
            colour = "-"
        if c.value is None and fill == "-" and not c.font.b:
            continue
        kind = "e" if c.value is None else ("n" if isinstance(c.value, (int, float)) else "s")
        value = "" if c.value is None else repr(c.value) if kind == "n" else c.value
        print("\t".join([c.coordinate, kind, value, "1" if c.font.b else "0", str(fill), colour]))
