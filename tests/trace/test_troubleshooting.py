#!/usr/bin/env python3
"""Reproduces each symptom of docs/TROUBLESHOOTING.md for which the page shows a line of the trace, and finds
this line in the trace.

    test_troubleshooting.py WINE_RUN BIN_FOLDER
"""
import pathlib
import re
import shutil
import tempfile

import tracing
from tracing import hanging_host, host, lines_of, running, traced
from running import LiveHost, RegisteredTestCase, main, run, tool, windows_path

PAGE = pathlib.Path(__file__).resolve().parent.parent.parent / "docs" / "TROUBLESHOOTING.md"
ROW = re.compile(r"^\| ([^|]+) \| `([^`]+)`[^|]* \| [^|]+ \| [^|]+ \|$", re.MULTILINE)


def rows():
    """Returns the line of the trace that the page shows for each symptom."""
    return dict(ROW.findall(PAGE.read_text(encoding="utf-8").split("## With a trace")[1]))


def pattern(line):
    """Turns a line of the page into a regular expression. "..." matches any text."""
    return re.escape(line).replace(re.escape("..."), ".*")


class Symptoms(RegisteredTestCase):
    reproduced = set()

    def find(self, symptom, lines):
        """Returns those of `lines` that match the page's line for `symptom`. Fails if there is none."""
        found = [line for line in lines if re.match(pattern(rows()[symptom]), line)]
        self.assertTrue(found, "\n".join([rows()[symptom], *lines]))
        self.reproduced.add(symptom)
        return found

    def test_a_load_that_fails(self):
        lines = host("set AllAps EDITOR,1E999", "create", "load 1")
        self.find("`Load` returns `True`, but nothing works", lines)
        self.assertIn("field 2", self.find("`Load` returns `True` after an overflow", lines)[0])
        self.assertNotIn("form loaded form=[frmBackProcessMain]", lines)

    def test_a_load_that_never_returns(self):
        for modules in ('"EDITOR', 'EDITOR,"LIBRARY', "X" * 300 + ',"LIBRARY'):
            with hanging_host("set AllAps " + modules, "create", "load 1", until="key=[AllAps]") as lines:
                self.assertEqual(self.find("`Load` never returns", lines), lines[-1:])

    def test_an_earlier_instance(self):
        with LiveHost() as other:
            self.assertEqual(other.ask(b"create"), b"1 created\n")
            self.assertEqual(other.ask(b"load 1"), b"1 Load True\n")
            lines = host("create", "load 1")
        self.assertEqual(len(self.find("SHUTDOWN comes three times", lines)), 3)
        self.assertEqual(sum("command=[SHUTDOWN]" in line and "sink called" in line for line in lines), 3)

    def test_wrong_folders(self):
        with tempfile.TemporaryDirectory(suffix=" sys") as folder:
            (pathlib.Path(folder) / "MARLENTO.INI").write_text("[Marlento]\nJobDir=D:\\old\n", encoding="ascii")
            lines = host("create", arguments=["/sys:" + windows_path(folder)])
        self.assertIn("value=[D:\\old] source=[INI file]", self.find("wrong folders", lines)[0])
        self.assertIn(f"system folder folder=[{windows_path(folder)}\\]", lines)
        self.assertIn("source=[default]", self.find("wrong folders", host("create"))[0])

    def test_a_wrong_language(self):
        lines = host("set LANGUAGEPATH C:\\Windows", "create", "load 1")
        self.assertIn("value=[C:\\Windows]", self.find("wrong language", lines)[0])
        text = self.find("English texts in a translation", lines)[0]
        self.assertEqual(*re.search(r"default=(\[.*\]) shown=(\[[^\]]*\])", text).groups())

    def test_a_sink_that_fails(self):
        with tempfile.TemporaryDirectory() as folder:
            file = pathlib.Path(folder, "trace.txt")
            code, output, _ = run(running.bin_folder / "trace" / "failing_sink.exe", environment=traced(file))
            lines = lines_of(file)
        self.assertEqual((code, output), (0, b"0x80070005\r\n"))
        self.assertIn("connection=[1] result=[0x80070005]", self.find("a call fails after an event", lines)[0])
        self.assertTrue(any(line.startswith("AP_SendCmdAll done instance=[1] error=[") for line in lines))

    def register_copy(self, *names):
        """Copies the tool and the component to a new folder and registers the copy of the component."""
        folder = self.enterContext(tempfile.TemporaryDirectory())
        running.copy_built(folder, "backproc.exe", "K4TBackProcess.dll", *names)
        copy = pathlib.Path(folder) / "backproc.exe"
        tool("unregister")
        self.addCleanup(tool, "register")
        self.assertEqual(run(copy, "register")[0], 0)
        self.addCleanup(run, copy, "unregister")
        return copy

    def test_no_kernel(self):
        copy = self.register_copy()
        self.find("no instance can be created", host("create", program=copy))

    def test_another_registration(self):
        copy = self.register_copy("dev/QmxKrn2K.dll")
        line = self.find("an update has no effect", host("create"))[0]
        self.assertIn(f"component=[{windows_path(copy.parent)}\\K4TBackProcess.dll]", line)

    def test_a_message_box_without_a_user(self):
        with hanging_host("create", arguments=["/sys:C:\\no where"], until="message box=") as lines:
            self.assertEqual(self.find("a program hangs", lines), lines[-1:])
            self.assertFalse(any(line.startswith("message answered") for line in lines))

    def test_a_command_that_fails(self):
        lines = host("create", "load 1", "notify 1 All,SAVE", program=self.register_copy_without_entries(),
                     environment={"K4TBACKPROCESS_UNATTENDED": "1"})
        self.assertIn("error=[453]", self.find("all forms disappear after a command", lines)[0])

    def register_copy_without_entries(self):
        copy = self.register_copy()
        shutil.copy(running.bin_folder / "commands" / "DB_DataBase" / "QmxKrn2K.dll", copy.parent)
        return copy

    def test_zz_each_row_was_reproduced(self):
        self.assertGreaterEqual(len(rows()), 12)
        self.assertEqual(set(rows()), self.reproduced)


if __name__ == "__main__":
    main()
