"""Servers fail while the registration program is open, change their roles, or disagree; the balancer restarts."""

from clerk import ClusterCase
from desk import wait_for
from office import REGISTRATION, cluster

NUMBERS = ("03-1000-0001", "03-1000-0002", "03-1000-0003")


class Registering:
    """Helpers for a clerk who changes a telephone number."""

    def telephone(self, code):
        """As stored on the node that takes changes now."""
        name = next(iter(self.balancer.up(f"{self.engine}-write")))
        return self.sample.people(self.cluster.members[name])[code][1]

    def change(self, form, number):
        self.enter(form, "電話", number)
        self.press_in(form, "btn_保存")

    def change_first_row(self, number):
        """A change that succeeds: the form closes, and the list has the row again."""
        code, searches = self.first[0][0], self.sample.searches()
        self.change(self.open_row(), number)
        wait_for("the end of the form", lambda: self.find(REGISTRATION) is None)
        wait_for("the row", lambda: self.sample.searches() > searches)
        self.return_to_main()
        self.assertEqual(self.telephone(code), number)
        self.assertEqual(self.shown(), self.first)

    def leave(self, form):
        """Closes the form without saving."""
        self.screen.focus(REGISTRATION)
        wait_for("the focus in the form", lambda: self.focused(form))
        self.press_in(form, "btn_終了")
        self.answer(REGISTRATION, form, "はい")
        wait_for("the end of the form", lambda: self.find(REGISTRATION) is None)
        self.return_to_main()


class LinkWait(Registering):
    """The node in use is killed while the inquiry waits for the registration program."""

    def test_save_is_refused_and_the_row_disappears_until_the_next_start(self):
        code = self.first[0][0]
        before = self.telephone(code)
        form = self.open_row()
        self.node_in_use().kill()
        self.change(form, NUMBERS[0])
        self.assertTrue(self.answer(REGISTRATION, form))
        self.leave(form)
        self.await_failed_reload()
        self.assert_answers()
        self.replace()
        self.assertEqual(self.telephone(code), before)
        self.assert_next_start()

    def await_failed_reload(self):
        """The row could not be read again: the other rows stay."""
        wait_for("the error row", self.errors)
        wait_for("the list without the row", lambda: self.first[0] not in self.shown())
        self.assertTrue(self.shown())
        self.assert_right_rows()

    def replace(self):
        """Has another node take over."""


class PrimaryInLinkWait(LinkWait, ClusterCase):
    engine = "postgresql"

    def replace(self):
        self.nodes[1].promote()
        self.balancer.await_up("postgresql-write", self.nodes[1].name)


class GaleraInLinkWait(LinkWait, ClusterCase):
    engine = "mariadb"


class PostgresFailover(Registering, ClusterCase):
    engine = "postgresql"

    def test_promoted_standby_takes_over_and_hands_back(self):
        first, second, third = self.nodes
        self.change_first_row(NUMBERS[0])
        second.await_applied(first)
        first.kill()
        second.promote()
        self.balancer.await_up("postgresql-write", second.name)
        self.begin_search()
        self.await_failed_search(1)
        self.assert_next_start()
        self.assertEqual(self.telephone(self.first[0][0]), NUMBERS[0])
        self.change_first_row(NUMBERS[1])
        first.rejoin()
        cluster().replace_postgresql(second, first)
        self.cluster.await_whole(["postgresql"])
        self.assert_next_start()
        self.assertEqual(self.telephone(self.first[0][0]), NUMBERS[1])
        self.change_first_row(NUMBERS[2])
        for standby in (second, third):
            standby.await_applied(first)
            self.assertEqual(self.sample.people(standby), self.sample.people(first))


