"""A PostgreSQL primary with two streaming standbys."""

import contextlib
import signal
import subprocess
from pathlib import Path

from . import machine
from .node import Node

USER = "postgres"
PROGRAMS = max(Path("/usr/lib/postgresql").glob("*/bin"), key=lambda path: float(path.parent.name), default=Path())
SETTINGS = """
port = {port}
listen_addresses = '127.0.0.1'
unix_socket_directories = '{folder}'
cluster_name = '{name}'
max_connections = 500
dynamic_shared_memory_type = mmap
fsync = off
full_page_writes = on
wal_log_hints = on
hot_standby = on
max_wal_senders = 8
max_replication_slots = 8
wal_sender_timeout = 5s
wal_receiver_timeout = 5s
wal_receiver_status_interval = 1s
wal_retrieve_retry_interval = 500ms
recovery_min_apply_delay = 0
"""
ACCESS = """
local all         all                        trust
host  replication replica       127.0.0.1/32 scram-sha-256
host  postgres    replica       127.0.0.1/32 scram-sha-256
host  postgres    balancer      127.0.0.1/32 trust
host  all         all           127.0.0.1/32 scram-sha-256
"""


class Postgres(Node):
    """One node. Its state is in its folder, so that several processes can control it."""

    engine = "postgresql"
    stop_signal = signal.SIGINT
    actions = (*Node.actions, "promote", "rejoin", "pause", "resume")

    def __init__(self, root, name, port, password, others=()):
        super().__init__(root, name, port)
        self.password = password
        self.others = others  # further nodes

    @property
    def data(self):
        return self.folder / "data"

    def tool(self, program, *arguments, **further):
        return machine.run(USER, self.folder, PROGRAMS / program, *arguments, **further)

    def query(self, statement, database="postgres"):
        """Result of a statement by the administrator: one line a row, columns separated by '|'."""
        words = ("-h", self.folder, "-p", self.port, "-U", USER, "-d", database, "-XAtq", "-v", "ON_ERROR_STOP=1")
        return self.tool("psql", *words, "-c", statement, PGCONNECT_TIMEOUT="2").strip()

    def make_primary(self):
        machine.make_private(self.folder, USER)
        self.tool("initdb", "-D", self.data, "-E", "UTF8", "--locale=C", "-U", USER, "-N", "-A", "scram-sha-256",
                  "--auth-local=trust")  # fmt: skip
        (self.data / "postgresql.conf").write_text(SETTINGS.format(**vars(self)), encoding="utf-8")
        (self.data / "pg_hba.conf").write_text(ACCESS, encoding="utf-8")
        self.start()
        self.query("CREATE ROLE balancer LOGIN")
        self.query(f"CREATE ROLE replica LOGIN SUPERUSER REPLICATION PASSWORD '{self.password}'")

    def make_standby(self, primary):
        machine.make_private(self.folder, USER)
        primary.add_slot(self)
        self.tool("pg_basebackup", "-D", self.data, "-h", "127.0.0.1", "-p", primary.port, "-U", "replica",
                  "--checkpoint=fast", PGPASSWORD=self.password)  # fmt: skip
        (self.data / "postgresql.conf").write_text(SETTINGS.format(**vars(self)), encoding="utf-8")
        self.follow(primary)
        self.start()

    def add_slot(self, standby):
        """Keeps the log for a standby from now on."""
        if not self.query(f"SELECT 1 FROM pg_replication_slots WHERE slot_name = '{standby.name}'"):
            self.query(f"SELECT pg_create_physical_replication_slot('{standby.name}', true)")

    def follow(self, primary):
        """Settings of a standby; to be read at the start or by a reload."""
        account = f"user=replica password={self.password} application_name={self.name}"
        source = f"host=127.0.0.1 port={primary.port} {account}"
        lines = f"primary_conninfo = '{source}'\nprimary_slot_name = '{self.name}'\n"
        (self.data / "postgresql.auto.conf").write_text(lines, encoding="utf-8")
        (self.data / "standby.signal").touch()

    def start(self):
        machine.launch(USER, self.folder, PROGRAMS / "postgres", "-D", self.data)
        machine.poll(f"{self.name} to answer", self.answers)

    def is_primary(self):
        return self.answers("SELECT pg_is_in_recovery()") == "f"

    def promote(self):
        """Makes this standby the primary; the other running standbys follow it."""
        self.query("SELECT pg_promote()")
        machine.poll(f"{self.name} as primary", self.is_primary)
        for other in self.others:
            if other.answers("SELECT pg_is_in_recovery()") == "t":
                self.add_slot(other)
                other.follow(self)
                other.query("SELECT pg_reload_conf()")

    def rejoin(self):
        """Starts a stopped former primary as a standby of the present one."""
        primary = next(other for other in self.others if other.is_primary())
        primary.add_slot(self)
        primary.query("CHECKPOINT")  # pg_rewind takes the new timeline from the last one
        self.tool("pg_rewind", "-D", self.data, f"--source-server=host=127.0.0.1 port={primary.port} user=replica "
                  f"password={self.password} dbname=postgres")  # fmt: skip
        (self.data / "postgresql.conf").write_text(SETTINGS.format(**vars(self)), encoding="utf-8")
        self.follow(primary)
        self.start()

    def sessions(self, user="suite"):
        """Number of connections of an account."""
        return int(self.answers(f"SELECT count(*) FROM pg_stat_activity WHERE usename = '{user}'") or 0)

    def waiting(self, user="suite"):
        """Whether a statement of an account waits for a lock."""
        sessions = f"FROM pg_stat_activity WHERE usename = '{user}'"
        return self.answers(f"SELECT 1 {sessions} AND wait_event_type = 'Lock' LIMIT 1")

    def await_applied(self, other):
        """Waits until this standby has all that the other node has written."""
        written = other.query("SELECT pg_current_wal_lsn()")
        machine.poll(f"{self.name} to catch up",
                     lambda: self.answers(f"SELECT pg_last_wal_replay_lsn() >= '{written}'") == "t")  # fmt: skip

    def block(self, table):
        """Lets statements on a table wait until unblock(), here and on the standbys. Only on a primary."""
        words = ("-h", self.folder, "-p", self.port, "-U", USER, "-d", "suite", "-XAtq")
        # The lock of a transaction that writes nothing stays in a buffer of the log until the switch.
        statement = f'BEGIN; LOCK TABLE "{table.lower()}"; SELECT pg_switch_wal(), pg_sleep(600)'
        machine.start_client(USER, self.folder, PROGRAMS / "psql", *words, "-c", statement)

    def unblock(self):
        """Ends the locks of block(). True if there was none."""
        sessions = "FROM pg_stat_activity WHERE wait_event = 'PgSleep'"
        return self.answers(f"SELECT count(pg_terminate_backend(pid)) {sessions}") == "0"

    def holds_lock(self):
        """Whether the lock of block() has reached this node."""
        return self.answers(
            "SELECT 1 FROM pg_locks JOIN pg_database ON pg_database.oid = database WHERE datname = 'suite'"
            " AND granted AND mode = 'AccessExclusiveLock' AND locktype = 'relation'"
        )

    def pause(self):
        """The standby receives the log and does not apply it: its rows lag."""
        self.query("SELECT pg_wal_replay_pause()")

    def resume(self):
        self.query("SELECT pg_wal_replay_resume()")

    def clean(self):
        """Ends the server so that it returns its shared memory, or removes the segment of a killed one."""
        if self.pid is not None:
            self.thaw()
            with contextlib.suppress(machine.TooLate):
                self.end(signal.SIGQUIT)
        with contextlib.suppress(OSError, IndexError):
            segment = (self.data / "postmaster.pid").read_text(encoding="utf-8").splitlines()[6].split()[1]
            subprocess.run(["ipcrm", "-m", segment], check=False, capture_output=True)
