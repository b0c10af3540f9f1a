#!/usr/bin/env python3
"""Checks that links have targets, that named files and folders exist, and that tables list the names in the sources.
Also checks that test_documents.py runs each command or lists it with a reason.

    test_references.py PROJECT
"""
import importlib.machinery
import importlib.util
import pathlib
import re
import sys
import unittest

import blocks
import test_documents

LINK = re.compile(r"\]\(([^)\s]+)\)")
HEADING = re.compile(r"^#+ (.+)$", re.MULTILINE)
CODE = re.compile(r"`([^`\n]+)`")
INDENTED = re.compile(r"\n\n    \S")

project = pathlib.Path()


def documents():
    return [project / "README.md", project / "CHANGELOG.md", project / "CONTRIBUTING.md",
            *sorted((project / "docs").glob("*.md"))]


def script(name):
    """Imports a Python program of scripts/ as a module."""
    loader = importlib.machinery.SourceFileLoader(name.replace("-", "_"), str(project / "scripts" / name))
    module = importlib.util.module_from_spec(importlib.util.spec_from_loader(loader.name, loader))
    loader.exec_module(module)
    return module


def prose(text):
    """Returns `text` without its code blocks."""
    return blocks.FENCE.sub("", text)


def anchor(heading):
    """Returns the anchor that links use for a heading."""
    return re.sub(r"[^\w\- ]", "", heading.strip().lower()).replace(" ", "-")


def anchors(document):
    return {anchor(heading) for heading in HEADING.findall(prose(document.read_text(encoding="utf-8")))}


class References(unittest.TestCase):
    def test_links_have_targets(self):
        for document in documents():
            for link in LINK.findall(prose(document.read_text(encoding="utf-8"))):
                with self.subTest(f"{document.name}: {link}"):
                    path, _, heading = link.partition("#")
                    target = document.parent / path if path else document
                    self.assertTrue(target.exists())
                    if heading:
                        self.assertIn(heading, anchors(target))

    def test_every_document_is_linked_from_the_readme(self):
        linked = set(LINK.findall((project / "README.md").read_text(encoding="utf-8")))
        for document in documents():
            if document.name != "README.md":
                self.assertIn(str(document.relative_to(project)), linked)

    def test_named_files_and_folders_exist(self):
        folders = {path.name for path in project.iterdir() if path.is_dir()} - {"build", "dist", ".git"}
        for document in documents():
            for code in CODE.findall(prose(document.read_text(encoding="utf-8"))):
                if code.split("/")[0] not in folders or "/" not in code or not re.fullmatch(r"[\w./-]+", code):
                    continue
                with self.subTest(f"{document.name}: {code}"):
                    self.assertTrue((project / code).exists() or list(project.glob(code + ".*")) or "XVerb" in code)

    def test_table_of_folders_matches_check_includes(self):
        rows = re.findall(r"^\| `([\w/]+)/` \|.*\| (.*) \|$", (project / "docs/ARCHITECTURE.md").read_text(), re.MULTILINE)
        allowed = script("check-includes").ALLOWED
        self.assertEqual({folder for folder, _ in rows}, set(allowed))
        for folder, known in rows:
            with self.subTest(folder):
                self.assertEqual(None if known == "everything" else set(re.findall(r"`([\w/]+)/`", known)),
                                 None if allowed[folder] is None else set(allowed[folder]))

    def test_each_folder_of_tests_is_described(self):
        described = (project / "docs/TESTING.md").read_text(encoding="utf-8")
        for folder in sorted((project / "tests").iterdir()):
            if folder.is_dir() and any(folder.glob("*.*")):
                self.assertIn(f"tests/{folder.name}/", described)


class Tables(unittest.TestCase):
    """The tables must list the names in the sources, and no other names."""

    def table(self, document, heading):
        """Returns the names in the first column of the table below `heading`."""
        section = (project / document).read_text(encoding="utf-8").split(f"\n## {heading}\n")[1].split("\n## ")[0]
        rows = re.findall(r"^\| (`.*?) \|", section, re.MULTILINE)
        return {name for row in rows for name in re.findall(r"`(\w+)`", row)}

    def literals(self, pattern, *sources):
        text = "".join((project / source).read_text(encoding="utf-8") for source in sources)
        found = set(re.findall(pattern, text))
        self.assertTrue(found)
        return found

    def test_table_of_verbs_matches_the_sources(self):
        verbs = self.literals(r'\{u"([A-Z]+)", \w+\}', "routing/CommandInterpreter.cpp")
        self.assertEqual(self.table("docs/REFERENCE.md", "Commands"), verbs)

    def test_table_of_shared_strings_matches_the_sources(self):
        used = self.literals(r'(?:Publish|SetKernelString|E_GetString)\(u"(\w+)"|(?:kOwnModuleName|kLanguageFolderKey) = u"(\w+)"',
                             "services/modReg.cpp", "services/ProcessValues.h", "routing/ModuleList.cpp", "kernel_api/Kernel.h",
                             "host/clsQmxBackProcess.cpp")
        self.assertEqual(self.table("docs/REFERENCE.md", "Shared strings"), {name or own for name, own in used})

    def test_table_of_settings_matches_the_sources(self):
        keys = self.literals(r'\{u"(\w+)", u"[^"]*", &ProcessValues', "services/modReg.cpp")
        self.assertEqual(self.table("docs/REFERENCE.md", "Command line, settings, strings"), keys)


class Commands(unittest.TestCase):
    """test_documents.py runs or compares every code block, or lists it."""

    def steps(self, kind):
        return [step for document in test_documents.DOCUMENTS for step in test_documents.read(document)
                if isinstance(step, kind)]

    def test_code_is_in_fenced_blocks(self):
        for document in documents():
            with self.subTest(document.name):
                self.assertIsNone(INDENTED.search(prose(document.read_text(encoding="utf-8"))))

    def test_each_special_command_is_in_a_document(self):
        lines = [command.line for command in self.steps(blocks.Command)]
        for start in [*test_documents.NOT_FOLLOWED, *test_documents.ANSWERED]:
            self.assertTrue(any(line.startswith(start) for line in lines), start)

    def test_code_that_is_neither_file_nor_command_is_listed(self):
        first_lines = {step.text.splitlines()[0].strip() for step in self.steps(blocks.Illustration)}
        self.assertEqual(first_lines, set(test_documents.ILLUSTRATIONS))

    def test_documents_with_commands_are_tested(self):
        for document in documents():
            name = str(document.relative_to(project))
            commands = [step for step in test_documents.read(name) if isinstance(step, blocks.Command)]
            if commands:
                self.assertIn(name, test_documents.DOCUMENTS)


if __name__ == "__main__":
    project = test_documents.project = pathlib.Path(sys.argv[1]).resolve()
    sys.dont_write_bytecode = True
    unittest.main(argv=sys.argv[:1], verbosity=2)
