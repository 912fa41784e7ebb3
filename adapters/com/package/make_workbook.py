#!/usr/bin/python3
"""make_workbook.py FILE

Writes the add-in workbook that reports are built in: one sheet, "Results", and nothing on it. The same bytes each
time.
"""
import sys
import zipfile

HEAD = '<?xml version="1.0" encoding="UTF-8" standalone="yes"?>\n'
PACKAGE = "http://schemas.openxmlformats.org/package/2006"
OFFICE = "http://schemas.openxmlformats.org/officeDocument/2006/relationships"
MAIN = "http://schemas.openxmlformats.org/spreadsheetml/2006/main"
SHEET_TYPES = "application/vnd.openxmlformats-officedocument.spreadsheetml"

PARTS = {
    "[Content_Types].xml":
        f'<Types xmlns="{PACKAGE}/content-types">'
        '<Default Extension="rels" ContentType="application/vnd.openxmlformats-package.relationships+xml"/>'
        '<Default Extension="xml" ContentType="application/xml"/>'
        # What makes it an add-in: it has no window, and the user's sheets are not mixed with it.
        '<Override PartName="/xl/workbook.xml"'
        ' ContentType="application/vnd.ms-excel.addin.macroEnabled.main+xml"/>'
        f'<Override PartName="/xl/worksheets/sheet1.xml" ContentType="{SHEET_TYPES}.worksheet+xml"/>'
        f'<Override PartName="/xl/styles.xml" ContentType="{SHEET_TYPES}.styles+xml"/>'
        '</Types>',
    "_rels/.rels":
        f'<Relationships xmlns="{PACKAGE}/relationships">'
        f'<Relationship Id="rId1" Type="{OFFICE}/officeDocument" Target="xl/workbook.xml"/>'
        '</Relationships>',
    "xl/workbook.xml":
        f'<workbook xmlns="{MAIN}" xmlns:r="{OFFICE}">'
        '<sheets><sheet name="Results" sheetId="1" r:id="rId1"/></sheets>'
        '</workbook>',
    "xl/_rels/workbook.xml.rels":
        f'<Relationships xmlns="{PACKAGE}/relationships">'
        f'<Relationship Id="rId1" Type="{OFFICE}/worksheet" Target="worksheets/sheet1.xml"/>'
        f'<Relationship Id="rId2" Type="{OFFICE}/styles" Target="styles.xml"/>'
        '</Relationships>',
    "xl/worksheets/sheet1.xml":
        f'<worksheet xmlns="{MAIN}"><sheetData/></worksheet>',
    "xl/styles.xml":
        f'<styleSheet xmlns="{MAIN}">'
        '<fonts count="1"><font><sz val="11"/><name val="Calibri"/><family val="2"/></font></fonts>'
        '<fills count="2"><fill><patternFill patternType="none"/></fill>'
        '<fill><patternFill patternType="gray125"/></fill></fills>'
        '<borders count="1"><border><left/><right/><top/><bottom/><diagonal/></border></borders>'
        '<cellStyleXfs count="1"><xf numFmtId="0" fontId="0" fillId="0" borderId="0"/></cellStyleXfs>'
        '<cellXfs count="1"><xf numFmtId="0" fontId="0" fillId="0" borderId="0" xfId="0"/></cellXfs>'
        '<cellStyles count="1"><cellStyle name="Normal" xfId="0" builtinId="0"/></cellStyles>'
        '</styleSheet>',
}


def main():
    with zipfile.ZipFile(sys.argv[1], "w", zipfile.ZIP_DEFLATED) as package:
        for name, content in PARTS.items():
            # A date of its own would make each build's file another one.
            part = zipfile.ZipInfo(name, (1980, 1, 1, 0, 0, 0))
            part.compress_type = zipfile.ZIP_DEFLATED
            package.writestr(part, HEAD + content)


if __name__ == "__main__":
    main()
