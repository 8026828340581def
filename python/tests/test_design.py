"""Zero-phase filtering, median filtering, IIR design and polyphase
resampling against scipy.signal. Each test skips while the library lacks
the family it calls."""

import warnings

import numpy as np
import pytest
import scipy.signal as ss

import vrxs
from conftest import rel_err, requires

IIRIIR = requires("vrxsIIRIIRGetStateSize_64f", "vrxsIIRIIRInit_64f", "vrxsIIRIIR_64f",
                  "vrxsIIRIIRGetStateSize64f_32f", "vrxsIIRIIRInit64f_32f", "vrxsIIRIIR64f_32f")
MEDIAN = requires("vrxsFilterMedianGetBufferSize", "vrxsFilterMedian_32f")
IIRGEN = requires("vrxsIIRGenLowpass_64f", "vrxsIIRGenHighpass_64f")
IIRGEN_BAND = requires("vrxsIIRGenBandpass_64f", "vrxsIIRGenBandstop_64f")
RESAMPLE = requires("vrxsResamplePolyphaseFixedGetSize_32f", "vrxsResamplePolyphaseFixedInit_32f",
                    "vrxsResamplePolyphaseFixed_32f", "vrxsResamplePolyphaseGetFixedFilter_32f")


@IIRIIR
@pytest.mark.parametrize("order, wn", [(1, 0.3), (2, 0.1), (4, 0.25), (8, 0.4)])
@pytest.mark.parametrize("n", ["3N", 50, 1000])
@pytest.mark.parametrize("dt", [np.float32, np.float64])
def test_filtfilt(order, wn, n, dt, rng):
    """The library pads by 3*order (scipy's default is 3*(order+1)): the
    reference passes that pad length."""
    b, a = ss.butter(order, wn)
    n = 3 * order if n == "3N" else n
    x = rng.standard_normal(n).astype(dt)
    ref = ss.filtfilt(b, a, x.astype(np.float64), padtype="odd", padlen=min(3 * order, n - 1))
    y = vrxs.filtfilt(b, a, x)
    assert y.dtype == dt
    assert rel_err(y, ref) <= (1e-5 if dt == np.float32 else 1e-10)


@IIRIIR
def test_filtfilt_too_short():
    b, a = ss.butter(4, 0.2)
    with pytest.raises(vrxs.VrxsError) as info:
        vrxs.filtfilt(b, a, np.ones(11))
    assert info.value.name == "vrxErrIirIirLength"


@MEDIAN
@pytest.mark.parametrize("k", [1, 3, 5, 7, 31, 101])
@pytest.mark.parametrize("dt", [np.uint8, np.uint16, np.int16, np.float32, np.float64])
@pytest.mark.parametrize("n", [1, 10, 1000])
def test_medfilt(k, dt, n, rng):
    if np.issubdtype(dt, np.integer):
        info = np.iinfo(dt)
        x = rng.integers(info.min, info.max, n, endpoint=True).astype(dt)
    else:
        x = rng.standard_normal(n).astype(dt)
    with warnings.catch_warnings():
        warnings.simplefilter("ignore")      # scipy warns when k exceeds n
        ref = ss.medfilt(x.astype(np.float64), k)
    y = vrxs.medfilt(x, k)
    assert y.dtype == dt
    np.testing.assert_array_equal(y.astype(np.float64), ref)


@MEDIAN
def test_medfilt_even_kernel_warns_and_runs_one_shorter(rng):
    x = rng.standard_normal(200)
    with pytest.warns(vrxs.VrxsWarning) as rec:
        y = vrxs.medfilt(x, 4)
    assert rec[0].message.name == "vrxWarnEvenMedianMask"
    np.testing.assert_array_equal(y, ss.medfilt(x, 3))     # the mask ran as 3


@IIRGEN
@pytest.mark.parametrize("order", list(range(1, 13)))
@pytest.mark.parametrize("btype", ["low", "high"])
@pytest.mark.parametrize("wn", [0.05, 0.3, 0.8])
@pytest.mark.parametrize("kind", ["butter", "cheby1"])
def test_iir_design(order, btype, wn, kind):
    if kind == "butter":
        ref, got = ss.butter(order, wn, btype), vrxs.butter(order, wn, btype)
    else:
        ref, got = ss.cheby1(order, 1.0, wn, btype), vrxs.cheby1(order, 1.0, wn, btype)
    for r, g in zip(ref, got):
        assert g.shape == r.shape
        assert np.max(np.abs(g - r)) <= 1e-9 * np.max(np.abs(r))


@IIRGEN
@pytest.mark.parametrize("call, name", [
    (lambda: vrxs.butter(13, 0.2), "vrxErrIirGenOrder"),
    (lambda: vrxs.butter(0, 0.2), "vrxErrIirGenOrder"),
    (lambda: vrxs.butter(4, 1.0), "vrxErrIirGenFreq"),
    (lambda: vrxs.cheby1(4, 0.0, 0.2), "vrxErrIirGenPassband"),
    (lambda: vrxs.cheby1(4, 31.0, 0.2), "vrxErrIirGenPassband"),
])
def test_iir_design_statuses(call, name):
    with pytest.raises(vrxs.VrxsError) as info:
        call()
    assert info.value.name == name


@IIRGEN_BAND
@pytest.mark.parametrize("order", [1, 2, 5])
@pytest.mark.parametrize("btype", ["bandpass", "bandstop"])
@pytest.mark.parametrize("kind", ["butter", "cheby1"])
def test_iir_band_design(order, btype, kind):
    wn = [0.2, 0.5]
    if kind == "butter":
        ref, got = ss.butter(order, wn, btype), vrxs.butter(order, wn, btype)
    else:
        ref, got = ss.cheby1(order, 0.5, wn, btype), vrxs.cheby1(order, 0.5, wn, btype)
    for r, g in zip(ref, got):
        assert np.max(np.abs(g - r)) <= 1e-9 * np.max(np.abs(r))


@RESAMPLE
@pytest.mark.parametrize("up, down", [(3, 2), (2, 3), (1, 4), (5, 1), (160, 147)])
@pytest.mark.parametrize("n", [1, 50, 2000])
def test_resample_poly(up, down, n, rng):
    x = rng.standard_normal(n).astype(np.float32)
    ref = ss.resample_poly(x.astype(np.float64), up, down)
    y = vrxs.resample_poly(x, up, down)
    assert y.shape == ref.shape
    assert rel_err(y, ref) <= 2e-5


@RESAMPLE
@pytest.mark.parametrize("up, down, half_len, beta", [(3, 2, 10, 5.0), (2, 3, 4, 8.0), (7, 5, 6, 2.0)])
def test_fixed_resampler_taps_and_pieces(up, down, half_len, beta, rng):
    r = vrxs.ResamplerFixed(up, down, half_len, 1.0, beta)
    m = max(up, down)
    ref_taps = up * ss.firwin(2 * half_len * m + 1, 1.0 / m, window=("kaiser", beta))
    assert rel_err(r.taps, ref_taps) <= 2e-6
    x = rng.standard_normal(999).astype(np.float32)
    pieces = np.concatenate([r(x[:1]), r(x[1:400]), r(x[400:])])
    ref = ss.upfirdn(ref_taps, x.astype(np.float64), up, down)
    assert rel_err(pieces, ref[:pieces.shape[0]]) <= 2e-5
    assert pieces.shape[0] == -(-999 * up // down)
