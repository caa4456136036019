"""Changes the code of modules in many small ways, one at a time, and prints which changes no test of the module notices."""
import argparse
import fnmatch
import os
import pathlib
import random
import sys
import time

import build
import equivalent
import run

ROOT = pathlib.Path(__file__).parents[2].resolve()
RELEASE = ROOT / 'build/release'
WORK = ROOT / 'build/mutation'
STATES = ('caught', 'survived', 'not reached', 'equivalent', 'uncompilable')


def options():
    parser = argparse.ArgumentParser(prog='scripts/mutation', description=__doc__)
    parser.add_argument('modules', nargs='+', metavar='MODULE')
    parser.add_argument('--tests', metavar='LIST', default='', help="modules whose tests run after the module's own")
    parser.add_argument('--files', metavar='GLOB', default='*', help='only source files whose name matches')
    parser.add_argument('--sample', type=int, default=1, metavar='N', help='only one of N mutants, drawn at random')
    parser.add_argument('--seed', type=int, default=1, help='repeats or changes the random sample')
    parser.add_argument('--only', type=int, metavar='NUMBER', help='only one mutant; prints the output of the tests')
    parser.add_argument('--list', action='store_true', help='only list the mutants')
    parser.add_argument('--at-least', type=float, default=90, metavar='PERCENT', help='fail if fewer are caught')
    parser.add_argument('--jobs', type=int, default=os.cpu_count())
    return parser.parse_args()


def chosen(mutants, units, option):
    """The mutants to run, of the files that match."""
    names = {unit.name for unit in units if fnmatch.fnmatch(pathlib.Path(unit.name).name, option.files)}
    mutants = [mutant for mutant in mutants if mutant.file in names]
    if option.only:
        return [mutant for mutant in mutants if mutant.number == option.only]
    size = -(-len(mutants) // option.sample)
    return sorted(random.Random(option.seed).sample(mutants, size), key=lambda mutant: mutant.number)


def describe(mutant):
    return f'{mutant.file}:{mutant.line}: {mutant.change}   [{mutant.number}]'


def progress(module):
    begin = time.monotonic()

    def show(left):
        if sys.stderr.isatty() or left % 50 == 0:
            print(f'{module}: {left} left after {time.monotonic() - begin:.0f} s', file=sys.stderr)
    return show


def run_module(module, option, entries):
    """The mutants of the module that were run, with their states."""
    units = build.units_of(ROOT, RELEASE, module)
    if not units:
        raise SystemExit(f'mutation: no module {module}')
    everything = build.mutants_of(units, option.jobs)
    mutants = chosen(everything, units, option)
    for found in equivalent.outdated(entries, everything, {unit.name for unit in units}):
        print(f'{equivalent.LIST.name}: matches nothing: ' + ' | '.join(found))
    if option.list:
        return print(*map(describe, mutants), sep='\n')
    objects = build.compile_units(units, everything, WORK / module, option.jobs)
    for mutant in mutants:
        if equivalent.key(mutant) in entries and not option.only:
            mutant.state = 'equivalent'
    judge(module, objects, mutants, everything[-1].number, option)
    return mutants


def judge(module, objects, mutants, size, option):
    """Runs the test programs one after the other, each for the mutants that the ones before did not catch."""
    for name in dict.fromkeys([module, *filter(None, option.tests.split(','))]):
        target = WORK / module / f'test_{name}'
        build.link_program(objects, build.link_command(RELEASE, f'tests/test_{name}'), target)
        program = run.Program(target, ROOT, option.jobs)
        reaching = program.reached(size)
        waiting = [mutant for mutant in mutants if mutant.state in ('', 'survived', 'not reached')]
        program.judge_all(waiting, reaching, progress(f'{module}, tests of {name}'))
        if option.only and reaching[option.only]:
            print(program.run(['--gtest_filter=' + ':'.join(reaching[option.only])],
                              {'MEIBO_MUTANT': option.only}, 600).output)


def report(module, mutants, seconds):
    """Prints what was not caught and the totals; returns the share of the others in per cent."""
    missed = [mutant for mutant in mutants if mutant.state in ('survived', 'not reached')]
    for mutant in missed:
        print(f'{describe(mutant)} {mutant.state}')
    (WORK / module / 'survivors.txt').write_text('\n'.join(map(equivalent.entry, missed)))
    (WORK / module / 'results.txt').write_text(''.join(
        f'{describe(mutant)} {mutant.state} {mutant.detail}\n' for mutant in mutants))
    counts = {state: sum(mutant.state == state for mutant in mutants) for state in STATES}
    judged = counts['caught'] + len(missed)
    share = 100 * counts['caught'] / judged if judged else 100
    print(f'{module}: {len(mutants)} points, ' + ', '.join(f'{count} {state}' for state, count in counts.items()) +
          f': {share:.1f} % caught, {seconds:.0f} s', flush=True)
    return share


def main():
    option = options()
    entries = equivalent.read()
    enough = True
    for module in option.modules:
        begin = time.monotonic()
        mutants = run_module(module, option, entries)
        if mutants is not None:
            enough = report(module, mutants, time.monotonic() - begin) >= option.at_least and enough
    sys.exit(not enough)


if __name__ == '__main__':
    main()
