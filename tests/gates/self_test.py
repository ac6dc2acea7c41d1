#!/usr/bin/env python3
"""Each gate has to find what it is for, and to pass over what only looks alike."""
import sys
from pathlib import Path

import allocations
import exports
import locale_numbers
import source_cases
import sources

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "docs"))
import module_pages  # noqa: E402  (the gate of the modules' pages stands beside the documentation's others)

CALLS = (
    ("std::ostream& std::ostream::_M_insert<double>(double)", True),
    ("std::ostream::operator<<(int)", True),
    ("std::istream& std::istream::_M_extract<long>(long&)", True),
    ("strtod", True),
    ("__isoc99_sscanf", True),
    ("std::ostream::put(char)", False),
    ("std::to_chars(char*, char*, double)", False),
    ("my::printf_like", False),
    ("printf_like", False),
    *((name, True) for name in (
        "atoi", "strtoumax", "__isoc23_strtoll", "__strtod_internal", "wcstod", "wcstoull", "strfromf", "asprintf", "dprintf", "swprintf",
        "vfwprintf", "obstack_printf", "__snprintf_chk", "__vasprintf_chk", "__swprintf_chk", "strtod_l", "gcvt", "strfmon",
        "std::basic_ostream<char, std::char_traits<char> >::operator<<(int)",
        "std::basic_ostream<wchar_t, std::char_traits<wchar_t> >::operator<<(double)",
        "std::basic_ostream<wchar_t, std::char_traits<wchar_t> >& std::basic_ostream<wchar_t, std::char_traits<wchar_t> >::"
        "_M_insert<double>(double)",
        "std::basic_istream<wchar_t, std::char_traits<wchar_t> >& std::basic_istream<wchar_t, std::char_traits<wchar_t> >::"
        "_M_extract<long>(long&)",
        "std::num_put<char, std::ostreambuf_iterator<char, std::char_traits<char> > > const& std::use_facet<std::num_put<char, "
        "std::ostreambuf_iterator<char, std::char_traits<char> > > >(std::locale const&)",
        "std::num_get<char, Own>::do_get(Own, Own, std::ios_base&, std::_Ios_Iostate&, double&) const",
        "std::__cxx11::numpunct<char>::numpunct(unsigned long)",
    )),
)
SETS = (
    *((name, True) for name in (
        "setlocale", "uselocale", "newlocale", "localeconv", "nl_langinfo", "std::locale::global(std::locale const&)",
        "std::locale::locale(char const*)", "std::locale::locale(std::locale const&, char const*, int)",
        "std::basic_ios<char, std::char_traits<char> >::imbue(std::locale const&)", "std::ios_base::imbue(std::locale const&)",
    )),
    ("std::locale::locale()", False),
    ("std::locale::locale(std::locale const&)", False),
    ("std::locale::classic()", False),
    ("std::basic_streambuf<char, std::char_traits<char> >::imbue(std::locale const&)", False),
)
# Whole lists of calls, and what is wrong with them besides what the others' agreements miss.
FOUND = (
    ([("src/A.cpp.o", "strtod")], "src/A.cpp.o: strtod"),
    ([("src/OtherText.cpp.o", "strtod_l")], "src/OtherText.cpp.o: strtod_l"),
    ([("schema/frame/schema/Text.cpp.o", "strtod")], "schema/frame/schema/Text.cpp.o: strtod"),
    ([("host/program/Options.cpp.o", "strtod")], "host/program/Options.cpp.o: strtod"),
    ([("host/program/Options.cpp.o", "atoi")], "host/program/Options.cpp.o: atoi"),
    ([("host/program/Options.cpp.o", "setlocale")], "host/program/Options.cpp.o: setlocale"),
    ([("host/pages/ManPage.cpp.o", "strtold")], "host/pages/ManPage.cpp.o: strtold"),
    ([], "schema/Text.cpp: agreed to for '^strtod_l$'"),
)
SHORT = (
    ("vtable for velkotx::Sequencer", "class velkotx::Sequencer"),
    ("typeinfo name for COtxInt", "class COtxInt"),
    ("f(std::__cxx11::basic_string<char, std::char_traits<char>, std::allocator<char> > const&)", "f(std::string const&)"),
    ("g(std::vector<COtxValue, std::allocator<COtxValue> > const&)", "g(std::vector<COtxValue> const&)"),
    ("TLS init function for otx::a", "otx::a"),
)
INDEX = "<!-- all modules -->\n<!-- end -->\n"
PAGES = (
    ({"README.md": INDEX, "a.md": "<!-- types of A -->\n<!-- end -->"}, None),
    ({"README.md": INDEX}, "A: 0 tables"),
    ({"README.md": INDEX, "a.md": "# A\n\nA page that has no table.\n"}, "A: 0 tables"),
    ({"README.md": INDEX, "a.md": "<!-- types of A -->\n<!-- end -->\n" * 2}, "A: 2 tables"),
    ({"README.md": INDEX, "a.md": "<!-- types of A -->\n"}, "a.md: a table without its end"),
    ({"a.md": "<!-- types of A -->\n<!-- end -->"}, "README.md: has no list"),
)


