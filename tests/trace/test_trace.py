#!/usr/bin/env python3
"""Tests traces of built programs under Wine: several processes with one file, a full disk, and the tool for traces.

    test_trace.py WINE_RUN BIN_FOLDER

Eight processes write 2,000 lines each, or 10,000 with K4T_FULL_ROUNDS=1.
"""
import contextlib
import os
import pathlib
import re
import subprocess
import tempfile
import time
from unittest import mock

import tracing
from tracing import PREFIX, lines_of, running, traced
from running import TIMEOUT, LiveHost, RegisteredTestCase, ToolTestCase, main, run, tool, windows_path

COMMANDS = b"create\nload 1\nnotify 1 All,RD\nsend 1 EDITOR OPEN\nsever 1 x\nrelease 1\n"
RESULTS = (b"1 created\n1 Load True\n1 NotifyMe\n1 NotifyServer [EDITOR] [OPEN]\n1 AP_SendCmd\n1 SeverPath [x]\n"
           b"1 NotifyServer [K4TBACKPROCESS] [SHUTDOWN]\n1 released\n")


class Processes(ToolTestCase):
    def test_eight_processes_share_one_file(self):
        count = 10_000 if os.environ.get("K4T_FULL_ROUNDS") else 2_000
        with tempfile.TemporaryDirectory() as folder:
            file = pathlib.Path(folder) / "trace.txt"
            writers = [subprocess.Popen([running.wine_run, str(running.bin_folder / "trace" / "trace_writer.exe"),
                                         windows_path(file), str(count)]) for _ in range(8)]
            self.assertEqual([writer.wait(timeout=4 * TIMEOUT) for writer in writers], [0] * 8)
            text = file.read_text(encoding="utf-8")
        numbers = {}
        for line in text.splitlines():
            process = PREFIX.match(line).group(1)
            numbers.setdefault(process, []).append(line[PREFIX.match(line).end():])
        expected = [f"line=[{i}] text=[{'x' * (i % 300)}]" for i in range(1, count + 1)]
        self.assertEqual(len(numbers), 8)
        for process, lines in numbers.items():
            self.assertTrue(lines == expected, f"process {process}: {len(lines)} lines")


class Registered(RegisteredTestCase):
    def setUp(self):
        self.folder = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))

    def host(self, file):
        return run(running.bin_folder / "backproc.exe", "host", text=COMMANDS, environment=traced(file))


