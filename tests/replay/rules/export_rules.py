#!/usr/bin/env python3
"""export_rules.py REPLAY: what an export refuses, how its record writes numbers, and how its files are named."""
import sys

from asking import answered_by, case, document, project, refusal

MISSING_TIME = "The export contains a missing or invalid time value."


def exports(name, xml, expected, *cut_lists):
    """The refusal of each cut list; nothing for what is written."""
    lists = [{"cuts": [{"id": f"0000000{n}-0000-4000-8000-000000000000", "angle": camera, "start": start,
                        "duration": duration} for n, (camera, start, duration) in enumerate(cuts)],
              "audio": audio} for audio, *cuts in cut_lists]
    project(name, lambda answer: [refusal(each) for each in answer["export"][:len(lists)]], [expected] * len(lists),
            xml, cutLists=lists)


a, b = ("A", 0, 500), ("B", 500, 500)
exports("the engine's own audio", document(), "", (None, a, b))
exports("cuts that are not one after the other, or without footage", document(),
        "The cut list contains invalid timing or unavailable footage.",
        *(("A", ("A", start, duration), b) for start, duration in [(1, 499), (0, 0)]),
        *(("A", a, (camera, start, duration)) for camera, start, duration in [
            ("A", 499, 501), ("A", 501, 499), ("A", 500, 501), ("C", 500, 500), ("A", 500, 2**63 - 1)]))
for in_clip, expected in {
        '<mc-source angleID="A"><adjust-volume><fadeIn/></adjust-volume></mc-source>': MISSING_TIME,
        '<marker start="x"/><title offset="y"/>': MISSING_TIME,
        '<title offset="ys"/><marker/>': "The export contains an invalid time value: ys",
        '<marker start="0.5s"/>': "Invalid XML time: 0.5s",
        '<keyword duration="1/3s"/>': "This prototype needs timing aligned to the project frame rate.",
        '<marker start="40000000s"/>': "This time value exceeds the prototype's supported range."}.items():
    exports(in_clip, document(in_clip=in_clip), expected, ("A", a, b))


def records(expected, created=0, **settings):
    """Lines of the settings record, by what stands before their colon."""
    def read(answer):
        lines = dict(line.split(": ", 1) for line in answer["record"].split("\n") if ": " in line)
        return {name: lines[name] for name in expected}
    project(f"record: {expected}", read, expected, document(), settings=settings,
            revision={"id": "8ea1e1d8-10e5-4872-9FF6-759FE19A759B", "created": created})


records({"Target main screen time": "60.0%", "Main shot range": "0.1 to 0.3333333333333333 seconds",
         "Other shot range": "1000000000000000.0 to 3e-06 seconds", "Generated": "2022-05-11T03:54:09Z",
         "Edit ID": "8EA1E1D8-10E5-4872-9FF6-759FE19A759B"},
        673934049.9, mainShare=60, mainMinimum=0.1, mainMaximum=1 / 3, otherMinimum=1e15, otherMaximum=0.000003)
records({"Target main screen time": "-0.0%", "Generated": "2000-12-31T23:59:59Z"}, -0.5, mainShare=-0.0)
records({"Generated": "9999-12-31T23:59:59Z"}, 1e300)


def names(project_name, expected, *existing):
    case("name of " + project_name[:20], "names", lambda answer: answer["exportNames"][0], expected,
         projectName=project_name, existing=existing)


# At most a hundred characters of the project's name; whole ones go where the file system has no room.
names("A/B: Take\\1", "A_B_ Take_1 Corvane.fcpxml")
names("//", "__ Corvane.fcpxml")
names("", "Project Corvane.fcpxml")
names("  ", "   Corvane.fcpxml")
names("x" * 150, "x" * 100 + " Corvane.fcpxml")
names("x" + "e\u0301" * 150, "x" + "e\u0301" * 75 + " Corvane.fcpxml")
names("👨‍👩‍👧" * 100, "👨‍👩‍👧" * 12 + " Corvane.fcpxml")
names("I", "I Corvane 3.fcpxml", "I Corvane.settings.txt", "I Corvane 2.fcpxml")

answered_by(sys.argv[1])
