"""The rule about allocations by a number: no number of a document, of a message or of a description is believed before it is
compared with what is there. All of them in the rooms that read such things are listed in bounded.py."""
import re

import bounded
import cpp_text

# The readers of documents and what is generated for them, the values that documents make, the descriptions of vehicles.
ROOMS = ("schema/frame/", "generated/", "libraries/value/src/", "contracts/otx/value/", "host/vehicle/")

# What a call is made on, before its name.
OBJECT = re.compile(r"(?:(?:\b[\w.>-]+|[)\]])\s*(?:\.|->)\s*)$")
SEQUENCE = r"std::(?:pmr::)?(?:vector|deque|list|forward_list|valarray)\b"
STRING = r"std::(?:pmr::)?(?:basic_string\b(?:<[^;(){}]*>)|(?:w|u8|u16|u32)?string\b)"
# The elements with which braces always hold the elements themselves.
PLAIN = re.compile(r"(?:std::)?(?:(?:unsigned|signed|char|wchar_t|char\d+_t|short|int|long|bool|float|double|byte|size_t|u?int\d+_t)\s*)+")
# Calls that allocate by a number, each with how many arguments it has then at the least.
CALLS = (
    (r"\b(?:reserve|rehash|resize(?:_and_overwrite)?)\s*(?=\()", 1),
    (r"\ballocate\w*\s*(?=\()", 1),
    (r"\boperator\s+new\s*(?:\[\s*\]\s*)?(?=\()", 1),
    (r"\b(?:malloc|calloc|realloc|reallocarray|alloca|aligned_alloc|memalign|posix_memalign|valloc|mmap)\s*(?=\()", 1),
    (r"\bmake_(?:unique|shared)(?:_for_overwrite)?\s*<[^;()]*?\[\s*\]\s*>\s*(?=\()", 1),
    (r"\b(?:assign|append)\s*(?=\()", 2),
    (r"\binsert\s*(?=\()", 3),
    # Constructors. Those of the tree's own bytes allocate by their first argument.
    (r"\bmake_(?:unique|shared)<(?:" + SEQUENCE + r"[^;()]*|(?:hex_binary|base64_binary|buffer))>\s*(?=\()", 1),
    (r"\bmake_(?:unique|shared)<" + STRING + r">\s*(?=\()", 2),
    (r"\b(?:hex_binary|base64_binary|buffer)(?: \w+)?(?=\()", 1),
)
NEW_ARRAY = re.compile(
    r"\bnew\b(?:\s*\((?:[^()]|\([^()]*\))*\))?\s*(?:::\s*)?\w[\w:\s]*(?:<[^;(){}]*>[\w:\s]*)?[\s*]*(?=\[)")


def is_looked_at(name):
    return name.startswith(ROOMS) and name.endswith(cpp_text.SUFFIXES)


def stem(name):
    return name.rsplit(".", 1)[0]


