#!/usr/bin/env python3
"""Runs the built tool and the example clients under Wine, and compares their output with the expected output.

    test_tool.py WINE_RUN BIN_FOLDER

Each file in scenarios/ describes one run of the tool. This file has the tests that a scenario cannot describe,
for example tests with several processes, prepared files, or a copy of the tool in another folder. The component is
registered only for the tests that need it.
"""
import pathlib
import shutil
import subprocess
import tempfile

import running
from running import EXAMPLES, LiveHost, RegisteredTestCase, TIMEOUT, ToolTestCase, main, run, tool, windows_path

CLASS = "{ECD8F3EF-620B-4D2C-8D9B-9F3E96273634}"
LIBRARY = "{525D7D67-10F8-4B05-99EF-A6A69CD0A145}"


class WithoutComponent(ToolTestCase):
    @classmethod
    def setUpClass(cls):
        tool("unregister")

    def test_scenarios(self):
        self.check_all("unregistered")

    def test_very_long_lines_are_not_cut(self):
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
        code, output, errors = tool("strings")
        self.assertEqual((code, output), (0, b""))
        self.assertRegex(errors, rb"^backproc strings: .*QmxKrn2K\.dll has no strings; strings exist only while a program")

    def test_where_shows_each_value_with_its_source(self):
        # The folder's name contains a blank, so that Wine quotes the argument. The component needs the quotes.
        with tempfile.TemporaryDirectory(suffix=" sys") as folder:
            ini = pathlib.Path(folder) / "MARLENTO.INI"
            ini.write_text("[Marlento]\nJobDir=D:\\job\n", encoding="ascii")
            code, output, errors = tool("where", "/sys:" + windows_path(folder))
            plain = output.decode().splitlines()
        self.assertIn(f"system folder=[{windows_path(folder)}\\] command line", plain)
        self.assertIn("job folder=[D:\\job] INI file", plain)
        self.assertEqual((code, errors), (0, b""))
        here = windows_path(running.bin_folder)
        self.assertEqual(plain[0], f"component=[{here}\\K4TBackProcess.dll] not registered; the copy beside this tool")
        self.assertEqual(plain[1], f"kernel=[{here}\\dev\\QmxKrn2K.dll] development kernel")
        self.assertEqual(plain[2], f"install folder=[{here}] component")
        self.assertIn("secondary job folder=[C:\\CADJOB] default", plain)
        self.assertIn("product name=[Orvane] default", plain)

    def test_strings_reports_a_text_that_the_kernel_changed(self):
        code, output, errors = tool("strings", "set", "Maker", "日本")
        self.assertEqual((code, output), (0, b""))
        self.assertRegex(errors, rb"^backproc strings: the kernel stored \[\?\?\]; the ANSI code page")

    def test_where_shows_values_after_their_change_by_the_code_page(self):
        with tempfile.TemporaryDirectory(suffix=" sys") as folder:
            (pathlib.Path(folder) / "MARLENTO.INI").write_text("[Marlento]\nJobDir=D:\\日\nSysDir=D:\\日\n",
                                                               encoding="utf-8")
            output = tool("where", "/sys:" + windows_path(folder))[1].decode().splitlines()
        self.assertIn("job folder=[D:\\?] INI file, changed by the ANSI code page", output)
        self.assertIn("system folder setting=[D:\\日] INI file", output)

    def test_where_works_without_a_kernel(self):
        with tempfile.TemporaryDirectory() as folder:
            for name in ("backproc.exe", "K4TBackProcess.dll"):
                shutil.copy(running.bin_folder / name, folder)
            (pathlib.Path(folder) / "sys").mkdir()
            (pathlib.Path(folder) / "sys" / "MARLENTO.INI").write_text("[Marlento]\nJobDir=D:\\JOB\n")
            code, output, errors = run(pathlib.Path(folder) / "backproc.exe", "where")
        lines = output.decode().splitlines()
        self.assertEqual((code, errors), (0, b""))
        self.assertRegex(lines[1], r"^kernel=\[\] File not found: QmxKrn2K\.dll")
        self.assertIn("product name=[Orvane] default", lines)
        self.assertIn("job folder=[D:\\JOB] INI file", lines)
        self.assertIn("library folder=[C:\\?\\LIB] default", lines)

    def test_where_works_with_a_kernel_that_clients_do_not_find(self):
        with tempfile.TemporaryDirectory() as name:
            folder, tools = pathlib.Path(name), pathlib.Path(name) / "tools"
            tools.mkdir()
            running.copy_built(folder, "backproc.exe", "K4TBackProcess.dll")
            self.addCleanup(tool, "unregister")
            self.assertEqual(run(folder / "backproc.exe", "register")[0], 0)
            shutil.copy(running.bin_folder / "backproc.exe", tools)
            shutil.copy(running.bin_folder / "dev" / "QmxKrn2K.dll", tools)
            code, output, errors = run(tools / "backproc.exe", "where")
            strings = run(tools / "backproc.exe", "strings")
        lines = output.decode().splitlines()
        self.assertEqual((code, errors), (0, b""))
        self.assertIn("was found only in this tool's folder", lines[1])
        self.assertIn("product name=[Orvane] default", lines)
        self.assertEqual(strings[:2], (1, b""))
        self.assertIn(b"was found only in this tool's folder", strings[2])

    def test_missing_component_is_reported(self):
        with tempfile.TemporaryDirectory() as folder:
            lone = pathlib.Path(folder) / "backproc.exe"
            shutil.copy(running.bin_folder / "backproc.exe", lone)
            code, output, errors = run(lone, "register", "--user")
        self.assertEqual((code, output), (1, b""))
        self.assertRegex(errors, rb"^backproc register: cannot load 'Z:.*\\K4TBackProcess\.dll': .*; put the K4TBackP")

    def test_missing_kernel_is_reported(self):
        with tempfile.TemporaryDirectory() as folder:
            lone = pathlib.Path(folder) / "backproc.exe"
            shutil.copy(running.bin_folder / "backproc.exe", lone)
            code, output, errors = run(lone, "strings")
        self.assertEqual((code, output), (1, b""))
        self.assertRegex(errors, rb"^backproc strings: File not found: QmxKrn2K\.dll \(searched: Z:.*\); put .* beside ")

    def test_refused_registration_suggests_the_user_option(self):
        with tempfile.TemporaryDirectory() as folder:
            shutil.copy(running.bin_folder / "backproc.exe", folder)
            shutil.copy(running.bin_folder / "test" / "refusing.dll", pathlib.Path(folder) / "K4TBackProcess.dll")
            code, output, errors = run(pathlib.Path(folder) / "backproc.exe", "register")
        self.assertEqual((code, output), (1, b""))
        self.assertRegex(errors, rb"^backproc register: 0x80070005 .*\n.*--user, which needs none\.\n$")


