"""Opens the pages of all eight tests in a browser: pages_test.py PROGRAM PROJECT_FOLDER [PICTURES_FOLDER].

With a folder, pictures of every page are left there: light, dark and as wide as a phone. Needs Chromium.
"""

import html.parser
import json
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

PROGRAM = sys.argv.pop(1)
PROJECT = pathlib.Path(sys.argv.pop(1))
PICTURES = pathlib.Path(sys.argv.pop(1)) if len(sys.argv) > 1 else None
BROWSER = next(filter(None, map(shutil.which, ("chromium", "chromium-browser", "google-chrome"))), None)
if BROWSER is None:
    sys.exit("FAILED: the Debian package chromium is missing; cmake/install_packages check installs it")

FOLDER = pathlib.Path(tempfile.mkdtemp())
PAGES = {
    "mann-whitney": ("plants.csv", "--descriptives"),
    "wilcoxon": ("depression.csv", "--descriptives"),
    "spearman": ("tuna.csv", "--descriptives"),
    "sign": ("maize_signs.csv",),
    "median": ("chicks.csv", "--descriptives"),
    "friedman": ("rounding.csv", "--descriptives"),
    "kruskal-wallis": ("chicks.csv", "--descriptives"),
    "runs": ("huron.csv",),
}
SHAPES = {  # a shape of the page that only this picture has, and how many there are
    "mann-whitney": (r'class="median"', 2),
    "wilcoxon": (r"<circle", 9),
    "spearman": (r"<circle", 9),
    "sign": (r"<rect", 3),
    "median": (r'class="box"', 6),
    "friedman": (r'class="box"', 3),
    "kruskal-wallis": (r'class="box"', 6),
    "runs": (r"<rect", 21),
}
# A page in a frame of a width, and what its layout is like.
FRAME = """<!DOCTYPE html><body><iframe id=f style="width:{width}px;height:900px;border:0" src="{page}"></iframe>
<pre id=out></pre><script>
document.getElementById("f").onload = event => {{
  const view = event.target.contentWindow, page = view.document;
  const texts = [...page.querySelectorAll("svg text")].map(text => text.getBoundingClientRect());
  const over = (a, b) => a.left < b.right && b.left < a.right && a.top + 2 < b.bottom && b.top + 2 < a.bottom;
  const cells = [...page.querySelectorAll("th, td")];
  document.getElementById("out").textContent = JSON.stringify({{
    tooWide: page.documentElement.scrollWidth > view.innerWidth,
    cut: cells.filter(cell => cell.scrollWidth > cell.clientWidth + 2).length,
    cells: cells.length,
    spilt: texts.filter(text => text.left < 0 || text.right > view.innerWidth).length,
    overlapping: texts.filter((a, i) => texts.some((b, k) => i < k && over(a, b))).length,
    smallest: Math.min(...texts.map(text => text.height)),
    ink: view.getComputedStyle(page.body).color, paper: view.getComputedStyle(page.body).backgroundColor,
    pictureWidth: page.querySelector("svg").getBoundingClientRect().width }});
}};
</script>"""


def run(*words):
    return subprocess.run([PROGRAM, *map(str, words)], capture_output=True, encoding="utf-8", timeout=60)


def browser(*words):
    """Chromium with a new profile that asks nothing of the network."""
    with tempfile.TemporaryDirectory(ignore_cleanup_errors=True) as profile:
        return subprocess.run(
            [BROWSER, "--headless", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run",
             "--disable-background-networking", "--disable-component-update", "--disable-sync",
             "--allow-file-access-from-files", "--enable-logging=stderr", f"--user-data-dir={profile}", *words],
            capture_output=True, encoding="utf-8", errors="replace", timeout=120)


def fits(case, name, page):
    """A page has room for everything in a window and on a phone, light and dark."""
    for width, scheme in ((1000, 1), (390, 0)):
        frame = FOLDER / f"frame-{name}-{width}.html"
        frame.write_text(FRAME.format(width=width, page=page.as_uri()))
        result = browser("--dump-dom", "--virtual-time-budget=5000",
                         f"--blink-settings=preferredColorScheme={scheme}", frame.as_uri())
        case.assertNotIn("CONSOLE", result.stderr, name)
        found = re.search(r'<pre id="out">(\{.*\})</pre>', result.stdout)
        case.assertIsNotNone(found, (name, result.stdout[-300:], result.stderr[-300:]))
        layout = json.loads(found[1])
        case.assertEqual((layout["tooWide"], layout["cut"]), (False, 0), (name, width))
        case.assertEqual((layout["spilt"], layout["overlapping"]), (0, 0), (name, width))
        case.assertGreater(layout["smallest"], 9, (name, width))
        case.assertGreater(layout["pictureWidth"], 300, (name, width))
        light = layout["paper"] == "rgb(255, 255, 255)"
        case.assertEqual(light, scheme == 1, (name, layout))
        case.assertNotEqual(layout["ink"], layout["paper"])


