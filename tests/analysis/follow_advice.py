#!/usr/bin/env python3
"""follow_advice.py TOOLS SAMPLES [KEEP]: follows the advice of the check for each sample that has a problem, and does
nothing else: trims the project to each usable range, and removes what an export would refuse. The results must be cut
and exported. KEEP: a folder for the trimmed projects and their exports."""
import json
import pathlib
import re
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree
from fractions import Fraction

tools, samples = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2])
folder = pathlib.Path(sys.argv[3] if len(sys.argv) > 3 else tempfile.mkdtemp())


def run(command, *arguments):
    done = subprocess.run([tools / f"corvane-{command}", "--json", *arguments], capture_output=True, text=True)
    return json.loads(done.stdout)


def trimmed(text, start, end):
    """The project with only these frames of its one clip, from the start of the timeline."""
    tree = ElementTree.fromstring(text)
    frame = Fraction(tree.find(".//format").get("frameDuration")[:-1])
    sequence, clip = tree.find(".//sequence"), tree.find(".//mc-clip")
    clip.set("start", f"{Fraction(clip.get('start')[:-1]) + start * frame}s")
    for element in (clip, sequence):
        element.set("duration", f"{(end - start) * frame}s")
    return ElementTree.tostring(tree, encoding="unicode")


exported = {}
for sample in ("late-sound", "ten-ranges", "off-the-grid"):
    text = (samples / f"{sample}.fcpxml").read_text()
    check = run("check", samples / f"{sample}.fcpxml")
    assert check["refusal"], f"{sample} has no problem"
    for sentence in check["exportRefuses"]:
        name = re.search(r"'(.*?)' at ", sentence)[1]
        text, count = re.subn(rf'<(marker|keyword)[^>]*value="{re.escape(name)}"[^>]*/>', "", text)
        assert count == 1, name
    ranges = [] if check["usable"]["wholeProject"] else check["usable"]["ranges"]
    projects = [trimmed(text, each["start"]["frame"], each["end"]["frame"]) for each in ranges] or [text]
    for number, project in enumerate(projects, 1):
        path = folder / f"{sample}-{number}.fcpxml"
        path.write_text(project)
        edit = run("edit", path, folder)
        assert edit["refusal"] is None and edit["usable"]["wholeProject"] and not edit["exportRefuses"], (path, edit)
    exported[sample] = len(projects)
print(exported)
assert exported == {"late-sound": 1, "ten-ranges": 10, "off-the-grid": 1}, exported