class WithComponent(RegisteredTestCase):
    def test_scenarios(self):
        self.check_all("registered")

    def test_registration_for_the_user_is_removed_completely(self):
        tool("unregister")
        self.addCleanup(tool, "register")
        self.check_registration("HKEY_CURRENT_USER", "--user")

    def test_registration_for_the_machine_is_removed_completely(self):
        self.addCleanup(tool, "register")
        self.check_registration("HKEY_LOCAL_MACHINE")

    def test_refuses_a_second_registration(self):
        code, output, errors = tool("register", "--user")
        library = windows_path(running.bin_folder / "K4TBackProcess.dll")
        self.assertEqual((code, output), (1, b""))
        self.assertEqual(errors.decode(), f"backproc register: already registered for the machine: {library}; a user's "
                                          "registration hides the machine's, so run 'backproc unregister' as an "
                                          "administrator first\n")
        self.assertEqual(run("reg.exe", "query", "HKCU\\Software\\Classes\\CLSID\\" + CLASS)[0], 1)

    def check_registration(self, hive, *scope):
        named = b"class K4TBackProcess.clsQmxBackProcess\nidentifier " + CLASS.encode() + b"\n"
        library = windows_path(running.bin_folder / "K4TBackProcess.dll").encode()
        place = hive.encode() + b"\\Software\\Classes\n"
        for _ in range(2):
            expected = named + b"library " + library + b"\nregistered in " + place
            self.assertEqual(tool("register", *scope), (0, expected, b""))
        self.assertEqual(tool("unregister", *scope), (0, named + b"removed from " + place, b""))
        self.assertEqual(tool("unregister", *scope), (0, named + b"was not registered in " + place, b""))
        for key in ("K4TBackProcess.clsQmxBackProcess", "CLSID\\" + CLASS, "TypeLib\\" + LIBRARY):
            code, output, _ = run("reg.exe", "query", hive + "\\Software\\Classes\\" + key)
            self.assertEqual(code, 1, key + " is still there: " + output.decode(errors="replace"))

    def test_second_process_sees_the_published_state(self):
        with LiveHost() as host:
            host.ask(b"set AllAps EDITOR,K4TBACKPROCESS,LIBRARY", b"create")
            self.assertEqual(tool("strings", "get", "K4TBACKPROCESS")[0], 1)
            self.assertEqual(host.ask(b"load 1"), b"1 Load True\n")
            self.assertEqual(tool("strings", "get", "K4TBACKPROCESS"),
                             (0, b"K4TBACKPROCESS=[Pelorix Background Processing Application, 0, 0, 0, 0]\n", b""))
            host.ask(b"release 1")
            self.assertEqual(host.lines.get(timeout=TIMEOUT), b"1 released\n")
            self.assertEqual(tool("strings", "get", "K4TBACKPROCESS"), (0, b"K4TBACKPROCESS=[]\n", b""))

    def test_another_copy_of_the_tool_uses_the_registered_component(self):
        with tempfile.TemporaryDirectory() as folder:
            lone = pathlib.Path(folder) / "backproc.exe"
            shutil.copy(running.bin_folder / "backproc.exe", lone)
            shutil.copy(running.bin_folder / "K4TBackProcess.dll", folder)
            where = run(lone, "where")[1].decode().splitlines()
            code, output, errors = run(lone, "strings", "set", "A", "b")
        here = windows_path(running.bin_folder)
        self.assertEqual(where[0], f"component=[{here}\\K4TBackProcess.dll] registered for the machine")
        self.assertEqual(where[2], f"install folder=[{here}] component")
        self.assertEqual((code, output), (0, b""))
        self.assertEqual(errors.decode(), f"backproc strings: using the component {here}\\K4TBackProcess.dll (registered "
                                          f"for the machine) and the kernel {here}\\dev\\QmxKrn2K.dll\n")

    def test_lz_changes_the_caption_and_restores_it(self):
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
        # LZ does not change the state record that Load published.
        self.assertIn("K4TBACKPROCESS=[Pelorix Background Processing Application, 0, 0, 0, 0]", shown)

    def test_the_help_file_has_its_topics(self):
        listing = subprocess.run(["chmls", "list", str(running.bin_folder / "Marlentine.chm")], capture_output=True, text=True,
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

    def test_failed_creation_shows_the_component_s_error(self):
        self.addCleanup(tool, "register")
        with tempfile.TemporaryDirectory() as folder:
            for name in ("backproc.exe", "K4TBackProcess.dll"):
                shutil.copy(running.bin_folder / name, folder)
            lone = pathlib.Path(folder) / "backproc.exe"
            self.assertEqual(run(lone, "register")[0], 0)
            code, output, errors = run(lone, "host", text=b"create\nrelease 1\n")
        self.assertEqual(code, 1)
        self.assertRegex(output, rb"^1 error 0x800A0035 File not found: QmxKrn2K\.dll[^\n]*\n$")
        self.assertEqual(errors, b"backproc host: line 2: there is no instance 1; create one with 'create'\n")

    def check_client(self, *command):
        code, output, errors = run(*command)
        self.assertEqual((code, errors), (0, b""), output.decode(errors="replace"))
        self.assertIn(b"released", output.splitlines())
        self.assertNotIn(b"failed", output)
        return output

    def test_early_bound_client(self):
        output = self.check_client(running.bin_folder / "examples" / "client.exe")
        self.assertIn(b"event NotifyServer [K4TBACKPROCESS] [SHUTDOWN]", output.splitlines())

    def test_late_bound_clients(self):
        for name in ("client.vbs", "client.js"):
            with self.subTest(name):
                self.check_client("cscript.exe", "//nologo", windows_path(EXAMPLES / name))


if __name__ == "__main__":
    main()
