#!/usr/bin/env python3
"""The makers of the package, and the check of it: what must be refused is."""

import datetime
import hashlib
import json
import os
import pathlib
import sys
import tempfile
import unittest
import unittest.mock
import zipfile

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "tools/package"))

import components as components_module  # noqa: E402
from archive import write_archive  # noqa: E402
from components import Component, components, linked_files  # noqa: E402
from contents import keywords_of  # noqa: E402
from make import checksums, for_windows  # noqa: E402
from notices import copyright_of, licence_text  # noqa: E402
from package_check import problems  # noqa: E402
from sbom import bill_of_materials  # noqa: E402

MOMENT = datetime.datetime(2020, 2, 29, 12, 30, 14, tzinfo=datetime.timezone.utc)
NAME = "kvxinfo-1.2.3.4-x64"
README = """Title
=====

The keywords
------------

  help   text
  all    text

  one    text

The end
-------
"""
NUMBERS = bytes.fromhex("02000100 04000300")


def version_text(name: str, version: str) -> bytes:
    return f"{name}\0\0{version}\0".encode("utf-16-le")


PROGRAM = b"".join((b"MZ..", bytes.fromhex("bd04effe 00000100"), NUMBERS, NUMBERS,
                    version_text("FileVersion", "1.2.3.4"), version_text("ProductVersion", "1.2.3.4"),
                    b'<assemblyIdentity type="win32" version="1.2.3.4"/>'))
LINKED = [Component(name, "12", package, vendor, licence, "https://example.org/", "linked")
          for name, package, vendor, licence in (("libgcc", "gcc", "Debian", "MIT"),
                                                 ("libstdc++", "", "", "MIT"),
                                                 ("mingw-w64", "", "", "MIT AND LicenseRef-Own"))]
NOTICES = """The parts
=========

mingw-w64
---------

Copyright (c) Some One

LicenseRef-Own, of the rest:

Copyright (c) Some Other

Take it.

libstdc++, libgcc
-----------------

Copyright (c) They
"""
DOCUMENTS = {
    "README.txt": README,
    "THIRD-PARTY.txt": NOTICES,
    "reports.md": "# R\n\n[q](quota-file.md#a-title)\n",
    "quota-file.md": "# A title\n",
}


def files_of(**changed: str) -> dict[str, bytes]:
    """A good package's files but for documents that are given as, say, `reports_md`."""
    texts = DOCUMENTS | {name.replace("_", "."): text for name, text in changed.items()}
    return {"kvxinfo.exe": PROGRAM} | {name: for_windows(text) for name, text in texts.items()}


