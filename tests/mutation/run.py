"""Runs a test program with its mutants, each time with few rights: the files of the machine are read-only, temporary
folders, processes and the network are private. A mutant may try to remove or overwrite anything."""
import collections
import concurrent.futures
import os
import pathlib
import re
import resource
import subprocess
import tempfile
import time

Result = collections.namedtuple('Result', 'passed timeout seconds output')
MEMORY = 6 << 30  # bytes of address space; an endless loop may append to something
FIRST_SECONDS = (0.5, 5)  # duration of the tests that run before the others


class Program:
    def __init__(self, path, root, jobs, grace=10):
        self.path, self.jobs, self.grace = path, jobs, grace  # seconds that a run may take longer
        self.sandbox = ['bwrap', '--ro-bind', '/', '/', '--dev', '/dev', '--proc', '/proc', '--tmpfs', '/tmp',
                        '--ro-bind', str(root), str(root), '--ro-bind', str(path.parent), str(path.parent),
                        '--unshare-pid', '--unshare-net', '--unshare-ipc', '--die-with-parent', '--new-session',
                        '--setenv', 'HOME', '/tmp', '--setenv', 'TMPDIR', '/tmp', '--unsetenv', 'DISPLAY']
        self.seconds = {}  # of each test

    def run(self, options, variables, timeout, writable=None):
        command = list(self.sandbox)
        if writable:
            command += ['--bind', writable, writable]
        for name, value in variables.items():
            command += ['--setenv', name, str(value)]
        begin = time.monotonic()
        try:
            run = subprocess.run([*command, str(self.path), *options], stdin=subprocess.DEVNULL, text=True,
                                 errors='replace', stdout=subprocess.PIPE, stderr=subprocess.STDOUT, timeout=timeout,
                                 preexec_fn=_limit)
        except subprocess.TimeoutExpired as expired:
            return Result(False, True, timeout, (expired.output or b'').decode(errors='replace'))
        return Result(run.returncode == 0, False, time.monotonic() - begin, run.stdout)

    def tests(self):
        """Full names of the tests."""
        listed = self.run(['--gtest_list_tests'], {}, 60)
        if not listed.passed:
            raise SystemExit(f'mutation: {self.path} does not list its tests:\n{listed.output}')
        names, suite = [], ''
        for line in listed.output.splitlines():
            line = line.split('#')[0].rstrip()
            if re.match(r'\S+\.$', line):
                suite = line
            elif re.match(r'  \S', line):
                names.append(suite + line.strip())
        return [name for name in names if 'DISABLED_' not in name]

    def reached(self, size):
        """{number: names of the tests that reach it}, from one process for each test without a mutant. All must pass."""
        reaching = collections.defaultdict(list)
        with concurrent.futures.ThreadPoolExecutor(self.jobs) as pool:
            for name, numbers in pool.map(lambda name: self._reached_by(name, size), self.tests()):
                for number in numbers:
                    reaching[number].append(name)
        for names in reaching.values():
            names.sort(key=self.seconds.get)
        return reaching

    def _reached_by(self, name, size):
        with tempfile.TemporaryDirectory() as folder:
            record = pathlib.Path(folder, 'reached')
            record.write_bytes(bytes(size + 1))
            result = self.run(['--gtest_filter=' + name], {'MEIBO_MUTATION_REACHED': record}, 300, folder)
            if not result.passed:
                raise SystemExit(f'mutation: {name} fails without a mutant:\n{result.output}')
            self.seconds[name] = result.seconds
            return name, [number for number, byte in enumerate(record.read_bytes()) if byte]

    def judge(self, mutant, names):
        """Sets the state of a mutant to "caught", "survived" or "not reached"; one that another program's tests reached
        is not set to the last."""
        if not names:
            mutant.state = mutant.state or 'not reached'
            return
        for batch in self._batches(names):
            timeout = self.grace + 4 * sum(self.seconds[name] for name in batch)
            result = self.run(['--gtest_fail_fast', '--gtest_filter=' + ':'.join(batch)],
                              {'MEIBO_MUTANT': mutant.number}, timeout)
            if not result.passed:
                mutant.state, mutant.detail = 'caught', _cause(result)
                return
        mutant.state, mutant.detail = 'survived', f'{mutant.detail} {len(names)} tests'.strip()

    def _batches(self, names):
        """The tests in up to three parts, the quick ones first; a process runs them in its own order."""
        batches, spent, limits = [[]], 0, list(FIRST_SECONDS)
        for name in names:
            if limits and batches[-1] and spent + self.seconds[name] > limits[0]:
                limits.pop(0)
                batches.append([])
            spent += self.seconds[name]
            batches[-1].append(name)
        return batches

    def judge_all(self, mutants, reaching, report):
        """Judges the mutants, several at a time; `report` is called after each with how many are left."""
        left = len(mutants)
        with concurrent.futures.ThreadPoolExecutor(self.jobs) as pool:
            for _ in pool.map(lambda mutant: self.judge(mutant, reaching.get(mutant.number, [])), mutants):
                left -= 1
                report(left)


def _limit():
    resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


def _cause(result):
    failed = re.search(r'^\[  FAILED  \] (\S+)', result.output, re.M)
    begun = re.findall(r'^\[ RUN      \] (\S+)', result.output, re.M)
    if failed:
        return failed.group(1).rstrip(',')
    return ('timeout' if result.timeout else 'crash') + (f' in {begun[-1]}' if begun else '')
