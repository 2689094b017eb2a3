"""Laminate.strength: the load cases to the library and its results back."""

import numpy as np
import pytest

import corvane
from corvane import _library

TAPE = corvane.Ply(0.125, 181000, 10300, 7170, 0.28, 0, 2e-5, 1500, 1500, 40, 246, 68)
LAMINATE = corvane.laminate_stiffness(TAPE, "(0/45/-45/90)S")
CASES = np.array(
    [[-500, 0, 40, 0, 0, 0, 0], [100, 200, -30, 5, -20, 10, -100], [0, 0, 0, 0, 0, 0, 0]]
)


def test_each_result_belongs_to_its_case_whatever_the_shape():
    together = LAMINATE.strength(CASES, "PUCK")
    assert together.rf.dtype == np.float32 and together.mode.dtype == np.int32
    for k, case in enumerate(CASES):
        alone = LAMINATE.strength(case, "PUCK")
        assert alone.rf.shape == () and [r[k] for r in together] == list(alone)
    grid = LAMINATE.strength(np.stack([CASES, CASES[::-1]]), "PUCK")
    assert grid.ply.shape == (2, 3) and list(grid.ply[1]) == list(together.ply[::-1])
    assert LAMINATE.strength(np.empty((0, 7))).rf.shape == (0,)


def test_columns_by_name_missing_ones_zero():
    columns = {"Nx": CASES[:, 0], "Nxy": CASES[:, 2], "dT": 0}
    by_array = LAMINATE.strength(CASES * [1, 0, 1, 0, 0, 0, 0])
    assert all((a == b).all() for a, b in zip(LAMINATE.strength(columns), by_array))
    with pytest.raises(ValueError, match="NXY"):
        LAMINATE.strength({"NXY": 1.0})
    with pytest.raises(ValueError, match="7 values"):
        LAMINATE.strength(np.zeros((3, 6)))


def test_refusals_carry_the_library_code_and_message():
    with pytest.raises(corvane.CorvaneError, match="code 6: Error! Load case 2 ") as e:
        LAMINATE.strength([CASES[0], [0, 0, np.inf, 0, 0, 0, 0]])
    assert e.value.code == 6


def test_second_material_and_options_reach_the_library():
    glass = corvane.Ply(0.25, 39000, 8600, 3800, 0.28, 7e-6, 2.1e-5, 1080, 620, 39, 128, 89)
    same = corvane.bi_material_laminate_stiffness(TAPE, TAPE, "(0/45./-45./90)S")
    one = LAMINATE.strength(CASES, "PUCK")
    assert all((a == b).all() for a, b in zip(same.strength(CASES, "PUCK"), one))
    mixed = corvane.bi_material_laminate_stiffness(TAPE, glass, "(0/45./-45./90)S")
    assert (mixed.strength(CASES).rf != LAMINATE.strength(CASES).rf).any()
    case = [0, 0, 0, 0, 0, 5, 0]  # twisting: matrix modes, where p+ and p- act
    glass_p = LAMINATE.strength(case, "PUCK", puck=corvane.PUCK_GLASS).rf
    assert glass_p != LAMINATE.strength(case, "PUCK").rf
    assert LAMINATE.strength(CASES, f12_star=0.0).rf[1] != LAMINATE.strength(CASES).rf[1]
    with pytest.raises(corvane.CorvaneError, match="BI_MATERIAL.*code 5:.*material 2"):
        corvane.laminate_strength((TAPE, corvane.Ply(1, 9, 9, 9, 0.2)), "(0/0.)", CASES)
    with pytest.raises(corvane.CorvaneError, match="code 9: Error! Option F12"):
        LAMINATE.strength(CASES, f12_star=1.0)


def test_strength_library_beside_the_first_unless_named(tmp_path):
    (tmp_path / "libcorvane_strength.so.0").touch()
    beside = [str(tmp_path / "libcorvane_strength.so.0")]
    first = {"CORVANE_LIBRARY": str(tmp_path / "libcorvane.so.0")}
    assert _library.strength_candidates(first, "/elsewhere", "sys") == beside
    named = dict(first, CORVANE_STRENGTH_LIBRARY="/x/s.so")
    assert _library.strength_candidates(named, tmp_path, "sys") == ["/x/s.so"]
    assert _library.strength_candidates({}, tmp_path, "sys")[:2] == beside + ["sys"]
