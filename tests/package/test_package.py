#!/usr/bin/env python3
"""The packages' round trip under Wine: install, use, remove, and compare registry and folders with before.

    test_package.py WINE_RUN PACKAGES

WINEPREFIX names the prefix, in which nothing else may run meanwhile.
"""
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest
import zipfile

TIMEOUT = 180  # seconds; a run takes a few
NAME = "Pelorix Back Process Manager"

# What Wine itself writes anew when a prefix starts and when a console ends. The first two are the same keys: Wine 10 has the
# one as a link to the other, as Windows has it.
WRITTEN_BY_WINE = (r"System\\CurrentControlSet", r"System\\ControlSet001", "Console")

wine_run = ""
packages = pathlib.Path()
prefix = pathlib.Path()


def run(program, *arguments):
    """The exit code and standard output of one run."""
    # A file, not a pipe: helper processes of Wine inherit it and keep it open after the program has ended.
    with tempfile.TemporaryFile() as output:
        code = subprocess.run([wine_run, str(program), *arguments], stdin=subprocess.DEVNULL, stdout=output,
                              stderr=subprocess.DEVNULL, timeout=TIMEOUT).returncode
        output.seek(0)
        return code, output.read().decode("utf-8", "replace")


def windows_path(path):
    return "Z:" + str(path).replace("/", "\\")


def settle():
    """Waits until the prefix has no process and its registry is written."""
    subprocess.run(["wineserver", "-w"], check=True, timeout=TIMEOUT)


def registry():
    """Each key's values in each hive, without the times at which they were written."""
    keys = {}
    for hive in ("system.reg", "user.reg", "userdef.reg"):
        key = None
        for line in (prefix / hive).read_text(encoding="utf-8", errors="replace").splitlines():
            head = re.match(r"\[(.*)\]( \d+)?$", line)
            if head:
                key = None if head[1].startswith(WRITTEN_BY_WINE) else keys.setdefault((hive, head[1]), [])
            elif key is not None and not line.startswith("#time="):
                key.append(line)
    return {key: "\n".join(lines) for key, lines in keys.items()}


def files():
    """All but the uninstaller's copy of itself in the folder for temporary files, which goes with the next restart."""
    drive = prefix / "drive_c"
    return {str(path.relative_to(drive)) for path in drive.rglob("*") if "/Temp/~nsu" not in str(path)}


def changes(before, after):
    return sorted(key for key in before.keys() | after.keys() if before.get(key) != after.get(key))


