"""includes_test.py COMPILER SOURCE_FOLDER INCLUDE_PATHS: tries to include a header of each layer from each other layer.

What compiles has to be what the table of layers in docs/architecture.md allows. INCLUDE_PATHS has a line
"layer=folder:folder..." for each layer.
"""
import pathlib
import re
import subprocess
import sys

compiler, source, include_paths = sys.argv[1], pathlib.Path(sys.argv[2]), pathlib.Path(sys.argv[3])


def declared():
    """Each layer's include path."""
    lines = include_paths.read_text().split()
    return {layer: path.split(":") for layer, path in (line.split("=") for line in lines)}


def allowed():
    """What each layer may include according to the table."""
    text = (source / "docs/architecture.md").read_text()
    rows = re.findall(r"^\| `(\w+)/` \|[^|]*\|([^|]*)\|$", text, re.M)
    return {layer: set(re.findall(r"`(\w+)`", names)) for layer, names in rows}


def compiles(path, text):
    command = [compiler, "-std=c++20", "-fsyntax-only", "-x", "c++", "-", *(f"-I{folder}" for folder in path)]
    # What is read from standard input finds the files of the current folder: there has to be nothing to find.
    return subprocess.run(command, input=text, text=True, capture_output=True, check=False, cwd="/").returncode == 0


def header_of(layer):
    """A header of a layer that it shows to others."""
    folders = [pathlib.Path(folder) / layer for folder in paths[layer]]
    return min(header.name for folder in folders for header in folder.glob("*.h"))


failures = []
paths, table = declared(), allowed()
if set(paths) != set(table):
    failures.append(f"the table has {sorted(table)}, the build {sorted(paths)}")
for layer in sorted(set(paths) & set(table)):
    for other in sorted(set(paths) - {layer}):
        header = f"{other}/{header_of(other)}"
        can = compiles(paths[layer], f"#if !__has_include(\"{header}\")\n#error\n#endif\n")
        if can != (other in table[layer]):
            failures.append(f"{layer}/ {'can' if can else 'cannot'} include {header}, which the table "
                            f"{'does not allow' if can else 'allows'}")

# The check itself has to be able to fail: an include upwards is an error of the compiler, one downwards is none.
if compiles(paths["settings"], '#include "controls/dialog_env.h"\n'):
    failures.append("settings/ compiles with a header of controls/")
if not compiles(paths["controls"], '#include "settings/page_set.h"\n'):
    failures.append("controls/ does not compile with a header of settings/")

# What a layer keeps to itself is an error as well.
if not compiles(paths["dialog"], '#if !__has_include("pages/pages.h")\n#error\n#endif\n'):
    failures.append("dialog/ cannot include pages/pages.h")
if compiles(paths["dialog"], '#if !__has_include("pages/page.h")\n#error\n#endif\n'):
    failures.append("dialog/ can include pages/page.h, which is none of its business")

for failure in failures:
    print(failure)
print(f"{len(paths)} layers, {len(failures)} failures")
sys.exit(1 if failures else 0)
