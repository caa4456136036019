"""Worker that kills programs: worker.py WORK HOME NUMBER WORKERS KILLS SEED. Prints one line of JSON per kill."""

import getpass
import json
import os
import random
import sqlite3
import statistics
import subprocess
import sys
import time
from pathlib import Path

import installation as suite
import judge
from actions import WINDOWS
from desk import NotSeen, Screen
from gi.repository import GLib
from installation import Installation
from machine import MACHINE
from session import TIMEOUT, TooLate
from tools import TOOLS

STAFF = 60
FAILURES = (TooLate, NotSeen, AssertionError, OSError, GLib.Error, sqlite3.Error, subprocess.SubprocessError)
MEASURED = 3  # runs that measure the duration of an action
HOST_ALONE = 75  # seconds after which an idle host must have exited


class Desk:
    """Shared by all actions of a worker: display, installations, and the checks after every kill."""

    def __init__(self, work, home):
        self.work, self.home, self.user = work, home, getpass.getuser()
        self.screen = Screen()
        self.places = json.loads((work / "places").read_text(encoding="utf-8"))
        self.printed = home / "printed"
        self.printed.mkdir()
        self.hosts = {}  # idle hosts: process id and the time by which each must have exited
        self.worst = 0
        self.site = self.make_site("site")
        self.site.tool("printer", self.site.root, "--to-folder", self.printed)
        self.private_site = self.make_site("private", "--install-kind", "1")

    def environment(self):
        return dict(os.environ)

    def make_site(self, name, *options):
        site = Installation(self.home / name, self.work / "programs", self.environment())
        site.make("--staff", STAFF, *options)
        getattr(self, "site", site).register_host()
        return site

    def unattended(self, site):
        """Starts the inquiry headless up to its first list."""
        picture = str(self.home / "list.png")
        environment = self.environment() | {"QT_QPA_PLATFORM": "offscreen", "MEIBO_PICTURE": picture}
        command = [site.program(suite.INQUIRY)]
        return subprocess.Popen(command, env=environment, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)

    def sound(self, site):
        """Checks that the next start works, nothing is damaged and nothing is left over. The start comes first: the
        programs must recover from the kill themselves, and reading the files in the test would do it for them."""
        began = time.monotonic()
        following = self.unattended(site)
        try:
            printed, _ = following.communicate(timeout=TIMEOUT)
        except subprocess.TimeoutExpired:
            following.kill()
            printed = "nothing: it hangs"
        self.worst = max(self.worst, time.monotonic() - began)
        if printed.strip() != f"rows={len(site.staff())}" or following.returncode != 0:
            yield f"the next start says {printed.strip()} and ends with {following.returncode}"
        for wrong in (*judge.check_databases(site), *judge.check_leftovers(site)):
            if "the report host" not in wrong:
                yield wrong
        for host in suite.running(site.host):
            self.hosts.setdefault(host, time.monotonic() + HOST_ALONE)

    def hosts_that_stay(self):
        """Waits for the idle hosts and returns those that do not exit."""
        while True:
            present = suite.running(self.site.host)
            self.hosts = {host: end for host, end in self.hosts.items() if host in present}
            if not self.hosts or time.monotonic() > max(self.hosts.values()):
                return list(self.hosts)
            time.sleep(0.1)


def kept(action, before):
    """Failure if history rows that existed at the kill are missing."""
    after = suite.history(action.site.configuration)
    return [] if after[: len(before)] == before else [f"rows of the history are lost: {len(before)}, now {len(after)}"]


def duration(action):
    """Measures the duration of the action without a kill; failures after such a run are not caused by kills."""
    lasted = []
    for _ in range(MEASURED):
        action.prepare()
        process = action.begin()
        began = time.monotonic()
        action.complete(process)
        lasted.append(time.monotonic() - began)
        action.close(process)
        if wrong := list(action.check(True)):
            raise AssertionError(f"{action.name} without a kill: {wrong}")
    return statistics.median(lasted)


def run(action, moment):
    """Runs the action with one kill. Returns whether the process was still running, and the failures afterwards."""
    action.prepare()
    process = action.begin()
    hit = False
    try:
        time.sleep(moment)
        acknowledged = process.poll() is not None
        hit = action.kill(process)
        before = suite.committed(action.site.configuration) if action.keeps_history else []
    finally:
        action.close(process)
    return hit, [*action.check(acknowledged), *kept(action, before)]


def one(action, lasting, number, seed):
    chance = random.Random(f"{seed}:{number}")
    moment = chance.random() * lasting
    began = time.monotonic()
    try:
        hit, wrong = run(action, moment)
    except FAILURES as failure:
        hit, wrong = True, [f"hang or failure: {failure!r}"]
        action.tidy()
    return {
        "number": number, "action": action.name, "moment": moment, "lasting": lasting, "hit": hit, "wrong": wrong,
        "seconds": time.monotonic() - began,
    }  # fmt: skip


def report(entry):
    print(json.dumps(entry, ensure_ascii=False), flush=True)


def main():
    work, home = map(Path, sys.argv[1:3])
    number, workers, kills = map(int, sys.argv[3:6])
    desk = Desk(work, home)
    kinds = [*WINDOWS, *TOOLS, *MACHINE]
    prepared = {}
    try:
        for kill in range(number, kills, workers):
            kind = kinds[kill // workers % len(kinds)]
            if kind not in prepared:
                action = kind(desk)
                prepared[kind] = action, duration(action)
            report(one(*prepared[kind], kill, sys.argv[6]))
        for host in desk.hosts_that_stay():
            report({"number": -1, "action": "report host", "moment": 0, "lasting": 0, "hit": False, "seconds": 0,
                  "wrong": [f"the report host {host} does not end"]})  # fmt: skip
    finally:
        report({"worst": desk.worst})
        desk.screen.close()


if __name__ == "__main__":
    main()
