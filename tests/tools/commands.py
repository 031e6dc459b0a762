#!/usr/bin/env python3
"""commands.py STORY ROOT PROGRAMS [ROUNDS]: corvane-edit and corvane-check as a script uses them."""
import json
import os
import pathlib
import random
import re
import resource
import subprocess
import sys
import tempfile
import time
import xml.parsers.expat

story, root, programs = sys.argv[1], *(pathlib.Path(each).resolve() for each in sys.argv[2:4])
folder = tempfile.TemporaryDirectory()
home = pathlib.Path(folder.name)
out = home / "out"
out.mkdir()
os.environ.update(HOME=str(home), XDG_CONFIG_HOME=str(home / "config"), LC_ALL="C.UTF-8")
os.chdir(home)
interview = (root / "samples/interview.fcpxml").read_text()
sunday = root / "samples/sunday-service.fcpxml"
pathlib.Path("interview.fcpxml").write_text(interview)
late, refused = root / "samples/late-sound.fcpxml", root / "samples/off-the-grid.fcpxml"


def run(command, *arguments, **options):
    return subprocess.run([programs / f"corvane-{command}", *arguments], capture_output=True, text=True, **options)


def expect(status, errors, done):
    """Each of `errors` stands in its line of standard error, and there are no other lines."""
    lines = done.stderr.splitlines()
    if done.returncode != status or len(lines) != len(errors) or any(e not in l for e, l in zip(errors, lines)):
        sys.exit(f"{done.args[1:]}: {done.returncode}, {lines}, expected {status}, {errors}\n{done.stdout}")
    return done.stdout


def written():
    return sorted(file.name for file in out.iterdir())


def exits():
    for wrong in [(), ("a.fcpxml",), ("a", "b", "c", "d"), ("--fast", "a.fcpxml", "out"), ("a.fcpxml", "")]:
        expect(2, ["Usage: corvane-edit [--json] PROJECT FOLDER [PRESET]"], run("edit", *wrong))
    expect(2, ["Usage: corvane-check [--json] PROJECT…"], run("check"))
    expect(0, [], run("check", "--help"))
    expect(1, ["corvane-edit: gone.fcpxml: "], run("edit", "gone.fcpxml", "out"))
    expect(1, ["corvane-edit: interview.fcpxml: "], run("edit", "interview.fcpxml", "nowhere"))
    # A refusal stands below the facts that explain it.
    report = expect(1, [f"corvane-edit: {refused}: "], run("edit", refused, "out"))
    assert report.startswith("Book Reading (FCPXML") and "Marker 'Applause' at " in report, report
    # The disk is full: for the project, then for the report.
    small = {"preexec_fn": lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (9000, 9000))}
    expect(1, ["corvane-edit: interview.fcpxml: "], run("edit", "interview.fcpxml", "out", **small))
    assert written() == []
    report = expect(0, [], run("edit", home / "interview.fcpxml", home / "out"))
    assert report.endswith("\nSaved out/Interview Corvane.fcpxml\n  and out/Interview Corvane.settings.txt\n"), report
    expect(0, [], run("edit", "interview.fcpxml", "out"))
    assert len(written()) == 4
    with open("/dev/full", "w") as full:
        done = subprocess.run([programs / "corvane-check", "interview.fcpxml"], stdout=full, stderr=subprocess.PIPE)
    assert done.returncode == 1 and b"could not be written to standard output" in done.stderr
    report = expect(1, [f"{late}: It cannot be cut over its whole length. Usable: 1 range", f"{refused}: Marker"],
                    run("check", late, "interview.fcpxml", refused))
    assert report.count("\nThe whole project can be cut, and nothing ") == 1, report

    # Terminals interpret control characters, and no refusal is longer than a screen.
    pathlib.Path("marks.fcpxml").write_text(interview.replace('name="Interview"', 'name="I&#10;&#x9b;2J&#x202e;"'))
    assert run("edit", "marks.fcpxml", "out").stdout.startswith("I↵�2J⇇ (FCPXML")
    long = re.sub('<mc-angle name="[^"]*"(.*)>', rf'<mc-angle name="{"x" * 4000}"\1><unknown/>', interview)
    pathlib.Path("long.fcpxml").write_text(long)
    refusal = run("edit", "long.fcpxml", "out").stderr
    assert len(refusal) < 700 and re.search(": Camera x*…x* contains an unsupported clip type: unknown.$", refusal), refusal


