"""Unix users, an installation made as the documentation says, and processes that run as one of the users."""

import grp
import json
import os
import pwd
import shutil
import subprocess
import tempfile
import traceback

GROUP = "meibo-clerks"
HANAKO, TARO, JIRO, SABURO = CLERKS = ("meibo-hanako", "meibo-taro", "meibo-jiro", "meibo-saburo")
OUTSIDER = "meibo-outsider"


def run(*command, **options):
    return subprocess.run(command, check=True, capture_output=True, text=True, **options).stdout


def remove_users():
    """Also removes users left by a killed run."""
    for user in (*CLERKS, OUTSIDER):
        subprocess.run(["userdel", user], capture_output=True, check=False)
    subprocess.run(["groupdel", GROUP], capture_output=True, check=False)


def make_users():
    remove_users()
    run("groupadd", GROUP)
    for user in CLERKS:
        run("useradd", "--no-create-home", "--user-group", "--groups", GROUP, user)
    run("useradd", "--no-create-home", "--user-group", OUTSIDER)


def become(user):
    entry = pwd.getpwnam(user)
    os.initgroups(user, entry.pw_gid)
    os.setgid(entry.pw_gid)
    os.setuid(entry.pw_uid)


def as_user(user, work):
    """Calls `work` in a child process of that user and returns its result, which must be JSON-serialisable."""
    reading, writing = os.pipe()
    child = os.fork()
    if child == 0:
        try:
            become(user)
            answer = json.dumps({"value": work()})
        except BaseException:  # the child must not continue with the tests of its parent
            answer = json.dumps({"error": traceback.format_exc()})
        os.write(writing, answer.encode())
        os._exit(0)
    os.close(writing)
    with os.fdopen(reading, "rb") as answer:
        reply = json.loads(answer.read())
    os.waitpid(child, 0)
    if "error" in reply:
        raise AssertionError(reply["error"])
    return reply["value"]


class Machine:
    """Users and files of a test run, all in one folder that every user can enter. close() removes them."""

    def __init__(self):
        make_users()
        self.work = tempfile.mkdtemp(prefix="meibo-users-", dir="/tmp")
        os.chmod(self.work, 0o755)
        self.programs = shutil.copytree(os.environ["SUITE_PROGRAMS"], f"{self.work}/programs")
        # The users must be able to read the test drivers, too.
        self.tests = f"{self.work}/tests"
        for part in ("accessibility", "users"):
            shutil.copytree(f"{os.environ['SUITE_TESTS']}/{part}", f"{self.tests}/{part}")
        run("chmod", "-R", "a+rX", self.programs, self.tests)
        self.registry = f"{self.work}/registry/machine"
        os.mkdir(f"{self.work}/registry", 0o755)
        for user in (*CLERKS, OUTSIDER):
            entry = pwd.getpwnam(user)
            for folder in (self.home(user), self.runtime(user)):
                os.makedirs(folder, 0o700)
                os.chown(folder, entry.pw_uid, entry.pw_gid)
        # As docs/administration.md recommends.
        self.parent = f"{self.work}/srv"
        run("install", "-d", "-m", "2750", "-g", GROUP, self.parent)

    def close(self):
        shutil.rmtree(self.work)
        remove_users()

    def home(self, user):
        return f"{self.work}/home-{user}"

    def runtime(self, user):
        return f"{self.work}/run-{user}"

    def environment(self, user=None, **more):
        kept = {name: os.environ[name] for name in ("PATH", "LANG")}
        own = {"HOME": self.home(user), "XDG_RUNTIME_DIR": self.runtime(user)} if user else {"HOME": "/root"}
        return kept | own | {"MEIBO_MACHINE_REGISTRY": self.registry} | more

    def setup(self, *arguments, mask=0o022):
        return run(f"{self.programs}/suite-setup", *arguments, env=self.environment(), umask=mask)

    def make(self, name, *options, mask=0o022):
        """Creates an installation as root. Returns its folder and the tool's output."""
        root = f"{self.parent}/{name}"
        return root, self.setup("init", root, "--staff", "20", "--seed", "1", *options, mask=mask)

    def start(self, user, command, mask=0o022, **more):
        """Starts a process as the user."""
        entry = pwd.getpwnam(user)
        return subprocess.Popen(
            command, user=entry.pw_uid, group=entry.pw_gid, extra_groups=[grp.getgrnam(GROUP).gr_gid],
            umask=mask, env=self.environment(user, **more), cwd=self.home(user), text=True,
            stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
        )  # fmt: skip

    def picture(self, user, root, mask=0o022, **more):
        """Starts the inquiry headless up to its first list and returns its output."""
        command = ["xvfb-run", "-a", "-s", "-screen 0 1152x864x24", f"{root}/prgbin/要員名簿照会"]
        running = self.start(user, command, mask, MEIBO_PICTURE=f"{self.home(user)}/list.png", **more)
        return running.communicate(timeout=120)[0]


def entries(root):
    """All paths of an installation, beginning with its root folder."""
    found = [root]
    for folder, folders, files in os.walk(root):
        found += [f"{folder}/{name}" for name in sorted(folders + files)]
    return found


def rights(path):
    state = os.lstat(path)
    return f"{state.st_mode & 0o7777:04o} {grp.getgrgid(state.st_gid).gr_name}"