class GaleraFailover(Registering, ClusterCase):
    engine = "mariadb"

    def test_next_node_takes_over_and_hands_back(self):
        first, *others = self.nodes
        self.change_first_row(NUMBERS[0])
        first.kill()
        self.begin_search()
        self.await_failed_search(1)
        self.assert_next_start()
        self.assertEqual(self.telephone(self.first[0][0]), NUMBERS[0])
        self.change_first_row(NUMBERS[1])
        first.start()
        self.cluster.await_whole(["mariadb"])
        self.assert_next_start()
        self.assertEqual(self.node_in_use(), first)
        self.change_first_row(NUMBERS[2])
        for node in others:
            wait_for("the same people", lambda: self.sample.people(node) == self.sample.people(first))  # noqa: B023


class SplitCluster(ClusterCase):
    """Nodes that have lost the majority refuse statements instead of showing old rows."""

    engine = "mariadb"

    def test_node_without_majority_is_left_by_its_clerk_and_the_next_start_finds_another(self):
        node = self.node_in_use()
        node.isolate()
        for backend in ("mariadb-write", "mariadb-read"):
            self.balancer.await_up(backend, *(other.name for other in self.nodes if other is not node))
        self.begin_search()
        self.await_failed_search(1)
        self.assert_next_start()
        self.assertNotEqual(self.node_in_use(), node)

    def test_without_any_majority_no_program_starts_until_the_nodes_meet_again(self):
        for node in self.nodes[1:]:
            node.isolate()
        for backend in ("mariadb-write", "mariadb-read"):
            self.balancer.await_up(backend)
        self.begin_search()
        self.await_failed_search(1)
        self.assert_start_fails()
        self.repair()
        self.assert_next_start()


class SplitClusterWithoutBalancer(ClusterCase):
    """A program that is connected to a node itself."""

    engine = "mariadb"

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.sample.use(cls.cluster.odbc_to(cls.cluster.nodes["mariadb"][2]))

    def test_refused_reads_are_empty_lists_until_the_node_is_a_member_again(self):
        node = self.nodes[2]
        self.assertEqual(self.node_in_use(), node)
        node.isolate()
        self.begin_search()
        self.await_failed_search(1)
        self.assertIn("WSREP has not yet prepared node for application use", self.errors()[-1])
        self.repair()
        self.search("", len(self.first))
        self.assertEqual(self.shown(), self.first)


class Balancer:
    """The balancer is restarted, which ends all connections."""

    def test_restart_leaves_empty_lists_until_the_next_start(self):
        self.balancer.restart()
        self.cluster.await_whole([self.engine])
        self.begin_search()
        self.await_failed_search(1)
        self.assert_answers()
        self.assert_next_start()

    def test_start_without_a_balancer_says_so(self):
        self.balancer.kill()
        self.begin_search()
        self.await_failed_search(1)
        self.assert_start_fails()


class PostgresBalancer(Balancer, ClusterCase):
    engine, purpose = "postgresql", "read"


class MariaDbBalancer(Balancer, ClusterCase):
    engine, purpose = "mariadb", "read"


class Reading(ClusterCase):
    """An inquiry that only reads needs no primary."""

    engine, purpose = "postgresql", "read"

    def test_goes_on_while_the_primary_is_dead_also_with_the_last_standby(self):
        first, *standbys = self.nodes
        first.kill()
        self.search("takeda", 1)
        used = self.node_in_use()
        used.kill()
        self.begin_search()
        self.await_failed_search(1)
        self.assert_next_start()
        self.assertEqual([self.node_in_use()], [standby for standby in standbys if standby is not used])

    def test_standby_without_its_primary_is_not_chosen_while_another_has_it(self):
        cut, other = self.nodes[1:]
        cut.query("ALTER SYSTEM SET primary_conninfo = ''")
        cut.query("SELECT pg_reload_conf()")
        self.addCleanup(self.follow_again, cut)
        self.balancer.await_up("postgresql-standbys", other.name)
        self.end()
        self.start()
        self.reach_main_window()
        self.assertEqual(self.node_in_use(), other)

    def follow_again(self, standby):
        standby.follow(self.nodes[0])
        standby.query("SELECT pg_reload_conf()")
