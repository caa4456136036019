"""A program under test on a display, driven by real key and mouse events."""

import contextlib
import os
import signal
import sqlite3
import subprocess
import time

import installation as suite
import pyatspi
import tree
from gi.repository import GLib
from places import MAIN, press_button, window, windows, words

TIMEOUT = 60  # seconds
PAUSE = 0.05  # seconds between two polls: the polled files are shared, and frequent reads would block the writers
CHANGED = "この担当者は他の端末で修正されています。入力を取り消して読み直しますか?"
ANSWERS = {"印刷しますか?": "はい", "修正が保存されていません。終了しますか?": "はい", CHANGED: "いいえ"}
WAIT_DIALOG = "しばらくお待ちください。"
NOTHING = ("印刷情報が有りません", "出力情報が有りません")
SAVE_DIALOG = "名前を付けて保存"


class TooLate(AssertionError):
    """Timeout while waiting for a state."""


def poll(what, check, timeout=TIMEOUT, pause=PAUSE):
    """Polls `check` until its result is true and returns that. Ignores windows that vanish meanwhile."""
    end = time.monotonic() + timeout
    while True:
        with contextlib.suppress(GLib.Error, NotImplementedError):
            found = check()
            if found:
                return found
        if time.monotonic() > end:
            raise TooLate(f"waited {timeout} s for {what}")
        time.sleep(pause)


def start_command(first, last):
    """Start command with a range of staff codes; without the optional fields the list is sorted by code."""
    return "000" + "000999" + "000999" + "0099" + first + last


