"""What the linker put into the program besides the program's own code, from its map."""

import dataclasses
import pathlib
import re
import shutil
import subprocess

GCC = "https://gcc.gnu.org/"
GCC_LICENCE = "GPL-3.0-or-later WITH GCC-exception-3.1"

# Names the vendor of this system's packages.
ORIGIN = pathlib.Path("/etc/dpkg/origins/default")


@dataclasses.dataclass(frozen=True)
class Component:
    """One linked library. `package` is the package of this system that `version` belongs to, and `vendor`
    whose package that is; each may be empty."""

    name: str
    version: str
    package: str
    vendor: str
    licence: str
    homepage: str
    comment: str


@dataclasses.dataclass(frozen=True)
class _Kind:
    name: str
    files: str  # of the names without "lib" and ".a"
    licence: str
    homepage: str
    comment: str


_KINDS = (
    _Kind("libstdc++", r"stdc\+\+|supc\+\+", f"{GCC_LICENCE} AND LicenseRef-HP-SGI", GCC,
          "The C++ standard library of the compiler, linked statically."),
    _Kind("libgcc", r"gcc|gcc_eh|crtbegin\.o|crtend\.o|crtfastmath\.o", GCC_LICENCE, GCC,
          "The run-time support of the compiler, linked statically."),
    _Kind("libssp", r"ssp|ssp_nonshared", GCC_LICENCE, GCC,
          "The stack protector's support of the compiler, linked statically."),
    _Kind("winpthreads", r"winpthread|pthread", "MIT AND BSD-3-Clause", "https://www.mingw-w64.org/",
          "The POSIX threads of mingw-w64, linked statically."),
    _Kind("mingw-w64", r"mingw32|mingwex|mingwthrd|moldname|msvcrt|ucrt|ucrtbase|ucrtapp|d?crt2u?\.o|"
          r"kernel32|user32|gdi32|winspool|shell32|ole32|oleaut32|uuid|comdlg32|advapi32|ws2_32|ntdll",
          "ZPL-2.1 AND LicenseRef-Lucent AND LicenseRef-David-Gay AND LicenseRef-Keith-Marshall AND "
          "LicenseRef-mingw-w64-public-domain", "https://www.mingw-w64.org/",
          "The start-up code, the additions to the C run-time library and the import libraries of mingw-w64, "
          "linked statically."),
)

# Some compilers link a manifest into every program; the linker drops it where a program has its own.
_LEAVES_NOTHING = {"default-manifest.o"}

# A member that was needed, or an object named on the command line, by absolute path.
_MEMBER = re.compile(r"^((?:/|[A-Za-z]:[/\\])\S.*?\.a)\([^()]+\)$", re.MULTILINE)
_OBJECT = re.compile(r"^LOAD ((?:/|[A-Za-z]:[/\\])\S.*?\.o)$", re.MULTILINE)


def linked_files(link_map: str) -> list[pathlib.Path]:
    """The libraries of the system that something was taken from, and its start-up objects."""
    found = {pathlib.Path(name) for name in _MEMBER.findall(link_map) + _OBJECT.findall(link_map)}
    return sorted(file for file in found if file.name not in _LEAVES_NOTHING)


def kind_of(file: pathlib.Path) -> _Kind:
    """Raises `ValueError` for a file that nobody has told the origin of."""
    name = re.sub(r"^lib(.*)\.a$", r"\1", file.name)
    for kind in _KINDS:
        if re.fullmatch(kind.files, name):
            return kind
    raise ValueError(f"{file} became part of the program: components.py must say what it is")


def components(link_map: str, compiler: str) -> list[Component]:
    """The components, by name; raises `ValueError` as `kind_of` does, for one without a version, and for a
    map that shows none."""
    files = linked_files(link_map)
    if not files:
        raise ValueError("the linker's map shows nothing that was linked")
    kinds = {kind_of(file): file for file in reversed(files)}
    return [_component(kind, kinds[kind], compiler) for kind in sorted(kinds, key=lambda kind: kind.name)]


def _component(kind: _Kind, file: pathlib.Path, compiler: str) -> Component:
    package, version, vendor = _package_of(file) or ("", _version_by(compiler, kind), "")
    if not version:
        raise ValueError(f"nothing tells the version of {file}")
    return Component(kind.name, version, package, vendor, kind.licence, kind.homepage, kind.comment)


def _output(*command: str, given: str = "") -> str:
    """What the command prints; empty where it cannot."""
    if shutil.which(command[0]) is None:
        return ""
    done = subprocess.run(command, input=given, capture_output=True, text=True, check=False)
    return done.stdout.strip() if done.returncode == 0 else ""


def _vendor() -> str:
    if not ORIGIN.exists():
        return ""
    named = re.search(r"^Vendor: (.+)$", ORIGIN.read_text(encoding="utf-8"), re.MULTILINE)
    return named[1] if named else ""


def _package_of(file: pathlib.Path) -> tuple[str, str, str] | None:
    """The package that the file belongs to, its version and vendor, where the system keeps packages."""
    owner = _output("dpkg-query", "--search", str(file.resolve())).partition(": ")[0].partition(":")[0]
    version = _output("dpkg-query", "--show", "--showformat=${Version}", owner) if owner else ""
    if version:
        return owner, version, _vendor()
    words = _output("pacman", "-Qo", str(file)).split()
    return (words[-2], words[-1], "") if len(words) > 2 else None


def _version_by(compiler: str, kind: _Kind) -> str:
    """The version as the compiler and its headers tell it; empty where they do not."""
    if kind.homepage == GCC:
        return _output(compiler, "-dumpfullversion")
    source = "#include <_mingw.h>\n__MINGW64_VERSION_STR"
    preprocessed = _output(compiler, "-E", "-P", "-x", "c++", "-", given=source)
    return re.sub(r'["\s]', "", preprocessed.rpartition("\n")[2])
