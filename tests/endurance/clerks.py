"""Eight clerks working concurrently in one installation: sets them up, starts them and checks the result."""

import json
import os
import shutil
import subprocess
import time
from collections import defaultdict

import installation as suite
import judge

STAFF = 48  # few, so that clerks use the same person concurrently
TIMEOUT = 150  # seconds beyond the running time, for the current step and the shutdown


def without_group_rights(site, group):
    """Paths of the installation that the group may not use as clerks need it; `init` must leave none."""
    wrong = []
    for name in ("data", "conf", "report", "users"):
        for path in (site.root / name, *sorted((site.root / name).iterdir())):
            wanted = 0o2070 if path.is_dir() else 0o040 if path.name == "pin.key" else 0o060
            found = path.stat()
            if found.st_gid != group or found.st_mode & wanted != wanted:
                wrong.append(str(path.relative_to(site.root)))
    return wrong


def make_site(work, kind, maker, group):
    """Makes a folder of the group and an installation by a member of the group, as docs/administration.md says."""
    shared = work / f"srv-{kind}"
    shared.mkdir()
    os.chown(shared, 0, group)
    shared.chmod(0o2775)
    environment = {
        "LANG": "C.UTF-8", "PATH": os.environ["PATH"], "HOME": str(maker.home),
        "MEIBO_MACHINE_REGISTRY": str(work / "registry"),
    }  # fmt: skip
    site = suite.Installation(shared / "site", work / "programs", environment)
    site.make("--staff", STAFF, "--install-kind", kind, **maker.identity(group))
    if wrong := without_group_rights(site, group):
        raise RuntimeError(f"init did not give the group its rights: {', '.join(wrong)}")
    site.register_host()
    printed = shared / "printed"
    printed.mkdir()
    os.chown(printed, 0, group)
    printed.chmod(0o2770)
    site.tool("printer", site.root, "--to-folder", printed)
    return site, printed


def start_clerk(work, user, group, plan):
    """Starts a clerk with a separate display, bus and runtime folder."""
    plan_file = work / "plans" / f"{plan['kind']}-{plan['number']}.json"
    plan_file.write_text(json.dumps(plan, ensure_ascii=False), encoding="utf-8")
    environment = {
        "LANG": "C.UTF-8", "PATH": os.environ["PATH"], "HOME": str(user.home),
        "XDG_RUNTIME_DIR": str(user.home / "run"),
        "MEIBO_MACHINE_REGISTRY": str(work / "registry"), "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1",
    }  # fmt: skip
    driver = ["/usr/bin/python3", "-B", "-W", "ignore", str(work / "driver/clerk.py"), str(plan_file)]
    errors = open(work / "plans" / (plan_file.stem + ".err"), "wb")  # noqa: SIM115
    return subprocess.Popen(
        ["dbus-run-session", "--", *driver], env=environment, cwd=user.home, stdin=subprocess.DEVNULL,
        stdout=errors, stderr=errors, start_new_session=True, **user.identity(group)
    )  # fmt: skip


def read_log(file):
    return [json.loads(line) for line in file.read_text(encoding="utf-8").splitlines()] if file.exists() else []


class Shift:
    """One run of all clerks with one installation kind."""

    def __init__(self, work, users, group, kind, seconds, seed, places):
        self.work, self.users, self.group, self.kind = work, users, group, kind
        self.site, self.printed = make_site(work, kind, users[0], group)
        self.seconds, self.seed, self.places = seconds, seed, places
        self.before = suite.telephones(self.site)
        self.logs = {user.name: user.home / f"log-{kind}" for user in users}

    def plan(self, number, user, until):
        configuration = self.site.private(user.name, "conf/usrcnfg.accdb") if self.kind else self.site.configuration
        return {
            "number": number, "clerks": len(self.users), "user": user.name, "kind": self.kind, "until": until,
            "seed": f"{self.seed}:{self.kind}:{number}", "site": str(self.site.root), "places": self.places,
            "programs": str(self.work / "programs"), "configuration": str(configuration), "shared": self.kind == 0,
            "log": str(self.logs[user.name]), "printed": str(self.printed),
            "channel": str(self.printed.parent / "channel"),
        }  # fmt: skip

    def run(self):
        """Returns a list of failures."""
        channel = self.printed.parent / "channel"
        channel.touch()
        channel.chmod(0o666)
        until = time.time() + self.seconds
        clerks = [
            start_clerk(self.work, user, self.group, self.plan(number, user, until))
            for number, user in enumerate(self.users, 1)
        ]
        wrong = []
        for user, clerk in zip(self.users, clerks, strict=True):
            try:
                clerk.wait(max(1, until + TIMEOUT - time.time()))
            except subprocess.TimeoutExpired:
                wrong.append(f"{user.name} hangs")
                clerk.kill()
        return wrong + list(self.judge())

    def judge(self):
        entries = {name: read_log(log) for name, log in self.logs.items()}
        history = self.history()
        for name, log in entries.items():
            stuck = [entry for entry in log if entry["what"] == "stuck"]
            yield from (f"{name}: {entry['reason']}; windows {entry['windows']}" for entry in stuck)
            if not log:
                yield f"{name} has done nothing: {self.errors_of(name)}"
            if not stuck:
                yield from judge.check_history(name, log, history)
        everything = [entry for log in entries.values() for entry in log]
        yield from judge.check_errors(history, self.kind == 0)
        for entry in everything:
            yield from judge.check_boxes(entry, self.kind == 0)
        changes = [entry for entry in everything if entry["what"] == "telephone" and entry["code"]]
        yield from judge.check_telephones(self.before, suite.telephones(self.site), changes)
        yield from judge.check_outputs(everything, self.kind == 0)
        yield from judge.check_databases(self.site)
        yield from judge.check_leftovers(self.site)
        yield from (f"left over: {file}" for file in self.printed.iterdir() if file.suffix != ".pdf")
        # The socket of a host that was killed after its report remains; the next host replaces it.
        runtime = [file for user in self.users for file in (user.home / "run").glob("host-*.*")]
        yield from (f"left over: {file}" for file in runtime)
        self.everything = everything

    def errors_of(self, name):
        number = [user.name for user in self.users].index(name) + 1
        return (self.work / "plans" / f"{self.kind}-{number}.err").read_text(errors="replace").strip()[-500:]

    def history(self):
        files = [self.site.configuration]
        if self.kind:
            files = [self.site.private(user.name, "conf/usrcnfg.accdb") for user in self.users]
        return [row for file in files if file.exists() for row in suite.history(file)]

    def table(self):
        """Lines of the summary: step, count, longest time, remarks."""
        steps = defaultdict(list)
        for entry in self.everything:
            if entry["what"] != "stuck":
                steps[entry["what"]].append(entry)
        for name, found in steps.items():
            worst = max(entry["ended"] - entry["began"] for entry in found)
            done = [entry for entry in found if entry.get("done", True) and entry.get("code", "") is not None]
            refused = sum(1 for entry in done if entry.get("saved") is False)
            boxes = sum(len(entry["boxes"]) for entry in found)
            counts = f"{len(done):5} done {refused:4} refused {boxes:4} messages"
            yield f"kind {self.kind} {name:10} {counts} {worst:6.1f} s worst"


def prepare_driver(work, sources):
    """Copies the driver to where every user can read it: the source folder may be accessible to its owner only."""
    driver = work / "driver"
    driver.mkdir()
    for file in (*(sources / "endurance").glob("*.py"), *(sources / "accessibility").glob("*.py")):
        shutil.copyfile(file, driver / file.name)
    jet = sources / "setup/jet/general.accdb"
    shutil.copyfile(jet, driver / jet.name)
