#!/usr/bin/env python3
"""Feeds files that were made to do harm to `quorval-batch convert`.

  hostile_files.py PROGRAM [NAME ...]

Makes each file below, or those of the given names, in a temporary folder and converts it.  Each must be
refused with exit 2, the words that stand with it on standard error, within 2 s of the processor's time
and 600 MB of memory, and leave no output.  All of them are smaller than 10 MB.  QUORVAL_PATIENCE
multiplies the seconds, on a machine that is slow or busy.
"""

import os
import random
import resource
import sqlite3
import struct
import sys
import tempfile
import time
import zlib

MOST_SECONDS = 2 * float(os.environ.get("QUORVAL_PATIENCE", "1"))
MOST_MEGABYTES, MOST_BYTES = 600, 10_000_000
MIB = 1 << 20

# --- Zip archives: a part is its head, a block that is repeated, and its tail


def deflated(head, block, times, tail):
    """The deflate stream of it, the check sum and the size; a block that is flushed can be repeated."""
    flush = zlib.compressobj(9, zlib.DEFLATED, -15)
    begin = flush.compress(head) + flush.flush(zlib.Z_FULL_FLUSH)
    once = flush.compress(block) + flush.flush(zlib.Z_FULL_FLUSH)
    end = flush.compress(tail) + flush.flush()
    crc = zlib.crc32(head)
    for _ in range(times):
        crc = zlib.crc32(block, crc)
    return begin + once * times + end, zlib.crc32(tail, crc), len(head) + times * len(block) + len(tail)


