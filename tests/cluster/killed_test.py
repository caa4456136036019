"""The node in use is killed or frozen."""

from clerk import ClusterCase
from desk import wait_for


class NodeInUse:
    """What a clerk sees, with each engine and purpose."""

    table = "M担当者"

    def blocking_node(self, node):
        return node

    def test_killed_between_searches_leaves_empty_lists_until_the_next_start(self):
        self.node_in_use().kill()
        self.begin_search()
        self.await_failed_search(1)
        self.assert_answers()
        self.assert_next_start()

    def block_search(self):
        """Begins a search that waits in the node in use, and returns the node."""
        node = self.node_in_use()
        self.blocking_node(node).block(self.table)
        wait_for("the lock", lambda: node.holds_lock())
        self.begin_search()
        wait_for("the waiting search", node.waiting)
        return node

    def test_killed_during_a_search_ends_it_with_an_empty_list(self):
        node = self.block_search()
        node.kill()
        self.await_failed_search(1)
        self.blocking_node(node).unblock()
        self.assert_answers()
        self.assert_next_start()

    def test_frozen_during_a_search_is_cut_off_by_the_balancer(self):
        node = self.block_search()
        node.freeze()
        self.await_failed_search(1)
        self.blocking_node(node).unblock()
        self.assert_answers()
        self.assert_next_start()


class Primary(NodeInUse, ClusterCase):
    """Writing and reading at the PostgreSQL primary."""

    engine = "postgresql"

    def assert_next_start(self):
        """Until a standby is promoted, no server takes the connections for writing."""
        self.assert_start_fails()
        self.repair()
        super().assert_next_start()


class Standbys(NodeInUse, ClusterCase):
    """Reading from the PostgreSQL standbys."""

    engine, purpose = "postgresql", "read"

    def blocking_node(self, node):
        return self.nodes[0]


class Galera(NodeInUse, ClusterCase):
    """Writing and reading at the first Galera node."""

    engine = "mariadb"


class GaleraReading(NodeInUse, ClusterCase):
    """Reading from all Galera nodes."""

    engine, purpose = "mariadb", "read"
