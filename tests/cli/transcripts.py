# Replays the sessions of a Markdown file: each indented block that begins with "$ " has to show what the commands print.
#
# In a session of the debugger, the lines behind "(velkotx) " are its standard input. Standard output and standard error are
# one, as on a terminal. "$ echo $?" shows the status of the command before.

import argparse
import os
import pathlib
import shlex
import subprocess
import sys
import tempfile

INDENTATION = "    "
PROMPT = "(velkotx) "
MARK = "="
COMPLAINT = f"'{MARK}' is no command: help lists them"
LIMIT_IN_SECONDS = 300  # ends a program that hangs; no test relies on it


def blocks(text):
    """The indented blocks, without their indentation."""
    block = []
    for line in text.splitlines() + ["the end"]:
        if line.startswith(INDENTATION):
            block.append(line[len(INDENTATION) :])
        elif line or not block:
            yield block
            block = []
        else:
            block.append("")


def sessions(text):
    """Each command, with the lines that follow it."""
    found = []
    for block in blocks(text):
        if not block or not block[0].startswith("$ "):
            continue
        for line in block:
            if line.startswith("$ "):
                found.append((line[2:], []))
            elif line:
                found[-1][1].append(line)
    return found


def with_prompts(printed, script):
    """Puts each prompt where the debugger has said that it doesn't know the mark behind the command ahead of it."""
    lines = []
    for line in printed:
        if line == COMPLAINT:
            script = script[1:]
            lines += [PROMPT + command for command in script[:1]]
        else:
            lines.append(line)
    return lines


def replay(command, shown, status, velkotx, folder):
    """What a terminal would show of the command, and its status."""
    if command == "echo $?":
        return [str(status)], 0
    words = shlex.split(command)
    if words[0] != "velkotx":
        raise SystemExit(f"'{command}' can't be replayed")
    script = [""] + [line[len(PROMPT) :] for line in shown if line.startswith(PROMPT)]
    done = subprocess.run(
        [velkotx, *words[1:]],
        cwd=folder,
        input=f"\n{MARK}\n".join(script) + "\n",
        stdout=subprocess.PIPE,
        stderr=subprocess.STDOUT,
        text=True,
        timeout=LIMIT_IN_SECONDS,
    )
    return with_prompts(done.stdout.splitlines(), script), done.returncode


def main():
    parser = argparse.ArgumentParser(description="Replays the sessions of a Markdown file.")
    parser.add_argument("--velkotx", required=True, type=os.path.abspath, help="the program")
    parser.add_argument("--examples", required=True, type=os.path.abspath, help="the folder of the examples")
    parser.add_argument("--plugins", type=os.path.abspath, help="the folder of the plug-ins that are examples")
    parser.add_argument("file", type=pathlib.Path, help="the Markdown file")
    options = parser.parse_args()
    count = failures = status = 0
    with tempfile.TemporaryDirectory() as folder:
        (pathlib.Path(folder) / "examples").symlink_to(options.examples)
        if options.plugins:
            build = pathlib.Path(folder) / "build" / "release"
            build.mkdir(parents=True)
            (build / "providers").symlink_to(options.plugins)
        for command, lines in sessions(options.file.read_text()):
            printed, status = replay(command, lines, status, options.velkotx, folder)
            count += 1
            if lines != printed:
                failures += 1
                print(f"$ {command}\nshown:", *lines, "printed:", *printed, sep="\n  ")
    print(f"{count - failures} of {count} sessions replayed")
    return 1 if failures or not count else 0


if __name__ == "__main__":
    sys.exit(main())
