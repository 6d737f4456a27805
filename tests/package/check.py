#!/usr/bin/env python3
"""check.py FOLDER: what is wrong with a package, one line each; the exit status is 1 if anything is.

Sums are those of the files. The bill lists what is in the archive and nothing else, and names what it refers to. The
installer brings files of the archive. Links of documents lead somewhere. Whoever's code is inside, the terms are there.
The versions are the same everywhere.
"""
import hashlib
import json
import re
import subprocess
import sys
import tempfile
import zipfile
from pathlib import Path, PurePosixPath

LINK = re.compile(r"\]\(([^)\s]+)\)|<img src=\"([^\"]+)\"")
FENCED = re.compile(r"^```.*?^```", re.M | re.S)
INSTALLED_FOLDER = "Program Files"


def sha(data, kind="sha256"):
    return hashlib.new(kind, data).hexdigest()


def only(folder, pattern):
    found = list(folder.glob(pattern))
    if len(found) != 1:
        raise SystemExit(f"{len(found)} files {pattern} in {folder}")
    return found[0]


def read_zip(path):
    """The files by their places below the archive's one folder."""
    with zipfile.ZipFile(path) as archive:
        contents = {name: archive.read(name) for name in archive.namelist()}
    roots = {name.partition("/")[0] for name in contents}
    if len(roots) != 1:
        raise SystemExit(f"{path.name} holds {sorted(roots)} and not one folder")
    return {name.partition("/")[2]: data for name, data in contents.items()}, roots.pop()


def check_sums(folder):
    listed = dict(reversed(line.split("  ")) for line in (folder / "SHA256SUMS").read_text().splitlines())
    there = {path.name for path in folder.iterdir()} - {"SHA256SUMS"}
    for name in sorted(there ^ set(listed)):
        yield f"SHA256SUMS and the folder disagree on {name}"
    for name in sorted(there & set(listed)):
        if sha((folder / name).read_bytes()) != listed[name]:
            yield f"{name} has another sum than SHA256SUMS says"


def check_bill(document, files):
    listed = {entry["fileName"].removeprefix("./"): entry for entry in document["files"]}
    for name in sorted(set(files) ^ set(listed)):
        yield f"the bill and the archive disagree on {name}"
    for name in sorted(set(files) & set(listed)):
        sums = {entry["algorithm"]: entry["checksumValue"] for entry in listed[name]["checksums"]}
        if sums != {"SHA1": sha(files[name], "sha1"), "SHA256": sha(files[name])}:
            yield f"{name} has other sums than the bill says"
    codes = "".join(sorted(sha(data, "sha1") for data in files.values()))
    product = document["packages"][0]
    if product["packageVerificationCode"]["packageVerificationCodeValue"] != sha(codes.encode(), "sha1"):
        yield "the bill's verification code is another one"
    identifiers = [entry["SPDXID"] for entry in [document, *document["packages"], *document["files"]]]
    for identifier in sorted({each for each in identifiers if identifiers.count(each) > 1}):
        yield f"two entries of the bill are {identifier}"
    for identifier in identifiers:
        if not re.fullmatch(r"SPDXRef-[A-Za-z0-9.-]+", identifier):
            yield f"{identifier} is no identifier"
    for entry in document["relationships"]:
        for end in (entry["spdxElementId"], entry["relatedSpdxElement"]):
            if end not in identifiers:
                yield f"the bill has no {end}"
    for entry in document["packages"]:
        if not entry["versionInfo"]:
            yield f"{entry['name']} has no version"


def check_licences(document, files):
    packages = {entry["SPDXID"]: entry for entry in document["packages"]}
    linked = [entry for entry in document["relationships"] if entry["relationshipType"] == "STATIC_LINK"]
    for program in ("vmkctrl.dll", "vmkprefs.exe"):
        if f"SPDXRef-File-{program}" not in {entry["spdxElementId"] for entry in linked}:
            yield f"nothing is linked into {program}, not even the compiler's runtime"
    for entry in linked:
        package = packages[entry["relatedSpdxElement"]]
        place = re.search(r"licences/\S+\.txt", package["comment"])[0]
        if place not in files:
            yield f"{package['name']} is inside and there is no {place}"
    runtimes = [data for name, data in files.items() if name.startswith("licences/")]
    if not any(b"GCC RUNTIME LIBRARY EXCEPTION" in data for data in runtimes):
        yield "no licence has the exception for the compiler's runtime"


