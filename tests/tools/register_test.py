#!/usr/bin/env python3
"""The check of the register finds what is missing."""

import unittest

from folder_case import FolderCase
from register import faults


class Register(FolderCase):
    def setUp(self):
        super().setUp()
        self.write("src/main/report_register.cpp", 'returns(L"one", inAll),\n    prints (L"two", inAll),\n')
        self.write("docs/reports.md", "# Reports\n\n## one\n\n## two\n\n## Other things\n")
        self.write("src/runtime/host/description/operation_names.cpp", '{L"OpenW", true},\n{L"A::A"},\n{L"A::f"},\n'
                   '{L"A::both"},\n{L"B::both"},\n{L"B::mf_getValue"},\n')
        self.write("src/checker/one.cpp", "OpenW(); A a(1); a.f(); a.both(); error.mf_getValue();")
        self.write("src/main/report_register.cpp", 'returns(L"one", inAll),\n    prints (L"two", inAll),\n')
        self.fails("one", "OpenW", "A::A", 'A::f "x" call 1')
        self.fails("two", "A::both", "B::both from call 2", "B::mf_getValue")

    def fails(self, folder, *calls):
        """A scenario in which these calls fail."""
        planned = "".join(f"{call} : answer 0\n" for call in calls)
        self.write(f"tests/scenarios/{folder}/a.scenario", f"S.\n=== machine\n[failures]\n{planned}=== console\n")

    def test_complete(self):
        self.assertEqual(faults(self.folder), [])

    def test_scenarios_missing(self):
        (self.folder / "tests/scenarios/two/a.scenario").rename(self.folder / "tests/scenarios/one/b.scenario")
        self.assertEqual(faults(self.folder), ["two: no scenario in tests/scenarios/two"])

    def test_section_missing(self):
        self.write("docs/reports.md", "## one\n")
        self.assertEqual(faults(self.folder), ["two: no section in docs/reports.md"])

    def test_sections_in_another_order(self):
        self.write("docs/reports.md", "## two\n\n## one\n")
        self.assertEqual(len(faults(self.folder)), 1)

    def test_no_register(self):
        self.write("src/main/report_register.cpp", "")
        self.assertEqual(faults(self.folder), ["no row of the register was found"])

    def test_call_that_no_scenario_makes_fail(self):
        self.fails("two", "A::both", "B::mf_getValue")
        self.assertEqual(faults(self.folder), ["B::both: no scenario makes it fail"])

    def test_comment_makes_nothing_fail(self):
        self.fails("two", "A::both", "# B::both", "B::mf_getValue")
        self.assertEqual(faults(self.folder), ["B::both: no scenario makes it fail"])

    def test_call_that_fails_for_another_report_only(self):
        self.fails("one", "A::f")
        self.fails("two", "OpenW", "A::A", "A::both", "B::both", "B::mf_getValue")
        self.assertEqual(faults(self.folder), ["src/checker/one.cpp: no scenario of one makes OpenW fail",
                                                "src/checker/one.cpp: no scenario of one makes A::A fail"])

    def test_full_name_tells_two_methods_apart(self):
        self.write("src/checker/one.cpp", "B::both(); B::mf_getValue();")
        self.assertEqual(faults(self.folder), ["src/checker/one.cpp: no scenario of one makes B::both fail",
                                                "src/checker/one.cpp: no scenario of one makes B::mf_getValue fail"])

    def test_no_operations(self):
        self.write("src/runtime/host/description/operation_names.cpp", "")
        self.assertEqual(faults(self.folder), ["no operation that can fail was found"])


if __name__ == "__main__":
    unittest.main()
