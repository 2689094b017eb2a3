"""Conversions between Python values and the library's C arguments."""

import ctypes
import numbers
from ctypes import byref, c_float

import numpy as np


def real(value):
    """A 32-bit float argument, rounded from a real number (numpy's included;
    texts are refused rather than parsed)."""
    if not isinstance(value, numbers.Real):
        raise TypeError(f"a real number is needed, not {type(value).__name__}")
    return c_float(float(value))


def reals(*values):
    """byref pointers to 32-bit float copies of the values."""
    return [byref(real(v)) for v in values]


def matrix_argument(value, name):
    """Nine floats in column order from a 3x3 array-like."""
    array = np.asarray(value, dtype=np.float32)
    if array.shape != (3, 3):
        raise ValueError(f"{name} must be a 3x3 matrix, not of shape {array.shape}")
    return (c_float * 9)(*(float(x) for x in array.ravel(order="F")))


def matrix_result(buffer):
    """A read-only 3x3 float32 array from nine floats in column order."""
    array = np.frombuffer(bytes(buffer), dtype=np.float32).reshape((3, 3), order="F")
    array.flags.writeable = False
    return array


def text_argument(text, length, name):
    """A blank-padded buffer of exactly `length` bytes (no terminating zero)."""
    try:
        data = text.encode("ascii") if isinstance(text, str) else bytes(text)
    except UnicodeEncodeError:
        raise ValueError(f"{name} must be ASCII text") from None
    if len(data.rstrip(b" ")) > length:
        raise ValueError(f"{name} is longer than {length} characters")
    data = data[:length].ljust(length, b" ")
    return ctypes.create_string_buffer(data, length)


def text_result(buffer):
    """The text of a blank-padded buffer without its trailing blanks."""
    return buffer.raw.decode("latin-1").rstrip(" ")
