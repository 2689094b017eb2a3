"""The corvane command's --json against docs/corvane-cli.schema.json: every
command, on success and on each kind of failure, prints one JSON object that
the schema takes, with the exit status in its error; and each JSON example of
docs/cli.md is what a run of its command prints now."""

import json
import os
import pathlib
import re
import shlex
import subprocess

import pytest

jsonschema = pytest.importorskip("jsonschema")

ROOT = pathlib.Path(__file__).resolve().parent.parent
SCHEMA = json.loads((ROOT / "docs" / "corvane-cli.schema.json").read_text())


def run(args):
    # Only the installed materials and those the arguments name.
    environment = dict(os.environ, BASES_DATOS="", PATH="/nonexistent")
    return subprocess.run(
        [os.environ["CORVANE_CLI_PROGRAM"], *shlex.split(args)],
        capture_output=True, text=True, cwd=ROOT, env=environment, check=False,
    )


CASES = [
    ("stiffness", 0),
    ("stiffness '(0/45.)' --m2-nu12 -0.1", 1),
    ("stiffness --e1 abc", 2),
    ("stiffness --cards /nonexistent/deck.bdf", 3),
    ("stiffness --deck solver --f1t 1500 --m2-f2c 246", 0),
    ("stiffness --deck solver --m2-f2c -5", 1),
    ("strains '(0/90)2S' --nx -250 --nxy 40", 0),
    ("strains --thickness 1 --ex 1 --ey 1 --gxy 1e-7 --nuxy 0", 1),
    ("strains --ex 5", 2),
    ("plate-buckling --a 600 --b 200", 0),
    ("plate-buckling --D 8,0,0,6,0,3 --a 5 --b 2", 1),
    ("plate-buckling --a 600", 2),
    ("reserve-factor --a 600 --b 200 --nx -2 --nxy 1", 0),
    ("reserve-factor --nxcr 120 --nycr 80 --nxycr 150 --ny -20", 0),
    ("reserve-factor --nxcr 8 --nycr 0.5e-6 --nxycr 1", 1),
    ("shell-buckling --length 600 --width 200 --radius 1000", 0),
    ("shell-buckling --A 5,1,0,4,0,2 --D 4,0,0,3,0,1 --thickness 1 --l 6 --b 3 --r 0", 1),
    ("strength '(0/45./-45/90)S' --nx -500 --dt -100", 0),
    ("strength --criterion mts2", 1),
    ("strength --loads x.csv", 2),
    ("notched --nx 400 --check oht,bearing --fastener-load 100 --property A0OHT=1", 0),
    ("notched --nx 400 --check oht", 1),
    ("notched --hole-diameter 0 --property A0OHT=1", 1),
    ("impact --nx -400 --energy 30 --model 'CDTM-T04 0.003 0.5 0.004 0.05 1'", 0),
    ("impact --model 'CDTM-T09 1 2'", 1),
    ("impact --loads x.csv --json", 2),
    ("crippling --segment b=20,edge=OEF,y=10,z=20 --segment b=40,edge=NEF,angle=90"
     " --segment b=20,edge=OEF,y=-10,z=-20 --length 300", 0),
    ("crippling --segment b=2,edge=OEF --segment b=40,edge=NEF,angle=90 --length 300", 0),
    ("crippling --segment b=-20,edge=OEF", 1),
    ("crippling --length 300", 2),
    ("crippling --segment b=20,edge=OEF --criterion aosl", 1),
    ("materials", 0),
    ("materials show t300/5208 --materials materials/textbook_tapes.mat", 0),
    ("materials --where T300/5280", 1),
    ("stiffness --material T300/5208", 0),
    ("stiffness --material T300/5208 --materials /nonexistent", 1),
    ("stifness", 2),
]


@pytest.mark.parametrize("args, status", CASES)
def test_one_envelope_the_schema_takes(args, status):
    done = run(args + " --json")
    assert done.returncode == status, done.stderr
    document = json.loads(done.stdout)  # one JSON value and nothing else
    jsonschema.validate(document, SCHEMA)
    if status == 0:
        assert "results" in document
    else:
        assert document["error"]["code"] == status
        assert document["error"]["message"] in done.stderr


def examples():
    """(command, JSON) of each '$ corvane ... --json' example of docs/cli.md."""
    text = (ROOT / "docs" / "cli.md").read_text()
    for block in re.findall(r"```console\n\$ corvane (.*? --json)\n(.*?)```", text, re.S):
        yield block


@pytest.mark.parametrize("args, shown", list(examples()))
def test_cli_md_examples_are_real_runs(args, shown):
    done = run(args)
    printed, documented = json.loads(done.stdout), json.loads(shown)
    printed.pop("corvane_version")
    documented.pop("corvane_version")
    assert printed == documented
