"""The stiffness and strain bindings against classical laminate theory."""

import math
import pathlib

import numpy as np
import pytest

import corvane
import textbook

TAPE = corvane.Ply(
    t=0.125, E1=135000.0, E2=10000.0, G12=5000.0, nu12=0.3, CTE1=-0.3e-6, CTE2=28e-6
)
Q_TAPE = textbook.reduced_stiffness(TAPE.E1, TAPE.E2, TAPE.G12, TAPE.nu12)


def close(actual, expected, rtol=2e-6, atol_scale=1e-6):
    """Float32 results against double expectations: relative, with an absolute
    floor scaled to the largest expected entry (for the zero terms)."""
    expected = np.asarray(expected, dtype=float)
    atol = atol_scale * max(float(np.max(np.abs(expected))), 1e-30)
    actual = np.asarray(actual, dtype=float)
    np.testing.assert_allclose(actual, expected, rtol=rtol, atol=atol)


@pytest.mark.parametrize("angle", [0.0, 90.0, 45.0, -30.0])
def test_single_ply_is_t_times_rotated_q(angle):
    lam = corvane.laminate_stiffness(TAPE, f"({angle:g})")
    Qbar = textbook.rotated_stiffness(Q_TAPE, angle)
    t = TAPE.t
    close(lam.A, t * Qbar, rtol=1e-5)
    assert np.max(np.abs(lam.B)) < 1e-6 * t * np.max(lam.A)
    close(lam.D, t**3 / 12 * Qbar, rtol=1e-5)
    close(lam.Dstar, lam.D, rtol=1e-5)
    assert lam.plies == 1
    assert lam.symmetric
    assert lam.h == pytest.approx(t, rel=1e-7)
    for matrix in (lam.A, lam.B, lam.D, lam.Dstar):
        assert matrix.dtype == np.float32 and matrix.shape == (3, 3)


def test_zero_degree_ply_constants_are_the_ply_constants():
    lam = corvane.laminate_stiffness(TAPE, "(0)")
    assert lam.Ex == pytest.approx(TAPE.E1, rel=1e-5)
    assert lam.Ey == pytest.approx(TAPE.E2, rel=1e-5)
    assert lam.Gxy == pytest.approx(TAPE.G12, rel=1e-6)
    assert lam.nuxy == pytest.approx(TAPE.nu12, rel=1e-5)
    assert lam.alphax == pytest.approx(TAPE.CTE1, rel=1e-5)
    assert lam.alphay == pytest.approx(TAPE.CTE2, rel=1e-5)
    assert abs(lam.alphaxy) < 1e-12


def test_quasi_isotropic_laminate():
    lam = corvane.laminate_stiffness(TAPE, "(0/45/-45/90)S")
    U1, U4, U5 = textbook.quasi_isotropic(Q_TAPE)
    h = 8 * TAPE.t
    close(lam.A, h * np.array([[U1, U4, 0.0], [U4, U1, 0.0], [0.0, 0.0, U5]]), rtol=1e-5)
    assert np.max(np.abs(lam.B)) < 1e-6 * np.max(np.abs(lam.A))
    nu = U4 / U1
    assert lam.Ex == pytest.approx(U1 * (1 - nu * nu), rel=1e-5)
    assert lam.Ey == pytest.approx(lam.Ex, rel=1e-5)
    assert lam.Gxy == pytest.approx(U5, rel=1e-5)
    assert lam.nuxy == pytest.approx(nu, rel=1e-5)
    assert (lam.plies, lam.symmetric, lam.h) == (8, True, pytest.approx(h))


def test_cross_ply_bending_from_ply_positions():
    # (0/90)S: the 0-degree plies fill 7/8 of h^3/12, the inner 90s 1/8.
    lam = corvane.laminate_stiffness(TAPE, "(0/90)S")
    h = 4 * TAPE.t
    Q90 = textbook.rotated_stiffness(Q_TAPE, 90.0)
    close(lam.D, h**3 / 12 * (7 / 8 * Q_TAPE + 1 / 8 * Q90), rtol=1e-5)
    assert (lam.plies, lam.symmetric) == (4, True)


def test_unsymmetric_cross_ply_couples_and_reduces_bending():
    # (0/90): the 0 ply lies from -t to 0, so B11 = t^2/2 (Q22 - Q11) = -B22.
    lam = corvane.laminate_stiffness(TAPE, "(0/90)")
    t = TAPE.t
    b11 = t * t / 2 * (Q_TAPE[1, 1] - Q_TAPE[0, 0])
    close(lam.B, np.diag([b11, -b11, 0.0]), rtol=1e-5)
    assert not lam.symmetric
    A, B, D = (m.astype(float) for m in (lam.A, lam.B, lam.D))
    close(lam.Dstar, D - B @ np.linalg.inv(A) @ B, rtol=1e-4)
    assert lam.Dstar[0, 0] < lam.D[0, 0]


def test_layup_is_read_to_1000_characters_of_blank_padding():
    padded = "(0/90)S".ljust(1000)
    assert corvane.laminate_stiffness(TAPE, padded).plies == 4
    with pytest.raises(ValueError, match="1000"):
        corvane.laminate_stiffness(TAPE, "(" + "0/" * 500 + "0)")


def test_cards_come_without_padding():
    lam = corvane.laminate_stiffness(TAPE, "(0/45/-45/90)S")
    assert 0 < len(lam.cards) <= corvane.CARDS_LENGTH
    assert not lam.cards.endswith(" ")
    for card in ("MAT8", "PCOMP", "MAT2"):
        assert card in lam.cards
    lines = lam.cards.split("\r\n")
    assert all("\n" not in line and "\r" not in line for line in lines)


