"""Implementation of scripts/with-cluster: runs a command beside a private cluster and ends the cluster."""

import argparse
import ctypes
import os
import signal
import subprocess
import sys
from pathlib import Path

from servers import machine
from servers.cluster import ENGINES, Cluster

CONTROL = Path(__file__).resolve().parent.parent.parent / "scripts/cluster-control"
ENDING = (signal.SIGINT, signal.SIGTERM, signal.SIGHUP)


PR_SET_CHILD_SUBREAPER = 36


class Ended(Exception):
    """A signal asked this process to end."""


def end(number, _):
    for one in ENDING:  # nothing interrupts the cleaning
        signal.signal(one, signal.SIG_IGN)
    raise Ended(number)


def arguments():
    parser = argparse.ArgumentParser(prog="scripts/with-cluster")
    parser.add_argument("--engine", choices=ENGINES, help="only this one")
    parser.add_argument("command", nargs=argparse.REMAINDER)
    options = parser.parse_args()
    if not options.command:
        parser.error("which command?")
    return options


def run(command, variables):
    """Exit status of the command. It ends before the cluster does."""
    process = subprocess.Popen(command, env=os.environ | variables)
    try:
        while True:
            ended, status = os.wait()
            if ended == process.pid:
                return os.waitstatus_to_exitcode(status)
    except Ended:
        process.terminate()
        try:
            process.wait(20)
        except subprocess.TimeoutExpired:
            process.kill()
            process.wait()
        raise


def main():
    options = arguments()
    for number in ENDING:
        signal.signal(number, end)
    # A killed server that nobody waits for would keep its process id, and its data folder would count as in use.
    ctypes.CDLL(None).prctl(PR_SET_CHILD_SUBREAPER, 1)
    root = machine.make_folder()
    try:
        cluster = Cluster.new(root, [options.engine] if options.engine else ENGINES)
        try:
            cluster.make()
            return run(options.command, cluster.variables(CONTROL))
        finally:
            for one in ENDING:
                signal.signal(one, signal.SIG_IGN)
            cluster.end()
    except Ended as ended:
        return 128 + ended.args[0]


if __name__ == "__main__":
    sys.exit(main())
