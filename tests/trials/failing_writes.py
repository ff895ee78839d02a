#!/usr/bin/env python3
"""Lets every call fail that writes a file, one after the other, and looks at what becomes of it.

  failing_writes.py PROGRAM [all]

PROGRAM is quorval-batch. For each kind of file that it writes over an older one, for k = 1, 2, ...
until nothing fails any more: the k-th write, fsync, rename, ... fails, with the disk full (ENOSPC) or
the disk failing (EIO). The file must then be the old or the new one, whole; the exit status must not
be 0, a message must be given, and no other file may be left beside it. Then the same on a small file
system where the file has no room. With "all" there are more kinds, and large files of many more calls.
"""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

HERE = pathlib.Path(__file__).resolve().parent
LIMIT = 120  # seconds


class Fault(Exception):
    pass


def run(command, **environment):
    return subprocess.run([str(word) for word in command], capture_output=True, timeout=LIMIT, check=False,
                          env={**os.environ, "QT_HASH_SEED": "0", **environment})  # which orders fonts in a PDF


def must(command):
    done = run(command)
    if done.returncode != 0:
        raise Fault(f"{command}: exit {done.returncode}, {done.stderr.decode()}")


def table(path, rows, columns, word):
    """Measurements of two methods and texts; each word makes another table of the same size."""
    with open(path, "w", encoding="utf-8") as file:
        print("ID,x,y", *(f"{word} {column}" for column in range(3, columns)), sep=",", file=file)
        for row in range(rows):
            x = (37 * row + len(word)) % 101 + 1
            cells = [f"{word}{row}", x, 1.02 * x + row * row % 7] + [f"{word} {row} \u00b5" for _ in range(3, columns)]
            print(*cells, sep=",", file=file)


class Kind:
    """A kind of file: how it is written from a table, and how two of them are known as the same."""

    def __init__(self, program, name, command, content):
        self.program, self.name, self.command, self.content = program, name, command, content

    def write(self, data, target, **environment):
        words = [str(target) if word == "OUT" else str(data) if word == "IN" else word for word in self.command]
        return run([self.program, *words], **environment)

    def whole(self, target, scratch):
        """What the file says; anything but a whole file gives something else."""
        if not target.exists():
            return None
        if target.is_dir():
            return {path.name: path.read_bytes() for path in target.iterdir()}
        if self.content == "sheet":
            back = scratch / "back.csv"
            read = run([self.program, "convert", target, back])
            return back.read_bytes() if read.returncode == 0 else read.stderr
        # A PDF tells when it was made.
        return re.sub(rb"\d{4}-\d\d-\d\dT[\d:.+Z-]*|D:\d{14}[^)]*|uuid:[0-9a-f-]*|/ID \[[^]]*\]", b"", target.read_bytes())


def kinds(program, every):
    for extension in ("qvl", "xls", "xlsx", "csv", *(["tsv"] if every else [])):
        yield Kind(program, f"new.{extension}", ["convert", "IN", "OUT"], "sheet")
    ols = ["run", "ols", "IN"]
    if every:
        yield Kind(program, "results.qvl", [*ols, "--save", "OUT"], "sheet")
        yield Kind(program, "results.xlsx", [*ols, "--export", "OUT"], "sheet")
    yield Kind(program, "run.json", [*ols, "--json", "OUT"], "bytes")
    if "pictures" not in run([program, "run", "ols", "--demo", "XY Regression Single", "--report",
                              "/dev/null/none"]).stderr.decode():
        yield Kind(program, "report.pdf", [*ols, "--report", "OUT"], "bytes")
        yield Kind(program, "plots", [*ols, "--plots", "OUT"], "bytes")


def renew(target, old):
    shutil.rmtree(target, ignore_errors=True)
    target.unlink(missing_ok=True)
    (shutil.copytree if old.is_dir() else shutil.copy)(old, target)


def each_old_or_new(found, old, new):
    """Of a folder each file by itself."""
    if isinstance(new, dict):
        return isinstance(found, dict) and set(found) <= set(new) and all(
            found[name] in (old.get(name), new[name]) for name in found)
    return found in (old, new)


