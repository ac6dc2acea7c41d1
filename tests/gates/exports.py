#!/usr/bin/env python3
"""The symbols that the shared library exports have to be those of a list: exports.py [--rebase] LIBRARY LIST.

A symbol stands in the list demangled and in short: the table of virtual functions and the type information of a class are
one line `class NAME`, a thread-local variable and what initialises it are one line, and the standard library's names are as
people write them."""
import re
import subprocess
import sys

SHORT = (
    ("std::__cxx11::basic_string<char, std::char_traits<char>, std::allocator<char> >", "std::string"),
    ("std::basic_string_view<char, std::char_traits<char> >", "std::string_view"),
    ("std::__cxx11::", "std::"),
    ("[abi:cxx11]", ""),
)
ABOUT_CLASS = re.compile(r"^(?:vtable|VTT|typeinfo|typeinfo name) for (.+)$")
ABOUT_VARIABLE = re.compile(r"^(?:TLS init function|TLS wrapper function|guard variable|non-virtual thunk) (?:for|to) (.+)$")
DEFAULTS = re.compile(r", std::(?:allocator|less)<(?:[^<>]|<(?:[^<>]|<[^<>]*>)*>)*>")


def short(symbol):
    for long, brief in SHORT:
        symbol = symbol.replace(long, brief)
    while (cut := DEFAULTS.sub("", symbol)) != symbol:
        symbol = cut
    symbol = symbol.replace(" >", ">")
    if match := ABOUT_CLASS.match(symbol):
        return "class " + match.group(1)
    if match := ABOUT_VARIABLE.match(symbol):
        return match.group(1)
    return symbol


def exported(library):
    lines = subprocess.run(["nm", "-DC", "--defined-only", library], check=True, capture_output=True, text=True).stdout
    return sorted({short(line.split(" ", 2)[2]) for line in lines.splitlines()})


def main():
    rebase = "--rebase" in sys.argv
    library, file = (word for word in sys.argv[1:] if word != "--rebase")
    found = exported(library)
    if rebase:
        with open(file, "w", encoding="utf-8") as out:
            out.write("# What libVelkOTX.so exports. `ninja rebase-exports` rewrites the list, for review.\n")
            out.writelines(line + "\n" for line in found)
        return
    with open(file, encoding="utf-8") as lines:
        wanted = {line.rstrip("\n") for line in lines if not line.startswith("#")}
    extra = sorted(set(found) - wanted)
    missing = sorted(wanted - set(found))
    for line in extra:
        print(f"exported, but not in the list: {line}")
    for line in missing:
        print(f"in the list, but not exported: {line}")
    if extra or missing:
        sys.exit(f"{len(extra)} too many, {len(missing)} missing")


if __name__ == "__main__":
    main()
