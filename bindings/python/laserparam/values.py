"""Python values to and from the library's JSON text."""

import json
import math

_SPECIAL = {"NaN": math.nan, "Infinity": math.inf, "-Infinity": -math.inf}


def _plain(value):
    # JSON has no NaN or infinities: the library stores them as these strings.
    if isinstance(value, float) and not math.isfinite(value):
        return "NaN" if math.isnan(value) else ("Infinity" if value > 0 else "-Infinity")
    if isinstance(value, dict):
        return {str(k): _plain(v) for k, v in value.items()}
    if isinstance(value, (list, tuple)):
        return [_plain(v) for v in value]
    if hasattr(value, "tolist"):  # NumPy arrays and scalars
        return _plain(value.tolist())
    return value


def dumps(value):
    return json.dumps(_plain(value), ensure_ascii=False, allow_nan=False, separators=(",", ":"))


def loads(text):
    return json.loads(text)
