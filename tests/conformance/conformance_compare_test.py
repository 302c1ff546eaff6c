#!/usr/bin/env python3
"""The comparison itself: each difference that must fail does fail, and says why."""

import tempfile
import unittest
from pathlib import Path

from conformance_compare import Comparison, Mistake, read_list

ENTRY = """\
# A comment.
question: exists 'NUL'
native: 0
windows: 1
reason: A description has no devices.
  They are nowhere.
"""


class Comparing(unittest.TestCase):

    def listed(self, text: str):
        with tempfile.TemporaryDirectory() as name:
            path = Path(name) / "differences.txt"
            path.write_text(text, encoding="utf-8")
            return read_list(path)

    def compare(self, listed: str, native: str, windows: str, round_name: str = "round") -> list[str]:
        comparison = Comparison(self.listed(listed))
        comparison.take(round_name, native, windows)
        return comparison.end()

    def assert_wrong(self, expected: str, *given: str) -> None:
        found = self.compare(*given)
        self.assertEqual(1, len(found), found)
        self.assertIn(expected, found[0])

    def test_equal_answers_are_fine(self):
        self.assertEqual([], self.compare("", "a -> 1\nb -> 2\n", "a -> 1\nb -> 2\n"))

    def test_a_listed_difference_is_fine(self):
        self.assertEqual([], self.compare(ENTRY, "exists 'NUL' -> 0\n", "exists 'NUL' -> 1\n"))

    def test_a_difference_that_is_not_listed_is_shown_with_both_answers(self):
        self.assert_wrong("round: a\n    native:  1\n    windows: 2", "", "a -> 1\n", "a -> 2\n")

    def test_a_question_that_one_host_was_not_asked_is_a_difference(self):
        self.assert_wrong("windows: (not asked)", "", "a -> 1\nb -> 2\n", "a -> 1\n")
        self.assert_wrong("native:  (not asked)", "", "a -> 1\n", "a -> 1\nb -> 2\n")

    def test_the_second_of_two_equal_questions_is_compared_too(self):
        self.assert_wrong("round: a (2)", "", "a -> 1\na -> 1\n", "a -> 1\na -> 2\n")

    def test_a_line_that_is_no_answer_is_compared_too(self):
        self.assert_wrong("a line that is no answer: crashed", "", "a -> 1\n", "a -> 1\ncrashed\n")

    def test_a_listed_difference_that_disappeared_fails(self):
        self.assert_wrong("differences.txt:2: the answers do not differ", ENTRY,
                          "exists 'NUL' -> 1\n", "exists 'NUL' -> 1\n")

    def test_a_listed_difference_that_became_another_fails_twice(self):
        found = self.compare(ENTRY, "exists 'NUL' -> 0\n", "exists 'NUL' -> 2\n")
        self.assertEqual(2, len(found), found)
        self.assertIn("windows: 2", found[0])
        self.assertIn("the answers differ otherwise", found[1])

    def test_a_listed_question_that_is_not_asked_fails(self):
        self.assert_wrong("no such question is asked", ENTRY, "a -> 1\n", "a -> 1\n")

    def test_an_entry_for_another_round_does_not_count(self):
        entry = "in domain\n" + ENTRY.split("\n", 1)[1]
        found = self.compare(entry, "exists 'NUL' -> 0\n", "exists 'NUL' -> 1\n", "workgroup")
        self.assertEqual(2, len(found), found)
        self.assertEqual([], self.compare(entry, "exists 'NUL' -> 0\n", "exists 'NUL' -> 1\n", "domain"))

    def test_expressions_stand_for_the_whole_text(self):
        entry = "question~: exists '.*'\nnative: 0\nwindows~: \\d+\nreason: r\n"
        self.assertEqual([], self.compare(entry, "exists 'a' -> 0\nexists 'b' -> 0\n",
                                          "exists 'a' -> 17\nexists 'b' -> 4\n"))
        self.assertEqual(2, len(self.compare(entry, "exists 'a' -> 0\n", "exists 'a' -> 17 and more\n")))

    def test_an_expression_must_not_stand_for_answers_that_agree(self):
        entry = "question~: exists '.*'\nnative: 0\nwindows~: \\d+\nreason: r\n"
        self.assert_wrong("differences.txt:1: the answers do not differ (any more): round: exists 'b'", entry,
                          "exists 'a' -> 0\nexists 'b' -> 0\n", "exists 'a' -> 17\nexists 'b' -> 0\n")

    def test_wording_is_not_compared_but_its_groups_are(self):
        rule = "wording: error (\\d+): [^']*\nreason: r\n"
        self.assertEqual([], self.compare(rule, "a -> 'error 5: No.'\n", "a -> 'error 5: Denied.'\n"))
        found = self.compare(rule, "a -> 'error 5: No.'\nb -> 'error 5: No.'\n",
                             "a -> 'error 6: No.'\nb -> 'error 5: Denied.'\n")
        self.assertEqual(1, len(found), found)
        self.assertIn("error 6", found[0])

    def test_a_rule_of_wording_that_nothing_needs_fails(self):
        rule = "wording: error (\\d+): [^']*\nreason: r\n"
        answer = "a -> 'error 5: No.'\n"
        self.assert_wrong("the wording does not differ", rule, answer, answer)

    def test_a_listed_difference_holds_without_the_wording(self):
        entries = ("wording: error (\\d+): [^']*\nreason: r\n\n"
                   "question: a\nnative: '<53>'\nwindows: '<66>'\nreason: no network\n")
        self.assertEqual([], self.compare(entries, "a -> 'error 53: x'\nb -> 'error 5: x'\n",
                                          "a -> 'error 66: y'\nb -> 'error 5: y'\n"))

    def test_mistakes_in_the_list(self):
        for text, expected in [
            ("question: a\nnative: 0\nreason: r\n", "lacks windows"),
            ("question: a\nnative: 0\nwindows: 1\n", "lacks a reason"),
            ("question: a\nquestion: b\n", "expected one each"),
            ("nonsense\n", "expected one each"),
            ("question~: (\n", "differences.txt:1: "),
        ]:
            with self.assertRaises(Mistake) as caught:
                self.listed(text)
            self.assertIn(expected, str(caught.exception))


if __name__ == "__main__":
    unittest.main()
