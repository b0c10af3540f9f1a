"""Functions for the tests of traces. They run traced programs and read the lines of the traces."""
import contextlib
import pathlib
import re
import subprocess
import sys
import tempfile
import time
from unittest import mock

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "tool"))

import running  # noqa: E402
from running import TIMEOUT, run, windows_path  # noqa: E402

PREFIX = re.compile(r"\d{4}-\d\d-\d\d \d\d:\d\d:\d\d\.\d{3} (\d+)/\d+ ")


def traced(file):
    return {"K4TBACKPROCESS_TRACE": windows_path(file)}


def lines_of(file):
    """Returns the lines without time, process and thread. Fails if a line lacks one of the three or is not complete."""
    text = pathlib.Path(file).read_bytes().decode("utf-8") if pathlib.Path(file).exists() else ""
    if text and not text.endswith("\n"):
        raise AssertionError("the last line is not complete: " + text[-200:])
    lines = text.split("\n")[:-1]
    for line in lines:
        if not PREFIX.match(line):
            raise AssertionError("no line of a trace: " + line[:200])
    return [PREFIX.sub("", line, count=1) for line in lines]


def host(*commands, arguments=(), program=None, environment=None):
    """Runs `backproc host` with these commands until its end. Returns the lines of its trace."""
    with tempfile.TemporaryDirectory() as folder:
        file = pathlib.Path(folder, "trace.txt")
        run(program or running.bin_folder / "backproc.exe", "host", *arguments,
            text="".join(command + "\n" for command in commands).encode(), environment={**traced(file), **(environment or {})})
        return lines_of(file)


@contextlib.contextmanager
def hanging_host(*commands, arguments=(), until):
    """Runs a `backproc host` that does not end by itself. Yields the lines of its trace when one of them contains `until`.
    Then ends the host."""
    with tempfile.TemporaryDirectory() as name:
        file = pathlib.Path(name, "trace.txt")
        given = pathlib.Path(name, "commands.txt")
        given.write_text("".join(command + "\n" for command in commands), encoding="utf-8")
        with mock.patch.dict("os.environ", traced(file)):
            process = subprocess.Popen([running.wine_run, str(running.bin_folder / "backproc.exe"), "host", windows_path(given),
                                        *arguments], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                       stderr=subprocess.DEVNULL)
        try:
            end = time.monotonic() + TIMEOUT
            while not (file.exists() and until in file.read_text(encoding="utf-8")):
                if time.monotonic() > end:
                    raise AssertionError("no line with " + until)
                time.sleep(0.1)
            # Lines that must not follow would appear in this time.
            time.sleep(1)
            yield lines_of(file)
        finally:
            process.kill()
            process.wait(timeout=TIMEOUT)
