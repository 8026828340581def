"""Convolution, correlation, FIR design and FIR/IIR filtering against
scipy.signal."""

import numpy as np
import pytest
import scipy.signal as ss

import vrxs
from conftest import rel_err

TOL = {np.float32: 2e-6, np.float64: 1e-13, np.complex64: 2e-6, np.complex128: 1e-13}
SIZES = [(1, 1), (5, 3), (3, 5), (64, 64), (100, 30), (700, 80), (2000, 300), (513, 1)]


def _data(rng, n, dt):
    x = rng.standard_normal(n)
    if np.issubdtype(dt, np.complexfloating):
        x = x + 1j * rng.standard_normal(n)
    return x.astype(dt)


@pytest.mark.parametrize("n1, n2", SIZES)
@pytest.mark.parametrize("dt", [np.float32, np.float64, np.complex64, np.complex128])
@pytest.mark.parametrize("method", ["auto", "direct", "fft"])
@pytest.mark.parametrize("mode", ["full", "same", "valid"])
@pytest.mark.parametrize("mine, ref", [(vrxs.convolve, ss.convolve), (vrxs.correlate, ss.correlate)],
                         ids=["convolve", "correlate"])
def test_convolve_correlate(mine, ref, n1, n2, dt, method, mode, rng):
    a, b = _data(rng, n1, dt), _data(rng, n2, dt)
    want = ref(a.astype(np.complex128), b.astype(np.complex128), mode=mode)
    y = mine(a, b, mode=mode, method=method)
    assert y.dtype == dt and y.shape == want.shape
    assert rel_err(y, want) <= TOL[dt] * max(1, np.log2(n1 + n2))


@pytest.mark.parametrize("n1, n2", [(10, 4), (4, 10), (300, 300), (1000, 50)])
@pytest.mark.parametrize("norm", ["biased", "unbiased"])
def test_correlate_normalised(n1, n2, norm, rng):
    """scipy has no normalisation: biased is the plain result over the
    shorter length, unbiased each lag over its count of products."""
    a, b = rng.standard_normal(n1), rng.standard_normal(n2)
    full = ss.correlate(a, b)
    if norm == "biased":
        ref = full / min(n1, n2)
    else:
        ref = full / ss.correlate(np.ones(n1), np.ones(n2))
    assert rel_err(vrxs.correlate(a, b, norm=norm), ref) <= 1e-12


WINDOWS = ["hamming", "hann", "bartlett", "boxcar"]


# (numtaps, cutoff, pass_zero): lowpass and bandpass at any length, bandstop
# at odd lengths only (scipy refuses an even one)
FIRWIN = [(n, c, pz) for n in (5, 6, 11, 12, 31, 64, 101)
          for c, pz in ((0.3, True), ([0.2, 0.5], False), ([0.1, 0.7], True), (0.05, True))
          if n % 2 or np.isscalar(c) or not pz]


@pytest.mark.parametrize("numtaps, cutoff, pass_zero", FIRWIN)
@pytest.mark.parametrize("window", WINDOWS)
def test_firwin(numtaps, window, cutoff, pass_zero):
    ref = ss.firwin(numtaps, cutoff, window=window, pass_zero=pass_zero)
    assert rel_err(vrxs.firwin(numtaps, cutoff, window=window, pass_zero=pass_zero), ref) <= 1e-12


@pytest.mark.parametrize("numtaps", [5, 7, 9, 11, 13, 15, 33, 65, 101])
@pytest.mark.parametrize("window", WINDOWS)
def test_firwin_highpass_sign(numtaps, window):
    """The library normalises a highpass by the alternating sum that starts
    with -taps[0], so lengths 1 mod 4 (5, 9, 13, ...) come out negated
    against scipy (gain -1 at Nyquist); lengths 3 mod 4 agree."""
    ref = ss.firwin(numtaps, 0.3, window=window, pass_zero=False)
    sign = -1.0 if numtaps % 4 == 1 else 1.0
    assert rel_err(vrxs.firwin(numtaps, 0.3, window=window, pass_zero=False), sign * ref) <= 1e-12


