"""The page of the first steps in the real window: it teaches, disturbs nothing, and stays away when it is told to.

    /usr/bin/python3 first_page_test.py BUILD_FOLDER
"""
import os
import sys
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import driver


def setUpModule():
    FirstPage.desktop = unittest.enterModuleContext(driver.Desktop('1366x768'))


class FirstPage(unittest.TestCase):
    desktop = None

    def setUp(self):
        self.desktop.move_to_new_home()

    def start_program(self):
        program = self.desktop.start_program([driver.KORVINEL])
        self.addCleanup(self.desktop.end, program.process)
        driver.wait(lambda: program.has_state('Nome del file', 'FOCUSED'), what='the active window')
        return program

    def is_shown(self, program):
        return program.has_state('Ho capito', 'SHOWING')

    def expect_shown(self, program, shown):
        driver.wait(lambda: self.is_shown(program) == shown, what='the page to be %s' % ('there', 'gone')[not shown])

    def restart(self, program):
        program.press('End')
        self.assertEqual(program.wait_for_end(), 0)
        return self.start_program()

    def test_it_is_there_until_it_is_dismissed_for_good(self):
        program = self.start_program()
        self.expect_shown(program, True)
        self.desktop.screenshot('first-page')
        program.press('Ho capito')
        self.expect_shown(program, False)
        program = self.restart(program)
        self.expect_shown(program, True)
        program.press('Non mostrare più')
        program.press('Ho capito')
        self.expect_shown(program, False)
        program = self.restart(program)
        self.assertFalse(self.is_shown(program))
        program.press('Mostra la pagina per cominciare')
        self.expect_shown(program, True)
        driver.keys('Escape')
        self.expect_shown(program, False)

    def test_it_takes_neither_the_keyboard_nor_a_control(self):
        program = self.start_program()
        self.expect_shown(program, True)
        driver.type_text('esame')
        driver.keys('Tab')
        driver.type_text('Rossi')
        self.assertEqual((program.text('Nome del file'), program.text('Nome del soggetto')), ('esame', 'Rossi'))
        page, rest = program.extents('Ho capito'), ['Nome del file', 'Start', 'Striscia del tempo', 'Blocco iniziale', 'Suoni']
        for name in rest:
            place = program.extents(name)
            self.assertTrue(place.y >= page.y + page.height or place.x >= page.x + page.width, name)

    def test_it_goes_when_an_examination_begins_and_cannot_come_back_meanwhile(self):
        instrument = self.desktop.start_instrument(driver.INSTRUMENT, 1, '--model', 'eyes-closed', '--seed', '1')
        self.addCleanup(self.desktop.end, instrument)
        program = self.start_program()
        self.expect_shown(program, True)
        program.type('Nome del file', 'primo')
        program.type('Nome del soggetto', 'Rossi Anna')
        program.press('Start')
        self.expect_shown(program, False)
        driver.wait(lambda: not program.has_state('Mostra la pagina per cominciare', 'SENSITIVE'), what='the button to be greyed')
        driver.wait(lambda: program.value('Blocco iniziale') >= 1, 20, 'the first block')
        self.assertFalse(self.is_shown(program))
        program.press('Stop')
        program.answer('OK', 15)
        driver.wait(lambda: program.has_state('Mostra la pagina per cominciare', 'SENSITIVE'), what='the button')


if __name__ == '__main__':
    driver.run_tests()
