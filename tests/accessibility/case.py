"""Base of the tests: the inquiry on a private display, and walking along a window's tab order."""

import contextlib
import subprocess
import unittest

import tree
from desk import FocusWatch, Screen, programs, wait_for
from sample import Sample

INQUIRY = "要員名簿照会"
TITLE = "要員名簿照会（見本商事株式会社）"
MOST_STOPS = 100


class InquiryCase(unittest.TestCase):
    """Each class has an installation, a display and a running program; its cases end with the main window active."""

    options = ()  # options of `suite-setup init`
    size = "1152x864x24"  # of the display
    main = None  # main window
    rows = None  # contents of the main window

    @classmethod
    def make_sample(cls):
        return Sample(*cls.options)

    @classmethod
    def prepare(cls, sample):
        """Changes the installation before the program starts."""

    @classmethod
    def setUpClass(cls):
        cls.sample = cls.make_sample()
        cls.prepare(cls.sample)
        cls.screen = Screen(cls.size)
        cls.addClassCleanup(cls.screen.close)
        cls.watch = FocusWatch()
        cls.addClassCleanup(cls.watch.close)
        cls.start()
        cls.addClassCleanup(cls.end)
        cls.reach_main_window()

    @classmethod
    def start(cls):
        cls.running = subprocess.Popen([cls.sample.program(INQUIRY)])

    @classmethod
    def end(cls):
        cls.running.terminate()
        cls.running.wait()

    @classmethod
    def restart(cls):
        cls.end()
        cls.start()
        cls.reach_main_window()

    @classmethod
    def reach_main_window(cls):
        cls.main = cls.open(TITLE)
        cls.rows = tree.MainWindow(cls.main)
        wait_for("the first list", lambda: cls.rows.texts("担当者コード")[0])

    @classmethod
    def open(cls, title, beside=None):
        """Waits for the window with that title in any program, gives it the keyboard and waits until an item has the
        focus. `beside`: an existing window with the same title."""
        window = wait_for(f"the window {title}", lambda: cls.find(title, beside))
        cls.screen.focus(title)
        wait_for(f"the focus in {title}", lambda: tree.focused(tree.nodes(window)))
        return window

    @staticmethod
    def find(title, beside=None):
        windows = (tree.window_of(program, title, beside) for program in programs())
        return next((window for window in windows if window), None)

    @classmethod
    def return_to_main(cls):
        cls.screen.focus(TITLE)

    def press(self, key, before):
        """Presses a key and returns the newly focused node. It must differ from the node focused before, if there was
        one."""
        self.watch.last = None
        self.screen.key(key)

        def moved():
            last = self.watch.last
            return last if last is not None and last != before and tree.has_focus(last) else None

        return wait_for(f"a focus after {key} on {before and before.name}", moved)

    def focused(self, window):
        """The focused node of the active window."""
        last = self.watch.last
        if last is not None and tree.has_focus(last):
            return last
        return tree.focused(self.rows.stops if window == self.main else tree.nodes(window))

    def go_to(self, window, name):
        """Presses Tab until the stop with that name has the focus."""
        node = self.focused(window)
        for _ in range(MOST_STOPS):
            if node is not None and node.name == name:
                return node
            node = self.press("Tab", node)
        raise AssertionError(f"no stop {name}")

    @contextlib.contextmanager
    def over(self, stop, key, title):
        """Context manager: opens a window by a key on a stop of the main window, and closes it with Escape unless the
        test did."""
        self.go_to(self.main, stop)
        self.screen.key(key)
        window = self.open(title)
        try:
            yield window
        finally:
            if tree.shows(window):
                self.screen.key("Escape")
                wait_for(f"the end of {title}", lambda: not tree.shows(window))
            self.return_to_main()

    def enter(self, window, name, text):
        """Replaces the text of an item. Not with Ctrl+A, since Ctrl opens the lookups."""
        item = self.go_to(window, name)
        self.screen.key("Home", "shift+End", "Delete")
        wait_for(f"an empty {name}", lambda: tree.text_of(item) == "")
        self.screen.type(text)
        wait_for(f"{text} in {name}", lambda: tree.text_of(item) == text)

    def walk(self, window, key):
        """The stops from the focused one until it has the focus again."""
        first = self.focused(window)
        stops, node = [], first
        for _ in range(MOST_STOPS):
            stops.append(tree.stop(node))
            node = self.press(key, node)
            if node == first:
                return stops
        raise AssertionError(f"the chain does not close: {stops}")

    def assert_chain(self, window, names):
        """Every stop has a name and a proper role, and walking backwards visits the same stops in reverse order."""
        forward = self.walk(window, "Tab")
        self.assertEqual(forward[:1] + forward[:0:-1], self.walk(window, "shift+Tab"))
        self.assertEqual([stop.name for stop in forward], names)
        for stop in forward:
            self.assertTrue(stop.name.strip(), stop)
            self.assertNotIn(stop.role, ("", "unknown", "invalid", "filler"), stop)
        return forward
