# What a case file can't hold: Ctrl-C, terminals, outputs that can't be written, the trace.

import argparse
import fcntl
import itertools
import json
import os
import pathlib
import re
import signal
import subprocess
import sys
import tempfile
import termios
import unittest

import inputs
import running
from running import LIMIT_IN_SECONDS, Running, Session, command, example, run_on_terminal


class CtrlC(unittest.TestCase):
    def test_once_cancels_the_run(self):
        with Running("run", example("07-soak-test.otx"), "--log", "3") as program:
            program.wait_for_line(":Assigning: ")
            program.interrupt()
            status, out, err = program.finish()
        self.assertEqual((status, out), (4, ""))
        self.assertEqual(err[-1], example("07-soak-test.otx") + ": cancelled")

    def test_outcome_as_json(self):
        with Running("run", example("07-soak-test.otx"), "--log", "3", "--json") as program:
            program.wait_for_line(":Assigning: ")
            program.interrupt()
            status, out, _ = program.finish()
        self.assertEqual(status, 4)
        self.assertEqual(out, '{"outcome":"cancelled","what":"cancelled","text":""}\n')

    def test_before_the_first_node(self):
        # The banner stands before the run has a flow that could be cancelled.
        with Running("run", example("07-soak-test.otx"), "--log", "3") as program:
            program.wait_for_line("Run Sequence main")
            program.interrupt()
            status, _, _ = program.finish()
        self.assertEqual(status, 4)

    def test_so_do_other_signals_that_end_programs(self):
        for number in (signal.SIGTERM, signal.SIGHUP):
            with Running("run", example("07-soak-test.otx"), "--log", "3") as program:
                program.wait_for_line(":Assigning: ")
                program.process.send_signal(number)
                status, out, err = program.finish()
            self.assertEqual((status, out), (4, ""))
            self.assertEqual(err[-1], example("07-soak-test.otx") + ": cancelled")

    def test_twice_ends_the_program(self):
        with tempfile.TemporaryDirectory() as folder:
            document = pathlib.Path(folder) / "endless.otx"
            document.write_text(inputs.generate("endless-term"))
            # The first one is taken but can't end the term. Each cancel is a command, which the trace has at level 2.
            with Running("run", str(document), "--log", "3") as program:
                program.wait_for_line(":Assigning: ")
                program.interrupt()
                program.wait_for_line("Sequencer_impl::Control")
                program.interrupt()
                status, out, _ = program.finish()
        self.assertEqual((status, out), (-signal.SIGINT, ""))


class Terminal(unittest.TestCase):
    ESCAPE = "\x1b["

    def test_colour_on_a_terminal(self):
        output = run_on_terminal(["run", example("04-sort.otx")], {})
        self.assertIn(self.ESCAPE + "1mmedian" + self.ESCAPE + "0m = 25", output)

    def test_failure_in_colour(self):
        output = run_on_terminal(["run", "nowhere.otx"], {})
        self.assertIn("nowhere.otx: " + self.ESCAPE + "31m", output)

    def test_no_colour_with_NO_COLOR(self):
        for words in (["run", example("04-sort.otx")], ["run", "nowhere.otx"], ["info", example("04-sort.otx")]):
            self.assertNotIn("\x1b", run_on_terminal(words, {"NO_COLOR": "1"}))

    def test_empty_NO_COLOR_counts_as_unset(self):
        self.assertIn(self.ESCAPE, run_on_terminal(["run", example("04-sort.otx")], {"NO_COLOR": ""}))

    def test_no_colour_on_a_dumb_terminal(self):
        self.assertNotIn("\x1b", run_on_terminal(["run", example("04-sort.otx")], {"TERM": "dumb"}))

    def test_no_colour_in_json(self):
        self.assertNotIn("\x1b", run_on_terminal(["run", example("04-sort.otx"), "--json"], {}))


