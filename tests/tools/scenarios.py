#!/usr/bin/env python3
"""Runs, shows and lists the scenarios: see docs/testing.md."""

import argparse
import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

import scenario_list
import scenario_wine
import wine_staging_services
import wine_standins
from scenario_compare import Outcome, console_lines, differences, log_lines, report_lines, stderr_lines
from scenario_file import Mistake, Scenario, find, read
from scenario_run import ROOT, run_natively
from wine_staging import Tools

SCENARIOS = ROOT / "tests" / "scenarios"
WINDOWS_SCENARIOS = ROOT / "tests" / "windows" / "scenarios"
PAGE = ROOT / "docs" / "scenarios.md"


def read_all(paths: list[Path]) -> tuple[list[Scenario], list[Mistake]]:
    scenarios, mistakes = [], []
    for path in find(paths):
        try:
            scenarios.append(read(path))
        except Mistake as mistake:
            mistakes.append(mistake)
    return scenarios, mistakes


def outcomes_of(scenarios: list[Scenario], options: argparse.Namespace) -> list[Outcome | Mistake]:
    if options.wine:
        prefix = scenario_wine.Prefix(options.wine, Tools(options.program_dir.resolve().parent / "staging"))
        if options.staged:
            wine_standins.prepare(prefix.folder, prefix.tools.folder)
            wine_staging_services.put_library(prefix.folder, prefix.tools)
        return scenario_wine.run_all(scenarios, options.program_dir, prefix, options.jobs)
    with ThreadPoolExecutor(options.jobs) as pool:
        return list(pool.map(lambda scenario: run_natively(scenario, options.program_dir), scenarios))


def run(options: argparse.Namespace) -> int:
    """Runs scenarios and tells what differs; 0 when at least one ran and all passed."""
    paths = options.paths or ([SCENARIOS, WINDOWS_SCENARIOS] if options.wine else [SCENARIOS])
    scenarios, mistakes = read_all(paths)
    if options.wine:
        scenarios = [scenario for scenario in scenarios
                     if scenario.wine and bool(scenario.stages) == options.staged]
    for mistake in mistakes:
        print(f"FAILED {mistake}\n")
    failed, notes = len(mistakes), []
    for scenario, outcome in zip(scenarios, outcomes_of(scenarios, options)):
        found = [str(outcome)] if isinstance(outcome, Mistake) else differences(scenario, outcome)
        if found:
            failed += 1
            print(f"FAILED {scenario.path}: {scenario.sentence}", *found, "", sep="\n")
        else:
            notes += outcome.notes
    tell(notes, options.notes)
    passed = len(scenarios) + len(mistakes) - failed
    print(f"{passed} passed, {failed} failed")
    return 0 if failed == 0 and passed > 0 else 1


def tell(notes: list[str], path: Path | None) -> None:
    text = "".join(note + "\n" for note in notes)
    print(text, end="")
    if path:
        path.write_text(text, encoding="utf-8")


def show(options: argparse.Namespace) -> int:
    """Runs one scenario and prints what it gave, written as its file would expect it."""
    scenario = read(options.file)
    outcome = outcomes_of([scenario], options)[0]
    if isinstance(outcome, Mistake):
        raise outcome
    print("=== console", *console_lines(outcome), sep="\n")
    if outcome.stderr:
        print("=== stderr", *stderr_lines(outcome), sep="\n")
    if outcome.report is None:
        print("=== no report")
    else:
        print("=== report", *report_lines(outcome.report), sep="\n")
    if outcome.log is None:
        print("=== no log")
    else:
        print("=== log", *log_lines(outcome.log), sep="\n")
    for name in outcome.kept:
        print("=== directory kept", name)
    print("=== exit", outcome.exit, sep="\n")
    if outcome.fault:
        print(outcome.fault, file=sys.stderr)
    return 1 if outcome.fault else 0


def list_scenarios(options: argparse.Namespace) -> int:
    PAGE.write_text(scenario_list.page(SCENARIOS, PAGE.parent), encoding="utf-8")
    return 0


def check_list(options: argparse.Namespace) -> int:
    written = PAGE.read_text(encoding="utf-8") if PAGE.exists() else ""
    if written == scenario_list.page(SCENARIOS, PAGE.parent):
        return 0
    print("docs/scenarios.md does not list the scenarios as they are; call: tests/tools/scenarios.py list")
    return 1


def add_running(parser: argparse.ArgumentParser) -> None:
    parser.add_argument("--program-dir", type=Path, default=ROOT / "build" / "native" / "bin",
                        help="folder of the programs (build/native/bin)")
    parser.add_argument("--wine", type=Path, metavar="PREFIX",
                        help="run the Windows programs under Wine, in this started prefix")
    parser.add_argument("--staged", action="store_true",
                        help="with --wine: run those scenarios for which more is made than registry and files")
    parser.add_argument("--jobs", type=int, default=2, help="how many run at the same time (2)")


def parse_options(arguments: list[str]) -> argparse.Namespace:
    parser = argparse.ArgumentParser(description=__doc__)
    commands = parser.add_subparsers(required=True, metavar="COMMAND")
    command = commands.add_parser("run", help="run scenarios and print every difference")
    add_running(command)
    command.add_argument("--notes", type=Path, metavar="FILE",
                         help="write there as well what passed runs cost, where a scenario sets a bound")
    command.add_argument("paths", nargs="*", type=Path, metavar="FOLDER|FILE")
    command.set_defaults(do=run)
    command = commands.add_parser("show", help="run one scenario and print what it gives")
    add_running(command)
    command.add_argument("file", type=Path)
    command.set_defaults(do=show)
    commands.add_parser("list", help="write docs/scenarios.md").set_defaults(do=list_scenarios)
    commands.add_parser("check-list", help="fail when docs/scenarios.md is stale").set_defaults(do=check_list)
    return parser.parse_args(arguments)


def main(arguments: list[str]) -> int:
    options = parse_options(arguments)
    try:
        return options.do(options)
    except Mistake as mistake:
        print(mistake, file=sys.stderr)
        return 1


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
