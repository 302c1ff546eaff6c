#!/usr/bin/env python3
"""Where the program's output can go wrong, or goes to a terminal.

KVX_PROGRAMS names the folder of the programs.
"""

import os
import pty
import resource
import signal
import subprocess
import sys
import tempfile
import time
import tty
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "tools"))
from scenario_compare import log_lines  # noqa: E402  (the path above leads to it)
from scenario_run import ENVIRONMENT  # noqa: E402

PROGRAM = Path(os.environ["KVX_PROGRAMS"]).resolve() / "kvxinfo-ids"
SECONDS = 60
LOST = ["E QVTerminalPrinter::complete: Console output could not be written; the rest of it is lost"]
MANY_USERS = "[machine]\nbase = sample\n[users]\ngenerate users = 20000 user%05d\n"
CLOSING = b"\r\n[3089|kvxinfo.log]"


class ConsoleTest(unittest.TestCase):
    """Runs the program in a fresh folder."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="kvxinfo-console-")
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def environment(self, machine: str | None) -> dict[str, str]:
        """The environment in which the program examines `machine`; the sample without one."""
        environment = os.environ | ENVIRONMENT
        environment.pop("KVXINFO_MACHINE", None)
        if machine is not None:
            (self.folder / "machine.txt").write_text(machine, encoding="utf-8")
            environment["KVXINFO_MACHINE"] = str(self.folder / "machine.txt")
        return environment

    def start(self, *arguments: str, stdout=subprocess.PIPE, machine: str | None = None,
              shell: str = "", prepare=None, variables: dict[str, str] | None = None) -> subprocess.Popen:
        """Starts the program; with `shell` by that command line of a shell, "$@" being program and arguments.
        `prepare` is called in the new process, and `variables` are added to its environment."""
        (self.folder / "kvxinfo.log").unlink(missing_ok=True)
        command = ["/bin/sh", "-c", shell, "sh"] if shell else []
        process = subprocess.Popen([*command, PROGRAM, *arguments], cwd=self.folder,
                                   env=self.environment(machine) | (variables or {}), preexec_fn=prepare,
                                   stdin=subprocess.DEVNULL, stdout=stdout, stderr=subprocess.PIPE)
        self.addCleanup(process.__exit__, None, None, None)
        self.addCleanup(process.kill)
        return process

    def run_program(self, *arguments: str, **options) -> tuple[bytes, bytes, int, list[str]]:
        """Console, standard error, exit status and log of a run."""
        process = self.start(*arguments, **options)
        console, stderr = process.communicate(timeout=SECONDS)
        return console, stderr, process.returncode, self.log()

    def log(self) -> list[str]:
        return log_lines((self.folder / "kvxinfo.log").read_bytes())

    def report(self) -> bytes:
        return (self.folder / "check_installation.txt").read_bytes()


class BrokenOutput(ConsoleTest):
    """Output that cannot be written is lost; the run goes on to its end, with the same exit status."""

    def read_one_byte(self, *arguments: str, machine: str | None = None) -> tuple[bytes, int, list[str]]:
        """Standard error, exit status and log of a run whose reader leaves behind the first byte."""
        process = self.start(*arguments, machine=machine)
        self.assertEqual(os.read(process.stdout.fileno(), 1), b"\n")
        process.stdout.close()
        stderr = process.stderr.read()
        process.stderr.close()
        return stderr, process.wait(SECONDS), self.log()

    def test_reader_leaves_early(self):
        console, stderr, status, log = self.run_program("all")
        self.assertEqual((stderr, status), (b"", 0))
        self.assertTrue(console.endswith(b"[3089|kvxinfo.log]"), console[-200:])
        # A short page may have been written before the reader left: whether something is lost is chance.
        self.assertIn(self.read_one_byte("all"), [(b"", 0, log), (b"", 0, log + LOST)])

    def test_reader_leaves_in_the_middle_of_a_long_list(self):
        console, stderr, status, log = self.run_program("locusers", machine=MANY_USERS)
        self.assertEqual((stderr, status), (b"", 0))
        self.assertGreater(len(console), 300_000)
        self.assertEqual(self.read_one_byte("locusers", machine=MANY_USERS), (b"", 0, log + LOST))

    def test_reader_left_before_the_first_byte(self):
        _, _, status, log = self.run_program("all")
        reading, writing = os.pipe()
        os.close(reading)
        try:
            _, stderr, broken_status, broken_log = self.run_program("all", stdout=writing)
        finally:
            os.close(writing)
        self.assertEqual((stderr, broken_status, broken_log), (b"", status, log + LOST))

    def test_full_disk(self):
        _, _, status, log = self.run_program("all")
        with open("/dev/full", "wb") as full:
            _, stderr, full_status, full_log = self.run_program("all", stdout=full)
        self.assertEqual((stderr, full_status, full_log), (b"", status, log + LOST))

    def test_report_is_complete_although_nobody_reads_the_console(self):
        self.run_program("save", "locusers", machine=MANY_USERS)
        report = self.report()
        self.assertGreater(len(report), 300_000)
        with open("/dev/full", "wb") as full:
            self.run_program("save", "locusers", machine=MANY_USERS, stdout=full)
        self.assertEqual(self.report(), report)

    def test_console_is_complete_although_the_report_file_cannot_grow(self):
        whole = self.run_program("save", "locusers", machine=MANY_USERS)
        self.assertTrue(whole[0].endswith(b"[3325|check_installation.txt]" + CLOSING), whole[0][-200:])
        report = self.report()
        most = 65536
        self.assertGreater(len(report), most)

        def keep_files_small():
            signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
            resource.setrlimit(resource.RLIMIT_FSIZE, (most, most))

        # What the program notes about its coverage must not be cut off as well.
        elsewhere = {"GCOV_PREFIX": str(self.folder / "coverage")}
        self.assertEqual(self.run_program("save", "locusers", machine=MANY_USERS, prepare=keep_files_small,
                                          variables=elsewhere), whole)
        self.assertEqual(self.report(), report[:most])


class ClosedStreams(ConsoleTest):
    """What would have gone to a stream that was closed before the start goes nowhere, and into no file."""

    def test_nothing_of_the_console_gets_into_a_file(self):
        _, _, _, log = self.run_program("all", "save")
        report = self.report()
        for shell in ('exec "$@" >&-', 'exec "$@" <&- >&-', 'exec "$@" <&- >&- 2>&-'):
            with self.subTest(shell=shell):
                self.assertEqual(self.run_program("all", "save", shell=shell), (b"", b"", 0, log + LOST))
                self.assertEqual(self.report(), report)

    def test_console_is_complete_although_the_others_are_closed(self):
        whole = self.run_program("all")
        self.assertEqual(self.run_program("all", shell='exec "$@" <&- 2>&-'), whole)


class Interruption(ConsoleTest):
    def test_earlier_reports_are_there(self):
        before = self.run_program("clclog", machine=MANY_USERS)[0].removesuffix(CLOSING)
        self.assertIn(b"[3308|", before)
        output = self.folder / "output"
        with open(output, "wb") as file:
            process = self.start("clclog", "locusergr", stdout=file, machine=MANY_USERS,
                                 prepare=lambda: signal.signal(signal.SIGINT, signal.SIG_DFL))
        end = time.monotonic() + SECONDS
        # The banner comes first, alone; the report before the long one a moment later.
        while output.stat().st_size < len(before) and process.poll() is None and time.monotonic() < end:
            time.sleep(0.01)
        process.send_signal(signal.SIGINT)
        self.assertEqual(process.communicate(timeout=SECONDS)[1], b"")
        self.assertEqual(process.returncode, -signal.SIGINT, "the long listing had come to its end")
        self.assertEqual(output.read_bytes(), before)


class EndByEscapingException(ConsoleTest):
    def assert_ends(self, failures: str, console: bytes):
        process = self.start("all", machine="[machine]\nbase = sample\n[failures]\n" + failures)
        given = process.communicate(timeout=SECONDS)
        self.assertEqual((*given, process.returncode), (console, b"", 70))

    def test_nothing_was_written_yet(self):
        self.assert_ends("QVMain::mf_createInstance : foreign\n", b"")

    def test_what_was_written_arrives(self):
        self.assert_ends("QVMain::mf_startStorage : foreign\nQVClusterMain::mf_startCluster : foreign\n",
                         b"[3553]")


class Terminal(ConsoleTest):
    def read_terminal(self, *arguments: str, machine: str | None = None) -> tuple[bytes, int]:
        """What the program shows on a terminal that changes nothing of it, and its exit status."""
        ours, theirs = pty.openpty()
        tty.setraw(theirs)
        process = self.start(*arguments, stdout=theirs, machine=machine)
        os.close(theirs)
        shown = b""
        while True:
            try:
                part = os.read(ours, 65536)
            except OSError:  # that is how a terminal ends
                break
            if not part:
                break
            shown += part
        os.close(ours)
        return shown, process.wait(SECONDS)

    def test_terminal_shows_what_a_file_gets(self):
        for arguments, machine in ((["all"], None), (["help"], None), (["locusers"], MANY_USERS)):
            with self.subTest(arguments=arguments):
                console, _, status, _ = self.run_program(*arguments, machine=machine)
                self.assertEqual(self.read_terminal(*arguments, machine=machine), (console, status))


if __name__ == "__main__":
    unittest.main()
