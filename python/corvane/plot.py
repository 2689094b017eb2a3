"""Pictures of a laminate, each a matplotlib Figure for the caller to restyle
or save (fig.savefig("polar.png")):

    polar(laminate)                     Ex and Gxy against direction
    through_thickness(laminate, load)   ply strains and stresses through the thickness
    envelope(laminate, load, criteria)  first-ply failure envelopes, the load's RF as a ray
    garlands(laminate, b)               plate buckling load against aspect ratio

matplotlib is imported only when a picture is made, and the figures are made
without pyplot, so nothing is kept between calls. From the command line:

    python3 -m corvane.plot polar "(0/45/-45/90)S" -o polar.png
    python3 -m corvane.plot --help
"""

import dataclasses
import math
import sys
import typing

import numpy as np

from .buckling import plate_buckling_loads
from .errors import Error
from .laminate import LaminateStiffness, Ply, bi_material_laminate_stiffness, laminate_stiffness
from .material_data import Material
from .strength import LOAD_NAMES, _load_cases

if typing.TYPE_CHECKING:  # only for the hints: matplotlib stays unimported
    import argparse

    from matplotlib.figure import Figure

# The library's reserve factor where a criterion is never reached.
_NEVER = 1.0e10


def _figure(**options: typing.Any) -> "Figure":
    # A Figure of its own rather than pyplot's, which keeps every figure it
    # made until it is closed.
    from matplotlib.figure import Figure

    return Figure(**options)


def _parts(layup: typing.Union[str, bytes]) -> typing.Tuple[str, typing.List[str], str]:
    """The text before the ply group with its "(", the group's ply tokens, and
    the text from its ")" on (repeat count, S or $)."""
    text = layup.decode("latin-1") if isinstance(layup, bytes) else str(layup)
    text = text.split("\0", 1)[0].strip()
    start, end = text.index("("), text.index(")")
    return text[: start + 1], [t.strip() for t in text[start + 1 : end].split("/")], text[end:]


def _angle(token: str) -> float:
    # A trailing "." marks the second material; D is an exponent as E is.
    return float(token.rstrip(".").replace("D", "e").replace("d", "e"))


def _stack(laminate: LaminateStiffness) -> typing.List[str]:
    """The ply tokens of the laminate from its bottom face, repeats and
    mirror images written out, as the library expands them."""
    _, tokens, ending = _parts(laminate.layup)
    ending = ending[1:]
    mark = ending[-1:] if ending[-1:] in ("S", "$") else ""
    stack = tokens * int(ending[: len(ending) - len(mark)] or 1)
    if mark == "S":
        stack += stack[::-1]
    elif mark == "$":
        stack += stack[-2::-1]
    if len(stack) != laminate.plies:
        raise ValueError(f"the layup {laminate.layup!r} was not read as the library reads it")
    return stack


def _turned(laminate: LaminateStiffness, delta: float) -> LaminateStiffness:
    """The laminate with every ply turned by delta degrees, each new angle the
    float sum of the ply's angle and delta, as LAMINATE::rotate forms it, and
    written in the shortest text that reads back to that float."""
    start, tokens, ending = _parts(laminate.layup)
    step = np.float32(delta)
    texts = []
    for token in tokens:
        angle = np.float32(_angle(token)) + step
        if not token.endswith(".") or len(laminate.materials) == 1:
            texts.append(str(angle))
        elif float(angle).is_integer():
            texts.append(f"{int(angle)}.")
        else:  # a ply of the second material has no written form off whole degrees
            raise ValueError(f"ply {token!r} turned by {delta} degrees is not a whole angle")
    layup = start + "/".join(texts) + ending
    if len(laminate.materials) == 2:
        return bi_material_laminate_stiffness(laminate.materials[0], laminate.materials[1], layup)
    return laminate_stiffness(laminate.materials[0], layup)


