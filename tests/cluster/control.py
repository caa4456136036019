"""Implementation of scripts/cluster-control: acts on a node of the cluster of MEIBO_CLUSTER_FOLDER."""

import argparse
import os
import sys

from servers.cluster import Cluster


def main():
    members = Cluster.opened(os.environ["MEIBO_CLUSTER_FOLDER"]).members
    parser = argparse.ArgumentParser(prog="scripts/cluster-control")
    parser.add_argument("node", choices=members)
    parser.add_argument("action")
    parser.add_argument("argument", nargs="*", help="the statement of a query")
    options = parser.parse_args()
    node = members[options.node]
    if options.action not in node.actions:
        parser.error(f"{node.name} has the actions {', '.join(node.actions)}")
    result = getattr(node, options.action)(*options.argument)
    if result is not None:
        print(result)


if __name__ == "__main__":
    sys.exit(main())
