"""Documents: files of JSON behind an 8-byte option word, encoded as base64,
XOR, LZMA or AES."""

import ctypes

from . import _native
from .errors import ParamError, check, to_bytes
from .values import dumps, loads

ENCODINGS = {"base64": 0, "xor": 1, "lzma": 2, "aes": 3}
AES_MODES = {"gcm": 0, "cfb": 1, "cbc": 2, "ctr": 3}


def option_word(encoding="base64", aes="gcm", key=0):
    """The option word of a file: an encoding name (or number), an AES mode
    name (or number) and a key index 0-3."""
    enc = ENCODINGS[encoding] if isinstance(encoding, str) else int(encoding)
    mode = AES_MODES[aes] if isinstance(aes, str) else int(aes)
    if not (0 <= enc <= 3 and 0 <= mode <= 3 and 0 <= int(key) <= 3):
        raise ValueError("encoding, aes mode and key index must each be 0-3")
    return enc | (mode << 4) | (int(key) << 6)


class Document:
    """A parameter document.

    >>> doc = Document.read("job.cfg")
    >>> doc["pens.params[3].laserPower"] = 75
    >>> doc.write("job.cfg")          # in the encoding it was read with

    Paths: members separated by ".", array elements as "[i]"; "\\." and "\\["
    inside a member name. The empty path is the whole document.
    """

    def __init__(self, _handle=None):
        if _handle is None:
            _handle = _native.DocHandle()
            check(_native.param_doc_create(ctypes.byref(_handle)), "create document")
        self._handle = _handle

    @classmethod
    def read(cls, path):
        handle = _native.DocHandle()
        check(_native.param_doc_read(to_bytes(path, "path"), ctypes.byref(handle)), f"read {path}")
        return cls(handle)

    def _live(self):
        if not self._handle:
            raise ValueError("the document is closed")
        return self._handle

    @property
    def option(self):
        """The option word of the file it was read from (0 for a new document)."""
        word = ctypes.c_uint64()
        check(_native.param_doc_option(self._live(), ctypes.byref(word)))
        return word.value

    def write(self, path, encoding=None, aes="gcm", key=0, option=None):
        """Writes the document. Without encoding or option, in the encoding,
        AES mode and key it was read with (base64 for a new document)."""
        if option is None:
            option = self.option if encoding is None else option_word(encoding, aes, key)
        check(_native.param_doc_write(self._live(), to_bytes(path, "path"), option), f"write {path}")

    def members(self):
        out = ctypes.c_void_p()
        check(_native.param_doc_members(self._live(), ctypes.byref(out)))
        return loads(_native.take_text(out))

    def get(self, path, default=None):
        try:
            return self[path]
        except KeyError:
            return default

    def __getitem__(self, path):
        out = ctypes.c_void_p()
        code = _native.param_doc_get(self._live(), to_bytes(path, "path"), ctypes.byref(out))
        if code != 0:
            error = ParamError(code, f"get {path!r}")
            raise KeyError(path) from error
        return loads(_native.take_text(out))

    def __setitem__(self, path, value):
        text = dumps(value).encode("utf-8")
        check(_native.param_doc_set(self._live(), to_bytes(path, "path"), text), f"set {path!r}")

    def __contains__(self, path):
        return self.get(path, _MISSING) is not _MISSING

    def close(self):
        if self._handle:
            _native.param_doc_free(self._handle)
            self._handle = None

    def __enter__(self):
        return self

    def __exit__(self, *exc):
        self.close()

    def __del__(self):
        try:
            self.close()
        except Exception:
            pass


_MISSING = object()
