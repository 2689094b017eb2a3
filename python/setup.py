"""Builds the corvane package with the project's version, from the project()
line of the CMakeLists.txt above this folder (the rest is in pyproject.toml).

Building the package also builds the two shared libraries with CMake, from the
source tree above this folder, and puts them and the installed materials into
the package; the wheel is then tagged for the platform. Libraries already
copied into corvane/ (as the test of the installation does, for speed) are
taken as they are and CMake is not run."""

import os
import pathlib
import runpy
import shutil
import subprocess

from setuptools import setup
from setuptools.command.build_py import build_py

HERE = pathlib.Path(__file__).resolve().parent
SOURCE_TREE = HERE.parent
# By path: importing the package would need numpy and the library.
_version = runpy.run_path(str(HERE / "corvane" / "_version.py"))
VERSION = _version["from_cmakelists"](SOURCE_TREE / "CMakeLists.txt")
if VERSION is None:
    raise SystemExit(
        "corvane: no project(Corvane VERSION ...) line in ../CMakeLists.txt; "
        "build the package from its place in Corvane's source tree"
    )

# The file names the package looks for, one library after the other, in the
# order the loader tries them (corvane/_library.py).
LIBRARIES = {
    "corvane": ("libcorvane.so.0", "corvane.dll", "libcorvane.0.dylib"),
    "corvane_strength": (
        "libcorvane_strength.so.0",
        "corvane_strength.dll",
        "libcorvane_strength.0.dylib",
    ),
}


def _found(folder, names):
    return next((folder / n for n in names if (folder / n).is_file()), None)


class BuildWithLibraries(build_py):
    """build_py, then the shared libraries and materials into the package."""

    def run(self):
        super().run()
        target = pathlib.Path(self.build_lib) / "corvane"
        if all(_found(HERE / "corvane", names) for names in LIBRARIES.values()):
            return  # copied in beforehand; build_py has taken them along
        build_temp = pathlib.Path(self.get_finalized_command("build").build_temp)
        built = self._cmake(build_temp.resolve() / "cmake")
        for names in LIBRARIES.values():
            library = next((p for n in names for p in built.rglob(n) if p.is_file()), None)
            if library is None:
                raise SystemExit(f"corvane: CMake built none of {', '.join(names)}")
            # The real file under the name the loader asks for, not a link.
            shutil.copyfile(library, target / library.name)
        materials = target / "materials"
        materials.mkdir(exist_ok=True)
        for material in sorted((SOURCE_TREE / "materials").glob("*.mat")):
            shutil.copyfile(material, materials / material.name)

    def _cmake(self, folder):
        cmake = shutil.which("cmake")
        if cmake is None:
            raise SystemExit(
                "corvane: building the package builds its shared libraries, "
                "which needs cmake and a C++20 compiler (Debian: cmake, g++)"
            )
        configure = [cmake, "-S", str(SOURCE_TREE), "-B", str(folder)]
        if "CMAKE_GENERATOR" not in os.environ and shutil.which("ninja"):
            configure += ["-G", "Ninja"]
        configure += [
            "-DCMAKE_BUILD_TYPE=Release",
            "-DCORVANE_BUILD_TESTS=OFF",
            "-DCORVANE_BUILD_TOOLS=OFF",
            "-DCORVANE_BUILD_BENCHMARKS=OFF",
            "-DCORVANE_PYTHON_TESTS=OFF",
        ]
        if not (folder / "CMakeCache.txt").is_file():
            self._run(configure)
        self._run(
            [cmake, "--build", str(folder), "--config", "Release", "--parallel"]
            + ["--target", *LIBRARIES]
        )
        return folder

    def _run(self, command):
        self.announce(" ".join(command), level=2)
        if subprocess.call(command) != 0:
            raise SystemExit(f"corvane: failed: {' '.join(command)}")


commands = {"build_py": BuildWithLibraries}
try:
    from wheel.bdist_wheel import bdist_wheel
except ImportError:  # no wheel package: pip installs without one
    pass
else:

    class PlatformWheel(bdist_wheel):
        """A wheel for this platform (it holds compiled libraries) but for any
        Python 3: ctypes does not depend on the interpreter's ABI."""

        def finalize_options(self):
            super().finalize_options()
            self.root_is_pure = False

        def get_tag(self):
            return ("py3", "none", super().get_tag()[2])

    commands["bdist_wheel"] = PlatformWheel

setup(version=VERSION, cmdclass=commands)
