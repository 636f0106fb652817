"""laserparam: the param library of a laser marking system, from Python.

Documents as objects, records as dictionaries, wobble paths as point lists or
NumPy arrays, over the library's C interface (libparam_c).

    import laserparam as lp

    lp.load("defaults.cfg")
    doc = lp.Document.read("job.cfg")
    doc["pens.params[3].laserPower"] = 75
    doc.write("job.cfg")
    points = lp.wobble(doc["pens.params[3].wobble"], [(0, 0), (10, 0)])
    lp.unload()
"""

from . import _native
from .document import AES_MODES, ENCODINGS, Document, option_word
from .errors import ParamError
from .records import Skipped, load_record, record_schema, record_types
from .wobble import wobble
from .errors import check as _check, to_bytes as _to_bytes


def load(defaults_path):
    """Starts the library with the file of stored defaults (it need not exist)."""
    _check(_native.param_load(_to_bytes(defaults_path, "defaults_path")), "load")


def unload():
    _native.param_unload()


def version():
    return _native.param_version().decode("ascii")


__all__ = [
    "AES_MODES", "ENCODINGS", "Document", "ParamError", "Skipped", "load", "load_record",
    "option_word", "record_schema", "record_types", "unload", "version", "wobble",
]
