#!/usr/bin/env python3
"""The quantities of each analysis at the end of its manual page, as the program declares them.

  tests/manual_quantities.py PROGRAM            fails where a page tells others
  tests/manual_quantities.py PROGRAM --write    writes them into the pages"""
import json
import pathlib
import subprocess
import sys

MANUAL = pathlib.Path(__file__).resolve().parents[1] / "manual"
TITLE = "## Names of the numbers"
INTRODUCTION = """
By these names other programs find the numbers of the results sheet
([the batch program](batch.md#one-number-for-another-program)). The unit is that of the measurements, percent,
or none.
"""
UNITS = {"measurand": "of the measurements", "percent": "percent", "none": ""}


def ask(program, *words):
    return subprocess.run([program, *words], capture_output=True, text=True, check=True).stdout


def section(described):
    lines = [TITLE, INTRODUCTION, "| name | in the row | unit |", "| --- | --- | --- |"]
    for one in described["quantities"]:
        caption = one["caption"].strip().replace("|", "\\|")
        lines.append(f"| `{one['name']}` | {caption} | {UNITS[one['unit']]} |")
    if described["tables"]:
        lines += ["", "| table | lists |", "| --- | --- |"]
        lines += [f"| `{one['name']}` | {one['caption']} |" for one in described["tables"]]
    return "\n".join(lines) + "\n"


def main():
    program, write = sys.argv[1], "--write" in sys.argv
    stale = []
    for line in ask(program, "list").splitlines():
        described = json.loads(ask(program, "describe", line.split()[0], "--json"))
        page = MANUAL / described["manual"]
        text = page.read_text()
        told = text.split(TITLE)[0].rstrip("\n") + "\n\n" + section(described)
        if text != told:
            stale.append(page.name)
            if write:
                page.write_text(told)
    if stale and not write:
        sys.exit("other quantities than the program's: " + ", ".join(stale))


main()
