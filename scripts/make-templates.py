#!/usr/bin/python3
"""Makes the spreadsheet templates in config/ that the reports fill.

Run from the top of the repository when a template's layout changes:
    scripts/make-templates.py   (needs python3-openpyxl)
Users may restyle the installed copies in their spreadsheet program; the reports only write
cells into the first sheet (see each layout below).
"""
from pathlib import Path

from openpyxl import Workbook
from openpyxl.styles import Alignment, Font, PatternFill

CONFIG = Path(__file__).resolve().parent.parent / "config"
HEADING = Font(bold=True)
BAND = PatternFill("solid", fgColor="FFDDEBF7")


def save(wb, name):
    wb.template = True
    wb.save(CONFIG / name)


def sickness():
    # Employee names in column A from row 2, the days of the month in row 1 from column B.
    wb = Workbook()
    ws = wb.active
    ws.title = "Attendance"
    ws["A1"] = "Name/Day"
    ws["A1"].font = HEADING
    ws["A1"].fill = BAND
    ws.column_dimensions["A"].width = 30
    for col in range(2, 33):
        ws.cell(row=1, column=col).alignment = Alignment(horizontal="center")
        ws.column_dimensions[ws.cell(row=1, column=col).column_letter].width = 4
    ws.freeze_panes = "B2"
    save(wb, "sickness.xltx")


def booking_report(name, title, headings):
    # A title in row 1, the column headings in row 2 from column B; one row per booking from
    # row 3.
    wb = Workbook()
    ws = wb.active
    ws.title = title
    ws["B1"] = title
    ws["B1"].font = Font(bold=True, size=14)
    widths = {"Emp ID": 9, "Name": 30, "Date From": 12, "Date To": 12, "Days": 7, "Reason": 22}
    for offset, heading in enumerate(headings):
        cell = ws.cell(row=2, column=2 + offset, value=heading)
        cell.font = HEADING
        cell.fill = BAND
        ws.column_dimensions[cell.column_letter].width = widths[heading]
    ws.column_dimensions["A"].width = 3
    ws.freeze_panes = "A3"
    save(wb, name)


if __name__ == "__main__":
    CONFIG.mkdir(exist_ok=True)
    sickness()
    columns = ["Emp ID", "Name", "Date From", "Date To", "Days"]
    booking_report("holiday.xltx", "Holiday Report", columns)
    booking_report("absence.xltx", "Absence Report", columns + ["Reason"])
