"""The main window at common screen sizes: everything in its place, nothing overlaps.

    /usr/bin/python3 window_sizes_test.py BUILD_FOLDER
"""
import itertools
import os
import sys
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import driver

GROUND, MESSAGES, HEAD = 'Didascalie degli assi', 'Messaggi', 'Posizione degli elettrodi'
BUTTONS = ['Start', 'Stop', 'Registra', 'Annota', 'Canali', 'Artefatti', 'Apri File', 'Display', 'Analisi', 'Stampa',
           'End']


def setUpModule():
    WindowSizes.desktop = unittest.enterModuleContext(driver.Desktop('3840x2160'))


def inside(inner, outer):
    return (inner.x >= outer.x and inner.y >= outer.y and inner.x + inner.width <= outer.x + outer.width and
            inner.y + inner.height <= outer.y + outer.height)


def apart(a, b):
    return a.x + a.width <= b.x or b.x + b.width <= a.x or a.y + a.height <= b.y or b.y + b.height <= a.y


class WindowSizes(unittest.TestCase):
    desktop = None

    def start_program(self, scale):
        self.desktop.move_to_new_home()
        os.environ['QT_SCALE_FACTOR'] = str(scale)
        program = self.desktop.start_program([driver.KORVINEL])
        self.addCleanup(self.desktop.end, program.process)
        driver.wait(lambda: program.has_state('Nome del file', 'FOCUSED'), what='the active window')
        return program

    def resize(self, program, scale, width, height):
        driver.resize_active_window(width, height)
        driver.wait(lambda: program.extents(GROUND).width == width // scale, what='the new size')

    def places(self, program):
        """Name and place of everything on the window's ground except the panel under the boxes."""
        ground = program.find(GROUND)
        children = [ground.get_child_at_index(i) for i in range(ground.get_child_count())]
        names = [child.get_name() or child.get_description() for child in children]
        place = program.atspi.Component.get_extents
        return [(name, place(child, program.atspi.CoordType.SCREEN)) for name, child in zip(names, children) if name]

    def check(self, program, case):
        ground = program.extents(GROUND)
        places = self.places(program)
        self.assertGreater(len(places), 35)
        for name, place in places:
            self.assertGreater(min(place.width, place.height), 10, '%s at %s' % (name, case))
            self.assertTrue(inside(place, ground), '%s leaves the window at %s' % (name, case))
        for (name, place), (other, other_place) in itertools.combinations(places, 2):
            if {name, other} != {MESSAGES, HEAD}:
                self.assertTrue(apart(place, other_place), '%s lies over %s at %s' % (name, other, case))

    def check_buttons(self, program, case):
        row = [program.extents(name) for name in BUTTONS]
        self.assertEqual(len({place.y for place in row}), 1, case)
        self.assertEqual(sorted(row, key=lambda place: place.x), row, case)
        widths = [place.width for place in row]
        self.assertLessEqual(max(widths) - min(widths), 1, case)

    def test_everything_is_in_its_place_at_every_size(self):
        sizes = {1: [(900, 600), (1024, 730), (1366, 745), (1920, 1057)], 2: [(3840, 2136)]}
        for scale, windows in sizes.items():
            program = self.start_program(scale)
            for width, height in windows:
                case = '%dx%d' % (width, height)
                self.resize(program, scale, width, height)
                self.check(program, case)
                self.check_buttons(program, case)
                self.desktop.screenshot('size-' + case)

    def test_it_opens_at_the_size_of_its_plan(self):
        program = self.start_program(1)
        place = program.extents(GROUND)
        self.assertEqual((place.width, place.height), (1024, 730))


if __name__ == '__main__':
    driver.run_tests()
