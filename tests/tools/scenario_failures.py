"""What goes wrong in a scenario: the calls that its machine makes fail, and what the machine does not answer."""

import re
from pathlib import Path

from machine_text import sections_of, uncommented
from scenario_file import Scenario

PLANNED = re.compile(r'(?P<call>\S+(?:\s+"(?:[^"]|"")*")?)(?:\s+(?:from\s+)?call\s+\d+)?\s*:')
CODES = r"(?:refused(?: \d+)?|error (?:0x)?[0-9A-Fa-f]+)"
MARKED = re.compile(rf"!\s*({CODES})\s*(.*)")
REGISTRY_KEY = re.compile(r"\[HKEY_LOCAL_MACHINE\\(.*?)\](?:\s+(.+))?")
REGISTRY_VALUE = re.compile(rf'"(.*)"=({CODES})')
QUOTED = re.compile(r'"[^"]*"')
VOLUME = re.compile(rf".*\s({CODES})(?:\s|$).*")
UNREACHABLE = re.compile(r"reachable\s*=\s*no(?:\s+(\d+))?")

NATURAL = "natural: "


def failing(scenario: Scenario) -> list[str]:
    """Each call that the scenario's own machine makes fail, `OPERATION "SUBJECT"`; and `natural: KIND` for what
    the machine itself does not answer. In the order of the description, each once."""
    found: dict[str, None] = {}
    for _, section, lines in sections_of(scenario.machine or "", Path("machine")):
        bare = uncommented(lines)
        if section == "failures":
            found.update(dict.fromkeys(planned(bare)))
        elif section == "registry":
            found.update(dict.fromkeys(unread_registry(bare)))
        else:
            found.update(dict.fromkeys(unanswered(section, bare)))
    return list(found)


def planned(lines: list[str]) -> list[str]:
    matches = (PLANNED.match(line) for line in lines)
    return [" ".join(match["call"].split()) for match in matches if match]


def operation_of(call: str) -> str:
    """The operation of a call; nothing for a natural cause."""
    return "" if call.startswith(NATURAL) else call.split(" ", 1)[0]


def unread_registry(lines: list[str]) -> list[str]:
    found = []
    key = ""
    for line in lines:
        if match := REGISTRY_KEY.fullmatch(line):
            key = match[1].rsplit("\\", 1)[-1]
            if match[2]:
                found.append(f"{NATURAL}registry key {key}: {match[2]}")
        elif match := REGISTRY_VALUE.fullmatch(line):
            found.append(f"{NATURAL}registry value {key}\\{match[1]}: {match[2]}")
    return found


def unanswered(section: str, lines: list[str]) -> list[str]:
    found = []
    for line in lines:
        if match := MARKED.fullmatch(line):
            about = f" {match[2]}" if match[2] else ""
            found.append(f"{NATURAL}{section}{about}: {match[1]}")
        elif section == "volumes" and (match := VOLUME.fullmatch(QUOTED.sub("", line))):
            found.append(f"{NATURAL}volume: {match[1]}")
        elif section == "domain" and (match := UNREACHABLE.fullmatch(line)):
            found.append(f"{NATURAL}domain out of reach" + (f": error {match[1]}" if match[1] else ""))
    return found
