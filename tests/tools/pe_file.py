"""Reads Windows programs and libraries (PE32+): headers, sections, imports, resources."""

import struct
from collections.abc import Iterator
from dataclasses import dataclass
from pathlib import Path

RELOCATIONS_STRIPPED = 0x0001  # of Characteristics

HIGH_ENTROPY_VA = 0x0020  # of DllCharacteristics
DYNAMIC_BASE = 0x0040
NX_COMPAT = 0x0100
TERMINAL_SERVER_AWARE = 0x8000

RESOURCE_VERSION = 16
RESOURCE_MANIFEST = 24

# Entries of the data directory.
IMPORTS, RESOURCES, RELOCATIONS, DELAYED_IMPORTS = 1, 2, 5, 13
DIRECTORY_ENTRIES = 16


class NotAProgram(ValueError):
    """The file is no PE32+ image, or it is damaged."""


@dataclass(frozen=True)
class Section:
    name: str
    address: int  # relative to the image, as all addresses here
    size: int  # in memory
    offset: int
    stored: int  # in the file


class PeFile:
    """One image. Whatever is read raises NotAProgram where the file does not hold what it announces."""

    def __init__(self, data: bytes):
        self.data = data
        if self.at(0, 2) != b"MZ":
            raise NotAProgram("no MZ header")
        header = self.number("<I", 0x3C)
        if self.at(header, 4) != b"PE\0\0":
            raise NotAProgram("no PE header")
        count, optional_size = self.number("<H", header + 6), self.number("<H", header + 20)
        self.characteristics = self.number("<H", header + 22)
        self.optional = header + 24
        if self.number("<H", self.optional) != 0x20B:
            raise NotAProgram("no 64-bit image")
        self.dll_characteristics = self.number("<H", self.optional + 70)
        table = self.optional + optional_size
        self.sections = [self.section(table + 40 * i) for i in range(count)]

    @classmethod
    def of(cls, path: Path) -> "PeFile":
        return cls(path.read_bytes())

    # --- Places ---------------------------------------------------------------------------------------------

    def at(self, offset: int, size: int) -> bytes:
        part = self.data[offset:offset + size]
        if offset < 0 or len(part) != size:
            raise NotAProgram(f"{size} bytes at {offset:#x} lie beyond the end")
        return part

    def number(self, form: str, offset: int) -> int:
        return struct.unpack(form, self.at(offset, struct.calcsize(form)))[0]

    def section(self, offset: int) -> Section:
        name, size, address, stored, where = struct.unpack("<8sIIII", self.at(offset, 24))
        return Section(name.rstrip(b"\0").decode("latin-1"), address, size, where, stored)

    def offset_of(self, address: int) -> int:
        """Where in the file stands what is loaded at `address`."""
        for section in self.sections:
            if section.address <= address < section.address + min(max(section.size, 1), section.stored):
                return section.offset + address - section.address
        raise NotAProgram(f"nothing is stored for address {address:#x}")

    def text(self, address: int) -> str:
        """The narrow text that ends with a zero."""
        begin = self.offset_of(address)
        end = self.data.find(b"\0", begin)
        if end < 0:
            raise NotAProgram(f"the text at {address:#x} does not end")
        return self.data[begin:end].decode("latin-1")

    def directory(self, entry: int) -> tuple[int, int]:
        """Address and size of a table; both 0 where there is none."""
        if entry >= min(self.number("<I", self.optional + 108), DIRECTORY_ENTRIES):
            return 0, 0
        return struct.unpack("<II", self.at(self.optional + 112 + 8 * entry, 8))

    # --- Imports --------------------------------------------------------------------------------------------

    def imports(self) -> list[str]:
        """The libraries that are loaded with the image, in lower case."""
        return list(self.library_names(IMPORTS, size=20, name_at=12))

    def delayed_imports(self) -> list[str]:
        """The libraries that are loaded when the first of their functions is called, in lower case."""
        return list(self.library_names(DELAYED_IMPORTS, size=32, name_at=4))

    def library_names(self, entry: int, size: int, name_at: int) -> Iterator[str]:
        address, _ = self.directory(entry)
        while address:
            name = self.number("<I", self.offset_of(address) + name_at)
            if name == 0:
                return
            yield self.text(name).lower()
            address += size

    # --- Relocations ----------------------------------------------------------------------------------------

    def can_be_moved(self) -> bool:
        """Whether the image tells what must be changed when it is loaded elsewhere. A system that may place
        it at random cannot do so otherwise."""
        address, size = self.directory(RELOCATIONS)
        if self.characteristics & RELOCATIONS_STRIPPED or address == 0:
            return False
        end = address + size
        while address + 8 < end:
            block = self.number("<I", self.offset_of(address) + 4)
            entries = self.at(self.offset_of(address) + 8, max(block - 8, 0))
            if any(kind >> 12 for (kind,) in struct.iter_unpack("<H", entries)):
                return True
            address += max(block, 8)
        return False

    # --- Resources ------------------------------------------------------------------------------------------

    def resource(self, kind: int) -> bytes | None:
        """The first resource of this kind, in whatever language."""
        root, _ = self.directory(RESOURCES)
        if root == 0:
            return None
        base = self.offset_of(root)
        wanted = [target for name, target in self.resource_entries(base, base) if name == kind]
        if not wanted:
            return None
        offset, is_folder = wanted[0]
        while is_folder:
            _, (offset, is_folder) = next(self.resource_entries(base, offset))
        address, size = self.number("<I", offset), self.number("<I", offset + 4)
        return self.at(self.offset_of(address), size)

    def resource_entries(self, base: int, offset: int) -> Iterator[tuple[int, tuple[int, bool]]]:
        """Each entry's number and where it leads: an offset, and whether a folder stands there."""
        count = self.number("<H", offset + 12) + self.number("<H", offset + 14)
        for i in range(count):
            name, target = struct.unpack("<II", self.at(offset + 16 + 8 * i, 8))
            yield name, (base + (target & 0x7FFFFFFF), bool(target >> 31))


