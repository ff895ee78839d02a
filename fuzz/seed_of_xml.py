#!/usr/bin/env python3
"""The parts of a workbook as one text, as the fuzzers of XML take them: seed_of_xml.py WORKBOOK."""

import sys
import zipfile

PARTS = {
    "xlsx": ["xl/worksheets/sheet1.xml", "xl/sharedStrings.xml", "xl/styles.xml", "xl/workbook.xml",
             "xl/_rels/workbook.xml.rels"],
    "ods": ["content.xml", "mimetype"],
}

with zipfile.ZipFile(sys.argv[1]) as archive:
    names = PARTS[sys.argv[1].rpartition(".")[2]]
    held = set(archive.namelist())
    sys.stdout.buffer.write(b"\n====\n".join(archive.read(name) if name in held else b"" for name in names))
