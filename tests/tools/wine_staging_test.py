#!/usr/bin/env python3
"""What is staged for real under Wine: what a description becomes, and what is refused as a mistake."""

import struct
import tempfile
import unittest
from pathlib import Path

import scenario_file
import wine_staging_devices
import wine_staging_registry
import wine_staging_services
import wine_staging_user
import wine_staging_volumes
from machine_text import Staging, parse_machine
from scenario_file import Mistake
from wine_staging import Orders, windows_path
from wine_wording import as_windows_words_it

HIVE = "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Norvel]"


def staged(text: str, *stages: str) -> Staging:
    staging = Staging(stages=frozenset(stages))
    parse_machine(text, Path("machine.txt"), staging)
    return staging


class WineBlocks(unittest.TestCase):
    def read(self, lines: str) -> scenario_file.Scenario:
        with tempfile.TemporaryDirectory() as name:
            path = Path(name) / "one.scenario"
            path.write_text(f"What it shows.\n=== wine\n{lines}=== console\n", encoding="utf-8")
            return scenario_file.read(path)

    def test_words_of_reason_stage_nothing(self):
        scenario = self.read("It has answers of its own.\n")
        self.assertTrue(scenario.wine)
        self.assertEqual(scenario.stages, frozenset())

    def test_stages(self):
        scenario = self.read("stages services user\ndriver fails\n")
        self.assertEqual(scenario.stages, {"services", "user"})
        self.assertTrue(scenario.driver_fails)

    def test_unknown_stage_has_its_place(self):
        with self.assertRaisesRegex(Mistake, r"one\.scenario:4: 'weather' cannot be staged; known are: acc"):
            self.read("why\nstages user weather\n")

    def test_no_stage(self):
        with self.assertRaises(Mistake):
            self.read("stages\n")


class Registry(unittest.TestCase):
    def orders(self, text: str) -> Orders:
        orders = Orders()
        wine_staging_registry.add_orders(staged(text, "registry"), orders)
        return orders

    def test_raw_data_is_not_left_to_the_import(self):
        text = f'[registry]\n{HIVE}\n"A"=hex(1):61,00,\\\n  62\n"B"="b"\n'
        self.assertEqual(self.orders(text).do, ["raw\tSOFTWARE\\Norvel\tA\t1\t610062"])
        left = wine_staging_registry.importable(staged(text, "registry"))
        self.assertEqual(left, [HIVE, '"B"="b"'])

    def test_what_is_written_later_holds(self):
        self.assertEqual(self.orders(f'[registry]\n{HIVE}\n"A"=hex(4):01\n"a"="text"\n').do, [])
        self.assertEqual(self.orders(f'[registry]\n{HIVE}\n"A"=hex(4):01\n[-{HIVE[1:]}\n').do, [])

    def test_refused_key_is_taken_back(self):
        orders = self.orders(f"[registry]\n{HIVE} refused\n")
        self.assertEqual(orders.do, ["refuse\tSOFTWARE\\Norvel"])
        self.assertEqual(orders.undo, ["allow\tSOFTWARE\\Norvel"])

    def test_refused_value_and_other_causes_are_mistakes(self):
        for line in ('"A"=refused', f"{HIVE} error 1018"):
            with self.assertRaises(Mistake):
                staged(f"[registry]\n{HIVE}\n{line}\n", "registry")

    def test_without_the_stage_nothing_refuses(self):
        with self.assertRaises(Mistake):
            staged(f"[registry]\n{HIVE} refused\n")


class Services(unittest.TestCase):
    def orders(self, text: str, fails: bool = False) -> Orders:
        staging, orders = staged(text, "services"), Orders()
        staging.driver_fails = fails
        wine_staging_services.add_orders(staging, orders)
        return orders

    def test_image_path_as_it_stands(self):
        orders = self.orders("[services]\nfilter = running \\SystemRoot\\a.sys -x\n")
        self.assertEqual(orders.do, ["service\tfilter\trunning\t\\SystemRoot\\a.sys -x\tC:\\spare.sys"])
        self.assertEqual(orders.undo, ["no service\tfilter"])

    def test_only_what_is_stopped_can_fail(self):
        for state, staged_as in (("stopped", "failing"), ("running", "running")):
            orders = self.orders(f"[services]\na = {state}\n", fails=True)
            self.assertEqual(orders.do[0].split("\t")[:3], ["service", "a", staged_as])

    def test_what_is_taken_out_is_not_there(self):
        self.assertEqual(self.orders("[services]\na = running\n- a\n").do, [])

    def test_other_states_and_causes_are_mistakes(self):
        for line in ("a = paused", "! refused"):
            with self.assertRaises(Mistake):
                self.orders(f"[services]\n{line}\n")

    def test_services_that_refuse(self):
        staging = staged("[services]\na = running\n! refused a\n! error 1072 b\n", "services")
        environment = wine_staging_services.environment_of(staging)
        self.assertEqual(environment["KVX_SERVICE_CAUSES"], "a=5;b=1072")
        willing = staged("[services]\na = running\n", "services")
        self.assertEqual(wine_staging_services.environment_of(willing), {})

    def test_version_is_put_into_the_fixed_part(self):
        image = b"MZ.." + wine_staging_services.FIXED_PART + b"\1" * 16
        changed = wine_staging_services.with_version(image, "6.1.5.17")
        self.assertEqual(changed[12:], struct.pack("<HHHH", 1, 6, 17, 5) + b"\1" * 8)


