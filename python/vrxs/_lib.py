"""Low-level bindings: every export of libvrxsn0, typed from the build's table.

The build writes the table (vrxs_table.json) while it parses the public header
for the export stubs, so a new export reaches Python with no hand work. Each
binding is made on first use and cached; ``lib.vrxsAdd_32f(...)`` calls the C
function, raises VrxsError on a negative status and warns VrxsWarning on a
positive one. ``lib.raw(name)`` gives the bare ctypes function.

Where things are found:
  library  $VRXS_LIBRARY, else the path recorded at install (_config.json),
           else build/lib of the source tree this package sits in, else the
           dynamic loader's search for libvrxsn0.so.9.0
  table    $VRXS_TABLE, else _table.json beside this file (installed copy),
           else gen/ and python/vrxs/ beside the library's lib/ directory,
           else build/gen of the source tree
"""

import ctypes
import json
import os
import warnings

from ._status import VrxsError, VrxsWarning

_HERE = os.path.dirname(os.path.abspath(__file__))
_TREE_BUILD = os.path.normpath(os.path.join(_HERE, "..", "..", "build"))
LIBNAME = "libvrxsn0.so.9.0"


class _Complex(ctypes.Structure):
    """Complex scalar passed by value; accepts a Python complex or a pair."""

    @classmethod
    def from_param(cls, obj):
        if isinstance(obj, cls):
            return obj
        if isinstance(obj, (tuple, list)):
            return cls(obj[0], obj[1])
        z = complex(obj)
        return cls(_cast(cls, z.real), _cast(cls, z.imag))

    def __complex__(self):
        return complex(self.re, self.im)


def _cast(cls, v):
    return int(round(v)) if cls._int else v


def _cplx(name, ctype, is_int):
    return type(name, (_Complex,), {"_fields_": [("re", ctype), ("im", ctype)], "_int": is_int})


Vrx8sc = _cplx("Vrx8sc", ctypes.c_int8, True)
Vrx16sc = _cplx("Vrx16sc", ctypes.c_int16, True)
Vrx32sc = _cplx("Vrx32sc", ctypes.c_int32, True)
Vrx64sc = _cplx("Vrx64sc", ctypes.c_int64, True)
Vrx32fc = _cplx("Vrx32fc", ctypes.c_float, False)
Vrx64fc = _cplx("Vrx64fc", ctypes.c_double, False)


class VrxLibraryVersion(ctypes.Structure):
    _fields_ = [("major", ctypes.c_int), ("minor", ctypes.c_int), ("majorBuild", ctypes.c_int),
                ("build", ctypes.c_int), ("targetCpu", ctypes.c_char * 4),
                ("Name", ctypes.c_char_p), ("Version", ctypes.c_char_p),
                ("BuildDate", ctypes.c_char_p)]


SCALARS = {
    "int": ctypes.c_int, "unsigned": ctypes.c_uint,
    "Vrx8u": ctypes.c_uint8, "Vrx8s": ctypes.c_int8,
    "Vrx16u": ctypes.c_uint16, "Vrx16s": ctypes.c_int16, "Vrx16f": ctypes.c_uint16,
    "Vrx32u": ctypes.c_uint32, "Vrx32s": ctypes.c_int32,
    "Vrx64u": ctypes.c_uint64, "Vrx64s": ctypes.c_int64,
    "Vrx32f": ctypes.c_float, "Vrx64f": ctypes.c_double,
    "Vrx8sc": Vrx8sc, "Vrx16sc": Vrx16sc, "Vrx32sc": Vrx32sc, "Vrx64sc": Vrx64sc,
    "Vrx32fc": Vrx32fc, "Vrx64fc": Vrx64fc,
}


def ctype_of(ctext):
    """ctypes type of a C type as the table writes it. Every pointer is a
    c_void_p (an int address, None for null); a named scalar the table does
    not list (VrxAlgHint, VrxWinType, ... and enums added later) is an int."""
    t = ctext.replace("const ", "").strip()
    if t.endswith("*"):
        return ctypes.c_void_p
    return SCALARS.get(t, ctypes.c_int)


def _restype(ctext):
    t = ctext.replace("const ", "").strip()
    if t == "VrxStatus":
        return ctypes.c_int
    if t == "void":
        return None
    if t == "VrxLibraryVersion*":
        return ctypes.POINTER(VrxLibraryVersion)
    if t.endswith("*"):
        return ctypes.c_void_p
    return ctype_of(t)


