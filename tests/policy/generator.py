"""The generator of policies, by its command line: the program's path and those of the language files are the first arguments of
the test that imports this."""
import subprocess
import sys

PROGRAM, *GERMAN = sys.argv[1:4]


def generate(folder, *words):
    """Runs it with options and, at the end, a list of values; what it said and its status."""
    command = [PROGRAM, *(f"--german={file}" for file in GERMAN), *words[:-1], folder, *(words[-1] if words else [])]
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True, check=False)
