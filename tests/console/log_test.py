#!/usr/bin/env python3
"""A trace log that cannot be written, and what comes first, the console or the log.

KVX_PROGRAMS names the folder of the programs.
"""

import os
import unittest

import console_test


def failing(*failures: str) -> str:
    """The sample machine, with these failures planned."""
    return "\n".join(["[machine]", "base = sample", "[failures]", *failures, ""])


class FullLog(console_test.ConsoleTest):
    """A log that takes no record costs nothing else."""

    def assert_unchanged(self, *arguments: str, machine: str | None = None):
        *whole, log = self.run_program(*arguments, machine=machine)
        self.assertTrue(log)
        process = self.start(*arguments, machine=machine,
                             prepare=lambda: os.symlink("/dev/full", self.folder / "kvxinfo.log"))
        console, stderr = process.communicate(timeout=console_test.SECONDS)
        self.assertEqual([console, stderr, process.returncode], whole)
        self.assertEqual(whole[1:], [b"", 0])
        self.assertTrue((self.folder / "kvxinfo.log").is_symlink())

    def test_console_is_the_same(self):
        self.assert_unchanged("all")

    def test_failing_reports_are_the_same(self):
        self.assert_unchanged("errors", machine=failing("QVRegistry::mf_exists : error System 5"))

    def test_the_same_with_every_step_of_the_start_and_the_end_failing(self):
        self.assert_unchanged("disk", machine=failing("QVMain::mf_startStorage : error System 5",
                                                      "QVClusterMain::mf_stopCluster : error System 5"))


class SharedTerminal(console_test.ConsoleTest):
    """Console and log are the same terminal: it shows what was written first."""

    read_terminal = console_test.Terminal.read_terminal

    def start(self, *arguments: str, stdout: int, **options):
        terminal = os.ttyname(stdout)
        return super().start(*arguments, stdout=stdout, **options,
                             prepare=lambda: os.symlink(terminal, self.folder / "kvxinfo.log"))

    def assert_console_first(self, failure: str, line: bytes, record: bytes):
        shown, status = self.read_terminal("wincp", machine=failing(failure))
        self.assertEqual(status, 0)
        self.assertEqual((shown.count(line), shown.count(record)), (1, 1), shown)
        self.assertLess(shown.index(line), shown.index(record), shown)

    def test_storage_that_cannot_be_started(self):
        self.assert_console_first("QVMain::mf_startStorage : error System 5", b"[3552|",
                                  b" E _tmain: Error in starting storage\r\n")

    def test_storage_that_cannot_be_started_for_an_unknown_reason(self):
        self.assert_console_first("QVMain::mf_startStorage : foreign", b"[3553]",
                                  b" E _tmain: Error in starting storage\r\n")

    def test_error_that_ends_the_run(self):
        self.assert_console_first("QVSystem::mf_getDefaultAnsiCodepage : error System 5", b"[3502|",
                                  b" E _tmain: Error running program\r\n")

    def test_unknown_error_that_ends_the_run(self):
        self.assert_console_first("QVSystem::mf_getDefaultAnsiCodepage : foreign", b"[3503]",
                                  b" E _tmain: Unknow error running program\r\n")


class LostConsole(console_test.ConsoleTest):
    def test_loss_is_recorded_whatever_step_of_the_tear_down_fails(self):
        for operation in ("QVClusterMain::mf_stopCluster", "QVClusterMain::mf_stopClusterStorage",
                          "QVClusterMain::mf_deleteInstance", "QVMain::mf_stopStorage",
                          "QVMain::mf_stopLogging", "QVMain::mf_deleteInstance"):
            for outcome in ("error System 5", "foreign"):
                with self.subTest(operation=operation, outcome=outcome):
                    machine = failing(f"{operation} : {outcome}")
                    _, _, _, log = self.run_program("all", machine=machine)
                    with open("/dev/full", "wb") as full:
                        _, stderr, status, full_log = self.run_program("all", machine=machine, stdout=full)
                    self.assertEqual((stderr, status, full_log), (b"", 0, log + console_test.LOST))


if __name__ == "__main__":
    unittest.main()
