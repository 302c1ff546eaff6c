"""Stand-in system libraries under Wine, which answer from the described machine of a scenario.

They stand in the prefix's system folder, where the program loads the system's own from. What a healthy
machine would not answer stands in the block `quirks` (tests/windows/made_up/shared/quirks.h has the lines); the line
`no cluster library` there takes that library away. The block `calls` says how often what was called.
"""

from pathlib import Path

from scenario_file import EXPECTED_CALLS, STAND_INS, Scenario
from wine_staging import put_library, windows_path

LIBRARIES = ("netapi32", "clusapi")
NO_CLUSTER = "no cluster library"
NEVER = ("not given back", "not closed")
NOTHING_COUNTED = "calls: no stand-in library left its counts"


def prepare(prefix: Path, programs: Path) -> None:
    """Puts the libraries that the build left in `programs` into the prefix, before anything runs there."""
    for name in LIBRARIES:
        library = prefix / "drive_c" / "windows" / "system32" / f"{name}.dll"
        put_library(library, (programs / f"{name}.dll").read_bytes())


def environment_of(scenario: Scenario, folder: Path) -> dict[str, str]:
    """What the environment of a run needs: `folder/machine.txt` is the description of the scenario."""
    if not scenario.stages & STAND_INS:
        return {"WINEDLLOVERRIDES": ",".join(LIBRARIES) + "=b"}
    quirks = quirks_of(scenario)
    libraries = [name for name in LIBRARIES if name != "clusapi" or NO_CLUSTER not in quirks]
    missing = "" if NO_CLUSTER not in quirks else ";clusapi="
    (folder / "quirks.txt").write_text("".join(line + "\n" for line in quirks if line != NO_CLUSTER))
    return {"WINEDLLOVERRIDES": ",".join(libraries) + "=n" + missing,
            "KVX_MADE_UP_MACHINE": windows_path(folder / "machine.txt"),
            "KVX_MADE_UP_QUIRKS": windows_path(folder / "quirks.txt"),
            "KVX_MADE_UP_CALLS": windows_path(folder / "calls.txt")}


def quirks_of(scenario: Scenario) -> list[str]:
    return [line.strip() for line in scenario.quirks if line.strip()]


def differences(scenario: Scenario, folder: Path) -> list[str]:
    """After a run: one text for each thing about the libraries that the scenario expected otherwise."""
    if not scenario.stages & STAND_INS:
        return []
    quirks = quirks_of(scenario)
    path = folder / "calls.txt"
    if not path.is_file():
        return [] if quirks == [NO_CLUSTER] and not scenario.calls else [NOTHING_COUNTED]
    calls = calls_in(path)
    found = [f"calls: {name}: {calls[name]}" for name in NEVER if calls.get(name, 0)]
    found += [f"quirks: nothing met '{line}'" for line in quirks
              if line != NO_CLUSTER and not calls.get(f"met: {line}")]
    found += [f"calls: expected {line}, got {calls.get(expectation(line)[0], 0)}" for line in scenario.calls
              if not as_expected(line, calls)]
    return found + ([f"calls given: {calls}"] if found else [])


def as_expected(line: str, calls: dict[str, int]) -> bool:
    """Whether the counts are what the line says. What is at most some calls is at least one."""
    name, most, number = expectation(line)
    given = calls.get(name, 0)
    return 1 <= given <= number if most else given == number


def notes(scenario: Scenario, folder: Path) -> list[str]:
    """What a run cost in calls, where the scenario sets a bound."""
    calls = calls_in(folder / "calls.txt")
    return [f"{calls.get(name, 0)} {name} calls ({scenario.sentence})"
            for name, most, _ in map(expectation, scenario.calls) if most]


def calls_in(path: Path) -> dict[str, int]:
    """The counts that the libraries left, one a line: a name and a number."""
    lines = path.read_text().splitlines() if path.is_file() else []
    return {name: int(number) for name, _, number in (line.rpartition(" ") for line in lines)}


def expectation(line: str) -> tuple[str, bool, int]:
    """Name, whether fewer will do, and number of a line like "remote at most 25000/100 + 2*7 + 10"."""
    match = EXPECTED_CALLS.fullmatch(line)
    return match["name"], bool(match["most"]), sum_of(match["number"])


def sum_of(text: str) -> int:
    """A sum of products and quotients; a quotient is rounded up."""
    total = 0
    for product in text.split("+"):
        value = 1
        for factor in product.split("*"):
            dividend, _, divisor = factor.partition("/")
            value *= -(-int(dividend) // int(divisor or 1))
        total += value
    return total
