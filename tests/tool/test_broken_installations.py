#!/usr/bin/env python3
"""Breaks an installation in many ways. Repairs each fault by following the advice of `backproc doctor`.

    test_broken_installations.py WINE_RUN BIN_FOLDER

BROKEN and BROKEN_INI_FILES are the tables of cases. A case has a name, a function that breaks the installation, the
doctor's expected line (subject and words), and the expected advice. If the case has a function for the repair, this
function follows the advice. Otherwise the test runs the commands in the advice as written.
"""
import dataclasses
import os
import pathlib
import re
import shlex
import shutil
import tempfile
import typing

import running
from running import LiveHost, ToolTestCase, main, run, windows_path

CLASS = "{ECD8F3EF-620B-4D2C-8D9B-9F3E96273634}"
LIBRARY = "{525D7D67-10F8-4B05-99EF-A6A69CD0A145}"
NAME = "K4TBackProcess.clsQmxBackProcess"
MACHINE = "HKLM\\Software\\Classes\\"
USER = "HKCU\\Software\\Classes\\"
SERVER = MACHINE + "CLSID\\" + CLASS + "\\InprocServer32"
PACKAGE = ("backproc.exe", "K4TBackProcess.dll", "K4TBackProcess.manifest", "dev/QmxKrn2K.dll")
# The doctor prints this note for most installations of this test, because they have the development kernel.
ALWAYS_NOTED = "development kernel: shares no strings with the suite; for use with the suite"
# In these tests, this file is the suite's kernel.
SUITE_KERNEL = "kernel/recording/QmxKrn2K.dll"


def interface_key(name):
    """Returns the registry key of an interface. The interface's identifier is from the IDL."""
    idl = (pathlib.Path(__file__).resolve().parents[2] / "host" / "com" / "K4TBackProcess.idl").read_text()
    before = idl[:re.search(rf"(dispinterface|interface) {name}\b[^;]*\{{", idl).start()]
    return "Interface\\{" + re.findall(r"uuid\(([0-9A-Fa-f-]+)\)", before)[-1].upper() + "}"


def system_folder():
    return pathlib.Path(os.environ["WINEPREFIX"], "drive_c", "windows", "system32")


def as_64_bit(library):
    """Returns the library's bytes with a changed header, which says that the library is for 64-bit Windows."""
    data = bytearray(library.read_bytes())
    header = int.from_bytes(data[0x3C:0x40], "little")
    data[header + 4:header + 6] = b"\x64\x86"
    return bytes(data)


class Installation:
    """A copy of the package in its own folder."""

    def __init__(self, root):
        self.folder = root / "Orvane"
        self.folder.mkdir()
        self.other = root / "Other"
        self.other.mkdir()
        self.install(self.folder)
        self.component = self.folder / "K4TBackProcess.dll"
        self.kernel = self.folder / "QmxKrn2K.dll"
        self.ini = self.folder / "sys" / "MARLENTO.INI"
        self.tool = self.folder / "backproc.exe"
        self.holder = None

    @staticmethod
    def install(folder):
        running.copy_built(folder, *PACKAGE)

    def run(self, *arguments, tool=None):
        code, output, errors = run(tool or self.tool, *arguments)
        assert code == 0, (arguments, output, errors)

    def registry(self, *arguments):
        code, output, errors = run("reg.exe", *arguments)
        assert code == 0, (arguments, output, errors)

    def delete(self, key):
        self.registry("delete", key, "/f")

    def set(self, key, text, name=None):
        self.registry("add", key, *(["/ve"] if name is None else ["/v", name]), "/d", text, "/f")

    def write_ini(self, data):
        self.ini.parent.mkdir(exist_ok=True)
        self.ini.write_bytes(data if isinstance(data, bytes) else data.encode())

    def hold(self, key, value):
        """Sets a shared string. Another process keeps the string until the end of the test."""
        self.holder.ask(f"set {key} {value}".encode(), b"get " + key.encode())

    def doctor(self):
        code, output, errors = run(self.tool, "doctor")
        assert errors == b"", errors
        lines = output.decode().splitlines()
        assert (code == 1) == any(line.startswith("BAD") for line in lines), (code, lines)
        return [line for line in lines if not line.startswith("ok   ") and ALWAYS_NOTED not in line]


