#!/usr/bin/env python3
"""Measures what the start of `kvxinfo version` costs more than that of a program that does nothing.

    startup.py RESULT     writes the figures into that file as well

The variables are those of windows_program.

Both run in turn under the same server, in a prefix in which the sample is installed. Fails when the medians
are further apart than allowed, in each of three attempts.
"""

import statistics
import subprocess
import sys
import tempfile
from pathlib import Path

from windows_program import HELPERS, PROGRAMS, SECONDS, windows_path, wine_command

ROUNDS = 25
ATTEMPTS = 3
MILLISECONDS_AT_MOST = 15.0


def measure() -> tuple[float, float]:
    """The medians of one attempt, in milliseconds: the empty program's and ours."""
    commands = [windows_path(HELPERS / "empty.exe"), windows_path(PROGRAMS / "kvxinfo.exe") + " version"]
    with tempfile.TemporaryDirectory(prefix="kvxinfo-startup-") as folder:
        lines = subprocess.run(wine_command(HELPERS / "stopwatch.exe", str(ROUNDS), *commands), cwd=folder,
                               stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, check=True,
                               timeout=SECONDS).stdout.decode().splitlines()
    return medians([line.split() for line in lines])


def medians(lines: list[list[str]]) -> tuple[float, float]:
    times: dict[str, list[int]] = {"0": [], "1": []}
    for which, microseconds in lines:
        times[which].append(int(microseconds))
    if [len(some) for some in times.values()] != [ROUNDS, ROUNDS]:
        raise ValueError(f"not every run was measured: {lines}")
    empty, ours = (statistics.median(some) / 1000 for some in times.values())
    return empty, ours


def main(result: Path) -> int:
    result.unlink(missing_ok=True)
    for attempt in range(1, ATTEMPTS + 1):
        empty, ours = measure()
        line = (f"start of kvxinfo.exe version under Wine: {ours:.1f} ms; of an empty program: {empty:.1f}; "
                f"difference: {ours - empty:.1f} ms, at most {MILLISECONDS_AT_MOST:g} (medians of {ROUNDS})")
        print(f"attempt {attempt}: {line}", flush=True)
        result.write_text(line + "\n", encoding="utf-8")
        if ours - empty <= MILLISECONDS_AT_MOST:
            return 0
    return 1


if __name__ == "__main__":
    sys.exit(main(Path(sys.argv[1])))
