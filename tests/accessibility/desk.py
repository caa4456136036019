"""A private display with the suite's programs, simulated keyboard and mouse, and a screen reader's view."""

import contextlib
import os
import subprocess
import time

import pyatspi
from gi.repository import Atspi, GLib

TIMEOUT = 30  # seconds


class NotSeen(AssertionError):
    """Timeout while waiting for a state."""


def wait_for(what, check, timeout=TIMEOUT):
    """Processes bus events until check() returns a true value, and returns that."""
    end = time.monotonic() + timeout
    context = GLib.MainContext.default()
    while True:
        while context.iteration(False):
            pass
        found = check()
        if found:
            return found
        if time.monotonic() > end:
            raise NotSeen(f"waited in vain for {what}")
        GLib.timeout_add(10, lambda: False)
        context.iteration(True)


class Screen:
    """A virtual display; close() ends it."""

    def __init__(self, size="1152x864x24"):
        # -r: no key repeat. On a busy machine a key may be down long enough to be typed twice.
        command = ["Xvfb", "-r", "-displayfd", "1", "-nolisten", "tcp", "-screen", "0", size]
        self.server = subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        os.environ["DISPLAY"] = ":" + self.server.stdout.readline().decode().strip()

    def close(self):
        self.server.terminate()
        self.server.wait()
        self.server.stdout.close()

    @staticmethod
    def work(*arguments):
        """Runs xdotool and returns its output, None if it fails."""
        done = subprocess.run(["xdotool", *arguments], capture_output=True, text=True, check=False)
        return done.stdout.strip() if done.returncode == 0 else None

    def key(self, *names):
        """Presses keys one after the other, by their X names ("shift+Tab")."""
        self.work("key", *names)

    def type(self, text):
        """Types text of ASCII characters: for others xdotool remaps a key temporarily, and events get lost."""
        self.work("type", "--delay", "0", text)

    def click(self, node):
        """Clicks the centre of a node."""
        place = node.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
        middle = place.x + place.width // 2, place.y + place.height // 2
        self.work("mousemove", *map(str, middle), "click", "1")

    def focus(self, title):
        """Gives the keyboard to the window with that title as soon as it exists."""

        def given():
            found = self.work("search", "--onlyvisible", "--name", f"^{title}$")
            return found and self.work("windowfocus", "--sync", found.split()[-1]) is not None

        wait_for(f"the keyboard in a window {title}", given)


class FocusWatch:
    """Remembers the last node that reported the focus."""

    def __init__(self):
        self.last = None
        pyatspi.Registry.registerEventListener(self.hear, "object:state-changed:focused")

    def hear(self, event):
        if event.detail1:
            self.last = event.source

    def close(self):
        pyatspi.Registry.deregisterEventListener(self.hear, "object:state-changed:focused")


class Notifications:
    """Collects the texts that a screen reader speaks without being asked: those of notifications that are shown."""

    KIND = "object:state-changed:showing"

    def __init__(self):
        self.texts = []
        pyatspi.Registry.registerEventListener(self.hear, self.KIND)

    def hear(self, event):
        with contextlib.suppress(GLib.Error):  # of a node that has vanished meanwhile
            if event.detail1 and event.source.getRole() == pyatspi.ROLE_NOTIFICATION:
                self.texts.append(event.source.name)

    def close(self):
        pyatspi.Registry.deregisterEventListener(self.hear, self.KIND)


def programs():
    """The programs on the bus. Clears the cache, since not all changes are signalled."""
    desktop = pyatspi.Registry.getDesktop(0)
    desktop.clear_cache()
    found = [desktop.getChildAtIndex(place) for place in range(desktop.childCount)]
    for program in found:
        if program is not None:
            program.set_cache_mask(Atspi.Cache.NONE)
    return [program for program in found if program is not None]
