"""Writes archives and sums that depend on nothing but the files."""
import hashlib
import time
import zipfile

# What is unpacked may be run, elsewhere than on Windows too.
PROGRAMS = (".exe", ".dll")


def write_zip(path, folder, name, places, when):
    """The files of the folder at these places, in a folder of the name."""
    with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED, compresslevel=9) as archive:
        for place in places:
            entry = zipfile.ZipInfo(f"{name}/{place.as_posix()}", time.gmtime(when)[:6])
            entry.compress_type = zipfile.ZIP_DEFLATED
            entry.external_attr = (0o100755 if place.suffix in PROGRAMS else 0o100644) << 16
            archive.writestr(entry, (folder / place).read_bytes())


def write_sums(path, files):
    lines = [f"{hashlib.sha256(file.read_bytes()).hexdigest()}  {file.name}\n" for file in sorted(files)]
    path.write_text("".join(lines), encoding="utf-8")