def put_component(it):
    shutil.copy(running.bin_folder / "K4TBackProcess.dll", it.component)


def put_suite_kernel(it):
    shutil.copy(running.bin_folder / SUITE_KERNEL, it.kernel)


@dataclasses.dataclass
class Broken:
    name: str
    how: typing.Callable
    subject: str
    says: str
    advises: str = "run 'backproc "
    mend: typing.Callable = None  # if None, the test runs the commands in the advice
    needs_strings: bool = False  # if true, another program must keep the shared strings in memory
    stays: str = ""  # a note that the doctor still prints after the repair


# Functions that break or repair an installation.

def unregister(it):
    it.run("unregister")


def register_for_the_user_alone(it):
    it.run("unregister")
    it.run("register", "--user")


def register_for_both(it):
    # The tool would refuse this registration.
    code, _, errors = run("regsvr32.exe", "/s", "/n", "/i:user", windows_path(it.component))
    assert code == 0, errors


def name_another_class_for_the_user(it):
    it.set(USER + NAME + "\\CLSID", "{00000000-0000-0000-0000-000000000046}")


def move_component(it):
    it.component.rename(it.folder / "moved.dll")


def move_back(it):
    (it.folder / "moved.dll").rename(it.component)


def move_folder(it):
    for file in it.folder.iterdir():
        shutil.move(str(file), it.other)
    it.tool, it.component = it.other / "backproc.exe", it.other / "K4TBackProcess.dll"


def register_where_it_is_now(it):
    it.run("register")


def register_another_copy(it):
    it.install(it.other)
    it.run("unregister")
    it.run("register", tool=it.other / "backproc.exe")


def be_another_version(it):
    it.component.write_bytes((running.bin_folder / "test" / "refusing.dll").read_bytes())


def have_kernel_beside_tool_only(it):
    shutil.rmtree(it.folder / "dev")
    it.tool = pathlib.Path(shutil.copy(it.tool, it.other))
    shutil.copy(running.bin_folder / SUITE_KERNEL, it.other)


def hide_the_suites_kernel(it):
    shutil.copy(running.bin_folder / SUITE_KERNEL, system_folder())
    shutil.copy(running.bin_folder / "dev" / "QmxKrn2K.dll", it.kernel)


def make_ini_a_folder(it):
    it.ini.unlink(missing_ok=True)
    it.ini.mkdir(parents=True)


def choose_language(data):
    def how(it):
        (it.other / "K4TBackProcess.txt").write_bytes(data)
        it.hold("LANGUAGEPATH", windows_path(it.other))
    return how


def choose_empty_folder(it):
    it.hold("LANGUAGEPATH", windows_path(it.other))


def set_language_folder(it):
    german = running.EXAMPLES / "languages" / "German"
    it.run("strings", "set", "LANGUAGEPATH", windows_path(german))


def save_language_as_utf8(it):
    shutil.copy(running.EXAMPLES / "languages" / "German" / "K4TBackProcess.txt", it.other)


def have_record_of_another_form(it):
    it.holder.ask(b"create")
    it.holder.ask(b"load 1")
    it.hold("K4TBACKPROCESS", "Another, 0, 0, 0, 0")


def end_the_program_with_the_form(it):
    it.holder.ask(b"release 1")


SETTINGS = "[Marlento]\r\nJobDir=D:\\JOB\r\n"
TAKE_KERNEL = dict(advises="put the suite's", mend=put_suite_kernel)
TAKE_COMPONENT = dict(advises="K4TBackProcess.dll of the package there", mend=put_component)


def broken_ini(name, data, says, advises, mended=SETTINGS):
    return Broken(name, lambda it: it.write_ini(data), "INI file", says, advises, lambda it: it.write_ini(mended))


