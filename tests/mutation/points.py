"""Finds the places of a source file that can be changed, by the syntax tree of libclang."""
import re

from clang.cindex import CursorKind as Kind
from clang.cindex import TypeKind

from source import Source

RELATIONS = {'==': ['!='], '!=': ['=='], '<': ['<=', '>='], '>': ['>=', '<='], '<=': ['<', '>'], '>=': ['>', '<']}
LOGICAL = {'&&': '||', '||': '&&'}
ARITHMETIC = {'+': '-', '-': '+', '*': '/', '/': '*', '%': '*', '&': '|', '|': '&', '<<': '>>', '>>': '<<',
              '+=': '-=', '-=': '+=', '*=': '/=', '/=': '*='}
STEPS = {'++': '--', '--': '++'}
# Types, template arguments, values of enumerators, and what a compiler evaluates.
SKIPPED = {Kind.TYPE_REF, Kind.TEMPLATE_REF, Kind.NAMESPACE_REF, Kind.DECL_REF_EXPR, Kind.ENUM_DECL, Kind.STATIC_ASSERT,
           Kind.TYPE_ALIAS_DECL, Kind.TYPEDEF_DECL, Kind.USING_DECLARATION, Kind.SIZE_OF_PACK_EXPR,
           Kind.CXX_UNARY_EXPR, Kind.TEMPLATE_NON_TYPE_PARAMETER, Kind.TEMPLATE_TYPE_PARAMETER}
FUNCTIONS = {Kind.FUNCTION_DECL, Kind.CXX_METHOD, Kind.CONSTRUCTOR, Kind.DESTRUCTOR, Kind.CONVERSION_FUNCTION,
             Kind.FUNCTION_TEMPLATE}
VARIABLES = {Kind.VAR_DECL, Kind.FIELD_DECL, Kind.PARM_DECL}
SCALARS = {TypeKind.BOOL, TypeKind.ENUM, TypeKind.CHAR_S, TypeKind.SCHAR, TypeKind.UCHAR, TypeKind.CHAR16,
           TypeKind.CHAR32, TypeKind.SHORT, TypeKind.USHORT, TypeKind.INT, TypeKind.UINT, TypeKind.LONG,
           TypeKind.ULONG, TypeKind.LONGLONG, TypeKind.ULONGLONG, TypeKind.FLOAT, TypeKind.DOUBLE}
# Calls without an effect that a test could see.
WITHOUT_EFFECT = {'reserve', 'squeeze'}


def find_mutants(path, name, arguments):
    """Mutants of the file at `path`, in the order of their places, parsed with the compiler's arguments. Throws
    ValueError if it doesn't parse."""
    finder = _Finder(Source(path, name, arguments))
    for node in finder.source.nodes():
        finder.visit(node)
    return sorted(finder.source.mutants, key=lambda mutant: (mutant.edits[0][0], mutant.change))


def _start(node):
    return node.extent.start.offset


def _end(node):
    return node.extent.end.offset


def _range(node):
    return _start(node), _end(node)


def _inner(node):
    """The expression inside parentheses and conversions that the compiler adds."""
    while node.kind in (Kind.PAREN_EXPR, Kind.UNEXPOSED_EXPR):
        children = list(node.get_children())
        if len(children) != 1 or node.kind == Kind.UNEXPOSED_EXPR and _range(children[0]) != _range(node):
            break
        node = children[0]
    return node


