#!/usr/bin/env python3
"""The reports `win` and `ip` name each Windows rightly: its product, release, build and revision.

Which Windows Wine claims to be is a matter of its registry, read when a program starts. What is not asked of
the registry (processors, memory, addresses) is Wine's own.
"""

import re
import unittest
from dataclasses import dataclass
from pathlib import Path

from windows_program import InFolder, PROGRAMS, windows_path

VERSION_KEY = r"HKEY_LOCAL_MACHINE\SOFTWARE\Microsoft\Windows NT\CurrentVersion"
OPTIONS_KEY = r"HKEY_LOCAL_MACHINE\System\CurrentControlSet\Control\ProductOptions"
# A Windows that Wine is told to be as a whole comes before these.
CHOICE_KEY, CHOICE = r"HKEY_CURRENT_USER\Software\Wine", "Version"
VALUE = re.compile(r"    (?P<name>\S+)    REG_(?P<type>SZ|DWORD)    (?P<data>.*)")
WORKSTATION, SERVER, CONTROLLER = "WinNT", "ServerNT", "LanmanNT"


@dataclass
class Windows:
    """What the registry of one Windows holds, and how the reports are to name it."""
    product: str
    type: str
    major: int
    minor: int
    build: int
    revision: int | None = None
    release: tuple[str, str] | None = None  # the value's name, and the release
    shown: str = ""


MACHINES = [
    # The registry of Windows 11 still has the name of Windows 10.
    Windows("Windows 10 Pro", WORKSTATION, 10, 0, 22631, 1234, ("DisplayVersion", "23H2"),
            "Windows 11 Pro 23H2"),
    Windows("Windows 10 Enterprise", WORKSTATION, 10, 0, 19045, 1234, ("DisplayVersion", "22H2"),
            "Windows 10 Enterprise 22H2"),
    Windows("Windows 10 Home", WORKSTATION, 10, 0, 26100, 0, ("DisplayVersion", "24H2"),
            "Windows 11 Home 24H2"),
    Windows("Windows Server 2012 R2 Standard", SERVER, 6, 3, 9600, 20000, None,
            "Windows Server 2012 R2 Standard"),
    # Before there were display versions.
    Windows("Windows Server 2016 Datacenter", SERVER, 10, 0, 14393, 7515, ("ReleaseId", "1607"),
            "Windows Server 2016 Datacenter 1607"),
    Windows("Windows Server 2019 Standard", SERVER, 10, 0, 17763, None, ("ReleaseId", "1809"),
            "Windows Server 2019 Standard 1809"),
    Windows("Windows Server 2022 Standard", CONTROLLER, 10, 0, 20348, 2113, ("DisplayVersion", "21H2"),
            "Windows Server 2022 Standard 21H2"),
    # The build that it shares with Windows 11.
    Windows("Windows Server 2025 Datacenter", SERVER, 10, 0, 26100, 1742, ("DisplayVersion", "24H2"),
            "Windows Server 2025 Datacenter 24H2"),
]


def values_of(machine: Windows) -> dict[str, str]:
    """The values of the version key, as a registry file has them; "-" is none."""
    values = {"ProductName": f'"{machine.product}"', "CurrentBuild": f'"{machine.build}"',
              "CurrentBuildNumber": f'"{machine.build}"', "CSDVersion": "-",
              # Windows itself has said 6.3 here ever since 8.1; Wine takes the version of its kernel from it.
              "CurrentVersion": f'"{machine.major}.{machine.minor}"',
              "UBR": "-" if machine.revision is None else f"dword:{machine.revision:08x}",
              "DisplayVersion": "-", "ReleaseId": "-"}
    if machine.release:
        values[machine.release[0]] = f'"{machine.release[1]}"'
    return values


class Version(InFolder):
    def setUp(self) -> None:
        super().setUp()
        touched = values_of(MACHINES[0])
        before = self.known_values(VERSION_KEY)
        self.addCleanup(self.put, {name: before.get(name, "-") for name in touched},
                        self.known_values(OPTIONS_KEY)["ProductType"].strip('"'),
                        self.known_values(CHOICE_KEY).get(CHOICE, "-"))

    def known_values(self, key: str) -> dict[str, str]:
        status, output, _ = self.run_program(Path("reg.exe"), "query", key)
        self.assertEqual(status, 0)
        found = filter(None, map(VALUE.fullmatch, output.decode().splitlines()))
        return {match["name"]: f'"{match["data"]}"' if match["type"] == "SZ"
                else f"dword:{int(match['data'], 16):08x}" for match in found}

    def put(self, values: dict[str, str], product_type: str, choice: str = "-") -> None:
        lines = ["Windows Registry Editor Version 5.00", "", f"[{VERSION_KEY}]",
                 *(f'"{name}"={data}' for name, data in values.items()),
                 "", f"[{OPTIONS_KEY}]", f'"ProductType"="{product_type}"',
                 "", f"[{CHOICE_KEY}]", f'"{CHOICE}"={choice}', ""]
        path = self.folder / "version.reg"
        path.write_bytes(b"\xff\xfe" + "\r\n".join(lines).encode("utf-16-le"))
        self.assertEqual(self.run_program(Path("reg.exe"), "import", windows_path(path))[0], 0)

    def test_each_windows_is_named(self):
        for machine in MACHINES:
            with self.subTest(windows=machine.shown, build=machine.build):
                self.put(values_of(machine), machine.type)
                status, console, _ = self.run_program(PROGRAMS / "kvxinfo-ids.exe", "win", "ip")
                self.assertEqual(status, 0)
                number = f"{machine.major}.{machine.minor}.{machine.build}.{machine.revision or 0}"
                lines = console.decode().replace("\r\n", "\n").splitlines()
                self.assertIn(f"[3324|    {machine.shown}, version {number} (x64)", lines)
                self.assertIn(f"    Windows:         {machine.shown}", lines)
                self.assertIn(f"    Version:         {number} (x64)", lines)


if __name__ == "__main__":
    unittest.main()