def polar(laminate: LaminateStiffness, step: int = 1) -> "Figure":
    """Polar plot of the apparent membrane moduli Ex and Gxy of the laminate
    along each direction theta (degrees, counter-clockwise from x as ply
    angles are), every `step` whole degrees through 360.

    The value at theta is the library's Ex (and Gxy) of the laminate turned by
    -theta: every ply angle less theta, the laminate recomputed, exactly as
    the library turns a laminate, so theta = 0 gives laminate.Ex to the bit.
    Whole degrees keep the second material's plies (written "45.") writable.
    """
    if int(step) != step or not 0 < step <= 360:
        raise ValueError(f"step must be a whole number of degrees in 1 .. 360, not {step}")
    theta = np.arange(0, 361, int(step))
    turned = [_turned(laminate, -float(t)) for t in theta]
    fig = _figure(figsize=(6.0, 6.0))
    ax = fig.add_subplot(projection="polar")
    ax.plot(np.radians(theta), [t.Ex for t in turned], label="Ex")
    ax.plot(np.radians(theta), [t.Gxy for t in turned], label="Gxy")
    ax.set_title(f"{_layup_name(laminate)}\napparent moduli along each direction")
    ax.legend(loc="lower left", bbox_to_anchor=(-0.1, -0.1))
    return fig


def _layup_name(laminate: LaminateStiffness) -> str:
    layup = laminate.layup
    return (layup.decode("latin-1") if isinstance(layup, bytes) else str(layup)).strip()


def _strain_rotation(theta: np.ndarray) -> np.ndarray:
    """Per angle, the matrix taking engineering strains (x, y, xy) to ply axes
    (1, 2, 12)."""
    c, s = np.cos(theta), np.sin(theta)
    return np.stack(
        [
            np.stack([c * c, s * s, c * s], -1),
            np.stack([s * s, c * c, -c * s], -1),
            np.stack([-2 * c * s, 2 * c * s, c * c - s * s], -1),
        ],
        -2,
    )


def ply_states(laminate: LaminateStiffness, load: typing.Any) -> typing.Dict[str, np.ndarray]:
    """Strains and stresses at the bottom and top of every ply under one load
    case (Nx, Ny, Nxy, Mx, My, Mxy, dT: 7 values, or a dict by those names).

    Classical laminate theory as docs/strength.md states it (R. M. Jones,
    Mechanics of Composite Materials, 2nd ed., 1999, chapter 4): the
    mid-plane strains and curvatures from the library's [A], [B], [D] and the
    loads with the thermal running loads N_T, M_T; strains eps0 + z kappa;
    ply stresses Q (T eps - alpha dT). Worked in double precision from the
    library's single-precision matrices, in Python: the strength library
    computes the same stresses but returns only their reserve factors, which
    these give to about single precision.

    Returns z (plies, 2: bottom, top), strain (plies, 2, 3: eps_x, eps_y,
    gamma_xy in laminate axes, total), stress (plies, 2, 3: sigma1, sigma2,
    tau12 in ply axes) and angle (plies,), ply 1 at the bottom.
    """
    case = _load_cases(load)
    if case.shape != (len(LOAD_NAMES),):
        raise ValueError(f"one load case of {len(LOAD_NAMES)} values, not shape {case.shape}")
    values = case.astype(np.float64)
    stack = _stack(laminate)
    last = len(laminate.materials) - 1
    plies = [laminate.materials[min(last, int(t.endswith(".")))] for t in stack]
    angle = np.array([_angle(t) for t in stack])
    T = _strain_rotation(np.radians(angle))
    Q = np.zeros((len(plies), 3, 3))
    for k, p in enumerate(plies):
        nu21 = p.nu12 * p.E2 / p.E1
        d = 1.0 - p.nu12 * nu21
        Q[k] = [[p.E1 / d, p.nu12 * p.E2 / d, 0], [p.nu12 * p.E2 / d, p.E2 / d, 0], [0, 0, p.G12]]
    alpha = np.array([[p.CTE1, p.CTE2, 0.0] for p in plies])
    Qbar = np.transpose(T, (0, 2, 1)) @ Q @ T
    alpha_bar = np.linalg.solve(T, alpha[..., None])[..., 0]
    edges = np.concatenate([[0.0], np.cumsum([p.t for p in plies])])
    edges -= edges[-1] / 2
    z = np.stack([edges[:-1], edges[1:]], -1)
    thermal = values[6] * np.einsum("kij,kj->ki", Qbar, alpha_bar)
    NT = (thermal * (z[:, 1] - z[:, 0])[:, None]).sum(0)
    MT = (thermal * ((z[:, 1] ** 2 - z[:, 0] ** 2) / 2)[:, None]).sum(0)
    A, B, D = (np.asarray(m, dtype=np.float64) for m in (laminate.A, laminate.B, laminate.D))
    mid = np.linalg.solve(np.block([[A, B], [B, D]]), np.concatenate([values[:3] + NT, values[3:6] + MT]))
    strain = mid[:3] + z[..., None] * mid[3:]
    mechanical = np.einsum("kij,ksj->ksi", T, strain) - values[6] * alpha[:, None, :]
    stress = np.einsum("kij,ksj->ksi", Q, mechanical)
    return {"z": z, "strain": strain, "stress": stress, "angle": angle}


