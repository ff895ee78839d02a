"""Writes the workbooks that the tests of reading them take: by xlwt, openpyxl and LibreOffice.

    python3 other_workbooks.py ../data        (python3-xlwt, python3-openpyxl, libreoffice-calc)
"""
import datetime
import pathlib
import subprocess
import sys
import tempfile

import openpyxl
import xlwt

folder = pathlib.Path(sys.argv[1])
DATE = datetime.date(2024, 2, 29)
MOMENT = datetime.datetime(2024, 2, 29, 13, 45)
TIME = datetime.time(13, 45)

book = xlwt.Workbook()
sheet = book.add_sheet("Data")
book.add_sheet("Second").write(0, 0, "not this one")
for row, value in enumerate(["Größe µ", True, False]):
    sheet.write(row, 0, value)
for row, value, code in [(3, DATE, "DD/MM/YYYY"), (4, MOMENT, "yyyy-mm-dd hh:mm"),
                         (5, TIME, "h:mm"), (6, -12345, "General"), (7, 1.005, "0.00"),
                         (8, 0.125, "0.0%")]:
    sheet.write(row, 0, value, xlwt.easyxf(num_format_str=code))
sheet.row(9).set_cell_error(0, "#DIV/0!")
sheet.write(10, 0, "two\nlines")
sheet.write(3, 1, "under a gap")
book.save(str(folder / "written_by_xlwt.xls"))

book = openpyxl.Workbook()
sheet = book.active
sheet.title = "Data"
book.create_sheet("Second")["A1"] = "not this one"
for row, (value, code) in enumerate([
        ("Größe µ", None), (True, None), (False, None), (DATE, "dd/mm/yyyy"),
        (MOMENT, "yyyy-mm-dd hh:mm"), (TIME, "h:mm"), (-12345, None), (1.005, "0.00"),
        (0.125, "0.0%"), ("#DIV/0!", None), ("two\nlines", None)], start=1):
    cell = sheet.cell(row, 1, value)
    if code:
        cell.number_format = code
sheet["B4"] = "under a gap"
book.save(folder / "written_by_openpyxl.xlsx")

sheet["C1"] = "=1/4"
sheet["C2"] = '="x"&"y"'
sheet["C3"] = "=1=1"
sheet["C4"] = "=1/0"
with tempfile.TemporaryDirectory() as work:
    made = pathlib.Path(work) / "written_by_libreoffice.xlsx"
    book.save(made)
    for kind in ("ods", "xls", "xlsx"):
        subprocess.run(["soffice", "--headless", "--convert-to", kind, "--outdir", folder, made],
                       check=True, capture_output=True)
