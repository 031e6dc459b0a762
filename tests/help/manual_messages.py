#!/usr/bin/env python3
"""manual_messages.py SOURCES MANUAL: every text that the sources have for the user stands in the manual.

A message without an entry, and a label that the manual writes in another way than the window, are found here, as is an
entry that says what is wrong and not what to do.
"""
import json
import pathlib
import re
import sys

# Files whose texts are no messages, and why.
OTHER_FILES = {
    "analysis/edit_picture.cpp": "what stands on the page of an edit",
    "export/settings_record.cpp": "the lines of the record that an export writes",
    "tools/corvane_check.cpp": "its use, and a verdict that stands in the manual",
    "tools/corvane_edit.cpp": "its use",
    "tools/text_report.cpp": "the report of the commands",
    "help/product.cpp": "the line with the version",
    "help/product.h": "what the About window says of the product",
    "intake/final_cut/apple_event_manager.cpp": "answers to the program that shares",
    "intake/final_cut/share_receiver.cpp": "answers to the program that shares",
}
# Texts outside those files that nobody looks up, and why. They are compared whole.
EXCEPTIONS = {
    "D-Bus Interface": "a keyword of the toolkit",
    "a four-character code is printable ASCII": "stops the compiler",
    "; last read:": "looked for in the words of a library",
    "The data": "the subject of data for which its reader names none",
    "Not specified": "in the summary of an import, which the window does not show",
    "Your first pass. Your rules.": "the line under the title of the help window",
    "Ctrl+Shift+Z; Ctrl+Y": "two shortcuts, which the manual lists",
    "Search the manual": "stands in the field above the topics",
    "Search help topics and their contents": "the tip of that field",
    "Open the included Corvane manual": "the tip of the ? button",
    "About Corvane, donations and feedback": "the tip of the About button",
    "Return to the previous rough edit and its settings": "the tip of the Back button",
    "Restore the next rough edit and its settings": "the tip of the Forward button",
    "topics · Available offline": "the count of the topics",
    "Try a word such as audio, frequency, timecode or export.": "advice already",
}
# Calls whose texts stand beside what they explain, or are for who cannot see the window.
EXPLAINING = re.compile(r"(addHelp|helpLabel|setAccessibleName|setAccessibleDescription)\(tr\($")

TOKEN = re.compile(r'''(?P<blank>\s+|//[^\n]*|\#include[^\n]*|/\*.*?\*/)|R"(?P<mark>[^(]*)\((?P<raw>.*?)\)(?P=mark)"'''
                   r'''|"(?P<text>(?:\\.|[^"\\])*)"|(?P<other>'(?:\\.|[^'\\])*'|\d[\w'.]*|\w+|.)''', re.S)


def texts(source):
    """(text, calls): the texts between quotes as they stand, those that the compiler joins as one, and what each is
    given to directly: "addHelp(tr(" for a text in addHelp(tr("…"))."""
    before, joined = [], None
    for token in TOKEN.finditer(source):
        if token["other"]:
            if joined is not None:
                yield joined, re.search(r"(\w+ \( )*$", " ".join(before) + " ")[0].replace(" ", "")
                before, joined = ["0"], None
            before = before[-8:] + [token["other"]]
        elif not token["blank"]:
            joined = (joined or "") + (token["raw"] or token["text"] or "")


def pieces(text, calls):
    """What people read of it: between line breaks, tabs and places for values ("%1"), without marks of shortcuts."""
    translated = calls.endswith("tr(")
    text = re.sub(r"""\\(?:(["'\\])|.)""", lambda escape: escape[1] or "\0", text)
    if translated:
        text = re.sub(r"%\d", "\0", text).replace("&", "")
    return [piece.strip() for piece in text.split("\0") if piece.strip()]


def for_people(piece):
    """Names of files, keys, elements and the like are one word; attributes of markup are not for people."""
    return '="' not in piece and sum(len(re.findall("[A-Za-z]", word)) >= 2 for word in piece.split(" ")) >= 2


sources, manual = pathlib.Path(sys.argv[1]), json.loads(pathlib.Path(sys.argv[2]).read_text())
lines, remedies, faults = [], [], []
for section in manual["sections"]:
    about_messages = section["id"].startswith("messages-")
    blocks = section["blocks"]
    for block, following in zip(blocks, blocks[1:] + [{"kind": "nothing"}]):
        said = block.get("items") or [link["title"] for link in block.get("links", [])] or [block["text"]]
        lines += said
        remedies += said if about_messages else []
        if about_messages and block["kind"] == "heading" and following["kind"] != "text":
            faults.append(f"no remedy stands under \"{block['text']}\"")

unused, sentences = set(EXCEPTIONS), 0
for path in sorted(sources.rglob("*.[ch]*")):
    name = path.relative_to(sources).as_posix()
    for text, calls in texts(path.read_text()) if name not in OTHER_FILES else []:
        for piece in filter(for_people, pieces(text, calls) if not EXPLAINING.search(calls) else []):
            sentence = piece.endswith(".")
            sentences += sentence
            unused.discard(piece)
            if piece not in EXCEPTIONS and not any(piece in line for line in (remedies if sentence else lines)):
                faults.append(f'{name} says "{piece}", and no {"message entry" if sentence else "line"} has it')
faults += [f"no longer in the sources: {text}" for text in sorted(unused)]
if sentences < 80:
    faults.append(f"only {sentences} messages were found in the sources")
print(*faults or [f"{sentences} messages, each with its entry"], sep="\n")
sys.exit(1 if faults else 0)
