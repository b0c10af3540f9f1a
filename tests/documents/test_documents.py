#!/usr/bin/env python3
"""Follows the documents word by word: saves the files that they print, runs their commands in order, compares output.

    test_documents.py PROJECT

The commands run in a folder that looks like a checkout in which scripts/build has run, with a Wine prefix of its own.
"""
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

DOCUMENTS = ["USING.md", "KERNEL.md"]  # in this order: the second takes up what the first has made
TIMEOUT = 600  # seconds for all commands together; they take about 40
ANOTHER_HAS_THE_FORM = "# while another backproc host has the form"

project = pathlib.Path()


class Step:
    """A command, and the lines that it prints according to the document; None when it says nothing about them."""

    def __init__(self, document, command, expected):
        self.document, self.command, self.expected = document, command, expected


def blocks(text):
    """Each code block with the line of text before it."""
    for match in re.finditer(r"([^\n]*)\n\n```(\w*)\n(.*?)^```$", text, re.S | re.M):
        yield match[1], match[2], match[3]


def transcript(document, body):
    """The steps of a block of lines that start with '$ ', each with the output below it."""
    steps = []
    for line in body.splitlines():
        if line.startswith("$ "):
            steps.append(Step(document, line[2:], []))
        elif steps:
            steps[-1].expected.append(line)
    return steps


def read(document, save):
    """The document's steps. A text block whose introduction ends with a path in build/try is given to `save`."""
    steps = []
    follows_commands = False
    for introduction, language, body in blocks((project / "docs" / document).read_text(encoding="utf-8")):
        named = re.search(r"`(?:build/try/)?([\w.]+\.(?:cpp|vbs|js|c|def))`[^`]*:$", introduction)
        if language == "sh":
            # A comment at the end of a line is the shell's.
            steps += [Step(document, line, None) for line in body.splitlines()]
        elif body.startswith("$ "):
            steps += transcript(document, body)
        elif follows_commands and not language:
            steps[-1].expected = body.splitlines()
        elif named:
            save(named[1], body)
        follows_commands = language == "sh"
    return steps


def shell(steps, outputs):
    """One script, so that what a command sets is there for the next; each command's output goes to a file."""
    lines = ["export LC_ALL=C", "unset WINEPREFIX"]
    for number, step in enumerate(steps):
        run = f"{{ {step.command}\n}} >{outputs}/{number} 2>&1"
        if ANOTHER_HAS_THE_FORM in step.command:
            run = "\n".join([
                f"mkfifo {outputs}/other", f"backproc host <{outputs}/other >{outputs}/other.txt &",
                f"exec 5>{outputs}/other", "printf 'create\\nload 1\\n' >&5",
                f"for _ in $(seq 100); do grep -q Load {outputs}/other.txt && break; sleep 0.1; done", run,
                "exec 5>&-", "wait"])
        lines.append(run)
    return "\n".join(lines) + "\n"


class Documents(unittest.TestCase):
    def test_all_commands_do_what_the_documents_say(self):
        with tempfile.TemporaryDirectory() as temporary:
            root = pathlib.Path(temporary) / "checkout"
            outputs = pathlib.Path(temporary) / "outputs"
            outputs.mkdir()
            (root / "build" / "try").mkdir(parents=True)
            for name in ("scripts", "host", "examples", "docs"):
                (root / name).symlink_to(project / name)
            shutil.copytree(project / "dist", root / "dist")

            def save(name, body):
                (root / "build" / "try" / name).write_text(body, encoding="utf-8")

            steps = [step for document in DOCUMENTS for step in read(document, save)]
            self.assertGreater(len(steps), 20)
            script = outputs / "script"
            script.write_text(shell(steps, outputs), encoding="utf-8")
            subprocess.run(["bash", script], cwd=root, stdin=subprocess.DEVNULL, timeout=TIMEOUT)
            for number, step in enumerate(steps):
                with self.subTest(f"{step.document}: {step.command}"):
                    printed = (outputs / str(number)).read_text(encoding="utf-8", errors="replace")
                    if step.expected is not None:
                        self.assertEqual(printed.replace("\r", "").splitlines(), step.expected)
            # Its processes must be gone before the folder goes.
            subprocess.run(["wineserver", "-k"], env={"WINEPREFIX": str(root / "build" / "wine"), "PATH": "/usr/bin:/bin"},
                           timeout=60)


if __name__ == "__main__":
    project = pathlib.Path(sys.argv[1]).resolve()
    unittest.main(argv=sys.argv[:1], verbosity=2, warnings="ignore")
