"""Which test reaches which place, and whether one of them notices a change there."""
import collections
import concurrent.futures
import contextlib
import glob
import itertools
import os
import re
import signal
import subprocess
import sys
import tempfile
import time

from changed_build import PROGRAMS
from sources import read, run

UNCHANGED = 0  # no place has this number
NEAREST = 12
STATICS = '*'  # what objects do that live as long as the program; every test depends on it
SCRIPT = ('recording_tool_test.py', 'whole')


class Tests:
    """`reaching`: place -> [(milliseconds, program, test)], the quickest first. `own`: source -> its own tests, those of
    the file with the source's name. `budget`: seconds of tests that one change may cost."""

    def __init__(self, copy, build, programs=PROGRAMS, budget=float('inf')):
        self.copy, self.build, self.programs, self.budget = copy, build, programs, budget
        self.script = os.path.join(copy, 'tests/programs', SCRIPT[0])
        self.reaching = collections.defaultdict(list)
        self.all = []
        self.own = own_tests(copy)

    # --- Reach --------------------------------------------------------------------------------------------------------

    def measure(self):
        """The unchanged program must pass."""
        with temporary_folder() as folder, concurrent.futures.ThreadPoolExecutor(2) as pool:
            paths = [os.path.join(folder, program) for program in self.programs]
            for program, reach in zip(self.programs, pool.map(self.reach_of, self.programs, paths)):
                self.read_reach(program, reach)
            if os.path.exists(self.script):
                self.measure_script(os.path.join(folder, 'script'))
        for tests in self.reaching.values():
            tests.sort()
        self.all.sort()

    def reach_of(self, program, path):
        environment = dict(os.environ, KORVINEL_REACH=path, TMPDIR=os.path.dirname(path))
        outcome = run([self.path(program)], env=environment)
        failed = set(re.findall(r'^\[  FAILED  \] (\S+) \(', outcome.stdout, re.M))
        if outcome.returncode and (not failed or self.ask(UNCHANGED, program, sorted(failed), 600)):
            sys.exit('The unchanged program fails:\n' + outcome.stdout[-4000:])
        with open(path, encoding='utf-8') as file:
            return file.read()

    def read_reach(self, program, text):
        for line in text.splitlines():
            test, milliseconds, reached = line.split('\t')
            if test != STATICS:
                self.all.append((int(milliseconds), program, test))
            for place in reached.split():
                self.reaching[int(place)].append((int(milliseconds), program, test))

    def measure_script(self, path):
        began = time.monotonic()
        if run(self.command(*SCRIPT), env=dict(os.environ, KORVINEL_REACH=path)).returncode:
            sys.exit('The unchanged recording tool fails its test')
        test = (int(1000 * (time.monotonic() - began)), *SCRIPT)
        self.all.append(test)
        for part in glob.glob(path + '*.map'):
            with open(part, 'rb') as file:
                for place, reached in enumerate(file.read()):
                    if reached:
                        self.reaching[place].append(test)

    # --- Judging ------------------------------------------------------------------------------------------------------

    def judge(self, number, source):
        """`source`: the file of the place `number`."""
        tests = self.reaching.get(number, [])
        if not tests:
            return 'survived (no test comes there)'
        if any(test == STATICS for _, _, test in tests):
            tests = self.all
        nearest, others = self.by_nearness(tests, source)
        others = self.affordable(others)
        noticed = self.first_notice(number, nearest) or self.first_notice(number, others)
        asked = len(nearest) + len(others)
        return 'noticed by ' + noticed if noticed else 'survived (%d of %d tests that come there)' % (asked, len(tests))

    def affordable(self, tests):
        spent = list(itertools.accumulate(milliseconds for milliseconds, _, _ in tests))
        return [test for test, sum_so_far in zip(tests, spent) if sum_so_far <= 1000 * self.budget]

    def by_nearness(self, tests, source):
        """The source's own tests and the quickest; the others."""
        own = [test for test in tests if test[2].split('/')[0] in self.own[stem(source)]]
        nearest = own + [test for test in tests if test not in own][:NEAREST]
        return nearest, [test for test in tests if test not in nearest]

    def first_notice(self, number, tests):
        by_program = collections.defaultdict(list)
        for milliseconds, program, test in tests:
            by_program[program].append((milliseconds, test))
        for program, ones in by_program.items():
            seconds = 10 + 5 * sum(milliseconds for milliseconds, _ in ones) / 1000
            noticed = self.confirmed(number, program, [test for _, test in ones], seconds)
            if noticed:
                return noticed
        return ''

    def confirmed(self, number, program, tests, seconds):
        """A busy machine must not pass for a test that notices: the limit counts processor time and must be hit twice, and
        the test that fails must pass without the change."""
        while tests:
            noticed = self.ask(number, program, tests, seconds)
            if noticed == 'time limit':
                return self.ask(number, program, tests, 2 * seconds)
            if noticed not in tests or not self.ask(UNCHANGED, program, [noticed], seconds):
                return noticed
            tests = [test for test in tests if test != noticed]
        return ''

    def ask(self, number, program, tests, seconds):
        """The test that notices, 'crash', 'time limit' or ''. `seconds` of processor time, or of waiting twenty times as
        long."""
        with temporary_folder() as folder:
            environment = dict(os.environ, KORVINEL_CHANGE=str(number), TMPDIR=folder)
            try:
                limited = ['prlimit', '--cpu=%d' % seconds, *self.command(program, ':'.join(tests))]
                outcome = run(limited, env=environment, timeout=20 * seconds, stdin=subprocess.DEVNULL)
            except subprocess.TimeoutExpired:
                return 'time limit'
        if outcome.returncode == 0:
            return ''
        if outcome.returncode in (-signal.SIGXCPU, -signal.SIGKILL):
            return 'time limit'
        return program if program == SCRIPT[0] else first_failure(outcome.stdout) or 'crash'

    def command(self, program, tests):
        if program == SCRIPT[0]:
            return ['/usr/bin/python3', self.script, self.build]
        return [self.path(program), '--gtest_fail_fast', '--gtest_filter=' + tests]

    def path(self, program):
        return os.path.join(self.build, 'tests', program)


@contextlib.contextmanager
def temporary_folder():
    """Open to other users of the machine: some tests become one."""
    with tempfile.TemporaryDirectory() as folder:
        os.chmod(folder, 0o755)
        yield folder


def stem(path):
    return os.path.splitext(os.path.basename(path))[0]


def own_tests(copy):
    """The name of a source -> the tests in the files, or of the suites, with this name."""
    own = collections.defaultdict(set)
    for path in glob.glob(os.path.join(copy, 'tests', '**', '*_test.cpp'), recursive=True):
        for suite, name in re.findall(r'^TEST(?:_F|_P)?\((\w+),\s*(\w+)\)', read(path), re.M):
            for source in (stem(path).removesuffix('_test'), re.sub(r'(?<!^)([A-Z])', r'_\1', suite).lower()):
                own[source].add(suite + '.' + name)
    return own


def first_failure(output):
    """The test that failed, or the one that was running when the program ended."""
    failed = re.search(r'^\[  FAILED  \] (\S+?),? ', output, re.M)
    running = re.findall(r'^\[ RUN      \] (\S+)', output, re.M)
    return failed.group(1) if failed else running[-1] if running else ''
