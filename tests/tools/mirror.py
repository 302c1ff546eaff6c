#!/usr/bin/env python3
"""Checks that the tests mirror the sources.

mirror.py FOLDER   compares FOLDER/tests with FOLDER/src and FOLDER/catalog, prints each of these, and ends
                   with 1 when there is one:
  - a source without a test, tests/PLACE/NAME_test.cpp or tests/PLACE/NAME_VARIANT_test.cpp, and without a
    reason in ELSEWHERE. A source is a .cpp file, or a header that has code and no .cpp file
  - a test without a source, and without a reason in OF_NO_SOURCE
  - a reason that nothing needs, or that names a place which is not there
"""

import re
import sys
from pathlib import Path

# Where sources are, and how their tests' places begin.
TOPS = {"src": "", "catalog": "catalog/"}

# The tests of a description as it is read, and of what the described machine answers then.
MODEL = "tests/runtime/host/description"
ANSWERS = "tests/runtime/host/described"

# Sources without a test of their own: where they are tested instead, or why there is nothing to test. A place
# "tests/..." that a reason names must be there.
ELSEWHERE: dict[str, str] = {
    "catalog/empty/empty.cpp": "has no text at all: tests/scenarios",
    "src/checker/QVInstallationChecker.h": "a class whose functions stand in the sources beside it",
    "src/checker/disk.cpp": "a whole report: tests/scenarios/disk",
    "src/checker/domain.cpp": "a whole report: tests/scenarios/domain",
    "src/checker/filter.cpp": "a whole report: tests/scenarios/filter",
    "src/checker/installdir.cpp": "a whole report: tests/scenarios/installdir",
    "src/checker/quota.cpp": "whole reports: tests/scenarios/quota, tests/scenarios/allquota",
    "src/checker/report_file.cpp": "tests/scenarios/save",
    "src/checker/user.cpp": "a whole report: tests/scenarios/user",
    "src/checker/version.cpp":
        "whole reports: tests/scenarios/version, tests/scenarios/pelmora, tests/scenarios/driver",
    "src/main/dispatcher.cpp": "tests/scenarios/dispatcher",
    "src/main/entry.cpp": "a whole run: tests/scenarios/start",
    "src/main/front.cpp": "tests/scenarios/commandline, tests/scenarios/save",
    "src/main/usage.cpp": "prints one message: tests/scenarios/commandline",
    "src/program/start.cpp": "a whole run: tests/scenarios/start",
    "src/runtime/archiver/QVBackend.h": "tests/runtime/archiver/QVConfigurator_described_test.cpp",
    "src/runtime/host/described/console.cpp": "the process's own output: tests/console/console_test.py",
    "src/runtime/host/described/verdicts.cpp": f"{MODEL}/failures_test.cpp",
    "src/runtime/host/description/directory.cpp":
        f"{ANSWERS}/users_test.cpp, {ANSWERS}/groups_test.cpp, {ANSWERS}/accounts_test.cpp",
    "src/runtime/host/description/directory_keys.h": f"{ANSWERS}/accounts_test.cpp",
    "src/runtime/host/description/directory_memberships.cpp":
        f"{ANSWERS}/groups_test.cpp, {ANSWERS}/members_test.cpp",
    "src/runtime/host/description/parse.cpp": f"{MODEL}/mistakes_test.cpp, {MODEL}/settings_test.cpp",
    "src/runtime/host/description/parse_accounts.cpp":
        f"{MODEL}/mistakes_test.cpp, {MODEL}/settings_test.cpp, {ANSWERS}/users_test.cpp, "
        f"{ANSWERS}/groups_test.cpp",
    "src/runtime/host/description/parse_failures.cpp":
        f"{MODEL}/mistakes_test.cpp, {MODEL}/failures_test.cpp",
    "src/runtime/host/description/parse_files.cpp": f"{MODEL}/mistakes_test.cpp, {ANSWERS}/files_test.cpp",
    "src/runtime/host/description/parse_registry.cpp":
        f"{MODEL}/mistakes_test.cpp, {ANSWERS}/registry_test.cpp",
    "src/runtime/host/description/parse_system.cpp": f"{MODEL}/settings_test.cpp, {ANSWERS}/system_test.cpp",
    "src/runtime/host/description/parse_volumes.cpp":
        f"{MODEL}/mistakes_test.cpp, {ANSWERS}/volumes_test.cpp, {ANSWERS}/cluster_test.cpp, "
        f"{ANSWERS}/services_test.cpp",
    "src/runtime/host/host.h": "the seam itself: each host answers it",
    "src/runtime/host/verdict.h": f"{MODEL}/failures_test.cpp",
    "src/runtime/host/windows/account_server.cpp": "asks a domain: tests/windows/made_up",
    "src/runtime/host/windows/cluster_library.cpp": "asks a cluster: tests/windows/made_up",
    "src/runtime/host/windows/console.cpp": "the process's own output: tests/windows/program/console_test.py",
    "src/runtime/host/windows/local_security.cpp": "asks a domain: tests/windows/made_up",
    "src/runtime/host/windows/members.cpp": "asks a domain: tests/windows/made_up",
    "src/runtime/host/windows/net_api.cpp": "asks a domain: tests/windows/made_up",
    "src/runtime/host/windows/stack_guard.cpp": "ends the process: tests/windows/program/hardening_test.py",
}

