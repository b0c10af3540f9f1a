#!/usr/bin/env python3
"""Runs the built tool and the example clients under Wine and compares what they print.

    test_tool.py WINE_RUN BIN_FOLDER

Each file in scenarios/ is one run of the tool (see Scenario); what needs more than one process stands below. The
component is registered in the Wine prefix while the tests run that need it.
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
import time
import unittest

HERE = pathlib.Path(__file__).resolve().parent
EXAMPLES = HERE.parent.parent / "examples"
CLASS = "{ECD8F3EF-620B-4D2C-8D9B-9F3E96273634}"
LIBRARY = "{525D7D67-10F8-4B05-99EF-A6A69CD0A145}"
TEXTS = 19  # identifiers that a language file translates
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


class WithoutComponent(ToolTestCase):
    @classmethod
    def setUpClass(cls):
        tool("unregister")

    def test_scenarios(self):
        self.check_all("unregistered")

    def test_very_long_lines_pass_through(self):
        text = "x" * 200_000
        code, output, errors = tool("host", text=f"set Long {text}\nget Long\n".encode())
        self.assertEqual((code, errors), (0, b""))
        self.assertTrue(output == f"Long=[{text}]\n".encode(), f"{len(output)} bytes")

    def test_reads_files_with_byte_order_mark_and_windows_line_ends(self):
        with tempfile.TemporaryDirectory() as folder:
            script = pathlib.Path(folder) / "Größe 日本.txt"
            script.write_bytes(b"\xef\xbb\xbf# comment\r\nset A one \r\nget A\r\nset A last")
            code, output, errors = tool("host", windows_path(script))
        self.assertEqual((code, output, errors), (0, b"A=[one ]\n", b""))

    def test_strings_are_shared_while_a_process_holds_the_kernel(self):
        with LiveHost() as holder:
            self.assertEqual(holder.ask(b"set Held here", b"get Held"), b"Held=[here]\n")
            self.assertEqual(tool("strings", "get", "Held"), (0, b"Held=[here]\n", b""))
            self.assertEqual(tool("strings", "set", "Added", "by another"), (0, b"", b""))
            self.assertEqual(holder.ask(b"get Added"), b"Added=[by another]\n")
            self.assertEqual(tool("strings"), (0, b"Added=[by another]\nHeld=[here]\n", b""))
        self.assertEqual(tool("strings"), (0, b"", b""))

    def test_text_is_the_current_language_s(self):
        with tempfile.TemporaryDirectory() as folder, LiveHost() as holder:
            texts = pathlib.Path(folder) / "K4TBackProcess.txt"
            texts.write_text("39171 = &Ja\n1 = eins\\nzwei\n2 =\n4 = \\s\n", encoding="utf-8")
            holder.ask(f"set LANGUAGEPATH {windows_path(folder)}".encode(), b"get LANGUAGEPATH")
            self.assertEqual(tool("text", "39171"), (0, b"&Ja\n", b""))
            self.assertEqual(tool("text", " 39171", "&Yes"), (0, b"&Ja\n", b""))
            self.assertEqual(tool("text", "1"), (0, "eins␍␊zwei\n".encode(), b""))
            self.assertEqual(tool("text", "2", "default"), (0, b"default\n", b""))
            self.assertEqual(tool("text", "4", "default"), (0, b" \n", b""))
            self.assertEqual(tool("text", "3", "default"), (0, b"default\n", b""))
            self.assertEqual(tool("text", "3"), (1, b"", b"backproc text: there is no text '3' in the current language; "
                                                         b"give a DEFAULT, or see 'backproc texts'\n"))

    def test_texts_finds_each_example_language_complete_and_in_order(self):
        for language in ("German", "French", "Japanese"):
            with self.subTest(language):
                folder = windows_path(EXAMPLES / "languages" / language)
                code, output, errors = tool("texts", "--folder", folder)
                lines = output.decode().splitlines()
                self.assertEqual((code, errors, lines[-1]), (0, b"", f"{TEXTS} of {TEXTS} identifiers translated"))
                self.assertEqual({line.split("\t")[0] for line in lines[:-1]}, {"translated"}, lines)

    def test_texts_takes_the_current_language(self):
        with tempfile.TemporaryDirectory() as folder, LiveHost() as holder:
            (pathlib.Path(folder) / "K4TBackProcess.txt").write_text("39171 = &Ja\nwords\n7 = x\n", encoding="utf-8")
            self.assertEqual(tool("texts")[0], 1)
            holder.ask(f"set LANGUAGEPATH {windows_path(folder)}".encode(), b"get LANGUAGEPATH")
            code, output, errors = tool("texts")
        lines = output.decode().splitlines()
        self.assertEqual((code, errors), (1, b""))
        self.assertIn("translated\t39171\t[&Yes]\t[&Ja]\tcmdBut(0) of frmQMXMsgBox", lines)
        self.assertIn("missing\t39172\t[&No]\t\tcmdBut(1) of frmQMXMsgBox", lines)
        self.assertEqual(lines[-3:], ["unreadable\tline 2\thas no '='", "unknown\t7\t[x]",
                                      f"1 of {TEXTS} identifiers translated"])

    def test_texts_names_a_file_that_it_cannot_take(self):
        with tempfile.TemporaryDirectory() as folder:
            texts = pathlib.Path(folder) / "K4TBackProcess.txt"
            path = windows_path(texts)
            code, output, errors = tool("texts", "--folder", windows_path(folder))
            missing = f"there is no language file '{path}'; 'backproc texts --template' writes one to start from\n"
            self.assertEqual((code, output, errors.decode()), (1, b"", "backproc texts: " + missing))
            with open(texts, "wb") as huge:
                huge.truncate(100 << 20)
            code, output, errors = tool("texts", "--folder", windows_path(folder))
            self.assertEqual((code, output), (1, b""))
            self.assertIn(b"has 104857600 bytes; make it no larger than 16777216", errors)
            self.assertEqual(tool("msgbox", "--language", windows_path(folder), "Overwrite?"),
                             (1, b"", errors.replace(b"backproc texts:", b"backproc msgbox:")))
            with LiveHost() as holder:
                holder.ask(f"set LANGUAGEPATH {windows_path(folder)}".encode(), b"get LANGUAGEPATH")
                self.assertEqual(tool("text", "39171", "&Yes"), (0, b"&Yes\n", b""))

    def test_pseudo_language_made_from_the_template_is_complete(self):
        code, template, errors = tool("texts", "--template")
        self.assertEqual((code, errors), (0, b""))
        with tempfile.TemporaryDirectory() as folder:
            english = pathlib.Path(folder) / "english.txt"
            english.write_bytes(template)
            script = HERE.parent.parent / "scripts" / "make-pseudo-language"
            subprocess.run([script, "--template", english, "--folder", folder], check=True, timeout=TIMEOUT,
                           stdout=subprocess.DEVNULL)
            code, output, errors = tool("texts", "--folder", windows_path(folder))
        lines = output.decode().splitlines()
        self.assertEqual((code, errors, lines[-1]), (0, b"", f"{TEXTS} of {TEXTS} identifiers translated"))
        self.assertEqual({line.split("\t")[0] for line in lines[:-1]}, {"translated"}, lines)
        self.assertIn("translated\t39173\t[Yes &To All]\t[[Ýéš &Tó Áll~~]]\tcmdBut(2) of frmQMXMsgBox", lines)

    def test_msgbox_wants_the_language_file_that_it_is_given(self):
        with tempfile.TemporaryDirectory() as folder:
            code, output, errors = tool("msgbox", "--language", windows_path(folder), "Overwrite?")
        expected = (f"backproc msgbox: there is no language file '{windows_path(folder)}\\K4TBackProcess.txt'; "
                    "'backproc texts --template' writes one to start from\n")
        self.assertEqual((code, output, errors.decode()), (1, b"", expected))

    def test_language_folder_without_a_name_is_refused(self):
        for arguments in (("texts", "--folder", ""), ("msgbox", "--language", "", "Overwrite?")):
            with self.subTest(arguments[0]):
                expected = (f"backproc {arguments[0]}: the name of the language folder is empty; "
                            "give a folder that has a K4TBackProcess.txt\n")
                self.assertEqual(tool(*arguments), (1, b"", expected.encode()))

    def test_texts_tells_by_its_exit_code_what_is_missing_alone(self):
        german = (EXAMPLES / "languages" / "German" / "K4TBackProcess.txt").read_text(encoding="utf-8")
        with tempfile.TemporaryDirectory() as folder:
            texts = pathlib.Path(folder) / "K4TBackProcess.txt"
            texts.write_text(german.replace("561 = ", "561 = Hinten, ").replace("&Nein", "&Jein") + "words\n",
                             encoding="utf-8")
            code, output, errors = tool("texts", "--folder", windows_path(folder))
            kinds = [line.split("\t")[0] for line in output.decode().splitlines() if not line.startswith("translated")]
            self.assertEqual((code, kinds), (0, ["unreadable", "clash", "state", "19 of 19 identifiers translated"]))
            texts.write_text(german.replace("39171 = &Ja", "39171 ="), encoding="utf-8")
            code, output, errors = tool("texts", "--folder", windows_path(folder))
            self.assertEqual((code, output.decode().splitlines()[-1]), (1, "18 of 19 identifiers translated"))
        self.assertEqual(tool("texts", "--nothing")[0], 2)

    def answer(self, keys, verb, *arguments, folder=None, environment=None):
        """Exit code and output of a verb whose dialog is answered with `keys`; the tool is that in `folder`."""
        title = f"Frage {os.getpid()}"
        display = os.environ.get("DISPLAY") or subprocess.check_output(
            [pathlib.Path(wine_run).parent / "start-display"], text=True, timeout=TIMEOUT).strip()
        screen = {**os.environ, "DISPLAY": display, **(environment or {})}
        program = str((folder or bin_folder) / "backproc.exe")
        with tempfile.TemporaryFile() as output:
            dialog = subprocess.Popen([wine_run, program, verb, "--title", title, *arguments], stdout=output,
                                      stderr=output, env=screen)
            self.addCleanup(dialog.kill)
            end = time.monotonic() + TIMEOUT

            def press(*command):
                subprocess.run(["xdotool", *command, *keys], env=screen, stdout=subprocess.DEVNULL,
                               stderr=subprocess.DEVNULL, timeout=TIMEOUT)

            while dialog.poll() is None and time.monotonic() < end:
                press("search", "--onlyvisible", "--name", title, "windowfocus", "key")
                time.sleep(0.3)
            # A window that goes ends xdotool between down and up, and the next dialog would get a key that is held.
            press("keyup")
            output.seek(0)
            return dialog.poll(), output.read().decode()

    def test_msgbox_speaks_the_language_of_a_folder(self):
        with tempfile.TemporaryDirectory() as folder:
            (pathlib.Path(folder) / "K4TBackProcess.txt").write_text("39171 = &Ja\n", encoding="utf-8")
            # The English box has no button for this letter.
            answer = self.answer(["j"], "msgbox", "--language", windows_path(folder), "Overwrite?")
        self.assertEqual(answer, (6, "6\n"))

    def ask(self, key, *arguments):
        return self.answer([key], "query", *arguments)

    def test_query_opens_the_help_of_its_own_folder(self):
        with tempfile.TemporaryDirectory() as name:
            folder = pathlib.Path(name)
            for file in ("backproc.exe", "QmxKrn2K.dll"):
                shutil.copy(bin_folder / file, folder)
            # A viewer that opens nothing; the character tells that the keys have arrived.
            shutil.copy(bin_folder / "messagebox" / "hhctrl.ocx", folder)
            answer = self.answer(["a", "ctrl+F1", "Return"], "query", "--kind", "1", "", folder=folder,
                                 environment={"WINEDLLOVERRIDES": "mscoree,mshtml=;hhctrl.ocx=n"})
        self.assertEqual(answer, (0, "text=a\nindex=0\n"))

    def test_query_tells_its_ends_apart(self):
        self.assertEqual(self.ask("Return", "--kind", "1", "abc  "), (0, "text=abc\nindex=0\n"))
        self.assertEqual(self.ask("Return", "--kind", "1", ""), (0, "text=\nindex=0\n"))
        self.assertEqual(self.ask("Escape", "--kind", "1", "abc"), (1, "text=\nindex=-1\n"))
        self.assertEqual(self.ask("alt+m", "--kind", "1", "--button", "&More", "abc"), (3, "text=␁\nindex=-100\n"))
        self.assertEqual(self.ask("Return", "--kind", "3", "--index", "1", "", "A", "B\\nC"),
                         (0, "text=B␍␊C\nindex=2\n"))

    def test_help_file_needs_a_viewer(self):
        # Its window is Windows' own business; here only that the tool does not wait for one that never comes.
        with tempfile.TemporaryDirectory() as folder:
            for name in ("backproc.exe", "QmxKrn2K.dll"):
                shutil.copy(bin_folder / name, folder)
            shutil.copy(bin_folder / "messagebox" / "hhctrl.ocx", folder)
            name = windows_path(folder) + "\\Marlentine.chm"
            overrides = {"WINEDLLOVERRIDES": "mscoree,mshtml=;hhctrl.ocx=n"}
            program = pathlib.Path(folder) / "backproc.exe"
            without = run(program, "help-file", environment=overrides)
            (pathlib.Path(folder) / "Marlentine.chm").touch()
            unshown = run(program, "help-file", environment=overrides)
        missing = f"backproc help-file: there is no help file '{name}'; put that of the package there\n"
        self.assertEqual(without, (1, name.encode() + b"\n", missing.encode()))
        silent = f"backproc help-file: no help window came up within five seconds for '{name}'; "
        self.assertEqual((unshown[0], unshown[1]), (1, name.encode() + b"\n"))
        self.assertTrue(unshown[2].decode().startswith(silent), unshown[2])

    def test_help_file_opens_help_and_closes_it(self):
        with tempfile.TemporaryDirectory() as folder:
            for name in ("backproc.exe", "QmxKrn2K.dll", "test/hhctrl.ocx"):
                shutil.copy(bin_folder / name, folder)
            name = windows_path(folder) + "\\Marlentine.chm"
            overrides = {"WINEDLLOVERRIDES": "mscoree,mshtml=;hhctrl.ocx=n"}
            result = run(pathlib.Path(folder) / "backproc.exe", "help-file", environment=overrides)
            calls = (pathlib.Path(folder) / "hhctrl.ocx.txt").read_text(encoding="ascii")
        self.assertEqual(result, (0, name.encode() + b"\n", b""))
        self.assertEqual(calls.splitlines(), [f"owned [{name}] 1", "owned [] 18"])

    def test_split_shows_number_text_and_value_of_each_field(self):
        for text, fields in [
            ("A,B,", ["A\t0", "B\t0", "\t0"]),
            ("A", ["A\t0"]),
            ('"A,B",C', ["A,B\t0", "C\t0"]),
            ('"A",', ['A"\t0']),
            ('"A"x,B', ['A"\t0', "B\t0"]),
            ("1,5", ["1\t1", "5\t5"]),
            ('"1,5"', ["1,5\t1.5"]),
        ]:
            with self.subTest(text):
                lines = [f"{number}\t{field}\n" for number, field in enumerate(fields, 1)]
                expected = "".join(lines) + f"{len(fields)}\n"
                self.assertEqual(tool("split", text), (0, expected.encode(), b""))

    def test_split_ends_for_a_quote_that_is_never_closed(self):
        code, output, errors = tool("split", '"A,B')
        self.assertEqual((code, output), (1, b""))
        self.assertRegex(errors, rb"^backproc split: no result after ten seconds; .*not closed: close it\n$")

    def test_modules_marks_the_own_entry(self):
        self.assertEqual(tool("modules"), (0, b"", b""))
        with LiveHost() as holder:
            self.assertEqual(holder.ask(b"set AllAps EDITOR,K4TBACKPROCESS,LIBRARY", b"get AllAps"),
                             b"AllAps=[EDITOR,K4TBACKPROCESS,LIBRARY]\n")
            self.assertEqual(tool("modules"), (0, b"1\tEDITOR\n2\tK4TBACKPROCESS\town\n3\tLIBRARY\n", b""))

    def test_where_shows_each_value_with_its_source(self):
        # A blank in the folder's name puts the argument in quotes, as the component wants it.
        with tempfile.TemporaryDirectory(suffix=" sys") as folder:
            ini = pathlib.Path(folder) / "MARLENTO.INI"
            ini.write_text("[Marlento]\nJobDir=D:\\job\n", encoding="ascii")
            code, output, errors = tool("where", "/sys:" + windows_path(folder))
            plain = output.decode().splitlines()
        self.assertIn(f"system folder=[{windows_path(folder)}\\] command line", plain)
        self.assertIn("job folder=[D:\\job] INI file", plain)
        self.assertEqual((code, errors), (0, b""))
        self.assertEqual(plain[0], f"install folder=[{windows_path(bin_folder)}] component")
        self.assertIn("secondary job folder=[C:\\CADJOB] default", plain)
        self.assertIn("product name=[Orvane] default", plain)
        self.assertEqual(len(plain), 14)

    def test_a_lone_tool_says_that_the_component_is_missing(self):
        with tempfile.TemporaryDirectory() as folder:
            lone = pathlib.Path(folder) / "backproc.exe"
            shutil.copy(bin_folder / "backproc.exe", lone)
            code, output, errors = run(lone, "register", "--user")
        self.assertEqual((code, output), (1, b""))
        self.assertRegex(errors, rb"^backproc register: cannot load 'Z:.*\\K4TBackProcess\.dll': .*; put the K4TBackP")

    def test_a_lone_tool_says_that_the_kernel_is_missing(self):
        with tempfile.TemporaryDirectory() as folder:
            lone = pathlib.Path(folder) / "backproc.exe"
            shutil.copy(bin_folder / "backproc.exe", lone)
            code, output, errors = run(lone, "strings")
        self.assertEqual((code, output), (1, b""))
        self.assertRegex(errors, rb"^backproc strings: File not found: QmxKrn2K\.dll \(not in Z:.*\); put .* beside ")

    def test_a_refused_registration_names_the_way_without_rights(self):
        with tempfile.TemporaryDirectory() as folder:
            shutil.copy(bin_folder / "backproc.exe", folder)
            shutil.copy(bin_folder / "test" / "refusing.dll", pathlib.Path(folder) / "K4TBackProcess.dll")
            code, output, errors = run(pathlib.Path(folder) / "backproc.exe", "register")
        self.assertEqual((code, output), (1, b""))
        self.assertRegex(errors, rb"^backproc register: 0x80070005 .*\n.*--user, which needs none\.\n$")


def copy_package(folder, *left_out):
    """The component, its kernel and the tool in a folder of their own; gives the path of the tool there."""
    for name in ("backproc.exe", "K4TBackProcess.dll", "K4TBackProcess.manifest", "QmxKrn2K.dll"):
        if name not in left_out:
            shutil.copy(bin_folder / name, folder)
    return pathlib.Path(folder) / "backproc.exe"


class Doctor(ToolTestCase):
    """Each state of a machine that keeps a client from the component, and what the tool says to it."""

    def setUp(self):
        self.folder = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))
        self.addCleanup(tool, "unregister")
        self.addCleanup(tool, "unregister", "--user")

    def diagnose(self, program):
        code, output, errors = run(program, "doctor")
        self.assertEqual(errors, b"")
        lines = output.decode().splitlines()
        self.assertEqual(code, 1 if any(line.startswith("BAD") for line in lines) else 0)
        return {line[5:].split(":")[0]: line for line in lines}

    def assert_bad(self, line, *parts):
        self.assertEqual(line[:5], "BAD  ", line)
        for part in parts:
            self.assertIn(part, line)

    def test_registered_for_the_machine_all_is_well(self):
        program = copy_package(self.folder)
        self.assertEqual(run(program, "register")[0], 0)
        lines = self.diagnose(program)
        self.assertEqual([line for line in lines.values() if not line.startswith("ok   ")], [])
        self.assertEqual(lines["registration"], "ok   registration: for the machine")
        self.assertEqual(lines["file"], "ok   file: " + windows_path(self.folder / "K4TBackProcess.dll"))
        self.assertEqual(lines["version"], "ok   version: 1.0, and so is its type library")
        self.assertEqual(lines["kernel"], "ok   kernel: " + windows_path(self.folder / "QmxKrn2K.dll"))

    def test_not_registered(self):
        lines = self.diagnose(copy_package(self.folder))
        self.assert_bad(lines["registration"], "manifest names K4TBackProcess", "backproc register --user")
        self.assertEqual(lines["loading"], "ok   loading: it loads and has the class")
        lines = self.diagnose(bin_folder / "backproc.exe")
        self.assert_bad(lines["registration"])

    def test_registered_for_the_user(self):
        program = copy_package(self.folder)
        self.assertEqual(run(program, "register", "--user")[0], 0)
        lines = self.diagnose(program)
        self.assertEqual(lines["registration"], "ok   registration: for the user")
        self.assertEqual(lines["type library"], "ok   type library: registered for the same file")
        # Wine's COM does not look at a user's classes, and the doctor says so.
        self.assert_bad(lines["activation"], "0x80040154", "backproc register")

    def test_registered_for_user_and_machine(self):
        program = copy_package(self.folder)
        run(program, "register")
        run(program, "register", "--user")
        self.assert_bad(self.diagnose(program)["registration"], "hides", "unregister")

    def test_moved_component(self):
        program = copy_package(self.folder)
        run(program, "register")
        (self.folder / "K4TBackProcess.dll").rename(self.folder / "moved.dll")
        lines = self.diagnose(program)
        self.assert_bad(lines["file"], "K4TBackProcess.dll is not there", "put it back")
        self.assert_bad(lines["activation"], "0x")

    def test_another_file_in_its_place(self):
        program = copy_package(self.folder)
        run(program, "register")
        (self.folder / "K4TBackProcess.dll").write_bytes(b"MZ no program")
        lines = self.diagnose(program)
        self.assert_bad(lines["bitness"], "no program", "32-bit")
        self.assert_bad(lines["version"], "says none")
        self.assert_bad(lines["loading"], "cannot be loaded")
        shutil.copy(bin_folder / "test" / "refusing.dll", self.folder / "K4TBackProcess.dll")
        self.assert_bad(self.diagnose(program)["loading"], "DllGetClassObject")

    def test_missing_kernel(self):
        lines = self.diagnose(copy_package(self.folder, "QmxKrn2K.dll"))
        self.assert_bad(lines["kernel"], "QmxKrn2K.dll", "beside the component")
        self.assertNotIn("language", lines)

    def test_kernel_that_lacks_entries(self):
        program = copy_package(self.folder)
        shutil.copy(bin_folder / "test" / "refusing.dll", self.folder / "QmxKrn2K.dll")
        self.assert_bad(self.diagnose(program)["kernel"], "E_SetString E_GetString DB_DataBase O_GetName")

    def test_ini_file(self):
        program = copy_package(self.folder)
        ini = self.folder / "sys" / "MARLENTO.INI"
        self.assertIn("is not there: registry settings", self.diagnose(program)["INI file"])
        ini.parent.mkdir()
        ini.write_text("[Marlento]\nVer=1\n", encoding="utf-8")
        self.assertEqual(self.diagnose(program)["INI file"], "ok   INI file: " + windows_path(ini))
        ini.write_text("[Marlento]\nVer=1\n", encoding="utf-16-le")
        self.assert_bad(self.diagnose(program)["INI file"], "NUL characters", "UTF-8")

    def test_language_folder(self):
        program = copy_package(self.folder)
        texts = self.folder / "K4TBackProcess.txt"
        with LiveHost() as holder:
            self.assertIn("no folder is chosen", self.diagnose(program)["language"])
            folder = windows_path(self.folder)
            holder.ask(f"set LANGUAGEPATH {folder}".encode(), b"get LANGUAGEPATH")
            self.assert_bad(self.diagnose(program)["language"], "no K4TBackProcess.txt", "LANGUAGEPATH")
            texts.write_text("39171 = &Ja\n39172 = &Nein\n", encoding="utf-8")
            self.assertEqual(self.diagnose(program)["language"],
                             f"ok   language: {folder}, {TEXTS - 2} texts are lacking")
            texts.write_text("39171 = &Ja\nwords\n", encoding="utf-8")
            self.assert_bad(self.diagnose(program)["language"], "1 lines cannot be read", "backproc texts")


class WithComponent(ToolTestCase):
    @classmethod
    def setUpClass(cls):
        # For the machine: Wine's COM does not look at a user's classes.
        code, _, errors = tool("register")
        if code != 0:
            raise RuntimeError("cannot register: " + errors.decode())

    @classmethod
    def tearDownClass(cls):
        tool("unregister")

    def test_scenarios(self):
        self.check_all("registered")

    def test_registers_for_the_user_and_leaves_nothing(self):
        self.check_registration("HKEY_CURRENT_USER", "--user")

    def test_registers_for_the_machine_and_leaves_nothing(self):
        self.addCleanup(tool, "register")
        self.check_registration("HKEY_LOCAL_MACHINE")

    def check_registration(self, hive, *scope):
        named = b"class K4TBackProcess.clsQmxBackProcess\nidentifier " + CLASS.encode() + b"\n"
        library = windows_path(bin_folder / "K4TBackProcess.dll").encode()
        place = hive.encode() + b"\\Software\\Classes\n"
        for _ in range(2):
            expected = named + b"library " + library + b"\nregistered in " + place
            self.assertEqual(tool("register", *scope), (0, expected, b""))
        self.assertEqual(tool("unregister", *scope), (0, named + b"removed from " + place, b""))
        self.assertEqual(tool("unregister", *scope), (0, named + b"was not registered in " + place, b""))
        for key in ("K4TBackProcess.clsQmxBackProcess", "CLSID\\" + CLASS, "TypeLib\\" + LIBRARY):
            code, output, _ = run("reg.exe", "query", hive + "\\Software\\Classes\\" + key)
            self.assertEqual(code, 1, key + " is still there: " + output.decode(errors="replace"))

    def test_a_second_process_sees_the_state_that_a_load_publishes_and_a_release_withdraws(self):
        with LiveHost() as host:
            host.ask(b"set AllAps EDITOR,K4TBACKPROCESS,LIBRARY", b"create")
            self.assertEqual(tool("strings", "get", "K4TBACKPROCESS")[0], 1)
            self.assertEqual(host.ask(b"load 1"), b"1 Load True\n")
            self.assertEqual(tool("strings", "get", "K4TBACKPROCESS"),
                             (0, b"K4TBACKPROCESS=[Pelorix Background Processing Application, 0, 0, 0, 0]\n", b""))
            host.ask(b"release 1")
            self.assertEqual(host.lines.get(timeout=TIMEOUT), b"1 released\n")
            self.assertEqual(tool("strings", "get", "K4TBACKPROCESS"), (0, b"K4TBACKPROCESS=[]\n", b""))

    def test_help_file_beside_another_one_says_so(self):
        with LiveHost() as holder:
            self.assertEqual(holder.ask(b"create"), b"1 created\n")
            self.assertEqual(holder.ask(b"load 1"), b"1 Load True\n")
            code, output, errors = tool("help-file")
        self.assertEqual((code, output), (1, b""))
        self.assertEqual(errors, b"backproc help-file: the main form did not come up: another backproc of this session has it; "
                                 b"end that one first\n")

    def test_lz_switches_the_caption_and_back(self):
        with tempfile.TemporaryDirectory() as folder:
            lines = ["create", "load 1"]
            for language, text in (("de", "Hintergrund"), ("en", "Background"), ("de", "Hintergrund")):
                texts = pathlib.Path(folder) / language / "K4TBackProcess.txt"
                texts.parent.mkdir(exist_ok=True)
                texts.write_text(f"561 = {text}\n", encoding="utf-8")
                lines += [f"set LANGUAGEPATH {windows_path(texts.parent)}", "notify 1 All,LZ", "state"]
            lines.append("get K4TBACKPROCESS")
            code, output, errors = tool("host", text="\n".join(lines).encode())
            shown = output.decode().splitlines()
        self.assertEqual((code, errors), (0, b""))
        self.assertEqual([line for line in shown if line.startswith("Caption")],
                         ["Caption=[Hintergrund]", "Caption=[Background]", "Caption=[Hintergrund]"])
        folders = [line for line in shown if line.startswith("LanguagePath")]
        self.assertEqual([line[-3:] for line in folders], ["de]", "en]", "de]"])
        # What the load published stays.
        self.assertIn("K4TBACKPROCESS=[Pelorix Background Processing Application, 0, 0, 0, 0]", shown)

    def test_the_help_file_has_its_topics(self):
        listing = subprocess.run(["chmls", "list", str(bin_folder / "Marlentine.chm")], capture_output=True, text=True,
                                 check=True, timeout=TIMEOUT).stdout
        for topic in ("welcome", "message-box", "query-dialog", "commands", "status", "languages"):
            self.assertIn(f"/{topic}.html", listing)
        self.assertIn("/contents.hhc", listing)
        self.assertIn("/index.hhk", listing)

    def test_prints_each_line_at_once(self):
        with LiveHost() as host:
            self.assertEqual(host.ask(b"create"), b"1 created\n")
            self.assertEqual(host.ask(b"load 1"), b"1 Load True\n")
            self.assertEqual(host.ask(b"release 1"), b"1 NotifyServer [K4TBACKPROCESS] [SHUTDOWN]\n")
            self.assertEqual(host.lines.get(timeout=TIMEOUT), b"1 released\n")

    def test_a_failing_creation_shows_the_component_s_own_words(self):
        self.addCleanup(tool, "register")
        with tempfile.TemporaryDirectory() as folder:
            for name in ("backproc.exe", "K4TBackProcess.dll"):
                shutil.copy(bin_folder / name, folder)
            lone = pathlib.Path(folder) / "backproc.exe"
            self.assertEqual(run(lone, "register")[0], 0)
            code, output, errors = run(lone, "host", text=b"create\nrelease 1\n")
        self.assertEqual(code, 1)
        self.assertRegex(output, rb"^1 error 0x800A0035 File not found: QmxKrn2K\.dll[^\n]*\n$")
        self.assertEqual(errors, b"backproc host: line 2: there is no instance 1; 'create' makes one\n")

    def check_client(self, *command):
        code, output, errors = run(*command)
        self.assertEqual((code, errors), (0, b""), output.decode(errors="replace"))
        self.assertIn(b"released", output.splitlines())
        self.assertNotIn(b"failed", output)
        return output

    def test_early_bound_client(self):
        output = self.check_client(bin_folder / "examples" / "client.exe")
        self.assertIn(b"event NotifyServer [K4TBACKPROCESS] [SHUTDOWN]", output.splitlines())

    def test_late_bound_clients(self):
        for name in ("client.vbs", "client.js"):
            with self.subTest(name):
                self.check_client("cscript.exe", "//nologo", windows_path(EXAMPLES / name))


if __name__ == "__main__":
    wine_run, bin_folder = sys.argv[1], pathlib.Path(sys.argv[2]).resolve()
    # Without the warnings of pipes left open: Wine's helper processes hold the other end for as long as they like.
    unittest.main(argv=sys.argv[:1], verbosity=2, warnings="ignore")
