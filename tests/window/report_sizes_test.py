"""The report window at common screen sizes: everything in its place, nothing overlaps.

    /usr/bin/python3 report_sizes_test.py BUILD_FOLDER
"""
import itertools
import os
import sys
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import driver
from window_sizes_test import apart, inside

GROUND = 'Rapporto'
BUTTONS = ['Uscita', 'Numeri', 'Stampa il rapporto', 'Spiega', 'Commenti sui segnali']


def setUpModule():
    ReportSizes.desktop = unittest.enterModuleContext(driver.Desktop('3840x2160'))


class ReportSizes(unittest.TestCase):
    desktop = None

    def open_report(self, scale):
        self.desktop.move_to_new_home()
        os.environ['QT_SCALE_FACTOR'] = str(scale)
        instrument = self.desktop.start_instrument(driver.INSTRUMENT, 1, '--model', 'eyes-closed', '--seed', '1')
        self.addCleanup(self.desktop.end, instrument)
        program = self.desktop.start_program([driver.KORVINEL])
        self.addCleanup(self.desktop.end, program.process)
        program.type('Nome del file', 'un nome di file piuttosto lungo, quanto basta per la colonna')
        program.type('Nome del soggetto', "Maria Immacolata Concetta dell'Annunziata Rossi-Bianchi, reparto 3")
        program.press('Start')
        driver.wait(lambda: program.value('Blocco iniziale') >= 1, 20, 'a block')
        program.press('Stop')
        program.answer('OK')
        program.press('Analisi')
        driver.wait(lambda: program.printed('Spettro T6'), what='the report')
        driver.wait(lambda: program.has_state('Korvinel - Analisi finale', 'ACTIVE'), what='the active report')
        program.press('Calcolo valori max banda')
        return program

    def resize(self, program, scale, width, height):
        driver.resize_active_window(width, height)
        driver.wait(lambda: program.extents(GROUND).width == width // scale, what='the new size')

    def check(self, program, case):
        ground = program.find(GROUND)
        screen = program.atspi.CoordType.SCREEN
        children = [ground.get_child_at_index(i) for i in range(ground.get_child_count())]
        places = {child.get_name() or child.get_description(): program.atspi.Component.get_extents(child, screen)
                  for child in children if child.get_name() or child.get_description()}
        self.assertEqual(len(places), 19)  # panels, labels, check boxes, slider and buttons
        whole = program.extents(GROUND)
        for name, place in places.items():
            self.assertGreater(min(place.width, place.height), 12, '%s at %s' % (name, case))
            self.assertTrue(inside(place, whole), '%s leaves the window at %s' % (name, case))
        for (name, place), (other, other_place) in itertools.combinations(places.items(), 2):
            self.assertTrue(apart(place, other_place), '%s lies over %s at %s' % (name, other, case))

    def check_buttons(self, program, case):
        row = [program.extents(name) for name in BUTTONS]
        self.assertEqual(len({place.y for place in row}), 1, case)
        widths = [place.width for place in row]
        self.assertLessEqual(max(widths) - min(widths), 1, case)

    def test_everything_is_in_its_place_at_every_size(self):
        sizes = {1: [(900, 620), (1024, 733), (1366, 745), (1920, 1057)], 2: [(3840, 2136)]}
        for scale, windows in sizes.items():
            program = self.open_report(scale)
            if scale == 1:
                place = program.extents(GROUND)
                self.assertEqual((place.width, place.height), (1024, 733), 'the size it opens at')
            for width, height in windows:
                case = '%dx%d' % (width, height)
                self.resize(program, scale, width, height)
                self.check(program, case)
                self.check_buttons(program, case)
                self.desktop.screenshot('report-size-' + case)


if __name__ == '__main__':
    driver.run_tests()
