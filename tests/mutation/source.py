"""A source file with its tokens and macro calls, and the mutants that were found in it."""
import bisect
import dataclasses
import re

import clang.cindex as clang


@dataclasses.dataclass
class Mutant:
    """One small change. Offsets are bytes of the file."""
    file: str
    line: int
    change: str
    edits: list  # of (start, end, replacement, form); the form is 'value', 'bool' or 'void'
    static: bool = False  # inside the initialiser of a variable with static storage
    number: int = 0
    code: str = ''  # the text of the line
    state: str = ''
    detail: str = ''


class Source:
    def __init__(self, path, name, arguments):
        self.path, self.name = path, name
        with open(path, 'rb') as file:
            self.text = file.read()
        options = clang.TranslationUnit.PARSE_DETAILED_PROCESSING_RECORD
        self.unit = clang.Index.create().parse(path, arguments, options=options)
        errors = [str(found) for found in self.unit.diagnostics if found.severity >= clang.Diagnostic.Error]
        if errors:
            raise ValueError('\n'.join(errors))
        self.tokens = [(token.extent.start.offset, token.extent.end.offset, token.spelling)
                       for token in self.unit.get_tokens(extent=self.unit.cursor.extent)
                       if token.kind != clang.TokenKind.COMMENT]
        self._starts = [token[0] for token in self.tokens]
        self._macros = [(node.extent.start.offset, node.extent.end.offset) for node in self.unit.cursor.get_children()
                        if node.kind == clang.CursorKind.MACRO_INSTANTIATION and self.owns(node)]
        self.mutants = []

    def owns(self, node):
        return node.location.file is not None and node.location.file.name == self.path

    def nodes(self):
        """Declarations of the file itself, without those of its headers and without directives."""
        return [node for node in self.unit.cursor.get_children()
                if self.owns(node) and not node.kind.is_preprocessing()]

    def in_macro(self, start, end):
        """Whether a range begins or ends inside a macro call. A range with whole macro calls is allowed."""
        return any(first < end and start < last and not (start <= first and last <= end and (start, end) != (first, last))
                   for first, last in self._macros)

    def between(self, start, end):
        """The tokens that begin in [start, end)."""
        return self.tokens[bisect.bisect_left(self._starts, start):bisect.bisect_left(self._starts, end)]

    def code(self, start, end):
        return self.text[start:end].decode()

    def shown(self, start, end):
        """A range on one line, not too long."""
        code = re.sub(r'\s+', ' ', self.code(start, end))
        return code if len(code) <= 90 else code[:60] + ' … ' + code[-25:]

    def add(self, start, change, edits, static):
        """Adds a mutant at the line of `start`, unless one of its edits cuts through a macro call."""
        if any(self.in_macro(edit[0], edit[1]) for edit in edits):
            return
        first = self.text.rfind(b'\n', 0, start) + 1
        last = self.text.find(b'\n', start)
        line = self.text.count(b'\n', 0, start) + 1
        code = self.code(first, last if last >= 0 else len(self.text)).strip()
        self.mutants.append(Mutant(self.name, line, change, edits, static, code=code))


def number_mutants(mutants):
    """Numbers the mutants of a module, from 1, and tells equal changes of equal lines of a file from each other."""
    seen = {}
    for number, mutant in enumerate(mutants, 1):
        mutant.number = number
        key = mutant.file, mutant.code, mutant.change
        seen[key] = seen.get(key, 0) + 1
        if seen[key] > 1:
            mutant.change += f' #{seen[key]}'
