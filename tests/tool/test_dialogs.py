#!/usr/bin/env python3
"""Runs the verbs that show dialogs. Answers the dialogs by keyboard, or lets a time limit close them.

    test_dialogs.py WINE_RUN BIN_FOLDER
"""
import os
import pathlib
import shutil
import subprocess
import tempfile
import time

import running
from running import TIMEOUT, ToolTestCase, main, run, tool, windows_path


class Dialogs(ToolTestCase):
    def answer(self, keys, verb, *arguments, folder=None, environment=None):
        """Runs a verb of the tool in `folder`, or of the built tool, and answers its dialog with `keys`. Returns exit code
        and output."""
        title = f"Frage {os.getpid()}"
        display = os.environ.get("DISPLAY") or subprocess.check_output(
            [pathlib.Path(running.wine_run).parent / "start-display"], text=True, timeout=TIMEOUT).strip()
        screen = {**os.environ, "DISPLAY": display, **(environment or {})}
        program = str((folder or running.bin_folder) / "backproc.exe")
        with tempfile.TemporaryFile() as output:
            dialog = subprocess.Popen([running.wine_run, program, verb, "--title", title, *arguments], stdout=output,
                                      stderr=output, env=screen)
            self.addCleanup(dialog.kill)
            end = time.monotonic() + TIMEOUT

            def press(*command):
                subprocess.run(["xdotool", *command, *keys], env=screen, stdout=subprocess.DEVNULL,
                               stderr=subprocess.DEVNULL, timeout=TIMEOUT)

            while dialog.poll() is None and time.monotonic() < end:
                press("search", "--onlyvisible", "--name", title, "windowfocus", "key")
                time.sleep(0.3)
            # If the window closes before the key is released, xdotool does not release the key. The next dialog would
            # then receive a held key.
            press("keyup")
            output.seek(0)
            return dialog.poll(), output.read().decode()

    def test_msgbox_uses_the_language_of_the_folder(self):
        with tempfile.TemporaryDirectory() as folder:
            (pathlib.Path(folder) / "K4TBackProcess.txt").write_text("39171 = &Ja\n", encoding="utf-8")
            # The English box has no button for this letter.
            answer = self.answer(["j"], "msgbox", "--language", windows_path(folder), "Overwrite?")
        self.assertEqual(answer, (6, "6\n"))

    def ask(self, key, *arguments):
        return self.answer([key], "query", *arguments)

    def test_query_opens_the_help_file_in_the_tools_folder(self):
        with tempfile.TemporaryDirectory() as name:
            folder = pathlib.Path(name)
            running.copy_built(folder, "backproc.exe", "dev/QmxKrn2K.dll")
            control = running.replace_help_control("test/hhctrl.ocx")
            # The "a" proves that the dialog has received the keys. "ctrl+F1" would release Ctrl first and open no help.
            keys = ["a", "keydown", "ctrl", "key", "F1", "keyup", "ctrl", "key", "Return"]
            answer = self.answer(keys, "query", "--kind", "1", "", folder=folder, environment=running.SHOWS_HELP)
            calls = pathlib.Path(f"{control}.txt").read_text(encoding="ascii")
        self.assertEqual(answer, (0, "text=a\nindex=0\n"))
        self.assertEqual(calls.splitlines(), [f"ownerless [{windows_path(folder)}\\Marlentine.chm] 1"])

    def test_query_reports_how_it_ended(self):
        self.assertEqual(self.ask("Return", "--kind", "1", "abc  "), (0, "text=abc\nindex=0\n"))
        self.assertEqual(self.ask("Return", "--kind", "1", ""), (0, "text=\nindex=0\n"))
        self.assertEqual(self.ask("Escape", "--kind", "1", "abc"), (1, "text=\nindex=-1\n"))
        self.assertEqual(self.ask("alt+m", "--kind", "1", "--button", "&More", "abc"), (3, "text=␁\nindex=-100\n"))
        self.assertEqual(self.ask("Return", "--kind", "3", "--index", "1", "", "A", "B\\nC"),
                         (0, "text=B␍␊C\nindex=2\n"))

    def test_a_timeout_closes_each_dialog(self):
        limit = ("--timeout", "1")
        self.assertEqual(tool("msgbox", *limit, "Overwrite?"), (66, b"2\n", b""))
        self.assertEqual(tool("msgbox", *limit, "--default", "8", "Overwrite?"), (66, b"8\n", b""))
        for kind in "12345":
            with self.subTest(kind):
                self.assertEqual(tool("query", "--kind", kind, *limit, "", "A"), (66, b"text=\nindex=-1\n", b""))
        self.assertEqual(tool("query", "--kind", "3", *limit, "--default", "B", "", "A", "B"),
                         (66, b"text=B\nindex=2\n", b""))

    def test_an_answer_before_the_timeout_is_returned(self):
        self.assertEqual(self.answer(["Return"], "msgbox", "--timeout", "100", "--default", "7", "Overwrite?"), (6, "6\n"))
        self.assertEqual(self.answer(["Return"], "query", "--timeout", "100", "--default", "x", "--kind", "1", "abc"),
                         (0, "text=abc\nindex=0\n"))

    def test_a_timeout_ends_a_blocked_dialog(self):
        self.assertEqual(run(running.bin_folder / "test" / "blocked_dialog.exe"), (66, b"given up", b""))


if __name__ == "__main__":
    main()
