#!/usr/bin/env python3
"""Looks at the text of all files of ours, and of what a build folder holds generated: sources.py FOLDER [BUILD]. Each rule is a
function that yields (line, complaint)."""
import re
import subprocess
import sys
from pathlib import Path

import allocations
import cpp_text
import locale_names
import public_headers

LONGEST = 600
# Data rather than code: the catalogue has one file a module, and the core is a large one.
MAY_BE_LONG = {"schema/catalogue/core.otxs"}

# Calls for what depends on a locale: the file, the call, and why it does no harm.
AGREED_CALLS = {
    ("schema/frame/schema/Text.cpp", "strtod_l("): "told the C locale",
    ("host/program/debug/LineReader.cpp", "setlocale("): "the program's terminal, characters only",
    ("schema/frame/schema/Text.cpp", "newlocale("): "the C locale",
}
# The only file of the library that writes to the process's own streams, and what it says for that.
WRITES = {("libraries/log/src/LineFile.cpp", "STDERR_FILENO"): "where the log's lines go until the host has another place"}

# What a reader from outside can't look up, or what holds on one machine only.
WORDS = (
    (r"\b[Ss]pecs?\b", "cite the public standard instead"),
    (r"\bthe specification (?:says|wants|requires|demands)", "say the rule itself"),
    (r"(?<!Schema )\bPart \d", "cite the public standard instead"),
    (r"\b[Ii]ssue #?\d+", "say what it is about"),
    (r"\b[Ss]tage \d+", "say what it is about"),
    (r"(?<![\w.])/(?:work|root|home)/\w", "a path of one machine"),
    (r"(?<![\w.$}])/tmp/\w", "a path of one machine"),
    (r"\b(?:TODO|FIXME|XXX)\b", "do it, or say what holds"),
)
ANY_WORD = re.compile("|".join(pattern for pattern, _ in WORDS))
WORDS_MAY_STAND_IN = {"tests/gates/sources.py", "tests/gates/source_cases.py"}

CODE = cpp_text.SUFFIXES


def is_test(name):
    return name.startswith(("tests/", "fuzz/", "bench/")) or "/tests/" in name


def role_comment(name, text):
    lines = text.splitlines()
    first = lines[0] if lines else ""
    second = lines[1] if len(lines) > 1 else ""
    if name.endswith(CODE):
        good = first.startswith(("// ", "/* "))
    elif name.endswith(".map"):
        good = first.startswith("/* ")
    else:
        start = second if first.startswith("#!") else first
        good = start.startswith(("# ", '"""'))
    if not good:
        yield 1, "the file doesn't begin with a comment that says what it is"


def length(name, text):
    count = len(text.splitlines())
    if count > LONGEST and name not in MAY_BE_LONG:
        yield LONGEST, f"{count} lines; above {LONGEST} a file has two subjects"


def words(name, text):
    if name in WORDS_MAY_STAND_IN or not ANY_WORD.search(text):
        return
    for number, line in enumerate(text.splitlines(), 1):
        for pattern, advice in WORDS:
            if match := re.search(pattern, line):
                yield number, f"'{match.group()}': {advice}"


def catch_all(name, text):
    """A thread that is cancelled unwinds with an exception that nobody may swallow."""
    if not name.endswith(CODE):
        return
    code = cpp_text.without_comments(text)
    for match in re.finditer(r"\bcatch\s*\(\s*\.\.\.\s*\)", code):
        if not cpp_text.passes_forced_unwind(code[:match.start()]):
            yield cpp_text.line_of(code, match.start()), "catch (...) without the clause for abi::__forced_unwind before it"
    for match in re.finditer(r"#\s*define\s+OTX_PASS_FORCED_UNWIND\b((?:\\\n|[^\n])*)", code):
        if not cpp_text.macro_passes_forced_unwind(match.group(1)):
            yield cpp_text.line_of(code, match.start()), "OTX_PASS_FORCED_UNWIND has to be the clause for abi::__forced_unwind"


def unless_agreed(agreed, name, found, code, advice):
    """Complaints about the calls that nobody agreed to, and about agreements of this file that no call needs."""
    unused = {call for where, call in agreed if where == name}
    for match in found:
        call = "".join(match.group().split())
        unused.discard(call)
        if (name, call) not in agreed:
            yield cpp_text.line_of(code, match.start()), f"{call}: {advice}"
    for call in sorted(unused):
        yield 1, f"{call}: agreed to, but not here: take it out of the list"


LOCALE_CALLS = re.compile(
    rf"\bstd::(?:sto(?:i|l|ll|ul|ull|f|d|ld)|setprecision|(?:put|get)_money|{locale_names.FACETS})\b"
    rf"|\b{locale_names.FUNCTIONS}\s*\(|\b(?:setlocale|uselocale|newlocale|localeconv)\s*\(|\bstd::locale::global\b")


