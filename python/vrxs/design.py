"""Zero-phase filtering, median filtering, IIR design and polyphase
resampling, shaped like their scipy.signal namesakes.

These call the library's IIRIIR, FilterMedian, IIRGen and ResamplePolyphase
families; with a library that lacks one, the call raises MissingExport."""

import ctypes
import math

import numpy as np

from ._core import DATATYPE, Mem, addr, contig, float_dtype, lib, ref, suffix


class MissingExport(NotImplementedError):
    """The loaded library does not export a function this call needs."""


def need(name):
    L = lib()
    if not L.has(name):
        raise MissingExport("the library at %s does not export %s" % (L.path, name))
    return getattr(L, name)


# ------------------------------------------------------------- filtfilt

def filtfilt(b, a, x):
    """Forward-backward (zero-phase) IIR filtering, equal to
    scipy.signal.filtfilt(b, a, x, padtype='odd', padlen=min(3*N, len(x)-1))
    with N = max(len(a), len(b)) - 1, the filter order (scipy's default pad
    is 3*(N+1)). float32 data runs in double arithmetic; len(x) >= 3*N."""
    x = np.asarray(x)
    dt = float_dtype(x, allow_complex=False)
    b, a = np.atleast_1d(b).astype(np.float64), np.atleast_1d(a).astype(np.float64)
    n = max(b.shape[0], a.shape[0])
    taps = np.zeros(2 * n)
    taps[:b.shape[0]] = b
    taps[n:n + a.shape[0]] = a
    order = n - 1
    t = "64f_32f" if dt == np.float32 else "_64f"
    size = ctypes.c_int()
    need("vrxsIIRIIRGetStateSize" + t)(order, ref(size))
    mem = Mem(size.value)
    pp = ctypes.c_void_p()
    need("vrxsIIRIIRInit" + t)(ref(pp), addr(taps), order, mem.ptr)
    src = contig(x, dt)
    y = np.empty_like(src)
    need("vrxsIIRIIR" + t)(addr(src), addr(y), src.shape[0], pp.value)
    return y


# -------------------------------------------------------------- medfilt

def medfilt(x, kernel_size=3):
    """Median filter with zero padding at both ends, as
    scipy.signal.medfilt(x, kernel_size) for 1-D x (uint8, uint16, int16,
    float32, float64 keep their type; others run as float64). An even
    kernel runs one shorter and warns (VrxsWarning)."""
    x = np.asarray(x)
    dt = x.dtype if x.dtype in (np.uint8, np.uint16, np.int16, np.float32, np.float64) \
        else np.dtype(np.float64)
    t = suffix(dt)
    m = int(kernel_size)
    h = (m - 1) // 2 if m % 2 else (m - 2) // 2
    size = ctypes.c_int()
    need("vrxsFilterMedianGetBufferSize")(m, DATATYPE[t], ref(size))
    buf = Mem(size.value)
    src = np.zeros(x.shape[0] + h, dt)
    src[:x.shape[0]] = x
    out = np.empty_like(src)
    need("vrxsFilterMedian_" + t)(addr(src), addr(out), src.shape[0], m, None, None, buf.ptr)
    return out[h:h + x.shape[0]]


# --------------------------------------------------------------- design

_BTYPE = {"low": "Lowpass", "lowpass": "Lowpass", "high": "Highpass", "highpass": "Highpass",
          "band": "Bandpass", "bandpass": "Bandpass", "bandstop": "Bandstop", "stop": "Bandstop"}


