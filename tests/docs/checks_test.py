"""Each check of scripts/checks finds a fault planted in a small tree, passes the tree without it, and fails on none.

    /usr/bin/python3 checks_test.py

Debian packages: clang-format, clang-tidy, hunspell, hunspell-en-gb, hunspell-it.
"""
import json
import os
import shutil
import subprocess
import sys
import tempfile
import unittest

SOURCE = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
CHECKS = os.path.join(SOURCE, 'scripts/checks')
WORDS = 'scripts/checks/words.txt'
CLEAN = '/// Blocks that are kept.\nint keptBlocks() { return 1; }\n'


class Tree(unittest.TestCase):
    """A small checkout without git."""

    def setUp(self):
        self.root = tempfile.mkdtemp()
        self.addCleanup(shutil.rmtree, self.root)
        shutil.copy(os.path.join(SOURCE, '.clang-format'), self.root)
        shutil.copy(os.path.join(SOURCE, '.clang-tidy'), self.root)

    def write(self, path, text):
        path = os.path.join(self.root, path)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, 'w', encoding='utf-8') as file:
            file.write(text)

    def run_check(self, name, *arguments):
        environment = dict(os.environ, XDG_CACHE_HOME=os.path.join(self.root, '.cache'))
        return subprocess.run(['/usr/bin/python3', os.path.join(CHECKS, name), *arguments], env=environment,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, encoding='utf-8')

    def expect_clean(self, name, *arguments):
        result = self.run_check(name, *arguments or [self.root])
        self.assertEqual(result.returncode, 0, result.stdout)

    def expect_fault(self, said, name, *arguments):
        result = self.run_check(name, *arguments or [self.root])
        self.assertNotEqual(result.returncode, 0, result.stdout)
        self.assertIn(said, result.stdout)


class FormattingTest(Tree):
    def test_a_file_that_is_not_formatted_is_named(self):
        self.write('src/kept.cpp', CLEAN)
        self.expect_clean('formatting.py')
        self.write('src/wide.h', 'int  wide( );\n')
        self.expect_fault('src/wide.h:1', 'formatting.py')

    def test_a_tree_without_files_fails(self):
        self.write('build/made.cpp', CLEAN)
        self.expect_fault('no file', 'formatting.py')


class FileNamesTest(Tree):
    def test_each_kind_of_file_has_its_rule(self):
        self.write('src/kept_blocks.cpp', CLEAN)
        self.write('docs/file-format.md', '')
        self.expect_clean('file_names.py')
        for path in ('src/KeptBlocks.cpp', 'src/kept-blocks.h', 'tests/testKept.py', 'docs/file_format.md'):
            self.write(path, '')
            self.expect_fault(path + ':1', 'file_names.py')
            os.remove(os.path.join(self.root, path))

    def test_a_tree_without_files_fails(self):
        self.expect_fault('no file', 'file_names.py')


