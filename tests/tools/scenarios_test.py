#!/usr/bin/env python3
"""The scenario runner itself: above all, that a scenario which must fail does fail, and says why."""

import contextlib
import io
import tempfile
import unittest
from pathlib import Path
from unittest import mock

import scenario_file
import scenario_list
import scenario_run
import scenario_wine
import scenarios
from machine_text import Staging, parse_machine
from scenario_compare import Outcome, log_lines
from scenario_failures import failing

# Stands for the program: banner and arguments on the console, a log of two records, a report on "save".
PROGRAM = r"""#!/bin/sh
printf '\n[3254]\n%s\r\n[3089|kvxinfo.log]' "$*"
printf '2026-11-19 07:30:00.123+01:00 [42] I _tmain: one\r\n    more\r\n' > kvxinfo.log
printf '2026-11-19 07:30:00.124+01:00 [42] E QVMain::mf_x: bad\nline\r\n' >> kvxinfo.log
case "$*" in
    *save*) printf 'a\r\r\nb \344\r\n' > check_installation.txt ;;
    *machine*) cat "$KVXINFO_MACHINE" ;;
    *loop*) while :; do sleep 1; done ;;
    *crash*) kill -SEGV $$ ;;
    *sanitizer*) echo 'x.cpp:1:2: runtime error: signed integer overflow' >&2; exit 1 ;;
    *twelve*) printf 'Failure: 1' >&2; exit 12 ;;
    *remove*) rm -r folder ;;
    *empty*) rm folder/* ;;
    *replace*) rm -r folder; : > folder ;;
    *look*) cat given; ls folder; printf '%s' "$COLOUR" ;;
esac
"""

GOOD = """\
What it shows.
=== command
one 'two words'
=== console

[3254]
one two words␍
[3089|kvxinfo.log]¬
=== no report
=== log
I _tmain: one
    more
E QVMain::mf_x: bad␊line
"""