class RoundTrip(unittest.TestCase):
    maxDiff = None

    @classmethod
    def setUpClass(cls):
        cls.setup = next(packages.glob("*-setup.exe"))
        # What every user of Windows has, and what the script host leaves behind when it first runs.
        run("reg.exe", "add", r"HKCU\Software\Classes", "/f")
        for hive in ("HKCU", "HKLM"):
            run("reg.exe", "add", hive + r"\Software\Microsoft\Windows\CurrentVersion\Uninstall", "/f")
        with tempfile.NamedTemporaryFile("w", suffix=".vbs") as script:
            script.write("' Nothing to do.\n")
            script.flush()
            run("cscript.exe", "//nologo", windows_path(script.name))

    def setUp(self):
        settle()
        self.registry, self.files = registry(), files()

    def assert_as_before(self):
        settle()
        self.assertEqual(changes(self.registry, registry()), [])
        self.assertEqual(sorted(self.files ^ files()), [])

    def remove(self, folder):
        # The uninstaller goes on in a copy of itself, which may delete the original.
        self.assertEqual(run(folder / "uninstall.exe", "/S")[0], 0)
        settle()

    def test_for_the_machine(self):
        folder = prefix / "drive_c" / "Program Files" / NAME
        self.assertEqual(run(self.setup, "/S", "/AllUsers")[0], 0)
        self.assertEqual(run(folder / "backproc.exe", "doctor")[0], 0)
        code, output = run("cscript.exe", "//nologo", windows_path(folder / "examples" / "client.vbs"))
        self.assertEqual((code, output.splitlines()[-1]), (0, "released"))
        self.remove(folder)
        self.assert_as_before()

    def test_for_the_user_in_a_chosen_folder(self):
        folder = prefix / "drive_c" / "own" / "backproc"
        self.assertEqual(run(self.setup, "/S", r"/D=C:\own\backproc")[0], 0)
        output = run(folder / "backproc.exe", "doctor")[1]
        self.assertIn("ok   registration: for the user", output.splitlines())
        self.assertIn(r"ok   file: C:\own\backproc\K4TBackProcess.dll", output.splitlines())
        # A file of the user's own is not ours to remove.
        (folder / "notes.txt").write_text("mine")
        self.remove(folder)
        self.assertEqual([path.name for path in folder.iterdir()], ["notes.txt"])
        (folder / "notes.txt").unlink()
        folder.rmdir()
        folder.parent.rmdir()
        self.assert_as_before()

    def test_the_user_is_refused_beside_the_machine(self):
        folder = prefix / "drive_c" / "Program Files" / NAME
        self.assertEqual(run(self.setup, "/S", "/AllUsers")[0], 0)
        installed = files()
        self.assertEqual(run(self.setup, "/S")[0], 2)
        self.assertEqual(sorted(installed ^ files()), [])
        self.remove(folder)
        self.assert_as_before()

    def test_the_machine_is_refused_beside_the_user(self):
        folder = prefix / "drive_c" / "own"
        self.assertEqual(run(self.setup, "/S", r"/D=C:\own")[0], 0)
        installed = files()
        self.assertEqual(run(self.setup, "/S", "/AllUsers")[0], 2)
        self.assertEqual(sorted(installed ^ files()), [])
        self.remove(folder)
        self.assert_as_before()

    def test_removal_leaves_a_registration_from_another_folder_alone(self):
        folder = prefix / "drive_c" / "Program Files" / NAME
        self.assertEqual(run(self.setup, "/S", "/AllUsers")[0], 0)
        with tempfile.TemporaryDirectory() as other, zipfile.ZipFile(next(packages.glob("*.zip"))) as archive:
            archive.extractall(other)
            program = next(pathlib.Path(other).rglob("backproc.exe"))
            self.assertEqual(run(program, "register")[0], 0)
            self.remove(folder)
            self.assertEqual(run(program, "doctor")[0], 0)
            self.assertEqual(run(program, "unregister")[0], 0)
        self.assert_as_before()

    def test_removal_leaves_a_later_installation_in_another_folder_alone(self):
        first, second = prefix / "drive_c" / "first", prefix / "drive_c" / "second"
        for scope in (["/AllUsers"], []):
            with self.subTest(scope):
                self.assertEqual(run(self.setup, "/S", *scope, r"/D=C:\first")[0], 0)
                self.assertEqual(run(self.setup, "/S", *scope, r"/D=C:\second")[0], 0)
                settle()
                entered = registry()
                self.remove(first)
                self.assertFalse(first.exists())
                settle()
                self.assertEqual(changes(entered, registry()), [])
                self.remove(second)
                self.assert_as_before()

    def test_installing_again_over_itself_is_no_error(self):
        folder = prefix / "drive_c" / "Program Files" / NAME
        for _ in range(2):
            self.assertEqual(run(self.setup, "/S", "/AllUsers")[0], 0)
        self.remove(folder)
        self.assert_as_before()

    def test_the_zip_works_where_it_was_unpacked(self):
        with tempfile.TemporaryDirectory() as folder, zipfile.ZipFile(next(packages.glob("*.zip"))) as archive:
            archive.extractall(folder)
            program = next(pathlib.Path(folder).rglob("backproc.exe"))
            self.assertEqual(run(program, "register")[0], 0)
            self.assertEqual(run(program, "doctor")[0], 0)
            self.assertEqual(run(program, "unregister")[0], 0)
            names = {str(path.relative_to(program.parent)) for path in program.parent.rglob("*") if path.is_file()}
        self.assertLessEqual({"K4TBackProcess.dll", "K4TBackProcess.manifest", "QmxKrn2K.dll", "README.md",
                              "docs/ARCHITECTURE.md", "examples/client.vbs"}, names)
        self.assert_as_before()


if __name__ == "__main__":
    wine_run, packages = sys.argv[1], pathlib.Path(sys.argv[2]).resolve()
    prefix = pathlib.Path(os.environ["WINEPREFIX"])
    unittest.main(argv=sys.argv[:1], verbosity=2, warnings="ignore")
