"""Laminate stiffness and membrane strains, by classical laminate theory:
the library's LAMINATE_STIFFNESS, BI_MATERIAL_LAMINATE_STIFFNESS and
LAMINATE_STRAINS_IN_PLANE entry points."""

import ctypes
import dataclasses
import functools
import struct
import typing
from ctypes import byref, c_float, c_int32

import numpy as np
import numpy.typing as npt

from . import _convert, _library
from .deck import solver_deck
from .errors import CorvaneError
from .strength import StrengthResult, laminate_strength


@dataclasses.dataclass(frozen=True)
class Ply:
    """A ply material: thickness t (at least 1e-5), moduli E1 (along the
    fibres), E2 (across), in-plane shear modulus G12 and major Poisson's ratio
    nu12 (none negative), and thermal expansion coefficients CTE1 and CTE2.
    For strength: the strengths F1t, F1c (along the fibres, tension and
    compression), F2t, F2c (across), F12 (in-plane shear), positive, and the
    allowable strains uetall, uecall; 0 stands for one not known. Any
    consistent units (for instance mm, MPa, 1/K)."""

    t: float
    E1: float
    E2: float
    G12: float
    nu12: float
    CTE1: float = 0.0
    CTE2: float = 0.0
    F1t: float = 0.0
    F1c: float = 0.0
    F2t: float = 0.0
    F2c: float = 0.0
    F12: float = 0.0
    uetall: float = 0.0
    uecall: float = 0.0

    @functools.cached_property
    def _elastic(self) -> bytes:
        """t, E1, E2, G12, nu12, CTE1, CTE2 as 32-bit floats, made once."""
        try:
            return bytes(
                (c_float * 7)(self.t, self.E1, self.E2, self.G12, self.nu12, self.CTE1, self.CTE2)
            )
        except TypeError as error:
            raise TypeError(f"a ply material needs real numbers: {error}") from None

    @functools.cached_property
    def _elastic_values(self) -> typing.Tuple[typing.Any, int]:
        """The seven 32-bit floats of _elastic in an array kept with the Ply,
        and its address: the library only reads them, so every call and
        thread may share it. A caller holds the pair for its call, so the
        array outlives the call even if another thread made its own."""
        array = (c_float * 7).from_buffer_copy(self._elastic)
        return array, ctypes.addressof(array)

    def __getstate__(self) -> typing.Dict[str, typing.Any]:
        # An address means nothing in another process (or after a copy): a
        # pickled or copied Ply makes its own array again.
        state = dict(self.__dict__)
        state.pop("_elastic_values", None)
        return state

    def _arguments(self) -> typing.List[typing.Any]:
        return _convert.reals(
            self.t, self.E1, self.E2, self.G12, self.nu12, self.CTE1, self.CTE2
        )


# What the stiffness entry points' error codes mean, as corvane.h documents
# them; the library alone decides which input it refuses.
_STIFFNESS_ERRORS = {
    1: "invalid ply material",
    2: "stacking sequence refused (syntax, unreadable angle, 256 plies or more) or "
    "laminate unusable (singular [A], or Ex, Ey, Gxy or nuxy below 1e-10)",
}


# A result: a float for a call on single numbers, an array for arrays.
FloatOrArray = typing.Union[float, np.ndarray]


class InPlaneStrains(typing.NamedTuple):
    """Membrane strains: eps_x, eps_y, the engineering shear strain gamma_xy,
    and the direct strains along +45 and -45 degrees (floats, or float32
    arrays)."""

    eps_x: FloatOrArray
    eps_y: FloatOrArray
    gamma_xy: FloatOrArray
    eps_p45: FloatOrArray
    eps_m45: FloatOrArray


