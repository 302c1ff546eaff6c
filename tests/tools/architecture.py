#!/usr/bin/env python3
"""Checks that calls go one way: main -> checker -> runtime -> host.

architecture.py FOLDER   reads every #include below FOLDER, the sources,
                         prints each that must not be, and ends with 1 when there is one
"""

import re
import sys
from pathlib import Path

INCLUDE = re.compile(r'^\s*#\s*include\s*(?:"([^"]+)"|<([^>]+)>)')
SOURCES = {".cpp", ".h"}

# A storey is a folder of the sources; it may include itself and those that are listed.
STOREYS = {
    "runtime/host": [],
    "runtime": ["runtime/host", "catalog"],
    "checker": ["runtime", "runtime/host", "catalog"],
    "main": ["checker", "runtime", "runtime/host", "catalog"],
}
WINDOWS_HEADERS = re.compile(r"(windows|win\w+|lm\w*|tchar|ntsecapi|ds\w+|iphlpapi|clusapi|fltuser)\.h")
HOME_OF_WINDOWS = ("runtime/host/windows/", "runtime/host/os.h")


def storey_of(path: str) -> str | None:
    """The storey in which a path, relative to the sources, stands."""
    for storey in [*STOREYS, "catalog"]:
        if path.startswith(storey + "/"):
            return storey
    return None


def judge(file: str, included: str, quoted: bool) -> str:
    """Why `file` must not include `included`; empty when it may."""
    if not quoted:
        if WINDOWS_HEADERS.fullmatch(included.lower()) and not file.startswith(HOME_OF_WINDOWS):
            return f"<{included}> belongs below {HOME_OF_WINDOWS[0]} and into {HOME_OF_WINDOWS[1]} only"
        return ""
    own, other = storey_of(file), storey_of(included)
    if other is None:
        return f'"{included}" is not named by its path from the top of the sources'
    if own is not None and other != own and other not in STOREYS[own]:
        return f'{own} must not include "{included}" of {other}'
    return ""


def faults(sources: Path) -> list[str]:
    """Each include that must not be, as FILE:LINE: why."""
    found = []
    for path in sorted(path for path in sources.rglob("*") if path.suffix in SOURCES):
        file = path.relative_to(sources).as_posix()
        for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), start=1):
            include = INCLUDE.match(line)
            reason = judge(file, include[1] or include[2], include[1] is not None) if include else ""
            if reason:
                found.append(f"{file}:{number}: {reason}")
    return found


def main(arguments: list[str]) -> int:
    found = faults(Path(arguments[0]))
    print(*found, sep="\n", end="\n" if found else "")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
