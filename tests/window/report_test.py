"""The final report in a real window, its comments, and its print.

    /usr/bin/python3 report_test.py BUILD_FOLDER
"""
import glob
import os
import subprocess
import sys
import time
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import driver
import printing

PROMPT = ('Stampa Immagine', "Accendere la stampante.  Viene stampata l'immagine attuale.")
FREQUENCIES = [str(hertz) for hertz in range(0, 35, 5)] + ['Hz']
EXPLANATION = ("In questa versione del software e' stata introdotta anche la\n"
               " curva del rumore, che mostra la attivita' di base EEG di tipo\n"
               " indifferenziato, sempre presente. Cioe' che eccede la curva di\n"
               " rumore, e' invece una attivita' EEG piu' specifica e significativa.")
ALPHA = ['niente Alfa     ', 'Poco ritmo Alfa    ', 'Discreto ritmo Alfa', 'Ottimo ritmo Alfa  ']
GROUND, COMMENTS, MAIN_GROUND = 'Rapporto', 'Testo dei commenti', 'Didascalie degli assi'
RIGHT_PLACE = (10, 3, 200, 148)  # millimetres from the paper's corner: left, top, right, bottom


def setUpModule():
    ReportTest.desktop = unittest.enterModuleContext(driver.Desktop('1366x768'))


def inside(inner, outer):
    return (inner.x >= outer.x and inner.y >= outer.y and inner.x + inner.width <= outer.x + outer.width and
            inner.y + inner.height <= outer.y + outer.height)


class ReportTest(unittest.TestCase):
    desktop = None  # shared: the accessibility library can use one bus per process

    def setUp(self):
        self.desktop.move_to_new_home()
        os.environ['CUPS_SERVER'] = os.path.join(self.desktop.home, 'no-print-server')

    def examine(self, model, blocks=4):
        """Performs an examination of some blocks and returns the program."""
        instrument = self.desktop.start_instrument(driver.INSTRUMENT, 1, '--model', model, '--seed', '1')
        self.addCleanup(self.desktop.end, instrument)
        program = self.desktop.start_program([driver.KORVINEL])
        self.addCleanup(self.desktop.end, program.process)
        program.type('Nome del file', 'prova')
        program.type('Nome del soggetto', "Niccolo' Rossi")
        program.press('Start')
        driver.wait(lambda: program.value('Blocco iniziale') >= blocks, 20 + 4 * blocks, '%d blocks' % blocks)
        program.press('Stop')
        program.answer('OK')
        return program

    def open_report(self, program):
        program.press('Analisi')
        driver.wait(lambda: program.printed('Spettro T6'), what='the report')

    def has_window(self, program, title):
        tops = [program.root.get_child_at_index(i) for i in range(program.root.get_child_count())]
        return any(top is not None and top.get_name() == title for top in tops)

    def expect_gone(self, program, title):
        driver.wait(lambda: not self.has_window(program, title), what='%s to close' % title)

    def alpha_classes(self, program):
        lines = [line for line in program.printed(GROUND) if line[6:] in ALPHA]
        self.assertEqual([line[:6] for line in lines], ['F1-F2 ', 'T5-T6 '])
        return [ALPHA.index(line[6:]) for line in lines]

    def end(self, program):
        program.press('End')
        self.assertEqual(program.wait_for_end(), 0)


