"""The list of mutants that change nothing a test could see, each with the reason."""
import pathlib

LIST = pathlib.Path(__file__).parent / 'equivalent.txt'
FIELDS = ('file', 'code', 'change', 'reason')


def read(path=LIST):
    """{(file, code, change): reason} from entries of four lines "NAME: TEXT", with empty lines between. A line that
    begins with "#" is a comment."""
    entries = {}
    for number, block in enumerate(path.read_text().split('\n\n'), 1):
        lines = [line for line in block.splitlines() if line and not line.startswith('#')]
        if not lines:
            continue
        names = tuple(line.partition(': ')[0] for line in lines)
        values = [line.partition(': ')[2].strip() for line in lines]
        if names != FIELDS or not all(values):
            raise SystemExit(f'mutation: {path.name}: not an entry of {", ".join(FIELDS)}:\n{block}')
        key = tuple(values[:3])
        if key in entries:
            raise SystemExit(f'mutation: {path.name}: twice:\n{block}')
        entries[key] = values[3]
    return entries


def key(mutant):
    return mutant.file, mutant.code, mutant.change


def entry(mutant, reason=''):
    """The text of an entry."""
    return ''.join(f'{name}: {value}'.rstrip() + '\n' for name, value in zip(FIELDS, (*key(mutant), reason)))


def outdated(entries, mutants, files):
    """Entries of these files that match no mutant any more."""
    known = {key(mutant) for mutant in mutants}
    return [found for found in entries if found[0] in files and found not in known]
