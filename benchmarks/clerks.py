"""Implementation of scripts/cluster-clerks: plays clerks against the cluster of scripts/with-cluster."""

import argparse
import os
import platform
import shutil
import sqlite3
import statistics
import subprocess
import sys
import tempfile
import time
from contextlib import closing
from pathlib import Path

from servers import machine
from servers.cluster import Cluster

CLERK = Path(os.environ.get("CLUSTER_CLERK", "build/release/benchmarks/clerk"))
SETUP = os.environ["SUITE_SETUP"]
TICKS = os.sysconf("SC_CLK_TCK")
TIMEOUT = 120  # seconds for all clerks to connect
COLUMNS = ("clerks", "reads from", "searches/s", "median ms", "95 % ms", "99 % ms", "re-read ms", "save ms",
           "server CPU", "clerks' CPU", "connections", "MB each", "failed")  # fmt: skip


def arguments():
    parser = argparse.ArgumentParser(prog="scripts/cluster-clerks")
    parser.add_argument("--clerks", default="10,25,50,100,200,400", help="numbers of clerks, separated by commas")
    parser.add_argument("--reads-from", default="primary,standbys", help="servers that are searched")
    parser.add_argument("--people", type=int, default=99999)
    parser.add_argument("--seconds", type=float, default=120, help="of each measurement")
    parser.add_argument("--think", type=float, default=20, help="mean seconds between two actions of a clerk")
    return parser.parse_args()


def tool(work, *words):
    """Runs the set-up tool without a trace in the machine's registry."""
    registry = {"MEIBO_MACHINE_REGISTRY": str(work / "registry")}
    subprocess.run([SETUP, *map(str, words)], check=True, stdout=subprocess.DEVNULL, env=os.environ | registry)


def fill(cluster, work, people):
    """The people on the cluster, and an installation for each port of the balancer: {port's purpose: configuration}."""
    source = work / "source"
    tool(work, "init", source, "--staff", people, "--seed", 1)
    tool(work, "server-init", "--from", source, "--odbc", cluster.odbc("postgresql", "write"))
    primary, *standbys = cluster.nodes["postgresql"]
    primary.query("VACUUM ANALYZE", "suite")
    for standby in standbys:
        standby.await_applied(primary)
    configurations = {}
    for purpose in ("write", "read"):
        tool(work, "use-server", source, "--odbc", cluster.odbc("postgresql", purpose))
        configurations[purpose] = work / f"{purpose}.accdb"
        shutil.copyfile(source / "conf/usrcnfg.accdb", configurations[purpose])
    return configurations


def ticks(pid, fields=(11, 12)):
    """Processor time of a process in ticks; fields 13 and 14 are that of its ended children."""
    try:
        words = Path(f"/proc/{pid}/stat").read_text(encoding="utf-8", errors="replace").rpartition(")")[2].split()
    except OSError:
        return 0
    return sum(int(words[field]) for field in fields)


def server_ticks(nodes):
    """Processor time of servers, with that of connections which have ended."""
    return sum(sum(map(ticks, machine.family(node.pid))) + ticks(node.pid, (13, 14)) for node in nodes)


def own_memory(pid):
    """Bytes that a process shares with no other."""
    try:
        lines = Path(f"/proc/{pid}/smaps_rollup").read_text().splitlines()
    except OSError:
        return 0
    return 1024 * sum(int(line.split()[1]) for line in lines if line.startswith("Private_"))


def backends(nodes):
    """Process ids of the clerks' connections."""
    query = "SELECT pid FROM pg_stat_activity WHERE usename = 'suite'"
    return [int(pid) for node in nodes for pid in node.query(query).split()]


def start(number, options, configuration, folder, write_server):
    copy = folder / f"{number}.accdb"
    shutil.copyfile(configuration, copy)
    words = [CLERK.resolve(), "--configuration", copy, "--write-server", write_server, "--seconds", options.seconds + TIMEOUT,
             "--think", options.think, "--people", options.people, "--seed", number]  # fmt: skip
    with open(folder / f"{number}.log", "wb") as log:
        return subprocess.Popen([*map(str, words)], stdout=log, stderr=subprocess.STDOUT)