class SpellingTest(Tree):
    def expect_word(self, word, path, text):
        """In the last line of `text`, and no other word."""
        self.write(path, text)
        result = self.run_check('spelling.py', self.root)
        faults = [line for line in result.stdout.split('\n') if line.startswith(path)]
        self.assertEqual(len(faults), 1, result.stdout)
        self.assertIn('%s:%d: "%s"' % (path, text.count('\n'), word), faults[0])
        self.assertNotEqual(result.returncode, 0)
        os.remove(os.path.join(self.root, path))

    def test_a_misspelt_word_is_named_with_its_line(self):
        self.write('src/kept.cpp', CLEAN)
        self.expect_clean('spelling.py')
        self.expect_word('recieved', 'src/a.cpp', 'int a;\n// Blocks that are recieved.\n')
        self.expect_word('bufer', 'src/b.h', 'int a;\nint lastBlock;  // of the bufer\n')
        self.expect_word('Bufer', 'src/c.h', 'int keptBlocks;\nint lastBuferOfBlocks;\n')
        self.expect_word('sufficente', 'src/d.cpp', 'int a;\nauto text = "Non c\'e\' spazio sufficente";\n')
        self.expect_word('wich', 'tests/e.py', '"""Blocks.\n\nA block wich is kept."""\n')
        self.expect_word('color', 'docs/f.md', '# Blocks\n\nThe color of a block.\n')
        self.expect_word('registrazzione', 'docs/manuale/g.md', '# Esame\n\nLa registrazzione dell\'esame è salva.\n')
        self.expect_word('perche', 'src/h.cpp', 'int a;\nauto text = "Non si puo\' perche";\n')
        self.expect_word("zz'esame", 'src/i.cpp', 'int a;\nauto text = "La fine dell\'esame e zz\'esame";\n')

    def test_code_in_a_document_is_no_word(self):
        self.write('docs/a.md', '# Blocks\n\nCall `strtoqx` or:\n\n    xqz --wich\n\nSee [the blocks](wich.md).\n')
        self.expect_clean('spelling.py')

    def test_the_list_of_words_allows_a_word_and_is_sorted_and_needed(self):
        self.write('docs/a.md', 'An artefakt of the soxr.\n')
        self.write(WORDS, 'artefakt  # so it is written\nsoxr\n')
        self.expect_clean('spelling.py')
        self.write(WORDS, 'soxr\nartefakt\n')
        self.expect_fault('"artefakt" is not in its place', 'spelling.py')
        self.write(WORDS, 'artefakt\nsoxr\nudev\n')
        self.expect_fault('"udev" is not needed', 'spelling.py')

    def test_a_tree_without_files_fails(self):
        self.expect_fault('no file', 'spelling.py')


class LintTest(Tree):
    def compile(self, *paths):
        build = os.path.join(self.root, 'build')
        entries = [{'directory': build, 'file': os.path.join(self.root, path),
                    'command': 'c++ -I%s/src -O2 -Wno-restrict -std=c++20 -o a.o -c %s' % (self.root, path)}
                   for path in paths]
        self.write('build/compile_commands.json', json.dumps(entries))
        return [build, self.root, '--', 'src']

    def test_a_name_against_the_rule_and_a_bad_habit_are_named(self):
        given = self.compile('src/kept.cpp')
        self.write('src/kept.cpp', CLEAN)
        self.expect_clean('lint.py', *given)
        for line, rule in (('int Kept_blocks() { return 1; }\n', 'readability-identifier-naming'),
                           ('int kept(int* block) {\n  if (block != nullptr) return 0;\n  return *block;\n}\n', 'clang-analyzer'),
                           ('struct Block {\n  virtual void keep();\n};\nstruct Kept : Block {\n  virtual void keep();\n};\n',
                            'modernize-use-override')):
            self.write('src/kept.cpp', line)
            self.expect_fault(rule, 'lint.py', *given)

    def test_a_changed_header_is_read_again(self):
        given = self.compile('src/kept.cpp')
        self.write('src/blocks/kept.h', 'int keptBlocks();\n')
        self.write('src/kept.cpp', '#include "blocks/kept.h"\n\nint keptBlocks() { return 1; }\n')
        self.expect_clean('lint.py', *given)
        self.expect_clean('lint.py', *given)
        self.write('src/blocks/kept.h', 'int keptBlocks();\nint Kept_blocks();\n')
        self.expect_fault('src/blocks/kept.h:2', 'lint.py', *given)

    def test_a_changed_rule_is_applied_again(self):
        given = self.compile('src/kept.cpp')
        self.write('src/kept.cpp', CLEAN)
        self.expect_clean('lint.py', *given)
        self.write('.clang-tidy', "Checks: modernize-use-trailing-return-type\nWarningsAsErrors: '*'\n")
        self.expect_fault('modernize-use-trailing-return-type', 'lint.py', *given)

    def test_a_source_that_nothing_compiles_fails(self):
        given = self.compile('src/kept.cpp')
        self.write('src/kept.cpp', CLEAN)
        self.write('src/forgotten.cpp', CLEAN)
        self.expect_fault('src/forgotten.cpp', 'lint.py', *given)

    def test_a_tree_without_files_fails(self):
        self.expect_fault('no file', 'lint.py', *self.compile())


if __name__ == '__main__':
    result = unittest.main(verbosity=1, exit=False).result
    failed = len(result.failures) + len(result.errors)
    print('%d passed, %d failed' % (result.testsRun - failed - len(result.skipped), failed))
    sys.exit(failed > 0)
