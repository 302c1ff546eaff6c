"""Scenario files: a sentence, then blocks that say what is given and what is expected of the program.

The format is described in docs/testing.md. Every mistake in a file is reported as FILE:LINE: what is wrong.
"""

import re
import shlex
from dataclasses import dataclass, field
from pathlib import Path

DEFAULT_PROGRAM = "kvxinfo-ids"
LEVELS = "SEWITDLCFX"

CR_SIGN = "␍"
LF_SIGN = "␊"
NO_LINE_END_SIGN = "¬"
MANY_LINES = re.compile(r"⋮(?P<first>\d+)-(?P<last>\d+) (?P<pattern>.*%\d*d.*)")
EXPECTED_CALLS = re.compile(r"(?P<name>\D*?\S) (?:(?P<most>at most) )?(?P<number>\d[\d+*/ ]*)")
NUMBER = re.compile(r"%(\d*d)")


class Mistake(Exception):
    """A scenario file, or the machine in it, that cannot be understood."""


@dataclass
class Block:
    """One block of a file: its name, what stands behind the name, and its lines."""
    name: str
    argument: str
    place: str
    lines: list[str] = field(default_factory=list)


@dataclass
class Scenario:
    """What a file says. `expected` holds the blocks to compare with; the rest is given to the program."""
    path: Path
    sentence: str
    machine: str | None = None
    machine_line: int = 0
    arguments: list[str] = field(default_factory=list)
    program: str = DEFAULT_PROGRAM
    files: dict[str, str] = field(default_factory=dict)
    directories: list[str] = field(default_factory=list)
    environment: dict[str, str] = field(default_factory=dict)
    wine: bool = False
    stages: frozenset[str] = frozenset()
    driver_fails: bool = False
    quirks: list[str] = field(default_factory=list)
    calls: list[str] = field(default_factory=list)
    exit: int = 0
    expected: list[Block] = field(default_factory=list)


# Block names, longest first where one begins another, with the pattern of what may stand behind the name.
NOTHING = r""
FILE_NAME = r"[^/\\]+"
BLOCKS = {
    "machine": NOTHING,
    "command": NOTHING,
    "program": r"[\w-]+",
    "file": FILE_NAME,
    "directory kept": FILE_NAME,
    "directory": FILE_NAME,
    "env": r"\w+=.*",
    "wine": NOTHING,
    "quirks": NOTHING,
    "calls": NOTHING,
    "exit": NOTHING,
    "console with": NOTHING,
    "console": NOTHING,
    "stderr": NOTHING,
    "no report": NOTHING,
    "report": NOTHING,
    "no log": NOTHING,
    "log with": NOTHING,
    "log": rf"([{LEVELS}]( [{LEVELS}])*)?",
}
STAGES = {"services", "versions", "volumes", "devices", "user", "registry", "accounts", "cluster"}
STAND_INS = {"accounts", "cluster"}
REPEATABLE = {"file", "directory", "directory kept", "env"}
COMPARED = {"console with", "console", "stderr", "no report", "report", "no log", "log with", "log",
            "directory kept"}
WITHOUT_LINES = {"program", "directory", "directory kept", "env", "no report", "no log"}


def to_text(lines: list[str]) -> str:
    """The text that lines of a block stand for. `⋮1-3 user%02d` are three lines, with the
    numbers 1 to 3; each ends within at `␊`."""
    text = "".join(line + "\n" for written in lines for line in expanded(written))
    return text.replace(NO_LINE_END_SIGN + "\n", "").replace(CR_SIGN, "\r")


def expanded(line: str) -> list[str]:
    many = MANY_LINES.fullmatch(line)
    if not many:
        return [line]
    lines = (NUMBER.sub(lambda match: format(number, match[1]), many["pattern"])
             for number in range(int(many["first"]), int(many["last"]) + 1))
    return [part for line in lines for part in line.split(LF_SIGN)]


def to_lines(text: str) -> list[str]:
    """The lines of a block that stand for a text."""
    lines = text.replace("\r", CR_SIGN).split("\n")
    last = lines.pop()
    if last:
        lines.append(last + NO_LINE_END_SIGN)
    return lines


def read(path: Path) -> Scenario:
    """Reads a scenario file; raises Mistake."""
    try:
        lines = path.read_bytes().decode("utf-8").split("\n")
    except UnicodeDecodeError as error:
        raise Mistake(f"{path}:1: not UTF-8: {error}") from None
    if lines[-1] == "":
        lines.pop()
    if not lines or not lines[0].strip() or lines[0].startswith("==="):
        raise Mistake(f"{path}:1: the first line must be a sentence that says what the scenario shows")
    scenario = Scenario(path, lines[0].strip())
    blocks = split_blocks(path, lines)
    check_blocks(path, blocks)
    for block in blocks:
        take(scenario, block)
    if (scenario.quirks or scenario.calls) and not scenario.stages & STAND_INS:
        raise Mistake(f"{path}:1: 'quirks' and 'calls' are for scenarios that stage accounts or cluster")
    return scenario


