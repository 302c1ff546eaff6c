"""Runs scenarios by the Windows program under Wine, over a registry and files that are made for real."""

import shutil
import tempfile
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

import wine_staging_devices
import wine_staging_registry
import wine_staging_services
import wine_staging_user
import wine_staging_volumes
import wine_standins
from machine_text import Staging, parse_machine, read_machine
from scenario_compare import Outcome
from scenario_file import Mistake, Scenario
from scenario_run import MACHINES, ROOT, put_machine, run_in
from wine_command import TROUBLE, WINE, attempt, output_of, patiently
from wine_staging import Orders, Tools, windows_path
from wine_wording import as_windows_words_it

PRODUCT_KEY = r"HKEY_LOCAL_MACHINE\SOFTWARE\Norvel"
SAMPLE = "[machine]\nbase = sample\n"
EXPORT_HEAD = "Windows Registry Editor Version 5.00"
LOADER_FAILED = b"failed to map the shared user data"


def staging_of(scenario: Scenario) -> Staging:
    """What the machine of the scenario needs; raises Mistake when Wine cannot give it."""
    staging = Staging(stages=scenario.stages, driver_fails=scenario.driver_fails)
    if scenario.machine is None:
        read_machine(MACHINES / "sample", staging)
    else:
        parse_machine(scenario.machine, MACHINES / scenario.path.name, staging)
    return staging


