"""Compares what two hosts answered to the same questions, and knows the differences that may be.

A list of differences is text. `#` begins a comment line. An entry is a block of lines, ended by an empty one:

    in workgroup, domain            the rounds it is about; without the line, all
    question: QVPath::mf_exists 'NUL'
    native: 0                       what the described machine answers
    windows: 1                      what Windows answers
    reason: why both are right, or why the difference cannot be mended here

`question~`, `native~` and `windows~` hold regular expressions for the whole text instead; one entry may then
stand for several questions, all of which must be answered differently. An entry with `wording:` instead is a
rule for all answers: what the expression matches is wording, and only its groups are compared; an answer with
such wording is listed with `<groups>`.
"""

import re
from dataclasses import dataclass, field
from pathlib import Path

KEYS = {"question", "question~", "native", "native~", "windows", "windows~", "wording", "reason"}
NOT_ASKED = "(not asked)"


class Mistake(Exception):
    """A list of differences that cannot be understood."""


@dataclass
class Listed:
    """One entry of the list."""
    place: str
    texts: dict[str, str] = field(default_factory=dict)
    rounds: frozenset[str] = frozenset()

    @property
    def is_wording(self) -> bool:
        return "wording" in self.texts

    def holds(self, key: str, text: str) -> bool:
        """Whether `text` is what the entry says under this key."""
        if key in self.texts:
            return self.texts[key] == text
        return re.fullmatch(self.texts[key + "~"], text) is not None

    def about(self, round_name: str, question: str) -> bool:
        return (not self.rounds or round_name in self.rounds) and self.holds("question", question)

    def allows(self, native: str, windows: str) -> bool:
        return self.holds("native", native) and self.holds("windows", windows)


def read_list(path: Path) -> list[Listed]:
    """The entries of a list; raises Mistake."""
    entries: list[Listed] = []
    entry: Listed | None = None
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), start=1):
        if line.startswith("#"):
            continue
        if not line.strip():
            entry = None
            continue
        if entry is None:
            entry = Listed(f"{path.name}:{number}")
            entries.append(entry)
        take_line(entry, line, f"{path.name}:{number}")
    for entry in entries:
        check_entry(entry)
    return entries


def take_line(entry: Listed, line: str, place: str) -> None:
    if line.startswith("in "):
        entry.rounds = frozenset(name.strip() for name in line[3:].split(","))
        return
    if line.startswith("  ") and "reason" in entry.texts:
        entry.texts["reason"] += " " + line.strip()
        return
    key, separator, text = line.partition(": ")
    if not separator or key not in KEYS or key in entry.texts:
        raise Mistake(f"{place}: expected one each of {', '.join(sorted(KEYS))}, got '{line}'")
    if key.endswith("~") or key == "wording":
        try:
            re.compile(text)
        except re.error as error:
            raise Mistake(f"{place}: {error}") from None
    entry.texts[key] = text


def check_entry(entry: Listed) -> None:
    wanted = ["wording"] if entry.is_wording else ["question", "native", "windows"]
    absent = [key for key in wanted if key not in entry.texts and key + "~" not in entry.texts]
    if absent or not entry.texts.get("reason", "").strip():
        raise Mistake(f"{entry.place}: lacks {', '.join(absent) or 'a reason'}")


def answers_of(transcript: str) -> dict[str, str]:
    """Question and answer of each line; a question that comes again is told by its number."""
    answers: dict[str, str] = {}
    times: dict[str, int] = {}
    for line in transcript.splitlines():
        question, separator, answer = line.partition(" -> ")
        if not separator:
            question, answer = "a line that is no answer: " + line, ""
        times[question] = times.get(question, 0) + 1
        if times[question] > 1:
            question += f" ({times[question]})"
        answers[question] = answer
    return answers


def groups_of(match: re.Match[str]) -> str:
    return "<" + ", ".join(match.groups()) + ">"


@dataclass
class Comparison:
    """Compares rounds, one after the other, and keeps account of the listed differences."""
    listed: list[Listed]
    found: list[str] = field(default_factory=list)  # what is wrong
    same: int = 0
    different: int = 0  # as listed
    used: set[int] = field(default_factory=set)
    asked: set[int] = field(default_factory=set)
    agreed: set[int] = field(default_factory=set)

    def take(self, round_name: str, native: str, windows: str) -> None:
        """Compares the transcripts of a round."""
        ours, theirs = answers_of(native), answers_of(windows)
        for question in [*ours, *(question for question in theirs if question not in ours)]:
            self.compare(round_name, question, ours.get(question, NOT_ASKED), theirs.get(question, NOT_ASKED))

    def compare(self, round_name: str, question: str, native: str, windows: str) -> None:
        about = [index for index, entry in enumerate(self.listed)
                 if not entry.is_wording and entry.about(round_name, question)]
        self.asked.update(about)
        words = self.words(native), self.words(windows)
        if words[0] == words[1]:
            self.same += 1
            if native != windows:
                self.use_wordings(native, windows)
            self.agree(about, round_name, question)
            return
        allowing = [index for index in about
                    if self.listed[index].allows(native, windows) or self.listed[index].allows(*words)]
        if allowing:
            self.different += 1
            self.used.add(allowing[0])
            return
        self.found.append(f"{round_name}: {question}\n    native:  {native}\n    windows: {windows}")

    def agree(self, about: list[int], round_name: str, question: str) -> None:
        """The entries about a question whose answers are the same say too much."""
        self.agreed.update(about)
        places = [self.listed[index].place for index in about]
        self.found += [f"{place}: the answers do not differ (any more): {round_name}: {question}"
                       for place in places]

    def words(self, answer: str, without: int = -1) -> str:
        """The answer with its wording taken out."""
        for index, entry in enumerate(self.listed):
            if entry.is_wording and index != without:
                answer = re.sub(entry.texts["wording"], groups_of, answer)
        return answer

    def use_wordings(self, native: str, windows: str) -> None:
        """Notes the rules without which these answers would differ."""
        for index, entry in enumerate(self.listed):
            if entry.is_wording and self.words(native, index) != self.words(windows, index):
                self.used.add(index)

    def end(self) -> list[str]:
        """All that is wrong: differences without an entry, and entries that nothing bears out."""
        for index, entry in enumerate(self.listed):
            if index in self.used | self.agreed:
                continue
            if entry.is_wording:
                why = "the wording does not differ (any more)"
            elif index in self.asked:
                why = "the answers differ otherwise"
            else:
                why = "no such question is asked (any more)"
            self.found.append(f"{entry.place}: {why}: "
                              + next(text for key, text in entry.texts.items() if key != "reason"))
        return self.found
