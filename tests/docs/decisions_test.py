"""docs/decisions/README.md lists every decision exactly once, and every link in the documents leads to a file.

    /usr/bin/python3 decisions_test.py
"""
import glob
import os
import re
import sys
import unittest

SOURCE = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
DECISIONS = os.path.join(SOURCE, 'docs/decisions')
LINK = re.compile(r'\]\(([^)#:]+)(?:#[^)]*)?\)')
DOCUMENTS = ['README.md', 'CONTRIBUTING.md', 'docs/*.md', 'docs/decisions/*.md', 'docs/manuale/*.md']


def links_of(path):
    with open(path, encoding='utf-8') as file:
        return LINK.findall(file.read())


class DecisionsTest(unittest.TestCase):
    def test_every_page_is_listed_exactly_once(self):
        pages = sorted(os.path.basename(path) for path in glob.glob(os.path.join(DECISIONS, '[0-9]*.md')))
        self.assertGreater(len(pages), 60)
        self.assertEqual(sorted(links_of(os.path.join(DECISIONS, 'README.md'))), pages)

    def test_every_line_of_the_list_names_the_number_of_its_page(self):
        with open(os.path.join(DECISIONS, 'README.md'), encoding='utf-8') as file:
            rows = [line for line in file if line.startswith('- ')]
        for row in rows:
            self.assertRegex(row, r'^- \[(\d{3})\]\(\1-[^)]+\.md\) \S')

    def test_every_link_in_the_documents_leads_to_a_file(self):
        found = 0
        for pattern in DOCUMENTS:
            for path in glob.glob(os.path.join(SOURCE, pattern)):
                for link in links_of(path):
                    found += 1
                    self.assertTrue(os.path.exists(os.path.join(os.path.dirname(path), link)), '%s: %s' % (path, link))
        self.assertGreater(found, 80)


if __name__ == '__main__':
    result = unittest.main(verbosity=1, exit=False).result
    failed = len(result.failures) + len(result.errors)
    print('%d passed, %d failed' % (result.testsRun - failed - len(result.skipped), failed))
    sys.exit(failed > 0)
