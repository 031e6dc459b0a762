#!/usr/bin/env python3
"""import_rules.py REPLAY: what an import refuses, in which order, and how often it counts the clips of an angle."""
import sys

from asking import angle, answered_by, case, clip, compound, document, filmed, project, ref, refusal

MISSING_TIME = "The export contains a missing or invalid time value."
PLACE = "Invalid angle timing."
TRANSITION = "Camera A contains an unsupported clip type: transition."
CIRCULAR = "Camera A contains a missing or circular compound clip reference."
NESTED = "Camera A contains excessively nested clips."
TOO_MANY = ("Camera A uses compound clips inside each other too many times to be read. "
            "Break apart these compound clips in Final Cut and export XML again.")


def imports(name, xml, expected):
    """The refusal without the words of the XML parser, or the number of clips in angle A."""
    def read(answer):
        return refusal(answer["engine"]).split(" (")[0] or answer["import"]["angles"][0]["clipCount"]
    project(name, read, expected, xml)


def angle_a(name, contents, expected, resources=""):
    imports(name, document(angle("A", contents) + angle("B"), resources=resources), expected)


def spines(levels, contents=""):
    return "<spine>" * levels + contents + "</spine>" * levels


# The first refusal counts: the summary's before the engine's, an earlier angle's before a later one's.
bad = document(angle("A", "<transition/>") + angle("B"))
imports("the clip in the project before what an angle holds", bad.replace('name="MC"', 'enabled="0"'),
        "Speed changes, split audio and disabled main multicam clips are not supported yet.")
imports("the clip disabled by default", document().replace("<fcpxml", "<!DOCTYPE fcpxml [<!ATTLIST mc-clip enabled CDATA '0'>]><fcpxml"),
        "Speed changes, split audio and disabled main multicam clips are not supported yet.")
imports("the summary before all else", bad.replace('angleID="B"', ""), "A camera angle is missing its identifier.")
imports("the frame duration before the angles", bad.replace("100/2500s", "0.04s"), "Invalid XML time: 0.04s")
far = '<clip offset="1e12s" duration="1s"><video ref="av"/></clip>'
for a, b, expected in [
        ("<transition/>", clip("x", "1s"), MISSING_TIME),  # the summary's of a later angle
        (far, "<transition/>", PLACE),
        ("<transition/>", far, TRANSITION),
        (far + "<transition/>", "", TRANSITION)]:  # a clip before the place of one before it
    imports(f"{a} and {b}", document(angle("A", a) + angle("B", b) + angle("C", "<audition/>")), expected)
angle_a("a time of 100 bytes", clip("0" * 99 + "s", "1s"), 1)
angle_a("a time of 101 bytes", clip("0" * 100 + "s", "1s"), MISSING_TIME)
imports("a frame duration of 101 bytes", document(frame="0" * 92 + "100/2500s"), MISSING_TIME)
angle_a("times before the asset", '<clip start="x"/>', MISSING_TIME)
angle_a("a place beyond all numbers", clip("0s", "1e308s", 'start="1e308s"'), PLACE)

angle_a("forty levels", spines(40), 0)
angle_a("forty-one levels", spines(41), NESTED)
deep = compound("c0", spines(20) + ref("c1")) + compound("c1", "")
angle_a("thirty levels with a compound clip", ref("c0") + spines(10, ref("c0")), 0, deep)
angle_a("forty-five levels with a compound clip", ref("c0") + spines(25, ref("c0")), NESTED, deep)

angle_a("a compound clip in itself", ref("c0"), CIRCULAR, compound("c0", ref("c0")))
angle_a("two in each other", ref("c0"), CIRCULAR, compound("c0", ref("c1")) + compound("c1", ref("c0")))
angle_a("only the first media of a name counts", ref("c0"), CIRCULAR, '<media id="c0"/>' + compound("c0", ""))
everyone = "".join(f'<ref-clip ref="c{n}" name="{"x" * 480}"/>' for n in range(16))  # each counts as ten visits
angle_a("sixteen in each other have more ways than anyone can walk", ref("c0"), TOO_MANY,
        "".join(compound(f"c{n}", everyone) for n in range(16)))


def levelled(uses, levels):
    """Compound clips "c0" to the last level, each of which uses the next one so many times."""
    return "".join(compound(f"c{n}", ref(f"c{n + 1}") * uses) for n in range(levels)) + compound(
        f"c{levels}", clip("0s", "1s"))


