"""python3 tests/endurance: implementation of ./test --endurance."""

import argparse
import contextlib
import json
import os
import random
import shutil
import signal
import subprocess
import sys
import tempfile
import time
from pathlib import Path

import clerks
import kills
import users

SOURCES = Path(__file__).resolve().parent.parent
PROGRAMS = ("suite-setup", "report-host", "要員名簿照会", "要員台帳更新")
CLERKS = 8
started = []  # processes of the test, each a session leader


def arguments():
    parser = argparse.ArgumentParser(prog="./test --endurance")
    parser.add_argument("--seconds", type=int, default=180, help="of each of the two installation kinds")
    parser.add_argument("--kills", type=int, default=200)
    parser.add_argument("--seed", type=int, default=random.SystemRandom().randrange(10**6))
    parser.add_argument("--only", choices=("clerks", "kills"))
    parser.add_argument("--keep", action="store_true", help="the folder of the installations and logs")
    return parser.parse_args()


def prepare(work):
    work.chmod(0o755)
    (work / "programs").mkdir()
    for program in PROGRAMS:
        shutil.copy(Path(os.environ["ENDURANCE_PROGRAMS"], program), work / "programs" / program)
    for folder in ("homes", "plans"):
        (work / folder).mkdir()
    sockets = Path("/tmp/.X11-unix")
    if not sockets.exists():  # created by root; the X servers run as the users
        sockets.mkdir()
        sockets.chmod(0o1777)
    clerks.prepare_driver(work, SOURCES)


def on_bus(work, script, *words):
    """Runs a driver script as root on a separate bus. Its last output line is JSON."""
    home = work / f"{Path(script).stem}{words[0] if words else ''}"
    (home / "run").mkdir(mode=0o700, parents=True)
    environment = {
        "LANG": "C.UTF-8", "PATH": os.environ["PATH"], "HOME": str(home), "XDG_RUNTIME_DIR": str(home / "run"),
        "MEIBO_MACHINE_REGISTRY": str(home / "registry"), "MEIBO_USER_REGISTRY": str(home / "user-registry"),
        "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1",
    }  # fmt: skip
    command = ["/usr/bin/python3", "-B", "-W", "ignore", str(work / "driver" / script), str(work), str(home), *words]
    process = subprocess.Popen(
        ["dbus-run-session", "--", *command], env=environment, cwd=home, stdout=subprocess.PIPE,
        stderr=open(home / "errors", "w"), start_new_session=True, text=True  # noqa: SIM115
    )  # fmt: skip
    process.errors = home / "errors"
    started.append(process)
    return process


def end_started():
    for process in started:
        with contextlib.suppress(ProcessLookupError):
            os.killpg(process.pid, signal.SIGKILL)
        process.wait()


def measure_places(work):
    process = on_bus(work, "guide.py")
    out, _ = process.communicate(timeout=120)
    if process.returncode != 0:
        raise SystemExit(f"where the items are could not be measured:\n{(work / 'guide/errors').read_text()}")
    (work / "places").write_text(out.splitlines()[-1], encoding="utf-8")
    return json.loads(out.splitlines()[-1])


def run_clerks(work, options, places):
    """Returns a list of failures."""
    wrong = []
    with users.created(CLERKS, work / "homes") as (people, group):
        for kind in (0, 1):
            began = time.monotonic()
            print(f"{CLERKS} clerks, install kind {kind}, {options.seconds} s", flush=True)
            shift = clerks.Shift(work, people, group, kind, options.seconds, options.seed, places)
            found = shift.run()
            print("\n".join("  " + line for line in shift.table()))
            print("\n".join("  WRONG " + line for line in found))
            print(f"  {len(found)} wrong, {time.monotonic() - began:.0f} s in all", flush=True)
            wrong += [f"kind {kind}: {line}" for line in found]
    return wrong


def end(*_):
    raise SystemExit("ended by a signal")


def main():
    options = arguments()
    for number in (signal.SIGTERM, signal.SIGHUP):
        signal.signal(number, end)
    print(f"seed {options.seed}", flush=True)
    work = Path(tempfile.mkdtemp(prefix="mb-", dir="/tmp"))
    wrong = []
    try:
        prepare(work)
        places = measure_places(work)
        if options.only != "kills" and options.seconds > 0:
            wrong += run_clerks(work, options, places)
        if options.only != "clerks" and options.kills > 0:
            print(f"{options.kills} kills", flush=True)
            wrong += kills.run(lambda *words: on_bus(work, *words), options.kills, options.seed)
    finally:
        end_started()
        if not options.keep:
            shutil.rmtree(work, ignore_errors=True)
    print(f"endurance: {len(wrong)} wrong" if wrong else "endurance: nothing lost, nothing damaged, nothing hung")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
