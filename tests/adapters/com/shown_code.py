#!/usr/bin/python3
"""shown_code.py DOCUMENT MODULE

Every block of Basic that the document shows must stand in the module as it is, so that what is copied from either
runs. The line that declares a function of the library is no part of the module.
"""
import re
import sys


def main():
    with open(sys.argv[1], encoding="utf-8") as document, open(sys.argv[2], encoding="utf-8") as module:
        blocks = re.findall(r"```vb\n(.*?)```", document.read(), re.DOTALL)
        code = module.read()
    shown = [block for block in blocks if "Declare" not in block]
    missing = [block for block in shown if block not in code]
    print(*missing, sep="\n----\n")
    sys.exit(not shown or bool(missing))


if __name__ == "__main__":
    main()
