#!/usr/bin/env python3
"""The check of the plan: each way in which the sources can depart from it."""

import unittest

import architecture


class Includes(unittest.TestCase):
    def faults(self, file: str, text: str) -> list[str]:
        return architecture.include_faults({file: text})

    def test_downwards_is_right(self):
        for file, included in (("main/entry.cpp", "checker/a.h"),
                               ("program/start.cpp", "main/entry.h"),
                               ("main/a.cpp", "main/b.h"),
                               ("checker/a.cpp", "runtime/util/b.h"),
                               ("runtime/util/b.cpp", "runtime/host/host.h"),
                               ("runtime/base/c.cpp", "catalog/catalog.h"),
                               ("catalog/english/english.cpp", "catalog/catalog.h"),
                               ("runtime/host/description/d.cpp", "runtime/host/facts.h"),
                               ("runtime/host/described/d.cpp", "runtime/host/description/machine.h"),
                               ("runtime/host/described/d.cpp", "runtime/host/host.h"),
                               ("runtime/host/os.h", "runtime/host/described/os_functions.h")):
            with self.subTest(file=file):
                self.assertEqual(self.faults(file, f'#include <vector>\n#include "{included}"\n'), [])

    def test_upwards_is_wrong(self):
        for file, included in (("checker/a.cpp", "main/run.h"),
                               ("runtime/util/b.cpp", "checker/a.h"),
                               ("runtime/base/b.h", "main/run.h"),
                               ("runtime/host/d.cpp", "runtime/base/CString.h"),
                               ("runtime/host/d.h", "catalog/catalog.h"),
                               ("runtime/host/d.h", "runtime/host/described/os_functions.h"),
                               ("catalog/catalog.h", "runtime/base/format.h"),
                               ("runtime/util/b.cpp", "runtime/host/description/machine.h"),
                               ("runtime/host/description/d.cpp", "runtime/host/described/native_files.h"),
                               ("runtime/host/windows/d.cpp", "runtime/host/description/machine.h"),
                               ("runtime/host/windows/d.cpp", "checker/a.h")):
            with self.subTest(file=file):
                found = self.faults(file, f'\n  #  include "{included}"\n')
                self.assertEqual(len(found), 1)
                self.assertTrue(found[0].startswith(f"{file}:2: "), found)

    def test_a_description_knows_no_host(self):
        for header in ("runtime/host/host.h", "runtime/host/os.h"):
            self.assertEqual(len(self.faults("runtime/host/description/d.h", f'#include "{header}"\n')), 1)

    def test_path_from_the_top_is_asked_for(self):
        self.assertEqual(len(self.faults("main/a.cpp", '#include "b.h"\n')), 1)
        self.assertEqual(len(self.faults("main/a.cpp", '#include "../checker/b.h"\n')), 1)

    def test_windows_headers_have_one_home(self):
        for file in ("runtime/host/windows/console.cpp", "runtime/host/os.h"):
            self.assertEqual(self.faults(file, "#include <windows.h>\n"), [])
        for file in ("main/entry.cpp", "checker/a.h", "runtime/util/b.cpp", "runtime/host/facts.h"):
            for header in ("windows.h", "Windows.h", "lm.h", "winsvc.h", "dsgetdc.h"):
                with self.subTest(file=file, header=header):
                    self.assertEqual(len(self.faults(file, f"#include <{header}>\n")), 1)

    def test_posix_headers_have_one_home(self):
        for header in ("unistd.h", "sys/stat.h", "fcntl.h", "time.h"):
            with self.subTest(header=header):
                self.assertEqual(self.faults("runtime/host/described/files.cpp", f"#include <{header}>\n"), [])
                for file in ("runtime/host/description/source.cpp", "runtime/util/b.cpp", "main/entry.cpp"):
                    self.assertEqual(len(self.faults(file, f"#include <{header}>\n")), 1)


class Circles(unittest.TestCase):
    def test_files_that_include_each_other_are_told(self):
        texts = {"main/a.h": "", "main/a.cpp": '#include "main/b.h"\n',
                 "main/b.h": '#include "main/c.h"\n', "main/c.cpp": '#include "main/a.h"\n', "main/c.h": "",
                 "main/d.cpp": '#include "main/a.h"\n'}
        self.assertEqual(architecture.circle_faults(texts), ["they include each other: main/a, main/b, main/c"])

    def test_a_source_includes_its_header(self):
        self.assertEqual(architecture.circle_faults({"main/a.h": "", "main/a.cpp": '#include "main/a.h"\n'}), [])


class Twins(unittest.TestCase):
    seam = """
namespace host {
/// Asks about(nothing).
class Process {
    int notAsked();
};
Answer<Done> service(const std::wstring& name);
Answer<std::unique_ptr<File>> open(const std::wstring& name, std::uint64_t size,
                                   const std::wstring& other);
bool write(std::wstring_view text) noexcept;
}  // namespace host
"""

    def texts(self, described: dict[str, str], windows: dict[str, str]) -> dict[str, str]:
        files = {architecture.SEAM: self.seam}
        for folder, sources in zip(architecture.HOSTS, (described, windows)):
            files |= {f"{folder}/{name}": f"namespace host {{\n{text}\n}}  // namespace host\n"
                      for name, text in sources.items()}
        return files

    whole = {"services.cpp": "Answer<Done> service(const std::wstring& name) {\n}\n",
             "log.cpp": "Answer<std::unique_ptr<File>> open(const std::wstring& name, std::uint64_t size,\n"
                        "        const std::wstring& other) {\n}\n",
             "console.cpp": "bool write(std::wstring_view text) noexcept {\n}\n"}

    def test_all_questions_of_the_seam_are_found(self):
        self.assertEqual(architecture.questions_of(self.seam), ["open", "service", "write"])

    def test_answers_in_files_of_the_same_name_are_right(self):
        self.assertEqual(architecture.answer_faults(self.texts(self.whole, self.whole)), [])

    def test_an_answer_elsewhere_is_told(self):
        elsewhere = {**self.whole, "log.cpp": "", "files.cpp": self.whole["log.cpp"]}
        self.assertEqual(architecture.answer_faults(self.texts(self.whole, elsewhere)),
                         ["open: answered in log.cpp of runtime/host/described, "
                          "in files.cpp of runtime/host/windows"])

    def test_a_missing_answer_is_told(self):
        self.assertEqual(len(architecture.answer_faults(self.texts({**self.whole, "log.cpp": ""}, self.whole))), 1)

    def test_a_helper_of_the_same_name_is_no_answer(self):
        helper = "namespace {\nbool write(std::wstring_view text) noexcept {\n}\n}  // namespace\n"
        sources = {**self.whole, "files.cpp": helper}
        self.assertEqual(architecture.answer_faults(self.texts(sources, sources)), [])

    def test_a_file_alone_needs_a_reason(self):
        reasons = architecture.TWINLESS
        try:
            architecture.TWINLESS = {"described": {"a.cpp": "why"}, "windows": {}}
            one = self.texts({"a.cpp": "", "b.cpp": ""}, {"b.cpp": ""})
            self.assertEqual(architecture.twin_faults(one), [])
            two = self.texts({"b.cpp": ""}, {"b.cpp": "", "c.cpp": ""})
            self.assertEqual(architecture.twin_faults(two),
                             ["TWINLESS names runtime/host/described/a.cpp, which is not there or has a twin",
                              "runtime/host/windows/c.cpp has no twin in runtime/host/described, "
                              "and no reason stands in TWINLESS"])
        finally:
            architecture.TWINLESS = reasons


if __name__ == "__main__":
    unittest.main()
