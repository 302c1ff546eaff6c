#!/usr/bin/env python3
"""The check of the mirror: each way in which tests can depart from the sources."""

import unittest
from unittest import mock

import mirror
from folder_case import FolderCase

CODE = "inline int one() {\n    return 1;\n}\n"


class Project(FolderCase):
    """A small project to which each test adds files."""

    def setUp(self):
        super().setUp()
        for name in ("src/runtime/util/list.cpp", "tests/runtime/util/list_test.cpp", "catalog/catalog.cpp",
                     "tests/catalog/catalog_test.cpp"):
            self.write(name)

    def faults(self, elsewhere=None, of_no_source=None) -> list[str]:
        with mock.patch.object(mirror, "ELSEWHERE", elsewhere or {}), \
             mock.patch.object(mirror, "OF_NO_SOURCE", of_no_source or {}):
            return mirror.faults(self.folder)


class Sources(Project):
    def test_a_mirrored_project_has_no_faults(self):
        self.assertEqual(self.faults(), [])

    def test_a_source_without_test_is_found(self):
        self.write("src/runtime/util/tree.cpp")
        self.write("catalog/english/english.cpp")
        self.assertEqual([fault.split()[0] for fault in self.faults()],
                         ["catalog/english/english.cpp", "src/runtime/util/tree.cpp"])

    def test_a_test_in_another_place_does_not_count(self):
        self.write("src/runtime/util/tree.cpp")
        self.write("tests/runtime/tree_test.cpp")
        self.assertEqual([fault.split()[0] for fault in self.faults()],
                         ["src/runtime/util/tree.cpp", "tests/runtime/tree_test.cpp"])

    def test_a_header_counts_when_it_has_code_and_no_source(self):
        self.write("src/runtime/util/list.h", CODE)
        self.write("src/runtime/util/names.h", "struct Name { int length = 0; };\nint lengthOf(Name name);\n")
        self.write("src/runtime/util/one.h", CODE)
        self.assertEqual([fault.split()[0] for fault in self.faults()], ["src/runtime/util/one.h"])

    def test_a_reason_stands_for_a_test(self):
        self.write("src/runtime/util/tree.cpp")
        self.write("tests/scenarios/tree/one.scenario")
        self.assertEqual(self.faults({"src/runtime/util/tree.cpp": "whole reports: tests/scenarios/tree"}), [])


class Code(unittest.TestCase):
    def test_is_a_function_with_its_body(self):
        for text in (CODE, "struct A {\n    A() : m_a(1) {}\n    int m_a;\n};",
                     "bool is() const { return true; }", "int one() noexcept override {}",
                     "auto one() -> int {}", "template <class T>\nT of(T t) {\n}"):
            with self.subTest(text=text):
                self.assertTrue(mirror.has_code(text))

    def test_is_no_declaration_and_no_data(self):
        for text in ("int one();\n", "struct A {\n    int one = 1;\n};", "enum class A { one, two };",
                     "inline constexpr int one[] = {1, 2};", "// int one() { return 1; }\n", '"one() {"',
                     "class A {\n    virtual ~A() = default;\n    virtual int one() const = 0;\n};",
                     "inline constexpr const char* one = (2);\nstruct A {};"):
            with self.subTest(text=text):
                self.assertFalse(mirror.has_code(text))


class Tests(Project):
    def test_a_variant_belongs_to_its_source(self):
        self.write("src/runtime/util/tree.cpp")
        self.write("tests/runtime/util/tree_described_test.cpp")
        self.write("tests/runtime/util/list_of_trees_test.cpp")
        self.assertEqual(self.faults(), [])

    def test_a_variant_belongs_to_the_longest_name(self):
        self.write("src/runtime/util/list_of_trees.cpp")
        self.write("tests/runtime/util/list_of_trees_test.cpp")
        (self.folder / "tests/runtime/util/list_test.cpp").unlink()
        self.assertEqual([fault.split()[0] for fault in self.faults()], ["src/runtime/util/list.cpp"])

    def test_a_test_without_source_is_found(self):
        self.write("tests/runtime/util/lists_test.cpp")
        self.assertEqual([fault.split()[0] for fault in self.faults()], ["tests/runtime/util/lists_test.cpp"])
        self.assertEqual(self.faults(None, {"tests/runtime/util/lists_test.cpp": "all of them"}), [])

    def test_what_mirrors_nothing_is_passed_over(self):
        self.write("tests/windows/made_up/library_test.cpp")
        self.write("tests/runtime/util/names.h", CODE)
        self.assertEqual(self.faults(), [])


class Reasons(Project):
    def test_one_that_nothing_needs_is_found(self):
        for table, reasons in (("ELSEWHERE", {"src/runtime/util/list.cpp": "small"}),
                               ("ELSEWHERE", {"src/runtime/util/gone.cpp": "small"}),
                               ("OF_NO_SOURCE", {"tests/runtime/util/list_test.cpp": "all"}),
                               ("OF_NO_SOURCE", {"tests/runtime/util/gone_test.cpp": "all"})):
            with self.subTest(reasons=reasons):
                found = self.faults(*((reasons, None) if table == "ELSEWHERE" else (None, reasons)))
                self.assertEqual(found, [f"{table} needs no reason for {next(iter(reasons))}"])

    def test_one_that_names_what_is_not_there_is_found(self):
        self.write("src/runtime/util/tree.cpp")
        reason = "tests/runtime/util/list_test.cpp, tests/scenarios/tree"
        self.assertEqual(self.faults({"src/runtime/util/tree.cpp": reason}),
                         ["the reason for src/runtime/util/tree.cpp names tests/scenarios/tree, which is not there"])


if __name__ == "__main__":
    unittest.main()
