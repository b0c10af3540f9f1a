#!/usr/bin/env python3
"""Tests the packages under Wine: contents, installation, use and removal. Compares the registry and the folders before
and afterwards.

    test_package.py WINE_RUN PACKAGES [CLASS…]

The environment variable WINEPREFIX must contain the path of the Wine prefix. No other program may run in the prefix at
the same time. CLASS selects classes of tests.
"""
import binascii
import contextlib
import hashlib
import html.parser
import functools
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import time
import unittest
import zipfile

TIMEOUT = 180  # seconds; a run takes a few
NAME = "Pelorix Back Process Manager"
UNINSTALLER = "K4TBackProcess-uninstall.exe"
RECORD = "K4TBackProcess.files"
FAILED, IN_USE = 2, 3  # exit codes

# Wine itself writes these keys when a prefix starts and when a console ends. The first two names are one key, because
# Wine 10 links one name to the other, as Windows does.
WRITTEN_BY_WINE = (r"System\\CurrentControlSet", r"System\\ControlSet001", "Console")

wine_run = ""
packages = pathlib.Path()
prefix = pathlib.Path()


def run(program, *arguments):
    """Runs the program. Returns its exit code and standard output."""
    # The output is a file, because Wine's helper processes would keep a pipe open after the program's end.
    with tempfile.TemporaryFile() as output:
        code = subprocess.run([wine_run, str(program), *arguments], stdin=subprocess.DEVNULL, stdout=output,
                              stderr=subprocess.DEVNULL, timeout=TIMEOUT).returncode
        output.seek(0)
        return code, output.read().decode("utf-8", "replace")


def press(key):
    subprocess.run(["xdotool", "key", key], check=True, timeout=TIMEOUT)


def give_keyboard_to(title):
    """Focuses the window whose title matches the regular expression. Does nothing if no window matches."""
    subprocess.run(["xdotool", "search", "--onlyvisible", "--name", title, "windowfocus"], check=False, timeout=TIMEOUT,
                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)


def press_until(key, is_over, title=None):
    """Presses the key repeatedly until `is_over` returns true. One press is not enough, because disabled buttons ignore
    keys. If a title is given, focuses the window with this title before each press."""
    end = time.monotonic() + TIMEOUT
    while not is_over():
        if time.monotonic() > end:
            raise TimeoutError(f"pressing {key} did not have the expected effect")
        if title:
            give_keyboard_to(title)
        press(key)
        time.sleep(0.2)


def start(program, *arguments, **options):
    return subprocess.Popen([wine_run, str(program), *arguments], stderr=subprocess.DEVNULL, **options)


def run_with_windows(program, *arguments):
    """Runs a set-up program and confirms each page with Enter, as a user does. Returns its exit code."""
    running = start(program, *arguments, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL)
    press_until("Return", lambda: running.poll() is not None)
    return running.returncode


def windows_path(path):
    return "Z:" + str(path).replace("/", "\\")


def settle():
    """Waits until no process runs in the prefix and the prefix's registry is saved."""
    subprocess.run(["wineserver", "-w"], check=True, timeout=TIMEOUT)


def registry():
    """Returns the values of each key in each hive, without modification times."""
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
    """Returns all files except two that set-up and removal leave in the folder for temporary files: the log, and a copy of
    the uninstaller. The next restart deletes the copy."""
    drive, log = prefix / "drive_c", log_file()
    return {str(path.relative_to(drive)) for path in drive.rglob("*") if "/Temp/~nsu" not in str(path) and path != log}


@functools.cache
def log_file():
    """Returns the path of the log. The folder for temporary files depends on the version of Wine."""
    folder = run("cmd.exe", "/c", "echo %TEMP%")[1].strip().replace("\\", "/")
    return prefix / "drive_c" / folder.removeprefix("C:/") / "K4TBackProcess-setup.log"


def log():
    return log_file().read_text(encoding="utf-16") if log_file().exists() else ""


def short(data):
    """Replaces long contents by their checksum, because a failed test prints the contents."""
    return data if len(data) < 100 else hashlib.sha256(data).hexdigest()


def contents(folder):
    """Returns the contents of each file in the folder."""
    return {str(path.relative_to(folder)): short(path.read_bytes()) for path in folder.rglob("*") if path.is_file()}


def write(folder, texts):
    for name, text in texts.items():
        (folder / name).parent.mkdir(parents=True, exist_ok=True)
        (folder / name).write_bytes(text)


