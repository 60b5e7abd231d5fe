"""The real korvinel-recording program, run as from a terminal, a script and GNU parallel.

    /usr/bin/python3 recording_tool_test.py BUILD_FOLDER

Debian packages: parallel poppler-utils
"""
import csv
import json
import os
import pty
import re
import resource
import shutil
import signal
import struct
import subprocess
import sys
import tempfile
import time
import unittest

HERE = os.path.dirname(os.path.abspath(__file__))
GOLDEN = os.path.join(HERE, '../data/golden')
MANUAL = os.path.join(HERE, '../../tools/recording_tool/man/korvinel-recording.1')
COMMANDS = ('info', 'check', 'recover', 'analyse', 'report', 'export', 'import', 'batch')
TOOL = ''


def golden(name):
    return os.path.join(GOLDEN, name)


class ToolTest(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix='korvinel-tool-')
        self.addCleanup(shutil.rmtree, self.folder)
        self.environment = dict(os.environ, XDG_DATA_HOME=self.folder + '/data', PATH=os.path.dirname(TOOL) + ':' + os.environ['PATH'])

    def path(self, name):
        return os.path.join(self.folder, name)

    def run_tool(self, *arguments, expect=0, **options):
        done = subprocess.run([TOOL, *arguments], capture_output=True, text=True, env=self.environment,
                              cwd=self.folder, timeout=120, check=False, **options)
        self.assertEqual(done.returncode, expect, done.stderr)
        return done

    def run_line(self, line, environment):
        subprocess.run(['bash', '-c', 'set -o pipefail; ' + line], cwd=self.folder, env=environment, check=True, timeout=120,
                       capture_output=True)

    def shelf(self, count):
        os.makedirs(self.path('shelf'))
        for i in range(count):
            shutil.copy(golden(('eeg.QVD', 'examination.QVD')[i % 2]), self.path('shelf/r%04d.QVD' % i))
        return self.path('shelf')


