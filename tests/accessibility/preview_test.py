"""The preview of the report host."""

import tree
from case import InquiryCase
from desk import wait_for

TITLE = "要員名簿照会 - プレビュ"
QUESTION = "要員名簿照会"


class Preview(InquiryCase):
    def test_every_stop_has_a_name_forward_and_back(self):
        self.go_to(self.main, "btn_プレビュ")
        self.screen.key("space")
        question = self.open(QUESTION)
        print([(n.getRoleName(), n.name) for n in tree.nodes(question)])
        print([tuple(s) for s in self.walk(question, "Tab")])
        self.screen.key("Return")
        wait_for("x", lambda: not tree.shows(question))
        window = self.open(TITLE)
        for n in tree.nodes(window):
            print(n.getRoleName(), n.name, n.description, tree.has_focus(n))
        print(tree.stop(tree.focused(window)))
        print(tree.stop(self.press("Tab", tree.focused(window))))
