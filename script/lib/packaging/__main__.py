"""Packs what script/build has built: an archive, an installer, symbols, a bill of what is inside, and their sums.

The same commit gives the same bytes. Every time in them is that of the last commit, or SOURCE_DATE_EPOCH.
"""
import argparse
import os
import shutil
import subprocess
import tempfile
from pathlib import Path

import archive
import bill
import contents
import installer
import linked
import signing

PROJECT = Path(__file__).resolve().parents[3]
NAME = "vmkctrl"


def project_version():
    return linked.output(PROJECT / "script/lib/version").strip()


def time_of_commit():
    epoch = os.environ.get("SOURCE_DATE_EPOCH")
    return int(epoch or linked.output("git", "-C", PROJECT, "log", "-1", "--format=%ct"))


def parse_arguments():
    parser = argparse.ArgumentParser(prog="script/package", description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--sign", metavar="CERTIFICATE",
                        help="sign the programs and the installer; a PKCS#12 container, or with --key a PEM certificate")
    parser.add_argument("--key", help="the certificate's key, in PEM")
    parser.add_argument("--password-file", help="a file whose first line is the password of the key")
    parser.add_argument("--time-stamps", metavar="URL", help="a service (RFC 3161) that confirms the time of signing")
    parser.add_argument("--version", default=project_version(),
                        help="another version in the names and in the installer, to try upgrades with")
    parser.add_argument("--build", type=Path, default=PROJECT / "build/release")
    parser.add_argument("--output", type=Path, default=PROJECT / "build/package", help="a folder, which is made anew")
    arguments = parser.parse_args()
    if not arguments.sign and (arguments.key or arguments.password_file or arguments.time_stamps):
        parser.error("--key, --password-file and --time-stamps belong to --sign")
    return arguments


def pack(arguments, stage, output):
    when = time_of_commit()
    build, name = arguments.build.resolve(), f"{NAME}-{arguments.version}"
    certificate = arguments.sign and signing.Certificate(arguments.sign, arguments.key, arguments.password_file,
                                                         arguments.time_stamps)
    installed = contents.stage(PROJECT, build, stage)
    in_programs = {program: linked.linked_into(build, program) for program in contents.SIGNED}
    linked.copy_licences(sorted({package for packages in in_programs.values() for package in packages}),
                         stage / contents.LICENCES)
    installed |= {path.relative_to(stage) for path in (stage / contents.LICENCES).iterdir()}

    products = [output / f"{name}{end}" for end in ("-x64.zip", "-x64.msi", "-x64-symbols.zip", ".spdx.json")]
    archive_, installer_, symbols, bill_ = products
    for program in contents.SIGNED if certificate else ():
        signing.sign(stage / program, certificate, installer.NAME, when)
    installer.make(stage, installed, arguments.version, installer_, PROJECT / "component", when)
    if certificate:
        signing.sign(installer_, certificate, installer.NAME, when)

    places = contents.files_of(stage)
    archive.write_zip(archive_, stage, name, places, when)
    archive.write_zip(symbols, build, name, [Path(symbol) for symbol in contents.SYMBOLS], when)
    bill.write(bill_, bill.bill(stage, places, NAME, arguments.version, installer.MAKER, in_programs, linked.tools(),
                                contents.LICENCES, when))
    archive.write_sums(output / "SHA256SUMS", products)


def main():
    arguments = parse_arguments()
    output = arguments.output
    output.parent.mkdir(parents=True, exist_ok=True)
    with tempfile.TemporaryDirectory(dir=output.parent) as temporary:
        made = Path(temporary) / "made"
        made.mkdir()
        pack(arguments, Path(temporary) / "stage", made)
        # What was there stays until all is made.
        shutil.rmtree(output, ignore_errors=True)
        made.replace(output)
    for path in sorted(output.iterdir()):
        print(f"{path.stat().st_size:>9}  {os.path.relpath(path)}")


if __name__ == "__main__":
    try:
        main()
    except subprocess.CalledProcessError as failure:
        raise SystemExit(f"error: {failure}") from None
