#!/usr/bin/env python3
"""check_kept.py REPLAY [LOCALE]: the answers to the kept cases must be the kept ones, but for the words of the XML
library. Of a case that is answered in another way: each member that differs, and a file with its document."""
import base64
import json
import pathlib
import subprocess
import sys
import tempfile

here = pathlib.Path(__file__).parent
answers = subprocess.run(
    ["bash", "-o", "pipefail", "-c", '"$@" | sed -E -f without_parser_words.sed', "", *map(str, sys.argv[1:])], cwd=here,
    stdin=open(here / "kept/cases.jsonl"), stdout=subprocess.PIPE, check=True).stdout.decode().split("\n")


def differences(kept, came, path=""):
    """(path, kept, came) of the innermost members that differ."""
    if isinstance(kept, dict) and isinstance(came, dict):
        pairs = [(name, kept.get(name), came.get(name)) for name in sorted(kept | came)]
    elif isinstance(kept, list) and isinstance(came, list) and len(kept) == len(came):
        pairs = zip(range(len(kept)), kept, came)
    else:
        return [(path, kept, came)] if kept != came else []
    return [found for name, one, other in pairs for found in differences(one, other, f"{path}/{name}")]


different = 0
lines = (here / "kept" / name for name in ("cases.jsonl", "answers.jsonl"))
for case, kept, came in zip(*(path.read_text().split("\n") for path in lines), answers, strict=True):
    if kept == came:
        continue
    different += 1
    case = json.loads(case)
    print(f"{case['case']}, of the kind {case['kind']}")
    for path, one, other in differences(json.loads(kept), json.loads(came)):
        print(f"  {path}\n    kept: {str(one)[:1000]}\n    came: {str(other)[:1000]}")
    for document in case.get("documents", [case["xml"]] if "xml" in case else []):
        file = tempfile.NamedTemporaryFile(prefix="kept-", suffix=".fcpxml", delete=False)
        file.write(base64.b64decode(document))
        print(f"  its document: {file.name}")
print(f"{different} kept cases are answered in another way (tests/replay/keep.sh, when that is meant)")
sys.exit(different > 0)
