"""What a package holds, where it comes from and where it stands."""
import shutil
import subprocess
from dataclasses import dataclass
from pathlib import Path


@dataclass(frozen=True)
class Row:
    """Files of one place. A pattern of the project names what Git knows there, one of the build folder what lies there."""
    pattern: str
    folder: str = "."         # where they stand in the package; below it as below the pattern's own folder
    is_built: bool = False    # from the build folder
    is_installed: bool = False  # by the installer as well
    made_from: str = ""       # a file of the project for each: what an older build has left has none


CONTENTS = (
    Row("vmkctrl.dll", is_built=True, is_installed=True),
    Row("vmkprefs.exe", is_built=True, is_installed=True),
    Row("vmkctrl.h", is_built=True),
    Row("vmkctrl.tlb", is_built=True),
    Row("component/vmkctrl.idl"),
    Row("languages/*.vlf", "languages", is_built=True, is_installed=True, made_from="languages/{}.txt"),
    Row("languages/*.txt", "languages"),
    Row("presets/*.json", "presets", is_built=True, is_installed=True, made_from="examples/presets/{}.json"),
    Row("policy/**/*", "policy", is_built=True, is_installed=True),
    Row("*.md"),
    Row("docs/**/*", "docs"),
    # Where the documents have them.
    Row("examples/hosts/**/*", "examples/hosts"),
    Row("examples/presets/*.json", "examples/presets"),
)
SIGNED = ("vmkctrl.dll", "vmkprefs.exe")
SYMBOLS = ("vmkctrl.dll.debug",)
LICENCES = "licences"


def place_of(row, path):
    """Where a file that the row's pattern has found stands in the package."""
    before, deep, _ = row.pattern.partition("/**/")
    return Path(row.folder) / path.relative_to(before if deep else Path(row.pattern).parent)


def found(row, project, build):
    if row.is_built:
        return [path for path in build.glob(row.pattern)
                if path.is_file() and (not row.made_from or (project / row.made_from.format(path.stem)).is_file())]
    listed = subprocess.run(["git", "-C", project, "ls-files", "-co", "--exclude-standard", "--", f":(glob){row.pattern}"],
                            stdout=subprocess.PIPE, text=True, check=True).stdout.splitlines()
    return [path for path in (project / name for name in listed) if path.is_file()]


def stage(project, build, folder):
    """Copies everything into the folder; returns the places of what is installed as well."""
    installed = set()
    for row in CONTENTS:
        origin = build if row.is_built else project
        paths = found(row, project, build)
        if not paths:
            raise SystemExit(f"error: there is no {row.pattern} in {origin}; run script/build")
        for path in paths:
            place = place_of(row, path.relative_to(origin))
            (folder / place).parent.mkdir(parents=True, exist_ok=True)
            shutil.copyfile(path, folder / place)
            if row.is_installed:
                installed.add(place)
    return installed


def files_of(folder):
    """The files below a folder, by their places in it, in an order that no file system changes."""
    return sorted(path.relative_to(folder) for path in folder.rglob("*") if path.is_file())
