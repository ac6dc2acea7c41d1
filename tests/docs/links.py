#!/usr/bin/env python3
"""Every relative link of the documentation leads to a file, and to a heading where it names one: links.py FOLDER."""
import re
import sys
from pathlib import Path

LINK = re.compile(r"(?<!!)\[[^\]\n]*\]\(([^)\s]+)\)")


def prose(text):
    """Without code, in which brackets mean something else."""
    text = re.sub(r"^```.*?^```", "", text, flags=re.M | re.S)
    text = re.sub(r"^    .*$", "", text, flags=re.M)
    return re.sub(r"`[^`\n]*`", "", text)


def headings(text):
    """The names under which a heading can be linked to."""
    found = re.findall(r"^#+ (.+)$", re.sub(r"^```.*?^```", "", text, flags=re.M | re.S), re.M)
    return {re.sub(r"[^\w\- ]", "", heading.lower()).strip().replace(" ", "-") for heading in found}


def main():
    root = Path(sys.argv[1]).resolve()
    pages = [path for path in root.rglob("*.md") if not path.relative_to(root).parts[0].startswith(("build", "."))]
    links = 0
    broken = []
    for page in sorted(pages):
        for target in LINK.findall(prose(page.read_text(encoding="utf-8"))):
            if re.match(r"\w+:", target):
                continue
            links += 1
            name, _, heading = target.partition("#")
            file = (page.parent / name).resolve() if name else page
            if not file.exists():
                broken.append(f"{page.relative_to(root)}: {target}: there is no such file")
            elif heading and file.suffix == ".md" and heading not in headings(file.read_text(encoding="utf-8")):
                broken.append(f"{page.relative_to(root)}: {target}: there is no such heading")
    if links < 50:
        sys.exit(f"only {links} links under {root}: nothing was looked at")
    if broken:
        sys.exit("\n".join(broken))


main()
