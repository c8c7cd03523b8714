"""Builds the module Cindrel with CMake and installs it with the package cindrel_cluster.

    pip install --no-build-isolation .

CINDREL_BUILD_DIR names a CMake build folder to build in (and reuse); by default a folder of its
own under build-python/. CINDREL_CMAKE_ARGS adds options to its first configure.
"""
import glob
import os
import re
import shlex
import shutil
import subprocess
import sys

from setuptools import Extension, setup
from setuptools.command.build_ext import build_ext

SOURCE_DIR = os.path.dirname(os.path.abspath(__file__))


def project_version():
    with open(os.path.join(SOURCE_DIR, "CMakeLists.txt")) as stream:
        return re.search(r"project\(Cindrel VERSION ([0-9.]+)", stream.read()).group(1)


class CMakeBuild(build_ext):
    """The module is a target of the CMake build; this runs that build and takes its file."""

    def build_extension(self, ext):
        build_dir = os.environ.get("CINDREL_BUILD_DIR") or os.path.join(
            SOURCE_DIR, "build-python", "cmake")
        if not os.path.exists(os.path.join(build_dir, "CMakeCache.txt")):
            command = ["cmake", "-S", SOURCE_DIR, "-B", build_dir,
                       "-DCMAKE_BUILD_TYPE=Release", "-DCINDREL_PYTHON_EXECUTABLE=" + sys.executable,
                       "-DCINDREL_BENCH=OFF"]
            if shutil.which("ninja"):
                command += ["-G", "Ninja"]
            command += shlex.split(os.environ.get("CINDREL_CMAKE_ARGS", ""))
            self.announce("configuring the module's build in " + build_dir, level=2)
            subprocess.check_call(command)
        self.announce("building the module (a few minutes on a fresh build)", level=2)
        subprocess.check_call(["cmake", "--build", build_dir, "--target", "Cindrel"])
        built = sorted(glob.glob(os.path.join(build_dir, "Cindrel*.so")) +
                       glob.glob(os.path.join(build_dir, "Cindrel*.pyd")))
        if not built:
            raise RuntimeError("the CMake build left no module Cindrel in " + build_dir)
        target = self.get_ext_fullpath(ext.name)
        os.makedirs(os.path.dirname(target), exist_ok=True)
        shutil.copyfile(built[0], target)


# setuptools' own build folders and metadata stay out of the CMake build folder and the sources.
os.makedirs(os.path.join(SOURCE_DIR, "build-python"), exist_ok=True)

setup(
    name="cindrel",
    version=project_version(),
    description="Turns the rendering engine's binary material and render-options files into "
                "their XML asset text.",
    package_dir={"": "python"},
    packages=["cindrel_cluster"],
    ext_modules=[Extension("Cindrel", sources=[])],
    cmdclass={"build_ext": CMakeBuild},
    options={"build": {"build_base": "build-python"}, "egg_info": {"egg_base": "build-python"}},
    python_requires=">=3.8",
    zip_safe=False,
)
