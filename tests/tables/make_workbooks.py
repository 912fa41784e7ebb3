#!/usr/bin/python3
"""make_workbooks.py

Writes the workbooks of the folders libreoffice/ and openpyxl/ from the tables beside them: LibreOffice as it reads and
saves them, with NA as a text, openpyxl as people export from a program, numbers as numbers and a blank for NA.
Needs the packages python3-openpyxl and libreoffice-calc. R's tables are made by make_tables.R.
"""

import csv
import subprocess
import tempfile
from pathlib import Path

import openpyxl

HERE = Path(__file__).resolve().parent

BY_LIBREOFFICE = {
    "write.csv/presidents.csv": "ods",
    "write.csv/warpbreaks.csv": "xlsx",
    "write.csv_without_names/jasa.csv": "xlsx",
    "write.csv_without_names/npk.csv": "ods",
    "write.csv_without_names/sleep.csv": "ods",
}
BY_OPENPYXL = ["write.csv/airquality.csv", "write.csv/barley.csv", "write.csv/survey.csv"]


def convert(table, ending, profile):
    subprocess.run(["soffice", f"-env:UserInstallation=file://{profile}", "--headless", "--convert-to", ending,
                    "--outdir", HERE / "libreoffice", HERE / table], check=True, stdout=subprocess.DEVNULL)


def cell(text):
    if text in ("", "NA"):
        return None
    try:
        return float(text)
    except ValueError:
        return text


def write(table):
    book = openpyxl.Workbook()
    sheet = book.active
    sheet.title = Path(table).stem
    with open(HERE / table, newline="", encoding="utf-8") as file:
        for row in csv.reader(file):
            sheet.append([cell(text) for text in row])
    book.save(HERE / "openpyxl" / f"{Path(table).stem}.xlsx")


with tempfile.TemporaryDirectory() as folder:
    for name, ending in BY_LIBREOFFICE.items():
        convert(name, ending, folder)
(HERE / "openpyxl").mkdir(exist_ok=True)
for name in BY_OPENPYXL:
    write(name)