_COMPONENTS = ("eps_x", "eps_y", "gamma_xy", "sigma1", "sigma2", "tau12")


def through_thickness(laminate: LaminateStiffness, load: typing.Any) -> "Figure":
    """Strains (laminate axes) and ply stresses (ply axes) through the
    thickness under one load case (as ply_states takes it), one panel per
    component, z upwards, the ply boundaries as thin lines. Each panel has one
    line through the bottom and top of every ply in turn, so a jump at a
    boundary is drawn flat."""
    states = ply_states(laminate, load)
    z = states["z"]
    values = np.concatenate([states["strain"], states["stress"]], -1)
    fig = _figure(figsize=(11.0, 7.0), layout="constrained")
    axes = fig.subplots(2, 3, sharey=True)
    for i, ax in enumerate(axes.flat):
        ax.plot(values[..., i].ravel(), z.ravel(), color="C0" if i < 3 else "C3")
        for boundary in np.unique(z):
            ax.axhline(boundary, color="0.8", linewidth=0.5, zorder=0)
        ax.axvline(0.0, color="0.5", linewidth=0.5)
        ax.set_xlabel(_COMPONENTS[i])
        # strains always scaled (x 1e-3 and so on), stresses when large
        ax.ticklabel_format(axis="x", style="sci", scilimits=(0, 0) if i < 3 else (-3, 4))
        ax.locator_params(axis="x", nbins=5)
    for ax in axes[:, 0]:
        ax.set_ylabel("z")
    if len(z) <= 40:  # the ply angles, right of the panels, where they can be read
        for row in axes[:, -1]:
            for (bottom, top), a in zip(z, states["angle"]):
                row.annotate(f"{a:g}", (1.0, (bottom + top) / 2), xycoords=("axes fraction", "data"),
                             xytext=(3, 0), textcoords="offset points", va="center", fontsize=7)
    fig.suptitle(f"{_layup_name(laminate)} under {_case_text(load)}")
    return fig


def _case_text(load: typing.Any) -> str:
    case = _load_cases(load)
    return ", ".join(f"{n} = {float(v):g}" for n, v in zip(LOAD_NAMES, case) if v != 0) or "no load"


def envelope(
    laminate: LaminateStiffness,
    load: typing.Any = None,
    criteria: typing.Union[str, typing.Sequence[str]] = "TSAI_WU",
    planes: typing.Sequence[typing.Tuple[str, str]] = (("Nx", "Ny"), ("Nx", "Nxy")),
    directions: int = 360,
    **options: typing.Any,
) -> "Figure":
    """First-ply failure envelopes of the laminate, one panel per plane of two
    running loads, one curve per criterion (options: f12_star, puck, as
    laminate_strength takes them).

    Along each of `directions` directions phi of a plane the unit load
    (cos phi, sin phi), every other load 0 and dT that of the load case,
    goes to the strength library in one call; the envelope point is its RF
    times the unit load. A direction whose RF is the library's 1.0e10 (never
    reached) leaves a gap. The load case, when given, is marked at its two
    components, and for each criterion its own RF is drawn as the ray from
    the origin to RF times the load; the load's direction is among those of
    the curve, so for a case with no other mechanical load the ray ends on
    the envelope.
    """
    names = [criteria] if isinstance(criteria, str) else list(criteria)
    case = None if load is None else _load_cases(load)
    fig = _figure(figsize=(5.5 * len(planes), 5.5), layout="constrained")
    axes = fig.subplots(1, len(planes), squeeze=False)[0]
    for ax, (first, second) in zip(axes, planes):
        i, j = LOAD_NAMES.index(first), LOAD_NAMES.index(second)
        phi = np.linspace(0.0, 2 * np.pi, directions, endpoint=False)
        if case is not None and (case[i] != 0 or case[j] != 0):
            phi = np.unique(np.append(phi, math.atan2(case[j], case[i]) % (2 * np.pi)))
        units = np.zeros((len(phi), len(LOAD_NAMES)))
        units[:, i], units[:, j] = np.cos(phi), np.sin(phi)
        units[:, 6] = 0.0 if case is None else case[6]
        for n, criterion in enumerate(names):
            rf = laminate.strength(units, criterion, **options).rf.astype(np.float64)
            rf[rf >= _NEVER] = np.nan
            curve = rf[:, None] * units[:, [i, j]]
            curve = np.vstack([curve, curve[:1]])
            ax.plot(curve[:, 0], curve[:, 1], color=f"C{n}", label=criterion)
            reserve = _NEVER if case is None else float(laminate.strength(case, criterion, **options).rf)
            if case is not None and reserve < _NEVER:  # cut toward zero, as reports print RFs
                ax.plot([0.0, reserve * case[i]], [0.0, reserve * case[j]], "--", color=f"C{n}",
                        label=f"RF = {math.floor(reserve * 100) / 100:.2f}")
        if case is not None:
            ax.plot([case[i]], [case[j]], "ko", label="load case")
        ax.axhline(0.0, color="0.5", linewidth=0.5)
        ax.axvline(0.0, color="0.5", linewidth=0.5)
        ax.set_xlabel(first)
        ax.set_ylabel(second)
        ax.set_aspect("equal", adjustable="datalim")
        ax.legend(fontsize=8)
    fig.suptitle(f"{_layup_name(laminate)}: first-ply failure"
                 + (f", dT = {float(case[6]):g}" if case is not None and case[6] else ""))
    return fig


