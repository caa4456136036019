"""PINs: the sign-in dialog, and the PIN column of the list."""

import tree
from case import InquiryCase
from desk import wait_for
from sample import CONFIGURATION, STAFF

PIN_DIALOG = "販路推進データ管理/暗証確認"
MESSAGE = "要員名簿照会"


class ColumnOfPins(InquiryCase):
    def test_pins_are_read_where_they_are_shown_and_nowhere_else(self):
        shown = self.rows.texts("暗証番号")
        self.assertEqual([len(pin) >= 4 for pin in shown], [True] * 8)
        self.assertIn(shown[0], self.rows.lines("bak_dtla")[0])
        self.sample.run(CONFIGURATION, "UPDATE 動作環境定義 SET 起動担当者コード = ''")
        self.restart()
        self.assertEqual(self.rows.texts("担当者コード")[0], "00001")
        self.assertEqual(self.rows.texts("暗証番号"), [])
        texts = list(tree.all_texts(self.main))
        self.assertGreater(len(texts), 1000)
        for pin in shown:
            self.assertEqual([text for text in texts if pin in text], [])


class PinDialog(InquiryCase):
    options = ("--pin",)
    person = "00002"

    @classmethod
    def prepare(cls, sample):
        # A person without the right to see PINs.
        sample.run(STAFF, "UPDATE M担当者 SET 処理分類9操作許可 = '1' WHERE コード = ?", cls.person)

    @classmethod
    def reach_main_window(cls):
        cls.dialog = cls.open(PIN_DIALOG)
        # Code, login, PIN and rights, as the set-up tool prints them for the administrator.
        lines = [line.split() for line in cls.sample.told.splitlines() if line.lstrip().startswith("0000")]
        cls.pins = {line[0]: line[2] for line in lines}

    def test_dialog_is_worked_by_keys_and_no_pin_is_told(self):
        self.walk_the_dialog()
        self.refuse_a_wrong_pin()
        self.sign_in()

    def walk_the_dialog(self):
        """The tab order ends at the PIN: leaving it confirms the dialog."""
        code = self.go_to(self.dialog, "担当者コード")
        cancel = self.press("shift+Tab", code)
        self.assertEqual(tree.stop(cancel)[:2], ("btn_キャンセル", "push button"))
        self.assertEqual(self.press("Tab", cancel), code)
        self.screen.type("2")
        wait_for("the code", lambda: tree.text_of(code) == "2")
        pin = self.press("Tab", code)
        self.assertEqual(tree.stop(pin)[:2], ("暗証番号", "password text"))
        self.assertEqual(tree.text_of(code), self.person)
        self.assertIn("　", tree.text_of(tree.named(self.dialog, "担当者名", "text")))

    def enter_pin(self, pin):
        item = tree.named(self.dialog, "暗証番号", "password text")
        self.screen.key("Home", "shift+End", "Delete")
        self.screen.type(pin)
        wait_for("the caret behind the PIN", lambda: item.queryText().caretOffset == len(pin))
        texts = list(tree.all_texts(self.dialog))
        self.assertGreater(len(texts), 20)
        self.assertEqual([text for text in texts if pin.lower() in text.lower()], [])
        self.screen.key("Tab")

    def refuse_a_wrong_pin(self):
        self.enter_pin("zk7q4w")
        message = self.open(MESSAGE)
        self.assertIsNotNone(tree.named(message, "暗証番号が違います。"))
        self.assertEqual(tree.focused(tree.nodes(message)).name, "OK")
        self.screen.key("Return")
        wait_for("the end of the message", lambda: not tree.shows(message))
        self.screen.focus(PIN_DIALOG)
        wait_for("the PIN again", lambda: self.focused(self.dialog).name == "暗証番号")

    def sign_in(self):
        self.assertEqual(len(self.pins), 4)
        self.enter_pin(self.pins[self.person])
        super().reach_main_window()
        self.assertEqual(self.rows.texts("暗証番号"), [])
        texts = list(tree.all_texts(self.main))
        for pin in self.pins.values():
            self.assertEqual([text for text in texts if pin in text], [])
