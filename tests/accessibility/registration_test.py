"""The registration program, opened by a click on a row."""

import pyatspi
import tree
from case import InquiryCase
from desk import wait_for

STOPS = [
    "氏名", "カナ", "性別区分", "郵便番号", "住所A", "住所B", "住所C", "電話", "携帯電話", "EMAIL",
    "事業所コード", "部門コード", "セクションコード", "役職コード", "在籍区分", "社員区分",
    "生年月日", "入社日付", "退社日付", "担当者メモ", "btn_保存", "btn_削除", "btn_終了",
]  # fmt: skip
TITLE = "要員台帳更新"
# Parts of lists and tabs, which follow the control around them.
ENTRIES = (pyatspi.ROLE_LIST_ITEM, pyatspi.ROLE_PAGE_TAB)


class RegistrationCase(InquiryCase):
    def open_first_row(self):
        self.screen.click(self.rows.item("担当者名"))
        return self.open(TITLE)

    def finish(self, form):
        self.go_to(form, "btn_終了")
        self.screen.key("space")
        wait_for("the end of the registration", lambda: self.find(TITLE) is None)
        self.return_to_main()


class LargeScreen(RegistrationCase):
    size = "1920x1080x24"

    def test_row_is_where_the_tree_says_although_windows_are_scaled(self):
        self.finish(self.open_first_row())


class Registration(RegistrationCase):
    def test_every_stop_has_a_name_forward_and_back(self):
        form = self.open_first_row()
        self.assert_chain(form, STOPS)
        self.finish(form)

    def test_list_is_reported_as_disabled_meanwhile(self):
        changed = []
        hear = lambda event: changed.append((event.source.name, event.detail1))
        pyatspi.Registry.registerEventListener(hear, "object:state-changed:sensitive")
        form = self.open_first_row()
        controls = [stop for stop in self.rows.stops if stop.getRole() not in ENTRIES and tree.shows(stop)]
        wait_for("a disabled form", lambda: (self.main.name, 0) in changed)
        for control in [self.main, self.rows.item("担当者名"), *controls]:
            self.assertFalse(tree.has(control, pyatspi.STATE_SENSITIVE), control)
        self.finish(form)
        wait_for("an enabled form", lambda: (self.main.name, 1) in changed)
        pyatspi.Registry.deregisterEventListener(hear, "object:state-changed:sensitive")
        for control in [self.main, self.rows.item("担当者名"), tree.named(self.main, "検索名称")]:
            self.assertTrue(tree.has(control, pyatspi.STATE_SENSITIVE), control)

    def answer(self, form, text, buttons, answer):
        """Checks the text and the buttons, from the default one on, of the active message or question, and closes it."""
        message = self.open(TITLE, beside=form)
        self.assertIsNotNone(tree.named(message, text))
        if len(buttons) > 1:
            self.assert_chain(message, buttons)
            self.go_to(message, answer)
        self.assertEqual(self.focused(message).name, answer)
        self.screen.key("space")
        wait_for(f"the end of {text}", lambda: not tree.shows(message))

    def test_refused_value_is_told_and_leads_back_to_its_item(self):
        form = self.open_first_row()
        name = tree.text_of(self.go_to(form, "氏名"))
        self.enter(form, "氏名", "")
        self.go_to(form, "btn_保存")
        self.screen.key("space")
        self.answer(form, "氏名を入力してください。", ["OK"], "OK")
        self.screen.focus(TITLE)
        wait_for("the item again", lambda: self.focused(form).name == "氏名")
        self.go_to(form, "btn_終了")
        self.screen.key("space")
        self.answer(form, "修正が保存されていません。終了しますか?", ["いいえ", "はい"], "はい")
        wait_for("the end of the registration", lambda: self.find(TITLE) is None)
        self.return_to_main()
        self.assertEqual(self.rows.texts("担当者名")[0], name)

    def test_question_before_a_removal_is_told_and_no_keeps_the_person(self):
        form = self.open_first_row()
        name = tree.text_of(self.go_to(form, "氏名"))
        self.go_to(form, "btn_削除")
        self.screen.key("space")
        self.answer(form, f"担当者コード 00001 {name} を削除しますか?", ["いいえ", "はい"], "いいえ")
        self.screen.focus(TITLE)
        wait_for("the button again", lambda: self.focused(form).name == "btn_削除")
        self.finish(form)
        self.assertEqual(self.rows.texts("担当者コード")[0], "00001")

    def test_what_is_changed_there_is_read_in_the_list(self):
        form = self.open_first_row()
        self.enter(form, "氏名", "Takeda Ren")
        self.go_to(form, "btn_保存")
        self.screen.key("space")
        wait_for("the changed row", lambda: self.rows.texts("担当者名")[0] == "Takeda Ren")
