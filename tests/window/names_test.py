"""Names suggested in grey: completed from earlier recordings, taken with Tab, never filled in.

    /usr/bin/python3 names_test.py BUILD_FOLDER
"""
import os
import sys
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import driver

FILE, SUBJECT = 'Nome del file', 'Nome del soggetto'
GHOST = 'Suggerimento, accettato con Tab'
BLOCK = b''.join(bytes([100]) * 256 + b'-\r\n' for _ in range(4))


def setUpModule():
    Names.desktop = unittest.enterModuleContext(driver.Desktop('1366x768'))


class Names(unittest.TestCase):
    desktop = None

    def setUp(self):
        self.desktop.move_to_new_home()
        self.folder = os.path.join(self.desktop.data, 'drive_c/QUARVEL5/DATAFILE')
        program = self.start()
        self.end(program)

    def start(self):
        program = self.desktop.start_program([driver.KORVINEL])
        driver.wait(lambda: program.has_state(FILE, 'FOCUSED'), what='the active window')
        return program

    def end(self, program):
        program.press('End')
        self.assertEqual(program.wait_for_end(), 0)

    def record(self, name, subject):
        with open(os.path.join(self.folder, name + '.QVD'), 'wb') as file:
            file.write(b'"%s","20/11/2026 V3","4canali",1\r\n1,"Nota: "\r\n' % subject + BLOCK)

    @staticmethod
    def ghosts(program):
        return [each.get_name() for each in program.walk() if each.get_description() == GHOST
                and each.get_state_set().contains(program.atspi.StateType.SHOWING)]

    def test_a_name_is_completed_with_tab_and_the_file_name_follows(self):
        self.record('uno', b'Rossi Anna')
        self.record('due', b'Verdi Niccol\xf2')
        program = self.start()
        driver.keys('Tab')
        driver.wait(lambda: program.has_state(SUBJECT, 'FOCUSED'), what='Tab without a suggestion')
        driver.type_text('verd')
        driver.wait(lambda: 'i Niccolò' in self.ghosts(program), what='the suggestion')
        self.assertEqual(program.text(SUBJECT), 'verd')
        self.desktop.screenshot('suggested-name')
        driver.keys('Tab')
        program.expect('the name', lambda: program.text(SUBJECT), 'Verdi Niccolò')
        self.assertTrue(program.has_state(SUBJECT, 'FOCUSED'))
        self.assertEqual(program.text(FILE), '', 'nothing is filled in by itself')
        driver.keys('shift+Tab')
        driver.wait(lambda: program.has_state(FILE, 'FOCUSED'), what='the way back')
        driver.wait(lambda: self.ghosts(program), what='the suggested file name')
        self.assertRegex(self.ghosts(program)[0], r'^verdi-niccolo-20\d\d-\d\d-\d\d$')
        self.desktop.screenshot('suggested-file-name')
        driver.keys('Tab')
        driver.wait(lambda: program.text(FILE).startswith('verdi-niccolo-20'), what='the file name')
        driver.keys('Tab')
        driver.wait(lambda: program.has_state(SUBJECT, 'FOCUSED'), what='Tab moves on')
        self.end(program)

    def test_of_two_persons_none_is_chosen(self):
        self.record('uno', b'Rossi Anna')
        self.record('due', b'Rossi Andrea')
        program = self.start()
        driver.keys('Tab')
        driver.type_text('ro')
        driver.wait(lambda: 'ssi An' in self.ghosts(program), what='what they have in common')
        self.end(program)

    def test_ten_thousand_recordings_do_not_delay_the_start(self):
        for number in range(10_000):
            self.record('esame-%05d' % number, b'Soggetto %05d' % number)
        self.record('ultimo', b'Zanetti Zeno')
        program = self.start()
        driver.keys('Tab')
        driver.type_text('zan')
        driver.wait(lambda: 'etti Zeno' in self.ghosts(program), 30, 'the index')
        self.end(program)


if __name__ == '__main__':
    driver.run_tests()
