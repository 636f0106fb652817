"""Records as dictionaries, through the library's registry of record types."""

import ctypes
from dataclasses import dataclass
from typing import Any

from . import _native
from .errors import check, to_bytes
from .values import dumps, loads


@dataclass
class Skipped:
    """A key that a load skipped: its path, the code and reason, what was
    found there (None for a missing key) and the value kept instead."""

    path: str
    code: int
    reason: str
    found: Any
    kept: Any


def record_types():
    out = ctypes.c_void_p()
    check(_native.param_record_types(ctypes.byref(out)))
    return loads(_native.take_text(out))


def record_schema(type_name=None):
    out = ctypes.c_void_p()
    name = None if type_name is None else to_bytes(type_name, "type_name")
    check(_native.param_record_schema(name, ctypes.byref(out)), f"schema of {type_name}")
    return loads(_native.take_text(out))


def load_record(type_name, value):
    """Loads the dictionary `value` as a record of `type_name` over its
    built-in defaults. Returns (record, skipped): the record as the library
    saves it (every key, defaults filled in) and the list of Skipped keys."""
    saved = ctypes.c_void_p()
    skipped = ctypes.c_void_p()
    check(
        _native.param_record_load(
            to_bytes(type_name, "type_name"),
            dumps(value).encode("utf-8"),
            ctypes.byref(saved),
            ctypes.byref(skipped),
        ),
        f"load {type_name}",
    )
    record = loads(_native.take_text(saved))
    entries = loads(_native.take_text(skipped) or "[]")
    return record, [Skipped(**e) for e in entries]
