"""Every figure, sentence and note is the one that the program gives for the same file."""

import json

import pytest
import tbvnonpara as tbv
from conftest import example, run_program


def pairs(test, file, **options):
    frame = example(file)
    return test(*frame.columns[:2], data=frame, **options)


CASES = [
    # the program's words                                         the same in Python
    ("mann-whitney examples/sleep.csv", lambda: pairs(tbv.mann_whitney, "sleep")),
    ("mann-whitney examples/sleep.csv --tails less --confidence 90",
     lambda: pairs(tbv.mann_whitney, "sleep", alternative="less", confidence=0.9)),
    ("wilcoxon examples/sleep.csv", lambda: pairs(tbv.wilcoxon, "sleep")),
    ("wilcoxon examples/depression.csv --tails greater",
     lambda: pairs(tbv.wilcoxon, "depression", alternative="greater")),
    ("spearman examples/tuna.csv", lambda: pairs(tbv.spearman, "tuna")),
    ("sign examples/sleep.csv", lambda: pairs(tbv.sign, "sleep")),
    ("sign examples/maize_signs.csv", lambda: tbv.sign(example("maize_signs").iloc[:, 0])),
    ("median examples/sprays.csv", lambda: tbv.median(example("sprays"))),
    ("kruskal-wallis examples/plants.csv --adjust bonferroni --trend",
     lambda: tbv.kruskal_wallis(example("plants"), adjust="bonferroni", trend=True)),
    ("kruskal-wallis examples/feeds.csv --y weight --by feed",
     lambda: tbv.kruskal_wallis(data=example("feeds"), value="weight", by="feed")),
    ("kruskal-wallis examples/feeds.csv --y weight --by feed --control casein",
     lambda: tbv.kruskal_wallis(data=example("feeds"), value="weight", by="feed", control="casein")),
    ("mann-whitney examples/feeds.csv --y weight --by feed --groups casein,linseed",
     lambda: tbv.mann_whitney(data=example("feeds"), value="weight", by="feed", groups=["casein", "linseed"])),
    ("friedman examples/rounding.csv", lambda: tbv.friedman(example("rounding"))),
    ("friedman examples/rounding.csv --trend --permutations 500 --seed 7",
     lambda: tbv.friedman(example("rounding"), trend=True, permutations=500, seed=7)),
    ("runs examples/huron.csv --tails fewer", lambda: tbv.runs(example("huron").iloc[:, 0], alternative="fewer")),
]


@pytest.mark.parametrize("words, ours", CASES, ids=[words for words, _ in CASES])
def test_details_and_report_are_those_of_the_program(words, ours, tmp_path):
    theirs = run_program(*words.split())
    result = ours()
    assert result.to_dict() == theirs["details"]
    result.save(tmp_path / "report.json")
    saved = json.loads((tmp_path / "report.json").read_text(encoding="utf-8"))
    assert saved["results"] == theirs["results"]
    assert saved["details"] == theirs["details"]
    # All cells but those that name the place of the data.
    named = [row for row in saved["report"]["rows"] if "Range = " not in str(row[0])]
    assert named == [row for row in theirs["report"]["rows"] if "Range = " not in str(row[0])]