def connected(folder):
    return sum(1 for log in folder.glob("*.log") if b"connected" in log.read_bytes())


def actions(folder, first, last):
    """Durations in milliseconds by kind, and the number of failed actions."""
    found, failed = {"search": [], "look-up": [], "re-read": [], "registration": []}, 0
    for log in folder.glob("*.log"):
        for line in log.read_text(encoding="utf-8", errors="replace").splitlines():
            kind, *numbers = line.split("\t")
            if kind in found and first <= float(numbers[0]) < last:
                found[kind].append(float(numbers[1]))
    for copy in folder.glob("*.accdb"):
        with closing(sqlite3.connect(copy)) as history:
            failed += history.execute("SELECT COUNT(*) FROM プログラム稼動履歴 WHERE 摘要 LIKE 'エラー%'").fetchone()[0]
    return found, failed


def percentile(values, share):
    return sorted(values)[min(len(values) - 1, int(share * len(values)))] if values else 0


def measure(cluster, options, count, purpose, configuration, folder):
    """One line of the table."""
    nodes = cluster.nodes["postgresql"]
    write_server = f"127.0.0.1:{cluster.port('postgresql', 'write')}"
    clerks = [start(number, options, configuration, folder, write_server) for number in range(1, count + 1)]

    def begun():
        return connected(folder) == count or any(one.poll() for one in clerks)

    try:
        machine.poll(f"{count} clerks", begun, TIMEOUT)
        first, used = time.time(), lambda: (server_ticks(nodes), sum(ticks(one.pid) for one in clerks))
        before = used()
        time.sleep(options.seconds)
        after, last, pids = used(), time.time(), backends(nodes)
        memory = statistics.mean(map(own_memory, pids)) if pids else 0
        dead = sum(one.poll() not in (None, 0) for one in clerks)
    finally:
        for one in clerks:
            one.kill()
            one.wait()
    found, failed = actions(folder, first * 1000, last * 1000)
    share = [(b - a) / TICKS / (last - first) / os.cpu_count() for a, b in zip(before, after, strict=True)]
    searches = found["search"]
    return (
        str(count), "primary" if purpose == "write" else "standbys", f"{len(searches) / (last - first):.1f}",
        *(f"{percentile(searches, part):.0f}" for part in (0.5, 0.95, 0.99)),
        *(f"{percentile(found[kind], 0.5):.0f}" for kind in ("re-read", "registration")),
        *(f"{100 * part:.0f} %" for part in share), str(len(pids)), f"{memory / 1e6:.1f}", str(failed + dead),
    )  # fmt: skip


def describe():
    model = next((line.split(":")[1].strip() for line in Path("/proc/cpuinfo").read_text().splitlines()
                  if line.startswith("model name")), platform.machine())  # fmt: skip
    memory = os.sysconf("SC_PAGE_SIZE") * os.sysconf("SC_PHYS_PAGES") / 2**30
    return f"{os.cpu_count()} cores of {model}, {memory:.0f} GB; servers, balancer and clerks on the same machine"


def main():
    options = arguments()
    cluster = Cluster.opened(os.environ["MEIBO_CLUSTER_FOLDER"])
    with tempfile.TemporaryDirectory(dir=cluster.root, prefix="clerks-") as place:
        work = Path(place)
        configurations = fill(cluster, work, options.people)
        print(f"{options.people} people; {options.seconds:g} s each; a clerk thinks {options.think:g} s")
        print(f"{describe()}\n")
        print("|" + "|".join(f" {name} " for name in COLUMNS) + "|\n" + "|---" * len(COLUMNS) + "|", flush=True)
        for source in options.reads_from.split(","):
            purpose = {"primary": "write", "standbys": "read"}[source]
            for count in map(int, options.clerks.split(",")):
                folder = work / f"{source}-{count}"
                folder.mkdir()
                row = measure(cluster, options, count, purpose, configurations[purpose], folder)
                print("|" + "|".join(f" {cell} " for cell in row) + "|", flush=True)
    return 0


if __name__ == "__main__":
    sys.exit(main())