def package(ending):
    """Returns the package whose name has this text after the version."""
    return next(path for path in packages.iterdir() if re.fullmatch(r"K4TBackProcess-[\d.]+" + re.escape(ending), path.name))


@contextlib.contextmanager
def unpacked():
    """Unpacks the zip outside the project and returns the folder of its programs."""
    with tempfile.TemporaryDirectory() as folder, zipfile.ZipFile(package(".zip")) as archive:
        archive.extractall(folder)
        yield next(pathlib.Path(folder).iterdir())


@contextlib.contextmanager
def host(folder):
    """Runs a module that uses the component in the folder, until the end of the block."""
    with tempfile.TemporaryFile() as output:
        running = start(folder / "backproc.exe", "host", stdin=subprocess.PIPE, stdout=output)
        try:
            running.stdin.write(b"create\n")
            running.stdin.flush()
            end = time.monotonic() + TIMEOUT
            while b"1 created" not in os.pread(output.fileno(), 1000, 0):
                if time.monotonic() > end or running.poll() is not None:
                    raise RuntimeError(os.pread(output.fileno(), 1000, 0))
                time.sleep(0.05)
            yield
        finally:
            running.communicate(timeout=TIMEOUT)


def changes(before, after):
    return sorted(key for key in before.keys() | after.keys() if before.get(key) != after.get(key))


class Installation(unittest.TestCase):
    maxDiff = None

    @classmethod
    def setUpClass(cls):
        cls.setup = package("-setup.exe")
        # These keys exist on every Windows system. The first run of the script host creates more keys.
        run("reg.exe", "add", r"HKCU\Software\Classes", "/f")
        for hive in ("HKCU", "HKLM"):
            run("reg.exe", "add", hive + r"\Software\Microsoft\Windows\CurrentVersion\Uninstall", "/f")
        with tempfile.NamedTemporaryFile("w", suffix=".vbs") as script:
            script.write("' Nothing to do.\n")
            script.flush()
            run("cscript.exe", "//nologo", windows_path(script.name))

    def setUp(self):
        settle()
        log_file().unlink(missing_ok=True)
        self.registry, self.files = registry(), files()

    def assert_as_before(self):
        settle()
        self.assertEqual(changes(self.registry, registry()), [])
        self.assertEqual(sorted(self.files ^ files()), [])

    def remove(self, folder):
        # The uninstaller starts a copy of itself, because only the copy can delete the original.
        self.assertEqual(run(folder / UNINSTALLER, "/S")[0], 0)
        settle()

    def remove_with_windows(self, folder):
        run(folder / UNINSTALLER)
        settled = subprocess.Popen(["wineserver", "-w"])
        press_until("Return", lambda: settled.poll() is not None)


