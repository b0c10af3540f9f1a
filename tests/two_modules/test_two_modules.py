#!/usr/bin/env python3
"""Tests the sample modules EDITOR and LIBRARY. Each module is a process with a window. The modules deliver commands to
each other.

    test_two_modules.py WINE_RUN BIN_FOLDER EXAMPLES

The environment variable WINEPREFIX must contain the path of the Wine prefix.
"""
import os
import pathlib
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest

TIMEOUT = 120  # seconds; most steps take one or two seconds, and a burst takes longer on a busy machine
BURST = 1000

wine_run = ""
bin_folder = pathlib.Path()
examples = pathlib.Path()


def windows_path(path):
    return "Z:" + str(path).replace("/", "\\")


def tool(*arguments):
    # The output is a file, because Wine's helper processes would keep a pipe open after the program's end.
    with tempfile.TemporaryFile() as output:
        subprocess.run([wine_run, str(bin_folder / "backproc.exe"), *arguments], check=True, stdout=output,
                       stderr=subprocess.DEVNULL, timeout=TIMEOUT)
        output.seek(0)
        return output.read().decode().strip()


class Program:
    """A running module."""

    def __init__(self, path, *arguments):
        self.name = path.stem
        self.output = tempfile.NamedTemporaryFile()
        self.process = subprocess.Popen([wine_run, str(path), *arguments], stdin=subprocess.PIPE, stdout=self.output,
                                        stderr=subprocess.DEVNULL)

    def type(self, *lines):
        self.process.stdin.write("".join(line + "\n" for line in lines).encode())
        self.process.stdin.flush()

    def lines(self):
        """Returns the lines that the module has printed, without the module's name at the beginning."""
        said = pathlib.Path(self.output.name).read_text(encoding="utf-8").splitlines()
        return [line.partition(": ")[2] for line in said]

    def wait_for(self, line, count=1):
        """Waits until the module has printed `line` at least `count` times."""
        end = time.monotonic() + TIMEOUT
        while self.lines().count(line) < count:
            if time.monotonic() > end:
                raise AssertionError(f"{self.name} did not print {line!r}; its last lines are {self.lines()[-20:]}")
            time.sleep(0.05)

    def from_module(self, module):
        return [line.removeprefix(f"from {module}: ") for line in self.lines() if line.startswith(f"from {module}: ")]

    def quit(self):
        """Ends the module and returns its exit code."""
        self.type("quit")
        return self.process.wait(TIMEOUT)

    def kill(self):
        self.process.send_signal(signal.SIGCONT)
        self.process.kill()
        self.process.wait(TIMEOUT)
        self.process.stdin.close()
        self.output.close()


