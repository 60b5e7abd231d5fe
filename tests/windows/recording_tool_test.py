"""korvinel-recording for Windows, under wine, compared with the one for this machine: both get the same command lines
and files, and must give the same results.

    /usr/bin/python3 recording_tool_test.py NATIVE_BUILD WINDOWS_FOLDER

WINDOWS_FOLDER holds korvinel-recording.exe with its libraries.

Debian packages: wine librsvg2-bin poppler-utils imagemagick
"""
import os
import pty
import re
import select
import shutil
import struct
import subprocess
import sys
import tempfile
import unittest
from math import pi, sin
from xml.etree import ElementTree

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, HERE)
from wine import Windows

NATIVE, WINDOWS = (os.path.abspath(folder) for folder in sys.argv[1:3])
del sys.argv[1:3]
GOLDEN = os.path.join(HERE, '../data/golden')
SCREENSHOTS = os.environ.get('KORVINEL_SCREENSHOTS', os.path.join(NATIVE, 'screenshots'))
HERE_TOOL = [os.path.join(NATIVE, 'tools/recording_tool/korvinel-recording')]
THERE_TOOL = ['wine', os.path.join(WINDOWS, 'korvinel-recording.exe')]
BLOCK = 1036


def content(*path):
    with open(os.path.join(*path), 'rb') as file:
        return file.read()


def write(path, bytes_):
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, 'wb') as file:
        file.write(bytes_)


def tree(folder):
    """name -> bytes of every file below a folder"""
    found = {}
    for place, _, names in os.walk(folder):
        for name in names:
            found[os.path.relpath(os.path.join(place, name), folder)] = content(place, name)
    return found


def edf_of_sines(rate, seconds):
    """An EDF file with four sines, in records of one second."""
    hertz = (4, 8, 12, 20)
    per_signal = [['EEG F1', 'EEG F2', 'EEG T5', 'EEG T6'], [''] * 4, ['uV'] * 4, ['-100'] * 4, ['100'] * 4,
                  ['-32768'] * 4, ['32767'] * 4, [''] * 4, [str(rate)] * 4, [''] * 4]
    widths = (16, 80, 8, 8, 8, 8, 8, 80, 8, 32)
    header = ''.join(text.ljust(width) for text, width in (
        ('0', 8), ('Rossi', 80), ('', 80), ('21.11.26', 8), ('00.00.00', 8), (str(256 * 5), 8), ('', 44),
        (str(seconds), 8), ('1', 8), ('4', 4)))
    header += ''.join(text.ljust(width) for texts, width in zip(per_signal, widths) for text in texts)
    samples = [round(20000 * sin(2 * pi * h * (second + i / rate)))
               for second in range(seconds) for h in hertz for i in range(rate)]
    return header.encode('ascii') + struct.pack('<%dh' % len(samples), *samples)


