"""Sends cases to the program, one JSON object per line, and reports each wrong answer.

A file of rules states cases, and ends with `answered_by(sys.argv[1])`: the program that answers them.
"""
import base64
import json
import os
import subprocess
import sys

cases = []  # (case, function that reads its answer, expected result)


def encoded(text):
    return base64.b64encode(text if isinstance(text, bytes) else text.encode()).decode()


def refusal(answer):
    """The message of a refusal; empty if the operation did not refuse."""
    return answer.get("error", "") if isinstance(answer, dict) else ""


def case(name, kind, read, expected, **members):
    cases.append(({"case": name, "kind": kind, **members}, read, expected))


# Documents with 25 frames per second, an asset "av" with video and audio, and a multicam clip of the given angles.

def clip(offset, duration, more=""):
    return f'<asset-clip ref="av" offset="{offset}" duration="{duration}" {more}/>'


def angle(name, contents=""):
    return f'<mc-angle name="{name}" angleID="{name}">{contents}</mc-angle>'


def compound(name, contents):
    return f'<media id="{name}"><sequence><spine>{contents}</spine></sequence></media>'


def ref(name, connected=""):
    return f'<ref-clip ref="{name}">{connected}</ref-clip>'


def filmed(duration, names="AB"):
    return "".join(angle(name, clip("0s", duration)) for name in names)


def document(angles=filmed("40s"), duration="40s", resources="", in_clip='<mc-source angleID="A"/>',
             frame="100/2500s", start="0s", count="NDF", version=' version="1.11"'):
    return f'''<?xml version="1.0" encoding="UTF-8"?>
<fcpxml{version}><resources>
<format id="r1" frameDuration="{frame}" width="1920" height="1080" colorSpace="1-1-1 (Rec. 709)"/>
<asset id="av" name="Both" duration="1000s" hasVideo="1" hasAudio="1" src="file:///av.mov"/>
<media id="mc"><multicam format="r1" tcStart="0s">{angles}</multicam></media>{resources}</resources>
<library><event><project name="Concert">
<sequence format="r1" duration="{duration}" tcStart="{start}" tcFormat="{count}">
<spine><mc-clip ref="mc" name="MC" offset="{start}" duration="{duration}">{in_clip}</mc-clip></spine>
</sequence></project></event></library></fcpxml>'''


SETTINGS = {
    "mainShare": 70, "averageShot": 10, "mainMinimum": 10, "mainMaximum": 30, "otherMinimum": 3, "otherMaximum": 10,
    "mainCamera": "A", "otherCameras": ["B"], "frequencies": {"B": 5}, "returnTimes": {}, "audio": "A",
    "doubleMain": False, "openingEnabled": False, "openingCamera": "A", "openingSeconds": 15, "closingEnabled": False,
    "closingCamera": "A", "closingSeconds": 15, "sections": []}


def project(name, read, expected, xml, draws=(0.5,), settings=None, **more):
    """A case with everything that is computed from one document."""
    case(name, "document", read, expected, xml=encoded(xml), settings={**SETTINGS, **(settings or {})},
         draws=list(draws), **more)


def answered_by(program):
    lines = "".join(json.dumps(asked) + "\n" for asked, _, _ in cases)
    replay = subprocess.run([program], input=lines, stdout=subprocess.PIPE, encoding="utf-8",
                            env=dict(os.environ, LC_ALL="C"))
    answers = replay.stdout.split("\n")[:-1]
    faults = 0
    for answer, (asked, read, expected) in zip(answers, cases):
        try:
            given = read(json.loads(answer))
        except (KeyError, TypeError):  # an unexpected refusal
            given = answer
        if given != expected:
            faults += 1
            print(f"{asked['case']}\n  gives  {given}\n  not    {expected}")
    print(f"{len(answers)} of {len(cases)} cases were answered, {faults} of them wrongly")
    sys.exit(1 if faults or replay.returncode or len(answers) < len(cases) else 0)