# Tests of no single source.
OF_NO_SOURCE: dict[str, str] = {
    "tests/runtime/host/description/machines_test.cpp": "the machines that come with the project",
}

PLACE = re.compile(r"\btests/[\w/.-]*\w")
COMMENT_OR_TEXT = re.compile(r'//[^\n]*|/\*.*?\*/|"(?:\\.|[^"\\\n])*"', re.S)
BODY = re.compile(r"\)[\w\s:]*(?:->[\w\s:<>*&]+)?\{")


def has_code(header: str) -> bool:
    """Whether a header holds a function with its body, and not only declarations and data."""
    return BODY.search(COMMENT_OR_TEXT.sub("", header)) is not None


def sources_of(project: Path) -> dict[str, str]:
    """Each source: its place and name, as its tests would have them, and its path in the project."""
    found = {}
    for top, begin in TOPS.items():
        for path in sorted((project / top).rglob("*")):
            name = begin + path.relative_to(project / top).with_suffix("").as_posix()
            alone = path.suffix == ".h" and not path.with_suffix(".cpp").exists()
            if path.suffix == ".cpp" or alone and has_code(path.read_text(encoding="utf-8")):
                found[name] = path.relative_to(project).as_posix()
    return found


def tests_of(project: Path, sources: dict[str, str]) -> list[str]:
    """The tests in the folders that mirror sources, as PLACE/NAME without "_test.cpp"."""
    folders = {name.partition("/")[0] for name in sources}
    tests = project / "tests"
    return [path.relative_to(tests).as_posix().removesuffix("_test.cpp")
            for folder in sorted(folders) for path in sorted((tests / folder).rglob("*_test.cpp"))]


def source_of(test: str, sources: dict[str, str]) -> str | None:
    """The source that a test is named after: the one of its name, else the longest that begins it."""
    name = test
    while name not in sources:
        place, separator, last = name.rpartition("/")
        if "_" not in last:
            return None
        name = place + separator + last.rpartition("_")[0]
    return name


def faults(project: Path) -> list[str]:
    sources = sources_of(project)
    tests = {test: source_of(test, sources) for test in tests_of(project, sources)}
    tested = {sources[name] for name in tests.values() if name is not None}
    strays = {f"tests/{test}_test.cpp" for test, name in tests.items() if name is None}
    untested = set(sources.values()) - tested
    return (compared("has no test of its name and place", untested, "ELSEWHERE", ELSEWHERE)
            + compared("tests no source of its name and place", strays, "OF_NO_SOURCE", OF_NO_SOURCE)
            + [f"the reason for {file} names {place}, which is not there"
               for file, reason in (ELSEWHERE | OF_NO_SOURCE).items()
               for place in PLACE.findall(reason) if not (project / place).exists()])


def compared(what: str, found: set[str], table: str, reasons: dict[str, str]) -> list[str]:
    return ([f"{file} {what}, and no reason stands in {table}" for file in sorted(found - reasons.keys())]
            + [f"{table} needs no reason for {file}" for file in sorted(reasons.keys() - found)])


def main(arguments: list[str]) -> int:
    found = faults(Path(arguments[0]))
    print(*found, sep="\n", end="\n" if found else "")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
