import os
import sys

import numpy as np
import pytest

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), ".."))

import vrxs  # noqa: E402


def requires(*names):
    """Skips a test while the loaded library lacks one of the exports."""
    lib = vrxs.lib
    missing = [n for n in names if not lib.has(n)]
    return pytest.mark.skipif(bool(missing), reason="the library does not export %s yet"
                              % ", ".join(missing))


@pytest.fixture
def rng():
    return np.random.default_rng(20261124)


def rel_err(got, ref):
    got, ref = np.asarray(got), np.asarray(ref)
    scale = np.max(np.abs(ref)) if ref.size else 0.0
    return np.max(np.abs(got - ref)) / (scale if scale else 1.0) if ref.size else 0.0
