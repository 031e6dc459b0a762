#!/usr/bin/env python3
"""generation_rules.py REPLAY: how long shots last, which camera comes, what is refused, how timecode is typed."""
import sys

from asking import angle, answered_by, case, clip, document, filmed, project, refusal


def between(lower, upper):
    return {"lower": lower, "upper": upper}


def generates(name, expected, xml, draw=0.5, **changed):
    """Expects a refusal, or the cuts if every draw is `draw`; only the first cuts if `expected` ends with a comma. Shots
    on A last 125 frames, on B 100."""
    inputs = {"mainShare": 0.5, "averageShot": 10, "mainCamera": "A", "otherCameras": ["B"], "doubleMain": False,
              "mainRange": between(5, 5), "otherRange": between(4, 4), "opening": None, "closing": None,
              "frequencies": {}, "fixedSections": [], "returnTimes": {}, **changed}

    def read(answer):
        answer = answer["generateRaw"]
        cuts = ", ".join(f"{cut['angle']} {cut['start']}-{cut['start'] + cut['duration']}"
                         for cut in answer.get("cuts", []))
        return refusal(answer) or cuts[:len(expected) if expected.endswith(",") else None]
    project(name, read, expected, xml, [draw], raw=inputs)


# How ranges and share determine lengths.
for name, main, other, share, average, draw, expected in [
        ("half a frame rounds away from zero", None, None, 0.5, 14, 0, "A 0-263, B 263-526,"),
        ("towards the average where the other has no range", between(4, 8), None, 0.5, 5, 0.5, "A 0-113, B 113-238,"),
        ("the same for the other cameras", None, between(4, 8), 0.5, 5, 0.5, "A 0-125, B 125-238,"),
        ("skewed by share", between(6, 18), between(3, 7), 0.75, 10, 0.5, "A 0-388, B 388-476,"),
        ("mean at most at 0.9", between(4, 8), between(10, 12), 0.5, 10, 1 / 512, "A 0-150, B 150-400,"),
        ("mean at least at 0.1", between(20, 40), between(1, 3), 0.5, 10, 0.5, "A 0-501, B 501-572,"),
        ("shortest rounded up", between(4.01, 8.03), between(4.01, 8.03), 0.5, 10, 0, "A 0-101, B 101-202,"),
        ("longest rounded down", between(4.01, 8.03), between(4.01, 8.03), 0.5, 10, 1, "A 0-200, B 200-400,")]:
    generates(name, expected, document(filmed("80s"), "80s"), draw, mainShare=share, averageShot=average,
              mainRange=main, otherRange=other)
generates("a frame longer than any nominal shot", "A 0-1, B 1-2, A 2-3", document(filmed("90s"), "90s", frame="30s"),
          mainRange=None, otherRange=None)

# Cameras are picked by weight, in their order; C has the default of 5.
for draw, camera in {-1: "D", 0.29: "D", 0.3: "B", 0.49: "B", 0.5: "C", 0.99: "C", 1: "C", 1.5: "C"}.items():
    generates(f"picks with a draw of {draw}", f"A 0-125, {camera} 125-225", document(filmed("9s", "ABCD"), "9s"),
              draw, otherCameras=["D", "B", "C"], frequencies={"A": 10, "B": 2, "D": 3, "unused": 9})

# Why an edit cannot go on.
gap = "No selected camera has video at {} seconds. The uncovered section lasts {} seconds. "
to_the_end = ("Trim the project to the end of the camera footage in Final Cut and export XML again, or include another "
              "camera covering the ending.")
generates(
    "a gap", gap.format("40.00", "10.00") + "Include another camera covering this gap, or remove the uncovered section "
    "in Final Cut and export XML again.",
    document(angle("A", clip("0s", "28s") + clip("52s", "28s")) + angle("B", clip("0s", "40s") + clip("50s", "30s")),
             "80s"))
generates("a gap to the end", gap.format("40.00", "20.40") + to_the_end,
          document(filmed("28s", "A") + filmed("40s", "B") + filmed("1510/25s", "C"), "1510/25s"))