class Report(ReportTest):
    def test_the_report_of_closed_eyes_its_controls_and_its_comments(self):
        program = self.examine('eyes-closed')
        self.open_report(program)
        self.check_header(program)
        self.assertEqual(self.alpha_classes(program)[1], 3, 'excellent alpha at the back of the head')
        self.assertEqual(program.label("Durata dell'intervallo"), '15s')
        self.desktop.screenshot('report-1-eyes-closed')
        self.check_band_values(program)
        self.check_scale(program)
        program.press('Spiega')
        self.assertEqual(program.answer('OK'), ('Korvinel', EXPLANATION))
        self.check_comments(program)
        self.check_closing(program)
        self.end(program)

    def check_header(self, program):
        lines = program.printed(GROUND)
        self.assertEqual(lines[:17], ['Norvess Instruments'] + 2 * FREQUENCIES)
        self.assertEqual(lines[17:19], ['File: prova.QVD', "Nome: Niccolo' Rossi"])
        self.assertRegex(lines[19], r'^Data: \d\d/\d\d/\d{4}$')
        self.assertEqual(lines[20], 'Scala: 30 microvolts')
        self.assertEqual(len(lines), 27)

    def check_band_values(self, program):
        self.assertEqual(program.printed('Spettro F2'), ['F2', 'Delta=0', 'Theta =0', 'Alpha  =0', 'Beta =0'])
        program.press('Calcolo valori max banda')
        driver.wait(lambda: 'Alpha  =0' not in program.printed('Spettro T5'), what='the maxima')
        maxima = program.printed('Spettro T5')
        program.click('Calcolo valori medi banda')
        driver.wait(lambda: program.printed('Spettro T5') != maxima, what='the means')
        self.assertFalse(program.has_state('Calcolo valori max banda', 'CHECKED'))
        means = program.printed('Spettro T5')
        for label, largest, mean in zip(('Delta=', 'Theta=', 'Alpha  =', 'Beta='), maxima[1:], means[1:]):
            self.assertGreater(float(largest.removeprefix(label)), float(mean.removeprefix(label)), label)
        program.press('Calcolo valori medi banda')
        program.press('Numeri')
        self.assertEqual(program.printed('Spettro T5'), means)

    def check_scale(self, program):
        program.move('Scala del rapporto in microvolt', 75)
        program.expect('the scale line', lambda: 'Scala: 75 microvolts' in program.printed(GROUND), True)
        self.assertNotIn('Scala: 30 microvolts', program.printed(GROUND))
        self.assertEqual(program.label('Scala del rapporto'), 'Microvolts=75')

    def check_comments(self, program):
        program.click('Commenti sui segnali')
        program.expect('the comments', lambda: len(program.printed(COMMENTS)), 18)
        self.assertIn(' Qualita\' del ritmo Alfa = ', program.printed(COMMENTS)[2])
        self.assertEqual(program.printed(COMMENTS)[17],
                         " La qualita' dei segnali EEG registrati e' essenziale per il risultato.")
        self.desktop.screenshot('report-2-comments')
        program.press('Commenti')
        program.expect('the comments twice', lambda: len(program.printed(COMMENTS)), 36)
        self.desktop.screenshot('report-3-comments-twice')
        driver.wait(lambda: program.has_state('Korvinel - Commenti', 'ACTIVE'), what='the comment window')
        driver.keys('Escape')
        self.expect_gone(program, 'Korvinel - Commenti')
        program.press('Commenti')
        program.expect('a new, empty comment window', lambda: len(program.printed(COMMENTS)), 18)

    def check_closing(self, program):
        program.press('Uscita')
        self.expect_gone(program, 'Korvinel - Analisi finale')
        self.expect_gone(program, 'Korvinel - Commenti')
        self.open_report(program)
        program.expect('a new report', lambda: program.label('Scala del rapporto'), 'Microvolts=30')
        program.press('Analisi')  # it is open already
        time.sleep(0.5)  # a button acts a moment after the press
        driver.wait(lambda: program.has_state('Korvinel - Analisi finale', 'ACTIVE'), what='the report')
        titles = [program.root.get_child_at_index(i).get_name() for i in range(program.root.get_child_count())]
        self.assertEqual(titles.count('Korvinel - Analisi finale'), 1)
        driver.keys('alt+F4')
        self.expect_gone(program, 'Korvinel - Analisi finale')
        self.assertIsNone(program.process.poll())

    def test_open_eyes_have_less_alpha(self):
        closed = self.mean_alpha('eyes-closed')
        self.desktop.move_to_new_home()
        opened = self.mean_alpha('eyes-open')
        for channel in ('T5', 'T6'):  # 7.8 and 4 microvolts: the background is in the band too
            self.assertLess(opened[channel], 0.75 * closed[channel], channel)

    def mean_alpha(self, model):
        """Microvolts of alpha by channel, from the report of a short examination; ends the program."""
        program = self.examine(model)
        self.open_report(program)
        program.press('Calcolo valori medi banda')
        alpha = {channel: driver.wait(lambda: self.alpha_of(program, channel), what='the mean of ' + channel)
                 for channel in ('T5', 'T6')}
        self.desktop.screenshot('report-4-' + model)
        self.end(program)
        return alpha

    def alpha_of(self, program, channel):
        line = next(line for line in program.printed('Spettro ' + channel) if line.startswith('Alpha  ='))
        return float(line.removeprefix('Alpha  ='))

    def test_flat_channels_end_the_report_in_a_division_by_zero_and_the_window_stays(self):
        program = self.examine('flat', 2)
        self.open_report(program)
        program.expect('the fault', lambda: program.label('Stato del rapporto'),
                       "Operazione interrotta: Il calcolo non è possibile: il segnale è piatto o l'intervallo è vuoto. "
                       '(Divisione per zero)')
        self.assertEqual(program.printed(GROUND), ['Norvess Instruments'] + 2 * FREQUENCIES)
        self.assertEqual(program.printed('Coerenza F1-F2'), ['Coerenza F1-F2=0'])
        self.desktop.screenshot('report-5-flat')
        program.move('Scala del rapporto in microvolt', 50)
        program.expect('the fault to be forgotten', lambda: program.label('Stato del rapporto'), '')
        self.end(program)

    def test_the_report_needs_data(self):
        program = self.desktop.start_program([driver.KORVINEL])
        self.addCleanup(self.desktop.end, program.process)
        program.press('Analisi')
        self.assertEqual(program.answer('OK'), ('Korvinel', 'Nessun dato in memoria! Prima apri un file!'))
        self.assertFalse(self.has_window(program, 'Korvinel - Analisi finale'))
        self.end(program)

    def test_on_a_small_screen_the_report_fills_it_and_all_of_it_can_be_used(self):
        program = self.examine('eyes-closed', 1)
        self.open_report(program)
        whole = driver.wait(lambda: self.at_rest(program), what='the window to take its size')
        self.assertGreater(whole.width, 1300)
        self.assertLessEqual(whole.x + whole.width, 1366)
        self.assertLessEqual(whole.y + whole.height, 768)
        for button in ('Uscita', 'Numeri', 'Stampa il rapporto', 'Spiega', 'Commenti sui segnali'):
            self.assertTrue(inside(program.extents(button), whole), button)
        self.end(program)

    def at_rest(self, program):
        before = program.extents(GROUND)
        time.sleep(0.2)
        after = program.extents(GROUND)
        return after if (before.width, before.height) == (after.width, after.height) else None


