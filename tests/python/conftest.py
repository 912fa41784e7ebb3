"""What the tests share."""

import json
import os
import subprocess
from pathlib import Path

import pandas
import pytest

ROOT = Path(__file__).resolve().parents[2]
PROGRAM = os.environ["TBVNONPARA_PROGRAM"]


def run_program(*words):
    """What the program prints of an example, as JSON."""
    done = subprocess.run([PROGRAM, *words, "--details", "--format", "json"], cwd=ROOT, check=True,
                          stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
    return json.loads(done.stdout)


def example(name):
    return pandas.read_csv(ROOT / "examples" / f"{name}.csv")


@pytest.fixture
def sleep():
    return example("sleep")


@pytest.fixture
def feeds():
    return example("feeds")
