"""PINs: the dialog that asks for one, and the list's column of them."""

import tree
from case import TITLE, InquiryCase
from desk import wait_for
from sample import CONFIGURATION

ASKED = "ZK7Q4W"
DIALOG = "要員名簿照会 暗証確認"


def pins_of(window):
    return [pin for pin in tree.items(window, "暗証番号") if pin]


class ColumnOfPins(InquiryCase):
    def test_pins_are_read_by_whom_they_are_shown_and_by_nobody_else(self):
        shown = pins_of(self.main)
        self.assertEqual(len(shown), 8)
        self.sample.run(CONFIGURATION, "UPDATE 動作環境定義 SET 起動担当者コード = ''")
        self.restart()
        self.assertEqual(tree.items(self.main, "担当者コード")[0], "00001")
        texts = list(tree.all_texts(self.main))
        self.assertGreater(len(texts), 1000)
        for pin in shown:
            self.assertEqual([text for text in texts if pin in text], [])
