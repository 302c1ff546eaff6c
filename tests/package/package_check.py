"""What must be true of a package: `problems` tells what is not."""

import hashlib
import json
import pathlib
import re
import zipfile

BILL = "kvxinfo.spdx.json"
SUMS = "SHA256SUMS"
NAMES = {"kvxinfo.exe", "README.txt", "THIRD-PARTY.txt", "reports.md", "quota-file.md", BILL, SUMS}

DOCUMENT_FIELDS = {"spdxVersion", "dataLicense", "SPDXID", "name", "documentNamespace", "creationInfo"}
PACKAGE_FIELDS = {"SPDXID", "name", "versionInfo", "downloadLocation", "filesAnalyzed", "licenseConcluded",
                  "licenseDeclared", "copyrightText"}
FILE_FIELDS = {"SPDXID", "fileName", "checksums", "licenseConcluded", "licenseInfoInFiles", "copyrightText"}
SOURCES_ONLY = re.compile(r"`((?:\./run|\./test|docs|machines|src|tests|tools)\b[/ ][^`]*)`")
LINKED_AT_LEAST = {"libstdc++", "libgcc", "mingw-w64"}


def problems(path: pathlib.Path, keywords: list[str], own_folders: list[str]) -> list[str]:
    """`keywords` are those of the program in their order; `own_folders` are folders of the building machine,
    which no file may name."""
    with zipfile.ZipFile(path) as archive:
        damaged = archive.testzip()
        files = {name: archive.read(name) for name in archive.namelist()}
        found = [f"{damaged} is damaged"] if damaged else []
        found += archive_problems(archive)
    if set(files) != NAMES:
        return [*found, f"it holds {sorted(files)}"]
    version = path.stem.split("-")[1]
    found += checksum_problems(files)
    found += version_problems(files["kvxinfo.exe"], version)
    found += bill_problems(files, path.stem, version)
    notices = files["THIRD-PARTY.txt"].decode()
    found += notice_problems(notices, json.loads(files[BILL]))
    found += licence_problems(json.loads(files[BILL]), notices.replace("\r\n", "\n"))
    found += keyword_problems(files["README.txt"].decode(), keywords)
    found += link_problems(files)
    found += folder_problems(files, own_folders)
    return found


def archive_problems(archive: zipfile.ZipFile) -> list[str]:
    entries = archive.infolist()
    names = [entry.filename for entry in entries]
    found = []
    if names != sorted(set(names)):
        found.append(f"its entries are not sorted, or not unique: {names}")
    if len({entry.date_time for entry in entries}) != 1:
        found.append("its entries are not of one time")
    return found


def checksum_problems(files: dict[str, bytes]) -> list[str]:
    """The sums are those of all other files, as `sha256sum --check` reads them."""
    found = []
    listed = {}
    for line in files[SUMS].decode().splitlines(keepends=True):
        match = re.fullmatch(r"([0-9a-f]{64})  (\S+)\n", line)
        if match is None:
            found.append(f"{SUMS}: {line!r}")
        else:
            listed[match[2]] = match[1]
    if set(listed) != set(files) - {SUMS}:
        found.append(f"{SUMS} lists {sorted(listed)}")
    found += [f"{SUMS} has another sum for {name}" for name, digest in listed.items()
              if name in files and hashlib.sha256(files[name]).hexdigest() != digest]
    return found


def version_problems(program: bytes, version: str) -> list[str]:
    """Every version in the resources is what the package's name says."""
    fixed = program.partition(bytes.fromhex("bd04effe 00000100"))[2]
    shown = {
        "file": dotted(fixed[0:8]),
        "product": dotted(fixed[8:16]),
        "FileVersion": text_version("FileVersion", program),
        "ProductVersion": text_version("ProductVersion", program),
        "manifest": first(rb'<assemblyIdentity [^>]*\bversion="([^"]*)"', program).decode(),
    }
    return [f"kvxinfo.exe is version {number or 'none'} ({place})" for place, number in shown.items()
            if number != version]


def dotted(fixed: bytes) -> str:
    """The four numbers of a version resource, where each two stand in the wrong order."""
    numbers = [int.from_bytes(fixed[place:place + 2], "little") for place in (2, 0, 6, 4)]
    return ".".join(str(number) for number in numbers) if fixed else ""


