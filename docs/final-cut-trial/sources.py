#!/usr/bin/env python3
"""sources.py CORVANE_EDIT: writes the five sources of the trial into the folder of this file, and their rough edits with
the command that is given. The media that they name do not exist."""
import pathlib
import subprocess
import sys

here = pathlib.Path(__file__).parent
MINUTES = 4


class Project:
    """Three cameras and a recorder that run for five minutes; the project is four of them, from ten seconds in."""

    def __init__(self, name, frame, drop=False):
        self.name, self.frame, self.drop = name, frame, drop
        numerator, denominator = frame
        self.count = lambda seconds: round(seconds * denominator / numerator)
        self.time = lambda seconds: f"{self.count(seconds) * numerator}/{denominator}s"
        self.compound_sound = self.in_source = self.in_clip = self.extra = ""

    def asset(self, number, name, sound):
        video = "" if sound else ' hasVideo="1" format="r1" videoSources="1"'
        address = f"file:///Volumes/Trial%20Media/{name.upper()}_01.{'wav' if sound else 'mov'}"
        return f"""
        <asset id="r{number}" name="{name.upper()}_01" uid="{number:032X}" start="0s" duration="{self.time(300)}"{video} \
hasAudio="1" audioSources="1" audioChannels="2" audioRate="48000">
            <media-rep kind="original-media" sig="{number:032X}" src="{address}"/>
        </asset>"""

    def angle(self, number, name, audio_clip=None):
        clip = audio_clip or (f'<asset-clip ref="r{number}" offset="0s" name="{name.upper()}_01" '
                              f'duration="{self.time(300)}" tcFormat="{self.counting}" audioRole="dialogue"/>')
        return f"""
                <mc-angle name="{name}" angleID="{name}Angle0000000000">
                    {clip}
                </mc-angle>"""

    @property
    def counting(self):
        return "DF" if self.drop else "NDF"

    def text(self):
        numerator, denominator = self.frame
        cameras = ["Wide", "Left", "Right"]
        angles = "".join(self.angle(3 + number, name) for number, name in enumerate(cameras))
        compound = f'<ref-clip ref="r9" offset="0s" name="Sound" duration="{self.time(300)}"/>'
        angles += self.angle(6, "Recorder", compound if self.compound_sound else None)
        assets = "".join(self.asset(3 + number, name, name == "Recorder") for number, name in enumerate(cameras + ["Recorder"]))
        length = self.time(60 * MINUTES)
        return f"""<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE fcpxml>

<fcpxml version="1.11">
    <resources>
        <format id="r1" name="FFVideoFormat1080p{'2997' if denominator == 30000 else '25'}" \
frameDuration="{numerator}/{denominator}s" width="1920" height="1080" colorSpace="1-1-1 (Rec. 709)"/>
        <media id="r2" name="{self.name} Multicam">
            <multicam format="r1" tcStart="0s" tcFormat="{self.counting}">{angles}
            </multicam>
        </media>{self.compound_sound}{assets}{self.extra}
    </resources>
    <library>
        <event name="Trial">
            <project name="{self.name}">
                <sequence format="r1" duration="{length}" tcStart="0s" tcFormat="{self.counting}" audioLayout="stereo" \
audioRate="48k">
                    <spine>
                        <mc-clip ref="r2" offset="0s" name="{self.name} Multicam" start="{self.time(10)}" \
duration="{length}">
                            <mc-source angleID="RecorderAngle0000000000" srcEnable="audio">{self.in_source}
                            </mc-source>
                            <mc-source angleID="WideAngle0000000000" srcEnable="video"/>{self.in_clip}
                        </mc-clip>
                    </spine>
                </sequence>
            </project>
        </event>
    </library>
</fcpxml>
"""


def projects():
    yield Project("1 Plain", (100, 2500))

    titled = Project("2 Drop-frame with Title and Captions", (1001, 30000), drop=True)
    titled.extra = """
        <effect id="r21" name="Basic Lower Third" uid=".../Titles.localized/Lower Thirds.localized/Basic Lower \
Third.localized/Basic Lower Third.moti"/>"""
    time = titled.time
    titled.in_clip = f"""
                            <title ref="r21" lane="1" offset="{time(70)}" name="Speaker" start="{time(3600)}" \
duration="{time(8)}">
                                <text><text-style ref="ts1">Speaker</text-style></text>
                                <text-style-def id="ts1"><text-style font="Helvetica" fontSize="63"/></text-style-def>
                            </title>""" + "".join(f"""
                            <caption lane="2" offset="{time(start)}" name="{words}" start="{time(3600)}" \
duration="{time(3)}" role="iTT?captionFormat=ITT.en-US">
                                <text placement="bottom">{words}</text>
                            </caption>""" for start, words in [(15, "Good morning."), (100, "This is the second caption."),
                                                               (240, "Goodbye.")])
    yield titled

    compound = Project("3 Compound Audio", (100, 2500))
    compound.compound_sound = f"""
        <media id="r9" name="Sound">
            <sequence format="r1" duration="{compound.time(300)}" tcStart="0s" tcFormat="NDF" audioLayout="stereo" \
audioRate="48k">
                <spine>
                    <asset-clip ref="r6" offset="0s" name="RECORDER_01" duration="{compound.time(300)}" tcFormat="NDF" \
audioRole="dialogue"/>
                </spine>
            </sequence>
        </media>"""
    yield compound

    fade = Project("4 Fade", (100, 2500))
    fade.in_source = f"""
                                <audio-role-source role="dialogue.dialogue-1">
                                    <adjust-volume amount="-3dB">
                                        <param name="amount">
                                            <fadeIn type="easeIn" duration="{fade.time(2)}"/>
                                            <fadeOut type="easeOut" duration="{fade.time(2)}"/>
                                        </param>
                                    </adjust-volume>
                                </audio-role-source>"""
    yield fade

    keyword = Project("5 Keyword across a Cut", (100, 2500))
    keyword.in_clip = f"""
                            <marker start="{keyword.time(75)}" duration="{keyword.time(0.04)}" value="First question"/>
                            <keyword start="{keyword.time(40)}" duration="{keyword.time(60)}" value="Interview"/>"""
    yield keyword


for project in projects():
    source = here / f"{project.name}.fcpxml"
    source.write_text(project.text(), encoding="utf-8")
    for old in here.glob(f"{project.name} Corvane*"):
        old.unlink()
    subprocess.run([sys.argv[1], source, here], check=True, stdout=subprocess.DEVNULL)
