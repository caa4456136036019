"""Screen positions of the items in the two windows, queried once from the accessibility bus."""

import contextlib
import subprocess

import pyatspi
import tree
from desk import programs, wait_for
from gi.repository import GLib
from installation import INQUIRY, REGISTRATION

MAIN = "要員名簿照会（見本商事株式会社）"
BUTTONS = ("btn_集計検索", "btn_印刷", "btn_テキスト出力", "btn_終了", "開始担当者コード", "終了担当者コード")
FORM = ("電話", "btn_保存", "btn_終了")


def all_windows():
    """Windows of all programs. A program that is just exiting has none."""
    for program in programs():
        with contextlib.suppress(GLib.Error):
            yield from filter(None, [program.getChildAtIndex(place) for place in range(program.childCount)])


def windows(title, beside=None):
    """Visible windows with that title, except `beside`."""
    return [one for one in all_windows() if one.name == title and one != beside and tree.shows(one)]


def window(title, beside=None):
    return next(iter(windows(title, beside)), None)


def press_button(box, name):
    """Presses a button through the bus, independent of the keyboard focus: a box is on the bus before it is shown. True
    if the box has such a button."""
    for node in tree.nodes(box) if box else ():
        if node.getRole() == pyatspi.ROLE_PUSH_BUTTON and node.name.startswith(name):
            node.queryAction().doAction(0)
            return True
    return False


def words(box):
    """Text of a message box."""
    return " ".join(node.name for node in tree.nodes(box) if node.getRole() == pyatspi.ROLE_LABEL and node.name)


def described_windows():
    """Titles of all windows, and their texts except for the main window's."""
    return [one.name if one.name == MAIN else f"{one.name}: {words(one)[:300]}" for one in all_windows()]


def middle(node):
    extents = node.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
    return extents.x + extents.width // 2, extents.y + extents.height // 2


def items(top, names):
    """The first focusable node of each name: a label may have the same name."""
    found = {}
    for node in tree.nodes(top):
        if node.name in names and node.name not in found and tree.has(node, pyatspi.STATE_FOCUSABLE):
            found[node.name] = middle(node)
    return found


def row_items(main):
    """Names and check boxes of the visible rows, from top to bottom."""
    names, boxes = [], []
    for node in tree.nodes(main):
        if node.description == "担当者名" and tree.shows(node):
            names.append(middle(node))
        if node.name == "chb_出力対象" and tree.shows(node):
            boxes.append(middle(node))
    return names, boxes


def measure(installation, environment, staff):
    """Starts both programs on the current display, one after the other, reads the positions and ends them."""
    with subprocess.Popen([installation.program(INQUIRY)], env=environment) as inquiry:
        main = wait_for("the main window", lambda: window(MAIN))
        names, boxes = wait_for("the rows", lambda: all(found := row_items(main)) and found)
        places = {"main": items(main, BUTTONS), "rows": names, "boxes": boxes}
        inquiry.terminate()
    with subprocess.Popen([installation.program(REGISTRATION), "000" + staff], env=environment) as registration:
        form = wait_for("the form", lambda: window(REGISTRATION))
        places["form"] = items(form, FORM)
        registration.terminate()
    return places
