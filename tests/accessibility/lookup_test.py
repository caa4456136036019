"""The lookups that Ctrl opens in the range items of the main window's head."""

import pyatspi

import tree
from case import InquiryCase
from desk import wait_for
from sample import STAFF

STATUS = ["稼動状況区分", "稼動状況区分名称", "btn_画面クリア"]
BACK = ["btn_戻る"]
# Search buttons of empty items are not tab stops.
STAFF_SEARCH = [
    "コード", "カナ", "名称", "部門コード", "セクションコード", "在籍区分", "在籍区分名称", "社員区分", "社員区分名称",
    "btn_複合検索", "btn_否定検索", "btn_コード検索", "btn_画面クリア",
]  # fmt: skip

# Head item, title of its lookup, tab stops, table that provides the first rows.
MASTERS = [
    ("開始部門コード", "部門一覧", ["List部門", *STATUS, *BACK], "M部門"),
    ("開始セクションコード", "セクション一覧", ["Listセクション", *STATUS, *BACK], "Mセクション"),
    ("開始役職コード", "役職一覧", ["List役職", *BACK], "M役職"),
]


class Lookup(InquiryCase):
    @classmethod
    def prepare(cls, sample):
        sample.run(STAFF, "UPDATE M担当者 SET 氏名 = 'Takeda Ren' WHERE コード = '00014'")

    def test_masters_have_named_stops_and_rows_that_are_read(self):
        for item, title, stops, table in MASTERS:
            with self.subTest(title), self.over(item, "Control_L", title) as window:
                self.assert_chain(window, stops)
                first = self.sample.run(STAFF, f"SELECT コード, 名称 FROM {table} ORDER BY コード LIMIT 3")
                self.assertEqual(tree.cells(window, 2)[:3], first)

    def test_staff_have_named_stops_and_rows_change_with_a_search_by_name(self):
        with self.over("開始担当者コード", "Control_L", "担当者一覧") as window:
            self.assert_chain(window, [*STAFF_SEARCH, "List担当者", *BACK])
            self.assertGreater(len(tree.cells(window, 5)), 10)
            self.enter(window, "名称", "takeda")
            self.go_to(window, "btn_複合検索")
            self.screen.key("space")
            rows = wait_for("the one row", lambda: self.only_row(window))
            self.assertEqual(rows[0][:1], ("00014",))
            self.assertIn("Takeda Ren", rows[0])

    @staticmethod
    def only_row(window):
        rows = tree.cells(window, 5)
        return rows if len(rows) == 1 else None

    def test_row_that_the_keys_select_is_told_and_comes_back_with_enter(self):
        self.addCleanup(self.enter, self.main, "開始役職コード", "00")
        with self.over("開始役職コード", "Control_L", "役職一覧") as window:
            self.go_to(window, "List役職")
            self.screen.key("Down")
            cell = tree.named(window, "10", "table cell")
            wait_for("the selected row", lambda: tree.has(cell, pyatspi.STATE_SELECTED))
            self.screen.key("Return")
            wait_for("the end of the lookup", lambda: not tree.shows(window))
        self.assertEqual(tree.text_of(tree.named(self.main, "開始役職コード")), "10")
