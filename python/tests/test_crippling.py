"""section_crippling: the section to the library and its results back."""

import numpy as np
import pytest

import corvane

TAPE = corvane.Ply(0.125, 181000, 10300, 7170, 0.28, 0, 2e-5, 1500, 1500, 40, 246, 68)
QI = "(0/45/-45/90)2S"  # t = 2
Z = [
    corvane.Segment(20, "OEF", QI, y=10, z=20, Fcu=500),
    corvane.Segment(40, "nef", QI, angle=90, Fcu=500),
    (20, "OEF", QI, None, -10, -20, 0, 500),
]


def test_z_section_by_hand_and_as_a_long_column():
    r = corvane.section_crippling(TAPE, Z)  # b/t 10 and 20, Fcu 500
    fcc = 500 * np.array([1.63 * 10**-0.717, 11 * 20**-1.124, 1.63 * 10**-0.717])
    assert r.Fcc == pytest.approx(fcc, rel=1e-5) and r.A == 160
    assert r.Pcc == pytest.approx(fcc @ [40, 80, 40], rel=1e-5)
    assert r.column_mode == "Johnson" and r.column_stress == pytest.approx(r.Fcc_section)
    long = corvane.section_crippling(TAPE, Z, length=8000, fixity=4)
    euler = np.pi**2 * long.rho**2 * long.EA / 4000**2  # pi^2 EI / L'^2
    assert long.column_mode == "Euler" and long.column_load == pytest.approx(euler, 1e-5)


def test_strengths_warnings_and_refusals():
    weak = corvane.Ply(0.125, 181000, 10300, 7170, 0.28, 0, 2e-5, 1500, 900, 40, 246, 68)
    ud = [corvane.Segment(20, "NEF", "(0)8"), corvane.Segment(20, "NEF", "(0)8", weak)]
    assert corvane.section_crippling(TAPE, ud).Fcu == pytest.approx([1500, 900], 1e-5)
    with pytest.warns(corvane.CripplingRangeWarning, match="Segment 1: b/t = 100 above"):
        r = corvane.section_crippling(TAPE, [corvane.Segment(200, "OEF", QI, Fcu=500)])
    assert r.warning[0] == 2 and r.Fcc[0] > 0
    with pytest.raises(corvane.CorvaneError, match="code 6: Error! Segment 2: width"):
        corvane.section_crippling(TAPE, [Z[0], corvane.Segment(0, "NEF")])
    with pytest.raises(ValueError, match="neither OEF nor NEF"):
        corvane.section_crippling(TAPE, [corvane.Segment(20, "free")])
