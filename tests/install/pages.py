#!/usr/bin/env python3
"""Checks the manual page and the completions against the program's own help: their texts always, and what bash, fish, zsh and
man make of them. What is left out because one of these isn't there is told."""
import re
import shutil
import subprocess
import sys
from pathlib import Path

COMMANDS = ("run", "debug", "info", "compile", "dump", "vehicle check")


def output(*command, **options):
    result = subprocess.run([str(word) for word in command], capture_output=True, text=True, check=False, **options)
    if result.returncode != 0 or result.stderr:
        sys.exit(f"{command}: status {result.returncode}\n{result.stdout}{result.stderr}")
    return result.stdout


def options_of(program, command):
    text = output(program, *command.split(), "--help")
    section = text.split("\nOptions:\n")[1].split("\n\n")[0]
    return {name for line in section.splitlines() if line.startswith("  -") for name in line.split()[0].split(",")}


def expect(what, found, wanted):
    if set(found) != set(wanted):
        sys.exit(f"{what}: {sorted(found)} instead of {sorted(wanted)}")


def is_there(name, check):
    if shutil.which(name):
        return True
    print(f"left out, since there is no {name}: {check}")
    return False


class Bash:
    name = "bash"

    def __init__(self, pages):
        self.file = pages / "velkotx.bash"

    def complete(self, line):
        words = line.split(" ")
        script = (f"compopt() {{ :; }}; . '{self.file}'; COMP_WORDS=(" + " ".join(f"'{word}'" for word in words) +
                  f"); COMP_CWORD={len(words) - 1}; _velkotx; printf '%s\\n' \"${{COMPREPLY[@]}}\"")
        return output("bash", "-c", script).split()


class Fish:
    name = "fish"

    def __init__(self, pages):
        self.file = pages / "velkotx.fish"

    def complete(self, line):
        script = f"source '{self.file}'; complete -C '{line}'"
        return [found.split("\t")[0] for found in output("fish", "--no-config", "-c", script).splitlines()]


def check_completion(shell, program):
    expect(f"{shell.name} commands", shell.complete("velkotx "), {word.split()[0] for word in COMMANDS})
    expect(f"{shell.name} nested command", shell.complete("velkotx vehicle "), {"check"})
    expect(f"{shell.name} choice", shell.complete("velkotx run some.otx --unattended "), {"fail", "default"})
    for command in COMMANDS:
        long_names = {name for name in options_of(program, command) if name.startswith("--")}
        found = {word for word in shell.complete(f"velkotx {command} --") if word.startswith("--")}
        expect(f"{shell.name} options of {command}", found, long_names)


def check_fish_text(pages, program):
    text = (pages / "velkotx.fish").read_text()
    for command in COMMANDS:
        condition = "; and ".join(f"__fish_seen_subcommand_from {word}" for word in command.split())
        entries = re.findall(rf"^complete -c velkotx -n '{condition}'(.*?) -d '", text, re.M)
        found = [f"-{name}" for entry in entries for name in re.findall(r" -s (\S)", entry)]
        found += [f"--{name}" for entry in entries for name in re.findall(r" -l (\S+)", entry)]
        expect(f"fish, text, options of {command}", found, options_of(program, command))


def check_zsh_text(pages, program):
    text = (pages / "_velkotx").read_text()
    for command in COMMANDS:
        body = re.search(rf"^_velkotx_{command.replace(' ', '_')}\(\) {{\n(.*?)^}}", text, re.M | re.S).group(1)
        expect(f"zsh options of {command}", re.findall(r"'\*?(--?[a-z-]+)\[", body), options_of(program, command))


def check_man_page(pages, program):
    text = (pages / "velkotx.1").read_text().replace("\\-", "-")
    for command in COMMANDS:
        section = text.split(f".SS velkotx {command}\n")[1].split(".SS ")[0]
        entries = re.findall(r"^\.TP\n((?:\\fB.*))$", section, re.M)
        found = {name for entry in entries for name in re.findall(r"\\fB(.*?)\\fR", entry)}
        expect(f"manual page, options of {command}", found, options_of(program, command))


def check_with_shells(pages, program):
    """What each program takes the texts for."""
    for shell in (Bash(pages), Fish(pages)):
        if is_there(shell.name, f"what {shell.name} completes"):
            check_completion(shell, program)
    if is_there("zsh", "whether zsh can read the completion"):
        output("zsh", "-n", pages / "_velkotx")
    if is_there("man", "whether man shows the manual page without a warning"):
        output("man", "--warnings", "-l", pages / "velkotx.1", env={"PATH": "/usr/bin:/bin", "MANWIDTH": "100", "LC_ALL": "C"})


def main():
    program, pages = sys.argv[1], Path(sys.argv[2])
    check_man_page(pages, program)
    check_fish_text(pages, program)
    check_zsh_text(pages, program)
    check_with_shells(pages, program)


main()
