"""Base of the tests: a clerk at the inquiry whose servers fail."""

import contextlib
import subprocess
import time

import tree
from case import InquiryCase
from desk import FocusWatch, Screen, wait_for
from office import INQUIRY, REGISTRATION, Office, cluster
from places import press_button, windows, words

NEXT_START = 2  # seconds until the first list after a failure
END = 5  # seconds that a program may take to end
NO_DATABASE = "データベースが使用できません。"


class ClusterCase(InquiryCase):
    """Each class has an office, each test a running inquiry with its first list and a whole cluster."""

    engine, purpose = None, "write"

    @classmethod
    def setUpClass(cls):
        cls.cluster = cluster()
        cls.repair()
        cls.sample = Office(cls.engine, cls.purpose)
        cls.screen = Screen()
        cls.addClassCleanup(cls.screen.close)
        cls.watch = FocusWatch()
        cls.addClassCleanup(cls.watch.close)

    @classmethod
    def repair(cls):
        cls.cluster.repair(cls.engine)

    @property
    def nodes(self):
        return self.cluster.nodes[self.engine]

    @property
    def balancer(self):
        return self.cluster.balancer

    def setUp(self):
        self.addCleanup(self.repair)
        self.before = len(self.sample.errors())
        self.start()
        self.addCleanup(self.end)
        self.reach_main_window()
        self.people = self.sample.people(self.nodes[0])
        self.first = self.shown()
        self.assert_right_rows()

    @classmethod
    def end(cls):
        """Ends the program as on shutdown. It must follow."""
        if cls.running.poll() is None:
            cls.running.terminate()
            with contextlib.suppress(subprocess.TimeoutExpired):
                cls.running.wait(END)
        hung = cls.running.poll() is None
        cls.running.kill()
        cls.running.wait()
        if hung:
            raise AssertionError("the program did not end")

    def node_in_use(self):
        """The node that serves the suite's only program."""
        used = [node for node in self.nodes if node.sessions()]
        self.assertEqual(len(used), 1, used)
        return used[0]

    def shown(self):
        """The rows in the window: (code, name)."""
        pairs = zip(self.rows.texts("担当者コード"), self.rows.texts("担当者名"), strict=True)
        return [pair for pair in pairs if any(pair)]

    def assert_right_rows(self):
        """No row differs from the person of its code in the database; no test changes a name."""
        for code, name in self.shown():
            self.assertEqual(name, self.people[code][0], code)

    def begin_search(self, name=""):
        self.return_to_main()
        self.enter(self.main, "検索名称", name)
        self.go_to(self.main, "btn_集計検索")
        self.screen.key("space")

    def search(self, name, rows):
        before = self.sample.searches()
        self.begin_search(name)
        wait_for(f"{rows} rows", lambda: self.sample.searches() > before and len(self.shown()) == rows)
        self.assert_right_rows()

    def errors(self):
        """The error rows of this test."""
        return self.sample.errors()[self.before :]

    def await_failed_search(self, errors):
        """Waits for an empty list and `errors` error rows in all, the last of which has the statement."""
        wait_for("the error row", lambda: len(self.errors()) >= errors)
        wait_for("an empty list", lambda: not self.shown())
        found = [text[:120] for text in self.errors()]
        self.assertEqual(len(found), errors, found)
        self.assertIn("SELECT M担当者.*", self.errors()[-1])

    def assert_answers(self):
        """The program still takes keys, and does not recover by itself."""
        errors = len(self.errors())
        self.begin_search("takeda")
        self.await_failed_search(errors + 1)

    def assert_next_start(self):
        """Ends the program and starts it again: the first list is there in time, and as before."""
        self.end()
        errors, searches, began = len(self.errors()), self.sample.searches(), time.monotonic()
        self.start()
        wait_for("the first search", lambda: self.sample.searches() > searches)
        took = time.monotonic() - began
        self.reach_main_window()
        wait_for("the list of before", lambda: self.shown() == self.first)
        self.assert_right_rows()
        self.assertEqual(self.errors()[errors:], [])
        self.assertLess(took, NEXT_START)

    def assert_start_fails(self):
        """A start without a server ends with a message, not later than a start that works."""
        self.end()
        began = time.monotonic()
        self.start()
        box = wait_for("the message", lambda: next(iter(windows(INQUIRY)), None))
        took = time.monotonic() - began
        self.assertEqual(words(box), NO_DATABASE)
        press_button(box, "OK")
        self.running.wait(END)
        self.assertLess(took, NEXT_START)
        self.assertIn("DB_OPEN ERROR", self.errors()[-1])

    def open_row(self, position=0):
        """Clicks a row and returns the form of the registration program."""
        self.screen.click(self.rows.labels["担当者名"][position])
        return self.open(REGISTRATION)

    def press_in(self, form, button):
        self.go_to(form, button)
        self.screen.key("space")

    def answer(self, title, beside=None, button="OK"):
        """Text of the message box with that title, which is closed."""
        box = wait_for("a message", lambda: next((box for box in windows(title, beside) if words(box)), None))
        text = words(box)
        press_button(box, button)
        wait_for(f"the end of {text}", lambda: not tree.shows(box))
        return text
