#!/usr/bin/env python3
"""Looks at the text of all files of ours: sources.py FOLDER. Each rule is a function that yields (line, complaint)."""
import re
import subprocess
import sys
from pathlib import Path

import cpp_text

LONGEST = 600
# Data rather than code: the catalogue has one file a module, and the core is a large one.
MAY_BE_LONG = {"schema/catalogue/core.otxs"}

# Allocations by a number in the readers of documents: the file, the call without what literals hold, and what bounds the number.
SIZED = {
    ("schema/frame/schema/CompiledForm.cpp", "bytes.reserve(initialSize)"): "a constant",
    ("schema/frame/schema/CompiledForm.cpp", "bytes.assign(std::istreambuf_iterator<char>(file.rdbuf()), {})"): "what the file has",
    ("schema/frame/schema/Name.cpp", "new Name[remembered]"): "a constant",
    ("schema/frame/schema/Arena.cpp", "new std::byte[size]"): "the caller's size of a block",
    ("schema/frame/schema/Registry.cpp", "names.reserve(maps().byName.size())"): "the types that there are",
    ("schema/frame/schema/Suggestion.cpp", "std::vector<std::size_t> row(other.size() + 1)"): "a name of the catalogue",
    ("schema/frame/schema/Text.cpp", "std::string narrowed(length, )"): "counted in the text that is there",
    ("schema/frame/schema/Text.cpp", "make_unique<hex_binary>(digits.size() / 2)"): "the digits that are there",
    ("schema/frame/schema/Text.cpp", "make_unique<hex_binary>(*readHexBinary(narrow(text)), f, owner)"): "a copy",
    ("schema/frame/schema/Holders.h", "hex_binary(bytes.data(), bytes.size())"): "a view of bytes that are there",
    ("schema/frame/schema/FieldPrinter.cpp", "std::string blanks(width > text.size() ? width - text.size() : 0, )"): "constants",
    ("schema/frame/schema/FieldPrinter.cpp", "std::string(bytesColumn, )"): "a constant",
    ("schema/frame/schema/FieldPrinter.cpp", "std::string(2 * members_.size(), )"): "the levels that the reader is in",
    ("schema/frame/schema/FieldPrinter.cpp", ").assign(name.begin(), name.end())"): "a name of the catalogue",
    ("schema/frame/schema/CdrMemory.h", "make_unique_for_overwrite<char[]>(size)"): "for writing: what the document has",
    ("schema/frame/schema/CdrMemory.h", "malloc(size)"): "the same",
    ("schema/frame/schema/CdrMemory.h", "calloc(count * size, initialValue)"): "the same",
}

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
WORDS_MAY_STAND_IN = {"tests/gates/sources.py", "tests/gates/self_test.py"}

CODE = (".cpp", ".h")


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
    if name in WORDS_MAY_STAND_IN:
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


def locale_calls(name, text):
    """What the objects show (locale_numbers.py) isn't repeated here, but for the standard's own functions, to name the line."""
    if not name.endswith(CODE) or is_test(name):
        return
    code = cpp_text.without_comments(text)
    for match in re.finditer(r"\bstd::(?:sto(?:i|l|ll|ul|ull|f|d|ld)|setprecision)\b|\b(?:sscanf|snprintf|sprintf|printf)\s*\(", code):
        yield cpp_text.line_of(code, match.start()), f"{match.group()}: use std::to_chars or std::from_chars"


OBJECT = r"(?:\b[\w.>-]+|[)\]])(?:\.|->)"
# Calls that allocate by a number, each with how many arguments it has then at the least.
SIZED_CALLS = (
    (OBJECT + r"(?:reserve|resize(?:_and_overwrite)?)(?=\()", 1),
    (r"\b(?:malloc|calloc|realloc|alloca|aligned_alloc)(?=\()", 1),
    (r"\bmake_(?:unique|shared)(?:_for_overwrite)?<[^;()]*?\[\]>(?=\()", 1),
    (OBJECT + r"(?:assign|append)(?=\()", 2),
    (OBJECT + r"insert(?=\()", 3),
    # Constructors. Those of the tree's own bytes allocate by their first argument.
    (r"\bstd::(?:vector|deque|list|forward_list|valarray)\b(?:<[^;()]*>)?(?:[ ]*\w+)?(?=\()", 1),
    (r"\bstd::(?:basic_string\b<[^;()]*>|(?:w|u8|u16|u32)?string\b)(?:[ ]*\w+)?(?=\()", 2),
    (r"\bmake_(?:unique|shared)<(?:std::(?:vector|deque|list|valarray)\b[^;()]*|(?:hex_binary|base64_binary|buffer))>(?=\()", 1),
    (r"\bmake_(?:unique|shared)<std::(?:basic_string\b[^;()]*|\w*string)>(?=\()", 2),
    (r"\b(?:hex_binary|base64_binary|buffer)(?: \w+)?(?=\()", 1),
)


