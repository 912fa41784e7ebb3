"""Builds the extension with CMake, beside the library in the folder above.

TBVNONPARA_BUILD names a build that has it already, such as build/release.
"""

import os
import shutil
import subprocess
import sys
from pathlib import Path

from setuptools import Extension, setup
from setuptools.command.build_ext import build_ext

ROOT = Path(__file__).resolve().parent.parent


class CMakeBuild(build_ext):
    """One target of the project's own build."""

    def build_extension(self, ext):
        build = Path(os.environ.get("TBVNONPARA_BUILD", ROOT / "build" / "pip"))
        if "TBVNONPARA_BUILD" not in os.environ:
            subprocess.run(["cmake", "--preset", "release", "-S", str(ROOT), "-B", str(build),
                            "-DTBVNONPARA_BUILD_PYTHON=ON", f"-DPython_EXECUTABLE={sys.executable}"], check=True, cwd=ROOT)
            subprocess.run(["cmake", "--build", str(build), "--target", "tbvnonpara_python", "--parallel"], check=True)
        target = Path(self.get_ext_fullpath(ext.name))
        target.parent.mkdir(parents=True, exist_ok=True)
        made = list((build / "python" / "tbvnonpara").glob("_engine.*.so"))
        if not made:
            sys.exit(f"There is no extension in {build}: it needs pybind11-dev and python3-dev.")
        shutil.copy2(made[0], target)


setup(ext_modules=[Extension("tbvnonpara._engine", sources=[])], cmdclass={"build_ext": CMakeBuild})
