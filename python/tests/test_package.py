"""What the package adds to the library: arguments and results in their places,
calls over arrays element for element the bits of one-element calls, errors and
their classes, materials by name, the library search, pickling and type hints.
The numbers themselves are the C++ tests'."""

import importlib.util
import os
import pathlib
import pickle
import subprocess
import sys

import numpy as np
import pytest

import corvane
from corvane import _library

TAPE = corvane.Ply(0.125, 135000.0, 10000.0, 5000.0, 0.3, CTE1=-0.3e-6, CTE2=28e-6)
FABRIC = corvane.Ply(0.25, 60000.0, 58000.0, 4000.0, 0.05, CTE1=2e-6, CTE2=3e-6)
T300 = corvane.Ply(0.125, 181000, 10300, 7170, 0.28, 0, 2e-5, 1500, 1500, 40, 246, 68)
GLASS = corvane.Ply(0.25, 39000, 8600, 3800, 0.28, 7e-6, 2.1e-5, 1080, 620, 39, 128, 89)
QI = "(0/45/-45/90)S"
LAM = corvane.laminate_stiffness(T300, QI)
A = [[50000.0, 15000.0, 0.0], [15000.0, 40000.0, 0.0], [0.0, 0.0, 17000.0]]
D = np.array([[8000.0, 2500.0, 70.0], [2500.0, 6000.0, 90.0], [70.0, 90.0, 3000.0]])
BIG = float(np.float32(1.0e20))  # the library's strains when a modulus vanishes
CASES = np.array([[-500, 0, 40, 0, 0, 0, 0], [100, 200, -30, 5, -20, 10, -100]])
SECTION = [corvane.Segment(20, "NEF", "(0)8"), (20, "oef", QI, GLASS, 5, 6, 45, 0)]


@pytest.mark.parametrize("ply, layup", [(TAPE, "(0)".ljust(1000)), (FABRIC, b"(0.)")])
def test_a_single_zero_degree_ply_gives_back_its_material(ply, layup):
    lam = corvane.bi_material_laminate_stiffness(TAPE, FABRIC, layup)
    got = (lam.h, lam.Ex, lam.Ey, lam.Gxy, lam.nuxy, lam.alphax, lam.alphay)
    assert got == pytest.approx(tuple(vars(ply).values())[:7], rel=1e-6)
    assert (lam.plies, lam.symmetric, lam.alphaxy) == (1, True, 0.0)
    assert lam.A[0, 0] > lam.A[1, 1] > lam.A[2, 2] > lam.A[0, 1] > lam.A[0, 2] == 0.0
    for m in (lam.A, lam.B, lam.D, lam.Dstar):
        assert (m.dtype, m.shape, m.flags.writeable) == (np.float32, (3, 3), False)
    assert "PCOMP" in lam.cards and lam.cards.endswith("\r\n")


# The library's results for these inputs, as direct calls give them, each field
# in its order (a strength result: rf, ply, surface, mode of each case).
@pytest.mark.parametrize("call, expected", [
    (lambda: corvane.laminate_stiffness(TAPE, "(0)").strains(1.0, 2.0, 3.0),
     (2.370370e-05, 1.582222e-03, 4.8e-03, 3.202963e-03, -1.597037e-03)),
    (lambda: corvane.plate_buckling_loads(D, 500.0, 200.0), (7.771080, 2.202106, 10.782276)),
    (lambda: corvane.plate_buckling_rf(-60.0, -20.0, 40.0, 120.0, 80.0, 150.0), 1.197393),
    (lambda: corvane.shell_buckling_loads(A, D.tolist(), 600.0, 300.0, 1500.0, 1.5),
     (23.088001, 3.268319, 12.898147)),
    (lambda: LAM.strength(CASES, "PUCK"), (1.155143, 0.259293, 8, 1, 3, 1, 2, 6)),
    (lambda: LAM.strength({"Nx": -500, "Nxy": 40}, "PUCK"), (1.155143, 8, 3, 2)),
    (lambda: LAM.strength(CASES, "PUCK", puck=corvane.PUCK_GLASS), (1.13199, 0.2595177, 3, 1, 1, 1, 7,
                                                                     6)),
    (lambda: LAM.strength(CASES, f12_star=0.0), (1.12054, 0.2569669, 8, 1, 3, 1, 0, 0)),
    (lambda: corvane.laminate_strength((T300, GLASS), "(0/45./-45./90)S", CASES, "PUCK"),
     (1.047683, 0.3110919, 1, 1, 1, 1, 2, 6)),
    (lambda: corvane.notched_strength(T300, QI, CASES, properties={"OHT": 210, "OHC": 310, "A0OHT": 1}),
     (2.17834, 0.6199999, 1.774785, 0.6129563, 1e10, 1.892218, 1e10, 1.541669, 1e10, 1e10)),
    (lambda: corvane.notched_strength(T300, QI, CASES, "ohc", hole_diameter=4.0, properties="OHC=310"),
     (0.729555, 1e10)),
    (lambda: corvane.impact_strength(T300, QI, CASES, 30, damage_model="CDTM-T04 .003 .5 .004 .05 1"),
     (0.7636039, 0.381802, 0.4465352, 2.124838, 1.062419, 1.242548)),
    # t, Ex, Fcu, Fcc, warning of each segment; A, EA, Fcc, Pcc, rho, column stress, load.
    (lambda: corvane.section_crippling(T300, SECTION, length=300, fixity=2)[:-2],
     (1, 2, 181000, 18939.89, 1500, 301.2816, 569.0184, 94.22372, 0, 0, 60, 4377596, 252.4886,
      15149.32, 2.512576, 101.0206, 6061.238)),
])
def test_arguments_and_results_in_their_places(call, expected):
    result = call()
    fields = result if isinstance(result, tuple) else [result]
    assert np.hstack([np.ravel(f) for f in fields]) == pytest.approx(expected, rel=1e-6)


