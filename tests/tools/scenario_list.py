"""The page docs/scenarios.md: what each scenario shows, in the scenario's own sentence."""

import os
from pathlib import Path

import scenario_file

HEAD = """\
# Scenarios

Made by `tests/tools/scenarios.py list` from the first lines of the files in `tests/scenarios`; do not edit.
[testing.md](testing.md) says how to read, run and write a scenario.
"""


def page(folder: Path, page_folder: Path) -> str:
    """The text of the page about the scenarios below `folder`; links count from `page_folder`."""
    parts = [HEAD]
    group = None
    for path in scenario_file.find([folder]):
        if path.parent != group:
            group = path.parent
            parts.append(f"\n## {group.relative_to(folder)}\n\n| Scenario | What it shows |\n|---|---|\n")
        link = Path(os.path.relpath(path, page_folder)).as_posix()
        sentence = scenario_file.read(path).sentence.replace("|", "\\|")
        parts.append(f"| [{path.stem}]({link}) | {sentence} |\n")
    return "".join(parts)
