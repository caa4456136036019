"""Prints the screen positions of the items in the programs' windows as JSON: guide.py WORK HOME."""

import json
import os
import sys
from pathlib import Path

from desk import Screen
from installation import Installation
from places import measure


def main():
    work, home = map(Path, sys.argv[1:])
    site = Installation(home / "site", work / "programs", os.environ)
    site.make("--staff", 60)
    screen = Screen()
    try:
        print(json.dumps(measure(site, dict(os.environ), site.staff()[0]), ensure_ascii=False))
    finally:
        screen.close()


if __name__ == "__main__":
    main()
