"""Designs a lowpass FIR filter, filters a noisy chirp with it and plots the
spectra of input and output into a PNG.

    PYTHONPATH=python python3 examples/python/filter_chirp.py [out.png]

(from a source tree with the library built in build/; an installed package
needs no PYTHONPATH). Needs matplotlib (Debian: python3-matplotlib)."""

import sys

import matplotlib
matplotlib.use("Agg")
import matplotlib.pyplot as plt  # noqa: E402
import numpy as np  # noqa: E402

import vrxs  # noqa: E402

fs = 48000.0
n = 1 << 15
t = np.arange(n) / fs
# a chirp sweeping 100 Hz to 20 kHz, plus seeded white noise
chirp = np.cos(2 * np.pi * (100 * t + (20000 - 100) / (2 * t[-1]) * t ** 2)).astype(np.float32)
noisy = chirp + vrxs.normal(n, 0.0, 0.3, seed=1, dtype=np.float32)

taps = vrxs.firwin(129, 4000.0, window="hamming", fs=fs)      # 4 kHz lowpass
lowpass = vrxs.FirFilter(taps, dtype=np.float32)
out = np.concatenate([lowpass(noisy[i:i + 4096]) for i in range(0, n, 4096)])  # streamed

win = vrxs.get_window("hann", n, dtype=np.float32)
freqs = np.arange(n // 2 + 1) * fs / n


def db(x):
    return 20 * np.log10(np.abs(vrxs.rfft(x * win)) / (n / 4) + 1e-9)


fig, ax = plt.subplots(figsize=(9, 4.5))
ax.plot(freqs / 1000, db(noisy), lw=0.5, label="noisy chirp")
ax.plot(freqs / 1000, db(out), lw=0.5, label="after the 129-tap lowpass at 4 kHz")
ax.set_xlabel("frequency (kHz)")
ax.set_ylabel("level (dB)")
ax.set_ylim(-100, 10)
ax.grid(alpha=0.3)
ax.legend(loc="upper right")
ax.set_title("vrxs: FIR design, streamed filtering and FFT from NumPy")
fig.tight_layout()
path = sys.argv[1] if len(sys.argv) > 1 else "filter_chirp.png"
fig.savefig(path, dpi=110)
print("wrote", path)
