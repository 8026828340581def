"""Runs the package's cross-checks; exit status 77 (skipped) when the
interpreter lacks NumPy, SciPy or pytest."""

import importlib.util
import os
import sys

missing = [m for m in ("numpy", "scipy", "pytest") if importlib.util.find_spec(m) is None]
if missing:
    print("skipped: %s (Python %s) lacks %s; on Debian: apt-get install python3-numpy "
          "python3-scipy python3-pytest" % (sys.executable, sys.version.split()[0],
                                             ", ".join(missing)))
    sys.exit(77)

import pytest  # noqa: E402

here = os.path.dirname(os.path.abspath(__file__))
sys.exit(pytest.main(["-q", "-p", "no:cacheprovider", "-rs", here] + sys.argv[1:]))
