"""The corvane command as a user runs it. For every command: the exit status,
one line on standard error for each kind of fault ("corvane COMMAND: ", the
fault and, where the library gave one, its code), and with --json one object
that docs/corvane-cli.schema.json takes, holding that status and message. The
results, as JSON and as text, of the ways of giving a command its input;
materials by name; each JSON example of docs/cli.md as a run prints it now.
Strength, notched, impact and crippling results: strength_command_test.cc."""

import json
import os
import pathlib
import re
import shlex
import struct
import subprocess

import pytest

jsonschema = pytest.importorskip("jsonschema")

ROOT = pathlib.Path(__file__).resolve().parent.parent
SCHEMA = json.loads((ROOT / "docs" / "corvane-cli.schema.json").read_text())


def run(args, bases=""):
    # Only the installed materials and those the arguments name.
    environment = dict(os.environ, BASES_DATOS=bases, PATH="/nonexistent")
    return subprocess.run([os.environ["CORVANE_CLI_PROGRAM"], *shlex.split(args)],
                          capture_output=True, text=True, cwd=ROOT, env=environment, check=False)


# Command line, exit status (1 refused or no result, 2 a wrong command line, 3 a
# file not written), a piece of standard error, and the text of a file that "@"
# names or the library's code. The documented examples (below) are more.
CASES = [
    ("stiffness '(0/45.)' --m2-nu12 -0.1", 1,
     "stiffness: material 2: v12 = -0.1 is negative (library error code 1: invalid ply material)"),
    ("stiffness '(0/90)S' --nu12 0", 1, "(0/90)S was read, but the laminate is unusable"),
    ("stiffness --e1 abc", 2, 'stiffness: --e1: "abc" is not a number (see --help)'),
    ("stiffness --cards /nonexistent/deck.bdf", 3, "stiffness: cannot write the cards to /nonex"),
    ("stiffness --deck solver --f1t 1500 --m2-f2c 246", 0, ""),
    ("stiffness --deck solver --m2-f2c -5", 1, "material 2: F2c = -5 is negative (library error code 1"),
    ("stiffness --f12 70", 2, "--f12 goes with --deck solver"),
    ("stiffness --material T300/5208", 0, ""),
    ("stiffness --material T300/5208 --materials /nonexist", 1,
     "stiffness: faulty material data:\n  /nonexist: no such file or directory"),
    ("strains '(0/90)2S' --nx -250 --nxy 40", 0, ""),
    ("strains --thickness 1 --ex 1 --ey 1 --gxy 1e-7 --nuxy 0", 1, "Gxy = 1e-07 is below 1e-6"),
    ("strains --ex 5", 2, "give all of --thickness --ex --ey --gxy --nuxy, or none"),
    ("strains --h 1 --thickness 1", 2, "give --thickness once (--h is its old name)"),
    ("plate-buckling --a 600 --b 200", 0, ""),
    ("plate-buckling '(0/90' --a 1 --b 1", 1, 'the layup "(0/90" is refused: no ")"'),
    ("plate-buckling --D 8,0,0,6,0,3 --a 5 --b 2", 1,
     "no critical load found for Nx, Ny, Nxy: D12 = 0 is not positive"),
    ("plate-buckling --D 1,2,3,4,5,6 --e1 5 --a 1 --b 1", 2, "--D replaces the material and layup"),
    ("plate-buckling --a 600", 2, ""),
    ("reserve-factor --a 600 --b 200 --nx -2 --nxy 1", 0, ""),
    ("reserve-factor --nxcr 8 --nycr 0.5e-6 --nxycr 1", 1, "the critical Ny = 5e-07 is below 1e-6"),
    ("reserve-factor --nx -5", 2, "give the critical loads (--nxcr --nycr --nxycr) or"),
    ("shell-buckling --length 600 --width 200 --radius 1000", 0, ""),
    ("shell-buckling --A 5,1,0,4,0,2 --D 4,0,0,3,0,1 --thickness 1 --l 6 --b 3 --r 0", 1,
     "D12 = 0 is not positive, so the flat-panel shear estimate is 0"),
    ("strength --criterion tsai_wu,foo", 1, 'unknown criterion "foo"; the criteria are TSAI_HILL, '
     "TSAI_WU, HOFFMAN, YAMADA_SUN, PUCK, MAX_STRAIN_I, MTS, or all (library error code 2"),
    ("strength --criterion mts2", 1, "", 3),
    ("strength --f2c 0 --criterion puck", 1,
     "F2c missing (material 1, criterion PUCK): give --f2c (library error code 4"),
    ("strength --m2-uetall 0 --criterion mts '(0/90.)S'", 1, "give --m2-uetall"),
    ("strength --f2t -40", 1, "F2t = -40 is negative"),
    ("strength --f12-star 1 --criterion tsai_wu", 1, "(--f12-star)"),
    ("strength '(0//90)'", 1, "refused at character 4"),
    ("strength --nx nan", 2, '"nan" is not a number'),
    ("strength --out x.csv", 2, "--out goes with --loads"),
    ("strength --loads x.csv --json", 2, ""),
    ("strength --loads no_such_file.csv", 1, "cannot read the load cases from no_such_file.csv"),
    ("strength --nx 1 --loads @", 2, "drop --nx", "Nx\n1\n"),
    ("strength --loads @", 1, '@ line 1: unknown column "Nz"; the columns are Nx, Ny,', "Nx,Nz\n"),
    ("strength --loads @", 1, "@ line 1: column Nx named twice", "Nx,nx\n"),
    ("strength --loads @", 1, "@ line 4: the header names 2 columns, this line has 1",
     "\nNx,Ny\n1,2\n1\n"),
    ("strength --loads @", 1, '@ line 2: column Mx: "1e39" is out of the range', "Mx\n1e39\n"),
    ("strength --loads @", 1, "@: no header line", "\n"),
    ("notched --nx 100 --check oht", 1, "a0oht missing (material 1, criterion OHT)"),
    ("notched --property A0OHT=1 --hole-diameter -2", 1, "out of range (--hole-diameter)"),
    ("impact --property OHT=100", 1, "OHT=100 refused"),
    ("impact --model 'CDTM-T04 1 2'", 1, "not usable"),
    ("impact --loads x.csv --json", 2, ""),
    ("crippling --segment b=2,edge=OEF --segment b=40,edge=NEF,angle=90 --length 300", 0, ""),
    ("crippling --segment b=200,edge=OEF", 0, "crippling: warning: segment 1: b/t above 4-30 (OEF"),
    ("crippling --segment b=20", 2, "crippling: --segment b=20: a segment needs b= and edge="),
    ("crippling --length 300", 2, ""),
    ("crippling --segment b=20,edge=OEF --fixity -1", 1, "crippling: end fixity coefficient -1 is"),
    ("crippling --segment 'b=20,edge=OEF,layup=(0/9x)'", 1,
     'crippling: segment 1: the layup "(0/9x)" is refused at character 4: unreadable ply angle'),
    ("crippling --section @", 1, 'crippling: @ line 2: unknown key "q"',
     "b=20,edge=OEF\nb=20,edge=OEF,q=1\n"),
    ("materials", 0, ""),
    ("materials show t300/5208 --materials materials/textbook_tapes.mat", 0, ""),
    ("materials --where T300/5280", 1, 'no material "T300/5280"; nearest: T300/5208'),
    ("stifness", 2, 'corvane: unknown command "stifness"; the commands are stiffness, strains, '
     "plate-buckling, reserve-factor, shell-buckling, strength, notched, impact, crippling, materials"),
    ("", 2, "corvane: A subcommand is required (see --help)"),
]


