"""The generated low-level layer: every export bound from the table, called
once with small arguments, statuses raised and warned with their names."""

import ctypes
import os
import re
import warnings

import numpy as np
import pytest

import vrxs
from vrxs._lib import ctype_of

L = vrxs.lib
HEADER = os.path.join(os.path.dirname(__file__), "..", "..", "include", "vrxs.h")


def header_exports():
    with open(HEADER) as f:
        return [m.group(1) for m in (re.match(r"^VRXAPI\([^,]+, *(vrxs\w+)", ln) for ln in f) if m]


def test_table_matches_header_and_library():
    names = header_exports()
    assert names == list(L.exports), "the table is stale: rebuild"
    assert L.bind_all() == len(names)
    for n in names:
        assert L.has(n), n


@pytest.mark.parametrize("name, args", [
    ("vrxsAdd_32f", ["const Vrx32f*", "const Vrx32f*", "Vrx32f*", "int"]),
    ("vrxsAddC_32fc", ["const Vrx32fc*", "Vrx32fc", "Vrx32fc*", "int"]),
    ("vrxsTone_64f", ["Vrx64f*", "int", "Vrx64f", "Vrx64f", "Vrx64f*", "VrxAlgHint"]),
    ("vrxsFFTInit_R_32f", ["VrxsFftPlan_R_32f**", "int", "int", "VrxAlgHint", "Vrx8u*", "Vrx8u*"]),
])
def test_table_rows(name, args):
    assert L.exports[name].argtypes == args


@pytest.mark.parametrize("ctext, ctype", [
    ("int", ctypes.c_int), ("Vrx16s", ctypes.c_int16), ("Vrx8u", ctypes.c_uint8),
    ("Vrx32f", ctypes.c_float), ("Vrx64f", ctypes.c_double), ("Vrx64u", ctypes.c_uint64),
    ("const Vrx32f*", ctypes.c_void_p), ("VrxsIirState**", ctypes.c_void_p),
    ("VrxAlgHint", ctypes.c_int), ("VrxSomeFutureEnum", ctypes.c_int),
])
def test_ctype_mapping(ctext, ctype):
    assert ctype_of(ctext) is ctype


# ------------------------------------------------- automatic smoke test

INTS = {"order": 3, "numBq": 1, "flag": 8, "hint": 0, "scaleFactor": 0, "rndMode": 1,
        "algType": 0, "dataType": 13, "tapsType": 13, "winType": 2, "doNormal": 1,
        "lowLag": 0, "bias": 0, "nChannels": 1, "maskSize": 3, "offset": 0, "cmpOp": 0,
        "upPhase": 0, "downPhase": 0, "phase": 0, "upFactor": 2, "downFactor": 1,
        "factor": 2, "seed": 1, "low": 0, "high": 10, "mean": 4, "stdDev": 2, "magn": 100,
        "val": 1, "level": 1, "value": 1, "up": 3, "down": 2, "halfLen": 2, "nPhases": 8,
        "nzTapsLen": 2, "type": 0}
FLOATS = {"rFreq": 0.125, "rLowFreq": 0.1, "rHighFreq": 0.3, "magn": 1.0, "asym": 0.0,
          "alpha": 0.5, "factor": 1.5, "rollf": 0.9, "beta": 5.0, "rRipple": 1.0,
          "mu": 0.01, "stdDev": 1.0, "high": 2.0}
LENGTHY = re.compile(r"(len|Len|numIters|length|Length)$")


def smoke_args(ex, objects, keep):
    args = []
    for ctext, pname in ex.args:
        t = ctext.replace("const ", "")
        if t.endswith("**") and t.startswith("Vrxs"):
            cell = ctypes.c_void_p(0)
            keep.append((t[:-1], cell))
            args.append(ctypes.addressof(cell))
        elif t.endswith("*") and t.startswith("Vrxs"):
            if t not in objects:
                mem = np.zeros(1 << 18, np.uint8)
                objects[t] = [mem, vrxs.addr(mem)]
            args.append(objects[t][1])
        elif t.endswith("*"):
            mem = np.zeros(1 << 16, np.uint8)
            keep.append((None, mem))
            args.append(vrxs.addr(mem))
        elif t in ("Vrx32f", "Vrx64f"):
            args.append(FLOATS.get(pname, 0.5))
        elif t.endswith("c") and t.startswith("Vrx"):
            args.append(complex(1, 0))
        elif LENGTHY.search(pname):
            args.append(8)
        else:
            args.append(INTS.get(pname, 1))
    return args


def test_every_binding_called_once():
    """Each export in table order with small valid-looking arguments: object
    Inits run before their users, so most calls succeed; any failure must be
    a status this package can name."""
    objects, results = {}, {}
    for name, ex in L.exports.items():
        keep = []
        if name.startswith("vrxsMalloc_"):
            p = getattr(L, name)(8)
            assert p
            L.vrxsFree(p)
            results[name] = 0
            continue
        if name == "vrxsFree":
            L.vrxsFree(None)
            results[name] = 0
            continue
        if name == "vrxsGetLibVersion":
            assert L.version()["major"] == 9
            results[name] = 0
            continue
        args = smoke_args(ex, objects, keep)
        with warnings.catch_warnings():
            warnings.simplefilter("ignore", vrxs.VrxsWarning)
            try:
                results[name] = getattr(L, name)(*args)
            except vrxs.VrxsError as e:
                assert e.name in vrxs.STATUS[e.status][0], name
                results[name] = e.status
        for t, cell in keep:
            if t and isinstance(cell, ctypes.c_void_p) and cell.value:
                # the object lives in one of this call's buffers (an FFT
                # plan in pSpecMem, an IIR state in pBuf): keep them all
                objects[t] = [keep, cell.value]
    assert len(results) == len(L.exports)
    unknown = {n: s for n, s in results.items() if s not in vrxs.STATUS}
    assert not unknown
    ok = sum(1 for s in results.values() if s >= 0)
    # most exports run to success on such arguments; the rest refuse them
    # with a named status (object kinds that do not match, and the like)
    assert ok >= 0.8 * len(results), "only %d of %d calls succeeded" % (ok, len(results))
    print("smoke: %d of %d calls succeeded" % (ok, len(results)))


