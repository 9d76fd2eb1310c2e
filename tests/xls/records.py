"""Prints the records of each sheet of a workbook, stream positions left out: what another program's change to the
file must leave as it is."""

import struct
import sys

from xlrd import compdoc

INDEX = 0x020B
BOF = 0x0809
EOF = 0x000A
BOUNDSHEET = 0x0085

file = open(sys.argv[1], "rb").read()
document = compdoc.CompDoc(file)
memory, base, length = document.locate_named_stream("Workbook")
stream = memory[base : base + length]


def record(at):
    number, size = struct.unpack_from("<HH", stream, at)
    return number, stream[at + 4 : at + 4 + size], at + 4 + size


def positions_checked(start, end, body):
    """Every position that the record names is that of a record of the sheet."""
    starts = set()
    at = start
    while at < end:
        starts.add(at)
        at = record(at)[2]
    for place in struct.unpack_from(f"<{(len(body) - 12) // 4}I", body, 12):
        if place and place not in starts:
            return "astray"
    return "right"


def sheet_end(at):
    depth = 0
    while True:
        number, _, at = record(at)
        depth += number == BOF
        depth -= number == EOF
        if depth == 0:
            return at


at = 0
while True:
    number, body, at = record(at)
    if number == EOF:
        break
    if number != BOUNDSHEET:
        continue
    start = struct.unpack_from("<I", body)[0]
    end = sheet_end(start)
    place = start
    print("sheet", body[4:].hex())
    while place < end:
        number, content, place = record(place)
        if number == INDEX:
            print(f"{number:04x} {content[:12].hex()} {positions_checked(start, end, content)}")
        else:
            print(f"{number:04x} {content.hex()}")
