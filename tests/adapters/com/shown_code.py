#!/usr/bin/python3
"""shown_code.py DOCUMENT LANGUAGE FILE

Every block in the language that the document shows, "vb" or "vbs", must stand in the file as it is, so that what is
copied from either runs. The line that declares a function of the library is no part of a file.
"""
import re
import sys


def main():
    document, language, file = sys.argv[1:]
    with open(document, encoding="utf-8") as text, open(file, encoding="utf-8") as source:
        blocks = re.findall(rf"```{language}\n(.*?)```", text.read(), re.DOTALL)
        code = source.read()
    shown = [block for block in blocks if "Declare" not in block]
    missing = [block for block in shown if block not in code]
    print(*missing, sep="\n----\n")
    sys.exit(not shown or bool(missing))


if __name__ == "__main__":
    main()
