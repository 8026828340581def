"""Convolution, correlation and filters shaped like scipy.signal.

Objects (FirFilter, IirFilter) keep the library state and the delay line,
so a signal filtered in pieces equals the signal filtered at once."""

import ctypes
import numpy as np

from ._core import (COMPLEX, CPLX_OF, DATATYPE, Mem, addr, contig, float_dtype, lib, ref,
                    suffix)

_ALG = {"auto": 0, "direct": 1, "fft": 2}
_NORM = {None: 0, "none": 0, "biased": 0x100, "unbiased": 0x200}


def _alg(method):
    try:
        return _ALG[method]
    except KeyError:
        raise ValueError("method must be 'auto', 'direct' or 'fft', not %r" % (method,)) from None


def _common(*arrays):
    dt = np.result_type(*[float_dtype(a) for a in arrays])
    return np.dtype(dt)


def _mode_slice(full, n1, n2, mode):
    if mode == "full":
        return full
    if mode == "same":
        start = (full.shape[0] - n1) // 2
        return full[start:start + n1]
    if mode == "valid":
        lo, hi = min(n1, n2), max(n1, n2)
        return full[lo - 1:hi]
    raise ValueError("mode must be 'full', 'same' or 'valid', not %r" % (mode,))


def _conv_real(a, b, alg):
    L = lib()
    t = suffix(a.dtype)
    size = ctypes.c_int()
    L.vrxsConvolveGetBufferSize(a.shape[0], b.shape[0], DATATYPE[t], alg, ref(size))
    buf = Mem(size.value)
    y = np.empty(a.shape[0] + b.shape[0] - 1, a.dtype)
    getattr(L, "vrxsConvolve_" + t)(addr(a), a.shape[0], addr(b), b.shape[0], addr(y), alg, buf.ptr)
    return y


def convolve(in1, in2, mode="full", method="auto"):
    """Linear convolution of two 1-D arrays, as scipy.signal.convolve.
    Complex data runs as four real convolutions."""
    dt = _common(in1, in2)
    alg = _alg(method)
    a, b = np.asarray(in1), np.asarray(in2)
    if a.ndim != 1 or b.ndim != 1:
        raise ValueError("convolve takes 1-D arrays")
    if dt in COMPLEX:
        rt = np.float32 if dt == np.complex64 else np.float64
        ar, ai = contig(a.real, rt), contig(a.imag if np.iscomplexobj(a) else np.zeros_like(a.real), rt)
        br, bi = contig(b.real, rt), contig(b.imag if np.iscomplexobj(b) else np.zeros_like(b.real), rt)
        full = ((_conv_real(ar, br, alg) - _conv_real(ai, bi, alg))
                + 1j * (_conv_real(ar, bi, alg) + _conv_real(ai, br, alg))).astype(dt)
    else:
        full = _conv_real(contig(a, dt), contig(b, dt), alg)
    return _mode_slice(full, a.shape[0], b.shape[0], mode)


def correlate(in1, in2, mode="full", method="auto", norm=None):
    """Cross-correlation z[k] = sum_n in1[n+k] conj(in2[n]), as
    scipy.signal.correlate (lags from -(len(in2)-1) in 'full' mode).
    norm='biased' divides every lag by the shorter length, 'unbiased' each
    lag by its count of products (scipy has no such option)."""
    dt = _common(in1, in2)
    a, v = contig(in1, dt), contig(in2, dt)
    if a.ndim != 1 or v.ndim != 1:
        raise ValueError("correlate takes 1-D arrays")
    try:
        alg = _alg(method) | _NORM[norm]
    except KeyError:
        raise ValueError("norm must be None, 'biased' or 'unbiased'") from None
    L = lib()
    t = suffix(dt)
    n1, n2 = v.shape[0], a.shape[0]
    dst = n1 + n2 - 1
    low = -(n1 - 1)
    size = ctypes.c_int()
    L.vrxsCrossCorrNormGetBufferSize(n1, n2, dst, low, DATATYPE[t], alg, ref(size))
    buf = Mem(size.value)
    full = np.empty(dst, dt)
    getattr(L, "vrxsCrossCorrNorm_" + t)(addr(v), n1, addr(a), n2, addr(full), dst, low, alg, buf.ptr)
    return _mode_slice(full, a.shape[0], v.shape[0], mode)


# ----------------------------------------------------------- FIR design

_WIN = {"bartlett": 0, "triang": 0, "blackmanopt": 1, "hamming": 2, "hann": 3, "hanning": 3,
        "boxcar": -1, "rect": -1, "rectangular": -1, None: -1}


