"""Whose code is in a program: the Debian packages that the linker and the compiler took it from."""
import re
import shutil
import subprocess
from dataclasses import dataclass
from pathlib import Path

# What the program is made with, and nothing of which is in it.
TOOLS = ("g++-mingw-w64-x86-64", "binutils-mingw-w64-x86-64", "wine64-tools", "cmake", "ninja-build", "wixl")
COMMON_LICENCE = re.compile(r"/usr/share/common-licenses/[\w.+-]*\w")


@dataclass(frozen=True, order=True)
class Package:
    name: str
    version: str
    source: str


def output(*command, folder=None):
    return subprocess.run(command, cwd=folder, stdout=subprocess.PIPE, text=True, check=True).stdout


def linked_files(map_):
    """The objects, and the libraries of which a member is in the program. The map names libraries that gave nothing."""
    text = Path(map_).read_text(encoding="utf-8", errors="replace")
    members = re.findall(r"^(/[^\s(]+\.a)\(", text.partition("\nMemory Configuration")[0], re.M)
    objects = re.findall(r"^LOAD (/\S+\.o)$", text, re.M)
    if not members or not objects:
        raise SystemExit(f"error: {map_} is no map of the linker")
    return {*members, *objects}


def included_files(build, program):
    """The headers of the program's own objects."""
    inputs = output("ninja", "-C", build, "-t", "inputs", program).splitlines()
    objects = [name for name in inputs if name.endswith((".obj", ".o"))]
    dependencies = output("ninja", "-C", build, "-t", "deps", *objects)
    return {build / line.strip() for line in dependencies.splitlines() if line.startswith("    ")}


def packages_of(paths):
    """The packages that brought those of the files that belong to the system."""
    real = sorted({str(Path(path).resolve()) for path in paths})
    system = [path for path in real if path.startswith("/usr/") and not path.startswith("/usr/local/")]
    names = {line.partition(":")[0] for line in output("dpkg", "-S", *system).splitlines()}
    return described(names)


def described(names):
    rows = output("dpkg-query", "-W", "-f=${Package}\t${Version}\t${source:Package}\n", *sorted(names)).splitlines()
    return sorted({Package(*row.split("\t")) for row in rows})


def linked_into(build, program):
    return packages_of(linked_files(build / f"{program}.map") | included_files(build, program))


def tools():
    return described(TOOLS)


def copy_licences(packages, folder):
    """What Debian says of the packages' copyright, once for each of their sources, and the licences that it names."""
    folder.mkdir(parents=True, exist_ok=True)
    named = set()
    for package in packages:
        text = Path("/usr/share/doc", package.name, "copyright")
        shutil.copyfile(text, folder / f"{package.source}.txt")
        named |= set(COMMON_LICENCE.findall(text.read_text(encoding="utf-8", errors="replace")))
    for licence in sorted(named):
        shutil.copyfile(licence, folder / f"{Path(licence).name}.txt")
