"""Kills programs at random moments, in two worker processes."""

import json
import selectors
from collections import defaultdict

WORKERS = 2
SILENCE = 400  # seconds without output after which a worker is considered hung


def follow(workers):
    """Yields the output lines of all workers as they arrive."""
    with selectors.DefaultSelector() as selector:
        for worker in workers:
            selector.register(worker.stdout, selectors.EVENT_READ)
        while selector.get_map():
            ready = selector.select(SILENCE)
            if not ready:
                raise TimeoutError(f"no kill in {SILENCE} s")
            for key, _ in ready:
                line = key.fileobj.readline()
                if line.startswith("{"):  # the bus daemons write to the same pipe
                    yield json.loads(line)
                elif not line:
                    selector.unregister(key.fileobj)


def words_of(entry, seed):
    moment, lasting = (round(entry[time] * 1000) for time in ("moment", "lasting"))
    where = f"kill {entry['number']} of {entry['action']} after {moment} of {lasting} ms, seed {seed}"
    return [f"{where}: {wrong}" for wrong in entry["wrong"]]


def table(entries):
    yield f"{'action':12} {'runs':>5} {'hit':>5} {'losses':>7} {'worst wait':>11}"
    actions = defaultdict(list)
    for entry in entries:
        actions[entry["action"]].append(entry)
    for name, found in actions.items():
        hit, lost = sum(entry["hit"] for entry in found), sum(bool(entry["wrong"]) for entry in found)
        worst = max(entry["seconds"] - entry["moment"] for entry in found)
        yield f"{name:12} {len(found):5} {hit:5} {lost:7} {worst:9.1f} s"


def run(start, kills, seed):
    """`start` starts a worker with the given arguments. Returns a list of failures."""
    workers = [start("worker.py", str(number), str(WORKERS), str(kills), str(seed)) for number in range(WORKERS)]
    entries, wrong, worst = [], [], 0
    for entry in follow(workers):
        worst = max(worst, entry.get("worst", 0))
        if "number" in entry:
            entries.append(entry)
            wrong += words_of(entry, seed)
    for worker in workers:
        if worker.wait(SILENCE):
            wrong.append(f"a process of the test has failed: {worker.errors.read_text().strip()[-1500:]}")
    print("\n".join("  " + line for line in table(entries)))
    print(f"  {len(entries)} kills, the next start lasted {worst:.1f} s at worst")
    print("\n".join("  WRONG " + line for line in wrong), flush=True)
    return wrong