# ------------------------------------------------ statuses by name

def _buf(n=64, dt=np.float32):
    return np.zeros(n, dt)


ERRORS = [
    ("vrxsSum_32f null source", lambda: L.vrxsSum_32f(None, 4, vrxs.addr(_buf()), 0), -8, "vrxErrNullPtr"),
    ("vrxsSum_32f zero length", lambda: L.vrxsSum_32f(vrxs.addr(_buf()), 0, vrxs.addr(_buf()), 0), -6, "vrxErrBadLength"),
    ("null before length", lambda: L.vrxsAdd_32f(None, vrxs.addr(_buf()), vrxs.addr(_buf()), -1), -8, "vrxErrNullPtr"),
    ("FFT flag", lambda: L.vrxsFFTGetSize_C_32fc(3, 3, 0, *[vrxs.addr(_buf(1, np.int32))] * 3), -16, "vrxErrFftFlag"),
    ("FFT order", lambda: L.vrxsFFTGetSize_C_32fc(29, 8, 0, *[vrxs.addr(_buf(1, np.int32))] * 3), -15, "vrxErrFftOrder"),
    ("Goertzel frequency", lambda: L.vrxsGoertz_32f(vrxs.addr(_buf()), 4, vrxs.addr(_buf()), 1.5), -27, "vrxErrRelFreq"),
    ("Tone magnitude", lambda: L.vrxsTone_32f(vrxs.addr(_buf()), 4, 0.0, 0.1, vrxs.addr(_buf()), 0), -46, "vrxErrToneMagn"),
    ("Threshold selector", lambda: L.vrxsThreshold_32f(vrxs.addr(_buf()), vrxs.addr(_buf()), 4, 0.0, 1), -5, "vrxErrBadArg"),
    ("Kaiser alpha", lambda: L.vrxsWinKaiser_32f_I(vrxs.addr(_buf()), 64, 10.0), -39, "vrxErrKaiserAlpha"),
    ("IIR order", lambda: L.vrxsIIRGetStateSize_32f(0, vrxs.addr(_buf(1, np.int32))), -25, "vrxErrIirOrder"),
    ("plan of another kind", lambda: L.vrxsFFTFwd_CToC_32fc(vrxs.addr(_buf()), vrxs.addr(_buf()), vrxs.addr(_buf(4096, np.uint8)), vrxs.addr(_buf())), -17, "vrxErrBadSpec"),
    ("algorithm selector", lambda: vrxs.convolve([1.0, 2.0], [1.0], method="direct") is not None and L.vrxsConvolve_32f(vrxs.addr(_buf()), 4, vrxs.addr(_buf()), 4, vrxs.addr(_buf()), 3, vrxs.addr(_buf())), -228, "vrxErrAlgType"),
    ("shift count", lambda: L.vrxsLShiftC_32s(vrxs.addr(_buf(8, np.int32)), -1, vrxs.addr(_buf(8, np.int32)), 4), -32, "vrxErrShift"),
]


@pytest.mark.parametrize("what, call, status, name", ERRORS, ids=[e[0] for e in ERRORS])
def test_error_raised_with_name(what, call, status, name):
    with pytest.raises(vrxs.VrxsError) as info:
        call()
    assert info.value.status == status
    assert info.value.name == name
    assert name in str(info.value) and info.value.meaning in str(info.value)


@pytest.mark.parametrize("what, call, status, name", [
    ("square root of a negative", lambda a, b: L.vrxsSqrt_32f(a, b, 4), 3, "vrxWarnSqrtNegArg"),
    ("division by a zero element", lambda a, b: L.vrxsDiv_32f(b, a, b, 4), 6, "vrxWarnDivByZero"),
])
def test_warning_with_name(what, call, status, name):
    a = np.array([-1.0, 4.0, 9.0, 16.0], np.float32)
    b = np.zeros(4, np.float32)
    with pytest.warns(vrxs.VrxsWarning) as rec:
        assert call(vrxs.addr(a), vrxs.addr(b)) == status
    assert rec[0].message.name == name and rec[0].message.status == status


def test_unknown_export_is_an_attribute_error():
    with pytest.raises(AttributeError):
        L.vrxsNoSuchFunction_32f


def header_statuses():
    with open(HEADER) as f:
        text = f.read()
    body = text[text.index("typedef int VrxStatus;"):]
    body = body[:body.index("};")]
    return {int(v): n for n, v in re.findall(r"\b(vrx(?:Ok|Warn\w+|Err\w+))\s*=\s*(-?\d+)", body)}


def test_status_table_matches_the_header():
    """Every status of the header's enum has its name here, and no other."""
    assert {v: n for v, (n, _) in vrxs.STATUS.items()} == header_statuses()
