# A front end in a process of its own, as docs/host-protocol.md describes it: messages from one pipe, events into another.

import argparse
import json
import os
import pathlib
import select
import subprocess
import sys
import tempfile
import threading
import unittest

OPTIONS = None
LIMIT_IN_SECONDS = 300  # ends a program that hangs; no test relies on it

STATUS = {"control": "status"}


def out_parameters(screen, **parameters):
    return {"eventType": "HMI-OutParameterValueChanged", "screenName": screen, "parameters": parameters}


def closed(screen):
    return {"eventType": "HMI-ScreenClosed", "screenName": screen}


class FrontEnd:
    """A run of the brake test with a pipe for each direction, opened in the order of the page."""

    def __init__(self):
        self.folder = tempfile.TemporaryDirectory()
        folder = pathlib.Path(self.folder.name)
        for pipe in ("messages", "events"):
            os.mkfifo(folder / pipe)
        document = os.path.join(OPTIONS.examples, "10-brake-test.otx")
        words = ["run", document, "--json", "--persist", "values.db", "--messages", "messages", "--control", "events"]
        self.process = subprocess.Popen(
            [OPTIONS.velkotx, *words],
            cwd=folder,
            stdin=subprocess.DEVNULL,
            stdout=subprocess.PIPE,
            stderr=subprocess.PIPE,
            text=True,
        )
        self.limit = threading.Timer(LIMIT_IN_SECONDS, self.process.kill)
        self.limit.start()
        self.messages = open(folder / "messages")
        self.events = open(folder / "events", "w", buffering=1)

    def send(self, *events):
        for event in events:
            self.events.write(json.dumps(event) + "\n")

    def receive(self):
        line = self.messages.readline()
        return json.loads(line) if line else None

    def receive_opening(self, screen):
        message = self.receive()
        assert (message["eventType"], message["screenName"]) == ("HMI-OpenScreen", screen), message
        return message["parameters"]

    def words_so_far(self):
        """The lines that have been written to standard error since the last time."""
        written = b""
        while select.select([self.process.stderr], [], [], 0)[0]:
            piece = os.read(self.process.stderr.fileno(), 4096)
            if not piece:
                break
            written += piece
        return written.decode().splitlines()

    def finish(self):
        out, err = self.process.communicate(timeout=LIMIT_IN_SECONDS)
        return self.process.returncode, out, err

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.limit.cancel()
        self.messages.close()
        try:
            self.events.close()
        except BrokenPipeError:
            pass
        self.process.kill()
        self.process.communicate()
        self.folder.cleanup()


class Conversation(unittest.TestCase):
    def test_whole_run(self):
        with FrontEnd() as front_end:
            parameters = front_end.receive_opening("InputDialog")
            self.assertEqual(parameters["restriction"], "[A-Z][a-z]+")
            front_end.send(out_parameters("InputDialog", result="Weber"), closed("InputDialog"))
            front_end.receive_opening("ConfirmDialog")
            front_end.send(out_parameters("ConfirmDialog", result={"ConfirmationType": "YES"}), closed("ConfirmDialog"))
            self.assertEqual(front_end.receive_opening("BrakeTest"), {"force": 0.0, "smallestForce": 2500.0})
            forces, rollers = [], []
            while forces[-1:] != [2650.0] or len(rollers) < 2:
                message = front_end.receive()
                if message["eventType"] == "StateVariableChanged":
                    rollers.append(message["value"])
                else:
                    forces.append(message["parameters"]["force"])
            self.assertEqual((forces, rollers), ([310.0, 1480.0, 2390.0, 2720.0, 2650.0], [True, False]))
            front_end.send(out_parameters("BrakeTest", remark="117", seen=True))
            self.assertEqual(front_end.receive(), {"eventType": "HMI-CloseScreen", "screenName": "BrakeTest"})
            self.assertIsNone(front_end.receive(), "the end of the stream is the end of the run")
            status, out, err = front_end.finish()
        self.assertEqual((status, err), (0, ""))
        self.assertEqual(
            json.loads(out),
            {
                "outcome": "finished",
                "out": {"highest": 2720.0, "remark": "117", "standOperator": "Weber", "standTests": 1, "verdict": "PASSED"},
            },
        )

    def test_a_reply_tells_that_the_lines_ahead_are_done(self):
        with FrontEnd() as front_end:
            front_end.receive_opening("InputDialog")
            front_end.send(out_parameters("InputDialog"), STATUS)
            self.assertEqual(front_end.receive()["reply"]["flows"], [{"id": 0, "state": "RUNNING"}])
            self.assertEqual(front_end.words_so_far(), [], "the dialog is open")
            front_end.send(closed("InputDialog"), out_parameters("InputDialog"), STATUS)
            while "reply" not in front_end.receive():
                pass
            self.assertEqual(front_end.words_so_far(), ['{"refused":"Unknown screen: InputDialog"}'])

    def test_what_is_refused(self):
        with FrontEnd() as front_end:
            front_end.receive_opening("InputDialog")
            front_end.send(out_parameters("InputDialog", answer="Weber"), {"event": "none"})
            front_end.send(out_parameters("InputDialog", result={"ConfirmationType": "MAYBE"}), STATUS)
            front_end.receive()
            refused = [json.loads(line)["refused"] for line in front_end.words_so_far()]
        self.assertEqual(refused[0], "Unknown variable: answer")
        self.assertTrue(refused[1].startswith("line 2: "), refused)
        self.assertTrue(refused[2].startswith("line 3: "), refused)
        self.assertEqual(len(refused), 3)


class Leaving(unittest.TestCase):
    def test_nobody_is_there_when_the_events_end(self):
        with FrontEnd() as front_end:
            front_end.receive_opening("InputDialog")
            front_end.events.close()
            status, out, _ = front_end.finish()
        self.assertEqual((status, json.loads(out)["outcome"]), (4, "cancelled"))

    def test_a_message_that_nobody_reads_fails_the_run(self):
        with FrontEnd() as front_end:
            front_end.receive_opening("InputDialog")
            front_end.messages.close()
            front_end.send(closed("InputDialog"))
            status, out, _ = front_end.finish()
        self.assertEqual((status, json.loads(out)["outcome"]), (3, "failed"))


def main():
    global OPTIONS
    parser = argparse.ArgumentParser(description="Tests velkotx with a front end at its pipes.")
    parser.add_argument("--velkotx", required=True, type=os.path.abspath)
    parser.add_argument("--examples", required=True, type=os.path.abspath)
    OPTIONS, rest = parser.parse_known_args()
    unittest.main(argv=[sys.argv[0], *rest])


if __name__ == "__main__":
    main()
