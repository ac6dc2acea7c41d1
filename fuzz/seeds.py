#!/usr/bin/env python3
"""Makes what the targets begin with from OTX documents: seeds.py VELKOTX OUTPUT FOLDER...

OUTPUT/fuzz_xml takes the documents of the folders, OUTPUT/fuzz_compiled their compiled forms.
"""

import pathlib
import shutil
import subprocess
import sys


def make(velkotx, output, folders):
    xml, compiled = output / "fuzz_xml", output / "fuzz_compiled"
    for folder in (xml, compiled):
        shutil.rmtree(folder, ignore_errors=True)
        folder.mkdir(parents=True)
    for document in sorted(path for folder in folders for path in pathlib.Path(folder).glob("*.otx")):
        shutil.copy(document, xml)
        target = compiled / (document.stem + ".compiled")
        subprocess.run([str(velkotx), "compile", str(document), "-o", str(target)], check=True)


if __name__ == "__main__":
    if len(sys.argv) < 4:
        sys.exit(__doc__)
    make(sys.argv[1], pathlib.Path(sys.argv[2]), sys.argv[3:])
