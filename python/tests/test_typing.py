"""The package's type hints hold: mypy over it, with the settings of
pyproject.toml, finds nothing."""

import importlib.util
import pathlib
import subprocess
import sys

import pytest

PACKAGE = pathlib.Path(__file__).resolve().parents[1]


@pytest.mark.skipif(
    importlib.util.find_spec("mypy") is None,
    reason="mypy is not installed here (Debian: python3-mypy; scripts/setup installs it)",
)
def test_mypy_finds_nothing(tmp_path):
    ran = subprocess.run(
        [sys.executable, "-m", "mypy", "--cache-dir", str(tmp_path), "corvane"],
        cwd=PACKAGE,
        capture_output=True,
        text=True,
    )
    assert ran.returncode == 0, ran.stdout + ran.stderr
