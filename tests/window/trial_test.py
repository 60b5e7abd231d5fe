"""The trial in the real window: it says what it is, in the bar and on every page, and its recordings are as any other.

    /usr/bin/python3 trial_test.py BUILD_FOLDER

Debian packages: poppler-utils
"""
import glob
import os
import re
import shutil
import subprocess
import sys
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import driver

GOLDEN = os.path.join(os.path.dirname(os.path.abspath(__file__)), '../data/golden/examination.QVD')
SIGN = 'PROVA: strumento simulato'


def setUpModule():
    Trial.desktop = unittest.enterModuleContext(driver.Desktop('1366x768'))


class Trial(unittest.TestCase):
    desktop = None

    def setUp(self):
        self.desktop.move_to_new_home()
        os.environ['CUPS_SERVER'] = os.path.join(self.desktop.home, 'no-print-server')  # pages go into files
        self.share = os.environ['XDG_DATA_HOME']

    def start_program(self, folder):
        os.environ['XDG_DATA_HOME'] = folder
        program = self.desktop.start_program([driver.KORVINEL])
        self.addCleanup(self.desktop.end, program.process)
        return program

    def recordings(self, folder):
        return os.path.join(folder, 'korvinel/drive_c/QUARVEL5/DATAFILE')

    def is_signed(self, program):
        return any(found.get_name() == SIGN and found.get_state_set().contains(program.atspi.StateType.SHOWING)
                   for found in program.walk())

    def open(self, program, path):
        program.press('Apri File')
        program.choose_file(path)
        driver.wait(lambda: program.label('Blocco e durata totale').startswith('Totale='), 20, 'the summary')

    def printed_page(self, program, folder, button):
        """Prints the window with this button; the page's text."""
        before = set(glob.glob(self.recordings(folder) + '/*.pdf'))
        program.press(button)
        program.answer('OK')
        program.answer('OK', 20)
        page, = set(glob.glob(self.recordings(folder) + '/*.pdf')) - before
        return subprocess.run(['pdftotext', page, '-'], capture_output=True, text=True, check=True).stdout

    def test_the_trial_is_signed_in_the_bar_and_on_its_pages(self):
        folder = os.path.join(self.share, 'korvinel-prova')
        program = self.start_program(folder)
        driver.wait(lambda: self.is_signed(program), what='the sign')
        self.desktop.screenshot('trial')
        self.open(program, GOLDEN)
        self.assertIn(SIGN, self.printed_page(program, folder, 'Stampa'))

    def test_a_real_examination_is_not_signed_but_a_file_of_the_trial_is(self):
        program = self.start_program(self.share)
        self.assertFalse(self.is_signed(program))
        self.open(program, GOLDEN)
        self.assertFalse(self.is_signed(program))
        self.assertNotIn('PROVA', self.printed_page(program, self.share, 'Stampa'))
        of_trial = os.path.join(self.recordings(os.path.join(self.share, 'korvinel-prova')), 'uno.QVD')
        os.makedirs(os.path.dirname(of_trial))
        shutil.copy(GOLDEN, of_trial)
        program.press('Stop')
        self.open(program, of_trial)
        driver.wait(lambda: self.is_signed(program), what='the sign')
        self.assertIn(SIGN, self.printed_page(program, self.share, 'Stampa'))

    def test_its_recordings_are_byte_for_byte_those_of_the_real_program(self):
        contents = []
        for folder in (self.share, os.path.join(self.share, 'korvinel-prova')):
            program = self.record(folder)
            with open(os.path.join(self.recordings(folder), 'uno.QVD'), 'rb') as file:
                contents.append(re.sub(rb'\d\d/\d\d/\d{4}', b'DATE', file.read()))
            program.press('End')
            program.wait_for_end()
        shorter = min(map(len, contents))
        self.assertGreater(shorter, 1036)
        self.assertEqual(contents[0][:shorter], contents[1][:shorter])

    def record(self, folder):
        """Two blocks of the same flat signal."""
        link = os.path.join(folder, 'korvinel/ports/COM1')
        os.makedirs(os.path.dirname(link))
        instrument = self.desktop.start([driver.INSTRUMENT, '--link', link, '--model', 'flat'])
        self.addCleanup(self.desktop.end, instrument)
        driver.wait(lambda: os.path.exists(link), what='the instrument')
        program = self.start_program(folder)
        program.type('Nome del file', 'uno')
        program.type('Nome del soggetto', 'Rossi Anna')
        program.press('Start')
        driver.wait(lambda: program.value('Blocco iniziale') >= 1, 20, 'the first block')
        program.press('Registra')
        program.expect('the recording', lambda: program.label('Stato della registrazione'), 'Registrazione Attiva')
        driver.wait(lambda: program.value('Blocco iniziale') == 1, 20, 'the recording to begin')
        driver.wait(lambda: program.value('Blocco iniziale') == 2, 20, 'the second block')
        program.press('Stop')
        program.answer('OK', 15)
        return program


if __name__ == '__main__':
    driver.run_tests()
