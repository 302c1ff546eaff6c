#!/usr/bin/env python3
"""Whether the package is what it says it is.

    contents.py PACKAGE SOURCES BUILD
"""

import pathlib
import re
import sys

from package_check import problems


def keywords_of(register: str) -> list[str]:
    """The keywords of the reports, in their order."""
    found = re.findall(r'^ +(?:returns|prints) *\(L"(\w+)"', register, re.MULTILINE)
    if not found:
        raise ValueError("the register of the reports shows none")
    return found


def main() -> int:
    package, sources, build = (pathlib.Path(argument).absolute() for argument in sys.argv[1:])
    register = (sources / "src/main/report_register.cpp").read_text(encoding="utf-8")
    own_folders = [str(sources), str(build), "/usr/", "/tmp/", "/home/", "/root/"]
    found = problems(package, keywords_of(register), own_folders)
    for problem in found:
        print(problem)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
