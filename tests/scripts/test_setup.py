#!/usr/bin/env python3
"""Tests scripts/setup with replacements for apt and dpkg. The tests check which packages the script installs on each
system, what it prints before the installation, and which systems it does not change."""
import os
import pathlib
import shutil
import subprocess
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
TIMEOUT = 60

BOOKWORM = 'PRETTY_NAME="Debian GNU/Linux 12 (bookworm)"\nID=debian\nVERSION_CODENAME=bookworm\n'
TRIXIE = 'PRETTY_NAME="Debian GNU/Linux 13 (trixie)"\nID=debian\nVERSION_CODENAME=trixie\n'
FEDORA = 'PRETTY_NAME="Fedora Linux 41"\nID=fedora\n'
MINT = 'PRETTY_NAME="LMDE 6"\nID=linuxmint\nVERSION_CODENAME=faye\n'
FORKY = 'PRETTY_NAME="Debian GNU/Linux forky/sid"\nID=debian\nVERSION_CODENAME=forky\n'

# The replacements of dpkg and apt-get log their calls. apt-get --simulate prints a plan from a file and fails if the file
# does not exist.
STAND_INS = {
    "id": "echo 0",
    "dpkg-query": 'sed "s/^/installed /" installed',
    "dpkg": 'echo "dpkg $*" >>calls',
    "apt-cache": """
        until [ "$1" = --no-all-versions ]; do shift; done
        shift
        printf 'Installed-Size: 1000\\n\\n%.0s' "$@"
        """,
    "apt-get": """
        echo "apt-get $*" >>calls
        plan=own-plan
        if [[ $* = *SourceParts=/dev/null* ]]; then
            plan=main-plan
            cat "$(grep -o '[^ =]*debian.sources' <<<"$*")" >main-sources
        fi
        [[ $* != *--simulate* ]] || cat $plan""",
}


class Setup(unittest.TestCase):
    def setUp(self):
        temporary = tempfile.TemporaryDirectory()
        self.addCleanup(temporary.cleanup)
        self.folder = pathlib.Path(temporary.name)
        (self.folder / "scripts").mkdir()
        for name in ("setup", "usage.sh", "phases.sh"):
            shutil.copy(ROOT / "scripts" / name, self.folder / "scripts")
        (self.folder / "stand-ins").mkdir()
        for name, lines in STAND_INS.items():
            program = self.folder / "stand-ins" / name
            program.write_text("#!/usr/bin/env bash\n" + lines + "\n")
            program.chmod(0o755)
        self.write("installed", "")

    def write(self, name, text):
        (self.folder / name).write_text(text)

    def run_setup(self, system, *purposes):
        self.write("os-release", system)
        self.write("calls", "")
        environment = {"PATH": f"{self.folder / 'stand-ins'}:{os.environ['PATH']}", "K4T_OS_RELEASE": str(self.folder / "os-release")}
        return subprocess.run([self.folder / "scripts/setup", *purposes], cwd=self.folder, env=environment, capture_output=True,
                              text=True, timeout=TIMEOUT)

    def calls(self, word):
        return [line for line in (self.folder / "calls").read_text().splitlines() if word in line.split()]

    def installs(self):
        return [line for line in self.calls("install") if "--simulate" not in line]

    def test_on_an_unsupported_system_packages_are_only_named(self):
        for system, name in ((FEDORA, "Fedora Linux 41"), (MINT, "LMDE 6"), (FORKY, "Debian GNU/Linux forky/sid")):
            with self.subTest(name):
                done = self.run_setup(system, "demo")
                self.assertEqual((done.returncode, done.stdout), (1, ""))
                self.assertIn(f"{name} is not supported; nothing was changed", done.stderr)
                self.assertIn(" xvfb ", done.stderr)
                self.assertEqual((self.folder / "calls").read_text(), "")

    def test_if_no_package_is_missing_nothing_is_changed_or_printed(self):
        self.write("installed", "debootstrap\n")
        done = self.run_setup(BOOKWORM, "platforms")
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "", ""))
        self.assertEqual((self.folder / "calls").read_text(), "")

    def test_package_names_depend_on_the_release(self):
        self.write("own-plan", "Inst clang (1 Debian [amd64])\n")
        for system, name, other in ((BOOKWORM, "libclang-rt-14-dev", "libclang-rt-dev"),
                                    (TRIXIE, "libclang-rt-dev", "libclang-rt-14-dev")):
            with self.subTest(name):
                self.assertEqual(self.run_setup(system, "check").returncode, 0)
                words = self.installs()[0].split()
                self.assertIn(name, words)
                self.assertNotIn(other, words)

    def test_only_missing_packages_are_installed(self):
        self.write("own-plan", "Inst gcovr (5.2-1 Debian [all])\n")
        self.write("installed", "git\ncmake\nninja-build\ng++\ngoogletest\npython3\nlocales\n")
        self.assertEqual(self.run_setup(BOOKWORM, "coverage").returncode, 0)
        self.assertEqual(self.installs()[0].split()[-2:], ["ccache", "gcovr"])
        self.assertEqual(self.calls("--add-architecture"), [])

    def test_second_architecture_is_added_for_wine(self):
        self.write("own-plan", "Inst wine (8 Debian [all])\n")
        self.assertEqual(self.run_setup(BOOKWORM, "demo").returncode, 0)
        self.assertEqual(self.calls("--add-architecture"), ["dpkg --add-architecture i386"])

    def test_new_packages_are_announced_first(self):
        self.write("own-plan", "Inst libone (1 Debian [amd64])\nInst libtwo:i386 (1 Debian [i386])\nConf libone (1 Debian [amd64])\n")
        done = self.run_setup(BOOKWORM, "platforms")
        self.assertEqual(done.stdout.splitlines()[0], "setup: new packages: 2, 2 MB; upgraded packages: none")

    def test_upgraded_packages_are_named(self):
        self.write("own-plan", "Inst libnew (1 Debian [amd64])\nInst libold [1] (2 Debian [amd64])\nInst perl [1] (2 Debian [amd64]) []\n")
        done = self.run_setup(BOOKWORM, "platforms")
        self.assertEqual(done.stdout.splitlines()[0], "setup: new packages: 1, 1 MB; upgraded packages: libold perl")

    def test_failing_sources_are_replaced_by_the_main_archive(self):
        self.write("main-plan", "Inst debootstrap (1 Debian [all])\n")
        for system, release in ((BOOKWORM, "bookworm"), (TRIXIE, "trixie")):
            with self.subTest(release):
                done = self.run_setup(system, "platforms")
                self.assertEqual((done.returncode, done.stderr), (0, ""))
                self.assertEqual(len(self.installs()), 1)
                self.assertIn(f"Suites: {release} {release}-updates\n", (self.folder / "main-sources").read_text())

    def test_nothing_is_removed_or_downgraded(self):
        self.write("main-plan", "Inst debootstrap (1 Debian [all])\n")
        self.run_setup(BOOKWORM, "platforms")
        for line in self.calls("install"):
            self.assertIn(" --no-remove ", line)
            self.assertNotIn("--allow-", line)

    def test_without_a_possible_plan_nothing_is_installed(self):
        done = self.run_setup(BOOKWORM, "platforms")
        self.assertNotEqual(done.returncode, 0)
        self.assertIn("without removing or downgrading packages: debootstrap", done.stderr)
        self.assertEqual(self.installs(), [])


if __name__ == "__main__":
    unittest.main()
