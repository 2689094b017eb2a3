"""The solver deck: the package's arguments reach the library, its deck and
refusals come back."""

import pytest

import corvane

TAPE = corvane.Ply(0.125, 135000, 10000, 5000, 0.3, 0, 2.8e-5, 1500, 1200, 40, 246, 70)
GLASS = corvane.Ply(0.2, 39000, 8600, 3800, 0.28, 7e-6, 2.1e-5)


def test_deck_of_two_materials_with_their_strengths_and_refusals():
    two = corvane.bi_material_laminate_stiffness(TAPE, GLASS, "(0/45./-45./90)S")
    deck = two.solver_deck(crlf=True)
    lines = deck.split("\r\n")
    mat8 = lines.index(next(line for line in lines if line.startswith("MAT8")))
    # Xt, Xc, Yt, Yc, S in fields 5 to 9 of the continuation line; none for glass.
    assert lines[mat8 + 1][32:72].split() == ["1500.", "1200.", "40.", "246.", "70."]
    assert lines[mat8 + 2].startswith("MAT8         102  39000.")
    assert deck.replace("\r\n", "\n") == corvane.solver_deck((TAPE, GLASS), two.layup)
    with pytest.raises(corvane.CorvaneError, match="LAMINATE_SOLVER_DECK: .*code 1:.*F2t"):
        corvane.solver_deck(corvane.Ply(0.2, 39000, 8600, 3800, 0.28, F2t=-1), "(0/90)")
