"""An examination whose program is killed in mid-recording is brought up at the next start and recovered there.

    /usr/bin/python3 interrupted_test.py BUILD_FOLDER
"""
import os
import signal
import sys
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import driver

BLOCK_BYTES = 1036
NOTICE = 'Esame interrotto'
STATUS = "Stato dell'esame"
BLOCK = b''.join(bytes([value]) * 256 + b'-\r\n' for value in (100, 120, 140, 160))


def setUpModule():
    InterruptedExamination.desktop = unittest.enterModuleContext(driver.Desktop('1366x768'))


class InterruptedExamination(unittest.TestCase):
    desktop = None

    def setUp(self):
        self.desktop.move_to_new_home()
        self.folder = os.path.join(self.desktop.data, 'drive_c/QUARVEL5/DATAFILE')
        self.temporary = os.path.join(self.folder, 'Tempor1.XXX')

    def start(self):
        program = self.desktop.start_program([driver.KORVINEL])
        driver.wait(lambda: program.has_state('Nome del file', 'FOCUSED'), what='the active window')
        return program

    def end(self, program):
        program.press('End')
        self.assertEqual(program.wait_for_end(), 0)

    def leave(self, subject, blocks):
        """As a crash would, after a first start has made the folder."""
        if not os.path.exists(self.folder):
            self.end(self.start())
        content = b'"%s","20/11/2026","4canali"\r\n' % subject + BLOCK * blocks
        with open(self.temporary, 'wb') as file:
            file.write(content)
        return content

    def record_until_killed(self):
        instrument = self.desktop.start_instrument(driver.INSTRUMENT, 1, '--model', 'eyes-closed')
        self.addCleanup(self.desktop.end, instrument)
        program = self.start()
        program.type('Nome del file', 'uno')
        program.type('Nome del soggetto', 'Rossi Anna')
        program.press('Start')
        driver.wait(lambda: program.value('Blocco iniziale') >= 1, 30, 'the first block')
        program.press('Registra')
        size = lambda: os.path.getsize(self.temporary) if os.path.exists(self.temporary) else 0
        driver.wait(lambda: size() > 2 * BLOCK_BYTES, 60, 'two blocks')
        program.press('Annota')
        driver.wait(lambda: program.has_state('Nota', 'FOCUSED'), what='the keyboard in the note box')
        driver.type_text('occhi chiusi')
        driver.keys('Return')
        driver.wait(lambda: size() > 3 * BLOCK_BYTES, 60, 'three blocks')
        os.kill(program.process.pid, signal.SIGKILL)
        program.process.wait(10)

    def test_a_killed_recording_is_recovered_at_the_next_start(self):
        self.record_until_killed()
        with open(self.temporary, 'rb') as file:
            header, left = file.read().split(b'\r\n', 1)
        whole = len(left) // BLOCK_BYTES
        date = header.split(b'","')[1]
        program = self.start()
        driver.wait(lambda: program.has_state('Recupera', 'SHOWING'), what='the notice')
        self.assertRegex(program.label(NOTICE), r'^Esame interrotto: Rossi Anna, %s, durata 0:%02d, 1 nota\.$'
                         % (date.decode(), 3 * whole))
        self.desktop.screenshot('interrupted')
        self.assertTrue(program.has_state('Nome del file', 'FOCUSED'), 'the notice takes no focus')
        program.press('Recupera')
        program.expect('the notice', lambda: program.label(NOTICE),
                       'Recuperato: uno.QVD, durata 0:%02d, 1 nota.' % (3 * whole))
        self.desktop.screenshot('recovered')
        with open(os.path.join(self.folder, 'uno.QVD'), 'rb') as file:
            head, note, blocks = file.read().split(b'\r\n', 2)
        self.assertEqual(head, b'"Rossi Anna","%s V3","4canali",1' % date)
        self.assertRegex(note, rb'^\d+,"occhi chiusi"$')
        self.assertEqual(blocks, left[:whole * BLOCK_BYTES])
        self.assertFalse(os.path.exists(self.temporary))
        self.assertFalse(os.path.exists(self.temporary.replace('.XXX', '.NOT')))
        program.press('Chiudi')
        self.end(program)
        program = self.start()
        self.assertNotIn('Recupera', [each.get_name() for each in program.walk() if self.is_showing(program, each)])
        self.end(program)

    @staticmethod
    def is_showing(program, each):
        return each.get_state_set().contains(program.atspi.StateType.SHOWING)

    def test_put_off_it_stays_where_it_is_with_a_reminder(self):
        content = self.leave(b'Verdi', 4)
        program = self.start()
        program.expect('the notice', lambda: program.label(NOTICE),
                       'Esame interrotto: Verdi, 20/11/2026, durata 0:12, nessuna nota.')
        program.press('Più tardi')
        driver.wait(lambda: 'Un esame interrotto è da recuperare' in program.label(STATUS), what='the reminder')
        with open(self.temporary, 'rb') as file:
            self.assertEqual(file.read(), content)
        self.end(program)
        program = self.start()
        driver.wait(lambda: program.has_state('Recupera', 'SHOWING'), what='the notice again')
        self.end(program)

    def test_during_an_acquisition_nothing_is_recovered(self):
        self.leave(b'Verdi', 4)
        instrument = self.desktop.start_instrument(driver.INSTRUMENT, 1, '--model', 'eyes-closed')
        self.addCleanup(self.desktop.end, instrument)
        program = self.start()
        driver.wait(lambda: program.has_state('Recupera', 'SHOWING'), what='the notice')
        program.type('Nome del file', 'due')
        program.type('Nome del soggetto', 'Neri')
        program.press('Start')
        driver.wait(lambda: not program.has_state('Recupera', 'ENABLED'), what='the refusal')
        driver.wait(lambda: program.value('Blocco iniziale') >= 1, 30, 'the first block')
        program.press('Stop')
        program.answer('OK', 30)
        driver.wait(lambda: program.has_state('Recupera', 'ENABLED'), what='the end of the acquisition')
        program.press('Recupera')
        driver.wait(lambda: program.label(NOTICE).startswith('Recuperato: Esame recuperato 2026-11-20.QVD'),
                    what='the recovery')
        self.end(program)


if __name__ == '__main__':
    driver.run_tests()
