#!/usr/bin/env python3
"""Tests the forms' font and the conversion of texts on systems with different locales, and the message box in a program
that changes its display resolution (DPI). Wine reads the system's locale from its environment.

    test_locales.py WINE_RUN BIN_FOLDER LOCALE_FOLDER

Missing locales are generated in LOCALE_FOLDER.
"""
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

TIMEOUT = 120  # seconds; a run takes one or two
JAPANESE_FACE = "\uFF2D\uFF33 \uFF30\u30B4\u30B7\u30C3\u30AF"
WINE_FONTS = pathlib.Path("/usr/share/wine/fonts")
# MS Sans Serif has a file for each code page. A system uses the file for its own code page.
MS_SANS_SERIF = sorted(font.name for font in WINE_FONTS.glob("ss*.fon"))

wine_run = ""
bin_folder = pathlib.Path()
locale_folder = pathlib.Path()


def environment_of(locale):
    """Returns the environment of a program on a system with this locale, for example "ja_JP"."""
    path = locale_folder / (locale + ".UTF-8")
    if not path.exists():
        locale_folder.mkdir(parents=True, exist_ok=True)
        # Generate the locale under another name first, because an interrupted run must not leave an incomplete locale.
        new = locale_folder / f"{locale}.{os.getpid()}.UTF-8"
        subprocess.run(["localedef", "-i", locale, "-f", "UTF-8", str(new)], check=True, timeout=TIMEOUT)
        new.rename(path)
    return {**os.environ, "LOCPATH": str(locale_folder), "LC_ALL": locale + ".UTF-8"}


def output_of(locale, program, *arguments, text=""):
    """Runs a program on a system with this locale. Returns its output. `text` is its input."""
    # The output is in files, because Wine's helper processes would keep pipes open after the program's end.
    with tempfile.TemporaryFile() as given, tempfile.TemporaryFile() as output:
        given.write(text.encode("utf-8"))
        given.seek(0)
        subprocess.run([wine_run, str(bin_folder / program), *arguments], stdin=given, stdout=output,
                       env=environment_of(locale), check=True, timeout=TIMEOUT)
        output.seek(0)
        return output.read().decode("utf-8").replace("\r\n", "\n")


def lines_of(locale, *arguments):
    """Returns the output of tests/tool/ShowFont.cpp as a dictionary."""
    return dict(line.split("=", 1) for line in output_of(locale, "test/show_font.exe", *arguments).splitlines())


def end_wine():
    """Waits until the prefix's Wine server ends, a few seconds after its last program."""
    subprocess.run(["wineserver", "-w"], check=True, timeout=TIMEOUT)


def installed_fonts():
    """Returns the paths of MS Sans Serif in the prefix. The files need not exist."""
    folder = pathlib.Path(os.environ["WINEPREFIX"], "drive_c", "windows", "Fonts")
    return [folder / name for name in MS_SANS_SERIF]


def remove_fonts():
    # Wine reads the list of fonts when its server starts.
    end_wine()
    for font in installed_fonts():
        font.unlink(missing_ok=True)


def setUpModule():
    lines_of("de_DE")  # creates the prefix
    # If an interrupted run has left these fonts, the tests without MS Sans Serif would fail.
    if any(font.exists() for font in installed_fonts()):
        remove_fonts()


class LocaleTestCase(unittest.TestCase):
    def check(self, locale, lcid, face, size, character_set, rule):
        expected = {"system locale": lcid, "user locale": lcid, "face": f"[{face}]", "size": size,
                    "character set": character_set, "rule": rule}
        self.assertEqual(lines_of(locale), expected)


