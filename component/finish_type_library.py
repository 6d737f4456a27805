#!/usr/bin/env python3
"""Makes the type library that is shipped of what the compiler made.

Takes the time of the build out, so that the same source gives the same bytes: the compiler leaves the time as a number
and a text that ends in it. Gives the values of the enumeration their help strings, which are the interface definition's
comments: the compiler has none for values.
Usage: finish_type_library.py IDL INPUT OUTPUT
"""

import struct
import sys
import uuid

import idl_comments

TEXT_STAMP = uuid.UUID("de77ba65-517c-11d1-a2da-0000f8773ce9")
TIME_STAMP = uuid.UUID("de77ba63-517c-11d1-a2da-0000f8773ce9")
EPOCH = b"Thu Jan  1 00:00:00 1970\n"

HEADER_SIZE = 0x54
FLAGS_OFFSET = 0x14
HAS_HELP_DLL = 0x100
TYPE_COUNT_OFFSET = 0x20
SEGMENT_SIZE = 16
SEGMENT_COUNT = 15
TYPES, GUIDS, NAMES, STRINGS, CUSTOM_DATA, CUSTOM_DATA_GUIDS = 0, 5, 7, 8, 11, 12
VT_BSTR, VT_UI4 = 8, 19

TYPE_SIZE = 0x64
MEMBERS_OFFSET = 0x04
MEMBER_COUNTS_OFFSET = 0x18  # functions below, values above
KIND, ENUMERATION = 0xF, 0
NAME_SIZE_OFFSET, NAME_TEXT_OFFSET = 8, 12


class TypeLibrary:
    def __init__(self, path):
        self.path = path
        with open(path, "rb") as file:
            self.data = bytearray(file.read())
        if self.data[:4] != b"MSFT":
            sys.exit(f"{path}: not a type library")
        self.type_count = self.number(TYPE_COUNT_OFFSET)
        self.directory = HEADER_SIZE + 4 * self.type_count
        if self.number(FLAGS_OFFSET) & HAS_HELP_DLL:
            self.directory += 4

    def number(self, offset, form="<I"):
        return struct.unpack_from(form, self.data, offset)[0]

    def segment(self, index):
        """Where a segment begins and how long it is."""
        return struct.unpack_from("<II", self.data, self.directory + SEGMENT_SIZE * index)

    def types(self):
        """Where the description of each type is."""
        begin = self.segment(TYPES)[0]
        return range(begin, begin + TYPE_SIZE * self.type_count, TYPE_SIZE)

    def insert(self, offset, added):
        """Puts bytes in, and moves whatever is counted from the beginning of the file."""
        places = [self.directory + SEGMENT_SIZE * index for index in range(SEGMENT_COUNT)]
        places += [place + MEMBERS_OFFSET for place in self.types()]
        for place in places:
            position = self.number(place)
            if offset <= position < len(self.data):
                struct.pack_into("<I", self.data, place, position + len(added))
        self.data[offset:offset] = added

    def clear_time(self):
        guids, custom_data = self.segment(GUIDS)[0], self.segment(CUSTOM_DATA)[0]
        first, length = self.segment(CUSTOM_DATA_GUIDS)
        found = set()
        for entry in range(first, first + length, 12):
            guid_offset = guids + self.number(entry)
            guid = uuid.UUID(bytes_le=bytes(self.data[guid_offset : guid_offset + 16]))
            value = custom_data + self.number(entry + 4)
            kind = self.number(value, "<H")
            if guid == TIME_STAMP and kind == VT_UI4:
                struct.pack_into("<I", self.data, value + 2, 0)
            elif guid == TEXT_STAMP and kind == VT_BSTR:
                end = value + 6 + self.number(value + 2)
                self.data[end - len(EPOCH) : end] = EPOCH
            else:
                continue
            found.add(guid)
        if found != {TEXT_STAMP, TIME_STAMP}:
            sys.exit(f"{self.path}: the compiler's time stamps are not where they were expected")

    def add_string(self, text):
        """Puts a text behind the others and answers its place among them."""
        begin, length = self.segment(STRINGS)
        entry = struct.pack("<H", len(text)) + text.encode("ascii")
        entry += b"W" * (-len(entry) % 4)
        self.insert(begin + length, entry)
        struct.pack_into("<I", self.data, self.directory + SEGMENT_SIZE * STRINGS + 4, length + len(entry))
        return length

    def describe_values(self, helps):
        """Gives the values of every enumeration their help strings, by their names."""
        left = dict(helps)
        for place in self.types():
            functions, values = struct.unpack_from("<HH", self.data, place + MEMBER_COUNTS_OFFSET)
            if self.data[place] & KIND != ENUMERATION or functions:
                continue
            places = self.value_names(place, values)
            strings = [self.add_string(left.pop(name)) if name in left else None for name in places]
            self.lengthen_values(place, strings)
        if left:
            sys.exit(f"{self.path}: there is no value {', '.join(sorted(left))}")

    def value_names(self, place, count):
        members = self.number(place + MEMBERS_OFFSET)
        first = members + 4 + self.number(members) + 4 * count  # behind the records and the members' ids
        names = self.segment(NAMES)[0]
        texts = []
        for index in range(count):
            name = names + self.number(first + 4 * index)
            size = self.data[name + NAME_SIZE_OFFSET]
            texts.append(self.data[name + NAME_TEXT_OFFSET :][:size].decode("ascii"))
        return texts

    def lengthen_values(self, place, strings):
        """Adds to each value's record what may stand behind it: a help context, and a help string's place."""
        members = self.number(place + MEMBERS_OFFSET)
        length = self.number(members)
        at, records, begins = members + 4, b"", []
        for string in strings:
            size = self.number(at, "<H")
            record = bytes(self.data[at : at + size])
            at += size
            begins.append(len(records))
            if string is not None:
                record = struct.pack("<H", size + 8) + record[2:] + struct.pack("<II", 0, string)
            records += record
        offsets = members + 4 + length + 8 * len(strings)
        struct.pack_into(f"<{len(begins)}I", self.data, offsets, *begins)
        added = len(records) - length
        self.insert(members + 4 + length, bytes(added))
        self.data[members + 4 : members + 4 + len(records)] = records
        struct.pack_into("<I", self.data, members, len(records))


def main(idl, source, target):
    library = TypeLibrary(source)
    library.clear_time()
    library.describe_values(idl_comments.read(idl)[1])
    with open(target, "wb") as file:
        file.write(library.data)


main(*sys.argv[1:])
