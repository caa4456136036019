"""Two clerks of the group do all their work in an installation made by root, one after the other."""

import hashlib
import os
import pwd
import socket
import sqlite3
import threading
import unittest

from machine import GROUP, HANAKO, OUTSIDER, TARO, Machine, as_user, entries, rights

# Files that must keep mode and group, regardless of the user who wrote them and of the umask.
WRITTEN = {"data/gnrdb.accdb", "conf/usrcnfg.accdb", "report/repdb.accdb", "report/repfrmdb.accdb"}


class Squatter:
    """An outsider who created the user's socket folder and socket names in /tmp beforehand, and listens there."""

    def __init__(self, user, forms):
        self.folder = f"/tmp/youin-meibo-{pwd.getpwnam(user).pw_uid}"
        self.path = f"{self.folder}/host-{hashlib.sha1(forms.encode()).hexdigest()[:24]}"
        as_user(OUTSIDER, lambda: (os.mkdir(self.folder), os.chmod(self.folder, 0o777))[1])
        self.server, self.calls = socket.socket(socket.AF_UNIX), 0
        self.server.bind(self.path)
        os.chmod(self.path, 0o777)
        self.server.listen()
        threading.Thread(target=self.listen, daemon=True).start()

    def listen(self):
        try:
            while self.server.accept():
                self.calls += 1
        except OSError:
            return

    def close(self):
        """Returns the sockets in the folder and the number of connections."""
        self.server.shutdown(socket.SHUT_RDWR)
        self.server.close()
        found = os.listdir(self.folder)
        for name in found:
            os.unlink(f"{self.folder}/{name}")
        os.rmdir(self.folder)
        return found, self.calls


class Clerks(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.machine = Machine()
        cls.addClassCleanup(cls.machine.close)
        cls.root, output = cls.machine.make("honten", "--pin", mask=0o077)
        cls.pin = next(line.split()[2] for line in output.splitlines() if line.split()[:1] == ["00001"])
        cls.paper = f"{cls.machine.parent}/paper"
        os.mkdir(cls.paper)
        os.chmod(cls.paper, 0o2770)
        cls.machine.setup("printer", cls.root, "--to-folder", cls.paper)

    def work(self, user, mask, name):
        """Runs clerk_work.py as the user, with real programs on a separate display and bus; returns the new files."""
        before = set(os.listdir(self.paper))
        command = ["dbus-run-session", "--", "/usr/bin/python3", "-B", "-W", "ignore::DeprecationWarning",
                   f"{self.machine.tests}/users/clerk_work.py", "-v"]  # fmt: skip
        squatter = Squatter(user, f"{self.root}/report/repfrmdb.accdb")
        clerk = self.machine.start(
            user, command, mask, CLERK_INSTALLATION=self.root, CLERK_PIN=self.pin, CLERK_NAME=name,
            CLERK_PAPER=self.paper, QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1",
            PYTHONPATH=f"{self.machine.tests}/accessibility",
        )  # fmt: skip
        output = clerk.communicate(timeout=240)[0]
        self.assertEqual(squatter.close(), ([os.path.basename(squatter.path)], 0))
        self.assertEqual(clerk.returncode, 0, output)
        return set(os.listdir(self.paper)) - before

    def configuration(self, statement):
        connection = sqlite3.connect(f"{self.root}/conf/usrcnfg.accdb")
        rows = connection.execute(statement).fetchall()
        connection.close()
        return rows

    def assert_traces(self, user, pages):
        self.assertEqual([rights(f"{self.paper}/{page}") for page in pages], [f"0660 {GROUP}"])
        texts = [text for (text,) in self.configuration(
            f"SELECT 摘要 FROM プログラム稼動履歴 WHERE ユーザID = '{user}' AND プログラムID = '要員名簿照会'")]  # fmt: skip
        self.assertIn("出力終了 印刷", texts)
        self.assertEqual([text for text in texts if text.startswith("エラー")], [])
        for path in entries(self.root):
            self.assertTrue(rights(path).endswith(f" {GROUP}"), f"{path}: {rights(path)}")
        for name in WRITTEN:
            self.assertEqual(rights(f"{self.root}/{name}"), f"0660 {GROUP}", name)

    def test_second_clerk_does_all_that_the_first_one_did(self):
        for user, mask, name in ((HANAKO, 0o077, "Takeda Ren"), (TARO, 0o022, "Mori Aoi")):
            self.configuration_without_sign_in()
            self.assert_traces(user, self.work(user, mask, name))

    def configuration_without_sign_in(self):
        connection = sqlite3.connect(f"{self.root}/conf/usrcnfg.accdb")
        with connection:
            connection.execute("UPDATE 動作環境定義 SET 起動担当者コード = ''")
        connection.close()
