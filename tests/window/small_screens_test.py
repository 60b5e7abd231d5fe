"""Both windows on small and scaled screens with a task bar: every button can be reached, and a window is found again
where it was.

    /usr/bin/python3 small_screens_test.py BUILD_FOLDER
"""
import os
import subprocess
import sys
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import driver
import report_sizes_test
import window_sizes_test
from window_sizes_test import inside

GROUND = window_sizes_test.GROUND
STATUS = "Stato dell'esame"
TASK_BAR = 40
# Screen and scale
SCREENS = [('1280x720', 1.5), ('1366x768', 1.25), ('1366x768', 1)]


class Area:
    def __init__(self, x, y, width, height):
        self.x, self.y, self.width, self.height = x, y, width, height


class SmallScreens(unittest.TestCase):
    def start(self, desktop, scale):
        os.environ['QT_SCALE_FACTOR'] = str(scale)
        self.addCleanup(os.environ.pop, 'QT_SCALE_FACTOR', None)
        program = desktop.start_program([driver.KORVINEL])
        driver.wait(lambda: program.has_state('Nome del file', 'FOCUSED'), what='the active window')
        return program

    @staticmethod
    def end(program):
        program.press('End')
        program.wait_for_end()

    def leave_an_examination(self, desktop):
        folder = os.path.join(desktop.data, 'drive_c/QUARVEL5/DATAFILE')
        with open(os.path.join(folder, 'Tempor1.XXX'), 'wb') as file:
            file.write(b'"Maria Immacolata Rossi-Bianchi","20/11/2026","4canali"\r\n' +
                       (b'd' * 256 + b'-\r\n') * 40)

    def check(self, program, names, screen, scale):
        """The accessibility bus has places in the window's own, unscaled pixels."""
        width, height = (int(each) for each in screen.split('x'))
        free = Area(0, 0, width / scale, (height - TASK_BAR) / scale)
        for name in names:
            place = program.extents(name)
            case = '%s at %s x %s' % (name, screen, scale)
            self.assertTrue(inside(place, free), '%s: %d %d %d %d' % (case, place.x, place.y, place.width, place.height))
            self.assertGreater(min(place.width, place.height), 12, case)

    def report_of_a_short_examination(self, desktop, program):
        instrument = desktop.start_instrument(driver.INSTRUMENT, 1, '--model', 'eyes-closed', '--seed', '1')
        program.type('Nome del file', 'prova')
        program.type('Nome del soggetto', 'Rossi')
        program.press('Start')
        driver.wait(lambda: program.value('Blocco iniziale') >= 1, 30, 'a block')
        program.press('Stop')
        program.answer('OK')
        program.press('Analisi')
        driver.wait(lambda: program.printed('Spettro T6'), what='the report')
        desktop.end(instrument)

    def look_at(self, screen, scale):
        with driver.Desktop(screen, task_bar=TASK_BAR) as desktop:
            self.end(self.start(desktop, scale))
            self.leave_an_examination(desktop)
            program = self.start(desktop, scale)
            driver.wait(lambda: program.has_state('Recupera', 'SHOWING'), what='the notice')
            notice = ['Recupera', 'Più tardi', 'Nome del file', STATUS]
            self.check(program, window_sizes_test.BUTTONS + notice, screen, scale)
            name = 'small-%s-%g' % (screen, scale)
            desktop.screenshot(name)
            program.press('Più tardi')
            self.report_of_a_short_examination(desktop, program)
            desktop.screenshot(name + '-report')
            self.check(program, report_sizes_test.BUTTONS, screen, scale)
            driver.end_process(program.process)

    def test_every_button_can_be_reached(self):
        """A process can have one desktop only."""
        for screen, scale in SCREENS:
            with self.subTest(screen=screen, scale=scale):
                look = ('import sys, driver, small_screens_test as test; driver.KORVINEL, driver.INSTRUMENT = sys.argv[1:3]; '
                        'test.SmallScreens().look_at(%r, %r)' % (screen, scale))
                done = subprocess.run([sys.executable, '-c', look, driver.KORVINEL, driver.INSTRUMENT], text=True,
                                      cwd=os.path.dirname(os.path.abspath(__file__)), capture_output=True, check=False)
                self.assertEqual(done.returncode, 0, done.stderr)

    def test_a_window_is_found_again_where_it_was(self):
        with driver.Desktop('1920x1080', task_bar=TASK_BAR) as desktop:
            program = self.start(desktop, 1)
            driver.resize_active_window(1100, 800)
            driver.wait(lambda: program.extents(GROUND).width == 1100, what='the new size')
            driver.mouse('getactivewindow', 'windowmove', 100, 80)
            driver.wait(lambda: program.extents(GROUND).x > 50, what='the new place')
            place = program.extents(GROUND)
            self.end(program)
            program = self.start(desktop, 1)
            program.expect('the width', lambda: program.extents(GROUND).width, 1100)
            again = program.extents(GROUND)
            self.assertEqual((again.width, again.height), (place.width, place.height))
            self.assertLess(max(abs(again.x - place.x), abs(again.y - place.y)), 8)
            self.end(program)
            settings = os.path.join(desktop.home, '.config/korvinel/impostazioni.txt')
            with open(settings, 'w', encoding='utf-8') as file:
                file.write('finestra-principale=5000,4000,1100,700\n')
            program = self.start(desktop, 1)
            self.assertTrue(inside(program.extents('End'), Area(0, 0, 1920, 1080 - TASK_BAR)))
            self.end(program)
            with open(settings, 'w', encoding='utf-8') as file:
                file.write('finestra-principale=forse\n')
            program = self.start(desktop, 1)
            driver.wait(lambda: 'Impostazioni illeggibili' in program.label(STATUS), what='the notice')
            self.end(program)


if __name__ == '__main__':
    driver.run_tests()
