#!/usr/bin/env python3
"""Libraries that somebody put beside the program, or where it is started, are not loaded."""

import re
import shutil
import unittest
from pathlib import Path

from windows_program import HELPERS, InFolder, PROGRAMS, ROOT, windows_path

PLANTED = 77
NOT_FOUND = 1
ARGUMENTS = ("all", "domusers", "domusergr", "save")

# The system has loaded them before any program begins: nothing is looked for any more.
ALWAYS_LOADED = {"kernel32.dll", "ntdll.dll"}
# What programs are known to take from their own folder, directly or by a library of the system that they use.
OFTEN_PLANTED = """
    apphelp bcrypt browcli crypt32 cryptbase cryptnet cryptsp cscapi dbgcore dbghelp dhcpcsvc dhcpcsvc6
    dnsapi dsrole dwmapi fltlib gpapi imm32 linkinfo logoncli mpr msasn1 mswsock ncrypt netapi32
    netutils ntdsapi ntmarta powrprof profapi propsys rasadhlp resutils rsaenh samcli samlib schannel
    secur32 srvcli sspicli userenv uxtheme version wevtapi winhttp winmm winnsi wintrust wkscli wldp
    wtsapi32 zlib1
""".split()


def libraries_of_the_sources() -> set[str]:
    """Every library that the Windows host names."""
    named = set()
    for path in (ROOT / "src" / "runtime" / "host" / "windows").iterdir():
        text = path.read_text(encoding="utf-8")
        named.update(name.lower() for name in re.findall(r'L"([^"\\]+\.dll)"', text))
    return named


LIBRARIES = sorted(libraries_of_the_sources() - ALWAYS_LOADED | {f"{name}.dll" for name in OFTEN_PLANTED})


def without_numbers(console: bytes) -> bytes:
    """The output, but for free space and the like, which differ from run to run, and the blanks around."""
    return re.sub(rb"[0-9 ]+([.,][0-9]+)*", b" ", console)


class Planting(InFolder):
    def setUp(self):
        super().setUp()
        self.marks = self.folder / "marks"
        self.marks.mkdir()
        # Unlike Windows, Wine takes some of these libraries from its own folder, unless it is told otherwise.
        names = ",".join(library.removesuffix(".dll") for library in LIBRARIES)
        self.variables = {"KVX_PLANTED": windows_path(self.marks), "WINEDLLOVERRIDES": f"{names}=n,b"}

    def plant(self, name: str, libraries: list[str]) -> Path:
        """A folder full of planted libraries."""
        folder = self.folder / name
        folder.mkdir()
        for library in libraries:
            shutil.copyfile(HELPERS / "planted.dll", folder / library)
        return folder

    def run_copy(self, program: Path, folder: Path, *arguments: str, current: Path | None = None):
        """Status and output of a copy of the program in `folder`; what was loaded there leaves its mark."""
        copy = folder / program.name
        if not copy.exists():
            shutil.copyfile(program, copy)
        status, console, _ = self.run_program(copy, *arguments, folder=current or folder,
                                              variables=self.variables)
        return status, without_numbers(console)

    def loaded(self) -> list[str]:
        return sorted(path.name.lower() for path in self.marks.iterdir())


class Program(Planting):
    def setUp(self):
        super().setUp()
        self.program = PROGRAMS / "kvxinfo-ids.exe"
        self.clean = self.plant("clean", [])
        self.expected = self.run_copy(self.program, self.clean, *ARGUMENTS)
        self.assertEqual(self.expected[0], 0)
        self.assertTrue(self.expected[1].endswith(b"|kvxinfo.log]"), self.expected[1])

    def test_sources_name_what_they_load(self):
        self.assertLessEqual({"clusapi.dll", "iphlpapi.dll", "netapi32.dll", "version.dll"},
                             libraries_of_the_sources())

    def test_sources_load_from_the_system_alone(self):
        """Each call by itself: what the whole process was told about folders must not be needed."""
        calls = []
        for path in sorted((ROOT / "src").rglob("*.[ch]*")):
            calls += re.findall(r"\bLoadLibrary\w*\([^;]*;", path.read_text(encoding="utf-8"))
        self.assertGreaterEqual(len(calls), 2)
        self.assertEqual([call for call in calls if "LOAD_LIBRARY_SEARCH_SYSTEM32" not in call], [])

    def test_beside_the_program(self):
        folder = self.plant("planted", LIBRARIES)
        self.assertEqual(self.run_copy(self.program, folder, *ARGUMENTS), self.expected)
        self.assertEqual(self.loaded(), [])

    def test_in_the_current_directory(self):
        folder = self.plant("planted", LIBRARIES)
        self.assertEqual(self.run_copy(self.program, self.clean, *ARGUMENTS, current=folder), self.expected)
        self.assertEqual(self.loaded(), [])


class CarelessProgram(Planting):
    """What is planted would be loaded by a program that does not mind: the tests above can fail."""

    def setUp(self):
        super().setUp()
        self.program = HELPERS / "loads_by_name.exe"

    def test_beside_the_program(self):
        folder = self.plant("planted", LIBRARIES)
        loaded = {name for name in LIBRARIES if self.run_copy(self.program, folder, name)[0] == PLANTED}
        self.assertEqual(sorted(loaded), self.loaded())
        self.assertEqual(sorted(loaded), LIBRARIES)

    def test_in_the_current_directory(self):
        unknown = "of_no_system.dll"
        clean, folder = self.plant("clean", []), self.plant("planted", [unknown])
        self.assertEqual(self.run_copy(self.program, clean, unknown)[0], NOT_FOUND)
        self.assertEqual(self.run_copy(self.program, clean, unknown, current=folder)[0], PLANTED)
        self.assertEqual(self.loaded(), [unknown])


if __name__ == "__main__":
    unittest.main()