class RoundTrip(Installation):
    def test_installation_for_the_machine_is_removed_completely(self):
        folder = prefix / "drive_c" / "Program Files" / NAME
        self.assertEqual(run(self.setup, "/S", "/AllUsers", "/DevKernel")[0], 0)
        self.assertEqual(run(folder / "backproc.exe", "doctor")[0], 0)
        code, output = run("cscript.exe", "//nologo", windows_path(folder / "examples" / "client.vbs"))
        self.assertEqual((code, output.splitlines()[-1]), (0, "released"))
        self.remove(folder)
        self.assert_as_before()

    def test_user_installation_in_a_chosen_folder_is_removed(self):
        folder = prefix / "drive_c" / "own" / "backproc"
        self.assertEqual(run(self.setup, "/S", r"/D=C:\own\backproc")[0], 0)
        output = run(folder / "backproc.exe", "doctor")[1]
        self.assertIn("ok   registration: for the user", output.splitlines())
        self.assertIn(r"ok   file: C:\own\backproc\K4TBackProcess.dll", output.splitlines())
        # Removal must not delete a file of the user.
        (folder / "notes.txt").write_text("mine")
        self.remove(folder)
        self.assertEqual([path.name for path in folder.iterdir()], ["notes.txt"])
        (folder / "notes.txt").unlink()
        folder.rmdir()
        folder.parent.rmdir()
        self.assert_as_before()

    def test_user_installation_after_a_machine_installation_is_refused(self):
        folder = prefix / "drive_c" / "Program Files" / NAME
        self.assertEqual(run(self.setup, "/S", "/AllUsers")[0], 0)
        installed = files()
        self.assertEqual(run(self.setup, "/S")[0], 2)
        self.assertEqual(sorted(installed ^ files()), [])
        self.remove(folder)
        self.assert_as_before()

    def test_machine_installation_after_a_user_installation_is_refused(self):
        folder = prefix / "drive_c" / "own"
        self.assertEqual(run(self.setup, "/S", r"/D=C:\own")[0], 0)
        installed = files()
        self.assertEqual(run(self.setup, "/S", "/AllUsers")[0], 2)
        self.assertEqual(sorted(installed ^ files()), [])
        self.remove(folder)
        self.assert_as_before()

    def test_removal_keeps_a_registration_from_another_folder(self):
        folder = prefix / "drive_c" / "Program Files" / NAME
        self.assertEqual(run(self.setup, "/S", "/AllUsers")[0], 0)
        with unpacked() as other:
            program = other / "backproc.exe"
            self.assertEqual(run(program, "register")[0], 0)
            self.remove(folder)
            self.assertEqual(run(program, "doctor")[0], 0)
            self.assertEqual(run(program, "unregister")[0], 0)
        self.assert_as_before()

    def test_removal_keeps_a_later_installation_in_another_folder(self):
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

    def test_installing_again_succeeds(self):
        folder = prefix / "drive_c" / "Program Files" / NAME
        for _ in range(2):
            self.assertEqual(run(self.setup, "/S", "/AllUsers")[0], 0)
        self.remove(folder)
        self.assert_as_before()

    def test_the_development_kernel_is_an_option(self):
        folder = prefix / "drive_c" / "own"
        self.assertEqual(run(self.setup, "/S", "/AllUsers", r"/D=C:\own")[0], 0)
        self.assertEqual(list(folder.rglob("*Krn*.dll")), [])
        self.assertEqual(run(self.setup, "/S", "/AllUsers", "/DevKernel", r"/D=C:\own")[0], 0)
        self.assertEqual(list(folder.rglob("*Krn*.dll")), [folder / "dev" / "QmxKrn2K.dll"])
        # A later update keeps the option.
        self.assertEqual(run(self.setup, "/S", "/AllUsers", r"/D=C:\own")[0], 0)
        self.assertEqual(list(folder.rglob("*Krn*.dll")), [folder / "dev" / "QmxKrn2K.dll"])
        self.remove(folder)
        self.assert_as_before()


