#!/usr/bin/python3
"""module_constants.py LIBRARY MODULE

The module of macros declares every constant of the type library, and no other, with the same number.
"""
import re
import sys


def constants(path, pattern):
    with open(path, encoding="utf-8") as file:
        return set(re.findall(pattern, file.read()))


def main():
    library = constants(sys.argv[1], r"(tbvNP\w+) = (-?\d+)")
    module = constants(sys.argv[2], r"Public Const (tbvNP\w+) As Long = (-?\d+)")
    for name, number in sorted(library ^ module):
        print(f"{name} = {number} stands in one of them only")
    sys.exit(not library or library != module)


if __name__ == "__main__":
    main()
