"""The figures of a test in cells, by name and as a table."""

import json
import unittest

import uno  # noqa: F401

from cases import EIGHT_TESTS, open_data
from office import Office, TestCase

VALUE, NOT_AVAILABLE = 519, 32767

# The requests of cases.py without their labels, as formulas.
FUNCTIONS = ["MANNWHITNEY.DETAILS(A2:A7;B2:B7{})", "WILCOXON.DETAILS(A2:A7;C2:C7{})",
             "SPEARMAN.DETAILS(A2:A7;E2:E7{})", "SIGN.DETAILS(D2:D7{})", "SIGN.DETAILS(A2:A7;C2:C7{})",
             "MEDIAN.DETAILS(A2:C7{})", "FRIEDMAN.DETAILS(A2:C7{})", "KRUSKALWALLIS.DETAILS(A2:B7;C2:C7{})",
             "RUNS.DETAILS(F2:F7{})"]
# By hand: 27 of the 36 pairs have the second value above the first, none are equal, so U of the report is 27;
# R 4.2, kruskal.test and friedman.test, of the same columns; wilcox.test(exact = TRUE).
FIGURES = [
    # formula                                              value
    ("MANNWHITNEY.DETAILS(A2:A7;B2:B7;\"U\")",             27),
    ("MANNWHITNEY.DETAILS(A2:A7;B2:B7;\"p\")",             0.17965367965367965),
    ("MANNWHITNEY.DETAILS(A2:A7;B2:B7;\"p.exact.two\")", 0.17965367965367965),
    ("MANNWHITNEY.DETAILS(A2:A7;B2:B7;\"effect.superiority\")", 9 / 36),
    ("MANNWHITNEY.DETAILS(A2:A7;B2:B7;\"df.2\")",          6),
    ("WILCOXON.DETAILS(A2:A7;C2:C7;\"t\")",                0),
    ("SIGN.DETAILS(D2:D7;\"positive\")",                   4),
    ("FRIEDMAN.DETAILS(A2:C7;\"chiSquare\")",              31 / 3),
    ("RUNS.DETAILS(F2:F7;\"runs\")",                       2),
    ("RUNS.DETAILS(F2:F7;\"method\")",                     None),
]
# What names columns, and sentences with these names, differ where a range has labels.
WORDS = ("labels", "words", "notes")


def setUpModule():
    global office
    office = unittest.enterModuleContext(Office())


def leaves(figure, path=""):
    """The figures of JSON by their whole names."""
    if not isinstance(figure, (dict, list)):
        return {path: figure}
    members = figure.items() if isinstance(figure, dict) else enumerate(figure, 1)
    result = {}
    for name, member in members:
        result.update(leaves(member, f"{path}.{name}" if path else str(name)))
    return result


class Details(TestCase):
    def setUp(self):
        self.document = open_data(office)
        self.sheet = self.document.Sheets.getByIndex(0)

    def tearDown(self):
        self.document.close(True)

    def result(self, formula, address="T1"):
        cell = self.sheet.getCellRangeByName(address)
        cell.Formula = "=" + formula
        return cell

    def details(self, request):
        method, _, y, x, _ = request
        details = office.create("TBVNonPara.clsNonParaDetails")
        details.Method, details.Headers, details.YRange, details.XRange = method, True, y, x
        details.Calculate()
        return json.loads(details.Json)

    def table(self, formula):
        block = self.sheet.getCellRangeByName("T1:U400")
        block.clearContents(1023)
        block.setArrayFormula("=" + formula)
        rows = {}
        for number, (name, value) in enumerate(block.getDataArray()):
            error = self.sheet.getCellByPosition(20, number).getError()
            if isinstance(name, str) and name:
                rows[name] = None if error == NOT_AVAILABLE else value
        block.setArrayFormula("")
        return rows

    def test_the_table_holds_the_details_bit_for_bit(self):
        for formula, request in zip(FUNCTIONS, EIGHT_TESTS):
            with self.subTest(formula):
                expected = leaves(self.details(request))
                table = self.table(formula.format(""))
                for name, value in expected.items():
                    if name.split(".")[0] not in WORDS:
                        self.assertIn(name, table)
                        self.assertEqual(value, table[name], name)
                self.assertAlmostEqual(1, table["p"] / request[-1], delta=1e-13)

    def test_a_figure_by_name_is_that_of_the_table(self):
        for formula in FUNCTIONS:
            for name, value in list(self.table(formula.format("")).items())[::7]:
                with self.subTest(formula, name=name):
                    cell = self.result(formula.format(f';"{name}"'), "X1")
                    if value is None:
                        self.assertEqual(NOT_AVAILABLE, cell.getError())
                    else:
                        self.assertEqual(0, cell.getError())
                        self.assertEqual(value, cell.String if isinstance(value, str) else cell.Value)

    def test_known_figures(self):
        for formula, value in FIGURES:
            with self.subTest(formula):
                cell = self.result(formula)
                if value is None:
                    self.assertEqual(VALUE, cell.getError())
                else:
                    self.assertEqual(0, cell.getError())
                    self.assertAlmostEqual(value, cell.Value, delta=1e-13)

    def test_an_unknown_name_is_no_value(self):
        for formula in FUNCTIONS:
            self.assertEqual(VALUE, self.result(formula.format(';"nonsense"')).getError(), formula)

    def test_the_name_of_several_figures_is_no_value(self):
        self.assertEqual(VALUE, self.result('MANNWHITNEY.DETAILS(A2:A7;B2:B7;"effect")').getError())

    def test_what_the_data_do_not_have_is_not_available(self):
        for name in ("trend", "trend.p"):
            with self.subTest(name):
                cell = self.result(f'KRUSKALWALLIS.DETAILS(A2:C7;"{name}")')
                self.assertEqual(NOT_AVAILABLE, cell.getError())

    def test_figures_follow_the_data(self):
        cell = self.result('MANNWHITNEY.DETAILS(A2:A7;B2:B7;"effect.superiority")')
        self.assertEqual(9 / 36, cell.Value)
        self.sheet.getCellRangeByName("A7").Value = 100
        self.assertNotEqual(9 / 36, cell.Value)
        self.sheet.getCellRangeByName("A7").Value = 6
        self.assertEqual(9 / 36, cell.Value)


if __name__ == "__main__":
    unittest.main()
