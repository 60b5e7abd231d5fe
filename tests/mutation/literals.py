"""Literals off by one, or with another letter; None if a literal cannot be changed."""
import re

from clang.cindex import CursorKind as Kind


def changed_literal(kind, text):
    change = {Kind.INTEGER_LITERAL: integer, Kind.FLOATING_LITERAL: floating, Kind.CHARACTER_LITERAL: character}
    return change.get(kind, string)(text)


def integer(text):
    match = re.fullmatch(r'(0x[0-9a-fA-F]+|\d+)([uUlLzZ]*)', text)
    if not match:
        return None
    value = int(match.group(1), 0)
    return '%d%s' % ({0: 1, 1: 0}.get(value, value + 1), match.group(2))


def floating(text):
    match = re.fullmatch(r'([\d.]+(?:e[-+]?\d+)?)([fF]?)', text)
    if not match:
        return None
    return '(%s + %s%s)' % (text, '1.0' if float(match.group(1)) >= 1 else '0.0625', match.group(2))


def character(text):
    return "'%s'" % chr(ord(text[1]) + 1) if re.fullmatch(r"'[0-9A-Za-y]'", text) else None


def string(text):
    """Changes the first letter or digit that is not part of an escape."""
    if not text.startswith('"'):
        return None
    for match in re.finditer(r'\\(?:x[0-9A-Fa-f]{1,2}|[0-7]{1,3}|.)|[A-Za-z0-9]', text):
        letter = match.group()
        if len(letter) == 1:
            return text[:match.start()] + exchanged(letter) + text[match.end():]
    return None


def exchanged(letter):
    if letter.isdigit():
        return '1' if letter == '0' else '0'
    return 'b' if letter == 'a' else 'a'
