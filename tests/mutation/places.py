"""Where a source can be changed, and how: small changes that a compiler accepts and a person might make.

Every change is an insertion around a range of the text, so that one build contains all of them; one is selected when a
program starts (switch.h). The places come from the compiler's syntax tree.
"""
import dataclasses
import typing
import zlib

from clang import cindex
from clang.cindex import CursorKind as Kind, TypeKind

import syntax
from literals import changed_literal

SHIFTED = {'<': ('less', 'lessEqual', '<='), '<=': ('lessEqual', 'less', '<'),
           '>': ('greater', 'greaterEqual', '>='), '>=': ('greaterEqual', 'greater', '>'),
           '==': ('equal', 'notEqual', '!='), '!=': ('notEqual', 'equal', '==')}
TURNED = {'<': ('greaterEqual', '>='), '<=': ('greater', '>'), '>': ('lessEqual', '<='), '>=': ('less', '<')}
ARITHMETIC = {'+': ('plus', 'minus', '-'), '-': ('minus', 'plus', '+'),
              '*': ('times', 'divided', '/'), '/': ('divided', 'times', '*')}
ROUNDINGS = {'floor': 'ceil', 'ceil': 'floor', 'trunc': 'round', 'round': 'trunc', 'nearbyint': 'trunc'}
LITERALS = (Kind.INTEGER_LITERAL, Kind.FLOATING_LITERAL, Kind.CHARACTER_LITERAL, Kind.STRING_LITERAL)
LOOPS = (Kind.FOR_STMT, Kind.WHILE_STMT, Kind.CXX_FOR_RANGE_STMT, Kind.DO_STMT)
FUNCTIONS = (Kind.FUNCTION_DECL, Kind.CXX_METHOD, Kind.CONSTRUCTOR, Kind.DESTRUCTOR, Kind.FUNCTION_TEMPLATE,
             Kind.CONVERSION_FUNCTION)
LEFT_ALONE = (Kind.STATIC_ASSERT, Kind.ENUM_CONSTANT_DECL, Kind.ALIGNED_ATTR, Kind.TEMPLATE_NON_TYPE_PARAMETER)


@dataclasses.dataclass
class Place:
    """`open` and `close` enclose the text from `start` to `end`; {n} in them is the place's number. `count`: how many
    numbers it uses, each with its label. `operator`: the range of a token and its replacement. `rank`: which place opens
    first if two enclose the same text."""
    kind: str
    line: int
    start: int
    end: int
    open: str
    close: str
    what: str
    rank: float = 0
    count: int = 1
    operator: tuple = None
    labels: list = None

    def spans(self, text, line):
        if self.count == 1:
            return self.line == line
        before, inside = text.encode()[:self.start].count(b'\n'), text.encode()[self.start:self.end].count(b'\n')
        return before + 1 <= line <= before + inside + 1


class Constant(typing.NamedTuple):
    """A constant that the compiler must not evaluate: `word` replaces its `constexpr`."""
    name: str
    line: int
    start: int
    end: int
    word: str


def places_of(path, text, arguments):
    """([Place], [Constant])"""
    unit = cindex.Index.create().parse(path, args=arguments, unsaved_files=[(path, text)])
    finder = Finder(path, text)
    finder.visit(unit.cursor)
    unique = {(place.kind, place.start, place.end, place.what, place.open): place for place in finder.places}
    return list(unique.values()), finder.free


