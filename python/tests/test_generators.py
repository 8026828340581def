"""Windows, tones, triangles and random generators."""

import numpy as np
import pytest
import scipy.signal as ss

import vrxs
from conftest import rel_err

NAMES = ["hann", "hamming", "blackman", "bartlett", "boxcar", ("kaiser", 0.5), ("kaiser", 6.0),
         ("kaiser", 14.0)]


@pytest.mark.parametrize("window", NAMES, ids=str)
@pytest.mark.parametrize("n", [3, 4, 5, 16, 17, 255, 1024])
@pytest.mark.parametrize("fftbins", [True, False])
@pytest.mark.parametrize("dt", [np.float32, np.float64])
def test_get_window(window, n, fftbins, dt):
    ref = ss.get_window(window, n, fftbins=fftbins)
    w = vrxs.get_window(window, n, fftbins=fftbins, dtype=dt)
    assert w.dtype == dt and w.shape == (n,)
    # the Kaiser weights come from the library's Bessel series, good to a
    # few parts in 10^6; the others run a cosine recurrence, whose error in
    # double grows with the square of the length
    if isinstance(window, tuple):
        tol = 1e-5
    else:
        tol = 1e-6 if dt == np.float32 else 1e-13 * max(1.0, (n / 256.0) ** 2)
    assert rel_err(w, ref) <= tol


def test_hann_end_points_are_zero():
    w = vrxs.get_window("hann", 9, fftbins=False)
    assert w[0] == 0.0 and w[-1] == 0.0 and w[4] == 1.0


@pytest.mark.parametrize("dt", [np.float32, np.float64, np.complex64, np.complex128])
@pytest.mark.parametrize("freq, phase, magn", [(0.0, 0.0, 1.0), (0.1, 0.5, 2.0),
                                               (0.2499, 6.2, 100.0), (0.45, 3.0, 0.5)])
@pytest.mark.parametrize("fast", [False, True])
def test_tone(dt, freq, phase, magn, fast):
    """Single-precision forms take the frequency and phase as float32: the
    reference uses the rounded values. The fast hint reseeds a single
    recurrence every 1024 samples; the accurate path runs one double
    recurrence over the whole vector, its error growing with the length."""
    n = np.arange(3000)
    single = dt in (np.float32, np.complex64)
    if single:
        freq, phase = float(np.float32(freq)), float(np.float32(phase))
    arg = 2 * np.pi * freq * n + phase
    ref = magn * (np.exp(1j * arg) if np.issubdtype(dt, np.complexfloating) else np.cos(arg))
    y = vrxs.tone(3000, freq, magn, phase, dtype=dt, fast=fast)
    assert y.dtype == dt
    tol = (2e-4 if fast else 2e-6) if single else (1e-9 if fast else 1e-10)
    assert rel_err(y, ref) <= tol


@pytest.mark.parametrize("dt", [np.float32, np.float64])
def test_tone_continues_across_calls(dt):
    t = vrxs.Tone(0.03, 1.0, 0.2, dtype=dt)
    pieces = np.concatenate([t(100), t(1), t(250)])
    whole = vrxs.tone(351, 0.03, 1.0, 0.2, dtype=dt)
    assert rel_err(pieces, whole) <= (1e-5 if dt == np.float32 else 1e-12)
    assert abs(t.phase - np.mod(2 * np.pi * 0.03 * 351 + 0.2, 2 * np.pi)) < 1e-4


@pytest.mark.parametrize("dt", [np.float32, np.float64])
@pytest.mark.parametrize("freq, asym, phase", [(0.01, 0.0, 0.0), (0.05, 1.0, 0.3),
                                               (0.2, -2.5, 5.0), (0.33, 3.0, 1.0)])
def test_triangle_against_sawtooth(dt, freq, asym, phase):
    """+magn at phase 0, -magn at pi + asym: scipy's sawtooth negated, with
    width (pi + asym) / (2 pi)."""
    n = np.arange(2000)
    if dt == np.float32:
        freq, asym, phase = (float(np.float32(v)) for v in (freq, asym, phase))
    ref = -2.0 * ss.sawtooth(2 * np.pi * freq * n + phase, (np.pi + asym) / (2 * np.pi))
    y = vrxs.triangle(2000, freq, 2.0, asym, phase, dtype=dt)
    assert rel_err(y, ref) <= (2e-5 if dt == np.float32 else 1e-9)


@pytest.mark.parametrize("dt, low, high", [(np.float32, -1.0, 3.0), (np.float64, 0.0, 1.0),
                                           (np.int16, -100, 100), (np.uint8, 10, 200)])
def test_uniform(dt, low, high):
    a = vrxs.uniform(200000, low, high, seed=7, dtype=dt)
    assert a.dtype == dt
    assert a.min() >= low and a.max() <= high
    assert abs(a.mean() - (low + high) / 2) < 0.01 * (high - low)
    # the same seed repeats the sequence, another seed does not
    assert np.array_equal(a, vrxs.uniform(200000, low, high, seed=7, dtype=dt))
    assert not np.array_equal(a, vrxs.uniform(200000, low, high, seed=8, dtype=dt))


@pytest.mark.parametrize("dt, mean, std", [(np.float32, 0.0, 1.0), (np.float64, 5.0, 2.0),
                                           (np.int16, 0, 1000)])
def test_gauss(dt, mean, std):
    g = vrxs.normal(200000, mean, std, seed=3, dtype=dt).astype(np.float64)
    assert abs(g.mean() - mean) < 0.02 * std
    assert abs(g.std() - std) < 0.02 * std
    # a normal sample: about 68.3 % within one deviation
    assert abs(np.mean(np.abs(g - mean) < std) - 0.6827) < 0.01


def test_generator_pieces_equal_one_call():
    r = vrxs.RandUniform(0.0, 1.0, seed=11, dtype=np.float64)
    pieces = np.concatenate([r(10), r(1), r(1000)])
    assert np.array_equal(pieces, vrxs.uniform(1011, 0.0, 1.0, seed=11, dtype=np.float64))
