"""Runs the suites and their peers and prints one table of ratios: python3 bench/table.py BUILD-FOLDER

The machines are shared and noisy, so that only ratios of medians from one run count, of processor time on all sides.
"""

import json
import os
import pathlib
import statistics
import subprocess
import sys

HERE = pathlib.Path(__file__).parent
ROUNDS = 7
# Program: n of the run, and the highest ratio to python3 that is meant to be reached.
PROGRAMS = {"loop": (300_000, 5.0), "call": (200_000, 6.0), "list": (200_000, 5.0), "fib": (22, 10.0)}
COMPILED_SIZES = (1, 10)  # megabytes of the XML that was compiled
SAVES = int(os.environ.get("BENCH_SAVES", "10000"))  # 100000 takes a minute
LINE_LENGTHS = (20, 80, 1000)  # bytes, the line feed included
LOAD_GOALS = {1: 1.2, 10: 1.2, 50: 1.35}


def suite(build, name, pattern=".", *options):
    command = [str(build / "bin" / name), f"--benchmark_filter={pattern}", "--benchmark_format=json", *options]
    output = subprocess.run(command, check=True, capture_output=True, text=True).stdout
    # Aggregates of repetitions carry their own entries; the single runs are what medians are taken of.
    return {
        entry["name"].split("/repeats")[0]: entry
        for entry in json.loads(output)["benchmarks"]
        if entry.get("run_type") != "aggregate" or entry.get("aggregate_name") == "median"
    }


def peer(command):
    output = subprocess.run(command, check=True, capture_output=True, text=True).stdout
    return float(output.split()[0]) * 1e3


def programs(build):
    print(f"{'program':10} {'ours ms':>9} {'python3':>9} {'ratio':>6} {'goal':>6} {'lua5.4':>9} {'ratio':>6}")
    for name, (n, goal) in PROGRAMS.items():
        ours, python, lua = [], [], []
        for _ in range(ROUNDS):
            # Taken in turns, so that a slow moment of the machine hits all of them.
            ours.append(suite(build, "bench_programs", f"/{name}$", "--benchmark_min_time=0.1")[f"runProgram/{name}"]["cpu_time"])
            python.append(peer(["/usr/bin/python3", str(HERE / "peers/programs.py"), name, str(n)]))
            lua.append(peer(["lua5.4", str(HERE / "peers/programs.lua"), name, str(n)]))
        mine, theirs, other = map(statistics.median, (ours, python, lua))
        print(f"{name:10} {mine:9.2f} {theirs:9.2f} {mine / theirs:6.2f} {goal:6.2f} {other:9.2f} {mine / other:6.2f}")


def jumps(build):
    runs = suite(build, "bench_programs", "(loop|call|return|continue)$", "--benchmark_repetitions=5")
    per = {name: runs[f"runProgram/{name}_median"]["cpu_time"] * 1e3 / runs[f"runProgram/{name}_median"]["n"]
           for name in ("loop", "call", "return", "continue")}
    print(f"\n{'jump':28} {'us':>6} {'goal':>6}")
    print(f"{'Continue out of a loop body':28} {per['continue'] - per['loop']:6.2f} {1.2:6.2f}")
    print(f"{'Return out of a procedure':28} {per['return'] - per['call']:6.2f} {1.2:6.2f}")


def load(build):
    runs = suite(build, "bench_load", ".", "--benchmark_enable_random_interleaving=true", "--benchmark_repetitions=5", "--benchmark_report_aggregates_only=true")
    print(f"\n{'load XML':10} {'ours ms':>9} {'parser':>9} {'ratio':>6} {'goal':>6}")
    for size, goal in LOAD_GOALS.items():
        mine = runs[f"loadWhole/{size}_median"]["cpu_time"]
        bare = runs[f"parseOnly/{size}_median"]["cpu_time"]
        print(f"{f'{size} MB':10} {mine:9.2f} {bare:9.2f} {mine / bare:6.2f} {goal:6.2f}")
    print(f"\n{'compiled':10} {'load ms':>9} {'of XML':>9} {'goal':>6} {'MB/s':>6} {'goal':>6} {'save MB/s':>10} {'goal':>6}")
    for size in COMPILED_SIZES:
        read = runs[f"loadCompiled/{size}_median"]
        saved = runs[f"saveCompiled/{size}_median"]["bytes_per_second"] / 1e6
        ratio = runs[f"loadWhole/{size}_median"]["cpu_time"] / read["cpu_time"]
        speed = read["bytes_per_second"] / 1e6
        print(f"{f'{size} MB':10} {read['cpu_time']:9.2f} {ratio:9.1f} {12:6} {speed:6.0f} {250:6} {saved:10.0f} {700:6}")