class Debugging(unittest.TestCase):
    def test_conversation(self):
        with Session(example("07-soak-test.otx")) as debugger:
            debugger.wait_for(Session.PROMPT)
            debugger.say("start\n")
            debugger.wait_for("flow 0 stopped at n1")
            debugger.wait_for(Session.PROMPT)
            debugger.say("quit\n")
            status, shown = debugger.finish()
        self.assertEqual(status, 4)
        self.assertIn("the run has ended: cancelled", shown)

    def test_empty_line_repeats_the_step(self):
        with Session(example("07-soak-test.otx")) as debugger:
            for line, place in (("start", "n1"), ("step", "n2"), ("", "n3"), ("vars", "switched = 0"), ("", "n4")):
                debugger.wait_for(Session.PROMPT)
                debugger.say(line + "\n")
                debugger.wait_for(place)

    def test_empty_line_repeats_nothing_at_first(self):
        with Session(example("07-soak-test.otx")) as debugger:
            debugger.wait_for(Session.PROMPT)
            debugger.say("\n")
            self.assertEqual(debugger.wait_for(Session.PROMPT).strip(), "")

    def test_history(self):
        with Session(example("07-soak-test.otx")) as debugger:
            debugger.wait_for(Session.PROMPT)
            debugger.say("list\n")
            debugger.wait_for("n6 Assignment")
            debugger.wait_for(Session.PROMPT)
            debugger.say(Session.UP + "\n")
            debugger.wait_for("n6 Assignment")

    def test_ctrl_d_ends(self):
        with Session(example("07-soak-test.otx")) as debugger:
            debugger.wait_for(Session.PROMPT)
            # Again and again: between the prompt and the beginning of line editing the terminal drops it, or makes it a
            # zero byte on the line, which a line end clears.
            keys = itertools.cycle((Session.CTRL_D, "\n"))
            debugger.until_end(lambda: debugger.say(next(keys)))
            self.assertEqual(debugger.process.returncode, 0)

    def test_ctrl_c_does_nothing_while_nothing_runs(self):
        with Session(example("07-soak-test.otx")) as debugger:
            debugger.wait_for(Session.PROMPT)
            debugger.say(Session.CTRL_C)
            debugger.say("break n6\n")
            debugger.wait_for(Session.PROMPT)
            debugger.say("run\n")
            debugger.wait_for("flow 0 stopped at n6")

    def test_ctrl_c_at_the_prompt_pauses_the_run(self):
        with Session(example("07-soak-test.otx")) as debugger:
            for line in ("start", "go"):
                debugger.wait_for(Session.PROMPT)
                debugger.say(line + "\n")
            debugger.wait_for(Session.PROMPT)
            debugger.say(Session.CTRL_C)
            debugger.say("wait\n")
            debugger.wait_for("flow 0 stopped at ")
            debugger.wait_for(Session.PROMPT)
            debugger.say("cancel\n")
            debugger.wait_for("the run has ended: cancelled")

    def test_ctrl_c_pauses_a_run_that_is_waited_for(self):
        with Session(example("07-soak-test.otx")) as debugger:
            debugger.wait_for(Session.PROMPT)
            debugger.say("run\n")
            debugger.interrupt_until("flow 0 stopped at ")
            debugger.wait_for(Session.PROMPT)

    def test_ctrl_c_twice_gives_the_prompt_back(self):
        with tempfile.TemporaryDirectory() as folder:
            document = pathlib.Path(folder) / "endless.otx"
            document.write_text(inputs.generate("endless-term"))
            with Session(str(document)) as debugger:
                debugger.wait_for(Session.PROMPT)
                debugger.say("run\n")
                debugger.interrupt_until("the run goes on")
                debugger.wait_for(Session.PROMPT)
                debugger.say("quit\n")
                # The run doesn't come to a checkpoint, so that it can't be cancelled.
                debugger.until_end(lambda: debugger.process.send_signal(signal.SIGINT))
                self.assertEqual(debugger.process.returncode, -signal.SIGINT)


