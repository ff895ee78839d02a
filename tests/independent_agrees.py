#!/usr/bin/python3
"""Runs the scripts of tests/independent/ and compares what they print with what the tests expect,
with Debian's Python (python3-scipy), in about 15 s.

- Each file of tests/data/ that a script makes is what the script prints today.
- A test file that names scripts has no decimal literal of eight or more significant digits that
  none of them prints, to the digits that the literal has.  Exempt is a line whose comment says
  "by hand", "published" or "certified", and the statement below such a comment.
"""
import functools
import itertools
import math
import pathlib
import re
import subprocess
import sys

TESTS = pathlib.Path(__file__).resolve().parent
SCRIPTS = TESTS / "independent"
MAKERS = {
    "regressions.csv": [("regressions.py",), ("polynomial.py",),
                        ("ordinary_least_squares.py", "cells")],
    "reference_samples.csv": [("reference_interval.py", "samples")],
    "reference_expected.csv": [("reference_interval.py", "expected")],
}
NUMBER = re.compile(r"(?<![\w.])\d+\.?\d*(?:e[-+]?\d+)?(?![\w.])", re.I)
OWN_SOURCE = re.compile(r"//.*\b(by hand|published|certified)\b", re.I)


def printed(*command):
    done = subprocess.run([sys.executable, *command], cwd=SCRIPTS, capture_output=True, text=True)
    if done.returncode:
        sys.exit(f"{command[0]} fails:\n{done.stderr}")
    return done.stdout, done.stderr


@functools.cache
def numbers(script):
    return {float(text) for text in NUMBER.findall(" ".join(printed(script)))}


def same(one, other):
    try:
        return math.isclose(float(one), float(other), rel_tol=1e-12, abs_tol=1e-12)
    except ValueError:
        return one == other


def faults_of_data(name, commands):
    expected = (TESTS / "data" / name).read_text().splitlines()
    made = "".join(printed(*command)[0] for command in commands).splitlines()
    for line, (one, other) in enumerate(itertools.zip_longest(expected, made, fillvalue=""), 1):
        if one.count(",") != other.count(",") or not all(map(same, one.split(","), other.split(","))):
            yield f"data/{name}:{line}: {one}, but made: {other}"
            break


def is_printed(literal, scripts):
    mantissa, _, exponent = literal.lower().partition("e")
    last_digit = 10.0**(int(exponent or 0) - len(mantissa.partition(".")[2]))
    value = float(literal)
    return any(abs(value - found) <= max(last_digit, 1e-15 * value)
               for script in scripts for found in numbers(script))


def faults_of_test(path):
    text = path.read_text()
    scripts = set(re.findall(r"independent/(\w+\.py)", text)) - {"other_workbooks.py"}
    exempt = False
    for line, code in enumerate(text.splitlines() if scripts else [], 1):
        own = OWN_SOURCE.search(code)
        exempt = exempt or bool(own and code.lstrip().startswith("//"))
        for literal in [] if own or exempt else NUMBER.findall(code):
            digits = re.sub("e.*", "", literal, flags=re.I).replace(".", "").lstrip("0")
            if "." in literal and len(digits) >= 8 and not is_printed(literal, scripts):
                yield f"{path.relative_to(TESTS)}:{line}: {literal} is not printed"
        exempt = exempt and not code.endswith(";")


faults = [fault for name, commands in MAKERS.items() for fault in faults_of_data(name, commands)]
for path in sorted([*TESTS.rglob("*.cpp"), *TESTS.rglob("*.h"), TESTS / "data/sheets.txt"]):
    faults += faults_of_test(path)
sys.exit("\n".join(faults) or None)
