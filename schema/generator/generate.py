"""Writes the document classes, their tables and their registration from the catalogue.

    generate.py CATALOGUE OUTPUT            writes the files
    generate.py CATALOGUE OUTPUT --list     only lists the sources, one a line
"""

import pathlib
import sys

import headers
import sources
from catalogue import Catalogue, CatalogueError


def files(catalogue):
    for module in catalogue.modules:
        yield f"{module.file}-forward.h", lambda m=module: headers.forward(catalogue, m)
        yield f"{module.file}.h", lambda m=module: headers.classes(catalogue, m)
        for index, types in enumerate(sources.chunks(catalogue, module), 1):
            yield f"{module.file}_{index}.cpp", lambda m=module, t=types: sources.definitions(catalogue, m, t)
    yield "names.h", lambda: headers.names(catalogue)
    yield "names.cpp", lambda: sources.names(catalogue)


def main(arguments):
    try:
        catalogue = Catalogue(arguments[0])
    except CatalogueError as error:
        sys.exit(str(error))
    output = pathlib.Path(arguments[1])
    if "--list" in arguments:
        print("\n".join(name for name, _ in files(catalogue)))
        return
    output.mkdir(parents=True, exist_ok=True)
    for name, write in files(catalogue):
        text = write()
        path = output / name
        # An unchanged file keeps its time, so that nothing is compiled again for it.
        if not path.exists() or path.read_text(encoding="utf-8") != text:
            path.write_text(text, encoding="utf-8")


if __name__ == "__main__":
    main(sys.argv[1:])