class RunnerTest(unittest.TestCase):
    """Runs scenario texts over the stand-in program."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="a folder with blanks ")
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        self.write("kvxinfo-ids", PROGRAM).chmod(0o755)

    def write(self, name: str, text: str) -> Path:
        path = self.folder / name
        path.parent.mkdir(exist_ok=True)
        path.write_text(text, encoding="utf-8")
        return path

    def call(self, *arguments) -> tuple[int, str]:
        output = io.StringIO()
        with contextlib.redirect_stdout(output), contextlib.redirect_stderr(output):
            status = scenarios.main([str(argument) for argument in arguments])
        return status, output.getvalue()

    def run_text(self, text: str) -> tuple[int, str]:
        return self.call("run", "--program-dir", self.folder, self.write("one.scenario", text))

    def assert_passes(self, text: str):
        self.assertEqual(self.run_text(text), (0, "1 passed, 0 failed\n"))

    def assert_fails(self, text: str, *reasons: str):
        status, output = self.run_text(text)
        self.assertEqual(status, 1, output)
        self.assertTrue(output.endswith("\n0 passed, 1 failed\n"), output)
        for reason in reasons:
            self.assertIn(reason, output)


class GoodScenarios(RunnerTest):
    def test_console_log_and_exit_as_expected(self):
        self.assert_passes(GOOD)

    def test_report_is_read_byte_for_byte(self):
        self.assert_passes("S.\n=== command\nsave\n=== console with\nsave␍\n=== report\na␍␍\nb ä␍\n")

    def test_only_the_wanted_levels_are_compared(self):
        self.assert_passes("S.\n=== console with\n[3254]\n=== log E W\nE QVMain::mf_x: bad␊line\n")
        self.assert_passes("S.\n=== console with\n[3254]\n=== log S\n")

    def test_lines_that_must_occur(self):
        self.assert_passes("S.\n=== console with\n[3254]\n[3089|kvxinfo.log]¬\n=== log with\n    more\n")

    def test_exit_and_standard_error(self):
        self.assert_passes("S.\n=== command\ntwelve\n=== console with\n[3254]\n"
                           "=== stderr\nFailure: 1¬\n=== exit\n12\n")

    def test_what_is_given(self):
        self.assert_passes("S.\n=== command\nlook\n"
                           "=== file given\nx␍\ny¬\n=== directory folder\n=== env COLOUR=green\n"
                           "=== console with\n[3089|kvxinfo.log]x␍\nysomething\ngreen¬\n")

    def test_directory_that_is_kept(self):
        self.assert_passes("S.\n=== directory folder\n=== console with\n[3254]\n=== directory kept folder\n")

    def test_machine_with_the_machines_of_the_project_beside_it(self):
        self.assert_passes("S.\n=== machine\n[machine]\nbase = sample\n=== command\nmachine\n"
                           "=== console with\n[3089|kvxinfo.log][machine]\nbase = sample\n")


class BadScenarios(RunnerTest):
    def test_another_console_text(self):
        self.assert_fails(GOOD.replace("[3254]", "[3255]"),
                          "one.scenario", "--- console expected", "-[3255]", "+[3254]")

    def test_another_line_end(self):
        self.assert_fails(GOOD.replace("words␍", "words"), "-one two words\n+one two words␍")
        self.assert_fails(GOOD.replace("log]¬", "log]"), "+[3089|kvxinfo.log]¬")

    def test_another_log(self):
        self.assert_fails(GOOD.replace("I _tmain", "E _tmain"), "-E _tmain: one", "+I _tmain: one")
        self.assert_fails(GOOD.replace("␊", "\n"), "+E QVMain::mf_x: bad␊line")
        self.assert_fails("S.\n=== console with\n[3254]\n=== log E\n", "+E QVMain::mf_x: bad␊line")

    def test_line_that_does_not_occur_in_this_order(self):
        self.assert_fails("S.\n=== console with\n[3089|kvxinfo.log]¬\n[3254]\n",
                          "this line is missing behind line 4:\n[3254]")
        self.assert_fails("S.\n=== console with\n[3254]\n=== log with\n    less\n",
                          "log: this line is missing:\n    less")

    def test_report_that_should_not_be_there(self):
        self.assert_fails(GOOD.replace("one 'two words'", "one 'two words' save"), "-(no file)\n+a␍␍")

    def test_report_or_log_that_should_be_there(self):
        self.assert_fails("S.\n=== console with\n[3254]\n=== report\n", "+(no file)")
        self.assert_fails("S.\n=== console with\n[3254]\n=== no log\n", "-(no file)\n+I _tmain: one")

    def test_directory_that_should_be_kept(self):
        for command in ("remove", "empty", "replace"):
            with self.subTest(command=command):
                self.assert_fails(f"S.\n=== command\n{command}\n=== directory folder\n"
                                  "=== console with\n[3254]\n=== directory kept folder\n",
                                  "directory folder: expected as it was, it is gone or changed")

    def test_another_exit_status(self):
        self.assert_fails(GOOD + "=== exit\n1\n", "exit status: expected 1, got 0")

    def test_unexpected_standard_error(self):
        self.assert_fails("S.\n=== command\ntwelve\n=== console with\n[3254]\n=== exit\n12\n", "+Failure: 1¬")

    def test_crash(self):
        self.assert_fails("S.\n=== command\ncrash\n=== console with\n[3254]\n", "ended by SIGSEGV")

    def test_sanitizer_report(self):
        self.assert_fails("S.\n=== command\nsanitizer\n=== console with\n[3254]\n=== exit\n1\n",
                          "a sanitizer reported:", "signed integer overflow")

    def test_no_end(self):
        with mock.patch.object(scenario_run, "TIME_LIMIT_SECONDS", 0.5):
            self.assert_fails("S.\n=== command\nloop\n=== console with\n[3254]\n", "not ended after 0.5 s")

    def test_nothing_to_run(self):
        (self.folder / "empty").mkdir()
        self.assertEqual(self.call("run", self.folder / "empty"), (1, "0 passed, 0 failed\n"))

    def test_one_of_two(self):
        self.write("two/good.scenario", GOOD)
        self.write("two/poor.scenario", GOOD.replace("3254", "1"))
        status, output = self.call("run", "--program-dir", self.folder, self.folder / "two")
        self.assertEqual(status, 1)
        self.assertTrue(output.endswith("1 passed, 1 failed\n"), output)


class MistakenFiles(RunnerTest):
    def test_every_mistake_has_its_place(self):
        for text, reason in {
            "=== console\n": "one.scenario:1: the first line must be a sentence",
            "": "one.scenario:1: the first line must be a sentence",
            "S.\n": "one.scenario:1: there is no console block",
            "S.\ntext\n=== console\n": "one.scenario:2: text before the first block",
            "S.\n=== console\n=== konsole\n": "one.scenario:3: unknown block 'konsole'",
            "S.\n=== console\n=== console\n": "one.scenario:3: a second block 'console'",
            "S.\n=== console\n=== log Z\n": "one.scenario:3: 'Z' cannot stand behind 'log'",
            "S.\n=== console\n=== log E, W\n": "one.scenario:3: 'E, W' cannot stand behind 'log'",
            "S.\n=== console\n=== file\n": "one.scenario:3: '' cannot stand behind 'file'",
            "S.\n=== console\n=== file ../x\n": "one.scenario:3: '../x' cannot stand behind 'file'",
            "S.\n=== console\n=== directory kept\n": "'' cannot stand behind 'directory kept'",
            "S.\n=== console\n=== directory a\n=== directory kept b\n":
                "one.scenario:4: no directory 'b' is given",
            "S.\n=== console\n=== env COLOUR\n": "one.scenario:3: 'COLOUR' cannot stand behind 'env'",
            "S.\n=== console\n=== exit\nzero\n": "one.scenario:3: 'zero' is not an exit status",
            "S.\n=== console\n=== command\na\nb\n": "one.scenario:3: the command must be one line",
            "S.\n=== console\n=== command\n'a\n": "one.scenario:3: No closing quotation",
            "S.\n=== console\n=== no report\ntext\n": "one.scenario:3: the block 'no report' takes no lines",
            "S.\n=== console\n=== no log\n=== log\n": "'log' and 'no log' contradict each other",
        }.items():
            with self.subTest(text=text):
                self.assert_fails(text, reason)


class Notes(RunnerTest):
    def run_with_notes(self, text: str) -> tuple[str, str]:
        """What was printed, and what the file got."""
        outcome = Outcome(b"\n[3254]\n", b"", 0, None, None, notes=["10 calls", "20 calls"])
        self.write("notes.txt", "old\n")
        with mock.patch.object(scenarios, "run_natively", return_value=outcome):
            path = self.write("one.scenario", text)
            printed = self.call("run", "--notes", self.folder / "notes.txt", path)[1]
        return printed, (self.folder / "notes.txt").read_text(encoding="utf-8")

    def test_they_are_printed_and_written(self):
        self.assertEqual(self.run_with_notes("S.\n=== console\n\n[3254]\n"),
                         ("10 calls\n20 calls\n1 passed, 0 failed\n", "10 calls\n20 calls\n"))

    def test_what_failed_cost_nothing_worth_telling(self):
        printed, written = self.run_with_notes("S.\n=== console\n[3255]\n")
        self.assertNotIn("calls", printed)
        self.assertEqual(written, "")


class ShownAndListed(RunnerTest):
    def test_show_prints_what_the_file_would_expect(self):
        status, output = self.call("show", "--program-dir", self.folder, self.write("one.scenario", GOOD))
        self.assertEqual(status, 0)
        self.assert_passes("S.\n=== command\none 'two words'\n" + output)

    def test_show_prints_which_directories_are_kept(self):
        text = GOOD + "=== directory folder\n=== directory kept folder\n"
        output = self.call("show", "--program-dir", self.folder, self.write("one.scenario", text))[1]
        self.assertIn("\n=== directory kept folder\n", output)

    def test_page_has_the_sentence_of_each_scenario(self):
        self.write("start/b.scenario", GOOD.replace("What it shows.", "This | that."))
        self.write("start/a.scenario", GOOD)
        page = scenario_list.page(self.folder, self.folder)
        self.assertIn("\n## start\n\n| Scenario | What it shows |\n|---|---|\n"
                      "| [a](start/a.scenario) | What it shows. |\n"
                      "| [b](start/b.scenario) | This \\| that. |\n", page)

    def test_page_has_the_scenarios_of_each_call_that_fails(self):
        machine = ('=== machine\n[failures]\nQVA::mf_b "A|B" call 2 : error System 5 "c : d"  # why\n'
                   'QVA::mf_b : answer 0\nQVA::mf_b from call 3 : foreign\n# QVC::mf_d : foreign\n')
        self.write("start/a.scenario", GOOD + machine)
        self.write("start/b.scenario", GOOD + "=== machine\n[failures]\nQVA::mf_b : foreign\n")
        self.write("start/c.scenario", GOOD + "=== machine\n[groups]\n! error 1722 bob\n[users]\n! refused\n")
        page = scenario_list.page(self.folder, self.folder)
        self.assertIn("| [c](start/c.scenario) | What it shows. |\n"
                      "\n| What fails | Scenarios |\n|---|---|\n"
                      "| `QVA::mf_b` | a, b |\n"
                      '| `QVA::mf_b "A\\|B"` | a |\n'
                      "| natural: groups bob: error 1722 | c |\n"
                      "| natural: users: refused | c |\n", page)

    def test_nothing_fails_no_table(self):
        self.write("start/a.scenario", GOOD + "=== machine\n[machine]\nbase = sample\n[failures]\n")
        self.assertNotIn("What fails", scenario_list.page(self.folder, self.folder))

    def test_natural_causes_are_found_in_every_section(self):
        machine = """\
