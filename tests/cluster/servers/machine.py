"""Folder, users, ports and processes of a private cluster on loopback."""

import contextlib
import os
import pwd
import random
import shutil
import signal
import socket
import subprocess
import tempfile
import time
from pathlib import Path

PAUSE = 0.05  # seconds between two polls
PORTS = range(20000, 30000)  # below the ports that the system gives to outgoing connections
MEMORY = Path("/dev/shm")
ENOUGH = 2 << 30  # bytes


class TooLate(AssertionError):
    """Timeout while waiting for a state."""


def poll(what, check, timeout=60):
    """Polls `check` until its result is true and returns that."""
    end = time.monotonic() + timeout
    while True:
        found = check()
        if found:
            return found
        if time.monotonic() > end:
            raise TooLate(f"waited {timeout} s for {what}")
        time.sleep(PAUSE)


def make_folder():
    """A new folder: in MEIBO_CLUSTER_PLACE if that is set, otherwise in memory if there is enough space."""
    roomy = MEMORY.is_dir() and os.access(MEMORY, os.W_OK) and shutil.disk_usage(MEMORY).free > ENOUGH
    place = os.environ.get("MEIBO_CLUSTER_PLACE", MEMORY if roomy else "/tmp")
    folder = Path(tempfile.mkdtemp(prefix="meibo-cluster-", dir=place))
    folder.chmod(0o755)
    return folder


def identity(user):
    """subprocess arguments for a program of this user. Only root can and must change its user: servers refuse root."""
    if os.getuid() != 0:
        return {}
    entry = pwd.getpwnam(user)
    return {"user": entry.pw_uid, "group": entry.pw_gid, "extra_groups": os.getgrouplist(user, entry.pw_gid)}


def make_private(folder, user):
    folder.mkdir(mode=0o700)
    if os.getuid() == 0:
        shutil.chown(folder, user)
    return folder


def environment(folder, **further):
    """Without the caller's settings for the servers and their clients; TMPDIR must be accessible to the user."""
    return {"PATH": os.environ["PATH"], "LANG": "C.UTF-8", "TMPDIR": str(folder), "HOME": str(folder), **further}


def run(user, folder, *command, given=None, **further):
    """Runs a program and returns its output. Raises RuntimeError with its messages if it fails."""
    done = subprocess.run(
        [*map(str, command)], input=given, stdin=None if given else subprocess.DEVNULL, capture_output=True, text=True,
        cwd=folder, env=environment(folder, **further), **identity(user)
    )  # fmt: skip
    if done.returncode != 0:
        raise RuntimeError(f"{command[0]}: {done.stderr.strip() or done.stdout.strip()}")
    return done.stdout


def launch(user, folder, *command):
    """Starts a server; its output goes to `log` in the folder, its id to `launched`."""
    with open(folder / "log", "ab") as log:
        process = subprocess.Popen(
            [*map(str, command)], cwd=folder, env=environment(folder), stdin=subprocess.DEVNULL, stdout=log,
            stderr=log, start_new_session=True, **identity(user)
        )  # fmt: skip
    (folder / "launched").write_text(str(process.pid))
    return process


def start_client(user, folder, *command):
    """Starts a client whose output is not wanted and whose server will end it."""
    subprocess.Popen(
        [*map(str, command)], cwd=folder, env=environment(folder), stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
        stderr=subprocess.DEVNULL, **identity(user)
    )  # fmt: skip


def free_ports(count):
    """Ports on which no program listens, all different."""
    found = set()
    while len(found) < count:
        port = random.choice(PORTS)
        with contextlib.suppress(OSError), socket.socket() as trial:
            trial.bind(("127.0.0.1", port))
            found.add(port)
    return list(found)


def process_state(pid):
    """The state letter of a process, None without such a process."""
    try:
        return Path(f"/proc/{pid}/stat").read_text(encoding="utf-8", errors="replace").rpartition(")")[2].split()[0]
    except (OSError, IndexError):
        return None


def ended(pid):
    with contextlib.suppress(ChildProcessError):
        os.waitpid(pid, os.WNOHANG)
    return process_state(pid) in (None, "Z", "X")


def family(pid):
    """A process and its children; the servers have no deeper descendants."""
    children = []
    for task in Path(f"/proc/{pid}/task").glob("*/children"):
        with contextlib.suppress(OSError):
            children += map(int, task.read_text().split())
    return [pid, *children]


def send(pids, number):
    for pid in pids:
        with contextlib.suppress(ProcessLookupError):
            os.kill(pid, number)


def below(folder):
    """Ids of the processes that work in a folder: servers, their children and their scripts, however they started."""
    found = []
    for entry in Path("/proc").iterdir():
        with contextlib.suppress(OSError):
            if entry.name.isdigit() and Path(os.readlink(entry / "cwd")).is_relative_to(folder):
                found.append(int(entry.name))
    return found


def end_below(folder):
    """Kills the processes that work in a folder and waits for their end."""

    def none_left():
        remaining = [pid for pid in below(folder) if not ended(pid)]
        send(remaining, signal.SIGKILL)
        return not remaining

    poll(f"the end of the processes in {folder}", none_left)