def firwin(numtaps, cutoff, window="hamming", pass_zero=True, scale=True, fs=2.0):
    """Window-method linear-phase FIR taps (float64), shaped like
    scipy.signal.firwin: a scalar cutoff is a lowpass (pass_zero True) or
    highpass, a pair a bandstop (pass_zero True) or bandpass. Windows:
    'hamming', 'hann', 'bartlett', 'boxcar' and 'blackmanopt' (the optimal
    Blackman window of vrxsWinBlackmanOpt, which is not scipy's 'blackman').
    numtaps >= 5."""
    try:
        win = _WIN[window]
    except KeyError:
        raise ValueError("window must be one of %s" % sorted(k for k in _WIN if k)) from None
    if pass_zero in ("lowpass", "bandstop"):
        pass_zero = True
    elif pass_zero in ("highpass", "bandpass"):
        pass_zero = False
    cut = np.atleast_1d(np.asarray(cutoff, dtype=np.float64)) / float(fs)
    L = lib()
    size = ctypes.c_int()
    L.vrxsFIRGenGetBufferSize(numtaps, ref(size))
    buf = Mem(size.value)
    taps = np.empty(numtaps, np.float64)
    norm = 1 if scale else 0
    if cut.shape[0] == 1:
        fn = L.vrxsFIRGenLowpass_64f if pass_zero else L.vrxsFIRGenHighpass_64f
        fn(float(cut[0]), addr(taps), numtaps, win, norm, buf.ptr)
    elif cut.shape[0] == 2:
        fn = L.vrxsFIRGenBandstop_64f if pass_zero else L.vrxsFIRGenBandpass_64f
        fn(float(cut[0]), float(cut[1]), addr(taps), numtaps, win, norm, buf.ptr)
    else:
        raise ValueError("cutoff must be one frequency or a pair")
    return taps


# ------------------------------------------------------------------ FIR

class FirFilter:
    """Single-rate FIR filter y[n] = sum taps[k] x[n-k] that keeps its delay
    line between calls. dtype: the data type (float32, float64, complex64,
    complex128); taps are converted to it. method: 'auto', 'direct', 'fft'."""

    def __init__(self, taps, dtype=None, method="auto"):
        L = lib()
        dt = np.dtype(dtype) if dtype is not None else float_dtype(taps)
        if dt not in (np.float32, np.float64, np.complex64, np.complex128):
            raise TypeError("FirFilter runs on float32, float64, complex64 or complex128")
        self.dtype = dt
        self.taps = contig(taps, dt)
        n = self.taps.shape[0]
        t = suffix(dt)
        spec, bufsize = ctypes.c_int(), ctypes.c_int()
        L.vrxsFIRSRGetSize(n, DATATYPE[t], ref(spec), ref(bufsize))
        self.spec, self.buf = Mem(spec.value), Mem(bufsize.value)
        getattr(L, "vrxsFIRSRInit_" + t)(addr(self.taps), n, _alg(method), self.spec.ptr)
        self._run = getattr(L, "vrxsFIRSR_" + t)
        self.dly = np.zeros(max(n - 1, 0), dt)
        self._dly = addr(self.dly) if n > 1 else None

    def reset(self):
        self.dly[:] = 0

    def __call__(self, x):
        x = contig(x, self.dtype)
        y = np.empty_like(x)
        if x.shape[0]:
            self._run(addr(x), addr(y), x.shape[0], self.spec.ptr, self._dly, self._dly,
                      self.buf.ptr)
        return y

    filter = __call__


# ------------------------------------------------------------------ IIR

# data type -> (arithmetic prefix, sample suffix, tap dtype): single-precision
# data runs in double arithmetic, which keeps high orders accurate
_IIR_FORMS = {
    np.dtype(np.float32): ("64f", "_32f", np.float64),
    np.dtype(np.float64): ("", "_64f", np.float64),
    np.dtype(np.complex64): ("64fc", "_32fc", np.complex128),
    np.dtype(np.complex128): ("", "_64fc", np.complex128),
}


def _data_dtype(x, *taps):
    """The data's float type, made complex when a tap set is complex."""
    dt = float_dtype(x)
    if dt not in COMPLEX and any(np.iscomplexobj(t) for t in taps):
        dt = CPLX_OF[dt]
    return dt


