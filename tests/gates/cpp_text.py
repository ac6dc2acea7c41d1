"""What the gates need to know of the text of C++."""
import functools
import re

SUFFIXES = (".cpp", ".h", ".hpp", ".hh", ".hxx", ".inl", ".ipp", ".tpp", ".cc", ".cxx", ".c")
TOKENS = re.compile(
    r'R"(?P<mark>[^()\s]{0,16})\(.*?\)(?P=mark)"|"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])+\'|//[^\n]*|/\*.*?\*/', re.S)


@functools.lru_cache(maxsize=4096)
def without_comments(text):
    """The code with comments and the contents of literals blanked out, each character at its place."""

    def blank(match):
        return re.sub(r"[^\n]", " ", match.group())

    # A digit separator isn't the beginning of a literal.
    return TOKENS.sub(blank, re.sub(r"(?<=\d)'(?=\d)", " ", text))


def line_of(text, position):
    return text.count("\n", 0, position) + 1


def arguments(code, opening):
    """The arguments of the call whose parenthesis or brace stands at `opening`, and the place behind its end."""
    parts, depth, start = [], 0, opening + 1
    for index in range(opening, len(code)):
        if code[index] in "([{":
            depth += 1
        elif code[index] in ")]}":
            depth -= 1
            if depth == 0:
                last = code[start:index].strip()
                return parts + [last] if parts or last else [], index + 1
        elif code[index] == "," and depth == 1:
            parts.append(code[start:index].strip())
            start = index + 1
    return parts, len(code)


def is_parameter(text):
    """Whether it declares a parameter, as far as it can be told from an expression: `T name`, `T& name = x`, `T&`."""
    return re.search(r"(?:\w|(?<=[\w>])>)[&*]* +\w+\s*(?:=|$)|[&*]$", text) is not None


def opening_brace(text, closing):
    """The place of the brace that the one at `closing` ends."""
    depth = 0
    for index in range(closing, -1, -1):
        if text[index] == "}":
            depth += 1
        elif text[index] == "{":
            depth -= 1
            if depth == 0:
                return index
    return -1


FORCED_UNWIND = re.compile(r"(?:const\s+)?(?:::\s*)?abi\s*::\s*__forced_unwind(?:\s+const)?\s*&\s*\w*")


def is_rethrow(block):
    return re.fullmatch(r"\{\s*throw\s*;\s*\}", block) is not None


def passes_forced_unwind(before):
    """Whether one of the clauses before a catch of everything lets the forced unwinding of a thread pass."""
    while True:
        before = before.rstrip()
        if re.search(r"\bOTX_PASS_FORCED_UNWIND$", before):
            return True
        if not before.endswith("}"):
            return False
        opening = opening_brace(before, len(before) - 1)
        head = before[:opening].rstrip()
        clause = re.search(r"\bcatch\s*\(([^()]*)\)$", head)
        if clause is None:
            return False
        if FORCED_UNWIND.fullmatch(clause.group(1).strip()):
            return is_rethrow(before[opening:])
        before = head[:clause.start()]


def macro_passes_forced_unwind(body):
    """Whether what stands behind `#define OTX_PASS_FORCED_UNWIND` is that clause and nothing else."""
    clause = re.fullmatch(r"\s*catch\s*\(([^()]*)\)\s*(\{.*\})\s*", body.replace("\\\n", " "))
    return clause is not None and bool(FORCED_UNWIND.fullmatch(clause.group(1).strip())) and is_rethrow(clause.group(2))
