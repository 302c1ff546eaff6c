#!/usr/bin/env python3
"""The finished program: hardened, described, small, and complete in one file.

Beside the variables of windows_program: KVX_BUILD names the build folder, KVX_NM the lister of symbols.
"""

import json
import os
import subprocess
import unittest
import xml.etree.ElementTree as ElementTree
from pathlib import Path

from windows_program import HELPERS, InFolder, PROGRAMS, ROOT
from pe_file import (DYNAMIC_BASE, HIGH_ENTROPY_VA, NX_COMPAT, PeFile, RELOCATIONS, RELOCATIONS_STRIPPED,
                     RESOURCE_MANIFEST, RESOURCE_VERSION, TERMINAL_SERVER_AWARE, version_info)

BUILD = Path(os.environ["KVX_BUILD"]).resolve()
NM = os.environ["KVX_NM"]
VERSION = (6, 1, 5, 2)
BYTES_AT_MOST = 999_999
FAIL_FAST = b"\xcd\x29"  # the instruction by which a broken stack ends the process
STACK_OVERRUN = 0xC0000409 & 0xFF  # Wine passes on the low byte

WINDOWS_8_1 = "{1f676c76-80e1-4239-95bb-83d0f6d0da78}"
WINDOWS_10 = "{8e0f7a12-bfb3-4fe8-b9a5-48fd50a15a9a}"

FLAGS = {HIGH_ENTROPY_VA: "no high-entropy addresses", DYNAMIC_BASE: "no random base",
         NX_COMPAT: "data can be run",
         # Without it, a session host tells each user a Windows directory of his own.
         TERMINAL_SERVER_AWARE: "not made for session hosts"}
NO_RELOCATIONS = "no relocations: the base is not random, whatever the flags say"


def header_faults(program: PeFile) -> list[str]:
    faults = [fault for flag, fault in FLAGS.items() if not program.dll_characteristics & flag]
    if not program.can_be_moved():
        faults.append(NO_RELOCATIONS)
    return faults


def manifest_faults(manifest: bytes | None) -> list[str]:
    if manifest is None:
        return ["no manifest"]
    root = ElementTree.fromstring(manifest)
    faults = []
    levels = [(e.get("level"), e.get("uiAccess")) for e in root.iter("{urn:schemas-microsoft-com:asm.v3}"
                                                                     "requestedExecutionLevel")]
    if levels != [("asInvoker", "false")]:
        faults.append(f"execution level {levels}")
    systems = {e.get("Id") for e in root.iter("{urn:schemas-microsoft-com:compatibility.v1}supportedOS")}
    for name, identifier in (("8.1", WINDOWS_8_1), ("10", WINDOWS_10)):
        if identifier not in systems:
            faults.append(f"Windows {name} is not supported")
    space = "{http://schemas.microsoft.com/SMI/2016/WindowsSettings}longPathAware"
    if [e.text for e in root.iter(space)] != ["true"]:
        faults.append("no long paths")
    return faults


class Headers(unittest.TestCase):
    def test_programs(self):
        for name in ("kvxinfo", "kvxinfo-ids"):
            with self.subTest(program=name):
                self.assertEqual(header_faults(PeFile.of(PROGRAMS / f"{name}.exe")), [])

    def test_each_fault_is_found(self):
        self.assertEqual(header_faults(PeFile.of(HELPERS / "unguarded.exe")),
                         [*FLAGS.values(), NO_RELOCATIONS])

    def test_missing_relocations_are_found_whatever_the_flags_say(self):
        program = PeFile.of(PROGRAMS / "kvxinfo.exe")
        stripped, without = bytearray(program.data), bytearray(program.data)
        stripped[program.optional - 2] |= RELOCATIONS_STRIPPED
        table = program.optional + 112 + 8 * RELOCATIONS
        without[table:table + 8] = bytes(8)
        for changed in (stripped, without):
            self.assertEqual(header_faults(PeFile(bytes(changed))), [NO_RELOCATIONS])


class Manifest(unittest.TestCase):
    def setUp(self):
        self.manifest = PeFile.of(PROGRAMS / "kvxinfo.exe").resource(RESOURCE_MANIFEST)

    def test_program(self):
        self.assertEqual(manifest_faults(self.manifest), [])

    def test_each_fault_is_found(self):
        self.assertEqual(manifest_faults(PeFile.of(HELPERS / "unguarded.exe").resource(RESOURCE_MANIFEST)),
                         ["no manifest"])
        for old, new, fault in (
                ("asInvoker", "highestAvailable", "execution level [('highestAvailable', 'false')]"),
                (WINDOWS_8_1, "{}", "Windows 8.1 is not supported"),
                (WINDOWS_10, "{}", "Windows 10 is not supported"),
                (">true<", ">false<", "no long paths")):
            with self.subTest(fault=fault):
                changed = self.manifest.replace(old.encode(), new.encode())
                self.assertEqual(manifest_faults(changed), [fault])


