"""Changes the sources, one operator, constant, condition or statement at a time, and says which changes no test sees.

Everything happens in a copy under build/mutate/. There all changes wait behind switches, so that one build holds them
all, and one run of the tests says which of them each test reaches. A change lives in the runs of those tests alone,
and is done with at the first that fails. What cannot be switched (a constant of the compiler, for example) is built
by itself afterwards. Results are kept: a change that was found out stays so until its file
changes, a survivor is tried again when anything has changed.

A survivor that no test can see is explained in a file of the project, and reported apart; an explanation of
something that is not there, or that was found out, is an error.
"""
import argparse
import hashlib
import json
import multiprocessing
import os
import pickle
import queue
import random
import re
import sys
import threading
import time
import tomllib
from collections import Counter
from pathlib import Path

import mutants as finding
import trees
import weave

FOLDERS = ("settings", "language", "controls", "pages", "dialog", "component")
EXPLAINED = "tests/explained_mutants.toml"
# A test that takes this many times as long as it should hangs.
PATIENCE = 4
# In seconds; a session of Wine may have to begin anew, on a machine that has other things to do.
SHORTEST_LIMIT = {"native": 2, "windows": 40}
# Numbers are given to files in blocks.
BLOCK = 50


def say(text):
    print(f"==> {text}", file=sys.stderr, flush=True)


def digest(*parts):
    sum_ = hashlib.sha256()
    for part in parts:
        sum_.update(part if isinstance(part, bytes) else str(part).encode())
        sum_.update(b"\0")
    return sum_.hexdigest()[:24]


# --- what can be changed


def find_one(job):
    name, path, arguments, cache = job
    if cache.exists():
        return name, pickle.loads(cache.read_bytes())
    found = finding.find(name, path, arguments)
    cache.parent.mkdir(parents=True, exist_ok=True)
    cache.write_bytes(pickle.dumps(found))
    return name, found


