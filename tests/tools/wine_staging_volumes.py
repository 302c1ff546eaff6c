"""[volumes] under Wine: drives over folders and file-system images of the host.

A drive once made can become another one, but is listed until the server ends.
How large a volume is and what of it is free is up to the host.
"""

import re
import shutil
import subprocess
from dataclasses import dataclass
from pathlib import Path

from machine_text import Staging
from scenario_file import Mistake
from wine_staging import Orders

TYPES = {"removable": "2", "fixed": "3", "network": "4", "optical": "5", "ram": "6"}
OWN_FILE_SYSTEM = {"optical": "CDFS"}
FAT_BITS = {"FAT": "16", "FAT32": "32"}
FAT_MEGABYTES = 40
VOLUME = re.compile(r'(?P<letter>[A-Z]): = (?P<type>\w+)(?: (?P<system>(?!error)[A-Z0-9]+))?'
                    r'(?: "(?P<label>[^"]*)")?(?:(?: free)? [\d.]+ [KMGT]B)*'
                    r'(?: device \S+)?(?P<gone> error 433)?')


@dataclass
class Volume:
    type: str
    system: str
    label: str
    gone: bool


def volumes_of(staging: Staging) -> dict[str, Volume]:
    """The volumes by letter; raises Mistake for what Wine cannot give."""
    volumes: dict[str, Volume] = {}
    for line in staging.section("volumes"):
        if line.startswith("- "):
            volumes.pop(line[2:].strip().rstrip(":"), None)
            continue
        match = VOLUME.fullmatch(re.sub(r"\s+", " ", line))
        if not match or match["type"] not in TYPES:
            raise Mistake(f"[volumes]: Wine cannot be made to answer '{line}'")
        own = OWN_FILE_SYSTEM.get(match["type"], "NTFS")
        system = match["system"] or own
        if system != own and system not in FAT_BITS:
            raise Mistake(f"[volumes]: a drive that is {match['type']} cannot have {system} under Wine")
        volumes[match["letter"]] = Volume(match["type"], system, match["label"] or "", bool(match["gone"]))
    return volumes


def follows(volumes: dict[str, Volume], others: dict[str, Volume]) -> bool:
    """Whether the server that made `others` can make these of them. What C: is, it learns when it starts."""
    return set(others) <= set(volumes) and volumes.get("C") == others.get("C")


def prepare(staging: Staging, folder: Path, drive_c: Path) -> None:
    """Makes what the drives are about below `folder`, before the server is told of them."""
    shutil.rmtree(folder, ignore_errors=True)
    (drive_c / ".windows-label").unlink(missing_ok=True)
    for letter, volume in volumes_of(staging).items():
        root = drive_c if letter == "C" else folder / letter
        root.mkdir(parents=True, exist_ok=True)
        if volume.system in FAT_BITS:
            make_image(image_of(folder, letter), volume)
        elif volume.label:
            (root / ".windows-label").write_text(volume.label + "\n", encoding="utf-8")


def make_image(path: Path, volume: Volume) -> None:
    with path.open("wb") as image:
        image.truncate(FAT_MEGABYTES << 20)
    command = ["/usr/sbin/mkfs.vfat", "-F", FAT_BITS[volume.system]]
    label = ["-n", volume.label] if volume.label else []
    subprocess.run([*command, *label, path], check=True, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL)


def image_of(folder: Path, letter: str) -> Path:
    return folder / f"{letter}.img"


def add_orders(staging: Staging, folder: Path, orders: Orders) -> None:
    """Makes the drives in the running server."""
    for letter, volume in volumes_of(staging).items():
        if letter == "C":
            continue
        image = image_of(folder, letter)
        orders.add("drive", letter.lower(), TYPES[volume.type], "" if volume.gone else str(folder / letter),
                   str(image) if image.exists() and not volume.gone else "")
