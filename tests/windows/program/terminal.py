"""Runs a Windows program on a terminal, where Wine gives it a real console."""

import fcntl
import os
import pty
import re
import select
import struct
import subprocess
import termios
import time
from pathlib import Path

LINES, COLUMNS = 50, 200
FORWARD = re.compile(rb"\x1b\[([0-9]*)C")  # over blanks that are there already
CONTROL_SEQUENCE = re.compile(rb"\x1b\[[0-9;?]*[A-Za-z]")


class Terminal:
    """A terminal of our own, wide enough for every line; `theirs` is the end for the program."""

    def __init__(self) -> None:
        self.ours, self.theirs = pty.openpty()
        fcntl.ioctl(self.theirs, termios.TIOCSWINSZ, struct.pack("4H", LINES, COLUMNS, 0, 0))

    def shown(self, process: subprocess.Popen, seconds: float) -> list[str]:
        """The lines that the program shows until its end; it is killed when it takes longer than that."""
        os.close(self.theirs)
        output, end = b"", time.monotonic() + seconds
        while time.monotonic() < end and (part := self.read(process)) is not None:
            output += part
        os.close(self.ours)
        if process.poll() is None and time.monotonic() >= end:
            process.kill()
        return text(output).split("\n")

    def read(self, process: subprocess.Popen) -> bytes | None:
        """What has come meanwhile; None at the end."""
        if not select.select([self.ours], [], [], 0.2)[0]:
            return b"" if process.poll() is None else None
        try:
            return os.read(self.ours, 65536) or None
        except OSError:  # that is how a terminal ends
            return None


def text(output: bytes) -> str:
    """What stands on the terminal after this output; lines are filled from left to right, once."""
    output = FORWARD.sub(lambda step: b" " * int(step[1] or 1), output)
    return CONTROL_SEQUENCE.sub(b"", output).decode("utf-8").replace("\r", "")


def show(command: list[str], folder: Path, environment: dict[str, str], seconds: float,
         stdout: int | None = None) -> tuple[int, list[str], bytes]:
    """Exit status, the lines shown on the terminal, and what went to `stdout` where it is a pipe instead."""
    terminal = Terminal()
    with subprocess.Popen(command, cwd=folder, env=environment | {"TERM": "xterm"}, stdin=terminal.theirs,
                          stdout=terminal.theirs if stdout is None else stdout, stderr=terminal.theirs,
                          start_new_session=True) as process:
        lines = terminal.shown(process, seconds)
        piped = process.stdout.read() if process.stdout else b""
        return process.wait(seconds), lines, piped