def check(condition, words):
    if not condition:
        sys.exit(words)


def check_sources():
    for name, text, wanted in source_cases.BREAKS:
        found = list(sources.complaints(name, text))
        check(any(wanted in complaint for complaint in found), f"not found: {wanted} in {name}, {text!r}, only {found}")
    for name, text in source_cases.PASSES:
        found = list(sources.complaints(name, text))
        check(not found, f"complained about {name}, {text!r}: {found}")


def check_allocations():
    """What a header or another file says of a name, and entries that nothing needs."""
    header, source = "host/vehicle/A.h", "host/vehicle/A.cpp"
    texts = {header: "struct A { A(); Bytes buffer_; };\n", "host/vehicle/B.h": "using Bytes = std::vector<char>;\n",
             source: "// Role.\nA::A() : buffer_(count) { f(Bytes(size)); }\n"}
    found = list(sources.complaints(source, texts[source], allocations.Known(texts)))
    for call in ("buffer_(count)", "Bytes(size)"):
        check(any(f"'{call}' isn't in" in complaint for complaint in found), f"not found: {call}, only {found}")
    lines = list(allocations.unneeded({"generated/a.h": "int a;"}))
    for wanted in ("schema/frame/schema/Name.cpp: is in the list", "generated/: 'order_(other.order_)' is in the list"):
        check(any(line.startswith(wanted) for line in lines), f"not found: {wanted}, only {lines}")


def check_locale():
    for cases, pattern in ((CALLS, locale_numbers.CALLS), (SETS, locale_numbers.SETS)):
        for symbol, wanted in cases:
            check(bool(pattern.search(symbol)) == wanted, f"{symbol}: {wanted} expected")
    for found, wanted in FOUND:
        lines = list(locale_numbers.complaints(found))
        check(any(line.startswith(wanted) for line in lines), f"not found: {wanted}, only {lines}")
    for agreed in (("schema/frame/schema/Text.cpp.o", "strtod_l"), ("host/program/Options.cpp.o", "strtold")):
        lines = list(locale_numbers.complaints([agreed]))
        check(not any(line.startswith(agreed[0]) for line in lines), f"complained about what is agreed to: {lines}")
    lines = list(locale_numbers.complaints([("schema/frame/schema/Text.cpp.o", "strtod_l")]))
    check(not any("schema/Text.cpp: agreed to for '^strtod" in line for line in lines), f"complained about what is needed: {lines}")


def check_pages():
    for texts, wanted in PAGES:
        lines = list(module_pages.missing(["A"], texts))
        check(not lines if wanted is None else any(line.startswith(wanted) for line in lines), f"{wanted} expected, not {lines}")


def main():
    check_sources()
    check_allocations()
    check_locale()
    check_pages()
    for symbol, wanted in SHORT:
        check(exports.short(symbol) == wanted, f"{exports.short(symbol)} instead of {wanted}")


main()
