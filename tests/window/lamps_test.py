"""The lamps of the signals in the real window, as a screen reader reads them.

    /usr/bin/python3 lamps_test.py BUILD_FOLDER
"""
import os
import sys
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import driver

SITES = ('F1', 'F2', 'T5', 'T6')


class Lamps(unittest.TestCase):
    def setUp(self):
        self.desktop = self.enterContext(driver.Desktop('1366x768'))

    def states(self):
        names = [each.get_name() for each in self.program.walk()]
        return [name.split(': ', 1)[1] for site in SITES for name in names if name.startswith(site + ': ')]

    def expect_all(self, state, timeout=30):
        self.program.expect('the lamps', self.states, [state] * 4, timeout)

    def test_through_an_acquisition_from_a_good_signal_to_none(self):
        self.desktop.start_instrument(driver.INSTRUMENT, 1, '--model', 'eyes-closed:9,mains-hum:7,flat')
        self.program = program = self.desktop.start_program([driver.KORVINEL])
        self.expect_all('in attesa')
        program.type('Nome del file', 'prova')
        program.type('Nome del soggetto', 'Rossi')
        program.press('Start')
        self.expect_all('buono')
        program.click('T5: buono')
        self.assertTrue(program.has_state('Nome del file', 'FOCUSED'))
        self.expect_all('50 Hz')
        self.expect_all('piatto')
        reason = program.find('T6: piatto').get_description()
        self.assertIn('T6, piatto: fermo per 2,0 s. nell\'ultimo minuto: ', reason)
        self.assertIn(' volte buono', reason)
        self.assertEqual(program.find('T6: piatto').get_role_name(), 'label')
        self.assertIn('Controllare che l\'elettrodo tocchi la pelle', reason)
        self.desktop.screenshot('lamps-flat')
        program.press('Ferma')
        program.answer('OK', 15)
        self.expect_all('in attesa')


if __name__ == '__main__':
    driver.run_tests()
