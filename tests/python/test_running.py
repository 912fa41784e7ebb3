"""Threads, interruptions, memory."""

import concurrent.futures
import gc
import os
import resource
import signal
import threading
import time

import numpy as np
import pytest
import tbvnonpara as tbv

# Tied: counted for many seconds with as many steps as one likes, in a hundred megabytes.
LONG = [np.round(one, 1) for one in np.random.default_rng(5).normal(size=(2, 150))]


@pytest.fixture
def heeds_ctrl_c():
    """What starts programs in the background has them ignore it."""
    before = signal.signal(signal.SIGINT, signal.default_int_handler)
    yield
    signal.signal(signal.SIGINT, before)


@pytest.mark.usefixtures("heeds_ctrl_c")
def test_ctrl_c_ends_a_long_count():
    threading.Timer(0.3, os.kill, (os.getpid(), signal.SIGINT)).start()
    with pytest.raises(KeyboardInterrupt):
        tbv.mann_whitney(*LONG, exact_steps=1e15)


@pytest.mark.usefixtures("heeds_ctrl_c")
def test_ctrl_c_ends_the_tests_of_columns():
    x, y = (np.column_stack([one] * 8) for one in LONG)
    threading.Timer(0.3, os.kill, (os.getpid(), signal.SIGINT)).start()
    with pytest.raises(KeyboardInterrupt):
        tbv.mann_whitney(x, y, exact_steps=1e15)


def test_others_run_while_it_counts():
    x, y = np.random.default_rng(6).normal(size=(2, 300_000))
    ticks = 0
    with concurrent.futures.ThreadPoolExecutor(1) as other:
        waiting = other.submit(tbv.mann_whitney, x, y)
        while not waiting.done():
            ticks += 1
            time.sleep(0.001)
    assert ticks > 20


def test_threads_get_the_same_results():
    samples = [np.random.default_rng(number).normal(size=(2, 30)) for number in range(40)]
    alone = [tbv.mann_whitney(*pair).to_json() for pair in samples]
    with concurrent.futures.ThreadPoolExecutor(8) as threads:
        assert list(threads.map(lambda pair: tbv.mann_whitney(*pair).to_json(), samples * 5)) == alone * 5


def test_ten_thousand_calls_leak_nothing():
    x, y = np.random.default_rng(7).normal(size=(2, 20))

    def call(times):
        for _ in range(times):
            result = tbv.mann_whitney(x, y, exact_steps=0)
            result.effect.superiority.interval
            with pytest.raises(ValueError):
                tbv.mann_whitney(x, [np.nan])
        for _ in range(times // 100):
            str(tbv.kruskal_wallis(x, y, exact_steps=0))
        gc.collect()

    call(1_000)
    before = resource.getrusage(resource.RUSAGE_SELF).ru_maxrss
    call(10_000)
    # A result that stayed would have 4 kB and more.
    assert resource.getrusage(resource.RUSAGE_SELF).ru_maxrss - before < 4_000
