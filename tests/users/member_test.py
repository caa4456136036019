"""A malicious member of the group against another member's private copies."""

import os
import pwd
import unittest

import attacks
from machine import HANAKO, JIRO, SABURO, Machine, as_user, entries, rights


class HostileMember(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.machine = Machine()
        cls.addClassCleanup(cls.machine.close)
        cls.root, _ = cls.machine.make("shiten", "--install-kind", "1")
        cls.users = f"{cls.root}/users"
        cls.own = f"{cls.users}/{HANAKO}"
        output = cls.machine.picture(HANAKO, cls.root)
        assert "rows=" in output, output
        cls.paths = entries(cls.own)
        cls.aside = cls.machine.home(JIRO)

    def test_private_folder_is_for_its_user_alone(self):
        state = os.lstat(self.own)
        self.assertEqual((state.st_uid, f"{state.st_mode & 0o777:04o}"), (pwd.getpwnam(HANAKO).pw_uid, "0700"))

    def test_reads_lists_and_locks_nothing_of_another_member(self):
        self.assertEqual(as_user(JIRO, lambda: attacks.look_at(self.paths)), [])

    def test_plants_nothing_there(self):
        folders = [path for path in self.paths if os.path.isdir(path)]
        bait = f"{self.root}/data/gnrdb.accdb"
        self.assertEqual(as_user(JIRO, lambda: attacks.plant(folders, bait, self.aside)), [])

    def test_renames_and_removes_nothing_there(self):
        self.assertEqual(as_user(JIRO, lambda: attacks.take_away(self.paths, self.aside)), [])
        self.assertEqual(entries(self.own), self.paths)

    def test_exchanges_no_part_of_the_installation(self):
        outer = [self.root, *(f"{self.root}/{name}" for name in sorted(os.listdir(self.root)))]
        programs = [path for path in entries(self.root) if "/prgbin/" in path or "/host/" in path]
        before = [rights(path) for path in outer]
        self.assertEqual(as_user(JIRO, lambda: attacks.take_away(outer + programs, self.aside)), [])
        self.assertEqual([rights(path) for path in outer], before)

    def start_of_saburo_with(self, make):
        """SABURO's first start, after another member has created something under the name of SABURO's folder."""
        folder, target = f"{self.users}/{SABURO}", f"{self.aside}/target"
        as_user(JIRO, lambda: make(folder, target))
        self.addCleanup(attacks.clear, folder, target)
        output = self.machine.picture(SABURO, self.root)
        self.assertNotIn("rows=", output)
        self.assertEqual(as_user(JIRO, lambda: attacks.files_in(target)), [])
        self.assertEqual(as_user(JIRO, lambda: attacks.files_in(folder)), [])

    def test_folder_of_the_other_member_is_not_taken_for_the_users_own(self):
        self.start_of_saburo_with(lambda folder, _: (os.mkdir(folder), os.chmod(folder, 0o777))[1])

    def test_link_is_not_followed_to_a_folder_of_the_other_member(self):
        def link(folder, target):
            os.mkdir(target)
            os.chmod(target, 0o777)
            os.chmod(os.path.dirname(target), 0o755)
            os.symlink(target, folder)

        self.start_of_saburo_with(link)
