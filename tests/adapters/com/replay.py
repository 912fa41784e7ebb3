#!/usr/bin/python3
"""replay.py STATEMENTS FOLDER WORKBOOK

Replays the calls of the eight tests and of the details, as com_record writes them, on LibreOffice Calc's own implementation of the
object model: in a macro with Option VBASupport 1, in a document that is made here. WORKBOOK is the package's, on
whose sheet the reports are built. Each test has an office of its own. A statement must succeed and give our own peer's answer; the cells of the report must hold the same.
"""
import os
import subprocess
import sys
import time

import uno
from com.sun.star.beans import PropertyValue
from com.sun.star.connection import NoConnectException

STATEMENTS_A_PROCEDURE = 300

# What this office is known not to do: the end of the statement, and what was seen.
KNOWN_GAPS = (
    # Without a display a document has no window that could become the active one. A sheet's Activate works.
    (".Activate", ": 91 Object variable not set."),
)

HEAD = """Option VBASupport 1
Dim o(200000) As Variant
Dim a As Variant
Dim g() As Variant
Dim l() As Variant
Dim report As String
Dim made As Long

Sub Said(statement)
    made = made + 1
    If Err.Number <> 0 Then
        report = report & "failed: " & statement & ": " & Err.Number & " " & Err.Description & Chr(10)
        Err.Clear
    End If
End Sub

Sub Wants(found, wanted, statement)
    On Error Resume Next
    If IsEmpty(wanted) And IsEmpty(found) Then Exit Sub
    Dim same As Boolean
    same = False
    If IsNumeric(wanted) And IsNumeric(found) Then
        same = Abs(found - wanted) <= 1E-9 * (1 + Abs(wanted))
    Else
        same = (CStr(found) = CStr(wanted))
    End If
    If Not same Then report = report & "differs: " & statement & ": " & found & Chr(10)
    Err.Clear
End Sub
"""


def value(name, content):
    result = PropertyValue()
    result.Name, result.Value = name, content
    return result


def module(statements):
    """The macro: procedures of a few hundred statements each, called one after the other."""
    parts = [statements[k:k + STATEMENTS_A_PROCEDURE] for k in range(0, len(statements), STATEMENTS_A_PROCEDURE)]
    text = HEAD
    for number, part in enumerate(parts):
        text += f"\nSub Part{number}()\n    On Error Resume Next\n" + "".join(f"    {line}\n" for line in part)
        text += "End Sub\n"
    text += "\nFunction Main() As String\n    report = \"\"\n"
    text += "".join(f"    Part{number}\n" for number in range(len(parts)))
    return text + "    Main = made & Chr(10) & report\nEnd Function\n"


class Office:
    """An office of our own: its profile, its process, its documents."""

    def __init__(self, folder):
        self.folder = folder
        pipe = f"tbvnonpara{os.getpid()}"
        self.process = subprocess.Popen(
            ["soffice", "--headless", "--norestore", "--nologo", "--nodefault", "--nofirststartwizard",
             f"-env:UserInstallation=file://{folder}/profile", f"--accept=pipe,name={pipe};urp;"],
            stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
            start_new_session=True)
        local = uno.getComponentContext()
        resolver = local.ServiceManager.createInstanceWithContext("com.sun.star.bridge.UnoUrlResolver", local)
        deadline = time.time() + 90
        while True:
            try:
                context = resolver.resolve(f"uno:pipe,name={pipe};urp;StarOffice.ComponentContext")
                break
            except NoConnectException:
                if time.time() > deadline:
                    raise
                time.sleep(0.2)
        self.desktop = context.ServiceManager.createInstanceWithContext("com.sun.star.frame.Desktop", context)

    def document(self, hidden):
        return self.desktop.loadComponentFromURL(
            "private:factory/scalc", "_blank", 0, (value("Hidden", hidden), value("MacroExecutionMode", 4)))

    def close(self):
        try:
            self.desktop.terminate()
        except Exception:  # the bridge goes down with the office
            pass
        try:
            self.process.wait(20)
        except subprocess.TimeoutExpired:
            self.process.kill()


def scratch_workbook(office, path):
    # This office does not know add-ins by their content, and would ask.
    document = office.desktop.loadComponentFromURL(
        f"file://{path}", "_blank", 0, (value("FilterName", "Calc MS Excel 2007 VBA XML"),))
    if document.Sheets.ElementNames != ("Results",):
        raise RuntimeError(f"{path} holds the sheets {document.Sheets.ElementNames}")
    return document


def user_workbook(office):
    document = office.document(False)
    sheet = document.Sheets.getByIndex(0)
    sheet.Name = "Data"
    sheet.getCellRangeByName("A1:D6").setDataArray((
        ("a", "b", "s", "g"), (1.0, 4.5, 1.0, 1.0), (2.0, 5.0, -1.0, 1.0), (3.5, 6.0, 1.0, 2.0),
        (3.0, 2.5, 0.0, 2.0), (5.0, 9.0, 1.0, 2.0)))
    return document


def replay(statements, folder, workbook):
    office = Office(folder)
    try:
        scratch_workbook(office, workbook)
        document = user_workbook(office)
        libraries = document.BasicLibraries
        libraries.VBACompatibilityMode = True
        if not libraries.hasByName("Standard"):
            libraries.createLibrary("Standard")
        libraries.loadLibrary("Standard")
        libraries.getByName("Standard").insertByName("Replay", module(statements))
        script = document.getScriptProvider().getScript(
            "vnd.sun.star.script:Standard.Replay.Main?language=Basic&location=document")
        return script.invoke((), (), ())[0]
    finally:
        office.close()


def is_known(line):
    """Whether a failed statement is one of the known gaps."""
    return any(line.startswith("failed: ") and f"{end}{seen}" in line for end, seen in KNOWN_GAPS)


def runs(file):
    """The name and the statements of each run."""
    found = []
    for line in file.read().splitlines():
        if line.startswith("' "):
            found.append((line[2:], []))
        else:
            found[-1][1].append(line)
    return found


def main():
    with open(sys.argv[1], encoding="utf-8") as file:
        recorded = runs(file)
    os.makedirs(sys.argv[2], exist_ok=True)
    passed = failed = 0
    for name, statements in recorded:
        made, *report = replay(
            statements, os.path.abspath(sys.argv[2]), os.path.abspath(sys.argv[3])).splitlines()
        report = [line for line in report if line]
        unknown = [line for line in report if not is_known(line)]
        good = int(made) > 100 and not unknown
        passed, failed = passed + good, failed + (not good)
        print(f"{name}: {made} statements, {len(report) - len(unknown)} known gaps, {len(unknown)} others")
        print("".join(f"    {line}\n" for line in unknown), end="")
    print(f"{passed} passed, {failed} failed")
    sys.exit(failed != 0 or passed != 9)


if __name__ == "__main__":
    main()