def repeated(text, least, head="", tail=""):
    """A part of so many bytes at least, in blocks large enough to be quickly made."""
    block = text * max(1, MIB // len(text))
    return head.encode(), block.encode(), -(-least // len(block)), tail.encode()


def empty_blocks(least):
    """So many bytes, at least, of deflate blocks that hold nothing but the codes of two symbols."""
    coded = (18, 1)  # the symbols of the code lengths' own code: a run of zeros, a length of one
    order = (16, 17, 18, 0, 8, 7, 9, 6, 10, 5, 11, 4, 12, 3, 13, 2, 14, 1)
    fields = [(0, 1), (2, 2), (0, 5), (0, 5), (len(order) - 4, 4)]
    fields += [(int(symbol in coded), 3) for symbol in order]
    fields += [(1, 1), (138 - 11, 7), (1, 1), (117 - 11, 7), (0, 1), (0, 1), (0, 1)]  # 255 zeros, three ones
    fields += [(1, 1)]  # the end of the block
    block, bits = 0, 0
    for value, width in fields:
        block |= value << bits
        bits += width
    eight = sum(block << i * bits for i in range(8)).to_bytes(bits, "little")
    return eight * -(-least // len(eight))


def archive(parts, method=8, flags=0, change=lambda entry: entry, entries=0, overlaid=False):
    """Parts are texts or what repeated() gives; `change` spoils a part's (data, crc, size).  Overlaid, all
    parts are the first one."""
    body, directory, place = [], [], 0
    named = list(parts.items()) + [(f"empty/{i}", "") for i in range(entries)]
    for name, part in named:
        head, block, times, tail = (part.encode(), b"", 0, b"") if isinstance(part, str) else part
        data, crc, size = deflated(head, block, times, tail) if method else (head, zlib.crc32(head), len(head))
        data, crc, size = change((data, crc, size)) if name in SPOILT else (data, crc, size)
        fields = struct.pack("<HHHHHIIIHH", 20, flags, method, 0, 0x21, crc, len(data), size, len(name), 0)
        directory += [struct.pack("<IH", 0x02014B50, 20), fields, struct.pack("<HHHII", 0, 0, 0, 0, place),
                      name.encode()]
        body.append(struct.pack("<I", 0x04034B50) + fields + name.encode() + data)
        place += 0 if overlaid else 30 + len(name) + len(data)
    count, body, directory = len(named), b"".join(body[:1] if overlaid else body), b"".join(directory)
    return body + directory + struct.pack("<IHHHHIIH", 0x06054B50, 0, 0, count, count, len(directory), len(body), 0)


SHEET, CONTENT = "xl/worksheets/sheet1.xml", "content.xml"
SPOILT = (SHEET, CONTENT)
ROW = "<row r='1'><c r='A1'><v>1</v></c></row>"


def xlsx(sheet=ROW, more=None, **options):
    parts = {
        "xl/workbook.xml": "<workbook><sheets><sheet name='S' r:id='r1'/></sheets></workbook>",
        "xl/_rels/workbook.xml.rels": "<r><Relationship Id='r1' Target='worksheets/sheet1.xml'/></r>",
        SHEET: f"<worksheet><sheetData>{sheet}</sheetData></worksheet>" if isinstance(sheet, str) else sheet,
    }
    return archive(parts | (more or {}), **options)


def ods(table, **options):
    begin = "<office:document-content><office:body><office:spreadsheet><table:table>"
    end = "</table:table></office:spreadsheet></office:body></office:document-content>"
    if isinstance(table, str):
        content = begin + table + end
    else:
        head, block, times, tail = table
        content = begin.encode() + head, block, times, tail + end.encode()
    return archive({"mimetype": "application/vnd.oasis.opendocument.spreadsheet", CONTENT: content}, **options)


def cell(inside, attributes=""):
    return f"<table:table-cell {attributes}>{inside}</table:table-cell>"


def row(inside, attributes=""):
    return f"<table:table-row {attributes}>{inside}</table:table-row>"


ONE = cell("<text:p>x</text:p>")
LONG_TEXT = "<text:p>" + "x" * 1000 + "</text:p>"
REPEATED = "table:number-{}-repeated='{}'".format

# --- Old workbooks: a container of 512-byte sectors, and records in it


def container(stream, entries=None, fat_of_directory=None):
    """OLE2 with one stream; `entries` adds directory entries, a pair of (left, right) each."""
    stream = stream.ljust(4096, b"\0")
    stream += b"\0" * (-len(stream) % 512)
    entries = entries or []

    def entry(name, kind, left, right, child, begin, size):
        wide = name.encode("utf-16-le")
        return (wide.ljust(64, b"\0") + struct.pack("<HBBIII", len(wide) + 2, kind, 1, left, right, child)
                + b"\0" * 36 + struct.pack("<IQ", begin, size))

    nothing, end = 0xFFFFFFFF, 0xFFFFFFFE
    directory = entry("Root Entry", 5, nothing, nothing, 1, end, 0)
    links = entries[0] if entries else (nothing, nothing)
    streams = len(stream) // 512
    directory += entry("Workbook", 2, *links, nothing, 0, len(stream))
    for number, (left, right) in enumerate(entries[1:]):
        directory += entry(f"n{number:07}", 2, left, right, nothing, 0, 0)
    directory += b"\0" * (-len(directory) % 512)
    pages = len(directory) // 512
    tables = -(-(streams + pages) // 127)
    chain = [i + 1 for i in range(streams - 1)] + [end]
    chain += fat_of_directory or [streams + i + 1 for i in range(pages - 1)] + [end]
    chain += [0xFFFFFFFD] * tables
    fat = b"".join(struct.pack("<I", i) for i in chain).ljust(512 * tables, b"\xFF")
    places = [streams + pages + i for i in range(tables)]
    begin = b"\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1" + b"\0" * 16 + struct.pack("<HHHHH", 0x3E, 3, 0xFFFE, 9, 6)
    begin += b"\0" * 6 + struct.pack("<IIIIIIIII", 0, tables, streams, 0, 4096, end, 0, end, 0)
    begin += b"".join(struct.pack("<I", i) for i in places[:109])
    return begin.ljust(512, b"\xFF") + stream + directory + fat


def record(kind, body=b""):
    return struct.pack("<HH", kind, len(body)) + body


def xls(cells, shared=b"", end=record(0x0A), place=None, more=b""):
    begin = record(0x809, struct.pack("<HHHHII", 0x600, 5, 0, 0, 0, 0))
    sheet_begin = record(0x809, struct.pack("<HHHHII", 0x600, 16, 0, 0, 0, 0))
    texts = record(0xFC, struct.pack("<II", 1, 1) + shared) if shared else b""
    before = len(begin) + len(more) + len(texts) + 4 + 9 + 4
    sheet = record(0x85, struct.pack("<IBBBB", before if place is None else place, 0, 0, 1, 0) + b"S")
    return begin + more + texts + sheet + record(0x0A) + sheet_begin + cells + end


def label(row_, column, number):
    return record(0xFD, struct.pack("<HHHI", row_, column, 0, number))


NUMBER = record(0x203, struct.pack("<HHHd", 0, 0, 0, 1.5))
LONG_LABEL = struct.pack("<HB", 8000, 0) + b"x" * 8000

# --- Projects

LOOK = ("CREATE TABLE look (id INTEGER PRIMARY KEY, type INTEGER NOT NULL, decimals INTEGER NOT NULL, "
        "bold INTEGER NOT NULL, italic INTEGER NOT NULL, overflow INTEGER NOT NULL, "
        "colour INTEGER NOT NULL, span_columns INTEGER NOT NULL, span_rows INTEGER NOT NULL)")
PICTURE = "CREATE TABLE picture (id INTEGER PRIMARY KEY, image BLOB NOT NULL)"
CELL = ("CREATE TABLE cell (\"column\" INTEGER NOT NULL, \"row\" INTEGER NOT NULL, text TEXT, "
        "value REAL, look INTEGER NOT NULL REFERENCES look, picture INTEGER REFERENCES picture)")
COUNT = "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < {}) "


def qvl(*changes):
    with tempfile.NamedTemporaryFile(suffix=".qvl") as file:
        database = sqlite3.connect(file.name)
        for sql in (LOOK, PICTURE, CELL, "PRAGMA application_id = 0x51564C31", "PRAGMA user_version = 1",
                    "INSERT INTO look VALUES (1, 1, 0, 0, 0, 0, 16777215, 1, 1)",
                    "INSERT INTO cell VALUES (1, 2, NULL, 7.5, 1, NULL)", *changes):
            database.execute(sql)
            database.commit()
        database.close()
        with open(file.name, "rb") as written:
            return written.read()


# --- The files: name, how it is made, and words of its refusal


def spoilt(**changes):
    return lambda entry: (entry[0], changes.get("crc", entry[1]), changes.get("size", entry[2]))


def cut_in_two(data):
    return data[: len(data) // 2]


INLINE = "<c t='inlineStr'><is><t>{}</t></is></c>".format
SST = "xl/sharedStrings.xml"
FILES = {
    # Small archives of much XML
    "empty_texts.xlsx": (lambda: xlsx(more={SST: repeated("<si/>", 200 * MIB, "<sst>", "</sst>")}), "texts in a table"),
    "one_text_everywhere.xlsx": (lambda: xlsx(repeated("<row>" + "<c t='s'><v>0</v></c>" * 500 + "</row>", 100 * MIB,
                                                       "<worksheet><sheetData>", "</sheetData></worksheet>"),
                                              {SST: "<sst><si><t>" + "x" * 9999 + "</t></si></sst>"}), "bytes of text"),
    "attributes_of_one.xlsx": (lambda: xlsx(repeated(" a='1'", 200 * MIB, "<worksheet", "/>")), "500 attributes"),
    "escaped_attributes.xlsx": (lambda: xlsx(repeated(" a='&lt;'", 200 * MIB, "<worksheet", "/>")), "1 MiB"),
    "many_attributes.xlsx": (lambda: xlsx(repeated("<a" + " b=''" * 400 + "/>", 200 * MIB, "<worksheet>",
                                                   "</worksheet>")), "attributes of XML"),
    "long_attribute.xlsx": (lambda: xlsx(repeated("x", 200 * MIB, "<worksheet a='&amp;", "'/>")), "1 MiB"),
    "elements.xlsx": (lambda: xlsx(repeated("<a/>", 200 * MIB, "<worksheet>", "</worksheet>")), "elements of XML"),
    "nesting.xlsx": (lambda: xlsx(repeated("<a>", 200 * MIB, "<worksheet>")), "200 deep"),
    "one_cell_again.xlsx": (lambda: xlsx(repeated("<c r='A1'><v>1</v></c>", 240 * MIB, "<worksheet>",
                                                  "</worksheet>")), "elements of XML|cells"),
    "texts_in_cells.xlsx": (lambda: xlsx(repeated("<row>" + INLINE("x" * 99) * 500 + "</row>", 200 * MIB,
                                                  "<worksheet><sheetData>", "</sheetData></worksheet>")), "bytes of text"),
    "text_of_a_cell.xlsx": (lambda: xlsx(repeated("x", 200 * MIB, "<worksheet><row><c t='inlineStr'><is><t>",
                                                  "</t></is></c></row></worksheet>")), "1 MiB"),
    "escaped_text.xlsx": (lambda: xlsx(repeated("x&amp;", 200 * MIB, "<worksheet><c><v>", "</v></c></worksheet>")),
                          "1 MiB"),
    "sections_of_text.xlsx": (lambda: xlsx(repeated("<![CDATA[" + "x" * 999 + "]]>", 200 * MIB,
                                                    "<worksheet><row><c><v>", "</v></c></row></worksheet>")), "1 MiB"),
    "three_large_parts.xlsx": (lambda: xlsx(repeated(" ", 100 * MIB, "<worksheet>", "</worksheet>"), {
        SST: repeated(" ", 100 * MIB, "<sst>", "</sst>"),
        "xl/styles.xml": repeated(" ", 100 * MIB, "<styleSheet>", "</styleSheet>")}), "once it is unpacked"),
    "a_gigabyte.xlsx": (lambda: xlsx(change=spoilt(size=1 << 30)), "once it is unpacked"),
    "sheets.xlsx": (lambda: xlsx(more={"xl/workbook.xml": repeated("<sheet/>", 100 * MIB, "<w>", "</w>")}),
                    "parts and sheets"),
    "relations.xlsx": (lambda: xlsx(more={"xl/_rels/workbook.xml.rels": "<r>" + "".join(
        f"<Relationship Id='{i}'/>" for i in range(99999)) + "</r>"}), "parts and sheets"),
    "number_formats.xlsx": (lambda: xlsx(more={"xl/styles.xml": "<s><numFmt numFmtId='2147483647'/></s>"}), "damaged"),
    "parts.xlsx": (lambda: xlsx(entries=65000), "parts and sheets"),
    # Archives that are not what they say
    "check_sum.xlsx": (lambda: xlsx(change=spoilt(crc=1)), "check sum"),
    "stored_check_sum.xlsx": (lambda: xlsx(method=0, change=spoilt(crc=1)), "check sum"),
    "shorter_than_told.xlsx": (lambda: xlsx(change=spoilt(size=100 * MIB)), "check sum"),
    "longer_than_told.xlsx": (lambda: xlsx(change=spoilt(size=50)), "check sum"),
    "bzip2.xlsx": (lambda: xlsx(method=8).replace(struct.pack("<HHHH", 20, 0, 8, 0), struct.pack("<HHHH", 20, 0, 12, 0)),
                   "packed in a way"),
    "encrypted.xlsx": (lambda: xlsx(flags=1), "password"),
    "cut_off.xlsx": (lambda: cut_in_two(xlsx()), "no workbook"),
    "empty_blocks.xlsx": (lambda: xlsx(change=lambda entry: (empty_blocks(9_900_000) + entry[0], 1, entry[2])),
                          "check sum"),
    "parts_over_one_another.xlsx": (lambda: archive(dict.fromkeys(
        ("xl/workbook.xml", "xl/_rels/workbook.xml.rels", SHEET),
        f"<w><!--{random.Random(1).randbytes(2000).hex()}--><sheet name='S' r:id='r1'/>"
        "<Relationship Id='r1' Target='worksheets/sheet1.xml'/></w>"), overlaid=True), "all it has"),
    # Places and numbers
    "row_overflow.xlsx": (lambda: xlsx("<row r='2147483647'/><row><c><v>1</v></c></row>"), "damaged"),
    "row_of_words.xlsx": (lambda: xlsx("<row r='two'><c><v>1</v></c></row>"), "damaged"),
    "text_out_of_range.xlsx": (lambda: xlsx("<row><c t='s'><v>18446744073709551615</v></c></row>"), "damaged"),
    "two_values.xlsx": (lambda: xlsx("<row><c><v>1</v><v>5</v></c></row>"), "damaged"),
    # OpenDocument
    "blanks.ods": (lambda: ods(row(cell("<text:p><text:s text:c='1000000'/><text:s text:c='1000000'/></text:p>"))),
                   "1 MiB"),
    "cells_of_blanks.ods": (lambda: ods(row(cell("<text:p><text:s text:c='999999'/></text:p>") * 300)), "bytes of text"),
    "rows_in_rows.ods": (lambda: ods("<table:table-row table:number-rows-repeated='9999'>"
                                     + cell("<text:p>x</text:p>", REPEATED("columns", 500)) * 1
                                     + row(ONE) * 100), "damaged"),
    "rows_of_a_long_text.ods": (lambda: ods(row(cell(LONG_TEXT, REPEATED("columns", 500)), REPEATED("rows", 9999))),
                                "bytes of text"),
    "row_overflow.ods": (lambda: ods(row("", REPEATED("rows", 2147483647)) * 2 + row(ONE)), "10000 rows"),
    "column_overflow.ods": (lambda: ods(row(cell("", REPEATED("columns", 2**63 - 1)) * 2 + ONE)), "500 columns"),
    "repeats_beyond_numbers.ods": (lambda: ods(row(ONE, REPEATED("rows", 10**30))), "damaged"),
    "repeats_below_one.ods": (lambda: ods(row(ONE, REPEATED("rows", -1))), "damaged"),
    "cell_in_cell.ods": (lambda: ods(row(cell(ONE))), "damaged"),
    "check_sum.ods": (lambda: ods(row(ONE), change=spoilt(crc=1)), "check sum|no OpenDocument"),
    "nesting.ods": (lambda: ods(repeated("<text:span>", 200 * MIB)), "200 deep"),
    # Old workbooks
    "one_text_everywhere.xls": (lambda: container(xls(b"".join(label(r, c, 0) for r in range(500) for c in range(256)),
                                                      LONG_LABEL)), "bytes of text"),
    "text_out_of_range.xls": (lambda: container(xls(label(0, 0, 1), LONG_LABEL)), "damaged"),
    "no_end.xls": (lambda: container(xls(NUMBER * 400, end=b"")), "damaged"),
    "sheet_nowhere.xls": (lambda: container(xls(NUMBER, place=0xFFFFFFFF)), "damaged"),
    "record_beyond_the_end.xls": (lambda: container(xls(NUMBER * 300 + struct.pack("<HH", 0x203, 0xFFFF), end=b"")),
                                  "damaged"),
    "chain_of_entries.xls": (lambda: container(xls(NUMBER), [(0xFFFFFFFF, i + 2) for i in range(70000)]), "damaged"),
    "directory_in_a_circle.xls": (lambda: container(xls(NUMBER), fat_of_directory=[8]), "damaged"),
    "columns.xls": (lambda: container(xls(record(0x203, struct.pack("<HHHd", 0, 65534, 0, 1)))), "500 columns"),
    # Projects
    "row.qvl": (lambda: qvl("UPDATE cell SET \"row\" = 4294967298"), "makes no sense"),
    "word_in_value.qvl": (lambda: qvl("UPDATE cell SET value = '1,5'"), "another kind"),
    "word_in_row.qvl": (lambda: qvl("UPDATE cell SET \"row\" = 'x'"), "another kind"),
    "infinite.qvl": (lambda: qvl("UPDATE cell SET value = 9e999"), "not finite"),
    "view.qvl": (lambda: qvl("CREATE VIEW more AS " + COUNT.format(10**12) + "SELECT sum(i) FROM n"), "tables"),
    "trigger.qvl": (lambda: qvl("CREATE TRIGGER t AFTER INSERT ON cell BEGIN DELETE FROM cell; END"), "tables"),
    "computed.qvl": (lambda: qvl("ALTER TABLE cell ADD COLUMN more AS (zeroblob(1000000000))"), "tables"),
    "looks.qvl": (lambda: qvl("INSERT INTO look " + COUNT.format(200000)
                              + "SELECT i + 1, 1, 0, 0, 0, 0, i, 1, 1 FROM n"), "too many looks"),
    "cut_off.qvl": (lambda: cut_in_two(qvl("INSERT INTO cell " + COUNT.format(5000)
                                           + "SELECT 1, i, NULL, i, 1, NULL FROM n")), "damaged|malformed"),
    "no_database.qvl": (lambda: b"x" * 5_000_000, "not a project"),
    # Separated values
    "value_without_end.csv": (lambda: b"\"" + b"x\n" * 2 * MIB, "1 MiB"),
    "columns.csv": (lambda: b"1," * 4 * MIB, "500 columns"),
    "rows.csv": (lambda: b"1\n" * 4 * MIB, "10000 rows"),
    "zeros.csv": (lambda: b"\0,\n" * 3 * MIB, "NUL byte"),
}


def fault(program, folder, name):
    """What is wrong with the refusal of a file, its seconds and megabytes."""
    make, words = FILES[name]
    path, out = os.path.join(folder, name), os.path.join(folder, "out.csv")
    with open(path, "wb") as file:
        file.write(make())
    size = os.path.getsize(path)
    begun = time.monotonic()
    with open(os.path.join(folder, "words"), "w+b") as told:
        child = os.fork()
        if child == 0:
            os.dup2(told.fileno(), 2)
            resource.setrlimit(resource.RLIMIT_CPU, (20, 20))
            resource.setrlimit(resource.RLIMIT_AS, (4 << 30, 4 << 30))
            os.execv(program, [program, "convert", path, out])
        _, status, usage = os.wait4(child, 0)
        told.seek(0)
        why = told.read().decode(errors="replace").strip()
    seconds, megabytes = usage.ru_utime + usage.ru_stime, usage.ru_maxrss / 1024
    print(f"{name:28} {size:8} bytes {seconds:5.2f} s of {time.monotonic() - begun:5.2f} {megabytes:6.0f} MB  {why}",
          flush=True)
    os.remove(path)
    if left := os.path.exists(out):
        os.remove(out)
    if size >= MOST_BYTES:
        return "it is too large for a trial"
    if os.waitstatus_to_exitcode(status) != 2:
        return f"exit {os.waitstatus_to_exitcode(status)}"
    if left:
        return "an output"
    if not any(word in why for word in words.split("|")):
        return f"not told \"{words}\""
    if seconds > MOST_SECONDS or megabytes > MOST_MEGABYTES:
        return "too much time or memory"
    return None


def main():
    program = os.path.abspath(sys.argv[1])
    faults = 0
    with tempfile.TemporaryDirectory() as folder:
        for name in sys.argv[2:] or FILES:
            if what := fault(program, folder, name):
                faults += 1
                print(f"  FAULT: {what}")
    print(f"{len(sys.argv[2:] or FILES)} files, {faults} faults")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
