#!/usr/bin/env python3
"""Runs each fuzz target for a time and keeps what it finds: run.py BUILD SECONDS [TARGET...].

SECONDS are of processor time. BUILD is the folder of the fuzz build. Findings become files of regressions/TARGET; a target
ends at its first one.
"""

import math
import pathlib
import re
import resource
import subprocess
import sys

import dictionary
import seeds

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parent
CATALOGUE = ROOT / "schema" / "catalogue"
LONGEST_INPUT = 65536
# Reading the compiled form may allocate 1 MB and 16 times the input at once.
LIMITS = {"fuzz_compiled": [f"-malloc_limit_mb={1 + 16 * LONGEST_INPUT // (1 << 20)}"],
          "fuzz_match": ["-max_len=4096", "-timeout=2"],
          "fuzz_commands": ["-max_len=4096"]}
# What the words of each target's dictionary are.
FORMS = {"fuzz_xml": "xml", "fuzz_compiled": "compiled", "fuzz_json": "json", "fuzz_match": "match",
         "fuzz_vehicle": "vehicle", "fuzz_commands": "commands"}


def files(folder):
    return {path.name for path in folder.iterdir()}


def processor_seconds():
    used = resource.getrusage(resource.RUSAGE_CHILDREN)
    return used.ru_utime + used.ru_stime


def run(build, target, seconds):
    """Tells of the runs and the new findings. True without findings."""
    work = build / "fuzz"
    corpus, log = work / "corpus" / target, work / f"{target}.log"
    corpus.mkdir(parents=True, exist_ok=True)
    words = work / f"{target}.dict"
    words.write_text(dictionary.dictionary(CATALOGUE, FORMS[target]), encoding="utf-8")
    findings = HERE / "regressions" / target
    findings.mkdir(parents=True, exist_ok=True)
    before = files(findings)
    given = [folder for folder in (work / "seeds" / target, HERE / "corpus" / target) if folder.is_dir()]
    command = [str(build / "bin" / target), f"-max_len={LONGEST_INPUT}", f"-dict={words}", f"-artifact_prefix={findings}/",
               "-timeout=25", "-print_final_stats=1", *LIMITS.get(target, []), str(corpus), *map(str, given), str(findings)]
    runs, status, begin, left = 0, 0, processor_seconds(), seconds
    # The fuzzer's own limit counts the time in which others had the processor as well.
    while status == 0 and left > 0:
        with log.open("wb") as output:
            status = subprocess.run([*command, f"-max_total_time={math.ceil(left)}"], stdout=output,
                                    stderr=subprocess.STDOUT).returncode
        done = re.search(r"stat::number_of_executed_units:\s*(\d+)", log.read_text(encoding="utf-8", errors="replace"))
        if not done:
            break
        runs += int(done.group(1))
        left = seconds - (processor_seconds() - begin)
    found = sorted(files(findings) - before)
    print(f"{target}: {runs} runs in {processor_seconds() - begin:.0f} s of processor time, {len(found)} findings", flush=True)
    for name in found:
        print(f"  {findings.relative_to(ROOT) / name}")
    if status != 0 or left > 0:
        print(f"  ended with status {status}, see {log}")
    return status == 0 and not found and left <= 0


def main():
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    build, seconds = pathlib.Path(sys.argv[1]).resolve(), int(sys.argv[2])
    modules = build / "fuzz" / "modules"
    subprocess.run([sys.executable, "-B", str(ROOT / "tests" / "modules" / "generate.py"), str(CATALOGUE), str(modules)],
                   check=True)
    seeds.make(build / "bin" / "velkotx", build / "fuzz" / "seeds", [ROOT / "examples", modules])
    passed = [run(build, target, seconds) for target in sys.argv[3:] or FORMS]
    sys.exit(0 if all(passed) else 1)


if __name__ == "__main__":
    main()
