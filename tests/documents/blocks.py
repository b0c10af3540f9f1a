"""Reads the code blocks of the documents: commands, expected output, and contents of files.

The form of a block determines its meaning:
    ```sh               one command per line; a plain block directly below is the last command's output
    ```                 with lines that start with "$ " (or "> " for the Windows prompt, in the package's
                        folder): commands, each followed by its output
    any language        after a line that ends with `build/try/NAME`: or `C:\\Orvane\\…`: the contents of that file
    any language        after a line that ends with `[FOLDER/]NAME`: lines of that project file, quoted unchanged
    anything else       an illustration
A line "..." in expected output matches any number of lines.
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
    """`expected` is the list of output lines. If it is None, the document shows no output, and the command must
    succeed."""

    document: str
    line: str
    expected: list = None
    is_for_windows: bool = False  # if true, the reader types the command at the Windows prompt


@dataclass
class MadeFile:
    """A file that the reader creates from the text in the document."""

    document: str
    path: str
    text: str


@dataclass
class Quotation:
    """Lines that the document quotes from a project file."""

    document: str
    path: str
    text: str


@dataclass
class Illustration:
    document: str
    text: str


def place(path):
    """Returns where a file is in the checkout. `path` is the path of the file in a document."""
    return DRIVE + path[3:].replace("\\", "/") if path.startswith("C:\\") else path


def transcript(document, body):
    """Returns the commands of a block that has prompts."""
    commands = []
    for line in body.splitlines():
        if line.startswith(PROMPTS):
            commands.append(Command(document, line[2:], [], is_for_windows=line.startswith("> ")))
        else:
            commands[-1].expected.append(line)
    return commands


def read(document, text):
    """Returns the document's steps in order."""
    steps = []
    after_commands = False  # if true, the previous block is an sh block
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
    """True if the lines are as expected. A line "..." matches any number of lines."""
    pattern = "".join("(?:.*\n)*" if line == "..." else re.escape(line) + "\n" for line in expected)
    return re.fullmatch(pattern, "".join(line + "\n" for line in printed)) is not None