BROKEN = [
    Broken("not registered", unregister, "registration", "none; only a program whose own manifest"),
    Broken("registered for the user only, which Wine's COM ignores", register_for_the_user_alone, "activation", "0x80040154"),
    Broken("both hives", register_for_both, "registration", "the user's hides the machine's"),
    Broken("name gone", lambda it: it.delete(MACHINE + NAME), "name", "is not registered"),
    Broken("name refers to another class", lambda it: it.set(MACHINE + NAME + "\\CLSID", "{00000000-0000-0000-0000-000000000046}"),
           "name", "names another class: {00000000-0000-0000-0000-000000000046}"),
    Broken("name refers to another class in the user's entries", name_another_class_for_the_user, "name", "in the user's entries"),
    Broken("interface gone", lambda it: it.delete(MACHINE + interface_key("_clsQmxBackProcess")), "proxies",
           "the entries of _clsQmxBackProcess are missing or wrong"),
    Broken("event interface with the wrong marshaller",
           lambda it: it.set(MACHINE + interface_key("__clsQmxBackProcess") + "\\ProxyStubClsid32", CLASS), "proxies",
           "the entries of __clsQmxBackProcess are missing or wrong"),
    Broken("threading model wrong", lambda it: it.set(SERVER, "Both", "ThreadingModel"), "threading", "not Apartment"),
    Broken("threading model gone", lambda it: it.registry("delete", SERVER, "/v", "ThreadingModel", "/f"), "threading",
           "no model is registered"),
    Broken("type library gone", lambda it: it.delete(MACHINE + "TypeLib\\" + LIBRARY), "type library", "not registered"),
    Broken("type library of another file",
           lambda it: it.set(MACHINE + "TypeLib\\" + LIBRARY + "\\1.0\\409\\win32", "C:\\old\\K4TBackProcess.dll"),
           "type library", "registered for another file: C:\\old\\K4TBackProcess.dll"),
    Broken("component renamed", move_component, "file", "K4TBackProcess.dll does not exist", "put it back", move_back),
    Broken("folder moved", move_folder, "file", "K4TBackProcess.dll does not exist",
           "run 'backproc register', as an administrator, in the folder where it is now", register_where_it_is_now),
    Broken("path of a folder that is gone", lambda it: it.set(SERVER, "C:\\gone\\K4TBackProcess.dll"), "file",
           "C:\\gone\\K4TBackProcess.dll does not exist", "in the folder where it is now", register_where_it_is_now),
    Broken("path of another copy", register_another_copy, "tool", "the component in force is another copy"),
    Broken("path in quotes", lambda it: it.set(SERVER, f'"{windows_path(it.component)}"'), "file", "is in quotes"),
    Broken("relative path", lambda it: it.set(SERVER, "K4TBackProcess.dll"), "file", "not a full path"),
    Broken("component is a text file", lambda it: it.component.write_text("no library"), "bitness",
           "not a Windows program file", **TAKE_COMPONENT),
    Broken("component is a 64-bit file", lambda it: it.component.write_bytes(as_64_bit(it.component)), "bitness",
           "64-bit", **TAKE_COMPONENT),
    Broken("component is another library", be_another_version, "loading", "DllGetClassObject", **TAKE_COMPONENT),
    Broken("kernel missing", lambda it: shutil.rmtree(it.folder / "dev"), "kernel", "File not found: QmxKrn2K.dll",
           "put the suite's QmxKrn2K.dll beside the component", put_suite_kernel),
    Broken("kernel is a text file", lambda it: it.kernel.write_text("no library"), "kernel", "(not a library)",
           **TAKE_KERNEL),
    Broken("kernel is a 64-bit file", lambda it: it.kernel.write_bytes(as_64_bit(running.bin_folder / SUITE_KERNEL)),
           "kernel", "(a 64-bit file)", **TAKE_KERNEL),
    Broken("kernel lacks entries",
           lambda it: shutil.copy(running.bin_folder / "kernel" / "partial" / "QmxKrn2K.dll", it.kernel), "kernel",
           "lacks E_SetString O_GetName", **TAKE_KERNEL),
    Broken("kernel only beside the tool", have_kernel_beside_tool_only, "kernel", "found only in this tool's folder",
           stays="the component in force is another copy", **TAKE_KERNEL),
    Broken("development kernel hides the suite's", hide_the_suites_kernel, "kernel",
           "development kernel: shares no strings with the suite; it hides the suite's", "delete ",
           lambda it: it.kernel.unlink()),
    Broken("module list with an open quote", lambda it: it.hold("AllAps", 'EDITOR,"LIBRARY'), "modules",
           "opens a quote that is never closed", needs_strings=True),
    Broken("module list with a number that is too large", lambda it: it.hold("AllAps", "EDITOR,1E999"), "modules",
           "'1E999' is a number that is too large", needs_strings=True),
    Broken("state record of a dead process", lambda it: it.hold("K4TBACKPROCESS", "Caption, 0, 0, 0, 0"), "state",
           "no process of this session has its form", needs_strings=True),
    Broken("state record of a dead process beside a living one", have_record_of_another_form, "state",
           "no main form of this session has that caption", "end that program", end_the_program_with_the_form,
           needs_strings=True),
    Broken("language folder without a file", choose_empty_folder, "language", "has no K4TBackProcess.txt",
           "'backproc strings set LANGUAGEPATH FOLDER'", set_language_folder, needs_strings=True),
    Broken("language file is UTF-16", choose_language("39171 = &Ja\n".encode("utf-16")), "language",
           "is UTF-16, which is not read", "save it as UTF-8", save_language_as_utf8, needs_strings=True),
]

