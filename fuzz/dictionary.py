#!/usr/bin/env python3
"""Writes the words of the catalogue as a dictionary of the fuzzer: dictionary.py CATALOGUE xml|compiled.

In XML a word stands as it is; in the compiled form its length comes before it and a zero behind it.
"""

import pathlib
import struct
import sys

sys.path.append(str(pathlib.Path(__file__).resolve().parent.parent / "schema" / "generator"))
from catalogue import Catalogue  # noqa: E402

# What the fuzzer takes at the most for one entry.
LONGEST = 64

XML_WORDS = ["xmlns=", "xsi:type=", "http://www.w3.org/2001/XMLSchema-instance", "<![CDATA[", "]]>", "<!--", "-->",
             "<!DOCTYPE", "&#x0;", "true", "false", "-1", "9223372036854775808", "NaN", "INF", "2026-01-15T10:00:00Z"]
COMPILED_WORDS = [b"\x00\x00\x00\x00", b"\x01\x00\x00\x00", b"\xff\xff\xff\xff", b"\xff\xff\xff\x7f", b"\x00\x00\x00\x80"]


def words(catalogue):
    found = set(catalogue.names())
    for module in catalogue.modules:
        found.add(module.space)
        for t in module.types:
            found.add(t.name)
            found |= set(t.literals)
            found |= {member.default for member in t.members if member.default is not None}
    return sorted(found)


def compiled(word):
    text = word.encode() + b"\0"
    return struct.pack("<I", len(text)) + text


def quoted(entry):
    return '"' + "".join(chr(byte) if 0x20 <= byte < 0x7F and chr(byte) not in '"\\' else f"\\x{byte:02x}"
                         for byte in entry) + '"'


def dictionary(catalogue_folder, form):
    found = words(Catalogue(catalogue_folder))
    entries = ([word.encode() for word in found + XML_WORDS] if form == "xml"
               else COMPILED_WORDS + [compiled(word) for word in found])
    return "".join(quoted(entry) + "\n" for entry in entries if 0 < len(entry) <= LONGEST)


if __name__ == "__main__":
    if len(sys.argv) != 3 or sys.argv[2] not in ("xml", "compiled"):
        sys.exit(__doc__)
    sys.stdout.write(dictionary(sys.argv[1], sys.argv[2]))
