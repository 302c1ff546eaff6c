#!/usr/bin/env python3
"""What stages machines under Wine loses nothing: neither by commands that fail, nor when it is cut off."""

import tempfile
import unittest
from pathlib import Path
from unittest import mock

import scenario_file
import scenario_wine
import wine_command
from scenario_file import Mistake, Scenario
from wine_staging import Tools, put_library

# Stands for tools/wine.sh: notes what it is told, carries out no orders, runs programs; the stager refuses
# orders that `refused` begins, `fails` says how many calls fail before one succeeds.
WINE = r"""#!/bin/sh
here=${0%/*}
echo "$1 ${3##*/}" >> "$here/told"
if [ -s "$here/fails" ]; then
    echo "some output"; echo "no luck" >&2
    sed -i 1d "$here/fails"
    exit 7
fi
[ "$1" = run ] || exit 0
case "$3" in
    */stager.exe)
        orders=$2/drive_c/$(printf %s "${4#C:\\}" | tr '\\' /)
        cat "$orders" >> "$here/orders"
        [ -s "$here/refused" ] || exit 0
        if grep -q "^$(cat "$here/refused")" "$orders"; then echo "error 5"; exit 1; fi ;;
    */*) exec "$3" ;;
    sleep) exec sleep 5 ;;
    *) echo "$3 done" ;;
esac
"""

PLAIN = "What it shows.\n=== wine\n=== console\nhello\n"
SERVICE = """What it shows.
=== wine
stages services
=== machine
[services]
NAME = stopped
=== console
hello
"""
VOLUMES = SERVICE.replace("services", "volumes").replace("NAME = stopped", "D: = fixed")


class FakeWine(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name).resolve()
        self.wine = self.write("wine.sh", WINE)
        self.write("kvxinfo-ids.exe", "#!/bin/sh\necho hello\n")
        for name in ("driver.sys", "driver-unversioned.sys", "stager.exe"):
            self.write(name, "")
        for module in (scenario_wine, wine_command):
            self.start(mock.patch.object(module, "WINE", self.wine))
        self.start(mock.patch.object(wine_command, "PAUSES", (0, 0)))
        for name in ("drive_c", "dosdevices"):
            (self.folder / "prefix" / name).mkdir(parents=True)
        (self.folder / "prefix" / "dosdevices" / "z:").symlink_to("/")

    def start(self, patch):
        patch.start()
        self.addCleanup(patch.stop)

    def write(self, name: str, text: str) -> Path:
        path = self.folder / name
        path.write_text(text, encoding="utf-8")
        path.chmod(0o755)
        return path

    def lines(self, name: str) -> list[str]:
        path = self.folder / name
        return path.read_text(encoding="utf-8").splitlines() if path.exists() else []

    def prefix(self) -> scenario_wine.Prefix:
        return scenario_wine.Prefix(self.folder / "prefix", Tools(self.folder))

    def scenario(self, name: str, text: str) -> Scenario:
        return scenario_file.read(self.write(f"{name}.scenario", text))

    def has_z(self) -> bool:
        return (self.folder / "prefix" / "dosdevices" / "z:").is_symlink()


class Patience(FakeWine):
    def test_two_failures_are_borne(self):
        self.write("fails", "1\n2\n")
        self.assertEqual(wine_command.output_of(self.folder, "reg"), "reg done\n")
        self.assertEqual(self.lines("told"), ["run reg"] * 3)

    def test_the_third_is_told(self):
        self.write("fails", "1\n2\n3\n")
        with self.assertRaisesRegex(Mistake, r"^run \S+ reg query: exit status 7: some output\nno luck$"):
            wine_command.output_of(self.folder, "reg", "query")

    def test_what_does_not_end_is_told(self):
        self.start(mock.patch.object(wine_command, "SECONDS", 0.2))
        with self.assertRaisesRegex(Mistake, r"sleep: not ended after 0\.2 s"):
            wine_command.output_of(self.folder, "sleep")


