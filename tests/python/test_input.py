"""What is taken as data, and what is refused in which words."""

import array

import numpy as np
import pandas
import pytest
import tbvnonpara as tbv

X = [0.8, 0.83, 1.89, 1.04]
Y = [1.15, 0.88, 0.9, 0.74, 1.21]

FORMS = [list, tuple, np.array, pandas.Series, lambda values: array.array("d", values),
         lambda values: memoryview(array.array("d", values)), lambda values: np.array(values, dtype=object),
         lambda values: pandas.Series(values, dtype="Float64"), lambda values: np.array(values * 2)[:len(values)],
         lambda values: np.repeat(values, 2)[::2], lambda values: np.ma.array(values),
         lambda values: np.array(values, dtype=">f8")]


@pytest.mark.parametrize("form", FORMS)
def test_every_form_of_the_values_gives_the_same(form):
    assert tuple(tbv.mann_whitney(form(X), form(Y))) == tuple(tbv.mann_whitney(X, Y))
    assert tuple(tbv.kruskal_wallis(form(X), form(Y))) == tuple(tbv.kruskal_wallis(X, Y))


def test_whole_numbers_and_truths_are_numbers():
    assert tuple(tbv.sign(np.array([1, -1, 1], dtype=np.int8))) == tuple(tbv.sign([1.0, -1.0, 1.0]))
    assert tbv.sign(np.array([True, True, False])).statistic == 2


def test_contiguous_doubles_are_not_copied():
    x, y = np.array(X), np.array(Y)
    result = tbv.mann_whitney(x, y)
    assert result._arrays[0] is x and result._arrays[1] is y
    assert np.shares_memory(tbv.kruskal_wallis(x, y)._arrays[0], x)


def test_data_that_changed_get_no_report_of_other_figures():
    x = np.array(X)
    result = tbv.mann_whitney(x, Y)
    x[0] = 9
    with pytest.raises(ValueError, match="The data have changed since they were tested"):
        result.report()


def test_columns_of_a_table_go_by_their_names():
    frame = pandas.DataFrame({"a": X, "b": Y[:4]})
    assert tbv.wilcoxon("a", "b", data=frame).labels == ("a", "b")
    assert tuple(tbv.wilcoxon("a", "b", data=frame)) == tuple(tbv.wilcoxon(X, Y[:4]))
    assert tuple(tbv.wilcoxon(frame.a, frame.b)) == tuple(tbv.wilcoxon(X, Y[:4]))
    assert tbv.wilcoxon(frame.a, frame.b).labels == ("a", "b")


def test_groups_are_those_of_a_column():
    frame = pandas.DataFrame({"value": X + Y, "group": ["p"] * 4 + ["q"] * 5})
    result = tbv.mann_whitney(data=frame, value="value", by="group")
    assert tuple(result) == tuple(tbv.mann_whitney(X, Y))
    assert result.labels == ("p", "q")
    turned = tbv.mann_whitney(data=frame, value="value", by="group", groups=["q", "p"])
    assert turned.statistic == 20 - result.statistic


def test_many_groups_are_split_in_one_pass_as_few_are():
    values, groups = np.arange(300.0) % 7, [f"g{i % 100}" for i in range(300)]
    frame = pandas.DataFrame({"value": values, "group": groups})
    split = [values[i::100] for i in range(100)]
    assert tuple(tbv.kruskal_wallis(data=frame, value="value", by="group")) == tuple(tbv.kruskal_wallis(*split))


def test_categories_are_in_their_own_order():
    frame = pandas.DataFrame({"value": X + Y, "group": pandas.Categorical(["p"] * 4 + ["q"] * 5, ["q", "z", "p"])})
    assert tbv.mann_whitney(data=frame, value="value", by="group").labels == ("q", "p")


def test_blocks_bring_together_what_belongs_together():
    frame = pandas.DataFrame({"patient": [3, 1, 2, 1, 2, 3], "time": ["a", "a", "a", "b", "b", "b"],
                              "value": [5, 1, 3, 2, 5, 9]})
    result = tbv.wilcoxon(data=frame, value="value", by="time", block="patient")
    assert tuple(result) == tuple(tbv.wilcoxon([5, 1, 3], [9, 2, 5]))
    twice = pandas.concat([frame, frame[:1]])
    with pytest.raises(ValueError, match="The block 3 has several values for a"):
        tbv.wilcoxon(data=twice, value="value", by="time", block="patient")


def test_sequences_are_of_texts_or_numbers():
    texts = tbv.runs(["a", "b", "b", "c", "a"])
    assert tuple(texts) == tuple(tbv.runs([1, 2, 2, 3, 1]))
    assert texts.labels == ("a", "b", "c")
    assert tbv.runs([1, 2.5, 2.5]).labels == ("1", "2.5")
    assert tbv.runs(["a", None, "a"], missing="omit").statistic == 1


def test_differences_alone_are_pairs_with_zero():
    assert tuple(tbv.wilcoxon([1, -2, 3])) == tuple(tbv.wilcoxon([1, -2, 3], [0, 0, 0]))


# Missing values.


