#!/usr/bin/env python3
"""The console of the finished program: a real one, files and pipes, and outputs that take nothing.

The user's name, which Wine takes from the environment, brings in the characters.
"""

import os
import subprocess
import unittest

import terminal
from windows_program import HELPERS, InFolder, PROGRAMS, SECONDS, windows_path, wine_command
from scenario_compare import log_lines

PROGRAM = PROGRAMS / "kvxinfo.exe"
REPORT = "check_installation.txt"
OUTPUT = "output.txt"
LOST = ["E QVTerminalPrinter::complete: Console output could not be written; the rest of it is lost"]
SAVED = f"The report was saved in the file {REPORT}."
CLOSING = "Failures are recorded in the trace log kvxinfo.log, where it can be written."

WEST = "J\u00fcrgen"  # in every code page of the West, at different places
WORLD = "J\u00fcrgen \u017dofie \u03a9 \u65e5\u672c \U0001F600"  # in no code page but UTF-8
WORLD_IN_CELLS = WORLD[:-2]  # Wine's console tears apart what takes two of its cells


def user_page(name: str, line_end: str = "\r\n") -> str:
    """What `kvxinfo user` shows; the two single line feeds are those of the banner."""
    banner = f"\nkvxinfo - HSM client installation check{line_end}Version 6, Release 1, Level 5.2 (2014)\n"
    return banner + line_end.join(["", "Current user:", f"    {name}",
                                   "    is a member of the administrators group.", "", CLOSING, ""])


class ConsoleTest(InFolder):
    def environment(self, user: str) -> dict[str, str]:
        return {"USER": user, "LC_ALL": "C.UTF-8"}

    def run_as(self, user: str, *arguments: str, **options) -> tuple[int, bytes, bytes]:
        return self.run_program(PROGRAM, *arguments, variables=self.environment(user), **options)

    def show(self, command: list[str], user: str, **options) -> tuple[int, list[str], bytes]:
        return terminal.show(command, self.folder, os.environ | self.environment(user), SECONDS, **options)

    def show_batch(self, *lines: str, user: str, **options) -> tuple[int, list[str], bytes]:
        """Runs the lines by the system's command interpreter, on a terminal."""
        batch = self.folder / "batch.cmd"
        batch.write_bytes("\r\n".join(["@echo off", *lines, ""]).encode("ascii"))
        return self.show(wine_command("cmd", "/c", windows_path(batch)), user, **options)

    def log(self) -> list[str]:
        return log_lines((self.folder / "kvxinfo.log").read_bytes())


class RealConsole(ConsoleTest):
    def test_shows_characters_that_no_code_page_has(self):
        status, lines, _ = self.show(wine_command(PROGRAM, "user"), WORLD_IN_CELLS)
        self.assertEqual((status, lines), (0, user_page(WORLD_IN_CELLS, "\n").split("\n")))

    def test_shows_the_same_whatever_its_code_page(self):
        for code_page in ("437", "1252", "65001"):
            with self.subTest(code_page=code_page):
                status, lines, _ = self.show_batch(f"chcp {code_page} >nul", f"{windows_path(PROGRAM)} user",
                                                   user=WORLD_IN_CELLS)
                self.assertEqual(status, 0)
                self.assertIn("    " + WORLD_IN_CELLS, lines)

    def test_keeps_its_code_page(self):
        for code_page in ("850", "1252", "65001"):
            with self.subTest(code_page=code_page):
                _, lines, _ = self.show_batch(f"chcp {code_page} >nul", f"{windows_path(PROGRAM)} all save",
                                              windows_path(HELPERS / "code_pages.exe"), user=WEST)
                self.assertIn(CLOSING, lines)
                self.assertEqual(lines[lines.index(CLOSING) + 1], f"{code_page} {code_page}")


