"""Queries of the compiler's syntax tree about a part of a source."""
import re

from clang.cindex import CursorKind as Kind, TypeKind

NUMBERS = {TypeKind.INT, TypeKind.UINT, TypeKind.LONG, TypeKind.ULONG, TypeKind.LONGLONG, TypeKind.ULONGLONG,
           TypeKind.FLOAT, TypeKind.DOUBLE, TypeKind.SHORT, TypeKind.UCHAR, TypeKind.CHAR_S}
CLASSES = (Kind.CLASS_DECL, Kind.STRUCT_DECL, Kind.CLASS_TEMPLATE)
CONSTEXPR = re.compile(rb'(static\s+)?constexpr\b')
DISCARDED = re.compile(r'^\s*(\(void\)|static_cast<void>)')


def bare(cursor):
    """The expression inside the tree's wrappers (the end of a temporary's life, a conversion)."""
    while cursor.kind == Kind.UNEXPOSED_EXPR:
        children = list(cursor.get_children())
        if len(children) != 1 or children[0].extent != cursor.extent:
            break
        cursor = children[0]
    return cursor


def extent(cursor):
    return cursor.extent.start.offset, cursor.extent.end.offset


def is_in_type_of(cursor, declaration):
    """Whether it belongs to the declared type, as an array's bound does; only the compiler calculates it."""
    return (declaration.kind in (Kind.FIELD_DECL, Kind.VAR_DECL) and
            cursor.extent.end.offset <= declaration.location.offset)


def canonical(cursor):
    return cursor.type.get_canonical().kind


def is_numeric(cursor):
    return canonical(cursor) in NUMBERS


class Text:
    """The text of a source, accessed by the tree's cursors."""

    def __init__(self, path, text):
        self.path, self.bytes = path, text.encode()

    def holds(self, cursor):
        """Whether the text is in this file, not from a macro or another file."""
        return all(end.file is not None and end.file.name == self.path for end in (cursor.extent.start, cursor.extent.end))

    def of(self, cursor):
        start, end = extent(cursor)
        return self.bytes[start:end].decode()

    def shown(self, cursor):
        return ' '.join(self.of(cursor).split())[:90]

    def semicolon(self, cursor):
        """The end of the statement; None if it is not a statement."""
        match = re.compile(rb'\s*;').match(self.bytes, extent(cursor)[1])
        return match.end() if match else None

    def is_constexpr(self, cursor):
        start, end = extent(cursor)
        return re.match(rb'[^({=;]*\bconstexpr\b', self.bytes[start:end]) is not None

    def is_act(self, cursor):
        """A statement that can be left out: a call or an assignment."""
        if cursor.kind in (Kind.CALL_EXPR, Kind.COMPOUND_ASSIGNMENT_OPERATOR):
            return not DISCARDED.match(self.of(cursor)) and self.semicolon(cursor) is not None
        if cursor.kind == Kind.BINARY_OPERATOR:
            operands = self.operands(cursor)
            return bool(operands) and operands[1] == '=' and self.semicolon(cursor) is not None
        return False

    def operands(self, cursor):
        """(left, operator, its offset, right) of a binary operator, the language's or a type's own; else None."""
        children = list(cursor.get_children())
        if cursor.kind == Kind.CALL_EXPR:
            if not cursor.spelling.startswith('operator') or len(children) != 3:
                return None
            children = [children[0], children[2]]
        if len(children) != 2 or not all(map(self.holds, [cursor, *children])):
            return None
        left_end, right_start = extent(children[0])[1], extent(children[1])[0]
        between = self.bytes[left_end:right_start].decode(errors='replace')
        operator = between.strip()
        if not re.fullmatch(r'[-+*/<>=!&|]{1,2}', operator):
            return None
        return children[0], operator, left_end + between.index(operator), children[1]
