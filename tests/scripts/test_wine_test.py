#!/usr/bin/env python3
"""Tests scripts/wine-test. The script returns the exit code of its command. But it fails if a test program
ends inside a test.

    test_wine_test.py PREFIX PROGRAM    PROGRAM is a test program that ends too early
"""
import pathlib
import subprocess
import sys
import unittest

SCRIPTS = pathlib.Path(__file__).resolve().parent.parent.parent / "scripts"
TIMEOUT = 200  # seconds; a prefix is made in one or two seconds, and the template of all prefixes in ten

prefix = ""
program = ""


def run(*command):
    done = subprocess.run([SCRIPTS / "wine-test", prefix, *command], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                          stderr=subprocess.PIPE, text=True, timeout=TIMEOUT)
    return done.returncode, done.stderr


class WineTest(unittest.TestCase):
    def test_exit_code_of_the_command_is_returned(self):
        self.assertEqual(run("true"), (0, ""))
        self.assertEqual(run("sh", "-c", "exit 7"), (7, ""))

    def test_finished_program_succeeds(self):
        code, _ = run(SCRIPTS / "wine-run", program, "--gtest_filter=-*")
        self.assertEqual(code, 0)

    def test_program_that_ends_inside_a_test_fails(self):
        code, errors = run(SCRIPTS / "wine-run", program)
        self.assertEqual(code, 1)
        self.assertIn("the test program ended before it had finished all tests", errors)


if __name__ == "__main__":
    prefix, program = sys.argv[1:]
    unittest.main(argv=sys.argv[:1])