class AskedOperator(unittest.TestCase):
    """Screens and dialogs at a terminal."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def session(self, recipe, *words, **how):
        document = self.folder / f"{recipe}.otx"
        document.write_text(inputs.generate(recipe))
        return Session(str(document), *words, name="run", **how)

    def test_dialogs(self):
        with self.session("dialogs") as operator:
            self.assertIn("-- Information: Ready --", operator.wait_for("Enter goes on: "))
            operator.say("\n")
            self.assertIn("-- Question: Sure --", operator.wait_for("y yes, n no: "))
            operator.say("perhaps\n")
            self.assertIn("y or n is needed", operator.wait_for("y yes, n no: "))
            operator.say("n\n")
            shown = operator.wait_for("Number [2]: ")
            self.assertIn("Which one?\r\n  1  front\r\n* 2  rear (default)\r\n", shown)
            operator.say("1\n")
            self.assertIn("The number\r\nHas to match: V[A-Z][0-9]+\r\n", operator.wait_for("Text [VB1]: "))
            operator.say("VB12x\n")
            self.assertIn("the text has to match V[A-Z][0-9]+", operator.wait_for("Text [VB1]: "))
            operator.say("VB12\n")
            self.assertIn("Document: /manuals/brake.pdf", operator.wait_for("Enter goes on: "))
            operator.say("\n")
            status, shown = operator.finish()
        self.assertEqual(status, 0)
        self.assertEqual(shown.split(), "axle = 0 number = VB12 sure = NO".split())

    def test_ctrl_c_cancels_while_a_prompt_waits(self):
        with self.session("dialogs") as operator:
            operator.wait_for("Enter goes on: ")
            operator.keep_output()
            operator.say(Session.CTRL_C)
            status, shown = operator.finish()
        self.assertEqual(status, 4)
        self.assertIn("-- ConfirmDialog is gone: the run was cancelled\r\n", shown)

    def test_ctrl_d_closes_without_an_answer(self):
        with self.session("dialogs") as operator:
            for prompt in ("Enter goes on: ", "y yes, n no: ", "Number [2]: ", "Text [VB1]: ", "Enter goes on: "):
                operator.wait_for(prompt)
                operator.say(Session.CTRL_D)
            status, shown = operator.finish()
        self.assertEqual(status, 0)
        self.assertIn("axle = 0\r\nnumber = \r\nsure = YES\r\n", shown)

    def test_screens(self):
        with self.session("screens") as operator:
            shown = operator.wait_for("Settings> ")
            self.assertIn("-- Screen: Monitor --", shown)
            self.assertIn("-- Screen: Settings --\r\nlimit = 5\r\n", shown)
            operator.say("set limit many\n")
            operator.wait_for("limit: a value of type Integer is needed")
            operator.say("set other 3\n")
            operator.wait_for("-- the run refuses it: Unknown variable: other")
            operator.say("set axle 3\n")
            operator.say("set limit 9\n")
            operator.wait_for("axle = 3\r\nlimit = 9\r\n")  # comes back from the run
            operator.say("screen Monitor\n")
            operator.wait_for("-- Screen: Monitor --\r\ncount = 7\r\nMonitor> ")
            operator.say("screen Settings\n")
            operator.say("close\n")
            status, shown = operator.finish()
        self.assertEqual(status, 0)
        self.assertIn("axle = 3\r\ncount = 7\r\nlimit = 9\r\n", shown)

    def test_the_session_of_the_manual(self):
        with Session(example("10-brake-test.otx"), "--persist", str(self.folder / "stand.db"), name="run") as operator:
            shown = operator.wait_for("Text []: ")
            self.assertIn("-- Input: Brake test --\r\nWho is at the stand?\r\nHas to match: [A-Z][a-z]+\r\n", shown)
            operator.say("keller\n")
            operator.wait_for("the text has to match [A-Z][a-z]+\r\nText []: ")
            operator.say("Keller\n")
            shown = operator.wait_for("y yes, n no: ")
            self.assertIn("-- Question: Brake test --\r\nIs the axle on the rollers?\r\n", shown)
            operator.say("y\n")
            # The first block may have any of the forces. From here on the run waits for the operator.
            operator.wait_for("force = 2650.0\r\nsmallestForce = 2500.0\r\nBrakeTest> ")
            operator.say("set remark left side is late\n")
            operator.wait_for("set remark left side is late\r\nBrakeTest> ")
            operator.say("set seen TRUE\n")
            status, shown = operator.finish()
        self.assertEqual(status, 0)
        self.assertIn("highest = 2720.0\r\nremark = left side is late\r\nstandOperator = Keller\r\nstandTests = 1\r\n"
                      "verdict = PASSED\r\n", shown)

    def test_a_refresh_leaves_what_is_being_typed(self):
        with self.session("changing") as operator:
            operator.wait_for("count = 2\r\nMonitor> ")
            operator.say("clx")
            operator.wait_for("Monitor> clx")  # by a refresh, since the prompt was there already
            operator.say("\x7fose\n")
            status, shown = operator.finish()
        self.assertEqual(status, 0, shown)

    def test_the_terminal_is_left_as_it_was(self):
        for end in ("\n", Session.CTRL_C):
            with self.session("changing") as operator:
                before = termios.tcgetattr(operator.outer)
                operator.wait_for("count = 2\r\nMonitor> ")
                operator.say("close" + end)
                operator.process.wait()
                self.assertEqual(termios.tcgetattr(operator.outer), before)

    def test_a_signal_finds_the_terminal_as_it_was(self):
        with self.session("last-dialog") as operator:
            before = termios.tcgetattr(operator.outer)
            operator.wait_for("y yes, n no: ")
            self.assertNotEqual(termios.tcgetattr(operator.outer), before)
            operator.until_end(lambda: operator.process.send_signal(signal.SIGTERM))
            self.assertEqual(termios.tcgetattr(operator.outer), before)

    def test_standard_output_is_data(self):
        with tempfile.TemporaryFile() as output:
            with self.session("screens", "--json", output=output) as operator:
                operator.wait_for("Settings> ")
                operator.say("close\n")
                status, shown = operator.finish()
            output.seek(0)
            self.assertEqual(json.loads(output.read())["out"], {"axle": 0, "count": 7, "limit": 5})
        self.assertEqual(status, 0)
        self.assertNotIn("outcome", shown)

    def test_nobody_is_asked_who_does_not_want_to(self):
        with self.session("dialogs", "--unattended", "default") as operator:
            status, shown = operator.finish()
        self.assertEqual(status, 0)
        self.assertIn('ChoiceDialog "Axle": nobody is there, answered with its default, 1', shown)

    def test_rules_come_first(self):
        rules = self.folder / "rules.json"
        rules.write_text(
            json.dumps(
                [
                    {
                        "on": "HMI-OpenScreen",
                        "screen": name,
                        "times": 0,
                        "send": [{"eventType": "HMI-ScreenClosed", "screenName": name}],
                    }
                    for name in ("ConfirmDialog", "InputDialog", "ShowDocumentDialog")
                ]
            )
        )
        with self.session("dialogs", "--answers", str(rules)) as operator:
            self.assertTrue(operator.wait_for("Number [2]: ").lstrip().startswith("-- Choice: Axle --"))
            operator.say("\n")
            status, shown = operator.finish()
        self.assertEqual(status, 0)
        self.assertIn("axle = 1\r\n", shown)

    def test_a_terminal_that_was_hung_up_answers_nothing(self):
        for hang_up in (signal.SIG_IGN, signal.SIG_DFL):
            with self.session("dialogs", hang_up=hang_up) as operator:
                operator.wait_for("Enter goes on: ")
                operator.hang_up()
                self.assertEqual(operator.process.wait(), 4)


    def test_a_terminal_that_was_hung_up_closes_no_screen(self):
        with self.session("closing", hang_up=signal.SIG_IGN) as operator:
            operator.wait_for("Monitor> ")
            operator.hang_up()
            self.assertEqual(operator.process.wait(), 4)

    def test_a_pipe_that_is_open_may_bring_more(self):
        document = self.folder / "closing.otx"
        document.write_text(inputs.generate("closing"))
        pipe = self.folder / "pipe"
        os.mkfifo(pipe)
        with Running("run", str(document), "--control", str(pipe), "--log", "3") as program:
            with open(pipe, "w") as lines:
                program.wait_for_line(":Assigning: <EventSource>")  # closing the screen sooner would end the run otherwise
                # Only who goes on can be asked, and is refused.
                for _ in range(20):
                    lines.write('{"control": "nonsense"}\n')
                    lines.flush()
                    program.wait_for_line("nonsense")
                lines.write('{"eventType": "HMI-ScreenClosed", "screenName": "Monitor"}\n')
            self.assertEqual(program.finish()[0], 0)


class Outputs(unittest.TestCase):
    def test_full_standard_output(self):
        with open("/dev/full", "wb") as full:
            done = subprocess.run(command("run", example("04-sort.otx")), stdout=full, stderr=subprocess.PIPE, text=True)
        self.assertEqual(done.returncode, 3)
        self.assertEqual(done.stderr, "velkotx: standard output can't be written\n")

    def test_unreadable_document(self):
        if os.geteuid() == 0:
            self.skipTest("the superuser reads every file")
        with tempfile.TemporaryDirectory() as folder:
            document = pathlib.Path(folder) / "locked.otx"
            document.touch(mode=0)
            done = subprocess.run(command("run", str(document)), capture_output=True, text=True)
        self.assertEqual(done.returncode, 2)
        self.assertEqual(done.stderr, f"{document}: Permission denied\n")

    def test_document_through_a_pipe(self):
        with tempfile.TemporaryDirectory() as folder:
            pipe = os.path.join(folder, "pipe")
            os.mkfifo(pipe)
            with open(example("04-sort.otx"), "rb") as document:
                text = document.read()
            process = subprocess.Popen(command("run", pipe, "--json"), stdout=subprocess.PIPE)
            with open(pipe, "wb") as end:
                end.write(text)
            out, _ = process.communicate(timeout=LIMIT_IN_SECONDS)
        self.assertEqual(json.loads(out)["outcome"], "finished")


class Trace(unittest.TestCase):
    LINE = re.compile(r"^[0-9a-f]+:[A-Za-z0-9]+[^:]*:[0-9]+:[^ ]*.*:")

    def trace(self, level):
        done = subprocess.run(
            command("run", example("04-sort.otx"), "--log", str(level), "--json"), capture_output=True, text=True
        )
        self.assertEqual(done.returncode, 0)
        self.assertEqual(json.loads(done.stdout)["outcome"], "finished")
        return done.stderr

    def test_nothing_at_level_0(self):
        self.assertEqual(self.trace(0), "")

    def test_milestones_at_level_3(self):
        text = self.trace(3)
        self.assertIn("\n<========== Run Sequence main ==========>\n", text)
        self.assertIn("\n<========== Exit Sequence main ==========>\n", text)
        for line in text.splitlines():
            if not line.startswith("<=========="):
                self.assertRegex(line, self.LINE)

    def test_more_at_level_4(self):
        self.assertGreater(len(self.trace(4)), len(self.trace(3)))


class Log(unittest.TestCase):
    def run_with(self, *words, **how):
        return subprocess.run(command(*words), text=True, timeout=LIMIT_IN_SECONDS, **how)

    def test_stands_ahead_of_the_stop_and_the_end(self):
        done = self.run_with(
            "debug", example("operator-text.otx"), "--log-sequence", "3",
            input="break n7\nrun\ncontinue\nquit\n", stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
        )
        lines = done.stdout.splitlines()
        self.assertEqual([line.split(" ")[0] for line in lines[:6]], ["breakpoint", "Good", "The", "flow", "All", "the"])

    def test_full_disk_costs_the_log_and_not_the_run(self):
        done = self.run_with(
            "run", example("operator-text.otx"), "--log", "7", "--log-file", "/dev/full", "--json", capture_output=True
        )
        self.assertEqual(done.returncode, 0)
        self.assertEqual(json.loads(done.stdout)["outcome"], "finished")
        self.assertRegex(done.stderr, r"\Avelkotx: [1-9][0-9]+ lines of the log are lost\n\Z")

    def test_reader_that_has_gone_costs_the_log_and_not_the_run(self):
        reader, writer = os.pipe()
        os.close(reader)
        done = self.run_with("run", example("operator-text.otx"), "--log", "7", "--json", stdout=subprocess.PIPE, stderr=writer)
        os.close(writer)
        self.assertEqual(done.returncode, 0)
        self.assertEqual(json.loads(done.stdout)["outcome"], "finished")

    def test_reader_that_takes_nothing_does_not_hold_the_run_up(self):
        # The pipe is full before the trace is; nobody reads it until the program has ended.
        reader, writer = os.pipe()
        size = fcntl.fcntl(writer, fcntl.F_SETPIPE_SZ, 4096)
        done = self.run_with("run", example("04-sort.otx"), "--log", "7", "--json", stdout=subprocess.PIPE, stderr=writer)
        os.close(writer)
        self.assertEqual(done.returncode, 0)
        self.assertEqual(json.loads(done.stdout)["outcome"], "finished")
        with os.fdopen(reader, "rb") as pipe:
            self.assertGreater(len(pipe.read()), size // 2)


def main():
    parser = argparse.ArgumentParser(description="Tests velkotx with signals and terminals.")
    parser.add_argument("--velkotx", required=True, type=os.path.abspath)
    parser.add_argument("--examples", required=True, type=os.path.abspath)
    running.options, rest = parser.parse_known_args()
    unittest.main(argv=[sys.argv[0], *rest])


if __name__ == "__main__":
    main()
