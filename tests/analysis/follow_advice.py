"""follow_advice.py ROUGH_EDIT SAMPLES [KEEP]: does in each sample with a trouble what the check advises, and nothing
else: trims the project to each range that is offered, removes what an export would refuse. What comes out must be
cut and exported. KEEP: a folder for the trimmed projects and their exports."""

import pathlib
import re
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree
from fractions import Fraction

LABEL = r"(\d\d):(\d\d):(\d\d)[:;](\d\d)"


def frames(label, rate, drop):
    hours, minutes, seconds, rest = map(int, re.fullmatch(LABEL, label).groups())
    nominal = round(rate)
    dropped = 2 * (hours * 54 + minutes - minutes // 10) if drop else 0
    return ((hours * 60 + minutes) * 60 + seconds) * nominal + rest - dropped


def run(job, project, folder):
    done = subprocess.run([job, project, folder], capture_output=True, text=True)
    check = done.stdout.split("\nCheck\n", 1)[1].split("\n\nThese rules", 1)[0]
    return done.returncode, check, done.stderr.strip()


def trimmed(text, start, end):
    """Only this range is left of the project's one clip, and begins its timeline."""
    tree = ElementTree.fromstring(text)
    duration = Fraction(tree.find(".//format").get("frameDuration")[:-1])
    sequence, clip = tree.find(".//sequence"), tree.find(".//mc-clip")
    drop = sequence.get("tcFormat") == "DF"
    first = Fraction(sequence.get("tcStart")[:-1])
    begin, stop = (frames(label, 1 / duration, drop) * duration - first for label in (start, end))
    clip.set("start", f"{Fraction(clip.get('start')[:-1]) + begin}s")
    for element in (clip, sequence):
        element.set("duration", f"{stop - begin}s")
    return ElementTree.tostring(tree, encoding="unicode")


def without(text, name):
    changed, count = re.subn(rf'<(marker|keyword)[^>]*value="{re.escape(name)}"[^>]*/>', "", text)
    assert count == 1, name
    return changed


def main(job, samples, keep=None):
    folder = pathlib.Path(keep or tempfile.mkdtemp())
    exported = {}
    for sample in ("late-sound", "ten-ranges", "off-the-grid"):
        source = pathlib.Path(samples, sample + ".fcpxml")
        code, check, error = run(job, source, folder)
        assert code == 1, f"{sample} is no trouble"
        text = source.read_text()
        for name in re.findall(r"'(.*?)' at .* the export will refuse it", check):
            text = without(text, name)
        ranges = re.findall(rf"^  ({LABEL}) +({LABEL}) ", check, re.M)
        projects = [trimmed(text, each[0], each[5]) for each in ranges] or [text]
        for number, project in enumerate(projects, 1):
            path = folder / f"{sample}-{number}.fcpxml"
            path.write_text(project)
            code, check, error = run(job, path, folder)
            assert code == 0, f"{path}: {error}"
            assert "Usable:" not in check and "will refuse" not in check, check
        exported[sample] = len(projects)
    print(exported)
    assert exported == {"late-sound": 1, "ten-ranges": 10, "off-the-grid": 1}, exported


main(*sys.argv[1:])