class Component(Registered):
    @contextlib.contextmanager
    def small_disk(self):
        """Mounts a file system of 64 KB."""
        mounted = subprocess.run(["mount", "-t", "tmpfs", "-o", "size=64k", "tmpfs", self.folder], capture_output=True)
        if mounted.returncode != 0:
            self.skipTest("no small file system can be mounted here: " + mounted.stderr.decode().strip())
        try:
            yield
        finally:
            subprocess.run(["umount", "-l", self.folder], check=True)

    def test_clients_see_no_difference(self):
        self.assertEqual(run(running.bin_folder / "backproc.exe", "host", text=COMMANDS), (0, RESULTS, b""))
        self.assertEqual(self.host(self.folder / "trace.txt"), (0, RESULTS, b""))
        lines = lines_of(self.folder / "trace.txt")
        self.assertRegex(lines[0], r"^trace started program=\[.*backproc\.exe\] arguments=\[host\] component=\[.*\.dll\]")
        self.assertRegex(lines[-1], r"^released instance=\[1\] ms=\[")

    def test_nothing_is_written_if_the_variable_is_empty(self):
        before = set(self.folder.iterdir())
        run(running.bin_folder / "backproc.exe", "host", text=COMMANDS, environment={"K4TBACKPROCESS_TRACE": ""})
        self.assertEqual(set(self.folder.iterdir()), before)

    def test_file_that_cannot_be_opened_changes_no_result(self):
        for file in (self.folder, self.folder / "missing" / "trace.txt"):
            self.assertEqual(self.host(file), (0, RESULTS, b""))

    def test_full_disk_changes_no_result(self):
        with self.small_disk():
            filler = self.folder / "filler"
            with mock.patch.dict("os.environ", traced(self.folder / "trace.txt")), LiveHost() as live:
                self.assertEqual(live.ask(b"create"), b"1 created\n")
                with contextlib.suppress(OSError), open(filler, "wb", buffering=0) as file:
                    while True:
                        file.write(b"x" * 512)
                for _ in range(100):
                    self.assertEqual(live.ask(b"notify 1 All,RD"), b"1 NotifyMe\n")
                self.assertEqual(live.ask(b"send 1 EDITOR OPEN"), b"1 NotifyServer [EDITOR] [OPEN]\n")
                # After the line "1 AP_SendCmd", the host adds nothing to the trace until it gets the next command.
                self.assertEqual(live.ask(), b"1 AP_SendCmd\n")
                lines_when_full = lines_of(self.folder / "trace.txt")
                filler.unlink()
                self.assertEqual(live.ask(b"load 1"), b"1 Load True\n")
            lines = lines_of(self.folder / "trace.txt")
        self.assertEqual(lines[:len(lines_when_full)], lines_when_full)
        lost = re.fullmatch(r"trace lines lost=\[(\d+)\]", lines[len(lines_when_full)])
        self.assertTrue(lost, lines[len(lines_when_full)])
        # Each of the 100 commands writes two lines, and the event writes some more. A few of these lines still fitted
        # on the disk. The others are lost.
        self.assertGreater(int(lost.group(1)), 100)
        self.assertIn("Load instance=[1] mode=[0]", lines)

    def test_when_the_disk_becomes_full_the_file_has_only_whole_lines(self):
        with self.small_disk():
            commands = b"create\n" + b"notify 1 All,RD\n" * 1000
            code, output, errors = run(running.bin_folder / "backproc.exe", "host", text=commands,
                                       environment=traced(self.folder / "trace.txt"))
            lines = lines_of(self.folder / "trace.txt")
        self.assertEqual((code, errors), (0, b""))
        self.assertEqual(output.count(b"1 NotifyMe\n"), 1000)
        self.assertGreater(len(lines), 300)
        self.assertLess(len(lines), 900)

    def test_read_only_disk_changes_no_result(self):
        with self.small_disk():
            subprocess.run(["mount", "-o", "remount,ro", self.folder], check=True)
            self.assertEqual(self.host(self.folder / "trace.txt"), (0, RESULTS, b""))
            self.assertEqual(list(self.folder.iterdir()), [])

    def test_hostile_values_are_one_line_each(self):
        long = "x" * 10_000_000
        lines = tracing.host("create", "notify 1 All,\u202e\ud83d\ude00].\\u{41}".encode("utf-16", "surrogatepass").decode("utf-16"),
                             "notify 1 " + long, "notify 1 \"" + long)
        calls = [line for line in lines if line.startswith("NotifyMe instance")]
        self.assertIn("command=[All,\\u{202E}\U0001F600\\u{5D}.\\u{5C}u{41}]", calls[0])
        self.assertIn(f"command=[{'x' * 256}] cut from 10000000 characters", calls[1])
        self.assertEqual(len(calls), 3)
        self.assertLess(max(map(len, lines)), 4000)