@pytest.mark.parametrize("case", CASES)
def test_status_one_line_and_an_envelope_the_schema_takes(case, tmp_path):
    args, status, says, *more = case
    if "@" in args:
        (tmp_path / "in").write_text(more.pop())
        args, says = (text.replace("@", str(tmp_path / "in")) for text in (args, says))
    done = run(args)
    assert done.returncode == status, done.stderr
    assert says in done.stderr and ("at character" in done.stderr) == ("at character" in says)
    if status:
        assert done.stderr.startswith("corvane") and done.stderr.count("\n") == 1 + says.count("\n")
    if "--json" not in args and "--loads" not in args:  # --loads takes no --json
        done = run(args + " --json")
    if "--json" in done.args:
        assert done.returncode == status
        document = json.loads(done.stdout)  # one JSON value and nothing else
        jsonschema.validate(document, SCHEMA)
        error = document.get("error", {"code": 0})
        assert error["code"] == status and ("results" in document) == (status == 0)
        code = error.get("library_code")
        shown = f" (library error code {code}:" if code is not None else "\n"
        assert not status or done.stderr.split(": ", 1)[1].startswith(error["message"] + shown)
        assert code == (more or [code])[0]


PLY = ("t", "e1", "e2", "g12", "nu12", "cte1", "cte2")


