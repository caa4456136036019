"""A user who is not in the group, against an installation that root made as the documentation says."""

import os
import unittest

import attacks
from machine import OUTSIDER, Machine, as_user, entries


class Outsider(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.machine = Machine()
        cls.addClassCleanup(cls.machine.close)
        cls.root, _ = cls.machine.make("honten")
        # Open the parent folder, so that only the installation's rights keep the outsider out.
        os.chmod(cls.machine.parent, 0o2755)
        cls.paths = entries(cls.root)
        cls.folders = [cls.machine.parent, *(path for path in cls.paths if os.path.isdir(path))]
        cls.aside = cls.machine.home(OUTSIDER)

    def test_reads_lists_and_locks_nothing(self):
        self.assertEqual(as_user(OUTSIDER, lambda: attacks.look_at(self.paths)), [])

    def test_plants_nothing(self):
        def plant():
            bait = f"{self.aside}/bait"
            with open(bait, "w", encoding="utf-8"):
                pass
            return attacks.plant(self.folders, bait, self.aside)

        self.assertEqual(as_user(OUTSIDER, plant), [])

    def test_renames_and_removes_nothing(self):
        self.assertEqual(as_user(OUTSIDER, lambda: attacks.take_away([self.machine.parent, *self.paths], self.aside)), [])
        self.assertEqual(entries(self.root), self.paths)

    def test_locks_nothing_of_the_machines_registry(self):
        """The registry is readable for all users, but a lock on it would block every change."""
        lock = f"{self.machine.registry}.lock"
        self.assertTrue(os.path.exists(self.machine.registry))
        self.assertEqual(as_user(OUTSIDER, lambda: attacks.look_at([lock])), [])

    def test_program_of_the_installation_is_not_started(self):
        def start():
            return attacks.succeeds(os.execv, f"{self.root}/prgbin/要員名簿照会", ["要員名簿照会"])

        self.assertFalse(as_user(OUTSIDER, start))