class Version(InFolder):
    def test_program(self):
        info = version_info(PeFile.of(PROGRAMS / "kvxinfo.exe").resource(RESOURCE_VERSION))
        self.assertEqual((info.file_version, info.product_version), (VERSION, VERSION))
        self.assertEqual(info.texts, {
            "FileDescription": "HSM client installation check", "FileVersion": "6.1.5.2",
            "InternalName": "kvxinfo", "OriginalFilename": "kvxinfo.exe",
            "ProductName": "HSM client", "ProductVersion": "6.1.5.2"})

    def test_manifest_and_banner_tell_the_same(self):
        root = ElementTree.fromstring(PeFile.of(PROGRAMS / "kvxinfo.exe").resource(RESOURCE_MANIFEST))
        identity = root.find("{urn:schemas-microsoft-com:asm.v1}assemblyIdentity")
        self.assertEqual(identity.get("version"), ".".join(map(str, VERSION)))
        banner = "Version {}, Release {}, Level {}.{} (".format(*VERSION)
        self.assertIn(banner, self.run_program(PROGRAMS / "kvxinfo.exe", "version")[1].decode())


class StackGuard(InFolder):
    def test_every_source_of_the_program_is_compiled_with_it(self):
        entries = json.loads((BUILD / "compile_commands.json").read_text(encoding="utf-8"))
        # Tests compile some of the sources once more, in their own way; the program's objects are below src.
        commands = {Path(entry["file"]).relative_to(ROOT): entry["command"].split() for entry in entries
                    if " -o src/" in entry["command"] and entry["file"].endswith(".cpp")}
        for source in ("src/program/start.cpp", "src/runtime/host/windows/volumes.cpp", "catalog/english/english.cpp"):
            self.assertIn(Path(source), commands)
        for path, command in commands.items():
            with self.subTest(source=path):
                self.assertIn("-fstack-protector-strong", command)
                self.assertNotIn("-fno-stack-protector", command)

    def test_every_storey_calls_it(self):
        for storey in ("host", "runtime", "checker", "main"):
            with self.subTest(storey=storey):
                listed = subprocess.run([NM, "--undefined-only", BUILD / "src" / f"libkvx_{storey}.a"],
                                        check=True, stdout=subprocess.PIPE).stdout.decode()
                self.assertIn("__stack_chk_fail", listed.split())

    def test_it_ends_the_process(self):
        self.assertIn(FAIL_FAST, (PROGRAMS / "kvxinfo.exe").read_bytes())
        self.assertEqual(self.run_program(HELPERS / "smashes_its_stack.exe", "16"), (0, b"x\r\n", b""))
        for size in ("17", "200"):
            with self.subTest(size=size):
                self.assertEqual(self.run_program(HELPERS / "smashes_its_stack.exe", size)[:2],
                                 (STACK_OVERRUN, b""))

    def test_its_value_cannot_be_foreseen(self):
        runs = [self.run_program(HELPERS / "guard_value.exe") for _ in range(5)]
        self.assertEqual({status for status, _, _ in runs}, {0})
        values = [console.decode().strip() for _, console, _ in runs]
        for value in values:
            self.assertRegex(value, "^[0-9a-f]{14}00$")
        for place in range(0, 14, 2):
            with self.subTest(place=place):
                self.assertGreater(len({value[place:place + 2] for value in values}), 1)

    def test_without_it_nothing_notices(self):
        self.assertNotEqual(self.run_program(HELPERS / "smashes_unguarded.exe", "200")[0], STACK_OVERRUN)


class OneFile(InFolder):
    def test_it_is_small(self):
        self.assertLessEqual((PROGRAMS / "kvxinfo.exe").stat().st_size, BYTES_AT_MOST)

    def test_it_needs_no_file_beside_it(self):
        program = self.folder / "alone" / "kvxinfo.exe"
        program.parent.mkdir()
        program.write_bytes((PROGRAMS / "kvxinfo.exe").read_bytes())
        status, console, stderr = self.run_program(program, "version")
        self.assertEqual((status, stderr), (0, b""))
        self.assertIn(b"6.1.5.2", console)
        self.assertEqual([path.name for path in program.parent.iterdir()], ["kvxinfo.exe"])


if __name__ == "__main__":
    unittest.main()