# The entry points' results for these inputs, as direct calls give them, under
# their names in the JSON's input and results; the text shows each real in six
# significant digits, and --help the command's examples.
@pytest.mark.parametrize("args, expected", [
    ("stiffness --layup '(0/90)2S' --e1 1.5D3 --nu12 .27", dict(
        thickness=1, e_x=8720.184, e_y=8720.185, g_xy=5000, nu_xy=0.46956518)),
    # Values of material 2 not given are those of material 1.
    ("stiffness '(45./0)' --e1 1500 --nu12 0.27 --m2-e2 7e4", dict(
        entry_points=["BI_MATERIAL_LAMINATE_STIFFNESS"], laminate=dict(layup="(45./0)", materials=[
            dict(zip(PLY, (0.125, 1500, 1e4, 5e3, 0.27, -3e-7, 2.8e-5))),
            dict(zip(PLY, (0.125, 1500, 7e4, 5e3, 0.27, -3e-7, 2.8e-5)))]))),
    ("strains '(0/90)2S' --nx -250 --nxy 40", dict(eps_x=-0.0034311619, eps_y=0.00014197911,
                                                   gamma_xy=0.008, eps_p45=0.0023554089,
                                                   eps_m45=-0.0056445915)),
    ("strains --thickness 2 --ex 6e4 --ey 3e4 --gxy 1e4 --nuxy 0.2 --ny -120",
     dict(loads=dict(n_x=0, n_y=-120, n_xy=0), eps_x=0.0002, eps_y=-0.002)),
    ("plate-buckling --D 8000,2500,70,6000,90,3000 --a 500 --b 200",
     dict(n_x_cr=7.77108, n_y_cr=2.2021065, n_xy_cr=10.782276)),
    ("reserve-factor --a 500 --b 200 --nx -60 --nxy 40",
     dict(n_x_cr=4.120561, n_y_cr=0.89929104, n_xy_cr=4.9374146, rf=0.0550275)),
    ("shell-buckling --l 600 --b 300 --r 1500",
     dict(thickness=1, n_x_cr=16.713335, n_y_cr=1.3528872, n_xy_cr=7.706835)),
])
def test_json_and_text_hold_the_entry_points_results(args, expected):
    document = json.loads(run(args + " --json").stdout)
    printed, text = {**document["input"], **document["results"]}, run(args).stdout
    for key, value in expected.items():
        assert printed[key] == value, key
        single = struct.unpack("f", struct.pack("f", value))[0] if isinstance(value, float) else 0
        assert not single or f" = {single:.6g}" in text, key
    command = args.split()[0]
    assert f"Examples:\n  corvane {command}" in run(f"{command} --help").stdout


def test_the_solver_deck_carries_the_strength_options(tmp_path):
    # To the file and the JSON alike; material 2's strengths material 1's unless given.
    done = run("stiffness '(0/45.)' --deck solver --crlf --f1t 1500 --f12 70 --m2-f2c 246 "
               f"--json --cards {tmp_path}/deck")
    deck = (tmp_path / "deck").read_bytes().decode()
    assert json.loads(done.stdout)["results"]["cards"] == deck
    assert "1500.                             70.\r\nMAT8         102" in deck
    assert "1500.                    246.     70.\r\n$" in deck


def test_materials_by_name_and_where_they_are_found(tmp_path):
    typed = "--t 0.125 --e1 181000 --e2 10300 --g12 7170 --nu12 0.28 --cte1 .02e-6 --cte2 22.5e-6"
    for command in ("stiffness", "strength --nx -100", "crippling --segment b=20,edge=OEF"):
        strengths = "" if command == "stiffness" else " --f2t 40 --f2c 246 --f12 68"
        named = json.loads(run(command + " --material t300/5208 --json").stdout)
        given = named["input"].get("material") or named["input"]["laminate"]["materials"][0]
        assert given.pop("name") == "T300/5208"
        assert named == json.loads(run(f"{command} {typed}{strengths} --json").stdout), command
    tape = " CPT 0.2\n E1 140000\n E2 9000\n G12 4600\n V12 0.3\n TENSION 2000\n COMPRESSION 1400\nEND\n"
    (tmp_path / "bases").mkdir()
    (tmp_path / "bases" / "office.mat").write_text("MATERIAL T300/5208\n" + tape)
    bases = str(tmp_path / "bases")
    assert run("materials --where T300/5208", bases).stdout == f"{bases}/office.mat:1\n"


@pytest.mark.parametrize("args, shown", re.findall(
    r"```console\n\$ corvane (.*? --json)\n(.*?)```", (ROOT / "docs" / "cli.md").read_text(), re.S))
def test_cli_md_examples_are_real_runs(args, shown):
    printed, documented = json.loads(run(args).stdout), json.loads(shown)
    jsonschema.validate(printed, SCHEMA)
    printed.pop("corvane_version")
    documented.pop("corvane_version")
    assert printed == documented