class Outline(html.parser.HTMLParser):
    """The elements of a page, checked for being closed in order."""

    def __init__(self, text):
        super().__init__()
        self.tags, self.open, self.attributes = [], [], []
        self.feed(text)
        assert not self.open, self.open

    def handle_starttag(self, tag, attrs):
        self.tags.append(tag)
        self.attributes.append((tag, dict(attrs)))
        if tag not in ("meta", "link", "path", "rect", "circle"):
            self.open.append(tag)

    def handle_startendtag(self, tag, attrs):
        self.tags.append(tag)

    def handle_endtag(self, tag):
        assert self.open.pop() == tag, tag


class Pages(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.pages = {}
        for test, (data, *options) in PAGES.items():
            page = FOLDER / f"{test}.html"
            result = run(test, PROJECT / "examples" / data, *options, "--save", page)
            assert result.returncode == 0, result.stderr
            cls.pages[test] = page

    @staticmethod
    def hard_to_draw():
        """Pages whose labels and numbers have no room, and their tests."""
        labels = "WIDE LETTERS WITHOUT AN END,\u6771\u4eac\u90fd\u5927\u962a\u5e9c\u4eac\u90fd\u5e02,i"
        rows = ((123456789.123 + i / 1000, 123456789.125 + i / 700, 123456789.12 + i / 900) for i in range(20))
        data = FOLDER / "hard.csv"
        data.write_text(labels + "\n" + "".join(",".join(map(repr, row)) + "\n" for row in rows), encoding="utf-8")
        large = FOLDER / "wide.csv"
        large.write_text("a,b\n-1.5e300,1e300\n2e299,-1e299\n1e300,1.2e300\n", encoding="utf-8")
        made = {}
        for name, test, file in (("hard groups", "kruskal-wallis", data), ("hard pairs", "wilcoxon", data),
                                 ("hard ranks", "spearman", data), ("hard span", "mann-whitney", large)):
            made[name] = FOLDER / f"{name.replace(' ', '-')}.html"
            result = run(test, file, "--headers", "--save", made[name], "--overwrite")
            assert result.returncode == 0, result.stderr
        return made

    def test_are_one_well_formed_file_without_scripts_and_addresses(self):
        for test, page in self.pages.items():
            text = page.read_text(encoding="utf-8")
            outline = Outline(text)
            self.assertNotIn("script", outline.tags, test)
            self.assertEqual((outline.tags.count("h1"), outline.tags.count("main"), outline.tags.count("svg")),
                             (1, 1, 1), test)
            self.assertNotRegex(text, r"(src|href)=\"(?!data:,)|url\(|@import", test)

    def test_have_tables_that_can_be_read_aloud(self):
        for test, page in self.pages.items():
            outline = Outline(page.read_text(encoding="utf-8"))
            self.assertEqual(outline.tags.count("caption"), outline.tags.count("table"), test)
            for tag, attributes in outline.attributes:
                if tag == "th":
                    self.assertIn(attributes.get("scope"), ("col", "colgroup", "row"), test)
                if attributes.get("role") == "region":
                    self.assertNotIn(attributes["aria-label"], ("", "Table"), test)
                if tag == "svg":
                    self.assertEqual(attributes["role"], "img")
                    self.assertIn("picture-name", attributes["aria-labelledby"])

    def test_hold_the_exact_numbers_of_the_report(self):
        for test, (data, *options) in PAGES.items():
            report = json.loads(run(test, PROJECT / "examples" / data, *options, "--format", "json").stdout)
            expected = [cell for row in report["report"]["rows"] for cell in row if isinstance(cell, (int, float))]
            values = re.findall(r'<data value="([^"]*)">', self.pages[test].read_text(encoding="utf-8"))
            self.assertEqual([float(value) for value in values], expected, test)

    def test_show_a_picture_of_the_data(self):
        for test, (shape, count) in SHAPES.items():
            self.assertEqual(len(re.findall(shape, self.pages[test].read_text(encoding="utf-8"))), count, test)

    def test_mark_the_subscript(self):
        self.assertIn("r<sub>s</sub>", self.pages["spearman"].read_text(encoding="utf-8"))

    def test_fit_their_window_in_light_and_dark(self):
        for test, page in {**self.pages, **self.hard_to_draw()}.items():
            fits(self, test, page)

    def test_can_be_looked_at(self):
        if PICTURES is None:
            return
        PICTURES.mkdir(exist_ok=True)
        for test, page in {**self.pages, **self.hard_to_draw()}.items():
            test = test.replace(" ", "-")
            for name, size, scheme in (("light", "900,1300", 1), ("dark", "900,1300", 0), ("phone", "390,1300", 1)):
                browser(f"--screenshot={PICTURES.resolve()}/{test}-{name}.png", f"--window-size={size}",
                        "--hide-scrollbars", f"--blink-settings=preferredColorScheme={scheme}", page.as_uri())
            browser(f"--print-to-pdf={PICTURES.resolve()}/{test}.pdf", page.as_uri())


class Details(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.pages = {}
        for test, (data, *_) in PAGES.items():
            cls.pages[test] = FOLDER / f"details-{test}.html"
            result = run(test, PROJECT / "examples" / data, "--details", "--save", cls.pages[test])
            assert result.returncode == 0, result.stderr

    def test_are_a_section_that_can_be_read_aloud(self):
        for test, page in self.pages.items():
            text = page.read_text(encoding="utf-8")
            outline = Outline(text)
            self.assertNotIn("script", outline.tags, test)
            self.assertEqual((outline.tags.count("h2"), outline.tags.count("blockquote")), (1, 1), test)
            self.assertEqual(outline.tags.count("caption"), outline.tags.count("table"), test)
            self.assertEqual(outline.tags.count("svg"),
                             2 if test in ("median", "friedman", "kruskal-wallis") else 1, test)
            ids = [attributes["id"] for _, attributes in outline.attributes if "id" in attributes]
            self.assertEqual(len(ids), len(set(ids)), test)
            for tag, attributes in outline.attributes:
                for name in attributes.get("aria-labelledby", "").split():
                    self.assertIn(name, ids, test)
                if tag == "th":
                    self.assertIn(attributes.get("scope"), ("col", "colgroup", "row"), test)

    def test_hold_the_exact_numbers(self):
        for test, (data, *_) in PAGES.items():
            effect = json.loads(run(test, PROJECT / "examples" / data, "--details", "--format",
                                    "json").stdout)["details"]["effect"]
            values = [float(value) for value in
                      re.findall(r'<data value="([^"]*)">', self.pages[test].read_text(encoding="utf-8"))]
            for name, figure in effect.items():
                if figure is not None and name != "equalNeighbours":
                    self.assertIn(figure["value"], values, (test, name))

    def test_draw_the_intervals_of_medians(self):
        for test, count in (("mann-whitney", 2), ("wilcoxon", 1), ("median", 6), ("friedman", 3),
                            ("kruskal-wallis", 6), ("spearman", 0), ("sign", 0), ("runs", 0)):
            text = self.pages[test].read_text(encoding="utf-8")
            self.assertEqual(text.count('class="interval"'), count, test)

    def test_fit_their_window_in_light_and_dark(self):
        pages = {f"details-{test}": self.pages[test] for test in ("kruskal-wallis", "friedman", "median", "wilcoxon")}
        Pages.hard_to_draw()
        hard = pages["details-hard"] = FOLDER / "details-hard.html"
        result = run("kruskal-wallis", FOLDER / "hard.csv", "--headers", "--details", "--save", hard)
        self.assertEqual(result.returncode, 0, result.stderr)
        for name, page in pages.items():
            fits(self, name, page)


class LargeData(unittest.TestCase):
    def test_pictures_stay_small_and_texts_stay_texts(self):
        data = FOLDER / "large.csv"
        label = '"<script>alert(1)</script>&"'
        rows = (f"{(i * 7919) % 100003},{(i * 104729) % 99991},{i % 17}" for i in range(60000))
        data.write_text(f"{label},second,third\n" + "\n".join(rows) + "\n")
        for test in PAGES:
            words = [test, data, "--headers", "--format", "html"]
            words += ["--y", "C"] if test == "runs" else []
            words += ["--y", "A", "--x", "B"] if test in ("mann-whitney", "wilcoxon", "spearman", "sign") else []
            page = run(*words)
            self.assertEqual(page.returncode, 0, (test, page.stderr))
            self.assertLess(len(page.stdout), 300_000, test)
            self.assertNotIn("<script", page.stdout, test)


if __name__ == "__main__":
    try:
        unittest.main()
    finally:
        shutil.rmtree(FOLDER, ignore_errors=True)
