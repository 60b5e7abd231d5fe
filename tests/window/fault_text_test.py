"""The reason for an interrupted operation can be read in full on the smallest screen.

    /usr/bin/python3 fault_text_test.py BUILD_FOLDER
"""
import os
import sys
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import driver

FAULT = ("Operazione interrotta: Il calcolo non è possibile: il segnale è piatto o l'intervallo è vuoto. "
         '(Divisione per zero)')
HEADER = b'"Rossi","21/11/2026 V3","4canali",1\r\n1,"Nota: "\r\n'
MAIN, REPORT = 'Stato della registrazione', 'Stato del rapporto'


def setUpModule():
    FaultText.desktop = unittest.enterModuleContext(driver.Desktop('1024x768'))


class FaultText(unittest.TestCase):
    desktop = None

    def test_the_fault_of_a_flat_recording_stands_whole_in_both_windows(self):
        path = os.path.join(self.desktop.home, 'piatto.QVD')
        with open(path, 'wb') as file:
            file.write(HEADER + 4 * 4 * (256 * b'\x80' + b'-\r\n'))
        program = self.desktop.start_program([driver.KORVINEL])
        self.addCleanup(self.desktop.end, program.process)
        program.press('Apri File')
        program.choose_file(path)
        driver.wait(lambda: any('Lunghezza' in line for line in program.printed('Messaggi')), what='the summary')
        empty = self.inked(program, MAIN)
        program.press('Analisi')
        for label in (MAIN, REPORT):
            program.expect('the fault', lambda label=label: program.label(label), FAULT)
        driver.wait(lambda: program.has_state('Korvinel - Analisi finale', 'ACTIVE'), what='the active report')
        self.desktop.screenshot('fault-report')
        program.press('Uscita')
        driver.wait(lambda: program.has_state('Start', 'SHOWING') and not self.is_open(program), what='the main window')
        self.desktop.screenshot('fault-main')
        # Three lines instead of one.
        self.assertGreater(self.inked(program, MAIN), 2 * empty)

    def is_open(self, program):
        tops = [program.root.get_child_at_index(i) for i in range(program.root.get_child_count())]
        return any(top is not None and top.get_name() == 'Korvinel - Analisi finale' for top in tops)

    def inked(self, program, label):
        """The number of pixel rows of the label with dark pixels."""
        place = program.extents(label)
        pixels = self.desktop.pixels(place)
        rows = [pixels[start:start + place.width] for start in range(0, len(pixels), place.width)]
        return sum(any(sum(pixel) < 300 for pixel in row) for row in rows)


if __name__ == '__main__':
    driver.run_tests()