=== machine
[registry]
[HKEY_LOCAL_MACHINE\\SOFTWARE\\A] error 1018
[HKEY_LOCAL_MACHINE\\SOFTWARE\\B]
"a"=refused
"b"="refused"
[files]
! refused C:\\a b
[contents C:\\c]
! error 0x20
[domain]
reachable = no 1722
[volumes]
D: = optical error 21 device x
E: = fixed "an error 5 "
"""
        scenario = scenario_file.read(self.write("start/a.scenario", GOOD + machine))
        self.assertEqual(failing(scenario), [
            "natural: registry key A: error 1018", "natural: registry value B\\a: refused",
            "natural: files C:\\a b: refused", "natural: contents C:\\c: error 0x20",
            "natural: domain out of reach: error 1722", "natural: volume: error 21"])

    def test_stale_page_fails(self):
        self.write("start/a.scenario", GOOD)
        with mock.patch.multiple(scenarios, SCENARIOS=self.folder, PAGE=self.folder / "page.md"):
            self.assertEqual(self.call("check-list")[0], 1)
            self.assertEqual(self.call("list"), (0, ""))
            self.assertEqual(self.call("check-list"), (0, ""))
            self.write("start/b.scenario", GOOD)
            self.assertEqual(self.call("check-list")[0], 1)


class Logs(unittest.TestCase):
    def test_what_is_no_record_shows(self):
        self.assertEqual(log_lines(b"2026-11-19 07:30:00 [1] E x: y\r\n"),
                         ["not a record: 2026-11-19 07:30:00 [1] E x: y"])

    def test_missing_line_end_shows(self):
        self.assertEqual(log_lines(b"2026-11-19 07:30:00.000-11:30 [1] E x: y"), ["E x: y¬"])


class MachinesForWine(unittest.TestCase):
    def staging(self, text: str) -> Staging:
        staging = Staging()
        parse_machine(text, Path("m/machine.txt"), staging)
        return staging

    def test_registry_files_and_contents(self):
        staging = self.staging("""\
