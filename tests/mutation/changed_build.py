"""One build with every change behind a switch, except those that do not compile."""
import os
import re
import sys

from sources import Arguments, read, run, write

CORE = ['korvinel_host', 'korvinel_headless', 'korvinel_recording_core']
PROGRAMS = ['korvinel_unit_tests', 'korvinel_journey_tests', 'korvinel_recording_tests', 'korvinel_reliability_tests']
STARTED_BY_TESTS = ['korvinel-recording', 'korvinel-instrument']
MOST_ROUNDS = 200
FAILURES_A_ROUND = '10'  # an error in a header fails everywhere
# Where the compiler needs a constant: assertions, bounds, template arguments.
NEEDS_CONSTANTS = re.compile(r'static_assert|\[[a-z]\w+( [-+*] \w+)?\]\s*[={;]|std::array<|Bounded<')
ABOUT_CONSTANTS = re.compile(r'constant|constexpr|template argument|static assertion|array')


class ChangedBuild:
    def __init__(self, work, sources, core=CORE, programs=PROGRAMS, started=STARTED_BY_TESTS):
        self.sources = sources
        self.stages = core, started + programs
        self.work = work
        self.log = os.path.join(work, 'build.log')
        self.folder = os.path.join(work, 'build')
        self.compile_commands = os.path.join(self.folder, 'compile_commands.json')

    def configure(self):
        outcome = run(['cmake', '-S', self.sources.copy, '-B', self.folder, '-G', 'Ninja', '-DCMAKE_BUILD_TYPE=',
                       '-DCMAKE_CXX_FLAGS=-O1 ' + ' '.join(self.flags()),
                       '-DCMAKE_PROJECT_korvinel_INCLUDE=' + self.own('changed.cmake')])
        if outcome.returncode:
            sys.exit(outcome.stdout)

    def flags(self):
        return ['-w', '-fpermissive', '-include', self.own('switch.h')]

    def own(self, name):
        return os.path.join(self.sources.copy, 'tests', 'mutation', name)

    def make(self):
        """All headers at once, then the libraries, then the tests, so that errors are found where they cost least."""
        self.freeze_needed()
        self.repeat(self.headers())
        for targets in self.stages:
            self.repeat(['ninja', '-C', self.folder, '-k', FAILURES_A_ROUND, '-j', '2'] + targets)

    def headers(self):
        """The command that compiles all headers."""
        path = os.path.join(self.work, 'headers.cpp')
        names = [os.path.join(self.sources.copy, file.name) for file in self.sources.files if file.name.endswith('.h')]
        write(path, ''.join('#include "%s"\n' % name for name in names))
        arguments = Arguments(self.compile_commands, self.sources.copy).all()
        return ['c++', '-fsyntax-only', *self.flags(), *arguments, path]

    def repeat(self, command):
        """Runs the command until it succeeds, dropping the changes that do not compile."""
        for _ in range(MOST_ROUNDS):
            self.sources.write_all()
            outcome = run(command)
            write(self.log, outcome.stdout)
            if outcome.returncode == 0:
                return
            if not self.drop(outcome.stdout):
                break
            self.sources.remember()
        sys.exit('The changed program does not build; see ' + self.log)

    def drop(self, log):
        """Removes the changes on the lines of errors; returns their number."""
        pattern = r'^(?:In file included from )?%s/([^:\n]+):(\d+):(?:\d+:)? +(error|note|required)(.*)'
        found = re.findall(pattern % re.escape(self.sources.copy), log, re.M)
        errors = {(name, int(line), message) for name, line, kind, message in found if kind == 'error'}
        dropped = sum(self.drop_error(*error) for error in sorted(errors))
        return dropped or sum(self.freeze_named(name, int(line)) + self.drop_line(name, int(line))
                              for name, line, _, _ in set(found))

    def drop_error(self, name, line, message):
        """An error about constants is usually about one that was freed: makes it constexpr again."""
        frozen = self.freeze_named(name, line) if ABOUT_CONSTANTS.search(message) else 0
        return frozen or self.drop_line(name, line)

    def drop_line(self, name, line):
        dropped = 0
        for file in self.sources.files:
            if file.name == name:
                left = [place for place in file.places if not place.spans(file.text, line)]
                dropped += len(file.places) - len(left)
                file.places = left
        return dropped

    def freeze_needed(self):
        for file in self.sources.files:
            for number, line in enumerate(file.text.split('\n'), 1):
                if NEEDS_CONSTANTS.search(line):
                    self.freeze_named(file.name, number)

    def freeze_named(self, name, line):
        """Makes the freed constants on this line constexpr again, and those that they depend on."""
        words = set(re.findall(r'\w+', self.line(name, line)))
        frozen = 0
        for file in [file for file in self.sources.files if file.name == name or file.name.endswith('.h')]:
            for constant in [constant for constant in file.free if constant.name in words]:
                file.free = [other for other in file.free if other != constant]
                frozen += 1 + self.drop_line(file.name, constant.line) + self.freeze_named(file.name, constant.line)
        return frozen

    def line(self, name, line):
        """The line without changes."""
        texts = {file.name: file.text for file in self.sources.files}
        text = texts.get(name) or read(os.path.join(self.sources.copy, name))
        return text.split('\n')[line - 1]
