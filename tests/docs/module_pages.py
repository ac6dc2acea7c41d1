#!/usr/bin/env python3
"""The tables of docs/modules have to be what the catalogue says: module_pages.py [--rebase] FOLDER.

A page holds the table of a module between `<!-- types of NAME -->` and `<!-- end -->`; README.md holds the list of all pages
between `<!-- all modules -->` and `<!-- end -->`. --rebase writes them anew, for review."""
import re
import sys
from pathlib import Path

from catalogue_tables import Catalogue

BLOCK = re.compile(r"(?P<begin><!-- (?:types of (?P<module>\w+)|(?P<index>all modules)) -->\n)(?P<text>.*?)(?P<end><!-- end -->)", re.S)


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
    if tables < 10:
        sys.exit(f"only {tables} tables under {folder}: nothing was looked at")
    if stale and not rebase:
        sys.exit(f"docs/modules: {', '.join(stale)} isn't what the catalogue says; `ninja rebase-docs` rewrites the tables")


main()
