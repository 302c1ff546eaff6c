#!/usr/bin/env python3
"""exports.py OBJDUMP LIBRARY: writes the module definition of a library that hands every call on to a copy of LIBRARY
named NAME0, but for those that it has itself as Kvx... ."""

import re
import subprocess
import sys
from pathlib import Path

OWN = {"OpenServiceW"}
NAME = re.compile(r"^\s*\[\s*\d+\] (\w+)$", re.MULTILINE)


def main(objdump: str, library: str) -> int:
    listing = subprocess.run([objdump, "-p", library], check=True, capture_output=True, text=True).stdout
    names = NAME.findall(listing[listing.index("[Ordinal/Name Pointer] Table"):])
    original = Path(library).stem + "0"
    print("EXPORTS")
    for name in sorted(set(names)):
        print(f"  {name} = Kvx{name}" if name in OWN else f"  {name} = {original}.{name}")
    return 0 if OWN <= set(names) else 1


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
