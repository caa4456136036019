"""Checks the result of eight clerks' work against their logs."""

import re
import subprocess
from collections import Counter, defaultdict

import installation as suite

# Messages allowed in a shared installation: the users share the work tables, which each output empties first.
SHARED = (
    "印刷情報が有りません",
    "出力情報が有りません",
    "帳票「要員名簿照会」に印刷するデータがありません。",
)
ROWS = {  # history rows written by each step
    "start": ("開始", "出力終了 SELECT"),
    "search": ("出力終了 SELECT",),
    "print": ("出力開始 印刷", "出力終了 印刷"),
    "text": ("出力開始 テキスト出力", "出力終了 テキスト出力"),
    "telephone": ("出力終了 SELECT",),
    "end": ("終了",),
}
TEXTS = sorted({text for texts in ROWS.values() for text in texts}, key=len, reverse=True)
SITE_FILE = re.compile(
    r"(conf/(usrcnfg\.accdb|pin\.key)|data/gnrdb\.accdb|report/rep(frm)?db\.accdb|manual/要員名簿照会\.doc"
    r"|prgbin/(要員名簿照会|要員台帳更新)(\.exe)?|prgbin/suite-setup|prgbin/空白\.jpg|host/OFFICE16/MSACCESS\.EXE"
    r"|users/[^/]+/(conf/usrcnfg|report/repdb|report/repfrmdb)\.accdb)"
)


def text_kind(text):
    return next((known for known in TEXTS if text.startswith(known)), text.split(" ")[0])


def expected_rows(entries):
    """Expected history rows of the inquiry and of the registration program, from one clerk's log."""
    inquiry, registration = Counter(), Counter()
    for entry in entries:
        # A step without a matching person was skipped; an output of no people starts no run.
        happened = entry.get("code", "") is not None and entry.get("done", True)
        inquiry.update(ROWS.get(entry["what"], ()) if happened else ())
        if entry["what"] == "telephone" and happened:
            registration.update(("開始", "終了"))
    return inquiry, registration


def check_history(user, entries, history):
    """Checks that every expected row exists once and the rows of each run are numbered without a gap."""
    for program, expected in zip((suite.INQUIRY, suite.REGISTRATION), expected_rows(entries), strict=True):
        rows = [(number, text) for name, owner, number, text in history if (name, owner) == (user, program)]
        found = Counter(text_kind(text) for _, text in rows if not text.startswith("エラー"))
        for text in sorted(expected | found):
            if expected[text] != found[text]:
                yield f"{user}: {program} has {found[text]} rows {text}, {expected[text]} were expected"
        yield from check_numbers(user, program, rows)


def check_numbers(user, program, rows):
    wanted = 1
    for number, text in rows:
        wanted = 1 if text.startswith("開始") else wanted
        if int(number) != wanted:
            yield f"{user}: {program} has row {number} {text[:40]} in place of {wanted}"
        wanted = int(number) + 1


def check_errors(rows, shared):
    """Failed statements mean lost data, except on the work tables, which users of a shared installation share."""
    for user, program, _, text in rows:
        work_tables = shared and re.match(r"エラー (DELETE FROM|SELECT \* FROM) 要員名簿照会", text)
        if text.startswith("エラー") and not work_tables:
            yield f"{user}: {program}: {text[:200]}"


def check_boxes(entry, shared):
    for box in entry["boxes"]:
        if not (shared and box in SHARED):
            yield f"clerk {entry['clerk']}: {entry['what']} showed {box}"


def check_telephones(before, after, changes):
    """The last saved number of each person; if two saves overlapped in time, either."""
    saves = defaultdict(list)
    for change in changes:
        if change["saved"]:
            saves[change["code"]].append(change)
    for code, number in after.items():
        last = max((save["clicked"] for save in saves[code]), default=0)
        possible = [save["number"] for save in saves[code] if save["finished"] >= last] or [before[code]]
        if number not in possible:
            yield f"{code} has the telephone number {number}, the last one saved is {possible}"


def pages_of(file):
    """Codes of the people on a printed list, and the number in its header."""
    done = subprocess.run(["pdftotext", "-layout", file, "-"], capture_output=True, text=True, check=False)
    information = subprocess.run(["pdfinfo", file], capture_output=True, text=True, check=False)
    if done.returncode or information.returncode:
        return None, None
    head = re.search(r"(\d+) 名 ", done.stdout)
    return re.findall(r"^ *\d+ +(\d{5}) ", done.stdout, re.MULTILINE), int(head.group(1)) if head else None


def check_print(entry, shared):
    if len(entry["files"]) != 1:
        yield f"clerk {entry['clerk']}: a print left {len(entry['files'])} files"
    for file in entry["files"]:
        codes, number = pages_of(file)
        if codes is None or number is None or len(codes) != number:
            yield f"{file} is not readable, or has {codes and len(codes)} of {number} people"
        elif not shared and codes != entry["people"]:
            yield f"{file} has the people {codes}, {entry['people']} were printed"


def check_text(entry, shared):
    if not entry["whole"]:
        yield f"clerk {entry['clerk']}: a text file is not whole"
    if not shared and entry["codes"] != entry["people"]:
        yield f"clerk {entry['clerk']}: a text file has {entry['codes']}, {entry['people']} were written"


def check_outputs(entries, shared):
    checks = {"print": check_print, "text": check_text}
    for entry in entries:
        if entry["what"] in checks and entry["done"] and not entry["boxes"]:
            yield from checks[entry["what"]](entry, shared)


def is_void_journal(file):
    """A journal whose writer was killed before its header was complete: the engine ignores it, readers cannot remove it,
    and the next write replaces it."""
    if not file.name.endswith("-journal"):
        return False
    with file.open("rb") as journal:
        return not journal.read(8).strip(b"\0")


def check_leftovers(site):
    for file in sorted(site.root.rglob("*")):
        name = str(file.relative_to(site.root))
        if file.is_file() and not SITE_FILE.fullmatch(name) and not is_void_journal(file):
            yield f"left over: {name}"
    for program in (suite.INQUIRY, suite.REGISTRATION):
        if found := suite.running(site.program(program)):
            yield f"still running: {program} {found}"
    if found := suite.running(site.host):
        yield f"still running: the report host {found}"


def check_databases(site):
    for file in site.databases():
        if wrong := suite.damage(file):
            yield f"{file}: {wrong}"
        for message in suite.messages(file) if file.name.startswith("usrcnfg") else ():
            yield f"{file}: link message {message}"