[system]
computer = A
[registry]
; why
[HKEY_LOCAL_MACHINE\\S]  # a key
"a"="b  # c"
[files]  # these
# why
C:\\a\\b.txt  # b
C:\\a\\c\\d.txt
- C:\\A\\c
[contents C:\\q.cfg]
# one
|[files]
  two

[users]
C:\\no\\file
""")
        self.assertEqual(staging.registry, ["[HKEY_LOCAL_MACHINE\\S]", '"a"="b  # c"'])
        self.assertEqual(list(staging.files), ["C:\\a\\b.txt"])
        self.assertEqual(staging.contents, {"C:\\q.cfg": b"# one\r\n[files]\r\n  two\r\n"})

    def test_clear_empties_what_is_inherited(self):
        staging = self.staging("[registry]\n[HKEY_LOCAL_MACHINE\\S]\n[files]\nC:\\a\n"
                               "[registry]\nclear\n[files]\nclear\nC:\\b\n")
        self.assertEqual((staging.registry, list(staging.files)), ([], ["C:\\b"]))

    def test_bases_come_first(self):
        with tempfile.TemporaryDirectory() as name:
            (Path(name) / "base").mkdir()
            (Path(name) / "base" / "machine.txt").write_text("[machine]\nregistry = a.reg\nfiles = f.txt\n")
            export = "Windows Registry Editor Version 5.00\r\n\r\n[HKEY_X]\r\n"
            (Path(name) / "base" / "a.reg").write_text(export, "utf-16")
            (Path(name) / "base" / "f.txt").write_text("C:\\a\nC:\\b\n")
            staging = Staging()
            parse_machine("[machine]\nbase = base\n[files]\n- C:\\a\n", Path(name) / "machine.txt", staging)
            self.assertEqual((staging.registry, list(staging.files)), (["[HKEY_X]"], ["C:\\b"]))

    def test_what_wine_cannot_be_made_to_do_is_a_mistake(self):
        for text in ("[failures]\nx : error System\n", "[registry]\n[HKEY_LOCAL_MACHINE\\S] refused\n",
                     "[registry]\n\"a\"=error 1018\n", "[files]\n! refused C:\\a\n"):
            with self.subTest(text=text), self.assertRaisesRegex(scenario_file.Mistake, r"machine\.txt:1: "):
                self.staging(text)

    def test_files_are_made_and_removed_whatever_their_case(self):
        with tempfile.TemporaryDirectory() as name:
            drive = Path(name) / "drive_c"
            (drive / "Windows").mkdir(parents=True)
            prefix = scenario_wine.Prefix(Path(name))
            prefix.create_file("C:\\windows\\new\\file.txt", b"text")
            prefix.create_file("C:\\WINDOWS\\NEW\\FILE.TXT", b"")
            prefix.create_folders("C:\\windows\\new\\")
            self.assertEqual((drive / "Windows" / "new" / "file.txt").read_bytes(), b"text")
            prefix.clear()
            self.assertEqual([path.name for path in drive.rglob("*")], ["Windows"])

    def test_only_drive_c_can_be_made(self):
        with tempfile.TemporaryDirectory() as name, self.assertRaises(scenario_file.Mistake):
            scenario_wine.Prefix(Path(name)).create_file("D:\\a", b"")


if __name__ == "__main__":
    unittest.main()
