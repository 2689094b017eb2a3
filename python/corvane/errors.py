"""The exceptions of the corvane package."""

import typing


class Error(Exception):
    """Base of the package's exceptions: catching it catches any of them."""


class CorvaneError(Error):
    """An entry point of the library returned a non-zero error code.

    Attributes:
        entry_point: name of the library's entry point that reported the error.
        code: the error code it returned.
        result: what the entry point wrote before returning, as the result
            object the successful call would have given (for instance the
            1.0e20 strains of ``strains_in_plane``), or None when the call
            leaves nothing of use.
        codes: for a call over arrays, every element's error code (an int32
            array of the shape of the result, 0 where the element succeeded),
            and `code` is that of the first element refused; None otherwise.
    """

    def __init__(
        self,
        entry_point: str,
        code: int,
        message: str,
        result: typing.Any = None,
        codes: typing.Any = None,
    ) -> None:
        super().__init__(f"{entry_point}: error code {code}: {message}")
        self.entry_point = entry_point
        self.code = code
        self.result = result
        self.codes = codes


class LibraryError(Error, OSError):
    """The Corvane shared library could not be found or loaded, or lacks an
    entry point."""