class Redirected(ConsoleTest):
    """Readers decode with the console's code page, as PowerShell does; without a console, the system's."""

    def bytes_in_console(self, code_page: str, user: str) -> bytes:
        """What a file gets from a run in a console that has this code page."""
        status, lines, _ = self.show_batch(f"chcp {code_page} >nul",
                                           f"{windows_path(PROGRAM)} user >{OUTPUT}", user=user)
        self.assertEqual((status, lines), (0, [""]))
        return (self.folder / OUTPUT).read_bytes()

    def test_file_has_the_code_page_of_the_console(self):
        for code_page, encoding in (("437", "cp437"), ("850", "cp850"), ("1252", "cp1252")):
            with self.subTest(code_page=code_page):
                self.assertEqual(self.bytes_in_console(code_page, WEST), user_page(WEST).encode(encoding))

    def test_file_has_everything_in_a_console_of_utf_8(self):
        self.assertEqual(self.bytes_in_console("65001", WORLD), user_page(WORLD).encode("utf-8"))

    def test_pipe_has_the_code_page_of_the_console(self):
        for code_page, encoding in (("850", "cp850"), ("1252", "cp1252"), ("65001", "utf-8")):
            with self.subTest(code_page=code_page):
                status, _, piped = self.show_batch(f"chcp {code_page} >nul", f"{windows_path(PROGRAM)} user",
                                                   user=WEST, stdout=subprocess.PIPE)
                self.assertEqual((status, piped), (0, user_page(WEST).encode(encoding)))

    def test_pipe_and_file_without_a_console_have_the_code_page_of_the_system(self):
        expected = user_page(WEST).encode("cp437")
        self.assertEqual(self.run_as(WEST, "user"), (0, expected, b""))
        with open(self.folder / OUTPUT, "wb") as file:
            self.run_as(WEST, "user", stdout=file)
        self.assertEqual((self.folder / OUTPUT).read_bytes(), expected)

    def test_characters_that_the_code_page_lacks_are_replaced(self):
        status, console, _ = self.run_as("\u03a9 \u65e5\u672c", "user")
        self.assertEqual((status, console), (0, user_page("\u03a9 ??").encode("cp437")))


class ReportFile(ConsoleTest):
    def test_has_what_the_console_shows(self):
        """One byte for each character; each line feed of the text is written with a carriage return."""
        status, console, stderr = self.run_as(WEST, "all", "save")
        self.assertEqual((status, stderr), (0, b""))
        shown = console.decode("cp437")
        begin = user_page(WEST).index("\r\nCurrent user:")
        end = shown.index(f"\r\n{SAVED}\r\n\r\n{CLOSING}\r\n")
        self.assertEqual(shown[:begin], user_page(WEST)[:begin])
        report = (self.folder / REPORT).read_bytes()
        self.assertIn(f"Current user:\r\r\n    {WEST}\r\r\n".encode("latin-1"), report)
        self.assertEqual(report, shown[begin:end].replace("\n", "\r\n").encode("latin-1"))

    def test_has_a_question_mark_for_what_latin_1_lacks(self):
        self.run_as(WORLD, "user", "save")
        self.assertIn(b"    J\xfcrgen ?ofie ? ?? ?\r\r\n", (self.folder / REPORT).read_bytes())


class BrokenOutput(ConsoleTest):
    """The run goes on to its end, with the same exit status; the report is complete, the loss is logged."""

    def setUp(self):
        super().setUp()
        status, console, _ = self.run_as(WEST, "user", "version", "files", "save")
        self.assertEqual(status, 0)
        self.assertIn(SAVED.encode(), console)
        self.report = (self.folder / REPORT).read_bytes()
        self.whole_log = self.log()
        self.assertNotIn(LOST[0], self.whole_log)

    def assert_loss_is_logged(self, stdout):
        (self.folder / "kvxinfo.log").unlink()
        (self.folder / REPORT).unlink()
        status, _, stderr = self.run_as(WEST, "user", "version", "files", "save", stdout=stdout)
        self.assertEqual((status, stderr), (0, b""))
        self.assertEqual((self.folder / REPORT).read_bytes(), self.report)
        self.assertEqual(self.log(), self.whole_log + LOST)

    def test_reader_has_left(self):
        reading, writing = os.pipe()
        os.close(reading)
        self.addCleanup(os.close, writing)
        self.assert_loss_is_logged(writing)

    def test_full_disk(self):
        with open("/dev/full", "wb") as full:
            self.assert_loss_is_logged(full)


if __name__ == "__main__":
    unittest.main()
