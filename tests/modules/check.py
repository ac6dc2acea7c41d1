"""Compares the types in the module documents with the objects that the program shows in their compiled form.

    check.py VELKOTX CATALOGUE DOCUMENTS
"""

import pathlib
import re
import subprocess
import sys


def load_catalogue(folder):
    sys.path.insert(0, str(folder.resolve().parent / "generator"))
    from catalogue import Catalogue

    return Catalogue(folder)


def short(space, name):
    """A type as the dump spells it: the core's without a module."""
    last = space.rsplit("/", 1)[1]
    return name if re.fullmatch(r"[0-9.]+", last) else f"{last}:{name}"


def dumped(program, document):
    """The types of the objects in a document; lines of objects have no offset."""
    compiled = subprocess.run([program, "compile", document, "-o", "-"], check=True, capture_output=True, timeout=60)
    shown = subprocess.run([program, "dump", "-"], input=compiled.stdout, check=True, capture_output=True, timeout=60)
    lines = [line for line in shown.stdout.decode().splitlines() if line.startswith(" " * 10)]
    return {line.split()[-1] for line in lines}


def main(arguments):
    program, catalogue, documents = arguments[0], load_catalogue(pathlib.Path(arguments[1])), pathlib.Path(arguments[2])
    unreachable = set((documents / "unreachable.txt").read_text(encoding="utf-8").split("\n"))
    failures = 0
    for module in catalogue.modules:
        listed = (documents / f"{module.file}.types").read_text(encoding="utf-8").splitlines()
        shown = dumped(program, documents / f"{module.file}.otx")
        classes = {short(t.module.space, t.name) for t in catalogue.types.values() if t.kind == "type"}
        missing = [
            f"{t.module.space} {t.name}"
            for t in module.types
            if not t.abstract and f"{t.module.space} {t.name}" not in set(listed) | unreachable
        ]
        expected = {short(*line.split()) for line in listed} & classes
        for text, names in (
            ("in no document", missing),
            ("listed but not in the compiled form", expected - shown),
            ("in the compiled form but not listed", shown - expected),
        ):
            if names:
                failures += 1
                print(f"{module.file}: {text}: {', '.join(sorted(names))}")
    print(f"{len(catalogue.modules)} modules, {failures} failures")
    sys.exit(failures != 0)


main(sys.argv[1:])
