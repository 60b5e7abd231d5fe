"""Two programs on one data folder, and recordings whose program gets a signal or loses its screen: the data file is
complete, with its note.

    /usr/bin/python3 sudden_end_test.py BUILD_FOLDER
"""
import os
import signal
import subprocess
import sys
import time
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import driver
import recording_file

BLOCK_BYTES = recording_file.BLOCK_BYTES
NOTE = 'occhi chiusi'
WITHIN = 2.0  # seconds from a signal to the end of the program, on a machine that is not overloaded
OVERLOADED = 5  # factor on one that is


class Recording:
    """A program with its own home that records from its own instrument."""

    def __init__(self, desktop, name):
        desktop.move_to_new_home()
        self.name, self.desktop = name, desktop
        self.environment = {key: os.environ[key] for key in ('HOME', 'XDG_DATA_HOME', 'XDG_CONFIG_HOME')}
        self.folder = os.path.join(desktop.data, 'drive_c/QUARVEL5/DATAFILE')
        self.temporary = os.path.join(self.folder, 'Tempor1.XXX')
        desktop.start_instrument(driver.INSTRUMENT, 1, '--model', 'eyes-closed')
        self.program = desktop.start_program([driver.KORVINEL])
        start(self.program, name)

    def record(self):
        driver.wait(lambda: self.program.value('Blocco iniziale') >= 1, 30, 'the first block')
        self.program.press('Registra')
        driver.wait(lambda: os.path.exists(self.temporary), 10, 'the temporary file')

    def note(self):
        """Writes a note by keyboard: only for the program started last, whose window is active."""
        self.wait_for_blocks(1)
        self.program.press('Annota')
        driver.wait(lambda: self.program.has_state('Nota', 'FOCUSED'), what='the keyboard in the note box')
        driver.type_text(NOTE)
        driver.keys('Return')

    def wait_for_blocks(self, count):
        driver.wait(lambda: os.path.getsize(self.temporary) > count * BLOCK_BYTES, 30, '%d blocks' % count)

    def check(self, test):
        """The data file has everything that was in the temporary file, which is gone."""
        path = os.path.join(self.folder, self.name + '.QVD')
        found = recording_file.Recording(path)
        test.assertGreaterEqual(len(found.blocks), 2)
        test.assertEqual(found.rest, 0)
        test.assertFalse(os.path.exists(self.temporary))
        test.assertEqual(os.stat(path).st_mode & 0o777, 0o600)
        tool = os.path.join(os.path.dirname(driver.KORVINEL), 'tools/recording_tool/korvinel-recording')
        subprocess.run([tool, 'check', path], check=True, stdout=subprocess.DEVNULL)
        return found


def start(program, name):
    program.type('Nome del file', name)
    program.type('Nome del soggetto', name.capitalize())
    program.press('Start')


def end_by(recording, act):
    before = time.monotonic()
    act()
    code = recording.program.wait_for_end(WITHIN * OVERLOADED)
    return code, time.monotonic() - before


def setUpModule():
    SuddenEnd.desktop = unittest.enterModuleContext(driver.Desktop('1366x768'))  # one per process


class SuddenEnd(unittest.TestCase):
    desktop = None

    def recordings(self, *names):
        all_of_them = [Recording(self.desktop, name) for name in names]
        for each in all_of_them:
            each.record()
        return all_of_them

    def test_a_signals_and_a_second_program_on_the_folder(self):
        plain, boxed, noted = self.recordings('plain', 'boxed', 'noted')
        noted.note()
        self.check_that_a_second_one_is_refused(plain)
        boxed.program.press('Artefatti')
        driver.wait(boxed.program.boxes, what='the box')
        for each in (plain, boxed, noted):
            each.wait_for_blocks(2)
        for each, number in ((plain, signal.SIGTERM), (boxed, signal.SIGHUP), (noted, signal.SIGINT)):
            code, seconds = end_by(each, lambda: os.kill(each.program.process.pid, number))
            print('%s ended after %.2f s' % (number.name, seconds))
            self.assertEqual(code, 0)
            each.check(self)
        self.assertIn(NOTE, [text for _, text in noted.check(self).notes])

    def check_that_a_second_one_is_refused(self, first):
        os.environ.update(first.environment)
        second = self.desktop.start_program([driver.KORVINEL])
        start(second, 'second')
        _, text = second.answer('OK')
        self.assertIn("è già in corso un esame", text)
        self.assertIn('processo %d,' % first.program.process.pid, text)
        self.assertNotIn('Plain', text)
        second.process.send_signal(signal.SIGTERM)
        self.assertEqual(second.wait_for_end(), 0)
        self.assertEqual(os.stat(first.folder).st_mode & 0o777, 0o700)

    def test_z_the_screen_goes_away(self):
        """Runs last, because it takes the desktop away."""
        plain, boxed = self.recordings('plain', 'boxed')
        boxed.program.press('Artefatti')
        driver.wait(boxed.program.boxes, what='the box')
        for each in (plain, boxed):
            each.wait_for_blocks(2)
        screen = self.desktop.processes[0]
        screen.kill()
        for each in (plain, boxed):
            code, seconds = end_by(each, lambda: None)
            print('without its screen: ended with %d after %.2f s' % (code, seconds))
            each.check(self)


if __name__ == '__main__':
    driver.run_tests()
