#!/usr/bin/env python3
"""No number is read or written through a locale: locale_numbers.py BUILD looks for calls that do, in the objects of the
library and of the program. What others' headers bring along is listed below, each with why it does no harm."""
import re
import subprocess
import sys
from pathlib import Path

import locale_names

CALLS = re.compile(
    r"std::(?:[io]stream|basic_[io]stream<[^()]*>)(?:::|& std::(?:[io]stream|basic_[io]stream<[^()]*>)::)"
    r"(?:_M_insert<|_M_extract<|operator<<\(|operator>>\()"
    r"(?:bool|short|int|long|long long|unsigned short|unsigned int|unsigned long|unsigned long long|float|double|long double)\b"
    rf"|\bstd::(?:__\w+::)?{locale_names.FACETS}<|\bstd::__convert_(?:to_v|from_c)\b"
    rf"|^{locale_names.SYMBOLS}$")
# Who sets a locale, and where it comes from. Buffers inherit an imbue of their own, which isn't about numbers.
SETS = re.compile(
    r"^(?:setlocale|uselocale|newlocale|duplocale|localeconv|nl_langinfo(?:_l)?)$"
    r"|^std::locale::(?:global\(|locale\((?!\)|std::locale const&\)))|\bstd::(?:__\w+::)?\w+_byname<"
    r"|\bstd::(?:ios_base|basic_ios<[^()]*>)::imbue\(")
# What reads the command line calls, for types that the program doesn't ask for among them.
COMMAND_LINE = (r"^(?:strtold|strtoll|strtoull|(?:__)?vsnprintf(?:_chk)?|std::ostream::operator<<\(int\)"
                r"|std::ostream& std::ostream::_M_insert<(?:double|unsigned long)>.*)$")

# The objects' names, from the beginning of a folder's or a file's name on, the calls, and the reason. Each name must be needed.
AGREED = (
    (("OTXHMIIF/HMI.cpp", "ServiceActions.cpp"), r"_M_insert<bool|operator<<\(bool", "0 or 1 in a line of the trace"),
    (("schema/Document.cpp", "schema/DomParser.cpp", "schema/Registry.cpp"), r"std::[io]stream",
     "the tree runtime prints the place of a failure, into a stream with the classic locale; its parsers of numbers are unused"),
    (("schema/Text.cpp",), r"^strtod_l$", "told the C locale"),
    (("schema/Text.cpp",), r"^newlocale$", "the C locale"),
    (("VelkOTXe/LoadXML.cpp", "CLog.cpp"), r"imbue", "the classic locale"),
    (("JsonReader.cpp", "JsonNode.cpp"), r"strto|printf|localeconv",
     "the JSON parser's own numbers are dropped: ours are made from the digits"),
    (("Restriction.cpp",), r"std::istream", "the standard library's back references in patterns: digits only"),
    (("program/debug/LineReader.cpp",), r"^setlocale$", "the program's terminal, characters only"),
    (("program/Options.cpp", "pages/CommandPage.cpp", "pages/main.cpp"), COMMAND_LINE,
     "the parser of the command line; the program keeps the C locale for numbers. Our own calls are seen in the text (sources.py)"),
)


def calls(objects):
    """Each object with each of its symbols that a rule is about."""
    # All symbols: what a template makes of a facet stands in the object itself.
    lines = subprocess.run(["nm", "-CA", *objects], check=True, capture_output=True, text=True).stdout
    for line in lines.splitlines():
        path, symbol = re.fullmatch(r"(.*?\.o): *[0-9a-f]* +\w (.*)", line).groups()
        if CALLS.search(symbol) or SETS.search(symbol):
            yield path, symbol


def complaints(found):
    """What is wrong with the calls, pairs of an object's name and a symbol: those that nobody agreed to, and agreements that none
    of them needs."""
    unused = {(where, what) for objects, what, _ in AGREED for where in objects}
    for name, symbol in found:
        agreed = {(where, what) for objects, what, _ in AGREED for where in objects
                  if f"/{where}" in f"/{name}" and re.search(what, symbol)}
        unused -= agreed
        if not agreed:
            yield f"{name}: {symbol}"
    for where, what in sorted(unused):
        yield f"{where}: agreed to for '{what}', which it doesn't call: take it out of the list"


def main():
    build = Path(sys.argv[1])
    objects = [path for room in ("src", "schema", "libraries", "host") for path in (build / room).rglob("*.o")
               if "tests" not in path.parts]
    if len(objects) < 100:
        sys.exit(f"only {len(objects)} objects under {build}: nothing was looked at")
    found = [(re.sub(r"CMakeFiles/[^/]+\.dir/", "", str(Path(path).relative_to(build))), symbol)
             for path, symbol in calls(sorted(objects))]
    failures = list(complaints(found))
    for line in failures:
        print(line)
    if failures:
        sys.exit(f"{len(failures)} complaints; numbers are read by std::from_chars and written by std::to_chars")


if __name__ == "__main__":
    main()
