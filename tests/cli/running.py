# The program as a test runs it: with pipes, and at a terminal of its own.

import fcntl
import os
import pty
import select
import signal
import subprocess
import termios

options = None
LIMIT_IN_SECONDS = 300  # ends a program that hangs; no test relies on it


def command(*words):
    return [options.velkotx, *words]


def example(name):
    return os.path.join(options.examples, name)


def take_signals():
    for number in (signal.SIGINT, signal.SIGHUP):  # a background job's children ignore them
        signal.signal(number, signal.SIG_DFL)


class Running:
    """A started program whose standard error is read line by line."""

    def __init__(self, *words):
        self.process = subprocess.Popen(
            command(*words),
            stdin=subprocess.DEVNULL,
            stdout=subprocess.PIPE,
            stderr=subprocess.PIPE,
            text=True,
            preexec_fn=take_signals,
        )

    def wait_for_line(self, text):
        for line in self.process.stderr:
            if text in line:
                return
        raise AssertionError(f"the program ended without a line with '{text}'")

    def interrupt(self):
        self.process.send_signal(signal.SIGINT)

    def finish(self):
        out, err = self.process.communicate(timeout=LIMIT_IN_SECONDS)
        return self.process.returncode, out, err.splitlines()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.kill()
        self.process.communicate()


def run_on_terminal(words, environment):
    """Standard output and standard error of a program that has a terminal for both."""
    outer, inner = pty.openpty()
    process = subprocess.Popen(
        command(*words), stdin=subprocess.DEVNULL, stdout=inner, stderr=inner, env={"TERM": "xterm", **environment}
    )
    os.close(inner)
    output = b""
    while True:
        try:
            piece = os.read(outer, 4096)
        except OSError:  # the program has closed the terminal
            break
        if not piece:
            break
        output += piece
    os.close(outer)
    process.wait()
    return output.decode()


class Session:
    """A program that has a terminal of its own, on which it is talked to: the debugger, if no other command is named."""

    PROMPT = "(velkotx) "
    CTRL_C = "\x03"
    CTRL_D = "\x04"
    UP = "\x1b[A"

    def __init__(self, *words, name="debug", output=None, hang_up=signal.SIG_DFL):
        self.outer, inner = pty.openpty()

        def take_terminal():
            fcntl.ioctl(inner, termios.TIOCSCTTY, 0)
            signal.signal(signal.SIGINT, signal.SIG_DFL)  # a background job's children ignore it
            signal.signal(signal.SIGHUP, hang_up)

        self.process = subprocess.Popen(
            command(name, *words),
            stdin=inner,
            stdout=output or inner,
            stderr=inner,
            env={"TERM": "xterm", "NO_COLOR": "1"},
            start_new_session=True,
            preexec_fn=take_terminal,
        )
        os.close(inner)
        self.unread = ""

    def say(self, text):
        os.write(self.outer, text.encode())

    def keep_output(self):
        """Ctrl-C shall drop nothing: what the program answers may come ahead of the dropping."""
        attributes = termios.tcgetattr(self.outer)
        attributes[3] |= termios.NOFLSH
        termios.tcsetattr(self.outer, termios.TCSANOW, attributes)

    def read(self):
        """More of the output; False at its end."""
        try:
            piece = os.read(self.outer, 4096)
        except OSError:  # the program has closed the terminal
            return False
        self.unread += piece.decode()
        return bool(piece)

    def wait_for(self, text):
        """What is shown up to the text."""
        while text not in self.unread:
            if not self.read():
                raise AssertionError(f"the program ended without '{text}': {self.unread}")
        shown, self.unread = self.unread.split(text, 1)
        return shown

    def interrupt_until(self, text):
        """Sends the signal of Ctrl-C again and again, since two that come at once count as one. The key would make the
        terminal drop what wasn't read yet."""
        while text not in self.unread:
            self.process.send_signal(signal.SIGINT)
            if select.select([self.outer], [], [], 0.05)[0] and not self.read():
                raise AssertionError(f"the program ended without '{text}': {self.unread}")
        self.wait_for(text)

    def until_end(self, act):
        """Does something again and again until the program has ended."""
        while self.process.poll() is None:
            act()
            if select.select([self.outer], [], [], 0.05)[0]:
                self.read()

    def finish(self):
        while self.read():
            pass
        return self.process.wait(), self.unread

    def hang_up(self):
        os.close(self.outer)
        self.outer = None

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.kill()
        self.process.wait()
        if self.outer is not None:
            os.close(self.outer)
