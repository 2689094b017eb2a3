"""First-ply failure of a laminate under many load cases: the strength
library's LAMINATE_STRENGTH and BI_MATERIAL_LAMINATE_STRENGTH entry points."""

import typing
from ctypes import POINTER, byref, c_float, c_int32, create_string_buffer

import numpy as np

from . import _convert, _library
from .errors import CorvaneError

# The columns of a load case, in the library's order: running loads (force per
# width), running moments (moment per width) and the temperature change.
LOAD_NAMES = ("Nx", "Ny", "Nxy", "Mx", "My", "Mxy", "dT")

# The failure modes the library reports, by their code.
FAILURE_MODES = (
    "-",
    "fibre tension",
    "fibre compression",
    "matrix tension",
    "matrix compression",
    "shear",
    "Puck mode A",
    "Puck mode B",
    "Puck mode C",
)

_POINTER_F = POINTER(c_float)
_POINTER_I = POINTER(c_int32)


class StrengthResult(typing.NamedTuple):
    """First-ply failure per load case, arrays of the shape of the load cases
    less their last axis:

    rf: float32 reserve factor, the factor on the mechanical loads (thermal
        stresses held) at which the criterion is reached in the first ply;
        1.0e10 when it never is, 0 when the thermal stresses alone reach it.
    ply: int32 ply where it occurs, 1-based from the bottom.
    surface: int32 1 bottom, 2 middle, 3 top of that ply.
    mode: int32 failure mode, FAILURE_MODES[mode] in words (0: not told).
    """

    rf: np.ndarray
    ply: np.ndarray
    surface: np.ndarray
    mode: np.ndarray


def _load_cases(loads: typing.Any) -> np.ndarray:
    """The load cases as a C-ordered float32 array whose last axis holds the
    seven values of a case."""
    if hasattr(loads, "keys"):
        unknown = sorted(set(loads.keys()) - set(LOAD_NAMES))
        if unknown:
            raise ValueError(f"unknown load columns {unknown}; they are {LOAD_NAMES}")
        columns = [
            np.asarray(loads[n] if n in loads else 0.0, dtype=np.float32) for n in LOAD_NAMES
        ]
        array = np.stack(np.broadcast_arrays(*columns), axis=-1)
    else:
        array = np.asarray(loads, dtype=np.float32)
    if array.ndim == 0 or array.shape[-1] != len(LOAD_NAMES):
        raise ValueError(
            f"load cases need {len(LOAD_NAMES)} values each ({', '.join(LOAD_NAMES)}), "
            f"not an array of shape {array.shape}"
        )
    return np.ascontiguousarray(array, dtype=np.float32)


# The published defaults of the criteria's options: Tsai-Wu's normalised
# interaction term, Puck's inclination parameters p+ and p- for carbon (glass:
# 0.30 and 0.25).
TSAI_WU_F12_STAR = -0.5
PUCK_CARBON = (0.35, 0.30)
PUCK_GLASS = (0.30, 0.25)


def laminate_strength(
    ply: typing.Any,
    layup: typing.Union[str, bytes],
    loads: typing.Any,
    criterion: str = "TSAI_WU",
    *,
    f12_star: float = TSAI_WU_F12_STAR,
    puck: typing.Tuple[float, float] = PUCK_CARBON,
) -> StrengthResult:
    """First-ply failure of a laminate under load cases.

    ply: a Ply with its strengths (F1t, F1c, F2t, F2c, F12) and, for the
    truncated maximum strain criterion, its allowable strains (uetall,
    uecall); or a pair of them for a laminate of two materials, whose layup
    marks plies of the second with a trailing "." (as
    bi_material_laminate_stiffness). layup: the stacking sequence, as for
    laminate_stiffness. loads: the load cases, an array of shape (..., 7) of
    Nx, Ny, Nxy, Mx, My, Mxy, dT (one case: shape (7,)), or columns by those
    names (a dict or a data frame; a missing column is 0). criterion: TSAI_HILL, TSAI_WU,
    HOFFMAN, YAMADA_SUN, PUCK, MAX_STRAIN_I or MAX_TRUNCATED_STRAIN (MTS).
    f12_star: Tsai-Wu's normalised interaction term, in (-1, 1). puck: Puck's
    inclination parameters (p+, p-), each in [0, 1); PUCK_GLASS for glass.

    Returns a StrengthResult. Raises CorvaneError with the library's code and
    message when it refuses the call: an invalid material, a refused layup,
    an unknown or unavailable criterion, a strength the criterion needs
    missing, a NaN or infinite load, an option out of range.
    """
    plies = tuple(ply) if isinstance(ply, (tuple, list)) else (ply,)
    if len(plies) not in (1, 2):
        raise ValueError(f"one or two ply materials, not {len(plies)}")
    entry = "LAMINATE_STRENGTH" if len(plies) == 1 else "BI_MATERIAL_LAMINATE_STRENGTH"
    cases = _load_cases(loads)
    count = cases.size // len(LOAD_NAMES)
    if count > np.iinfo(np.int32).max:
        raise ValueError(f"{count} load cases are more than one call takes")
    layup_buffer = _convert.text_argument(layup, _library.LAYUP_LENGTH, "the layup")
    criterion_buffer = _convert.text_argument(
        criterion, _library.CRITERION_LENGTH, "the criterion"
    )
    rf = np.empty(count, dtype=np.float32)
    where = [np.empty(count, dtype=np.int32) for _ in range(3)]
    message = create_string_buffer(_library.MESSAGE_LENGTH)
    ierr = c_int32(0)
    options = (c_float * 3)(f12_star, *puck)
    _library.entry_point(entry)(
        *(
            a
            for p in plies
            for a in (
                *p._arguments(),
                *_convert.reals(p.F1t, p.F1c, p.F2t, p.F2c, p.F12, p.uetall, p.uecall),
            )
        ),
        layup_buffer,
        _library.LAYUP_LENGTH,
        criterion_buffer,
        _library.CRITERION_LENGTH,
        options,
        byref(c_int32(count)),
        cases.ctypes.data_as(_POINTER_F),
        rf.ctypes.data_as(_POINTER_F),
        *(w.ctypes.data_as(_POINTER_I) for w in where),
        message,
        _library.MESSAGE_LENGTH,
        byref(ierr),
    )
    if ierr.value != 0:
        raise CorvaneError(entry, ierr.value, _convert.text_result(message))
    shape = cases.shape[:-1]
    return StrengthResult(rf.reshape(shape), *(w.reshape(shape) for w in where))
