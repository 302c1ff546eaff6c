"""What Wine words otherwise than Windows, so that one expectation holds on both: the texts of system errors,
and the Windows directory. Nothing else is exchanged; numbers stay as they were given."""

import re
from functools import cache

from scenario_run import ROOT

WINDOWS_TEXTS = ROOT / "src" / "runtime" / "host" / "described" / "system_errors.cpp"
ENTRY = re.compile(r'\{(0x[0-9A-F]+|\d+),\s*L"((?:[^"\\]|\\.)*)"((?:\s*L"(?:[^"\\]|\\.)*")*)\}')
# Wine's texts are of one sentence; for some codes it has none.
GIVEN = re.compile(rb"system error (0x[0-9A-F]+|\d+): (?:[^.\r\n|\]]*\.|unknown error)")


@cache
def windows_texts() -> dict[int, str]:
    """The text of each error code that an administrator meets, as Windows has it."""
    texts: dict[int, str] = {}
    for code, first, more in ENTRY.findall(WINDOWS_TEXTS.read_text(encoding="utf-8")):
        texts[int(code, 0)] = first + "".join(re.findall(r'L"((?:[^"\\]|\\.)*)"', more))
    return texts


def as_windows_words_it(text: bytes | None) -> bytes | None:
    """The text of a run under Wine as Windows would have worded it."""
    if text is None:
        return None

    def meant(match: re.Match[bytes]) -> bytes:
        words = windows_texts().get(int(match[1], 0))
        return match[0] if words is None else f"system error {match[1].decode()}: {words}".encode()

    return GIVEN.sub(meant, text).replace(b"C:\\windows", b"C:\\Windows")