class CutOff(FakeWine):
    def stage_services(self) -> scenario_wine.Prefix:
        prefix = self.prefix()
        prefix.stage(scenario_wine.staging_of(self.scenario("a", SERVICE.replace("NAME", "left"))))
        return prefix

    def test_the_next_run_takes_back_what_was_made(self):
        self.stage_services()
        made = self.folder / "prefix" / "drive_c" / "spare.sys"
        self.assertTrue(made.exists())
        self.prefix().clear()
        self.assertFalse(made.exists())
        self.assertEqual(self.lines("orders")[-1], "no service\tleft")
        self.assertEqual([told for told in self.lines("told") if told != "run reg"],
                         ["run stager.exe", "stop ", "start ", "run stager.exe"])
        self.assertFalse(self.prefix().in_doubt)

    def test_drives_come_back_wherever_it_was(self):
        """Each step of the way to other drives is the last one once."""
        volumes = self.scenario("a", VOLUMES)
        for step in ("Prefix.stop", "Prefix.set_drives", "wine_staging_volumes.prepare", "patiently"):
            with self.subTest(step=step):
                with mock.patch(f"scenario_wine.{step}", side_effect=KeyboardInterrupt):
                    with self.assertRaises(KeyboardInterrupt):
                        self.prefix().stage(scenario_wine.staging_of(volumes))
                (self.folder / "prefix" / "dosdevices" / "z:").unlink(missing_ok=True)
                self.prefix().clear()
                self.assertTrue(self.has_z())

    def test_drives_come_back_before_others_are_made(self):
        volumes = self.scenario("a", VOLUMES)
        self.prefix().stage(scenario_wine.staging_of(volumes))
        self.assertFalse(self.has_z())
        self.write("told", "")
        self.prefix().stage(scenario_wine.staging_of(volumes))
        starts = [told.strip() for told in self.lines("told") if told.startswith("st")]
        self.assertEqual(starts, ["stop", "start", "stop", "start"])


class Groups(FakeWine):
    def outcomes(self, *scenarios: Scenario) -> list[str]:
        given = scenario_wine.run_all(list(scenarios), self.folder, self.prefix(), 2)
        return [str(one) if isinstance(one, Mistake) else one.console.decode() for one in given]

    def services(self) -> list[Scenario]:
        return [self.scenario(name, SERVICE.replace("NAME", name)) for name in ("one", "two", "three")]

    def test_all_is_well(self):
        self.assertEqual(self.outcomes(*self.services()), ["hello\n"] * 3)
        self.assertFalse((self.folder / "prefix" / "made-by-tests.txt").exists())

    def test_what_cannot_be_staged_fails_alone(self):
        self.write("refused", "service\ttwo")
        one, two, three = self.outcomes(*self.services())
        self.assertEqual((one, three), ("hello\n", "hello\n"))
        self.assertRegex(two, r"two\.scenario: run .* exit status 1: error 5")

    def test_what_cannot_be_taken_back_is_told_of_its_own(self):
        self.write("refused", "no service\ttwo")
        one, two, three = self.outcomes(*self.services())
        self.assertEqual((one, three), ("hello\n", "hello\n"))
        self.assertRegex(two, r"two\.scenario: what was staged cannot be taken back: run ")

    def test_what_cannot_be_removed_is_told_of_its_own(self):
        """The program leaves a file in a folder that was made for its scenario."""
        made = self.folder / "prefix" / "drive_c" / "made"
        self.write("kvxinfo-ids.exe", f"#!/bin/sh\necho hello\n[ ! -d '{made}' ] || : > '{made}/left'\n")
        machine = PLAIN.replace("=== console", "=== machine\n[files]\nC:\\made\\file.txt\n=== console")
        first, second = self.outcomes(self.scenario("first", machine), self.scenario("second", PLAIN))
        self.assertRegex(first, r"first\.scenario: what was staged cannot be taken back: .*made")
        self.assertEqual(second, "hello\n")

    def test_what_cannot_be_run_fails_alone(self):
        """The program that takes rights away is not built."""
        user = SERVICE.replace("services", "user").replace("NAME = stopped", "administrator = no")
        first, second = self.outcomes(self.scenario("first", user), self.scenario("second", PLAIN))
        self.assertRegex(first, r"first\.scenario: .*launcher\.exe: not built")
        self.assertEqual(second, "hello\n")


class Registry(FakeWine):
    def test_what_was_not_imported_whole_is_imported_again(self):
        prefix = self.prefix()
        one = scenario_wine.staging_of(self.scenario("one", PLAIN))
        other = scenario_wine.staging_of(self.scenario("other", SERVICE))
        prefix.stage(one)
        self.write("fails", "1\n2\n3\n")
        with self.assertRaises(Mistake):
            prefix.import_registry(other)
        self.write("told", "")
        prefix.import_registry(one)
        prefix.import_registry(one)
        self.assertEqual(self.lines("told"), ["run reg"])


class Libraries(unittest.TestCase):
    def test_a_link_is_replaced_not_written_through(self):
        with tempfile.TemporaryDirectory() as name:
            own, link = Path(name) / "own.dll", Path(name) / "link.dll"
            own.write_bytes(b"own")
            link.symlink_to(own)
            for contents in (b"own", b"other"):
                put_library(link, contents)
                self.assertFalse(link.is_symlink())
                self.assertEqual((link.read_bytes(), own.read_bytes()), (contents, b"own"))
            self.assertEqual(sorted(path.name for path in Path(name).iterdir()), ["link.dll", "own.dll"])


if __name__ == "__main__":
    unittest.main()
