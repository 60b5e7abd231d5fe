"""A recording whose program is killed in mid-recording, restored by the recording tool.

    /usr/bin/python3 recover_test.py BUILD_FOLDER
"""
import os
import signal
import subprocess
import sys
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import driver

BLOCK_BYTES = 1036


class KilledRecording(unittest.TestCase):
    def setUp(self):
        self.desktop = self.enterContext(driver.Desktop('1366x768'))

    def test_every_whole_block_before_the_kill_is_recovered(self):
        instrument = self.desktop.start_instrument(driver.INSTRUMENT, 1, '--model', 'eyes-closed')
        program = self.desktop.start_program([driver.KORVINEL])
        program.type('Nome del file', 'prova')
        program.type('Nome del soggetto', 'Rossi')
        program.press('Start')
        driver.wait(lambda: program.value('Blocco iniziale') >= 1, 20, 'the first block')
        program.press('Registra')
        data = os.path.join(self.desktop.data, 'drive_c/QUARVEL5/DATAFILE')
        temporary = os.path.join(data, 'Tempor1.XXX')
        status = lambda: program.label('Stato della registrazione')
        driver.wait(lambda: os.path.exists(temporary) and os.path.getsize(temporary) > 2 * BLOCK_BYTES, 40, 'two blocks')
        program.press('Annota')
        driver.wait(lambda: program.has_state('Nota', 'FOCUSED'), what='the keyboard in the note box')
        driver.type_text('occhi chiusi')
        driver.keys('Return')
        program.expect('the status', status, 'Registrazione Attiva')
        driver.wait(lambda: os.path.getsize(temporary) > 3 * BLOCK_BYTES, 40, 'three blocks')
        os.kill(program.process.pid, signal.SIGKILL)
        program.process.wait(10)
        self.desktop.end(instrument)

        with open(temporary, 'rb') as file:
            header, left = file.read().split(b'\r\n', 1)
        self.assertIn(b'Rossi', header)
        whole = len(left) // BLOCK_BYTES
        self.assertGreaterEqual(whole, 3)
        recovered = os.path.join(self.desktop.home, 'esame.QVD')
        tool = os.path.join(os.path.dirname(driver.KORVINEL), 'tools/recording_tool/korvinel-recording')
        subprocess.run([tool, 'recover', temporary, '-o', recovered], check=True)
        subprocess.run([tool, 'check', recovered], check=True)
        with open(recovered, 'rb') as file:
            content = file.read()
        self.assertTrue(content.endswith(left[:whole * BLOCK_BYTES]))
        self.assertTrue(content.startswith(b'"Rossi","'))
        self.assertIn(b',"occhi chiusi"\r\n', content)
        self.assertEqual(content.count(b'\r\n', 0, len(content) - whole * BLOCK_BYTES), 2)


if __name__ == '__main__':
    driver.run_tests()
