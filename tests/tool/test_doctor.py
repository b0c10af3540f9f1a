#!/usr/bin/env python3
"""Tests `backproc doctor`. Most tests first cause a fault.

    test_doctor.py WINE_RUN BIN_FOLDER
"""
import contextlib
import pathlib
import shutil
import tempfile

import running
from running import LiveHost, TEXTS, ToolTestCase, main, run, tool, windows_path

CLASS = "{ECD8F3EF-620B-4D2C-8D9B-9F3E96273634}"


def copy_package(folder, *left_out):
    """Copies the tool, the component, its manifest and the kernel into `folder`, except the files in `left_out`. Returns the
    tool's path."""
    names = ("backproc.exe", "K4TBackProcess.dll", "K4TBackProcess.manifest", "dev/QmxKrn2K.dll")
    running.copy_built(folder, *(name for name in names if name not in left_out))
    return pathlib.Path(folder) / "backproc.exe"


class Doctor(ToolTestCase):
    """Checks the doctor's findings in different states of an installation."""

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

    def test_registered_for_the_machine_nothing_is_bad(self):
        program = copy_package(self.folder)
        self.assertEqual(run(program, "register")[0], 0)
        lines = self.diagnose(program)
        noted = [line for line in lines.values() if not line.startswith("ok   ")]
        self.assertEqual(noted, [lines["kernel"]])
        self.assertEqual(lines["registration"], "ok   registration: for the machine")
        self.assertEqual(lines["file"], "ok   file: " + windows_path(self.folder / "K4TBackProcess.dll"))
        self.assertEqual(lines["version"], "ok   version: 1.0, the same as in its type library")
        self.assertEqual(lines["kernel"], "note kernel: " + windows_path(self.folder / "dev" / "QmxKrn2K.dll") +
                         ", development kernel: shares no strings with the suite; for use with the suite, "
                         "put its QmxKrn2K.dll beside the component")

    def test_component_is_not_registered(self):
        lines = self.diagnose(copy_package(self.folder))
        self.assert_bad(lines["registration"], "manifest names K4TBackProcess", "backproc register --user")
        self.assertEqual(lines["loading"], "ok   loading: loads and provides the class")
        lines = self.diagnose(running.bin_folder / "backproc.exe")
        self.assert_bad(lines["registration"])

    def test_registered_for_the_user(self):
        program = copy_package(self.folder)
        self.assertEqual(run(program, "register", "--user")[0], 0)
        lines = self.diagnose(program)
        self.assertEqual(lines["registration"], "ok   registration: for the user")
        self.assertEqual(lines["type library"], "ok   type library: registered for the same file")
        # Wine's COM ignores classes that are registered for a user only. The doctor reports this.
        self.assert_bad(lines["activation"], "0x80040154", "backproc register")

    def test_registered_for_user_and_machine(self):
        program = copy_package(self.folder)
        run(program, "register")
        # The tool would refuse this registration.
        run("regsvr32.exe", "/s", "/n", "/i:user", windows_path(self.folder / "K4TBackProcess.dll"))
        self.assert_bad(self.diagnose(program)["registration"], "hides", "unregister")
        code, output, errors = run(program, "register")
        self.assertEqual((code, output), (1, b""))
        self.assertIn(b"already registered for the user: ", errors)
        self.assertIn(b"run 'backproc unregister --user' first", errors)

    def test_moved_component(self):
        program = copy_package(self.folder)
        run(program, "register")
        (self.folder / "K4TBackProcess.dll").rename(self.folder / "moved.dll")
        lines = self.diagnose(program)
        self.assert_bad(lines["file"], "K4TBackProcess.dll does not exist", "put it back")
        self.assert_bad(lines["activation"], "0x")

    def test_another_file_in_place_of_the_component(self):
        program = copy_package(self.folder)
        run(program, "register")
        (self.folder / "K4TBackProcess.dll").write_bytes(b"MZ no program")
        lines = self.diagnose(program)
        self.assert_bad(lines["bitness"], "not a Windows program file", "32-bit")
        self.assert_bad(lines["version"], "has no version")
        self.assert_bad(lines["loading"], "cannot be loaded")
        shutil.copy(running.bin_folder / "test" / "refusing.dll", self.folder / "K4TBackProcess.dll")
        self.assert_bad(self.diagnose(program)["loading"], "DllGetClassObject")

    def test_missing_kernel(self):
        lines = self.diagnose(copy_package(self.folder, "dev/QmxKrn2K.dll"))
        self.assert_bad(lines["kernel"], "QmxKrn2K.dll", "beside the component")
        self.assertNotIn("language", lines)

    def test_kernel_that_lacks_entries(self):
        program = copy_package(self.folder)
        shutil.copy(running.bin_folder / "test" / "refusing.dll", self.folder / "QmxKrn2K.dll")
        self.assert_bad(self.diagnose(program)["kernel"], "E_SetString E_GetString DB_DataBase O_GetName")

    def test_faults_of_the_ini_file_are_reported(self):
        program = copy_package(self.folder)
        ini = self.folder / "sys" / "MARLENTO.INI"
        self.assertIn("does not exist; registry settings", self.diagnose(program)["INI file"])
        ini.parent.mkdir()
        ini.write_text("[Marlento]\nVer=1\n", encoding="utf-8")
        self.assertEqual(self.diagnose(program)["INI file"], "ok   INI file: " + windows_path(ini) + ", UTF-8, settings read: Ver")
        ini.write_text("[Marlento]\nVer=1\n", encoding="utf-16-le")
        self.assert_bad(self.diagnose(program)["INI file"], "NUL characters", "UTF-8")

    def test_open_quote_in_the_module_list_does_not_hang_the_tool(self):
        program = copy_package(self.folder)
        self.assertEqual(run(program, "register")[0], 0)
        with LiveHost() as holder:
            holder.ask(b'set AllAps EDITOR,"LIBRARY', b"get AllAps")
            # run() fails if the program does not end in time.
            self.assert_bad(self.diagnose(program)["modules"], "field 2, 'LIBRARY' opens a quote that is never closed",
                            "run 'backproc strings set AllAps \"EDITOR\"'")
            report = windows_path(self.folder / "ticket.txt")
            codes = {arguments: run(program, *arguments)[0]
                     for arguments in (("doctor", "--report", report), ("where",), ("strings",), ("texts",))}
        self.assertEqual(list(codes.values()), [1, 0, 0, 1], codes)

    def test_state_record_is_compared_with_the_loaded_main_forms(self):
        program = copy_package(self.folder)
        self.assertEqual(run(program, "register")[0], 0)
        with LiveHost() as holder:
            holder.ask(b"create")
            self.assertEqual(holder.ask(b"load 1"), b"1 Load True\n")
            loaded = self.diagnose(program)["state"]
            holder.ask(b"set K4TBACKPROCESS Another, 0, 0, 0, 0", b"get K4TBACKPROCESS")
            another = self.diagnose(program)["state"]
            holder.ask(b"set K4TBACKPROCESS ", b"get K4TBACKPROCESS")
            withdrawn = self.diagnose(program)["state"]
        process = r"process \d+ \(.*\\backproc\.exe\)"
        self.assertRegex(loaded, rf"^ok   state: the main form of the record is loaded in {process}$")
        self.assertRegex(another, rf"^note state: .*'Another', but no main form of this session .* loaded in {process}; .*otherwise")
        self.assertRegex(withdrawn, rf"^note state: K4TBACKPROCESS is empty, .* loaded in {process}; end that program")

    def test_relative_path_loads_nothing_from_the_current_folder(self):
        program = copy_package(self.folder)
        self.assertEqual(run(program, "register")[0], 0)
        server = "HKLM\\Software\\Classes\\CLSID\\" + CLASS + "\\InprocServer32"
        self.assertEqual(run("reg.exe", "add", server, "/ve", "/d", "K4TBackProcess.dll", "/f")[0], 0)
        with contextlib.chdir(self.folder):
            lines = self.diagnose(program)
            where = run(program, "where")
        self.assert_bad(lines["file"], "not a full path")
        self.assert_bad(lines["activation"], "not tried", "see 'file' above")
        self.assertNotIn("loading", lines)
        self.assertIn(b"cannot load the registered component 'K4TBackProcess.dll'", where[2])

    def test_report_has_findings_registry_strings_and_ini_file(self):
        program = copy_package(self.folder)
        self.assertEqual(run(program, "register")[0], 0)
        ini = self.folder / "sys" / "MARLENTO.INI"
        ini.parent.mkdir()
        ini.write_text("[Marlento]\nMaker=Größe\n", encoding="utf-8")
        report = self.folder / "ticket.txt"
        with LiveHost() as holder:
            holder.ask(b"set AllAps EDITOR,K4TBACKPROCESS", b"get AllAps")
            code, output, errors = run(program, "doctor", "--report", windows_path(report))
        self.assertEqual((code, errors), (0, b""))
        text = report.read_text(encoding="utf-8")
        self.assertIn(output.decode(), text)
        library = windows_path(self.folder / "K4TBackProcess.dll")
        self.assertIn(f'HKEY_LOCAL_MACHINE\\Software\\Classes\\CLSID\\{CLASS}\\InprocServer32 ""=[{library}]\n', text)
        self.assertIn("AllAps=[EDITOR,K4TBACKPROCESS]\n", text)
        self.assertIn("Maker=Größe\n", text)

    def test_report_that_cannot_be_written_is_a_failure(self):
        code, output, errors = run(copy_package(self.folder), "doctor", "--report", "C:\\no such folder\\ticket.txt")
        self.assertEqual(code, 1)
        self.assertIn(b"cannot write the report 'C:\\no such folder\\ticket.txt'", errors)

    def test_faults_of_the_language_folder_are_reported(self):
        program = copy_package(self.folder)
        texts = self.folder / "K4TBackProcess.txt"
        with LiveHost() as holder:
            self.assertIn("no folder is chosen", self.diagnose(program)["language"])
            folder = windows_path(self.folder)
            holder.ask(f"set LANGUAGEPATH {folder}".encode(), b"get LANGUAGEPATH")
            self.assert_bad(self.diagnose(program)["language"], "no K4TBackProcess.txt", "LANGUAGEPATH")
            texts.write_text("39171 = &Ja\n39172 = &Nein\n", encoding="utf-8")
            self.assertEqual(self.diagnose(program)["language"],
                             f"ok   language: {folder}, missing texts: {TEXTS - 2}")
            texts.write_text("39171 = &Ja\nwords\n", encoding="utf-8")
            self.assert_bad(self.diagnose(program)["language"], "unreadable lines: 1", "backproc texts")


if __name__ == "__main__":
    main()
