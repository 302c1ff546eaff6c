#!/usr/bin/env python3
"""Keeps the transcripts in the documentation true.

A fenced block behind a line `<!-- run: [MACHINE] kvxinfo ARG... -->` is what that command prints (MACHINE: a folder of
machines/, absent: the sample); with `report:` instead of `run:` it is the part between banner and closing line. In a
block "..." alone on a line stands for any lines.

    transcripts.py check --program-dir DIR    fails and shows a difference for every block that is not what is printed
    transcripts.py renew --program-dir DIR    writes what is printed into every block without "..."
"""

import argparse
import difflib
import os
import pathlib
import re
import subprocess
import sys
import tempfile

TOP = pathlib.Path(__file__).resolve().parents[2]
BANNER_LINES = 2
CLOSING_LINES = 1
BLOCK = re.compile(r"(?P<head><!-- (?P<what>run|report): (?P<command>[^\n]*?) -->\n+```[a-z]*\n)(?P<text>.*?)(?P<tail>\n```)", re.S)


def documents():
    return [TOP / "README.md", *sorted((TOP / "docs").glob("*.md"))]


def printed(what, command, programs):
    words = command.split()
    machine = None if words[0] == "kvxinfo" else words.pop(0)
    if words.pop(0) != "kvxinfo":
        raise SystemExit(f"not a command of this program: {command}")
    environment = {**os.environ, "LC_ALL": "C"}
    environment.pop("KVXINFO_MACHINE", None)
    if machine:
        environment["KVXINFO_MACHINE"] = str(TOP / "machines" / machine)
    with tempfile.TemporaryDirectory() as folder:
        environment["GCOV_PREFIX"] = folder  # what is printed here is no test of the sources
        run = subprocess.run([programs / "kvxinfo", *words], cwd=folder, env=environment, capture_output=True, timeout=60)
    if run.returncode != 0 or run.stderr:
        raise SystemExit(f"{command}: exit status {run.returncode}, standard error {run.stderr!r}")
    lines = [line.rstrip() for line in run.stdout.decode().replace("\r\n", "\n").strip("\n").split("\n")]
    if what == "report":
        lines = lines[BANNER_LINES:-CLOSING_LINES]
    return "\n".join(lines).strip("\n")


def matches(expected, actual):
    pattern = "\n".join(r"(?:.*\n)*?.*" if line == "..." else re.escape(line) for line in expected.split("\n"))
    return re.fullmatch(pattern, actual) is not None


def check(programs):
    blocks = wrong = 0
    for document in documents():
        for block in BLOCK.finditer(document.read_text()):
            blocks += 1
            actual = printed(block["what"], block["command"], programs)
            if matches(block["text"], actual):
                continue
            wrong += 1
            print(f"{document.relative_to(TOP)}: {block['command']}")
            print("\n".join(difflib.unified_diff(block["text"].split("\n"), actual.split("\n"), "written", "printed", lineterm="")))
    print(f"{blocks - wrong} passed, {wrong} failed")
    return 1 if wrong or not blocks else 0


def renew(programs):
    for document in documents():
        text = document.read_text()
        new = BLOCK.sub(
            lambda block: block[0] if "\n...\n" in block["text"] else block["head"] + printed(block["what"], block["command"], programs) + block["tail"],
            text)
        if new != text:
            document.write_text(new)
    return 0


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("what", choices=["check", "renew"])
    parser.add_argument("--program-dir", type=pathlib.Path, default=TOP / "build/native/bin")
    arguments = parser.parse_args()
    return {"check": check, "renew": renew}[arguments.what](arguments.program_dir.resolve())


if __name__ == "__main__":
    sys.exit(main())
