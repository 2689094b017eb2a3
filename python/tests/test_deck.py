"""The solver deck: the package's arguments reach the library, its deck and
refusals come back."""

import pytest

import corvane

TAPE = corvane.Ply(0.125, 135000, 10000, 5000, 0.3, -3e-7, 2.8e-5, 1500, 1200, 40, 246, 70)
GLASS = corvane.Ply(0.2, 39000, 8600, 3800, 0.28, 7e-6, 2.1e-5)


def test_deck_of_one_and_two_materials_with_their_strengths():
    laminate = corvane.laminate_stiffness(TAPE, "(0/45/-45/90)S")
    deck = laminate.solver_deck()
    assert deck == corvane.solver_deck(TAPE, "(0/45/-45/90)S")
    assert laminate.cards.startswith("$ Ortotropic material as MAT8\r\n")
    lines = deck.split("\n")
    mat8 = next(k for k, line in enumerate(lines) if line.startswith("MAT8"))
    # Xt, Xc, Yt, Yc, S in fields 5 to 9 of the continuation line.
    assert lines[mat8 + 1][32:72].split() == ["1500.", "1200.", "40.", "246.", "70."]
    assert "\r" not in deck and "GRID" not in deck
    two = corvane.bi_material_laminate_stiffness(TAPE, GLASS, "(0/45./-45./90)S")
    both = two.solver_deck(crlf=True)
    assert both.count("\nMAT8 ") == 2 and both.endswith("\r\n")
    lf = corvane.solver_deck((TAPE, GLASS), "(0/45./-45./90)S")
    assert both.replace("\r\n", "\n") == lf


def test_refusals_carry_the_library_code_and_message():
    bad = corvane.Ply(0.2, 39000, 8600, 3800, 0.28, F2t=-1)
    with pytest.raises(corvane.CorvaneError, match="BI_.*code 1:.*material 2: F2t"):
        corvane.solver_deck((TAPE, bad), "(0/90.)")
    with pytest.raises(corvane.CorvaneError, match="code 2: Error! Layup refused"):
        corvane.solver_deck(TAPE, "(0/4x5)S")
    with pytest.raises(ValueError, match="one or two"):
        corvane.solver_deck((TAPE, TAPE, TAPE), "(0)")