@dataclasses.dataclass(frozen=True, eq=False)
class LaminateStiffness:
    """The stiffness of a laminate.

    A, B, D, Dstar: [A], [B], [D] and [D*] = [D] - [B][A]^-1[B], read-only
        3x3 float32 arrays, indices 0, 1, 2 for x, y and xy.
    h: total thickness.
    Ex, Ey, Gxy, nuxy: apparent membrane constants (from [A] alone).
    alphax, alphay, alphaxy: apparent thermal expansion coefficients.
    plies: number of plies after repeats and mirroring.
    symmetric: whether the ply angles mirror about the mid-plane (only the
        angles are compared, not the materials).
    cards: bulk data cards (MAT8, PCOMP, MAT2) with CR LF line ends, without
        the blank padding of the library's 10000-character buffer (the library
        cuts a longer deck at 10000 characters); decoded from card_buffer,
        the library's buffer as it wrote it (or the text itself), when first
        read.
    materials, layup: the Ply (or the two) and the stacking sequence it was
        made of.
    """

    A: np.ndarray
    B: np.ndarray
    D: np.ndarray
    Dstar: np.ndarray
    h: float
    Ex: float
    Ey: float
    Gxy: float
    nuxy: float
    alphax: float
    alphay: float
    alphaxy: float
    plies: int
    symmetric: bool
    # The library's card buffer, blanks and all: decoded when `cards` is read.
    card_buffer: typing.Any = dataclasses.field(repr=False)
    materials: typing.Tuple[Ply, ...] = dataclasses.field(default=(), repr=False)
    layup: typing.Union[str, bytes] = dataclasses.field(default="", repr=False)

    @functools.cached_property
    def cards(self) -> str:
        """The bulk data cards, decoded on first use."""
        if isinstance(self.card_buffer, str):
            return self.card_buffer
        return _convert.text_result(self.card_buffer)

    def strains(
        self, Nx: npt.ArrayLike = 0.0, Ny: npt.ArrayLike = 0.0, Nxy: npt.ArrayLike = 0.0
    ) -> InPlaneStrains:
        """Membrane strains under running loads: strains_in_plane with this
        laminate's h, Ex, Ey, Gxy and nuxy."""
        return strains_in_plane(
            self.h, self.Ex, self.Ey, self.Gxy, self.nuxy, Nx, Ny, Nxy
        )

    def strength(
        self, loads: typing.Any, criterion: str = "TSAI_WU", **options: typing.Any
    ) -> StrengthResult:
        """First-ply failure under load cases: laminate_strength with this
        laminate's ply materials and layup (options: f12_star, puck)."""
        return laminate_strength(self.materials, self.layup, loads, criterion, **options)

    def solver_deck(self, *, crlf: bool = False) -> str:
        """The deck laid out by the published NASTRAN bulk data card formats
        (corvane.solver_deck) of this laminate's ply materials and layup,
        their strengths included; `cards` holds the established deck."""
        return solver_deck(self.materials, self.layup, crlf=crlf)


# One buffer for what LAMINATE_STIFFNESS_PACKED writes: [A], [B], [D], [D*] in
# column order and 8 values (floats), then the symmetric flag, the ply count and
# the error code (32-bit integers).
_RESULTS = c_float * 47
_TAIL = struct.Struct("=8f3i")  # from byte 144: h .. alphaxy, flag, plies, ierr
# What create_string_buffer makes, without its wrapper's cost.
_CARDS = ctypes.c_char * _library.CARDS_LENGTH
# The material counts the entry point reads (never writes), by address.
_ONE, _TWO = c_int32(1), c_int32(2)
_MATERIAL_COUNT = {1: ctypes.addressof(_ONE), 2: ctypes.addressof(_TWO)}


@functools.lru_cache(maxsize=1024)
def _layup_text(layup: typing.Union[str, bytes]) -> bytes:
    # Optimisers call with the same few layups over and over.
    return _convert.text_argument(layup, _library.LAYUP_LENGTH, "the layup")


def _call_stiffness(
    entry: str, ply_materials: typing.Sequence[Ply], layup: typing.Union[str, bytes]
) -> "LaminateStiffness":
    # The packed entry point takes nine arguments where the one of corvane.h
    # takes thirty: ctypes' conversion of each would cost more than the
    # library's own work on a small laminate.
    held: typing.Any  # the constants, alive until the call returns
    if len(ply_materials) == 1:
        held, constants = ply_materials[0]._elastic_values
    else:
        held = (c_float * 14).from_buffer_copy(b"".join(p._elastic for p in ply_materials))
        constants = ctypes.addressof(held)
    results, cards = _RESULTS(), _CARDS()
    r = ctypes.addressof(results)
    _library.entry_point("LAMINATE_STIFFNESS_PACKED")(
        _MATERIAL_COUNT[len(ply_materials)],
        constants,
        _layup_text(layup) if isinstance(layup, (str, bytes)) else _layup_text.__wrapped__(layup),
        _library.LAYUP_LENGTH,
        r,
        r + 176,
        cards,
        _library.CARDS_LENGTH,
        r + 184,
    )
    raw = bytes(results)
    h, ex, ey, gxy, nuxy, alphax, alphay, alphaxy, symmetric, plies, code = _TAIL.unpack_from(
        raw, 144
    )
    if code != 0:
        text = layup if isinstance(layup, str) else bytes(layup).decode("latin-1")
        meaning = _STIFFNESS_ERRORS.get(code, "undocumented error code")
        raise CorvaneError(entry, code, f"{meaning}; the layup is {text.strip()!r}")
    # The four matrices read-only over one copy of the results, each read in
    # column order through its strides.
    # (Indexed: unpacking by iteration costs twice as much.)
    m: np.ndarray = np.ndarray((4, 3, 3), np.float32, raw, 0, (36, 4, 12))
    a, b, d, dstar = m[0], m[1], m[2], m[3]
    # Made without the frozen class's __init__, whose checked assignment of
    # each field costs more than the rest of the result.
    result = object.__new__(LaminateStiffness)
    result.__dict__.update(
        A=a,
        B=b,
        D=d,
        Dstar=dstar,
        h=h,
        Ex=ex,
        Ey=ey,
        Gxy=gxy,
        nuxy=nuxy,
        alphax=alphax,
        alphay=alphay,
        alphaxy=alphaxy,
        plies=plies,
        symmetric=symmetric != 0,
        card_buffer=cards,
        materials=tuple(ply_materials),
        layup=layup,
    )
    return result


