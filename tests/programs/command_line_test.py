"""The programs in a terminal, without a display: what they answer, what they refuse, and that they open nothing.

    /usr/bin/python3 command_line_test.py BUILD_FOLDER
"""
import os
import pty
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest

SOURCE = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
RUN = os.path.join(SOURCE, 'run')
BUILD = ''


class ProgramTest(unittest.TestCase):
    """Each test has an empty home and no display."""

    def setUp(self):
        self.home = tempfile.mkdtemp(prefix='korvinel-home-')
        self.addCleanup(shutil.rmtree, self.home)
        programs = [BUILD, os.path.join(BUILD, 'tools/instrument'), os.path.join(SOURCE, 'packaging')]
        hidden = ('DISPLAY', 'WAYLAND_DISPLAY', 'QT_QPA_PLATFORM')
        self.environment = {name: value for name, value in os.environ.items() if name not in hidden}
        self.environment.update(HOME=self.home, XDG_DATA_HOME=self.home + '/data', XDG_RUNTIME_DIR=self.home,
                                PATH=':'.join([*programs, os.environ['PATH']]))

    def run_program(self, *words, expect=0, **environment):
        done = subprocess.run(words, capture_output=True, text=True, env=dict(self.environment, **environment),
                              timeout=60, check=False)
        self.assertEqual(done.returncode, expect, done.stderr)
        return done

    def refused(self, *words, expect=2, **environment):
        """The one sentence on standard error; nothing is written or created."""
        done = self.run_program(*words, expect=expect, **environment)
        self.assertEqual(done.stdout, '')
        self.assertEqual(os.listdir(self.home), [], words)
        return done.stderr


class Window(ProgramTest):
    def test_help_and_version_open_no_window(self):
        for word in ('--help', '-h'):
            self.assertIn('Uso: korvinel\n', self.run_program('korvinel', word).stdout)
        self.assertRegex(self.run_program('korvinel', '--version').stdout, r'\Akorvinel \d+\.\d+\.\d+\n\Z')
        self.assertEqual(os.listdir(self.home), [])

    def test_any_other_word_is_refused_in_one_sentence(self):
        for words in (['esame.QVD'], ['-platform', 'offscreen'], ['--help', '--fast'], ['']):
            self.assertRegex(self.refused('korvinel', *words), r'\Akorvinel: argomento sconosciuto «.*\n\Z')

    def test_without_a_display_it_says_so_and_does_not_abort(self):
        for environment in ({}, {'DISPLAY': '', 'WAYLAND_DISPLAY': ''}, {'QT_QPA_PLATFORM': 'xcb'}):
            answer = self.refused('korvinel', expect=1, **environment)
            self.assertRegex(answer, r"\Akorvinel: non c'è uno schermo [^\n]*\n\Z")

    def test_a_display_that_cannot_be_reached_is_named(self):
        answer = self.refused('korvinel', expect=1, DISPLAY=':4242')
        self.assertRegex(answer, r'\Akorvinel: lo schermo :4242 non si può usare[^\n]*\n\Z')

    def test_a_way_of_drawing_that_does_not_exist_is_named(self):
        self.assertIn('QT_QPA_PLATFORM=nothing', self.refused('korvinel', expect=1, QT_QPA_PLATFORM='nothing'))

    def test_it_starts_without_a_display_where_it_may_draw_offscreen(self):
        program = subprocess.Popen(['korvinel'], env=dict(self.environment, QT_QPA_PLATFORM='offscreen'))
        self.addCleanup(program.kill)
        end = time.monotonic() + 30
        while not os.path.exists(self.home + '/data/korvinel/drive_c/QUARVEL5/Factors.val'):
            self.assertIsNone(program.poll())
            self.assertLess(time.monotonic(), end)
            time.sleep(0.05)
        time.sleep(1)
        program.send_signal(signal.SIGTERM)
        self.assertEqual(program.wait(15), 0)


class Companions(ProgramTest):
    def test_each_has_help_and_a_version(self):
        for program in ('korvinel-prova', 'korvinel-instrument'):
            self.assertIn(program, self.run_program(program, '--help').stdout)
            self.assertRegex(self.run_program(program, '--version').stdout, r'\A%s \d+\.\d+\.\d+\n\Z' % program)
        self.assertEqual(os.listdir(self.home), [])

    def test_the_trial_refuses_what_the_instrument_does_not_know_before_it_opens_anything(self):
        for words in (['--model', 'asleep'], ['esame.QVD'], ['--speed']):
            self.assertIn('korvinel-instrument: ', self.refused('korvinel-prova', *words))

    def test_the_trial_s_help_names_every_model(self):
        text = self.run_program('korvinel-prova', '--help').stdout
        for model in models(self):
            self.assertIn(model, text)


def models(test):
    """The names of the instrument's signals, as it lists them itself."""
    answer = test.refused('korvinel-instrument', '--model', 'asleep')
    return re.search(r'the models are ([a-z, -]+)', answer).group(1).split(', ')


class Run(ProgramTest):
    def test_a_wrong_signal_is_refused_before_anything_is_built(self):
        wrong = self.home + '.frames'
        self.addCleanup(os.remove, wrong)
        with open(wrong, 'wb') as file:
            file.write(b'12345')
        for words in (['--model', 'asleep'], ['--model', 'blinks:'], ['--model', 'blinks,flat'], ['--model'],
                      ['--play', self.home + '/nowhere'], ['--play', wrong], ['--fast']):
            self.assertRegex(self.refused(RUN, *words), r'\Arun: [^\n]+\n\Z')

    def test_it_knows_the_instrument_s_models(self):
        answer = self.refused(RUN, '--model', 'asleep')
        self.assertIn('the models are %s\n' % ', '.join(models(self)), answer)

    BUILD_OUTPUT = ''.join('[%d/40] Building CXX object %d\\n' % (i, i) for i in range(1, 41)) + 'ninja: done\\n'

    def progress(self, **options):
        line = '. %s/scripts/progress.sh; printf "%s" | show_progress %s/log' % (SOURCE, self.BUILD_OUTPUT, self.home)
        return subprocess.run(['bash', '-c', line], timeout=60, check=True, **options)

    def test_a_build_shows_a_line_for_each_quarter(self):
        shown = self.progress(capture_output=True, text=True).stdout
        self.assertEqual(shown, ''.join('Building: %d of 40\n' % step for step in (10, 20, 30, 40)))
        with open(self.home + '/log', encoding='ascii') as file:
            self.assertEqual(len(file.readlines()), 41)

    def test_a_build_shows_one_changing_line_on_a_terminal(self):
        reading, writing = pty.openpty()
        self.progress(stdout=writing)
        os.close(writing)
        shown = os.read(reading, 65536).decode()
        os.close(reading)
        self.assertNotIn('\n', shown)
        self.assertEqual(shown.count('\r\033[KBuilding: '), 40)
        self.assertTrue(shown.endswith('40 of 40\r\033[K'), shown)


def main():
    global BUILD
    if len(sys.argv) < 2:
        sys.exit('%s needs the build folder' % sys.argv[0])
    BUILD = os.path.abspath(sys.argv.pop(1))
    result = unittest.main(verbosity=2, exit=False, warnings='ignore').result
    failed = len(result.failures) + len(result.errors)
    print('%d passed, %d failed' % (result.testsRun - failed, failed))
    sys.exit(failed > 0)


if __name__ == '__main__':
    main()
