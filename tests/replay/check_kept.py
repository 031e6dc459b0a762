#!/usr/bin/env python3
"""check_kept.py [--keep] REPLAY [LOCALE]: the answers to the kept cases must be the kept ones, but for the words of the
XML library. Of a case that is answered in another way: each member that differs. --keep stores all answers as kept.

A case is a folder of kept/, named after its rule, with case.json and answer.json; older ones are a line each of
cases.jsonl and answers.jsonl. In case.json, {"bytesOf": FILE} stands for the bytes of a file beside it; in answer.json,
a written project is the list of its lines."""
import base64
import json
import pathlib
import subprocess
import sys
import tempfile

here = pathlib.Path(__file__).parent.resolve()
kept = here / "kept"
keep = sys.argv[1] == "--keep"
folders = sorted(path for path in kept.iterdir() if path.is_dir())


def request(folder):
    def encoded(item):
        return base64.b64encode((folder / item["bytesOf"]).read_bytes()).decode() if "bytesOf" in item else item
    return json.dumps({"case": folder.name} | json.loads((folder / "case.json").read_text(), object_hook=encoded))


def indented(answer):
    return json.dumps(answer, indent=2, ensure_ascii=False) + "\n"


def unfolded(line):
    """A folder for a case that is a line, to be moved into kept/ under a name that says its rule."""
    folder = pathlib.Path(tempfile.mkdtemp(prefix="kept-"))

    def decoded(member, value):
        if member == "documents":
            return [decoded("xml", document) for document in value]
        if member not in ("xml", "data", "sessionBytes") or not value:
            return value
        path = folder / f"{len(list(folder.iterdir()))}-{'document.fcpxml' if member == 'xml' else 'stored.json'}"
        path.write_bytes(base64.b64decode(value))
        return {"bytesOf": path.name}
    case = json.loads(line, object_hook=lambda item: {name: decoded(name, item[name]) for name in item})
    del case["case"]
    (folder / "case.json").write_text(indented(case))
    return folder


def legible(line):
    """The form of an answer in its folder."""
    def decoded(item):
        return {"xml": base64.b64decode(item["xml"]).decode().split("\n")} if item.keys() == {"xml"} else item
    return indented({name: value for name, value in json.loads(line, object_hook=decoded).items() if name != "case"})


def differences(kept, came, path=""):
    """(path, kept, came) of the innermost members that differ."""
    if isinstance(kept, dict) and isinstance(came, dict):
        pairs = [(name, kept.get(name), came.get(name)) for name in sorted(kept | came)]
    elif isinstance(kept, list) and isinstance(came, list) and len(kept) == len(came):
        pairs = zip(range(len(kept)), kept, came)
    else:
        return [(path, kept, came)] if repr(kept) != repr(came) else []
    return [found for name, one, other in pairs for found in differences(one, other, f"{path}/{name}")]


cases, expected = ((kept / name).read_text().split("\n")[:-1] for name in ("cases.jsonl", "answers.jsonl"))
lines = len(cases)
cases += map(request, folders)
answers = subprocess.run(
    ["bash", "-o", "pipefail", "-c", '"$@" | sed -E -f without_parser_words.sed', "", *sys.argv[1 + keep:]], cwd=here,
    input="\n".join(cases), stdout=subprocess.PIPE, check=True, encoding="utf-8").stdout.split("\n")[:-1]
answers[lines:] = map(legible, answers[lines:])
if keep:
    (kept / "answers.jsonl").write_text("".join(line + "\n" for line in answers[:lines]))
    for folder, answer in zip(folders, answers[lines:], strict=True):
        (folder / "answer.json").write_text(answer)
    sys.exit()
expected += [indented(json.loads((folder / "answer.json").read_text())) for folder in folders]

different = [each for each in zip(cases, expected, answers, strict=True) if each[1] != each[2]]
for case, one, other in different:
    name = json.loads(case)["case"]
    print(name if (kept / name).is_dir() else f"{name}, as a folder: {unfolded(case)}")
    for path, before, now in differences(json.loads(one), json.loads(other)):
        print(f"  {path}\n    kept: {str(before)[:1000]}\n    came: {str(now)[:1000]}")
print(f"{len(different)} kept cases are answered in another way (tests/replay/keep.sh, when that is meant)")
sys.exit(bool(different))
