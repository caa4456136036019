"""Actions that are killed while they run, and the checks afterwards. Here: those of the programs with windows."""

import os
import shutil
import subprocess
import time

import installation as suite
import judge
from places import MAIN, window
from session import Session, poll

LAST = "99999"


class Action:
    """One kind of action on one installation. A run is prepare, begin, then a kill or the end, then check."""

    name = ""
    keeps_history = True  # the action does not replace the file with the run history
    pause = 0.002  # seconds between two polls for the end

    def __init__(self, desk):
        self.desk, self.site = desk, desk.site

    def prepare(self):
        """Preparation that is not part of the measured time."""

    def begin(self):
        """Starts the action and returns the process to be killed."""
        raise NotImplementedError

    def finished(self, process):
        """True if the action is finished, as the user would see it."""
        return process.poll() is not None

    def kill(self, process):
        """Kills the process. True if it was still running."""
        process.kill()
        return process.wait() == -9

    def complete(self, process):
        """Waits for the end of a run that is not killed."""
        poll(f"the end of {self.name}", lambda: self.finished(process), pause=self.pause)

    def check(self, acknowledged):
        """Yields the failures found after a run; `acknowledged`: it had finished before the kill."""
        yield from self.desk.sound(self.site)

    def close(self, process):
        if process.poll() is None:
            process.kill()
        process.wait()

    def tidy(self):
        """After a failed run: kills remaining processes, which would disturb the next run."""
        for name in (suite.INQUIRY, suite.REGISTRATION):
            for process in suite.running(self.site.program(name)):
                os.kill(process, 9)


class FirstList(Action):
    """Start of the inquiry up to its first list."""

    name = "start"

    def begin(self):
        return self.desk.unattended(self.site)


class FirstStart(Action):
    """First start of a user without private copies."""

    name, keeps_history = "first start", False

    def __init__(self, desk):
        super().__init__(desk)
        self.site = desk.private_site

    def prepare(self):
        shutil.rmtree(self.site.root / "users" / self.desk.user, ignore_errors=True)

    def begin(self):
        return self.desk.unattended(self.site)

    def check(self, acknowledged):
        yield from super().check(acknowledged)
        own = self.site.root / "users" / self.desk.user
        for file in ("conf/usrcnfg.accdb", "report/repdb.accdb", "report/repfrmdb.accdb"):
            if not (own / file).is_file():
                yield f"users/{self.desk.user}/{file} is missing after the next start"
        command = self.site.command("check", self.site.root)
        checked = subprocess.run(command, env=self.site.environment, capture_output=True, text=True, check=False)
        if checked.returncode:
            yield f"check after the next start: {checked.stdout.strip()}"


class InSession(Action):
    """Actions in the main window, with all people in the list."""

    pause = 0.02

    def prepare(self):
        self.session = Session(self.desk.screen, self.desk.places, self.site, self.site.configuration, self.desk.user)
        self.session.start("00000", LAST)
        self.rows = self.session.count_now(self.last_row) + 1

    def finished(self, process):
        self.session.answer_box()
        return (self.session.count(self.last_row) or 0) >= self.rows

    def close(self, process):
        self.session.abandon()


class Search(InSession):
    name, last_row = "search", "出力終了 SELECT%"

    def begin(self):
        self.session.screen.focus(MAIN)
        self.session.begin_click(self.desk.places["main"]["btn_集計検索"])
        return self.session.process


class TextOutput(InSession):
    """Text output in place: a kill may leave a partial file, but the next output must be complete."""

    name, last_row = "text output", "出力終了 テキスト出力"

    def begin(self):
        self.session.begin_text()
        return self.session.process

    def check(self, acknowledged):
        yield from super().check(acknowledged)
        self.prepare()
        if not self.session.write_text() or self.session.boxes:
            yield f"the next text output: {self.session.boxes}"
        content = (self.desk.home / "要員名簿照会.CSV").read_bytes()
        if not content.endswith(b"\r\n") or content.count(b"\r\n") != len(self.session.people) + 1:
            yield "the next text output is not whole"
        self.session.end()


class Print(InSession):
    """Printing. The inquiry is killed; its report host must then exit."""

    name, last_row = "print", "出力終了 印刷"

    def begin(self):
        self.session.begin_print()
        return self.session.process

    def check(self, acknowledged):
        yield from super().check(acknowledged)
        self.prepare()
        before = set(self.desk.printed.glob("*.pdf"))
        if not self.session.print_list() or self.session.boxes:
            yield f"the next print: {self.session.boxes}"
        self.session.end()
        for file in set(self.desk.printed.glob("*.pdf")) - before:
            codes, _ = judge.pages_of(str(file))
            if codes != self.session.people:
                yield f"the next print has the people {codes}"
        for file in self.desk.printed.iterdir():
            if file.suffix != ".pdf":
                yield f"left over after the next print: {file.name}"
                shutil.rmtree(file)  # so that later prints don't find it again
            elif judge.pages_of(str(file))[0] is None:
                yield f"half a report: {file.name}"


class PrintHost(Print):
    """Printing. The report host is killed; the inquiry shows a message and continues."""

    name, pause = "report host", 0.002

    def begin(self):
        process = super().begin()
        poll("the report host", self.hosts, pause=self.pause)
        return process

    def hosts(self):
        return [host for host in suite.running(self.site.host) if host not in self.desk.hosts]

    def complete(self, process):
        poll("the end of the report host", lambda: not self.hosts(), pause=self.pause)

    def kill(self, process):
        hosts = self.hosts()
        for host in hosts:
            os.kill(host, 9)
        poll("the end of the print", lambda: self.finished(process))
        self.session.end()
        return bool(hosts)


class Save(Action):
    """Saving a telephone number in the registration program."""

    name = "save"

    def prepare(self):
        self.code = self.site.staff()[0]
        self.before, self.seen = suite.telephones(self.site), self.views()
        self.number = f"09-{os.getpid() % 10000:04d}-{time.time_ns() // 10**6 % 10000:04d}"
        self.session = Session(self.desk.screen, self.desk.places, self.site, self.site.configuration, self.desk.user)
        command = [self.site.program(suite.REGISTRATION), "000" + self.code]
        self.process = subprocess.Popen(command, env=self.desk.environment())
        poll("the form", lambda: window(suite.REGISTRATION))
        self.session.enter_telephone(self.number)

    def views(self):
        sql = "SELECT COUNT(*) FROM T閲覧 WHERE キー項目 = ? AND 閲覧区分 = '1'"
        return suite.rows(self.site.general, sql, self.code)[0][0]

    def begin(self):
        self.session.begin_click(self.desk.places["form"]["btn_保存"])
        return self.process

    def check(self, acknowledged):
        yield from super().check(acknowledged)
        after = suite.telephones(self.site)
        saved = after.pop(self.code)
        old = self.before.pop(self.code)
        if after != self.before:
            yield "telephone numbers of other people have changed"
        if saved not in (old, self.number) or (acknowledged and saved != self.number):
            yield f"the telephone number is {saved}, it was {old} and {self.number} was saved"
        if self.views() - self.seen != (1 if saved == self.number else 0):
            yield "the number and its row in T閲覧 are not from one transaction"


WINDOWS = (FirstList, FirstStart, Search, TextOutput, Print, PrintHost, Save)
