"""Compares the details that the program prints with printed pages: printed_details_test.py PROGRAM PROJECT_FOLDER.

A page (printed/*.txt) begins with its command; its figures come from R and from counts of all arrangements. The data
are those of the examples, the yields of plants of R (PlantGrowth) and the flow of the Nile about its median (Nile).
"""

import shlex
import unittest

from program import PROJECT, run

PAGES = sorted((PROJECT / "tests/cli/printed").glob("*.txt"))


class PrintedDetails(unittest.TestCase):
    maxDiff = None

    def test_of_every_test_are_as_designed(self):
        self.assertEqual(len(PAGES), 8)
        for page in PAGES:
            command, _, expected = page.read_text(encoding="utf-8").partition("\n")
            result = run(*shlex.split(command.removeprefix("$ ")), "--details", cwd=PROJECT)
            self.assertEqual(result.returncode, 0, result.stderr)
            printed = result.stdout[result.stdout.index("\nDetails\n") + 1:]
            self.assertEqual(printed, expected, page.name)


if __name__ == "__main__":
    unittest.main()
