#!/usr/bin/env python3
"""The programs import only what cannot be planted beside them."""

import struct
import unittest
from pathlib import Path

from windows_program import HELPERS, PROGRAMS
from pe_file import DELAYED_IMPORTS, IMPORTS, NotAProgram, PeFile

# KnownDLLs of every Windows since 8.1: always taken from the system's folder, wherever a program stands. Any
# other would be loaded from beside the program.
NOT_PLANTABLE = {"advapi32.dll", "kernel32.dll", "msvcrt.dll", "ole32.dll", "rpcrt4.dll", "user32.dll",
                 "wldap32.dll", "ws2_32.dll"}


def plantable_imports(program: PeFile) -> list[str]:
    """What the program imports, at its start or later, and others could plant."""
    return sorted({*program.imports(), *program.delayed_imports()} - NOT_PLANTABLE)


def with_delayed_import(path: Path, library: bytes) -> PeFile:
    """The program with a table of libraries to be loaded later, which names this one. It is written over some
    data: the result is there to be read, not to be run."""
    program = PeFile.of(path)
    address = next(section.address for section in program.sections if section.name == ".rdata")
    descriptor = struct.pack("<8I", 1, address + 64, *[0] * 6)
    data = bytearray(program.data)
    begin, entry = program.offset_of(address), program.optional + 112 + 8 * DELAYED_IMPORTS
    data[begin:begin + 96] = (descriptor + bytes(32) + library).ljust(96, b"\0")
    data[entry:entry + 8] = struct.pack("<II", address, 64)
    return PeFile(bytes(data))


class Imports(unittest.TestCase):
    def test_nothing_can_be_planted(self):
        for name in ("kvxinfo", "kvxinfo-ids"):
            with self.subTest(program=name):
                program = PeFile.of(PROGRAMS / f"{name}.exe")
                self.assertIn("kernel32.dll", program.imports())
                self.assertEqual(plantable_imports(program), [])

    def test_a_library_that_is_not_listed_is_found(self):
        self.assertEqual(plantable_imports(PeFile.of(HELPERS / "imports_netapi32.exe")), ["netapi32.dll"])

    def test_a_library_that_is_loaded_later_is_found(self):
        program = with_delayed_import(HELPERS / "empty.exe", b"NETAPI32.dll")
        self.assertEqual(program.delayed_imports(), ["netapi32.dll"])
        self.assertEqual(plantable_imports(program), ["netapi32.dll"])


class DamagedPrograms(unittest.TestCase):
    """Nothing is taken for "no imports" that could not be read."""

    def test_text(self):
        with self.assertRaises(NotAProgram):
            PeFile(b"#!/bin/sh\n" * 100)

    def test_cut_off(self):
        path = HELPERS / "imports_netapi32.exe"
        table = PeFile.of(path).offset_of(PeFile.of(path).directory(IMPORTS)[0])
        whole = path.read_bytes()
        for size in (0, 1, 63, 64, 200, 400, 1024, table, table + 15, table + 25):
            with self.subTest(size=size), self.assertRaises(NotAProgram):
                PeFile(whole[:size]).imports()


if __name__ == "__main__":
    unittest.main()
