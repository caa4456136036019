"""The multi-select lists opened by the head's range buttons."""

import pyatspi

import tree
from case import InquiryCase
from desk import wait_for

STATUS = ["稼動状況区分", "稼動状況区分名称", "btn_画面クリア"]
MARKS = ["btn_複数選択", "btn_選択クリア", "btn_戻る"]
STAFF_SEARCH = [
    "コード", "カナ", "名称", "部門コード", "セクションコード", "在籍区分", "在籍区分名称", "社員区分", "社員区分名称",
    "btn_複合検索", "btn_否定検索", "btn_画面クリア",
]  # fmt: skip

WINDOWS = [
    ("btn_部門個別選択", "部門選択一覧", ["List部門", *STATUS, *MARKS]),
    ("btn_セクション個別選択", "セクション選択一覧", ["Listセクション", *STATUS, *MARKS]),
    ("btn_役職個別選択", "役職選択一覧", ["List役職", *MARKS]),
    ("btn_担当者個別選択", "担当者選択一覧", [*STAFF_SEARCH, "List担当者", "btn_全て選択", *MARKS]),
]


class Pick(InquiryCase):
    def test_every_stop_has_a_name_forward_and_back(self):
        for button, title, stops in WINDOWS:
            with self.subTest(title), self.over(button, "space", title) as window:
                self.assert_chain(window, stops)

    def test_mark_of_a_row_is_told_when_a_key_sets_it(self):
        with self.over("btn_役職個別選択", "space", "役職選択一覧") as window:
            self.go_to(window, "List役職")
            cell = tree.named(window, "10", "table cell")
            self.assertFalse(tree.has(cell, pyatspi.STATE_CHECKED))
            self.screen.key("Home", "space")
            wait_for("the mark", lambda: tree.has(cell, pyatspi.STATE_CHECKED))
            self.screen.key("space")
            wait_for("the mark taken back", lambda: not tree.has(cell, pyatspi.STATE_CHECKED))
