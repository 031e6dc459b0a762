#!/usr/bin/env python3
"""Mutation testing: shows which wrong code the tests catch.

Draws lines from five layers, or from the layers given, makes one small change in each and runs the tests until one
fails. Works on a copy of the repository in build/mutation, so your own files are never touched. You can interrupt it:
with the same seed and the same layers it resumes where the results file ends. --again runs the survivors in a results
file against the tests of today. --all runs every test against each change and names all that fail: a test that is never
the only one to fail is covered by others.
"""
import argparse
import collections
import os
import pathlib
import random
import re
import resource
import shutil
import signal
import subprocess
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent
BUILD = ROOT / "build/mutation"
COPY, TREE = BUILD / "source", BUILD / "tree"
USUAL_LAYERS = ["import", "timecode", "engine", "export", "session"]
TIMEOUT = 90  # seconds, for a mutant that waits forever; the longest test takes a quarter of this

# What is replaced by what, in lines whose string literals are masked. The spaces around operators are those of
# clang-format; they keep templates, pointers and references out.
SWAPS = [
    (r" < ", " <= "), (r" <= ", " < "), (r" > ", " >= "), (r" >= ", " > "), (r" == ", " != "), (r" != ", " == "),
    (r"(?<!\0) \+ (?!\0|std::)", " - "), (r" - ", " + "), (r" \* (?=[\w(])", " / "), (r" / ", " * "), (r" % ", " / "),
    (r" \+= (?!\0)", " -= "), (r" -= ", " += "), (r" && ", " || "), (r" \|\| ", " && "),
    (r"\+\+", "--"), (r"--", "++"), (r"\btrue\b", "false"), (r"\bfalse\b", "true"),
    (r"\bmin\b(?=[<(])", "max"), (r"\bmax\b(?=[<(])", "min"), (r"\bfloor\(", "ceil("), (r"\bceil\(", "floor("),
    (r"\bfront\(\)", "back()"), (r"\bback\(\)", "front()"), (r"\bany_of\(", "all_of("), (r"\ball_of\(", "any_of("),
    (r"\bupper_bound\(", "lower_bound("), (r"\bcontinue;", "break;"),
    (r"\bif \((?!const )(.+)\)( \{)?$", r"if (!(\1))\2"), (r"\bwhile \((.+)\)( \{)?$", r"while (!(\1))\2"),
    (r"( = |return )([^;?{]+) \? ", r"\1!(\2) ? "), (r"(?<=[( ])!(?=[\w(])", ""),
    (r"(?<![\w.'])(\d[\d']*)(?![\w.'])", lambda m: str(int(m[1].replace("'", "")) + 1)),
    (r"(?<![\w.'])(\d+\.\d+)(?![\w.'])", lambda m: repr(float(m[1]) * 1.5 or 0.5)),
]
STATEMENT = re.compile(r"(\s+)(?!return|throw|break|continue)"
                       r"(?:\+\+[\w.>\[\]-]+|[\w:.>\[\]*()-]+(?: [-+*]?= .*|\(.*\)));$")
TEXT = re.compile(r'"(?:\\.|[^"\\])*"|\'(?:\\.|[^\'\\])\'')
INLINE = re.compile(r"\{ .*; \}$")  # other lines of headers declare; a default value there rebuilds half the program
FAILED = re.compile(r"^\[  FAILED  \] ([\w/.]+)(?:,| \()", re.M)
DECLARATION = re.compile(r"\s*(#|template|namespace|using|static_assert)")


def candidates(line, starts):
    """All changed forms of a line of code; none for a line of text, a comment or a declaration."""
    texts = TEXT.findall(line)
    code = TEXT.sub("\0", line).split("//")[0].rstrip()
    if DECLARATION.match(code):
        return []
    found = []
    for pattern, instead in SWAPS:
        for match in re.finditer(pattern, code):
            new = match.expand(instead) if isinstance(instead, str) else instead(match)
            found.append(code[:match.start()] + new + code[match.end():])
    if starts and (statement := STATEMENT.match(code)):
        found.append(statement[1] + ";")
    return [re.sub("\0", lambda _, left=iter(texts): next(left), form) for form in found]