def text_version(name: str, program: bytes) -> str:
    found = first(re.escape(f"{name}\0".encode("utf-16-le")) + rb"(?:\0\0)*((?:[0-9.]\0)+)\0\0", program)
    return found.decode("utf-16-le")


def first(pattern: bytes, content: bytes) -> bytes:
    """The group of the first match; empty without one."""
    match = re.search(pattern, content)
    return match[1] if match else b""


def bill_problems(files: dict[str, bytes], name: str, version: str) -> list[str]:
    bill = json.loads(files[BILL])
    found = missing_fields("the document", bill, DOCUMENT_FIELDS)
    for package in bill.get("packages", []):
        found += missing_fields(f"package {package.get('name')}", package, PACKAGE_FIELDS)
    for file in bill.get("files", []):
        found += missing_fields(f"file {file.get('fileName')}", file, FILE_FIELDS)
    if found:
        return found
    found += document_problems(bill, name)
    found += file_problems(bill, {key: files[key] for key in files if key not in (BILL, SUMS)})
    found += package_problems(bill, version)
    found += relationship_problems(bill)
    return found


def missing_fields(what: str, record: dict, fields: set[str]) -> list[str]:
    empty = {field for field in fields if record.get(field) in (None, "", [], {})}
    return [f"{BILL}: {what} lacks {sorted(empty)}"] if empty else []


def document_problems(bill: dict, name: str) -> list[str]:
    created = bill["creationInfo"].get("created", "")
    checks = {
        "version": bill["spdxVersion"] == "SPDX-2.3",
        "licence": bill["dataLicense"] == "CC0-1.0",
        "identifier": bill["SPDXID"] == "SPDXRef-DOCUMENT",
        "name": bill["name"] == name,
        "namespace": re.fullmatch(r"https://[^\s#]+", bill["documentNamespace"]) is not None,
        "time": re.fullmatch(r"\d{4}-\d\d-\d\dT\d\d:\d\d:\d\dZ", created) is not None,
        "creators": bool(bill["creationInfo"].get("creators")),
    }
    return [f"{BILL}: the document's {check} is wrong" for check, good in checks.items() if not good]


def file_problems(bill: dict, files: dict[str, bytes]) -> list[str]:
    listed = {file["fileName"].removeprefix("./"): file for file in bill["files"]}
    if set(listed) != set(files) or len(listed) != len(bill["files"]):
        return [f"{BILL} lists {sorted(listed)}"]
    found = []
    for name, content in files.items():
        sums = {entry["algorithm"]: entry["checksumValue"] for entry in listed[name]["checksums"]}
        if sums != {"SHA1": hashlib.sha1(content).hexdigest(), "SHA256": hashlib.sha256(content).hexdigest()}:
            found.append(f"{BILL} has other sums for {name}")
    return found


def package_problems(bill: dict, version: str) -> list[str]:
    packages = {package["name"]: package for package in bill["packages"]}
    found = []
    if packages.get("kvxinfo", {}).get("versionInfo") != version:
        found.append(f"{BILL}: the package is not version {version}")
    if not LINKED_AT_LEAST <= set(packages):
        found.append(f"{BILL} knows only of {sorted(packages)}")
    sums = sorted(entry["checksumValue"] for file in bill["files"] for entry in file["checksums"]
                  if entry["algorithm"] == "SHA1")
    code = {
        "packageVerificationCodeValue": hashlib.sha1("".join(sums).encode()).hexdigest(),
        "packageVerificationCodeExcludedFiles": [f"./{SUMS}", f"./{BILL}"],
    }
    if packages.get("kvxinfo", {}).get("packageVerificationCode") != code:
        found.append(f"{BILL}: the package's verification code is wrong")
    return found


def relationship_problems(bill: dict) -> list[str]:
    """Everything is there once, and related to the document."""
    elements = [entry["SPDXID"] for entry in (bill, *bill["packages"], *bill["files"])]
    found = []
    if len(set(elements)) != len(elements):
        found.append(f"{BILL}: an identifier is used twice")
    found += [f"{BILL}: {element} is no identifier" for element in elements
              if re.fullmatch(r"SPDXRef-[A-Za-z0-9.-]+", element) is None]
    pairs = [(entry["spdxElementId"], entry["relatedSpdxElement"]) for entry in bill["relationships"]]
    unknown = {element for pair in pairs for element in pair} - set(elements)
    unrelated = set(elements) - {"SPDXRef-DOCUMENT"} - {other for _, other in pairs}
    found += [f"{BILL}: {element} is related, but not there" for element in sorted(unknown)]
    found += [f"{BILL}: {element} is related to nothing" for element in sorted(unrelated)]
    return found