@dataclass(frozen=True)
class VersionInfo:
    file_version: tuple[int, ...]
    product_version: tuple[int, ...]
    texts: dict[str, str]


def version_info(resource: bytes) -> VersionInfo:
    """What a version resource says; the texts of all its languages together."""
    key, value, children = version_node(resource)
    if key != "VS_VERSION_INFO" or len(value) < 52 or struct.unpack("<I", value[:4])[0] != 0xFEEF04BD:
        raise NotAProgram("no version resource")
    _, _, high, low, product_high, product_low = struct.unpack("<6I", value[:24])
    texts = {}
    for kind, _, languages in map(version_node, children):
        if kind == "StringFileInfo":
            for _, _, entries in map(version_node, languages):
                for name, text, _ in map(version_node, entries):
                    texts[name] = text.decode("utf-16-le").rstrip("\0")
    return VersionInfo(quadruple(high, low), quadruple(product_high, product_low), texts)


def quadruple(high: int, low: int) -> tuple[int, ...]:
    return high >> 16, high & 0xFFFF, low >> 16, low & 0xFFFF


def version_node(data: bytes) -> tuple[str, bytes, list[bytes]]:
    """Key, value and the children's bytes of one node of a version resource."""
    length, value_length, is_text = struct.unpack("<HHH", data[:6])
    end = 6
    while data[end:end + 2] not in (b"\0\0", b""):
        end += 2
    key = data[6:end].decode("utf-16-le")
    begin = aligned(end + 2)
    value = data[begin:begin + value_length * (2 if is_text else 1)]
    children, place = [], aligned(begin + len(value))
    while place + 6 <= min(length, len(data)):
        size = struct.unpack("<H", data[place:place + 2])[0]
        if size < 6:
            raise NotAProgram("a node of the version resource has no size")
        children.append(data[place:place + size])
        place = aligned(place + size)
    return key, value, children


def aligned(offset: int) -> int:
    return (offset + 3) & ~3
