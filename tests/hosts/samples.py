#!/usr/bin/env python3
"""samples.py PAGE FOLDER: writes the samples of a page of documentation, one for each language, into files as somebody
would who tries them out."""
import re
import sys
from pathlib import Path

FILES = {
    "vbscript": "edit.vbs",
    "js": "edit.js",
    "cpp": "edit.cpp",
    "pascal": "edit.pas",
    "csharp": "Edit.cs",
    "python": "edit.py",
    "powershell": "Edit.ps1",
}


def main(page, folder):
    samples = re.findall(r"^```(\w+)\n(.*?)^```$", Path(page).read_text(encoding="ascii"), re.M | re.S)
    languages = [language for language, _ in samples]
    if sorted(languages) != sorted(FILES):
        sys.exit(f"{page} has samples for {', '.join(languages)}, not one for each of {', '.join(FILES)}")
    Path(folder).mkdir(parents=True, exist_ok=True)
    for language, text in samples:
        Path(folder, FILES[language]).write_text(text, encoding="ascii")


main(*sys.argv[1:])
