"""Backup and restore as docs/administration.md describes them: a program on the restored database has the same list."""

import os
import subprocess
from pathlib import Path

from clerk import ClusterCase
from office import tool
from servers.cluster import ACCOUNT

COPY = "restored"


class Restored:
    """The restore goes into another database of the same servers."""

    def backup(self):
        return Path(os.environ["ACCESSIBILITY_WORK"], f"{self.engine}.backup")

    def run_client(self, *command, **files):
        environment = os.environ | {"PGPASSWORD": self.cluster.password, "MYSQL_PWD": self.cluster.password}
        subprocess.run([*map(str, command)], env=environment, check=True, **files)

    def test_program_on_the_restored_database_has_the_same_list(self):
        self.save()
        self.restore()
        self.sample.use(self.cluster.odbc(self.engine, "write").replace(f"Database={ACCOUNT};", f"Database={COPY};"))
        self.assertIn("問題はありません。", tool("check", self.sample.root))
        self.assert_next_start()


class PostgresRestored(Restored, ClusterCase):
    engine = "postgresql"

    def client(self, program, *words):
        return program, "-h", "127.0.0.1", "-p", self.cluster.port(self.engine, "write"), "-U", ACCOUNT, *words

    def save(self):
        self.run_client(*self.client("pg_dump", "--format=custom", f"--file={self.backup()}", ACCOUNT))

    def restore(self):
        self.run_client(*self.client("createdb", "--template=template0", "--encoding=UTF8", COPY))
        self.run_client(*self.client("pg_restore", f"--dbname={COPY}", "--exit-on-error", self.backup()))


class MariaDbRestored(Restored, ClusterCase):
    engine = "mariadb"

    def client(self, program, *words):
        port = self.cluster.port(self.engine, "write")
        return program, "--no-defaults", "-h127.0.0.1", f"-P{port}", f"-u{ACCOUNT}", *words

    def save(self):
        words = ("--single-transaction", "--skip-lock-tables", "--default-character-set=utf8mb4", ACCOUNT)
        with self.backup().open("wb") as file:
            self.run_client(*self.client("mariadb-dump", *words), stdout=file)

    def restore(self):
        self.run_client(*self.client("mariadb", "-e", f"CREATE DATABASE {COPY} CHARACTER SET utf8mb4"))
        with self.backup().open("rb") as file:
            self.run_client(*self.client("mariadb", "--default-character-set=utf8mb4", COPY), stdin=file)
