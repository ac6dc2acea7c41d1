#!/usr/bin/env python3
"""The tables of docs/modules have to be what the catalogue says: module_pages.py [--rebase] FOLDER.

A page holds the table of a module between `<!-- types of NAME -->` and `<!-- end -->`; README.md holds the list of all pages
between `<!-- all modules -->` and `<!-- end -->`. --rebase writes them anew, for review."""
import re
import sys
from pathlib import Path

from catalogue_tables import Catalogue

BLOCK = re.compile(r"(?P<begin><!-- (?:types of (?P<module>\w+)|(?P<index>all modules)) -->\n)(?P<text>.*?)(?P<end><!-- end -->)", re.S)

# Modules whose types are told elsewhere than in a table of docs/modules, and where.
ELSEWHERE = {}


def page_name(module):
    """The page of a module that no page has a table of."""
    words = re.sub(r"(?<=[a-z])(?=[A-Z])", "-", module.file).lower()
    return words + ".md"


def index(folder, known, modules, texts):
    lines = ["| Module | Page | Types that work | Types that end the run when it reaches them |", "|---|---|---|---|"]
    for module in modules:
        name = next((file for file, text in texts.items() if f"<!-- types of {module.file} -->" in text), page_name(module))
        page = f"[{name.removesuffix('.md')}]({name})" if (folder / name).exists() else "-"
        works, refused = known.totals(module)
        lines.append(f"| {module.file} | {page} | {works} | {refused} |")
    return lines


def missing(modules, texts):
    """What is wrong with the pages of modules: each has one, with its table, or an entry above, which is needed."""
    for module in modules:
        tables = [name for name, text in texts.items() for block in BLOCK.finditer(text) if block["module"] == module]
        if module in ELSEWHERE and tables:
            yield f"{module}: has a table in {tables[0]}, take it out of the list of those told elsewhere"
        elif module not in ELSEWHERE and len(tables) != 1:
            yield f"{module}: {len(tables)} tables `<!-- types of {module} -->` in docs/modules instead of one"
    for module in ELSEWHERE:
        if module not in modules:
            yield f"{module}: is in the list of those told elsewhere, but there is no such module"
    for name, text in texts.items():
        marks = len(re.findall(r"<!-- (?:types of|all modules)", text))
        if marks != len(BLOCK.findall(text)):
            yield f"{name}: a table without its end"
    if not any(block["index"] for block in BLOCK.finditer(texts.get("README.md", ""))):
        yield "README.md: has no list of all modules"


def main():
    rebase = "--rebase" in sys.argv
    root = Path(next(word for word in sys.argv[1:] if word != "--rebase"))
    known = Catalogue(root / "schema/catalogue")
    modules = sorted(known.modules, key=lambda module: (module.file != "core", module.file.lower()))
    by_name = {module.file: module for module in modules}
    folder = root / "docs/modules"
    texts = {path.name: path.read_text(encoding="utf-8") for path in sorted(folder.glob("*.md"))}
    stale = []
    tables = 0
    for name, text in texts.items():

        def fresh(match):
            lines = index(folder, known, modules, texts) if match["index"] else known.table(by_name[match["module"]])
            return match["begin"] + "\n".join(lines) + "\n" + match["end"]

        tables += len(BLOCK.findall(text))
        wanted = BLOCK.sub(fresh, text)
        if wanted != text:
            stale.append(name)
            if rebase:
                (folder / name).write_text(wanted, encoding="utf-8")
    if wrong := list(missing(list(by_name), texts)):
        sys.exit("\n".join(f"docs/modules: {line}" for line in wrong))
    if tables < 10:
        sys.exit(f"only {tables} tables under {folder}: nothing was looked at")
    if stale and not rebase:
        sys.exit(f"docs/modules: {', '.join(stale)} isn't what the catalogue says; `ninja rebase-docs` rewrites the tables")


if __name__ == "__main__":
    main()
