"""Writes what is inside of a package as SPDX 2.3: each file with its sums, and whose code the programs hold."""
import hashlib
import json
import re
import time
import uuid
from urllib.parse import quote

VERSION = "SPDX-2.3"
DOCUMENT, PRODUCT = "SPDXRef-DOCUMENT", "SPDXRef-vmkctrl"
UNKNOWN = "NOASSERTION"
KINDS = {".dll": "BINARY", ".exe": "BINARY", ".tlb": "BINARY", ".vlf": "BINARY", ".png": "IMAGE", ".md": "DOCUMENTATION",
         ".txt": "TEXT", ".json": "TEXT"}


def reference(kind, text):
    return f"SPDXRef-{kind}-" + re.sub(r"[^A-Za-z0-9.]+", "-", text)


def file_entry(folder, place):
    data = (folder / place).read_bytes()
    return {
        "SPDXID": reference("File", place.as_posix()),
        "fileName": f"./{place.as_posix()}",
        "fileTypes": [KINDS.get(place.suffix, "SOURCE")],
        "checksums": [{"algorithm": "SHA1", "checksumValue": hashlib.sha1(data).hexdigest()},
                      {"algorithm": "SHA256", "checksumValue": hashlib.sha256(data).hexdigest()}],
        "licenseConcluded": UNKNOWN,
        "licenseInfoInFiles": [UNKNOWN],
        "copyrightText": UNKNOWN,
    }


def verification_code(files):
    sums = sorted(file["checksums"][0]["checksumValue"] for file in files)
    return {"packageVerificationCodeValue": hashlib.sha1("".join(sums).encode()).hexdigest()}


def package_entry(package, comment):
    return {
        "SPDXID": reference("Package", package.name),
        "name": package.name,
        "versionInfo": package.version,
        "supplier": "Organization: Debian",
        "downloadLocation": UNKNOWN,
        "filesAnalyzed": False,
        "licenseConcluded": UNKNOWN,
        "licenseDeclared": UNKNOWN,
        "copyrightText": UNKNOWN,
        "comment": comment,
        "externalRefs": [{"referenceCategory": "PACKAGE-MANAGER", "referenceType": "purl",
                          "referenceLocator": f"pkg:deb/debian/{quote(package.name)}@{quote(package.version)}"}],
    }


def relationship(one, kind, other):
    return {"spdxElementId": one, "relationshipType": kind, "relatedSpdxElement": other}


def bill(folder, places, name, version, maker, linked, tools, licences, when):
    """The bill of the files of the folder at these places. linked has the packages in each program."""
    files = [file_entry(folder, place) for place in places]
    inside = sorted({package for packages in linked.values() for package in packages})
    product = {
        "SPDXID": PRODUCT, "name": name, "versionInfo": version, "supplier": f"Organization: {maker}",
        "downloadLocation": UNKNOWN, "filesAnalyzed": True, "packageVerificationCode": verification_code(files),
        "licenseConcluded": UNKNOWN, "licenseDeclared": "NONE", "licenseInfoFromFiles": [UNKNOWN], "copyrightText": UNKNOWN,
        "primaryPackagePurpose": "LIBRARY",
    }
    relationships = [relationship(DOCUMENT, "DESCRIBES", PRODUCT)]
    relationships += [relationship(PRODUCT, "CONTAINS", file["SPDXID"]) for file in files]
    for program, packages in sorted(linked.items()):
        relationships += [relationship(reference("File", program), "STATIC_LINK", reference("Package", package.name))
                          for package in packages]
    relationships += [relationship(reference("Package", tool.name), "BUILD_TOOL_OF", PRODUCT) for tool in tools]
    content = json.dumps([files, relationships], sort_keys=True)
    return {
        "spdxVersion": VERSION, "dataLicense": "CC0-1.0", "SPDXID": DOCUMENT, "name": f"{name}-{version}",
        "documentNamespace": f"urn:uuid:{uuid.uuid5(uuid.NAMESPACE_OID, content)}",
        "creationInfo": {"created": time.strftime("%Y-%m-%dT%H:%M:%SZ", time.gmtime(when)),
                         "creators": [f"Organization: {maker}", "Tool: script/package"]},
        "packages": [product] +
                    [package_entry(package, f"Parts of it are in the programs; {licences}/{package.source}.txt has its terms.")
                     for package in inside] +
                    [package_entry(tool, "The programs were made with it.") for tool in tools],
        "files": files,
        "relationships": relationships,
    }


def write(path, document):
    path.write_text(json.dumps(document, indent=2, ensure_ascii=False) + "\n", encoding="utf-8")
