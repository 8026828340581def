"""Speed of the NumPy layer against the NumPy/SciPy function it mirrors, at
1 Ki and 1 Mi elements, in one run:

    PYTHONPATH=python /usr/bin/python3 python/bench.py [--quick]

Each figure is the median of three timings of repeated calls (plans, states
and filter objects made beforehand, as a user keeps them). ratio = reference
time / vrxs time: above 1 the library is faster. The first lines give the
per-call overhead of a bare binding (ctypes) and of the NumPy layer."""

import statistics
import sys
import timeit

import numpy as np
import scipy.fft
import scipy.signal as ss

import vrxs

QUICK = "--quick" in sys.argv
SIZES = [1 << 10, 1 << 20]


def timed(fn, budget=0.05 if QUICK else 0.2):
    n = 1
    while True:
        t = timeit.timeit(fn, number=n)
        if t >= budget / 4 or n >= 1 << 20:
            break
        n *= 4
    reps = [timeit.timeit(fn, number=n) / n for _ in range(3)]
    return statistics.median(reps)


def cases(n, rng):
    f32 = rng.standard_normal(n).astype(np.float32)
    f64 = rng.standard_normal(n)
    c64 = (f32 + 1j * rng.standard_normal(n)).astype(np.complex64)
    c128 = f64 + 1j * rng.standard_normal(n)
    odd = n - n // 40          # not a power of two: the DFT of any length
    c128o = c128[:odd].copy()
    taps = ss.firwin(64, 0.2)
    taps32 = taps.astype(np.float32)
    sos = ss.butter(8, 0.2, output="sos")
    i16a = rng.integers(-30000, 30000, n).astype(np.int16)
    i16b = rng.integers(-30000, 30000, n).astype(np.int16)
    fir = vrxs.FirFilter(taps32)
    iir = vrxs.IirFilter(sos=sos, dtype=np.float64)
    spec = scipy.fft.rfft(f32)
    out = [
        ("fft c64", lambda: vrxs.fft(c64), lambda: scipy.fft.fft(c64)),
        ("fft c128", lambda: vrxs.fft(c128), lambda: np.fft.fft(c128)),
        ("fft c128 N=%d" % odd, lambda: vrxs.fft(c128o), lambda: np.fft.fft(c128o)),
        ("rfft f32", lambda: vrxs.rfft(f32), lambda: scipy.fft.rfft(f32)),
        ("irfft f32", lambda: vrxs.irfft(spec, n), lambda: scipy.fft.irfft(spec, n)),
        ("dct f64 ortho", lambda: vrxs.dct(f64), lambda: scipy.fft.dct(f64, norm="ortho")),
        ("hilbert f32", lambda: vrxs.hilbert(f32), lambda: ss.hilbert(f32)),
        ("convolve f32, 64 taps", lambda: vrxs.convolve(f32, taps32), lambda: ss.convolve(f32, taps32)),
        ("correlate f64, 64", lambda: vrxs.correlate(f64, taps), lambda: ss.correlate(f64, taps)),
        ("FIR 64 taps f32 (lfilter)", lambda: fir(f32), lambda: ss.lfilter(taps32, [1.0], f32)),
        ("sosfilt order 8 f64", lambda: iir(f64), lambda: ss.sosfilt(sos, f64)),
        ("get_window hann", lambda: vrxs.get_window("hann", n), lambda: ss.get_window("hann", n)),
        ("tone f32", lambda: vrxs.tone(n, 0.01, dtype=np.float32),
         lambda: np.cos(2 * np.pi * 0.01 * np.arange(n, dtype=np.float32))),
        ("sum f32", lambda: vrxs.sum(f32), lambda: np.sum(f32)),
        ("std f64", lambda: vrxs.std(f64), lambda: np.std(f64, ddof=1)),
        ("norm L2 f32", lambda: vrxs.norm(f32), lambda: np.linalg.norm(f32)),
        ("dot f64", lambda: vrxs.dot(f64, f64), lambda: np.dot(f64, f64)),
        ("argmax f32", lambda: vrxs.argmax(f32), lambda: np.argmax(f32)),
        ("add i16 scale 1", lambda: vrxs.add(i16a, i16b, scale=1),
         lambda: np.rint((i16a.astype(np.int32) + i16b) * 0.5).astype(np.int16)),
    ]
    L = vrxs.lib
    if L.has("vrxsFilterMedian_32f"):
        out.append(("medfilt f32, 7", lambda: vrxs.medfilt(f32, 7), lambda: ss.medfilt(f32, 7)))
    if L.has("vrxsIIRIIR_64f"):
        b, a = ss.butter(4, 0.2)
        out.append(("filtfilt order 4 f64", lambda: vrxs.filtfilt(b, a, f64),
                    lambda: ss.filtfilt(b, a, f64, padlen=12)))
    if L.has("vrxsResamplePolyphaseFixed_32f"):
        out.append(("resample_poly 3/2 f32", lambda: vrxs.resample_poly(f32, 3, 2),
                    lambda: ss.resample_poly(f32, 3, 2)))
    return out


def main():
    rng = np.random.default_rng(1)
    L = vrxs.lib
    x = np.ones(1, np.float32)
    o = np.zeros(1, np.float32)
    px, po = vrxs.addr(x), vrxs.addr(o)
    raw, checked = L.raw("vrxsSum_32f"), L.vrxsSum_32f
    small = np.ones(16, np.float32)
    print("per-call overhead (us): bare ctypes binding %.2f, checked binding %.2f, "
          "vrxs.sum of 16 floats %.2f (numpy.sum %.2f)"
          % (timed(lambda: raw(px, 1, po, 0)) * 1e6, timed(lambda: checked(px, 1, po, 0)) * 1e6,
             timed(lambda: vrxs.sum(small)) * 1e6, timed(lambda: np.sum(small)) * 1e6))
    print()
    print("| operation | N | vrxs (us) | NumPy/SciPy (us) | ratio |")
    print("|---|---:|---:|---:|---:|")
    for n in SIZES:
        for name, mine, ref in cases(n, rng):
            mine()
            ref()
            tm, tr = timed(mine), timed(ref)
            print("| %s | %s | %.1f | %.1f | %.2f |" % (name, "1 Ki" if n == 1024 else "1 Mi",
                                                    tm * 1e6, tr * 1e6, tr / tm))
            sys.stdout.flush()
    absent = [f for f in ("vrxsFilterMedian_32f", "vrxsIIRIIR_64f", "vrxsResamplePolyphaseFixed_32f")
              if not L.has(f)]
    if absent:
        print("\nnot in this library, so not measured: %s" % ", ".join(absent))


if __name__ == "__main__":
    main()