def look(kind, folder, target, done, failed, old, new, scratch):
    found = kind.whole(target, scratch)
    extra = [path.name for path in folder.rglob("*") if path.name.startswith(".")]
    if not each_old_or_new(found, old, new):
        raise Fault(f"the file is neither the old nor the new one: {str(found)[:300]}")
    if extra:
        raise Fault(f"left behind: {extra}")
    if failed and (done.returncode == 0 or not done.stderr.strip()):
        raise Fault(f"exit {done.returncode} after a failure, message {done.stderr!r}")
    if not failed and (done.returncode != 0 or found != new):
        raise Fault(f"exit {done.returncode} without a failure, {done.stderr.decode()}")


def fail_each_call(kind, error, shim, work):
    """The number of calls that failed."""
    folder = work / "folder"
    target, older = folder / kind.name, work / ("old-" + kind.name)
    kind.write(work / "old.csv", older)
    kind.write(work / "new.csv", target)
    old, new = kind.whole(older, work), kind.whole(target, work)
    if old == new or not old or not new:
        raise Fault("there is nothing to tell the old file from the new one")
    log = work / "failed"
    call = 0
    while True:
        call += 1
        renew(target, older)
        log.unlink(missing_ok=True)
        done = kind.write(work / "new.csv", target, LD_PRELOAD=str(shim), FAIL_UNDER=str(folder), FAIL_AT=str(call),
                          FAIL_WITH=error, FAIL_LOG=str(log))
        try:
            look(kind, folder, target, done, log.exists(), old, new, work)
        except Fault as fault:
            raise Fault(f"call {call}: {fault}") from None
        if not log.exists():
            if call == 1:
                raise Fault("no call failed at all")
            shutil.rmtree(folder)
            folder.mkdir()
            return call - 1


def try_small_disk(program, work):
    """A large file has no room; the small one before it stays, and one after it is written."""
    disk = work / "disk"
    disk.mkdir()
    mounted = run(["mount", "-t", "tmpfs", "-o", "size=600k", "none", disk])
    if mounted.returncode != 0:
        print("small file system: skipped, it cannot be mounted:", mounted.stderr.decode().strip())
        return
    try:
        for kind in kinds(program, False):
            if kind.name in ("report.pdf", "plots"):
                continue  # whose size is not that of the data
            large = "large-plot.csv" if kind.name == "run.json" else "large.csv"
            target = disk / kind.name
            kind.write(work / "old.csv", target)
            old = kind.whole(target, work)
            done = kind.write(work / large, target)
            look(kind, disk, target, done, True, old, old, work)
            must([program, "convert", work / "old.csv", disk / "small.csv"])
            for path in disk.iterdir():
                path.unlink()
        print("small file system: each large file refused, the small ones whole")
    finally:
        run(["umount", disk])


def main():
    program = pathlib.Path(sys.argv[1]).resolve()
    every = "all" in sys.argv[2:]
    rows = 6000 if every else 60
    work = pathlib.Path(tempfile.mkdtemp())
    shim = work / "failing_writes.so"
    try:
        must([os.environ.get("CC", "cc"), "-shared", "-fPIC", "-Wall", "-Wextra", "-O1", "-o", shim,
              HERE / "failing_writes.c", "-ldl"])
        (work / "folder").mkdir()
        for word in ("old", "newer"):
            table(work / (word[:3] + ".csv"), rows, 30 if every else 6, word)
        table(work / "large.csv", 9000, 30, "large")
        table(work / "large-plot.csv", 9000, 3, "large")
        for kind in kinds(program, every):
            told = []
            for error in ("ENOSPC", "EIO"):
                try:
                    told.append(f"{fail_each_call(kind, error, shim, work)} calls failed with {error}")
                except Fault as fault:
                    sys.exit(f"{kind.name}, {error}: {fault}")
            print(f"{kind.name}: {', '.join(told)}", flush=True)
        table(work / "old.csv", 60, 6, "old")
        try_small_disk(program, work)
    except Fault as fault:
        sys.exit(str(fault))
    finally:
        shutil.rmtree(work, ignore_errors=True)


if __name__ == "__main__":
    main()