class TwoModules(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        subprocess.run(["wineserver", "-p"], check=True)  # Wine's server runs until scripts/wine-test ends it
        tool("register")

    def start(self, path, *arguments):
        program = Program(path, *arguments)
        self.addCleanup(program.kill)
        program.wait_for("ready")
        return program

    def setUp(self):
        self.library = self.start(bin_folder / "examples" / "two-modules" / "library.exe")
        self.editor = self.start(bin_folder / "examples" / "two-modules" / "editor.exe")

    def test_command_and_reply_are_delivered(self):
        self.editor.type("LIBRARY OPEN,amp.sch")
        self.library.wait_for("from EDITOR: OPEN,amp.sch")
        self.editor.wait_for("from LIBRARY: OPENED,amp.sch")

    def test_carriage_return_at_the_end_of_a_line_is_ignored(self):
        self.editor.type("LIBRARY\r", "quit\r")
        self.library.wait_for("from EDITOR: ")
        self.assertEqual(self.editor.process.wait(TIMEOUT), 0)

    def test_special_and_empty_texts_arrive_unchanged(self):
        text = 'a\\u0041 "b",\tc \u00fc\u6f22 \\'
        self.editor.type("LIBRARY " + text, "LIBRARY")
        self.library.wait_for("from EDITOR: ")
        self.assertEqual(self.library.from_module("EDITOR"), [text, ""])

    def test_modules_are_added_to_and_removed_from_the_module_list(self):
        self.assertEqual(tool("strings", "get", "AllAps"), "AllAps=[LIBRARY,K4TBACKPROCESS,EDITOR]")
        self.assertEqual(self.editor.quit(), 0)
        self.assertEqual(tool("strings", "get", "AllAps"), "AllAps=[LIBRARY,K4TBACKPROCESS]")
        self.library.type("EDITOR OPEN,x", "LIBRARY still here")
        self.library.wait_for("EDITOR is not running, not delivered: OPEN,x")
        self.library.wait_for("from LIBRARY: still here")

    def test_second_module_with_the_same_name_does_not_start(self):
        second = Program(bin_folder / "examples" / "two-modules" / "library.exe")
        self.addCleanup(second.kill)
        second.wait_for("cannot open the mailbox; check that the name is allowed and not in use")
        self.assertEqual(second.process.wait(TIMEOUT), 1)

    def test_all_modules_switch_the_language(self):
        folder = windows_path(examples / "languages" / "German")
        self.editor.type("language " + folder)
        said = f'language folder {folder}, the component\'s caption is "Pelorix-Hintergrundprozess"'
        self.editor.wait_for(said)
        self.library.wait_for(said)

    def test_bursts_in_both_directions_arrive_in_order(self):
        commands = [f"R{number}" for number in range(BURST)]
        self.editor.type(*(f"LIBRARY {command}" for command in commands))
        self.library.type(*(f"EDITOR {command}" for command in commands))
        self.library.wait_for(f"from EDITOR: R{BURST - 1}")
        self.editor.wait_for(f"from LIBRARY: R{BURST - 1}")
        self.assertEqual(self.library.from_module("EDITOR"), commands)
        self.assertEqual(self.editor.from_module("LIBRARY"), commands)

    def test_killed_module_is_reported_as_not_running(self):
        commands = [f"LIBRARY R{number}" for number in range(BURST)]
        self.editor.type(*commands[:BURST // 2])
        self.library.wait_for("from EDITOR: R0")
        self.library.process.kill()
        self.editor.type(*commands[BURST // 2:])
        self.library.process.wait(TIMEOUT)
        self.editor.type("LIBRARY last", "EDITOR still here")
        self.editor.wait_for("from EDITOR: still here")
        self.assertIn("LIBRARY is not running, not delivered: last", self.editor.lines())
        self.assertFalse([line for line in self.editor.lines() if "busy" in line])
        # A restarted module receives only the commands that were sent after its start.
        self.library = self.start(bin_folder / "examples" / "two-modules" / "library.exe")
        self.editor.type("LIBRARY welcome")
        self.library.wait_for("from EDITOR: welcome")
        self.assertEqual(self.library.from_module("EDITOR"), ["welcome"])

    def test_module_with_a_full_queue_is_reported_as_busy(self):
        self.library.process.send_signal(signal.SIGSTOP)
        large = [letter * 300_000 for letter in "ABCD"]
        self.editor.type(*(f"LIBRARY {command}" for command in large), "EDITOR still here")
        self.editor.wait_for("from EDITOR: still here")
        self.assertIn("LIBRARY is busy, not delivered: " + "D" * 40, self.editor.lines())
        self.library.process.send_signal(signal.SIGCONT)
        self.library.wait_for("from EDITOR: " + "C" * 40)
        self.assertEqual(self.library.from_module("EDITOR"), [letter * 40 for letter in "ABC"])

    def test_module_that_starts_later_receives_commands(self):
        self.editor.type("SIMULATOR RUN,1")
        self.editor.wait_for("SIMULATOR is not running, not delivered: RUN,1")
        with tempfile.TemporaryDirectory() as folder:
            shutil.copy(bin_folder / "examples" / "two-modules" / "library.exe", pathlib.Path(folder) / "simulator.exe")
            simulator = self.start(pathlib.Path(folder) / "simulator.exe", "SIMULATOR")
            self.editor.type("SIMULATOR OPEN,r.lib", "all RENAMED,r.lib")
            simulator.wait_for("from EDITOR: OPEN,r.lib")
            self.editor.wait_for("from SIMULATOR: OPENED,r.lib")
            for program in (self.editor, self.library, simulator):
                program.wait_for("from EDITOR: RENAMED,r.lib")
            self.assertEqual(simulator.quit(), 0)

    def test_modules_end_with_exit_code_0(self):
        for program in (self.editor, self.library):
            self.assertEqual(program.quit(), 0)
            self.assertEqual(program.lines()[-2:], ["the component's form was unloaded", "ended"])


if __name__ == "__main__":
    wine_run = os.path.abspath(sys.argv[1])
    bin_folder, examples = (pathlib.Path(argument).resolve() for argument in sys.argv[2:4])
    os.environ["K4TBACKPROCESS_DEVELOPMENT_KERNEL"] = "1"
    unittest.main(argv=sys.argv[:1] + sys.argv[4:], verbosity=2, warnings="ignore")
