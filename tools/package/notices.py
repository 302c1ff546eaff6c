"""What THIRD-PARTY.txt says, for the bill of materials: administrators and machines read the same notices."""

import re

# A heading is underlined; a licence without a name of its own begins with a line that gives it one.
_CHAPTER = re.compile(r"^([^\n]+)\n-+\n(.*?)(?=^[^\n]+\n-+\n|\Z)", re.MULTILINE | re.DOTALL)
_LICENCE = re.compile(r"^(LicenseRef-[\w.-]+)[^\n]*:\n(.*?)(?=^LicenseRef-|\Z)", re.MULTILINE | re.DOTALL)


def copyright_of(component: str, notices: str) -> str:
    """The copyright lines of all chapters whose headings name the component; raises `ValueError` when there
    are none."""
    chapters = [text for heading, text in _CHAPTER.findall(notices)
                if component in re.findall(r"[\w+-]+", heading)]
    lines = [line for text in chapters for line in text.splitlines() if line.startswith("Copyright ")]
    if not lines:
        raise ValueError(f"THIRD-PARTY.txt has no copyright of {component}")
    return "\n".join(lines)


def licences_in(expression: str) -> list[str]:
    """The licences of the expression that have no name in the list of SPDX."""
    return re.findall(r"LicenseRef-[\w.-]+", expression)


def licence_text(name: str, notices: str) -> str:
    """The text of a licence `LicenseRef-...`; raises `ValueError` when it is not there."""
    texts = {found: text.strip() for _, chapter in _CHAPTER.findall(notices)
             for found, text in _LICENCE.findall(chapter)}
    if not texts.get(name):
        raise ValueError(f"THIRD-PARTY.txt has no text of {name}")
    return texts[name]