BROKEN_INI_FILES = [
    broken_ini("INI file is UTF-16 without a byte order mark", SETTINGS.encode("utf-16-le"), "NUL characters",
               "save it as UTF-8"),
    broken_ini("INI file is big-endian UTF-16 without a byte order mark", SETTINGS.encode("utf-16-be"), "NUL characters",
               "save it as UTF-8"),
    broken_ini("INI file is UTF-16 and cut", b"\xff\xfe" + SETTINGS.encode("utf-16-le") + b"x", "ends within a character",
               "save it as UTF-8"),
    broken_ini("INI file is UTF-32", SETTINGS.encode("utf-32"), "NUL characters", "save it as UTF-8"),
    broken_ini("INI file is broken UTF-8", b"\xef\xbb\xbf" + SETTINGS.encode() + b"Ver=\xfc\r\n", "not valid UTF-8",
               "save it as UTF-8"),
    broken_ini("INI file is in an old code page", SETTINGS.encode() + b"Maker=M\x81ller\r\n", "depend on the code page",
               "save it as UTF-8"),
    broken_ini("INI section misspelt", "[Marlentine]\r\nJobDir=D:\\JOB\r\n", "section [Marlentine] is not read",
               "name the section [Marlento]"),
    broken_ini("INI section not closed", "[Marlento\r\n" + SETTINGS, "has no ']'", "add the ']'",
               "[Marlento]\r\n" + SETTINGS),
    broken_ini("INI settings above the section", "LibDir=D:\\LIB\r\n" + SETTINGS, "is above the first section",
               "put [Marlento] above it", "[Marlento]\r\nLibDir=D:\\LIB\r\n" + SETTINGS),
    broken_ini("INI key misspelt", "[Marlento]\r\nJobdirectory=D:\\JOB\r\n", "did you mean 'JobDir'?", "rename it to JobDir"),
    broken_ini("INI line without '='", SETTINGS + "LibDir D:\\LIB\r\n", "has no '=' and is ignored", "write NAME = VALUE",
               SETTINGS + "LibDir = D:\\LIB\r\n"),
    broken_ini("INI setting set twice", SETTINGS + "JobDir=E:\\JOB\r\n", "is set a second time",
               "remove one of the two lines"),
    broken_ini("INI comment in a value", "[Marlento]\r\nJobDir=D:\\JOB ; ours\r\n", "seems to end with a comment",
               "put the comment on a line of its own", "[Marlento]\r\n; ours\r\nJobDir=D:\\JOB\r\n"),
    broken_ini("INI quote not closed", "[Marlento]\r\nJobDir=\"D:\\JOB\r\n", "starts with a quote but does not end with it",
               "end the value with the quote", "[Marlento]\r\nJobDir=\"D:\\JOB\"\r\n"),
    Broken("INI file is a folder", make_ini_a_folder, "INI file", "is a folder", "rename the folder",
           lambda it: it.ini.rename(it.ini.with_name("old"))),
]


