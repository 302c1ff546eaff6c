"""What of a described machine can be made real under Wine: its registry, its files and their texts.

Of the other sections, those that `stages` names are kept as lines for who can make them real; the rest
describes what Wine answers by itself, and is passed over. docs/machines.md has the format; a mistake in it is
told by the program natively, not here.
"""

import re
from dataclasses import dataclass, field
from pathlib import Path

from scenario_file import Mistake

SECTIONS = {"machine", "system", "environment", "user", "users", "groups", "domain", "domain users",
            "domain groups", "global groups", "volumes", "cluster", "services", "versions",
            "registry", "files", "failures"}
# By what stages them.
SECTIONS_KEPT_FOR = {"services": {"services"}, "versions": {"versions"}, "user": {"user"},
                     "volumes": {"volumes", "devices"}}
GIVEN_TO_EACH_RUN = {"user", "accounts", "cluster"}
REGISTRY_HEADS = ("windows registry editor", "regedit4")

# A text in quotes, or a comment and the blanks before it.
QUOTED_OR_COMMENT = re.compile(r'("(?:\\.|[^"\\])*")|(?:^\s*|\s\s+)#.*')
REGISTRY_QUOTED_OR_COMMENT = re.compile(r'("(?:\\.|[^"\\])*")|(?:^|\s)\s*[#;].*')
REFUSED_KEY = re.compile(r'\[(?P<key>[^\]]+)\]\s*refused')
REGISTRY_CAUSE = re.compile(r'(?:\]|"=)\s*(?:refused|error)\b')


@dataclass
class Staging:
    """What is to be made: the registry as `reg import` reads it, empty files and folders, files with text."""
    registry: list[str] = field(default_factory=list)
    files: dict[str, None] = field(default_factory=dict)
    contents: dict[str, bytes] = field(default_factory=dict)
    stages: frozenset[str] = frozenset()
    sections: dict[str, list[str]] = field(default_factory=dict)
    refused_keys: list[str] = field(default_factory=list)
    driver_fails: bool = False

    def section(self, name: str) -> list[str]:
        """The lines of a section that is to be made real."""
        return self.sections.get(name, [])

    def key(self) -> tuple:
        """Equal for machines that need the same staging; what each run is given by itself does not count."""
        sections = tuple((name, tuple(lines)) for name, lines in sorted(self.sections.items()) if name != "user")
        return (tuple(self.registry), tuple(self.files), tuple(self.contents.items()),
                self.stages - GIVEN_TO_EACH_RUN, sections, tuple(self.refused_keys), self.driver_fails)


def read_text(path: Path) -> str:
    """A text file as Windows' own tools or an editor left it."""
    data = path.read_bytes()
    if data.startswith((b"\xff\xfe", b"\xfe\xff")):
        return data.decode("utf-16")
    return data.decode("utf-8-sig")


def read_machine(path: Path, staging: Staging) -> None:
    """Adds what the description at `path` (a file, or a folder with `machine.txt`) says to `staging`."""
    file = path / "machine.txt" if path.is_dir() else path
    if not file.is_file():
        raise Mistake(f"{path}: no such machine")
    parse_machine(read_text(file), file, staging)


def parse_machine(text: str, file: Path, staging: Staging) -> None:
    """Adds what the description `text` says; paths in it count from the folder of `file`."""
    for place, section, lines in sections_of(text, file):
        if section == "machine":
            take_machine(lines, file, staging)
        elif section == "registry":
            take_registry(place, lines, staging)
        elif section == "files":
            take_files(place, lines, staging)
        elif section.startswith("contents "):
            staging.contents[section.removeprefix("contents ").strip()] = contents_of(lines, file)
        elif SECTIONS_KEPT_FOR.get(section, set()) & staging.stages:
            take_section(section, lines, staging)
        elif section == "failures" and uncommented(lines):
            raise Mistake(f"{place}: failures cannot be planned under Wine")


def sections_of(text: str, file: Path) -> list[tuple[str, str, list[str]]]:
    """Place, name and lines of each section."""
    sections: list[tuple[str, str, list[str]]] = []
    for number, line in enumerate(text.splitlines(), start=1):
        heading = re.fullmatch(r"\s*\[\s*(.*?)\s*\](\s\s+#.*)?\s*", line)
        if heading and (heading[1].lower() in SECTIONS or heading[1].startswith("contents ")):
            sections.append((f"{file}:{number}", heading[1], []))
        elif sections:
            sections[-1][2].append(line)
    return sections


def uncommented(lines: list[str]) -> list[str]:
    """The lines without comments and surrounding blanks; those with nothing left are dropped."""
    bare = (QUOTED_OR_COMMENT.sub(lambda match: match[1] or "", line).strip() for line in lines)
    return [line for line in bare if line]


def take_machine(lines: list[str], file: Path, staging: Staging) -> None:
    for line in uncommented(lines):
        key, _, value = (part.strip() for part in line.partition("="))
        path = file.parent / value
        if key == "base":
            read_machine(path, staging)
        elif key == "registry":
            take_registry(str(path), read_text(path).splitlines(), staging)
        elif key == "files":
            take_files(str(path), read_text(path).splitlines(), staging)


def take_registry(place: str, lines: list[str], staging: Staging) -> None:
    for line in lines:
        bare = REGISTRY_QUOTED_OR_COMMENT.sub(lambda match: match[1] or "", line).strip()
        refused = REFUSED_KEY.fullmatch(bare) if "registry" in staging.stages else None
        if bare == "clear":
            staging.registry.clear()
        elif refused:
            staging.registry.append(f"[{refused['key']}]")
            staging.refused_keys.append(refused["key"])
        elif REGISTRY_CAUSE.search(bare):
            raise Mistake(f"{place}: Wine cannot be made to answer '{bare}'")
        elif bare and not bare.lower().startswith(REGISTRY_HEADS):
            staging.registry.append(bare)


def take_section(section: str, lines: list[str], staging: Staging) -> None:
    kept = staging.sections.setdefault(section, [])
    for line in uncommented(lines):
        kept.clear() if line == "clear" else kept.append(line)


def take_files(place: str, lines: list[str], staging: Staging) -> None:
    for line in uncommented(lines):
        if line == "clear":
            staging.files.clear()
        elif line.startswith("!"):
            raise Mistake(f"{place}: Wine cannot be made to answer '{line}'")
        elif line.startswith("- "):
            remove_below(line[2:].strip(), staging.files)
            remove_below(line[2:].strip(), staging.contents)
        else:
            staging.files[line] = None


def remove_below(removed: str, paths: dict) -> None:
    removed = removed.rstrip("\\").lower()
    for path in [path for path in paths if (path.lower() + "\\").startswith(removed + "\\")]:
        del paths[path]


def contents_of(lines: list[str], file: Path) -> bytes:
    """The text of a file, as the lines of its section or a file beside the description give it."""
    filled = [line.strip() for line in lines if line.strip()]
    local = re.fullmatch(r"from\s*=\s*(.*)", filled[0]) if len(filled) == 1 else None
    if local:
        return (file.parent / local[1]).read_bytes()
    while lines and not lines[-1].strip():
        lines = lines[:-1]
    return "".join(line.removeprefix("|") + "\r\n" for line in lines).encode()
