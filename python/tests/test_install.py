"""An installed copy: cmake --install into a scratch prefix, then the package
imported from there alone finds the installed library and table."""

import os
import re
import shutil
import subprocess
import sys

import pytest


def _build_dir():
    lib = os.environ.get("VRXS_LIBRARY")
    if not lib:
        return None
    d = os.path.normpath(os.path.join(os.path.dirname(os.path.abspath(lib)), ".."))
    return d if os.path.isfile(os.path.join(d, "CMakeCache.txt")) else None


def _python_dir(build):
    with open(os.path.join(build, "CMakeCache.txt")) as f:
        m = re.search(r"^VRX_PYTHON_DIR:PATH=(.*)$", f.read(), re.M)
    return m.group(1) if m else None


@pytest.mark.skipif(_build_dir() is None or shutil.which("cmake") is None,
                    reason="needs VRXS_LIBRARY in a CMake build tree and cmake")
def test_installed_package_finds_its_library(tmp_path):
    build = _build_dir()
    pydir = _python_dir(build)
    if not pydir or os.path.isabs(pydir):
        pytest.skip("VRX_PYTHON_DIR is absolute: an install would leave the scratch prefix")
    prefix = tmp_path / "prefix"
    subprocess.run(["cmake", "--install", build, "--prefix", str(prefix)], check=True,
                   stdout=subprocess.DEVNULL, timeout=120)
    env = {k: v for k, v in os.environ.items() if not k.startswith(("VRXS_", "PYTHONPATH"))}
    env["PYTHONPATH"] = str(prefix / pydir)
    code = ("import vrxs, numpy as np; print(vrxs.lib.path); print(vrxs.lib.table_path); "
            "print(abs(vrxs.fft(np.arange(8.0)) - np.fft.fft(np.arange(8.0))).max())")
    out = subprocess.run([sys.executable, "-c", code], check=True, env=env, cwd=str(tmp_path),
                         capture_output=True, text=True, timeout=60).stdout.split()
    assert out[0].startswith(str(prefix)) and out[0].endswith("libvrxsn0.so.9.0")
    assert out[1] == str(prefix / pydir / "vrxs" / "_table.json")
    assert float(out[2]) < 1e-12
