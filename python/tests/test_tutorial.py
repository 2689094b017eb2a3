"""docs/tutorial.md quotes examples/python/wing_panel.py: its tables as the
script writes them, its pictures as the script draws them."""

import os
import pathlib
import re
import subprocess
import sys

import pytest

pytest.importorskip("matplotlib", reason="Debian: python3-matplotlib (scripts/setup)")

ROOT = pathlib.Path(__file__).resolve().parents[2]
TABLE = re.compile(r"<!-- wing_panel\.py: (\w+) -->\n.*?<!-- end -->", re.S)


def tables(text):
    return {m.group(1): m.group(0) for m in TABLE.finditer(text)}


def test_the_tutorial_quotes_what_its_script_computes_and_draws(tmp_path):
    script, results = ROOT / "examples" / "python" / "wing_panel.py", tmp_path / "results.md"
    subprocess.run([sys.executable, script, "--images", tmp_path, "--results", results],
                   check=True, env={**os.environ, "MPLBACKEND": "Agg"})
    tutorial = (ROOT / "docs" / "tutorial.md").read_text()
    made = tables(results.read_text())
    assert "governing" in made and tables(tutorial) == made
    pictures = re.findall(r"\(images/(tutorial-\w+\.png)\)", tutorial)
    assert len(pictures) == 4
    for picture in pictures:
        assert (tmp_path / picture).stat().st_size > 0 and (ROOT / "docs" / "images" / picture).is_file()
