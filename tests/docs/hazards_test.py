"""Every test that docs/hazards.md names exists in the sources, and every row names one.

    /usr/bin/python3 hazards_test.py
"""
import glob
import os
import re
import sys
import unittest

SOURCE = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
CPP_TEST = re.compile(r'\bTEST(?:_F|_P)?\(\s*(\w+),\s*(\w+)\s*\)')
COLUMNS = ['Cause', 'Guard', 'Test', 'What remains']


def read(path):
    with open(path, encoding='utf-8') as file:
        return file.read()


def tests_of_sources():
    """The names of all tests, as `Suite.Name` and `file.py:function`."""
    found = set()
    for path in glob.glob(os.path.join(SOURCE, 'tests/**/*_test.cpp'), recursive=True):
        found.update('.'.join(names) for names in CPP_TEST.findall(read(path)))
    for path in glob.glob(os.path.join(SOURCE, 'tests/**/*_test.py'), recursive=True):
        found.update('%s:%s' % (os.path.basename(path), name) for name in re.findall(r'def (test_\w+)', read(path)))
    return found


def rows():
    """The cells of every row of every table, without headings and separator lines."""
    for line in read(os.path.join(SOURCE, 'docs/hazards.md')).split('\n'):
        cells = [cell.strip() for cell in line.strip('|').split('|')]
        if line.startswith('|') and cells != COLUMNS and set(line) - set('|-'):
            yield cells


class HazardsTest(unittest.TestCase):
    def test_every_row_has_a_cause_a_guard_a_test_and_what_remains(self):
        found = list(rows())
        self.assertGreater(len(found), 30)
        for cells in found:
            self.assertEqual(len(cells), len(COLUMNS), cells)
            self.assertTrue(all(cells), cells)
            self.assertRegex(cells[2], r'^`[^`]+`(, `[^`]+`)*$')

    def test_every_named_test_stands_in_the_sources(self):
        there = tests_of_sources()
        self.assertGreater(len(there), 700)
        for cells in rows():
            for name in re.findall(r'`([^`]+)`', cells[2]):
                self.assertTrue(name in there, 'no such test: %s (%s)' % (name, cells[0]))


if __name__ == '__main__':
    result = unittest.main(verbosity=1, exit=False).result
    failed = len(result.failures) + len(result.errors)
    print('%d passed, %d failed' % (result.testsRun - failed - len(result.skipped), failed))
    sys.exit(failed > 0)
