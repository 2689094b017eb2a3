"""One stiffened panel of a wing's upper cover taken from its layup to its
governing margin; docs/tutorial.md walks through it. Every number and picture
of the tutorial comes from this script, and a test runs it and compares.

    python3 examples/python/wing_panel.py      # pictures into docs/images, results printed
    python3 examples/python/wing_panel.py --images DIR --results FILE

Units: mm, N, MPa.
"""

import argparse
import csv
import math
import pathlib
import sys

import numpy as np

import corvane
import corvane.plot

HERE = pathlib.Path(__file__).resolve().parent
LOADS = HERE / "wing_panel_loads.csv"
IMAGES = HERE.parents[1] / "docs" / "images"

MATERIAL = "T300/5208"
SKIN = "(45/-45/0/90/0/45/-45/0/0/90/0/0)S"
RIB_PITCH = 600.0  # the bay's length a, along the stringers
STRINGER_PITCH = 125.0  # its width b
# Notched strengths of the material's quasi-isotropic laminate at a 6.35 mm
# hole: an office keys its own test values; these only illustrate.
NOTCHED = {"OHT": 300.0, "OHC": 280.0}
HOLE = 6.35
STRINGER = "(45/-45/0/0/90/0/0/0)S"
# An I stringer, centre-line widths: foot bonded to the skin (two halves, one
# edge free each), web between foot and cap, cap (two halves); y across, z up
# from the foot's mid-plane.
SEGMENTS = [
    corvane.Segment(20.0, "OEF", STRINGER, y=-10.0, z=0.0),
    corvane.Segment(20.0, "OEF", STRINGER, y=10.0, z=0.0),
    corvane.Segment(40.0, "NEF", STRINGER, y=0.0, z=20.0, angle=90.0),
    corvane.Segment(12.5, "OEF", STRINGER, y=-6.25, z=40.0),
    corvane.Segment(12.5, "OEF", STRINGER, y=6.25, z=40.0),
]
FIXITY = 1.0  # pinned at the ribs


def cut(rf: float) -> str:
    """An RF cut toward zero to two decimals, as Corvane's reports print them:
    never shown larger than it is."""
    return f"{math.floor(rf * 100.0) / 100.0:.2f}"


def block(name: str, rows: list, header: tuple) -> str:
    """A results table between the markers the tutorial's test looks for."""
    lines = [f"<!-- wing_panel.py: {name} -->", "| " + " | ".join(header) + " |",
             "|" + "---|" * len(header)]
    lines += ["| " + " | ".join(str(c) for c in row) + " |" for row in rows]
    return "\n".join(lines + ["<!-- end -->"])