N, RANDOM = 300, np.random.default_rng(22)  # for calls over arrays


def _u(low, high, shape=(N,)):
    return RANDOM.uniform(low, high, shape).astype(np.float32)


# Matrices not symmetric, so that one passed transposed shows; every seventh
# reserve factor and strain refused (a critical load, a modulus of 0).
PLATES = (_u(-500, 5000, (N, 3, 3)), _u(-50, 900), _u(1, 400))
RFS = (_u(-200, 100), _u(-200, 100), _u(-200, 100), _u(1e-7, 300), _u(1, 300), _u(1, 300))
SHELLS = (_u(-6e3, 6e4, (N, 3, 3)), _u(-500, 5000, (N, 3, 3)), _u(10, 900), _u(-5, 400),
          _u(-100, 2000), _u(0.5, 4))
STRAINS = (_u(0.1, 3), _u(-1, 6e4), _u(1e-7, 6e4), _u(-1, 2e4), _u(0, 0.5),
           _u(-500, 500), _u(-500, 500), _u(-500, 500))
RFS[3][::7] = STRAINS[1][::7] = 0.0


def _call(function, arguments):  # results as a float32 array of rows, and the codes
    try:
        result, codes = function(*arguments), 0
    except corvane.CorvaneError as error:
        result, codes = error.result, (error.code if error.codes is None else error.codes)
    return np.array(result, dtype=np.float32, ndmin=2), codes


@pytest.mark.parametrize(
    "function, arguments",
    [(corvane.plate_buckling_loads, PLATES), (corvane.plate_buckling_rf, RFS),
     (corvane.shell_buckling_loads, SHELLS), (corvane.strains_in_plane, STRAINS)],
)
def test_each_element_is_the_one_element_call_bit_for_bit(function, arguments):
    many, codes = _call(function, arguments)
    assert np.count_nonzero(codes) > 0 or function is corvane.plate_buckling_loads
    for i in range(N):
        one, code = _call(function, [a[i] for a in arguments])
        assert code == np.ravel(codes)[i] if np.ndim(codes) else code == 0
        assert (one.view(np.int32).ravel() == many[:, i].view(np.int32)).all(), i


def test_arguments_broadcast_and_shapes_follow():
    D = PLATES[0][:4].reshape(2, 2, 3, 3)
    loads = corvane.plate_buckling_loads(D, [[600.0], [300.0]], 200.0)
    assert all(x.shape == (2, 2) and x.dtype == np.float32 for x in loads)
    assert loads.Nxcr[1, 0] == corvane.plate_buckling_loads(D[1, 0], 300.0, 200.0).Nxcr
    assert corvane.plate_buckling_rf(np.zeros(5), 0, 1, 5, 6, 7).shape == (5,)
    assert isinstance(corvane.plate_buckling_rf(-1, 0, 0, 5, 6, 7), float)
    assert LAM.strains(Nx=np.ones((3, 2))).gamma_xy.shape == (3, 2)
    assert corvane.plate_buckling_loads(np.eye(3)[None], [], 1.0).Nxcr.shape == (0,)
    grid = LAM.strength(np.stack([CASES, CASES[::-1]]), "PUCK")
    assert (grid.rf.dtype, grid.mode.dtype, grid.ply.shape) == (np.float32, np.int32, (2, 2))
    assert [r[1, 0] for r in grid] == list(LAM.strength(CASES[1], "PUCK"))
    assert LAM.strength(CASES[1]).rf.shape == () and LAM.strength(np.empty((0, 7))).rf.shape == (0,)


