#!/usr/bin/env python3
"""Follows the documents literally. Creates the files that the documents show, runs the documents' commands in order
and compares the output.

    test_documents.py PROJECT BUILD

The commands run in a folder that looks like a checkout after ./demo, with its own Wine prefix. BUILD is the folder of the
Windows build.
"""
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

import blocks

# The order matters, because a document may use files of earlier documents.
DOCUMENTS = ["README.md", "docs/USING.md", "docs/REFERENCE.md", "docs/TROUBLESHOOTING.md", "docs/KERNEL.md", "docs/TRANSLATING.md", "docs/TESTING.md", "docs/PERFORMANCE.md", "docs/ARCHITECTURE.md",
             "CONTRIBUTING.md"]
PACKAGE = "build/wine/drive_c/Orvane"  # the current folder of the Windows prompt
TIMEOUT = 900  # seconds for all commands together; they take about 90

# This test does not run commands that start with a text below. Each text has a reason. After a change of such a
# command, run it by hand.
BUILDS = "a build takes minutes"
NEEDS_THE_BUILD = "needs the files of a build that this test does not make"
CHANGES_SOURCES = "changes the sources, or needs changed sources"
NOT_FOLLOWED = {
    "./demo": "installs and builds; the test's folder contains its results",
    "./test": "runs this test",
    ".ci/run": "runs this test",
    "cmake --preset": BUILDS,
    "cmake --build": BUILDS,
    "scripts/build": BUILDS,
    "scripts/coverage": BUILDS,
    "scripts/pictures": "takes the pictures again and changes files of the project",
    "scripts/setup": "installs packages",
    "scripts/check-platforms": "installs two systems and runs this test there",
    "build/fuzz/": NEEDS_THE_BUILD,
    "scripts/bench": BUILDS,
    "for file in backproc.exe": NEEDS_THE_BUILD,
    "address=": NEEDS_THE_BUILD,
    "printf 'break": NEEDS_THE_BUILD,
    "scripts/wine-run winedbg": NEEDS_THE_BUILD,
    "grep -o '0x": NEEDS_THE_BUILD,
    "scripts/check-includes": "needs a Git work tree; .ci/run runs it",
    "git diff": CHANGES_SOURCES,
    "git checkout": CHANGES_SOURCES,
    "sed -i": CHANGES_SOURCES,
}

# These commands show a window and wait for a key. Each entry has the window's title and the key.
ANSWERED = {
    "backproc msgbox": ("Orvane", "Return"),
    "scripts/wine-run dist/backproc.exe query": ("Orvane", "Return"),
}

# The first lines of blocks that are neither a file nor commands.
ILLUSTRATIONS = ["EDITOR.exe                                    LIBRARY.exe",
                 "EDITOR.exe                                          LIBRARY.exe",
                 "SuiteReader reader_;                    // was: kernel_api::builtin::BuiltInReader reader_;",
                 "tools/   tests/                       examples/ use COM and the kernel only",
                 "WindowsComposition (host/win32)   or   tests::ComponentOver (tests/support)",
                 "Unloaded -> LoadingWithoutWindow -> Loading -> Loaded -> Unloading -> Unloaded",
                 "client: NotifyMe(Aname, sCommand)"]

project = pathlib.Path()
build = pathlib.Path()


def read(document):
    return blocks.read(document, (project / document).read_text(encoding="utf-8"))


def runs(step):
    return isinstance(step, blocks.Command) and not step.line.startswith(tuple(NOT_FOLLOWED))


def answered(run, title, key):
    return f"""{run} &
for _ in $(seq 300); do xdotool getwindowfocus getwindowname 2>&1 | grep -qx '{title}' && break; sleep 0.1; done
xdotool key {key}
wait $!"""


# "start" returns when the program has printed something or after 30 seconds.
WINDOWS_PROMPT = f"package={PACKAGE}" + r"""
in_package() {
    cd "$checkout/$package"
    backproc() { "$checkout/scripts/wine-run" 'C:\Orvane\backproc.exe' "$@"; }
    del() { rm "$@"; }
    ren() { mv "$@"; }
    taskkill() { "$checkout/scripts/wine-run" taskkill.exe "$@"; }
    start() {
        shift
        "$@" >"$outputs/started" 2>&1 &
        for _ in $(seq 300); do [ -s "$outputs/started" ] && break; sleep 0.1; done
        cat "$outputs/started"
    }
}
"""


