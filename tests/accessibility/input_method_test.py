"""A clerk with a Japanese input method that stays switched on: main window and registration program."""

import pyatspi

import tree
from case import InquiryCase
from desk import NotSeen, wait_for
from input_method import InputMethod
from sample import STAFF

REGISTRATION = "要員台帳更新"
PERSON = "00001"  # of the first row

# Item, keys, and the text that the item then shows and the database gets. A blank converts, Return commits.
HEAD = [
    ("検索カナ", ["yamada", "Return"], "ﾔﾏﾀﾞ"),
    ("検索電話", ["03-1234"], "03-1234"),
    ("検索郵便番号", ["110-0005"], "110-0005"),
    ("検索住所", ["ueno", "Return"], "うえの"),
    ("在籍区分", ["1"], "1"),
    ("社員区分", ["2"], "2"),
    ("開始部門コード", ["010"], "010"),
    ("終了部門コード", ["020"], "020"),
    ("開始セクションコード", ["011"], "011"),
    ("終了セクションコード", ["099"], "099"),
    ("開始役職コード", ["10"], "10"),
    ("終了役職コード", ["90"], "90"),
    ("開始担当者コード", ["00001"], "00001"),
    ("終了担当者コード", ["00050"], "00050"),
    ("表示順区分", ["3"], "3"),
]
RECORD = [
    ("氏名", ["yamada", "space", "Return"], "山田"),
    ("カナ", ["yamada", "Return", "space", "tarou", "Return"], "ﾔﾏﾀﾞ ﾀﾛｳ"),
    ("性別区分", ["1"], "1"),
    ("郵便番号", ["110-0005"], "110-0005"),
    ("住所A", ["ueno", "Return", "1-2", "Return"], "うえの1ー2"),
    ("住所B", ["biru", "F7", "Return"], "ビル"),
    ("住所C", ["aoi", "Return"], "あおい"),
    ("電話", ["03-5555-0100"], "03-5555-0100"),
    ("携帯電話", ["090(1234)5678"], "090(1234)5678"),
    ("EMAIL", ["taro.yamada@example.jp"], "taro.yamada@example.jp"),
    ("事業所コード", ["001"], "001"),
    ("部門コード", ["020"], "020"),
    ("セクションコード", ["011"], "011"),
    ("役職コード", ["30"], "30"),
    ("在籍区分", ["0"], "0"),
    ("社員区分", ["1"], "1"),
    ("生年月日", ["19650403"], "19650403"),
    ("入社日付", ["19890401"], "19890401"),
    ("退社日付", ["20260331"], "20260331"),
    ("担当者メモ", ["memo", "Return"], "めも"),
]
VALUES = [
    ("btn_名称複数指定", "担当者名", ["yamada", "space", "Return"], "山田"),
    ("btn_カナ複数指定", "担当者カナ", ["yamada", "Return"], "ﾔﾏﾀﾞ"),
    ("btn_住所複数指定", "担当者住所", ["ueno", "Return"], "うえの"),
    ("btn_電話複数指定", "担当者電話", ["03-1234"], "03-1234"),
    ("btn_郵便番号複数指定", "担当者郵便番号", ["110-0005"], "110-0005"),
]
LOOKUP = [
    ("コード", ["00014"], "00014"),
    ("カナ", ["yamada", "Return"], "ﾔﾏﾀﾞ"),
    ("名称", ["yamada", "space", "Return"], "山田"),
    ("部門コード", ["010"], "010"),
]
KEYS = {"Return", "space", "F7"}