def garlands(
    laminate: LaminateStiffness,
    b: float,
    ratios: typing.Tuple[float, float] = (0.25, 4.0),
    points: int = 400,
    a: typing.Optional[float] = None,
) -> "Figure":
    """Compression buckling load Nx,cr of a simply supported flat plate of
    width b against its aspect ratio a/b (at most 10, the longest plate the
    library takes): one curve per half-wave number m,

        Nx,cr(m) = pi^2/b^2 [D11 (m b/a)^2 + 2 (D12 + 2 D66) + D22 (a/(m b))^2]

    (one half-wave across; specially orthotropic plate, J. M. Whitney,
    Structural Analysis of Laminated Anisotropic Plates, 1987, chapter 5;
    Jones 1999, section 5.5), and their envelope, the library's Nxcr from its
    search over half-wave numbers (plate_buckling_loads). `a`, when given,
    marks that plate on the envelope.
    """
    r = np.linspace(ratios[0], ratios[1], points)
    D = np.asarray(laminate.D, dtype=np.float64)
    envelope_load = np.asarray(plate_buckling_loads(laminate.D, r * b, b).Nxcr)
    waves = int(math.ceil(ratios[1] * (D[1, 1] / D[0, 0]) ** 0.25)) + 1
    fig = _figure(figsize=(8.0, 5.0), layout="constrained")
    ax = fig.add_subplot()
    for m in range(1, waves + 1):
        curve = np.pi**2 / b**2 * (
            D[0, 0] * (m / r) ** 2 + 2 * (D[0, 1] + 2 * D[2, 2]) + D[1, 1] * (r / m) ** 2
        )
        ax.plot(r, curve, color="0.6", linewidth=0.8, label=f"m = {m}")
    ax.plot(r, envelope_load, color="C0", linewidth=2.0, label="Nx,cr")
    if a is not None:
        marked = float(plate_buckling_loads(laminate.D, a, b).Nxcr)
        ax.plot([a / b], [marked], "o", color="C3", label=f"a/b = {a / b:.3g}: {marked:.4g}")
    ax.set_ylim(0.0, 4.0 * float(envelope_load.min()))
    ax.set_xlim(r[0], r[-1])
    ax.set_xlabel("a/b")
    ax.set_ylabel("Nx,cr")
    ax.set_title(f"{_layup_name(laminate)}, b = {b:g}: half-wave curves and their envelope")
    ax.legend(fontsize=8, ncol=2)
    return fig


# The command line: python3 -m corvane.plot COMMAND LAYUP [options] -o FILE.

_MATERIAL_OPTIONS = {
    "t": "t", "e1": "E1", "e2": "E2", "g12": "G12", "nu12": "nu12", "cte1": "CTE1",
    "cte2": "CTE2", "f1t": "F1t", "f1c": "F1c", "f2t": "F2t", "f2c": "F2c", "f12": "F12",
}