class PackageCheck(unittest.TestCase):
    def setUp(self) -> None:
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.path = pathlib.Path(folder.name) / f"{NAME}.zip"

    def check(self, files: dict[str, bytes], bill: dict | None = None,
              sums: bytes | None = None) -> list[str]:
        """What the check says of a package of `files`, with another bill or other sums where given."""
        own = bill_of_materials(NAME, "1.2.3.4", "kvxinfo.exe", files, LINKED, NOTICES, MOMENT)
        files = files | {"kvxinfo.spdx.json": own if bill is None else json.dumps(bill).encode()}
        files = files | {"SHA256SUMS": checksums(files) if sums is None else sums}
        write_archive(self.path, files, MOMENT)
        return problems(self.path, ["one"], ["/secret/place"])

    def bill(self) -> dict:
        return json.loads(bill_of_materials(NAME, "1.2.3.4", "kvxinfo.exe", files_of(), LINKED, NOTICES,
                                            MOMENT))

    def assert_refused(self, found: list[str], word: str) -> None:
        self.assertTrue(any(word in problem for problem in found), f"{word!r} in {found}")

    def test_a_good_one_is_accepted(self) -> None:
        self.assertEqual(self.check(files_of()), [])

    def test_same_bytes_from_the_same_files(self) -> None:
        self.check(files_of())
        once = self.path.read_bytes()
        self.check(dict(reversed(files_of().items())))
        self.assertEqual(self.path.read_bytes(), once)

    def test_a_file_too_many_or_too_few(self) -> None:
        self.assert_refused(self.check(files_of() | {"more.dll": b""}), "it holds")
        fewer = files_of()
        del fewer["quota-file.md"]
        self.assert_refused(self.check(fewer), "it holds")

    def test_entries_out_of_order_or_of_two_times(self) -> None:
        self.check(files_of())
        with zipfile.ZipFile(self.path) as archive:
            contents = {name: archive.read(name) for name in archive.namelist()}
        with zipfile.ZipFile(self.path, "w") as archive:
            for year, name in enumerate(reversed(contents), start=2000):
                archive.writestr(zipfile.ZipInfo(name, (year, 1, 1, 0, 0, 0)), contents[name])
        found = problems(self.path, ["one"], [])
        self.assert_refused(found, "not sorted")
        self.assert_refused(found, "one time")

    def test_sums(self) -> None:
        self.assert_refused(self.check(files_of(), sums=b""), "SHA256SUMS lists")
        good = checksums(files_of() | {"kvxinfo.spdx.json": b""})
        self.assert_refused(self.check(files_of(), sums=good), "another sum for kvxinfo.spdx.json")
        self.assert_refused(self.check(files_of(), sums=good.replace(b"\n", b"\r\n")), "SHA256SUMS: ")

    def test_version_of_the_program(self) -> None:
        good = PROGRAM.index(NUMBERS)
        for place, program in (("file", PROGRAM[:good + 4] + b"\5" + PROGRAM[good + 5:]),
                               ("product", PROGRAM[:good + 12] + b"\5" + PROGRAM[good + 13:]),
                               ("FileVersion", PROGRAM.replace(version_text("FileVersion", "1.2.3.4"), b"")),
                               ("ProductVersion", PROGRAM.replace("P".encode("utf-16-le"), b"--")),
                               ("manifest", PROGRAM.replace(b'version="1.2.3.4"', b'version="1.2.3"'))):
            with self.subTest(place=place):
                found = self.check(files_of() | {"kvxinfo.exe": program})
                self.assertEqual(len(found), 1, found)
                self.assertRegex(found[0], rf"^kvxinfo\.exe is version .* \({place}\)$")

    def test_bill_that_lacks_a_field(self) -> None:
        for place in ((), ("packages", 0), ("packages", 1), ("files", 2)):
            bill = self.bill()
            record = bill
            for step in place:
                record = record[step]
            record["SPDXID"] = ""
            with self.subTest(place=place):
                self.assert_refused(self.check(files_of(), bill), "lacks ['SPDXID']")

    def test_bill_of_other_files(self) -> None:
        bill = self.bill()
        bill["files"][1]["checksums"][1]["checksumValue"] = hashlib.sha256(b"").hexdigest()
        self.assert_refused(self.check(files_of(), bill), "has other sums for")
        bill["files"].pop()
        self.assert_refused(self.check(files_of(), bill), "kvxinfo.spdx.json lists")

    def test_bill_without_a_component(self) -> None:
        bill = self.bill()
        bill["packages"].pop()
        found = self.check(files_of(), bill)
        self.assert_refused(found, "knows only of")
        self.assert_refused(found, "is related, but not there")

    def test_bill_with_another_verification_code(self) -> None:
        bill = self.bill()
        bill["packages"][0]["packageVerificationCode"] = {"packageVerificationCodeValue": ""}
        self.assert_refused(self.check(files_of(), bill), "verification code")

    def test_bill_with_something_unrelated(self) -> None:
        bill = self.bill()
        bill["relationships"].pop()
        self.assert_refused(self.check(files_of(), bill), "is related to nothing")

    def test_bill_of_a_wrong_kind(self) -> None:
        for field, value in (("spdxVersion", "SPDX-2.2"), ("documentNamespace", "here"), ("name", "other")):
            with self.subTest(field=field):
                self.assert_refused(self.check(files_of(), self.bill() | {field: value}), "is wrong")

    def test_keywords(self) -> None:
        readme = README.replace("  one ", "  two ")
        self.assert_refused(self.check(files_of(README_txt=readme)), "the keywords are")

    def test_notices(self) -> None:
        files = files_of() | {"THIRD-PARTY.txt": for_windows(NOTICES.replace("libstdc++", "something"))}
        self.assertEqual(self.check(files), ["THIRD-PARTY.txt: no chapter is about libstdc++"])

    def test_licences_of_components(self) -> None:
        for field, value, word in (
                ("licenseDeclared", "NOASSERTION", "has no licence"),
                ("licenseConcluded", "GPL", "two licences"),
                ("copyrightText", "NOASSERTION", "has the copyright"),
                ("copyrightText", "Copyright (c) Nobody", "has the copyright"),
                ("supplier", "NOASSERTION", "has the supplier"),
                ("licenseDeclared", "LicenseRef-Gone", "LicenseRef-Gone is used, but has no text")):
            bill = self.bill()
            bill["packages"][1][field] = value
            with self.subTest(field=field, value=value):
                self.assert_refused(self.check(files_of(), bill), word)

    def test_texts_of_licences(self) -> None:
        bill = self.bill()
        bill["hasExtractedLicensingInfos"][0]["extractedText"] = "Leave it."
        self.assert_refused(self.check(files_of(), bill), "does not say")
        bill["hasExtractedLicensingInfos"] = []
        self.assert_refused(self.check(files_of(), bill), "LicenseRef-Own is used, but has no text")
        bill = self.bill()
        bill["packages"][3] |= {"licenseDeclared": "MIT", "licenseConcluded": "MIT"}
        self.assert_refused(self.check(files_of(), bill), "LicenseRef-Own is used by nothing")

    def test_documents(self) -> None:
        for text, word in (("[x](machines.md)\n", "leads nowhere"), ("[x](#gone)\n", "leads nowhere"),
                           ("see `machines/sample`\n", "in the sources only")):
            with self.subTest(text=text):
                self.assert_refused(self.check(files_of(reports_md=text)), word)
        self.assert_refused(self.check(files_of() | {"reports.md": b"one\ntwo\n"}), "as it does on Windows")

    def test_places_of_the_builder(self) -> None:
        for encoding in ("utf-8", "utf-16-le"):
            program = PROGRAM + "/secret/place/a.cpp".encode(encoding)
            with self.subTest(encoding=encoding):
                self.assert_refused(self.check(files_of() | {"kvxinfo.exe": program}), "kvxinfo.exe names")


