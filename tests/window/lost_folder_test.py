"""The recordings' folder disappears in mid-recording: the program asks for another place, however it ends.

    /usr/bin/python3 lost_folder_test.py BUILD_FOLDER
"""
import os
import shutil
import sys
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import driver

BLOCK_BYTES = 1036


class LostFolder(unittest.TestCase):
    def setUp(self):
        self.desktop = self.enterContext(driver.Desktop('1366x768'))

    def record_and_lose_the_folder(self):
        self.instrument = self.desktop.start_instrument(driver.INSTRUMENT, 1, '--model', 'eyes-closed')
        program = self.program = self.desktop.start_program([driver.KORVINEL])
        self.folder = os.path.join(self.desktop.data, 'drive_c/QUARVEL5/DATAFILE')
        self.stick = os.path.join(self.desktop.home, 'chiavetta')
        os.mkdir(self.stick)
        program.type('Nome del file', 'prova')
        program.type('Nome del soggetto', 'Rossi')
        program.press('Start')
        driver.wait(lambda: program.value('Blocco iniziale') >= 1, 20, 'the first block')
        program.press('Registra')
        temporary = os.path.join(self.folder, 'Tempor1.XXX')
        driver.wait(lambda: os.path.exists(temporary) and os.path.getsize(temporary) > 2 * BLOCK_BYTES, 40, 'two blocks')
        shutil.rmtree(self.folder)

    def answer(self, text, button):
        """Presses a button of the box with this text; the next box may appear at once."""
        program = self.program
        def look():
            for box in program.boxes():
                parts = list(program.walk(box))
                if any(text in (part.get_name() or '') for part in parts):
                    return next(part for part in parts if part.get_name() == button), parts
            return None
        found, parts = driver.wait(look, 20, 'a box that says %r' % text)
        program.atspi.Action.do_action(found, 0)
        return '\n'.join(part.get_name() for part in parts if part.get_name())

    def save_on_the_stick(self):
        """Presses Cancel twice, which must lose nothing, and then chooses a place."""
        program = self.program
        self.answer('La registrazione non è al sicuro!', 'Cancel')
        self.answer('Rinunciare davvero alla registrazione?', 'Cancel')
        self.answer('La registrazione non è al sicuro!', 'OK')
        program.type('Cartella:', self.stick)
        self.answer('Scegli', 'Scegli')
        told = self.answer('La registrazione completa è nel file', 'OK')
        self.assertIn(os.path.join(self.stick, 'prova.QVD'), told)

    def check_recording(self):
        tool = os.path.join(os.path.dirname(driver.KORVINEL), 'tools/recording_tool/korvinel-recording')
        with open(os.path.join(self.stick, 'prova.QVD'), 'rb') as file:
            content = file.read()
        self.assertTrue(content.startswith(b'"Rossi","'))
        self.assertGreaterEqual(len(content), 2 * BLOCK_BYTES)
        driver.subprocess.run([tool, 'check', os.path.join(self.stick, 'prova.QVD')], check=True)

    def test_a_place_is_asked_for(self):
        self.at_the_end_of_the_examination()
        self.desktop.end(self.program.process)
        self.desktop.end(self.instrument)
        self.desktop.move_to_new_home()
        self.after_cancel_in_a_communication_error()

    def at_the_end_of_the_examination(self):
        self.record_and_lose_the_folder()
        self.program.press('Stop')
        self.save_on_the_stick()
        self.check_recording()
        self.answer('occorrono almeno 7 minuti', 'OK')
        self.program.press('End')
        self.assertEqual(self.program.wait_for_end(), 0)

    def after_cancel_in_a_communication_error(self):
        self.record_and_lose_the_folder()
        self.desktop.end(self.instrument)
        self.answer('Errore di comunicazione!', 'Cancel')
        self.save_on_the_stick()
        self.assertEqual(self.program.wait_for_end(), 0)
        self.check_recording()


if __name__ == '__main__':
    driver.run_tests()
