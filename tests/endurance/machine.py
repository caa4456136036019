"""Actions outside the installations: registry and report hosts."""

import socket
import subprocess

from actions import Action
from session import poll
from tools import Tool


class SetRegistry(Tool):
    name, verb = "registry set", "registry"
    key = r"HKCU\Software\Meibo\Endurance"

    def prepare(self):
        self.file = self.site.root.parent / "user-registry"
        lines = "".join(f'[{self.key[5:]}\\Key{number}]\n"Path"="/srv/{number}"\n\n' for number in range(500))
        self.site.environment["MEIBO_USER_REGISTRY"] = str(self.file)
        for file in self.file.parent.glob(self.file.name + "*"):
            file.unlink()
        self.site.tool("registry", "set", self.key, "Before", "1")
        with open(self.file, "a", encoding="utf-8") as registry:
            registry.write("\n" + lines)

    def command(self):
        return self.site.command("registry", "set", self.key, "Value", "x" * 200)

    def half_done(self):
        listed = self.site.tool("registry", "list", self.key)
        if '"Before"="1"' not in listed or listed.count("/srv/") != 500:
            yield f"the registry has lost values: {len(listed)} characters are left"

    def done(self, printed):
        if self.site.tool("registry", "get", self.key, "Value").strip() != "x" * 200:
            yield "the value is not there"
        for file in self.file.parent.glob(self.file.name + "*"):
            if file.name not in (self.file.name, self.file.name + ".lock"):
                yield f"left over after the next write: {file.name}"


class HostStart(Action):
    """Start of a report host up to its first answer."""

    name = "host start"

    def __init__(self, desk):
        super().__init__(desk)
        self.runtime = desk.home / "run"

    def start(self):
        command = [str(self.site.host), str(self.site.root / "report/repfrmdb.accdb"), "/runtime"]
        return subprocess.Popen(command, env=self.desk.environment() | {"MEIBO_START_HIDDEN": "1"})

    begin = start

    def sockets(self):
        return list(self.runtime.glob("host-*"))

    def finished(self, process):
        return any(self.answers(file) for file in self.sockets())

    @staticmethod
    def answers(file):
        with socket.socket(socket.AF_UNIX) as caller:
            caller.settimeout(5)
            try:
                caller.connect(str(file))
                caller.sendall(b'{"verb":"Bind"}\n')
                return bool(caller.recv(100))
            except OSError:
                return False

    def check(self, acknowledged):
        following = self.start()
        try:
            poll("the answer of the next host", lambda: self.finished(following))
        finally:
            following.terminate()
            following.wait(20)
        for file in self.sockets():
            # Belongs to a host of an earlier action that is waiting for its idle timeout.
            if not self.answers(file):
                yield f"left over after the next host: {file.name}"
        yield from super().check(acknowledged)


MACHINE = (SetRegistry, HostStart)
