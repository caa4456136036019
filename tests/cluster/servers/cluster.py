"""The whole cluster: which nodes it has, how it is made and how it is ended."""

import json
import secrets
import shutil
from pathlib import Path

from . import machine
from .balancer import Balancer
from .galera import Galera
from .postgresql import Postgres

ENGINES = ("postgresql", "mariadb")
STATE = "cluster.json"
ACCOUNT = "suite"
DRIVERS = {"postgresql": "PostgreSQL Unicode", "mariadb": "MariaDB Unicode"}
COUNT = 3  # nodes of each engine


class Cluster:
    """Nodes and balancer by the description in the cluster's folder."""

    def __init__(self, root, engines, ports, password):
        self.root, self.engines, self.password = Path(root), engines, password
        ports = iter(ports)
        self.balancer = Balancer(root, {engine: (next(ports), next(ports)) for engine in engines})
        self.nodes = {}
        if "postgresql" in engines:
            names = [f"postgresql{number + 1}" for number in range(COUNT)]
            self.nodes["postgresql"] = [Postgres(root, name, next(ports), password) for name in names]
        for node in self.nodes.get("postgresql", ()):
            node.others = [other for other in self.nodes["postgresql"] if other is not node]
        if "mariadb" in engines:
            four = [[next(ports) for _ in range(4)] for _ in range(COUNT)]
            members = ",".join(f"127.0.0.1:{one[1]}" for one in four)
            self.nodes["mariadb"] = [Galera(root, f"mariadb{n + 1}", four[n], members) for n in range(COUNT)]

    @classmethod
    def new(cls, root, engines=ENGINES):
        ports, password = machine.free_ports(2 * 2 + COUNT + 4 * COUNT), secrets.token_hex(8)
        description = {"engines": engines, "ports": ports, "password": password}
        (Path(root) / STATE).write_text(json.dumps(description), encoding="utf-8")
        return cls(root, **description)

    @classmethod
    def opened(cls, root):
        return cls(root, **json.loads((Path(root) / STATE).read_text(encoding="utf-8")))

    @property
    def members(self):
        """All servers by name."""
        every = [node for nodes in self.nodes.values() for node in nodes]
        return {member.name: member for member in [*every, self.balancer]}

    def make(self):
        if "postgresql" in self.engines:
            self.make_postgresql(*self.nodes["postgresql"])
        if "mariadb" in self.engines:
            self.make_mariadb(*self.nodes["mariadb"])
        self.balancer.make(self.nodes)
        self.balancer.start()
        self.await_whole()

    def make_postgresql(self, primary, *standbys):
        primary.make_primary()
        primary.query(f"CREATE ROLE {ACCOUNT} SUPERUSER LOGIN PASSWORD '{self.password}'")
        primary.query(f"CREATE DATABASE {ACCOUNT} OWNER {ACCOUNT}")
        for standby in standbys:
            standby.make_standby(primary)

    def make_mariadb(self, first, *others):
        first.make()
        first.bootstrap()
        first.query(
            f"CREATE USER balancer@127.0.0.1; CREATE USER {ACCOUNT}@127.0.0.1 IDENTIFIED BY '{self.password}';"
            f"GRANT ALL ON *.* TO {ACCOUNT}@127.0.0.1 WITH GRANT OPTION;"
            f"CREATE DATABASE {ACCOUNT} CHARACTER SET utf8mb4 COLLATE utf8mb4_nopad_bin"
        )
        for other in others:
            other.make()
            other.start()

    def repair(self, engine):
        """Brings all nodes back to the state after make(), whatever has happened to them."""
        if self.balancer.pid is None:
            self.balancer.start()
        for node in self.nodes[engine]:
            if node.pid is not None:
                node.thaw()
                machine.poll(f"the end of the locks of {node.name}", node.unblock)
        {"postgresql": self.repair_postgresql, "mariadb": self.repair_mariadb}[engine](*self.nodes[engine])
        self.await_whole([engine])

    def repair_postgresql(self, first, *others):
        for node in (first, *others):
            if node.pid is None and not any(other.is_primary() for other in node.others):
                node.start()
        primary = next((node for node in (first, *others) if node.is_primary()), None)
        if primary is not first:
            if first.pid is None:
                first.rejoin()
            self.replace_postgresql(primary, first)
        for node in others:
            if node.pid is None:
                node.start()
            elif node.query("SELECT pg_is_wal_replay_paused()") == "t":
                node.resume()

    @staticmethod
    def replace_postgresql(old, new):
        """Makes a standby the primary and the primary its standby, without a loss."""
        new.await_applied(old)
        old.stop()
        new.promote()
        old.rejoin()

    @staticmethod
    def repair_mariadb(*nodes):
        running = [node for node in nodes if node.pid is not None]
        for node in running:
            node.join()
        if not running:
            nodes[0].bootstrap()
        for node in nodes:  # before the others are waited for, which may need it for a majority
            if node.pid is None:
                node.start()

        def united():
            return all(node.is_synced() for node in nodes) and len({node.view() for node in nodes}) == 1

        # A node that was frozen believes for some time to be a member of the cluster that has gone on without it.
        machine.poll("all nodes in one cluster", united)

    def await_whole(self, engines=None):
        """Waits until the balancer has found every node in its role."""
        engines = engines or self.engines
        if "postgresql" in engines:
            names = [node.name for node in self.nodes["postgresql"]]
            self.balancer.await_up("postgresql-write", names[0])
            self.balancer.await_up("postgresql-standbys", *names[1:])
        if "mariadb" in engines:
            for backend in ("mariadb-write", "mariadb-read"):
                self.balancer.await_up(backend, *(node.name for node in self.nodes["mariadb"]))

    def port(self, engine, purpose):
        """`purpose`: "write" or "read"."""
        return self.balancer.ports[engine][purpose == "read"]

    def odbc(self, engine, purpose):
        """Connection string of the suite's account through the balancer."""
        return self.connection(engine, self.port(engine, purpose))

    def odbc_to(self, node):
        """The same without the balancer."""
        return self.connection(node.engine, node.port)

    def connection(self, engine, port):
        account = f"Database={ACCOUNT};UID={ACCOUNT};PWD={self.password}"
        return f"Driver={DRIVERS[engine]};Server=127.0.0.1;Port={port};{account}"

    def variables(self, control):
        """Environment of a command that uses the cluster."""
        found = {"MEIBO_CLUSTER_FOLDER": str(self.root), "MEIBO_CLUSTER_CONTROL": str(control)}
        for engine in self.engines:
            for purpose in ("write", "read"):
                found[f"MEIBO_CLUSTER_{engine.upper()}_{purpose.upper()}"] = self.odbc(engine, purpose)
        return found

    def end(self):
        try:
            for member in self.members.values():
                member.clean()
        finally:
            machine.end_below(self.root)
            shutil.rmtree(self.root)
