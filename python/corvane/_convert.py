"""Conversions between Python values and the library's C arguments."""

import ctypes
import numbers
import typing
from ctypes import byref, c_float

import numpy as np
import numpy.typing as npt

from .errors import CorvaneError


def real(value: object) -> c_float:
    """A 32-bit float argument, rounded from a real number (numpy's included;
    texts are refused rather than parsed)."""
    if type(value) is float or isinstance(value, numbers.Real):
        return c_float(value)  # type: ignore[arg-type]
    raise TypeError(f"a real number is needed, not {type(value).__name__}")


def reals(*values: object) -> typing.List[typing.Any]:
    """byref pointers to 32-bit float copies of the values."""
    return [byref(real(v)) for v in values]


_MATRIX = c_float * 9


def matrix_argument(value: npt.ArrayLike, name: str) -> "ctypes.Array[c_float]":
    """Nine floats in column order from a 3x3 array-like."""
    array = np.asarray(value, dtype=np.float32)
    if array.shape != (3, 3):
        raise ValueError(f"{name} must be a 3x3 matrix, not of shape {array.shape}")
    # The transpose's bytes are the matrix in column order.
    return _MATRIX.from_buffer_copy(array.T.tobytes())


def matrix_values(value: npt.ArrayLike, name: str) -> typing.List[float]:
    """Nine floats in column order from a 3x3 array-like, rounded to 32 bits."""
    array = np.asarray(value, dtype=np.float32)
    if array.shape != (3, 3):
        raise ValueError(f"{name} must be a 3x3 matrix, not of shape {array.shape}")
    values: typing.List[float] = array.T.ravel().tolist()
    return values


def text_argument(text: typing.Union[str, bytes], length: int, name: str) -> bytes:
    """Exactly `length` bytes, blank-padded (no terminating zero); the library
    only reads it, so the bytes object itself is passed."""
    try:
        data = text.encode("ascii") if isinstance(text, str) else bytes(text)
    except UnicodeEncodeError:
        raise ValueError(f"{name} must be ASCII text") from None
    if len(data) != length:
        if len(data.rstrip(b" ")) > length:
            raise ValueError(f"{name} is longer than {length} characters")
        data = data[:length].ljust(length, b" ")
    return data


def text_result(buffer: "ctypes.Array[ctypes.c_char]") -> str:
    """The text of a blank-padded buffer without its trailing blanks."""
    return buffer.raw.rstrip(b" ").decode("latin-1")


# Single numbers, told apart without asking numpy (which costs microseconds).
_NUMBER_TYPES = (float, int, np.floating, np.integer)


def is_scalar(values: typing.Sequence[typing.Any], matrices: typing.Sequence[typing.Any] = ()) -> bool:
    """Whether every value is a single number and every matrix a single 3x3
    one: the call then goes to the one-element entry point."""
    for v in values:
        if not isinstance(v, _NUMBER_TYPES) and np.ndim(v) != 0:
            return False
    for m in matrices:
        if (m.ndim if isinstance(m, np.ndarray) else np.ndim(m)) != 2:
            return False
    return True


def _numbers(value: object, name: str) -> np.ndarray:
    array = np.asarray(value)
    if array.dtype.kind not in "biuf":
        raise TypeError(f"{name} must be real numbers, not of {array.dtype}")
    return array.astype(np.float32, copy=False)


class Batch(typing.NamedTuple):
    """Arguments broadcast to one shape, as contiguous float32 arrays: the
    values one float per element, the matrices nine in column order."""

    shape: typing.Tuple[int, ...]
    size: int
    values: typing.List[np.ndarray]
    matrices: typing.List[np.ndarray]


def batch(
    values: typing.Sequence[object],
    names: typing.Sequence[str],
    matrices: typing.Sequence[object] = (),
    matrix_names: typing.Sequence[str] = (),
) -> Batch:
    """The arguments of a many-element call, broadcast by numpy's rules: a
    matrix is an array of shape (..., 3, 3) whose leading axes broadcast with
    the values'."""
    arrays = [_numbers(v, n) for v, n in zip(values, names)]
    stacks = [_numbers(m, n) for m, n in zip(matrices, matrix_names)]
    for stack, name in zip(stacks, matrix_names):
        if stack.shape[-2:] != (3, 3):
            raise ValueError(
                f"{name} must be a 3x3 matrix or an array of them, not of shape {stack.shape}"
            )
    shape = np.broadcast_shapes(*(a.shape for a in arrays), *(s.shape[:-2] for s in stacks))
    count = int(np.prod(shape, dtype=np.int64))
    if count > np.iinfo(np.int32).max:
        raise ValueError(f"{count} elements are more than one call takes")
    flat = [np.ascontiguousarray(np.broadcast_to(a, shape)).reshape(-1) for a in arrays]
    # Column order within each matrix, as the library reads it.
    columns = [
        np.ascontiguousarray(np.swapaxes(np.broadcast_to(s, shape + (3, 3)), -1, -2)).reshape(-1)
        for s in stacks
    ]
    return Batch(shape, count, flat, columns)


def address(array: np.ndarray) -> int:
    """The address of an array's data, for a pointer argument."""
    return int(array.ctypes.data)


def check_codes(
    entry: str,
    codes: np.ndarray,
    shape: typing.Tuple[int, ...],
    meanings: typing.Mapping[int, str],
    result: object,
) -> None:
    """Raises CorvaneError when any element's code is not 0, with every
    element's result and code attached: nothing computed is lost."""
    failed = np.flatnonzero(codes)
    if failed.size == 0:
        return
    first = int(failed[0])
    code = int(codes[first])
    where = tuple(int(i) for i in np.unravel_index(first, shape)) if shape else ()
    meaning = meanings.get(code, "undocumented error code")
    message = f"{meaning}, in {failed.size} of {codes.size} elements, the first at index {where}"
    raise CorvaneError(entry, code, message, result, codes.reshape(shape))