def _first(paths):
    for p in paths:
        if p and os.path.isfile(p):
            return p
    return None


def _config():
    try:
        with open(os.path.join(_HERE, "_config.json")) as f:
            return json.load(f)
    except OSError:
        return {}


def find_library():
    env = os.environ.get("VRXS_LIBRARY")
    if env:
        if not os.path.isfile(env):
            raise OSError("VRXS_LIBRARY names %s, which is not a file" % env)
        return env
    found = _first([_config().get("library"),
                    os.path.join(_TREE_BUILD, "lib", LIBNAME),
                    os.path.join(_TREE_BUILD, "lib", "libvrxsn0.so")])
    return found or LIBNAME


def find_table(library_path):
    libdir = os.path.dirname(os.path.abspath(library_path)) if os.sep in library_path else None
    cands = [os.environ.get("VRXS_TABLE"), os.path.join(_HERE, "_table.json")]
    if libdir:
        cands += [os.path.join(libdir, "..", "gen", "vrxs_table.json"),
                  os.path.join(libdir, "..", "python", "vrxs", "_table.json")]
    cands.append(os.path.join(_TREE_BUILD, "gen", "vrxs_table.json"))
    found = _first(cands)
    if not found:
        raise OSError("no export table (vrxs_table.json) found; build the library, "
                      "or set VRXS_TABLE")
    return found


class Export:
    """One row of the export table."""
    __slots__ = ("name", "restype", "args")

    def __init__(self, row):
        self.name, self.restype, args = row
        self.args = [tuple(a) for a in args]

    @property
    def argnames(self):
        return [a[1] for a in self.args]

    @property
    def argtypes(self):
        return [a[0] for a in self.args]

    def __repr__(self):
        return "%s %s(%s)" % (self.restype, self.name,
                              ", ".join("%s %s" % a for a in self.args))


def _checked(fn, name):
    def call(*args):
        st = fn(*args)
        if st:
            if st < 0:
                raise VrxsError(st, name)
            warnings.warn(VrxsWarning(st, name), stacklevel=2)
        return st
    call.__name__ = name
    call.raw = fn
    return call


class Library:
    """The loaded library. Attribute access binds an export (once)."""

    def __init__(self, path=None, table=None):
        self.path = path or find_library()
        self.cdll = ctypes.CDLL(self.path)
        self.table_path = table or find_table(self.path)
        with open(self.table_path) as f:
            rows = json.load(f)
        self.exports = {r[0]: Export(r) for r in rows}
        self._raw = {}

    def has(self, name):
        """Whether the library exports name (the table lists it and the
        symbol resolves)."""
        if name not in self.exports:
            return False
        try:
            getattr(self.cdll, name)
        except AttributeError:
            return False
        return True

    def raw(self, name):
        fn = self._raw.get(name)
        if fn is None:
            ex = self.exports.get(name)
            if ex is None:
                raise AttributeError("the library has no export %s" % name)
            fn = getattr(self.cdll, name)
            fn.restype = _restype(ex.restype)
            fn.argtypes = [ctype_of(t) for t in ex.argtypes]
            self._raw[name] = fn
        return fn

    def bind(self, name):
        ex = self.exports.get(name)
        if ex is None:
            raise AttributeError("the library has no export %s" % name)
        fn = self.raw(name)
        f = _checked(fn, name) if ex.restype == "VrxStatus" else fn
        setattr(self, name, f)
        return f

    def bind_all(self):
        """Binds every export; returns the count."""
        for n in self.exports:
            if n not in self.__dict__:
                self.bind(n)
        return len(self.exports)

    def __getattr__(self, name):
        if name.startswith("vrxs"):
            return self.bind(name)
        raise AttributeError(name)

    def __dir__(self):
        return sorted(set(super().__dir__()) | set(self.exports))

    def version(self):
        v = self.raw("vrxsGetLibVersion")().contents
        return {"major": v.major, "minor": v.minor, "majorBuild": v.majorBuild,
                "build": v.build, "name": v.Name.decode(), "version": v.Version.decode(),
                "buildDate": v.BuildDate.decode()}


_lib = None


def get_lib():
    global _lib
    if _lib is None:
        _lib = Library()
    return _lib
