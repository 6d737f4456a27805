#!/usr/bin/env python3
"""Takes the time of the build out of a type library, so that the same source gives the same bytes.

The compiler leaves two pieces of custom data in the library: the time as a number and a text that ends in it.
Usage: normalize_type_library.py INPUT OUTPUT
"""

import struct
import sys
import uuid

TEXT_STAMP = uuid.UUID("de77ba65-517c-11d1-a2da-0000f8773ce9")
TIME_STAMP = uuid.UUID("de77ba63-517c-11d1-a2da-0000f8773ce9")
EPOCH = b"Thu Jan  1 00:00:00 1970\n"

HEADER_SIZE = 0x54
FLAGS_OFFSET = 0x14
HAS_HELP_DLL = 0x100
TYPE_COUNT_OFFSET = 0x20
SEGMENT_SIZE = 16
GUIDS, CUSTOM_DATA, CUSTOM_DATA_GUIDS = 5, 11, 12
VT_BSTR, VT_UI4 = 8, 19


def main(source, target):
    with open(source, "rb") as file:
        data = bytearray(file.read())
    if data[:4] != b"MSFT":
        sys.exit(f"{source}: not a type library")

    def number(offset, form="<I"):
        return struct.unpack_from(form, data, offset)[0]

    directory = HEADER_SIZE + 4 * number(TYPE_COUNT_OFFSET)
    if number(FLAGS_OFFSET) & HAS_HELP_DLL:
        directory += 4

    def segment(index):
        return struct.unpack_from("<II", data, directory + SEGMENT_SIZE * index)

    guids, custom_data = segment(GUIDS)[0], segment(CUSTOM_DATA)[0]
    first, length = segment(CUSTOM_DATA_GUIDS)
    found = set()
    for entry in range(first, first + length, 12):
        guid_offset = guids + number(entry)
        guid = uuid.UUID(bytes_le=bytes(data[guid_offset : guid_offset + 16]))
        value = custom_data + number(entry + 4)
        kind = number(value, "<H")
        if guid == TIME_STAMP and kind == VT_UI4:
            struct.pack_into("<I", data, value + 2, 0)
        elif guid == TEXT_STAMP and kind == VT_BSTR:
            end = value + 6 + number(value + 2)
            data[end - len(EPOCH) : end] = EPOCH
        else:
            continue
        found.add(guid)
    if found != {TEXT_STAMP, TIME_STAMP}:
        sys.exit(f"{source}: the compiler's time stamps are not where they were expected")

    with open(target, "wb") as file:
        file.write(data)


main(*sys.argv[1:])
