"""The question before an output, and the report host's preview."""

import tree
from case import InquiryCase
from desk import wait_for

QUESTION = "要員名簿照会"
PREVIEW = "要員名簿照会 - プレビュ"
VIEW = ["プレビュ"]
OUTPUT = ["印刷", "PDFに保存"]
BACKWARD = ["先頭", "前ページ"]
FORWARD = ["次ページ", "最後"]
ZOOM = ["縮小", "倍率", "拡大"]


class Preview(InquiryCase):
    def test_every_stop_has_a_name_forward_and_back_and_pages_are_turned_by_keys(self):
        self.go_to(self.main, "btn_プレビュ")
        self.screen.key("space")
        question = self.open(QUESTION)
        self.assertIsNotNone(tree.named(question, "プレビュしますか?"))
        self.assert_chain(question, ["はい", "いいえ"])
        self.screen.key("Return")
        preview = self.open(PREVIEW)
        self.assert_chain(preview, VIEW + OUTPUT + ["ページ"] + FORWARD + ZOOM + ["閉じる"])
        self.turn_the_page(preview)
        self.step_the_zoom(preview)
        self.screen.key("Escape")
        wait_for("the end of the preview", lambda: not tree.shows(preview))

    def turn_the_page(self, preview):
        page = tree.named(preview, "ページ", "spin button")
        self.go_to(preview, "次ページ")
        self.screen.key("space")
        wait_for("the second page", lambda: page.queryValue().currentValue == 2)
        names = [stop.name for stop in self.walk(preview, "Tab")]
        self.assertEqual([name for name in names if name in BACKWARD], BACKWARD)

    def step_the_zoom(self, preview):
        """A zoom factor that is not in its list is announced, too."""
        zoom = tree.named(preview, "倍率", "combo box")
        self.assertEqual(zoom.description, "ページ全体")
        self.go_to(preview, "拡大")
        self.screen.key("space")
        wait_for("the zoom in per cent", lambda: zoom.description.endswith("%"))
        self.assertEqual(zoom.name, "倍率")
