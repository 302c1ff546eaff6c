#!/usr/bin/env python3
"""What `run` and `test` install on machines of other kinds than this one: with stand-ins for its commands."""

import subprocess
import unittest
from pathlib import Path

from folder_case import FolderCase

PACKAGES = Path(__file__).resolve().parents[2] / "tools" / "packages.sh"
NEEDS = """. '{}'
need bash bash 'is there'
need no-such-command such-package 'does it'
install_missing
echo done"""

APT_GET = """#!/bin/bash
echo "apt-get $* as ${DEBIAN_FRONTEND-}" >> "$CALLS"
"""
# The package lists are too old until they are updated.
STALE_APT_GET = APT_GET + """\
[ "$1" = update ] && touch "$CALLS.updated"
[ -e "$CALLS.updated" ] || { echo "E: Unable to locate package"; exit 100; }
"""
HOPELESS_APT_GET = APT_GET + """\
[ "$1" = update ] || { echo "E: nothing to be had"; exit 100; }
"""
SUDO = """#!/bin/bash
echo sudo >> "$CALLS"
"$@"
"""
INSTALL = "apt-get install -y --no-install-recommends such-package as noninteractive"


class Installing(FolderCase):
    def setUp(self):
        super().setUp()
        self.calls = self.folder / "calls"

    def call(self, user: int, **commands: str) -> tuple[int, str, list[str]]:
        """Exit status, standard error and the calls made, where only these commands are there."""
        for name, text in {"id": f"#!/bin/bash\necho {user}\n", **commands}.items():
            self.write(name.replace("_", "-"), text).chmod(0o755)
        for name in ("bash", "env", "touch"):
            (self.folder / name).symlink_to(f"/usr/bin/{name}")
        run = subprocess.run(["/usr/bin/bash", "-uc", NEEDS.format(PACKAGES)], capture_output=True, text=True,
                             env={"PATH": str(self.folder), "CALLS": str(self.calls)}, check=False)
        self.assertEqual(run.stdout, "done\n" if run.returncode == 0 else "")
        return run.returncode, run.stderr, self.calls.read_text().splitlines() if self.calls.exists() else []

    def test_root_installs_what_is_missing_and_says_why(self):
        self.assertEqual(self.call(0, apt_get=APT_GET), (
            0, "missing: such-package (does it)\ninstalling: such-package\n", [INSTALL]))

    def test_package_lists_are_updated_only_when_needed(self):
        status, _, calls = self.call(0, apt_get=STALE_APT_GET)
        self.assertEqual((status, calls), (0, [INSTALL, "apt-get update as ", INSTALL]))

    def test_others_use_sudo(self):
        status, _, calls = self.call(1000, apt_get=APT_GET, sudo=SUDO)
        self.assertEqual((status, calls), (0, ["sudo", INSTALL]))

    def test_without_sudo_it_says_what_to_do(self):
        status, stderr, calls = self.call(1000, apt_get=APT_GET)
        self.assertEqual((status, calls), (1, []))
        self.assertIn("as root: apt-get install --no-install-recommends such-package\n", stderr)

    def test_without_apt_it_says_what_to_install(self):
        status, stderr, _ = self.call(0)
        self.assertEqual(status, 1)
        self.assertIn("no apt-get. Install what these Debian packages hold: such-package\n", stderr)

    def test_failure_shows_what_apt_said(self):
        status, stderr, _ = self.call(0, apt_get=HOPELESS_APT_GET)
        self.assertEqual(status, 1)
        self.assertIn("E: nothing to be had\n", stderr)


if __name__ == "__main__":
    unittest.main()