class Makers(unittest.TestCase):
    MAP = """Archive member included to satisfy reference by file (symbol)

src/libkvx_main.a(entry.cpp.obj)
                              src/start.cpp.obj (_tmain)
/opt/gcc/12/libstdc++.a(string.o)
                              src/start.cpp.obj (std::string)
LOAD /opt/mingw/lib/crt2u.o
LOAD src/start.cpp.obj
LOAD /opt/gcc/12/libssp.a
"""

    def test_what_was_linked(self) -> None:
        self.assertEqual([path.name for path in linked_files(self.MAP)], ["libstdc++.a", "crt2u.o"])
        with tempfile.TemporaryDirectory() as folder:
            compiler = pathlib.Path(folder) / "compiler"
            compiler.write_text("#!/bin/sh\nif [ $1 = -E ]; then echo 'x;'; echo '\"7\" \".1\"'; "
                                "else echo 12.2; fi\n")
            compiler.chmod(0o755)
            found = components(self.MAP, str(compiler))
        versions = {part.name: part.version for part in found}
        self.assertEqual(versions, {"libstdc++": "12.2", "mingw-w64": "7.1"})

    def test_what_leaves_nothing(self) -> None:
        with_it = self.MAP + "LOAD /opt/lib/default-manifest.o\n"
        self.assertEqual(linked_files(with_it), linked_files(self.MAP))

    def test_what_is_of_a_package(self) -> None:
        with tempfile.TemporaryDirectory() as folder:
            query = pathlib.Path(folder) / "dpkg-query"
            query.write_text("#!/bin/sh\nif [ $1 = --search ]; then echo \"gcc:all: $2\"; "
                             "else echo 12-3; fi\n")
            query.chmod(0o755)
            origin = pathlib.Path(folder) / "origin"
            origin.write_text("Vendor: Debian\nBugs: none\n")
            with (unittest.mock.patch.dict(os.environ, PATH=f"{folder}:{os.environ['PATH']}"),
                  unittest.mock.patch.object(components_module, "ORIGIN", origin)):
                found = components(self.MAP, "no-such-compiler")
        self.assertEqual({(part.version, part.package, part.vendor) for part in found},
                         {("12-3", "gcc", "Debian")})

    def test_what_the_notices_say(self) -> None:
        self.assertEqual(copyright_of("mingw-w64", NOTICES),
                         "Copyright (c) Some One\nCopyright (c) Some Other")
        self.assertEqual(copyright_of("libgcc", NOTICES), "Copyright (c) They")
        self.assertEqual(licence_text("LicenseRef-Own", NOTICES), "Copyright (c) Some Other\n\nTake it.")
        with self.assertRaisesRegex(ValueError, "no copyright of mingw"):
            copyright_of("mingw", NOTICES)
        with self.assertRaisesRegex(ValueError, "no text of LicenseRef-Other"):
            licence_text("LicenseRef-Other", NOTICES)

    def test_what_has_no_version_is_refused(self) -> None:
        with self.assertRaisesRegex(ValueError, "version of /opt/gcc/12/libstdc"):
            components(self.MAP, "no-such-compiler")

    def test_what_nobody_knows_is_refused(self) -> None:
        with self.assertRaisesRegex(ValueError, "libzip.a became part"):
            components(self.MAP + "/opt/libzip.a(inflate.o)\n", "no-such-compiler")
        with self.assertRaisesRegex(ValueError, "shows nothing"):
            components("", "no-such-compiler")

    def test_a_time_before_all_archives(self) -> None:
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder) / "old.zip"
            write_archive(path, {"a": b""}, datetime.datetime(1970, 1, 1))
            with zipfile.ZipFile(path) as archive:
                self.assertEqual(archive.infolist()[0].date_time, (1980, 1, 1, 0, 0, 0))

    def test_a_document_for_windows(self) -> None:
        self.assertEqual(for_windows("a\n<!-- run: x -->\nb\n"), b"a\r\nb\r\n")

    def test_keywords_of_the_register(self) -> None:
        register = '    returns(L"one",  inAll),\n    prints (L"two", x),\n    // prints (L"three")\n'
        self.assertEqual(keywords_of(register), ["one", "two"])
        with self.assertRaises(ValueError):
            keywords_of("")


if __name__ == "__main__":
    unittest.main()
