"""FFT, DFT, DCT, Hilbert and Goertzel against numpy.fft and scipy."""

import numpy as np
import pytest
import scipy.fft
import scipy.signal

import vrxs
from conftest import rel_err

LENGTHS = [1, 2, 3, 5, 8, 12, 16, 17, 31, 64, 100, 127, 256, 360, 1000, 1024, 4096, 6561]
TOL = {np.complex64: 1e-6, np.complex128: 1e-13, np.float32: 1e-6, np.float64: 1e-13}


def _tol(dt, n):
    # relative to the largest output; grows with log n like the rounding error
    return TOL[dt] * max(1.0, np.log2(max(n, 2)) / 4)


@pytest.mark.parametrize("n", LENGTHS)
@pytest.mark.parametrize("dt", [np.complex64, np.complex128])
@pytest.mark.parametrize("norm", [None, "ortho", "forward"])
def test_fft_ifft(n, dt, norm, rng):
    x = (rng.standard_normal(n) + 1j * rng.standard_normal(n)).astype(dt)
    ref = np.fft.fft(x.astype(np.complex128), norm=norm)
    y = vrxs.fft(x, norm=norm)
    assert y.dtype == dt
    assert rel_err(y, ref) <= _tol(dt, n)
    back = vrxs.ifft(x, norm=norm)
    assert rel_err(back, np.fft.ifft(x.astype(np.complex128), norm=norm)) <= _tol(dt, n)


@pytest.mark.parametrize("n", LENGTHS)
@pytest.mark.parametrize("dt", [np.float32, np.float64])
def test_rfft_irfft(n, dt, rng):
    x = rng.standard_normal(n).astype(dt)
    X = vrxs.rfft(x)
    assert X.shape == (n // 2 + 1,)
    assert rel_err(X, np.fft.rfft(x.astype(np.float64))) <= _tol(dt, n)
    ref_spec = np.fft.rfft(x.astype(np.float64))
    back = vrxs.irfft(ref_spec.astype(X.dtype), n)
    assert back.dtype == dt
    assert rel_err(back, np.fft.irfft(ref_spec, n)) <= _tol(dt, n) * 4


@pytest.mark.parametrize("n, m", [(8, 5), (8, 12), (100, 64), (7, 7)])
def test_fft_pads_and_cuts_like_numpy(n, m, rng):
    x = rng.standard_normal(n) + 1j * rng.standard_normal(n)
    assert rel_err(vrxs.fft(x, m), np.fft.fft(x, m)) < 1e-13
    assert rel_err(vrxs.rfft(x.real, m), np.fft.rfft(x.real, m)) < 1e-13


def test_fft_rows_of_a_matrix(rng):
    x = rng.standard_normal((3, 48))
    assert rel_err(vrxs.fft(x), np.fft.fft(x)) < 1e-13
    assert vrxs.fft(x.astype(np.float32)).dtype == np.complex64


@pytest.mark.parametrize("n", [1, 2, 3, 4, 8, 10, 16, 36, 45, 46, 64, 100, 257, 1024])
@pytest.mark.parametrize("dt", [np.float32, np.float64])
def test_dct_orthonormal(n, dt, rng):
    x = rng.standard_normal(n).astype(dt)
    ref = scipy.fft.dct(x.astype(np.float64), norm="ortho")
    assert rel_err(vrxs.dct(x), ref) <= _tol(dt, n) * 2
    assert rel_err(vrxs.idct(x), scipy.fft.idct(x.astype(np.float64), norm="ortho")) <= _tol(dt, n) * 2


def test_dct_other_types_are_refused():
    with pytest.raises(ValueError):
        vrxs.dct([1.0, 2.0, 3.0], type=1)


@pytest.mark.parametrize("n", [2, 3, 8, 15, 64, 100, 1000, 1024])
@pytest.mark.parametrize("dt", [np.float32, np.float64])
def test_hilbert(n, dt, rng):
    x = rng.standard_normal(n).astype(dt)
    y = vrxs.hilbert(x)
    assert y.dtype == (np.complex64 if dt == np.float32 else np.complex128)
    assert rel_err(y, scipy.signal.hilbert(x.astype(np.float64))) <= _tol(dt, n) * 4


@pytest.mark.parametrize("n", [1, 2, 5, 16, 100, 1000])
@pytest.mark.parametrize("dt", [np.float32, np.float64, np.complex64, np.complex128])
@pytest.mark.parametrize("f", [0.0, 0.1, 0.37, 0.75])
def test_goertzel_phase_one_step_past_the_last_sample(n, dt, f, rng):
    """The library's Goertzel value is the DFT bin times exp(i t N), t = 2 pi
    f: its phase is advanced one step past the last sample, where the DFT's
    refers to the first. The error bound is the documented
    4 N u sum|x| / sin^2(t) (capped where sin(t) is near 0)."""
    x = rng.standard_normal(n)
    if np.issubdtype(dt, np.complexfloating):
        x = x + 1j * rng.standard_normal(n)
    x = x.astype(dt)
    t = 2 * np.pi * f
    k = np.arange(n)
    ref = np.exp(1j * t * n) * np.sum(x.astype(np.complex128) * np.exp(-1j * t * k))
    u = 2.0 ** -24 if dt in (np.float32, np.complex64) else 2.0 ** -53
    bound = 4 * n * u * np.sum(np.abs(x)) / max(np.sin(t) ** 2, 0.05) + 4 * u * abs(ref)
    assert abs(vrxs.goertzel(x, f) - ref) <= bound


def test_plans_are_kept(rng):
    from vrxs import transforms
    vrxs.fft(np.ones(64, np.complex64))
    p = transforms.plan(64, "C", np.complex64, None)
    vrxs.fft(np.ones(64, np.complex64))
    assert transforms.plan(64, "C", np.complex64, None) is p
