#!/usr/bin/env python3
"""Each folder of src/ includes only what the architecture page lets it know, the statistics know no
options, and only the folders of the windows know Qt."""
import pathlib
import re
import sys

LOGIC = {"core", "stats", "analyses", "platform", "results", "formats"}
KNOWS = {
    "core": set(),
    "stats": {"core"},
    "analyses": {"core", "stats"},
    "platform": {"core"},
    "results": {"core", "platform"},
    "formats": {"core"},
    "app": LOGIC,
    "painting": {"core", "platform", "results", "formats"},
    "desktop": LOGIC | {"app", "painting"},
    "batch": LOGIC | {"app", "painting"},
}
OPTIONS = {"core/dialog.h", "core/form.h", "core/run.h", "core/analysis.h"}
QT = {"painting", "desktop", "batch"}

source = pathlib.Path(__file__).resolve().parent.parent / "src"
faults = [f"src/{room.name} has no place in the house" for room in source.iterdir()
          if room.is_dir() and room.name not in KNOWS]
for path in sorted(source.rglob("*")):
    if path.suffix not in (".h", ".cpp"):
        continue
    room = path.relative_to(source).parts[0]
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        ours = re.match(r'#include "((\w+)/[^"]*)"', line)
        qt = re.match(r"#include <(Q[A-Z]|qcustomplot)", line)
        strange = ours and (ours[2] not in KNOWS.get(room, set()) | {room} or
                            (room == "stats" and ours[1] in OPTIONS))
        if strange or (qt and room not in QT):
            faults.append(f"{path.relative_to(source.parent)}:{number}: {line}")
print("\n".join(faults))
sys.exit(bool(faults))
