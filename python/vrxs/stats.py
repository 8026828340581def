"""Reductions and the scale-factor element-wise arithmetic."""

import ctypes

import numpy as np

from ._core import addr, contig, lib, suffix

_HINT = 0   # accurate path


def _src(x):
    x = np.ascontiguousarray(x)
    if x.ndim != 1:
        x = x.reshape(-1)
    return x, suffix(x.dtype)


_forms = {}


def _form(op, dtype):
    """(function, takes a hint) of a reduction for one element type, kept."""
    key = (op, dtype)
    f = _forms.get(key)
    if f is None:
        L = lib()
        name = "vrxs%s_%s" % (op, suffix(dtype))
        ex = L.exports.get(name)
        if ex is None:
            raise TypeError("%s has no form for %s" % (op, np.dtype(dtype)))
        f = _forms[key] = (getattr(L, name), "hint" in ex.argnames)
    return f


def _reduce(op, x, out_dtype, fast=False):
    x = np.ascontiguousarray(x).reshape(-1)
    fn, hint = _form(op, x.dtype)
    out = np.empty(1, out_dtype)
    if hint:
        fn(addr(x), x.shape[0], addr(out), 1 if fast else _HINT)
    else:
        fn(addr(x), x.shape[0], addr(out))
    return out[0]


def _sfs(op, x, out_t, scale):
    x, t = _src(x)
    L = lib()
    out = np.zeros(1, np.dtype({"16s": np.int16, "32s": np.int32, "16sc": np.complex64}[out_t]))
    name = "vrxs%s_%s%s_Sfs" % (op, t, "" if out_t == t else out_t)
    raw = np.zeros(2, np.int32) if out_t == "16sc" else None
    if raw is not None:
        getattr(L, name)(addr(x), x.shape[0], addr(raw), scale)
        return complex(int(raw.view(np.int16)[0]), int(raw.view(np.int16)[1]))
    getattr(L, name)(addr(x), x.shape[0], addr(out), scale)
    return out[0]


def sum(x, scale=0, fast=False):
    """Sum of the elements. Floats give their own type; int16 and int32 give
    the sum times 2^-scale rounded to nearest even and saturated to the type."""
    x = np.asarray(x)
    if x.dtype in (np.int16, np.int32):
        return _sfs("Sum", x, suffix(x.dtype), scale)
    return _reduce("Sum", x, x.dtype, fast=fast)


def mean(x, scale=0, fast=False):
    """Mean of the elements (integers: scaled and rounded as sum)."""
    x = np.asarray(x)
    if x.dtype in (np.int16, np.int32):
        return _sfs("Mean", x, suffix(x.dtype), scale)
    return _reduce("Mean", x, x.dtype, fast=fast)


def std(x, ddof=1, fast=False):
    """Standard deviation. The library computes the sample deviation
    (divisor N-1); ddof=0 gives numpy's default by the factor sqrt((N-1)/N)."""
    x = np.asarray(x)
    s = _reduce("StdDev", x, x.dtype, fast=fast)
    n = x.size
    return s if ddof == 1 else s * np.sqrt((n - 1) / (n - ddof)).astype(x.dtype)


_NORM_OUT = {"32f": "32f", "64f": "64f", "32fc": "32fc64f", "64fc": "64fc64f", "16s": "16s32f"}


def norm(x, ord=2):
    """Vector norm: ord 2 (default), 1 or inf, as numpy.linalg.norm."""
    x, t = _src(x)
    kind = {2: "L2", 1: "L1", np.inf: "Inf"}.get(ord)
    if kind is None:
        raise ValueError("ord must be 1, 2 or inf")
    form = _NORM_OUT.get(t)
    if form is None:
        raise TypeError("no norm for %s" % x.dtype)
    if kind == "Inf" and t in ("32fc",):
        form = "32fc32f"
    out_dt = np.float32 if form.endswith("32f") else np.float64
    out = np.zeros(1, out_dt)
    getattr(lib(), "vrxsNorm_%s_%s" % (kind, form))(addr(x), x.shape[0], addr(out))
    return out[0]


def dot(a, b):
    """Dot product sum a[n] b[n] (no conjugation), as numpy.dot of 1-D arrays."""
    dt = np.result_type(np.asarray(a).dtype, np.asarray(b).dtype)
    a, b = contig(a, dt), contig(b, dt)
    if a.shape != b.shape:
        raise ValueError("dot needs arrays of one length")
    out = np.zeros(1, dt)
    getattr(lib(), "vrxsDotProd_" + suffix(dt))(addr(a), addr(b), a.shape[0], addr(out))
    return out[0]


def _indx(op, x):
    x, t = _src(x)
    val = np.zeros(1, x.dtype)
    idx = ctypes.c_int()
    getattr(lib(), "vrxs%sIndx_%s" % (op, t))(addr(x), x.shape[0], addr(val), ctypes.addressof(idx))
    return val[0], idx.value


def argmax(x):
    """Index of the first largest element (int16, int32, float32, float64)."""
    return _indx("Max", x)[1]


def argmin(x):
    """Index of the first smallest element."""
    return _indx("Min", x)[1]


def max(x):
    return _indx("Max", x)[0]


def min(x):
    return _indx("Min", x)[0]


def _binary(op, a, b, scale, swap=False):
    a, b = np.asarray(a), np.asarray(b)
    dt = np.result_type(a.dtype, b.dtype)
    a, b = contig(a, dt), contig(b, dt)
    if a.shape != b.shape:
        raise ValueError("the operands must have one shape")
    t = suffix(dt)
    L = lib()
    y = np.empty_like(a)
    src1, src2 = (b, a) if swap else (a, b)
    if ("vrxs%s_%s_Sfs" % (op, t)) in L.exports:
        getattr(L, "vrxs%s_%s_Sfs" % (op, t))(addr(src1), addr(src2), addr(y), a.size, scale)
    elif ("vrxs%s_%s" % (op, t)) in L.exports and scale == 0:
        getattr(L, "vrxs%s_%s" % (op, t))(addr(src1), addr(src2), addr(y), a.size)
    else:
        raise TypeError("no %s for %s%s" % (op, dt, " with a scale" if scale else ""))
    return y


def add(a, b, scale=0):
    """a + b element by element. Integer types: the exact sum times 2^-scale,
    rounded to nearest even and saturated (scale > 0 divides)."""
    return _binary("Add", a, b, scale)


def sub(a, b, scale=0):
    """a - b element by element, scaled as add."""
    return _binary("Sub", a, b, scale, swap=True)


def mul(a, b, scale=0):
    """a * b element by element, scaled as add."""
    return _binary("Mul", a, b, scale)
