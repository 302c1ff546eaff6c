#!/usr/bin/env python3
"""Every report of the register has its scenarios and its section in the documentation; every call that can be
made to fail does fail in a scenario, and in one of the very reports whose source calls it.

    register.py FOLDER    FOLDER: the project
"""

import pathlib
import re
import sys

import scenario_file
from scenario_failures import failing, operation_of

ROW = re.compile(r'^\s*(?:returns|prints)\s*\(L"(\w+)",', re.M)

OPERATION = re.compile(r'\{L"([\w:]+)"')

# The folders with the scenarios of what a source does; a source without a line has those of its own name.
FOLDERS = {
    "src/checker/listings.cpp": ["locusers", "domusers", "locgroups", "domgroups", "locusergr", "domusergr"],
    "src/checker/loglevel.cpp": ["clclog", "guilog", "infolog", "servicelog"],
    "src/checker/quota.cpp": ["allquota", "quota"],
    "src/checker/report_file.cpp": ["save"],
    "src/checker/version.cpp": ["version", "pelmora", "driver", "win", "ip"],
    "src/main/dispatcher.cpp": ["dispatcher"],
    "src/main/entry.cpp": ["start"],
    "src/main/front.cpp": ["start", "commandline", "save"],
    "src/main/report_register.cpp": ["locusers", "wincp", "cluster"],
    "src/program/start.cpp": ["start"],
}

# Methods of error records as well: they count as an operation only by their full name.
OF_ERRORS_TOO = ["mf_getValue", "mf_toString"]


def faults(project):
    return register_faults(project) + failure_faults(project)


def register_faults(project):
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


def failure_faults(project):
    """What can fail and is not seen to fail."""
    names = OPERATION.findall((project / "src/runtime/host/description/operation_names.cpp").read_text())
    if not names:
        return ["no operation that can fail was found"]
    shown = failing_by_folder(project / "tests/scenarios")
    found = [f"{name}: no scenario makes it fail" for name in names if not any(name in calls for calls in shown.values())]
    for folder in ("src/checker", "src/main"):
        for source in sorted((project / folder).glob("*.cpp")):
            path = source.relative_to(project).as_posix()
            folders = FOLDERS.get(path, [source.stem])
            for name in calls_in(source.read_text(), names):
                if not any(name in shown.get(folder, ()) for folder in folders):
                    found.append(f"{path}: no scenario of {', '.join(folders)} makes {name} fail")
    return found


def failing_by_folder(scenarios):
    shown = {}
    for path in scenarios.rglob("*.scenario"):
        calls = shown.setdefault(path.parent.relative_to(scenarios).as_posix(), set())
        calls.update(operation_of(call) for call in failing(scenario_file.read(path)))
    return shown


def calls_in(text, names):
    """The operations that a source calls: by their full name; by that of the method, where one class alone has
    it; or, for a constructor, by an object of the class."""
    methods = [name.rpartition("::")[2] for name in names]
    called = []
    for name, method in zip(names, methods):
        patterns = [rf"\b{re.escape(name)}\("]
        if name == f"{method}::{method}":
            patterns.append(rf"\b{method} \w+\(")
        elif "::" in name and methods.count(method) == 1 and method not in OF_ERRORS_TOO:
            patterns.append(rf"(->|\.){method}\(")
        if any(re.search(pattern, text) for pattern in patterns):
            called.append(name)
    return called


if __name__ == "__main__":
    wrong = faults(pathlib.Path(sys.argv[1]))
    print("\n".join(wrong) or "every report has its scenarios and its section, every call its failure")
    sys.exit(1 if wrong else 0)