def notice_problems(notices: str, bill: dict) -> list[str]:
    """Every component has a chapter."""
    headings = " ".join(re.findall(r"^([^\r\n]+)\r\n-+\r\n", notices, re.MULTILINE))
    return [f"THIRD-PARTY.txt: no chapter is about {package['name']}" for package in bill.get("packages", [])
            if package.get("name") not in ("kvxinfo", *re.findall(r"[\w+-]+", headings))]


def licence_problems(bill: dict, notices: str) -> list[str]:
    """Of every component it is known who supplies it, whose it is and under which licence. The texts that
    SPDX does not know are there, and are those of the notices."""
    components = [package for package in bill.get("packages", []) if package.get("name") != "kvxinfo"]
    texts = {info.get("licenseId"): info.get("extractedText")
             for info in bill.get("hasExtractedLicensingInfos", [])}
    used = {name for package in components
            for name in re.findall(r"LicenseRef-[\w.-]+", package.get("licenseDeclared", ""))}
    found = [f"{BILL}: {name} is used, but has no text" for name in sorted(used - set(texts))]
    found += [f"{BILL}: {name} is used by nothing" for name in sorted(set(texts) - used)]
    found += [f"THIRD-PARTY.txt does not say what {BILL} says of {name}" for name, text in texts.items()
              if not text or name not in notices or text not in notices]
    for package in components:
        found += [f"{BILL}: {package.get('name')} {problem}"
                  for problem in component_problems(package, notices)]
    return found


def component_problems(package: dict, notices: str) -> list[str]:
    found = []
    if package.get("licenseDeclared") in (None, "NOASSERTION"):
        found.append("has no licence")
    if package.get("licenseConcluded") != package.get("licenseDeclared"):
        found.append("has two licences")
    copyrights = package.get("copyrightText", "").splitlines()
    if not copyrights or not set(copyrights) <= set(notices.splitlines()):
        found.append(f"has the copyright {copyrights}")
    vendor = re.search(r" of Debian$", package.get("sourceInfo", ""))
    if (package.get("supplier") == "Organization: Debian") != bool(vendor):
        found.append(f"has the supplier {package.get('supplier')}")
    return found


def keyword_problems(readme: str, keywords: list[str]) -> list[str]:
    chapter = re.search(r"^The keywords\r\n-+\r\n(.*?)^[^\r\n]+\r\n-+\r\n", readme, re.MULTILINE | re.DOTALL)
    shown = re.findall(r"^  (\w+)  +\S", chapter[1], re.MULTILINE) if chapter else []
    wanted = ["help", "all", *keywords]
    return [] if shown == wanted else [f"README.txt: the keywords are {shown}, not {wanted}"]


def link_problems(files: dict[str, bytes]) -> list[str]:
    """What a document refers to is in the package, or on the web."""
    found = []
    for name in files:
        if not name.endswith((".md", ".txt")):
            continue
        text = files[name].decode()
        targets = re.findall(r"\]\(([^)\s]+)\)", text)
        found += [f"{name}: the link {target} leads nowhere" for target in targets
                  if not target.startswith("https://") and not leads_somewhere(target, text, files)]
        found += [f"{name}: {place} is in the sources only" for place in SOURCES_ONLY.findall(text)]
        if "<!--" in text:
            found.append(f"{name}: a remark for those who keep it is left")
        if re.search(r"(?<!\r)\n", text):
            found.append(f"{name}: a line does not end as it does on Windows")
    return found


def leads_somewhere(target: str, text: str, files: dict[str, bytes]) -> bool:
    file, _, heading = target.partition("#")
    if file and file not in files:
        return False
    there = files[file].decode() if file else text
    headings = {re.sub(r"[^\w\- ]", "", line).strip().lower().replace(" ", "-")
                for line in re.findall(r"^#+ (.*?)\r?$", there, re.MULTILINE)}
    return not heading or heading in headings


def folder_problems(files: dict[str, bytes], own_folders: list[str]) -> list[str]:
    found = []
    for name, content in files.items():
        for folder in own_folders:
            if any(folder.encode(encoding) in content for encoding in ("utf-8", "utf-16-le")):
                found.append(f"{name} names {folder}, a folder of the machine that built it")
    return found
