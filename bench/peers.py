"""How bench/compare asks other packages for the same tests. A call sees the columns of the file as a, b, c ..."""

import re
import shutil
import subprocess
import sys
from pathlib import Path

PYTHON = "/usr/bin/python3" if Path("/usr/bin/python3").exists() else sys.executable

ALGLIB_TIMED = Path(__file__).resolve().parent.parent / "build" / "bench" / "bench" / "time_alglib"

# Prints the least seconds of a call, of several measurements of so many calls that each takes a while.
SCIPY_TIMED = """
import time
def least(action):
    start = time.thread_time()
    action()
    best, spent, calls, rounds = time.thread_time() - start, 0, 1, 0
    if best > 4:
        return best
    while rounds < 3 or (spent < 0.2 and rounds < 30):
        start = time.thread_time()
        for _ in range(calls):
            action()
        seconds = time.thread_time() - start
        best, spent, rounds = min(best, seconds / calls), spent + seconds, rounds + 1
        calls = calls * 4 if seconds < 0.02 else calls
    return best
print(least(lambda: {call}))
"""
SCIPY = """
import warnings; warnings.simplefilter("ignore")
import numpy, scipy.stats as s
{imports}
x = numpy.loadtxt({file!r}, delimiter=",", skiprows=1, ndmin=2)
a = x[:, 0]
b, c = x[:, min(1, x.shape[1] - 1)], x[:, min(2, x.shape[1] - 1)]
"""
R = "d <- read.csv({file!r})\n"
FREAD = "d <- as.data.frame(data.table::fread({file!r}, nThread = 1))\n"
R_TIMED = """
action <- function() {call}
now <- function() {{ t <- proc.time(); t[["user.self"]] + t[["sys.self"]] }}
start <- now()
invisible(action())
first <- now() - start
best <- if (first > 4) first else Inf; spent <- 0; calls <- 1; rounds <- if (first > 4) Inf else 0
while (rounds < 3 || (spent < 0.2 && rounds < 30)) {{
  start <- now()
  for (i in seq_len(calls)) action()
  seconds <- now() - start
  if (seconds >= 0.1 || rounds > 20) best <- min(best, seconds / calls)
  spent <- spent + seconds; rounds <- rounds + 1
  if (seconds < 0.1) calls <- calls * 4
}}
cat(best, "\\n")
"""
PSPP = """
GET DATA /TYPE=TXT /FILE={file!r} /DELIMITERS="," /FIRSTCASE=2 /VARIABLES={variables}.
NPAR TESTS {call}.
"""
GRETL = """set verbose off
open {file} --quiet
difftest a b --rank-sum
"""
OCTAVE = """x = dlmread({file!r}, ',', 1, 0); n = rows(x); r = ranks(x(:));
U = sum(r(1:n)) - n * (n + 1) / 2; z = (abs(U - n * n / 2) - 0.5) / sqrt(n * n * (2 * n + 1) / 12);
printf('%g %g\\n', U, erfc(z / sqrt(2)));
"""

SCIPY_CALLS = {
    "mann-whitney": "s.mannwhitneyu(a, b)",
    "wilcoxon": "s.wilcoxon(a, b)",
    "spearman": "s.spearmanr(a, b)",
    "sign": "sign_test(a - b)",
    "median": "s.median_test(a, b, c)",
    "friedman": "s.friedmanchisquare(*x.T)",
    "kruskal-wallis": "s.kruskal(a, b, c)",
    "runs": "runstest_1samp(a, 0.5)",
}
STATSMODELS = {
    "sign": "from statsmodels.stats.descriptivestats import sign_test",
    "runs": "from statsmodels.sandbox.stats.runs import runstest_1samp",
}
R_CALLS = {
    "mann-whitney": "wilcox.test(d$a, d$b)",
    "wilcoxon": "wilcox.test(d$a, d$b, paired = TRUE)",
    "spearman": 'suppressWarnings(cor.test(d$a, d$b, method = "spearman"))',
    "sign": "binom.test(sum(d$a > d$b), sum(d$a != d$b))",
    "median": "suppressWarnings(chisq.test(sapply(d, function(g) table(factor(g > median(unlist(d)), c(FALSE, TRUE))))))",
    "friedman": "friedman.test(as.matrix(d))",
    "kruskal-wallis": "kruskal.test(d)",
}
# call, and whether it takes the stacked numbers
PSPP_CALLS = {
    "mann-whitney": ("/MANN-WHITNEY = value BY group (1, 2)", True),
    "wilcoxon": ("/WILCOXON a WITH b", False),
    "sign": ("/SIGN a WITH b", False),
    "median": ("/MEDIAN = value BY group (1, 3)", True),
    "friedman": ("/FRIEDMAN = a b c d e", False),
    "kruskal-wallis": ("/KRUSKAL-WALLIS = value BY group (1, 3)", True),
    "runs": ("/RUNS (0.5) = a", False),
}