class FilesOfOthers(Installation):
    """Tests set-up and removal in a folder with foreign files. Some have the names of files of the package."""

    FOREIGN = {"QmxKrn2K.dll": b"the kernel of the suite", "README.md": b"the suite's own", "README.html": b"another",
               "dev/QmxKrn2K.dll": b"a kernel", "uninstall.exe": b"the suite's own"}
    TAKEN = ("README.html", r"dev\QmxKrn2K.dll")  # the foreign files that have the name of a file of the package

    def setUp(self):
        super().setUp()
        self.folder = prefix / "drive_c" / "Suite"
        self.folder.mkdir()

    def tearDown(self):
        settle()
        shutil.rmtree(self.folder, ignore_errors=True)

    def ours(self):
        return {name: text for name, text in contents(self.folder).items() if name not in self.FOREIGN}

    def assert_named(self, *names):
        for name in names:
            self.assertIn(fr"Left as it is, because", log())
            self.assertIn(fr": C:\Suite\{name}", log())

    def test_foreign_files_stay_unchanged(self):
        write(self.folder, self.FOREIGN)
        self.assertEqual(run(self.setup, "/S", "/AllUsers", "/DevKernel", r"/D=C:\Suite")[0], 0)
        self.assertLessEqual(self.FOREIGN.items(), contents(self.folder).items())
        self.assertIn("K4TBackProcess.dll", self.ours())
        self.assert_named(*self.TAKEN)
        self.remove(self.folder)
        self.assertEqual(contents(self.folder), self.FOREIGN)

    def test_foreign_files_stay_unchanged_with_windows(self):
        write(self.folder, self.FOREIGN)
        self.assertEqual(run_with_windows(self.setup, "/AllUsers", "/DevKernel", r"/D=C:\Suite"), 0)
        self.assertLessEqual(self.FOREIGN.items(), contents(self.folder).items())
        self.assertIn("K4TBackProcess.dll", self.ours())
        self.assert_named(*self.TAKEN)
        self.remove_with_windows(self.folder)
        self.assertEqual(contents(self.folder), self.FOREIGN)

    def test_changed_file_of_the_package_stays(self):
        changed = {"CHANGELOG.html": b"notes of the user", "examples/client.vbs": b"' adapted"}
        self.assertEqual(run(self.setup, "/S", "/AllUsers", r"/D=C:\Suite")[0], 0)
        write(self.folder, changed)
        self.assertEqual(run(self.setup, "/S", "/AllUsers", r"/D=C:\Suite")[0], 0)
        self.assertLessEqual(changed.items(), contents(self.folder).items())
        self.assert_named("CHANGELOG.html", r"examples\client.vbs")
        # This file is changed after the last set-up.
        late = {"docs/USING.html": b"with remarks"}
        write(self.folder, late)
        self.remove(self.folder)
        self.assertEqual(contents(self.folder), changed | late)
        self.assert_named(r"docs\USING.html")

    def test_update_replaces_unchanged_files(self):
        self.assertEqual(run(self.setup, "/S", "/AllUsers", r"/D=C:\Suite")[0], 0)
        new = contents(self.folder)
        # Make the state that an older set-up leaves: other contents, and a file that no longer ships.
        older = {"K4TBackProcess.manifest": b"older", "docs/OLD.html": b"gone since"}
        write(self.folder, older)
        record = (self.folder / RECORD).read_text()
        record = re.sub(r".* K4TBackProcess\.manifest\n", "", record)
        for name, text in older.items():
            record += f"{hashlib.sha256(text).hexdigest()} {name}\n".replace("/", "\\")
        (self.folder / RECORD).write_text(record, newline="\r\n")
        self.assertEqual(run(self.setup, "/S", "/AllUsers", r"/D=C:\Suite")[0], 0)
        self.assertEqual(contents(self.folder), new)
        self.assertNotIn("Left as it is", log())
        self.remove(self.folder)
        self.assertFalse(self.folder.exists())
        self.assert_as_before()

    def test_foreign_file_in_place_of_a_program_stops_set_up(self):
        for name in ("K4TBackProcess.dll", "backproc.exe", UNINSTALLER, RECORD):
            with self.subTest(name):
                foreign = {name: b"of unknown origin"}
                write(self.folder, foreign)
                self.assertEqual(run(self.setup, "/S", "/AllUsers", r"/D=C:\Suite")[0], FAILED)
                self.assertEqual(contents(self.folder), foreign)
                self.assertIn(fr"C:\Suite\{name} ", log())
                settle()
                self.assertEqual(changes(self.registry, registry()), [])
                (self.folder / name).unlink()

    def test_set_up_succeeds_after_the_files_that_its_message_names_are_moved(self):
        with unpacked() as package_folder:
            shutil.copytree(package_folder, self.folder, dirs_exist_ok=True)
        shutil.rmtree(self.folder / "dev")
        others = {"QmxKrn2K.dll": b"the kernel of the suite", "README.md": b"the suite's own", "CHANGELOG.html": b"an old one"}
        write(self.folder, others | {"uninstall.exe": b"of the first set-up", "K4TBackProcess.dll": b"an old one"})
        key = r"HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall\K4TBackProcess"
        for name, text in (("InstallLocation", r"C:\Suite"), ("UninstallString", r'"C:\Suite\uninstall.exe"')):
            run("reg.exe", "add", key, "/v", name, "/d", text, "/f")
        before = contents(self.folder)
        self.assertEqual(run(self.setup, "/S", "/AllUsers", r"/D=C:\Suite")[0], FAILED)
        self.assertEqual(contents(self.folder), before)
        moved = re.search(r"Move (.*?) out of the folder", log())[1]
        with tempfile.TemporaryDirectory() as elsewhere:
            for name in re.findall(r"[\w.]+\.\w+", moved):
                shutil.move(self.folder / name, elsewhere)
            self.assertEqual(run(self.setup, "/S", "/AllUsers", r"/D=C:\Suite")[0], 0)
        self.assertLessEqual(others.items(), contents(self.folder).items())
        # The only problem is that the file in place of the suite's kernel is not a library.
        lines = run(self.folder / "backproc.exe", "doctor")[1].splitlines()
        self.assertEqual([line.split(":")[0] for line in lines if line.startswith("BAD")], ["BAD  kernel"])
        self.remove(self.folder)
        self.assertLessEqual(others.items(), contents(self.folder).items())
        self.assertEqual(list(self.folder.glob("*.dll")), [self.folder / "QmxKrn2K.dll"])
        shutil.rmtree(self.folder)
        self.assert_as_before()

    def test_changed_program_stops_set_up(self):
        self.assertEqual(run(self.setup, "/S", "/AllUsers", r"/D=C:\Suite")[0], 0)
        write(self.folder, {"backproc.exe": b"patched"})
        before = contents(self.folder)
        self.assertEqual(run(self.setup, "/S", "/AllUsers", r"/D=C:\Suite")[0], FAILED)
        self.assertEqual(contents(self.folder), before)
        (self.folder / "backproc.exe").unlink()
        self.assertEqual(run(self.setup, "/S", "/AllUsers", r"/D=C:\Suite")[0], 0)
        self.remove(self.folder)
        self.assert_as_before()


