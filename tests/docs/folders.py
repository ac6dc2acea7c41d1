#!/usr/bin/env python3
"""The READMEs of src and tests tell of each of their folders: folders.py FOLDER."""
import re
import sys
from pathlib import Path

FEWEST = 10


def folders(path):
    there = {entry.name for entry in path.iterdir() if entry.is_dir() and not entry.name.startswith(("_", "."))}
    if len(there) < FEWEST:
        sys.exit(f"only {len(there)} folders in {path}: nothing was looked at")
    return there


def main():
    root = Path(sys.argv[1])
    src = (root / "src/README.md").read_text(encoding="utf-8")
    rows = {name for row in re.findall(r"^\|([^|]*)\|", src, re.M) for name in re.findall(r"`(\w+)`", row)}
    tests = set(re.findall(r"`(\w+)/`", (root / "tests/README.md").read_text(encoding="utf-8")))
    wrong = [f"src/README.md: no line for {name}" for name in sorted(folders(root / "src") - rows)]
    wrong += [f"src/README.md: there is no {name}" for name in sorted(rows - folders(root / "src"))]
    wrong += [f"tests/README.md: nothing about {name}/" for name in sorted(folders(root / "tests") - tests)]
    if wrong:
        sys.exit("\n".join(wrong))


main()
