"""Reads the code blocks of the documents: which commands they have, what those print, and which files they show.

A block says by its form what it is:
    ```sh               commands, one a line; a plain block directly after it is what the last one prints
    ```                 with lines that start with "$ " (or "> " for Windows' prompt, in the folder of the package): commands, each with what it prints below
    any language        behind a line that ends in `build/try/NAME`: or `C:\\Orvane\\…`: the contents of that file
    any language        behind a line that ends in `FOLDER/NAME`: lines of that file of the project, as they stand there
    anything else       an illustration
A line "..." in what is printed stands for any lines.
"""
import re
from dataclasses import dataclass

FENCE = re.compile(r"^```(\w*)\n(.*?)^```$", re.DOTALL | re.MULTILINE)
PROMPTS = ("$ ", "> ")
MADE_FILE = re.compile(r"`(build/try/[\w./-]+|C:\\Orvane\\[\w.\\-]+)`[^`]*:$")
PROJECT_FILE = re.compile(r"`((?:[\w-]+/)*[\w.-]+\.\w+)`[^`]*:$")
DRIVE = "build/wine/drive_c/"


@dataclass
class Command:
    """`expected` are the lines that it prints, None when the document says nothing about them: then it has to succeed."""

    document: str
    line: str
    expected: list = None
    is_for_windows: bool = False  # typed at the prompt of Windows


@dataclass
class MadeFile:
    """A file that the reader is told to make."""

    document: str
    path: str
    text: str


@dataclass
class Quotation:
    """Lines that the document takes from a file of the project."""

    document: str
    path: str
    text: str


@dataclass
class Illustration:
    document: str
    text: str


def place(path):
    """Where a file of the document lies in the checkout."""
    return DRIVE + path[3:].replace("\\", "/") if path.startswith("C:\\") else path


def transcript(document, body):
    """The commands of a block of lines with prompts."""
    commands = []
    for line in body.splitlines():
        if line.startswith(PROMPTS):
            commands.append(Command(document, line[2:], [], is_for_windows=line.startswith("> ")))
        else:
            commands[-1].expected.append(line)
    return commands


def read(document, text):
    """The document's steps, in their order."""
    steps = []
    after_commands = False  # directly: nothing but blanks in between
    end = 0
    for fence in FENCE.finditer(text):
        between = text[end:fence.start()].strip()
        introduction = between.splitlines()[-1] if between else ""
        language, body = fence[1], fence[2]
        made, quoted = MADE_FILE.search(introduction), PROJECT_FILE.search(introduction)
        if language == "sh":
            steps += [Command(document, line) for line in body.splitlines() if line]
        elif body.startswith(PROMPTS):
            steps += transcript(document, body)
        elif after_commands and not between and not language:
            steps[-1].expected = body.splitlines()
        elif made:
            steps.append(MadeFile(document, place(made[1]), body))
        elif quoted:
            steps.append(Quotation(document, quoted[1], body))
        else:
            steps.append(Illustration(document, body))
        after_commands = language == "sh"
        end = fence.end()
    return steps


def is_as_expected(printed, expected):
    """Whether the lines are those; "..." stands for any lines."""
    pattern = "".join("(?:.*\n)*" if line == "..." else re.escape(line) + "\n" for line in expected)
    return re.fullmatch(pattern, "".join(line + "\n" for line in printed)) is not None
