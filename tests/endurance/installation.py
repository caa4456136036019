"""An installation made as an administrator would, and queries on it."""

import contextlib
import os
import shutil
import sqlite3
import subprocess
import tempfile
from pathlib import Path

INQUIRY, REGISTRATION = "要員名簿照会", "要員台帳更新"
HISTORY = "SELECT ユーザID, プログラムID, proccounter, 摘要 FROM プログラム稼動履歴 ORDER BY rowid"
TIMEOUT = 60  # seconds for a run of the set-up tool or a start


class Installation:
    """An installation's folder. The set-up tool uses a test registry file instead of the machine's."""

    def __init__(self, root, programs, environment):
        self.root, self.programs, self.environment = Path(root), Path(programs), dict(environment)

    def command(self, *arguments):
        return [str(self.programs / "suite-setup"), *map(str, arguments)]

    def tool(self, *arguments, **identity):
        """Runs the set-up tool and returns its output. Raises CalledProcessError on failure."""
        done = subprocess.run(
            self.command(*arguments), env=self.environment, capture_output=True, text=True, timeout=TIMEOUT, **identity
        )
        if done.returncode != 0:
            raise AssertionError(f"suite-setup {' '.join(map(str, arguments))}: {done.stderr.strip()}")
        return done.stdout

    def make(self, *options, **identity):
        return self.tool("init", self.root, *options, **identity)

    def program(self, name):
        return str(self.root / "prgbin" / name)

    @property
    def host(self):
        return self.root / "host/OFFICE16/MSACCESS.EXE"

    def register_host(self):
        """Registers the host as the machine's administrator does; the last registered installation is used by all."""
        key = r"HKLM\SOFTWARE\Microsoft\Windows\CurrentVersion\App Paths\MSACCESS.EXE"
        self.tool("registry", "set", key, "Path", f"{self.host.parent}/")

    @property
    def configuration(self):
        return self.root / "conf/usrcnfg.accdb"

    @property
    def general(self):
        return self.root / "data/gnrdb.accdb"

    def private(self, user, file):
        return self.root / "users" / user / file

    def staff(self):
        """Codes of the people whom the inquiry finds without search conditions, sorted."""
        sql = "SELECT コード FROM M担当者 WHERE 在籍区分 = '0' ORDER BY コード"
        return [row[0] for row in rows(self.general, sql)]

    def databases(self):
        return sorted(file for suffix in ("accdb", "mdb") for file in self.root.rglob("*." + suffix))


def rows(file, sql, *values):
    """Rows of a query on a read-only connection, which waits for locks like another program."""
    with contextlib.closing(sqlite3.connect(f"file:{file}?mode=ro", uri=True, timeout=10)) as database:
        return database.execute(sql, values).fetchall()


def change(file, sql, *values):
    with contextlib.closing(sqlite3.connect(file, timeout=10)) as database, database:
        database.execute(sql, values)


def damage(file):
    """Result of SQLite's integrity checks; empty if the database is sound."""
    try:
        found = rows(file, "PRAGMA integrity_check") + rows(file, "PRAGMA quick_check")
    except sqlite3.DatabaseError as error:
        return str(error)
    return "; ".join(text for (text,) in found if text != "ok")


def history(file, user=None):
    """Rows of the run history, oldest first: user, program, number, text."""
    return [row for row in rows(file, HISTORY) if user is None or row[0] == user]


def committed(file, sql=HISTORY):
    """Rows of a file whose writer was just killed, read after recovery of a copy of the file and its journal."""
    with tempfile.TemporaryDirectory() as folder:
        for suffix in ("", "-journal"):
            with contextlib.suppress(FileNotFoundError):
                shutil.copyfile(f"{file}{suffix}", f"{folder}/copy{suffix}")
        with contextlib.closing(sqlite3.connect(f"{folder}/copy")) as database:
            return database.execute(sql).fetchall()


def messages(file):
    return rows(file, "SELECT 連携区分, 起動連携情報, ユーザID FROM プログラム連携情報")


def telephones(installation):
    return dict(rows(installation.general, "SELECT コード, 電話 FROM M担当者"))


def running(program):
    """Ids of the processes that run this program file, even if it has been replaced meanwhile."""
    found = []
    for entry in Path("/proc").iterdir():
        with contextlib.suppress(OSError):
            if entry.name.isdigit() and os.readlink(entry / "exe").removesuffix(" (deleted)") == str(program):
                found.append(int(entry.name))
    return found