def anchors(text):
    seen = {}
    for heading in re.findall(r"^#+ (.*)", FENCED.sub("", text), re.M):
        slug = re.sub(r"[^\w\- ]", "", heading.strip().lower()).replace(" ", "-")
        seen[slug] = seen.get(slug, -1) + 1
        yield slug if seen[slug] == 0 else f"{slug}-{seen[slug]}"


def normal(path):
    parts = []
    for part in path.parts:
        if part == "..":
            if not parts:
                return None
            parts.pop()
        elif part != ".":
            parts.append(part)
    return "/".join(parts)


def check_links(files):
    folders = {str(parent) for name in files for parent in PurePosixPath(name).parents}
    documents = {name: data.decode() for name, data in files.items() if name.endswith(".md")}
    for name, text in sorted(documents.items()):
        for match in LINK.finditer(FENCED.sub("", text)):
            link = match[1] or match[2]
            path, _, anchor = link.partition("#")
            if "://" in link:
                continue
            target = normal(PurePosixPath(name).parent / path) if path else name
            if target not in files and target not in folders:
                yield f"{name} links to {link}, which is not there"
            elif anchor and anchor not in anchors(documents[target]):
                yield f"{name} links to {link}, where no heading is called so"


def check_installer(installer, files, version):
    with tempfile.TemporaryDirectory() as folder:
        subprocess.run(["msiextract", "-C", folder, installer], stdout=subprocess.DEVNULL, check=True)
        # Folders of the system have names of this tool's, one of which is a dot.
        top = next(Path(folder).rglob("vmkctrl.dll")).parent
        installed = {path.relative_to(top).as_posix(): path.read_bytes() for path in top.rglob("*") if path.is_file()}
    for name in sorted(installed):
        if installed[name] != files.get(name):
            yield f"the installer has another {name} than the archive"
    wanted = {name for name in files if name.endswith((".dll", ".exe", ".vlf")) or name.startswith(("presets/", "licences/"))}
    for name in sorted(wanted - set(installed)):
        yield f"the installer does not bring {name}"
    table = subprocess.run(["msiinfo", "export", installer, "Property"], stdout=subprocess.PIPE, text=True, check=True)
    if f"ProductVersion\t{version}" not in table.stdout.splitlines():
        yield f"the installer is not of version {version}"


def check_versions(document, files, root, version):
    if root != f"vmkctrl-{version}":
        yield f"the archive's folder is {root}"
    if document["packages"][0]["versionInfo"] != version:
        yield f"the bill is of version {document['packages'][0]['versionInfo']}"
    for program in ("vmkctrl.dll", "vmkprefs.exe"):
        if f"{version}.0".encode("utf-16-le") not in files[program]:
            yield f"{program} is not of version {version}"
    latest = re.search(r"^## (\S+)", files["CHANGELOG.md"].decode(), re.M)
    if not latest or latest[1] != version:
        yield f"CHANGELOG.md does not begin with version {version}"


def check(folder, version):
    files, root = read_zip(only(folder, "*-x64.zip"))
    document = json.loads(only(folder, "*.spdx.json").read_text(encoding="utf-8"))
    symbols, _ = read_zip(only(folder, "*-symbols.zip"))
    yield from check_sums(folder)
    yield from check_bill(document, files)
    yield from check_licences(document, files)
    yield from check_links(files)
    yield from check_installer(only(folder, "*.msi"), files, version)
    yield from check_versions(document, files, root, version)
    if set(symbols) != {"vmkctrl.dll.debug"}:
        yield f"the symbols are {sorted(symbols)}"


def main():
    version = subprocess.run([Path(__file__).parents[2] / "script/lib/version"], stdout=subprocess.PIPE, text=True, check=True)
    problems = list(check(Path(sys.argv[1]), version.stdout.strip()))
    for problem in problems:
        print(problem)
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
