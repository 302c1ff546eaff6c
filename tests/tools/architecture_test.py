#!/usr/bin/env python3
"""The check of the includes: each way in which a file can include what it must not."""

import tempfile
import unittest
from pathlib import Path

import architecture


class Includes(unittest.TestCase):
    def faults(self, file: str, text: str) -> list[str]:
        with tempfile.TemporaryDirectory() as name:
            path = Path(name) / file
            path.parent.mkdir(parents=True)
            path.write_text(text, encoding="utf-8")
            return architecture.faults(Path(name))

    def test_downwards_is_right(self):
        for file, included in (("main/start.cpp", "checker/a.h"),
                               ("main/a.cpp", "main/b.h"),
                               ("checker/a.cpp", "runtime/util/b.h"),
                               ("runtime/util/b.cpp", "runtime/host/host.h"),
                               ("runtime/base/c.cpp", "catalog/catalog.h"),
                               ("runtime/host/described/d.cpp", "runtime/host/facts.h")):
            with self.subTest(file=file):
                self.assertEqual(self.faults(file, f'#include <vector>\n#include "{included}"\n'), [])

    def test_upwards_is_wrong(self):
        for file, included in (("checker/a.cpp", "main/run.h"),
                               ("runtime/util/b.cpp", "checker/a.h"),
                               ("runtime/base/b.h", "main/run.h"),
                               ("runtime/host/d.cpp", "runtime/base/CString.h"),
                               ("runtime/host/d.h", "catalog/catalog.h"),
                               ("runtime/host/windows/d.cpp", "checker/a.h")):
            with self.subTest(file=file):
                found = self.faults(file, f'\n  #  include "{included}"\n')
                self.assertEqual(len(found), 1)
                self.assertTrue(found[0].startswith(f"{file}:2: "), found)

    def test_path_from_the_top_is_asked_for(self):
        self.assertEqual(len(self.faults("main/a.cpp", '#include "b.h"\n')), 1)
        self.assertEqual(len(self.faults("main/a.cpp", '#include "../checker/b.h"\n')), 1)

    def test_windows_headers_have_one_home(self):
        for file in ("runtime/host/windows/console.cpp", "runtime/host/os.h"):
            self.assertEqual(self.faults(file, "#include <windows.h>\n"), [])
        for file in ("main/start.cpp", "checker/a.h", "runtime/util/b.cpp", "runtime/host/facts.h"):
            for header in ("windows.h", "Windows.h", "lm.h", "winsvc.h", "dsgetdc.h"):
                with self.subTest(file=file, header=header):
                    self.assertEqual(len(self.faults(file, f"#include <{header}>\n")), 1)


if __name__ == "__main__":
    unittest.main()
