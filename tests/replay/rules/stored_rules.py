#!/usr/bin/env python3
"""stored_rules.py REPLAY: how stored sessions and presets are read, and what is said of those that cannot be."""
import json
import sys

from asking import SETTINGS, answered_by, case, document, encoded, project, refusal

IDENTIFIER = "8ea1e1d8-10e5-4872-9FF6-759FE19A759B"
revision = {"id": IDENTIFIER, "created": 0, "settings": SETTINGS, "cuts": [
    {"id": IDENTIFIER[:-1] + "AB"[n], "angle": "AB"[n], "start": 500 * n, "duration": 500} for n in range(2)]}
# The settings on screen stand first. Where the edit's own are to be changed, those on screen have other values.
on_screen = {**SETTINGS, "mainCamera": "B", "otherCameras": ["A"], "audio": "B", "returnTimes": {"A": 7}}
stored = json.dumps({"version": 1, "other": [{}], "settings": on_screen,
                     "history": {"items": [revision], "index": 0}, "sourceXML": encoded(document())})


def session(old, new, expected=""):
    """The refusal of the stored session with a text in the first place of another; nothing if it can be restored."""
    if old not in stored:
        sys.exit(f"no session has {old}")
    project(f"{new[:40]} for {old[:40]}", lambda answer: refusal(answer["session-validate"]), expected, document(),
            sessionBytes=encoded(stored.replace(old, new, 1)))


# Every kind of value is taken for itself alone; unknown keys are passed over, of two the last counts.
session('"start": 0', '"start": -0.0')
session('"duration": 500', '"duration": 5e2')
session('"index": 0', '"index": 0.0')
session('"mainShare": 70', '"mainShare": 7E+1')
session('{"version": 1', '\ufeff{"version": 2, "version": 1')
session('"mainCamera": "B"', '"mainCamera": "\\u0042"')
session('"history"', '"h\\u0069story"')
for number in ["1.9", "true", "1e300", "9223372036854775808", "-9223372036854775809", '"1"', "[1]", "null"]:
    session('"start": 0', '"start": ' + number,
            "The session cannot be read: history.items[0].cuts[0].start is not a whole number.")
for old, new, complaint in [
        ('"index": 0', '"place": 0', "history.index is missing."),
        ('"averageShot": 10', '"averageShot": false', "settings.averageShot is not a number."),
        ('"mainShare": 70', '"mainShare": "70"', "settings.mainShare is not a number."),
        ('{"A": 7}', '{"Cam 1": []}', 'settings.returnTimes["Cam 1"] is not a number.'),
        ("false", "1", "settings.doubleMain is neither true nor false."),
        ('"mainCamera": "B"', '"mainCamera": 0', "settings.mainCamera is not a text."),
        (IDENTIFIER, "8", "history.items[0].id is not an identifier."),
        (IDENTIFIER, "{EA1E1D8-10E5-4872-9FF6-759FE19A759}", "history.items[0].id is not an identifier."),
        (IDENTIFIER, "8ea1e1d8-10e5-4872-9FF6-759FE19A759G", "history.items[0].id is not an identifier."),
        (IDENTIFIER, "8ea1e1d8010e5-4872-9FF6-759FE19A759B", "history.items[0].id is not an identifier."),
        (encoded(document()), "Zg=", "sourceXML is not Base64 text."),
        (encoded(document()), "Zm9=v", "sourceXML is not Base64 text."),
        (encoded(document()), "Zm8=Zm8=", "sourceXML is not Base64 text.")]:
    session(old, new, "The session cannot be read: " + complaint)

# What can be read is held against its project and the ranges of settings.
INVALID_SETTINGS = "The saved session contains invalid settings. Its stored data has been kept."
session('"mainShare": 70', '"mainShare": 90.1', INVALID_SETTINGS)
session('"averageShot": 10', '"averageShot": 20.1', INVALID_SETTINGS)
session('"returnTimes": {}', '"returnTimes": {"B": 600.1}', INVALID_SETTINGS)
session('"duration": 500}]', '"duration": 9223372036854775807}]',
        "The saved edit history contains invalid cuts.")


def damaged(complaint):
    return ("The file of the saved presets is damaged, or another version of Corvane has written it. It has been kept. "
            f"Choose Start a New List… to put it aside and begin again. (The list of presets cannot be read: {complaint})")


def presets(data, expected, names=()):
    """The refusal of the stored list, else the names as they are sorted."""
    case(f"presets {data[:20]}", "presets", lambda answer: refusal(answer["decodePresets"]) or answer["sorted"],
         expected, data=encoded(data), names=list(names), pairs=[])


# What is no JSON, and where.
for data, place in {
        '{"a":1,}': "1, column 8: unexpected '}'; expected string literal.",
        '{\n  "a" 1}': "2, column 7: unexpected number literal; expected ':'.",
        "[NaN]": "1, column 2: invalid literal.",
        "// x\n[]": "1, column 1: invalid literal.",
        "[1e400]": "1, column 6: a number does not fit into 64 bits.",
        "[] []": "1, column 4: unexpected '['; expected end of input.",
        "[]\0": "1, column 3: something follows the end of the data.",
        "1\0 more": "1, column 2: something follows the end of the data.",
        '["\\ud800"]': "1, column 9: invalid string: surrogate U+D800..U+DBFF must be followed by U+DC00..U+DFFF.",
        b'["\xc3"]': "1, column 4: invalid string: ill-formed UTF-8 byte.",
        b'["\xed\xa0\x80"]': "1, column 4: invalid string: ill-formed UTF-8 byte.",
        '["' + "x" * 10_000: "1, column 10003: invalid string: missing closing quote."}.items():
    presets(data, damaged("line " + place))
presets("[1e-400]", damaged("a number does not fit into 64 bits."))
presets("[" * 100_000, damaged("lists and objects are nested too deeply."))
presets("[" * 256 + "]" * 256, damaged("[0] is not an object."))

# Names sort as people sort them: numbers by their value, case and accents last.
in_order = ["", " z", "007", "7", "07a", "10", "Alpha", "alpha", "álpha", "alpha 1", "alphA-1", "Beta", "service 9",
            "Service 9a", "Service 10", "service 010b", "Service2", "Service10", "Zoë", "zz", "α", "日"]
for given in (in_order[::-1], in_order[::2] + in_order[1::2]):
    presets("", in_order, given)

answered_by(sys.argv[1])
