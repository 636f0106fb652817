"""The exception every failing call raises, and argument helpers."""

import os

from . import _native


class ParamError(Exception):
    """A call of the param library failed. `code` is the library's error code
    (see the README's table); `message` describes it, with the file and the
    operating system's reason for a file failure."""

    def __init__(self, code, context=""):
        self.code = code
        self.message = _native.param_error_text(code).decode("utf-8", "replace")
        text = f"{self.message} (0x{code:06x})"
        super().__init__(f"{context}: {text}" if context else text)


def check(code, context=""):
    if code != 0:
        raise ParamError(code, context)


def to_bytes(value, what):
    """A str or path as UTF-8 bytes (file names: as the file system has them)."""
    if isinstance(value, bytes):
        return value
    if isinstance(value, str):
        return value.encode("utf-8", "surrogateescape")
    if isinstance(value, os.PathLike):
        return os.fsencode(value)
    raise TypeError(f"{what} must be a str or a path, not {type(value).__name__}")
