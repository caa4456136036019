"""Unix users of a test in one group, removed at its end."""

import contextlib
import grp
import os
import pwd
import signal
import subprocess
import time
from pathlib import Path

PREFIX = "meibo-test-"


class User:
    """A user. The primary group is not the common one, as is usual on Debian."""

    def __init__(self, name, home):
        entry = pwd.getpwnam(name)
        self.name, self.uid, self.gid, self.home = name, entry.pw_uid, entry.pw_gid, home

    def identity(self, group):
        """subprocess arguments that run a program as this user and member of the group."""
        return {"user": self.uid, "group": self.gid, "extra_groups": [group], "umask": 0o022}


def run(*command):
    subprocess.run(command, check=True, capture_output=True, text=True)


def processes_of(uid):
    for entry in Path("/proc").iterdir():
        with contextlib.suppress(OSError):
            if entry.name.isdigit() and entry.stat().st_uid == uid:
                yield int(entry.name)


def end_processes(uid):
    """Kills all processes of a user; only the test can have started them."""
    end = time.monotonic() + 10
    while time.monotonic() < end:
        running = list(processes_of(uid))
        if not running:
            return
        for process in running:
            with contextlib.suppress(ProcessLookupError):
                os.kill(process, signal.SIGKILL)
        time.sleep(0.05)


def remove(group):
    """Removes a common group with its users and their primary groups."""

    def belongs(name):
        return name == group or name.startswith(group + "-")

    for entry in pwd.getpwall():
        if belongs(entry.pw_name):
            end_processes(entry.pw_uid)
            subprocess.run(["userdel", entry.pw_name], check=False, capture_output=True)
    for entry in grp.getgrall():
        if belongs(entry.gr_name):
            subprocess.run(["groupdel", entry.gr_name], check=False, capture_output=True)


def remove_abandoned():
    """Removes users left by a killed test, whose process id is part of the names."""
    names = [entry.pw_name for entry in pwd.getpwall() if entry.pw_name.startswith(PREFIX)]
    for owner in {name[len(PREFIX) :].split("-")[0] for name in names}:
        if owner.isdigit() and not Path("/proc", owner).exists():
            remove(PREFIX + owner)


@contextlib.contextmanager
def created(count, homes):
    """Creates users for the duration of the context; gives them and the id of their common group. Their homes are in
    `homes`."""
    remove_abandoned()
    group = f"{PREFIX}{os.getpid()}"
    try:
        run("groupadd", group)
        users = []
        for number in range(1, count + 1):
            name = f"{group}-{number}"
            home = homes / str(number)
            run("useradd", "--no-create-home", "--home-dir", str(home), "--user-group", "--groups", group, name)
            user = User(name, home)
            for folder in (home, home / "run"):
                folder.mkdir(mode=0o700)
                os.chown(folder, user.uid, user.gid)
            users.append(user)
        yield users, grp.getgrnam(group).gr_gid
    finally:
        remove(group)
