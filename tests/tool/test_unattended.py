#!/usr/bin/env python3
"""Runs the tool and the example clients without a user. The component must answer each dialog at once and never show it.
One test sets K4TBACKPROCESS_UNATTENDED to 0 and expects the dialog.

    test_unattended.py WINE_RUN BIN_FOLDER

The registered component has a kernel that lacks a function. Therefore a client's command fails, and the component reports
the failure in a message box.
"""
import os
import pathlib
import re
import shutil
import subprocess
import tempfile
import time

import running
from running import EXAMPLES, TIMEOUT, LiveHost, RegisteredTestCase, main, run, windows_path

# Wine writes the text of OutputDebugString to standard error.
UNATTENDED = {"K4TBACKPROCESS_UNATTENDED": "1", "WINEDEBUG": "warn+seh"}
# The argument contains a blank, so that Wine quotes the argument. The component needs the quotes.
BAD_FOLDER = "/sys:C:\\no where"
BAD_FOLDER_NOTE = "message answered with OK: title=[Path not found] prompt=[Path: C:\\NO WHERE not available]"
# The kernel stores no strings, so there is no product name.
FAILED_COMMAND = "message answered with OK: title=[] prompt=[Can't find DLL entry point: DB_DataBase"


def notes(errors):
    """Returns the lines of the component's debug output in order."""
    pattern = r'OutputDebugString([AW]) L?"K4TBackProcess: unattended, (.*)\\n"'
    written = re.findall(pattern, errors.decode(errors="replace"))
    # Wine 10 reports each line twice, as Windows does: a wide text, then the same text in the ANSI code page.
    wide = [note for kind, note in written if kind == "W"]
    return [note.replace('\\"', '"').replace("\\\\", "\\") for note in wide or [note for _, note in written]]


def colours_on_screen():
    shown = subprocess.run(["import", "-window", "root", "-format", "%k", "info:"], capture_output=True, check=True,
                           timeout=TIMEOUT)
    return int(shown.stdout)


class Unattended(RegisteredTestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = pathlib.Path(cls.enterClassContext(tempfile.TemporaryDirectory()))
        running.copy_built(cls.folder, "backproc.exe", "K4TBackProcess.dll")
        shutil.copy(running.bin_folder / "commands" / "DB_DataBase" / "QmxKrn2K.dll", cls.folder)
        cls.tool = cls.folder / "backproc.exe"
        super().setUpClass()

    def check(self, arguments, code, output, note):
        got = run(self.tool, *arguments, environment=UNATTENDED)
        self.assertEqual((got[0], got[1].decode()), (code, output))
        self.assertEqual(notes(got[2]), [note])

    def test_dialogs_of_the_tool_are_answered(self):
        self.check(["msgbox", "--title", "T", "Overwrite?"], 2, "2\n",
                   "message answered with Cancel: title=[T] prompt=[Overwrite?]")
        self.check(["query", "--kind", "3", "--title", "T", "--prompt", "Which?", "--index", "0", "", "A"], 1,
                   "text=\nindex=-1\n", "question answered with Cancel: title=[T] prompt=[Which?]")
        self.check(["error", "2", "x"], 0, "", "message answered with OK: title=[ -  (Pelorix Background process )] "
                   "prompt=[Can't save projectx]")

    def check_client(self, *command):
        """Runs a client with a missing system folder. The client also sends a command that fails."""
        code, output, errors = run(*command, BAD_FOLDER, environment=UNATTENDED)
        self.assertEqual(code, 0, output.decode(errors="replace"))
        self.assertIn(b"released", output.splitlines())
        first, *others = notes(errors)
        self.assertEqual(first, BAD_FOLDER_NOTE)
        self.assertTrue(others)
        for note in others:
            self.assertTrue(note.startswith(FAILED_COMMAND), note)

    def test_clients_see_no_dialog(self):
        self.check_client(running.bin_folder / "examples" / "client.exe")
        self.check_client("cscript.exe", "//nologo", windows_path(EXAMPLES / "client.vbs"))

    def test_the_trace_shows_the_answers(self):
        trace = self.folder / "trace.txt"
        environment = {**UNATTENDED, "K4TBACKPROCESS_TRACE": windows_path(trace)}
        run(self.tool, "msgbox", "Overwrite?", environment=environment)
        run(self.tool, "query", "--kind", "1", "", environment=environment)
        run("cscript.exe", "//nologo", windows_path(EXAMPLES / "client.vbs"), BAD_FOLDER, environment=environment)
        lines = trace.read_text(encoding="utf-8")
        self.assertEqual(lines.count(" unattended=[1]"), 3)
        answers = re.findall(r" ((?:message|question) answered .*?) ms=", lines)
        self.assertEqual(answers[:3], ["message answered answer=[2]", "question answered answer=[] index=[-1]",
                                       "message answered answer=[1]"])

    def test_the_screen_stays_empty(self):
        with LiveHost(BAD_FOLDER, program=self.tool, environment=UNATTENDED) as host:
            self.assertEqual(host.ask(b"create"), b"1 created\n")
            self.assertEqual(host.ask(b"load 1"), b"1 Load True\n")
            self.assertEqual(host.ask(b"notify 1 All,SAVE"), b"1 NotifyServer [K4TBACKPROCESS] [SHUTDOWN]\n")
            self.assertEqual(host.lines.get(timeout=TIMEOUT), b"1 NotifyMe\n")
            self.assertEqual(colours_on_screen(), 1)

    def test_value_0_of_the_variable_shows_the_dialog(self):
        trace = self.folder / "waiting.txt"
        environment = {**os.environ, "K4TBACKPROCESS_UNATTENDED": "0", "K4TBACKPROCESS_TRACE": windows_path(trace)}
        box = subprocess.Popen([running.wine_run, str(self.tool), "msgbox", "--title", "T", "Overwrite?"], env=environment,
                               stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        try:
            end = time.monotonic() + TIMEOUT
            while colours_on_screen() == 1 and time.monotonic() < end:
                time.sleep(0.1)
            self.assertGreater(colours_on_screen(), 1)
            self.assertIsNone(box.poll())
            # The trace shows that the message box was opened and has no answer yet.
            lines = trace.read_text(encoding="utf-8")
            self.assertIn(" message box=[suite] prompt=[Overwrite?]", lines)
            self.assertNotIn(" message answered ", lines)
        finally:
            box.kill()
            box.wait(timeout=TIMEOUT)


if __name__ == "__main__":
    main()