class SystemLocale(LocaleTestCase):
    def test_japanese(self):
        self.check("ja_JP", "0x0411", JAPANESE_FACE, "9", "128", "Japanese")

    def test_korean(self):
        self.check("ko_KR", "0x0412", "\uAD74\uB9BC", "9", "129", "Korean")

    def test_traditional_chinese(self):
        self.check("zh_TW", "0x0404", "\u65B0\u7D30\u660E\u9AD4", "9", "136", "Traditional Chinese")

    def test_simplified_chinese(self):
        self.check("zh_CN", "0x0804", "\u5B8B\u4F53", "9", "134", "Simplified Chinese")

    def test_other_chinese(self):
        self.check("zh_HK", "0x0C04", "", "0", "0", "other Chinese")

    def test_german_without_a_western_face(self):
        lines = lines_of("de_DE")
        if lines["rule"] == "first installed face":
            self.skipTest("this system has " + lines["face"])
        self.assertEqual((lines["system locale"], lines["size"], lines["character set"], lines["rule"]),
                         ("0x0407", "8", "0", "font of icon titles"))
        self.assertRegex(lines["face"], r"^\[[^ ].*\]$")

    def test_given_locale_overrides_the_system_s(self):
        self.assertEqual(lines_of("de_DE", "3090")["rule"], "other Korean")
        self.assertEqual(lines_of("de_DE", "0x30404")["rule"], "other Chinese")


class DoubleByteCodePage(unittest.TestCase):
    """In code page 932, some characters have the byte of a backslash as second byte. U+8868 is 95 5C."""

    def test_unit_test_for_the_code_page_runs(self):
        output = output_of("ja_JP", "unit_tests.exe", "--gtest_filter=Win32Locale.DoubleByteText_RoundTrips")
        self.assertIn("[  PASSED  ] 1 test.\n", output)
        self.assertNotIn("SKIPPED", output)

    def test_shared_string_is_returned_unchanged(self):
        output = output_of("ja_JP", "backproc.exe", "host", text="set JobDir C:\\\u8A2D\u8A08\\\u8868\nget JobDir\n")
        self.assertEqual(output, "JobDir=[C:\\\u8A2D\u8A08\\\u8868]\n")


class SystemResolution(unittest.TestCase):
    def reg(self, *arguments):
        subprocess.run([wine_run, "reg", *arguments, "/f"], env=environment_of("de_DE"), stdout=subprocess.DEVNULL,
                       check=True, timeout=TIMEOUT)

    def test_box_follows_the_resolution_of_its_host(self):
        setting = ("HKCU\\Control Panel\\Desktop", "/v", "LogPixels")
        self.addCleanup(self.reg, "delete", *setting)
        self.reg("add", *setting, "/t", "REG_DWORD", "/d", "144")
        output = output_of("de_DE", "messagebox_tests.exe", "--gtest_filter=SuiteBoxEnvironment.HostChangesItsDpiAwareness*")
        self.assertIn("[  PASSED  ] 1 test.\n", output)


class SystemLocaleWithMsSansSerif(LocaleTestCase):
    @classmethod
    def setUpClass(cls):
        cls.addClassCleanup(remove_fonts)
        end_wine()
        for font in installed_fonts():
            shutil.copy(WINE_FONTS / font.name, font)

    def test_german(self):
        self.check("de_DE", "0x0407", "MS Sans Serif", "8", "0", "first installed face")

    def test_japanese_ignores_ms_sans_serif(self):
        self.check("ja_JP", "0x0411", JAPANESE_FACE, "9", "128", "Japanese")

    def test_character_set_follows_the_users_locale(self):
        for locale, character_set in (("el_GR", "161"), ("ru_RU", "204"), ("ja_JP", "128")):
            with self.subTest(locale):
                lines = lines_of(locale, "0x0407")
                self.assertEqual((lines["system locale"], lines["face"], lines["character set"]),
                                 ("0x0407", "[MS Sans Serif]", character_set))


if __name__ == "__main__":
    wine_run = sys.argv[1]
    bin_folder, locale_folder = (pathlib.Path(folder).resolve() for folder in sys.argv[2:4])
    # Suppresses warnings about open pipes. Wine's helper processes keep the other end of a pipe open for some time.
    unittest.main(argv=sys.argv[:1], verbosity=2, warnings="ignore")
