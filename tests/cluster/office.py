"""Installations whose staff master is on the cluster."""

import functools
import os
import shutil
import subprocess

from sample import CONFIGURATION, STAFF, Sample
from servers.cluster import Cluster

HISTORY = "SELECT 摘要 FROM プログラム稼動履歴 WHERE プログラムID = ? ORDER BY rowid"
KEY = "conf/pin.key"
INQUIRY, REGISTRATION = "要員名簿照会", "要員台帳更新"


@functools.cache
def cluster():
    return Cluster.opened(os.environ["MEIBO_CLUSTER_FOLDER"])


def tool(*arguments):
    done = subprocess.run([os.environ["SUITE_SETUP"], *arguments], capture_output=True, text=True, check=False)
    if done.returncode != 0:
        raise AssertionError(f"suite-setup {arguments[0]}: {done.stdout}{done.stderr}")
    return done.stdout


@functools.cache
def fill_server(engine):
    """Copies the people of a sample to the cluster, once for all tests. Returns the file with the key of their PINs."""
    source = Sample()
    # An ASCII name, which can be typed on every keyboard.
    source.run(STAFF, "UPDATE M担当者 SET 氏名 = 'Takeda Ren' WHERE コード = '00014'")
    tool("server-init", "--from", source.root, "--odbc", cluster().odbc(engine, "write"))
    return f"{source.root}/{KEY}"


class Office(Sample):
    """An installation that reads and writes through the balancer's port of that purpose, "write" or "read"."""

    def __init__(self, engine, purpose="write"):
        key = fill_server(engine)
        super().__init__()
        shutil.copyfile(key, f"{self.root}/{KEY}")
        self.engine = engine
        self.use(cluster().odbc(engine, purpose))

    def use(self, connection):
        tool("use-server", self.root, "--odbc", connection)

    def history(self, program=INQUIRY):
        """Texts of the run history, oldest first."""
        return [text for (text,) in self.run(CONFIGURATION, HISTORY, program)]

    def errors(self, program=INQUIRY):
        return [text for text in self.history(program) if text.startswith("エラー")]

    def searches(self):
        """Number of successful searches."""
        return sum(text.startswith("出力終了 SELECT") for text in self.history())

    def people(self, node):
        """{code: (name, telephone)} of a node, read by its administrator."""
        columns = ("コード", "氏名", "電話")
        quote = '"' if self.engine == "postgresql" else "`"
        table = "m担当者" if self.engine == "postgresql" else "M担当者"
        parts = " || '\t' || ".join(f"COALESCE({column}, '')" for column in columns)
        if self.engine == "mariadb":
            parts = ", ".join(f"COALESCE({column}, '')" for column in columns)
        lines = node.query(f"SELECT {parts} FROM {quote}{table}{quote}", "suite").splitlines()
        return {code: (name, telephone) for code, name, telephone in (line.split("\t") for line in lines)}
