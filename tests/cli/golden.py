# Runs the cases of this folder: the program's output has to be what each case file says, byte for byte.
#
# A case file:
#     # What the case is about.
#     --- file NAME            (any number) an input file with the lines that follow
#     --- generate NAME: RECIPE  (any number) an input file of inputs.py
#     --- hex NAME             (any number) an input file with the bytes whose hexadecimal digits follow
#     --- first velkotx ...    (any number) a command that has to succeed before the one that is tested
#     --- env NAME=VALUE       (any number) a variable of the environment
#     --- mask REGEX           (any number) what differs from run to run: each match in the outputs stands there as ~
#     --- stdin                standard input: the lines that follow
#     --- stdin NAME           standard input: that file
#     $ velkotx run NAME       the command; velkotx and embed are the programs under test
#     --- status 2
#     --- stdout
#     --- stderr
#     --- contents NAME        (any number) what stands in a file that the program wrote
#
# A case runs in an empty folder of its own, beside links to the examples and the plug-ins. Output that isn't text is
# compared as hexadecimal digits, 16 bytes a line.

import argparse
import difflib
import os
import pathlib
import re
import shlex
import subprocess
import sys
import tempfile

import inputs

HERE = pathlib.Path(__file__).resolve().parent
LIMIT_IN_SECONDS = 300  # ends a program that hangs; no test relies on it


class Case:
    """A case file: its sections before the command, the command, its expectations."""

    def __init__(self, path):
        self.path = path
        self.text = path.read_text()
        self.setup = []
        self.command = None
        self.expected = []
        section = None
        for line in self.text.splitlines(keepends=True):
            if line.startswith("$ ") and self.command is None:
                self.command = line
                section = None
            elif line.startswith("--- "):
                section = [line[4:].rstrip("\n"), ""]
                (self.setup if self.command is None else self.expected).append(section)
            elif section is not None:
                section[1] += line
        if self.command is None:
            raise SystemExit(f"{path}: no command")

    def header(self):
        """What --rebase keeps: everything up to and with the command."""
        end = self.text.index("\n" + self.command) + 1 if not self.text.startswith(self.command) else 0
        return self.text[: end + len(self.command)]

    def masks(self):
        return [re.compile(name.split(" ", 1)[1].encode(), re.MULTILINE) for name, _ in self.setup if name.startswith("mask ")]

    def written_files(self):
        return [name.split(" ", 1)[1] for name, _ in self.expected if name.startswith("contents ")]


def run(command, programs, folder, environment, standard_input):
    words = shlex.split(command)
    words[0] = programs[words[0]]
    return subprocess.run(
        words, cwd=folder, env=environment, input=standard_input, capture_output=True, timeout=LIMIT_IN_SECONDS
    )


def prepare(case, folder, programs, links):
    environment = {"PATH": os.environ["PATH"]}
    for name in os.environ:
        if name.endswith("SAN_OPTIONS"):
            environment[name] = os.environ[name]
    standard_input = b""
    for link, target in links.items():
        (folder / link).symlink_to(target)
    for name, content in case.setup:
        kind, _, rest = name.partition(" ")
        if kind == "file":
            (folder / rest).write_text(content)
        elif kind == "generate":
            target, _, recipe = rest.partition(": ")
            (folder / target).write_text(inputs.generate(recipe))
        elif kind == "hex":
            (folder / rest).write_bytes(bytes.fromhex(content))
        elif kind == "first":
            done = run(rest, programs, folder, environment, b"")
            if done.returncode != 0:
                raise SystemExit(f"{case.path}: '{rest}' failed: {done.stderr.decode(errors='backslashreplace')}")
        elif kind == "env":
            variable, _, value = rest.partition("=")
            environment[variable] = value
        elif kind == "stdin":
            standard_input = (folder / rest).read_bytes() if rest else content.encode()
        elif kind != "mask":
            raise SystemExit(f"{case.path}: unknown section '{name}'")
    return environment, standard_input


def section(name, output, masks):
    """Sections end with a line end; a text without one says so."""
    for mask in masks:
        output = mask.sub(b"~", output)
    if b"\0" in output:
        rows = (output[begin : begin + 16] for begin in range(0, len(output), 16))
        return f"--- {name}\n" + "".join(f"{row.hex(' ')}\n" for row in rows)
    content = output.decode(errors="backslashreplace")
    if content and not content.endswith("\n"):
        content += "\n--- no line end\n"
    return f"--- {name}\n{content}"


def outcome(case, programs, links):
    """Runs a case and gives what its expectations would have to be."""
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        environment, standard_input = prepare(case, folder, programs, links)
        done = run(case.command[2:], programs, folder, environment, standard_input)
        text = f"--- status {done.returncode}\n"
        text += section("stdout", done.stdout, case.masks())
        text += section("stderr", done.stderr, case.masks())
        for written in case.written_files():
            path = folder / written
            text += section(f"contents {written}", path.read_bytes() if path.exists() else b"(missing)\n", case.masks())
        return text


def main():
    parser = argparse.ArgumentParser(description="Runs the case files of the command line's tests.")
    parser.add_argument("--velkotx", required=True, help="the program")
    parser.add_argument("--embed", required=True, help="the embedding example")
    parser.add_argument("--examples", required=True, help="the folder of the examples")
    parser.add_argument("--plugins", required=True, help="the folder of the plug-ins that are examples")
    parser.add_argument("--rebase", action="store_true", help="rewrite the expectations")
    parser.add_argument("names", nargs="*", help="cases to run, all by default")
    options = parser.parse_args()
    programs = {"velkotx": os.path.abspath(options.velkotx), "embed": os.path.abspath(options.embed)}
    links = {"examples": os.path.abspath(options.examples), "plugins": os.path.abspath(options.plugins)}
    paths = sorted((HERE / "cases").glob("*.test"))
    if options.names:
        paths = [path for path in paths if path.stem in options.names]
    if not paths:
        raise SystemExit("no case of that name")
    failures = 0
    for path in paths:
        case = Case(path)
        wanted = case.header() + outcome(case, programs, links)
        if wanted == case.text:
            continue
        if options.rebase:
            path.write_text(wanted)
            print(f"rewritten {path.name}")
            continue
        failures += 1
        lines = difflib.unified_diff(
            case.text.splitlines(), wanted.splitlines(), f"{path.name} expected", f"{path.name} actual", lineterm=""
        )
        print("\n".join(lines))
    print(f"{len(paths) - failures} of {len(paths)} cases passed")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
