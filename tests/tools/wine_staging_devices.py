"""[volumes] under Wine, answered by a kernel driver in the mount manager's place: what no drive of the host can
be, such as an empty drive, an unreadable or unmounted one. tests/windows/driver/volumes.cpp has the layout.

Nothing can be mounted in a folder: of a volume's paths, Wine tells the letter alone.
"""

import re
import struct

from machine_text import Staging
from scenario_file import Mistake
from wine_staging import Orders

SERVICE, KEY = "kvxvolumes", "System\\CurrentControlSet\\Services\\kvxvolumes"
IMAGE = "C:\\kvxvolumes.sys"
DRIVER = "volumes.sys"
REG_BINARY = "3"
MOST_VOLUMES = 16

# What Wine believes of a drive that it cannot open, and of one that it can.
TYPES = {"unknown": 0, "removable": 2, "optical": 5}
TYPES_OF_OPENED = {"fixed": 3}
# The status that becomes each error code.
STATUS = {0: 0, 5: 0xC0000022, 21: 0xC0000013, 1005: 0xC000014F, 1117: 0xC0000185, 1167: 0xC000009D,
          1392: 0xC0000102}
UNITS = {"KB": 1 << 10, "MB": 1 << 20, "GB": 1 << 30, "TB": 1 << 40}
ERROR = r"(?:refused|error (\d+))"
DETAILS = {
    "label": re.compile(r'"([^"]*)"'),
    "paths": re.compile("paths " + ERROR),
    "status": re.compile(ERROR),
    "free": re.compile(r"free ([\d.]+) ([KMGT]B)"),
    "size": re.compile(r"([\d.]+) ([KMGT]B)"),
    "device": re.compile(r"device (\S+)"),
    "system": re.compile(r"(?!folders\b)(\S+)"),
}
VOLUME_NAME = re.compile(r"\\\\\?\\(Volume\{[0-9a-f]{8}(?:-[0-9a-f]{4}){3}-[0-9a-f]{12}\})\\", re.IGNORECASE)


def add_orders(staging: Staging, image: bytes, orders: Orders) -> None:
    """Puts the driver into the machine's files, and its description where the driver looks for it."""
    staging.contents[IMAGE] = image
    orders.add("raw", KEY, "Volumes", REG_BINARY, description_of(staging.section("volumes")).hex())
    orders.add("service", SERVICE, "running", IMAGE, IMAGE, undo=("no service", SERVICE))


def description_of(lines: list[str]) -> bytes:
    """The description as the driver reads it; raises Mistake for what it cannot say."""
    causes = [line for line in lines if line.startswith("!")]
    if causes:
        return struct.pack("<II", status_of(re.fullmatch("! " + ERROR, causes[-1]), causes[-1]), 0)
    volumes: dict[str, bytes] = {}
    for line in lines:
        name, given, value = (part.strip() for part in line.partition("="))
        if line.startswith("- "):
            volumes.pop(line[2:].strip(), None)
        elif given:
            volumes[name] = packed(name, value, line)
    if len(volumes) > MOST_VOLUMES:
        raise Mistake(f"[volumes]: the driver knows at most {MOST_VOLUMES}")
    return struct.pack("<II", 0, len(volumes)) + b"".join(volumes.values())


def opened_letters(lines: list[str]) -> list[str]:
    """The drives for which there must be something to open."""
    matches = (re.match(r"([A-Z]): = (\w+)", re.sub(r"\s+", " ", line)) for line in lines)
    return [match[1].lower() for match in matches if match and match[2] in TYPES_OF_OPENED and match[1] != "C"]


def status_of(error: re.Match[str] | None, line: str) -> int:
    code = int(error[1] or 5) if error else -1
    if code not in STATUS:
        raise Mistake(f"[volumes]: the driver cannot answer '{line}'")
    return STATUS[code]


def packed(name: str, value: str, line: str) -> bytes:
    """One volume, as the driver has it."""
    drive, _, rest = value.partition(" ")
    found = details_of(rest, line)
    letter = re.fullmatch("([A-Z]):", name)
    device = VOLUME_NAME.fullmatch(found["device"][1] if "device" in found else name)
    types = TYPES | TYPES_OF_OPENED if letter else {"unknown": 0}
    if drive not in types or not device:
        raise Mistake(f"[volumes]: '{line}' lacks the volume's full name, or the driver cannot be '{drive}'")
    status = status_of(found["status"], line) if "status" in found else 0
    path_status = status_of(found["paths"], line) if "paths" in found else 0
    return struct.pack("<104s64s64s68s36sIQQII", units("\\??\\" + device[1]),
                       units(f"\\DosDevices\\{letter[1]}:" if letter else ""), b"",
                       units(found["label"][1] if "label" in found else ""),
                       units(found["system"][1] if "system" in found else ""),
                       types[drive], bytes_of(found.get("size")), bytes_of(found.get("free")),
                       status, path_status)


def details_of(rest: str, line: str) -> dict[str, re.Match[str]]:
    """What stands behind the type, by kind."""
    found: dict[str, re.Match[str]] = {}
    rest = re.sub(r"\s+", " ", rest).strip()
    while rest:
        for kind, pattern in DETAILS.items():
            match = pattern.match(rest)
            if match:
                found[kind] = match
                rest = rest[match.end():].strip()
                break
        else:
            raise Mistake(f"[volumes]: the driver cannot say '{rest}' of '{line}'")
    return found


def bytes_of(size: re.Match[str] | None) -> int:
    return int(float(size[1]) * UNITS[size[2]]) if size else 0


def units(text: str) -> bytes:
    return text.encode("utf-16-le")
