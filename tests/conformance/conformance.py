#!/usr/bin/env python3
"""Asks the runtime the same questions over described machines and over the same machines staged under Wine,
and compares the answers: see docs/testing.md."""

import argparse
import re
import string
import sys
import tempfile
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

HERE = Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parent / "tools"))

import scenario_wine  # noqa: E402
import wine_standins  # noqa: E402
from conformance_compare import Comparison, Mistake, answers_of, read_list  # noqa: E402
from conformance_facts import TOO_LONG_TEXT, facts_of, system_section, write_files  # noqa: E402
from conformance_rounds import ROUNDS, Round  # noqa: E402
from scenario_compare import Outcome  # noqa: E402
from scenario_file import Scenario  # noqa: E402
from scenario_run import ROOT, run_natively  # noqa: E402
from wine_command import TROUBLE  # noqa: E402
from wine_staging import Tools  # noqa: E402

DIFFERENCES = HERE / "differences.txt"
OPERATIONS = ROOT / "src" / "runtime" / "host" / "description" / "operation_names.cpp"
OPERATION_NAME = re.compile(r'\{L"([^"]+)"')
TEMPORARY_FOLDER = re.compile(r"kvxinfo-scenario-\w+")
GIVEN_FILES = {"given.txt": "given\n", "given quota.cfg": "default = 1\n"}


def scenario_of(round_: Round, facts: dict[str, str], folder: Path) -> Scenario:
    """The program's run for a round, as the scenario runner takes it."""
    text = (HERE / "machines" / f"{round_.machine}.txt").read_text(encoding="utf-8")
    values = facts | {"folder": str(folder), "long_text": TOO_LONG_TEXT}
    values["system"] = system_section(facts, round_.current_directory)
    machine = string.Template(text).substitute(values)
    return Scenario(Path(f"{round_.machine}.txt"), round_.name, machine=machine, arguments=list(round_.sets),
                    program="kvx_conformance", files=GIVEN_FILES, directories=["given folder"], wine=True,
                    stages=round_.stages, environment={"GCOV_PREFIX": str(folder)})


def transcript_of(outcome: Outcome, where: str) -> str:
    """What the program wrote; raises Mistake when it did not come to its end."""
    if outcome.fault or outcome.exit != 0 or outcome.others:
        last = outcome.console.decode(errors="replace").rstrip().rpartition("\n")[2]
        stderr = outcome.stderr.decode(errors="replace")
        raise Mistake(f"{where}: {outcome.fault} exit status {outcome.exit} {outcome.others}, behind\n"
                      f"{last}\n{stderr}")
    return TEMPORARY_FOLDER.sub("kvxinfo-scenario", outcome.console.decode("ascii"))


def run_round(round_: Round, scenario: Scenario, options: argparse.Namespace,
              prefix: scenario_wine.Prefix) -> tuple[str, str]:
    """Both transcripts."""
    with ThreadPoolExecutor(1) as pool:
        native = pool.submit(run_natively, scenario, options.native_dir)
        prefix.stage(scenario_wine.staging_of(scenario))
        windows = scenario_wine.run_staged(scenario, options.program_dir, prefix)
        prefix.clear(drives=False)
        return (transcript_of(native.result(), f"{round_.name}, natively"),
                transcript_of(windows, f"{round_.name}, under Wine"))


def operations_not_asked(transcripts: list[str]) -> list[str]:
    """The operations of the runtime that no question is about."""
    asked = {question.split(" ")[0] for transcript in transcripts for question in answers_of(transcript)}
    names = OPERATION_NAME.findall(OPERATIONS.read_text(encoding="utf-8"))
    return [name for name in names if name not in asked]


def keep_transcripts(folder: Path | None, round_: Round, transcripts: tuple[str, str]) -> None:
    for host, transcript in zip(("native", "windows"), transcripts):
        if folder:
            (folder / f"{round_.name}.{host}").write_text(transcript, encoding="utf-8")


def cleared(prefix: scenario_wine.Prefix) -> list[str]:
    """Takes back what was staged; what is in the way of that."""
    try:
        prefix.clear()
        return []
    except TROUBLE as trouble:
        return [f"what was staged cannot be taken back: {trouble}"]


def compare_all(options: argparse.Namespace) -> int:
    comparison = Comparison(read_list(DIFFERENCES))
    prefix = scenario_wine.Prefix(options.wine, Tools(options.program_dir.resolve().parent / "staging"))
    wine_standins.prepare(prefix.folder, prefix.tools.folder)
    transcripts: list[str] = []
    broken: list[str] = []
    try:
        with tempfile.TemporaryDirectory(prefix="kvxinfo-conformance-") as name:
            write_files(Path(name))
            facts = facts_of(prefix.folder)
            for round_ in ROUNDS:
                try:
                    both = run_round(round_, scenario_of(round_, facts, Path(name)), options, prefix)
                except (Mistake, *TROUBLE) as trouble:
                    broken.append(f"{round_.name}: {trouble}")
                    prefix.give_up()
                    continue
                comparison.take(round_.name, *both)
                transcripts.append(both[0])
                keep_transcripts(options.keep, round_, both)
    finally:
        broken += cleared(prefix)
    if broken:  # nor can it be said then what is no longer asked or no longer differs
        found = comparison.found + broken
    else:
        found = comparison.end() + [f"no question about {name}" for name in operations_not_asked(transcripts)]
    print(*found, sep="\n")
    print(f"{comparison.same} answers are the same, {comparison.different} differ as listed, "
          f"{len(found)} wrong")
    return 1 if found or not comparison.same else 0


def main(arguments: list[str]) -> int:
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--native-dir", type=Path, default=ROOT / "build" / "native" / "bin",
                        help="folder of the native program (build/native/bin)")
    parser.add_argument("--program-dir", type=Path, default=ROOT / "build" / "windows" / "bin",
                        help="folder of the Windows program (build/windows/bin)")
    parser.add_argument("--wine", type=Path, default=ROOT / "build" / "wine-machines", metavar="PREFIX",
                        help="a started prefix (build/wine-machines)")
    parser.add_argument("--keep", type=Path, metavar="FOLDER", help="leave the transcripts there")
    options = parser.parse_args(arguments)
    try:
        return compare_all(options)
    except (Mistake, *TROUBLE) as mistake:
        print(mistake, file=sys.stderr)
        return 1


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
