"""The whole Windows program under wine in a virtual display, from its first start to the printed page.

    /usr/bin/python3 program_test.py NATIVE_BUILD WINDOWS_FOLDER

WINDOWS_FOLDER holds korvinel.exe with its libraries, NATIVE_BUILD the program for this machine. Both record the same
input, and their files must be equal.
"""
import glob
import os
import re
import shutil
import subprocess
import sys
import time
import unittest

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, HERE)
from wine import Windows, WineProgram, driver, plan

NATIVE, WINDOWS = (os.path.abspath(folder) for folder in sys.argv[1:3])
del sys.argv[1:3]
KORVINEL = os.path.join(WINDOWS, 'korvinel.exe')
PREFIX = os.path.join(os.path.dirname(WINDOWS), 'wine')
PORT = os.path.join(os.path.dirname(WINDOWS), 'instrument-port')
RECORDED = 4  # blocks


class Feeder:
    def __init__(self, desktop, link):
        os.makedirs(os.path.dirname(link), exist_ok=True)
        self.log = os.path.join(desktop.folder, 'feeder.log')
        self.process = desktop.start(['/usr/bin/python3', os.path.join(HERE, 'block_feeder.py'), link, self.log])
        driver.wait(lambda: 'ready' in self.told(), what='the feeder')

    def told(self):
        if not os.path.exists(self.log):
            return []
        with open(self.log, encoding='ascii') as file:
            return file.read().split('\n')

    def wait_for(self, what, count=1, timeout=30):
        driver.wait(lambda: self.told().count(what) >= count, timeout, '%s from the program' % what)


def blocks_in(path):
    """The number of blocks in a temporary file: each is four records of 256 samples, '-', carriage return, line feed."""
    return os.path.getsize(path) // (4 * 259) if os.path.exists(path) else 0


def without_the_moment(path):
    """The bytes of a recording without the date and time in its header."""
    with open(path, 'rb') as file:
        header, _, rest = file.read().partition(b'\r\n')
    return re.sub(rb'\d\d?[/:.-]\d\d?[/:.-]\d\d(\d\d)?', b'', header), rest


def choose_port_5(root):
    path = os.path.join(root, 'Instal8s.val')
    with open(path, 'rb') as file:
        content = file.read()
    with open(path, 'wb') as file:
        file.write(content.replace(b'"Ita",1,', b'"Ita",5,'))


class TheProgramOnWindows(unittest.TestCase):
    def setUp(self):
        self.desktop = self.enterContext(driver.Desktop('1366x1000'))
        os.environ['CUPS_SERVER'] = os.path.join(self.desktop.home, 'no-print-server')  # no printer: a file
        self.root = os.path.join(self.enterContext(Windows(PREFIX, PORT)).drive, 'QUARVEL5')
        self.recordings = os.path.join(self.root, 'DATAFILE')

    def screenshot(self, name):
        time.sleep(0.5)
        return self.desktop.screenshot('windows-' + name)

    def first_start(self):
        program = WineProgram(self.desktop, KORVINEL)
        self.screenshot('1-first-start')
        self.assertEqual(sorted(os.listdir(self.root)), ['DATAFILE', 'Factors.val', 'Instal8s.val'])
        self.assertEqual(program.end(), 0)
        choose_port_5(self.root)

    def record(self, program, feeder):
        program.click('fileNameBox')
        program.type('prova')
        program.click('subjectBox')
        program.type('Rossi Anna')
        program.click('Start')
        feeder.wait_for('test', timeout=15)
        feeder.wait_for('block 3', timeout=20)
        self.screenshot('2-acquisition')
        program.click('Registra')
        feeder.wait_for('start', 2)
        temporary = os.path.join(self.recordings, 'Tempor1.XXX')
        driver.wait(lambda: blocks_in(temporary) >= RECORDED, 40, 'the recorded blocks')
        self.screenshot('3-recording')
        program.click('Stop')
        program.window('Korvinel')
        self.screenshot('4-stopped')
        program.answer('Korvinel')
        feeder.wait_for('stop')

    def record_natively(self):
        program = self.desktop.start_program([driver.KORVINEL])
        root = os.path.join(self.desktop.data, 'drive_c/QUARVEL5')
        program.press('End')
        program.wait_for_end()
        choose_port_5(root)
        feeder = Feeder(self.desktop, os.path.join(self.desktop.data, 'ports/COM5'))
        program = self.desktop.start_program([driver.KORVINEL])
        program.type('Nome del file', 'prova')
        program.type('Nome del soggetto', 'Rossi Anna')
        program.press('Start')
        feeder.wait_for('block 3')
        program.press('Registra')
        feeder.wait_for('start', 2)
        temporary = os.path.join(root, 'DATAFILE/Tempor1.XXX')
        driver.wait(lambda: blocks_in(temporary) >= RECORDED, 40, 'the recorded blocks')
        program.press('Stop')
        program.answer('OK', 15)
        program.press('End')
        program.wait_for_end()
        self.desktop.end(feeder.process)
        return os.path.join(root, 'DATAFILE/prova.QVD')

    def open_and_report(self, program):
        program.click('Apri File')
        program.window('Apri')
        self.screenshot('5-file-dialog')
        program.type(r'C:\QUARVEL5\DATAFILE\prova.QVD')
        driver.keys('Return')
        program.gone('Apri')
        time.sleep(3)
        self.screenshot('6-opened')
        program.click('Analisi')
        report = program.window('Korvinel - Analisi finale')
        time.sleep(2)
        self.screenshot('7-report')
        program.click('commentButton', report, plan('report/report_geometry.h'), (1200, 900))
        program.window('Korvinel - Commenti')
        self.screenshot('8-comments')
        driver.keys('alt+F4')
        program.gone('Korvinel - Commenti')
        program.click('exitButton', report, plan('report/report_geometry.h'), (1200, 900))
        program.gone('Korvinel - Analisi finale')

    def print_page(self, program):
        program.click('Stampa')
        program.answer('Stampa Immagine')
        program.window('Korvinel')
        self.screenshot('9-printed')
        program.answer('Korvinel')
        pages = glob.glob(os.path.join(self.recordings, 'prova-*.pdf'))
        self.assertEqual(len(pages), 1)
        text = subprocess.run(['pdfimages', '-list', pages[0]], capture_output=True, check=True).stdout.decode()
        self.assertIn('image', text)
        shutil.copy(pages[0], os.path.join(driver.SCREENSHOTS, 'windows-page.pdf'))

    def test_an_examination_from_the_first_start_to_the_printed_page(self):
        self.first_start()
        feeder = Feeder(self.desktop, PORT)
        program = WineProgram(self.desktop, KORVINEL)
        self.record(program, feeder)
        recording = os.path.join(self.recordings, 'prova.QVD')
        driver.wait(lambda: os.path.exists(recording), what='the recording')
        self.open_and_report(program)
        self.print_page(program)
        self.assertEqual(program.end(), 0)
        self.desktop.end(feeder.process)
        header, content = without_the_moment(recording)
        native_header, native_content = without_the_moment(self.record_natively())
        self.assertIn(b'Rossi Anna', header)
        self.assertGreaterEqual(len(content), RECORDED * 4 * 259)
        self.assertEqual(header, native_header)
        self.assertEqual(content, native_content)


driver.KORVINEL = os.path.join(NATIVE, 'korvinel')
result = unittest.main(verbosity=2, exit=False, warnings='ignore').result
failed = len(result.failures) + len(result.errors)
print('%d passed, %d failed' % (result.testsRun - failed, failed))
sys.exit(failed > 0)
