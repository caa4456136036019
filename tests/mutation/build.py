"""Builds the test program of a module with the mutants in it. The release build must be there: it gives the commands and
everything that is not changed, and the changed object files are linked before its libraries."""
import collections
import concurrent.futures
import hashlib
import json
import multiprocessing
import os
import pathlib
import re
import shlex
import subprocess

from points import find_mutants
from rewrite import blamed, rewrite
from source import number_mutants

HERE = pathlib.Path(__file__).parent.resolve()
# With the assertions of Qt and of the C++ library, which notice an index out of range; without the precompiled header,
# which GCC accepts only with the same options, and without warnings.
OPTIONS = ['-O1', '-DQT_FORCE_ASSERTS', '-D_GLIBCXX_ASSERTIONS', '-w', '-Wno-error', '-Wno-invalid-pch', '-Wno-narrowing', '-fdiagnostics-column-unit=byte',
           '-fdiagnostics-color=never']
ATTEMPTS = 6

Unit = collections.namedtuple('Unit', 'path name command folder')  # one source file


def units_of(root, build, module):
    """The source files of a module's library, in the order of their names."""
    found = []
    for entry in json.loads((build / 'compile_commands.json').read_text()):
        path = pathlib.Path(entry['file'])
        if path.is_relative_to(root / 'src' / module) and 'CMakeFiles/meibo_' in entry['command']:
            found.append(Unit(str(path), str(path.relative_to(root)), shlex.split(entry['command']), entry['directory']))
    return sorted(found)


def parser_arguments(command):
    """What libclang needs of a compiler command."""
    kept, words = [], iter(command[1:])
    for word in words:
        if word in ('-I', '-isystem', '-D', '-iquote'):
            kept += [word, next(words)]
        elif word in ('-o', '-include', '-MF', '-MT'):
            next(words)
        elif word.startswith(('-I', '-D', '-std=', '-isystem')):
            kept.append(word)
    return kept


def _mutants_of(unit):
    return find_mutants(unit.path, unit.name, parser_arguments(unit.command))


def mutants_of(units, jobs):
    """All mutants of the files, numbered."""
    with multiprocessing.Pool(min(jobs, len(units))) as pool:
        mutants = [mutant for found in pool.map(_mutants_of, units, chunksize=1) for mutant in found]
    number_mutants(mutants)
    return mutants


def compile_units(units, mutants, folder, jobs):
    """Object files of the source files with their mutants and of Mutated.cpp, in `folder`. Mutants that don't compile get
    the state "uncompilable". A file is compiled again only if it, a header or the compiler's command has changed."""
    folder.mkdir(parents=True, exist_ok=True)
    by_file = collections.defaultdict(list)
    for mutant in mutants:
        by_file[mutant.file].append(mutant)
    runtime = folder / 'Mutated.o'
    subprocess.run(['c++', '-O2', '-std=c++20', '-c', HERE / 'Mutated.cpp', '-o', runtime], check=True)
    changed = [unit for unit in units if unit.name in by_file]
    headers = _digest_of_headers()
    with concurrent.futures.ThreadPoolExecutor(jobs) as pool:
        return [*pool.map(lambda unit: _compile(unit, by_file[unit.name], folder, headers), changed), runtime]


def _digest_of_headers():
    digest = hashlib.sha256()
    for path in sorted([*HERE.parents[1].glob('src/**/*.h'), HERE / 'Mutated.h']):
        digest.update(path.read_bytes())
    return digest.hexdigest()


def link_program(objects, link, target):
    """Links the program `target`. `link` is the command and the folder that link it without mutants."""
    command, folder = link
    words = shlex.split(command)
    words = words[words.index('&&') + 1 if words[0] == ':' else 0:]
    words = words[:words.index('&&')] if '&&' in words else words
    words[words.index('-o') + 1] = str(target)
    subprocess.run([words[0], *map(str, objects), *words[1:]], cwd=folder, check=True)


def link_command(build, program):
    """The command that links a program of the release build, and its folder."""
    commands = subprocess.run(['ninja', '-C', build, '-t', 'commands', program], check=True, capture_output=True,
                              text=True).stdout.splitlines()
    return next(line for line in reversed(commands) if re.search(rf' -o \S*{re.escape(program)} ', line)), build


def _compile(unit, mutants, folder, headers):
    text = pathlib.Path(unit.path).read_bytes()
    copy = folder / unit.name
    copy.parent.mkdir(parents=True, exist_ok=True)
    result, record = copy.with_suffix('.o'), copy.with_suffix('.json')
    changed, spans = rewrite(text, mutants)
    key = hashlib.sha256(repr((changed, unit.command, OPTIONS, headers)).encode()).hexdigest()
    if result.exists() and record.exists() and (known := json.loads(record.read_text()))['key'] == key:
        _set_uncompilable(mutants, known['dropped'])
        return result
    for _ in range(ATTEMPTS):
        copy.write_bytes(changed)
        messages = _run_compiler(unit, copy, result)
        if messages is None:
            dropped = [mutant.number for mutant in mutants if mutant.state]
            record.write_text(json.dumps({'key': key, 'dropped': dropped}))
            return result
        if not _drop(messages, copy, mutants, spans, changed):
            break
        changed, spans = rewrite(text, [mutant for mutant in mutants if not mutant.state])
    raise SystemExit(f'mutation: {unit.name} does not compile with its mutants:\n{messages}')


def _set_uncompilable(mutants, numbers):
    for mutant in mutants:
        if mutant.number in numbers:
            mutant.state = 'uncompilable'


def _run_compiler(unit, copy, result):
    """None, or the messages of a compiler that failed."""
    words = list(unit.command)
    words[words.index('-o') + 1] = str(result)
    words[words.index(unit.path)] = str(copy)
    words += [*OPTIONS, '-iquote', os.path.dirname(unit.path), '-include', str(HERE / 'Mutated.h')]
    run = subprocess.run(words, cwd=unit.folder, capture_output=True, text=True, env={**os.environ, 'LC_ALL': 'C.UTF-8'})
    return run.stderr if run.returncode else None


def _drop(messages, copy, mutants, spans, changed):
    """Drops the mutants that the messages name; those in static initialisers if it can't be seen which they are."""
    places = [(int(line), int(column)) for line, column in
              re.findall(rf'^{re.escape(str(copy))}:(\d+):(\d+):', messages, re.M)]
    numbers = blamed(spans, changed, places)
    if not numbers:
        numbers = {mutant.number for mutant in mutants if mutant.static and not mutant.state}
    _set_uncompilable(mutants, numbers)
    return bool(numbers)
