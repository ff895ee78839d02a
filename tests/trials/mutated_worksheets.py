#!/usr/bin/env python3
"""Runs every analysis on randomly spoilt worksheets with random options.

  mutated_worksheets.py PROGRAM [WORKSHEETS] [SEED]

PROGRAM is quorval-batch; each analysis gets WORKSHEETS of them (300). A run must end by itself within
the limit, with exit 0 or 1, write JSON in which every number is finite, and where it refuses tell at
least one message, with a notice where the messages say no more than that there was an error. The same seed makes the same runs. Exit 1 when any run did otherwise.
"""

import collections
import concurrent.futures
import csv
import json
import os
import random
import subprocess
import sys
import tempfile
import time

LIMIT = 20  # seconds
MOST_ROWS = 400
WORDS = ["n.d.", "<0.1", "1e", "--", "12 mg", "NaN", "inf", "-", "1,5", "x" * 300, "\u00b5g/l"]
NUMBERS = ["0", "-0", "1e308", "-1e308", "1e-320", "1e38", "3.5e38", "-1", "32768", "1e400", "0.5"]
FIELDS = NUMBERS + WORDS + ["", "1", "2", "3", "4", "6", "10", "500", "501", "9999", "0.975", "50"]


def column(rng, rows):
    """A column of measurements: most plain, some degenerate."""
    level, sd = 10 ** rng.uniform(-3, 4), 10 ** rng.uniform(-6, 1)
    kind = rng.randrange(8)
    if kind == 0:
        return [f"{level:.4g}"] * rows
    if kind == 1:
        return [str(rng.randrange(3)) for _ in range(rows)]
    if kind == 2:
        return [f"{rng.choice([-1, 1]) * 10 ** rng.uniform(-40, 40):.6g}" for _ in range(rows)]
    return [f"{rng.gauss(level, level * sd):.6g}" for _ in range(rows)]


def worksheet(rng, harshness):
    """Columns with as many random faults in their cells as the harshness, 0 to 1, allows."""
    harsh = lambda: rng.random() < harshness
    rows = rng.choice([0, 1, 2, 3, 9, 10] if harsh() else [11, 20, 21, 40, 121, MOST_ROWS])
    columns = []
    for _ in range(rng.randrange(1, 9) if harsh() else 8):
        data = list(columns[-1]) if columns and rng.random() < 0.15 else column(rng, rows)
        if columns and rng.random() < 0.5:  # a second method on the same samples
            data = [f"{1.05 * float(x) + rng.gauss(0, 0.01 * abs(float(x))):.5g}" if x and is_number(x) else x
                    for x in columns[-1]]
        if harsh() and data:
            data.pop()
        for _ in range(rng.choice([1, 3]) if harsh() and data else 0):
            data[rng.randrange(len(data))] = rng.choice(WORDS + NUMBERS + [""])
        columns.append(data)
    longest = max(len(data) for data in columns)
    yield [rng.choice(["", "title", "1"]) for _ in columns]
    for row in range(longest):
        yield [data[row] if row < len(data) else "" for data in columns]


def is_number(text):
    try:
        return abs(float(text)) < 1e300
    except ValueError:
        return False


def options(rng, fields, harshness):
    """Settings for some of the fields, plausible ones where the harshness is 0."""
    chosen = []
    start = rng.randrange(1, 5)
    for field in fields:
        key = field["key"]
        if field["kind"] == "choice":
            if rng.random() < 0.6:
                chosen.append((key, rng.choice(field["choices"])["word"]))
        elif field["kind"] == "check":
            if rng.random() < 0.6:
                chosen.append((key, rng.choice(["on", "off"])))
        elif field["kind"] == "text":
            if rng.random() < 0.25 * harshness:
                chosen.append((key, rng.choice(FIELDS)))
            elif key == "start-column":
                chosen.append((key, str(start)))
            elif key == "last-column":
                chosen.append((key, str(start + rng.randrange(2, 5))))
            elif "column" in key and rng.random() < 0.8:
                chosen.append((key, str(rng.randrange(1, 9))))
            elif "column" not in key and rng.random() < 0.3:
                chosen.append((key, rng.choice(["1", "2", "3", "0.5", "90"])))
    return chosen


def not_finite(value):
    if isinstance(value, dict):
        return any(not_finite(one) for key, one in value.items() if key != "options")
    if isinstance(value, list):
        return any(not_finite(one) for one in value)
    return isinstance(value, str) and value.strip() in ("NaN", "Infinity", "-Infinity", "nan", "inf", "-nan", "-inf")


def fault(command):
    """What is wrong with a run, its status and its seconds."""
    begun = time.monotonic()
    try:
        run = subprocess.run(command, capture_output=True, timeout=LIMIT, check=False)
    except subprocess.TimeoutExpired:
        return "it does not end", "hung", LIMIT
    seconds = time.monotonic() - begun
    if run.returncode not in (0, 1):
        return f"exit {run.returncode}: {run.stderr.decode(errors='replace')[:300]}", "broken", seconds
    told = json.loads(run.stdout)
    cells = told["results"].get("cells", [])
    shown = [cell for cell in cells if cell.get("text") not in ("NaN", "inf")]  # titles of columns
    if not_finite(shown) or not_finite(told["plots"]):
        return "a number that is not finite", told["status"], seconds
    if told["status"] == "refused" and not told["messages"]:
        return "a refusal without a message", told["status"], seconds
    texts = [message["text"] for message in told["messages"]]
    if told["status"] == "refused" and all(text.startswith("Error") for text in texts) and not told["notices"]:
        return f"neither {texts} nor a notice tells why", told["status"], seconds
    if (told["status"] == "done") != (run.returncode == 0):
        return "status and exit differ", told["status"], seconds
    return None, told["status"], seconds


def main():
    program = sys.argv[1]
    count = int(sys.argv[2]) if len(sys.argv) > 2 else 300
    seed = int(sys.argv[3]) if len(sys.argv) > 3 else 1
    analyses = json.loads(subprocess.check_output([program, "list", "--json"]))
    broken = 0
    with tempfile.TemporaryDirectory() as folder, concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for analysis in (one["id"] for one in analyses):
            rng = random.Random(f"{seed} {analysis}")
            described = json.loads(subprocess.check_output([program, "describe", analysis, "--json"]))
            commands = []
            for number in range(count):
                path = os.path.join(folder, f"{analysis}-{number}.csv")
                harshness = rng.choice([0, 0, 0.1, 0.3, 1])
                with open(path, "w", newline="", encoding="utf-8") as file:
                    csv.writer(file).writerows(worksheet(rng, harshness))
                settings = options(rng, described["fields"], harshness)
                commands.append([program, "run", analysis, path, "--json", "-"]
                                + [word for key, value in settings for word in ("--set", f"{key}={value}")])
            outcomes = list(pool.map(fault, commands))
            statuses = collections.Counter(status for _, status, _ in outcomes)
            slowest = max(seconds for _, _, seconds in outcomes)
            print(f"{analysis:20} {dict(statuses)}, slowest {slowest:.2f} s", flush=True)
            for command, (what, _, _) in zip(commands, outcomes):
                if what:
                    broken += 1
                    kept = os.path.join(tempfile.gettempdir(), os.path.basename(command[3]))
                    os.replace(command[3], kept)
                    command[3] = kept
                    print(f"  {what}\n    " + " ".join(f"'{word}'" for word in command))
    return 1 if broken else 0


if __name__ == "__main__":
    sys.exit(main())
