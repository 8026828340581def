"""Helpers of the NumPy layer: type suffixes, addresses, owned memory."""

import ctypes

import numpy as np

from ._lib import get_lib

SUFFIX = {
    np.dtype(np.uint8): "8u", np.dtype(np.int8): "8s",
    np.dtype(np.uint16): "16u", np.dtype(np.int16): "16s",
    np.dtype(np.uint32): "32u", np.dtype(np.int32): "32s",
    np.dtype(np.uint64): "64u", np.dtype(np.int64): "64s",
    np.dtype(np.float32): "32f", np.dtype(np.float64): "64f",
    np.dtype(np.complex64): "32fc", np.dtype(np.complex128): "64fc",
}
# data-type selectors of the size queries
DATATYPE = {"8u": 1, "16u": 5, "16s": 7, "32u": 9, "32s": 11,
            "32f": 13, "32fc": 14, "64f": 19, "64fc": 20}

FLOATS = (np.dtype(np.float32), np.dtype(np.float64))
COMPLEX = (np.dtype(np.complex64), np.dtype(np.complex128))
CPLX_OF = {np.dtype(np.float32): np.dtype(np.complex64), np.dtype(np.float64): np.dtype(np.complex128)}
REAL_OF = {np.dtype(np.complex64): np.dtype(np.float32), np.dtype(np.complex128): np.dtype(np.float64)}


def lib():
    return get_lib()


def suffix(dtype):
    try:
        return SUFFIX[np.dtype(dtype)]
    except KeyError:
        raise TypeError("no element type of the library matches %s" % np.dtype(dtype)) from None


_char_from_buffer = ctypes.c_char.from_buffer
_addressof = ctypes.addressof


def addr(a):
    """Address of a contiguous array's first element (None for None).
    A writable array goes through ctypes' buffer view, several times faster
    than the array interface, which serves read-only and empty arrays."""
    if a is None:
        return None
    try:
        return _addressof(_char_from_buffer(a))
    except (TypeError, ValueError):
        return a.__array_interface__["data"][0]


def float_dtype(x, allow_complex=True):
    """The working dtype of x: float32/float64/complex64/complex128 kept,
    anything else (integers, bool) taken as float64."""
    dt = np.asarray(x).dtype
    if dt in FLOATS or (allow_complex and dt in COMPLEX):
        return dt
    if dt.kind == "c":
        return np.dtype(np.complex128)
    return np.dtype(np.float64)


def contig(x, dtype):
    return np.ascontiguousarray(x, dtype=dtype)


class Mem:
    """Bytes owned by Python for a library object or work buffer; never null
    and 64-byte aligned (the library needs no alignment, but it is fastest)."""
    __slots__ = ("arr", "ptr", "size")

    def __init__(self, size):
        size = max(int(size), 1)
        self.arr = np.zeros(size + 64, dtype=np.uint8)
        base = addr(self.arr)
        self.ptr = (base + 63) & ~63
        self.size = size


def out_int():
    return ctypes.c_int(0)


def ref(c):
    return ctypes.addressof(c)


def along_rows(fn, x, *args):
    """Applies a 1-D function to every row of x along its last axis."""
    x = np.asarray(x)
    if x.ndim <= 1:
        return fn(x, *args)
    flat = x.reshape(-1, x.shape[-1])
    rows = [fn(r, *args) for r in flat]
    return np.stack(rows).reshape(x.shape[:-1] + rows[0].shape)
