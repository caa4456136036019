"""A screen reader's view of a window."""

from collections import namedtuple

import pyatspi
from gi.repository import GLib

# Distinguishes the stops of a window: rows with equal names have their number as description.
Stop = namedtuple("Stop", "name role description")
PARTS = (pyatspi.ROLE_PAGE_TAB, pyatspi.ROLE_TABLE_CELL)


def nodes(top):
    """A node and its descendants in order. Nodes that vanish meanwhile are left out."""
    try:
        children = [top.getChildAtIndex(place) for place in range(top.childCount)]
    except GLib.Error:
        return
    yield top
    for child in children:
        if child is not None:
            yield from nodes(child)


def has(node, *states):
    """True if a node is in all these states. A vanished node is in none."""
    try:
        present = node.getState()
    except GLib.Error:
        return False
    return all(present.contains(state) for state in states)


def shows(node):
    return has(node, pyatspi.STATE_SHOWING)


def has_focus(node):
    """Whether the node really has the focus: current tab pages and cells also report it, and so do nodes that forward
    it."""
    present = has(node, pyatspi.STATE_FOCUSED, pyatspi.STATE_FOCUSABLE)
    return present and node.getRole() not in PARTS


def focused(candidates):
    """The innermost focused node: a node around it may have forwarded its focus."""
    inner = None
    for node in candidates:
        if has_focus(node):
            inner = node
    return inner


def stop(node):
    return Stop(node.name, node.getRoleName(), node.description)


def window_of(program, title, beside=None):
    """The visible window of a program with that title, other than the given one."""
    try:
        windows = [program.getChildAtIndex(place) for place in range(program.childCount)]
    except GLib.Error:
        return None
    titled = (window for window in windows if window and window.name == title and window != beside)
    return next((window for window in titled if shows(window)), None)


def named(window, name, role=None):
    """The first node with that name and, if given, role."""
    found = (node for node in nodes(window) if node.name == name)
    return next((node for node in found if role is None or node.getRoleName() == role), None)


def cells(window, columns):
    """The rows of a window's list, each a tuple of cell texts."""
    texts = [node.name for node in nodes(window) if node.getRole() == pyatspi.ROLE_TABLE_CELL]
    return [tuple(texts[first : first + columns]) for first in range(0, len(texts), columns)]


class MainWindow:
    """Nodes of the main window, which stay the same from the first list on: rows and stops."""

    def __init__(self, window):
        self.labels, self.panels, self.stops = {}, {}, []
        for node in nodes(window):
            if has(node, pyatspi.STATE_FOCUSABLE):
                self.stops.append(node)
            elif node.getRole() == pyatspi.ROLE_LABEL:
                self.labels.setdefault(node.description, []).append(node)
            elif node.getRole() == pyatspi.ROLE_PANEL:
                self.panels.setdefault(node.name, []).append(node)

    def item(self, name):
        """The node of an item in the first row."""
        return self.labels[name][0]

    def texts(self, name):
        """The texts of an item, row by row, if visible."""
        return [node.name for node in self.labels[name] if shows(node)]

    def lines(self, panel):
        """The descriptions of a part of the rows, row by row."""
        return [node.description for node in self.panels[panel] if shows(node)]


def text_of(node):
    try:
        content = node.queryText()
    except NotImplementedError:
        return ""
    return content.getText(0, -1)


def all_texts(top):
    """Names and descriptions of a node and its descendants, including hidden ones."""
    for node in nodes(top):
        yield node.name
        yield node.description
        yield text_of(node)
        yield from node.getAttributes()
