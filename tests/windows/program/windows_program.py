"""What the tests of the finished Windows program share: where it is, and how it is run under Wine.

KVX_PROGRAMS names the folder of the programs, KVX_HELPERS that of the small programs beside these tests,
KVX_PREFIX a Wine prefix whose server runs and in which the sample is installed.
"""

import os
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[3]
sys.path.insert(0, str(ROOT / "tests" / "tools"))

PROGRAMS = Path(os.environ["KVX_PROGRAMS"]).resolve()
HELPERS = Path(os.environ["KVX_HELPERS"]).resolve()
PREFIX = Path(os.environ["KVX_PREFIX"]).resolve()
WINE = ROOT / "tools" / "wine.sh"
SECONDS = 60


def windows_path(path: Path) -> str:
    """How Windows programs in the prefix name a file of this machine."""
    return "Z:" + str(path).replace("/", "\\")


def wine_command(program: Path | str, *arguments: str) -> list[str]:
    return [str(WINE), "run", str(PREFIX), str(program), *arguments]


class InFolder(unittest.TestCase):
    """Has a fresh folder for each test."""

    def setUp(self) -> None:
        folder = tempfile.TemporaryDirectory(prefix="kvxinfo-program-")
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name).resolve()

    def run_program(self, program: Path, *arguments: str, folder: Path | None = None,
                    variables: dict[str, str] | None = None, **options) -> tuple[int, bytes, bytes]:
        """Exit status (of which Wine passes on the low byte), standard output and standard error of a run."""
        streams = {"stdout": subprocess.PIPE, "stderr": subprocess.PIPE} | options
        for _ in range(2):  # the second time only where Wine's own loader failed before the program started
            outcome = subprocess.run(wine_command(program, *arguments), cwd=folder or self.folder,
                                     env=os.environ | (variables or {}), stdin=subprocess.DEVNULL,
                                     timeout=SECONDS, **streams)
            if b"failed to map the shared user data" not in (outcome.stderr or b""):
                break
        return outcome.returncode, outcome.stdout or b"", outcome.stderr or b""
