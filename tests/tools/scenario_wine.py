"""Runs scenarios by the Windows program under Wine, over a registry and files that are made for real."""

import subprocess
import tempfile
import time
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

from machine_text import Staging, parse_machine, read_machine
from scenario_compare import Outcome
from scenario_file import Mistake, Scenario
from scenario_run import MACHINES, ROOT, run_in

WINE = ROOT / "tools" / "wine.sh"
PRODUCT_KEY = r"HKEY_LOCAL_MACHINE\SOFTWARE\Norvel"
EXPORT_HEAD = "Windows Registry Editor Version 5.00"


def staging_of(scenario: Scenario) -> Staging:
    """What the machine of the scenario needs; raises Mistake when Wine cannot give it."""
    staging = Staging()
    if scenario.machine is None:
        read_machine(MACHINES / "sample", staging)
    else:
        parse_machine(scenario.machine, MACHINES / scenario.path.name, staging)
    return staging


class Prefix:
    """A running Wine prefix: a Windows of its own, whose registry and drive C: can be given any content."""

    def __init__(self, folder: Path):
        self.folder = folder.resolve()
        self.made: list[Path] = []

    def run(self, *command: str) -> None:
        """Runs a command of Windows. What stages may be repeated: a busy Wine server now and then refuses one."""
        for patience in (1, 3, None):
            outcome = subprocess.run([WINE, "run", self.folder, *command], stdin=subprocess.DEVNULL,
                                     stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, timeout=60)
            if outcome.returncode == 0:
                return
            if patience is None:
                outcome.check_returncode()
            time.sleep(patience)

    def stage(self, staging: Staging) -> None:
        """Makes the prefix as `staging` says; what an earlier call made is removed first."""
        self.clear()
        with tempfile.TemporaryDirectory(prefix="kvxinfo-staging-") as name:
            text = "\r\n".join([EXPORT_HEAD, "", f"[-{PRODUCT_KEY}]", ""] + staging.registry) + "\r\n"
            (Path(name) / "staged.reg").write_bytes(b"\xff\xfe" + text.encode("utf-16-le"))
            self.run("reg", "import", f"{name}/staged.reg")
        for path, contents in staging.contents.items():
            self.create_file(path, contents)
        # A list of files names folders as well; below a folder stands something.
        for path in sorted(staging.files, key=str.lower, reverse=True):
            if path.endswith("\\"):
                self.create_folders(path)
            else:
                self.create_file(path, b"")

    def create_folders(self, windows_path: str) -> Path:
        """Makes the folder and those above it, where they are not there yet."""
        drive, *parts = filter(None, windows_path.split("\\"))
        if drive.lower() != "c:":
            raise Mistake(f"{windows_path}: only drive C: can be staged under Wine")
        at = self.folder / "drive_c"
        for part in parts:
            at = child(at, part)
            if not at.exists():
                at.mkdir()
                self.made.append(at)
        return at

    def create_file(self, windows_path: str, contents: bytes) -> None:
        """Makes the file, unless something of that name is there."""
        folder, _, name = windows_path.rpartition("\\")
        path = child(self.create_folders(folder), name)
        if not path.exists():
            path.write_bytes(contents)
            self.made.append(path)

    def clear(self) -> None:
        for path in reversed(self.made):
            path.rmdir() if path.is_dir() else path.unlink(missing_ok=True)
        self.made.clear()


def child(folder: Path, name: str) -> Path:
    """The entry of that name, whatever its case, or the path that it would have."""
    if folder.is_dir() and not (folder / name).exists():
        for entry in folder.iterdir():
            if entry.name.lower() == name.lower():
                return entry
    return folder / name


def run_all(scenarios: list[Scenario], program_dir: Path, prefix: Prefix,
            jobs: int) -> list[Outcome | Mistake]:
    """The outcomes in the order of the scenarios. Those that need the same staging run side by side."""
    outcomes: dict[Path, Outcome | Mistake] = {}
    groups: dict[tuple, tuple[Staging, list[Scenario]]] = {}
    for scenario in scenarios:
        try:
            staging = staging_of(scenario)
            groups.setdefault(staging.key(), (staging, []))[1].append(scenario)
        except Mistake as mistake:
            outcomes[scenario.path] = mistake
    for staging, members in groups.values():
        try:
            prefix.stage(staging)
        except Mistake as mistake:
            outcomes.update((scenario.path, mistake) for scenario in members)
            continue
        with ThreadPoolExecutor(jobs) as pool:
            given = pool.map(lambda scenario: run_one(scenario, program_dir, prefix), members)
            outcomes.update(zip((scenario.path for scenario in members), given))
    prefix.clear()
    return [outcomes[scenario.path] for scenario in scenarios]


def run_one(scenario: Scenario, program_dir: Path, prefix: Prefix) -> Outcome:
    program = (program_dir / f"{scenario.program}.exe").resolve()
    with tempfile.TemporaryDirectory(prefix="kvxinfo-scenario-") as name:
        return run_in(Path(name), scenario, [str(WINE), "run", str(prefix.folder), str(program)], {})