def test_missing_values_are_refused_omitted_or_propagated():
    x = [*X, float("nan")]
    with pytest.raises(ValueError, match='Value 5 of the first sample is not a number. missing="omit" leaves out'):
        tbv.mann_whitney(x, Y)
    omitted = tbv.mann_whitney(x, Y, missing="omit")
    assert tuple(omitted) == tuple(tbv.mann_whitney(X, Y))
    assert omitted.data.missing == 1
    propagated = tbv.mann_whitney(x, Y, missing="propagate")
    assert np.isnan(propagated.statistic) and np.isnan(propagated.pvalue)
    with pytest.raises(ValueError, match="values are missing"):
        propagated.effect


def test_pairs_are_left_out_whole():
    omitted = tbv.wilcoxon([1, np.nan, 3, 7], [2, 2, np.nan, 3], missing="omit")
    assert tuple(omitted) == tuple(tbv.wilcoxon([1, 7], [2, 3]))
    assert "Wilcoxon" in omitted.report()


def test_groups_without_values_are_left_out():
    result = tbv.kruskal_wallis(X, [np.nan, np.nan], Y, missing="omit", labels=["a", "b", "c"])
    assert result.labels == ("a", "c")
    assert list(result.comparisons["second"]) == ["c"]


# Two dimensions.


def test_columns_are_tested_one_by_one():
    random = np.random.default_rng(3)
    x, y = random.normal(size=(12, 50)), random.normal(size=(9, 50))
    many = tbv.mann_whitney(x, y)
    each = [tbv.mann_whitney(x[:, i], y[:, i]) for i in range(50)]
    assert list(many.statistic) == [one.statistic for one in each]
    assert list(many.pvalue) == [one.pvalue for one in each]
    assert many[7].to_dict() == each[7].to_dict()
    assert len(many[10:20]) == 10
    along = tbv.mann_whitney(x.T, y.T, axis=1)
    assert list(along.pvalue) == list(many.pvalue)
    assert tbv.mann_whitney(x, y, axis=None).data.n == (600, 450)


def test_columns_with_missing_values():
    x, y = np.array([[1.0, 2], [3, np.nan]]), np.array([[2.0, 5], [4, 6]])
    with pytest.raises(ValueError, match="Column 2: Value 2 of the first sample"):
        tbv.mann_whitney(x, y)
    propagated = tbv.mann_whitney(x, y, missing="propagate")
    assert list(np.isnan(propagated.pvalue)) == [False, True]
    assert tbv.mann_whitney(x, y, missing="omit")[1].data.missing == 1


def test_columns_of_one_table_are_groups():
    table = np.arange(12.0).reshape(4, 3)
    assert tuple(tbv.friedman(table)) == tuple(tbv.friedman(*table.T))
    assert tuple(tbv.friedman(pandas.DataFrame(table))) == tuple(tbv.friedman(*table.T))


# What is refused.

WRONG = [
    (lambda: tbv.mann_whitney(X), TypeError, "mann-whitney needs x and y"),
    (lambda: tbv.mann_whitney(), TypeError, "There are no values"),
    (lambda: tbv.mann_whitney(X, []), ValueError, "The second sample has no values"),
    (lambda: tbv.mann_whitney(X, [1, np.inf]), ValueError, "Value 2 of the second sample is infinite"),
    (lambda: tbv.mann_whitney("abc", Y), TypeError, "x is a text"),
    (lambda: tbv.mann_whitney(["a", "b"], Y), TypeError, "x holds"),
    (lambda: tbv.mann_whitney([1j], Y), TypeError, "x holds"),
    (lambda: tbv.mann_whitney(X, Y, alternative="both"), ValueError, "alternative is 'two-sided', 'less' or 'greater'"),
    (lambda: tbv.mann_whitney(X, Y, confidence=95), ValueError, "must lie between 0.5 and 0.999"),
    (lambda: tbv.mann_whitney(X, Y, missing="drop"), ValueError, "missing is 'omit', 'raise' or 'propagate'"),
    (lambda: tbv.mann_whitney(X, Y, axis=2), ValueError, "axis is 0, 1 or None"),
    (lambda: tbv.mann_whitney(np.ones((2, 2, 2)), Y), ValueError, "x has 3 dimensions"),
    (lambda: tbv.mann_whitney(np.ones((2, 2)), np.ones((2, 3))), ValueError, "as many columns each"),
    (lambda: tbv.mann_whitney(X, Y, value="v"), TypeError, "need data="),
    (lambda: tbv.wilcoxon(X, Y), ValueError, "Pairs need two variables of one length"),
    (lambda: tbv.kruskal_wallis(X), ValueError, "fewer than two have values"),
    (lambda: tbv.kruskal_wallis(X, Y, control="z"), ValueError, "There is no group 'z'; the groups are 1, 2"),
    (lambda: tbv.kruskal_wallis(X, Y, adjust="some"), ValueError, "adjust is holm, bonferroni, bh or none"),
    (lambda: tbv.kruskal_wallis(X, Y, labels=["a"]), ValueError, "2 samples and 1 labels"),
    (lambda: tbv.runs([1, 2], alternative="less"), ValueError, "alternative is 'two-sided', 'fewer' or 'more'"),
    (lambda: tbv.wilcoxon(data=pandas.DataFrame({"a": X}), value="a", by="b"), TypeError, "block= must name"),
    (lambda: tbv.mann_whitney("a", "b", data=pandas.DataFrame({"a": X})), ValueError, "no column 'b'.*there are a"),
]


@pytest.mark.parametrize("call, kind, words", WRONG)
def test_wrong_input_is_told_in_words(call, kind, words):
    with pytest.raises(kind, match=words):
        call()