# 0.125 is rounded to the even digit; the binary value of 2.675 is below the tie.
generates("hundredths", gap.format("0.12", "2.67") + to_the_end,
          document(filmed("5/40s"), "112/40s", frame="1/40s"), mainRange=None, otherRange=None)
late = document(filmed("20s", "A") + filmed("36s", "B"), "36s", start="3600s")
generates("a wait that prevents a change", "Minimum return times prevent a camera change at 01:00:20:00, and the "
          "current camera has no footage there. Reduce a return time or include another camera.", late,
          returnTimes={"B": 60})
generates("a range without a whole frame", "The shot range must contain at least one full frame.", late,
          otherRange=between(5.01, 5.01), returnTimes={"B": 60})
generates("a range without a whole frame, not drawn", "A 0-125", document(filmed("5s"), "5s"),
          otherRange=between(5.01, 5.01))

# The first broken rule is reported: rules are broken one after the other, beginning with the last.
broken = {"opening": {"angle": "A", "seconds": 2}, "closing": {"angle": "B", "seconds": 4},
          "mainRange": None, "otherRange": None}
has_not = ("The chosen {} camera does not have footage for the whole requested shot. Choose another camera or shorten "
           "the shot.")
for expected, change in {
        "Fixed sections must have an end after their start, stay inside the project, and not overlap opening or "
        "closing shots.":
            {"fixedSections": [{"angle": "D", "start": 100, "end": 200}, {"angle": "A", "start": 0, "end": 20}]},
        has_not.format("closing"): {"closing": {"angle": "D", "seconds": 1}},
        has_not.format("opening"): {"opening": {"angle": "D", "seconds": 2}},
        "The opening and closing shots are longer than the project. Reduce their lengths.":
            {"opening": {"angle": "D", "seconds": 120}},
        "Opening and closing lengths must be between 1 and 120 seconds.": {"closing": {"angle": "D", "seconds": 121}},
        "Shot lengths must be between 1 and 120 seconds.": {"otherRange": between(0, 4)},
        "Camera frequency must be between 1 and 10.": {"frequencies": {"D": 0}},
        "Choose a main camera and at least one additional video angle.": {"mainShare": 0.95},
        "Minimum return times must be between 0 and 600 seconds.": {"returnTimes": {"D": -1}}}.items():
    broken |= change
    generates("first of the broken rules", expected, document(filmed("120s") + angle("D"), "120s"), **broken)


def typed(name, xml, texts):
    project(name, lambda answer: answer["parse"],
            [frame if isinstance(frame, int) else {"error": frame} for frame in texts.values()], xml, parse=list(texts))


FORMAT = "Enter timecode as HH:MM:SS:FF, for example 00:05:30:00."
typed("what people type", document(), {
    " \n00;05:30;00\t\u00a0": 8250, "0:5:30:0": 8250, "9999:59:59:24": 899_999_999,
    "00:00:01:25": "The frame field must be less than 25 for this project."} | dict.fromkeys([
        "", " ", "00:05:30", "00:05:30:00:00", "00:5a:30:00", "00:60:00:00", "00:00:60:00", "10000:00:00:00",
        "-00:00:01:00", "+0:0:0:0", "0: 5:0:0", "::: ", "0:0:0:9223372036854775808", "\u0663:0:0:0"], FORMAT))
typed("from the project's start", document(start="3600s"), {"01:00:00:00": 0, "00:59:59:24": -1})
typed("skipped labels", document(filmed("2002/50s"), "2002/50s", frame="1001/60000s", count="DF"), {
    "00:01:00;03": "That frame label is skipped in drop-frame timecode.", "00:01:00;04": 3600})
for frame, numerator, denominator, expected in [
        (-1, 1, 25, ["-00:00:00:01"] * 2), (25 * 3600 * 100, 1, 25, ["100:00:00:00"] * 2),
        (-1800, 1001, 30000, ["-00:01:00:00", "-00:01:00;02"]), (3, 7, 3, ["00:00:03:00"] * 2)]:
    case(f"label of frame {frame} at {numerator}/{denominator}", "values", lambda answer: answer["timecodeText"][0],
         expected, frameNumerator=numerator, frameDenominator=denominator, frames=[frame], texts=[], secondsTexts=[])

answered_by(sys.argv[1])
