#!/usr/bin/env python3
"""Changes one operator or number of src/stats and src/analyses at a time, in a copy of the source, and
counts the changes that the tests notice.

  tests/trials/mutants.py [COUNT [SEED]]      200 changes by default, about 15 s each on one core

Prints each survivor with its line and the score.  A change that does not compile counts for nothing, and
another is drawn.  A line that ends in "// no mutant: REASON" is left alone: a change that no test can
see, since both forms mean the same."""
import pathlib
import random
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
COPY = ROOT / "build" / "mutants"
BUILD = COPY / "build"
TARGETS = ["stats_tests", "analyses_tests"]
LATER = ["app_tests"]  # asked where the others notice nothing
PAIRS = [(" + ", " - "), (" * ", " / "), (" < ", " <= "), (" > ", " >= "), (" == ", " != "),
         (" && ", " || "), ("true", "false"), (" += ", " -= "), ("++", "--")]
SWAPS = {a: b for pair in PAIRS for a, b in (pair, pair[::-1])}
TOKEN = re.compile("|".join(re.escape(t) for t in sorted(SWAPS, key=len, reverse=True)) +
                   r"|(?<![\w.\"])\d+(?:\.\d+)?(?![\w.\"])")
TEXTS = re.compile(r'"(?:[^"\\]|\\.)*"|//.*')


def run(command, **options):
    return subprocess.run(command, capture_output=True, text=True, **options)


def places(path):
    """Line number, begin, end and new text of each change that a file offers."""
    for number, line in enumerate(path.read_text().splitlines()):
        if line.startswith(("#", "static_assert", "template")) or "no mutant" in line:
            continue
        hidden = TEXTS.sub(lambda text: "\0" * len(text.group()), line)
        for token in TOKEN.finditer(hidden):
            old = token.group()
            new = SWAPS.get(old) or (str(int(old) + 1) if old.isdigit() else str(float(old) * 1.01))
            yield path, number, token.start(), token.end(), new


def build(targets):
    return run(["cmake", "--build", BUILD, "--target", *targets]).returncode == 0


def noticed(targets):
    try:
        return any(run([BUILD / "bin" / name, "--gtest_brief=1", "--gtest_fail_fast"],
                       timeout=120).returncode for name in targets)
    except subprocess.TimeoutExpired:
        return True


def killed(path, number, begin, end, new):
    """None where the change does not compile."""
    text = path.read_text()
    lines = text.splitlines(keepends=True)
    lines[number] = lines[number][:begin] + new + lines[number][end:]
    path.write_text("".join(lines))
    try:
        if not build(TARGETS):
            return None
        return noticed(TARGETS) or (build(LATER) and noticed(LATER))
    finally:
        path.write_text(text)


def main():
    count, seed = (int(given) for given in (sys.argv[1:] + ["200", "1"][len(sys.argv) - 1:]))
    COPY.mkdir(parents=True, exist_ok=True)
    run(f"git ls-files -z | xargs -0 cp --parents -pt {COPY}", shell=True, cwd=ROOT, check=True)
    run(["cmake", "-S", COPY, "-B", BUILD, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Release",
         "-DCMAKE_CXX_FLAGS_RELEASE=-O1", "-DQUORVAL_DESKTOP=OFF"], check=True)
    if not build(TARGETS + LATER) or noticed(TARGETS + LATER):
        sys.exit("the source as it is does not pass")
    sources = sorted(path for folder in ("stats", "analyses")
                     for path in (COPY / "src" / folder).rglob("*.cpp"))
    drawn = [place for path in sources for place in places(path)]
    random.Random(seed).shuffle(drawn)
    dead = tried = 0
    for path, number, begin, end, new in drawn:
        if tried == count:
            break
        fate = killed(path, number, begin, end, new)
        if fate is None:
            continue
        tried += 1
        dead += fate
        if not fate:
            line = path.read_text().splitlines()[number]
            print(f"{path.relative_to(COPY)}:{number + 1}: [{line[begin:end]}] -> [{new}]: "
                  f"{line.strip()}", flush=True)
    print(f"{dead} of {tried} noticed, {100 * dead / tried:.1f} %", flush=True)


main()