def laminate_stiffness(ply: Ply, layup: typing.Union[str, bytes]) -> LaminateStiffness:
    """The stiffness of a laminate of one ply material.

    ply: a Ply. layup: the stacking sequence, for instance "(0/45/-45/90)S"
    ("(0/90)2" repeats, "S" mirrors, "$" mirrors about the middle ply); at most
    1000 characters (ValueError otherwise) and 255 plies.

    Raises CorvaneError with code 1 when the ply material is invalid (t below
    1e-5, or E1, E2, G12 or nu12 negative) and code 2 when the layup is refused
    or the laminate is unusable. Returns a LaminateStiffness.
    """
    return _call_stiffness("LAMINATE_STIFFNESS", [ply], layup)


def bi_material_laminate_stiffness(
    ply1: Ply, ply2: Ply, layup: typing.Union[str, bytes]
) -> LaminateStiffness:
    """The stiffness of a laminate of two ply materials.

    A ply written with a trailing point in the layup, for instance "45.", is of
    ply2; every other ply of ply1. Both materials must be valid even when the
    layup uses only one of them.

    Raises CorvaneError with code 1 when either material is invalid and code 2
    when the layup is refused or the laminate is unusable. Returns a
    LaminateStiffness.
    """
    return _call_stiffness("BI_MATERIAL_LAMINATE_STIFFNESS", [ply1, ply2], layup)


_STRAIN_ERRORS = {1: "Ex, Ey or Gxy below 1e-6"}


def strains_in_plane(
    t: npt.ArrayLike,
    Ex: npt.ArrayLike,
    Ey: npt.ArrayLike,
    Gxy: npt.ArrayLike,
    nuxy: npt.ArrayLike,
    Nx: npt.ArrayLike,
    Ny: npt.ArrayLike,
    Nxy: npt.ArrayLike,
) -> InPlaneStrains:
    """Membrane strains of a laminate of thickness t with apparent constants
    Ex, Ey, Gxy, nuxy under running loads Nx, Ny, Nxy (force per width).

    eps_x = (Nx - nuxy Ny)/(Ex t), eps_y = (Ny - (Ey/Ex) nuxy Nx)/(Ey t),
    gamma_xy = Nxy/(Gxy t), eps_p45 and eps_m45 = (eps_x + eps_y +- gamma_xy)/2.
    t is not checked: t = 0 gives infinite or undefined strains. Any argument
    may be an array (many laminates, many load cases): they broadcast, the
    strain library's STRAINS_IN_PLANE_MANY loops over them, and the strains
    are float32 arrays.

    Raises CorvaneError with code 1 when Ex, Ey or Gxy is below 1e-6; its
    result then holds the library's 1.0e20 in eps_x, eps_y, eps_p45 and
    eps_m45, and NaN in gamma_xy, which the library leaves unwritten (over
    arrays, in the elements refused, with every element's code in `codes`).
    Returns InPlaneStrains.
    """
    arguments = (t, Ex, Ey, Gxy, nuxy, Nx, Ny, Nxy)
    if not _convert.is_scalar(arguments):
        return _strains_many(arguments)
    # gamma_xy starts as NaN: the library leaves it unwritten on error.
    outputs = [c_float(0.0) for _ in range(5)]
    outputs[2] = c_float(float("nan"))
    ierr = c_int32(0)
    _library.entry_point("LAMINATE_STRAINS_IN_PLANE")(
        *_convert.reals(*arguments),
        *(byref(o) for o in outputs),
        byref(ierr),
    )
    result = InPlaneStrains(*(o.value for o in outputs))
    if ierr.value != 0:
        meaning = _STRAIN_ERRORS.get(ierr.value, "undocumented error code")
        raise CorvaneError(
            "LAMINATE_STRAINS_IN_PLANE",
            ierr.value,
            f"{meaning} (Ex = {Ex!s}, Ey = {Ey!s}, Gxy = {Gxy!s})",
            result,
        )
    return result


def _strains_many(arguments: typing.Sequence[npt.ArrayLike]) -> InPlaneStrains:
    names = ("t", "Ex", "Ey", "Gxy", "nuxy", "Nx", "Ny", "Nxy")
    batch = _convert.batch(arguments, names)
    outputs = [np.empty(batch.size, dtype=np.float32) for _ in range(5)]
    outputs[2].fill(np.nan)  # left unwritten where an element is refused
    codes = np.zeros(batch.size, dtype=np.int32)
    ierr = c_int32(0)
    entry = "STRAINS_IN_PLANE_MANY"
    _library.entry_point(entry)(
        byref(c_int32(batch.size)),
        *(_convert.address(a) for a in (*batch.values, *outputs, codes)),
        byref(ierr),
    )
    if ierr.value not in (0, 1):
        raise CorvaneError(entry, ierr.value, "unexpected error code")
    result = InPlaneStrains(*(o.reshape(batch.shape) for o in outputs))
    _convert.check_codes(entry, codes, batch.shape, _STRAIN_ERRORS, result)
    return result
