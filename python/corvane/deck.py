"""The solver deck of a laminate: the strength library's LAMINATE_SOLVER_DECK
and BI_MATERIAL_LAMINATE_SOLVER_DECK entry points."""

import typing
from ctypes import byref, c_int32, create_string_buffer

from . import _convert, _library
from .errors import CorvaneError


def solver_deck(
    ply: typing.Any, layup: typing.Union[str, bytes], *, crlf: bool = False
) -> str:
    """The bulk data deck of a laminate laid out by the published NASTRAN
    bulk data card formats, for finite-element programs that read them
    strictly: a MAT8 per ply material (101, 102) with the strengths F1t, F1c,
    F2t, F2c, F12 of the Ply in Xt, Xc, Yt, Yc, S (blank where 0), a PCOMP of
    the plies (1001), and a PSHELL (1002) with MAT2 cards of the unrounded
    membrane (2001), bending (2002) and coupling (2004) stiffness. No GRID, so
    that it can be included in a model. Each value reads back to the same
    float32; a card with a value 8 characters cannot hold is in large field.

    ply: a Ply, or a pair of them for a laminate of two materials whose layup
    marks plies of the second with a trailing ".". layup: as for
    laminate_stiffness. crlf: end the lines in CR LF instead of LF.

    Returns the deck as a str. Raises CorvaneError with the library's code and
    message when it refuses: 1 an invalid material (a negative strength
    included), 2 a refused layup or unusable laminate, 3 a value not finite.
    The deck of LaminateStiffness.cards, laid out for the models built on
    it, is another deck (docs/cards.md compares them).
    """
    plies = tuple(ply) if isinstance(ply, (tuple, list)) else (ply,)
    if len(plies) not in (1, 2):
        raise ValueError(f"one or two ply materials, not {len(plies)}")
    entry = ("" if len(plies) == 1 else "BI_MATERIAL_") + "LAMINATE_SOLVER_DECK"
    layup_buffer = _convert.text_argument(layup, _library.LAYUP_LENGTH, "the layup")
    deck = create_string_buffer(_library.SOLVER_DECK_LENGTH)
    message = create_string_buffer(_library.MESSAGE_LENGTH)
    length, ierr = c_int32(0), c_int32(0)
    _library.entry_point(entry)(
        *(
            a
            for p in plies
            for a in (
                *p._arguments(),
                *_convert.reals(p.F1t, p.F1c, p.F2t, p.F2c, p.F12),
            )
        ),
        layup_buffer,
        _library.LAYUP_LENGTH,
        byref(c_int32(-1 if crlf else 0)),
        deck,
        _library.SOLVER_DECK_LENGTH,
        byref(length),
        message,
        _library.MESSAGE_LENGTH,
        byref(ierr),
    )
    if ierr.value != 0:
        raise CorvaneError(entry, ierr.value, _convert.text_result(message))
    return deck.raw[: length.value].decode("ascii")
