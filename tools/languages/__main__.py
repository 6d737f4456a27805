"""Makes and checks language files of the preferences dialog.

FILE is a readable language file (UTF-8) or a binary one (.vlf); what is made goes into OUT, or to standard output. The
ending of OUT says what is made: .vlf is binary, .po and .pot are for editors of translations, all else is readable.
What is wrong is said as FILE:LINE: what, on standard error; notes are no faults. The exit status is 0 only where nothing
is wrong; 1 says that something is, 2 that the command was not understood. OUT is written whole or not at all."""
import argparse
import collections
import sys
from pathlib import Path

import catalogue
import check
import language_file
import make
from language_file import Fault


MOST_FAULTS = 20


class Refused(Exception):
    """The messages are out; nothing is to be made."""


def say(path, line, text):
    print(f"{path}:{line}: {text}", file=sys.stderr)


def say_faults(path, faults):
    """The first ones: who has named a wrong file need not see a message for each of its lines."""
    for fault in faults[:MOST_FAULTS]:
        say(path, fault.line, fault.reason)
    if len(faults) > MOST_FAULTS:
        say(path, faults[MOST_FAULTS].line, f"this line and {len(faults) - MOST_FAULTS - 1} more cannot be read either")


def read(path):
    """The file; everything that is wrong with its form is said."""
    file, faults = language_file.parse(Path(path).read_bytes())
    if not faults and not file.lines:
        faults = [Fault(1, "the file is empty")]
    say_faults(path, faults)
    if faults:
        raise Refused
    return file


def put(data, out):
    if out is None:
        sys.stdout.buffer.write(data)
        sys.stdout.buffer.flush()
    else:
        language_file.write(out, data)


def is_po(path):
    return path is not None and Path(path).suffix in (".po", ".pot")


def po_module():
    """Only what has to do with PO files needs the library for them."""
    import po

    return po


def put_po(contents, out):
    put(str(contents).encode("utf-8"), out)


def put_file(file, out):
    if is_po(out):
        put_po(po_module().from_language(file), out)
    else:
        put((language_file.binary if out and Path(out).suffix == ".vlf" else language_file.readable)(file), out)


def needs_head(path, file):
    """A language file that the dialog would pass over is not made."""
    faults = list(check.check_head(file))
    for fault in faults:
        say(path, fault.line, fault)
    if faults:
        raise Refused


# --- the verbs


def extract(arguments):
    """every text of the dialog, with its places and their width, for a new language"""
    file = make.template()
    if is_po(arguments.out):
        head = file.lines[:file.lines.index(file.headers[-1]) + 1]
        put_po(po_module().template(head), arguments.out)
    else:
        put_file(file, arguments.out)


def check_file(arguments):
    """everything that is wrong with the file, and (as notes) what is worth knowing"""
    file, faults = language_file.parse(Path(arguments.file).read_bytes())
    if faults and not file.entries:
        say_faults(arguments.file, faults)
        raise Refused
    found = [check.Finding(fault.line, fault.reason) for fault in faults] + check.findings(file)
    for finding in sorted(found, key=lambda finding: finding.line):
        if not (finding.is_note and arguments.quiet):
            say(arguments.file, finding.line, finding)
    if not all(finding.is_note for finding in found):
        raise Refused


def merge(arguments):
    """the texts of today with the translations of FILE; NEW and CHANGED mark what is to be looked at"""
    put_file(make.merged(read(arguments.file)), arguments.out)


def stats(arguments):
    """how much of the dialog FILE translates, page by page"""
    file = read(arguments.file)
    marked = {next((entry.english for entry in file.entries if entry.line > line.line), None)
              for line in file.lines if check.MARK.match(getattr(line, "text", ""))}
    translated = set(file.translations()) - marked
    count = collections.Counter(text.section for text in catalogue.texts().values())
    done = collections.Counter(text.section for text in catalogue.texts().values() if text.english in translated)
    rows = [(section, done[section], total) for section, total in count.items()]
    rows.append(("All", sum(done.values()), sum(count.values())))
    text = "".join(f"{section:24}{part:5} of {total:4}{100 * part // total:5} %\n" for section, part, total in rows)
    put(text.encode(), arguments.out)


def pseudo(arguments):
    """a language for tests: every text longer by a third, accented and in brackets"""
    put_file(make.pseudo(), arguments.out)


def access_keys(arguments):
    """FILE with an access key for every control that can have one, unique on its page"""
    put_file(make.with_access_keys(read(arguments.file)), arguments.out)


def pages(arguments):
    """the English names of the pages, one in a line, as they are listed"""
    put("".join(f"{page.name}\n" for page in catalogue.pages()).encode(), arguments.out)


def to_po(arguments):
    """FILE as a PO file"""
    put_po(po_module().from_language(read(arguments.file)), arguments.out)


def from_po(arguments):
    """the language file of a PO file, without what is marked as fuzzy"""
    po = po_module()
    file, guesses = po.to_language(po.read(arguments.file))
    for entry in guesses:
        say(arguments.file, entry.linenum, f"note: {check.quoted(entry.msgid)} is fuzzy and left out")
    put_file(file, arguments.out)


def make_binary(arguments):
    """the language file that the dialog reads"""
    file = read(arguments.file)
    needs_head(arguments.file, file)
    put(language_file.binary(file), arguments.out)


VERBS = {"extract": extract, "check": check_file, "merge": merge, "stats": stats, "pseudo": pseudo,
         "access-keys": access_keys, "pages": pages, "to-po": to_po, "from-po": from_po, "make": make_binary}
WITHOUT_FILE = ("extract", "pseudo", "pages")


def command_line():
    parser = argparse.ArgumentParser(prog="script/languages", description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    verbs = parser.add_subparsers(metavar="VERB", required=True)
    for name, function in VERBS.items():
        verb = verbs.add_parser(name, help=function.__doc__, description=function.__doc__)
        verb.set_defaults(function=function, file=None)
        if name not in WITHOUT_FILE:
            verb.add_argument("file", metavar="FILE")
        if name == "check":
            verb.add_argument("--quiet", action="store_true", help="no notes")
        else:
            verb.add_argument("out", metavar="OUT", nargs="?")
    return parser


def main(words=None):
    arguments = command_line().parse_args(words)
    try:
        arguments.function(arguments)
    except Refused:
        return 1
    except Fault as fault:
        say(arguments.file, fault.line, fault.reason)
        return 1
    except BrokenPipeError:
        sys.stderr.close()
        return 1
    except OSError as error:
        print(f"error: {error.filename or arguments.out or 'standard output'}: {error.strerror}", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