def followed(number, command):
    """Returns the shell lines for one command. The lines write its output and exit code to files."""
    line = f"( in_package; {command.line}\n)" if command.is_for_windows else command.line
    run = f"{{ {{ {line}\n}} >$outputs/{number} 2>&1; echo $? >$outputs/{number}.code; }}"
    for start, (title, key) in ANSWERED.items():
        if command.line.startswith(start):
            return answered(run, title, key)
    return run


def script(steps, outputs):
    """Returns one script with all commands, because a command may use the settings of an earlier command."""
    lines = ["export LC_ALL=C", "unset WINEPREFIX", f"outputs={outputs}",
             ': "${DISPLAY:=$(scripts/start-display)}"', "export DISPLAY", "checkout=$PWD", WINDOWS_PROMPT]
    for number, step in enumerate(steps):
        if isinstance(step, blocks.MadeFile):
            made = outputs / f"{number}.made"
            made.write_text(step.text, encoding="utf-8")
            lines.append(f'mkdir -p "$(dirname "{step.path}")"; cp {made} "{step.path}"')
        elif runs(step):
            lines.append(followed(number, step))
    return "\n".join(lines) + "\n"


def make_checkout(root):
    root.mkdir()
    for name in ("host", "examples", "docs"):
        (root / name).symlink_to(project / name)
    shutil.copytree(project / "scripts", root / "scripts")  # a script finds the checkout by the script's path
    (root / "build").mkdir()
    (root / "build" / "windows").symlink_to(build)
    (root / "build" / "native").symlink_to(project / "build" / "native")
    shutil.copytree(project / "dist", root / "dist")


class Documents(unittest.TestCase):
    maxDiff = None

    def check(self, command, outputs, number):
        with self.subTest(f"{command.document}: {command.line}"):
            self.assertTrue((outputs / f"{number}.code").exists(), "the script did not reach the command")
            printed = (outputs / str(number)).read_text(encoding="utf-8", errors="replace").replace("\r", "")
            if command.expected is None:
                self.assertEqual((outputs / f"{number}.code").read_text(), "0\n", printed)
            elif not blocks.is_as_expected(printed.splitlines(), command.expected):
                self.assertEqual(printed.splitlines(), command.expected)

    def check_quotation(self, quotation, root):
        source = next((folder / quotation.path for folder in (project, root, root / PACKAGE) if (folder / quotation.path).exists()), None)
        with self.subTest(f"{quotation.document}: from {quotation.path}"):
            self.assertIsNotNone(source, "there is no such file")
            self.assertIn(quotation.text, source.read_text(encoding="utf-8").replace("\r", ""))

    def test_all_commands_do_what_the_documents_say(self):
        steps = [step for document in DOCUMENTS for step in read(document)]
        with tempfile.TemporaryDirectory() as temporary:
            root, outputs = pathlib.Path(temporary) / "checkout", pathlib.Path(temporary) / "outputs"
            outputs.mkdir()
            make_checkout(root)
            (outputs / "script").write_text(script(steps, outputs), encoding="utf-8")
            subprocess.run(["bash", outputs / "script"], cwd=root, stdin=subprocess.DEVNULL, timeout=TIMEOUT)
            for number, step in enumerate(steps):
                if runs(step):
                    self.check(step, outputs, number)
                elif isinstance(step, blocks.Quotation):
                    self.check_quotation(step, root)
            # The processes must end before the folder is deleted.
            subprocess.run(["wineserver", "-k"], env={"WINEPREFIX": str(root / "build" / "wine"), "PATH": "/usr/bin:/bin"},
                           timeout=60)


if __name__ == "__main__":
    project, build = (pathlib.Path(argument).resolve() for argument in sys.argv[1:3])
    unittest.main(argv=sys.argv[:1], verbosity=2, warnings="ignore")
