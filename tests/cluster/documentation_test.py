"""The balancer's settings in docs/administration.md are those that are tested."""

import re
import unittest
from pathlib import Path
from types import SimpleNamespace

from servers import balancer

PAGE = Path(__file__).resolve().parent.parent.parent / "docs/administration.md"


def nodes(engine):
    return [SimpleNamespace(name=f"{engine}{number}", port=None) for number in (1, 2, 3)]


def lines(text):
    neutral = re.sub(r"10\.0\.0\.\d:\d+|127\.0\.0\.1:None", "ADDRESS", text)
    return [line for line in neutral.splitlines() if line.strip()]


class Documentation(unittest.TestCase):
    def test_settings_of_the_balancer_are_those_of_the_tests(self):
        page = next(text for text in PAGE.read_text(encoding="utf-8").split("```") if text.startswith("\nglobal\n"))
        tested = [
            balancer.SETTINGS.replace("{folder}/admin mode 600", "/run/haproxy/admin.sock mode 660"),
            balancer.postgresql_section(nodes("pg"), 5000, 5001),
            balancer.mariadb_section(nodes("db"), 3000, 3001),
        ]
        self.assertEqual(lines(page), lines("\n".join(tested)))