class IirFilter:
    """IIR filter that keeps its state between calls:
    IirFilter(b, a) one section of order max(len(b), len(a)) - 1 (as lfilter),
    IirFilter(sos=...) a cascade of biquads, rows b0 b1 b2 a0 a1 a2 (as sosfilt;
    a zero a0 or b0 in a row is refused by the library). dtype is the data
    type; single-precision data is filtered in double arithmetic."""

    def __init__(self, b=None, a=None, sos=None, dtype=np.float64):
        L = lib()
        self.dtype = dt = np.dtype(dtype)
        if dt not in _IIR_FORMS:
            raise TypeError("IirFilter runs on float32, float64, complex64 or complex128")
        arith, samples, tdt = _IIR_FORMS[dt]
        if sos is not None:
            sos = np.atleast_2d(np.asarray(sos))
            if sos.ndim != 2 or sos.shape[1] != 6:
                raise ValueError("sos must have six columns")
            taps, order, kind = contig(sos.reshape(-1), tdt), sos.shape[0], "BiQuad"
        else:
            b, a = np.atleast_1d(b), np.atleast_1d(1.0 if a is None else a)
            n = max(b.shape[0], a.shape[0])
            bb, aa = np.zeros(n, tdt), np.zeros(n, tdt)
            bb[:b.shape[0]], aa[:a.shape[0]] = b, a
            taps, order, kind = np.concatenate([bb, aa]), n - 1, ""
        self.order, self.taps = order, taps
        self._gain = None
        if order < 1:
            # a pure gain: nothing for the library to hold
            self._gain = taps[0] / taps[1]
            return
        if arith:
            self._form = arith + ("_BiQuad" if kind else "") + samples
        else:
            self._form = ("_BiQuad" if kind else "") + samples
        size = ctypes.c_int()
        getattr(L, "vrxsIIRGetStateSize" + self._form)(order, ref(size))
        self.mem = Mem(size.value)
        self.reset()
        self._run = getattr(L, "vrxsIIR%s%s" % (arith, samples))

    def reset(self):
        """Back to rest (a zero delay line)."""
        if self._gain is None:
            pp = ctypes.c_void_p()
            getattr(lib(), "vrxsIIRInit" + self._form)(ref(pp), addr(self.taps), self.order,
                                                      None, self.mem.ptr)
            self.state = pp.value

    def __call__(self, x):
        x = contig(x, self.dtype)
        if self._gain is not None:
            return (x * self._gain).astype(self.dtype)
        y = np.empty_like(x)
        if x.shape[0]:
            self._run(addr(x), addr(y), x.shape[0], self.state)
        return y

    filter = __call__


def lfilter(b, a, x):
    """Filters x with b/a from rest, as scipy.signal.lfilter(b, a, x): a == 1
    runs the FIR filter, any other a the IIR engine."""
    a = np.atleast_1d(a)
    dt = _data_dtype(x, b, a)
    if a.shape[0] == 1:
        return FirFilter(np.atleast_1d(b) / a[0], dtype=dt)(x)
    return IirFilter(b, a, dtype=dt)(x)


def sosfilt(sos, x):
    """Filters x through second-order sections, as scipy.signal.sosfilt."""
    return IirFilter(sos=sos, dtype=_data_dtype(x, sos))(x)


# ------------------------------------------------------------ multi-rate

def upfirdn(h, x, up=1, down=1):
    """Upsample by up, filter with h, downsample by down, as
    scipy.signal.upfirdn: output length ceil(((len(x)-1)*up + len(h)) / down)."""
    if up < 1 or down < 1:
        raise ValueError("up and down must be at least 1")
    dt = _common(h, x)
    h, x = contig(h, dt), contig(x, dt)
    nout = -(-((x.shape[0] - 1) * up + h.shape[0]) // down)
    L = lib()
    t = suffix(dt)
    spec, bufsize = ctypes.c_int(), ctypes.c_int()
    L.vrxsFIRMRGetSize(h.shape[0], up, down, DATATYPE[t], ref(spec), ref(bufsize))
    specm, buf = Mem(spec.value), Mem(bufsize.value)
    getattr(L, "vrxsFIRMRInit_" + t)(addr(h), h.shape[0], up, 0, down, 0, specm.ptr)
    iters = -(-nout // up)
    src = np.zeros(iters * down, dt)
    src[:x.shape[0]] = x
    dst = np.empty(iters * up, dt)
    getattr(L, "vrxsFIRMR_" + t)(addr(src), addr(dst), iters, specm.ptr, None, None, buf.ptr)
    return dst[:nout]
