"""The search for untaken branches, on a small program.

    /usr/bin/python3 coverage_test.py
"""
import os
import subprocess
import sys
import tempfile
import unittest

import branches
import coverage
import kept_list

PROGRAM = '''#include <stdexcept>
#include <string>
struct Level { std::string text; };
enum class Kind { low, high };
bool odd(int x) { return x % 2 == 1; }
int both(int x, const std::string& s) {
  if (odd(x) && s == std::string("x") + "y") return 1;
  const Level level{odd(x) ? "a" : s + "z"};
  for (const char c : level.text)
    if (c == 'q') throw std::runtime_error("q" + s);
  return x > 3 ||
                 s == "never compared"
             ? 2
             : 3;
}
int never(int x) { return x > 2 ? 1 : 2; }
int ofKind(Kind kind) {
  switch (kind) {
    case Kind::low: return 1;
    case Kind::high: return 2;
  }
  return 0;
}
const std::string& name() {
  static const std::string text = "name";
  return text;
}
int main() {
  try {
    both(5, "xy");
    both(5, "xz");
    both(4, "a");
    both(4, "q");
  } catch (const std::logic_error& fault) {
    return 3;
  } catch (const std::runtime_error& fault) {
    return ofKind(Kind::low) + static_cast<int>(name().size()) - 5;
  }
}
'''
EXPECTED = [
    ('? 2', '1 of 2'),
    ('int never(int x) { return x > 2 ? 1 : 2; }', 'function'),
    ('switch (kind) {', '2,3 of 3'),
    ('} catch (const std::logic_error& fault) {', 'catch'),
]


def one(text, branch='1 of 2', name='src/a.cpp'):
    return branches.Untaken(name, text, branch, 1)


class SmallProgram(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.root, cls.build = cls.folder.name, os.path.join(cls.folder.name, 'build')
        os.makedirs(os.path.join(cls.root, 'src'))
        os.makedirs(cls.build)
        source = os.path.join(cls.root, 'src/small.cpp')
        with open(source, 'w', encoding='utf-8') as file:
            file.write(PROGRAM)
        subprocess.run(['g++', '-std=c++20', '-O0', '--coverage', source, '-o', 'small'], cwd=cls.build, check=True)
        subprocess.run(['./small'], cwd=cls.build, check=True)
        cls.untaken, cls.number = coverage.examine(cls.root, cls.build)

    @classmethod
    def tearDownClass(cls):
        cls.folder.cleanup()

    def test_finds_each_untaken_branch_of_the_text_and_none_that_only_the_compiler_made(self):
        self.assertEqual([(one.text, one.branch) for one in self.untaken], EXPECTED)
        self.assertEqual({one.name for one in self.untaken}, {'src/small.cpp'})

    def test_counts_the_branches_of_the_conditions(self):
        self.assertGreater(self.number['src'], 12)

    def test_the_report_shows_the_source(self):
        pages = os.listdir(os.path.join(self.build, 'report'))
        self.assertIn('index.html', pages)
        self.assertTrue(any('small.cpp' in page for page in pages), pages)


class KeptListTest(unittest.TestCase):
    def rows(self, text):
        with tempfile.NamedTemporaryFile('w', suffix='.tsv', encoding='utf-8') as file:
            file.write(text)
            file.flush()
            return kept_list.read(file.name)

    def test_a_listed_branch_is_known_and_any_other_is_new(self):
        rows, faults = self.rows('# a comment\nsrc/a.cpp\tif (a)\t1 of 2\treason\n')
        self.assertEqual(faults, [])
        self.assertEqual(kept_list.compare([one('if (a)'), one('if (b)')], rows), ([one('if (b)')], []))
        self.assertEqual(kept_list.compare([one('if (a)', '2 of 2')], rows)[0], [one('if (a)', '2 of 2')])

    def test_equal_lines_need_a_row_each(self):
        rows, _ = self.rows('src/a.cpp\tif (a)\t1 of 2\treason\n')
        self.assertEqual(kept_list.compare([one('if (a)'), one('if (a)')], rows), ([one('if (a)')], []))

    def test_a_row_that_no_longer_applies_is_a_fault(self):
        rows, _ = self.rows('src/a.cpp\tif (a)\t1 of 2\treason\nsrc/b.cpp\t*\t*\treason\n')
        _, stale = kept_list.compare([], rows)
        self.assertEqual(len(stale), 2)

    def test_a_whole_file_can_be_listed(self):
        rows, _ = self.rows('src/a.cpp\t*\t*\treason\n')
        self.assertEqual(kept_list.compare([one('if (a)'), one('if (b)')], rows), ([], []))

    def test_a_row_without_a_reason_is_a_fault(self):
        self.assertEqual(len(self.rows('src/a.cpp\tif (a)\t1 of 2\t\nsrc/a.cpp\tif (b)\n')[1]), 2)


if __name__ == '__main__':
    result = unittest.main(verbosity=1, exit=False).result
    failed = len(result.failures) + len(result.errors)
    print('%d passed, %d failed' % (result.testsRun - failed - len(result.skipped), failed))
    sys.exit(failed > 0)
