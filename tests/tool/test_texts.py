#!/usr/bin/env python3
"""Tests the tool's verbs for texts and language files. The component is not registered.

    test_texts.py WINE_RUN BIN_FOLDER
"""
import pathlib
import tempfile

import running
from running import EXAMPLES, LiveHost, TEXTS, ToolTestCase, main, tool, windows_path


class Texts(ToolTestCase):
    def test_get_uses_the_current_language(self):
        with tempfile.TemporaryDirectory() as folder, LiveHost() as holder:
            texts = pathlib.Path(folder) / "K4TBackProcess.txt"
            texts.write_text("39171 = &Ja\n1 = eins\\nzwei\n2 =\n4 = \\s\n", encoding="utf-8")
            holder.ask(f"set LANGUAGEPATH {windows_path(folder)}".encode(), b"get LANGUAGEPATH")
            self.assertEqual(tool("texts", "get", "39171"), (0, b"&Ja\n", b""))
            self.assertEqual(tool("texts", "get", " 39171", "&Yes"), (0, b"&Ja\n", b""))
            self.assertEqual(tool("texts", "get", "1"), (0, "eins␍␊zwei\n".encode(), b""))
            self.assertEqual(tool("texts", "get", "2", "default"), (0, b"default\n", b""))
            self.assertEqual(tool("texts", "get", "4", "default"), (0, b" \n", b""))
            self.assertEqual(tool("texts", "get", "3", "default"), (0, b"default\n", b""))
            self.assertEqual(tool("texts", "get", "3"), (1, b"", b"backproc texts: there is no text '3' in the current language; "
                                                         b"give a DEFAULT, or see 'backproc texts'\n"))

    def test_each_example_language_is_complete(self):
        for language in ("German", "French", "Japanese", "Hebrew"):
            with self.subTest(language):
                folder = windows_path(EXAMPLES / "languages" / language)
                code, output, errors = tool("texts", "--folder", folder)
                lines = output.decode().splitlines()
                self.assertEqual((code, errors, lines[-1]), (0, b"", f"{TEXTS} of {TEXTS} identifiers translated"))
                self.assertEqual({line.split("\t")[0] for line in lines[:-1]}, {"translated"}, lines)

    def test_texts_uses_the_current_language(self):
        with tempfile.TemporaryDirectory() as folder, LiveHost() as holder:
            (pathlib.Path(folder) / "K4TBackProcess.txt").write_text("39171 = &Ja\nwords\n7 = x\n", encoding="utf-8")
            self.assertEqual(tool("texts")[::2], (1, b"backproc texts: no language folder is chosen; give one with --folder\n"))
            holder.ask(f"set LANGUAGEPATH {windows_path(folder)}".encode(), b"get LANGUAGEPATH")
            code, output, errors = tool("texts")
        lines = output.decode().splitlines()
        self.assertEqual((code, errors), (1, b""))
        self.assertIn("translated\t39171\t[&Yes]\t[&Ja]\tcmdBut(0) of frmQMXMsgBox", lines)
        self.assertIn("missing\t39172\t[&No]\t\tcmdBut(1) of frmQMXMsgBox", lines)
        path = windows_path(folder) + "\\K4TBackProcess.txt"
        self.assertEqual(lines[-3:], [f"unreadable\t{path}:2\thas no '='", f"unknown\t{path}:3\t7\t[x]",
                                      f"1 of {TEXTS} identifiers translated"])

    def test_unusable_file_is_named(self):
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
                             (65, b"", errors.replace(b"backproc texts:", b"backproc msgbox:")))
            with LiveHost() as holder:
                holder.ask(f"set LANGUAGEPATH {windows_path(folder)}".encode(), b"get LANGUAGEPATH")
                self.assertEqual(tool("texts", "get", "39171", "&Yes"), (0, b"&Yes\n", b""))

    def test_template_translates_every_text_into_itself(self):
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder) / "K4TBackProcess.txt"
            self.assertEqual(tool("texts", "--template", "--output", windows_path(path)), (0, b"", b""))
            code, output, errors = tool("texts", "--folder", windows_path(folder), "--check")
        lines = [line.split("\t") for line in output.decode().splitlines()]
        self.assertEqual((code, errors, lines[-1]), (0, b"", [f"{TEXTS} of {TEXTS} identifiers translated"]))
        for line in lines[:-1]:
            # "LOC" has two English texts. A language file has only one text for each identifier.
            self.assertTrue(line[2] == line[3] or line[1] == "LOC", line)

    def test_texts_works_without_a_kernel(self):
        with tempfile.TemporaryDirectory() as folder:
            running.copy_built(folder, "backproc.exe", "K4TBackProcess.dll")
            code, output, errors = running.run(pathlib.Path(folder) / "backproc.exe", "texts")
        self.assertEqual((code, output.decode().splitlines()[-1]), (1, f"0 of {TEXTS} identifiers translated"))
        self.assertRegex(errors, rb"^backproc texts: File not found: QmxKrn2K\.dll.*; without a kernel, give .* with --folder\n$")

    def test_caption_is_shown_as_published(self):
        with tempfile.TemporaryDirectory() as folder:
            (pathlib.Path(folder) / "K4TBackProcess.txt").write_text("561 = 日本\n39171 = 日\n", encoding="utf-8")
            output = tool("texts", "--folder", windows_path(folder))[1].decode().splitlines()
        changed = [line for line in output if "published as" in line]
        self.assertEqual([(line.split("\t")[1], line.split("\t")[-1]) for line in changed], [("561", "published as [??]")])

    def test_msgbox_without_the_language_file_fails(self):
        with tempfile.TemporaryDirectory() as folder:
            code, output, errors = tool("msgbox", "--language", windows_path(folder), "Overwrite?")
        expected = (f"backproc msgbox: there is no language file '{windows_path(folder)}\\K4TBackProcess.txt'; "
                    "'backproc texts --template' writes one to start from\n")
        self.assertEqual((code, output, errors.decode()), (65, b"", expected))

    def test_empty_name_of_a_language_folder_is_refused(self):
        for failure, arguments in ((1, ("texts", "--folder", "")), (65, ("msgbox", "--language", "", "Overwrite?"))):
            with self.subTest(arguments[0]):
                expected = (f"backproc {arguments[0]}: the name of the language folder is empty; "
                            "give a folder that has a K4TBackProcess.txt\n")
                self.assertEqual(tool(*arguments), (failure, b"", expected.encode()))

    def test_without_check_only_missing_texts_are_a_failure(self):
        german = (EXAMPLES / "languages" / "German" / "K4TBackProcess.txt").read_text(encoding="utf-8")
        with tempfile.TemporaryDirectory() as folder:
            texts = pathlib.Path(folder) / "K4TBackProcess.txt"
            texts.write_text(german.replace("561 = ", "561 = Hinten, ").replace("&Nein", "&Jein") + "words\n",
                             encoding="utf-8")
            code, output, errors = tool("texts", "--folder", windows_path(folder))
            kinds = [line.split("\t")[0] for line in output.decode().splitlines() if not line.startswith("translated")]
            self.assertEqual((code, kinds), (0, ["unreadable", "clash", "state", f"{TEXTS} of {TEXTS} identifiers translated"]))
            self.assertEqual(tool("texts", "--folder", windows_path(folder), "--check"), (1, output, b""))
            texts.write_text(german.replace("39171 = &Ja", "39171 ="), encoding="utf-8")
            code, output, errors = tool("texts", "--folder", windows_path(folder))
            self.assertEqual((code, output.decode().splitlines()[-1]), (1, f"{TEXTS - 1} of {TEXTS} identifiers translated"))
        self.assertEqual(tool("texts", "--nothing")[0], 2)

    def test_wide_captions_and_missing_access_keys_are_reported(self):
        german = (EXAMPLES / "languages" / "German" / "K4TBackProcess.txt").read_text(encoding="utf-8")
        with tempfile.TemporaryDirectory() as folder:
            texts = pathlib.Path(folder) / "K4TBackProcess.txt"
            texts.write_text(german.replace("&Nein", "Auf gar keinen Fall"), encoding="utf-8")
            code, output, errors = tool("texts", "--folder", windows_path(folder), "--check")
        line = 1 + [line.startswith("39172") for line in german.splitlines()].index(True)
        found = [line for line in output.decode().splitlines() if line.split("\t")[0] in ("key", "wide")]
        self.assertEqual((code, errors, len(found)), (1, b"", 2))
        self.assertEqual(found[0], f"key\t{windows_path(texts)}:{line}\t39172\thas no access key; put '&' before a letter")
        self.assertRegex(found[1], r"^wide\t.*:\d+\t39172\tis \d+ pixels wide, and its button has room for \d+$")

    def test_utf16_file_is_reported_with_advice(self):
        with tempfile.TemporaryDirectory() as folder:
            texts = pathlib.Path(folder) / "K4TBackProcess.txt"
            texts.write_text("39171 = &Ja\n", encoding="utf-16")
            code, output, errors = tool("texts", "--folder", windows_path(folder))
        self.assertEqual((code, errors), (1, b""))
        self.assertIn(f"encoding\t{windows_path(texts)}\tis UTF-16; save it as UTF-8\n", output.decode())

    def test_template_is_written_to_a_new_file(self):
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder) / "K4TBackProcess.txt"
            self.assertEqual(tool("texts", "--template", "--output", windows_path(path)), (0, b"", b""))
            self.assertEqual(path.read_bytes(), tool("texts", "--template")[1])
            path.write_text("kept")
            code, output, errors = tool("texts", "--template", "--output", windows_path(path))
            self.assertEqual((code, output, path.read_text()), (1, b"", "kept"))
            self.assertIn(b"already exists; give a new file", errors)
        self.assertEqual(tool("texts", "--output", "x")[0], 2)
        self.assertEqual(tool("texts", "--template", "--check")[0], 2)


if __name__ == "__main__":
    main()
