"""Installations for the tests, made by suite-setup."""

import os
import sqlite3
import subprocess
import tempfile

CONFIGURATION = "conf/usrcnfg.accdb"
STAFF = "data/gnrdb.accdb"


class Sample:
    """A new installation with sixty people, always the same."""

    def __init__(self, *options):
        self.root = tempfile.mkdtemp(dir=os.environ["ACCESSIBILITY_WORK"]) + "/site"
        command = [os.environ["SUITE_SETUP"], "init", self.root, "--staff", "60", "--seed", "1", *options]
        self.told = subprocess.run(command, check=True, capture_output=True, text=True).stdout

    def program(self, name):
        return f"{self.root}/prgbin/{name}"

    def run(self, file, statement, *values):
        """Runs a statement on a database as an administrator would, and returns its rows."""
        connection = sqlite3.connect(f"{self.root}/{file}")
        with connection:
            rows = connection.execute(statement, values).fetchall()
        connection.close()
        return rows