class WithInputMethod(InquiryCase):
    @classmethod
    def start(cls):
        # The input method needs the display, and the program needs the input method.
        cls.input_method = InputMethod()
        cls.addClassCleanup(cls.input_method.close)
        super().start()

    @classmethod
    def reach_main_window(cls):
        super().reach_main_window()
        cls.go_to(cls(), cls.main, "検索名称")
        cls.input_method.switch_on()

    def compose(self, keys):
        for key in keys:
            if key in KEYS:
                self.screen.key(key)
            else:
                self.screen.type(key)

    def fill(self, window, name, keys, expected):
        """Replaces the text of an item with the input method switched on."""
        item = self.go_to(window, name)
        self.screen.key("Home", "shift+End", "Delete")
        self.compose(keys)
        self.wait_for_text(item, expected)
        self.assertTrue(tree.has_focus(item), name)
        return item

    def wait_for_text(self, item, expected):
        try:
            wait_for(expected, lambda: tree.text_of(item) == expected)
        except NotSeen:
            self.assertEqual(tree.text_of(item), expected, item.name)

    def move_by_click(self, item):
        self.screen.click(item)
        wait_for("the focus", lambda: tree.has_focus(item))

    def wait_for_input_method(self, before):
        """Waits for a new window to use the input method; `before`: the windows that used it."""
        wait_for("the input method of the window", lambda: self.input_method.windows() - before)

    def test_head_takes_every_key_and_enter_that_commits_does_nothing_else(self):
        rows = [self.rows.texts("担当者コード"), self.rows.texts("行No")]
        self.fill(self.main, "検索名称", ["yamada", "space", "Return"], "山田")
        self.assertEqual(self.focused(self.main).name, "検索名称")
        for name, keys, expected in HEAD:
            with self.subTest(name):
                self.fill(self.main, name, keys, expected)
        kind = tree.named(self.main, "在籍区分名称")
        self.assertEqual((tree.text_of(tree.named(self.main, "在籍区分", "text")), kind.description), ("1", "退職"))
        self.assertEqual([self.rows.texts("担当者コード"), self.rows.texts("行No")], rows, "no search was started")
        self.screen.key("Tab")
        for name, _, expected in HEAD:
            self.assertEqual(tree.text_of(tree.named(self.main, name, "text")), expected, name)
        self.go_to(self.main, "btn_画面クリア")
        self.screen.key("space")
        wait_for("the empty head", lambda: tree.text_of(tree.named(self.main, "検索郵便番号", "text")) == "")
        self.go_to(self.main, "btn_集計検索")
        self.screen.key("space")
        wait_for("the list again", lambda: self.rows.texts("担当者コード")[0])

    def test_conversion_that_runs_is_committed_into_its_own_item(self):
        name = self.go_to(self.main, "検索名称")
        telephone = tree.named(self.main, "検索電話", "text")
        self.compose(["kawa"])
        self.move_by_click(telephone)
        self.wait_for_text(name, "かわ")
        self.compose(["03-12"])
        self.wait_for_text(telephone, "03-12")
        self.move_by_click(name)
        self.compose(["ka", "Return"])
        self.wait_for_text(name, "か")
        self.assertEqual(tree.text_of(telephone), "03-12")
        self.fill(self.main, "検索電話", [], "")
        self.fill(self.main, "検索名称", [], "")

    def test_candidates_are_shown_at_the_caret(self):
        for name in ("検索名称", "検索住所"):
            item = self.go_to(self.main, name)
            self.compose(["aoi", "space", "space"])
            left, top, _, _ = wait_for("the candidates", self.input_method.candidates)
            place = item.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
            self.assertLessEqual(abs(left - place.x), 20, name)
            self.assertLessEqual(abs(top - (place.y + place.height)), 10, name)
            self.screen.key("Escape", "Escape", "Escape")
            wait_for("the end of the candidates", lambda: not self.input_method.candidates())
            self.fill(self.main, name, [], "")

    def test_windows_for_several_values_take_what_they_are_for(self):
        for button, item, keys, expected in VALUES:
            before = self.input_method.windows()
            with self.subTest(item), self.over(button, "space", item + "複数指定") as window:
                first = tree.named(window, item, "text")
                if "Return" in keys:
                    self.wait_for_input_method(before)
                self.compose(keys)
                self.wait_for_text(first, expected)
                self.assertTrue(tree.has_focus(first))
                self.go_to(window, "btn_画面クリア")
                self.screen.key("space")
                wait_for("the empty row", lambda: tree.text_of(first) == "")

    def test_staff_are_looked_up_by_what_is_committed(self):
        before = self.input_method.windows()
        with self.over("開始担当者コード", "Control_L", "担当者一覧") as window:
            self.go_to(window, "カナ")
            self.wait_for_input_method(before)
            for name, keys, expected in LOOKUP:
                self.fill(window, name, keys, expected)
                self.fill(window, name, [], "")

    def test_every_item_of_the_registration_is_stored_as_it_was_typed(self):
        before = self.input_method.windows()
        self.screen.click(self.rows.item("担当者名"))
        form = self.open(REGISTRATION)
        self.wait_for_input_method(before)
        for name, keys, expected in RECORD:
            with self.subTest(name):
                self.fill(form, name, keys, expected)
        self.go_to(form, "btn_保存")
        self.screen.key("space")
        wait_for("the end of the registration", lambda: self.find(REGISTRATION) is None)
        self.return_to_main()
        columns = [name for name, _, _ in RECORD]
        stored = self.sample.run(STAFF, f"SELECT {', '.join(columns)} FROM M担当者 WHERE コード = ?", PERSON)
        self.assertEqual(dict(zip(columns, stored[0])), {name: expected for name, _, expected in RECORD})
        wait_for("the changed row", lambda: self.rows.texts("担当者名")[0] == "山田")
