"""Corvane from Python: laminate stiffness by classical laminate theory,
membrane strains, buckling loads and reserve factors of flat plates and
curved panels, first-ply failure under many load cases, the crippling and
column allowable of sections of laminate segments, bulk data decks for
finite-element models and ply materials by name from material data files,
computed by the Corvane shared libraries in single precision.

    import corvane
    ply = corvane.Ply(t=0.125, E1=135000.0, E2=10000.0, G12=5000.0, nu12=0.3)
    laminate = corvane.laminate_stiffness(ply, "(0/45/-45/90)2S")
    loads = corvane.plate_buckling_loads(laminate.D, a=600.0, b=200.0)
    rf = corvane.plate_buckling_rf(-150.0, 0.0, 20.0, *loads)

    tape = corvane.Ply(0.125, 181000.0, 10300.0, 7170.0, 0.28, F1t=1500.0,
                       F1c=1500.0, F2t=40.0, F2c=246.0, F12=68.0)
    failure = corvane.laminate_stiffness(tape, "(0/45/-45/90)2S").strength(
        [[-500, 0, 0, 0, 0, 0, 0], [0, 0, 0, 0, 0, 0, -120]], criterion="PUCK")

    t300 = corvane.Material.load("T300/5208")   # from the material data files
    names = corvane.materials()

    corvane.plot.polar(laminate).savefig("polar.png")   # pictures, by matplotlib

The library is found through the environment variable CORVANE_LIBRARY (a
path), next to this package, or on the system's library path; the strength
library (corvane_strength) through CORVANE_STRENGTH_LIBRARY, else beside the
first when CORVANE_LIBRARY names it, else likewise.
"""

import importlib
import typing

from . import _version
from ._library import (
    CARDS_LENGTH,
    LAYUP_LENGTH,
    library_path,
    strength_library_path,
)
from .buckling import (
    PlateBucklingLoads,
    ShellBucklingLoads,
    plate_buckling_loads,
    plate_buckling_rf,
    shell_buckling_loads,
)
from .deck import solver_deck
from .crippling import (
    COLUMN_MODES,
    EDGE_CONDITIONS,
    FITTED_RANGES,
    CripplingRangeWarning,
    CripplingResult,
    Segment,
    section_crippling,
)
from .errors import CorvaneError, Error, LibraryError
from .laminate import (
    InPlaneStrains,
    LaminateStiffness,
    Ply,
    bi_material_laminate_stiffness,
    laminate_stiffness,
    strains_in_plane,
)
from .material_data import Material, installed_materials, materials
from .strength import (
    FAILURE_MODES,
    HOLE_DIAMETER,
    IMPACT_CHECKS,
    LOAD_NAMES,
    NOTCH_CHECKS,
    PUCK_CARBON,
    PUCK_GLASS,
    TSAI_WU_F12_STAR,
    StrengthResult,
    impact_strength,
    laminate_strength,
    notched_strength,
)

__version__ = _version.version()


def __getattr__(name: str) -> typing.Any:
    # corvane.plot is imported on first use: `python3 -m corvane.plot` runs it
    # as a script, which must not find it imported already.
    if name == "plot":
        return importlib.import_module(".plot", __name__)
    raise AttributeError(f"module {__name__!r} has no attribute {name!r}")


__all__ = [
    "CARDS_LENGTH",
    "COLUMN_MODES",
    "CripplingRangeWarning",
    "CripplingResult",
    "EDGE_CONDITIONS",
    "FITTED_RANGES",
    "Segment",
    "section_crippling",
    "LAYUP_LENGTH",
    "LOAD_NAMES",
    "CorvaneError",
    "FAILURE_MODES",
    "HOLE_DIAMETER",
    "IMPACT_CHECKS",
    "NOTCH_CHECKS",
    "PUCK_CARBON",
    "PUCK_GLASS",
    "TSAI_WU_F12_STAR",
    "Error",
    "InPlaneStrains",
    "LaminateStiffness",
    "LibraryError",
    "Material",
    "PlateBucklingLoads",
    "Ply",
    "ShellBucklingLoads",
    "StrengthResult",
    "bi_material_laminate_stiffness",
    "laminate_stiffness",
    "installed_materials",
    "laminate_strength",
    "notched_strength",
    "impact_strength",
    "library_path",
    "materials",
    "plate_buckling_loads",
    "plate_buckling_rf",
    "shell_buckling_loads",
    "solver_deck",
    "strains_in_plane",
    "strength_library_path",
]
