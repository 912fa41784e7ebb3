"""Two offices at the same time, with the add-in in both: each has its own results."""

import json
import subprocess
import sys
import time
import unittest

import uno  # noqa: F401

from cases import EIGHT_TESTS, holds, open_data
from office import Office, TestCase

FORMULA = '=MANNWHITNEY.DETAILS(A2:A31;B2:B31;"U")'
ROUNDS = 4
LIMIT = 400


def run_tests(office, cases):
    """The titles of the reports that are not as they should be."""
    document = open_data(office)
    wrong = []
    for method, title, first, second, probability in cases:
        request = office.create("TBVNonPara.clsNonPara")
        request.Method, request.Headers, request.YRange = method, True, first
        if second:
            request.XRange = second
        request.Results()
        if not holds(document.Sheets.getByIndex(document.Sheets.Count - 1), title, probability):
            wrong.append(title)
    document.close(True)
    return wrong


def calculate(office, shift):
    """U of the numbers from 0 to 29, and of the same numbers shifted."""
    document = office.open_with([["first", *range(30)], ["second", *(value + shift for value in range(30))]])
    cell = document.Sheets.getByIndex(0).getCellRangeByName("D1")
    cell.Formula = FORMULA
    value = cell.Value
    document.close(True)
    return value


def work(shift, backwards):
    """What one process does with an office of its own, once it is told to begin."""
    cases = EIGHT_TESTS[::-1] if backwards else EIGHT_TESTS
    with Office() as office:
        print("ready", flush=True)
        sys.stdin.readline()
        wrong, figures, begun = [], [], time.time()
        for _ in range(ROUNDS):
            wrong += run_tests(office, cases)
            figures.append(calculate(office, shift))
        print(json.dumps({"begun": begun, "ended": time.time(), "wrong": wrong, "figures": figures,
                          "profile": str(office.profile)}), flush=True)


class TwoOffices(TestCase):
    def start(self, *arguments):
        process = subprocess.Popen(["timeout", "-k", "5", str(LIMIT), sys.executable, "-B", __file__, *arguments],
                                   stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        self.addCleanup(self.end, process)
        return process

    @staticmethod
    def end(process):
        process.terminate()
        process.communicate()

    def test_each_has_its_own_results_at_the_same_time(self):
        # The orders differ, so that different tests run side by side.
        processes = [self.start("10.5", "forwards"), self.start("100", "backwards")]
        for process in processes:
            self.assertEqual(process.stdout.readline(), "ready\n")
        for process in processes:
            process.stdin.write("go\n")
            process.stdin.flush()
        answers = [json.loads(process.stdout.readline()) for process in processes]
        self.assertEqual([answer["wrong"] for answer in answers], [[], []])
        # By hand: of the 900 pairs all but 19 + 18 + ... + 1 have the first below the second, and all have.
        self.assertEqual([answer["figures"] for answer in answers], [[710] * ROUNDS, [900] * ROUNDS])
        self.assertNotEqual(answers[0]["profile"], answers[1]["profile"])
        self.assertLess(max(answer["begun"] for answer in answers), min(answer["ended"] for answer in answers))
        for process in processes:
            self.assertEqual(process.wait(LIMIT), 0)


if __name__ == "__main__":
    if len(sys.argv) == 3 and sys.argv[2] in ("forwards", "backwards"):
        work(float(sys.argv[1]), sys.argv[2] == "backwards")
    else:
        unittest.main()
