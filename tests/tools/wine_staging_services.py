"""[services] and [versions] under Wine: real kernel drivers, run by the real service control manager."""

import re
import struct
from pathlib import Path

import wine_staging
from machine_text import Staging
from scenario_file import Mistake
from wine_staging import Orders, Tools

DRIVER, UNVERSIONED, FAILING = "driver.sys", "driver-unversioned.sys", "driver-failing.sys"
CAUSE = re.compile(r"! (?:refused|error (?P<code>\d+)) (?P<name>\w+)")
SERVICE = re.compile(r"(?P<name>[^=]+?)\s*=\s*(?P<state>running|stopped)(?:\s+(?P<image>.*))?", re.IGNORECASE)
VERSION = re.compile(r"(?P<path>.+?)\s*=\s*(?P<version>\d+(?:\.\d+){0,3})")
# Signature and structure version, which begin the fixed part of a version resource.
OWN_LIBRARY = Path("/usr/lib/x86_64-linux-gnu/wine/x86_64-windows/sechost.dll")
# By this mark Wine knows its own libraries, which it loads under their own names alone.
BUILTIN = b"Wine builtin DLL"
SPARE = "C:\\spare.sys"
FIXED_PART = struct.pack("<II", 0xFEEF04BD, 0x00010000)


def versions_of(staging: Staging) -> dict[str, str]:
    """Path in small letters, and version, of each image that has one."""
    versions: dict[str, str] = {}
    for line in staging.section("versions"):
        if line.startswith("- "):
            versions.pop(line[2:].strip().lower(), None)
            continue
        match = VERSION.fullmatch(line)
        if not match:
            raise Mistake(f"[versions]: Wine cannot be made to answer '{line}'")
        versions[match["path"].lower()] = match["version"]
    return versions


def stage_images(staging: Staging, tools: Tools) -> None:
    """Gives every `.sys` file of the machine the contents of a driver, with the version that it shall have."""
    versions = versions_of(staging) if "versions" in staging.stages else {}
    for path in list(staging.files):
        if path.lower().endswith(".sys"):
            version = versions.get(path.lower())
            if staging.driver_fails:
                image = tools.path(FAILING).read_bytes()
            elif version:
                image = with_version(tools.path(DRIVER).read_bytes(), version)
            else:
                image = tools.path(UNVERSIONED).read_bytes()
            staging.contents.setdefault(path, image)
    staging.contents[SPARE] = tools.path(DRIVER).read_bytes()


def with_version(image: bytes, version: str) -> bytes:
    """The image, with another file version in its resource."""
    major, minor, build, revision = (*map(int, version.split(".")), 0, 0, 0)[:4]
    at = image.index(FIXED_PART) + len(FIXED_PART)
    return image[:at] + struct.pack("<HHHH", minor, major, revision, build) + image[at + 8:]


def causes_of(staging: Staging) -> dict[str, int]:
    """The services that cannot be asked for, and the error code that they answer."""
    matches = (CAUSE.fullmatch(line) for line in staging.section("services"))
    return {match["name"]: int(match["code"] or 5) for match in matches if match}


def environment_of(staging: Staging) -> dict[str, str]:
    """What a run needs whose services refuse: the library of the service control manager that does so."""
    causes = causes_of(staging)
    if not causes:
        return {}
    text = ";".join(f"{name}={code}" for name, code in causes.items())
    return {"KVX_SERVICE_CAUSES": text, "WINEDLLOVERRIDES": "sechost=n"}


def put_library(prefix: Path, tools: Tools) -> None:
    """Puts the library into the prefix, and Wine's own beside it. Who loads it by chance notices nothing."""
    system = prefix / "drive_c" / "windows" / "system32"
    for name, contents in (("sechost.dll", tools.path("sechost.dll").read_bytes()),
                           ("sechost0.dll", OWN_LIBRARY.read_bytes().replace(BUILTIN, bytes(len(BUILTIN)), 1))):
        wine_staging.put_library(system / name, contents)


def add_orders(staging: Staging, orders: Orders) -> None:
    """Registers the services; what shall run is started."""
    services: dict[str, tuple[str, str]] = {}
    for line in staging.section("services"):
        if line.startswith("- "):
            services.pop(line[2:].strip(), None)
            continue
        if CAUSE.fullmatch(line):
            continue
        match = SERVICE.fullmatch(line)
        if not match:
            raise Mistake(f"[services]: Wine cannot be made to answer '{line}'")
        services[match["name"]] = match["state"].lower(), match["image"] or ""
    for name, (state, image) in services.items():
        state = "failing" if staging.driver_fails and state == "stopped" else state
        orders.add("service", name, state, image, SPARE, undo=("no service", name))
