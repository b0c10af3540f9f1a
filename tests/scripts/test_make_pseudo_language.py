#!/usr/bin/env python3
"""Tests of scripts/make-pseudo-language: what it makes of single texts and of whole files."""
import importlib.machinery
import importlib.util
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

sys.dont_write_bytecode = True
SCRIPT = pathlib.Path(__file__).resolve().parent.parent.parent / "scripts" / "make-pseudo-language"
loader = importlib.machinery.SourceFileLoader("make_pseudo_language", str(SCRIPT))
script = importlib.util.module_from_spec(importlib.util.spec_from_loader(loader.name, loader))
loader.exec_module(script)


class Texts(unittest.TestCase):
    def check(self, text, expected):
        self.assertEqual(script.pseudo(text), expected)

    def test_letters_get_accents_and_the_text_brackets(self):
        self.check("Cancel", "[Çáñçél]")
        self.check("Accept", "[Áççépt]")

    def test_long_texts_grow_by_a_third(self):
        self.check("Can't exceed 25 characters.", "[Çáñ't éxçééd 25 çháráçtérš.~~~~~~~]")
        for length in (20, 57, 200):
            grown = len(script.pseudo("x" * length)) / length
            self.assertTrue(1.3 <= grown <= 1.4, f"{length}: {grown}")

    def test_access_keys_stay_plain(self):
        self.check("&Yes", "[&Yéš]")
        self.check("Yes &To All", "[Ýéš &Tó Áll~~]")
        self.check("S&ave", "[Š&avé]")

    def test_doubled_mark_stays(self):
        self.check("a && c", "[á && ç]")

    def test_mark_at_the_end_is_a_character(self):
        self.check("an&", "[áñ&]")

    def test_escapes_stay(self):
        self.check(r"nne\nsa\ta\\n", r"[ññé\nšá\tá\\ñ~~]")
        self.check(r"an &\san", r"[áñ &\sáñ]")

    def test_blanks_at_the_ends_stay_outside(self):
        self.check(r"Path:\s", r"[Páth:]\s")
        self.check(r"\salready\s\s", r"\s[álréádý]\s\s")
        self.check(r"\s", r"\s")

    def test_empty_text_stays_empty(self):
        self.check("", "")

    def test_accented_letters_are_in_the_western_code_page(self):
        self.assertEqual(len(script.PLAIN), len(script.ACCENTED))
        script.ACCENTED.encode("cp1252")


class Files(unittest.TestCase):
    def test_comments_and_empty_lines_stay(self):
        self.assertEqual(script.pseudo_file("# can\n\n1=on\n2 = a = b\n"), "# can\n\n1 = [óñ]\n2 = [á = b]\n")

    def test_blanks_before_a_comment_do_not_count(self):
        self.assertEqual(script.pseudo_file(" \t# can\n \t\n1 = on\n"), "# can\n\n1 = [óñ]\n")

    def test_lines_end_at_cr_and_lf_alone(self):
        self.assertEqual(script.pseudo_file("1 = on\r2 = on\r\n3 = x\u2028y\x0bz"),
                         "1 = [óñ]\n2 = [óñ]\n3 = [x\u2028ý\x0bž]\n")

    def test_other_white_space_belongs_to_the_text(self):
        self.assertEqual(script.pseudo_file("1 = \u00a0on\n"), "1 = [\u00a0óñ]\n")

    def test_line_without_an_identifier_is_refused(self):
        for bad in ("words\n", "= a\n"):
            with self.assertRaisesRegex(ValueError, "^line 2 "):
                script.pseudo_file("1 = a\n" + bad)

    def test_file_is_made_in_the_folder(self):
        with tempfile.TemporaryDirectory() as folder:
            template = pathlib.Path(folder) / "english.txt"
            template.write_bytes(b"\xef\xbb\xbf39171 = &Yes\r\n")
            place = pathlib.Path(folder) / "new" / "pseudo"
            printed = subprocess.run([str(SCRIPT), "--template", str(template), "--folder", str(place)], check=True,
                                     capture_output=True, text=True).stdout
            made = place / "K4TBackProcess.txt"
            self.assertEqual(printed, f"{made}\n")
            self.assertEqual(made.read_bytes(), "39171 = [&Yéš]\n".encode())

    def test_tool_that_is_not_built_is_named(self):
        with tempfile.TemporaryDirectory() as folder:
            (pathlib.Path(folder) / "scripts").mkdir()
            copy = shutil.copy(SCRIPT, pathlib.Path(folder) / "scripts")
            run = subprocess.run([copy], capture_output=True, text=True)
            tool = pathlib.Path(folder).resolve() / "build" / "windows" / "bin" / "backproc.exe"
        self.assertEqual((run.returncode, run.stdout), (1, ""))
        self.assertEqual(run.stderr, f"make-pseudo-language: there is no {tool}: "
                                     "build it with scripts/build, or name a --template\n")

    def test_bad_template_is_named(self):
        with tempfile.TemporaryDirectory() as folder:
            template = pathlib.Path(folder) / "english.txt"
            template.write_text("words\n")
            run = subprocess.run([str(SCRIPT), "--template", str(template), "--folder", folder], capture_output=True,
                                 text=True)
            self.assertEqual((run.returncode, run.stdout), (1, ""))
            self.assertIn("english.txt: line 1 ", run.stderr)


if __name__ == "__main__":
    unittest.main()