def _refused_inputs():
    """The table of refused inputs that the library and the command run too."""
    table = pathlib.Path(__file__).resolve().parents[2] / "tests" / "testdata"
    lines = (table / "refused_inputs.tsv").read_text().splitlines()
    rows = [line.split("\t") for line in lines if line and not line.startswith("#")]
    return [(corvane.Ply(*map(float, r[:5])), r[5], int(r[6])) for r in rows]


@pytest.mark.parametrize("ply, layup, code", _refused_inputs())
def test_refused_input_raises_with_the_library_code(ply, layup, code):
    with pytest.raises(corvane.CorvaneError) as caught:
        corvane.laminate_stiffness(ply, layup)
    assert caught.value.code == code
    assert caught.value.entry_point == "LAMINATE_STIFFNESS"


def test_negative_expansion_coefficients_are_accepted():
    ply = corvane.Ply(0.125, 135000.0, 10000.0, 5000.0, 0.3, CTE1=-1e-6, CTE2=-2e-6)
    lam = corvane.laminate_stiffness(ply, "(0)")
    assert lam.alphay == pytest.approx(-2e-6, rel=1e-5)


FABRIC = corvane.Ply(
    t=0.25, E1=60000.0, E2=58000.0, G12=4000.0, nu12=0.05, CTE1=2e-6, CTE2=3e-6
)


def test_two_materials_stack_by_position():
    # (0/0.): tape from z0 = -0.1875 to z1 = -0.0625, fabric above to 0.1875;
    # B11 = 0.5 (Qf11 (z2^2 - z1^2) + Qt11 (z1^2 - z0^2)) = (Qf11 - Qt11)/64.
    lam = corvane.bi_material_laminate_stiffness(TAPE, FABRIC, "(0/0.)")
    Qf = textbook.reduced_stiffness(FABRIC.E1, FABRIC.E2, FABRIC.G12, FABRIC.nu12)
    close(lam.A, TAPE.t * Q_TAPE + FABRIC.t * Qf, rtol=1e-5)
    close(lam.B, (Qf - Q_TAPE) / 64, rtol=1e-4, atol_scale=1e-4)
    assert lam.h == pytest.approx(0.375)
    assert lam.plies == 2
    # Only the angles decide symmetry, not the materials.
    assert lam.symmetric


def test_two_equal_materials_give_the_single_material_laminate():
    single = corvane.laminate_stiffness(TAPE, "(0/45/-45/90)S")
    double = corvane.bi_material_laminate_stiffness(TAPE, TAPE, "(0/45./-45/90.)S")
    for name in ("A", "B", "D", "Dstar"):
        assert np.array_equal(getattr(single, name), getattr(double, name)), name
    assert (double.Ex, double.plies) == (single.Ex, single.plies)


@pytest.mark.parametrize(
    "ply1, ply2",
    [
        (TAPE, corvane.Ply(0.0, 1.0, 1.0, 1.0, 0.3)),
        (corvane.Ply(0.1, -1.0, 1.0, 1.0, 0.3), TAPE),
    ],
)
def test_either_invalid_material_is_refused(ply1, ply2):
    # Material 2 is checked even when no ply uses it.
    with pytest.raises(corvane.CorvaneError) as caught:
        corvane.bi_material_laminate_stiffness(ply1, ply2, "(0/90)S")
    assert caught.value.code == 1


def test_two_material_layup_refused():
    with pytest.raises(corvane.CorvaneError) as caught:
        corvane.bi_material_laminate_stiffness(TAPE, FABRIC, "(0/90)X")
    assert caught.value.code == 2


def test_strains_from_apparent_constants():
    # eps_x = (100 - 0.3*50)/50000, eps_y = (50 - 0.4*0.3*100)/20000, gamma = 30/10000.
    laminate = (50000.0, 20000.0, 10000.0, 0.3)
    s = corvane.strains_in_plane(1.0, *laminate, 100.0, 50.0, 30.0)
    expected = (0.0017, 0.0019, 0.003, 0.0033, 0.0003)
    assert s == pytest.approx(expected, rel=1e-5)
    half = corvane.strains_in_plane(2.0, *laminate, 100.0, 50.0, 30.0)
    assert half == pytest.approx(tuple(x / 2 for x in expected), rel=1e-5)


def test_pure_shear_strains():
    s = corvane.strains_in_plane(1.0, 50000.0, 20000.0, 10000.0, 0.3, 0.0, 0.0, 40.0)
    assert (s.eps_x, s.eps_y) == (0.0, 0.0)
    assert s.eps_p45 == pytest.approx(0.002, rel=1e-6)
    assert s.eps_m45 == -s.eps_p45


def test_laminate_strains_use_its_own_constants():
    lam = corvane.laminate_stiffness(TAPE, "(0/45/-45/90)S")
    s = lam.strains(Nx=100.0)
    assert s.eps_x == pytest.approx(100.0 / (lam.Ex * lam.h), rel=1e-5)
    assert s.eps_y == pytest.approx(-lam.nuxy * s.eps_x, rel=1e-5)


@pytest.mark.parametrize("Ex, Ey, Gxy", [(1e-7, 1.0, 1.0), (1.0, 1.0, 0.0)])
def test_strains_with_a_vanishing_modulus(Ex, Ey, Gxy):
    with pytest.raises(corvane.CorvaneError) as caught:
        corvane.strains_in_plane(1.0, Ex, Ey, Gxy, 0.3, 1.0, 1.0, 1.0)
    error = caught.value
    assert error.code == 1
    big = float(np.float32(1.0e20))
    r = error.result
    assert (r.eps_x, r.eps_y, r.eps_p45, r.eps_m45) == (big, big, big, big)
    assert math.isnan(r.gamma_xy)  # left unwritten by the library
