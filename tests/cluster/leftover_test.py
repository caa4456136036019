"""Whatever ends scripts/with-cluster, it leaves no process, no folder and no shared memory."""

import os
import signal
import subprocess
import tempfile
import unittest
from pathlib import Path

from servers import machine

SOURCES = Path(__file__).resolve().parent.parent.parent
START = 60  # seconds


class Leftovers(unittest.TestCase):
    """The cluster's folder is made in a folder of each test."""

    def setUp(self):
        place = tempfile.TemporaryDirectory(dir="/tmp", prefix="meibo-leftovers-")
        self.addCleanup(place.cleanup)
        self.place = Path(place.name)
        self.place.chmod(0o755)
        self.segments = self.unused_memory()

    @staticmethod
    def unused_memory():
        """Ids of the shared memory segments that no process uses."""
        rows = (line.split() for line in Path("/proc/sysvipc/shm").read_text(encoding="ascii").splitlines()[1:])
        return {row[1] for row in rows if row[6] == "0"}

    def begin(self, *command, engine="postgresql"):
        environment = {name: value for name, value in os.environ.items() if not name.startswith("MEIBO_CLUSTER")}
        process = subprocess.Popen(
            [SOURCES / "scripts/with-cluster", "--engine", engine, *command], stdin=subprocess.DEVNULL,
            env=environment | {"MEIBO_CLUSTER_PLACE": str(self.place)}, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
            text=True, start_new_session=True,
        )  # fmt: skip
        self.addCleanup(process.communicate)
        self.addCleanup(process.kill)
        return process

    def folders(self):
        return list(self.place.glob("meibo-cluster-*"))

    def assert_nothing_left(self):
        self.assertEqual(self.folders(), [])
        self.assertEqual(machine.below(self.place), [])
        self.assertEqual(self.unused_memory() - self.segments, set())

    def test_nothing_after_a_command_and_its_status_is_handed_on(self):
        process = self.begin("sh", "-c", 'test -d "$MEIBO_CLUSTER_FOLDER" && exit 7')
        self.assertEqual((process.wait(START), process.stderr.read()), (7, ""))
        self.assert_nothing_left()

    def test_nothing_after_a_command_that_killed_a_node(self):
        process = self.begin("sh", "-c", '"$MEIBO_CLUSTER_CONTROL" postgresql1 kill')
        self.assertEqual((process.wait(START), process.stderr.read()), (0, ""))
        self.assert_nothing_left()

    def test_nothing_after_an_interrupt_of_the_command(self):
        process = self.begin("sh", "-c", 'echo begun; exec sleep 1000')
        self.assertEqual(process.stdout.readline(), "begun\n")
        process.send_signal(signal.SIGINT)
        self.assertEqual(process.wait(START), 128 + signal.SIGINT)
        self.assert_nothing_left()

    def test_nothing_after_an_end_in_the_middle_of_the_start(self):
        for engine, node in (("postgresql", "postgresql2"), ("mariadb", "mariadb2")):
            with self.subTest(engine):
                process = self.begin("true", engine=engine)
                machine.poll("the second node", lambda: list(self.place.glob(f"*/{node}/data")))  # noqa: B023
                process.terminate()
                self.assertEqual(process.wait(START), 128 + signal.SIGTERM)
                self.assert_nothing_left()

    def test_nothing_after_a_failure_of_the_start(self):
        blocked = self.place / "bin"
        blocked.mkdir()
        (blocked / "haproxy").write_text("#!/bin/sh\nexit 3\n")
        (blocked / "haproxy").chmod(0o755)
        os.environ["PATH"], before = f"{blocked}:{os.environ['PATH']}", os.environ["PATH"]
        self.addCleanup(os.environ.__setitem__, "PATH", before)
        process = self.begin("true")
        self.assertNotEqual(process.wait(START), 0)
        self.assert_nothing_left()
