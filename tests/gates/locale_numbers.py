#!/usr/bin/env python3
"""No number is read or written through a locale: locale_numbers.py BUILD looks for calls that do, in the objects of the
library and of the program. What others' headers bring along is listed below, each with why it does no harm."""
import re
import subprocess
import sys
from pathlib import Path

CALLS = re.compile(
    r"std::[io]stream(?:::|& std::[io]stream::)(?:_M_insert<|_M_extract<|operator<<\(|operator>>\()"
    r"(?:bool|short|int|long|long long|unsigned short|unsigned int|unsigned long|unsigned long long|float|double|long double)"
    r"|\b(?:__isoc\d+_)?(?:strto[dfl]|strto(?:ld|ll|ul|ull)|ato[fil]|atoll|v?[fs]?scanf|v?[fs]?n?printf|v?snprintf|vasprintf)"
    r"(?:_l)?$")
SETS = re.compile(r"^(?:setlocale|uselocale|localeconv|std::locale::global\(|std::locale::locale\(char const\*\))")

# The object's name, the calls, and the reason.
AGREED = (
    (r"HMIIF/HMI\.cpp|ServiceActions\.cpp", r"_M_insert<bool|operator<<\(bool", "0 or 1 in a line of the trace"),
    (r"schema/(Document|DomParser|Reader|Registry|Holders|Records|Enumeration)\.cpp|generated/schema/", r"std::[io]stream",
     "the tree runtime prints the place of a failure, into a stream with the classic locale; its parsers of numbers are unused"),
    (r"VelkOTXe/LoadXML\.cpp", r"std::ostream", "the same failures, into a stream with the classic locale"),
    (r"schema/Text\.cpp", r"strtod_l", "told the C locale"),
    (r"log/src/CLog\.cpp", r"printf", "the formatting library's own writers, which are not called with numbers"),
    (r"JsonReader\.cpp|JsonNode\.cpp|JsonMembers\.cpp|ReadVehicle\.cpp", r"strto|printf|localeconv",
     "the JSON parser's own numbers are dropped: ours are made from the digits"),
    (r"StringMatch\.cpp|Restriction\.cpp", r"std::istream", "the standard library's back references in patterns: digits only"),
    (r"program/(debug/LineReader)\.cpp", r"setlocale", "the program's terminal, characters only"),
    (r"program/Options\.cpp|pages/", r".", "the parser of the command line; the program keeps the C locale for numbers"),
)


def calls(objects):
    """Each object with each symbol that it takes from elsewhere, as far as a rule is about it."""
    lines = subprocess.run(["nm", "-CuA", *objects], check=True, capture_output=True, text=True).stdout
    for line in lines.splitlines():
        path, symbol = re.fullmatch(r"(.*?\.o): +\w (.*)", line).groups()
        if CALLS.search(symbol) or SETS.search(symbol):
            yield path, symbol


def is_agreed(path, symbol):
    return any(re.search(where, path) and re.search(what, symbol) for where, what, _ in AGREED)


def main():
    build = Path(sys.argv[1])
    objects = [path for room in ("src", "schema", "libraries", "host") for path in (build / room).rglob("*.o")
               if "tests" not in path.parts]
    if len(objects) < 100:
        sys.exit(f"only {len(objects)} objects under {build}: nothing was looked at")
    failures = 0
    for path, symbol in calls(sorted(objects)):
        name = re.sub(r"CMakeFiles/[^/]+\.dir/", "", str(Path(path).relative_to(build)))
        if not is_agreed(name, symbol):
            print(f"{name}: {symbol}")
            failures += 1
    if failures:
        sys.exit(f"{failures} calls that depend on a locale; use std::to_chars and std::from_chars")


if __name__ == "__main__":
    main()