class Tool(Registered):
    def test_trace_shows_the_program_and_ends_with_its_code(self):
        code, output, errors = tool("trace", "--", windows_path(running.bin_folder / "backproc.exe"), "host", text=COMMANDS)
        lines = output.decode().splitlines()
        self.assertEqual((code, errors), (0, b""))
        self.assertTrue(any(re.search(r"/\d+ Load done instance=\[1\] result=\[True\]", line) for line in lines))
        self.assertEqual([line for line in lines if not PREFIX.match(line)], RESULTS.decode().splitlines())
        # The host returns this code for a line that is no command.
        code, output, errors = tool("trace", "--", windows_path(running.bin_folder / "backproc.exe"), "host", text=b"dance\n")
        self.assertEqual((code, output), (1, b""))
        self.assertIn(b"backproc host: line 1: ", errors)

    def temporary_files(self):
        return list(pathlib.Path(os.environ["WINEPREFIX"], "drive_c").rglob("k4t*.tmp*"))

    def test_trace_leaves_no_temporary_file(self):
        tool("trace", "--", windows_path(running.bin_folder / "backproc.exe"), "version")
        self.assertEqual(self.temporary_files(), [])

    def test_program_that_outlives_the_tool_makes_no_temporary_file(self):
        starter = windows_path(running.bin_folder / "trace" / "starter.exe")
        program = windows_path(running.bin_folder / "backproc.exe")
        shown = self.folder / "shown.txt"
        with open(shown, "wb") as output:
            viewer = subprocess.Popen([running.wine_run, program, "trace", "--", starter, "leave", program, "host"],
                                      stdin=subprocess.PIPE, stdout=output)
            self.assertEqual(viewer.wait(timeout=TIMEOUT), 0)
            self.assertEqual(self.temporary_files(), [])
            # The host still waits for its commands.
            viewer.stdin.write(b"create\n")
            viewer.stdin.close()
            self.wait_for(lambda: b"1 released" in shown.read_bytes())
        self.assertEqual(shown.read_bytes(), b"1 created\n1 released\n")
        self.assertEqual(self.temporary_files(), [])

    def test_ctrl_c_ends_the_trace_of_a_windowed_program(self):
        # Under Wine, a program has a console if its standard input is a terminal.
        terminal, given = os.openpty()
        try:
            ended = subprocess.run([running.wine_run, str(running.bin_folder / "trace" / "starter.exe"), "interrupt",
                                    windows_path(running.bin_folder / "backproc.exe"), "trace", "--",
                                    windows_path(running.bin_folder / "trace" / "windowed.exe")],
                                   stdin=given, stdout=subprocess.DEVNULL, timeout=TIMEOUT)
        finally:
            os.close(terminal)
            os.close(given)
        # The windowed program itself would end with 1.
        self.assertEqual(ended.returncode, 0)
        self.assertEqual(self.temporary_files(), [])

    def test_trace_is_written_to_the_file_that_the_environment_names(self):
        program = windows_path(running.bin_folder / "backproc.exe")
        for name, arguments in (("host.txt", ("host", "--trace")), ("trace.txt", ("trace", "--", program, "host"))):
            file = self.folder / name
            code, output, errors = run(running.bin_folder / "backproc.exe", *arguments, text=b"create\n",
                                       environment=traced(file))
            self.assertEqual((code, errors), (0, b""))
            self.assertIn("released instance=[1]", lines_of(file)[-1])
            self.assertIn(b"released instance=[1]", output)

    def test_missing_folder_for_temporary_files_is_reported(self):
        for arguments in (("host", "--trace"), ("trace", "--", "x.exe")):
            # Wine itself sets TMP for the first program. Therefore cmd.exe is the first program and starts the tool.
            code, output, errors = run("cmd.exe", "/c", "set", "TMP=C:\\missing&&",
                                       windows_path(running.bin_folder / "backproc.exe"), *arguments)
            self.assertEqual((code, output), (1, b""))
            self.assertEqual(errors.decode(), f"backproc {arguments[0]}: cannot make a temporary file; "
                             "set TMP to a folder where you may write\n")

    def test_trace_passes_the_command_line_unchanged(self):
        (self.folder / "my sys").mkdir()
        sys_folder = windows_path(self.folder / "my sys")
        code, output, _ = tool("trace", "--", windows_path(running.bin_folder / "backproc.exe"), "host", "/sys:" + sys_folder,
                               text=b"create\n")
        self.assertEqual(code, 0)
        self.assertIn(f"system folder folder=[{sys_folder}\\]".encode(), output)

    def test_trace_appends_to_a_file_and_shows_the_new_lines(self):
        file = self.folder / "trace.txt"
        self.host(file)
        before = lines_of(file)
        code, output, errors = tool("trace", "--file", windows_path(file), "--",
                                    windows_path(running.bin_folder / "backproc.exe"), "host", text=b"create\n")
        self.assertEqual((code, errors), (0, b""))
        new = [line for line in output.decode().splitlines() if PREFIX.match(line)]
        self.assertEqual(before + [PREFIX.sub("", line, count=1) for line in new], lines_of(file))
        self.assertIn("create instance=[1]", new[1])

    def test_trace_of_a_file_shows_the_lines_of_other_programs(self):
        file = self.folder / "trace.txt"
        self.host(file)
        shown = self.folder / "shown.txt"
        with open(shown, "wb") as output, self.viewer(file, output):
            end = time.monotonic() + TIMEOUT
            while b"released instance=[1]" not in shown.read_bytes():
                self.assertLess(time.monotonic(), end, "no line was shown")
                self.host(file)

    @contextlib.contextmanager
    def viewer(self, file, output, errors=None):
        """Runs `backproc trace --file`. Ends it if it is still running."""
        viewer = subprocess.Popen([running.wine_run, str(running.bin_folder / "backproc.exe"), "trace", "--file",
                                   windows_path(file)], stdout=output, stdin=subprocess.DEVNULL, stderr=errors)
        try:
            yield viewer
        finally:
            viewer.kill()
            viewer.wait(timeout=TIMEOUT)

    def wait_for(self, condition):
        end = time.monotonic() + TIMEOUT
        while not condition():
            self.assertLess(time.monotonic(), end)
            time.sleep(0.1)

    def test_incomplete_line_that_is_removed_again_is_not_shown(self):
        file = self.folder / "trace.txt"
        file.write_bytes(b"old\n")
        shown = self.folder / "shown.txt"
        with open(shown, "wb") as output, self.viewer(file, output):

            def append(text):
                with open(file, "ab") as appended:
                    appended.write(text)

            def append_until_shown():
                append(b"new\n")
                return shown.read_bytes()

            self.wait_for(append_until_shown)
            length = file.stat().st_size
            append(b"incomplete")
            # During this second, the viewer reads the file several times.
            time.sleep(1)
            os.truncate(file, length)
            time.sleep(1)
            append(b"last\n")
            self.wait_for(lambda: b"last" in shown.read_bytes())
            self.assertRegex(shown.read_bytes(), rb"^(new\n)+last\n$")
            # Another program empties the file.
            append(b"incomplete")
            time.sleep(1)
            os.truncate(file, 0)
            append(b"first\n")
            self.wait_for(lambda: b"first" in shown.read_bytes())
            self.assertRegex(shown.read_bytes(), rb"^(new\n)+last\nfirst\n$")

    def test_closed_output_ends_trace_with_an_error(self):
        file = self.folder / "trace.txt"
        errors = self.folder / "errors.txt"
        reading, writing = os.pipe()
        with open(errors, "wb") as stream, self.viewer(file, writing, stream) as viewer:
            os.close(writing)
            os.close(reading)

            def ends():
                with open(file, "ab") as appended:
                    appended.write(b"line\n")
                return viewer.poll() is not None

            self.wait_for(ends)
            self.assertEqual(viewer.returncode, 1)
        self.assertEqual(errors.read_bytes(), b"backproc trace: cannot write all output (disk full or pipe closed)\n")

    def test_host_shows_its_own_trace_in_order(self):
        code, output, errors = tool("host", "--trace", text=b"create\nload 1\n")
        lines = [PREFIX.sub("", line, count=1) for line in output.decode().splitlines()]
        self.assertEqual((code, errors), (0, b""))
        created = next(i for i, line in enumerate(lines) if line.startswith("created instance=[1]"))
        self.assertEqual(lines[created + 1], "1 created")
        loaded = next(i for i, line in enumerate(lines) if line.startswith("Load done instance=[1] result=[True]"))
        self.assertEqual(lines[loaded + 1], "1 Load True")
        self.assertIn("NotifyServer instance=[1] module=[K4TBACKPROCESS] command=[SHUTDOWN]", lines)
        self.assertEqual(lines[-1], "1 released")

    def test_trace_refuses_invalid_arguments(self):
        code, output, errors = tool("trace", "--", "C:\\no program.exe")
        self.assertEqual((code, output), (1, b""))
        self.assertRegex(errors, rb"^backproc trace: cannot start 'C:\\no program\.exe': .*; give its full path\n$")
        code, output, errors = tool("trace", "--file", "C:\\missing\\t.txt", "--", "x.exe")
        self.assertEqual((code, output), (1, b""))
        self.assertRegex(errors, rb"^backproc trace: cannot write the trace 'C:\\missing\\t\.txt': .*; name a file in ")
        for arguments, text in (((), "missing argument '-- PROGRAM' or '--file FILE'"), (("--",), "missing argument PROGRAM"),
                                (("a.exe",), "unexpected argument 'a.exe'; write '--' before PROGRAM"),
                                (("--file",), "option '--file' requires a value"),
                                (("--fil", "x"), "unknown option '--fil'; did you mean '--file'?"),
                                (("\r\n]" + "x" * 300,), "unexpected argument '␍␊]" + "x" * 197 + "…'; write '--' before PROGRAM")):
            with self.subTest(arguments):
                code, output, errors = tool("trace", *arguments)
                self.assertEqual((code, output), (2, b""))
                self.assertEqual(errors.decode(), f"backproc trace: {text}\nTry 'backproc help trace'.\n")


if __name__ == "__main__":
    main()
