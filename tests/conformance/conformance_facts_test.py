#!/usr/bin/env python3
"""Facts about this computer: what cannot be learnt ends in words. A round that breaks leaves the others."""

import contextlib
import io
import sys
import tempfile
import unittest
from argparse import Namespace
from pathlib import Path
from unittest import mock

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "tools"))

import conformance  # noqa: E402
import conformance_facts  # noqa: E402
from scenario_file import Mistake  # noqa: E402

IPCONFIG = """
Ethernet adapter eth0

    IPv4 address. . . . . . . . . . . : 10.0.0.1
Ethernet adapter lo

    IPv4 address. . . . . . . . . . . : 127.0.0.1
"""


class Facts(unittest.TestCase):
    def test_an_adapter_of_which_linux_tells_nothing_is_up(self):
        with tempfile.TemporaryDirectory() as name, \
                mock.patch.object(conformance_facts, "NETWORK", Path(name)):
            self.assertEqual(conformance_facts.adapters(IPCONFIG), {"eth0": ["10.0.0.1"]})

    def test_an_adapter_that_is_down_is_left_out(self):
        for flags, found in (("0x1002", {}), ("0x1003", {"eth0": ["10.0.0.1"]})):
            with self.subTest(flags=flags), tempfile.TemporaryDirectory() as name, \
                    mock.patch.object(conformance_facts, "NETWORK", Path(name)):
                (Path(name) / "eth0").mkdir()
                (Path(name) / "eth0" / "flags").write_text(flags + "\n")
                self.assertEqual(conformance_facts.adapters(IPCONFIG), found)

    def test_version(self):
        values = {"ProductName": "W", "UBR": "0x10", "ReleaseId": "22H2"}
        self.assertEqual(
            conformance_facts.facts_of_windows(values, "x 10.0.1 y"),
            {"windows": "W", "release": "release = 22H2\n", "version": "10.0.1.16"})

    def test_what_wine_does_not_tell_is_a_mistake(self):
        for values, told in (({}, "10.0.1"), ({"ProductName": "W"}, "")):
            with self.subTest(told=told), self.assertRaisesRegex(Mistake, "which Windows it is"):
                conformance_facts.facts_of_windows(values, told)


class Rounds(unittest.TestCase):
    def test_one_that_breaks_does_not_take_the_others_with_it(self):
        def run_round(round_, *_):
            if round_.name == "refused":
                raise Mistake("no luck")
            return ("a -> 1\n", "a -> 2\n") if round_.name == "domain" else ("a -> 1\n", "a -> 1\n")

        prefix = mock.Mock()
        prefix.clear.side_effect = OSError("busy")
        with mock.patch.multiple(conformance, run_round=run_round, scenario_of=mock.Mock(),
                                 facts_of=mock.Mock(), wine_standins=mock.Mock()), \
                mock.patch.object(conformance.scenario_wine, "Prefix", return_value=prefix), \
                contextlib.redirect_stdout(io.StringIO()) as output:
            status = conformance.compare_all(Namespace(program_dir=Path(), wine=Path(), keep=None))
        self.assertEqual(status, 1)
        self.assertEqual(output.getvalue(), """\
domain: a
    native:  1
    windows: 2
refused: no luck
what was staged cannot be taken back: busy
6 answers are the same, 0 differ as listed, 3 wrong
""")


if __name__ == "__main__":
    unittest.main()
