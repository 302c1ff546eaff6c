"""Runs a program as a scenario says, in a fresh folder, and keeps what it gave."""

import os
import re
import signal
import subprocess
import tempfile
from pathlib import Path

from scenario_compare import Outcome
from scenario_file import Scenario

ROOT = Path(__file__).resolve().parents[2]
MACHINES = ROOT / "machines"

TIME_LIMIT_SECONDS = 20
REPORT_NAME = "check_installation.txt"
LOG_NAME = "kvxinfo.log"
WITHIN_DIRECTORY = "something"

SANITIZER_REPORT = re.compile(rb"==\d+==ERROR: \w+Sanitizer|: runtime error: |LeakSanitizer: ")
INHERITED = ("PATH", "HOME", "TMPDIR", "ASAN_OPTIONS", "UBSAN_OPTIONS")
# Characters beyond ASCII in arguments; and no words of the coverage run time on standard error.
ENVIRONMENT = {"LC_ALL": "C.UTF-8", "GCOV_ERROR_FILE": os.devnull}


def run_natively(scenario: Scenario, program_dir: Path) -> Outcome:
    """Runs the native program over the machine of the scenario.

    The description is `../machine.txt` from the current directory; beside it stand the described machines of
    the project, so that `base = member` names one of them.
    """
    with tempfile.TemporaryDirectory(prefix="kvxinfo-scenario-") as name:
        folder = Path(name)
        environment = dict(scenario.environment)
        if scenario.machine is not None:
            put_machine(folder, scenario.machine)
            environment.setdefault("KVXINFO_MACHINE", "../machine.txt")
        command = [str((program_dir / scenario.program).resolve())]
        return run_in(folder, scenario, command, environment)


def put_machine(folder: Path, description: str) -> None:
    """Writes `folder/machine.txt`, and puts the described machines of the project beside it."""
    (folder / "machine.txt").write_text(description, encoding="utf-8", newline="")
    for machine in MACHINES.iterdir():
        (folder / machine.name).symlink_to(machine)


def run_in(folder: Path, scenario: Scenario, command: list[str], environment: dict[str, str]) -> Outcome:
    """Runs `command` with the scenario's arguments in a new folder `here` below `folder`."""
    here = folder / "here"
    here.mkdir()
    for name, text in scenario.files.items():
        (here / name).write_text(text, encoding="utf-8", newline="")
    for name in scenario.directories:
        (here / name).mkdir()
        (here / name / WITHIN_DIRECTORY).write_text("", encoding="utf-8")
    inherited = {name: os.environ[name] for name in INHERITED if name in os.environ}
    process = subprocess.Popen(command + scenario.arguments, cwd=here, stdin=subprocess.DEVNULL,
                               stdout=subprocess.PIPE, stderr=subprocess.PIPE, start_new_session=True,
                               env=inherited | ENVIRONMENT | environment)
    try:
        console, stderr = process.communicate(timeout=TIME_LIMIT_SECONDS)
        fault = fault_of(process.returncode, stderr)
    except subprocess.TimeoutExpired:
        os.killpg(process.pid, signal.SIGKILL)
        console, stderr = process.communicate()
        fault = f"not ended after {TIME_LIMIT_SECONDS} s"
    report, log = contents(here / REPORT_NAME), contents(here / LOG_NAME)
    kept = [name for name in scenario.directories if entries(here / name) == [WITHIN_DIRECTORY]]
    return Outcome(console, stderr, process.returncode, report, log, fault, kept)


def fault_of(exit_status: int, stderr: bytes) -> str:
    if SANITIZER_REPORT.search(stderr):
        return "a sanitizer reported:"
    if exit_status < 0:
        return f"ended by {signal.Signals(-exit_status).name}"
    return ""


def entries(path: Path) -> list[str]:
    return [entry.name for entry in path.iterdir()] if path.is_dir() else []


def contents(path: Path) -> bytes | None:
    return path.read_bytes() if path.is_file() else None