@pytest.mark.parametrize("numtaps", [5, 16, 51])
def test_firwin_blackmanopt_is_the_library_window(numtaps):
    """'blackmanopt' is the library's optimal Blackman window, not scipy's
    'blackman': the taps are the unwindowed design times that window,
    normalised to unit gain at 0."""
    raw = ss.firwin(numtaps, 0.25, window="boxcar", scale=False)
    h = raw * vrxs.get_window("blackmanopt", numtaps, fftbins=False)
    assert rel_err(vrxs.firwin(numtaps, 0.25, window="blackmanopt"), h / h.sum()) <= 1e-12


@pytest.mark.parametrize("ntaps", [1, 2, 7, 52, 200])
@pytest.mark.parametrize("dt", [np.float32, np.float64, np.complex64, np.complex128])
@pytest.mark.parametrize("method", ["auto", "direct", "fft"])
def test_fir_lfilter_and_pieces(ntaps, dt, method, rng):
    h, x = _data(rng, ntaps, dt), _data(rng, 1500, dt)
    ref = ss.lfilter(h.astype(np.complex128), [1.0], x.astype(np.complex128))
    f = vrxs.FirFilter(h, method=method)
    whole = f(x)
    assert whole.dtype == dt
    assert rel_err(whole, ref) <= TOL[dt] * 10
    f.reset()
    cuts = [0, 1, 17, 300, 301, 1024, 1500]
    pieces = np.concatenate([f(x[a:b]) for a, b in zip(cuts, cuts[1:])])
    assert rel_err(pieces, ref) <= TOL[dt] * 10


@pytest.mark.parametrize("design", [("butter", 1, 0.3), ("butter", 4, 0.1), ("cheby1", 5, 0.4),
                                    ("butter", 8, 0.25), ("ellip", 3, 0.2)])
@pytest.mark.parametrize("dt", [np.float32, np.float64, np.complex128])
def test_iir_lfilter(design, dt, rng):
    kind, order, wn = design
    if kind == "butter":
        b, a = ss.butter(order, wn)
    elif kind == "cheby1":
        b, a = ss.cheby1(order, 1.0, wn)
    else:
        b, a = ss.ellip(order, 0.5, 40, wn)
    a = a * 2.0                        # a0 other than 1 divides through
    x = _data(rng, 2000, dt)
    ref = ss.lfilter(b, a, x.astype(np.complex128))
    tol = 1e-4 if dt == np.float32 else 1e-11
    assert rel_err(vrxs.lfilter(b, a, x), ref) <= tol
    f = vrxs.IirFilter(b, a, dtype=dt)
    pieces = np.concatenate([f(x[:333]), f(x[333:1000]), f(x[1000:])])
    assert rel_err(pieces, ref) <= tol


@pytest.mark.parametrize("order, wn", [(2, 0.2), (6, 0.05), (12, 0.4)])
@pytest.mark.parametrize("dt", [np.float32, np.float64])
def test_sosfilt(order, wn, dt, rng):
    sos = ss.butter(order, wn, output="sos")
    x = rng.standard_normal(3000).astype(dt)
    ref = ss.sosfilt(sos, x.astype(np.float64))
    tol = 1e-4 if dt == np.float32 else 1e-11
    y = vrxs.sosfilt(sos, x)
    assert y.dtype == dt
    assert rel_err(y, ref) <= tol


def test_iir_gain_only():
    assert np.allclose(vrxs.lfilter([3.0], [2.0, 0.0], [1.0, 2.0]), [1.5, 3.0])


@pytest.mark.parametrize("up, down", [(1, 1), (2, 1), (1, 2), (3, 2), (2, 3), (5, 7), (4, 4)])
@pytest.mark.parametrize("ntaps", [1, 5, 40])
@pytest.mark.parametrize("dt", [np.float32, np.float64, np.complex128])
def test_upfirdn(up, down, ntaps, dt, rng):
    h, x = _data(rng, ntaps, dt), _data(rng, 300, dt)
    ref = ss.upfirdn(h.astype(np.complex128), x.astype(np.complex128), up, down)
    y = vrxs.upfirdn(h, x, up, down)
    assert y.shape == ref.shape
    assert rel_err(y, ref) <= TOL[dt] * 10
