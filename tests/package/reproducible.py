#!/usr/bin/env python3
"""Whether the package comes out the same, byte for byte, when a copy of the sources elsewhere is built.

    reproducible.py PACKAGE SOURCES [CMAKE_OPTION...]

The copy lies deeper, is no git repository, and is built in a folder that is not below it. The options are
those that PACKAGE was built with.
"""

import pathlib
import shutil
import subprocess
import sys
import tempfile
import zipfile

NEEDED = ("CMakeLists.txt", "cmake", "src", "catalog", "docs", "tools")


def copy(sources: pathlib.Path, target: pathlib.Path) -> None:
    target.mkdir(parents=True)
    for name in NEEDED:
        if (sources / name).is_dir():
            shutil.copytree(sources / name, target / name, ignore=shutil.ignore_patterns("__pycache__"))
        else:
            shutil.copy(sources / name, target / name)


def build(sources: pathlib.Path, folder: pathlib.Path, options: list[str]) -> None:
    """Raises `CalledProcessError` when it cannot be built."""
    toolchain = sources / "cmake/windows-toolchain.cmake"
    configure = ["cmake", "-S", sources, "-B", folder, "-G", "Ninja", f"-DCMAKE_TOOLCHAIN_FILE={toolchain}"]
    for command in ([*configure, "-DKVX_TESTS=OFF", *options],
                    ["cmake", "--build", folder, "--target", "kvx_package"]):
        subprocess.run(command, check=True, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, text=True)


def differences(one: pathlib.Path, other: pathlib.Path) -> list[str]:
    """Which files differ; what else does, where none differs."""
    if one.read_bytes() == other.read_bytes():
        return []
    with zipfile.ZipFile(one) as first, zipfile.ZipFile(other) as second:
        names = sorted({*first.namelist(), *second.namelist()})
        found = [name for name in names if name not in first.namelist() or name not in second.namelist()
                 or first.read(name) != second.read(name)]
    return [f"{name} differs" for name in found] or ["the files are the same, but not the archives"]


def main() -> int:
    package, sources = (pathlib.Path(argument).absolute() for argument in sys.argv[1:3])
    other = package.with_suffix(".other.zip")  # to look at, when this time it differs
    other.unlink(missing_ok=True)
    with tempfile.TemporaryDirectory(prefix="kvxinfo-") as temporary:
        elsewhere = pathlib.Path(temporary) / "quite/another/place" / "with a blank"
        folder = pathlib.Path(temporary) / "out"
        copy(sources, elsewhere)
        try:
            build(elsewhere, folder, sys.argv[3:])
        except subprocess.CalledProcessError as failure:
            print(f"The copy cannot be built:\n{failure.stdout}")
            return 1
        found = differences(package, folder / package.name)
        if found:
            shutil.copy(folder / package.name, other)
    for difference in found:
        print(difference)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
