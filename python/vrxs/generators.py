"""Windows, tones, triangles and seeded random generators."""

import ctypes

import numpy as np

from ._core import Mem, addr, lib, ref, suffix

_WINDOWS = {"hann": "Hann", "hanning": "Hann", "hamming": "Hamming", "blackman": "BlackmanStd",
            "blackmanopt": "BlackmanOpt", "bartlett": "Bartlett", "kaiser": "Kaiser",
            "boxcar": None, "ones": None, "rect": None, "rectangular": None}


def get_window(window, Nx, fftbins=True, dtype=np.float64):
    """Window weights by name, as scipy.signal.get_window: 'hann', 'hamming',
    'blackman', 'bartlett', 'boxcar', ('kaiser', beta), and 'blackmanopt'.
    fftbins=True gives the periodic window (the symmetric one of Nx+1 points
    without its last), False the symmetric one. The library's windows need
    at least 3 symmetric points (4 for 'blackmanopt')."""
    args = ()
    if isinstance(window, tuple):
        window, args = window[0], window[1:]
    try:
        fam = _WINDOWS[window]
    except KeyError:
        raise ValueError("unknown window %r" % (window,)) from None
    m = Nx + 1 if fftbins else Nx
    dt = np.dtype(dtype)
    w = np.ones(m, dt)
    if fam is not None:
        fn = getattr(lib(), "vrxsWin%s_%s_I" % (fam, suffix(dt)))
        if fam == "Kaiser":
            if len(args) != 1:
                raise ValueError("the Kaiser window takes ('kaiser', beta)")
            alpha = float(args[0]) / ((m - 1) / 2.0) if m > 1 else 0.0
            fn(addr(w), m, alpha)
        else:
            fn(addr(w), m)
    return w[:Nx] if fftbins else w


class Tone:
    """A tone magn cos(2 pi freq n + phase) (complex types: magn exp(i(...)))
    that continues across calls. freq in cycles per sample."""

    def __init__(self, freq, magn=1.0, phase=0.0, dtype=np.float32, fast=False):
        self.dtype = np.dtype(dtype)
        t = suffix(self.dtype)
        self._fn = getattr(lib(), "vrxsTone_" + t)
        ptype = ctypes.c_double if t.startswith("64") else ctypes.c_float
        self._phase = ptype(phase)
        self.freq, self.magn, self.hint = freq, magn, 1 if fast else 0

    @property
    def phase(self):
        return self._phase.value

    def __call__(self, n):
        y = np.empty(n, self.dtype)
        self._fn(addr(y), n, self.magn, self.freq, ref(self._phase), self.hint)
        return y


def tone(n, freq, magn=1.0, phase=0.0, dtype=np.float32, fast=False):
    """n samples of a tone; see Tone."""
    return Tone(freq, magn, phase, dtype, fast)(n)


class Triangle:
    """A triangle wave: +magn at phase 0, -magn at phase pi + asym, +magn
    again at 2 pi (-pi <= asym < pi), continuing across calls."""

    def __init__(self, freq, magn=1.0, asym=0.0, phase=0.0, dtype=np.float32):
        self.dtype = np.dtype(dtype)
        t = suffix(self.dtype)
        self._fn = getattr(lib(), "vrxsTriangle_" + t)
        ptype = ctypes.c_double if t.startswith("64") else ctypes.c_float
        self._phase = ptype(phase)
        self.freq, self.magn, self.asym = freq, magn, asym

    @property
    def phase(self):
        return self._phase.value

    def __call__(self, n):
        y = np.empty(n, self.dtype)
        self._fn(addr(y), n, self.magn, self.freq, self.asym, ref(self._phase))
        return y


def triangle(n, freq, magn=1.0, asym=0.0, phase=0.0, dtype=np.float32):
    """n samples of a triangle wave; see Triangle."""
    return Triangle(freq, magn, asym, phase, dtype)(n)


class _Rand:
    def __init__(self, kind, p1, p2, seed, dtype):
        L = lib()
        self.dtype = np.dtype(dtype)
        t = suffix(self.dtype)
        size = ctypes.c_int()
        getattr(L, "vrxsRand%sGetSize_%s" % (kind, t))(ref(size))
        self.mem = Mem(size.value)
        getattr(L, "vrxsRand%sInit_%s" % (kind, t))(self.mem.ptr, p1, p2, seed & 0xFFFFFFFF)
        self._fn = getattr(L, "vrxsRand%s_%s" % (kind, t))

    def __call__(self, n):
        y = np.empty(n, self.dtype)
        if n:
            self._fn(addr(y), n, self.mem.ptr)
        return y


class RandUniform(_Rand):
    """Seeded uniform generator on [low, high) (8u, 16s, float32, float64)."""

    def __init__(self, low=0.0, high=1.0, seed=0, dtype=np.float32):
        super().__init__("Uniform", low, high, seed, dtype)


class RandGauss(_Rand):
    """Seeded normal generator of the given mean and deviation."""

    def __init__(self, mean=0.0, std=1.0, seed=0, dtype=np.float32):
        super().__init__("Gauss", mean, std, seed, dtype)


def uniform(n, low=0.0, high=1.0, seed=0, dtype=np.float32):
    return RandUniform(low, high, seed, dtype)(n)


def normal(n, mean=0.0, std=1.0, seed=0, dtype=np.float32):
    return RandGauss(mean, std, seed, dtype)(n)
