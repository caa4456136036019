"""The main window: tab stops, rows, a search."""

import re

import tree
from case import InquiryCase
from desk import Notifications, wait_for
from sample import STAFF

HEAD = [
    "検索名称", "検索カナ", "検索住所", "検索電話", "検索郵便番号",
    "在籍区分", "在籍区分名称", "社員区分", "社員区分名称",
    "開始部門コード", "終了部門コード", "開始セクションコード", "終了セクションコード",
    "開始役職コード", "終了役職コード", "開始担当者コード", "終了担当者コード",
    "表示順区分", "表示順区分名称", "btn_集計検索", "btn_画面クリア",
    "btn_名称複数指定", "btn_カナ複数指定", "btn_住所複数指定", "btn_電話複数指定", "btn_郵便番号複数指定",
    "btn_部門個別選択", "btn_セクション個別選択", "btn_役職個別選択", "btn_担当者個別選択", "ヘッド終了",
]  # fmt: skip
LIST_PAGES = ["所属情報"]  # the tab strip is named after its current page
OUTPUT = ["btn_印刷", "btn_プレビュ", "btn_テキスト出力", "btn_封筒", "btn_はがき", "btn_宛名ラベル"]
END = ["btn_終了"]

# First row in the initial order, which is by department.
FIRST = {"行No": "1", "担当者コード": "00001", "担当者名": "原　光男", "カナ": "ﾊﾗ ﾐﾂｵ", "部門名": "総務部", "役職名": "部長"}
FOUND = {"行No": "1", "担当者コード": "00014", "担当者名": "Takeda Ren", "カナ": "ﾓﾘﾀ ﾕﾀｶ", "部門名": "総務部"}


class MainForm(InquiryCase):
    @classmethod
    def prepare(cls, sample):
        # An ASCII name, which can be typed on every keyboard.
        sample.run(STAFF, "UPDATE M担当者 SET 氏名 = 'Takeda Ren' WHERE コード = '00014'")

    def assert_first_row(self, row):
        for item, text in row.items():
            self.assertEqual(self.rows.texts(item)[0], text, item)

    def search(self, name):
        self.enter(self.main, "検索名称", name)
        self.go_to(self.main, "btn_集計検索")
        self.screen.key("space")

    def test_every_stop_has_a_name_forward_and_back(self):
        self.go_to(self.main, "検索名称")
        self.assert_chain(self.main, HEAD + LIST_PAGES + OUTPUT + END)

    def test_first_row_is_read_item_by_item_and_as_a_line(self):
        self.assert_first_row(FIRST)
        lines = self.rows.lines("bak_dtla")
        self.assertEqual(len(lines), 8)
        self.assertRegex(lines[0], "^00001 性別 男 .*原　光男 ﾊﾗ ﾐﾂｵ$")
        self.assertTrue(self.rows.lines("bak_dtlb")[0].startswith("全社 部長 生年月日 "))

    def test_search_by_name_changes_the_rows_that_are_read(self):
        self.search("takeda")
        self.addCleanup(self.search_all)
        found = wait_for("the one row", lambda: self.codes(1))
        self.assertEqual(found, ["00014"])
        self.assert_first_row(FOUND)
        self.assertEqual(self.rows.lines("bak_dtla")[1], "性別")

    def codes(self, count):
        """The codes in the list if there are `count`, otherwise None."""
        found = [code for code in self.rows.texts("担当者コード") if code]
        return found if len(found) == count else None

    def search_all(self):
        self.search("")
        wait_for("all rows", lambda: self.codes(8))

    def test_outputs_are_no_stops_without_rows(self):
        self.search("nobody")
        self.addCleanup(self.search_all)
        wait_for("the empty list", lambda: not any(self.rows.texts("担当者コード")))
        wait_for("the focus after the search", lambda: self.focused(self.main))
        self.go_to(self.main, "検索名称")
        self.assert_chain(self.main, HEAD + LIST_PAGES + END)

    def test_status_line_is_announced_when_it_changes(self):
        heard = Notifications()
        self.addCleanup(heard.close)
        self.search("nobody")
        self.addCleanup(self.search_all)
        wait_for("the announcement", lambda: "該当する要員はいません。" in heard.texts)
        self.search_all()
        wait_for("the counts", lambda: re.fullmatch(r"(\d+) 件　印 \1 件", heard.texts[-1]))

    def test_entry_of_a_list_is_told_when_it_changes(self):
        self.go_to(self.main, "在籍区分")
        kind = tree.named(self.main, "在籍区分名称")
        self.assertEqual(kind.description, "在籍")
        self.screen.key("Up")
        wait_for("the next entry", lambda: kind.description == "退職")
        self.screen.key("Down")
        wait_for("the entry before", lambda: kind.description == "在籍")
