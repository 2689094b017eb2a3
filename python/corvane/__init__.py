"""Corvane from Python: laminate stiffness by classical laminate theory,
membrane strains, and buckling loads and reserve factors of flat plates and
curved panels, computed by the Corvane shared library in single precision.

    import corvane
    ply = corvane.Ply(t=0.125, E1=135000.0, E2=10000.0, G12=5000.0, nu12=0.3)
    laminate = corvane.laminate_stiffness(ply, "(0/45/-45/90)2S")
    loads = corvane.plate_buckling_loads(laminate.D, a=600.0, b=200.0)
    rf = corvane.plate_buckling_rf(-150.0, 0.0, 20.0, *loads)

The library is found through the environment variable CORVANE_LIBRARY (a
path), next to this package, or on the system's library path.
"""

from . import _version
from ._library import CARDS_LENGTH, LAYUP_LENGTH, library_path
from .buckling import (
    PlateBucklingLoads,
    ShellBucklingLoads,
    plate_buckling_loads,
    plate_buckling_rf,
    shell_buckling_loads,
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

__version__ = _version.version()

__all__ = [
    "CARDS_LENGTH",
    "LAYUP_LENGTH",
    "CorvaneError",
    "Error",
    "InPlaneStrains",
    "LaminateStiffness",
    "LibraryError",
    "PlateBucklingLoads",
    "Ply",
    "ShellBucklingLoads",
    "bi_material_laminate_stiffness",
    "laminate_stiffness",
    "library_path",
    "plate_buckling_loads",
    "plate_buckling_rf",
    "shell_buckling_loads",
    "strains_in_plane",
]
