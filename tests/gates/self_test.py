#!/usr/bin/env python3
"""Each gate has to find what it is for, and to pass over what only looks alike."""
import sys

import exports
import locale_numbers
import sources

BREAKS = (
    ("src/A.cpp", "int a;\n", "doesn't begin with a comment"),
    ("src/A.cpp", "// Role.\n" + "int a;\n" * 600, "601 lines"),
    ("src/A.cpp", "// Role, see Part 4.\n", "'Part 4'"),
    ("docs/a.md", "As issue 12 wants.\n", "'issue 12'"),
    ("docs/a.md", "cd /" + "work/project\n", "a path of one machine"),
    ("src/A.cpp", "// Role.\nvoid f() try {} catch (...) {}\n", "catch (...) without"),
    ("src/A.cpp", "// Role.\nvoid f() try {} catch (abi::__forced_unwind&) { log(); } catch (...) {}\n", "catch (...) without"),
    ("tests/A.cpp", "// Role.\nvoid f() { try { g(); } catch (int) {} catch (...) {} }\n", "catch (...) without"),
    ("host/A.cpp", "// Role.\nint i = std::stoi(text);\n", "std::stoi"),
    ("host/A.cpp", "// Role.\nint i = snprintf(text, 3, \"%f\", d);\n", "snprintf("),
    ("schema/frame/schema/A.cpp", "// Role.\nvoid f() { list.reserve(count); }\n", "'list.reserve(count)'"),
    ("schema/frame/schema/A.cpp", "// Role.\nauto p = new char[size];\n", "'new char[size]'"),
    ("schema/frame/schema/A.cpp", "// Role.\nauto p = std::make_unique_for_overwrite<char[]>(size);\n", "<char[]>(size)'"),
    ("schema/frame/schema/A.cpp", "// Role.\nstd::vector<int> v(count);\n", "'std::vector<int> v(count)'"),
    ("schema/frame/schema/A.cpp", "// Role.\nauto v = std::vector<std::pair<int, int>>(count + 1);\n", "(count + 1)'"),
    ("schema/frame/schema/A.cpp", "// Role.\nstd::string text(in.length(), ' ');\n", "'std::string text(in.length(), )'"),
    ("schema/frame/schema/A.cpp", "// Role.\nauto text = indent + std::u16string(count,\n    u'x');\n", "'std::u16string(count, u )'"),
    ("schema/frame/schema/A.cpp", "// Role.\nvoid f() { list.assign(count, 0); }\n", "'list.assign(count, 0)'"),
    ("schema/frame/schema/A.cpp", "// Role.\nvoid f() { stack.back().append(count, 'x'); }\n", ".append(count, )'"),
    ("schema/frame/schema/A.cpp", "// Role.\nvoid f() { list->insert(list->end(), count, 0); }\n", "'list->insert("),
    ("schema/frame/schema/A.cpp", "// Role.\nauto bytes = std::make_unique<hex_binary>(count);\n", "'make_unique<hex_binary>(count)'"),
    ("schema/frame/schema/Name.cpp", "// Role.\nint i = 0;\n", "'new Name[remembered]' is in the list"),
    ("src/A.cpp", "// Role.\nvoid f() { std::cerr << 1; }\n", "prints nothing"),
)
PASSES = (
    ("src/A.cpp", "// Role.\nvoid f() try {}\nOTX_PASS_FORCED_UNWIND\ncatch (...) {}\n"),
    ("src/A.cpp", "// Role.\nvoid f() try {} catch (abi::__forced_unwind&) { throw; } catch (int) { if (a) {} } catch (...) {}\n"),
    ("src/A.cpp", "// Role: no catch (...) and no std::stoi here.\nauto text = \"catch (...)\"; int i = 1'000;\n"),
    ("src/A.cpp", "// The second specification of XML Schema Part 2.\n"),
    ("schema/frame/schema/Name.cpp", "// Role.\nauto p = new Name[remembered];\n"),
    ("schema/frame/schema/A.cpp", "// Role.\nstd::vector<char> of(std::istream& file, int size = 3);\nstd::vector<int> none();\n"),
    ("schema/frame/schema/A.cpp", "// Role.\nstd::string copy(text);\nvoid f() { copy.append(text); list.insert(text); }\n"),
    ("schema/frame/schema/A.cpp", "// Role.\nstd::string of(std::string_view text, const Name&);\n"),
    ("tools/a.sh", "#!/bin/sh\n# Role.\n"),
)
CALLS = (
    ("std::ostream& std::ostream::_M_insert<double>(double)", True),
    ("std::ostream::operator<<(int)", True),
    ("std::istream& std::istream::_M_extract<long>(long&)", True),
    ("strtod", True),
    ("__isoc99_sscanf", True),
    ("std::ostream::put(char)", False),
    ("std::to_chars(char*, char*, double)", False),
    ("my::printf_like", False),
)
# Whole lists of calls, and what is wrong with them besides what the others' agreements miss.
FOUND = (
    ([("src/A.cpp.o", "strtod")], "src/A.cpp.o: strtod"),
    ([("src/OtherText.cpp.o", "strtod_l")], "src/OtherText.cpp.o: strtod_l"),
    ([("schema/frame/schema/Text.cpp.o", "strtod")], "schema/frame/schema/Text.cpp.o: strtod"),
    ([], "schema/Text.cpp: agreed to for 'strtod_l'"),
)
SHORT = (
    ("vtable for velkotx::Sequencer", "class velkotx::Sequencer"),
    ("typeinfo name for COtxInt", "class COtxInt"),
    ("f(std::__cxx11::basic_string<char, std::char_traits<char>, std::allocator<char> > const&)", "f(std::string const&)"),
    ("g(std::vector<COtxValue, std::allocator<COtxValue> > const&)", "g(std::vector<COtxValue> const&)"),
    ("TLS init function for otx::a", "otx::a"),
)


def check(condition, words):
    if not condition:
        sys.exit(words)


def main():
    for name, text, wanted in BREAKS:
        found = list(sources.complaints(name, text))
        check(any(wanted in complaint for complaint in found), f"not found: {wanted} in {text!r}, only {found}")
    for name, text in PASSES:
        found = list(sources.complaints(name, text))
        check(not found, f"complained about {text!r}: {found}")
    for symbol, wanted in CALLS:
        check(bool(locale_numbers.CALLS.search(symbol)) == wanted, f"{symbol}: {wanted} expected")
    for found, wanted in FOUND:
        lines = list(locale_numbers.complaints(found))
        check(any(line.startswith(wanted) for line in lines), f"not found: {wanted}, only {lines}")
    lines = list(locale_numbers.complaints([("schema/frame/schema/Text.cpp.o", "strtod_l")]))
    check(not any("schema/Text.cpp" in line for line in lines), f"complained about what is agreed to: {lines}")
    for symbol, wanted in SHORT:
        check(exports.short(symbol) == wanted, f"{exports.short(symbol)} instead of {wanted}")


main()
