#!/usr/bin/env python3
"""Checks the plan of the house.

architecture.py FOLDER   reads the sources below FOLDER/src and FOLDER/catalog, prints each of these, and ends with 1
                         when there is one:
  - an #include that is not allowed: calls go one way, main -> checker -> runtime -> host; a description knows no
    host and nothing of POSIX; Windows' headers have one home
  - files that include each other, through however many others
  - an answer of the seam that the two hosts do not give in files of the same name; a file of one host that has no
    twin in the other, and no reason in TWINLESS
"""

import re
import sys
from pathlib import Path

INCLUDE = re.compile(r'^\s*#\s*include\s*(?:"([^"]+)"|<([^>]+)>)')
SOURCES = {".cpp", ".h"}

# A storey is a folder; it may include itself and those that are listed.
STOREYS = {
    "runtime/host/description": ["runtime/host"],
    "runtime/host/described": ["runtime/host/description", "runtime/host"],
    "runtime/host/windows": ["runtime/host"],
    "runtime/host": [],
    "runtime": ["runtime/host", "catalog"],
    "checker": ["runtime", "runtime/host", "catalog"],
    "main": ["checker", "runtime", "runtime/host", "catalog"],
    "program": ["main", "runtime/host"],
    "catalog": [],
}
# Of the shared folder of the hosts, what asks a host: nothing for those who only describe one.
QUESTIONS = ("runtime/host/host.h", "runtime/host/os.h")
# The one place where the way down is chosen: the functions of Windows, or the described machine's.
CHOICES = {("runtime/host/os.h", "runtime/host/described/os_functions.h")}

WINDOWS_HEADERS = re.compile(r"(windows|win\w+|lm\w*|tchar|ntsecapi|ds\w+|iphlpapi|clusapi|fltuser)\.h")
HOME_OF_WINDOWS = ("runtime/host/windows/", "runtime/host/os.h")
POSIX_HEADERS = re.compile(r"(sys/.*|unistd|fcntl|poll|pthread|dirent|pwd|grp|termios|time|signal|locale)\.h")

SEAM = "runtime/host/host.h"
HOSTS = ("runtime/host/described", "runtime/host/windows")
TWINLESS = {
    "described": {
        "account_source.cpp": "the description's accounts, for the answers about them",
        "native_errors.cpp": "this computer's errors as Windows' codes",
        "native_files.cpp": "this computer's files",
        "os_functions.cpp": "on Windows these functions are the system's own",
        "text_stream.cpp": "on Windows these functions are the C run time's own",
    },
    "windows": {
        "account_server.cpp": "domain and groups of a server, asked once",
        "cluster_library.cpp": "a library that is loaded when it is needed",
        "image_path.cpp": "the forms of a driver's image path",
        "local_security.cpp": "calls of the local security authority",
        "net_api.cpp": "a library that is loaded when it is needed",
        "paths.cpp": "forms of paths, and the system's folder",
        "sids.cpp": "SIDs of the system's and of the seam's",
        "stack_guard.cpp": "stands for a part of the C run time",
        "windows_version.cpp": "which Windows a build is",
    },
}


def storey_of(path: str) -> str | None:
    """The storey in which a path, relative to the sources, stands."""
    return next((storey for storey in STOREYS if path.startswith(storey + "/")), None)


def judge(file: str, included: str, quoted: bool) -> str:
    """Why `file` must not include `included`; empty when it may."""
    own = storey_of(file)
    if not quoted:
        if WINDOWS_HEADERS.fullmatch(included.lower()) and not file.startswith(HOME_OF_WINDOWS):
            return f"<{included}> belongs below {HOME_OF_WINDOWS[0]} and into {HOME_OF_WINDOWS[1]} only"
        if POSIX_HEADERS.fullmatch(included) and own != "runtime/host/described":
            return f"<{included}> belongs below runtime/host/described only"
        return ""
    other = storey_of(included)
    if other is None:
        return f'"{included}" is not named by its path from the top of the sources'
    if (file, included) in CHOICES:
        return ""
    if own == "runtime/host/description" and included in QUESTIONS:
        return f'{own} must not include "{included}": it knows no host'
    if own is not None and other != own and other not in STOREYS[own]:
        return f'{own} must not include "{included}" of {other}'
    return ""


def read_sources(project: Path) -> dict[str, str]:
    """The texts of all sources by their path as they are included."""
    texts = {}
    for top, folder in ((project / "src", project / "src"), (project, project / "catalog")):
        for path in sorted(path for path in folder.rglob("*") if path.suffix in SOURCES):
            texts[path.relative_to(top).as_posix()] = path.read_text(encoding="utf-8")
    return texts


