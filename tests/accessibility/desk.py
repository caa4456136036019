"""A screen of its own with the suite's programs on it, somebody at its keyboard, and a screen reader."""

import os
import subprocess
import time

import pyatspi
from gi.repository import Atspi, GLib

PATIENCE = 30  # seconds


class NotSeen(AssertionError):
    """What was waited for did not come."""


def wait_for(what, check, patience=PATIENCE):
    """Lets the bus deliver until check() gives something true, and gives that back."""
    end = time.monotonic() + patience
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
    """A virtual display. Ends with close()."""

    def __init__(self, size="1152x864x24"):
        # Without repetition (-r): on a busy machine a key may be down for so long that it would be typed twice.
        command = ["Xvfb", "-r", "-displayfd", "1", "-nolisten", "tcp", "-screen", "0", size]
        self.server = subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        os.environ["DISPLAY"] = ":" + self.server.stdout.readline().decode().strip()

    def close(self):
        self.server.terminate()
        self.server.wait()
        self.server.stdout.close()

    @staticmethod
    def work(*arguments):
        """Runs xdotool and gives what it prints, None where it fails."""
        done = subprocess.run(["xdotool", *arguments], capture_output=True, text=True, check=False)
        return done.stdout.strip() if done.returncode == 0 else None

    def key(self, *names):
        """Presses keys one after the other, by the names of the window system ("shift+Tab")."""
        self.work("key", *names)

    def type(self, text):
        """Types a text of signs that are on every keyboard: others are put onto a key for a moment, and get lost."""
        self.work("type", "--delay", "0", text)

    def click(self, node):
        """Clicks into the middle of what a node takes of the screen."""
        place = node.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
        middle = place.x + place.width // 2, place.y + place.height // 2
        self.work("mousemove", *map(str, middle), "click", "1")

    def focus(self, title):
        """The keyboard goes to the window with that title, as soon as it is there."""

        def given():
            found = self.work("search", "--onlyvisible", "--name", f"^{title}$")
            return found and self.work("windowfocus", "--sync", found.split()[-1]) is not None

        wait_for(f"the keyboard in a window {title}", given)


class FocusWatch:
    """Remembers what told last that it has the focus."""

    def __init__(self):
        self.last = None
        pyatspi.Registry.registerEventListener(self.hear, "object:state-changed:focused")

    def hear(self, event):
        if event.detail1:
            self.last = event.source

    def close(self):
        pyatspi.Registry.deregisterEventListener(self.hear, "object:state-changed:focused")


def programs():
    """The programs on the bus. All that they are asked, they are asked anew: not all changes are reported."""
    desktop = pyatspi.Registry.getDesktop(0)
    desktop.clear_cache()
    found = [desktop.getChildAtIndex(place) for place in range(desktop.childCount)]
    for program in found:
        if program is not None:
            program.set_cache_mask(Atspi.Cache.NONE)
    return [program for program in found if program is not None]