class Finder:
    def __init__(self, path, text):
        self.path, self.text = path, syntax.Text(path, text)
        self.places, self.free = [], []
        self.in_constexpr = 0

    # --- The tree -----------------------------------------------------------------------------------------------------

    def visit(self, cursor):
        for child in cursor.get_children():
            file = child.location.file
            if cursor.kind == Kind.TRANSLATION_UNIT and (file is None or file.name != self.path):
                continue
            if not syntax.is_in_type_of(child, cursor):
                self.enter(child)

    def enter(self, cursor):
        if cursor.kind in LEFT_ALONE:
            return
        if cursor.kind == Kind.CASE_STMT:
            for child in list(cursor.get_children())[1:]:
                self.enter(child)
            return
        if cursor.kind == Kind.VAR_DECL and self.in_constexpr and self.text.is_constexpr(cursor):
            return  # always calculated by the compiler
        calculated = cursor.kind == Kind.FIELD_DECL or cursor.kind in FUNCTIONS and self.text.is_constexpr(cursor)
        self.in_constexpr += calculated
        if cursor.kind == Kind.VAR_DECL and self.text.is_constexpr(cursor):
            self.free_constant(cursor)
        self.look_at(cursor)
        self.visit(cursor)
        self.in_constexpr -= calculated

    def look_at(self, cursor):
        kind = cursor.kind
        if kind == Kind.COMPOUND_STMT:
            self.statements(cursor)
        elif kind == Kind.IF_STMT or kind in LOOPS:
            self.body(cursor)
        if kind in (Kind.IF_STMT, Kind.CONDITIONAL_OPERATOR):
            self.condition(cursor)
        elif kind in (Kind.BINARY_OPERATOR, Kind.CALL_EXPR) and self.text.operands(cursor):
            self.binary(cursor)
        elif kind == Kind.CALL_EXPR:
            self.rounding(cursor)
        elif kind in LITERALS:
            self.literal(cursor)
        elif kind == Kind.DECL_REF_EXPR:
            self.enumerator(cursor)
        elif kind == Kind.RETURN_STMT:
            self.answer(cursor)

    # --- Statements ---------------------------------------------------------------------------------------------------

    def statements(self, cursor):
        acts = []
        for child in [syntax.bare(child) for child in cursor.get_children()] + [None]:
            if child is not None and self.text.is_act(child):
                self.left_out(child)
                acts.append(child)
                continue
            if len(acts) > 1:
                self.exchanged(acts)
            acts = []

    def body(self, cursor):
        children = [syntax.bare(child) for child in cursor.get_children()]
        for child in children[1:] if cursor.kind == Kind.IF_STMT else children[-1:]:
            if self.text.is_act(child):
                self.left_out(child)

    def left_out(self, cursor):
        self.add('left out', cursor, '{ if (!%s) ' % self.on(), ' }', self.text.shown(cursor), rank=1,
                 end=self.text.semicolon(cursor))

    def exchanged(self, acts):
        """A loop runs the statements in order; a change exchanges two of them."""
        pairs = list(zip(acts, acts[1:]))
        if len(acts) == 2 and self.text.of(acts[0]) == self.text.of(acts[1]):
            return
        loop = ('for (int korvinelTurn = 0; korvinelTurn < {0}; ++korvinelTurn) '
                'switch (korvinel_change::order({{n}}, {0}, korvinelTurn)) {{{{ default: ;').format(len(acts))
        labels = ['%s <-> %s' % (self.text.shown(a), self.text.shown(b)) for a, b in pairs]
        self.places.append(Place('exchanged', acts[0].extent.start.line, syntax.extent(acts[0])[0],
                                 self.text.semicolon(acts[-1]), loop, '}', labels[0], count=len(pairs), labels=labels))
        for number, act in enumerate(acts):
            self.places.append(Place('', act.extent.start.line, syntax.extent(act)[0], self.text.semicolon(act),
                                     'break; case %d: {' % number, '}', '', rank=0.5, count=0))

    # --- Expressions --------------------------------------------------------------------------------------------------

    def condition(self, cursor):
        first = next(cursor.get_children(), None)
        if first is not None and first.kind not in (Kind.DECL_STMT, Kind.VAR_DECL):
            self.negated(first)

    def answer(self, cursor):
        first = next(cursor.get_children(), None)
        if first is not None and syntax.canonical(first) == TypeKind.BOOL:
            self.negated(first)

    def negated(self, cursor):
        self.add('negated', cursor, '(%s != static_cast<bool>(' % self.on(), '))', self.text.shown(cursor), rank=1)

    def binary(self, cursor):
        left, operator, position, right = self.text.operands(cursor)
        if operator in SHIFTED:
            turned = operator in TURNED and zlib.crc32(self.text.shown(cursor).encode()) % 2  # either, always the same
            other = TURNED[operator] if turned else SHIFTED[operator][1:]
            self.either(cursor, position, operator, SHIFTED[operator][0], other, 'turned' if turned else 'shifted')
        elif operator in ARITHMETIC and cursor.kind == Kind.BINARY_OPERATOR and \
                syntax.is_numeric(left) and syntax.is_numeric(right):
            word, *other = ARITHMETIC[operator]
            self.either(cursor, position, operator, word, other, 'arithmetic')
            if syntax.canonical(cursor) == TypeKind.DOUBLE:
                self.add('float', cursor, 'korvinel_change::narrowed(%s, ' % self.on(), ')', self.text.shown(cursor), 1)
        elif operator in ('&&', '||'):
            self.logic(cursor, operator, position)

    def either(self, cursor, position, operator, word, other, kind):
        opening = 'korvinel_change::either<korvinel_change::Op::%s, korvinel_change::Op::%s>(%s, '
        self.places.append(Place(
            kind, cursor.extent.start.line, *syntax.extent(cursor), opening % (word, other[0], self.on()), ')',
            '%s: %s -> %s' % (self.text.shown(cursor), operator, other[1]), rank=2,
            operator=(position, position + len(operator), ',')))

    def logic(self, cursor, operator, position):
        is_and = '%s %s true' % (self.on(), '!=' if operator == '&&' else '==')
        self.places.append(Place(
            'logic', cursor.extent.start.line, *syntax.extent(cursor),
            'korvinel_change::andOr(%s, static_cast<bool>(' % is_and, '); })',
            '%s: %s turned' % (self.text.shown(cursor), operator), rank=2,
            operator=(position, position + 2, '), [&]() -> bool { return static_cast<bool>(')))

    def rounding(self, cursor):
        arguments = list(cursor.get_arguments())
        if len(arguments) != 1 or arguments[0] is None or not self.text.holds(arguments[0]) or \
                syntax.canonical(arguments[0]) != TypeKind.DOUBLE:
            return
        argument, other = arguments[0], ROUNDINGS.get(cursor.spelling)
        if other:
            self.add('rounding', cursor, '(%s ? std::%s(static_cast<double>(%s)) : ' %
                     (self.on(), other, self.text.of(argument)), ')', '%s -> %s' % (self.text.shown(cursor), other), 1)
        elif cursor.spelling == 'nearest':
            self.add('rounding', argument, 'korvinel_change::truncated(%s, ' % self.on(), ')',
                     self.text.shown(cursor) + ' of the truncated')

    def literal(self, cursor):
        text = self.text.of(cursor)
        changed = changed_literal(cursor.kind, text)
        if changed:
            self.alternative('text' if cursor.kind == Kind.STRING_LITERAL else 'constant', cursor, text, changed)

    def enumerator(self, cursor):
        constant, text = cursor.referenced, self.text.of(cursor)
        if constant is None or constant.kind != Kind.ENUM_CONSTANT_DECL or not text.endswith(constant.spelling):
            return
        names = [c.spelling for c in constant.semantic_parent.get_children() if c.kind == Kind.ENUM_CONSTANT_DECL]
        if len(names) > 1:
            other = names[(names.index(constant.spelling) + 1) % len(names)]
            self.alternative('enumerator', cursor, text, text[:-len(constant.spelling)] + other)

    def alternative(self, kind, cursor, text, changed):
        opening = '(%s ? %s : ' % (self.on(), changed.replace('{', '{{').replace('}', '}}'))
        self.add(kind, cursor, opening, ')', '%s -> %s' % (text[:60], changed[:60]), rank=9)

    # --- Adding -------------------------------------------------------------------------------------------------------

    def on(self):
        return 'korvinel_change::%s({n})' % ('onAtRunTime' if self.in_constexpr else 'on')

    def add(self, kind, cursor, opening, closing, what, rank=0, end=None):
        if self.text.holds(cursor):
            start, stop = syntax.extent(cursor)
            self.places.append(Place(kind, cursor.extent.start.line, start, end or stop, opening, closing, what, rank))

    def free_constant(self, cursor):
        """`const` instead of `constexpr`, so that the value can be changed when the program starts."""
        match = syntax.CONSTEXPR.search(self.text.bytes, syntax.extent(cursor)[0])
        in_class = cursor.semantic_parent.kind in syntax.CLASSES
        static = 'inline static ' if in_class else (match.group(1) or b'').decode()
        is_const = self.text.bytes[match.end():].startswith(b' const ')  # constexpr const char*
        word = (static or 'static') if is_const else static + 'const'
        self.free.append(Constant(cursor.spelling, cursor.extent.start.line, match.start(), match.end(), word))
