"""A MariaDB Galera cluster of three nodes."""

import re
from pathlib import Path

from . import machine
from .node import Node

USER = "mysql"
PROVIDER = Path("/usr/lib/galera/libgalera_smm.so")
SETTINGS = """
[mariadbd]
datadir = {folder}/data
socket = {folder}/socket
pid-file = {folder}/pid
port = {port}
bind-address = 127.0.0.1
skip-name-resolve
max_connections = 500
character-set-server = utf8mb4
collation-server = utf8mb4_nopad_bin
innodb_flush_log_at_trx_commit = 0
innodb_flush_method = nosync
innodb_doublewrite = OFF
innodb_log_file_size = 16M
innodb_buffer_pool_size = 96M
sync_frm = OFF
binlog_format = ROW
innodb_autoinc_lock_mode = 2
wsrep_on = ON
wsrep_provider = {provider}
wsrep_cluster_name = {cluster}
wsrep_cluster_address = gcomm://{members}
wsrep_node_name = {name}
wsrep_node_address = 127.0.0.1:{group_port}
wsrep_sst_method = rsync
wsrep_sst_receive_address = 127.0.0.1:{transfer_port}
wsrep_provider_options = "gmcast.listen_addr=tcp://127.0.0.1:{group_port};ist.recv_addr=127.0.0.1:{increment_port};\
gcache.size=16M;evs.keepalive_period=PT0.5S;evs.suspect_timeout=PT2S;evs.inactive_timeout=PT4S;\
evs.install_timeout=PT4S"
"""


class Galera(Node):
    """One node. Its state is in its folder, so that several processes can control it."""

    engine = "mariadb"
    actions = (*Node.actions, "bootstrap", "isolate", "join")

    def __init__(self, root, name, ports, members):
        super().__init__(root, name, ports[0])
        self.group_port, self.transfer_port, self.increment_port = ports[1:]
        self.members = members  # addresses of all nodes in their group
        self.provider, self.cluster = PROVIDER, Path(root).name

    def query(self, statement, database=""):
        """Result of a statement by the administrator: one line a row, columns separated by tabs."""
        words = ("--no-defaults", "-uroot", "-S", self.folder / "socket", "--default-character-set=utf8mb4", "-BN",
                 "--connect-timeout=2")  # fmt: skip
        return machine.run(USER, self.folder, "mariadb", *words, "-e", statement, database).strip()

    def status(self, name):
        """Value of a wsrep_ status variable, None if the node does not answer."""
        line = self.answers(f"SHOW STATUS LIKE 'wsrep_{name}'")
        return line.split("\t")[1] if line else None

    def is_synced(self):
        return self.status("local_state_comment") == "Synced"

    def view(self):
        """The members as this node sees them: their number and the number of the change that led to it."""
        return self.status("cluster_size"), self.status("cluster_conf_id")

    def make(self):
        machine.make_private(self.folder, USER)
        (self.folder / "settings").write_text(SETTINGS.format(**vars(self)), encoding="utf-8")
        machine.run(USER, self.folder, "mariadb-install-db", "--no-defaults", "--skip-test-db",
                    "--auth-root-authentication-method=normal", f"--datadir={self.folder}/data")  # fmt: skip

    def start(self, *options):
        """Starts the node as a member of the running cluster. One that was killed finds its last transaction first,
        since it would copy all data from another node otherwise."""
        if not options:
            options = self.last_position()
        process = machine.launch(USER, self.folder, "mariadbd", f"--defaults-file={self.folder}/settings", *options)

        def synced():
            if machine.ended(process.pid):
                raise RuntimeError(f"{self.name} ended:\n{(self.folder / 'log').read_text()[-2000:]}")
            return self.is_synced()

        machine.poll(f"{self.name} as member of the cluster", synced)

    def last_position(self):
        """The option with the last transaction of this node, none if it has no data of the cluster yet."""
        if not (self.folder / "data/grastate.dat").exists():
            return ()
        log = self.folder / "recovery.err"  # the server appends .err to other names
        machine.run(USER, self.folder, "mariadbd", f"--defaults-file={self.folder}/settings", "--wsrep-recover",
                    f"--log-error={log}")  # fmt: skip
        found = re.findall(r"WSREP: Recovered position: (\S+)", log.read_text(encoding="utf-8"))
        return (f"--wsrep-start-position={found[-1]}",) if found else ()

    def bootstrap(self):
        """Starts the first node, or the last one that was stopped, as a new cluster."""
        state = self.folder / "data/grastate.dat"
        if state.exists():
            state.write_text(state.read_text().replace("safe_to_bootstrap: 0", "safe_to_bootstrap: 1"))
        self.start("--wsrep-new-cluster")

    @property
    def isolated(self):
        """A file that exists while the node is isolated: the server does not show that setting."""
        return self.folder / "isolated"

    def isolate(self):
        """Cuts the node off from the others, as by a broken network: it keeps running and refuses statements."""
        self.isolated.touch()
        self.query("SET GLOBAL wsrep_provider_options = 'gmcast.isolate=1'")
        machine.poll(f"the isolation of {self.name}", lambda: self.status("cluster_status") == "non-Primary")

    def join(self):
        """Ends the isolation, if any. The node is a member again as soon as it finds the majority."""
        if self.isolated.exists():
            self.isolated.unlink()
            self.query("SET GLOBAL wsrep_provider_options = 'gmcast.isolate=0'")

    def sessions(self, user="suite"):
        """Number of connections of an account."""
        return int(self.answers(f"SELECT count(*) FROM information_schema.processlist WHERE user = '{user}'") or 0)

    def waiting(self, user="suite"):
        """Whether a statement of an account waits for a lock."""
        return self.answers(
            f"SELECT 1 FROM information_schema.processlist WHERE user = '{user}' AND state LIKE 'Waiting for%lock'"
        )

    def block(self, table):
        """Lets statements on a table wait on this node until unblock()."""
        words = ("--no-defaults", "-uroot", "-S", self.folder / "socket", "--default-character-set=utf8mb4", "suite")
        machine.start_client(USER, self.folder, "mariadb", *words, "-e",
                             f"LOCK TABLES `{table}` WRITE; SELECT SLEEP(600)")  # fmt: skip

    def unblock(self):
        """Ends the locks of block(). True if there was none."""
        found = self.blocking()
        for session in found or ():
            self.answers(f"KILL {session}")
        return found == []

    def blocking(self):
        """Sessions of block() that have their lock, None if the node does not answer. Also without a majority."""
        lines = self.answers("SHOW PROCESSLIST")
        if lines is None:
            return None
        return [line.split("\t")[0] for line in lines.splitlines() if "\tUser sleep\t" in line]

    def holds_lock(self):
        """Whether block() has its lock."""
        return self.blocking()
