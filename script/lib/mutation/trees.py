"""Copies of the project, their build trees and the tests that these hold."""
import json
import os
import re
import shlex
import shutil
import subprocess
import time
from dataclasses import dataclass, field
from pathlib import Path

HERE = Path(__file__).parent
TOOLCHAIN = "cmake/mingw-w64.cmake"
# The tests of the build machine come first, since they are the quicker ones.
KINDS = {
    "native": ["-DCMAKE_BUILD_TYPE=Debug"],
    "windows": [f"-DCMAKE_TOOLCHAIN_FILE={TOOLCHAIN}", "-DCMAKE_BUILD_TYPE=MinSizeRel", "-DVMK_SYMBOLS=OFF",
                "-DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON"],
}
# A read beyond the end of a container is no luck.
CHECKED = "-D_GLIBCXX_ASSERTIONS"
# A switch makes a constant of the compiler one of the running program, and a change may leave a variable unused.
LENIENT = "-w -Wno-narrowing"


# Tests of mere size, which would be waited for once per mutant.
TOO_LONG = "LanguageFile.Of64Mebibytes*"


def without(tests, word):
    """The word of a command line, with these tests left out if it says which are run."""
    if not word.startswith("--gtest_filter="):
        return word
    return f"{word}{':' if ':-' in word else ':-'}{tests}"


def output(*command, **options):
    return subprocess.run(command, stdout=subprocess.PIPE, text=True, check=True, **options).stdout


def kinds_of(project):
    """The kinds of build trees that a project has."""
    return [kind for kind in KINDS if kind == "native" or (project / TOOLCHAIN).exists()]


def files_of(project):
    """The files of the project, by their paths in it."""
    if (project / ".git").exists():
        names = output("git", "-C", str(project), "ls-files", "-co", "--exclude-standard").splitlines()
    else:
        names = [str(path.relative_to(project)) for path in project.rglob("*") if path.is_file()]
    return [name for name in names if not name.startswith("build/") and (project / name).is_file()]


def write(path, text):
    """Writes the bytes unless they are there, so that what is built of them stays."""
    if not path.exists() or path.read_bytes() != text:
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(text)


def copy(project, folder, instead=None):
    """Makes the folder a copy of the project, some files with another text."""
    names = files_of(project)
    for name in names:
        text = (instead or {}).get(name)
        write(folder / name, text if text is not None else (project / name).read_bytes())
        shutil.copymode(project / name, folder / name)
    known = set(names)
    for path in [path for path in folder.rglob("*") if path.is_file()]:
        name = str(path.relative_to(folder))
        if name not in known and not name.startswith("build/"):
            path.unlink()


@dataclass
class Entry:
    """One test of ctest."""
    tree: "Tree"
    name: str
    command: list
    environment: dict
    seconds: float = 0
    reaches: set = field(default_factory=set)  # numbers of mutants
    kept: Path = None  # where that is written down

    def program(self):
        return next(Path(word) for word in self.command if word.startswith(str(self.tree.folder)))

    def run(self, limit, **variables):
        """Whether the test passes; one that takes longer than the limit does not."""
        environment = {**os.environ, **self.environment, "VMK_TIMEOUT": str(int(limit)),
                       "VMK_KEEP_SESSION": "1", **variables}
        # Under Wine the limit is kept by the one who runs the program, and cleans up as well.
        command = self.command if self.tree.kind == "windows" else ["timeout", "-s", "KILL", str(limit), *self.command]
        return subprocess.run(command, env=environment, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                              stderr=subprocess.DEVNULL, check=False).returncode == 0


