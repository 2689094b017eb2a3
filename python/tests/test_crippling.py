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


def test_z_section_by_hand():
    # b/t = 10 and 20: Fcc = 500 * 1.63 * 10^-0.717 and 500 * 11 * 20^-1.124.
    r = corvane.section_crippling(TAPE, Z)
    fcc = np.array([500 * 1.63 * 10**-0.717, 500 * 11 * 20**-1.124, 0])
    fcc[2] = fcc[0]
    assert r.Fcc == pytest.approx(fcc, rel=1e-5)
    assert r.Fcc_section == pytest.approx((fcc[0] * 80 + fcc[1] * 80) / 160, rel=1e-5)
    assert r.Pcc == pytest.approx(r.Fcc_section * 160, rel=1e-6)
    assert r.A == 160 and r.EA == pytest.approx(160 * r.Ex[0], rel=1e-6)
    assert r.column_mode == "Johnson" and r.column_stress == pytest.approx(r.Fcc_section)
    assert list(r.warning) == [0, 0, 0] and r.message == ""
    # Euler's load for a long column: pi^2 EI / L'^2 with EI = rho^2 EA.
    long = corvane.section_crippling(TAPE, Z, length=8000, fixity=4)
    euler = np.pi**2 * long.rho**2 * long.EA / 4000**2
    assert long.column_mode == "Euler" and long.column_load == pytest.approx(euler, 1e-5)


def test_first_ply_failure_and_a_second_material():
    ud = corvane.section_crippling(TAPE, [corvane.Segment(20, "NEF", "(0)8")])
    assert ud.Fcu[0] == pytest.approx(1500, rel=1e-5)  # fibre compression at F1c
    weak = corvane.Ply(0.125, 181000, 10300, 7170, 0.28, 0, 2e-5, 1500, 900, 40, 246, 68)
    two = corvane.section_crippling(
        TAPE, [corvane.Segment(20, "NEF", "(0)8"), corvane.Segment(20, "NEF", "(0)8", weak)]
    )
    assert two.Fcu == pytest.approx([1500, 900], rel=1e-5)


def test_out_of_range_warns_and_refusals_raise():
    with pytest.warns(corvane.CripplingRangeWarning, match="Segment 1: b/t = 100 above"):
        r = corvane.section_crippling(TAPE, [corvane.Segment(200, "OEF", QI, Fcu=500)])
    assert r.warning[0] == 2 and r.Fcc[0] > 0
    with pytest.raises(corvane.CorvaneError, match="code 6: Error! Segment 2: width") as e:
        corvane.section_crippling(TAPE, [Z[0], corvane.Segment(0, "NEF")])
    assert e.value.code == 6
    with pytest.raises(corvane.CorvaneError, match="code 10: .*fixity"):
        corvane.section_crippling(TAPE, Z, length=100, fixity=0)
    with pytest.raises(ValueError, match="neither OEF nor NEF"):
        corvane.section_crippling(TAPE, [corvane.Segment(20, "free")])