class BrokenInstallations(ToolTestCase):
    @classmethod
    def setUpClass(cls):
        # Copy the tool into a folder without a kernel. The tests use the copy as a client in another folder.
        cls.client_folder = pathlib.Path(cls.enterClassContext(tempfile.TemporaryDirectory()))
        shutil.copy(running.bin_folder / "backproc.exe", cls.client_folder)
        # Every Windows user has this key, but a new Wine prefix lacks it.
        run("reg.exe", "add", "HKCU\\Software\\Classes", "/f")

    def setUp(self):
        self.addCleanup(self.tidy)

    @staticmethod
    def tidy():
        """Removes all registrations, and the kernel in the system folder."""
        keys = [NAME, "CLSID\\" + CLASS, "TypeLib\\" + LIBRARY, interface_key("_clsQmxBackProcess"),
                interface_key("__clsQmxBackProcess")]
        with tempfile.NamedTemporaryFile("w", suffix=".reg") as script:
            script.write("REGEDIT4\n\n")
            for hive in ("HKEY_CURRENT_USER", "HKEY_LOCAL_MACHINE"):
                script.writelines(f"[-{hive}\\Software\\Classes\\{key}]\n\n" for key in keys)
            script.flush()
            run("regedit.exe", "/S", windows_path(script.name))
        (system_folder() / "QmxKrn2K.dll").unlink(missing_ok=True)

    def follow(self, it, row, lines):
        """Follows the advice in the doctor's line."""
        meant = [line for line in lines if row.advises in line]
        self.assertTrue(meant, lines)
        if row.mend:
            row.mend(it)
            return
        for command in re.findall(r"\brun 'backproc ([^']*)'", meant[0]):
            it.run(*shlex.split(command))

    def check_client(self, it):
        client = self.client_folder / "backproc.exe"
        code, output, errors = run(client, "host", text=b"create\nload 1\nrelease 1\n")
        self.assertEqual((code, errors), (0, b""), output)

    def break_and_mend(self, it, row):
        row.how(it)
        lines = it.doctor()
        found = [line for line in lines if line[5:].startswith(row.subject + ": ") and row.says in line]
        self.assertTrue(found, lines)
        self.follow(it, row, found)
        for _ in range(3):
            lines = [line for line in it.doctor() if not row.stays or row.stays not in line]
            if not lines:
                return
            # The remaining findings have their own advice.
            self.follow(it, Broken(row.name, row.how, row.subject, row.says), lines)
        self.assertEqual(lines, [])

    def check_row(self, row, root):
        it = Installation(root)
        it.run("register")
        if row.needs_strings:
            it.holder = self.enterContext(LiveHost())
        self.break_and_mend(it, row)
        self.check_client(it)

    def test_doctors_advice_repairs_each_installation(self):
        for row in BROKEN:
            with self.subTest(row.name), tempfile.TemporaryDirectory() as root:
                try:
                    self.check_row(row, pathlib.Path(root))
                finally:
                    self.doCleanups()
                    self.tidy()

    def test_doctors_advice_repairs_each_ini_file(self):
        with tempfile.TemporaryDirectory() as root:
            it = Installation(pathlib.Path(root))
            it.run("register")
            for row in BROKEN_INI_FILES:
                with self.subTest(row.name):
                    self.break_and_mend(it, row)
            self.check_client(it)


if __name__ == "__main__":
    main()
