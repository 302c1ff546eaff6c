"""What is made for real in a Wine prefix for one machine: orders for the stager, and files.

tests/windows/stager carries the orders out; each has its counterpart, which takes back what it did.
"""

import os
from dataclasses import dataclass, field
from pathlib import Path

from scenario_file import Mistake


@dataclass
class Orders:
    """Lines for the stager. `undo` is carried out before the next machine is staged, last order first."""
    do: list[str] = field(default_factory=list)
    undo: list[str] = field(default_factory=list)

    def add(self, *words: str, undo: tuple[str, ...] = ()) -> None:
        self.do.append(line_of(words))
        if undo:
            self.undo.insert(0, line_of(undo))


def line_of(words: tuple[str, ...]) -> str:
    if any(sign in word for word in words for sign in "\t\r\n"):
        raise Mistake(f"{words}: tabulators and line ends cannot be staged")
    return "\t".join(words)


def windows_path(path: Path) -> str:
    """How Windows calls a file of the host: on C: what is in the prefix's drive, else on Z:."""
    _, within, rest = str(path).partition("/drive_c/")
    return ("C:/" + rest if within else f"Z:{path}").replace("/", "\\")


@dataclass
class Tools:
    """Where the build left what stages: programs and drivers."""
    folder: Path

    def path(self, name: str) -> Path:
        path = self.folder / name
        if not path.is_file():
            raise Mistake(f"{path}: not built; build the preset 'windows'")
        return path


def put_library(path: Path, contents: bytes) -> None:
    """Puts a library into a prefix, in one step: a program that just begins finds the old one or the new."""
    if path.is_symlink() or not path.is_file() or path.read_bytes() != contents:
        begun = path.with_name(f"{path.name}.new")
        begun.write_bytes(contents)
        os.replace(begun, path)