class InUse(Installation):
    """Tests update and removal while a module uses the component."""

    def setUp(self):
        super().setUp()
        self.folder = prefix / "drive_c" / "used"
        self.assertEqual(run(self.setup, "/S", "/AllUsers", "/DevKernel", r"/D=C:\used")[0], 0)
        self.installed = contents(self.folder)

    def tearDown(self):
        self.assertEqual(contents(self.folder), self.installed)
        self.remove(self.folder)
        self.assert_as_before()

    def assert_refused(self):
        for name in ("K4TBackProcess.dll", "backproc.exe", r"dev\QmxKrn2K.dll"):
            self.assertIn(fr"In use or write-protected: C:\used\{name}", log())
        self.assertTrue(log().endswith("Cancelled. Nothing has been changed.\n"), log())

    def test_set_up_changes_nothing(self):
        with host(self.folder):
            self.assertEqual(run(self.setup, "/S", "/AllUsers", r"/D=C:\used")[0], IN_USE)
            self.assertEqual(contents(self.folder), self.installed)
            self.assert_refused()

    def test_set_up_with_windows_changes_nothing(self):
        with host(self.folder):
            running = start(self.setup, "/AllUsers", r"/D=C:\used", stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL)
            press_until("Return", lambda: "In use" in log())
            # In Wine 10, the box does not get the keyboard focus, because the installing thread opens the box.
            press_until("Escape", lambda: running.poll() is not None, title="Setup$")
            self.assertEqual(running.returncode, IN_USE)
            self.assertEqual(contents(self.folder), self.installed)
            self.assert_refused()

    def test_removal_changes_nothing(self):
        with host(self.folder):
            # With `_?=`, the uninstaller runs in its own folder and returns the result. Without `_?=`, a copy does the
            # work, and the exit code says nothing about the result.
            self.assertEqual(run(self.folder / UNINSTALLER, "/S", r"_?=C:\used")[0], IN_USE)
            self.assert_refused()
            log_file().unlink()
            self.assertEqual(run(self.folder / UNINSTALLER, "/S")[0], 0)
            end = time.monotonic() + TIMEOUT
            while "Cancelled" not in log() and time.monotonic() < end:
                time.sleep(0.1)
            self.assert_refused()
            self.assertEqual(contents(self.folder), self.installed)
            self.assertEqual(run(self.folder / "backproc.exe", "doctor")[0], 0)


class Page(html.parser.HTMLParser):
    """Reads a document of the package: the links, the names of the headings, and the commands."""

    def __init__(self, path):
        super().__init__()
        self.links, self.names, self.commands, self.in_code = [], set(), [], False
        self.feed(path.read_text(encoding="utf-8"))

    def handle_starttag(self, tag, attributes):
        attributes = dict(attributes)
        self.links += [attributes[name] for name in ("href", "src") if name in attributes]
        self.names |= {attributes["id"]} if "id" in attributes else set()
        self.in_code = self.in_code or tag == "pre"

    def handle_endtag(self, tag):
        self.in_code = self.in_code and tag != "pre"

    def handle_data(self, text):
        if self.in_code:
            self.commands += [line[2:] for line in text.splitlines() if line.startswith("> ")]


