"""What all nodes have in common."""

import contextlib
import signal
from pathlib import Path

from . import machine


class Node:
    """A server. Its state is in its folder, so that several processes can control it."""

    actions = ("kill", "stop", "start", "freeze", "thaw", "query")
    stop_signal = signal.SIGTERM

    def __init__(self, root, name, port):
        self.folder, self.name, self.port = Path(root) / name, name, port

    @property
    def pid(self):
        """Process id of the server, None if it does not run."""
        with contextlib.suppress(OSError, ValueError):
            pid = int((self.folder / "launched").read_text())
            return None if machine.ended(pid) else pid
        return None

    def answers(self, statement="SELECT 1"):
        """Result of a statement by the administrator, None if the node does not answer."""
        with contextlib.suppress(RuntimeError):
            return self.query(statement)
        return None

    def kill(self):
        """As in a power cut: all its processes at once."""
        self.end(signal.SIGKILL, machine.family)

    def stop(self):
        self.end(self.stop_signal)

    def end(self, number, receivers=lambda pid: [pid]):
        pid = self.pid
        if pid is None:
            return
        members = machine.family(pid)
        machine.send(receivers(pid), number)
        machine.poll(f"the end of {self.name}", lambda: all(machine.ended(one) for one in members))

    def freeze(self):
        """The node keeps its connections and does not answer."""
        machine.send(machine.family(self.pid), signal.SIGSTOP)

    def thaw(self):
        machine.send(machine.family(self.pid), signal.SIGCONT)

    def clean(self):
        """Removes what the server would leave outside its folder."""
