"""Finds and loads the C interface library (libparam_c) and declares its functions."""

import ctypes
import ctypes.util
import os
import sys
from pathlib import Path


def _candidates():
    env = os.environ.get("LASERPARAM_LIBRARY")
    if env:
        yield env
    here = Path(__file__).resolve().parent
    try:  # written by the build or the install: where the library is
        from . import _location  # type: ignore

        for p in _location.LIBRARY_PATHS:
            yield str((here / p).resolve()) if not os.path.isabs(p) else p
    except ImportError:
        pass
    names = {"win32": "param_c.dll", "darwin": "libparam_c.dylib"}
    yield names.get(sys.platform, "libparam_c.so.1")
    found = ctypes.util.find_library("param_c")
    if found:
        yield found


def _load():
    errors = []
    for candidate in _candidates():
        try:
            return ctypes.CDLL(candidate)
        except OSError as e:
            errors.append(f"{candidate}: {e}")
    raise ImportError(
        "laserparam cannot find the param C library (libparam_c); set LASERPARAM_LIBRARY "
        "to its path. Tried:\n  " + "\n  ".join(errors)
    )


lib = _load()

_c_char_pp = ctypes.POINTER(ctypes.c_char_p)
_E = ctypes.c_uint32


def _declare(name, restype, *argtypes):
    fn = getattr(lib, name)
    fn.restype = restype
    fn.argtypes = list(argtypes)
    return fn


class _Doc(ctypes.Structure):
    pass


DocHandle = ctypes.POINTER(_Doc)
CharOut = ctypes.POINTER(ctypes.c_void_p)  # char** whose buffer we free ourselves

param_load = _declare("param_load", _E, ctypes.c_char_p)
param_unload = _declare("param_unload", None)
param_version = _declare("param_version", ctypes.c_char_p)
param_error_text = _declare("param_error_text", ctypes.c_char_p, _E)
param_free = _declare("param_free", None, ctypes.c_void_p)

param_doc_create = _declare("param_doc_create", _E, ctypes.POINTER(DocHandle))
param_doc_read = _declare("param_doc_read", _E, ctypes.c_char_p, ctypes.POINTER(DocHandle))
param_doc_write = _declare("param_doc_write", _E, DocHandle, ctypes.c_char_p, ctypes.c_uint64)
param_doc_option = _declare("param_doc_option", _E, DocHandle, ctypes.POINTER(ctypes.c_uint64))
param_doc_free = _declare("param_doc_free", None, DocHandle)
param_doc_members = _declare("param_doc_members", _E, DocHandle, CharOut)
param_doc_get = _declare("param_doc_get", _E, DocHandle, ctypes.c_char_p, CharOut)
param_doc_set = _declare("param_doc_set", _E, DocHandle, ctypes.c_char_p, ctypes.c_char_p)

param_record_types = _declare("param_record_types", _E, CharOut)
param_record_schema = _declare("param_record_schema", _E, ctypes.c_char_p, CharOut)
param_record_load = _declare(
    "param_record_load", _E, ctypes.c_char_p, ctypes.c_char_p, CharOut, CharOut
)

param_wobble = _declare(
    "param_wobble",
    _E,
    ctypes.POINTER(ctypes.c_double),
    ctypes.c_size_t,
    ctypes.POINTER(ctypes.c_double),
    ctypes.c_size_t,
    ctypes.POINTER(ctypes.POINTER(ctypes.c_double)),
    ctypes.POINTER(ctypes.c_size_t),
)


def take_text(ptr):
    """The UTF-8 text of a buffer returned by the library, which is then freed."""
    if not ptr.value:
        return None
    try:
        return ctypes.string_at(ptr.value).decode("utf-8")
    finally:
        param_free(ptr.value)
