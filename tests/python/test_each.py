"""Many columns and parts of a table, with pandas and on a cluster of Dask."""

import os
import signal
import threading
import time

import numpy as np
import pandas
import pytest
import tbvnonpara as tbv

dask = pytest.importorskip("dask")
dataframe = pytest.importorskip("dask.dataframe")
distributed = pytest.importorskip("distributed")

ROWS = 4_000
RANDOM = np.random.default_rng(11)
FRAME = pandas.DataFrame({"site": RANDOM.choice(["north", "south", "west"], ROWS),
                          "dose": RANDOM.choice(["high", "low", "none"], ROWS),
                          "weight": RANDOM.normal(size=ROWS), "height": RANDOM.integers(0, 20, ROWS).astype(float)})
FRAME.loc[FRAME.dose == "high", "weight"] += 0.1
FRAME.loc[::97, "height"] = np.nan
WORDS = {"by": "dose", "values": ["weight", "height"], "adjust": "bh"}


@pytest.fixture(scope="module")
def cluster():
    with distributed.LocalCluster(n_workers=2, threads_per_worker=1, processes=True, dashboard_address=None,
                                  host="127.0.0.1") as running, distributed.Client(running):
        yield running


def test_a_row_for_each_column_with_p_over_all():
    table = tbv.each(FRAME, **WORDS)
    groups = [FRAME.weight[FRAME.dose == dose] for dose in ("high", "low", "none")]
    alone = tbv.kruskal_wallis(*groups)
    assert list(table.variable) == ["weight", "height"]
    assert table.pvalue[0] == alone.pvalue and table.low[0] == alone.effect.epsilon_squared.low
    assert table.missing[1] == FRAME.height.isna().sum()
    # Of Benjamini and Hochberg by hand: the larger P as it is, the smaller twice, but no more than that.
    low, high = sorted(table.pvalue)
    assert sorted(table.adjusted) == pytest.approx([min(2 * low, high), high])


def test_what_cannot_be_tested_says_why():
    table = tbv.each(FRAME, by="dose", test="mann-whitney")
    assert list(table.error) == ["mann-whitney compares two groups; there are 3."] * 2
    assert table.adjusted.isna().all()
    with pytest.raises(ValueError, match="There is no column 'drug'"):
        tbv.each(FRAME, by="drug")
    with pytest.raises(ValueError, match="adjust is holm"):
        tbv.each(FRAME, by="dose", adjust="some")


@pytest.mark.parametrize("within", [None, "site"])
def test_dask_gives_the_table_of_pandas(within, cluster):
    parts = dataframe.from_pandas(FRAME, npartitions=7)
    pandas.testing.assert_frame_equal(tbv.each(parts, within=within, **WORDS), tbv.each(FRAME, within=within, **WORDS))


def test_a_worker_that_is_killed_midway_changes_nothing(cluster):
    def slowly(part):
        time.sleep(0.3)
        return part

    parts = dataframe.from_pandas(FRAME, npartitions=8).map_partitions(slowly, meta=FRAME.iloc[:0])
    victim = next(iter(cluster.workers.values())).pid
    killer = threading.Timer(0.7, os.kill, (victim, signal.SIGKILL))
    killer.start()
    table = tbv.each(parts, within="site", **WORDS)
    assert not killer.is_alive()
    assert victim not in {worker.pid for worker in cluster.workers.values()} or not os.path.exists(f"/proc/{victim}")
    pandas.testing.assert_frame_equal(table, tbv.each(FRAME, within="site", **WORDS))
