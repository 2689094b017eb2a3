"""notched_strength and impact_strength: the library's results in numpy arrays."""

import numpy as np
import pytest

import corvane

TAPE = corvane.Ply(0.125, 181000, 10300, 7170, 0.28, F1t=1500, F1c=1500)
LAYUP = "(0/45/-45/90)2S"
CASES = np.array([[300, 0, 0, 0, 0, 0, 0], [-420, 10, 0, 0, 0, 0, 0]])


def test_a_quasi_isotropic_laminate_at_its_measured_notched_strength():
    # 2 mm thick: 420 N/mm is 210 MPa, the keyed OHT; -620 N/mm the OHC.
    keyed = {"OHT": 210, "OHC": 310}
    loads = [[420, 0, 0, 0, 0, 0, 0], [-620, 0, 0, 0, 0, 0, 0]]
    rf = corvane.notched_strength(TAPE, LAYUP, loads, properties=keyed)
    assert rf.shape == (2, 5) and rf.dtype == np.float32
    assert rf[0, 0] == pytest.approx(1, rel=2e-4)
    assert rf[1, 1] == pytest.approx(1, rel=2e-4)
    one = corvane.notched_strength(TAPE, LAYUP, loads, "ohc", properties="OHC=310")
    assert list(one) == list(rf[:, 1])


def test_impact_with_and_without_a_model():
    rf = corvane.impact_strength(TAPE, LAYUP, CASES)
    assert rf.shape == (2, 2)
    model = corvane.impact_strength(
        TAPE, LAYUP, CASES, 30.0, damage_model="CDTM-T04 0.003 0.5 0.004 0.05 1"
    )
    assert model.shape == (2, 3) and (model[:, :2] == rf).all()
    assert rf[0, 1] == pytest.approx(rf[0, 0] / 2)  # CAIE = CAIH/2 by default


def test_refusals():
    with pytest.raises(corvane.CorvaneError, match="code 5: Error! a0oht missing"):
        corvane.notched_strength(TAPE, LAYUP, CASES, "OHT")
    with pytest.raises(corvane.CorvaneError, match="not usable") as e:
        corvane.impact_strength(TAPE, LAYUP, CASES, 30.0, damage_model="CDTM-T07 1 2")
    assert e.value.code == 11
