"""HAProxy before the nodes: for each engine one port for writing and one for reading."""

import contextlib
import csv
import os
import socket

from . import machine
from .node import Node

USER = "haproxy"
# A program holds its connection for its whole run, so idle connections are not closed. Those to a failed node are
# closed at once: a frozen node would keep its clients waiting.
SETTINGS = """
global
    stats socket {folder}/admin mode 600 level admin
    maxconn 4000
defaults
    mode tcp
    timeout connect 2s
    timeout client 24h
    timeout server 24h
    timeout check 1s
    option clitcpka
    option srvtcpka
    option redispatch
    retries 2
    default-server inter 500ms fastinter 200ms fall 2 rise 2 on-marked-down shutdown-sessions
"""
POSTGRESQL = """
listen postgresql-write
    bind 127.0.0.1:{write}
    {check_primary}
{servers}
# Connections live as long as their server. New ones go to a standby that receives the primary's log, if there is one;
# its check must not end them, since no standby receives anything while the primary is replaced.
listen postgresql-read
    bind 127.0.0.1:{read}
    balance leastconn
    tcp-request connection set-var(sess.side) rand(2)
{preferred}
    {check_any}
{servers}
backend postgresql-standbys
    {check_standby}
{servers}
"""
MARIADB = """
listen mariadb-write
    bind 127.0.0.1:{write}
    {check}
{ordered_servers}
listen mariadb-read
    bind 127.0.0.1:{read}
    balance leastconn
    {check}
{servers}
"""


def hexadecimal(data):
    return data.hex()


def lines(rules):
    return "\n    ".join(["option tcp-check", "tcp-check connect", *(f"tcp-check {rule}" for rule in rules)])


def postgresql_check(condition):
    """The rules of a check that logs in without a password and is passed if a condition is true."""
    login = b"\0\3\0\0user\0balancer\0database\0postgres\0\0"
    query = f"SELECT {condition}".encode() + b"\0"
    return lines(
        (
            f"send-binary {hexadecimal((len(login) + 4).to_bytes(4, 'big') + login)}",
            f"expect binary {hexadecimal(b'Z' + (5).to_bytes(4, 'big') + b'I')}",
            f"send-binary {hexadecimal(b'Q' + (len(query) + 4).to_bytes(4, 'big') + query)}",
            f"send-binary {hexadecimal(b'X' + (4).to_bytes(4, 'big'))}",
            # A row of one column with the text "t". Any other reply ends the check, since the server then closes.
            f"expect binary {hexadecimal(b'D' + bytes((0, 0, 0, 11, 0, 1, 0, 0, 0, 1)) + b't')}",
        )
    )


def mariadb_check():
    """The rules of a check that logs in without a password and is passed by a member of the cluster's majority."""
    plugin = b"mysql_native_password"
    features = 0x00088200  # the protocol of version 4.1, authentication by a plugin
    login = features.to_bytes(4, "little") + (1 << 24).to_bytes(4, "little") + b"\x2d" + bytes(23)
    login += b"balancer\0\0" + plugin + b"\0"
    query = b"\3SHOW STATUS LIKE 'wsrep_local_state_comment'"

    def packet(number, content):
        return hexadecimal(len(content).to_bytes(3, "little") + bytes((number,)) + content)

    return lines(
        (
            f"expect binary {hexadecimal(plugin)}",
            f"send-binary {packet(1, login)}",
            f"expect binary {hexadecimal(bytes((7, 0, 0, 2, 0, 0, 0)))}",
            f"send-binary {packet(0, query)}",
            f"send-binary {packet(0, bytes((1,)))}",
            f"expect binary {hexadecimal(b'Synced')}",
        )
    )


def server_lines(nodes, ordered=False):
    """`ordered`: only the first node that is up gets connections."""
    return "\n".join(
        f"    server {node.name} 127.0.0.1:{node.port} check{' backup' if ordered and place else ''}"
        for place, node in enumerate(nodes)
    )


def preferred_lines(nodes, backend):
    """Rules for new connections: half of them take the first server that is up in a backend, half the last one."""
    side = " { var(sess.side) -m int eq 0 }"
    ordered = [(node.name, side) for node in nodes] + [(node.name, "") for node in reversed(nodes)]
    return "\n".join(f"    use-server {name} if{half} {{ srv_is_up({backend}/{name}) }}" for name, half in ordered)


def postgresql_section(nodes, write, read):
    streaming = "pg_is_in_recovery() AND EXISTS (SELECT FROM pg_stat_wal_receiver)"
    return POSTGRESQL.format(
        write=write, read=read, servers=server_lines(nodes), check_primary=postgresql_check("NOT pg_is_in_recovery()"),
        check_standby=postgresql_check(streaming), check_any=postgresql_check("true"),
        preferred=preferred_lines(nodes, "postgresql-standbys"),
    )  # fmt: skip


def mariadb_section(nodes, write, read):
    return MARIADB.format(
        write=write, read=read, servers=server_lines(nodes), ordered_servers=server_lines(nodes, ordered=True),
        check=mariadb_check(),
    )  # fmt: skip


class Balancer(Node):
    """`ports`: {engine: (write, read)}."""

    actions = ("kill", "stop", "start", "restart", "freeze", "thaw", "query")

    def __init__(self, root, ports):
        super().__init__(root, "haproxy", None)
        self.ports = ports

    def make(self, nodes):
        """`nodes`: {engine: nodes}."""
        machine.make_private(self.folder, USER)
        sections = {"postgresql": postgresql_section, "mariadb": mariadb_section}
        text = SETTINGS.format(folder=self.folder)
        for engine, members in nodes.items():
            text += sections[engine](members, *self.ports[engine])
        (self.folder / "haproxy.cfg").write_text(text, encoding="utf-8")
        if os.getuid() == 0:
            os.chmod(self.folder / "haproxy.cfg", 0o644)

    def start(self):
        machine.run(USER, self.folder, "haproxy", "-c", "-f", self.folder / "haproxy.cfg")
        machine.launch(USER, self.folder, "haproxy", "-f", self.folder / "haproxy.cfg", "-db")
        machine.poll("HAProxy", lambda: self.query("show info"))

    def restart(self):
        """Ends all connections."""
        self.stop()
        self.start()

    def query(self, command):
        """Result of a command of HAProxy's administration socket, empty if it does not run."""
        with contextlib.suppress(OSError), socket.socket(socket.AF_UNIX) as admin:
            admin.connect(str(self.folder / "admin"))
            admin.sendall(f"{command}\n".encode())
            return b"".join(iter(lambda: admin.recv(65536), b"")).decode()
        return ""

    def up(self, backend):
        """Names of the servers of a backend that pass their check."""
        rows = csv.DictReader(self.query("show stat").removeprefix("# ").splitlines())
        return [row["svname"] for row in rows
                if row["pxname"] == backend and row["type"] == "2" and row["status"].startswith("UP")]  # fmt: skip

    def await_up(self, backend, *names):
        wanted = sorted(names)
        machine.poll(f"{names} up in {backend}", lambda: sorted(self.up(backend)) == wanted)