class CommandLine(ToolTest):
    def test_every_command_has_help_with_an_example(self):
        self.assertIn('Exit code', self.run_tool('--help').stdout)
        for command in COMMANDS:
            text = self.run_tool(command, '--help').stdout
            self.assertIn('Example:\n  korvinel-recording %s ' % command, text)

    def test_the_manual_has_every_command_and_every_option(self):
        with open(MANUAL, encoding='utf-8') as file:
            manual = file.read().replace('\\-', '-')
        for command in COMMANDS:
            self.assertRegex(manual, r'\.SS %s ' % command)
            self.assertIn('.B korvinel-recording %s ' % command, manual)
            for option in re.findall(r'--[a-z]+', self.run_tool(command, '--help').stdout):
                self.assertTrue(option in manual or option in ('--output',), option)

    def test_a_command_line_that_is_not_understood_ends_with_2(self):
        for arguments in ([], ['explode'], ['info'], ['report', golden('eeg.QVD'), '-o', 'a.txt'],
                          ['analyse', golden('eeg.QVD')], ['report', golden('eeg.QVD'), '-o', 'a.pdf', '--scale', '0'],
                          ['report', golden('eeg.QVD'), '-o', 'a.pdf', '--max', '--mean'],
                          ['report', golden('eeg.QVD'), '-o', 'a.pdf', '--last', '5'],
                          ['import', golden('eeg.QVD'), '-o', 'a.QVD', '--channels', 'F3']):
            self.assertIn("Try 'korvinel-recording --help'.", self.run_tool(*arguments, expect=2).stderr, arguments)
        self.assertEqual(os.listdir(self.folder), [])

    def test_an_interval_that_ends_before_it_begins_is_refused(self):
        shelf = self.shelf(1)
        interval = ['--first', '30', '--last', '10']
        for arguments in (['report', golden('examination.QVD'), '-o', 'a.pdf'], ['batch', shelf, '-o', 'a.csv'],
                          ['analyse', golden('examination.QVD'), '--json', 'a.json']):
            self.assertIn('--first 30 lies behind --last 10', self.run_tool(*arguments, *interval, expect=2).stderr)
        self.assertEqual(os.listdir(self.folder), ['shelf'])
        self.run_tool('report', golden('examination.QVD'), '-o', 'a.pdf', '--first', '10', '--last', '10')

    def test_messages_name_the_file_and_what_is_wrong(self):
        for arguments in (['info', 'nowhere.QVD'], ['export', 'nowhere.QVD', '-o', 'a.edf'], ['import', 'nowhere.edf', '-o', 'a.QVD'],
                          ['analyse', 'nowhere.QVD', '--json', '-'], ['recover', 'nowhere.XXX', '-o', 'a.QVD']):
            self.assertRegex(self.run_tool(*arguments, expect=1).stderr, r'^nowhere\.\w+: cannot be read: .+\n$')

    def test_check_names_the_byte_and_ends_with_1(self):
        self.run_tool('check', golden('eeg.QVD'), golden('examination.QVD'))
        with open(golden('eeg.QVD'), 'rb') as file:
            content = file.read()
        with open(self.path('cut.QVD'), 'wb') as file:
            file.write(content[:-100])
        done = self.run_tool('check', 'cut.QVD', expect=1)
        self.assertEqual(done.stdout, 'cut.QVD: block 5 is cut off: it has 936 of 1036 bytes, at byte %d\n' % (len(content) - 1036))

    def test_info_as_json(self):
        found = json.loads(self.run_tool('info', '--json', golden('examination.QVD')).stdout)
        self.assertEqual(found[0]['subject'], 'Bianchi Anna')
        self.assertEqual(found[0]['blocks'], 40)
        self.assertEqual(found[0]['notes'][0], [3, 'inizio'])

    def test_an_interrupted_recording_is_recovered_as_the_user_s_manual_says(self):
        with open(os.path.join(HERE, '../../docs/manuale/manuale.md'), encoding='utf-8') as file:
            command = re.search(r'^    (korvinel-recording recover .*)$', file.read(), re.M).group(1)
        with open(golden('examination.QVD'), 'rb') as file:
            blocks = file.read()[-3 * 1036:]
        with open(self.path('Tempor1 2026-11-21 10.15.00.XXX'), 'wb') as file:
            file.write(b'"Rossi Anna","21/11/2026","4canali"\r\n' + blocks)
        self.run_line(command, self.environment)
        found = json.loads(self.run_tool('info', '--json', 'recuperata.QVD').stdout)[0]
        self.assertEqual((found['subject'], found['blocks']), ('Rossi Anna', 3))

    def test_what_is_read_is_never_replaced(self):
        os.makedirs(self.path('in'))
        for name, content in (('a.QVD', 'eeg.QVD'), ('b.QVD', 'eeg.QVD'), ('f.val', 'eeg.factors.val')):
            shutil.copy(golden(content), self.path('in/' + name))
        before = {name: self.bytes('in/' + name) for name in os.listdir(self.path('in'))}
        for ending in ('csv', 'pdf', 'json', 'QVD'):
            os.link(self.path('in/a.QVD'), self.path('hard.' + ending))
            os.symlink('in/f.val', self.path('soft.' + ending))
        os.symlink('in', self.path('tables'))
        os.link(self.path('in/a.QVD'), self.path('in/spectra.csv'))
        os.link(self.path('in/b.QVD'), self.path('in/t.csv.part'))
        factors = ['--factors', 'in/f.val']
        for arguments in (['export', 'in/a.QVD', '-o', 'hard.csv'], ['report', 'in/a.QVD', '-o', 'hard.pdf'],
                          ['report', 'in/a.QVD', '-o', 'soft.pdf', *factors],
                          ['analyse', 'in/a.QVD', '--json', 'hard.json'], ['analyse', 'in/a.QVD', '--csv', 'tables'],
                          ['analyse', 'in/a.QVD', '--json', 'soft.json', *factors],
                          ['import', 'in/a.QVD', '-o', 'hard.QVD'], ['recover', 'in/a.QVD', '-o', 'tables/../hard.QVD'],
                          ['batch', 'in', '-o', 'in/b.QVD'], ['batch', 'in', '-o', 'hard.csv'],
                          ['batch', 'in', '-o', 'soft.csv', *factors], ['batch', 'in', '-o', 'in/t.csv']):
            self.assertIn('is a file that is being read', self.run_tool(*arguments, '--force', expect=2).stderr, arguments)
            self.assertEqual({name: self.bytes('in/' + name) for name in before}, before, arguments)

    def bytes(self, name):
        with open(self.path(name), 'rb') as file:
            return file.read()

    def test_two_outputs_of_one_name_are_refused(self):
        done = self.run_tool('analyse', golden('eeg.QVD'), '--json', 't/../t/spectra.csv', '--csv', 't', '--force', expect=2)
        self.assertIn('is also the table spectra.csv', done.stderr)

    def test_a_file_that_is_no_unfinished_batch_is_not_begun_anew(self):
        with open(self.path('t.csv.part'), 'w', encoding='ascii') as file:
            file.write('a letter')
        done = self.run_tool('batch', self.shelf(1), '-o', 't.csv', '--force', expect=1)
        self.assertIn('t.csv.part: is not left of an interrupted run', done.stderr)
        self.assertEqual(self.bytes('t.csv.part'), b'a letter')