class Packages(Installation):
    """Tests the contents of the packages."""

    def test_checksums_match_the_packages(self):
        done = subprocess.run(["sha256sum", "--check", "--strict", "SHA256SUMS"], cwd=packages, capture_output=True, text=True)
        self.assertEqual(done.returncode, 0, done)
        self.assertEqual({line.split(":")[0] for line in done.stdout.splitlines()},
                         {path.name for path in packages.iterdir()} - {"SHA256SUMS"})

    def test_zip_has_all_files(self):
        with unpacked() as folder:
            names = set(contents(folder))
        self.assertLessEqual({"K4TBackProcess.dll", "K4TBackProcess.manifest", "backproc.exe", "dev/QmxKrn2K.dll", "README.html",
                              "CHANGELOG.html", "docs/USING.html", "examples/client.vbs", "include/K4TBackProcess.h",
                              "include/K4TBackProcess.idl", "include/QmxKrn2K.h", "lib/libQmxKrn2K.a"}, names)
        self.assertNotIn("QmxKrn2K.dll", names)
        self.assertEqual([name for name in names if name.endswith(".md")], [])

    def test_links_of_the_documents_have_targets(self):
        with unpacked() as folder:
            pages = sorted(folder.rglob("*.html"))
            self.assertGreater(len(pages), 3)
            for page in pages:
                for link in Page(page).links:
                    with self.subTest(f"{page.name}: {link}"):
                        path, _, name = link.partition("#")
                        target = page.parent / path if path else page
                        self.assertTrue(target.is_file())
                        if name:
                            self.assertIn(name, Page(target).names)

    def test_documents_name_nothing_of_the_repository(self):
        repository = r"(?<![\w.])\./\w+|\b(?:scripts|host|kernel_api|runtime|tools|tests|dist|build)/\S*|\b[Ww]ine\b|mkfifo"
        with unpacked() as folder:
            for page in folder.rglob("*.html"):
                with self.subTest(page.name):
                    self.assertEqual(re.findall(repository, page.read_text(encoding="utf-8")), [])

    def test_every_command_of_the_readme_works(self):
        with unpacked() as folder:
            commands = Page(folder / "README.html").commands
            self.assertIn("backproc register", commands)
            for command in commands:
                with self.subTest(command), contextlib.chdir(folder):
                    code, output = run("cmd.exe", "/c", command)
                    self.assertEqual(code, 0, output)
        # The clients have saved the form's position.
        run("reg.exe", "delete", r"HKCU\Software\VB and VBA Program Settings", "/f")
        self.assert_as_before()

    def test_the_examples_compile_as_they_say(self):
        with unpacked() as folder:
            shipped = set((folder / "examples").rglob("*.exe"))
            for program in shipped:
                program.unlink()
            for source in sorted((folder / "examples").rglob("*.c[mp][dp]")):
                for line in re.findall(r"^(?://     )?(i686-w64-mingw32-g\+\+ .*)$", source.read_text(), re.MULTILINE):
                    with self.subTest(line):
                        subprocess.run(line, shell=True, cwd=source.parent, check=True, timeout=TIMEOUT)
            self.assertEqual(set((folder / "examples").rglob("*.exe")), shipped)
            self.assertEqual(run(folder / "backproc.exe", "register")[0], 0)
            code, output = run(folder / "examples" / "client.exe")
            self.assertEqual(code, 0, output)
            self.assertIn("event NotifyServer [K4TBACKPROCESS] [SHUTDOWN]", output)
            self.assertEqual(run(folder / "backproc.exe", "unregister")[0], 0)
        run("reg.exe", "delete", r"HKCU\Software\VB and VBA Program Settings", "/f")
        self.assert_as_before()

    def test_symbols_match_the_programs(self):
        with unpacked() as folder, tempfile.TemporaryDirectory() as symbols:
            with zipfile.ZipFile(package("-symbols.zip")) as archive:
                archive.extractall(symbols)
            programs = [path for path in folder.rglob("*") if path.suffix in (".dll", ".exe")]
            self.assertEqual({path.name for path in programs},
                             {path.name.removesuffix(".debug") for path in pathlib.Path(symbols).rglob("*.debug")})
            for program in programs:
                with self.subTest(program.name):
                    debug = next(pathlib.Path(symbols).rglob(program.name + ".debug"))
                    # The program contains the debug file's name and checksum. Zeros pad the name to a multiple of
                    # four bytes.
                    name = debug.name.encode() + b"\0" * (4 - len(debug.name) % 4)
                    checksum = binascii.crc32(debug.read_bytes()).to_bytes(4, "little")
                    self.assertTrue(name + checksum in program.read_bytes())
                    listed = subprocess.run(["i686-w64-mingw32-nm", debug], check=True, capture_output=True, text=True).stdout
                    self.assertRegex(listed, "(?m) T _(main|DllMain@12|E_SetString@8)$")


if __name__ == "__main__":
    wine_run, packages = os.path.abspath(sys.argv[1]), pathlib.Path(sys.argv[2]).resolve()
    prefix = pathlib.Path(os.environ["WINEPREFIX"])
    log_file()  # starts Wine now, because Wine must not start during a comparison
    unittest.main(argv=sys.argv[:1] + sys.argv[3:], verbosity=2, warnings="ignore")
