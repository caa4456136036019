"""A real input method, fcitx5 with anthy, on the private display."""

import os
import pathlib
import re
import subprocess

from gi.repository import Gio, GLib

from desk import Screen, wait_for

PROFILE = """[Groups/0]
Name=Default
Default Layout=us
DefaultIM=anthy

[Groups/0/Items/0]
Name=keyboard-us
Layout=

[Groups/0/Items/1]
Name=anthy
Layout=

[GroupOrder]
0=Default
"""
# One state for all windows, so that it stays switched on from one program to the next.
SETTINGS = """[Behavior]
ShareInputState=All
ActiveByDefault=True
"""
# The order of the candidates must not change from one run to the next.
CONVERSION = """[General]
LearnOnManualCommit=False
LearnOnAutoCommit=False
"""
ACTIVE = "2"  # of fcitx5-remote


class InputMethod:
    """Runs on the current display until close(). The programs started meanwhile use it."""

    def __init__(self):
        folder = pathlib.Path(os.environ["XDG_CONFIG_HOME"], "fcitx5")
        (folder / "conf").mkdir(parents=True, exist_ok=True)
        for name, text in (("profile", PROFILE), ("config", SETTINGS), ("conf/anthy.conf", CONVERSION)):
            (folder / name).write_text(text, encoding="utf-8")
        # What every desktop sets; some set nothing else.
        os.environ["XMODIFIERS"] = "@im=fcitx"
        os.environ.pop("QT_IM_MODULE", None)
        command = ["fcitx5", "--disable", "wayland,notifications,notificationitem,clipboard,cloudpinyin,spell"]
        self.server = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        # A question before that would make the bus start a second one.
        wait_for("the input method on the bus", self.is_on_the_bus)
        wait_for("the conversion", lambda: self.ask("-n") == "anthy")

    @staticmethod
    def call(name, path, interface, method, arguments=None):
        bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        answer = bus.call_sync(name, path, interface, method, arguments, None, Gio.DBusCallFlags.NONE, -1, None)
        return answer.unpack()[0]

    @classmethod
    def is_on_the_bus(cls):
        name = GLib.Variant("(s)", ("org.fcitx.Fcitx5",))
        return cls.call("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "NameHasOwner", name)

    @classmethod
    def windows(cls):
        """The windows that use it. A new one is announced a while after it is shown; its keys are not composed before."""
        state = cls.call("org.fcitx.Fcitx5", "/controller", "org.fcitx.Fcitx.Controller1", "DebugInfo")
        return set(re.findall(r"IC \[(\w+)\] program:要員", state))

    @staticmethod
    def ask(*option):
        """The answer of the running input method, None if there is none."""
        done = subprocess.run(["fcitx5-remote", *option], capture_output=True, text=True, check=False)
        return done.stdout.strip() if done.returncode == 0 else None

    def switch_on(self):
        self.ask("-o")
        wait_for("the input method switched on", lambda: self.ask() == ACTIVE)

    @staticmethod
    def candidates():
        """Left, top, width and height of the candidate window, None while it is not shown."""
        window = Screen.work("search", "--onlyvisible", "--class", "^fcitx")
        if not window:
            return None
        place = Screen.work("getwindowgeometry", "--shell", window.split()[-1])
        if place is None:
            return None
        values = dict(line.split("=") for line in place.splitlines())
        return tuple(int(values[name]) for name in ("X", "Y", "WIDTH", "HEIGHT"))

    def close(self):
        self.server.terminate()
        self.server.wait()
        os.environ.pop("XMODIFIERS", None)
