"""The line under the buttons, read as a screen reader reads it at each step of whole examinations.

    /usr/bin/python3 status_line_test.py BUILD_FOLDER
"""
import os
import sys
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import driver

APPEARS = 'object:state-changed:showing'


def setUpModule():
    StatusLine.desktop = unittest.enterModuleContext(driver.Desktop())


class StatusLine(unittest.TestCase):
    desktop = None

    def setUp(self):
        self.desktop.move_to_new_home()
        self.spoken = []

    def start_instrument(self):
        instrument = self.desktop.start_instrument(driver.INSTRUMENT)
        self.addCleanup(self.desktop.end, instrument)
        return instrument

    def start(self):
        self.program = self.desktop.start_program([driver.KORVINEL])
        self.addCleanup(self.desktop.end, self.program.process)
        from gi.repository import GLib
        self.glib = GLib
        listener = self.program.atspi.EventListener.new(self._heard)
        listener.register(APPEARS)
        self.addCleanup(listener.deregister, APPEARS)

    def _heard(self, event):
        try:
            if event.detail1 == 1 and event.source.get_role_name() == 'notification':
                self.spoken.append(event.source.get_name())
        except self.glib.GError:
            pass  # of a program that has ended meanwhile

    def has_spoken(self, text):
        while self.glib.MainContext.default().iteration(False):
            pass
        return any(each.startswith(text) for each in self.spoken)

    def line(self):
        return self.program.label("Stato dell'esame")

    def expect(self, text, timeout=10):
        self.program.expect(text, self.line, text, timeout)

    def expect_start(self, text, timeout=20):
        driver.wait(lambda: self.line().startswith(text), timeout, text)

    def begin(self, name):
        self.program.type('Nome del file', name)
        self.program.type('Nome del soggetto', 'Rossi Anna')
        self.program.press('Start')

    def test_a_whole_examination(self):
        self.start_instrument()
        self.start()
        self.expect('Pronto')
        self.program.press('Display')
        self.program.answer('OK')
        self.expect('Display: prima aprire un file con Apri File.')
        self.begin('uno')
        self.expect_start('Collegamento con COM1: ancora ')
        self.expect('In ascolto, NON si registra · 0:06')
        self.program.press('Registra')
        self.expect_start('Registrazione 0:0')
        self.program.press('Annota')
        self.program.type('Nota', 'occhi chiusi')
        self.program.click('Nota')
        driver.keys('Return')
        self.expect_start('Registrazione 0:12 · 1 nota · restano 9:45')
        self.desktop.screenshot('status-recording')
        self.program.press('Stop')
        self.program.answer('OK', 15)
        self.expect_start('Salvato: uno.QVD, ')
        self.assertTrue(self.line().endswith(' blocchi, 1 nota'), self.line())
        self.program.press('Apri File')
        self.program.choose_file(os.path.join(self.desktop.data, 'drive_c/QUARVEL5/DATAFILE/uno.QVD'))
        self.expect_start('Aperto: uno.QVD · Rossi Anna · ')
        driver.wait(lambda: self.has_spoken('Salvato: uno.QVD'), 5, 'speech')
        running = [each for each in self.spoken if each.startswith('Registrazione 0:')]
        self.assertLessEqual(len(running), 1, 'the running time is not spoken')

    def test_a_port_that_is_not_there(self):
        self.start()
        self.begin('uno')
        driver.wait(self.program.boxes, 20, 'the box')
        self.expect_start('COM1 (/dev/')
        self.assertIn("la porta non c'è", self.line())
        self.desktop.screenshot('status-no-port')
        self.program.answer('Cancel')
        self.program.wait_for_end()

    def test_an_instrument_that_goes_away(self):
        instrument = self.start_instrument()
        self.start()
        self.begin('uno')
        self.expect_start('In ascolto')
        instrument.kill()
        driver.wait(self.program.boxes, 20, 'the box')
        self.expect_start('COM1')
        self.assertRegex(self.line(), 'tace|interrotto')
        self.program.answer('Cancel')


if __name__ == '__main__':
    driver.run_tests()
