"""The page docs/scenarios.md: what each scenario shows, in the scenario's own sentence, and for each call that
can fail the scenarios that make it fail."""

import os
from itertools import groupby
from pathlib import Path

import scenario_file
from scenario_failures import NATURAL, failing

HEAD = """\
# Scenarios

Made by `tests/tools/scenarios.py list` from the files in `tests/scenarios`; do not edit.
[testing.md](testing.md) says how to read, run and write a scenario.

Each folder has two tables. The first has the sentence of each scenario. The second is for those who look for a failure:
each call that the `[failures]` of a machine make fail (or, behind another failure, show not to be made at all), with its
subject where only this one fails; and, as `natural`, what a machine itself does not answer. Beside it stand the scenarios.
"""


def page(folder: Path, page_folder: Path) -> str:
    """The text of the page about the scenarios below `folder`; links count from `page_folder`."""
    parts = [HEAD]
    for group, paths in groupby(scenario_file.find([folder]), key=lambda path: path.parent):
        scenarios = [scenario_file.read(path) for path in paths]
        parts.append(f"\n## {group.relative_to(folder)}\n\n")
        parts.append(sentences(scenarios, page_folder))
        parts.append(failures(scenarios))
    return "".join(parts)


def sentences(scenarios: list[scenario_file.Scenario], page_folder: Path) -> str:
    rows = ["| Scenario | What it shows |\n|---|---|\n"]
    for scenario in scenarios:
        link = Path(os.path.relpath(scenario.path, page_folder)).as_posix()
        rows.append(f"| [{scenario.path.stem}]({link}) | {cell(scenario.sentence)} |\n")
    return "".join(rows)


def failures(scenarios: list[scenario_file.Scenario]) -> str:
    """The table of the calls that fail, natural causes last; empty when nothing does."""
    showing: dict[str, list[str]] = {}
    for scenario in scenarios:
        for call in failing(scenario):
            showing.setdefault(call, []).append(scenario.path.stem)
    if not showing:
        return ""
    rows = ["\n| What fails | Scenarios |\n|---|---|\n"]
    for call in sorted(showing, key=lambda call: (call.startswith(NATURAL), call)):
        rows.append(f"| {named(call)} | {', '.join(showing[call])} |\n")
    return "".join(rows)


def named(call: str) -> str:
    if call.startswith(NATURAL):
        return cell(call)
    return f"`{cell(call)}`"


def cell(text: str) -> str:
    return text.replace("|", "\\|")