class Known:
    """The names that sequences and strings go by: what `using` calls them anywhere, and the members that a source or its header
    declares. `texts` are those of the rooms by the files' names."""

    def __init__(self, texts):
        codes = {name: cpp_text.without_comments(text) for name, text in texts.items() if is_looked_at(name)}
        # The name, with whether it is a string and whether its elements are plain.
        self.types = {}
        while True:
            found = dict(alias for code in codes.values() for alias in self._aliases(code))
            if found == self.types:
                break
            self.types = found
        self.members = {}
        declared = re.compile(rf"(?:{self._type()})(?:\s*<[^;(){{}}]*>)?\s+(?P<name>\w+)\s*(?=;|=|\{{)")
        for name, code in codes.items():
            members = self.members.setdefault(stem(name), {})
            members.update((match["name"], self.kind(match.group())) for match in declared.finditer(code))

    def _type(self):
        names = "|".join(sorted(map(re.escape, self.types)))
        return rf"{STRING}|{SEQUENCE}" + (rf"|\b(?:\w+::)*(?:{names})\b" if names else "")

    def _aliases(self, code):
        type_ = self._type()
        for match in re.finditer(rf"\busing\s+(?P<name>\w+)\s*=\s*(?P<type>(?:{type_})[^;(){{}}]*);", code):
            yield match["name"], self.kind(match["type"])
        for match in re.finditer(rf"\btypedef\s+(?P<type>(?:{type_})[^;(){{}}]*?)\s*\b(?P<name>\w+)\s*;", code):
            yield match["name"], self.kind(match["type"])

    def kind(self, spelled):
        if re.match(STRING, spelled):
            return True, True
        if match := re.match(SEQUENCE + r"\s*<\s*(?P<element>[^,>]*)", spelled):
            return False, PLAIN.fullmatch(match["element"].strip()) is not None
        name = re.match(r"(?:\w+::)*(\w+)", spelled)
        return self.types.get(name.group(1), (False, False)) if name else (False, False)

    def constructions(self, name, code):
        """(start, opening, kind) of what may construct one."""
        members = self.members.get(stem(name), {})
        for match in re.finditer(rf"(?<![\w:])(?:{self._type()})(?:\s*<[^;(){{}}]*>)?(?:\s*\w+)?\s*(?=[({{])", code):
            yield match.start(), match.end(), self.kind(match.group())
        for match in re.finditer(r"(?<=[,:])(?<!::)\s*(?P<name>\w+)\s*(?=[({])", code):
            if match["name"] in members:
                yield match.start("name"), match.end(), members[match["name"]]


def may_be_a_number(argument):
    """Not what is moved, nor a literal, of which only the quotes' blanks are left."""
    return argument != "" and not re.match(r"(?:std::)?(?:move\(|forward<)|\{|nullptr$", argument)


def is_counted(parts, opening, kind):
    is_string, is_plain = kind
    if opening == "(":
        return len(parts) >= (2 if is_string else 1) and (is_string or may_be_a_number(parts[0]))
    return not is_string and not is_plain and 1 <= len(parts) <= 2 and may_be_a_number(parts[0]) and ";" not in "".join(parts)


def is_declaration(head, parts):
    """Whether it only declares a function. A call on an object never does."""
    if re.search(r"(?:\.|->)\s*\w+\s*$", head):
        return False
    return any(cpp_text.is_parameter(part) or re.fullmatch(r"(?:std::)?size_t", part) for part in parts)


def calls_by_a_number(name, code, known):
    """(start, call) of each, the call as bounded.py writes it."""
    places = []
    for match in NEW_ARRAY.finditer(code):
        places.append((match.start(), cpp_text.arguments(code, match.end())[1]))
    for pattern, least in CALLS:
        for match in re.finditer(pattern, code):
            parts, end = cpp_text.arguments(code, match.end())
            before = OBJECT.search(code, max(0, match.start() - 200), match.start())
            start = before.start() if before else match.start()
            if len(parts) >= least and not is_declaration(code[start:match.end()], parts):
                places.append((start, end))
    for start, opening, kind in known.constructions(name, code):
        parts, end = cpp_text.arguments(code, opening)
        if is_counted(parts, code[opening], kind) and not is_declaration("", parts):
            places.append((start, end))
    for start, end in places:
        yield start, " ".join(code[start:end].split())


def sized_allocations(name, text, known):
    if not is_looked_at(name):
        return
    code = cpp_text.without_comments(text)
    found = sorted(set(calls_by_a_number(name, code, known)))
    # What is generated has one list for all.
    listed = bounded.SIZED.get("generated/" if name.startswith("generated/") else name, {})
    for start, call in found:
        if call not in listed:
            yield cpp_text.line_of(code, start), f"'{call}' isn't in the list of bounded allocations"
    if name.startswith("generated/"):
        return
    for call in listed:
        if call not in {call for _, call in found}:
            yield 1, f"'{call}' is in the list of bounded allocations, but not here"


def unneeded(texts):
    """The entries of the list for files that there aren't, and for what isn't generated."""
    generated = "".join(text for name, text in texts.items() if name.startswith("generated/"))
    for name, calls in bounded.SIZED.items():
        if name == "generated/":
            yield from (f"{name}: '{call}' is in the list of bounded allocations, but not here"
                        for call in calls if generated and call not in generated)
        elif name not in texts:
            yield f"{name}: is in the list of bounded allocations, but there is no such file"