def _iirgen(N, rp, Wn, btype, fs, kind):
    try:
        form = _BTYPE[btype]
    except KeyError:
        raise ValueError("btype must be low, high, bandpass or bandstop") from None
    wn = np.atleast_1d(np.asarray(Wn, dtype=np.float64))
    rel = wn / float(fs) if fs is not None else wn / 2.0   # of the sampling rate
    band = form in ("Bandpass", "Bandstop")
    if rel.shape[0] != (2 if band else 1):
        raise ValueError("Wn must be %s" % ("a pair" if band else "one frequency"))
    order = 2 * N if band else N
    taps = np.empty(2 * (order + 1))
    fn = need("vrxsIIRGen%s_64f" % form)
    if band:
        fn(float(rel[0]), float(rel[1]), float(rp), N, addr(taps), kind)
    else:
        fn(float(rel[0]), float(rp), N, addr(taps), kind)
    return taps[:order + 1], taps[order + 1:]


def butter(N, Wn, btype="low", fs=None):
    """Butterworth design (b, a), as scipy.signal.butter(N, Wn, btype, fs=fs)
    with output='ba': Wn relative to Nyquist unless fs is given."""
    return _iirgen(N, 0.0, Wn, btype, fs, 0)


def cheby1(N, rp, Wn, btype="low", fs=None):
    """Chebyshev type I design (b, a) with rp dB of pass-band ripple, as
    scipy.signal.cheby1(N, rp, Wn, btype, fs=fs)."""
    return _iirgen(N, rp, Wn, btype, fs, 1)


# ----------------------------------------------------------- resampling

class ResamplerFixed:
    """Rational resampler by up/down with the Kaiser-windowed sinc prototype
    up * firwin(2*half_len*max(up, down) + 1, rollf/max, ('kaiser', beta)),
    after up and down are divided by their gcd. Calls in pieces continue one
    signal; each call returns the outputs whose inputs have all arrived."""

    def __init__(self, up, down, half_len=10, rollf=1.0, beta=5.0):
        g = math.gcd(up, down)
        self.up, self.down = up // g, down // g
        size, flen = ctypes.c_int(), ctypes.c_int()
        need("vrxsResamplePolyphaseFixedGetSize_32f")(up, down, half_len, ref(size), ref(flen))
        self.filter_len = flen.value
        self.mem = Mem(size.value)
        pp = ctypes.c_void_p()
        need("vrxsResamplePolyphaseFixedInit_32f")(up, down, half_len, rollf, beta, ref(pp),
                                                   self.mem.ptr)
        self.state = pp.value
        self._run = need("vrxsResamplePolyphaseFixed_32f")

    @property
    def taps(self):
        t = np.empty(self.filter_len, np.float32)
        need("vrxsResamplePolyphaseGetFixedFilter_32f")(self.state, addr(t))
        return t

    def __call__(self, x):
        x = contig(x, np.float32)
        cap = -(-x.shape[0] * self.up // self.down) + self.up + 2
        y = np.empty(cap, np.float32)
        n = ctypes.c_int()
        if x.shape[0]:
            self._run(addr(x), x.shape[0], addr(y), ref(n), self.state)
        return y[:n.value]


def resample_poly(x, up, down, half_len=10, beta=5.0):
    """Resampling by up/down, as scipy.signal.resample_poly(x, up, down) with
    its default window ('kaiser', 5.0) and half length 10 zero crossings per
    side (float32 results). scipy centres its filter of half length
    H = half_len * max(up, down) (in upsampled samples); the library's filter
    is causal, so x runs behind P zeros, P*up + H a multiple of down, and the
    first (P*up + H) / down outputs are dropped."""
    g = math.gcd(up, down)
    up, down = up // g, down // g
    x = np.asarray(x, dtype=np.float32)
    if up == down == 1:
        return x.copy()
    n = x.shape[0]
    n_out = -(-n * up // down)
    hl = half_len * max(up, down)
    pre = (-hl * pow(up, -1, down)) % down if down > 1 else 0
    skip = (pre * up + hl) // down
    # output m is out once input floor(m*down/up) is in
    n_in = max(pre + n, (skip + n_out - 1) * down // up + 1)
    src = np.zeros(n_in, np.float32)
    src[pre:pre + n] = x
    y = ResamplerFixed(up, down, half_len, 1.0, beta)(src)
    return y[skip:skip + n_out]
