"""The buckling bindings against closed-form plate buckling loads."""

import math

import numpy as np
import pytest

import corvane
import textbook

E, T, NU = 70000.0, 2.0, 0.3
D_ISO = textbook.isotropic_plate_D(E, T, NU)
A_ISO = textbook.isotropic_plate_A(E, T, NU)
D = D_ISO[0, 0]
PI2 = math.pi**2


@pytest.mark.parametrize(
    "a, b, kx, ky",
    [
        # Nx,cr = k pi^2 D / b^2 with k = (m b/a + a/(m b))^2 at its best m (m = 2
        # for a = 2b); Ny,cr = pi^2 D (1/a^2 + 1/b^2)^2 b^2, one half-wave each way:
        # k = (1 + 1/4)^2 for a = 2b.
        (300.0, 300.0, 4.0, 4.0),
        (600.0, 300.0, 4.0, 1.5625),
        # Length capped at ten widths: a plate twenty widths long buckles like one of ten.
        (6000.0, 300.0, 4.0, None),
    ],
)
def test_isotropic_plate_compression(a, b, kx, ky):
    loads = corvane.plate_buckling_loads(D_ISO, a, b)
    assert loads.Nxcr == pytest.approx(kx * PI2 * D / b**2, rel=1e-5)
    if ky is not None:
        assert loads.Nycr == pytest.approx(ky * PI2 * D / b**2, rel=1e-5)


def test_isotropic_square_plate_shear():
    # Coefficient 92 of the shear table at aspect ratio 1 and H/sqrt(D11 D22) = 1,
    # the textbook k_s = 9.34 times pi^2 within 0.2 percent.
    loads = corvane.plate_buckling_loads(D_ISO, 300.0, 300.0)
    assert loads.Nxycr == pytest.approx(92.0 * D / 300.0**2, rel=1e-5)
    assert loads.Nxycr == pytest.approx(9.34 * PI2 * D / 300.0**2, rel=2e-3)


def test_long_orthotropic_plate():
    # Long plate: Nx,cr = 2 pi^2 (sqrt(D11 D22) + D12 + 2 D66) / b^2 when the
    # best half-wave length b (D11/D22)^(1/4) divides the (capped) length.
    Dm = np.diag([16000.0, 1000.0, 500.0])
    Dm[0, 1] = Dm[1, 0] = 300.0
    loads = corvane.plate_buckling_loads(Dm, 2000.0, 200.0)
    assert loads.Nxcr == pytest.approx(2 * PI2 * (4000.0 + 1300.0) / 200.0**2, rel=1e-5)


@pytest.mark.parametrize("change", ["D12 = 0", "a = 0", "b < 0"])
def test_unusable_plate_gives_zero_loads_without_error(change):
    Dm, a, b = D_ISO.copy(), 300.0, 300.0
    if change == "D12 = 0":
        Dm[0, 1] = Dm[1, 0] = 0.0
    elif change == "a = 0":
        a = 0.0
    else:
        b = -300.0
    assert corvane.plate_buckling_loads(Dm, a, b) == (0.0, 0.0, 0.0)


def test_matrix_must_be_3x3():
    with pytest.raises(ValueError, match="3x3"):
        corvane.plate_buckling_loads(np.eye(2), 1.0, 1.0)


@pytest.mark.parametrize(
    "Nx, Ny, Nxy, rf",
    [
        (-1000.0, 0.0, 0.0, 1.0),
        (-500.0, -250.0, 0.0, 1.0),  # compression ratios add
        (0.0, 0.0, 400.0, 2.0),
        (0.0, 0.0, -400.0, 2.0),  # shear of either sign
        # rc = rs = 0.5: 0.5 RF + 0.25 RF^2 = 1, RF = sqrt(5) - 1.
        (-500.0, 0.0, 400.0, math.sqrt(5.0) - 1.0),
        (500.0, 100.0, 0.0, 100000.0),  # tension only: the cap
        (0.0, 0.0, 0.0, 100000.0),
    ],
)
def test_reserve_factor(Nx, Ny, Nxy, rf):
    result = corvane.plate_buckling_rf(Nx, Ny, Nxy, 1000.0, 500.0, 800.0)
    assert result == pytest.approx(rf, rel=1e-6)


def test_reserve_factor_takes_unpacked_critical_loads():
    loads = corvane.plate_buckling_loads(D_ISO, 300.0, 300.0)
    rf = corvane.plate_buckling_rf(-loads.Nxcr / 2, 0.0, 0.0, *loads)
    assert rf == pytest.approx(2.0, rel=1e-6)


@pytest.mark.parametrize("critical", [(0.5e-6, 1.0, 1.0), (1.0, 1.0, 0.0)])
def test_reserve_factor_with_a_vanishing_critical_load(critical):
    with pytest.raises(corvane.CorvaneError) as caught:
        corvane.plate_buckling_rf(-1.0, 0.0, 0.0, *critical)
    assert caught.value.code == 1
    assert caught.value.result == 0.0


def test_flat_shell_is_the_flat_plate():
    # R = 0: no cylinder estimate; the panel search is the plate's own.
    shell = corvane.shell_buckling_loads(A_ISO, D_ISO, 300.0, 300.0, 0.0, T)
    plate = corvane.plate_buckling_loads(D_ISO, 300.0, 300.0)
    assert shell.Nxcr == pytest.approx(4.0 * PI2 * D / 300.0**2, rel=1e-5)
    assert shell.Nycr == pytest.approx(shell.Nxcr, rel=1e-6)
    assert shell.Nxycr == plate.Nxycr


def test_curved_panel_shear_and_axial_compression():
    L, b, R = 500.0, 300.0, 1000.0
    shell = corvane.shell_buckling_loads(A_ISO, D_ISO, L, b, R, T)
    flat = corvane.plate_buckling_loads(D_ISO, L, b)
    # Empirical curvature factor on the flat shear value, Z = b^2/(R t),
    # against the long-cylinder torsion estimate.
    Z = b * b / (R * T)
    f = 1.0 + (0.01 * math.sqrt(min(L / b, 5.0)) + 0.024) * min(Z, 100.0)
    A11, A12, A22 = A_ISO[0, 0], A_ISO[0, 1], A_ISO[1, 1]
    torsion = (
        21.75 * D_ISO[1, 1] ** 0.625 * ((A11 * A22 - A12 * A12) / A22) ** 0.375
        * R**1.25 / math.sqrt(L) / (2 * math.pi * R * R)
    )
    assert shell.Nxycr == pytest.approx(max(f * flat.Nxycr, torsion), rel=1e-5)
    # Axial: at least the classical cylinder value E t^2 / (R sqrt(3 (1 - nu^2))),
    # which the cylinder's discrete half-wave search can only meet or exceed.
    classical = E * T * T / (R * math.sqrt(3.0 * (1.0 - NU * NU)))
    assert shell.Nxcr >= 0.999 * classical
    assert shell.Nxcr > corvane.shell_buckling_loads(A_ISO, D_ISO, L, b, 0.0, T).Nxcr


def test_shell_with_an_unusable_flat_panel_reports_the_loads_it_has():
    Dm = D_ISO.copy()
    Dm[0, 1] = Dm[1, 0] = 0.0
    with pytest.raises(corvane.CorvaneError) as caught:
        corvane.shell_buckling_loads(A_ISO, Dm, 500.0, 300.0, 1000.0, T)
    error = caught.value
    assert error.code == 1
    assert "flat-panel shear" in str(error)
    assert isinstance(error.result, corvane.ShellBucklingLoads)
    assert error.result.Nxycr > 0.0  # the cylinder's torsion estimate stands
