"""The branches of the source text that were never taken, as gcovr counts them.

The compiler makes more branches than anyone wrote: the exception that leaves a call, what a temporary needs to be
destroyed, the guard of a static local. Only those of a condition in the text count.
"""
import collections
import dataclasses
import re

WRITTEN = re.compile(r'\b(if|for|while|do|switch|case)\b|\?|&&|\|\|')
JOINED = re.compile(r'(&&|\|\||\?|\bif \(|\bwhile \(|\breturn)\s*$')
LITERAL = re.compile(r'"(\\.|[^"\\])*"|\'(\\.|[^\'\\])*\'|//.*')
CATCH = re.compile(r'\bcatch \(')
TYPE = re.compile(r'^(class|struct|enum|template|using)\b|^[A-Z]\w*\(\) = default')


@dataclasses.dataclass(frozen=True)
class Untaken:
    """`branch`: which of the branches of its line, "2 of 4"; "function" if nobody calls it, "catch" if no fault comes there."""
    name: str
    text: str
    branch: str
    line: int = dataclasses.field(compare=False)


def text_of(lines, number):
    return ' '.join(lines[number - 1].split())


def has_condition(lines, number):
    """Whether a condition is written on this line, or goes on from the line before."""
    here = LITERAL.sub('', text_of(lines, number))
    before = LITERAL.sub('', text_of(lines, number - 1)) if number > 1 else ''
    return bool(WRITTEN.search(here) or JOINED.search(before))


def outcomes(text, branches):
    """The outcomes of the line's conditions: how often each was taken. A call has two branches as well, of which one is
    its exception; a pair without a count belongs to code that was not reached, so that a branch before it is untaken."""
    pairs = []
    position = 0
    while position < len(branches):
        pair = branches[position:position + 2]
        if any(branch['throw'] for branch in pair):
            position += 2
            continue
        if re.search(r'\bswitch \(', text):
            return [branch['count'] for branch in branches[position:] if not branch['throw']]
        if len(pair) == 2 and any(branch['count'] for branch in pair):
            pairs += pair
        position += 2
    return [branch['count'] for branch in pairs]


def kept_branches(lines, line):
    """The same as `outcomes`, of a line as gcovr counts it."""
    number = line['line_number']
    if number > len(lines) or line['count'] == 0 or not has_condition(lines, number):
        return []
    return outcomes(text_of(lines, number), line['branches'])


def uncaught(lines, counted):
    """The lines of the handlers that no fault reached, while the function was called."""
    numbers = sorted(counted)
    for number in numbers:
        inside = [other for other in numbers if other > number][:1]
        if CATCH.search(text_of(lines, number)) and inside and counted[inside[0]] == 0:
            yield number


def uncalled(lines, functions):
    """The lines of functions that no test calls; what the compiler itself adds to a type stands on the type's line."""
    calls = collections.Counter()
    for function in functions:
        calls[function['lineno']] += function['execution_count']
    return [number for number, count in calls.items()
            if count == 0 and number <= len(lines) and not TYPE.search(text_of(lines, number))]


def untaken_of(file, lines):
    """Every untaken branch of one file, in the order of its lines."""
    name, found = file['file'], []
    silent = uncalled(lines, file['functions'])
    found += [Untaken(name, text_of(lines, number), 'function', number) for number in silent]
    for line in file['lines']:
        counts, number = kept_branches(lines, line), line['line_number']
        missing = [str(index) for index, count in enumerate(counts, 1) if count == 0]
        if missing:
            found.append(Untaken(name, text_of(lines, number), '%s of %d' % (','.join(missing), len(counts)), number))
    counted = {line['line_number']: line['count'] for line in file['lines']
               if line['line_number'] <= len(lines) and not line.get('gcovr/noncode')}
    found += [Untaken(name, text_of(lines, number), 'catch', number) for number in uncaught(lines, counted)]
    return sorted(found, key=lambda one: (one.line, one.branch))


def only_written(file, lines):
    """The file with the branches of its conditions alone, for the report."""
    for line in file['lines']:
        line['branches'] = [{'count': count, 'fallthrough': False, 'throw': False} for count in kept_branches(lines, line)]
    return file
