"""What a run gave, compared with what its scenario expects."""

import difflib
import re
from dataclasses import dataclass, field

from scenario_file import CR_SIGN, LF_SIGN, NO_LINE_END_SIGN, Block, Scenario, to_lines, to_text

RECORD = re.compile(r"\d{4}-\d\d-\d\d \d\d:\d\d:\d\d\.\d{3}[+-]\d\d:\d\d \[\d+\] ([SEWITDLCFX]) (.*)",
                    re.DOTALL)

NO_FILE = ["(no file)"]
LONG = 3000


@dataclass
class Outcome:
    """What a run gave. `fault` is empty, or says why the run fails whatever was expected of it; `kept` names
    the given directories that are as they were; `others` says what else is not as expected,
    `notes` what is worth telling though all is well."""
    console: bytes
    stderr: bytes
    exit: int
    report: bytes | None
    log: bytes | None
    fault: str = ""
    kept: list[str] = field(default_factory=list)
    others: list[str] = field(default_factory=list)
    notes: list[str] = field(default_factory=list)


def console_lines(outcome: Outcome) -> list[str]:
    return to_lines(outcome.console.decode("utf-8", "backslashreplace"))


def stderr_lines(outcome: Outcome) -> list[str]:
    return to_lines(outcome.stderr.decode("utf-8", "backslashreplace"))


def report_lines(report: bytes | None) -> list[str]:
    return NO_FILE if report is None else to_lines(report.decode("latin-1"))


def log_lines(log: bytes | None, levels: str = "") -> list[str]:
    """The log as scenarios show it: without times and process ids; with `levels`, only their records."""
    if log is None:
        return NO_FILE
    lines = log.decode("utf-8", "backslashreplace").split("\r\n")
    last = lines.pop()
    if last:
        lines.append(last + NO_LINE_END_SIGN)
    shown: list[str] = []
    wanted = True
    for line in lines:
        visible = line.replace("\n", LF_SIGN).replace("\r", CR_SIGN)
        record = RECORD.fullmatch(visible)
        if record:
            wanted = not levels or record[1] in levels
            visible = f"{record[1]} {record[2]}"
        elif not shown and wanted:
            visible = "not a record: " + visible
        if wanted:
            shown.append(visible)
    return shown


def differences(scenario: Scenario, outcome: Outcome) -> list[str]:
    """One text for each difference, none when the run gave what is expected."""
    if outcome.fault:
        return [outcome.fault + "\n" + "\n".join(stderr_lines(outcome) + console_lines(outcome)[-20:])]
    found = [difference(block, outcome) for block in scenario.expected]
    if not any(block.name == "stderr" for block in scenario.expected):
        found.append(diff("stderr", [], stderr_lines(outcome)))
    if outcome.exit != scenario.exit:
        found.append(f"exit status: expected {scenario.exit}, got {outcome.exit}")
    return [text for text in found + outcome.others if text]


def difference(block: Block, outcome: Outcome) -> str:
    expected = to_lines(to_text(block.lines))
    if block.name == "console":
        return diff("console", expected, console_lines(outcome))
    if block.name == "console with":
        return missing("console", block.lines, console_lines(outcome))
    if block.name == "stderr":
        return diff("stderr", expected, stderr_lines(outcome))
    if block.name == "no report":
        return diff("report", NO_FILE, report_lines(outcome.report))
    if block.name == "report":
        return diff("report", expected, report_lines(outcome.report))
    if block.name == "no log":
        return diff("log", NO_FILE, log_lines(outcome.log))
    if block.name == "log with":
        return missing("log", block.lines, log_lines(outcome.log))
    if block.name == "directory kept":
        kept = block.argument in outcome.kept
        return "" if kept else f"directory {block.argument}: expected as it was, it is gone or changed"
    return diff(f"log {block.argument}".strip(), block.lines, log_lines(outcome.log, block.argument))


def diff(name: str, expected: list[str], given: list[str]) -> str:
    if expected == given:
        return ""
    if max(len(expected), len(given)) > LONG:
        return first_difference(name, expected, given)
    return "\n".join(difflib.unified_diff(expected, given, name + " expected", name + " given", lineterm=""))


def first_difference(name: str, expected: list[str], given: list[str]) -> str:
    """Where long texts part: to compare them line by line would take too long."""
    pairs = zip(expected + [None], given + [None])
    at = next((i for i, (left, right) in enumerate(pairs) if left != right), min(len(expected), len(given)))
    return "\n".join([f"{name}: {len(expected)} lines expected, {len(given)} given; from line {at + 1} on:",
                      *("-" + line for line in expected[at:at + 3]),
                      *("+" + line for line in given[at:at + 3])])


def missing(name: str, expected: list[str], given: list[str]) -> str:
    """Empty when every expected line occurs among the given ones, in that order."""
    at = 0
    for line in expected:
        try:
            at = given.index(line, at) + 1
        except ValueError:
            behind = f" behind line {at}" if at else ""
            return f"{name}: this line is missing{behind}:\n{line}\n{name} given:\n" + "\n".join(given)
    return ""
