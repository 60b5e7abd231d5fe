"""The mutation campaign on a small program.

    /usr/bin/python3 campaign_test.py
"""
import os
import shutil
import sys
import tempfile
import unittest

import literals
import table
from changed_build import ChangedBuild
from clang.cindex import CursorKind as Kind
from judging import Tests
from sources import Sources, run, write

HERE = os.path.dirname(os.path.abspath(__file__))
PROGRAM = {
    'CMakeLists.txt': '''cmake_minimum_required(VERSION 3.24)
project(korvinel CXX)
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
find_package(GTest REQUIRED)
add_library(core STATIC src/values/level.cpp)
target_include_directories(core PUBLIC src)
add_executable(korvinel_unit_tests tests/level_test.cpp tests/ways_test.cpp)
set_target_properties(korvinel_unit_tests PROPERTIES RUNTIME_OUTPUT_DIRECTORY tests)
target_link_libraries(korvinel_unit_tests core GTest::gtest_main)
''',
    'src/values/level.h': '''#pragma once
#include <array>
constexpr int channelCount = 4;
constexpr int widths[channelCount] = {1, 2, 3, 4};
constexpr int mostLevel = 128;
constexpr int twice(int value) { return value * 2; }
struct Levels { std::array<int, 17> of; };
constexpr int shortest() {
  constexpr std::array<int, 2> lengths = {19, 23};
  return lengths[0];
}
int level(int value);
int untested(int value);
''',
    'src/values/level.cpp': '''#include "values/level.h"
namespace {
int first = 0, second = 0;
void keep(int value) { first = value; }
void add(int value) { second = first + value; }
void dropped() { first += 0; }
}  // namespace
int level(int value) {
  keep(value);
  add(twice(value));
  dropped();
  if (second > mostLevel) return mostLevel;
  return second;
}
int untested(int value) { return value + 1; }
''',
    'tests/ways_test.cpp': '''#include "values/level.h"
#include <gtest/gtest.h>
TEST(Ways, EndAtTheMostToo) { EXPECT_EQ(level(1000), 128); }
''',
    'tests/level_test.cpp': '''#include "values/level.h"
#include <gtest/gtest.h>
TEST(Level, IsThreeTimesTheValue) {
  EXPECT_EQ(level(5), 15);
  EXPECT_EQ(level(1), 3);
}
TEST(Level, EndsAtTheMost) {
  EXPECT_EQ(level(43), 128);
  EXPECT_EQ(level(42), 126);
  EXPECT_EQ(widths[3], 4);
}
''',
}


def prepare(folder):
    """The program, its changed build and its tests, in a separate work tree."""
    tree, work = os.path.join(folder, 'tree'), os.path.join(folder, 'work')
    for name, text in PROGRAM.items():
        write(os.path.join(tree, name), text)
    for name in 'switch.h', 'switch.cpp', 'reach.cpp', 'changed.cmake':
        os.makedirs(os.path.join(tree, 'tests/mutation'), exist_ok=True)
        shutil.copy(os.path.join(HERE, name), os.path.join(tree, 'tests/mutation'))
    run(['git', '-C', tree, 'init', '-q'])
    sources = Sources(work, tree, ['src/values'])
    build = ChangedBuild(work, sources, core=['core'], programs=['korvinel_unit_tests'], started=[])
    texts = sources.copy_all()
    build.configure()
    sources.find(texts, build.compile_commands)
    build.make()
    tests = Tests(sources.copy, build.folder, ['korvinel_unit_tests'])
    tests.measure()
    return table.changes_of(sources.files), tests


class CampaignTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.changes, cls.tests = prepare(cls.folder.name)

    @classmethod
    def tearDownClass(cls):
        cls.folder.cleanup()

    def outcome(self, kind, part):
        found = [change for change in self.changes if change.kind == kind and part in change.what]
        self.assertEqual(len(found), 1, '%s, %s' % (kind, part))
        return self.tests.judge(found[0].number, found[0].name)

    def test_the_unchanged_program_is_not_noticed(self):
        every = [test for _, _, test in self.tests.all]
        self.assertEqual(sorted(every), ['Level.EndsAtTheMost', 'Level.IsThreeTimesTheValue', 'Ways.EndAtTheMostToo'])
        self.assertEqual(self.tests.ask(0, 'korvinel_unit_tests', every, 60), '')

    def test_a_change_is_noticed_by_the_test_that_fails(self):
        self.assertEqual(self.outcome('left out', 'add(twice(value))'), 'noticed by Level.IsThreeTimesTheValue')
        self.assertIn('noticed by', self.outcome('exchanged', 'keep(value) <-> add(twice(value))'))
        self.assertIn('noticed by', self.outcome('negated', 'second > mostLevel'))

    def test_the_tests_of_the_file_come_before_quicker_ones(self):
        ways, ends, thrice = [(1, 'unit', 'Ways.EndAtTheMostToo'), (5, 'unit', 'Level.EndsAtTheMost'),
                              (9, 'unit', 'Level.IsThreeTimesTheValue')]
        self.assertEqual(self.tests.by_nearness([ways, ends, thrice], 'src/values/level.cpp'),
                         ([ends, thrice, ways], []))

    def test_a_budget_of_seconds_buys_the_quickest_tests(self):
        tests = Tests(self.tests.copy, self.tests.build, self.tests.programs, budget=2)
        quick, slow, slower = [(900, 'unit', 'A.a'), (1000, 'unit', 'A.b'), (1100, 'unit', 'A.c')]
        self.assertEqual(tests.affordable([quick, slow, slower]), [quick, slow])

    def test_a_constant_is_changed_where_the_program_starts(self):
        self.assertEqual(self.outcome('constant', '128 -> 129'), 'noticed by Level.EndsAtTheMost')

    def test_a_constexpr_function_is_changed_at_run_time(self):
        self.assertIn('noticed by', self.outcome('arithmetic', 'value * 2'))

    def test_what_nobody_can_see_survives(self):
        self.assertEqual(self.outcome('left out', 'dropped()'), 'survived (3 of 3 tests that come there)')

    def test_what_no_test_reaches_survives(self):
        self.assertEqual(self.outcome('arithmetic', 'value + 1'), 'survived (no test comes there)')

    def test_what_does_not_compile_is_not_tried(self):
        self.assertFalse([change for change in self.changes if change.what == '4 -> 5' and change.line == 3])

    def test_what_only_the_compiler_calculates_is_not_tried(self):
        self.assertFalse([change for change in self.changes if change.what in ('17 -> 18', '19 -> 20', '2 -> 3')
                          and change.name.endswith('.h') and change.line > 6])

    def test_the_same_seed_gives_the_same_choice(self):
        first, again = (table.chosen(order, 5, 1) for order in (self.changes, self.changes[::-1]))
        self.assertEqual(first, again)
        self.assertEqual(first[:3], table.chosen(self.changes, 3, 1))
        self.assertNotEqual(first, table.chosen(self.changes, 5, 2))

    def test_literals_move_by_one(self):
        for kind, text, changed in ((Kind.INTEGER_LITERAL, '0x10U', '17U'), (Kind.INTEGER_LITERAL, '1', '0'),
                                    (Kind.FLOATING_LITERAL, '2.5f', '(2.5f + 1.0f)'),
                                    (Kind.CHARACTER_LITERAL, "'a'", "'b'"), (Kind.CHARACTER_LITERAL, "'\\n'", None),
                                    (Kind.STRING_LITERAL, '"\\n Stop"', '"\\n atop"'),
                                    (Kind.STRING_LITERAL, '" "', None)):
            self.assertEqual(literals.changed_literal(kind, text), changed)


if __name__ == '__main__':
    result = unittest.main(verbosity=1, exit=False).result
    failed = len(result.failures) + len(result.errors)
    print('%d passed, %d failed' % (result.testsRun - failed, failed))
    sys.exit(failed > 0)
