#!/usr/bin/env python3
"""Tests --help and the error for wrong arguments of every script. In both cases, a script only prints a text."""
import pathlib
import subprocess
import unittest

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
SCRIPTS = ["demo", "test", ".ci/run"] + sorted(
    f"scripts/{path.name}" for path in (ROOT / "scripts").iterdir() if path.is_file() and path.stat().st_mode & 0o100)
TIMEOUT = 60


def run(script, *arguments):
    return subprocess.run([ROOT / script, *arguments], cwd="/", capture_output=True, text=True, timeout=TIMEOUT)


class Help(unittest.TestCase):
    def test_list_of_scripts_is_not_empty(self):
        self.assertIn("scripts/build", SCRIPTS)

    def test_help_states_purpose_and_arguments(self):
        for script in SCRIPTS:
            with self.subTest(script):
                done = run(script, "--help")
                self.assertEqual((done.returncode, done.stderr), (0, ""))
                self.assertIn(pathlib.Path(script).name, done.stdout)
                self.assertGreaterEqual(len(done.stdout.splitlines()), 2)
                self.assertNotIn("set -", done.stdout)

    def test_unknown_option_is_named_and_refused(self):
        for script in SCRIPTS:
            # wine-run passes unknown options to Wine.
            if script == "scripts/wine-run":
                continue
            with self.subTest(script):
                done = run(script, "--sideways")
                self.assertEqual((done.returncode, done.stdout), (2, ""))
                self.assertIn("--sideways", done.stderr)
                self.assertRegex(done.stderr, "--help|-h")

    def test_surplus_or_missing_argument_is_named(self):
        for script, arguments, named in (("test", ["a", "b"], "'b'"), ("scripts/build", ["--shipped", "x"], "'x'"),
                                         ("scripts/wine-run", [], "EXE"),
                                         ("scripts/setup", [], "PURPOSE"), ("scripts/setup", ["demo", "x"], "'x'"),
                                         ("scripts/check-platforms", ["sid"], "'sid'"), ("scripts/wine-test", ["x"], "COMMAND")):
            with self.subTest(script):
                done = run(script, *arguments)
                self.assertEqual((done.returncode, done.stdout), (2, ""))
                self.assertIn(named, done.stderr)


if __name__ == "__main__":
    unittest.main()
