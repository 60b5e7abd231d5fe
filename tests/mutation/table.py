"""The changes, their outcomes in results.tsv, and the figures."""
import collections
import dataclasses
import hashlib
import os


@dataclasses.dataclass(frozen=True)
class Change:
    """`nth`: position among equal changes in this file. Unlike lines and numbers, the key survives edits elsewhere."""
    number: int
    name: str
    line: int
    kind: str
    what: str
    nth: int

    def key(self):
        return self.name, self.kind, self.what, str(self.nth)

    def folder(self):
        return os.path.dirname(self.name)


def changes_of(files):
    """Every change in the build."""
    changes, seen = [], collections.Counter()
    for file in files:
        for number, place in file.numbered():
            for which in range(place.count):
                what = ' '.join((place.labels[which] if place.labels else place.what).split())
                seen[file.name, place.kind, what] += 1
                changes.append(Change(number + which, file.name, place.line, place.kind, what,
                                      seen[file.name, place.kind, what]))
    return changes


def chosen(changes, count, seed):
    """The same changes for the same seed: the folders take turns, and a change's position depends only on its key. A
    smaller `count` selects the first changes of a larger one."""
    by_folder = collections.defaultdict(list)
    for change in changes:
        by_folder[change.folder()].append(change)
    for ones in by_folder.values():
        ones.sort(key=lambda change: hashlib.sha256('\t'.join([str(seed), *change.key()]).encode()).hexdigest())
    turns = [(turn, folder) for folder, ones in by_folder.items() for turn in range(len(ones))]
    return [by_folder[folder][turn] for turn, folder in sorted(turns)[:count]]


def read_table(path):
    """key -> the last column"""
    if not os.path.exists(path):
        return {}
    with open(path, encoding='utf-8') as file:
        rows = [line.rstrip('\n').split('\t') for line in file if line.strip() and not line.startswith('#')]
    return {tuple(row[:4]): row[-1] for row in rows}


def row(change, outcome):
    return '\t'.join([*change.key(), str(change.line), outcome]) + '\n'


def verdict(change, outcome, equivalents):
    if outcome.startswith('noticed'):
        return 'noticed'
    return 'settled' if change.key() in equivalents else 'survived'


def print_figures(results, equivalents):
    """`results`: change -> outcome. Returns the number of noticed and settled changes, and of the others."""
    count, survivors = collections.defaultdict(collections.Counter), []
    for change, outcome in results.items():
        kind = verdict(change, outcome, equivalents)
        count[change.folder()][kind] += 1
        if kind == 'survived':
            survivors.append('%s:%d %s: %s, %s' % (change.name, change.line, change.kind, change.what, outcome))
    print('%-24s %8s %8s %8s %8s' % ('folder', 'tried', 'noticed', 'settled', 'survived'))
    for folder, ones in sorted(count.items()):
        print('%-24s %8d %8d %8d %8d' % (folder, ones.total(), ones['noticed'], ones['settled'], ones['survived']))
    for survivor in sorted(survivors):
        print(survivor)
    return len(results) - len(survivors), len(survivors)
