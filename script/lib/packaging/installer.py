"""Makes the installer: files, registration and the folder of language files, for every user of a machine."""
import hashlib
import os
import re
import shutil
import struct
import subprocess
import tempfile
import uuid
from pathlib import Path
from xml.etree import ElementTree

import olefile

import registration

NAME, MAKER, FOLDER = "Vellumark", "Orrin Systems", "Vellumark"
# The installer knows an older version by this: it never changes.
UPGRADE_CODE = uuid.UUID("0d15cb18-d16c-4f42-a06f-39ea35c98b05")
LANGUAGE = "1033"
COMPONENT_SETTINGS = r"SOFTWARE\Orrin Systems\vmkctrl.PdfPrinterPreferences"
WIX = "http://schemas.microsoft.com/wix/2006/wi"
VERSIONED = (".dll", ".exe")
SUMMARY = "\x05SummaryInformation"
# Properties of the summary, and the type of a time.
REVISION, CREATED, SAVED, FILETIME = 9, 12, 13, 64
EPOCH_OF_FILETIME = 11644473600


def identifier(*parts):
    """The same for the same parts, as the installer writes identifiers."""
    return str(uuid.uuid5(UPGRADE_CODE, "\n".join(parts))).upper()


def key_of(place):
    return re.sub(r"[^\w.]", "_", str(place))


def both_names(name, number):
    """The short name, if the name is none, and the name."""
    stem, dot, extension = name.rpartition(".") if "." in name else (name, "", "")
    if re.fullmatch(r"\w{1,8}", stem) and len(extension) <= 3:
        return name
    letters = re.sub(r"\W", "", stem)[:8 - 1 - len(str(number))]
    return f"{letters}~{number}{dot}{extension[:3]}".upper() + f"|{name}"


def element(parent, name, **attributes):
    return ElementTree.SubElement(parent, name, {key.rstrip("_"): str(value) for key, value in attributes.items()})


def add_value(parent, value):
    name = {"Name": "*"} if value.data is None else {"Name": value.name} if value.name else {}
    element(parent, "RegistryValue", Root="HKLM", Key=value.key, Type="string", Value=value.data or "", **name)


def add_component(parent, feature, place, number):
    component = element(parent, "Component", Id=f"component_{key_of(place)}", Guid=identifier("component", str(place)),
                        Win64="yes")
    element(component, "File", Id=key_of(place), Name=both_names(place.name, number), Source=place, KeyPath="yes")
    element(feature, "ComponentRef", Id=component.get("Id"))
    return component


def add_folder(folders, place, number):
    """The element of a folder, made with those above it."""
    if place not in folders:
        above = add_folder(folders, place.parent, number)
        folders[place] = element(above, "Directory", Id=f"folder_{key_of(place)}", Name=both_names(place.name, number))
    return folders[place]


def description(places, version, package_code, component_sources):
    """The source of the installer, as wixl reads it."""
    root = ElementTree.Element("Wix", xmlns=WIX)
    product = element(root, "Product", Id=identifier("product", version), Name=NAME, Language=LANGUAGE, Version=version,
                      Manufacturer=MAKER, UpgradeCode=str(UPGRADE_CODE).upper())
    element(product, "Package", Id=package_code, InstallerVersion="300", Compressed="yes", InstallScope="perMachine",
            Manufacturer=MAKER, Description=f"{NAME} {version}")
    element(product, "MajorUpgrade", DowngradeErrorMessage=f"A later version of {NAME} is installed.")
    element(product, "Media", Id="1", Cabinet="files.cab", EmbedCab="yes")
    element(product, "Property", Id="ARPNOMODIFY", Value="1")
    feature = element(product, "Feature", Id="Complete", Level="1")
    target = element(product, "Directory", Id="TARGETDIR", Name="SourceDir")
    programs = element(target, "Directory", Id="ProgramFiles64Folder")
    folders = {Path("."): element(programs, "Directory", Id="INSTALLDIR", Name=both_names(FOLDER, 1))}
    for number, place in enumerate(sorted(places), 1):
        component = add_component(add_folder(folders, place.parent, number), feature, place, number)
        if place == Path("vmkctrl.dll"):
            values = registration.registration(component_sources, f"[#{key_of(place)}]", "[INSTALLDIR]")
            for value in [*values, registration.Value(COMPONENT_SETTINGS, "VLF_PATH", "[folder_languages]")]:
                add_value(component, value)
    return ElementTree.tostring(root, encoding="unicode")


def output(*command, folder=None):
    """What a command says, which must not be a warning."""
    result = subprocess.run(command, cwd=folder, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
    # wixl says what it does not understand, and goes on without it.
    if result.returncode or "WARNING" in result.stdout or "rror" in result.stdout:
        raise SystemExit(f"error: {command[0]} failed: {result.stdout}")
    return result.stdout


def set_file_versions(installer, places, version):
    """Programs are compared by their versions, which wixl does not look up, and not by their bytes."""
    queries = []
    for place in places:
        if place.suffix in VERSIONED:
            queries += [f"UPDATE `File` SET `Version` = '{version}.0', `Language` = '{LANGUAGE}' "
                        f"WHERE `File` = '{key_of(place)}'",
                        f"DELETE FROM `MsiFileHash` WHERE `File_` = '{key_of(place)}'"]
    for query in queries:
        output("msibuild", installer, "-q", query)


def stamp(installer, package_code, when):
    """Gives the installer's summary the identifier and the times that it is to have; wixl takes those of the day."""
    with olefile.OleFileIO(str(installer), write_mode=True) as storage:
        summary = bytearray(storage.openstream(SUMMARY).read())
        section, = struct.unpack_from("<I", summary, 44)
        count, = struct.unpack_from("<I", summary, section + 4)
        for index in range(count):
            property_, offset = struct.unpack_from("<II", summary, section + 8 + 8 * index)
            place = section + offset
            if property_ == REVISION:
                code = f"{{{package_code}}}".encode()
                summary[place + 8:place + 8 + len(code)] = code
            elif property_ in (CREATED, SAVED):
                struct.pack_into("<IQ", summary, place, FILETIME, (when + EPOCH_OF_FILETIME) * 10**7)
        storage.write_stream(SUMMARY, bytes(summary))


def make(stage, places, version, installer, component_sources, when):
    """Makes the installer of the files of the stage at these places."""
    with tempfile.TemporaryDirectory() as temporary:
        folder = Path(temporary)
        # The cabinet holds the times of the files.
        for place in places:
            (folder / place).parent.mkdir(parents=True, exist_ok=True)
            shutil.copyfile(stage / place, folder / place)
            os.utime(folder / place, (when, when))
        digest = hashlib.sha256()
        for place in sorted(places):
            digest.update(f"{place} ".encode() + hashlib.sha256((stage / place).read_bytes()).digest())
        package_code = identifier("package", version, digest.hexdigest())
        source = folder / "installer.wxs"
        source.write_text(description(places, version, package_code, component_sources), encoding="utf-8")
        output("wixl", "--arch", "x64", "--output", installer.absolute(), source.name, folder=folder)
        set_file_versions(installer, places, version)
        stamp(installer, package_code, when)