class Session:
    """The inquiry of one user. `configuration` is the file with this user's history."""

    def __init__(self, screen, places, site, configuration, user):
        self.screen, self.places, self.site, self.user = screen, places, site, user
        self.configuration, self.process, self.people = configuration, None, []
        self.boxes = []  # texts of the message boxes in order
        self.staff = site.staff()

    def count(self, pattern, program=suite.INQUIRY):
        """Number of matching history rows; None if the file is missing or locked."""
        sql = "SELECT COUNT(*) FROM プログラム稼動履歴 WHERE ユーザID = ? AND プログラムID = ? AND 摘要 LIKE ?"
        try:
            return suite.rows(self.configuration, sql, self.user, program, pattern)[0][0]
        except sqlite3.OperationalError:
            return None

    def count_now(self, pattern, program=suite.INQUIRY):
        """Like count, but waits for a lock to end. 0 if the user has no configuration file yet."""
        return poll(f"the number of {pattern}", lambda: self.counted(pattern, program))[0]

    def counted(self, pattern, program):
        number = self.count(pattern, program) if self.configuration.exists() else 0
        return None if number is None else (number,)

    def await_rows(self, pattern, count, program=suite.INQUIRY):
        poll(f"row {count} of {pattern}", lambda: (self.count(pattern, program) or 0) >= count)

    def await_idle(self):
        """Waits until the program accepts clicks: it ignores them while it searches, prints or waits for the other
        program, and writes the end row of the history before that is over."""

        def idle():
            main = window(MAIN)
            return main and tree.has(main, pyatspi.STATE_ENABLED) and not windows(suite.INQUIRY)

        poll("the main window to take input", idle)

    def click(self, place):
        self.screen.work("mousemove", str(place[0]), str(place[1]), "click", "1")

    def begin_click(self, place):
        """Does not wait for xdotool, so that the action started by the click is observed from its beginning."""
        subprocess.Popen(["xdotool", "mousemove", str(place[0]), str(place[1]), "click", "1"])

    def press(self, name):
        self.screen.focus(MAIN)
        self.click(self.places["main"][name])

    def select(self, first, last):
        self.people = [code for code in self.staff if first <= code <= last]

    def start(self, first, last):
        searched = self.count_now("出力終了 SELECT%") + 1
        command = [self.site.program(suite.INQUIRY), start_command(first, last)]
        self.process = subprocess.Popen(command, env=self.site.environment)
        self.select(first, last)
        self.await_rows("出力終了 SELECT%", searched)
        self.await_idle()

    def enter(self, item, text):
        self.click(self.places["main"][item])
        self.screen.key("Home", "shift+End", "Delete")
        self.screen.type(text)
        self.screen.key("Tab")

    def begin_search(self, first, last):
        self.screen.focus(MAIN)
        self.enter("開始担当者コード", first)
        self.enter("終了担当者コード", last)
        self.press("btn_集計検索")

    def search(self, first, last):
        searched = self.count_now("出力終了 SELECT%") + 1
        self.begin_search(first, last)
        self.select(first, last)
        self.await_rows("出力終了 SELECT%", searched)
        self.await_idle()

    def tick_off(self, position):
        """Only valid in a newly loaded list: another click would tick the row again."""
        self.screen.focus(MAIN)
        self.click(self.places["boxes"][position])
        return self.people[position]

    def answer_box(self, title=suite.INQUIRY, beside=None):
        """Closes the message box with that title, if there is one, and returns its text. Known questions are answered;
        any other text is recorded for the checks."""
        texts = [(box, words(box)) for box in windows(title, beside)]
        for box, text in texts:
            if text and WAIT_DIALOG not in text:
                press_button(box, ANSWERS.get(text, "OK"))
                poll(f"the end of {text}", lambda: not tree.shows(box))  # noqa: B023
                if text not in ANSWERS:
                    self.boxes.append(text)
                return text
        return None

    def await_output(self, word, count):
        """True if the output wrote its end row; False if a message said that there is nothing to print."""
        state = poll(f"the end of {word}", lambda: self.output_state(word, count))
        self.await_idle()
        return state == "done"

    def output_state(self, word, count):
        if self.answer_box() in NOTHING:
            return "nothing"
        return "done" if (self.count("出力終了 " + word) or 0) >= count else None

    def begin_print(self):
        self.press("btn_印刷")
        poll("the question before the print", lambda: press_button(window(suite.INQUIRY), "はい"))

    def print_list(self):
        printed = self.count_now("出力終了 印刷") + 1
        self.begin_print()
        return self.await_output("印刷", printed)

    def begin_text(self):
        self.press("btn_テキスト出力")
        poll("the save dialog", lambda: press_button(window(SAVE_DIALOG), "保存"))

    def write_text(self):
        written = self.count_now("出力終了 テキスト出力") + 1
        self.begin_text()
        return self.await_output("テキスト出力", written)

    def open_form(self, position):
        self.screen.focus(MAIN)
        self.click(self.places["rows"][position])
        return poll("the form of a row", lambda: window(suite.REGISTRATION))

    def enter_telephone(self, number):
        self.screen.focus(suite.REGISTRATION)
        self.click(self.places["form"]["電話"])
        self.screen.key("Home", "shift+End", "Delete")
        self.screen.type(number)
        self.screen.key("Tab")

    def save(self, form):
        """True if the form saved and closed; False if it rejected the input and was closed without saving."""
        self.click(self.places["form"]["btn_保存"])
        outcome = poll("the end of the save", lambda: self.save_state(form))
        if outcome == "refused":
            self.click(self.places["form"]["btn_終了"])
            poll("the end of the form", lambda: self.leave_state(form))
        return outcome == "saved"

    def save_state(self, form):
        if not tree.shows(form):
            return "saved"
        return "refused" if self.answer_box(suite.REGISTRATION, form) else None

    def leave_state(self, form):
        self.answer_box(suite.REGISTRATION, form)
        return not tree.shows(form)

    def end(self):
        ended = self.count_now("終了") + 1
        self.press("btn_終了")
        self.process.wait(TIMEOUT)
        self.await_rows("終了", ended)

    def abandon(self):
        """Sends SIGTERM as on shutdown, then SIGKILL if necessary."""
        if self.process is None or self.process.poll() is not None:
            return
        self.process.terminate()
        try:
            self.process.wait(20)
        except subprocess.TimeoutExpired:
            with contextlib.suppress(ProcessLookupError):
                os.kill(self.process.pid, signal.SIGKILL)
            self.process.wait()