class RecordingToolOnWindows(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        os.environ['DISPLAY'] = ''  # no command needs a screen
        cls.windows = cls.enterClassContext(Windows(os.path.join(os.path.dirname(WINDOWS), 'wine'), '/nowhere'))

    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix='korvinel-tool-')
        self.addCleanup(shutil.rmtree, self.folder)
        self.here, self.there = (os.path.join(self.folder, name) for name in ('here', 'there'))
        self.environment = dict(os.environ, XDG_DATA_HOME=self.folder + '/data', LC_ALL='C.UTF-8', WINEDEBUG='-all')
        for name in ('eeg.QVD', 'examination.QVD'):
            self.give(name, content(GOLDEN, name))

    def give(self, name, bytes_):
        for folder in (self.here, self.there):
            write(os.path.join(folder, name), bytes_)

    def run_in(self, folder, tool, arguments):
        # Not pipes: wine's background processes keep them open, so that their end would never come.
        with tempfile.TemporaryFile() as output, tempfile.TemporaryFile() as errors:
            code = subprocess.run(tool + list(arguments), cwd=folder, env=self.environment, stdout=output, stderr=errors,
                                  check=False, timeout=120).returncode
            output.seek(0)
            errors.seek(0)
            return code, output.read().decode(), errors.read().decode()

    def on_windows(self, *arguments):
        return self.run_in(self.there, THERE_TOOL, arguments)

    def alike(self, *arguments, expect=0):
        """Runs a command line on both systems; returns exit code, standard output and standard error, all equal."""
        native = self.run_in(self.here, HERE_TOOL, arguments)
        self.assertEqual(native[0], expect, native)
        self.assertEqual(self.on_windows(*arguments), native, arguments)
        return native

    def test_tells_what_is_in_a_recording_and_whether_it_is_whole(self):
        self.give('cut.QVD', content(GOLDEN, 'eeg.QVD')[:-100])
        self.alike('info', 'eeg.QVD', 'examination.QVD')
        self.alike('info', '--json', 'examination.QVD', 'cut.QVD')
        self.assertIn('936 of 1036', self.alike('check', 'cut.QVD', 'eeg.QVD', expect=1)[1])
        for nowhere in ('nowhere.QVD', '/nowhere.QVD'):
            self.assertIn('cannot be read', self.alike('info', nowhere, expect=1)[2])

    def test_says_the_same_of_a_command_line_that_is_not_understood(self):
        self.alike('--help')
        self.alike('batch', '--help')
        self.alike(expect=2)
        self.alike('report', 'eeg.QVD', '-o', 'a.txt', expect=2)

    def test_recovers_what_a_crash_has_left(self):
        blocks = content(GOLDEN, 'examination.QVD')[-40 * BLOCK:]
        self.give('Tempor1.XXX', b'"Rossi","21/11/2026","4canali"\r\n' + blocks[:-300])
        self.assertIn('39 blocks recovered', self.alike('recover', 'Tempor1.XXX', '-o', 'a.QVD')[2])
        self.assertEqual(tree(self.there), tree(self.here))

    def test_analyses_to_the_last_bit(self):
        for name in ('eeg', 'examination'):
            self.give(name + '.val', content(GOLDEN, name + '.factors.val'))
            self.alike('analyse', name + '.QVD', '--factors', name + '.val', '--json', name + '.json', '--csv', name)
            self.assertGreater(len(content(self.there, name + '.json')), 10000)
        self.alike('analyse', 'eeg.QVD', '--ocular', '--json', '-')
        self.assertEqual(tree(self.there), tree(self.here))

    def test_exports_and_imports_the_same_bytes(self):
        self.alike('export', 'examination.QVD', '-o', 'a.edf')
        self.alike('export', 'examination.QVD', '-o', 'a.csv')
        self.alike('import', 'a.edf', '-o', 'b.QVD')
        self.assertEqual(content(self.there, 'b.QVD')[-40 * BLOCK:], content(GOLDEN, 'examination.QVD')[-40 * BLOCK:])
        self.assertEqual(tree(self.there), tree(self.here))

    def test_resamples_to_the_same_samples(self):
        for rate in (160, 200, 256, 500):
            self.give('%d.edf' % rate, edf_of_sines(rate, 20))
            self.alike('import', '%d.edf' % rate, '-o', '%d.QVD' % rate)
        self.assertEqual(tree(self.there), tree(self.here))

    def test_names_may_have_any_letter(self):
        self.give('perché €/esame “di prova”.QVD', content(GOLDEN, 'eeg.QVD'))
        self.alike('info', 'perché €/esame “di prova”.QVD')
        self.alike('export', 'perché €/esame “di prova”.QVD', '-o', 'perché €/Müller.edf')
        self.alike('import', 'perché €/Müller.edf', '-o', 'È.QVD', '--subject', 'Niccolò')
        self.alike('analyse', 'È.QVD', '--csv', 'tabelle à')
        self.alike('batch', 'perché €', '-o', 'perché €/tabella.csv')
        self.assertEqual(tree(self.there), tree(self.here))

    def test_a_batch_makes_the_same_table(self):
        for i in range(12):
            self.give('shelf/%s/r%02d.QVD' % ('ab'[i % 2], i), content(GOLDEN, ('eeg.QVD', 'examination.QVD')[i % 2]))
        self.give('shelf/r99.qvd', b'damaged')
        self.assertEqual(self.alike('batch', 'shelf', '-o', 't.csv', '--jobs', '2', expect=1)[2], 't.csv: 1 of 13 rows have an error\n')
        self.assertEqual(content(self.there, 't.csv').count(b'\n'), 14)
        self.assertEqual(tree(self.there), tree(self.here))

    def test_replaces_an_output_only_with_force_and_never_a_device(self):
        self.give('a.csv', b'mine')
        self.alike('export', 'eeg.QVD', '-o', 'a.csv', expect=1)
        self.assertEqual(content(self.there, 'a.csv'), b'mine')
        self.alike('export', 'eeg.QVD', '-o', 'a.csv', '--force')
        self.alike('export', 'eeg.QVD', '-o', './EEG.QVD/../eeg.QVD', expect=2)
        for device in ('NUL', 'COM7'):
            code, _, errors = self.on_windows('import', 'eeg.QVD', '-o', device, '--force')
            self.assertEqual((code, errors), (1, device + ': is no ordinary file and cannot be replaced\n'))
        self.assertEqual(tree(self.there), tree(self.here))

    def test_stars_in_names_stand_for_the_files(self):
        self.give('cut.QVD', content(GOLDEN, 'eeg.QVD')[:-100])
        code, told, errors = self.on_windows('check', '*.QVD')
        self.assertEqual((code, errors), (1, ''))
        self.assertTrue(told.startswith('cut.QVD: block 5 is cut off'), told)
        self.assertEqual(self.on_windows('check', 'nothing*.QVD')[0], 1)

    def test_works_on_the_recordings_and_the_calibration_of_the_installation(self):
        root = os.path.join(self.windows.drive, 'QUARVEL5')
        self.addCleanup(shutil.rmtree, root)
        write(os.path.join(root, 'DATAFILE/esame.QVD'), content(GOLDEN, 'examination.QVD'))
        write(os.path.join(root, 'Factors.val'), content(GOLDEN, 'examination.factors.val'))
        self.give('f.val', content(GOLDEN, 'examination.factors.val'))
        _, native, _ = self.run_in(self.here, HERE_TOOL, ['analyse', 'examination.QVD', '--factors', 'f.val', '--json', '-'])
        before = tree(root)
        code, told, errors = self.on_windows('analyse', r'C:\QUARVEL5\DATAFILE\esame.QVD', '--json', '-')
        self.assertEqual((code, errors), (0, ''))
        self.assertEqual(told, native)
        self.assertEqual(tree(root), before)
        self.assertEqual(self.on_windows('export', r'C:\QUARVEL5\DATAFILE\esame.QVD', '-o', r'C:\QUARVEL5\DATAFILE\a.csv')[0], 0)
        self.assertEqual(sorted(os.listdir(os.path.join(root, 'DATAFILE'))), ['a.csv', 'esame.QVD'])

    def page(self, ending):
        """The report's page from both systems, as pictures of the same size."""
        pictures = []
        for folder, name in ((self.here, 'linux'), (self.there, 'windows')):
            picture = os.path.join(SCREENSHOTS, 'windows-report-%s-%s.png' % (ending, name))
            made = os.path.join(folder, 'a.' + ending)
            convert = {'png': ['cp', made, picture], 'svg': ['rsvg-convert', made, '-o', picture],
                       'pdf': ['pdftoppm', '-r', '150', '-png', '-singlefile', made, picture[:-4]]}
            subprocess.run(convert[ending], check=True)
            pictures.append(picture)
        return pictures

    def test_draws_the_same_page(self):
        os.makedirs(SCREENSHOTS, exist_ok=True)
        for ending in ('png', 'svg', 'pdf'):
            self.alike('report', 'examination.QVD', '-o', 'a.' + ending, '--max')
            done = subprocess.run(['/usr/bin/compare', '-metric', 'RMSE', *self.page(ending), 'null:'], capture_output=True, check=False)
            difference = float(re.search(r'\(([\d.e-]+)\)', done.stderr.decode()).group(1))
            self.assertLess(difference, 0.05, '%s: only the letters may differ' % ending)
        self.assertEqual(self.texts_of_svg(self.there), self.texts_of_svg(self.here))
        self.assertEqual(self.words_of_pdf(self.there), self.words_of_pdf(self.here))
        self.assertIn('Anna', self.words_of_pdf(self.there))

    @staticmethod
    def texts_of_svg(folder):
        return [text.text for text in ElementTree.parse(os.path.join(folder, 'a.svg')).iter('{http://www.w3.org/2000/svg}text')]

    @staticmethod
    def words_of_pdf(folder):
        return sorted(subprocess.run(['pdftotext', 'a.pdf', '-'], cwd=folder, capture_output=True, text=True, check=True).stdout.split())

    def in_a_terminal(self, *arguments):
        reading, writing = pty.openpty()
        subprocess.run(THERE_TOOL + list(arguments), cwd=self.there, env=dict(self.environment, TERM='xterm'), stdin=writing,
                       stdout=writing, stderr=writing, check=True, timeout=120)
        shown = b''
        while select.select([reading], [], [], 1)[0]:
            shown += os.read(reading, 4096)
        os.close(writing)
        os.close(reading)
        return re.sub(r'\x1b\[[?\d;]*[A-Za-z]', ' ', shown.decode())

    def test_a_terminal_shows_every_letter_and_the_bar(self):
        self.give('perché €.QVD', content(GOLDEN, 'eeg.QVD'))
        self.assertIn('perché €.QVD', self.in_a_terminal('info', 'perché €.QVD'))
        shown = self.in_a_terminal('batch', '.', '-o', 'a.csv')
        self.assertIn('[' + 40 * '#' + '] 3/3', shown)
        self.assertIn('left', shown)


result = unittest.main(verbosity=2, exit=False, warnings='ignore').result
failed = len(result.failures) + len(result.errors)
print('%d passed, %d failed' % (result.testsRun - failed, failed))
sys.exit(failed > 0)
