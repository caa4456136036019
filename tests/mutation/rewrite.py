"""Writes a source file with all its mutants inside, each chosen at run time by Mutated(NUMBER)."""


def rewrite(text, mutants):
    """The new text and [(start, end, numbers)], which parts of it belong to which mutants."""
    groups = {}
    for mutant in mutants:
        for start, end, replacement, form in mutant.edits:
            groups.setdefault((start, end), []).append((mutant.number, replacement.encode(), form))
    writer = _Writer(text, groups)
    writer.copy(0, len(text), sorted(groups, key=lambda place: (place[0], -place[1])))
    return bytes(writer.out), writer.spans


class _Writer:
    def __init__(self, text, groups):
        self.text, self.groups = text, groups
        self.out, self.spans = bytearray(), []

    def copy(self, start, end, places):
        """Copies [start, end) with the changes at `places`, which are inside, sorted, and nested or separate."""
        while places:
            first, last = places[0]
            inner = [place for place in places[1:] if place[1] <= last]
            places = places[1 + len(inner):]
            self.out += self.text[start:first]
            self._change(first, last, inner)
            start = last
        self.out += self.text[start:end]

    def _change(self, start, end, inner):
        changes = self.groups[start, end]
        forms = {form for _, _, form in changes}
        kind = b'(void)' if 'void' in forms else b'bool' if 'bool' in forms else b''
        begin = len(self.out)
        self.out += b'('
        for number, replacement, _ in changes:
            self.out += b'::mutation::Mutated(%d) ? %s(%s) : ' % (number, kind, replacement)
        self.out += kind + b'('
        self.copy(start, end, inner)
        self.out += b'))'
        self.spans.append((begin, len(self.out), {number for number, _, _ in changes}))


def blamed(spans, text, places):
    """Numbers of the innermost changes at the (line, column) places of a compiler's messages, both counted from 1; all
    changes of these lines if there is none at the places themselves."""
    starts = [0]
    for line in text.split(b'\n'):
        starts.append(starts[-1] + len(line) + 1)
    found, near = set(), set()
    for line, column in places:
        offset = starts[line - 1] + column - 1
        around = [span for span in spans if span[0] <= offset < span[1]]
        if around:
            found |= min(around, key=lambda span: span[1] - span[0])[2]
        near.update(*(span[2] for span in spans if span[0] < starts[line] and starts[line - 1] < span[1]))
    return found or near
