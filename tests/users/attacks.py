"""Attacks of a malicious user. Each function returns the list of successful attempts; tests expect it to be empty."""

import fcntl
import os
import shutil

WAYS = {"read": os.O_RDONLY, "write": os.O_WRONLY, "both": os.O_RDWR}


def succeeds(step, *arguments):
    try:
        step(*arguments)
    except OSError:
        return False
    return True


def open_for(way, path):
    os.close(os.open(path, WAYS[way] | os.O_NONBLOCK))


def lock(path):
    file = os.open(path, os.O_RDONLY | os.O_NONBLOCK)
    try:
        fcntl.flock(file, fcntl.LOCK_EX | fcntl.LOCK_NB)
    finally:
        os.close(file)


def look_at(paths):
    """Opens, lists and locks each path."""
    done = [f"{way} {path}" for path in paths for way in WAYS if succeeds(open_for, way, path)]
    done += [f"list {path}" for path in paths if succeeds(os.listdir, path)]
    return done + [f"lock {path}" for path in paths if succeeds(lock, path)]


def plant(folders, target, aside):
    """Creates folders and links in folders, and hard links to them elsewhere."""
    done = []
    for folder in folders:
        for step, arguments in (
            (os.symlink, (target, f"{folder}/planted-link")),
            (os.link, (target, f"{folder}/planted-name")),
            (os.mkdir, (f"{folder}/planted-folder",)),
            (os.mkdir, (f"{folder}/.suite-setup-planted",)),
        ):
            if succeeds(step, *arguments):
                done.append(f"{step.__name__} {arguments[-1]}")
        if succeeds(os.link, folder, f"{aside}/second-name"):
            done.append(f"second name of {folder}")
    return done


def take_away(paths, aside):
    """Renames, removes and changes modes."""
    done = []
    for path in paths:
        if succeeds(os.rename, path, f"{path}.renamed") or succeeds(os.rename, path, f"{aside}/taken"):
            done.append(f"rename {path}")
        if succeeds(os.chmod, path, 0o777):
            done.append(f"chmod {path}")
        if succeeds(os.unlink, path) or succeeds(os.rmdir, path):
            done.append(f"remove {path}")
    return done


def files_in(folder):
    return sorted(f"{place}/{name}" for place, folders, files in os.walk(folder) for name in folders + files)


def clear(*folders):
    for folder in folders:
        if os.path.islink(folder):
            os.unlink(folder)
        else:
            shutil.rmtree(folder, ignore_errors=True)
