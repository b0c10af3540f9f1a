#!/usr/bin/env python3
"""Tests how blocks.py reads the documents' code blocks and compares output."""
import unittest

from blocks import Command, Illustration, MadeFile, Quotation, is_as_expected, read


def document(*lines):
    return "\n".join(lines) + "\n"


class Blocks(unittest.TestCase):
    def test_each_line_of_a_shell_block_is_a_command(self):
        text = document("Run:", "", "```sh", "./one  # first", "./two", "```")
        self.assertEqual(read("D", text), [Command("D", "./one  # first"), Command("D", "./two")])

    def test_plain_block_directly_below_is_the_last_commands_output(self):
        text = document("```sh", "./one", "./two", "```", "", "```", "printed", "```")
        self.assertEqual(read("D", text), [Command("D", "./one"), Command("D", "./two", ["printed"])])

    def test_plain_block_after_other_text_is_an_illustration(self):
        text = document("```sh", "./one", "```", "", "Something else:", "", "```", "shown", "```")
        self.assertEqual(read("D", text), [Command("D", "./one"), Illustration("D", "shown\n")])

    def test_prompts_begin_commands(self):
        text = document("```", "$ ./one", "$ ./two", "a", "b", "> three", "c", "```")
        self.assertEqual(read("D", text),
                         [Command("D", "./one", []), Command("D", "./two", ["a", "b"]),
                          Command("D", "three", ["c"], is_for_windows=True)])

    def test_block_after_a_path_is_a_file_to_create(self):
        text = document("Text, `build/try/a.vbs`:", "", "```vb", "x", "```", "And `C:\\Orvane\\LANG\\a.txt`:", "", "```", "y", "```")
        self.assertEqual(read("D", text), [MadeFile("D", "build/try/a.vbs", "x\n"),
                                           MadeFile("D", "build/wine/drive_c/Orvane/LANG/a.txt", "y\n")])

    def test_block_after_the_name_of_a_project_file_is_a_quotation(self):
        text = document("As in `routing/A.cpp`:", "", "```cpp", "x", "```")
        self.assertEqual(read("D", text), [Quotation("D", "routing/A.cpp", "x\n")])

    def test_block_of_another_form_is_an_illustration(self):
        self.assertEqual(read("D", document("So:", "", "```cpp", "x", "```")), [Illustration("D", "x\n")])


class Output(unittest.TestCase):
    def test_output_is_compared_line_by_line(self):
        self.assertTrue(is_as_expected(["a", "b"], ["a", "b"]))
        self.assertFalse(is_as_expected(["a", "b"], ["a"]))
        self.assertFalse(is_as_expected(["a"], ["a", "b"]))
        self.assertFalse(is_as_expected(["ab"], ["a."]))
        self.assertTrue(is_as_expected([], []))

    def test_three_dots_match_any_lines(self):
        self.assertTrue(is_as_expected(["x", "y", "b"], ["...", "b"]))
        self.assertTrue(is_as_expected(["b"], ["...", "b"]))
        self.assertFalse(is_as_expected(["x", "b", "c"], ["...", "b"]))


if __name__ == "__main__":
    unittest.main(verbosity=2)
