"""What the two machines have in common without being staged: facts about this computer and about Wine, learnt
without the programs that are compared."""

import os
import re
import socket
from pathlib import Path

from scenario_file import Mistake
from wine_command import output_of

GOOD_QUOTAS = b"default = 5 GB\nuser S-1-5-21-1-2-3-1001 = unlimited\n"
LARGEST_QUOTA_FILE = 16 * 1024 * 1024
TOO_LONG_TEXT = "long " * 12000
NETWORK = Path("/sys/class/net")
WINDOWS_KEY = r"HKLM\Software\Microsoft\Windows NT\CurrentVersion"


def write_files(folder: Path) -> None:
    """Writes the files whose bytes no description can hold."""
    as_text = GOOD_QUOTAS.decode()
    files = {
        "utf8-marked": b"\xef\xbb\xbf" + GOOD_QUOTAS,
        "utf16-little": b"\xff\xfe" + as_text.encode("utf-16-le"),
        "utf16-big": b"\xfe\xff" + as_text.encode("utf-16-be"),
        "utf16-odd": b"\xff\xfe" + as_text.encode("utf-16-le") + b"x",
        "not-utf8": GOOD_QUOTAS + b"user \xe4 = 1\n",
        "control": GOOD_QUOTAS + b"user \x01 = 1\n",
        "nul": GOOD_QUOTAS + b"user \x00 = 1\n",
        "cr-ends": GOOD_QUOTAS.replace(b"\n", b"\r"),
        "no-end": GOOD_QUOTAS.rstrip(b"\n"),
        "too-large": GOOD_QUOTAS + b"#" * (LARGEST_QUOTA_FILE + 1 - len(GOOD_QUOTAS)),
    }
    for name, contents in files.items():
        (folder / name).write_bytes(contents)


def facts_of(prefix: Path) -> dict[str, str]:
    """What a description can say of this computer as Wine presents it; raises Mistake where Wine does not."""
    facts = {"computer": socket.gethostname().split(".")[0].upper()[:15], "processor": processor_name(),
             "processors": str(os.cpu_count()), "memory": str(memory_bytes()), "disk": size_of_disk(prefix)}
    facts["adapters"] = "".join(f"adapter = {name}: {', '.join(addresses)}\n"
                                for name, addresses in adapters(output_of(prefix, "ipconfig")).items())
    return facts | facts_of_windows(registry_values(output_of(prefix, "reg", "query", WINDOWS_KEY)),
                                    output_of(prefix, "cmd", "/c", "ver"))


def facts_of_windows(values: dict[str, str], told: str) -> dict[str, str]:
    """Name, release and version, by the values of the registry and by what the command `ver` told."""
    version = re.search(r"\d+\.\d+\.\d+", told)
    if not version or "ProductName" not in values:
        raise Mistake(f"Wine does not tell which Windows it is: {values}, {told.strip()}")
    release = values.get("DisplayVersion") or values.get("ReleaseId")
    return {"windows": values["ProductName"], "release": f"release = {release}\n" if release else "",
            "version": f"{version[0]}.{int(values.get('UBR', '0'), 0)}"}


def adapters(ipconfig: str) -> dict[str, list[str]]:
    """The addresses of each adapter that has any and is up, but for the loop."""
    found: dict[str, list[str]] = {}
    name = ""
    for line in ipconfig.splitlines():
        heading = re.match(r"\w.* adapter (\S+)", line)
        address = re.match(r"\s+IPv[46] address[ .]*: (\S+)", line)
        if heading:
            name = heading[1]
        elif address and name != "lo" and is_up(name):
            found.setdefault(name, []).append(address[1])
    return found


def is_up(adapter: str) -> bool:
    """What is not told of is up: it has an address."""
    flags = NETWORK / adapter / "flags"
    return not flags.is_file() or bool(int(flags.read_text(), 0) & 1)


def registry_values(query: str) -> dict[str, str]:
    """The texts and numbers that `reg query` shows of one key."""
    value = re.compile(r"^    (\w+)    REG_(?:SZ|DWORD)    ([^\r\n]*)", re.MULTILINE)
    return {match[1]: match[2] for match in value.finditer(query)}


def size_of_disk(folder: Path) -> str:
    status = os.statvfs(folder)
    return f"{status.f_frsize * status.f_blocks // 1024} KB"


def processor_name() -> str:
    found = re.search(r"^model name\s*: (.*)$", Path("/proc/cpuinfo").read_text(), re.MULTILINE)
    return found[1].strip() if found else ""


def memory_bytes() -> int:
    found = re.search(r"^MemTotal:\s*(\d+) kB$", Path("/proc/meminfo").read_text(), re.MULTILINE)
    return int(found[1]) * 1024 if found else 0


def system_section(facts: dict[str, str], current_directory: str) -> str:
    """[system] as Wine presents this computer. When it was started is left to the comparison."""
    processor = f"processor = {facts['processor']}\n" if facts["processor"] else ""
    return (f"[system]\ncomputer = {facts['computer']}\nprocessors = {facts['processors']}\n{processor}"
            f"memory = {facts['memory']}\nwindows = {facts['windows']}\nversion = {facts['version']}\n"
            f"{facts['release']}architecture = x64\ncode page = 1252\n"
            f"started = 2001-02-03 04:05:06\n{facts['adapters']}"
            f"windows directory = C:\\windows\ncurrent directory = {current_directory}\n")