class Prefix:
    """A running Wine prefix: a Windows of its own, whose registry and drive C: can be given any content."""

    def __init__(self, folder: Path, tools: Tools | None = None):
        self.folder = folder.resolve()
        self.tools = tools or Tools(ROOT / "build" / "windows" / "staging")
        # What a run that was ended by force left behind is taken back: its files, drives and services. The
        # list has paths, and orders for the stager.
        self.list_of_made = self.folder / "made-by-tests.txt"
        self.in_doubt = self.list_of_made.exists()
        left = self.list_of_made.read_text(encoding="utf-8").splitlines() if self.in_doubt else []
        self.made = [Path(line) for line in left if line.startswith("/")]
        self.undo = [line for line in left if not line.startswith("/")]
        self.drives: dict[str, wine_staging_volumes.Volume] | None = None
        self.imported: list[str] | None = None

    def stage(self, staging: Staging) -> None:
        """Makes the prefix as `staging` says; what an earlier call made is removed first."""
        self.clear(drives="volumes" not in staging.stages)
        orders = Orders()
        if "volumes" in staging.stages:
            self.prepare_drives(staging)
            wine_staging_volumes.add_orders(staging, self.folder / "volumes", orders)
        wine_staging_registry.add_orders(staging, orders)
        if "services" in staging.stages:
            wine_staging_services.stage_images(staging, self.tools)
            wine_staging_services.add_orders(staging, orders)
        if "devices" in staging.stages:
            driver = self.tools.path(wine_staging_devices.DRIVER).read_bytes()
            wine_staging_devices.add_orders(staging, driver, orders)
            for letter in wine_staging_devices.opened_letters(staging.section("volumes")):
                self.link_drive(letter)
        self.import_registry(staging)
        for path, contents in staging.contents.items():
            self.create_file(path, contents)
        # A list of files names folders as well; below a folder stands something.
        for path in sorted(staging.files, key=str.lower, reverse=True):
            if path.endswith("\\"):
                self.create_folders(path)
            else:
                self.create_file(path, b"")
        self.undo = orders.undo
        self.note("".join(f"{line}\n" for line in self.undo))
        self.carry_out(orders.do)

    def import_registry(self, staging: Staging) -> None:
        """Makes the client's part of the registry, unless it is there from the last time."""
        lines = [EXPORT_HEAD, "", f"[-{PRODUCT_KEY}]", "", *wine_staging_registry.importable(staging)]
        if lines != self.imported:
            self.imported = None
            with tempfile.TemporaryDirectory(dir=self.scratch()) as name:
                path = Path(name) / "staged.reg"
                path.write_bytes(b"\xff\xfe" + ("\r\n".join(lines) + "\r\n").encode("utf-16-le"))
                output_of(self.folder, "reg", "import", windows_path(path))
        self.imported = None if "registry" in staging.stages else lines

    def carry_out(self, orders: list[str]) -> None:
        """Lets the stager do what the orders say; raises Mistake with what it could not do."""
        if not orders:
            return
        with tempfile.TemporaryDirectory(dir=self.scratch()) as name:
            path = Path(name) / "orders.txt"
            path.write_text("".join(line + "\n" for line in orders), encoding="utf-8")
            output_of(self.folder, self.tools.path("stager.exe"), windows_path(path))

    def scratch(self) -> Path:
        """Where files can be put that Windows shall find whatever drives there are."""
        folder = self.folder / "drive_c" / "scratch"
        folder.mkdir(parents=True, exist_ok=True)
        return folder

    def prepare_drives(self, staging: Staging) -> None:
        """Makes what the drives are about. The server is started anew, with no drive but C:, unless those that it
        lists can become others."""
        volumes = wine_staging_volumes.volumes_of(staging)
        starts = self.drives is None or not wine_staging_volumes.follows(volumes, self.drives)
        self.note("")
        self.in_doubt = True
        if starts:
            self.stop()
            self.set_drives({})
        wine_staging_volumes.prepare(staging, self.folder / "volumes", self.folder / "drive_c")
        if starts:
            patiently("start", self.folder)
        self.drives = volumes
        self.in_doubt = False

    def end_drives(self) -> None:
        """Starts the server anew as other scenarios find it."""
        self.stop()
        wine_staging_volumes.prepare(Staging(), self.folder / "volumes", self.folder / "drive_c")
        self.set_drives({"z:": "/"})
        patiently("start", self.folder)
        self.drives = None
        self.imported = None

    def stop(self) -> None:
        """Ends the server, where there is one."""
        attempt("stop", self.folder)

    def set_drives(self, drives: dict[str, str]) -> None:
        """Which drives there are beside C: when the server starts."""
        folder = self.folder / "dosdevices"
        for link in folder.glob("[abd-z]:*"):
            link.unlink()
        for name, target in drives.items():
            (folder / name).symlink_to(target)

    def link_drive(self, letter: str) -> None:
        """Gives Wine an empty folder to open as the drive; the mount manager hears nothing of it."""
        link = self.folder / "dosdevices" / f"{letter}:"
        self.remember(link)
        link.symlink_to(self.scratch())

    def create_folders(self, windows_path: str) -> Path:
        """Makes the folder and those above it, where they are not there yet."""
        drive, *parts = filter(None, windows_path.split("\\"))
        if drive.lower() != "c:":
            raise Mistake(f"{windows_path}: only drive C: can be staged under Wine")
        at = self.folder / "drive_c"
        for part in parts:
            at = child(at, part)
            if not at.exists():
                self.remember(at)
                at.mkdir()
        return at

    def create_file(self, windows_path: str, contents: bytes) -> None:
        """Makes the file, unless something of that name is there."""
        folder, _, name = windows_path.rpartition("\\")
        path = child(self.create_folders(folder), name)
        if not path.exists():
            self.remember(path)
            path.write_bytes(contents)

    def clear(self, drives: bool = True) -> None:
        """Takes back what was staged; without `drives`, those stay until the server ends anyway. Raises
        Mistake or OSError for what cannot be taken back: the next call tries again, under a new server."""
        in_doubt, self.in_doubt = self.in_doubt, True
        if in_doubt:
            self.end_drives()
        self.carry_out(self.undo)
        self.undo = []
        if drives and self.drives is not None:
            self.end_drives()
        while self.made:
            path = self.made[-1]
            folder = path.is_dir() and not path.is_symlink()
            path.rmdir() if folder else path.unlink(missing_ok=True)
            self.made.pop()
        if self.drives is None:
            self.list_of_made.unlink(missing_ok=True)
        else:
            self.list_of_made.write_text("")
        self.in_doubt = False

    def give_up(self) -> None:
        """After a clear() that failed: what cannot be taken back by another one stays as it is."""
        try:
            self.clear()
        except TROUBLE:
            self.undo.clear()
            self.made.clear()

    def remember(self, path: Path) -> None:
        self.made.append(path)
        self.note(f"{path}\n")

    def note(self, lines: str) -> None:
        """Adds to the list of what is to be taken back; that there is one says that something is."""
        with self.list_of_made.open("a", encoding="utf-8") as file:
            file.write(lines)


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
    members: list[Scenario] = []
    try:
        for staging, members in sorted(groups.values(), key=lambda group: drives_in(group[0])):
            outcomes |= run_group(staging, members, program_dir, prefix, jobs)
    finally:
        outcomes |= left_behind(members, prefix)
    return [outcomes[scenario.path] for scenario in scenarios]


