"""The windows for several search values, opened by the head's buttons."""

import tree
from case import InquiryCase
from desk import wait_for

WINDOWS = [
    ("btn_名称複数指定", "担当者名"),
    ("btn_カナ複数指定", "担当者カナ"),
    ("btn_住所複数指定", "担当者住所"),
    ("btn_電話複数指定", "担当者電話"),
    ("btn_郵便番号複数指定", "担当者郵便番号"),
]
ROWS = 10
COMMANDS = ["chb_絞込み", "btn_画面クリア", "btn_戻る"]


class Values(InquiryCase):
    def test_every_stop_has_a_name_and_its_row_forward_and_back(self):
        for button, item in WINDOWS:
            with self.subTest(item), self.over(button, "space", item + "複数指定") as window:
                stops = self.assert_chain(window, [item] * ROWS + COMMANDS)
                self.assertEqual([stop.description for stop in stops[:ROWS]], [str(row + 1) for row in range(ROWS)])

    def test_given_values_take_the_item_of_the_head_out_of_the_chain(self):
        with self.over("btn_電話複数指定", "space", "担当者電話複数指定") as window:
            self.screen.type("03")
            first = tree.named(window, "担当者電話", "text")
            wait_for("the value", lambda: tree.text_of(first) == "03")
        self.addCleanup(self.clear)
        names = [stop.name for stop in self.walk(self.main, "Tab")]
        self.assertNotIn("検索電話", names)
        self.assertIn("検索郵便番号", names)

    def clear(self):
        with self.over("btn_電話複数指定", "space", "担当者電話複数指定") as window:
            self.go_to(window, "btn_画面クリア")
            self.screen.key("space")
            first = tree.named(window, "担当者電話", "text")
            wait_for("the empty row", lambda: tree.text_of(first) == "")