def locale_calls(name, text):
    """What only the objects show (locale_numbers.py) isn't repeated here. This names the line, and looks at each file of ours,
    where an object also holds what others' headers brought along."""
    if not name.endswith(CODE) or is_test(name):
        return
    code = cpp_text.without_comments(text)
    yield from unless_agreed(AGREED_CALLS, name, LOCALE_CALLS.finditer(code), code, "use std::to_chars or std::from_chars")


PRINTS = re.compile(
    r"\bstd::w?(?:cout|cerr|clog)\b|\bSTD(?:OUT|ERR)_FILENO\b|\bstd(?:out|err)\b"
    r"|\b(?:f?puts|f?putws|f?putw?c|putw?char|fwrite)(?:_unlocked)?\s*\(|\bv?[fd]?w?printf\s*\(|\b(?:perror|psignal|psiginfo)\s*\("
    r"|(?<![.>])\b(?:p?writev?\d?|dup)\s*\(\s*[12]\s*[,)]|\bdup[23]\s*\([^();]*,\s*[12]\s*[,)]|\bstd::print(?:ln)?\s*\(")
DEVICES = re.compile(r"\"/(?:dev/(?:std(?:out|err)|tty|fd/[12])|proc/self/fd/[12])\b")


def printing(name, text):
    """The library prints nothing; only the log writes, to standard error unless the host has another place for it."""
    if is_test(name) or not name.startswith(("include/", "contracts/", "libraries/", "schema/frame/", "src/", "generated/")):
        return
    if not name.endswith(CODE):
        return
    code = cpp_text.without_comments(text)
    yield from unless_agreed(WRITES, name, PRINTS.finditer(code), code, "the library prints nothing")
    for match in DEVICES.finditer(text):
        yield cpp_text.line_of(text, match.start()), f"{match.group()}: the library prints nothing"


RULES_OF_TEXTS = (words,)
RULES_OF_BEHAVIOUR = (catch_all, locale_calls, printing)
RULES_OF_CODE = (role_comment, length, public_headers.includes) + RULES_OF_BEHAVIOUR
OTHER_CODE = re.compile(r"\.(py|sh|cmake|otxs|map)$|(^|/)(CMakeLists\.txt|Makefile)$")


def files(folder):
    """What git knows, or in an unpacked archive all that isn't built."""
    listed = subprocess.run(["git", "-C", folder, "ls-files", "-z", "--cached", "--others", "--exclude-standard"],
                            capture_output=True, text=True, check=False)
    if listed.returncode == 0:
        return sorted(name for name in listed.stdout.split("\0") if name and (folder / name).is_file())
    return sorted(str(path.relative_to(folder)) for path in folder.rglob("*")
                  if path.is_file() and not path.relative_to(folder).parts[0].startswith(("build", ".")))


def generated(build):
    """The text of each file that the generator wrote, by its name behind the build folder."""
    texts = {str(path.relative_to(build)): path.read_text(encoding="utf-8")
             for path in sorted((build / "generated").rglob("*")) if path.name.endswith(CODE)}
    if len(texts) < 50:
        sys.exit(f"only {len(texts)} generated files under {build}: nothing was looked at")
    return texts


def complaints(name, text, known=None):
    """What is wrong with a file. `known` are the names of sequences and strings in all files, if there are more than this one."""
    if name.startswith("generated/"):
        rules = RULES_OF_BEHAVIOUR
    elif name.endswith(CODE) or OTHER_CODE.search(name):
        rules = RULES_OF_TEXTS + RULES_OF_CODE
    else:
        rules = RULES_OF_TEXTS
    for rule in rules:
        for line, words_of_rule in rule(name, text):
            yield f"{name}:{line}: {words_of_rule}"
    for line, words_of_rule in allocations.sized_allocations(name, text, known or allocations.Known({name: text})):
        yield f"{name}:{line}: {words_of_rule}"


def main():
    folder = Path(sys.argv[1])
    names = files(folder)
    if len(names) < 500:
        sys.exit(f"only {len(names)} files under {folder}: nothing was looked at")
    texts = generated(Path(sys.argv[2])) if len(sys.argv) > 2 else {}
    for name in names:
        if name == "LICENSE" or name.startswith("fuzz/corpus"):
            continue
        try:
            texts[name] = (folder / name).read_text(encoding="utf-8")
        except UnicodeDecodeError:
            pass  # samples that are meant to be no text
    known = allocations.Known(texts)
    found = [complaint for name, text in texts.items() for complaint in complaints(name, text, known)]
    found.extend(allocations.unneeded(texts))
    found.extend(f"{name}: {call} is agreed to, but there is no such file"
                 for name, call in (*AGREED_CALLS, *WRITES) if name not in texts)
    for line in found:
        print(line)
    if found:
        sys.exit(f"{len(found)} complaints")


if __name__ == "__main__":
    main()