class Tree:
    """A build tree of a copy."""

    def __init__(self, kind, source, folder, jobs, tools=None):
        """`tools` is the untouched copy where this one is of changed sources, which the tools of the build cannot read."""
        self.kind, self.source, self.folder, self.jobs, self.tools = kind, source, folder, jobs, tools

    def configure(self):
        lenience = f"{LENIENT} -include {HERE / 'switch.h'}" if self.tools else "-w"
        subprocess.run(["cmake", "-S", str(self.source), "-B", str(self.folder), "-G", "Ninja",
                        f"-DCMAKE_CXX_FLAGS={lenience} {CHECKED}", f"-DVMK_TOOLS_SOURCE_DIR={self.tools or self.source}",
                        *KINDS[self.kind]],
                       cwd=self.source, check=True, stdout=subprocess.DEVNULL)

    def build(self, *targets, keep_going=False):
        """(whether all was built, what was printed)"""
        done = subprocess.run(["ninja", "-C", str(self.folder), "-j", str(self.jobs), "-k", "0" if keep_going else "1",
                               *targets], stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=False,
                              errors="replace")
        return done.returncode == 0, done.stdout

    def steps(self, target):
        """How much has to be built for the target."""
        return output("ninja", "-C", str(self.folder), "-n", target).count("\n")

    def entries(self):
        """The tests that are programs of this tree; the others look at what is built, not at what it does."""
        listed = json.loads(output("ctest", "--test-dir", str(self.folder), "--show-only=json-v1"))
        for test in listed["tests"]:
            command = test.get("command", [])
            programs = [word for word in command[:2] if word.startswith(str(self.folder))]
            if not programs or (command[0] != programs[0] and Path(command[0]).name != "run-in-wine"):
                continue
            if any(word.startswith("--gtest_") for word in command):
                command = [without(TOO_LONG, word) for word in command] + ["--gtest_fail_fast"]
            environment = {}
            for one in test.get("properties", []):
                if one["name"] == "ENVIRONMENT":
                    environment = dict(pair.split("=", 1) for pair in one["value"])
            yield Entry(self, test["name"], command, environment)

    def objects(self, names):
        """What the sources of these names compile to."""
        words = {os.path.relpath(one["file"], self.source): shlex.split(one["command"])
                 for one in json.loads((self.folder / "compile_commands.json").read_text())}
        return [words[name][words[name].index("-o") + 1] for name in names if name in words]

    def compile_arguments(self):
        """For each source of the copy what clang has to know to read it."""
        if self.kind == "windows":
            gcc = str(Path(output("x86_64-w64-mingw32-g++", "-print-libgcc-file-name").strip()).parent)
            headers = ["--target=x86_64-w64-mingw32", "-isystem", f"{gcc}/include/c++",
                       "-isystem", f"{gcc}/include/c++/x86_64-w64-mingw32"]
        else:
            headers = []
        headers += ["-resource-dir", output("clang", "-print-resource-dir").strip(), "-Wno-everything"]
        arguments = {}
        for one in json.loads((self.folder / "compile_commands.json").read_text()):
            name = os.path.relpath(one["file"], self.source)
            if not name.endswith(".cpp"):
                continue
            # A compiler cache may stand before the compiler.
            words = shlex.split(one["command"])
            compiler = next(place for place, word in enumerate(words) if re.search(r"\+\+(-\d+)?$", word))
            words = [word for word in words[compiler + 1:words.index("-o")] if word != "-c"]
            arguments.setdefault(name, words + headers)
        return arguments


def measure(entry, reached, count):
    """Runs a test with every mutant asleep and notes what it passes; whether it passes itself."""
    reached.write_bytes(bytes(count + 1))
    name = str(reached) if entry.tree.kind == "native" else f"Z:{reached}"
    passes = False
    # Some tests count calls, and the one of the first run notes something at every first time.
    for variables in ({"VMK_MUTANTS_REACHED": name}, {}, {}):
        begin = time.monotonic()
        passes = entry.run(600, VMK_MUTANT="0", **variables)
        entry.seconds = time.monotonic() - begin
        # Noting takes its time.
        if passes and (not variables or entry.tree.kind == "windows" or entry.seconds < 5):
            break
    entry.reaches = {number for number, byte in enumerate(reached.read_bytes()) if byte}
    return passes