def lanes(build):
    runs = suite(build, "bench_lanes", ".", "--benchmark_enable_random_interleaving=true", "--benchmark_repetitions=7", "--benchmark_report_aggregates_only=true")
    time = {name: runs[f"{name}/real_time_median"]["real_time"] for name in ("lanes/one", "lanes/two", "lanes/start", "bareThreads", "lanes/wake", "bareWakes", "bareWork/1", "bareWork/2")}
    print(f"\n{'lanes':44} {'ratio':>6} {'goal':>6}")
    print(f"{'work of two lanes, of one':44} {2 * time['lanes/one'] / time['lanes/two']:6.2f} {'>= 1.8':>6}")
    print(f"{'  of two bare threads, of one':44} {2 * time['bareWork/1'] / time['bareWork/2']:6.2f}")
    print(f"{'a lane, of a bare std::async':44} {time['lanes/start'] / time['bareThreads']:6.2f} {1.3:6.2f}")
    print(f"{'waking a node, of a bare condition variable':44} {time['lanes/wake'] / time['bareWakes']:6.2f} {1.3:6.2f}")


def persist(build):
    runs = suite(build, "bench_persist", f"/{SAVES}/", "--benchmark_enable_random_interleaving=true", "--benchmark_repetitions=5", "--benchmark_report_aggregates_only=true")
    time = {name: runs[f"{name}/{SAVES}/iterations:1/real_time_median"] for name in ("bareSaves", "storeSaves", "sequenceSaves")}
    print(f"\n{f'{SAVES} saves':30} {'rate /s':>8} {'of bare':>8} {'goal':>7}")
    for title, name in {"by the bare database": "bareSaves", "through the store": "storeSaves", "of a sequence": "sequenceSaves"}.items():
        taken = time[name]["real_time"]
        goal = "" if name == "bareSaves" else ">= 0.33"
        print(f"{title:30} {SAVES * 1e3 / taken:8.0f} {time['bareSaves']['real_time'] / taken:8.2f} {goal:>7}")


def files(build):
    runs = suite(build, "bench_files", ".", "--benchmark_enable_random_interleaving=true", "--benchmark_repetitions=5", "--benchmark_report_aggregates_only=true")
    print(f"\n{'50 MB by lines':30} {'MB/s':>8} {'of bare':>8} {'goal':>7}")
    for length in LINE_LENGTHS:
        rate = {name: runs[f"{name}/{length}_median"]["bytes_per_second"] / 1e6 for name in ("bareLines", "handleLines", "sequenceLines")}
        for title, name in {"std::getline": "bareLines", "a handle": "handleLines", "a sequence": "sequenceLines"}.items():
            # The work of a line is the same for any length: where lines are very short, making values is the most of it.
            goal = ">= 0.5" if name == "handleLines" and length >= 80 else ""
            print(f"{f'{title}, {length} a line':30} {rate[name]:8.0f} {rate[name] / rate['bareLines']:8.2f} {goal:>7}")


def values(build):
    runs = suite(build, "bench_values", ".", "--benchmark_repetitions=5", "--benchmark_report_aggregates_only=true")
    lock = runs["recursiveLock_median"]["cpu_time"]
    print(f"\n{'operation':20} {'ns':>8} {'of a lock':>10}")
    for name, run in runs.items():
        print(f"{name.removesuffix('_median'):20} {run['cpu_time']:8.1f} {run['cpu_time'] / lock:10.2f}")


def main():
    build = pathlib.Path(sys.argv[1])
    programs(build)
    jumps(build)
    load(build)
    lanes(build)
    persist(build)
    files(build)
    values(build)


main()