def presets():
    saved = json.loads((root / "tests/fixtures/0.1.0/Corvane.savedPresets.v1").read_text())[0]
    saved.update(name="Church", mainShare=40, mainAngleName="Guest", otherAngleNames=["host"], audioAngleName="Recorder")
    saved.update(opening=None, closing=None)
    elsewhere = dict(saved, id="11111111-2222-3333-4444-555555555555", name="Concert", otherAngleNames=["Host", "Piano"])
    (home / "config/Corvane").mkdir(parents=True)
    (home / "config/Corvane/Corvane.savedPresets.v1").write_text(json.dumps([saved, elsewhere]))
    expect(1, ["There is no saved preset “Panel”. Saved are “Church” and “Concert”."],
           run("edit", "interview.fcpxml", "out", "Panel"))
    expect(1, ["The preset “Concert” cannot be used here: “Piano” must be the name of just one angle."],
           run("edit", "interview.fcpxml", "out", "Concert"))
    assert written() == []
    report = expect(0, [], run("edit", "interview.fcpxml", "out", "church"))
    shares = {line.split()[0]: line.split()[4:5] for line in report[report.index("Actual"):].splitlines() if "sec" in line}
    assert shares == {"Wide": ["none"], "Guest": ["40.0%"], "Host": ["60.0%"]}, report


def as_json():
    try:
        import jsonschema
    except ImportError:
        print("SKIPPED: python3-jsonschema is not installed")
        sys.exit(77)
    form = json.loads((root / "resources/corvane-report.schema.json").read_text())
    projects = ["interview.fcpxml", sunday, late, refused, "gone.fcpxml"]
    reports = [json.loads(line) for line in run("check", "--json", *projects).stdout.splitlines()]
    assert [report["refusal"] is None for report in reports] == [True, True, False, False, False], reports
    for project in projects:
        reports.append(json.loads(run("edit", "--json", project, "out").stdout))
    for report in reports:
        jsonschema.validate(report, form)
    for report in reports:
        if "cuts" in report:
            edges = [0] + [cut["end"]["frame"] for cut in report["cuts"]]
            assert [cut["start"]["frame"] for cut in report["cuts"]] + [report["project"]["frames"]] == edges
            assert all(cut["begins"] for cut in report["cuts"])
            assert all(pathlib.Path(file).is_file() for file in report["files"].values())
    assert [("files" in report) for report in reports[5:]] == [True, True, False, False, False]


def kills():
    """Ended at any moment, the command leaves whole files or none, and replaces none."""
    rounds = int(sys.argv[4]) if len(sys.argv) > 4 else 20
    start = time.monotonic()
    expect(0, [], run("edit", sunday, "out"))
    usual = time.monotonic() - start
    first = {name: (out / name).read_bytes() for name in written()}
    for _ in range(rounds):
        process = subprocess.Popen([programs / "corvane-edit", sunday, "out"], stdout=subprocess.DEVNULL)
        time.sleep(random.uniform(0, 1.2 * usual))
        process.kill()
        process.wait()
    names = written()
    for name in names:
        text = (out / name).read_bytes()
        if name.endswith(".fcpxml"):
            xml.parsers.expat.ParserCreate().Parse(text, True)
        else:
            assert name.endswith(".settings.txt") and text.endswith(b"\n"), name
            assert name.replace(".settings.txt", ".fcpxml") in names, names
    assert all((out / name).read_bytes() == text for name, text in first.items())
    projects = sum(name.endswith(".fcpxml") for name in names)
    print(f"{rounds} rounds: {projects - 1} projects, {len(names) - projects - 1} of them with their record, all whole")


{"exits": exits, "presets": presets, "json": as_json, "kills": kills}[story]()
