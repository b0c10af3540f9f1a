#!/usr/bin/env python3
"""Runs the examples in the tool's help texts exactly as written.

    test_help_texts.py WINE_RUN BIN_FOLDER

The examples run in the order of the overview. The current folder has the package's files that the examples
need. The component is registered when an example runs, except for the example of `register`.
"""
import os
import pathlib
import re
import shutil
import subprocess
import tempfile
import time

import running

# The exit code of a verb's examples, if it is not 0.
EXIT_CODES = {"msgbox": 7}
# The verb that the test runs before the examples: `register` would refuse a second registration, and `doctor` needs one.
BEFORE = {"register": "unregister", "doctor": "register"}
DIALOGS = {"error", "msgbox", "query"}
# The expected output of examples that contain "backproc " and these words.
PRINTED = {
    "host": "1 created\n1 released\n",
    "texts get": "&Yes\n",
    "msgbox": "7\n",
    "query": "text=Top\nindex=1\n",
}


def help_of(verb):
    code, output, errors = running.tool(verb, "--help")
    assert (code, errors) == (0, b""), verb
    return output.decode("utf-8")


def verbs():
    overview = running.tool("--help")[1].decode("utf-8")
    return re.findall(r"^  ([a-z-]+)  ", overview[overview.index("Verbs:"):], re.M)


def examples(text):
    return re.findall(r"^  (.*)$", text[text.index("\nExample"):], re.M)


class HelpTexts(running.RegisteredTestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = pathlib.Path(cls.enterClassContext(tempfile.TemporaryDirectory()))
        running.copy_built(cls.folder, "backproc.exe", "K4TBackProcess.dll", "dev/QmxKrn2K.dll")
        shutil.copytree(running.EXAMPLES / "languages", cls.folder / "examples" / "languages")
        cls.tool = cls.folder / "backproc.exe"
        super().setUpClass()

    def test_help_of_every_verb_has_the_same_form(self):
        self.assertIn("host", verbs())
        for verb in verbs():
            with self.subTest(verb):
                text = help_of(verb)
                self.assertEqual(text.encode(), running.tool("help", verb)[1])
                self.assertTrue(text.startswith(f"Usage: backproc {verb}"))
                self.assertIn("\n\nExit code: ", text)
                self.assertTrue(examples(text))
                self.assertLessEqual(max(map(len, text.splitlines())), 120)
                usage = text[:text.index("\n\n")]
                for option in re.findall(r"--[a-z]+", usage):
                    self.assertRegex(text, rf"\n  {option}\b")

    def answer(self, example, environment):
        """Presses Return in the example's dialog until its process ends."""
        while example.poll() is None:
            subprocess.run(["xdotool", "search", "--onlyvisible", "--name", "Orvane", "windowfocus", "key", "Return"],
                           env=environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, timeout=60)
            time.sleep(0.3)
        subprocess.run(["xdotool", "keyup", "Return"], env=environment, timeout=60)

    def run_example(self, verb, line):
        """Runs a command line through the command interpreter. Returns exit code, output and errors."""
        batch = self.folder / "example.bat"
        batch.write_text(f"@{line}\n@exit %errorlevel%\n", encoding="ascii", newline="\r\n")
        display = os.environ.get("DISPLAY") or subprocess.check_output(
            [pathlib.Path(running.wine_run).parent / "start-display"], text=True, timeout=60).strip()
        environment = {**os.environ, "DISPLAY": display}
        with tempfile.TemporaryFile() as output, tempfile.TemporaryFile() as errors:
            command = ["timeout", str(running.TIMEOUT), running.wine_run, "cmd.exe", "/c", batch.name]
            example = subprocess.Popen(command, cwd=self.folder, stdin=subprocess.DEVNULL, stdout=output, stderr=errors,
                                       env=environment)
            if verb in DIALOGS:
                self.answer(example, environment)
            code = example.wait()
            output.seek(0)
            errors.seek(0)
            return code, output.read().decode("utf-8"), errors.read().decode("utf-8")

    def test_every_example_works_as_written(self):
        for verb in verbs():
            if verb in BEFORE:
                self.assertEqual(running.run(self.tool, BEFORE[verb])[0], 0)
            for line in examples(help_of(verb)):
                with self.subTest(line):
                    code, output, errors = self.run_example(verb, line)
                    self.assertEqual((code, errors), (EXIT_CODES.get(verb, 0), ""), output)
                    self.assertIn("backproc " + verb, line)
                    if verb == "trace":
                        self.assertIn(" created instance=[1]", output)
                    for begin, printed in PRINTED.items():
                        if "backproc " + begin in line:
                            self.assertEqual(output, printed)


if __name__ == "__main__":
    running.main()
