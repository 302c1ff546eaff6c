#!/usr/bin/env python3
"""Makes the table of letter case out of the Unicode data.

letter_case.py UNICODEDATA   prints src/runtime/host/letter_case_table.h
                             UNICODEDATA: UnicodeData.txt (Debian: package unicode-data)

Windows' own table maps a unit to upper case only where the way back leads to the same unit: dotless i, long s, final
sigma and the like stand for themselves.
"""

import sys
from pathlib import Path

HEAD = """#pragma once

/// Small letters and their capitals: made from the Unicode data by tools/letter_case.py.

#include <cstdint>

namespace host::letter_case {

/// Small letters from `first` to `last`, each `step` behind the one before; the capital of each stands `distance`
/// behind it.
struct Range {
    std::uint16_t first, last, step;
    std::int32_t distance;
};

inline constexpr Range ranges[] = {
"""
TAIL = """};

}  // namespace host::letter_case
"""


def pairs(text: str) -> dict[int, int]:
    """The capital of each small letter of the basic plane."""
    upper, lower = {}, {}
    for line in text.splitlines():
        fields = line.split(";")
        for target, field in ((upper, fields[12]), (lower, fields[13])):
            if field:
                target[int(fields[0], 16)] = int(field, 16)
    return {small: capital for small, capital in sorted(upper.items())
            if lower.get(capital) == small and capital < 0x10000}


def ranges(capitals: dict[int, int]) -> list[list[int]]:
    """[first, last, step, distance] of the fewest ranges that a walk upwards finds."""
    found: list[list[int]] = []
    for small, capital in capitals.items():
        distance = capital - small
        if found and found[-1][3] == distance:
            first, last, step, _ = found[-1]
            if small - last in (1, 2) and (first == last or small - last == step):
                found[-1][1:3] = small, small - last
                continue
        found.append([small, small, 1, distance])
    return found


def main(arguments: list[str]) -> int:
    rows = ranges(pairs(Path(arguments[0]).read_text(encoding="ascii")))
    print(HEAD, end="")
    for first, last, step, distance in rows:
        print(f"    {{0x{first:04X}, 0x{last:04X}, {step}, {distance}}},")
    print(TAIL, end="")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