angle_a("each use counts", ref("c0"), 2 ** 15, levelled(2, 15))
angle_a("1,200 levels", ref("c0"), TOO_MANY, levelled(1, 600))  # two for each compound clip

# A reference counts as visited for the clips connected to it too, whatever was walked and kept before.
resources = "".join(compound(name, contents) for name, contents in {
    "c": clip("0s", "1s") * 2, "w": ref("c") + clip("0s", "1s"), "d": "", "e": ref("w") + ref("c", ref("w")),
    "both": ref("d"), "ways": ref("d"), "m": ref("w") + ref("both") + ref("ways")}.items())
for contents, expected in {
        ref("w") + ref("w", ref("c")) + ref("c"): 10,
        ref("w", ref("c")): 5,
        ref("c", "<audition>" + ref("w", ref("c")) + "</audition>"): 3,
        ref("w") + ref("c", "<audition>" + ref("w") + "</audition>") + ref("w"): 9,
        ref("c", "<audition>" + ref("w") + "</audition>") + ref("w"): 6,
        ref("c", ref("c")): CIRCULAR,
        ref("c", ref("w")) + ref("w"): CIRCULAR,
        ref("w") + ref("c", ref("w")): CIRCULAR,
        ref("w") + ref("c", ref("w")) + ref("w"): CIRCULAR,
        ref("w") + ref("d", ref("w") + ref("c", ref("w"))): CIRCULAR,
        ref("m") + ref("c", ref("m")): CIRCULAR,  # by the first of three ways, two of which end in the same place
        ref("e"): CIRCULAR}.items():
    angle_a("connected: " + contents, contents, expected, resources)

# Names count as they are written, with their prefixes.
angle_a("prefixes", '<x:gap xmlns:x="u"/>', "Camera A contains an unsupported clip type: x:gap.")
angle_a("prefixes of attributes", clip("9s", "1s").replace("ref", 'xmlns:x="u" x:offset="y" ref'), 1)

# A circle that only the count walks, as coverage passes over auditions, leaves out another reference on each way in.
def auditioned(contents):
    return f'<gap duration="1s"><audition>{contents}</audition></gap>'


angle_a("both ways into a circle", ref("p") + ref("q"), 4,
        compound("p", clip("0s", "1s") + auditioned(ref("q"))) + compound("q", clip("0s", "1s") + auditioned(ref("p"))))

# What the edit repeats.
imports("256 angles", document(filmed("40s", range(256))), 1)
imports("257 angles", document(filmed("40s", range(257))), "The multicam has 257 angles, and at most 256 can be read. "
        "Remove angles in Final Cut and export XML again.")
for attribute, size, camera, advice in [("name", "a name", "x" * 29 + "…" + "x" * 30, "Rename this angle"),
                                        ("angleID", "an identifier", "B", "Make the multicam anew")]:
    for length, expected in [(4_096, 1), (4_097, f"Camera {camera} has {size} of more than 4,096 bytes. {advice} in Final Cut "
                                                 "and export XML again.")]:
        imports(f"{size} of {length} bytes", document().replace(f'{attribute}="B"', f'{attribute}="{"x" * length}"'), expected)

# Where a document is broken.
imports("a wrong end", "<a>\n<b></a>", "This file is damaged at line 2, column 8. Export the XML from Final Cut again.")
imports("bad UTF-8", document().encode().replace(b"Concert", b"Con\xffcert"),
        "This file is damaged at line 6, column 35. Export the XML from Final Cut again.")
imports("UTF-16", document().replace("UTF-8", "UTF-16").encode("utf-16"), 1)
imports("UTF-16 that is cut off", "<fcpxml>".encode("utf-16")[:-3],
        "This file is damaged at line 1, column 7. Export the XML from Final Cut again.")

case("seconds with a plus sign", "values", lambda answer: [refusal(each) or each for each in answer["parseSeconds"][1:]],
     [1.5, 1.5, *(f"The export contains an invalid time value: {text}" for text in ("++1s", "+-1s", "+s"))],
     secondsTexts=["+1.5s", "+3/+2s", "++1s", "+-1s", "+s"], frameNumerator=1, frameDenominator=25, frames=[], texts=[])

answered_by(sys.argv[1])