def main() -> None:
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    parser.add_argument("--images", type=pathlib.Path, default=IMAGES)
    parser.add_argument("--results", type=pathlib.Path, help="results file (default: printed)")
    args = parser.parse_args()
    args.images.mkdir(parents=True, exist_ok=True)
    out = []

    out.append(block("inputs", [
        ("ply material", MATERIAL), ("skin", SKIN),
        ("bay a x b (rib pitch x stringer pitch)", f"{RIB_PITCH:g} x {STRINGER_PITCH:g}"),
        ("stringer", f"I section of {STRINGER}"),
        ("segments: b, edge, centre (y, z)",
         "; ".join(f"{s.b:g} {s.edge} ({s.y:g}, {s.z:g})" for s in SEGMENTS)),
        ("column length, fixity", f"{RIB_PITCH:g}, {FIXITY:g}"),
        ("hole diameter", f"{HOLE:g}"),
        ("notched strengths", ", ".join(f"{k} = {v:g}" for k, v in NOTCHED.items())),
    ], ("input", "value")))

    # 1. The skin's stiffness.
    ply = corvane.Material.load(MATERIAL)
    skin = corvane.laminate_stiffness(ply, SKIN)
    out.append(block("skin", [
        ("plies", skin.plies), ("h", f"{skin.h:.4g}"), ("Ex", f"{skin.Ex:.6g}"),
        ("Ey", f"{skin.Ey:.6g}"), ("Gxy", f"{skin.Gxy:.6g}"), ("nu_xy", f"{skin.nuxy:.4f}"),
    ], ("skin", "value")))

    # 2. The element loads, and the bay's mean for buckling.
    lines = [line for line in LOADS.read_text().splitlines() if not line.startswith("#")]
    table = list(csv.DictReader(lines))
    elements = [int(row["element"]) for row in table]
    cases = np.zeros((len(table), 7))
    cases[:, :3] = [[float(row[n]) for n in ("Nx", "Ny", "Nxy")] for row in table]
    mean = cases.mean(axis=0)

    # 3. Plate buckling of the bay, simply supported at ribs and stringers.
    critical = corvane.plate_buckling_loads(skin.D, RIB_PITCH, STRINGER_PITCH)
    rf_buckling = corvane.plate_buckling_rf(mean[0], mean[1], mean[2], *critical)
    out.append(block("buckling", [
        ("bay mean Nx, Ny, Nxy", ", ".join(f"{v:.1f}" for v in mean[:3])),
        ("Nx,cr", f"{critical.Nxcr:.4g}"), ("Ny,cr", f"{critical.Nycr:.4g}"),
        ("Nxy,cr", f"{critical.Nxycr:.4g}"), ("RF", cut(rf_buckling)),
    ], ("buckling", "value")))

    # 4. First-ply failure of every element by two criteria.
    strength = {c: skin.strength(cases, c) for c in ("TSAI_WU", "PUCK")}
    rows = [(e, cut(strength["TSAI_WU"].rf[k]), cut(strength["PUCK"].rf[k]),
             corvane.FAILURE_MODES[strength["PUCK"].mode[k]], strength["PUCK"].ply[k])
            for k, e in enumerate(elements)]
    out.append(block("strength", rows, ("element", "RF Tsai-Wu", "RF Puck", "Puck mode", "ply")))
    worst = int(np.argmin(np.minimum(strength["TSAI_WU"].rf, strength["PUCK"].rf)))
    out.append(block("worst", [("the worst element", elements[worst])], ("pictures of", "element")))

    # 5. An open hole anywhere in the bay, and impact damage.
    notched = corvane.notched_strength(ply, SKIN, cases, "ALL", hole_diameter=HOLE,
                                       properties=NOTCHED)
    impact = corvane.impact_strength(ply, SKIN, cases)
    oht, ohc = notched[:, 0].min(), notched[:, 1].min()
    caih, caie = impact[:, 0].min(), impact[:, 1].min()

    # 6. The stringer: its strain is the skin's (they are bonded), so its load
    # is its EA times the skin's strain along it.
    section = corvane.section_crippling(ply, SEGMENTS, length=RIB_PITCH, fixity=FIXITY)
    strain = skin.strains(*cases[:, :3].T).eps_x
    load = float(section.EA) * float(np.min(strain))
    out.append(block("stringer", [
        ("A", f"{section.A:.4g}"), ("EA", f"{section.EA:.4e}"),
        ("Fcc per segment", ", ".join(f"{v:.4g}" for v in section.Fcc)),
        ("Fcc of the section", f"{section.Fcc_section:.4g}"), ("Pcc", f"{section.Pcc:.0f}"),
        ("rho", f"{section.rho:.4g}"),
        (f"column ({section.column_mode})", f"{section.column_load:.0f}"),
        ("skin strain eps_x (least)", f"{np.min(strain):.4e}"), ("stringer load P", f"{load:.0f}"),
    ], ("stringer", "value")))

    # 7. Every check and the governing margin.
    checks = [
        ("skin buckling (bay mean)", rf_buckling),
        ("first-ply failure, Tsai-Wu", strength["TSAI_WU"].rf.min()),
        ("first-ply failure, Puck", strength["PUCK"].rf.min()),
        ("open hole tension", oht), ("open hole compression", ohc),
        ("after impact, CAIH", caih), ("after impact, CAIE", caie),
        ("stringer crippling", section.Pcc / abs(load)),
        ("stringer column", section.column_load / abs(load)),
    ]
    governing = min(range(len(checks)), key=lambda k: checks[k][1])
    rows = [(("**" + n + "**") if k == governing else n,
             "not loaded" if rf >= 1e10 else cut(rf),
             "-" if rf >= 1e10 else f"{float(cut(rf)) - 1:+.2f}")
            for k, (n, rf) in enumerate(checks)]
    out.append(block("margins", rows, ("check", "RF", "MS")))
    name, rf = checks[governing]
    out.append(block("governing", [(name, cut(rf), f"{float(cut(rf)) - 1:+.2f}")],
                     ("governing check", "RF", "MS")))

    # The pictures.
    pictures = {
        "tutorial-polar.png": corvane.plot.polar(skin, step=2),
        "tutorial-buckling.png": corvane.plot.garlands(skin, STRINGER_PITCH, (0.25, 5.0),
                                                       a=RIB_PITCH),
        "tutorial-envelope.png": corvane.plot.envelope(skin, cases[worst], ["TSAI_WU", "PUCK"]),
        "tutorial-thickness.png": corvane.plot.through_thickness(skin, cases[worst]),
    }
    for name, figure in pictures.items():
        figure.savefig(args.images / name, dpi=72)

    text = "\n\n".join(out) + "\n"
    if args.results:
        args.results.write_text(text)
    else:
        sys.stdout.write(text)


if __name__ == "__main__":
    main()