class _Finder:
    def __init__(self, source):
        self.source = source
        self.static = False
        self.negated = set()

    def visit(self, node):
        kind = node.kind
        if kind in SKIPPED or kind.is_attribute():
            return
        if kind in FUNCTIONS:
            self._function(node)
        elif kind in VARIABLES:
            self._variable(node)
        else:
            self._expression(node)
            self._statement(node)
            for child in self._children(node):
                self.visit(child)

    def _children(self, node):
        children = list(node.get_children())
        if node.kind == Kind.MEMBER_REF_EXPR:  # without template arguments
            return [child for child in children if _end(child) <= node.location.offset]
        if node.kind == Kind.CASE_STMT:
            return children[1:]
        if node.kind == Kind.CXX_FOR_RANGE_STMT:
            return [child for child in children if child.kind != Kind.VAR_DECL]
        if node.kind == Kind.CALL_EXPR and node.spelling.startswith('operator""'):
            return []
        return children

    # Declarations

    def _function(self, node):
        body = next((child for child in node.get_children() if child.kind == Kind.COMPOUND_STMT), None)
        if body is None or {'constexpr', 'consteval'} & self._words(_start(node), _start(body)):
            return
        for child in node.get_children():
            self.visit(child)

    def _words(self, start, end):
        return {token[2] for token in self.source.between(start, end)}

    def _variable(self, node):
        words = self._words(_start(node), node.location.offset)
        if {'constexpr', 'constinit'} & words:
            return
        parent = node.semantic_parent.kind if node.semantic_parent else None
        static = node.kind == Kind.VAR_DECL and ('static' in words or parent in (Kind.NAMESPACE, Kind.TRANSLATION_UNIT))
        if static and node.type.get_canonical().kind in SCALARS:
            return  # may be used in constant expressions
        first = self._initialiser(node)
        before, self.static = self.static, self.static or static or node.kind == Kind.FIELD_DECL
        for child in node.get_children():
            if first is not None and _start(child) >= first and child.kind.is_expression():
                self.visit(child)
        self.static = before

    def _initialiser(self, node):
        """Offset of the "=", "{" or "(" after the name; array bounds and template arguments come before it."""
        depth = 0
        for start, _, word in self.source.between(node.location.offset, _end(node)):
            depth += {'[': 1, ']': -1}.get(word, 0)
            if depth == 0 and word in ('=', '{', '('):
                return start
        return None

    # Expressions

    def _replace(self, node, replacement, form='value', shown=None):
        start, end = _range(node)
        change = f'{self.source.shown(start, end)} -> {shown or re.sub(chr(92) + "s+", " ", replacement)}'
        self.source.add(start, change, [(start, end, replacement, form)], self.static)

    def _expression(self, node):
        kind = node.kind
        if kind in (Kind.BINARY_OPERATOR, Kind.COMPOUND_ASSIGNMENT_OPERATOR):
            self._binary(node)
        elif kind == Kind.CALL_EXPR and node.spelling.startswith('operator""'):
            self._string(node)
        elif kind == Kind.CALL_EXPR and node.spelling.startswith('operator'):
            self._binary(node)
        elif kind == Kind.UNARY_OPERATOR and self._operator_at(_start(node)) == '!':
            self._condition(next(node.get_children()), node)
        elif kind == Kind.CONDITIONAL_OPERATOR:
            self._condition(next(node.get_children()))
        elif kind == Kind.INTEGER_LITERAL:
            self._number(node)
        elif kind == Kind.CHARACTER_LITERAL:
            self._character(node)
        elif kind == Kind.FLOATING_LITERAL:
            self._replace(node, f'({self.source.code(*_range(node))} + 1)')
        elif kind == Kind.CXX_BOOL_LITERAL_EXPR:
            self._replace(node, 'false' if self._operator_at(_start(node)) == 'true' else 'true')
        elif kind == Kind.STRING_LITERAL:
            self._string(node)

    def _operator_at(self, offset):
        tokens = self.source.between(offset, offset + 1)
        return tokens[0][2] if tokens else ''

    def _operator(self, node):
        """(start, end, text) of the operator of a binary expression; None for anything else."""
        children = list(node.get_children())
        if node.kind in (Kind.BINARY_OPERATOR, Kind.COMPOUND_ASSIGNMENT_OPERATOR) and len(children) == 2:
            tokens = self.source.between(_end(children[0]), _start(children[1]))
        elif node.kind == Kind.CALL_EXPR and len(children) == 3 and _start(children[1]) >= _end(children[0]):
            tokens = self.source.between(_end(children[0]), _start(children[2]))
        else:
            return None
        return tokens[0] if len(tokens) == 1 else None

    def _binary(self, node):
        found = self._operator(node)
        if found is None:
            return
        start, end, text = found
        replacements = list(RELATIONS.get(text, []))
        if text in LOGICAL:
            replacements.append(LOGICAL[text])
            for operand in node.get_children():
                self._condition(operand)
        elif text in ARITHMETIC and node.kind != Kind.CALL_EXPR:
            replacements.append(ARITHMETIC[text])
        first, last = _range(node)
        for other in replacements:
            self._replace(node, self.source.code(first, start) + other + self.source.code(end, last),
                          shown=f'{other}' if last - first > 90 else None)

    def _number(self, node):
        code = self.source.code(*_range(node))
        if code.isdigit():
            self._replace(node, str(int(code) + 1) if code == '0' or code[0] != '0' else f'({code} + 1)')
        else:
            self._replace(node, f'({code} + 1)')

    def _character(self, node):
        code = self.source.code(*_range(node))
        self._replace(node, f'static_cast<{node.type.spelling}>({code} + 1)', shown=f'{code} + 1')

    def _string(self, node):
        code = self.source.code(*_range(node))
        match = re.match(r'(u8|u|U|L)?"', code)
        if match and not re.fullmatch(r'(u8|u|U|L)?""\w*', code):
            suffix = re.search(r'"(\w*)$', code)
            self._replace(node, f'{match.group(1) or ""}""{suffix.group(1) if suffix else ""}')

    # Conditions

    def _condition(self, node, outer=None):
        """Negates an expression, or each operand of a chain of && and ||. A comparison is negated by its other
        operators already."""
        node = _inner(node)
        operator = self._operator(node)
        if operator and (operator[2] in RELATIONS or operator[2] in LOGICAL) or node.kind == Kind.CXX_BOOL_LITERAL_EXPR:
            return
        if any(child.kind == Kind.UNARY_OPERATOR for child in [node, *node.get_children()] if
               node.kind in (Kind.UNARY_OPERATOR, Kind.UNEXPOSED_EXPR) and self._operator_at(_start(child)) in '!='):
            return  # a negation is changed when it is visited; a != b is !(a == b) in the tree
        place = _range(outer or node)
        if place in self.negated or _range(node) in self.negated:
            return
        self.negated |= {place, _range(node)}
        code = self.source.code(*_range(node))
        if outer:
            self._replace(outer, f'bool({code})', 'bool', shown=self.source.shown(*_range(node)))
        else:
            self._replace(node, f'!({code})', 'bool', shown=f'!({self.source.shown(*_range(node))})')

    # Statements

    def _statement(self, node):
        kind = node.kind
        children = list(node.get_children())
        if kind == Kind.COMPOUND_STMT:
            self._sequence(children)
        elif kind == Kind.IF_STMT:
            self._if(children)
        elif kind == Kind.WHILE_STMT:
            if len(children) == 2:
                self._condition(children[0])
            self._leave_out(children[-1])
        elif kind == Kind.DO_STMT:
            self._condition(children[-1])
        elif kind == Kind.FOR_STMT:
            self._for(node, children)
        elif kind in (Kind.CXX_FOR_RANGE_STMT, Kind.CASE_STMT, Kind.DEFAULT_STMT) and children:
            self._leave_out(children[-1])
        elif kind == Kind.RETURN_STMT and children and children[0].type.get_canonical().kind == TypeKind.BOOL:
            self._condition(children[0])

    def _if(self, children):
        if children[0].kind == Kind.DECL_STMT:
            children = children[1:]
        if children[0].kind == Kind.VAR_DECL:  # the condition is the variable
            children = children[1:]
        else:
            self._condition(children[0])
        for branch in children[1:]:
            self._leave_out(branch)

    def _for(self, node, children):
        depth, ends = 0, []
        for start, _, word in self.source.between(_start(node), _start(children[-1])):
            depth += {'(': 1, '{': 1, ')': -1, '}': -1}.get(word, 0)
            if word == ';' and depth == 1:
                ends.append(start)
        conditions = [child for child in children[:-1] if len(ends) == 2 and ends[0] < _start(child) < ends[1]]
        if len(conditions) == 1:  # a variable is two: its declaration and its use
            self._condition(conditions[0])
        self._leave_out(children[-1])

    def _call(self, node):
        """Whether a statement is a call whose result is not used."""
        while node.kind == Kind.UNEXPOSED_EXPR and len(children := list(node.get_children())) == 1:
            node = children[0]
        return node.kind == Kind.CALL_EXPR and node.spelling != 'operator=' and node.spelling not in WITHOUT_EFFECT

    def _independent(self, one, two):
        """Whether the order of two calls rarely matters: one member function for different objects, or two setters of
        Qt."""
        members = [next((child for child in _inner(node).get_children()), None) for node in (one, two)]
        if any(member is None or member.kind != Kind.MEMBER_REF_EXPR for member in members):
            return False
        names = [member.spelling for member in members]
        objects = [self.source.code(_start(member), member.location.offset) for member in members]
        return (names[0] == names[1] and objects[0] != objects[1] or
                names[0] != names[1] and all(re.match('set[A-Z]', name) for name in names))

    def _leave_out(self, node):
        start, end = _range(node)
        if self._call(node):
            self.source.add(start, f'leave out {self.source.shown(start, end)}', [(start, end, '0', 'void')], self.static)
        elif node.kind == Kind.UNARY_OPERATOR:
            code = self.source.code(start, end)
            for step, other in STEPS.items():
                if step in code:
                    self._replace(node, code.replace(step, other), 'void')

    def _sequence(self, children):
        for child in children:
            self._leave_out(child)
        for one, two in zip(children, children[1:]):
            first, second = self.source.code(*_range(one)), self.source.code(*_range(two))
            if self._call(one) and self._call(two) and first != second and not self._independent(one, two):
                change = f'swap {self.source.shown(*_range(one))} and {self.source.shown(*_range(two))}'
                self.source.add(_start(one), change, [(*_range(one), second, 'void'), (*_range(two), first, 'void')],
                                self.static)
