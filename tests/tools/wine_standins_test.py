#!/usr/bin/env python3
"""What is expected of the stand-in libraries is really asked of them: what must fail does fail."""

import unittest

import scenario_file
import wine_standins
from folder_case import FolderCase
from scenario_compare import diff
from scenario_file import Mistake, Scenario

GOOD = "A sentence.\n=== wine\nstages accounts\n=== console\n"


class StandIns(FolderCase):
    def scenario(self, text: str) -> Scenario:
        return scenario_file.read(self.write("a.scenario", text))

    def differences(self, blocks: str, counts: str) -> list[str]:
        self.write("calls.txt", counts)
        return wine_standins.differences(self.scenario(GOOD + blocks), self.folder)

    def test_counts_as_expected_are_no_difference(self):
        self.assertEqual(self.differences("=== calls\nA 2\nremote at most 250/100 + 2*3 + 1\nB 0\n",
                                          "A 2\nremote 10\n"), [])

    def test_other_counts_are_told(self):
        for expected in ("A 1", "A 3", "A at most 1", "B 1", "A at most 100/100"):
            with self.subTest(expected=expected):
                found = self.differences(f"=== calls\n{expected}\n", "A 2\n")
                given = 2 if expected.startswith("A") else 0
                self.assertEqual(found[0], f"calls: expected {expected}, got {given}")

    def test_at_most_some_are_not_none(self):
        found = self.differences("=== calls\nremote at most 12\n", "A 2\n")
        self.assertEqual(found[0], "calls: expected remote at most 12, got 0")

    def test_where_nothing_was_counted_nothing_is_as_expected(self):
        without = "=== quirks\nno cluster library\n"
        for blocks in ("", "=== calls\nA 0\n", "=== quirks\nA : error 5\n", without + "A : error 5\n",
                       without + "=== calls\nA 0\n"):
            with self.subTest(blocks=blocks):
                found = wine_standins.differences(self.scenario(GOOD + blocks), self.folder)
                self.assertEqual(found, ["calls: no stand-in library left its counts"])
        self.assertEqual(wine_standins.differences(self.scenario(GOOD + without), self.folder), [])

    def test_a_missing_cluster_library_is_met_by_nothing(self):
        self.assertEqual(self.differences("=== quirks\nno cluster library\n", "A 1\n"), [])

    def test_what_was_not_given_back_is_told(self):
        for name in ("not given back", "not closed"):
            with self.subTest(name=name):
                self.assertEqual(self.differences("", f"A 1\n{name} 3\n")[0], f"calls: {name}: 3")

    def test_a_quirk_that_nothing_met_is_told(self):
        quirks = "=== quirks\nA : null names\nB call 2 : error 5\n"
        self.assertEqual(self.differences(quirks, "met: A : null names 1\n")[0],
                         "quirks: nothing met 'B call 2 : error 5'")
        self.assertEqual(self.differences(quirks, "met: A : null names 1\nmet: B call 2 : error 5 1\n"), [])

    def test_what_is_no_count_is_a_mistake(self):
        for line in ("A", "12", "A at most", "A many", "A 1 2x"):
            with self.subTest(line=line), self.assertRaisesRegex(Mistake, "is no count of calls"):
                self.scenario(GOOD + f"=== calls\n{line}\n")

    def test_without_stand_ins_there_is_nothing_to_count(self):
        for block in ("=== calls\nA 1\n", "=== quirks\nA : error 5\n"):
            with self.subTest(block=block), self.assertRaisesRegex(Mistake, "stage accounts or cluster"):
                self.scenario("A sentence.\n=== wine\nstages services\n=== console\n" + block)

    def test_quotients_are_rounded_up(self):
        self.assertEqual([wine_standins.sum_of(text) for text in ("7", "250/100", "200/100 + 2*3", "3*5/2")],
                         [7, 3, 8, 9])

    def test_bounds_are_noted(self):
        self.write("calls.txt", "remote 10\n")
        scenario = self.scenario(GOOD + "=== calls\nremote at most 12\nremote 10\n")
        self.assertEqual(wine_standins.notes(scenario, self.folder), ["10 remote calls (A sentence.)"])

    def test_libraries_are_chosen_by_what_is_staged(self):
        def overrides(text: str) -> str:
            return wine_standins.environment_of(self.scenario(text), self.folder)["WINEDLLOVERRIDES"]
        self.assertEqual(overrides(GOOD), "netapi32,clusapi=n")
        without = "A sentence.\n=== wine\nstages services\n=== console\n"
        self.assertEqual(overrides(without), "netapi32,clusapi=b")
        quirks = "=== quirks\nno cluster library\nA : error 5\n"
        self.assertEqual(overrides(GOOD + quirks), "netapi32=n;clusapi=")
        self.assertEqual((self.folder / "quirks.txt").read_text(), "A : error 5\n")


class ManyLines(unittest.TestCase):
    def test_a_line_stands_for_many(self):
        self.assertEqual(scenario_file.to_text(["a", "⋮9-11 u%02d=%d", "⋮1-2 x%d␊", "⋮ no", "⋮1-2 none"]),
                         "a\nu09=9\nu10=10\nu11=11\nx1\n\nx2\n\n⋮ no\n⋮1-2 none\n")

    def test_where_long_texts_part_is_told(self):
        many = [str(number) for number in range(5000)]
        self.assertEqual(diff("console", many, many), "")
        self.assertEqual(diff("console", many, many[:4000] + ["x"] + many[4001:]).splitlines(), [
            "console: 5000 lines expected, 5000 given; from line 4001 on:",
            "-4000", "-4001", "-4002", "+x", "+4001", "+4002"])
        self.assertIn("from line 5000 on:\n-4999", diff("console", many, many[:-1]))


if __name__ == "__main__":
    unittest.main()
