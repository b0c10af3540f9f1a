"""What the tests of the tool share: running built programs under Wine, and scenarios of single runs.

Each file in scenarios/ is one run of the tool (see Scenario). The paths come from the command line, which main() reads.
"""
import os
import pathlib
import queue
import re
import shutil
import subprocess
import sys
import tempfile
import threading
import unittest

HERE = pathlib.Path(__file__).resolve().parent
EXAMPLES = HERE.parent.parent / "examples"
# How many identifiers a whole language file translates.
TEXTS = len(re.findall(r"^[^#\s].*=", (EXAMPLES / "languages" / "German" / "K4TBackProcess.txt").read_text(encoding="utf-8"), re.M))
TIMEOUT = 120  # seconds; a run takes one or two

wine_run = ""
bin_folder = pathlib.Path()


def windows_path(path):
    return "Z:" + str(path).replace("/", "\\")


def run(program, *arguments, text=b"", environment=None):
    """The exit code, standard output and standard error of one run, as bytes."""
    # Files, not pipes: helper processes of Wine inherit them and keep them open after the program has ended.
    with tempfile.TemporaryFile() as given, tempfile.TemporaryFile() as output, tempfile.TemporaryFile() as errors:
        given.write(text)
        given.seek(0)
        code = subprocess.run([wine_run, str(program), *arguments], stdin=given, stdout=output, stderr=errors,
                              timeout=TIMEOUT, env=dict(os.environ, **(environment or {}))).returncode
        output.seek(0)
        errors.seek(0)
        return code, output.read(), errors.read()


def copy_built(folder, *names):
    """Copies built files into `folder`, each into the folder below it that it has in the build."""
    for name in names:
        target = pathlib.Path(folder) / name
        target.parent.mkdir(exist_ok=True)
        shutil.copy(bin_folder / name, target)


# Wine prefers its own control to the file in the system folder unless it is told otherwise.
SHOWS_HELP = {"WINEDLLOVERRIDES": "mscoree,mshtml=;hhctrl.ocx=n"}


def replace_help_control(double):
    """Puts a built double of the help control, without the notes of an earlier one, into the system folder; returns its
    path. Only for the prefix of one test."""
    control = pathlib.Path(os.environ["WINEPREFIX"], "drive_c", "windows", "system32", "hhctrl.ocx")
    # All prefixes share the file, so it must not be written to.
    control.unlink()
    pathlib.Path(f"{control}.txt").unlink(missing_ok=True)
    return pathlib.Path(shutil.copy(bin_folder / double, control))


def tool(*arguments, text=b""):
    return run(bin_folder / "backproc.exe", *arguments, text=text)


class LiveHost:
    """`backproc host` with its input held open."""

    def __enter__(self):
        self.process = subprocess.Popen([wine_run, str(bin_folder / "backproc.exe"), "host"], stdin=subprocess.PIPE,
                                        stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        self.lines = queue.Queue()
        threading.Thread(target=self.read, daemon=True).start()
        return self

    def __exit__(self, *_):
        self.process.stdin.close()
        self.process.wait(timeout=TIMEOUT)

    def read(self):
        for line in self.process.stdout:
            self.lines.put(line)

    def ask(self, *commands):
        """The first line that the host prints after `commands`."""
        self.process.stdin.write(b"".join(command + b"\n" for command in commands))
        self.process.stdin.flush()
        return self.lines.get(timeout=TIMEOUT)


class Scenario:
    """One run: a file of sections, each headed by a line "--- name".

    arguments  one a line; {bin} stands for the folder of the tool
    input      what the tool reads
    output     what it prints; {*} stands for any text within a line, {bin} as above
    errors     the same for standard error; it must be empty when the section is missing
    exit       the exit code, 0 when the section is missing
    """

    def __init__(self, path):
        self.sections = {}
        name = "about"
        for line in path.read_text(encoding="utf-8").splitlines(keepends=True):
            if line.startswith("--- "):
                name = line[4:].strip()
                self.sections[name] = ""
            elif name != "about":
                self.sections[name] += line

    def arguments(self):
        lines = self.sections.get("arguments", "").splitlines()
        return [line.replace("{bin}", windows_path(bin_folder)) for line in lines]

    def input(self):
        return self.sections.get("input", "").encode()

    def pattern(self, name):
        text = re.escape(self.sections.get(name, "")).replace(re.escape("{*}"), "[^\n]*")
        return text.replace(re.escape("{bin}"), re.escape(windows_path(bin_folder)))

    def exit(self):
        return int(self.sections.get("exit", "0"))


class ToolTestCase(unittest.TestCase):
    maxDiff = None

    def check(self, scenario):
        code, output, errors = tool(*scenario.arguments(), text=scenario.input())
        for name, got in (("output", output), ("errors", errors)):
            text = got.decode("utf-8")
            if not re.fullmatch(scenario.pattern(name), text):
                self.assertEqual(scenario.sections.get(name, ""), text, name)
                self.fail(name)
        self.assertEqual(scenario.exit(), code, "exit code")

    def check_all(self, folder):
        paths = sorted((HERE / "scenarios" / folder).glob("*.txt"))
        self.assertTrue(paths, "no scenarios in " + folder)
        for path in paths:
            with self.subTest(path.stem):
                self.check(Scenario(path))


def main():
    """Runs the tests of the script; its arguments are WINE_RUN and BIN_FOLDER."""
    global wine_run, bin_folder
    wine_run, bin_folder = sys.argv[1], pathlib.Path(sys.argv[2]).resolve()
    # Without the warnings of pipes left open: Wine's helper processes hold the other end for as long as they like.
    unittest.main(argv=sys.argv[:1], verbosity=2, warnings="ignore")
