#!/usr/bin/env python3
"""The check of the register finds what is missing."""

import pathlib
import tempfile
import unittest

from register import faults


class Register(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)
        self.project = pathlib.Path(self.folder.name)
        self.write("src/main/report_register.cpp", 'returns(L"one", inAll),\n    prints (L"two", inAll),\n')
        self.write("docs/reports.md", "# Reports\n\n## one\n\n## two\n\n## Other things\n")
        self.write("tests/scenarios/one/a.scenario", "")
        self.write("tests/scenarios/two/a.scenario", "")

    def write(self, name, text):
        path = self.project / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text)

    def test_complete(self):
        self.assertEqual(faults(self.project), [])

    def test_scenarios_missing(self):
        (self.project / "tests/scenarios/two/a.scenario").unlink()
        self.assertEqual(faults(self.project), ["two: no scenario in tests/scenarios/two"])

    def test_section_missing(self):
        self.write("docs/reports.md", "## one\n")
        self.assertEqual(faults(self.project), ["two: no section in docs/reports.md"])

    def test_sections_in_another_order(self):
        self.write("docs/reports.md", "## two\n\n## one\n")
        self.assertEqual(len(faults(self.project)), 1)

    def test_no_register(self):
        self.write("src/main/report_register.cpp", "")
        self.assertEqual(faults(self.project), ["no row of the register was found"])


if __name__ == "__main__":
    unittest.main()
