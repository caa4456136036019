"""Takes a picture of the whole screen with every window, for `scripts/screenshots FOLDER`.

Not a test: discovery finds *_test.py only. PICTURES is the folder, PICTURE_SCREEN the size of the display.
"""

import os
import sqlite3
import subprocess

import tree
from case import InquiryCase
from desk import wait_for
from sample import CONFIGURATION, STAFF

LOOKUPS = [
    ("開始部門コード", "部門一覧"),
    ("開始セクションコード", "セクション一覧"),
    ("開始役職コード", "役職一覧"),
    ("開始担当者コード", "担当者一覧"),
]
SELECTIONS = [
    ("btn_部門個別選択", "部門選択一覧"),
    ("btn_セクション個別選択", "セクション選択一覧"),
    ("btn_役職個別選択", "役職選択一覧"),
    ("btn_担当者個別選択", "担当者選択一覧"),
]
VALUES = [("btn_名称複数指定", "担当者名複数指定"), ("btn_郵便番号複数指定", "担当者郵便番号複数指定")]
PAGES = ("所属情報", "基本情報", "その他")
REGISTRATION = "要員台帳更新"
PREVIEW = "要員名簿照会 - プレビュ"
SAVE = "名前を付けて保存"
MESSAGE = "要員名簿照会"
# Without a window manager the preview maximises itself a little later.
FIND_PREVIEW = ("search", "--onlyvisible", "--name", f"^{PREVIEW}$", "getwindowgeometry")
PIN_DIALOG = "販路推進データ管理/暗証確認"


class PictureCase(InquiryCase):
    size = os.environ["PICTURE_SCREEN"] + "x24"
    number = 0

    def take(self, name):
        """Saves the screen once it no longer changes, with the window's name after a running number."""
        PictureCase.number += 1
        file = f"{os.environ['PICTURES']}/{PictureCase.number:02}-{name}.png"
        self.screen.work("mousemove", "0", "0")
        pictures = []

        def stable():
            subprocess.run(["import", "-window", "root", file], check=True)
            with open(file, "rb") as picture:
                pictures.append(picture.read())
            return pictures[-2:-1] == pictures[-1:]

        wait_for(f"a picture of {name}", stable)

    def close(self, window, title):
        self.screen.key("Escape")
        wait_for(f"the end of {title}", lambda: not tree.shows(window))
        self.return_to_main()


class EveryWindow(PictureCase):
    def test_1_main_window_and_its_pages(self):
        for page in PAGES:
            self.go_to(self.main, page)  # the strip is named after its page
            self.take("main-" + page)
            self.screen.key("Right")
        self.screen.key("Left", "Left")

    def test_2_lookups_and_selections(self):
        for stop, title in LOOKUPS:
            with self.over(stop, "ctrl", title):
                self.take(title)
        for button, title in SELECTIONS:
            with self.over(button, "space", title) as window:
                self.go_to(window, "List" + title.removesuffix("選択一覧"))
                self.screen.key("Home", "space", "Down", "Down", "space")
                self.take(title)
                self.screen.key("space", "Up", "Up", "space")

    def test_3_value_windows(self):
        for button, title in VALUES:
            with self.over(button, "space", title):
                self.take(title)

    def test_4_question_preview_and_save_dialog(self):
        self.go_to(self.main, "btn_プレビュ")
        self.screen.key("space")
        self.open(MESSAGE)
        self.take("question")
        self.screen.key("Return")
        preview = self.open(PREVIEW)
        width = self.size.split("x")[0]
        wait_for("the full screen", lambda: f"Geometry: {width}x" in self.screen.work(*FIND_PREVIEW))
        self.take("preview")
        self.close(preview, PREVIEW)
        self.go_to(self.main, "btn_テキスト出力")
        self.screen.key("space")
        dialog = self.open(SAVE)
        self.take("save-dialog")
        self.close(dialog, SAVE)

    def test_5_registration(self):
        self.screen.click(self.rows.item("担当者名"))
        form = self.open(REGISTRATION)
        self.take("registration")
        self.go_to(form, "btn_終了")
        self.screen.key("space")
        wait_for("the end of the registration", lambda: self.find(REGISTRATION) is None)
        self.return_to_main()

    def test_6_wait_dialog(self):
        """The dialog stays while another program has the database for itself."""
        other = sqlite3.connect(f"{self.sample.root}/{STAFF}", isolation_level=None)
        other.execute("BEGIN EXCLUSIVE")
        self.go_to(self.main, "btn_集計検索")
        self.screen.key("space")
        wait_for("the wait dialog", lambda: self.screen.work("search", "--onlyvisible", "--name", f"^{MESSAGE}$"))
        self.take("wait")
        other.execute("ROLLBACK")
        other.close()
        wait_for("the list", lambda: self.rows.texts("担当者コード")[0])

    def test_7_main_window_without_a_list(self):
        self.go_to(self.main, "btn_画面クリア")
        self.screen.key("space")
        wait_for("an empty list", lambda: not self.rows.texts("担当者コード")[0])
        self.take("main-empty")


class PinDialog(PictureCase):
    options = ("--pin",)

    @classmethod
    def prepare(cls, sample):
        sample.run(CONFIGURATION, "UPDATE 動作環境定義 SET 起動担当者コード = ''")

    @classmethod
    def reach_main_window(cls):
        cls.dialog = cls.open(PIN_DIALOG)

    def test_dialog(self):
        self.go_to(self.dialog, "担当者コード")
        self.screen.key("2", "Tab")
        self.screen.type("zk7q")
        self.take("pin-dialog")
