"""Functions for the tests of the tool. They run built programs and scenarios under Wine.

Each file in scenarios/ describes one run of the tool (see Scenario). main() reads the paths from the command line.
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
# The number of identifiers in a complete language file.
TEXTS = len(re.findall(r"^[^#\s].*=", (EXAMPLES / "languages" / "German" / "K4TBackProcess.txt").read_text(encoding="utf-8"), re.M))
TIMEOUT = 120  # seconds; a run takes one or two seconds

wine_run = ""
bin_folder = pathlib.Path()


def windows_path(path):
    return "Z:" + str(path).replace("/", "\\")


def run(program, *arguments, text=b"", environment=None):
    """Runs the program. Returns its exit code, standard output and standard error, as bytes."""
    # The output is in files, because Wine's helper processes would keep pipes open after the program's end.
    with tempfile.TemporaryFile() as given, tempfile.TemporaryFile() as output, tempfile.TemporaryFile() as errors:
        given.write(text)
        given.seek(0)
        code = subprocess.run([wine_run, str(program), *arguments], stdin=given, stdout=output, stderr=errors,
                              timeout=TIMEOUT, env=dict(os.environ, **(environment or {}))).returncode
        output.seek(0)
        errors.seek(0)
        return code, output.read(), errors.read()


def copy_built(folder, *names):
    """Copies built files into `folder`. The files keep their subfolders."""
    for name in names:
        target = pathlib.Path(folder) / name
        target.parent.mkdir(exist_ok=True)
        shutil.copy(bin_folder / name, target)


# With this setting, Wine loads the help control in the system folder instead of Wine's own.
SHOWS_HELP = {"WINEDLLOVERRIDES": "mscoree,mshtml=;hhctrl.ocx=n"}


def replace_help_control(double):
    """Copies a built help control for tests into the system folder and deletes the record of earlier calls.
    Returns the copy's path. Only a test that has its own prefix may call this function."""
    control = pathlib.Path(os.environ["WINEPREFIX"], "drive_c", "windows", "system32", "hhctrl.ocx")
    # Delete the file first, because all prefixes share it as a hard link. Overwriting it would change all prefixes.
    control.unlink()
    pathlib.Path(f"{control}.txt").unlink(missing_ok=True)
    return pathlib.Path(shutil.copy(bin_folder / double, control))


def tool(*arguments, text=b""):
    return run(bin_folder / "backproc.exe", *arguments, text=text)


class LiveHost:
    """Runs `backproc host` and keeps its standard input open."""

    def __init__(self, *arguments, program=None, environment=None):
        self.command = [wine_run, str(program or bin_folder / "backproc.exe"), "host", *arguments]
        self.environment = dict(os.environ, **(environment or {}))

    def __enter__(self):
        self.process = subprocess.Popen(self.command, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                        stderr=subprocess.DEVNULL, env=self.environment)
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
        """Sends `commands` and returns the next line that the host prints."""
        self.process.stdin.write(b"".join(command + b"\n" for command in commands))
        self.process.stdin.flush()
        return self.lines.get(timeout=TIMEOUT)


class Scenario:
    """Describes one run of the tool. The file consists of sections, and each section has a heading "--- name". Text before
    the first section says what the scenario shows.

    arguments  one per line; {bin} is replaced by the tool's folder
    input      the standard input
    output     the expected standard output; {*} matches any text within a line; {bin} is as above
    errors     the expected standard error; empty if the section is missing
    exit       the expected exit code; 0 if the section is missing
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


class RegisteredTestCase(ToolTestCase):
    """Registers the component before the first test of the class, and unregisters it after the last test.

    `tool` is the program that registers the component beside it. A subclass may set it; the default is the built program.
    """
    tool = None

    @classmethod
    def setUpClass(cls):
        cls.tool = cls.tool or bin_folder / "backproc.exe"
        # Register for the machine, because Wine's COM ignores classes that are registered for a user only.
        code, _, errors = run(cls.tool, "register")
        if code != 0:
            raise RuntimeError("cannot register: " + errors.decode())
        cls.addClassCleanup(run, cls.tool, "unregister")


def main():
    """Runs the tests of the calling script. Its arguments are WINE_RUN and BIN_FOLDER."""
    global wine_run, bin_folder
    wine_run, bin_folder = sys.argv[1], pathlib.Path(sys.argv[2]).resolve()
    # Suppresses warnings about open pipes. Wine's helper processes keep the other end of a pipe open for some time.
    unittest.main(argv=sys.argv[:1], verbosity=2, warnings="ignore")