def includes_of(text: str):
    """(line, name, whether quoted) of each #include."""
    for number, line in enumerate(text.splitlines(), start=1):
        if include := INCLUDE.match(line):
            yield number, include[1] or include[2], include[1] is not None


def include_faults(texts: dict[str, str]) -> list[str]:
    """Each include that must not be, as FILE:LINE: why."""
    return [f"{file}:{number}: {reason}"
            for file, text in texts.items()
            for number, name, quoted in includes_of(text)
            if (reason := judge(file, name, quoted))]


def stem(file: str) -> str:
    return file.rpartition(".")[0]


def circle_faults(texts: dict[str, str]) -> list[str]:
    """Circles of files; a header and its source count as one."""
    uses: dict[str, set[str]] = {stem(file): set() for file in texts}
    for file, text in texts.items():
        uses[stem(file)] |= {stem(name) for _, name, quoted in includes_of(text)
                             if quoted and stem(name) != stem(file) and (file, name) not in CHOICES}
    reached = {file: reach(uses, file) for file in uses}
    circles = {tuple(sorted(other for other in reached[file] if file in reached.get(other, ())))
               for file in uses if file in reached[file]}
    return [f"they include each other: {', '.join(circle)}" for circle in sorted(circles)]


def reach(uses: dict[str, set[str]], start: str) -> set[str]:
    """All that `start` leads to."""
    found: set[str] = set()
    waiting = list(uses[start])
    while waiting:
        file = waiting.pop()
        if file not in found:
            found.add(file)
            waiting += uses.get(file, ())
    return found


def questions_of(seam: str) -> list[str]:
    """The names of the functions that the seam declares."""
    text = re.sub(r"//[^\n]*", "", seam)
    text = re.sub(r"\b(class|struct|enum class) \w+ \{.*?\n\};", "", text, flags=re.S)
    return sorted(set(re.findall(r"^[\w:<>, ]+[ &]\w*?(\w+)\([^;{]*\)[^;{]*;", text, re.M)))


def answer_faults(texts: dict[str, str]) -> list[str]:
    """Answers that do not stand in files of the same name."""
    found = []
    for question in questions_of(texts.get(SEAM, "")):
        definition = re.compile(rf"^[\w:<>, ]+[ &]{question}\([^;{{]*\)[^;{{]*\{{", re.M)
        homes = {host: sorted(file.rpartition("/")[2] for file, text in texts.items()
                              if file.startswith(host + "/") and file.endswith(".cpp")
                              and definition.search(outer(text)))
                 for host in HOSTS}
        first, second = homes.values()
        if first != second or len(first) != 1:
            found.append(f"{question}: answered in {', '.join(first) or 'no file'} of {HOSTS[0]}, "
                         f"in {', '.join(second) or 'no file'} of {HOSTS[1]}")
    return found


def outer(text: str) -> str:
    """The source without its unnamed namespaces and without namespaces below `host`."""
    text = re.sub(r"^namespace \{.*?^\}  // namespace\n", "", text, flags=re.S | re.M)
    return re.sub(r"^namespace \w+(::\w+)+ \{.*?^\}  // namespace \w+(::\w+)+\n", "", text, flags=re.S | re.M)


def twin_faults(texts: dict[str, str]) -> list[str]:
    """Files of one host without a twin in the other and without a reason; reasons that are not needed."""
    found = []
    for host, other in (HOSTS, HOSTS[::-1]):
        names = {file.rpartition("/")[2] for file in texts if file.startswith(host + "/") and file.endswith(".cpp")}
        others = {file.rpartition("/")[2] for file in texts if file.startswith(other + "/")}
        reasons = TWINLESS[host.rpartition("/")[2]]
        alone = names - others
        found += [f"{host}/{name} has no twin in {other}, and no reason stands in TWINLESS"
                  for name in sorted(alone - reasons.keys())]
        found += [f"TWINLESS names {host}/{name}, which is not there or has a twin"
                  for name in sorted(reasons.keys() - alone)]
    return found


def faults(project: Path) -> list[str]:
    texts = read_sources(project)
    found = include_faults(texts) + circle_faults(texts)
    return found + answer_faults(texts) + twin_faults(texts)


def main(arguments: list[str]) -> int:
    found = faults(Path(arguments[0]))
    print(*found, sep="\n", end="\n" if found else "")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
