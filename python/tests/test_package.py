"""What the package adds to the library: arguments and results in their places,
numpy arrays, errors and their classes, the library search and the version."""

import os
import pickle
import subprocess
import sys

import numpy as np
import pytest

import corvane

TAPE = corvane.Ply(0.125, 135000.0, 10000.0, 5000.0, 0.3, CTE1=-0.3e-6, CTE2=28e-6)
FABRIC = corvane.Ply(0.25, 60000.0, 58000.0, 4000.0, 0.05, CTE1=2e-6, CTE2=3e-6)
A = [[50000.0, 15000.0, 0.0], [15000.0, 40000.0, 0.0], [0.0, 0.0, 17000.0]]
D = np.array([[8000.0, 2500.0, 70.0], [2500.0, 6000.0, 90.0], [70.0, 90.0, 3000.0]])
BIG = float(np.float32(1.0e20))  # the library's strains when a modulus vanishes


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


# The library's results for these inputs, as a direct call gives them.
@pytest.mark.parametrize(
    "call, expected",
    [
        (lambda: corvane.laminate_stiffness(TAPE, "(0)").strains(1.0, 2.0, 3.0),
         (2.370370e-05, 1.582222e-03, 4.8e-03, 3.202963e-03, -1.597037e-03)),
        (lambda: corvane.plate_buckling_loads(D, 500.0, 200.0),
         (7.771080, 2.202106, 10.782276)),
        (lambda: corvane.plate_buckling_rf(-60.0, -20.0, 40.0, 120.0, 80.0, 150.0),
         1.197393),
        (lambda: corvane.shell_buckling_loads(A, D.tolist(), 600.0, 300.0, 1500.0, 1.5),
         (23.088001, 3.268319, 12.898147)),
    ],
)
def test_arguments_and_results_in_their_places(call, expected):
    assert call() == pytest.approx(expected, rel=1e-6)


@pytest.mark.parametrize(
    "call, error",
    [
        (lambda: corvane.laminate_stiffness(TAPE, "(" + "0/" * 500 + "0)"), "1000"),
        (lambda: corvane.laminate_stiffness(TAPE, "(0/90)\u00b0"), "ASCII"),
        (lambda: corvane.plate_buckling_loads(np.eye(2), 1.0, 1.0), "3x3"),
        (lambda: corvane.plate_buckling_rf("1", 0.0, 0.0, 1.0, 1.0, 1.0), "not str"),
    ],
)
def test_what_the_library_cannot_take_is_refused_before_the_call(call, error):
    with pytest.raises((ValueError, TypeError), match=error):
        call()


@pytest.mark.parametrize(
    "call, result",
    [
        (lambda: corvane.strains_in_plane(1.0, 1.0, 1.0, 0.0, 0.3, 1.0, 1.0, 1.0),
         corvane.InPlaneStrains(BIG, BIG, float("nan"), BIG, BIG)),
        (lambda: corvane.plate_buckling_rf(-1.0, 0.0, 0.0, 0.5e-6, 1.0, 1.0), 0.0),
        (lambda: corvane.shell_buckling_loads(A, np.eye(3), 500.0, 300.0, 1e3, 1.0),
         corvane.ShellBucklingLoads(0.4276277, 0.005194639, 0.04813613)),
    ],
)
def test_library_errors_carry_the_code_and_what_was_written(call, result):
    with pytest.raises(corvane.Error) as caught:
        call()
    error = caught.value
    assert type(error) is corvane.CorvaneError and error.code == 1
    assert str(error).startswith(f"{error.entry_point}: error code 1: ")
    assert error.result == pytest.approx(result, rel=1e-6, nan_ok=True)


def _refused_inputs():
    """The table of refused inputs that the library and the command run too."""
    table = os.path.join(os.path.dirname(__file__), "../../tests/testdata")
    with open(os.path.join(table, "refused_inputs.tsv"), encoding="ascii") as lines:
        rows = [line.rstrip("\n").split("\t") for line in lines if line[0] != "#"]
    return [(corvane.Ply(*map(float, r[:5])), r[5], int(r[6])) for r in rows]


@pytest.mark.parametrize("ply, layup, code", _refused_inputs())
def test_refused_inputs_raise_with_the_library_code(ply, layup, code):
    with pytest.raises(corvane.CorvaneError) as caught:
        corvane.laminate_stiffness(ply, layup)
    assert (caught.value.entry_point, caught.value.code) == ("LAMINATE_STIFFNESS", code)


def test_library_search_order(tmp_path):
    for name in ("corvane.dll", "libcorvane.so.0"):
        (tmp_path / name).touch()
    env = {"CORVANE_LIBRARY": "/x/libcorvane.so"}
    assert corvane._library.candidates(env, tmp_path, "sys") == ["/x/libcorvane.so"]
    found = corvane._library.candidates({"CORVANE_LIBRARY": ""}, tmp_path, "sys")
    here = str(tmp_path)
    assert found[:3] == [f"{here}/libcorvane.so.0", f"{here}/corvane.dll", "sys"]
    if "CORVANE_LIBRARY" in os.environ:
        assert corvane.library_path() == os.environ["CORVANE_LIBRARY"]


def test_a_missing_library_is_a_library_error(tmp_path):
    env = dict(os.environ, CORVANE_LIBRARY=str(tmp_path / "libcorvane.so.0"))
    probe = "import corvane as c\ntry: c.library_path()\nexcept OSError as e: print(repr(e))"
    ran = subprocess.run([sys.executable, "-c", probe], env=env, capture_output=True)
    assert ran.stdout.startswith(b"LibraryError(") and bytes(tmp_path) in ran.stdout


def test_the_version_is_the_projects():
    assert corvane.__version__ == os.environ.get("CORVANE_VERSION", corvane.__version__)


def test_a_ply_sent_to_another_process_keeps_no_address():
    # The package keeps each Ply's values at an address for the library; a
    # pickled Ply (as Dask sends it) must make its own again, not reuse it.
    ply = corvane.Ply(0.125, 135000.0, 10000.0, 5000.0, 0.3)
    first = corvane.laminate_stiffness(ply, "(0/45)S")
    again = corvane.laminate_stiffness(pickle.loads(pickle.dumps(ply)), "(0/45)S")
    assert np.array_equal(first.D, again.D)
