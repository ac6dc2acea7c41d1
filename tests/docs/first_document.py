"""Follows docs/first-document.md: builds its document step by step, and every session and mistake has to be as the page shows it.

A block ```xml FILE begins the document; ```xml more SOMETHING goes ahead of that mark; ```xml instead takes the place of the last
block of `more steps`; ```xml otx takes that of the element's start. In the tables of mistakes the first cell's code is replaced
by the second's, and the program has to say the third's: first_document.py --velkotx PROGRAM PAGE."""

import argparse
import os
import pathlib
import re
import subprocess
import sys
import tempfile

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "cli"))

from transcripts import INDENTATION, LIMIT_IN_SECONDS, MARK, PROMPT, with_prompts  # noqa: E402

ROW = re.compile(r"\| `([^`]+)` \| `([^`]+)` \| `([^`]+)`")
FEWEST_SESSIONS = 10
FEWEST_MISTAKES = 15


class Follower:
    def __init__(self, program, folder):
        self._folder = pathlib.Path(folder)
        self._environment = {**os.environ, "PATH": f"{pathlib.Path(program).parent}:{os.environ['PATH']}"}
        self._name = self._text = self._step = None
        self.sessions = self.mistakes = self.failures = 0

    def block(self, what, body):
        if self._text is None:
            self._name, self._text = what, body
        elif what == "otx":
            self._text = re.sub(r"<otx [^>]*>\n", lambda _: body, self._text, count=1)
        elif what == "instead":
            if self._text.count(self._step) != 1:
                raise SystemExit("the step that is replaced isn't there once")
            self._text = self._text.replace(self._step, body)
        else:
            place = re.search(rf"^ *<!-- {what} -->\n", self._text, re.M).start()
            self._text = self._text[:place] + body + self._text[place:]
            if what == "more steps":
                self._step = body
        (self._folder / self._name).write_text(self._text)

    def _print(self, command, script=()):
        done = subprocess.run(["bash", "-c", command], cwd=self._folder, env=self._environment, text=True,
                              input=f"\n{MARK}\n".join(["", *script]) + "\n", stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, timeout=LIMIT_IN_SECONDS)
        return done.stdout.splitlines()

    def session(self, command, shown):
        script = [line[len(PROMPT):] for line in shown if line.startswith(PROMPT)]
        printed = with_prompts(self._print(command, script), ["", *script])
        self.sessions += 1
        if printed != shown:
            self.failures += 1
            print(f"$ {command}\nshown:", *shown, "printed:", *printed, sep="\n  ")

    def mistake(self, right, wrong, said):
        if right not in self._text:
            raise SystemExit(f"'{right}' stands nowhere in the document")
        (self._folder / "mistake.otx").write_text(self._text.replace(right, wrong.strip() and wrong, 1))
        printed = self._print("velkotx run mistake.otx")
        self.mistakes += 1
        # Of a result the whole line is named, of a failure the part that matters.
        result = re.match(r"\w+ = ", said)
        if not (said in printed if result else any(said in line for line in printed)):
            self.failures += 1
            print(f"{wrong}\nshown:", said, "printed:", *printed, sep="\n  ")

    def follow(self, lines):
        at = 0
        while at < len(lines):
            line = lines[at]
            at += 1
            end = at
            if line.startswith("```xml "):
                end = lines.index("```", at)
                self.block(line[len("```xml "):], "\n".join(lines[at:end]) + "\n")
                end += 1
            elif line.startswith(INDENTATION + "$ "):
                while lines[end].startswith(INDENTATION) and not lines[end].startswith(INDENTATION + "$ "):
                    end += 1
                self.session(line[len(INDENTATION) + 2:], [shown[len(INDENTATION):] for shown in lines[at:end]])
            elif row := ROW.match(line):
                self.mistake(*row.groups())
            at = end


def main():
    parser = argparse.ArgumentParser(description="Follows the page of the first document.")
    parser.add_argument("--velkotx", required=True, type=os.path.abspath, help="the program")
    parser.add_argument("page", type=pathlib.Path)
    options = parser.parse_args()
    with tempfile.TemporaryDirectory() as folder:
        follower = Follower(options.velkotx, folder)
        follower.follow([*options.page.read_text(encoding="utf-8").split("\n"), ""])
    print(f"{follower.sessions} sessions, {follower.mistakes} mistakes, {follower.failures} failures")
    if follower.sessions < FEWEST_SESSIONS or follower.mistakes < FEWEST_MISTAKES or follower.failures:
        sys.exit(1)


main()
