"""vrxs from Python: the vrx signal-processing library through ctypes.

Two levels:
  vrxs.lib        every export, bound from the build's export table, e.g.
                  vrxs.lib.vrxsAdd_32f(p1, p2, pDst, n); pointers are int
                  addresses (vrxs.addr(array)) or None; a negative status
                  raises VrxsError, a positive one warns VrxsWarning
  NumPy layer     fft, ifft, rfft, irfft, dct, idct, hilbert, goertzel,
                  convolve, correlate, firwin, FirFilter, lfilter, IirFilter,
                  sosfilt, upfirdn, filtfilt, medfilt, butter, cheby1,
                  resample_poly, get_window, tone, triangle, RandUniform,
                  RandGauss, sum, mean, std, norm, dot, argmax, argmin,
                  add, sub, mul

The library is found through $VRXS_LIBRARY, the installed location or
build/lib of the source tree (see vrxs._lib).
"""

from ._status import STATUS, VrxsError, VrxsWarning, status_meaning, status_name
from ._core import addr
from ._lib import get_lib as _get_lib
from .transforms import (FourierPlan, dct, fft, goertzel, hilbert, idct, ifft, irfft, rfft)
from .filters import (FirFilter, IirFilter, convolve, correlate, firwin, lfilter, sosfilt,
                      upfirdn)
from .generators import (RandGauss, RandUniform, Tone, Triangle, get_window, normal, tone,
                         triangle, uniform)
from .stats import add, argmax, argmin, dot, mean, mul, norm, std, sub, sum
from .stats import max as vmax, min as vmin
from .design import (MissingExport, ResamplerFixed, butter, cheby1, filtfilt, medfilt,
                     resample_poly)

__version__ = "9.0.2"

__all__ = [
    "STATUS", "VrxsError", "VrxsWarning", "status_meaning", "status_name", "addr", "lib",
    "FourierPlan", "dct", "fft", "goertzel", "hilbert", "idct", "ifft", "irfft", "rfft",
    "FirFilter", "IirFilter", "convolve", "correlate", "firwin", "lfilter", "sosfilt", "upfirdn",
    "RandGauss", "RandUniform", "Tone", "Triangle", "get_window", "normal", "tone", "triangle",
    "uniform", "add", "argmax", "argmin", "dot", "mean", "mul", "norm", "std", "sub", "sum",
    "vmax", "vmin", "MissingExport", "ResamplerFixed", "butter", "cheby1", "filtfilt", "medfilt",
    "resample_poly",
]


def __getattr__(name):
    if name == "lib":
        return _get_lib()
    raise AttributeError("module 'vrxs' has no attribute %r" % name)