class Outputs(ToolTest):
    OUTPUTS = (('export', 'a.edf'), ('export', 'a.csv'), ('report', 'a.pdf'), ('report', 'a.png'), ('report', 'a.svg'))

    def test_nothing_is_written_half_on_a_full_disk(self):
        def little_room():
            signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
            resource.setrlimit(resource.RLIMIT_FSIZE, (3000, 3000))
        for command, output in self.OUTPUTS:
            done = self.run_tool(command, golden('examination.QVD'), '-o', output, expect=1, preexec_fn=little_room)
            self.assertTrue(done.stderr.startswith(output + ': '), done.stderr)
            self.assertEqual(os.listdir(self.folder), [], output)
        self.run_tool('analyse', golden('examination.QVD'), '--json', 'a.json', expect=1, preexec_fn=little_room)
        self.assertEqual(os.listdir(self.folder), [])

    def test_an_existing_output_is_replaced_only_with_force(self):
        for command, output in self.OUTPUTS:
            with open(self.path(output), 'w', encoding='ascii') as file:
                file.write('old')
            self.assertIn('exists already', self.run_tool(command, golden('eeg.QVD'), '-o', output, expect=1).stderr)
            self.assertEqual(os.path.getsize(self.path(output)), 3)
            self.run_tool(command, golden('eeg.QVD'), '-o', output, '--force')
            self.assertGreater(os.path.getsize(self.path(output)), 1000)
        self.assertEqual(len(os.listdir(self.folder)), len(self.OUTPUTS))

    def test_the_page_shows_the_report(self):
        self.run_tool('report', golden('examination.QVD'), '-o', 'a.pdf', '--max', '--factors', golden('examination.factors.val'))
        text = subprocess.run(['pdftotext', '-layout', 'a.pdf', '-'], capture_output=True, text=True, cwd=self.folder, check=True).stdout
        with open(golden('examination.opened.json'), encoding='utf-8') as file:
            expected = json.load(file)['reports'][0]
        for line in expected['reportLines'].values():
            self.assertIn(line.strip(), text)
        for row in ('maxDelta', 'maxTheta', 'maxAlpha', 'maxBeta'):
            for value in expected[row]:
                self.assertIn('=%g' % (value / 10000), text)
        self.assertIn('Nome: Bianchi Anna', text)
        self.assertIn('117s', text)
        self.assertIn('Rapporto di', text)  # which file and interval

    def test_the_page_has_the_maxima_unless_the_means_are_asked_for(self):
        for option, rows in (([], 'max'), (['--max'], 'max'), (['--mean'], 'mean')):
            self.run_tool('report', golden('examination.QVD'), '-o', 'a.svg', '--force', *option)
            report = json.loads(self.run_tool('analyse', golden('examination.QVD'), '--json', '-').stdout)['report']
            page = self.texts('a.svg')
            for band, label in (('Delta', 'Delta='), ('Alpha', 'Alpha  =')):
                self.assertIn('%s%g' % (label, report[rows + band][0] / 10000), page, option)
            self.assertNotIn('Delta=0', page)

    def test_the_page_of_a_trial_says_so(self):
        os.makedirs(self.path('korvinel-prova/korvinel'))
        shutil.copy(golden('eeg.QVD'), self.path('korvinel-prova/korvinel/a.QVD'))
        for recording, signed in (('korvinel-prova/korvinel/a.QVD', True), (golden('eeg.QVD'), False)):
            self.run_tool('report', recording, '-o', 'a.svg', '--force')
            self.assertEqual('PROVA: strumento simulato' in self.texts('a.svg'), signed)

    def texts(self, name):
        with open(self.path(name), encoding='utf-8') as file:
            return re.findall(r'>([^<]*)</text>', file.read())

    def test_analyse_writes_to_standard_output_and_into_tables(self):
        numbers = json.loads(self.run_tool('analyse', golden('eeg.QVD'), '--json', '-', '--csv', 'tables').stdout)
        self.assertEqual(numbers['fileBlockCount'], 4)
        with open(self.path('tables/spectra.csv'), encoding='utf-8', newline='') as file:
            rows = list(csv.reader(file))
        self.assertEqual(len(rows), 1 + 5 * 4)
        for row in rows[1:]:
            block, channel = int(row[0]), ('F1', 'F2', 'T5', 'T6').index(row[1])
            for text, value in zip(row[2:], numbers['spectrumHistory'][block - 1][channel]):
                self.assertEqual(struct.pack('f', float(text)), struct.pack('f', value))

    def table(self, name):
        """The title row and the others of a written table."""
        with open(self.path(name), encoding='utf-8', newline='') as file:
            title, *rows = csv.reader(file)
        return title, rows

    def assert_columns(self, rows, columns):
        """The same single-precision numbers, column by column from the second on."""
        for row, expected in zip(rows, zip(*columns), strict=True):
            self.assertEqual([struct.pack('f', float(text)) for text in row[1:]],
                             [struct.pack('f', value) for value in expected])

    def test_each_table_has_its_titles_and_the_numbers_of_the_json(self):
        numbers = json.loads(self.run_tool('analyse', golden('eeg.QVD'), '--json', '-', '--csv', 't').stdout)
        report = numbers['report']
        sites, pairs = ['F1', 'F2', 'T5', 'T6'], ['F1-F2', 'T5-T6', 'F1-T5', 'F2-T6']
        hertz = ['%g' % (index / 2) for index in range(128)]
        for name, of_rows, names in (('spectra', 'channel', sites), ('coherence-spectra', 'pair', pairs)):
            title, rows = self.table('t/%s.csv' % name)
            self.assertEqual(title, ['block', of_rows] + [h + ' Hz' for h in hertz])
            self.assertEqual([row[:2] for row in rows], [[str(b), n] for b in range(1, 6) for n in names])
        title, rows = self.table('t/synchrony.csv')
        self.assertEqual(title, ['block'] + pairs)
        self.assertEqual([row[0] for row in rows], ['1', '2', '3', '4', '5', 'mean'])
        self.assert_columns(rows[:-1], numbers['coherenceHistory'])
        title, rows = self.table('t/mean-coherence.csv')
        self.assertEqual(title, ['Hz'] + pairs)
        self.assertEqual([row[0] for row in rows], hertz)
        self.assert_columns(rows, numbers['meanCoherence'])
        title, rows = self.table('t/report-spectra.csv')
        self.assertEqual(title, ['Hz'] + ['microvolts ' + s for s in sites] + ['noise ' + s for s in sites] +
                         ['coherence ' + p for p in pairs])
        self.assertEqual([row[0] for row in rows], hertz[:64])
        self.assert_columns([row[:5] for row in rows], [column[:64] for column in report['meanSpectrum']])
        self.assert_columns([row[:1] + row[9:] for row in rows], [column[:64] for column in report['coherenceSpectrum']])
        title, rows = self.table('t/report-bands.csv')
        self.assertEqual(title, ['value'] + sites)
        self.assertEqual([row[0] for row in rows], [kind + band for kind in ('max', 'mean')
                                                    for band in ('Delta', 'Theta', 'Alpha', 'Beta')])
        for row in rows:
            self.assertEqual([round(10000 * float(text)) for text in row[1:]], report[row[0]])
        self.assertEqual(self.table('t/report-texts.csv')[0], ['kind', 'number', 'score', 'text'])

    def test_an_exported_table_holds_every_sample(self):
        self.run_tool('export', golden('examination.QVD'), '-o', 'a.csv')
        with open(self.path('a.csv'), encoding='utf-8', newline='') as file:
            rows = list(csv.DictReader(file))
        with open(golden('examination.QVD'), 'rb') as file:
            samples = file.read()[-40 * 1036:]
        self.assertEqual(len(rows), 40 * 256)
        for i, row in enumerate(rows):
            block, s = divmod(i, 256)
            for channel, name in enumerate(('F1', 'F2', 'T5', 'T6')):
                self.assertEqual(float(row[name]), samples[block * 1036 + channel * 259 + s] - 128)
            self.assertEqual(float(row['seconds']), 3 * block + s / 128)
        self.assertEqual(rows[10 * 256]['note'], 'occhi aperti; seconda nota')


