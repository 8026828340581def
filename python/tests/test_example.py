"""The plotting example runs and writes its PNG (skipped without matplotlib)."""

import importlib.util
import os
import subprocess
import sys

import pytest

EXAMPLE = os.path.join(os.path.dirname(__file__), "..", "..", "examples", "python", "filter_chirp.py")


@pytest.mark.skipif(importlib.util.find_spec("matplotlib") is None,
                    reason="matplotlib is not installed (Debian: python3-matplotlib)")
def test_filter_chirp_example(tmp_path):
    out = tmp_path / "chirp.png"
    env = dict(os.environ, MPLCONFIGDIR=str(tmp_path))
    env["PYTHONPATH"] = os.pathsep.join([os.path.join(os.path.dirname(__file__), ".."),
                                         env.get("PYTHONPATH", "")])
    subprocess.run([sys.executable, EXAMPLE, str(out)], check=True, env=env, timeout=120,
                   stdout=subprocess.DEVNULL)
    with open(out, "rb") as f:
        assert f.read(8) == b"\x89PNG\r\n\x1a\n"