ALGLIB = ("mann-whitney", "wilcoxon", "spearman", "sign")


def has_scipy():
    found = subprocess.run([PYTHON, "-c", "import scipy, statsmodels"], capture_output=True, check=False)
    return found.returncode == 0


def scipy(test, file, ending):
    call = SCIPY_CALLS[test]
    text = SCIPY.format(file=str(file), imports=STATSMODELS.get(test, "")) + ending.format(call=call)
    return [PYTHON, "-c", text]


def in_process(test, file):
    commands = {}
    if has_scipy():
        commands["SciPy"] = scipy(test, file, SCIPY_TIMED)
    if test in R_CALLS and shutil.which("Rscript"):
        commands["R"] = ["Rscript", "--vanilla", "-e", R.format(file=str(file)) + R_TIMED.format(call=R_CALLS[test])]
    if test in ALGLIB and ALGLIB_TIMED.exists():
        commands["ALGLIB"] = [str(ALGLIB_TIMED), str(file), test]
    return commands


def pspp(test, file, stacked, folder):
    call, takes_groups = PSPP_CALLS[test]
    columns = len(open(file, encoding="ascii").readline().split(","))
    variables = "value F12.6 group F4.0" if takes_groups else " ".join(f"{c} F12.6" for c in "abcde"[:columns])
    syntax = folder / f"{test}.sps"
    syntax.write_text(PSPP.format(file=str(stacked if takes_groups else file), variables=variables, call=call))
    return ["pspp", str(syntax)]


def script(folder, name, text, file):
    path = folder / name
    path.write_text(text.format(file=str(file)))
    return str(path)


def from_file(test, file, stacked, folder):
    commands = {}
    if has_scipy():
        commands["SciPy"] = scipy(test, file, "print({call})")
    if test in R_CALLS and shutil.which("Rscript"):
        for name, reading in (("R", R), ("R, fread", FREAD)):
            commands[name] = ["Rscript", "--vanilla", "-e", reading.format(file=str(file)) + f"print({R_CALLS[test]})"]
    if test in PSPP_CALLS and shutil.which("pspp"):
        commands["PSPP"] = pspp(test, file, stacked, folder)
    if test == "mann-whitney" and shutil.which("gretlcli"):
        commands["gretl"] = ["gretlcli", "-b", script(folder, "test.inp", GRETL, file)]
    if test == "mann-whitney" and shutil.which("octave-cli"):
        commands["Octave"] = ["octave-cli", "--quiet", "--norc", script(folder, "test.m", OCTAVE, file)]
    return commands


def versions():
    """The version of each package that is installed."""
    asked = {
        "Python": [PYTHON, "--version"],
        "SciPy": [PYTHON, "-c", "import scipy; print(scipy.__version__)"],
        "statsmodels": [PYTHON, "-c", "import statsmodels; print(statsmodels.__version__)"],
        "R": ["Rscript", "--version"],
        "PSPP": ["pspp", "--version"],
        "gretl": ["gretlcli", "--version"],
        "Octave": ["octave-cli", "--version"],
    }
    found = {}
    for name, command in asked.items():
        if shutil.which(command[0]):
            answer = subprocess.run(command, capture_output=True, text=True, check=False)
            number = re.search(r"\d+\.\d+(\.\d+)?|\d{4}[a-z]", answer.stdout + answer.stderr)
            if answer.returncode == 0 and number:
                found[name] = number.group()
    return found
