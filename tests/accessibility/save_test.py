"""The dialog that asks for the text file's name."""

import tree
from case import InquiryCase
from desk import wait_for

TITLE = "名前を付けて保存"
FILE = ["ファイル名(N):", "ファイルの種類", "保存(S)", "キャンセル"]
FOLDER = ["アドレス", "戻る", "親ディレクトリ", "新しいフォルダの作成", "一覧表示", "詳細表示", "サイドバー", "ファイル"]


class SaveDialog(InquiryCase):
    def test_every_stop_has_a_name_forward_and_back(self):
        self.go_to(self.main, "btn_テキスト出力")
        self.screen.key("space")
        dialog = self.open(TITLE)
        self.assert_chain(dialog, FILE + FOLDER)
        self.screen.key("Escape")
        wait_for(f"the end of {TITLE}", lambda: not tree.shows(dialog))