def split_blocks(path: Path, lines: list[str]) -> list[Block]:
    blocks: list[Block] = []
    for number, line in enumerate(lines[1:], start=2):
        if line.startswith("==="):
            blocks.append(parse_header(line, f"{path}:{number}"))
        elif blocks:
            blocks[-1].lines.append(line)
        elif line.strip():
            raise Mistake(f"{path}:{number}: text before the first block; expected a line '=== NAME'")
    return blocks


def parse_header(line: str, place: str) -> Block:
    title = line[3:].strip()
    for name, pattern in BLOCKS.items():
        if title == name or title.startswith(name + " "):
            argument = title[len(name):].strip()
            if not re.fullmatch(pattern, argument):
                raise Mistake(f"{place}: '{argument}' cannot stand behind '{name}'")
            return Block(name, argument, place)
    raise Mistake(f"{place}: unknown block '{title}'; known are: {', '.join(sorted(BLOCKS))}")


def check_blocks(path: Path, blocks: list[Block]) -> None:
    names = [block.name for block in blocks]
    if "console" not in names and "console with" not in names:
        raise Mistake(f"{path}:1: there is no console block")
    seen = set()
    for block in blocks:
        if block.name in seen and block.name not in REPEATABLE:
            raise Mistake(f"{block.place}: a second block '{block.name}'")
        seen.add(block.name)
        if block.name in WITHOUT_LINES and any(line.strip() for line in block.lines):
            raise Mistake(f"{block.place}: the block '{block.name}' takes no lines")
    given = {block.argument for block in blocks if block.name == "directory"}
    for block in blocks:
        if block.name == "directory kept" and block.argument not in given:
            raise Mistake(f"{block.place}: no directory '{block.argument}' is given")
    for pair in (("report", "no report"), ("log", "no log"), ("log with", "no log")):
        if seen.issuperset(pair):
            raise Mistake(f"{path}:1: '{pair[0]}' and '{pair[1]}' contradict each other")


def take(scenario: Scenario, block: Block) -> None:
    """Puts what a block says into the scenario."""
    if block.name in COMPARED:
        scenario.expected.append(block)
    elif block.name == "machine":
        scenario.machine = "".join(line + "\n" for line in block.lines)
        scenario.machine_line = int(block.place.rsplit(":", 1)[1])
    elif block.name == "command":
        scenario.arguments = parse_command(block)
    elif block.name == "program":
        scenario.program = block.argument
    elif block.name == "file":
        scenario.files[block.argument] = to_text(block.lines)
    elif block.name == "directory":
        scenario.directories.append(block.argument)
    elif block.name == "env":
        name, value = block.argument.split("=", 1)
        scenario.environment[name] = value
    elif block.name == "wine":
        scenario.wine = True
        take_wine(scenario, block)
    elif block.name == "quirks":
        scenario.quirks = block.lines
    elif block.name == "calls":
        take_calls(scenario, block)
    elif block.name == "exit":
        scenario.exit = parse_exit(block)


def take_wine(scenario: Scenario, block: Block) -> None:
    """Takes what the Windows program is to be given for real; other lines say why it runs the scenario at all."""
    for number, line in enumerate(block.lines, start=1):
        words = line.split()
        if words[:1] == ["stages"]:
            unknown = set(words[1:]) - STAGES
            if unknown or len(words) == 1:
                place, _, first = block.place.rpartition(":")
                raise Mistake(f"{place}:{int(first) + number}: '{' '.join(sorted(unknown))}' cannot be staged; "
                              f"known are: {', '.join(sorted(STAGES))}")
            scenario.stages |= set(words[1:])
        elif words == ["driver", "fails"]:
            scenario.driver_fails = True


def take_calls(scenario: Scenario, block: Block) -> None:
    scenario.calls = [line.strip() for line in block.lines if line.strip()]
    for line in scenario.calls:
        if not EXPECTED_CALLS.fullmatch(line):
            raise Mistake(f"{block.place}: '{line}' is no count of calls; expected NAME NUMBER or "
                          "NAME at most NUMBER")


def parse_command(block: Block) -> list[str]:
    lines = [line for line in block.lines if line.strip()]
    if len(lines) > 1:
        raise Mistake(f"{block.place}: the command must be one line")
    try:
        return shlex.split(lines[0]) if lines else []
    except ValueError as error:
        raise Mistake(f"{block.place}: {error}") from None


def parse_exit(block: Block) -> int:
    text = "\n".join(block.lines).strip()
    if not text.isdecimal():
        raise Mistake(f"{block.place}: '{text}' is not an exit status; expected a number")
    return int(text)


def find(paths: list[Path]) -> list[Path]:
    """The scenario files that the paths name: files as they stand, folders with all below."""
    found: list[Path] = []
    for path in paths:
        if path.is_dir():
            found.extend(sorted(path.rglob("*.scenario")))
        elif path.is_file():
            found.append(path)
        else:
            raise Mistake(f"{path}: no such file or folder")
    return found