class Printing(ReportTest):
    def test_both_windows_on_a_real_printer(self):
        server = self.enterContext(printing.PrintServer())
        program = self.examine('eyes-closed', 2)
        self.print(program, "Stampa l'immagine")
        self.check_page(server, 1)
        self.check_clipboard(program, MAIN_GROUND)
        self.open_report(program)
        self.print(program, 'Stampa il rapporto')
        self.check_page(server, 2)
        self.check_clipboard(program, GROUND)
        program.click('Stampa il rapporto')
        self.assertEqual(program.answer('Cancel'), PROMPT)
        self.end(program)
        self.assertEqual(len(server.printed()), 2)
        os.makedirs(driver.SCREENSHOTS, exist_ok=True)
        subprocess.run(['pdftoppm', '-r', '100', '-png', '-singlefile', server.printed()[1],
                        os.path.join(driver.SCREENSHOTS, 'report-6-page')], check=True)

    def print(self, program, button):
        program.click(button)
        self.assertEqual(program.answer('OK'), PROMPT)

    def check_page(self, server, count):
        driver.wait(lambda: len(server.printed()) == count, 20, 'page %d' % count)
        self.check_placement(server.printed()[-1])

    def check_placement(self, page):
        self.assertEqual(printing.pages_of(page), 1)
        for edge, expected in zip(printing.inked_millimetres(page), RIGHT_PLACE):
            self.assertAlmostEqual(edge, expected, delta=0.3)

    def check_clipboard(self, program, ground):
        """Another program finds the picture of the screen in the clipboard."""
        png = subprocess.run(['xclip', '-selection', 'clipboard', '-t', 'image/png', '-o'], check=True,
                             capture_output=True, timeout=20).stdout
        place = program.extents(ground)
        self.assertEqual((int.from_bytes(png[16:20], 'big'), int.from_bytes(png[20:24], 'big')),
                         (place.width, place.height))
        data = subprocess.run(['/usr/bin/convert', 'png:-', '-depth', '8', 'rgb:-'], input=png, check=True,
                              capture_output=True).stdout
        copied = list(zip(data[0::3], data[1::3], data[2::3]))
        shown = self.desktop.pixels(place)
        same = sum(a == b for a, b in zip(copied, shown))
        self.assertGreater(same / len(shown), 0.98)

    def test_without_a_printer_the_page_becomes_a_file_and_a_notice_says_where(self):
        program = self.examine('eyes-closed', 1)
        program.click("Stampa l'immagine")
        self.assertEqual(program.answer('OK'), PROMPT)
        text = program.answer('OK')[1]
        self.assertRegex(text, r"^Nessuna stampante installata\.\nL'immagine è nel file\n"
                               r'C:\\QUARVEL5\\DATAFILE\\prova-\d{8}-\d{6}\.pdf$')
        folder = os.path.join(self.desktop.data, 'drive_c/QUARVEL5/DATAFILE')
        name = text.rpartition('\\')[2]
        self.assertEqual(glob.glob(folder + '/*.pdf'), [os.path.join(folder, name)])
        self.check_placement(os.path.join(folder, name))
        os.rename(folder, folder + '-away')
        program.click("Stampa l'immagine")
        program.answer('OK')
        self.assertTrue(program.answer('OK')[1].startswith("La stampa non è riuscita.\nIl file non si può scrivere:\n"))
        self.end(program)


if __name__ == '__main__':
    driver.run_tests()