def test_a_refused_element_keeps_every_result_and_names_the_first():
    Ex = np.array([[5e4, 5e4], [5e4, 0.0]])
    with pytest.raises(corvane.CorvaneError, match=r"1 of 4 elements, the first at index \(1, 1\)") as e:
        corvane.strains_in_plane(1.0, Ex, 4e4, 2e4, 0.3, 100.0, 0.0, 0.0)
    assert e.value.code == 1 and e.value.codes.tolist() == [[0, 0], [0, 1]]
    assert e.value.result.eps_x[0, 0] == np.float32(100.0 / 5e4)
    assert e.value.result.eps_x[1, 1] == np.float32(1e20) and np.isnan(e.value.result.gamma_xy[1, 1])


@pytest.mark.parametrize("call, error", [
    (lambda: corvane.laminate_stiffness(TAPE, "(" + "0/" * 500 + "0)"), "1000"),
    (lambda: corvane.laminate_stiffness(TAPE, "(0/90)\u00b0"), "ASCII"),
    (lambda: corvane.plate_buckling_loads(np.eye(2), 1.0, 1.0), "3x3"),
    (lambda: corvane.plate_buckling_loads(np.zeros((4, 2, 2)), 1.0, [1.0, 2.0]), "3x3"),
    (lambda: corvane.plate_buckling_rf("1", 0.0, 0.0, 1.0, 1.0, 1.0), "not str"),
    (lambda: corvane.plate_buckling_rf(["1", "2"], 0, 0, 1, 1, 1), "real numbers"),
    (lambda: corvane.strains_in_plane(1, 1, 1, 1, 0.3, [1, 2], [1, 2, 3], 0), "broadcast"),
    (lambda: LAM.strength({"NXY": 1.0}), "NXY"),
    (lambda: LAM.strength(np.zeros((3, 6))), "7 values"),
    (lambda: corvane.section_crippling(T300, [corvane.Segment(20, "free")]), "neither OEF"),
])
def test_what_the_library_cannot_take_is_refused_before_the_call(call, error):
    with pytest.raises((ValueError, TypeError), match=error):
        call()


# Each entry point's refusal: the library's code and message, and what it wrote.
@pytest.mark.parametrize("row", [
    (lambda: corvane.laminate_stiffness(TAPE, "(0//90)"), 2, "'(0//90)'"),
    (lambda: corvane.strains_in_plane(1.0, 1.0, 1.0, 0.0, 0.3, 1.0, 1.0, 1.0), 1, "",
     corvane.InPlaneStrains(BIG, BIG, float("nan"), BIG, BIG)),
    (lambda: corvane.plate_buckling_rf(-1.0, 0.0, 0.0, 0.5e-6, 1.0, 1.0), 1, "", 0.0),
    (lambda: corvane.shell_buckling_loads(A, np.eye(3), 500.0, 300.0, 1e3, 1.0), 1, "",
     corvane.ShellBucklingLoads(0.4276277, 0.005194639, 0.04813613)),
    (lambda: LAM.strength([CASES[0], [0, 0, np.inf, 0, 0, 0, 0]]), 6, "Load case 2 "),
    (lambda: LAM.strength(CASES, f12_star=1.0), 9, "Option F12"),
    (lambda: corvane.laminate_strength((T300, TAPE), "(0/0.)", CASES), 5, "material 2"),
    (lambda: corvane.notched_strength(T300, QI, CASES, "OHT"), 5, "a0oht missing"),
    (lambda: corvane.impact_strength(T300, QI, CASES, 30, damage_model="CDTM-T07 1 2"), 11,
     "not usable"),
    (lambda: corvane.section_crippling(T300, [SECTION[0], (0, "NEF")]), 6, "Segment 2: width"),
    (lambda: corvane.solver_deck(corvane.Ply(0.2, 39000, 8600, 3800, 0.28, F2t=-1), "(0/90)"), 1, "F2t"),
    (lambda: corvane.Material.load("T300/5280"), 2, "nearest: T300/5208"),
])
def test_library_errors_carry_the_code_and_what_was_written(row):
    call, code, words, *result = row
    with pytest.raises(corvane.Error) as caught:
        call()
    error = caught.value
    assert type(error) is corvane.CorvaneError and error.code == code
    assert str(error).startswith(f"{error.entry_point}: error code {code}: ") and words in str(error)
    assert error.result == pytest.approx(result[0], rel=1e-6, nan_ok=True) if result else True


def test_crippling_warns_of_a_segment_outside_its_range():
    with pytest.warns(corvane.CripplingRangeWarning, match="Segment 1: b/t = 200 above"):
        r = corvane.section_crippling(T300, [corvane.Segment(200, "OEF", QI, Fcu=500)])
    assert r.warning[0] == 2 and r.Fcc[0] > 0 and r.column_mode == "Johnson"


