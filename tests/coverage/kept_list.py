"""The list of untaken branches that are known, untaken.tsv: file, text of the line, branch, reason.

A line with * for the text and the branch is a whole file. Equal lines of a file have a row each.
"""
import collections

WHOLE = '*'


def read(path):
    """Rows of four columns, and the faults of their form."""
    with open(path, encoding='utf-8') as file:
        rows = [line.rstrip('\n').split('\t') for line in file if line.strip() and not line.startswith('#')]
    faults = ['not four columns, or no reason: %s' % ' | '.join(row) for row in rows if len(row) != 4 or not row[-1].strip()]
    return [row for row in rows if len(row) == 4], faults


def key(one):
    return one.name, one.text, one.branch


def compare(untaken, rows):
    """The untaken branches that the list lacks, and the rows that no longer apply."""
    whole = {row[0] for row in rows if row[1] == WHOLE}
    listed = collections.Counter(tuple(row[:3]) for row in rows if row[1] != WHOLE)
    new = []
    for one in untaken:
        if listed[key(one)] > 0:
            listed[key(one)] -= 1
        elif one.name not in whole:
            new.append(one)
    stale = [' | '.join(name) for name, count in listed.items() for _ in range(count)]
    names = {one.name for one in untaken}
    return new, stale + ['%s: every branch is taken' % name for name in sorted(whole - names)]