class Run:
    def __init__(self, options):
        self.options = options
        self.project = Path(options.project).resolve()
        self.folder = self.project / "build" / "mutate"
        self.texts = {name: (self.project / name).read_bytes() for name in trees.files_of(self.project)
                      if Path(name).suffix in (".cpp", ".h", ".rc", ".txt", ".cmake", ".md", ".idl")}
        self.plain = self.trees("plain")
        self.woven = self.trees("woven", tools=self.folder / "plain" / "source")
        self.results_file = self.folder / "results.jsonl"
        self.results = {}
        self.lock = threading.Lock()

    def trees(self, name, tools=None):
        base = self.folder / name
        return [trees.Tree(kind, base / "source", base / kind, self.options.jobs, tools)
                for kind in trees.kinds_of(self.project)]

    def sources(self, paths):
        return sorted(name for name in self.texts if Path(name).suffix in (".cpp", ".h")
                      and any(name == path or name.startswith(f"{path}/") for path in paths))

    def find(self):
        """Everything that can be changed, found in the untouched copy."""
        trees.copy(self.project, self.folder / "plain" / "source")
        arguments = {}
        for tree in self.plain:
            tree.configure()
            if tree.kind == "windows":
                tree.build("generated_headers")
            arguments |= tree.compile_arguments()
        how = (trees.HERE / "mutants.py").read_bytes()
        jobs = []
        for name in self.sources({*FOLDERS, *self.options.paths}):
            sibling = [source for source in arguments if source.startswith(f"{Path(name).parent}/")]
            words = arguments.get(name) or (arguments[sibling[0]] if sibling else None)
            if words is None:
                sys.exit(f"error: nothing tells how {name} is compiled")
            cache = self.folder / "found" / digest(how, name, self.texts[name])
            jobs.append((name, self.folder / "plain" / "source" / name, words, cache))
        with multiprocessing.Pool(self.options.jobs) as pool:
            self.found = dict(pool.imap(find_one, jobs))
        number = 1
        for name in sorted(self.found):
            for one, mutant in enumerate(self.found[name].mutants):
                mutant.number = number + one
            # Room to grow: a change of one file does not have the others built again.
            number += (len(self.found[name].mutants) // BLOCK + 2) * BLOCK
        self.highest = number

    def choose(self):
        """The mutants below the paths that were asked for, or some of them."""
        names = self.sources(self.options.paths or FOLDERS)
        if not names:
            sys.exit(f"error: no sources in {' '.join(self.options.paths or FOLDERS)}")
        self.all = [mutant for name in names for mutant in self.found[name].mutants]
        if self.options.sample and self.options.sample < len(self.all):
            self.chosen = random.Random(self.options.seed).sample(self.all, self.options.sample)
        else:
            self.chosen = list(self.all)

    # --- all of them in one build

    def weave(self):
        """Builds the copy with the switches, taking out what does not compile, until all of it does."""
        source = self.folder / "woven" / "source"
        out_file = self.folder / "alone.json"
        kept = json.loads(out_file.read_text()) if out_file.exists() else {}
        self.alone = {}
        for name in self.found:
            same = kept.get(name, {})
            self.alone[name] = set(same["out"]) if same.get("of") == digest(self.texts[name]) else set()
        while True:
            trees.copy(self.project, source, {name: self.woven_text(name) for name in self.found})
            failures = self.build_woven(lambda tree: tree.objects(self.found)) or self.build_woven(lambda _: [])
            if not failures:
                break
            before = sum(map(len, self.alone.values()))
            if self.take_out(failures, source):
                say(f"{sum(map(len, self.alone.values())) - before} places cannot be switched")
            else:
                sys.exit(f"error: the copy with the switches does not build:\n{failures[-3000:]}")
            out_file.write_text(json.dumps({name: {"of": digest(self.texts[name]), "out": sorted(out)}
                                            for name, out in self.alone.items()}))

    def build_woven(self, targets_of):
        """Builds the targets, or all, in each tree; what is printed where that fails."""
        failures = ""
        for tree in self.woven:
            tree.configure()
            fine, text = tree.build(*targets_of(tree), keep_going=True)
            failures += "" if fine else text
        return failures

    def woven_text(self, name, alive=None):
        """Places that were taken out are named by the line where they begin, constants by their offset."""
        found, out = self.found[name], self.alone[name]
        inside = [mutant for mutant in found.mutants if mutant.number in self.switchable(name)]
        constants = [one for one in found.constants if f"constant {one[0]}" not in out and
                     any(one[1] <= mutant.start and mutant.end <= one[2] and not mutant.in_lambda
                         for mutant in inside)]
        return weave.weave(self.texts[name], inside, constants, found.constexpr_functions, alive)

    def switchable(self, name):
        found, out = self.found[name], self.alone[name]
        fixed = [one for one in found.constants if f"constant {one[0]}" in out]
        numbers = set()
        for mutant in found.mutants:
            held = any(one[1] <= mutant.start and mutant.end <= one[2] and not mutant.in_lambda for one in fixed)
            if not held and f"{mutant.start} {mutant.end}" not in out:
                numbers.add(mutant.number)
        return numbers

    def take_out(self, failures, source):
        """Takes out what stands on the lines that the compiler complains of; whether anything was."""
        places = {"error": set(), "note": set()}
        complaint = r"^([^:\n]+):(\d+):\d+:\s+(?:(?:fatal )?(error)|note|required|in .constexpr)"
        for path, line, kind in re.findall(complaint, failures, re.M):
            # Written from the build tree, or through its links to the folders that may be included.
            full = (self.woven[0].folder / path).resolve()
            full = full if full.exists() else (self.woven[-1].folder / path).resolve()
            places[kind or "note"].add((os.path.relpath(full, source), int(line)))
        # Of an array whose length is switched it complains further down, where the length is used.
        places["above"] = {(name, line - up) for name, line in places["error"] for up in range(1, 4)}
        return any(self.take_out_lines(places[kind]) for kind in ("error", "note", "above"))

    def take_out_lines(self, places):
        before = sum(map(len, self.alone.values()))
        for name, line in places:
            if name not in self.found:
                continue
            text = self.texts[name]

            def covers(start, end):
                first = text.count(b"\n", 0, start) + 1
                return first <= line <= first + text.count(b"\n", start, end)

            for mutant in self.found[name].mutants:
                if covers(mutant.start, mutant.end):
                    self.alone[name].add(f"{mutant.start} {mutant.end}")
            for start, _, end, _ in self.found[name].constants:
                if covers(start, end):
                    self.alone[name].add(f"constant {start}")
        return sum(map(len, self.alone.values())) > before

    # --- which test reaches which

    def trace(self):
        """Runs every test once; the ones that fail without any change are left out."""
        self.entries = [entry for tree in self.woven for entry in tree.entries()]
        folder = self.folder / "reached"
        folder.mkdir(exist_ok=True)
        binaries = {}

        def binary(path):
            if path not in binaries:
                binaries[path] = digest(path.read_bytes()) if path.exists() else ""
            return binaries[path]

        todo = []
        for entry in self.entries:
            entry.kept = folder / digest(entry.tree.kind, entry.name, binary(entry.program()),
                                         binary(entry.tree.folder / "vmkctrl.dll"))
            if not entry.kept.exists():
                todo.append(entry)
        if todo:
            say(f"running {len(todo)} tests once")

        def one(entry):
            passes = trees.measure(entry, folder / f"{threading.get_ident()}", self.highest)
            entry.kept.write_text(json.dumps({"passes": passes, "seconds": entry.seconds,
                                              "reaches": sorted(entry.reaches)}))

        self.in_parallel(one, todo)
        passing = []
        for entry in self.entries:
            kept = json.loads(entry.kept.read_text())
            entry.seconds, entry.reaches = kept["seconds"], set(kept["reaches"])
            if kept["passes"]:
                passing.append(entry)
            else:
                say(f"left out, since it fails as it is: {self.entry_key(entry)}")
        self.entries = passing

    @staticmethod
    def entry_key(entry):
        return f"{entry.tree.kind} {entry.name}"

    def in_parallel(self, call, work):
        todo = queue.SimpleQueue()
        for one in work:
            todo.put(one)

        def worker():
            while True:
                try:
                    one = todo.get_nowait()
                except queue.Empty:
                    return
                call(one)

        threads = [threading.Thread(target=worker) for _ in range(self.options.jobs)]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()

    def order(self, file, entries):
        """The likeliest killers first: native ones, those named like the file, those of its folder, short ones."""
        folder, stem = file.split("/")[0], Path(file).stem

        def place(entry):
            test_folder, _, test = entry.name.partition(".")
            likeness = (test == stem) + test.startswith(stem) if test_folder.startswith(folder) else 0
            return entry.tree.kind != "native", -likeness, not test_folder.startswith(folder), entry.seconds
        return sorted(entries, key=place)

    # --- each of them alive

    @staticmethod
    def limit(entry):
        return max(SHORTEST_LIMIT[entry.tree.kind], PATIENCE * entry.seconds)

    def load_results(self):
        self.state = digest(*(f"{name} ".encode() + text for name, text in sorted(self.texts.items())))
        if self.results_file.exists() and not self.options.fresh:
            for line in self.results_file.read_text().splitlines():
                one = json.loads(line)
                self.results[one["key"]] = one

    def result_key(self, mutant):
        return digest(*mutant.key(), self.texts[mutant.file])

    def known(self, mutant):
        one = self.results.get(self.result_key(mutant))
        if one and (one["result"] != "survived" or one["state"] == self.state):
            return one
        return None

    def note(self, mutant, result, by="", seconds=0):
        one = {"key": self.result_key(mutant), "result": result, "by": by, "state": self.state, "seconds": seconds,
               "what": f"{mutant.file}:{mutant.line} {mutant.change}"}
        with self.lock:
            self.results[one["key"]] = one
            with open(self.results_file, "a", encoding="utf-8") as out:
                out.write(json.dumps(one) + "\n")
            self.done += 1
            if self.done % 50 == 0:
                say(f"{self.done} of {self.todo}, {time.monotonic() - self.begin:.0f} s")

    def try_all(self):
        self.load_results()
        todo = [mutant for mutant in self.chosen if not self.known(mutant)]
        switchable = {number for name in self.found for number in self.switchable(name)}
        self.begin, self.done, self.todo = time.monotonic(), 0, len(todo)
        switched = [mutant for mutant in todo if mutant.number in switchable]
        say(f"{len(self.chosen)} mutants, {len(todo)} to try, {len(todo) - len(switched)} of them built one by one")
        self.again = []
        self.in_parallel(self.try_switched, switched)
        alone = [one for one in todo if one.number not in switchable] + self.again
        # Changes of one file in a row: less is built in between.
        for mutant in sorted(alone, key=lambda one: one.number):
            self.try_alone(mutant)

    def try_switched(self, mutant):
        spent = 0
        reaching = [entry for entry in self.entries if mutant.number in entry.reaches]
        for entry in self.order(mutant.file, reaching):
            if spent > self.options.budget:
                break
            begin = time.monotonic()
            fails = self.fails(entry, mutant.number)
            taken = time.monotonic() - begin
            if fails:
                self.note(mutant, "killed", self.entry_key(entry), taken)
                return
            spent += taken
        ran_by_compiler = any(start <= mutant.start and mutant.end <= end
                              for start, end in self.found[mutant.file].constexpr_functions)
        if ran_by_compiler:
            with self.lock:
                self.again.append(mutant)
        else:
            self.note(mutant, "survived", "" if reaching else "no test reaches it")

    def fails(self, entry, number):
        """Whether the test fails with the change, and fails again: on a busy machine one may fail by itself."""
        return not any(entry.run(self.limit(entry), VMK_MUTANT=str(number)) for _ in range(2))

    def try_alone(self, mutant):
        """Builds with this change alone what tests its file, one program after the other."""
        numbers = {one.number for one in self.found[mutant.file].mutants}
        reaching = [entry for entry in self.entries if entry.reaches & numbers]
        if not reaching:
            folder = Path(mutant.file).parent.name
            reaching = [entry for entry in self.entries if entry.name.startswith(folder)] or self.entries
        targets = {}
        for entry in self.order(mutant.file, reaching):
            targets.setdefault((entry.tree.kind, entry.program().stem), []).append(entry)
        path = self.folder / "woven" / "source" / mutant.file
        trees.write(path, self.woven_text(mutant.file, mutant))
        try:
            self.note(mutant, *self.verdict_alone(targets))
        finally:
            trees.write(path, self.woven_text(mutant.file))

    def verdict_alone(self, targets):
        spent = 0
        of_kind = {tree.kind: tree for tree in self.woven}
        # What is soonest built comes first.
        in_order = sorted(targets.items(), key=lambda one: (one[0][0] != "native", of_kind[one[0][0]].steps(one[0][1])))
        for (kind, target), entries in in_order:
            if not of_kind[kind].build(target)[0]:
                return "not compiling", target
            for entry in entries:
                if spent > self.options.budget:
                    return "survived", ""
                begin = time.monotonic()
                if self.fails(entry, 0):
                    return "killed", self.entry_key(entry)
                spent += time.monotonic() - begin
        return "survived", ""

    # --- the report

    def report(self):
        explained = self.explanations()
        counts, left, stale = {}, [], []
        for mutant in self.chosen:
            count = counts.setdefault(mutant.file.split("/")[0], Counter())
            one = self.known(mutant)
            reason = explained.get(mutant.key())
            result = one["result"]
            if result == "survived" and reason:
                result = "explained"
            elif result == "survived":
                left.append((mutant, one["by"]))
            count[result] += 1
            if reason and result != "explained":
                stale.append((mutant.key(), f"it is {result}"))
        everything = {mutant.key() for found in self.found.values() for mutant in found.mutants}
        stale += [(key, "there is no such mutant") for key in explained
                  if key not in everything and key[0] in self.found]
        stale += [(key, "there is no such file") for key in explained if key[0] not in self.texts]
        self.print_report(counts, left, stale, explained)
        return 1 if left or stale else 0

    def explanations(self):
        path = self.project / self.options.explained
        if not path.exists():
            return {}
        keys = {}
        for one in tomllib.loads(path.read_text(encoding="utf-8")).get("survivor", []):
            for change in one["changes"]:
                text, _, nth = change.partition(" #")
                key = (one["file"], one["function"], one["line"], text, int(nth or 1))
                keys[key] = one["reason"]
        return keys

    def print_report(self, counts, left, stale, explained):
        for mutant in sorted((one for one in self.chosen if one.key() in explained), key=lambda m: m.number):
            if self.known(mutant)["result"] == "survived":
                print(f"{mutant.file}:{mutant.line}: {mutant.change}; explained: {explained[mutant.key()]}")
        for mutant, by in sorted(left, key=lambda pair: pair[0].number):
            nth = f" #{mutant.nth}" if mutant.nth > 1 else ""
            print(f"{mutant.file}:{mutant.line}: survived{f' ({by})' if by else ''}: {mutant.change}{nth}\n"
                  f"    [{mutant.function}] {mutant.source}")
        for key, why in stale:
            print(f"{self.options.explained}: stale, {why}: {' | '.join(map(str, key))}")
        print(f"{'':12}{'mutants':>9}{'not compiling':>15}{'killed':>8}{'explained':>11}{'survived':>10}{'killed of':>11}")
        total = Counter()
        for count in counts.values():
            total.update(count)
        for name, count in [*sorted(counts.items()), ("all", total)]:
            tried = sum(count.values()) - count["not compiling"]
            ratio = f"{100 * count['killed'] / (tried or 1):.1f} %"
            print(f"{name:12}{sum(count.values()):9}{count['not compiling']:15}{count['killed']:8}"
                  f"{count['explained']:11}{count['survived']:10}{ratio:>11}")
        if self.options.sample:
            print(f"a sample of {len(self.chosen)} out of {len(self.all)}, seed {self.options.seed}")


def main():
    parser = argparse.ArgumentParser(prog="script/mutate", description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("paths", nargs="*", metavar="PATH", help=f"files and folders ({', '.join(FOLDERS)})")
    parser.add_argument("--sample", type=int, metavar="N", help="try N of the mutants, chosen at random")
    parser.add_argument("--seed", type=int, default=1, metavar="S", help="another choice for another number")
    parser.add_argument("--list", action="store_true", help="only list what would be changed")
    parser.add_argument("--fresh", action="store_true", help="forget earlier results")
    parser.add_argument("--budget", type=float, default=60, metavar="SECONDS",
                        help="of tests that a mutant has to survive, likely killers first (60)")
    parser.add_argument("--jobs", type=int, default=os.cpu_count(), metavar="N")
    parser.add_argument("--project", default=os.getcwd(), metavar="FOLDER")
    parser.add_argument("--explained", default=EXPLAINED, metavar="FILE", help="explained survivors, in the project")
    options = parser.parse_args()
    options.paths = [path.rstrip("/") for path in options.paths]

    run = Run(options)
    begin = time.monotonic()
    run.find()
    run.choose()
    if options.list:
        for mutant in run.chosen:
            print(f"{mutant.file}:{mutant.line}: {mutant.change}")
        return 0
    say(f"{len(run.all)} mutants in {len(run.found)} files; building them all")
    run.weave()
    run.trace()
    run.try_all()
    status = run.report()
    print(f"{time.monotonic() - begin:.0f} seconds")
    return status


if __name__ == "__main__":
    sys.exit(main())