def places(layers):
    for layer in layers:
        for path in sorted((COPY / "src" / layer).glob("*.[hc]*")):
            before = ";"
            for number, line in enumerate(path.read_text().split("\n")):
                # A whole statement can be dropped, but not one line of a longer statement.
                forms = candidates(line, before.endswith((";", "{", "}", ":", ")", "else")))
                if forms:
                    yield path.relative_to(COPY).as_posix(), number, line, forms
                before = line.split(" //")[0].strip() or ";"


def limit():
    """A mutant may loop forever or take ever more memory. The longest test alone takes half of this time."""
    resource.setrlimit(resource.RLIMIT_CPU, (20, 20))
    resource.setrlimit(resource.RLIMIT_AS, (4 << 30, 4 << 30))


def run(command, timeout=TIMEOUT, output=subprocess.DEVNULL):
    """True when the command succeeds in time. A program that hangs is killed with all its children."""
    process = subprocess.Popen(command, cwd=TREE, stdin=subprocess.DEVNULL, stdout=output,
                               stderr=subprocess.DEVNULL, start_new_session=True, preexec_fn=limit)
    try:
        return process.wait(timeout) == 0
    except subprocess.TimeoutExpired:
        return False
    finally:
        if process.poll() is None:
            os.killpg(process.pid, signal.SIGKILL)
            process.wait()


def build(target):
    return run(["ninja", "-j1", target], 900)


def tests(layer):
    """(name, target, command), the cheapest first."""
    own = f"tests/{layer}/{layer}_tests"
    yield "replay", "corvane_replay", ["python3", "-B", COPY / "tests/replay/check_kept.py",
                                       TREE / "tests/replay/corvane_replay"]
    for rules in sorted((COPY / "tests/replay/rules").glob("*_rules.py")):
        yield rules.stem, "corvane_replay", ["python3", "-B", rules, "tests/replay/corvane_replay"]
    if layer != "import":  # which the replay and the workspace tests cover
        yield layer, f"{layer}_tests", [own, "--gtest_fail_fast", "--gtest_filter=-*Laws*"]
    if layer in ("import", "engine", "export"):
        yield "random edits", "random_edits_tests", ["fuzz/edits/random_edits_tests"]
    if layer == "engine":
        yield "laws", "engine_tests", [own, "--gtest_filter=*Laws*"]
    if layer == "session":
        yield "saving order", "corvane_soak", [COPY / "tests/soak/saving_order.sh", "tests/soak/corvane_soak"]
    if layer != "workspace":
        yield "workspace", "workspace_tests", ["tests/workspace/workspace_tests", "--gtest_fail_fast"]
    else:
        yield "window", "window_tests", ["tests/window/window_tests", "--gtest_fail_fast"]


def failures(name, command):
    """The names of the failing tests of a test program; the program's own name when it does not say which."""
    with tempfile.TemporaryFile("w+") as output:
        if run([part for part in command if part != "--gtest_fail_fast"], output=output):
            return []
        output.seek(0)
        return sorted({f"{name} {test}" for test in FAILED.findall(output.read())}) or [name]


def verdict(path, number, original, mutated, every=False):
    """The first test that fails (or every one), "survived", or None when it does not compile."""
    file, layer = COPY / path, path.split("/")[1]
    whole = file.read_text()
    lines = whole.split("\n")
    if lines[number] != original:
        raise SystemExit(f"{path}:{number + 1} has changed since")
    lines[number] = mutated
    file.write_text("\n".join(lines))
    try:
        if path.endswith(".cpp") and not build(f"src/{layer}/libcorvane_{layer}.a"):
            return None
        failed = []
        for name, target, command in tests(layer):
            if not build(target):
                return None
            if every:
                failed += failures(name, command)
            elif not run(command):
                return name
        return ", ".join(failed) or "survived"
    finally:
        file.write_text(whole)