class Volumes(unittest.TestCase):
    def volumes(self, text: str) -> dict[str, wine_staging_volumes.Volume]:
        return wine_staging_volumes.volumes_of(staged(f"[volumes]\n{text}\n", "volumes"))

    def test_what_there_can_be(self):
        volumes = self.volumes('C: = fixed NTFS "System" 1 GB free 1 MB\nE: = removable FAT32\n'
                               'F: = optical error 433')
        self.assertEqual(volumes["C"].label, "System")
        self.assertEqual((volumes["E"].type, volumes["E"].system), ("removable", "FAT32"))
        self.assertTrue(volumes["F"].gone)

    def test_what_there_cannot_be(self):
        for line in ("D: = fixed exFAT", "D: = optical error 21", "D: = unknown", "! error 5",
                     "\\\\?\\Volume{a}\\ = fixed NTFS", 'C: = fixed NTFS "a" folders C:\\mnt'):
            with self.assertRaises(Mistake):
                self.volumes(line)

    def test_drives_can_become_others_but_not_vanish(self):
        one, two = self.volumes("C: = fixed\nD: = fixed"), self.volumes("C: = fixed\nD: = ram\nE: = fixed")
        self.assertTrue(wine_staging_volumes.follows(two, one))
        self.assertFalse(wine_staging_volumes.follows(one, two))
        self.assertFalse(wine_staging_volumes.follows(self.volumes('C: = fixed "A"\nD: = fixed'), one))


class Devices(unittest.TestCase):
    NAME = "Volume{00000045-0000-0000-0000-000000000000}"

    def described(self, *lines: str) -> tuple[int, int, bytes]:
        staging = staged("[volumes]\n" + "".join(line + "\n" for line in lines), "devices")
        text = wine_staging_devices.description_of(staging.section("volumes"))
        return *struct.unpack("<II", text[:8]), text[8:]

    def test_volume(self):
        line = f'E: = removable FAT32 "OLD" 2 GB free 1.5 GB paths error 1117 device \\\\?\\{self.NAME}\\'
        status, count, volume = self.described(line)
        self.assertEqual((status, count), (0, 1))
        *texts, kind, size, free, asked, paths = struct.unpack("<104s64s64s68s36sIQQII", volume)
        names = [text.decode("utf-16-le").rstrip("\0") for text in texts]
        self.assertEqual(names, ["\\??\\" + self.NAME, "\\DosDevices\\E:", "", "OLD", "FAT32"])
        self.assertEqual((kind, size, free, asked, paths), (2, 2 << 30, 3 << 29, 0, 0xC0000185))

    def test_volume_without_letter_that_refuses(self):
        _, _, volume = self.described(f"\\\\?\\{self.NAME}\\ = unknown refused")
        self.assertEqual(volume[104:106], b"\0\0")
        self.assertEqual(struct.unpack("<II", volume[-8:]), (0xC0000022, 0))

    def test_list_that_is_refused(self):
        self.assertEqual(self.described("C: = fixed NTFS", "! refused"), (0xC0000022, 0, b""))

    def test_what_the_driver_cannot_say(self):
        device = f"device \\\\?\\{self.NAME}\\"
        for line in ("C: = fixed NTFS", f"C: = ram NTFS {device}", f"C: = fixed error 12345 {device}",
                     f"C: = fixed {device} folders C:\\mnt", f"\\\\?\\{self.NAME}\\ = fixed NTFS",
                     "C: = fixed device \\\\?\\Volume{c}\\", "! error 12345"):
            with self.assertRaises(Mistake, msg=line):
                self.described(line)

    def test_drives_that_are_opened(self):
        lines = ["C: = fixed NTFS", "D: = fixed NTFS", "E: = optical error 21"]
        self.assertEqual(wine_staging_devices.opened_letters(lines), ["d"])


class Users(unittest.TestCase):
    def test_name_and_rights(self):
        user = wine_staging_user.user_of(staged("[user]\nname = CORP\\eva\nadministrator = no\n", "user"))
        self.assertEqual((user.name, user.administrator), ("eva", False))

    def test_causes_are_mistakes(self):
        with self.assertRaises(Mistake):
            wine_staging_user.user_of(staged("[user]\n! error 5\n", "user"))


class Others(unittest.TestCase):
    def test_stagings_differ_by_what_the_prefix_is_given(self):
        text = "[services]\na = running\n"
        self.assertNotEqual(staged(text, "services").key(), staged(text).key())
        self.assertEqual(staged("[user]\nname = a\n", "user").key(), staged("[user]\nname = b\n", "user").key())

    def test_paths(self):
        self.assertEqual(windows_path(Path("/p/drive_c/a b/c")), "C:\\a b\\c")
        self.assertEqual(windows_path(Path("/tmp/c")), "Z:\\tmp\\c")

    def test_wording(self):
        given = b"x, system error 5: Access denied.\r\n[a|system error 1062: Service not active.]C:\\windows\\a"
        meant = (b"x, system error 5: Access is denied.\r\n"
                 b"[a|system error 1062: The service has not been started.]C:\\Windows\\a")
        self.assertEqual(as_windows_words_it(given), meant)
        unknown = b"system error 66: Bad device type."
        self.assertEqual(as_windows_words_it(unknown), unknown)
        self.assertIsNone(as_windows_words_it(None))


if __name__ == "__main__":
    unittest.main()
