"""corvane.plot: each picture rendered to a PNG, and the data it holds checked."""

import subprocess
import sys

import numpy as np
import pytest

import corvane

pytest.importorskip("matplotlib", reason="Debian: python3-matplotlib (scripts/setup)")
from corvane import plot  # noqa: E402

T300 = corvane.Material.load("T300/5208")
GLASS = corvane.Material.load("Scotchply 1002")
QI = corvane.laminate_stiffness(T300, "(0/45/-45/90)2S")


def drawn(fig, tmp_path, panel=0):
    """The figure saved as a PNG, and the (x, y) points of each line of a panel."""
    fig.savefig(tmp_path / "picture.png")
    assert (tmp_path / "picture.png").read_bytes()[:4] == b"\x89PNG"
    return [line.get_xydata() for line in fig.axes[panel].lines]


def test_polar_quasi_isotropic_is_a_circle_and_an_angle_ply_peaks_along_its_fibres(tmp_path):
    (theta, ex), (_, gxy) = (line.T for line in drawn(plot.polar(QI), tmp_path))
    assert ex[0] == QI.Ex and np.ptp(ex) < 2e-6 * ex[0] and np.ptp(gxy) < 2e-6 * gxy[0]
    pair = corvane.bi_material_laminate_stiffness(T300, GLASS, "(30/-60.)")
    theta, ex = drawn(plot.polar(pair, step=5), tmp_path)[0].T
    assert round(np.degrees(theta[np.argmax(ex)])) % 180 == 30


@pytest.mark.parametrize("plies, layup, load", [  # the first coupled: B not 0
    ((T300,), "(0/45/90/30)", [-200, 80, 40, 15, -10, 5, 0]),
    ((T300, GLASS), "(0/45./-45/90.)2$", [100, -200, 60, -5, 10, 5, 0])])
def test_ply_stresses_drawn_give_the_libraries_tsai_hill_rf(plies, layup, load, tmp_path):
    stiffness = corvane.laminate_stiffness if len(plies) == 1 else corvane.bi_material_laminate_stiffness
    lam = stiffness(*plies, layup)
    panels = [drawn(plot.through_thickness(lam, load), tmp_path, k)[0] for k in (3, 4, 5)]
    (s1, z), (s2, _), (t12, _) = (p.T for p in panels)
    assert (z[0], z[-1]) == pytest.approx((-lam.h / 2, lam.h / 2))
    # Both layups alternate their materials ply by ply; each ply drawn at bottom and top.
    ply = [plies[k % len(plies)] for k in range(lam.plies) for _ in (0, 1)]
    X = np.where(s1 >= 0, [p.F1t for p in ply], [p.F1c for p in ply])
    Y = np.where(s2 >= 0, [p.F2t for p in ply], [p.F2c for p in ply])
    F = (s1 / X) ** 2 - s1 * s2 / X**2 + (s2 / Y) ** 2 + (t12 / [p.F12 for p in ply]) ** 2
    assert 1 / np.sqrt(F.max()) == pytest.approx(lam.strength(load, "TSAI_HILL").rf, rel=1e-5)


def test_a_cooled_cross_ply_laminate_holds_self_equilibrated_stresses():
    s = plot.ply_states(corvane.laminate_stiffness(T300, "(0/90)S"), {"dT": -100.0})["stress"]
    # sigma_x of the 0 plies (their sigma1) against that of the 90 plies (their sigma2)
    assert s[[0, 3], :, 0] == pytest.approx(-s[[1, 2], :, 1]) and (s[..., 1] > 1).all()


@pytest.mark.parametrize("load, plane", [
    ([-300, 100, 0, 0, 0, 0, 0], ("Nx", "Ny")), ([200, 0, -150, 0, 0, 0, -80], ("Nx", "Nxy"))])
def test_the_load_rays_end_on_the_envelope_at_rf_times_the_load(load, plane, tmp_path):
    criteria = ["TSAI_WU", "PUCK"]
    lines = drawn(plot.envelope(QI, load, criteria, [plane], directions=90), tmp_path)
    i, j = (corvane.LOAD_NAMES.index(n) for n in plane)
    for k, criterion in enumerate(criteria):
        curve, ray = lines[2 * k], lines[2 * k + 1]
        end = QI.strength(load, criterion).rf * np.array([load[i], load[j]])
        assert ray[-1] == pytest.approx(end, rel=1e-6)
        assert np.abs(curve - end).sum(1).min() < 1e-5 * np.abs(end).sum()


def test_the_buckling_envelope_is_the_least_of_the_half_wave_curves(tmp_path):
    *waves, envelope, marked = drawn(plot.garlands(QI, 150.0, (0.3, 6.0), a=500.0), tmp_path)
    assert len(waves) >= 6 and marked[0, 0] == pytest.approx(500 / 150)
    assert envelope[:, 1] == pytest.approx(np.min([w[:, 1] for w in waves], 0), rel=1e-5)


@pytest.mark.parametrize("args, status", [
    ("polar (0/90)S --step 10", 0), ("thickness --nx -300 --mx 5 --material2 B(4)/5505", 0),
    ("envelope --dt -50 --nx -300 --criterion PUCK --plane Nx,Nxy", 0),
    ("buckling (0/45/-45/90)2S --b 150 --a 600 --e1 150000", 0),
    ("polar (0/90", 1), ("envelope --plane Nx,Q", 1)])
def test_the_command_writes_each_picture_or_says_why_not(args, status, tmp_path, capsys):
    assert plot.main([*args.split(), "-o", str(tmp_path / "p.png")]) == status
    assert (tmp_path / "p.png").exists() == (status == 0)
    assert (capsys.readouterr().err != "") == (status != 0)


def test_the_package_imports_without_matplotlib():
    code = "import sys; sys.modules['matplotlib'] = None; import corvane, corvane.plot"
    assert subprocess.run([sys.executable, "-c", code]).returncode == 0
