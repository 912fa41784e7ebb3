"""What a result gives, and how it is shown and saved."""

import json
import pickle
import zipfile

import numpy as np
import pytest
import tbvnonpara as tbv


def test_statistic_and_p_unpack_as_scipys_do(sleep):
    statistic, pvalue = tbv.mann_whitney(sleep.Drug1, sleep.Drug2)
    assert (statistic, round(pvalue, 4)) == (25.5, 0.0658)


def test_figures_have_the_names_of_json(sleep):
    result = tbv.mann_whitney(sleep.Drug1, sleep.Drug2)
    all_of_it = result.to_dict()
    superiority = all_of_it["effect"]["superiority"]
    assert result.effect.superiority.interval == (superiority["low"], superiority["high"])
    assert result.effect.rank_biserial.value == all_of_it["effect"]["rankBiserial"]["value"]
    assert result.figures["groups.2.median.low"] == all_of_it["groups"][1]["median"]["low"]
    assert result.groups[1].mean_rank == all_of_it["groups"][1]["meanRank"]
    assert json.loads(result.to_json()) == all_of_it
    assert "rank_biserial" in dir(result.effect) and "effect" in dir(result)
    with pytest.raises(AttributeError, match="no figure 'shft'; there are superiority, rank_biserial, shift"):
        result.effect.shft
    with pytest.raises(KeyError):
        result.figures["groups.3"]


def test_what_exists_without_an_interval_has_none():
    assert tbv.mann_whitney([1], [2]).effect.shift.interval is None


def test_printed_are_report_and_details(sleep):
    text = str(tbv.mann_whitney(sleep.Drug1, sleep.Drug2))
    assert text.startswith("Mann-Whitney Test Results for:\n")
    assert "74.5000    10    10  0.0630" in text
    assert "\nDetails\n" in text and "Drug2 tends to be larger than Drug1" in text


def test_notebooks_show_the_page_with_its_picture(sleep):
    page = tbv.mann_whitney(sleep.Drug1, sleep.Drug2)._repr_html_()
    assert page.startswith("<iframe srcdoc=") and "&lt;svg" in page


def test_comparisons_are_a_table(feeds):
    frame = tbv.kruskal_wallis(data=feeds, value="weight", by="feed").comparisons
    assert list(frame.columns) == ["first", "second", "z", "superiority", "p", "adjusted"]
    assert len(frame) == 15 and (frame.adjusted >= frame.p).all()
    blocks = tbv.friedman([1, 2, 3], [2, 3, 1], [3, 4, 5]).comparisons
    assert list(blocks.columns) == ["first", "second", "z", "blocks_greater", "blocks_equal", "blocks_less", "p",
                                    "adjusted"]
    with pytest.raises(AttributeError, match="compares no groups"):
        tbv.sign([1, 2]).comparisons


def test_saved_in_every_form(sleep, tmp_path):
    result = tbv.mann_whitney(sleep.Drug1, sleep.Drug2)
    for ending, part in [("html", "<svg"), ("csv", "Mann-Whitney Test Results"), ("json", '"details"'),
                         ("txt", "Details")]:
        path = tmp_path / f"report.{ending}"
        result.save(path)
        assert part in path.read_text(encoding="utf-8")
    for with_data, sheets in [(False, 2), (True, 3)]:
        result.save(tmp_path / "report.xlsx", overwrite=True, with_data=with_data)
        with zipfile.ZipFile(tmp_path / "report.xlsx") as book:
            assert sum(name.startswith("xl/worksheets/sheet") for name in book.namelist()) == sheets


def test_files_are_kept_and_endings_known(sleep, tmp_path):
    result = tbv.mann_whitney(sleep.Drug1, sleep.Drug2)
    (tmp_path / "kept.txt").write_text("mine")
    with pytest.raises(FileExistsError):
        result.save(tmp_path / "kept.txt")
    assert (tmp_path / "kept.txt").read_text() == "mine"
    with pytest.raises(ValueError, match="must end in .xlsx, .html, .csv, .json or .txt"):
        result.save(tmp_path / "report.doc")
    with pytest.raises(OSError):
        result.save(tmp_path / "no folder" / "report.txt")


def test_results_are_pickled():
    result = pickle.loads(pickle.dumps(tbv.kruskal_wallis([1, 2, 5], [3, 4, 6], labels=["a", "b"], trend=True)))
    assert result.labels == ("a", "b") and result.trend is not None
    nothing = pickle.loads(pickle.dumps(tbv.sign([np.nan], missing="propagate")))
    assert np.isnan(nothing.pvalue)


def test_p_goes_on_where_doubles_end():
    result = tbv.sign(np.ones(2000))
    assert result.pvalue == 0
    # Half of the tails of 2,000 fair coins: log10 of 2^-1999.
    assert result.log10_pvalue == pytest.approx(-1999 * np.log10(2), rel=1e-12)


def test_what_fits_on_no_sheet_has_details_and_no_report(tmp_path):
    result = tbv.sign(np.ones(1_048_576))
    assert "There is no report: A sheet has no room for 1048576 values." in str(result)
    assert result.to_dict()["data"]["n"] == 1_048_576
    with pytest.raises(ValueError, match="no room"):
        result.save(tmp_path / "report.xlsx")