def _arguments() -> "argparse.ArgumentParser":
    import argparse

    common = argparse.ArgumentParser(add_help=False)
    common.add_argument("layup", nargs="?", default="(0/45/-45/90)S",
                        help="stacking sequence (default %(default)s)")
    common.add_argument("-o", "--output", help="the picture's file, its type by its "
                        "extension (png, svg, pdf; default COMMAND.png)")
    common.add_argument("--dpi", type=float, default=150.0)
    common.add_argument("--material", default="T300/5208",
                        help="ply material by name (default %(default)s)")
    common.add_argument("--material2", help="the second material, of plies written as 45.")
    common.add_argument("--materials", action="append", metavar="FILE|DIR",
                        help="material data files searched first")
    for option, field in _MATERIAL_OPTIONS.items():
        common.add_argument(f"--{option}", type=float, metavar=field.upper(),
                            help=f"{field} in place of the material's")
    loads = argparse.ArgumentParser(add_help=False)
    for name in LOAD_NAMES:
        loads.add_argument(f"--{name.lower()}", type=float, default=0.0, metavar=name.upper())

    parser = argparse.ArgumentParser(
        prog="python3 -m corvane.plot",
        description="Pictures of a laminate by the Corvane libraries, written to a file.")
    commands = parser.add_subparsers(dest="command", required=True)
    command = commands.add_parser("polar", parents=[common], help="Ex and Gxy against direction")
    command.add_argument("--step", type=int, default=1, help="degrees between points")
    commands.add_parser("thickness", parents=[common, loads],
                        help="ply strains and stresses through the thickness")
    command = commands.add_parser("envelope", parents=[common, loads],
                                  help="first-ply failure envelopes with the load's RF")
    command.add_argument("--criterion", action="append", metavar="NAME",
                         help="criterion, repeatable (default TSAI_WU)")
    command.add_argument("--plane", action="append", metavar="N1,N2",
                         help="two loads of a plane, repeatable (default Nx,Ny and Nx,Nxy)")
    command.add_argument("--directions", type=int, default=360)
    command = commands.add_parser("buckling", parents=[common],
                                  help="plate buckling load against aspect ratio")
    command.add_argument("--b", type=float, required=True, help="plate width")
    command.add_argument("--a", type=float, help="plate length, marked")
    command.add_argument("--ratios", type=float, nargs=2, default=(0.25, 4.0), metavar=("LO", "HI"))
    return parser


def _ply(name: typing.Optional[str], places: typing.Any, given: typing.Dict[str, float]) -> Ply:
    base = Material.load(name, places) if name else Ply(0, 0, 0, 0, 0)
    values = {f.name: getattr(base, f.name) for f in dataclasses.fields(Ply)}
    return Ply(**{**values, **given})


def _plane(text: str) -> typing.Tuple[str, str]:
    names = tuple(n.strip() for n in text.split(","))
    for n in names:
        if n not in LOAD_NAMES[:6] or len(names) != 2:
            raise ValueError(f"a plane is two of {', '.join(LOAD_NAMES[:6])}, not {text!r}")
    return typing.cast(typing.Tuple[str, str], names)


def main(argv: typing.Optional[typing.Sequence[str]] = None) -> int:
    """The command: one picture to a file. Returns the exit status."""
    args = _arguments().parse_args(argv)
    try:
        given = {field: getattr(args, o) for o, field in _MATERIAL_OPTIONS.items()
                 if getattr(args, o) is not None}
        ply = _ply(args.material, args.materials, given)
        if args.material2:
            laminate = bi_material_laminate_stiffness(
                ply, _ply(args.material2, args.materials, {}), args.layup)
        else:
            laminate = laminate_stiffness(ply, args.layup)
        load = {n: getattr(args, n.lower(), 0.0) for n in LOAD_NAMES}
        if args.command == "polar":
            fig = polar(laminate, args.step)
        elif args.command == "thickness":
            fig = through_thickness(laminate, load)
        elif args.command == "envelope":
            planes = [_plane(p) for p in args.plane] if args.plane else [("Nx", "Ny"), ("Nx", "Nxy")]
            fig = envelope(laminate, load, args.criterion or "TSAI_WU", planes, args.directions)
        else:
            fig = garlands(laminate, args.b, (args.ratios[0], args.ratios[1]), a=args.a)
        fig.savefig(args.output or f"{args.command}.png", dpi=args.dpi)
    except (Error, ValueError, OSError) as error:
        print(f"python3 -m corvane.plot {args.command}: {error}", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
