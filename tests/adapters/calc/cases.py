"""The data of the clients in Basic and in Python, each of the eight tests on them, and every error."""

import uno  # noqa: F401
from TBVNonPara.TBVNPMethod import (tbvNPFriedman, tbvNPKWallis, tbvNPMannU, tbvNPMedian, tbvNPSign,
                                    tbvNPSpearman, tbvNPWilcoxon, tbvNPWWRuns)

from office import cells_of

OBJECT_ERROR = -2147221504
IN_RESULTS = "Line 0 in TBVNonPara.clsNonPara.Results"
IN_ENGINE = "Line 0 in TBVNonPara.clsNonParaBO."

COLUMNS = [
    ["first", 1, 2, 3, 4, 5, 6],
    ["second", 2.5, 1.5, 7, 8, 9, 10],
    ["third", 3.2, 5.2, 7.2, 9.2, 11, 13],
    ["sign", 1, 1, -1, 1, 0, 1],
    ["mixed", 2, 1, 4, 3, 6, 5],
    ["order", "a", "a", "a", "b", "b", "b"],
    ["text", 1, 2, "n/a", 4, 5, 6],
    ["two", 1, 2, 1, -1, 0, 1],
    ["short", 7],
    ["blank", 1, 2, "", 4, 5, 6],
    ["equal", 5, 5, 5, 5, 5, 5],
    ["same", 5, 5, 5, 5, 5, 5],
    ["one", "a", "a", "a", "a", "a", "a"],
]
FORMULAS = {"N1": "truth", "N2": "=TRUE()", "N3": "2", "O1": "failed", "O2": "=1/0", "O3": "2"}

# The probabilities: R 4.2, wilcox.test(exact = TRUE), kruskal.test, friedman.test, binom.test, pnorm, and the
# published table of Spearman's coefficient (42/720); Mood's by pchisq of the 2 x 3 table.
EIGHT_TESTS = [
    (tbvNPMannU, "Mann-Whitney Test Results for:", "Data!A1:A7", "Data!B1:B7", 0.17965367965367965),
    (tbvNPWilcoxon, "Wilcoxon Paired-Sample Test Results for:", "Data!A1:A7", "Data!C1:C7", 0.03125),
    (tbvNPSpearman, "Spearman Rank Correlation Results for:", "Data!A1:A7", "Data!E1:E7", 42 / 720),
    (tbvNPSign, "Sign Test Results for:", "Data!D1:D7", "", 0.375),
    (tbvNPSign, "Sign Test Results for:", "Data!A1:A7", "Data!C1:C7", 0.03125),
    (tbvNPMedian, "Mood Median Test Results for:", "Data!A1:C7", "", 0.1353352832366127),
    (tbvNPFriedman, "Friedman Test Results for:", "Data!A1:C7", "", 0.0057035489980074017),
    (tbvNPKWallis, "Kruskal-Wallis Test Results for:", "Data!A1:C7", "", 0.064396882303532452),
    (tbvNPWWRuns, "Wald-Wolfowitz Runs Test Results for:", "Data!F1:F7", "", 0.17090352023079747),
]


def own(offset):
    """A number of the library's own band."""
    return OBJECT_ERROR + offset


ERRORS = [
    # what                         number     source                        method        y, x, output
    ("output does not exist",      own(5001), "",                           tbvNPMannU,    None, None, "Nowhere!A1"),
    ("output is no address",       own(5001), "",                           tbvNPMannU,    None, None, "one two"),
    ("data range does not exist",  own(5009), "",                           tbvNPMannU,    "Nowhere!A1", None, None),
    ("data range is no address",   own(5009), "",                           tbvNPMannU,    "one two", None, None),
    ("second does not exist",      own(5010), "",                           tbvNPMannU,    "Data!A1:A7", "Nowhere!A1", None),
    ("no data range",              own(5011), IN_RESULTS,                   tbvNPMannU,    None, None, None),
    ("empty data range",           own(5011), "",                           tbvNPMannU,    "", None, None),
    ("no second range",            own(5012), IN_RESULTS,                   tbvNPMannU,    "Data!A1:A7", None, None),
    ("unequal pairs",              own(5018), IN_RESULTS,                   tbvNPWilcoxon, "Data!A1:A7", "Data!B1:B6", None),
    ("text in the data",           own(5020), IN_RESULTS,                   tbvNPMannU,    "Data!G1:G7", "Data!A1:A7", None),
    ("Boolean in the data",        own(5021), IN_RESULTS,                   tbvNPMannU,    "Data!N1:N3", "Data!A1:A7", None),
    ("error in the data",          own(5022), IN_RESULTS,                   tbvNPMannU,    "Data!A1:A7", "Data!O1:O3", None),
    ("blank in the data",          own(5023), IN_RESULTS,                   tbvNPMannU,    "Data!J1:J7", "Data!A1:A7", None),
    ("nothing below the label",    own(5024), IN_RESULTS,                   tbvNPMannU,    "Data!A1", "Data!B1:B7", None),
    ("output off the sheet",       own(5030), IN_RESULTS,                   tbvNPMannU,    "Data!A1:A7", "Data!B1:B7", "Data!A1048576"),
    ("output occupied",            own(5031), IN_RESULTS,                   tbvNPMannU,    "Data!A1:A7", "Data!B1:B7", "Data!A2"),
    ("one column only",            own(5048), "",                           tbvNPKWallis,  "Data!A1:A7", None, None),
    ("too few rows",               own(5050), IN_RESULTS,                   tbvNPSign,     "Data!I1:I2", "Data!I1:I2", None),
    ("several columns",            own(5052), "",                           tbvNPMannU,    "Data!A1:B7", None, None),
    ("second range too wide",      own(5053), "",                           tbvNPMannU,    "Data!A1:A7", "Data!A1:B7", None),
    ("sign codes",                 own(6000), IN_RESULTS,                   tbvNPSign,     "Data!H1:H7", None, None),
    ("all values equal",           6,         IN_ENGINE + "AnalyseKWallis", tbvNPKWallis,  "Data!K1:L7", None, None),
    ("one category",               11,        IN_ENGINE + "AnalyseWWRuns",  tbvNPWWRuns,   "Data!M1:M7", None, None),
    ("no such method",             91,        IN_RESULTS,                   8,             "Data!A1:A7", None, "Data!Q1"),
]


def open_data(office):
    """A new document with the columns and, beside them, cells that only formulas can fill."""
    document = office.open_with(COLUMNS)
    for address, formula in FORMULAS.items():
        document.Sheets.getByIndex(0).getCellRangeByName(address).Formula = formula
    return document


def holds(sheet, title, probability):
    """Whether a report with this title and this probability stands on a sheet."""
    cells = cells_of(sheet)
    numbers = [cell for row in cells for cell in row if isinstance(cell, float) and cell]
    # Thirteen digits: both sides are exact or a tail of a named distribution.
    return cells[0][0] == title and any(abs(number / probability - 1) < 1e-13 for number in numbers)
