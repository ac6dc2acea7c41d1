#!/usr/bin/env python3
"""Writes a document for each module of the catalogue that holds all of its types: generate.py CATALOGUE OUTPUT.

Beside each comes its expectation and the list of the types that stand in it.
"""
import pathlib
import sys

EXPECTATION = '{"outcome":"finished","out":{}}\n'


def line(t):
    return f"{t.module.space} {t.name}"


def write(path, text):
    path.write_text(text, encoding="utf-8")


def main():
    catalogue_folder, output = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2])
    sys.path.append(str(catalogue_folder.resolve().parent / "generator"))
    from catalogue import Catalogue
    from instances import Builder
    from model import Model
    from writer import Writer

    model = Model(Catalogue(catalogue_folder))
    output.mkdir(parents=True, exist_ok=True)
    for module in model.modules:
        builder = Builder(model, module)
        root = builder.build()
        writer = Writer(model, list(builder.walk(root)))
        write(output / f"{module.file}.otx", writer.document(root))
        write(output / f"{module.file}.expect", EXPECTATION)
        write(output / f"{module.file}.types", "".join(sorted(line(t) + "\n" for t in writer.types())))
    write(output / "unreachable.txt", "".join(sorted(line(t) + "\n" for t in model.unreachable())))


if __name__ == "__main__":
    main()
