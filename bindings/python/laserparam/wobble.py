"""Wobble paths."""

import ctypes
import math

from . import _native
from .errors import check

try:
    import numpy as _np
except ImportError:  # NumPy is optional
    _np = None

WOBBLE_KEYS = ("bEnable", "wobbleType", "wobbleDiaX", "wobbleDiaY", "wobbleSpace")


def _parameters(wobble):
    if isinstance(wobble, dict):
        defaults = {"bEnable": False, "wobbleType": 0, "wobbleDiaX": 1.0, "wobbleDiaY": 1.0,
                    "wobbleSpace": 0.5}
        defaults.update(wobble)
        values = [defaults[k] for k in WOBBLE_KEYS]
    else:
        values = list(wobble)
    if len(values) != len(WOBBLE_KEYS):
        raise ValueError(f"wobble parameters are {', '.join(WOBBLE_KEYS)}")
    return [float(v) for v in values]


def wobble(parameters, points, as_numpy=None):
    """The wobbled form of a polyline.

    `parameters`: a pen's "wobble" dictionary (bEnable, wobbleType, wobbleDiaX,
    wobbleDiaY, wobbleSpace) or those five values in that order. `points`: a
    sequence of (x, y) pairs or an N x 2 array. Returns an N x 2 NumPy array
    when NumPy is installed (or as_numpy=True), else a list of (x, y) tuples.
    """
    params = _parameters(parameters)
    if _np is not None and isinstance(points, _np.ndarray):
        flat = [float(v) for v in _np.asarray(points, dtype=float).reshape(-1)]
    else:
        flat = [float(c) for p in points for c in p]
    if len(flat) % 2:
        raise ValueError("points must be (x, y) pairs")
    if not all(math.isfinite(v) for v in flat):
        raise ValueError("points must be finite")
    count = len(flat) // 2
    c_params = (ctypes.c_double * len(params))(*params)
    c_points = (ctypes.c_double * max(len(flat), 1))(*flat)
    out = ctypes.POINTER(ctypes.c_double)()
    out_count = ctypes.c_size_t()
    check(_native.param_wobble(c_params, len(params), c_points, count, ctypes.byref(out),
                               ctypes.byref(out_count)), "wobble")
    try:
        n = out_count.value
        use_numpy = (_np is not None) if as_numpy is None else as_numpy
        if use_numpy:
            if _np is None:
                raise ImportError("as_numpy=True needs NumPy")
            if n == 0:
                return _np.empty((0, 2))
            return _np.ctypeslib.as_array(out, shape=(n * 2,)).copy().reshape(n, 2)
        return [(out[2 * i], out[2 * i + 1]) for i in range(n)]
    finally:
        _native.param_free(ctypes.cast(out, ctypes.c_void_p))