def test_the_solver_deck_of_two_materials_and_their_strengths():
    tape = corvane.Ply(0.125, 135000, 10000, 5000, 0.3, 0, 2.8e-5, 1500, 1200, 40, 246, 70)
    two = corvane.bi_material_laminate_stiffness(tape, FABRIC, "(0/45./-45./90)S")
    lines = two.solver_deck(crlf=True).split("\r\n")
    mat8 = next(k for k, line in enumerate(lines) if line.startswith("MAT8"))
    # Xt, Xc, Yt, Yc, S in fields 5 to 9 of the continuation line; none for the fabric.
    assert lines[mat8 + 1][32:72].split() == ["1500.", "1200.", "40.", "246.", "70."]
    assert lines[mat8 + 2].startswith("MAT8         102  60000.")
    assert "\n".join(lines) == corvane.solver_deck((tape, FABRIC), two.layup)


def test_materials_by_name_from_the_places_given(monkeypatch, tmp_path):
    monkeypatch.setenv("BASES_DATOS", "")
    m = corvane.Material.load(" t300/5208 ")
    assert (m.name, m.fabric, m.line, m.file[-18:]) == ("T300/5208", False, 12, "textbook_tapes.mat")
    assert tuple(vars(m).values())[:12] == pytest.approx(
        (0.125, 181000, 10300, 7170, 0.28, 0.02e-6, 22.5e-6, 1500, 1500, 40, 246, 68))
    own = tmp_path / "own.mat"
    own.write_text("MATERIAL Mine\n CPT 0.2\n E1 1\n E2 9\n G12 4\n V12 0.3\nEND\n")
    assert corvane.Material.load("mine", places=[own]).file == str(own)
    assert corvane.materials(own) == ["B(4)/5505", "Mine", "Scotchply 1002", "T300/5208"]


def test_library_search_order(tmp_path):
    for name in ("corvane.dll", "libcorvane.so.0", "libcorvane_strength.so.0"):
        (tmp_path / name).touch()
    here, first = str(tmp_path), {"CORVANE_LIBRARY": f"{tmp_path}/libcorvane.so.0"}
    assert _library.candidates(first, "/elsewhere", "sys") == [first["CORVANE_LIBRARY"]]
    assert _library.candidates({"CORVANE_LIBRARY": ""}, here, "sys")[:3] == [
        f"{here}/libcorvane.so.0", f"{here}/corvane.dll", "sys"]
    # The strength library: named, else beside the first when that is named.
    beside = [f"{here}/libcorvane_strength.so.0"]
    assert _library.strength_candidates(first, "/elsewhere", "sys") == beside
    named = dict(first, CORVANE_STRENGTH_LIBRARY="/x/s.so")
    assert _library.strength_candidates(named, here, "sys") == ["/x/s.so"]
    assert _library.strength_candidates({}, here, "sys")[:2] == beside + ["sys"]
    assert corvane.library_path() == os.environ.get("CORVANE_LIBRARY", corvane.library_path())


def test_a_missing_library_is_a_library_error_and_the_version_the_projects(tmp_path):
    env = dict(os.environ, CORVANE_LIBRARY=str(tmp_path / "libcorvane.so.0"))
    probe = "import corvane as c\ntry: c.library_path()\nexcept OSError as e: print(repr(e))"
    ran = subprocess.run([sys.executable, "-c", probe], env=env, capture_output=True)
    assert ran.stdout.startswith(b"LibraryError(") and bytes(tmp_path) in ran.stdout
    assert corvane.__version__ == os.environ.get("CORVANE_VERSION", corvane.__version__)


def test_a_ply_sent_to_another_process_keeps_no_address():
    # The package keeps each Ply's values at an address for the library; a
    # pickled Ply (as Dask sends it) must make its own again, not reuse it.
    ply = corvane.Ply(0.125, 135000.0, 10000.0, 5000.0, 0.3)
    again = corvane.laminate_stiffness(pickle.loads(pickle.dumps(ply)), "(0/45)S")
    assert np.array_equal(corvane.laminate_stiffness(ply, "(0/45)S").D, again.D)


@pytest.mark.skipif(importlib.util.find_spec("mypy") is None, reason="Debian: python3-mypy")
def test_mypy_finds_nothing_in_the_type_hints(tmp_path):
    # With the settings of pyproject.toml.
    ran = subprocess.run([sys.executable, "-m", "mypy", "--cache-dir", str(tmp_path), "corvane"],
                         cwd=pathlib.Path(__file__).parents[1], capture_output=True, text=True)
    assert ran.returncode == 0, ran.stdout + ran.stderr