def make_copy(layers):
    """Brings the copy up to date. If anything changed, the tests must pass before the first mutation."""
    changed = not (TREE / "build.ninja").exists()
    names = subprocess.check_output(["git", "ls-files", "-z"], cwd=ROOT, text=True).split("\0")
    for name in filter(None, names):
        old, new = ROOT / name, COPY / name
        new.parent.mkdir(parents=True, exist_ok=True)
        if old.is_file() and (not new.exists() or new.read_bytes() != old.read_bytes()):
            shutil.copyfile(old, new)
            shutil.copymode(old, new)
            changed = True
    if not (TREE / "build.ninja").exists():
        # A mutant may leave a variable unused; the tests are to catch that, not the compiler.
        subprocess.check_call(["cmake", "-G", "Ninja", "-S", COPY, "-B", TREE, "-DCMAKE_BUILD_TYPE=Release",
                               "-DCMAKE_CXX_FLAGS=-w", "-DCMAKE_CXX_FLAGS_RELEASE=-O1 -DNDEBUG",
                               "-DCORVANE_TESTS=ON", "-DCORVANE_STRESS=ON"])
    for name, target, command in {test[0]: test for layer in layers for test in tests(layer) if changed}.values():
        if not build(target) or not run(command):
            raise SystemExit(f"{name} fails even without a mutation")


def rows(file):
    """The rows of a results file: place, original, mutated, verdict."""
    return [line.split("\t") for line in file.read_text().splitlines()] if file.exists() else []


def again(file):
    for place, original, mutated, before in rows(file):
        if before == "survived":
            path, number = place.split(":")
            print(place, mutated.strip(), verdict(path, int(number) - 1, original, mutated), sep="\t", flush=True)


def draw(layers, count, seed, every):
    results = BUILD / f"results-{seed}.tsv"
    print(f"seed {seed}, results in {results}", flush=True)
    known = {(place, mutated): caught_by for place, _, mutated, caught_by in rows(results)}
    chance = random.Random(seed)
    drawn = list(places(layers))
    chance.shuffle(drawn)
    counted = collections.Counter()
    for path, number, original, forms in drawn:
        if counted.total() == count:
            break
        place, mutated = f"{path}:{number + 1}", chance.choice(forms)
        if path.endswith(".h") and not INLINE.search(original):
            continue
        caught_by = known.get((place, mutated))
        if caught_by is None:
            caught_by = verdict(path, number, original, mutated, every) or "does not compile"
            with results.open("a") as file:
                print(place, original, mutated, caught_by, sep="\t", file=file)
            print(place, caught_by, flush=True)
        if caught_by != "does not compile":
            counted[path.split("/")[1], caught_by == "survived"] += 1
    print("layer\tdrawn\tcaught\tsurvived")
    for layer in layers:
        caught, survived = counted[layer, False], counted[layer, True]
        print(layer, caught + survived, caught, survived, sep="\t")


if __name__ == "__main__":
    options = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    options.add_argument("places", nargs="?", type=int, default=200)
    options.add_argument("--seed", type=int, default=random.randrange(10**8))
    options.add_argument("--all", action="store_true")
    options.add_argument("--layer", action="append", metavar="NAME", help="a folder of src that has tests of its own")
    options.add_argument("--again", metavar="RESULTS", type=pathlib.Path)
    chosen = options.parse_args()
    signal.signal(signal.SIGTERM, signal.default_int_handler)
    layers = chosen.layer or USUAL_LAYERS
    make_copy(layers)
    if chosen.again:
        again(chosen.again)
    else:
        draw(layers, chosen.places, chosen.seed, chosen.all)
