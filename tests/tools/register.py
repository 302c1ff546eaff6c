#!/usr/bin/env python3
"""Every report of the register has its scenarios and its section in the documentation, and nothing else has.

    register.py FOLDER    FOLDER: the project
"""

import pathlib
import re
import sys

ROW = re.compile(r'^\s*(?:returns|prints)\s*\(L"(\w+)",', re.M)


def faults(project):
    keywords = ROW.findall((project / "src/main/report_register.cpp").read_text())
    sections = re.findall(r"^## (\w+)$", (project / "docs/reports.md").read_text(), re.M)
    if not keywords:
        return ["no row of the register was found"]
    found = []
    for keyword in keywords:
        if not list((project / "tests/scenarios" / keyword).glob("*.scenario")):
            found.append(f"{keyword}: no scenario in tests/scenarios/{keyword}")
        if keyword not in sections:
            found.append(f"{keyword}: no section in docs/reports.md")
    if [section for section in sections if section in keywords] != [keyword for keyword in keywords if keyword in sections]:
        found.append("docs/reports.md: the sections are not in the order of the register")
    return found


if __name__ == "__main__":
    wrong = faults(pathlib.Path(sys.argv[1]))
    print("\n".join(wrong) or "every report has its scenarios and its section")
    sys.exit(1 if wrong else 0)
