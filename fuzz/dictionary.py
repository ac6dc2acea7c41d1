#!/usr/bin/env python3
"""Writes the words of the catalogue as a dictionary of the fuzzer: dictionary.py CATALOGUE FORM.

The form is xml, compiled, json, match, vehicle or commands; the last four have words of their own. In XML a word stands as it is; in the compiled form its length comes before it and a zero behind it.
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

JSON_WORDS = ['{"', '":', '","', '"}', "[", "]", "{}", "[]", "true", "false", "null", "1e308", "-0", "0.1", "9223372036854775807",
              "\\u0000", "\\ud83d\\ude00", "\\ud800", "\\n", "NaN", "Infinity"]
TYPE_WORDS = ["Result", "Response", "Map", "ByteField", "Parameter", "ComChannel", "DiagService", "Exception",
              "EventSource", "Event", "Float", "Quantity", "Unit", "Request", "ServiceProvider", "FlashSession",
              "ComInterface", "FileReadHandle", "ResultState", "ResponseState", "ComChannelState", "MessageType",
              "ConfirmationType", "Audience", "LogLevel", "ConnectionStatus", "Encoding", "Enumeration"]
MATCH_WORDS = ["(?:", "(?=", "(?!", "(a|b)", ")*", "+?", "{2,3}", "{0,}", "[^", "[[:alpha:]]", "[[.a.]]", "[[=a=]]", "\\1", "\\b", "\\B",
               "\\d", "\\D", "\\w", "\\s", "\\x41", "\\u0041", "\\cA", "\\0", "^", "$", ".", "(?<n>", "\\p{L}", "(?R)"]
VEHICLE_WORDS = ["access", "activated", "address", "algorithm", "ascii", "attempts", "available", "batteryVoltage",
                 "bit", "bits", "blockTime", "blocks", "byte", "byteOrder", "bytes", "checksum", "code", "coding",
                 "constant", "content", "controlUnits", "count", "countedBy", "counter", "data", "dataIdentifier",
                 "decimals", "default", "defaultComInterface", "delay", "delayAfterReset", "direction", "download",
                 "duration", "effect", "ethernet", "factor", "faults", "file", "fill", "flashSessions", "formats",
                 "from", "functional", "groups", "id", "ignition", "index", "interval", "length", "level", "matches",
                 "maxBlockLength", "maxResponseLength", "maximum", "memory", "method", "minimum", "name",
                 "needsErase", "offset", "optionLength", "parameters", "pin", "points", "position", "prefix",
                 "processing", "readable", "record", "repeats", "request", "requestAddress", "resetTime", "resources",
                 "responseAddress", "responseTime", "routines", "security", "seed", "seedLength", "segments",
                 "semantic", "service", "sessions", "signed", "size", "start", "startAddress", "state", "status",
                 "step", "steps", "subfunction", "supported", "texts", "times", "transfer", "unit", "upload", "value",
                 "variants", "writable", "0xF190"]
COMMAND_WORDS = ["stop", "run", "step", "setbp", "clearbp", "cancel", "status", "exception", "closees", "putes", "event ",
                 "eventType", "HMI-ScreenClosed", "HMI-OutParameterValueChanged", "ESP-", "screenName", "parameters",
                 "providerType", "flowId", "breakpoints", "value", "param", "type", "text", "InputDialog", "UserException"]


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


def entries(catalogue_folder, form):
    if form == "xml":
        return [word.encode() for word in words(Catalogue(catalogue_folder)) + XML_WORDS]
    if form == "compiled":
        return COMPILED_WORDS + [compiled(word) for word in words(Catalogue(catalogue_folder))]
    own = {"json": JSON_WORDS + TYPE_WORDS, "match": MATCH_WORDS, "vehicle": JSON_WORDS + VEHICLE_WORDS,
           "commands": JSON_WORDS + COMMAND_WORDS}
    return [word.encode() for word in own[form]]


def dictionary(catalogue_folder, form):
    return "".join(quoted(entry) + "\n" for entry in entries(catalogue_folder, form) if 0 < len(entry) <= LONGEST)


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    sys.stdout.write(dictionary(sys.argv[1], sys.argv[2]))
