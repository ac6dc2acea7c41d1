#!/usr/bin/env python3
"""Each block of C++ or CMake in the documentation has to stand in a file of the examples, line by line: snippets.py FOLDER.

Blocks are those between ```cpp or ```cmake and ```; what indents all of a block doesn't count."""
import re
import sys
import textwrap
from pathlib import Path

BLOCK = re.compile(r"^ *```(?:cpp|cmake)\n(.*?)^ *```$", re.M | re.S)


def stands_in(block, text):
    wanted = [line.rstrip() for line in textwrap.dedent(block).strip("\n").split("\n")]
    lines = text.split("\n")
    for first in range(len(lines) - len(wanted) + 1):
        there = textwrap.dedent("\n".join(lines[first:first + len(wanted)])).split("\n")
        if [line.rstrip() for line in there] == wanted:
            return True
    return False


def main():
    root = Path(sys.argv[1])
    sources = {path: path.read_text(encoding="utf-8", errors="replace")
               for folder in ("examples", "src", "schema/catalogue", "tests/documents")
               for path in (root / folder).rglob("*")
               if (path.suffix in (".cpp", ".h", ".otxs") or path.name == "CMakeLists.txt") and "build" not in path.parts}
    count = 0
    missing = []
    for page in [*sorted((root / "docs").rglob("*.md")), root / "README.md", root / "CONTRIBUTING.md"]:
        text = page.read_text(encoding="utf-8")
        for match in BLOCK.finditer(text):
            count += 1
            if not any(stands_in(match.group(1), source) for source in sources.values()):
                line = text.count("\n", 0, match.start()) + 1
                missing.append(f"{page.relative_to(root)}:{line}: this code stands in no file of ours")
    if count < 5:
        sys.exit(f"only {count} blocks: nothing was looked at")
    if missing:
        sys.exit("\n".join(missing))


main()
