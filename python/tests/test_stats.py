"""Reductions and the scale-factor arithmetic against exact references."""

import numpy as np
import pytest

import vrxs

LENGTHS = [2, 3, 16, 17, 1000, 65537]


def _x(rng, n, dt):
    x = rng.standard_normal(n) * 10
    if np.issubdtype(dt, np.complexfloating):
        x = x + 1j * rng.standard_normal(n)
    return x.astype(dt)


@pytest.mark.parametrize("n", LENGTHS)
@pytest.mark.parametrize("dt", [np.float32, np.float64, np.complex64, np.complex128])
@pytest.mark.parametrize("fast", [False, True])
def test_sum_mean(n, dt, fast, rng):
    x = _x(rng, n, dt)
    exact = np.sum(x.astype(np.complex128))
    u = 2.0 ** -24 if dt in (np.float32, np.complex64) else 2.0 ** -53
    bound = 2 * u * (abs(exact) + 1e-6 * np.sum(np.abs(x))) + n * u * 1e-3 * np.sum(np.abs(x))
    assert abs(vrxs.sum(x, fast=fast) - exact) <= max(bound, 4 * u * np.sum(np.abs(x)))
    assert abs(vrxs.mean(x, fast=fast) - exact / n) <= max(bound, 4 * u * np.sum(np.abs(x))) / n


@pytest.mark.parametrize("n", LENGTHS)
@pytest.mark.parametrize("dt", [np.float32, np.float64])
@pytest.mark.parametrize("ddof", [0, 1])
def test_std(n, dt, ddof, rng):
    x = _x(rng, n, dt)
    ref = np.std(x.astype(np.float64), ddof=ddof)
    tol = 1e-5 if dt == np.float32 else 1e-12
    assert abs(vrxs.std(x, ddof=ddof) - ref) <= tol * ref


@pytest.mark.parametrize("n", LENGTHS)
@pytest.mark.parametrize("dt", [np.float32, np.float64, np.complex64, np.complex128])
@pytest.mark.parametrize("ord", [1, 2, np.inf])
def test_norm(n, dt, ord, rng):
    x = _x(rng, n, dt)
    ref = np.linalg.norm(x.astype(np.complex128), ord)
    tol = 1e-6 if dt in (np.float32, np.complex64) else 1e-13
    assert abs(vrxs.norm(x, ord) - ref) <= tol * ref


@pytest.mark.parametrize("n", LENGTHS)
@pytest.mark.parametrize("dt", [np.float32, np.float64, np.complex64, np.complex128])
def test_dot(n, dt, rng):
    a, b = _x(rng, n, dt), _x(rng, n, dt)
    ref = np.dot(a.astype(np.complex128), b.astype(np.complex128))
    u = 2.0 ** -24 if dt in (np.float32, np.complex64) else 2.0 ** -53
    assert abs(vrxs.dot(a, b) - ref) <= 4 * u * np.dot(np.abs(a), np.abs(b)) * max(1, np.log2(n))


@pytest.mark.parametrize("dt", [np.int16, np.int32, np.float32, np.float64])
@pytest.mark.parametrize("n", [1, 7, 1000])
def test_argmax_first_of_equals(dt, n, rng):
    x = (rng.standard_normal(n) * 100).astype(dt)
    x[n // 2] = x[-1] = np.max(x) + 1      # two equal maxima: the first counts
    x[n // 3] = x[n - 1 - n // 3] = np.min(x) - 1
    assert vrxs.argmax(x) == np.argmax(x)
    assert vrxs.argmin(x) == np.argmin(x)
    assert vrxs.vmax(x) == np.max(x) and vrxs.vmin(x) == np.min(x)


def _scaled(exact, scale, lo, hi):
    """Exact integer result times 2^-scale, nearest with ties to even, saturated."""
    v = np.asarray(exact, dtype=np.float64) * 2.0 ** -scale
    return np.clip(np.rint(v), lo, hi)


INT = [(np.int16, -32768, 32767), (np.uint8, 0, 255), (np.uint16, 0, 65535),
       (np.int32, -2 ** 31, 2 ** 31 - 1)]


@pytest.mark.parametrize("dt, lo, hi", INT)
@pytest.mark.parametrize("op", ["add", "sub", "mul"])
@pytest.mark.parametrize("scale", [-3, -1, 0, 1, 2, 7, 40])
def test_scaled_arithmetic(dt, lo, hi, op, scale, rng):
    if dt == np.int32 and op == "mul":
        limit = 2 ** 20     # products stay exact in the float64 reference
    else:
        limit = min(hi, 2 ** 30)
    a = rng.integers(max(lo, -limit), limit, 4000, endpoint=True).astype(dt)
    b = rng.integers(max(lo, -limit), limit, 4000, endpoint=True).astype(dt)
    a[:4] = [lo, hi, lo, hi]
    b[:4] = [lo, hi, hi, lo]
    exact = {"add": a.astype(np.int64) + b, "sub": a.astype(np.int64) - b,
             "mul": a.astype(np.int64) * b}[op]
    got = getattr(vrxs, op)(a, b, scale=scale)
    assert got.dtype == dt
    np.testing.assert_array_equal(got, _scaled(exact, scale, lo, hi).astype(dt))


@pytest.mark.parametrize("dt", [np.float32, np.float64, np.complex64, np.complex128])
@pytest.mark.parametrize("op", ["add", "sub", "mul"])
def test_float_arithmetic_is_exactly_rounded(dt, op, rng):
    a, b = _x(rng, 1000, dt), _x(rng, 1000, dt)
    ref = {"add": a + b, "sub": a - b, "mul": a * b}[op]
    got = getattr(vrxs, op)(a, b)
    if op == "mul" and np.issubdtype(dt, np.complexfloating):
        # complex products: each part is two products and a sum, rounded once each
        assert np.max(np.abs(got - ref)) <= 4 * np.finfo(dt).eps * np.max(np.abs(ref))
    else:
        np.testing.assert_array_equal(got, ref)


@pytest.mark.parametrize("scale", [0, 1, 3, -2])
def test_int16_sum_scaled(scale, rng):
    x = rng.integers(-300, 300, 50).astype(np.int16)
    assert vrxs.sum(x, scale=scale) == _scaled(int(x.astype(np.int64).sum()), scale, -32768, 32767)
