"""Fourier-family transforms shaped like numpy.fft and scipy.fft.

Power-of-two lengths run the FFT, every other length the DFT of any length.
Plans are made once per (kind, length, precision, norm) and kept."""

import ctypes

import numpy as np

from ._core import (COMPLEX, CPLX_OF, REAL_OF, Mem, addr, along_rows, contig,
                    float_dtype, lib, ref, suffix)

_FLAG = {None: 2, "backward": 2, "ortho": 4, "forward": 1}   # vrxFftScale{Inv,Sqrt,Fwd}
_plans = {}


def _norm_flag(norm):
    try:
        return _FLAG[norm]
    except KeyError:
        raise ValueError("norm must be 'backward', 'ortho' or 'forward', not %r" % (norm,)) from None


class FourierPlan:
    """A plan of N points: complex (kind 'C', dtype complex64/complex128) or
    real (kind 'R', dtype float32/float64), with its work buffer.
    fwd/inv take and return contiguous arrays; the real forms speak CCS
    (N/2+1 complex values)."""

    def __init__(self, n, kind, dtype, norm=None):
        L = lib()
        dtype = np.dtype(dtype)
        self.n, self.kind, self.dtype = n, kind, dtype
        flag = _norm_flag(norm)
        t = {"32fc": "32fc", "64fc": "64fc", "32f": "32f", "64f": "64f"}[suffix(dtype)]
        spec, init, work = ctypes.c_int(), ctypes.c_int(), ctypes.c_int()
        self.fft = n & (n - 1) == 0
        tag = "%s_%s" % (kind, t)
        if self.fft:
            order = n.bit_length() - 1
            getattr(L, "vrxsFFTGetSize_" + tag)(order, flag, 0, ref(spec), ref(init), ref(work))
            self.spec, initmem, self.work = Mem(spec.value), Mem(init.value), Mem(work.value)
            pp = ctypes.c_void_p()
            getattr(L, "vrxsFFTInit_" + tag)(ref(pp), order, flag, 0, self.spec.ptr, initmem.ptr)
            self.plan = pp.value
            pre = "vrxsFFT"
        else:
            getattr(L, "vrxsDFTGetSize_" + tag)(n, flag, 0, ref(spec), ref(init), ref(work))
            self.spec, initmem, self.work = Mem(spec.value), Mem(init.value), Mem(work.value)
            getattr(L, "vrxsDFTInit_" + tag)(n, flag, 0, self.spec.ptr, initmem.ptr)
            self.plan = self.spec.ptr
            pre = "vrxsDFT"
        if kind == "C":
            self._fwd = getattr(L, pre + "Fwd_CToC_" + t)
            self._inv = getattr(L, pre + "Inv_CToC_" + t)
        else:
            self._fwd = getattr(L, pre + "Fwd_RToCCS_" + t)
            self._inv = getattr(L, pre + "Inv_CCSToR_" + t)
        self.ccs = 2 * (n // 2 + 1)

    def fwd(self, x):
        if self.kind == "C":
            y = np.empty(self.n, self.dtype)
        else:
            y = np.empty(self.n // 2 + 1, CPLX_OF[self.dtype])
        self._fwd(addr(x), addr(y), self.plan, self.work.ptr)
        return y

    def inv(self, X):
        y = np.empty(self.n, self.dtype)
        self._inv(addr(X), addr(y), self.plan, self.work.ptr)
        return y


def plan(n, kind, dtype, norm=None):
    key = (n, kind, np.dtype(dtype), norm)
    p = _plans.get(key)
    if p is None:
        p = _plans[key] = FourierPlan(n, kind, dtype, norm)
    return p


def _fit(x, n):
    """x cut or zero-padded to n along its last axis."""
    m = x.shape[-1]
    if n is None or n == m:
        return x
    if n < 1:
        raise ValueError("invalid number of points %d" % n)
    if n < m:
        return x[..., :n]
    pad = np.zeros(x.shape[:-1] + (n - m,), x.dtype)
    return np.concatenate([x, pad], axis=-1)


_C64, _C128 = np.dtype(np.complex64), np.dtype(np.complex128)
_F32, _F64 = np.dtype(np.float32), np.dtype(np.float64)


def _cdtype(dt):
    if dt is _C64 or dt is _C128 or dt in COMPLEX:
        return dt
    return _C64 if dt == _F32 else _C128


def _run(x, n, norm, kind, dt, inverse, npoints=None):
    """The plan's transform of every row; one-dimensional data runs straight."""
    if n is not None:
        x = _fit(x, n)
    npts = x.shape[-1] if npoints is None else npoints
    p = _plans.get((npts, kind, REAL_OF[dt] if kind == "R" and inverse else dt, norm))
    if p is None:
        p = plan(npts, kind, REAL_OF[dt] if kind == "R" and inverse else dt, norm)
    go = p.inv if inverse else p.fwd
    if x.ndim == 1:
        return go(np.ascontiguousarray(x, dt))
    return along_rows(lambda r: go(np.ascontiguousarray(r, dt)), x)


def fft(x, n=None, norm=None):
    """Discrete Fourier transform of the last axis, as numpy.fft.fft (single
    precision stays single)."""
    x = np.asarray(x)
    return _run(x, n, norm, "C", _cdtype(x.dtype), False)


def ifft(x, n=None, norm=None):
    """Inverse transform, as numpy.fft.ifft."""
    x = np.asarray(x)
    return _run(x, n, norm, "C", _cdtype(x.dtype), True)


def rfft(x, n=None, norm=None):
    """Transform of real data, the n//2+1 non-negative frequencies."""
    x = np.asarray(x)
    if x.dtype.kind == "c":
        raise TypeError("rfft takes real data")
    return _run(x, n, norm, "R", _F32 if x.dtype == _F32 else _F64, False)


def irfft(X, n=None, norm=None):
    """Inverse of rfft: n real points (default 2*(m-1)) from m = n//2+1
    complex values; the imaginary parts of the zero and Nyquist terms are
    ignored."""
    X = np.asarray(X)
    cdt = _cdtype(X.dtype)
    n = 2 * (X.shape[-1] - 1) if n is None else n
    if n < 1:
        raise ValueError("invalid number of points %d" % n)
    return _run(X, n // 2 + 1, norm, "R", cdt, True, npoints=n)


# ---------------------------------------------------------------- DCT

class DctPlan:
    """Orthonormal DCT-II (fwd) and its inverse, the DCT-III (inv), of N points."""

    def __init__(self, n, dtype):
        L = lib()
        self.n, self.dtype = n, np.dtype(dtype)
        t = suffix(self.dtype)
        self._run = {}
        self._mem = []
        for d in ("Fwd", "Inv"):
            spec, init, work = ctypes.c_int(), ctypes.c_int(), ctypes.c_int()
            getattr(L, "vrxsDCT%sGetSize_%s" % (d, t))(n, 0, ref(spec), ref(init), ref(work))
            s, i, w = Mem(spec.value), Mem(init.value), Mem(work.value)
            pp = ctypes.c_void_p()
            getattr(L, "vrxsDCT%sInit_%s" % (d, t))(ref(pp), n, 0, s.ptr, i.ptr)
            self._mem += [s, w]
            self._run[d] = (getattr(L, "vrxsDCT%s_%s" % (d, t)), pp.value, w.ptr)

    def _go(self, d, x):
        fn, p, w = self._run[d]
        y = np.empty(self.n, self.dtype)
        fn(addr(x), addr(y), p, w)
        return y


def _dct(x, type, n, norm, d):
    if type != 2 or norm != "ortho":
        raise ValueError("only the orthonormal type II (and its inverse) is provided: "
                         "type=2, norm='ortho'")
    dt = float_dtype(x, allow_complex=False)
    x = _fit(np.asarray(x), n)
    key = ("dct", x.shape[-1], dt)
    p = _plans.get(key)
    if p is None:
        p = _plans[key] = DctPlan(x.shape[-1], dt)
    return along_rows(lambda r: p._go(d, contig(r, dt)), x)


def dct(x, type=2, n=None, norm="ortho"):
    """Orthonormal DCT-II, as scipy.fft.dct(x, norm='ortho')."""
    return _dct(x, type, n, norm, "Fwd")


def idct(x, type=2, n=None, norm="ortho"):
    """Inverse of dct (the orthonormal DCT-III), as scipy.fft.idct(x, norm='ortho')."""
    return _dct(x, type, n, norm, "Inv")


# ------------------------------------------------------ Hilbert, Goertzel

class _HilbertPlan:
    def __init__(self, n):
        L = lib()
        spec, buf = ctypes.c_int(), ctypes.c_int()
        L.vrxsHilbertGetSize_32f32fc(n, 0, ref(spec), ref(buf))
        self.spec, self.buf = Mem(spec.value), Mem(buf.value)
        L.vrxsHilbertInit_32f32fc(n, 0, self.spec.ptr, self.buf.ptr)
        self.run = L.vrxsHilbert_32f32fc
        self.n = n

    def __call__(self, x):
        y = np.empty(self.n, np.complex64)
        self.run(addr(x), addr(y), self.spec.ptr, self.buf.ptr)
        return y


def hilbert(x, N=None):
    """Analytic signal x + i H(x), as scipy.signal.hilbert. float32 data runs
    the library's Hilbert plan; float64 data runs the double transforms."""
    dt = float_dtype(x, allow_complex=False)
    if np.iscomplexobj(x):
        raise ValueError("x must be real")
    x = _fit(np.asarray(x), N)
    n = x.shape[-1]
    if dt == np.float32:
        key = ("hilbert", n)
        p = _plans.get(key)
        if p is None:
            p = _plans[key] = _HilbertPlan(n)
        return along_rows(lambda r: p(contig(r, dt)), x)
    h = np.zeros(n)
    h[0] = 1.0
    h[1:(n + 1) // 2] = 2.0
    if n % 2 == 0:
        h[n // 2] = 1.0
    return ifft(fft(x.astype(np.float64)) * h)


def goertzel(x, freq):
    """The Goertzel value at the relative frequency freq (cycles per sample,
    0 <= freq < 1): exp(i t N) sum x[n] exp(-i t n), t = 2 pi freq. The
    phase is advanced to one step past the last sample, so the DFT bin is
    this value times exp(-i t N)."""
    x = np.asarray(x)
    dt = float_dtype(x)
    x = contig(x, dt)
    t = suffix(dt)
    out = np.zeros(1, np.complex128 if dt in (np.float64, np.complex128) else np.complex64)
    getattr(lib(), "vrxsGoertz_" + t)(addr(x), x.shape[-1], addr(out), freq)
    return out[0]