def run_group(staging: Staging, members: list[Scenario], program_dir: Path, prefix: Prefix,
              jobs: int) -> dict[Path, Outcome | Mistake]:
    """The outcomes of scenarios that need this staging."""
    try:
        prefix.stage(staging)
    except TROUBLE as trouble:
        outcomes = failed(members, str(trouble))
    else:
        with ThreadPoolExecutor(jobs) as pool:
            given = pool.map(lambda scenario: run_one(scenario, program_dir, prefix), members)
            outcomes = dict(zip((scenario.path for scenario in members), given))
    return outcomes | left_behind(members, prefix, drives=False)


def left_behind(members: list[Scenario], prefix: Prefix,
                drives: bool = True) -> dict[Path, Outcome | Mistake]:
    """Takes back what is staged. Where that cannot be done, those fail for which it was, not the next."""
    try:
        prefix.clear(drives)
        return {}
    except TROUBLE as trouble:
        prefix.give_up()
        return failed(members, f"what was staged cannot be taken back: {trouble}")


def failed(members: list[Scenario], why: str) -> dict[Path, Outcome | Mistake]:
    return {scenario.path: Mistake(f"{scenario.path}: {why}") for scenario in members}


def add_environment(environment: dict[str, str], more: dict[str, str]) -> None:
    """Adds variables; of libraries, those that are there already stay."""
    libraries = [names["WINEDLLOVERRIDES"] for names in (environment, more) if "WINEDLLOVERRIDES" in names]
    environment |= more
    if libraries:
        environment["WINEDLLOVERRIDES"] = ";".join(libraries)


def drives_in(staging: Staging) -> int:
    """The order of groups that starts fewest servers: those that need drives last, with more drives later."""
    return len(staging.section("volumes")) if "volumes" in staging.stages else 0


def run_one(scenario: Scenario, program_dir: Path, prefix: Prefix) -> Outcome | Mistake:
    """Runs the program over what is staged; what it gives is worded as Windows would have it."""
    try:
        outcome = run_staged(scenario, program_dir, prefix)
    except TROUBLE as trouble:
        return Mistake(f"{scenario.path}: {trouble}")
    if scenario.stages:
        outcome.console = as_windows_words_it(outcome.console)
        outcome.report = as_windows_words_it(outcome.report)
        outcome.log = as_windows_words_it(outcome.log)
    return outcome


def run_staged(scenario: Scenario, program_dir: Path, prefix: Prefix) -> Outcome:
    """Runs the program over what is staged, with the stand-in libraries and as the user that the scenario has.

    A start that Wine's own loader could not make did not start the program: it is made again.
    """
    outcome = run_staged_once(scenario, program_dir, prefix)
    if LOADER_FAILED in outcome.stderr:
        outcome = run_staged_once(scenario, program_dir, prefix)
    return outcome


def run_staged_once(scenario: Scenario, program_dir: Path, prefix: Prefix) -> Outcome:
    program = (program_dir / f"{scenario.program}.exe").resolve()
    # Where there may be no other drive.
    place = prefix.scratch() if "volumes" in scenario.stages else None
    with tempfile.TemporaryDirectory(prefix="kvxinfo-scenario-", dir=place) as name:
        folder = Path(name)
        command, environment = [str(WINE), "run", str(prefix.folder)], dict(scenario.environment)
        if place:
            program = Path(shutil.copy(program, folder))
        environment |= wine_standins.environment_of(scenario, folder)
        if scenario.stages:
            put_machine(folder, scenario.machine or SAMPLE)
            staging = staging_of(scenario)
            user = wine_staging_user.user_of(staging)
            command += wine_staging_user.launcher(user, prefix.tools)
            environment |= wine_staging_user.environment_of(user)
            add_environment(environment, wine_staging_services.environment_of(staging))
        command.append(windows_path(program) if place else str(program))
        outcome = run_in(folder, scenario, command, environment)
        if scenario.stages:
            outcome.others = wine_standins.differences(scenario, folder)
            outcome.notes = wine_standins.notes(scenario, folder)
        return outcome
