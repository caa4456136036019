"""A clerk's work: signing in, searching, printing, saving. clerk_test.py runs it as that user."""

import os
import sqlite3
import unittest

import tree
from case import InquiryCase
from desk import wait_for
from registration_test import TITLE as REGISTRATION

PIN_DIALOG = "販路推進データ管理/暗証確認"
QUESTION = "要員名簿照会"


class Installation:
    """The installation made by clerk_test.py."""

    root = os.environ["CLERK_INSTALLATION"]

    def program(self, name):
        return f"{self.root}/prgbin/{name}"


class Clerk(InquiryCase):
    @classmethod
    def make_sample(cls):
        return Installation()

    @classmethod
    def reach_main_window(cls):
        """The PIN dialog is shown first."""
        cls.dialog = cls.open(PIN_DIALOG)

    def test_signs_in_searches_prints_and_saves(self):
        self.sign_in("1", os.environ["CLERK_PIN"])
        self.search()
        self.print_list()
        self.save(os.environ["CLERK_NAME"])

    def sign_in(self, code, pin):
        self.go_to(self.dialog, "担当者コード")
        self.screen.type(code)
        self.screen.key("Tab")
        item = tree.named(self.dialog, "暗証番号", "password text")
        wait_for("the PIN", lambda: self.focused(self.dialog) == item)
        self.screen.type(pin)
        wait_for("the caret after the PIN", lambda: item.queryText().caretOffset == len(pin))
        self.screen.key("Tab")
        super().reach_main_window()

    def search(self):
        self.enter(self.main, "開始担当者コード", "00002")
        self.go_to(self.main, "btn_集計検索")
        self.screen.key("space")
        wait_for("the rows from the second person on", lambda: "00001" not in self.rows.texts("担当者コード"))

    def print_list(self):
        self.go_to(self.main, "btn_印刷")
        self.screen.key("space")
        question = self.open(QUESTION)
        self.assertIsNotNone(tree.named(question, "印刷しますか?"))
        self.screen.key("Return")
        folder = os.environ["CLERK_PAPER"]
        pages = wait_for("the pages", lambda: [name for name in os.listdir(folder) if name.endswith(".pdf")])
        with open(f"{folder}/{pages[-1]}", "rb") as page:
            self.assertEqual(page.read(4), b"%PDF")
        self.return_to_main()

    def save(self, name):
        self.screen.click(self.rows.item("担当者名"))
        form = self.open(REGISTRATION)
        self.enter(form, "氏名", name)
        self.go_to(form, "btn_保存")
        self.screen.key("space")
        wait_for("the changed row", lambda: self.rows.texts("担当者名")[0] == name)
        connection = sqlite3.connect(f"{Installation.root}/data/gnrdb.accdb")
        rows = connection.execute("SELECT COUNT(*) FROM M担当者 WHERE 氏名 = ?", (name,)).fetchall()
        connection.close()
        self.assertEqual(rows, [(1,)])


if __name__ == "__main__":
    unittest.main()
