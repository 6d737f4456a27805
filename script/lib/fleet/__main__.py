"""The parts of script/fleet-test that are programs of the build machine.

    domain FOLDER KIT COUNT         a domain, its policies and what its users get of them (in namespaces of its own)
    client FOLDER HIDDEN USER       what one user gets; the password comes on standard input
    arguments FOLDER                NAME=TEXT for each setting that a policy sets, ended by zeros
    dialog FOLDER FILE              compares what the dialog shows (FILE) with that
    figures FOLDER FILE             prints the figures of reading and of hives (FILE); fails when they grow
"""
import json
import statistics
import sys
from pathlib import Path

# How much longer the last tenth may take than the first one.
GROWTH = 1.5


def texts(folder):
    return json.loads((folder / "shown.json").read_text())


def arguments(folder):
    for name, text in texts(folder).items():
        sys.stdout.buffer.write(f"{name}={text}".encode() + b"\0")


def dialog(folder, file):
    wanted, compared, wrong = texts(folder), 0, []
    for line in file.read_text(encoding="utf-8").splitlines():
        name, _, text = line.partition("=")
        if name in wanted:
            compared += 1
            if text.strip() != wanted[name].strip():
                wrong.append(f"{name} is shown as {text!r} instead of {wanted[name]!r}")
    print("\n".join(wrong), file=sys.stderr, end="\n" if wrong else "")
    print(f"the dialog shows {compared - len(wrong)} of {compared} settings as the policy has them")
    return 1 if wrong or compared < 60 else 0


def row(what, times):
    part = max(len(times) // 10, 1)
    first, last = statistics.median(times[:part]), statistics.median(times[-part:])
    grows = last > GROWTH * first
    print(f"| {what} | {len(times)} | {sum(times) / 1000:.1f} s | {statistics.median(times):.1f} ms | {first:.1f} ms | "
          f"{last:.1f} ms |" + (" grows" if grows else ""))
    return grows


def figures(folder, file):
    reading = json.loads((folder / "reading.json").read_text())
    hives = [float(line.split()[-1]) for line in file.read_text().splitlines()]
    print("| Step | Users | Total | Median | First tenth | Last tenth |\n|---|---|---|---|---|---|")
    grow = [row("ticket, objects over LDAP, files over SMB, decoding", reading),
            row("into a hive, checked, read by the component", hives)]
    if len(hives) != len(reading):
        print(f"error: {len(hives)} hives of {len(reading)} users", file=sys.stderr)
    return 1 if any(grow) or len(hives) != len(reading) else 0


def main(words):
    verb, folder = words[0], Path(words[1])
    if verb == "domain":
        import domain
        return domain.whole(folder, Path(words[2]), int(words[3]))
    if verb == "client":
        import domain
        return domain.read_as_user(folder, Path(words[2]), words[3], sys.stdin.readline().rstrip("\n"))
    if verb == "arguments":
        return arguments(folder)
    return {"dialog": dialog, "figures": figures}[verb](folder, Path(words[2]))


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
