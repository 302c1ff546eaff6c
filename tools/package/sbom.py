"""The bill of materials of a package, as SPDX 2.3 in JSON."""

import datetime
import hashlib
import json
import re

from components import Component
from notices import copyright_of, licence_text, licences_in

NO_ASSERTION = "NOASSERTION"
# What cannot be listed: it is made of what this document says.
LEFT_OUT = ["./SHA256SUMS", "./kvxinfo.spdx.json"]


def bill_of_materials(name: str, version: str, program: str, files: dict[str, bytes],
                      linked: list[Component], notices: str, moment: datetime.datetime) -> bytes:
    """The document about the package `name` of `files`, contents by name; `program` is the one of them that
    `linked` is part of, and `notices` THIRD-PARTY.txt. The same arguments give the same bytes. Raises
    `ValueError` when the notices lack something."""
    document = {
        "spdxVersion": "SPDX-2.3",
        "dataLicense": "CC0-1.0",
        "SPDXID": "SPDXRef-DOCUMENT",
        "name": name,
        "documentNamespace": "",
        "creationInfo": {
            "created": moment.strftime("%Y-%m-%dT%H:%M:%SZ"),
            "creators": [f"Tool: kvxinfo-package-{version}"],
        },
        "hasExtractedLicensingInfos": _licences(linked, notices),
        "packages": [_package(name, version, files), *(_component(part, notices) for part in linked)],
        "files": [_file(file, files[file]) for file in sorted(files)],
        "relationships": _relationships(program, sorted(files), linked),
    }
    # No other document has this name, and the same document never has another one.
    digest = hashlib.sha256(json.dumps(document, sort_keys=True).encode()).hexdigest()
    document["documentNamespace"] = f"https://spdx.org/spdxdocs/{name}-{digest}"
    return (json.dumps(document, indent=2) + "\n").encode()


def _identifier(kind: str, name: str) -> str:
    return f"SPDXRef-{kind}-" + re.sub(r"[^A-Za-z0-9.-]", "-", name)


def _licences(linked: list[Component], notices: str) -> list[dict]:
    names = sorted({name for part in linked for name in licences_in(part.licence)})
    return [{"licenseId": name, "name": name.removeprefix("LicenseRef-"),
             "extractedText": licence_text(name, notices)} for name in names]


def _relationships(program: str, files: list[str], linked: list[Component]) -> list[dict]:
    package = _identifier("Package", "kvxinfo")
    triples = [("SPDXRef-DOCUMENT", "DESCRIBES", package)]
    triples += [(package, "CONTAINS", _identifier("File", file)) for file in files]
    triples += [(_identifier("File", program), "STATIC_LINK", _identifier("Package", part.name))
                for part in linked]
    return [{"spdxElementId": one, "relationshipType": kind, "relatedSpdxElement": other}
            for one, kind, other in triples]


def _package(name: str, version: str, files: dict[str, bytes]) -> dict:
    sums = sorted(hashlib.sha1(content).hexdigest() for content in files.values())
    return {
        "SPDXID": _identifier("Package", "kvxinfo"),
        "name": "kvxinfo",
        "versionInfo": version,
        "packageFileName": f"{name}.zip",
        "primaryPackagePurpose": "APPLICATION",
        "supplier": NO_ASSERTION,
        "downloadLocation": NO_ASSERTION,
        "filesAnalyzed": True,
        "packageVerificationCode": {
            "packageVerificationCodeValue": hashlib.sha1("".join(sums).encode()).hexdigest(),
            "packageVerificationCodeExcludedFiles": LEFT_OUT,
        },
        "licenseConcluded": NO_ASSERTION,
        "licenseInfoFromFiles": [NO_ASSERTION],
        "licenseDeclared": NO_ASSERTION,
        "copyrightText": NO_ASSERTION,
        "summary": "Tells what is installed of the HSM client on a machine, and what is wrong with it.",
    }


def _component(part: Component, notices: str) -> dict:
    described = {
        "SPDXID": _identifier("Package", part.name),
        "name": part.name,
        "versionInfo": part.version,
        "primaryPackagePurpose": "LIBRARY",
        "supplier": f"Organization: {part.vendor}" if part.vendor else NO_ASSERTION,
        "downloadLocation": NO_ASSERTION,
        "homepage": part.homepage,
        "filesAnalyzed": False,
        "licenseConcluded": part.licence,
        "licenseDeclared": part.licence,
        "copyrightText": copyright_of(part.name, notices),
        "comment": part.comment,
    }
    if part.package:
        whose = part.vendor or "the system that built the program"
        described["sourceInfo"] = f"from the package {part.package} of {whose}"
    return described


def _file(name: str, content: bytes) -> dict:
    return {
        "SPDXID": _identifier("File", name),
        "fileName": f"./{name}",
        "fileTypes": ["BINARY" if name.endswith(".exe") else "DOCUMENTATION"],
        "checksums": [
            {"algorithm": "SHA1", "checksumValue": hashlib.sha1(content).hexdigest()},
            {"algorithm": "SHA256", "checksumValue": hashlib.sha256(content).hexdigest()},
        ],
        "licenseConcluded": NO_ASSERTION,
        "licenseInfoInFiles": [NO_ASSERTION],
        "copyrightText": NO_ASSERTION,
    }