def calls_by_a_number(code):
    for match in re.finditer(r"\bnew [\w:]+\[[^\]]*\]", code):
        yield match.start(), match.group()
    for pattern, least in SIZED_CALLS:
        for match in re.finditer(pattern, code):
            arguments, end = cpp_text.arguments(code, match.end())
            if len(arguments) >= least and not any(map(cpp_text.is_parameter, arguments)):
                yield match.start(), " ".join(code[match.start():end].split())


def sized_allocations(name, text):
    """No number of a document is believed before it is compared with the bytes that are there: all allocations by a number are
    listed above."""
    if not name.startswith("schema/frame/") or not name.endswith(CODE):
        return
    code = cpp_text.without_comments(text)
    found = sorted(set(calls_by_a_number(code)))
    for start, call in found:
        if (name, call) not in SIZED:
            yield cpp_text.line_of(code, start), f"'{call}' isn't in the list of bounded allocations"
    for where, call in SIZED:
        if where == name and call not in {call for _, call in found}:
            yield 1, f"'{call}' is in the list of bounded allocations, but not here"


def printing(name, text):
    """The library prints nothing; only the log writes, to standard error unless the host has another place for it."""
    if is_test(name) or not name.startswith(("include/", "contracts/", "libraries/", "schema/frame/", "src/")):
        return
    if not name.endswith(CODE) or name.startswith("libraries/log/src/"):
        return
    code = cpp_text.without_comments(text)
    for match in re.finditer(r"\bstd::(?:cout|cerr|clog)\b|\b(?:puts|fputs|fprintf|perror)\s*\(|\bSTD(?:OUT|ERR)_FILENO\b", code):
        yield cpp_text.line_of(code, match.start()), f"{match.group()}: the library prints nothing"


RULES_OF_TEXTS = (words,)
RULES_OF_CODE = (role_comment, length, catch_all, locale_calls, sized_allocations, printing)
CODE_NAMES = re.compile(r"\.(cpp|h|py|sh|cmake|otxs|map)$|(^|/)(CMakeLists\.txt|Makefile)$")


def files(folder):
    """What git knows, or in an unpacked archive all that isn't built."""
    listed = subprocess.run(["git", "-C", folder, "ls-files", "-z", "--cached", "--others", "--exclude-standard"],
                            capture_output=True, text=True, check=False)
    if listed.returncode == 0:
        return sorted(name for name in listed.stdout.split("\0") if name and (folder / name).is_file())
    return sorted(str(path.relative_to(folder)) for path in folder.rglob("*")
                  if path.is_file() and not path.relative_to(folder).parts[0].startswith(("build", ".")))


def complaints(name, text):
    rules = RULES_OF_TEXTS + (RULES_OF_CODE if CODE_NAMES.search(name) else ())
    for rule in rules:
        for line, words_of_rule in rule(name, text):
            yield f"{name}:{line}: {words_of_rule}"


def main():
    folder = Path(sys.argv[1])
    names = files(folder)
    if len(names) < 500:
        sys.exit(f"only {len(names)} files under {folder}: nothing was looked at")
    found = []
    for name in names:
        if name == "LICENSE" or name.startswith("fuzz/corpus"):
            continue
        try:
            text = (folder / name).read_text(encoding="utf-8")
        except UnicodeDecodeError:
            continue  # samples that are meant to be no text
        found.extend(complaints(name, text))
    for line in found:
        print(line)
    if found:
        sys.exit(f"{len(found)} complaints")


if __name__ == "__main__":
    main()
