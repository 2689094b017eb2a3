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


# The notch checks, in the order of the results of check "ALL", and the
# after-impact checks.
NOTCH_CHECKS = ("OHT", "OHC", "FHT", "FHC", "BEARING")
IMPACT_CHECKS = ("CAIH", "CAIE", "MODEL")
HOLE_DIAMETER = 6.35


def _properties(properties: typing.Any) -> str:
    """The property text from a dict {key: value} or a text of KEY=value items."""
    if properties is None:
        return ""
    if hasattr(properties, "items"):
        return " ".join(f"{k}={float(v)!r}" for k, v in properties.items())
    return str(properties)


def _material(ply: typing.Any, properties: typing.Any) -> typing.Tuple[typing.Any, ...]:
    """The keyed material's arguments: its constants, F1t and F1c (strengths
    from 1 up, ultimate strains below), the property text."""
    text = _convert.text_argument(
        _properties(properties), _library.PROPERTIES_LENGTH, "the properties"
    )
    return (
        *ply._arguments()[:5],
        *_convert.reals(ply.F1t, ply.F1c),
        text,
        _library.PROPERTIES_LENGTH,
    )


def notched_strength(
    ply: typing.Any,
    layup: str,
    loads: typing.Any,
    check: str = "ALL",
    *,
    hole_diameter: float = HOLE_DIAMETER,
    fastener_loads: typing.Any = None,
    properties: typing.Any = None,
) -> np.ndarray:
    """Reserve factors of a laminate with a circular hole under load cases:
    the strength library's NOTCHED_LAMINATE_STRENGTH.

    ply: a Ply whose F1t, F1c are the unnotched strengths along the fibres.
    layup: the stacking sequence. loads: load cases as for laminate_strength.
    check: "OHT", "OHC", "FHT", "FHC", "BEARING" or "ALL" (then the last axis
    of the result holds the five, in NOTCH_CHECKS order). hole_diameter: the
    hole's diameter. fastener_loads: the fastener load of each case (for
    BEARING; default 0). properties: material properties by key, a dict such
    as {"OHT": 420, "OHC": 310, "FBR": 900} or a text "OHT=420 OHC=310"; OHT,
    OHC and FHT are the notched strengths of the quasi-isotropic laminate at a
    6.35 hole, from which the characteristic distances follow (or give A0OHT,
    A0OHC, A0FHT), with KFHT, KFHC, FBR.

    Returns a float32 array of reserve factors, of the shape of the load cases
    less their last axis (plus an axis of 5 for "ALL"); 1.0e10 where a case
    does not load a check. Raises CorvaneError when the library refuses: notch
    data missing, a hole diameter not positive, a property refused, ...
    """
    cases = _load_cases(loads)
    count = cases.size // len(LOAD_NAMES)
    every = str(check).strip().upper() == "ALL"
    per_case = len(NOTCH_CHECKS) if every else 1
    fastener = np.zeros(count, dtype=np.float32)
    if fastener_loads is not None:
        given = np.asarray(fastener_loads, dtype=np.float32)
        fastener = np.ascontiguousarray(
            np.broadcast_to(given, cases.shape[:-1]).reshape(count), dtype=np.float32
        )
    rf = np.empty(count * per_case, dtype=np.float32)
    message = create_string_buffer(_library.MESSAGE_LENGTH)
    ierr = c_int32(0)
    entry = "NOTCHED_LAMINATE_STRENGTH"
    _library.entry_point(entry)(
        *_material(ply, properties),
        _convert.text_argument(layup, _library.LAYUP_LENGTH, "the layup"),
        _library.LAYUP_LENGTH,
        _convert.text_argument(check, _library.CRITERION_LENGTH, "the check"),
        _library.CRITERION_LENGTH,
        byref(c_float(hole_diameter)),
        byref(c_int32(count)),
        cases.ctypes.data_as(_POINTER_F),
        fastener.ctypes.data_as(_POINTER_F),
        rf.ctypes.data_as(_POINTER_F),
        message,
        _library.MESSAGE_LENGTH,
        byref(ierr),
    )
    if ierr.value != 0:
        raise CorvaneError(entry, ierr.value, _convert.text_result(message))
    shape = cases.shape[:-1] + ((per_case,) if every else ())
    return rf.reshape(shape)


def impact_strength(
    ply: typing.Any,
    layup: str,
    loads: typing.Any,
    energy: float = 0.0,
    *,
    damage_model: typing.Optional[str] = None,
    unit_factor: float = 1.0,
    properties: typing.Any = None,
) -> np.ndarray:
    """Reserve factors after impact under load cases: the strength library's
    IMPACT_LAMINATE_STRENGTH. The largest principal membrane strain of each
    case against CAIH, CAIE and, with a damage model, its allowable.

    ply, layup, loads, properties: as for notched_strength (CAIH and CAIE by
    key). energy: the impact energy. damage_model: a text, the model's name
    and coefficients, "CDTM-T04 k2 k3 k0 k1 scale [factor]" (CDTM-T03: a0 a1
    b0 b1 c0 c1 scale [factor]); evaluated with p1 the energy, p2 the
    laminate's thickness, p3 its Ex, p4 the ply's quasi-isotropic modulus.
    unit_factor: multiplies the coefficients that carry the allowable's unit.

    Returns a float32 array of the shape of the load cases less their last
    axis plus an axis of 2 (CAIH, CAIE) or 3 (and the model).
    """
    cases = _load_cases(loads)
    count = cases.size // len(LOAD_NAMES)
    rf = np.zeros(count * len(IMPACT_CHECKS), dtype=np.float32)
    message = create_string_buffer(_library.MESSAGE_LENGTH)
    ierr = c_int32(0)
    entry = "IMPACT_LAMINATE_STRENGTH"
    _library.entry_point(entry)(
        *_material(ply, properties),
        _convert.text_argument(layup, _library.LAYUP_LENGTH, "the layup"),
        _library.LAYUP_LENGTH,
        _convert.text_argument(damage_model or "", _library.MODEL_LENGTH, "the model"),
        _library.MODEL_LENGTH,
        byref(c_float(unit_factor)),
        byref(c_float(energy)),
        byref(c_int32(count)),
        cases.ctypes.data_as(_POINTER_F),
        rf.ctypes.data_as(_POINTER_F),
        message,
        _library.MESSAGE_LENGTH,
        byref(ierr),
    )
    if ierr.value != 0:
        raise CorvaneError(entry, ierr.value, _convert.text_result(message))
    rf = rf.reshape(cases.shape[:-1] + (len(IMPACT_CHECKS),))
    return rf if damage_model else rf[..., :2]
