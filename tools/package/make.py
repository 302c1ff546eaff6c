#!/usr/bin/env python3
"""Makes the package that administrators get: the program, its documents, checksums and a bill of materials.

    make.py --version 6.1.5.2 --released 2026-11-20 --compiler g++ --map kvxinfo.map
            --output kvxinfo-6.1.5.2-x64.zip kvxinfo.exe README.txt reports.md ...

Its bytes depend on these alone: everything in it is as old as the release, or as SOURCE_DATE_EPOCH says.
"""

import argparse
import datetime
import hashlib
import os
import pathlib
import re
import sys

from archive import write_archive
from components import components
from sbom import bill_of_materials


def for_windows(text: str) -> bytes:
    """A document as editors of every Windows show it; remarks for those who keep it are left out."""
    readable = re.sub(r"^<!--.*?-->\n", "", text, flags=re.MULTILINE | re.DOTALL)
    return readable.replace("\n", "\r\n").encode()


def moment_of(released: str) -> datetime.datetime:
    epoch = os.environ.get("SOURCE_DATE_EPOCH")
    if epoch:
        return datetime.datetime.fromtimestamp(int(epoch), datetime.timezone.utc)
    return datetime.datetime.fromisoformat(released).replace(tzinfo=datetime.timezone.utc)


def checksums(files: dict[str, bytes]) -> bytes:
    """What `sha256sum --check` takes."""
    lines = (f"{hashlib.sha256(files[name]).hexdigest()}  {name}\n" for name in sorted(files))
    return "".join(lines).encode()


def main() -> int:
    parser = argparse.ArgumentParser()
    for option in ("--version", "--released", "--compiler"):
        parser.add_argument(option, required=True)
    for option in ("--map", "--output", "program"):
        parser.add_argument(option, type=pathlib.Path, **({"required": True} if option[0] == "-" else {}))
    parser.add_argument("documents", type=pathlib.Path, nargs="+", help="with THIRD-PARTY.txt among them")
    options = parser.parse_args()

    moment = moment_of(options.released)
    program = options.program.name
    files = {program: options.program.read_bytes()}
    files |= {path.name: for_windows(path.read_text(encoding="utf-8")) for path in options.documents}
    notices = next(path for path in options.documents if path.name == "THIRD-PARTY.txt")
    try:
        linked = components(options.map.read_text(encoding="utf-8", errors="replace"), options.compiler)
        bill = bill_of_materials(options.output.stem, options.version, program, files, linked,
                                 notices.read_text(encoding="utf-8"), moment)
    except ValueError as mistake:
        print(f"make.py: {mistake}", file=sys.stderr)
        return 1
    files["kvxinfo.spdx.json"] = bill
    files["SHA256SUMS"] = checksums(files)
    write_archive(options.output, files, moment)
    return 0


if __name__ == "__main__":
    sys.exit(main())
