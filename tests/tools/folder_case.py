"""Tests that need files."""

import tempfile
import unittest
from pathlib import Path


class FolderCase(unittest.TestCase):
    """Has a folder of its own, `self.folder`, for as long as a test runs."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def write(self, name: str, text: str = "") -> Path:
        """Makes a file in the folder, and the folders above it."""
        path = self.folder / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")
        return path