class Batch(ToolTest):
    def test_the_table_is_in_name_order_with_errors_in_their_rows(self):
        shelf = self.shelf(20)
        with open(shelf + '/r0007.QVD', 'w', encoding='ascii') as file:
            file.write('damaged')
        done = self.run_tool('batch', shelf, '-o', 'table.csv', '--jobs', '3', expect=1)
        self.assertEqual(done.stderr, 'table.csv: 1 of 20 rows have an error\n')
        with open(self.path('table.csv'), encoding='utf-8', newline='') as file:
            rows = list(csv.DictReader(file))
        self.assertEqual([os.path.basename(row['file']) for row in rows], ['r%04d.QVD' % i for i in range(20)])
        self.assertEqual([i for i, row in enumerate(rows) if row['error']], [7])
        self.assertEqual(rows[1]['maxAlpha T5'], self.value_of('maxAlpha', 2))

    def value_of(self, name, channel):
        numbers = json.loads(self.run_tool('analyse', golden('examination.QVD'), '--json', '-').stdout)
        return '%g' % (numbers['report'][name][channel] / 10000)

    def test_a_killed_batch_is_resumed(self):
        shelf = self.shelf(300)
        self.run_tool('batch', shelf, '-o', 'whole.csv')
        batch = subprocess.Popen([TOOL, 'batch', shelf, '-o', 'table.csv'], cwd=self.folder, env=self.environment)
        journal = self.path('table.csv.part')
        end = time.monotonic() + 60
        while not (os.path.exists(journal) and os.path.getsize(journal) > 5000):
            self.assertLess(time.monotonic(), end)
        batch.kill()
        batch.wait()
        self.assertFalse(os.path.exists(self.path('table.csv')))
        with open(journal, 'rb') as file:
            finished = file.read().count(b'\n') - 1
        self.assertTrue(0 < finished < 300)
        self.run_tool('batch', shelf, '-o', 'table.csv', expect=1)
        self.run_tool('batch', shelf, '-o', 'table.csv', '--resume')
        with open(self.path('table.csv'), 'rb') as table, open(self.path('whole.csv'), 'rb') as whole:
            self.assertEqual(table.read(), whole.read())
        self.assertFalse(os.path.exists(journal))

    def test_a_bar_shows_on_a_terminal_only(self):
        shelf = self.shelf(10)
        self.assertEqual(self.run_tool('batch', shelf, '-o', 'a.csv').stderr, '')
        reading, writing = pty.openpty()
        subprocess.run([TOOL, 'batch', shelf, '-o', 'b.csv'], cwd=self.folder, env=self.environment, stderr=writing, check=True)
        os.close(writing)
        shown = b''
        try:
            while True:
                shown += os.read(reading, 4096)
        except OSError:
            pass
        os.close(reading)
        self.assertIn(b'10/10', shown)
        self.assertIn(b'left', shown)

    def test_gnu_parallel_spreads_the_work_as_the_manual_says(self):
        shelf = self.shelf(8)
        with open(MANUAL, encoding='utf-8') as file:
            manual = file.read().replace('\\-', '-').replace('\\e', '\\')
        lines = re.findall(r'\.nf\n(find .*?)\n\.fi', manual, re.S)
        self.assertEqual(len(lines), 2)
        environment = dict(self.environment, HOME=self.folder)
        self.run_line(lines[0], environment)
        for i in range(8):
            with open(shelf + '/r%04d.json' % i, encoding='utf-8') as file:
                self.assertEqual(json.load(file)['fileBlockCount'], (4, 39)[i % 2])
        os.makedirs(shelf + '/one')
        shutil.move(shelf + '/r0000.QVD', shelf + '/one')
        self.run_line(lines[1], environment)
        with open(self.path('one.csv'), encoding='utf-8', newline='') as file:
            self.assertEqual(len(list(csv.DictReader(file))), 1)


def main():
    global TOOL
    if len(sys.argv) < 2:
        sys.exit('%s needs the build folder' % sys.argv[0])
    TOOL = os.path.abspath(os.path.join(sys.argv.pop(1), 'tools/recording_tool/korvinel-recording'))
    result = unittest.main(verbosity=2, exit=False, warnings='ignore').result
    failed = len(result.failures) + len(result.errors)
    print('%d passed, %d failed' % (result.testsRun - failed, failed))
    sys.exit(failed > 0)


if __name__ == '__main__':
    main()
