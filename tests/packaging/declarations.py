#!/usr/bin/env python3
"""declarations.py ROOT: the bundle declares what Final Cut looks for in a program that it may share to."""
import pathlib
import plistlib
import re
import sys
import xml.etree.ElementTree as xml

root = pathlib.Path(sys.argv[1])
bundle = root / "packaging/macos"
faults = []


def expect(true, fault):
    if not true:
        faults.append(fault)


# The scripting definition has every code that the receiver answers; commands are known by two codes in one.
defined = {element.get("code") for element in xml.parse(bundle / "Corvane.sdef").iter()} - {None}
answered = set(re.findall('"([^"]{4})"', (root / "src/intake/final_cut/share_receiver.cpp").read_text()))
# The grammar of object specifiers and events, and the standard command that reads a property.
grammar = {"----", "want", "seld", "from", "form", "prop", "obj ", "core", "getd"}
for code in sorted(answered - grammar):
    expect(code in defined or any(len(each) == 8 and each.endswith(code) for each in defined), f"{code!r} is not defined")
for code in "aset pnam locn lbry meta dopt aslc asfd asbn ashm ashd".split():
    expect(code in defined & answered, f"{code!r} is not both defined and answered")

declared = plistlib.loads((bundle / "Info.plist.in").read_bytes())
expect("com.apple.proapps.MediaAssetProtocol" in declared and declared["NSAppleScriptEnabled"], "Final Cut sees no receiver")
expect((bundle / declared["OSAScriptingDefinition"]).exists(), "the scripting definition is another file")
print(*faults or [f"{len(answered)} codes, all declared"], sep="\n")
sys.exit(1 if faults else 0)
