"""Actions of the set-up tool on an installation."""

import hashlib
import shutil
import sqlite3
import subprocess

import installation as suite
from actions import Action

KEY_BYTES = 32


class Tool(Action):
    """A verb of the set-up tool on a separate installation, which is restored before each run."""

    verb = ""

    def __init__(self, desk):
        super().__init__(desk)
        self.site = desk.make_site("tool-" + self.name.replace(" ", "-"))
        self.arrange()
        self.saved = self.site.root.with_suffix(".saved")
        shutil.copytree(self.site.root, self.saved, symlinks=True)

    def arrange(self):
        """Prepares the installation so that the verb has something to do."""

    def prepare(self):
        shutil.rmtree(self.site.root)
        shutil.copytree(self.saved, self.site.root, symlinks=True)

    def command(self):
        return self.site.command(self.verb, self.site.root)

    def begin(self):
        return subprocess.Popen(
            self.command(), env=self.site.environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL
        )

    def check(self, acknowledged):
        yield from self.half_done()
        again = subprocess.run(
            self.command(), env=self.site.environment, timeout=suite.TIMEOUT,
            capture_output=True, text=True, check=False
        )  # fmt: skip
        if again.returncode:
            yield f"{self.verb} again: {again.stderr.strip()}"
        yield from self.done(again.stdout)
        yield from super().check(acknowledged)

    def half_done(self):
        """Yields invalid states directly after a kill."""
        return ()

    def done(self, printed):
        """Yields failures after the verb has run again."""
        return ()


def digest(file):
    return hashlib.sha256(file.read_bytes()).hexdigest() if file.is_file() else None


class Upgrade(Tool):
    name, verb = "upgrade", "upgrade"
    lacking = ("プログラムクリップボード", "プログラムクリップボード明細")

    def arrange(self):
        for table in self.lacking:
            suite.change(self.site.configuration, f"DROP TABLE {table}")
        for name in (suite.INQUIRY, suite.REGISTRATION):
            with open(self.site.program(name), "ab") as program:
                program.write(b"older")

    def half_done(self):
        for name in (suite.INQUIRY, suite.REGISTRATION):
            places = (self.site.root, self.saved)
            found, old = (digest(place / "prgbin" / name) for place in places)
            if found not in (old, digest(self.site.programs / name)):
                yield f"half a program: {name}"

    def done(self, printed):
        for name in (suite.INQUIRY, suite.REGISTRATION):
            if digest(self.site.root / "prgbin" / name) != digest(self.site.programs / name):
                yield f"{name} is not the new one"
        for table in self.lacking:
            if not suite.rows(self.site.configuration, "SELECT 1 FROM sqlite_schema WHERE name = ?", table):
                yield f"{table} is missing"


class Printer(Tool):
    name, verb = "printer", "printer"

    def command(self):
        return [*super().command(), "--to-folder", str(self.desk.printed)]

    def place(self, root):
        sql = "SELECT 帳票, 種類, 名前 FROM 出力先"
        try:
            return suite.rows(root / "report/repfrmdb.accdb", sql)
        except sqlite3.OperationalError as error:
            if "no such table" in str(error):
                return []
            raise

    def half_done(self):
        # The tool opens the file as the programs do, which rolls back an unfinished transaction.
        shown = self.site.tool("printer", self.site.root)
        if str(self.desk.printed) not in shown and "通常使うプリンター" not in shown:
            yield f"the place of output is {shown}"

    def done(self, printed):
        if self.place(self.site.root) != [("", "フォルダ", str(self.desk.printed))]:
            yield f"the place of output is {self.place(self.site.root)}"


class SealPins(Tool):
    name, verb = "seal-pins", "seal-pins"
    columns = (("Mユーザ", "特権暗証番号"), ("Mユーザ", "システム特権暗証番号"), ("M事業所", "特権暗証番号"))

    def arrange(self):
        (self.site.root / "conf/pin.key").unlink()
        suite.change(self.site.general, "UPDATE M担当者 SET 暗証番号 = 'pin' || コード")
        for table, column in self.columns:
            suite.change(self.site.general, f"UPDATE {table} SET {column} = 'clear'")
        self.number = suite.rows(self.site.general, "SELECT COUNT(*) FROM M担当者")[0][0]

    def half_done(self):
        key = self.site.root / "conf/pin.key"
        if key.exists() and key.stat().st_size != KEY_BYTES:
            yield f"half a key file: {key.stat().st_size} bytes"

    def done(self, printed):
        if "開けない" in printed:
            yield printed
        sealed = suite.rows(self.site.general, "SELECT COUNT(*) FROM M担当者 WHERE 暗証番号 LIKE 'S1:%'")[0][0]
        if sealed != self.number:
            yield f"{sealed} of {self.number} PINs are sealed"


class Move(Tool):
    """On a copied installation whose definition and links refer to the original's files."""

    name, verb = "move", "move"

    def arrange(self):
        elsewhere = "/nowhere/data/gnrdb.accdb"
        suite.change(self.site.configuration, "UPDATE データベース定義 SET データソース名 = ?", elsewhere)

    def source(self):
        return suite.rows(self.site.configuration, "SELECT データソース名 FROM データベース定義 WHERE 情報種類 = 'GNR'")

    def done(self, printed):
        if self.source() != [(str(self.site.general),)]:
            yield f"the definition names {self.source()}"


class Import(Tool):
    """With a real desktop database file, which replaces all rows of the general database or none."""

    name, verb = "import", "import"
    counted = "SELECT COUNT(*) FROM M担当者 UNION ALL SELECT COUNT(*) FROM M部門"

    def arrange(self):
        self.original = suite.rows(self.site.general, self.counted)
        self.imported = None

    def command(self):
        return [*super().command(), str(self.desk.work / "driver/general.accdb")]

    def half_done(self):
        found = suite.committed(self.site.general, self.counted)
        if found not in (self.original, self.imported) and self.imported:
            yield f"a part of the rows is imported: {found}, it was {self.original} or {self.imported}"

    def done(self, printed):
        self.imported = self.imported or suite.rows(self.site.general, self.counted)
        if suite.rows(self.site.general, self.counted) != self.imported:
            yield "the second import has other rows than the first"


TOOLS = (Upgrade, Printer, SealPins, Move, Import)
