"""The work of one clerk, run as that user: clerk.py PLAN. Each step is logged when it is finished."""

import csv
import fcntl
import io
import json
import os
import random
import sys
import time
from pathlib import Path

from desk import Screen
from installation import Installation
from places import described_windows
from session import Session

STEPS = ("search", "search", "print", "text", "telephone", "telephone")


class Clerk:
    def __init__(self, plan):
        self.plan, self.number = plan, plan["number"]
        self.random = random.Random(plan["seed"])
        self.log = open(plan["log"], "w", encoding="utf-8")  # noqa: SIM115
        screen = Screen()  # first: it sets DISPLAY in the environment
        self.site = Installation(plan["site"], plan["programs"], os.environ)
        self.session = Session(screen, plan["places"], self.site, Path(plan["configuration"]), plan["user"])
        self.changes, self.off = 0, []

    def write(self, what, began, **details):
        entry = {"what": what, "began": began, "ended": time.time(), "clerk": self.number, **details}
        print(json.dumps(entry, ensure_ascii=False), file=self.log, flush=True)

    def some_people(self):
        staff = self.session.staff
        first = self.random.randrange(len(staff) - 20)
        return staff[first], staff[first + self.random.randrange(8, 20)]

    def step(self, name, *arguments):
        """Runs a step and logs it with the message boxes shown meanwhile."""
        began, before = time.time(), len(self.session.boxes)
        details = getattr(self, name)(*arguments)
        self.write(name, began, **details, boxes=self.session.boxes[before:])

    def start(self):
        self.session.start(*self.some_people())
        self.off = []
        return {"people": len(self.session.people)}

    def search(self):
        self.session.search(*self.some_people())
        self.off = []
        return {"people": len(self.session.people)}

    def tick(self):
        position = self.random.randrange(8)
        code = self.session.people[position]
        if code not in self.off:
            self.off.append(self.session.tick_off(position))

    def ticked(self):
        return [code for code in self.session.people if code not in self.off]

    def print(self):
        self.tick()
        folder, before = Path(self.plan["printed"]), self.own_pages()
        done = self.session.print_list()
        pages = sorted(self.own_pages() - before)
        return {"done": done, "people": self.ticked(), "files": [str(folder / page) for page in pages]}

    def own_pages(self):
        files = Path(self.plan["printed"]).glob("*.pdf")
        return {file.name for file in files if file.stat().st_uid == os.getuid()}

    def text(self):
        self.tick()
        done = self.session.write_text()
        file = Path.home() / "要員名簿照会.CSV"
        content = file.read_bytes() if done else b""
        records = list(csv.reader(io.StringIO(content.decode("cp932", "replace"), newline="")))
        return {
            "done": done,
            "people": self.ticked(),
            "whole": content.endswith(b"\r\n") and {len(record) for record in records} == {33},
            "codes": [record[3] for record in records[1:]],
        }

    def telephone(self):
        positions = [place for place, code in enumerate(self.session.people[:8]) if self.may_change(code)]
        if not positions:
            return {"code": None}
        position = self.random.choice(positions)
        self.changes += 1
        number = f"{self.number:02d}-{os.getpid() % 10000:04d}-{self.changes:04d}"
        reread = self.session.count_now("出力終了 SELECT%") + 1
        form = self.open_form(position)
        self.session.enter_telephone(number)
        time.sleep(self.random.uniform(0, 2))
        clicked = time.time()
        saved = self.session.save(form)
        finished = time.time()
        self.session.await_rows("出力終了 SELECT%", reread)
        self.session.await_idle()
        code = self.session.people[position]
        self.off = [other for other in self.off if other != code]  # a row that was read again is ticked again
        return {"code": code, "number": number, "saved": saved, "clicked": clicked, "finished": finished}

    def open_form(self, position):
        """In a shared configuration the first receiver deletes all start messages of the same second, and two exchanges
        with equal keys within a minute receive each other's messages, since the channel has no other key. There, each
        clerk uses different people, and no two clerks click within the same second."""
        if not self.plan["shared"]:
            return self.session.open_form(position)
        with open(self.plan["channel"], "w", encoding="ascii") as channel:
            fcntl.flock(channel, fcntl.LOCK_EX)
            began = time.time()
            form = self.session.open_form(position)
            time.sleep(max(0, began + 1 - time.time()))
        return form

    def may_change(self, code):
        return not self.plan["shared"] or int(code) % self.plan["clerks"] == self.number % self.plan["clerks"]

    def end(self):
        self.session.end()
        return {}

    def work(self):
        while time.time() < self.plan["until"]:
            self.step("start")
            for _ in range(self.random.randrange(4, 9)):
                time.sleep(self.random.uniform(0.1, 1.0))
                self.step(self.random.choice(STEPS))
            self.step("end")


def main():
    clerk = Clerk(json.loads(Path(sys.argv[1]).read_text(encoding="utf-8")))
    try:
        clerk.work()
    except Exception as failure:
        clerk.write("stuck", time.time(), reason=repr(failure), boxes=clerk.session.boxes, windows=described_windows())
        raise
    finally:
        clerk.session.abandon()
        clerk.session.screen.close()


if __name__ == "__main__":
    main()
