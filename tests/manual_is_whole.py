#!/usr/bin/env python3
"""The manual tells every message, lists every page, and none of its links leads nowhere.

Finds the texts of message boxes in the sources by the ways in which they are written: the calls that
tell or refuse, the named words of failures, and the phrases that all other messages share.
"""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
MANUAL = ROOT / "manual"
PROGRAM = ["analyses", "app", "core", "desktop", "stats"]

LITERAL = r'"(?:[^"\\\n]|\\.)*"'
TEXT = rf"{LITERAL}(?:\s*{LITERAL})*"
CALLS = (r"\b(?:Tell|TellAlso|Told|Refuse\w*|refuse|Fail|Insist|Attempt|Guarded|ShiftedMedian|Show"
         r"|warning)")
TOLD = [
    rf"{CALLS}\((?:[^\"{{;]|\{{\.text = )*?({TEXT})",
    rf"\.(?:fault|second|failure|unreached|inverse_fault|refusal) = (?:\w+ \? )?({TEXT})",
    rf"\bk\w*(?:Refused|Fault|Failure|NotComputed|TooFew\w*|NoHelp)\s*=\s*({TEXT})",
]
PHRASE = re.compile(
    r"^Error\b|\b[Nn]o (?:\w+ )?(?:analysis|comparison|evaluation|transformation)!?$|not allowed"
    r"|could not be|not (?:be )?performed|did not succeed")


def spoken(literals):
    return "".join(re.findall(r'"((?:[^"\\\n]|\\.)*)"', literals)).strip()


def messages(code):
    code = re.sub(r"(?m)//.*$", "", code)
    found = [match for pattern in TOLD for match in re.findall(pattern, code)]
    texts = {spoken(text) for text in found}
    texts |= {text for text in map(spoken, re.findall(TEXT, code)) if PHRASE.search(text)}
    return {text for text in texts if " " in text or text == "Error"}


def is_told(text, page):
    text = text.replace("%n", "n")
    piece = text.startswith(":") or text.endswith("<")  # of a text with a number in it
    return text in page if piece else f'"{text}"' in page


def untold():
    page = (MANUAL / "messages.md").read_text()
    for folder in PROGRAM:
        for file in sorted((ROOT / "src" / folder).rglob("*.[ch]*")):
            for text in sorted(messages(file.read_text())):
                if not is_told(text, page):
                    yield f"{file.relative_to(ROOT)}: messages.md does not tell \"{text}\""


def dead_links():
    linked = set()
    for page in sorted(MANUAL.glob("*.md")):
        for target in re.findall(r"\]\(([^)#]+)\)", page.read_text()):
            if page.name == "contents.md":
                linked.add(target)
            if "://" not in target and not (MANUAL / target).is_file():
                yield f"{page.name}: {target} does not exist"
    for page in sorted(MANUAL.glob("*.md")):
        if page.name != "contents.md" and page.name not in linked:
            yield f"contents.md does not list {page.name}"


faults = [*untold(), *dead_links()]
print(*faults, sep="\n")
sys.exit(1 if faults else 0)
