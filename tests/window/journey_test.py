"""A whole examination in the real window, by mouse and keyboard as a user would perform it; compares the screen with
the content of the data file.

    /usr/bin/python3 journey_test.py BUILD_FOLDER
"""
import glob
import os
import sys
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import driver
import printing
import recording_file

NAME, SUBJECT = 'mattina', "Niccolo' D'Ali"
NOTES = ['occhi aperti', 'occhi chiusi']
# The eyes are open for the first seconds of the stream. A block comes every three seconds, or later: from
# FIRST_CLOSED_BLOCK on the eyes are closed, however slow the machine is.
OPEN_SECONDS, FIRST_CLOSED_BLOCK, BLOCKS = 21, 8, 12
LIGHT_RED = (255, 0, 0)
STRIP_UNITS, UNITS_PER_BLOCK = 600, 3
NOTICE = ('Attenzione: per una Analisi affidabile \noccorrono almeno 7 minuti di dati eeg!\n'
          'Per analisi finale, premere Analisi')
PROMPT = ('Stampa Immagine', "Accendere la stampante.  Viene stampata l'immagine attuale.")
MAIN, REPORT, COMMENTS = 'Korvinel - EEG Analysis 4 channels  V 8.1  ita', 'Rapporto', 'Testo dei commenti'
SURFACES = ['Tracciato 1', 'Tracciato 2', 'Coerenza', 'Spettro sinistro', 'Spettro destro', 'Asse frequenze',
            'Righello sinistro', 'Righello destro', 'Valori numerici 1', 'Valori numerici 2', 'Messaggi',
            'Striscia del tempo']
ALPHA = ['niente Alfa     ', 'Poco ritmo Alfa    ', 'Discreto ritmo Alfa', 'Ottimo ritmo Alfa  ']
# Half a unit of the one decimal shown, and a margin for the program's own roundings.
TOLERANCE = 0.06


def setUpModule():
    Journey.desktop = unittest.enterModuleContext(driver.Desktop('1366x768'))


def numbers_in(lines, labels):
    """The number after the label, for each line."""
    return [float(line[len(label):].removesuffix('uV')) for line, label in zip(lines, labels)]


class Journey(unittest.TestCase):
    desktop = None

    def setUp(self):
        self.desktop.move_to_new_home()
        os.environ['CUPS_SERVER'] = os.path.join(self.desktop.home, 'no-print-server')
        self.folder = os.path.join(self.desktop.data, 'drive_c/QUARVEL5/DATAFILE')
        self.path = os.path.join(self.folder, NAME + '.QVD')
        model = 'eyes-open:%d,eyes-closed' % OPEN_SECONDS
        instrument = self.desktop.start_instrument(driver.INSTRUMENT, 1, '--model', model, '--seed', '1')
        self.addCleanup(self.desktop.end, instrument)
        self.program = self.desktop.start_program([driver.KORVINEL])
        self.addCleanup(self.desktop.end, self.program.process)

    def test_a_whole_examination_says_what_its_file_holds(self):
        self.check_names()
        self.record()
        self.read_file()
        self.open_file()
        self.replay()
        self.check_blocks()
        self.choose_interval_by_mouse()
        self.choose_interval_by_keys()
        self.report()
        self.print()
        self.program.click('Fine del programma')
        self.assertEqual(self.program.wait_for_end(), 0)
        self.assertEqual(os.listdir(self.folder).count(NAME + '.QVD'), 1)

    # The window as an assistive program finds it

    def check_names(self):
        objects = list(self.program.walk())
        names = [each.get_name() for each in objects]
        for surface in SURFACES:
            self.assertEqual(names.count(surface), 1, surface)
        focusable = [each for each in objects
                     if each.get_state_set().contains(self.program.atspi.StateType.FOCUSABLE) and
                     each.get_role_name() not in ('frame', 'filler', 'application')]
        self.assertGreater(len(focusable), 15)
        for each in focusable:
            self.assertTrue(each.get_name(), '%s %r has no name' % (each.get_role_name(), each.get_description()))

    def keys(self, *keys, window=MAIN):
        """Presses them once the window has the keyboard focus, which returns a moment after a box is closed."""
        driver.wait(lambda: self.program.has_state(window, 'ACTIVE'), what='the window to be active')
        driver.keys(*keys)

    # The examination

    def block(self):
        return self.program.value('Blocco iniziale')

    def status(self):
        return self.program.label('Stato della registrazione')

    def record(self):
        program = self.program
        driver.wait(lambda: program.has_state('Nome del file', 'FOCUSED'), what='the keyboard in the first box')
        driver.type_text(NAME)
        driver.keys('Tab')
        driver.type_text(SUBJECT)
        program.expect('the subject', lambda: program.text('Nome del soggetto'), SUBJECT)
        program.click("Avvia l'acquisizione")
        program.expect('the first trace', lambda: program.printed('Tracciato 1'), ['Aspetta 4 secondi..'])
        driver.wait(lambda: self.block() >= 1, 30, 'the first block')
        program.click("Registra l'esame")
        program.expect('the status', self.status, 'Registrazione Attiva')
        driver.wait(lambda: self.block() == 1, 30, 'the recording to begin')
        self.noted = [self.note(NOTES[0], 2)]
        self.noted.append(self.note(NOTES[1], FIRST_CLOSED_BLOCK))
        driver.wait(lambda: self.block() >= BLOCKS, 10 * BLOCKS, 'the last block')
        self.desktop.screenshot('journey-1-recording')
        program.click('Ferma')
        self.assertEqual(program.answer('OK', 20), ('Korvinel', NOTICE))
        program.expect('the status', self.status, 'Registrazione Disattiva')
        self.assertEqual(program.printed('Tracciato 1'), ['Fine della registrazione!'])

    def note(self, text, block):
        """Writes a note once this block has come; returns the first and last block in which it may have begun."""
        driver.wait(lambda: self.block() >= block, 20 + 5 * block, 'block %d' % block)
        earliest = self.block()
        self.program.click('Nuova nota')
        self.program.expect('the status', self.status, 'Scrivi una nota poi premi Invio')
        driver.wait(lambda: self.program.has_state('Nota', 'FOCUSED'), what='the keyboard in the note box')
        latest = self.block()
        driver.type_text(text)
        driver.keys('Return')
        self.program.expect('the status', self.status, 'Registrazione Attiva')
        return earliest, latest

    # The file

    def read_file(self):
        self.recording = recording = recording_file.Recording(self.path)
        self.count = len(recording.blocks)
        factors = recording_file.calibration_factors(
            os.path.join(self.desktop.data, 'drive_c/QUARVEL5/Factors.val'))
        self.spectra = [[recording_file.amplitudes(samples, factors) for samples in block]
                        for block in recording.blocks]
        self.assertEqual((recording.subject, recording.kind, recording.tag, recording.rest),
                         (SUBJECT, '4canali', 'V3', 0))
        self.assertEqual(self.program.label('Data'), 'Data =' + recording.date)
        self.assertGreaterEqual(self.count, BLOCKS)
        # The count leaves out the block of the turn in which "Registra" was pressed, and may include the one in which
        # Stop was pressed; both depend on the moment of the press.
        total = self.program.label('Blocco e durata totale')
        self.assertIn(total, ['Totale= %ds' % (3 * (self.count + extra)) for extra in (-1, 0, 1)])
        self.check_alpha()
        self.assertEqual([text for _, text in recording.notes], NOTES)
        for (begun, _), (earliest, latest) in zip(recording.notes, self.noted):
            self.assertTrue(earliest <= begun <= latest + 1, '%s of %s' % (begun, self.noted))

    def check_alpha(self):
        """Closed eyes have far more of it at the back of the head."""
        def alpha(blocks):
            spectra = [block[channel] for block in blocks for channel in (2, 3)]
            return recording_file.band_means(recording_file.mean_spectrum(spectra))['Alfa']
        self.assertGreater(alpha(self.spectra[FIRST_CLOSED_BLOCK:]), 1.5 * alpha(self.spectra[:2]))

    # Opening it

    def open_file(self):
        program, recording = self.program, self.recording
        self.last = self.count - 1  # an opened file counts one block less
        program.click('Apri una registrazione')
        program.choose_file(self.path)
        program.expect('the total', lambda: program.label('Blocco e durata totale'), 'Totale=%ds' % (3 * self.last), 30)
        self.assertEqual(program.label('Intervallo e disturbo a 50 Hz'), 'Z1=1  Z2=%d' % self.last)
        self.assertEqual(program.label('Data').rstrip(), 'Data=' + recording.date)
        self.assertEqual(program.text('Nome del file'), NAME + '.QVD')
        self.assertEqual(program.text('Nome del soggetto'), recording.subject)
        lines = [line.rstrip() for line in program.printed('Messaggi')]
        for line in (' Nome file=%s.QVD' % NAME, ' Nome soggetto=' + recording.subject,
                     ' Data registrazione=' + recording.date, ' Lunghezza file= %d bloks' % self.last):
            self.assertIn(line, lines)
        self.check_note_marks()
        self.desktop.screenshot('journey-2-opened')

    def check_note_marks(self):
        """A red line at the top of the time strip at every note."""
        place = self.program.extents('Striscia del tempo')
        place.y, place.height = place.y + 2, 1
        marks = [int(begun * UNITS_PER_BLOCK * place.width / STRIP_UNITS) for begun, _ in self.recording.notes]

        def marked():
            pixels = self.desktop.pixels(place)
            return all(LIGHT_RED in pixels[x - 1:x + 2] for x in marks)
        driver.wait(marked, what='the marks of the notes at %s' % marks)

    def replay(self):
        program = self.program
        self.keys('alt+l', 'End')  # the highest speed
        program.expect('the speed', lambda: " Velocita' display=20" in self.labels(), True)
        program.click('Rivedi la registrazione')
        program.expect('the version', lambda: program.label('Blocco e durata totale'), 'V3')

        def position():
            return int(program.label('Posizione della lettura') or 0)
        driver.wait(lambda: position() >= self.last and self.block() == 1, 60, 'the end of the replay')
        self.assertLessEqual(position(), self.count)
        synchrony = [line for line in program.printed('Striscia del tempo') if line.startswith('Syncro 1-2=')]
        self.assertEqual(len(synchrony), 1)
        self.assertLessEqual(abs(float(synchrony[0].partition('=')[2])), 100)
        self.desktop.screenshot('journey-3-replayed')

    def labels(self):
        return [each.get_name() for each in self.program.walk() if each.get_role_name() == 'label']

    # One block, by the slider

    def check_blocks(self):
        for block in (2, FIRST_CLOSED_BLOCK, self.last):
            self.program.move('Blocco iniziale', block)
            self.check_block(block, (0, 1))
        self.program.click('Cambia coppia di canali')
        self.program.move('Blocco iniziale', 3)
        self.check_block(3, (2, 3))
        self.keys('alt+b', 'End')
        self.program.expect('the slider at the end of the data', self.block, self.last)
        self.program.click('Cambia coppia di canali')

    def check_block(self, block, pair):
        self.program.expect('the position', lambda: self.program.label('Posizione della lettura'), str(block))
        self.program.expect('the time', lambda: self.program.label('Tempo'), 'Tempo=%d secondi' % (3 * block))
        for surface, channel in zip(('Valori numerici 1', 'Valori numerici 2'), pair):
            expected = recording_file.band_maxima(self.spectra[block - 1][channel])
            lines = driver.wait(lambda: self.program.printed(surface), what=surface)
            self.assertEqual(lines[0], 'Valori numerici max')
            self.check_values(numbers_in(lines[1:], ['Delta=', 'Theta=', 'Alfa=', 'Beta=']), expected,
                              'block %d, channel %d' % (block, channel + 1))

    def check_values(self, shown, expected, where):
        for (band, value), number in zip(expected.items(), shown):
            self.assertAlmostEqual(number, value - 0.05, delta=0.05 + TOLERANCE, msg='%s, %s' % (band, where))

    # The interval

    def interval(self):
        return self.program.label('Data')

    def choose_interval_by_mouse(self):
        """Chooses the blocks of closed eyes; a pixel is less than a block."""
        def middle_of(block):
            return (UNITS_PER_BLOCK * block + 1.5) / STRIP_UNITS
        self.program.drag('Striscia del tempo', middle_of(FIRST_CLOSED_BLOCK), middle_of(self.last))
        seconds = 3 * (self.last - FIRST_CLOSED_BLOCK + 1)
        self.program.expect('the interval', self.interval, 'Intervallo=%ds' % seconds)

    def choose_interval_by_keys(self):
        """Chooses the first blocks, then those of closed eyes again."""
        self.keys('alt+z', 'Home', *['Right'] * 2, 'space', *['Right'] * 3, 'space')
        self.program.expect('blocks 2 to 5', self.interval, 'Intervallo=12s')
        self.desktop.screenshot('journey-4-interval')
        steps = self.last - FIRST_CLOSED_BLOCK
        self.keys('Home', *['Right'] * FIRST_CLOSED_BLOCK, 'Return', *['Right'] * steps, 'Return')
        self.program.expect('the interval', self.interval, 'Intervallo=%ds' % (3 * (steps + 1)))

    # The report

    def report(self):
        program = self.program
        program.click('Analisi finale')
        driver.wait(lambda: program.printed('Spettro T6'), what='the report')
        driver.wait(lambda: program.has_state('Korvinel - Analisi finale', 'ACTIVE'), what='the active report')
        lines = program.printed(REPORT)
        self.assertIn('File: %s.QVD' % NAME, lines)
        self.assertIn('Nome: ' + self.recording.subject, lines)
        self.assertEqual(program.label("Durata dell'intervallo"), '%ds' % (3 * (self.last - FIRST_CLOSED_BLOCK + 1)))
        self.assertEqual([line[:6] for line in lines if line[6:] in ALPHA], ['F1-F2 ', 'T5-T6 '])
        self.check_report_values()
        self.check_coherence()
        self.check_scale()
        self.comments()
        program.click('Chiudi il rapporto')
        driver.wait(lambda: program.has_state(MAIN, 'ACTIVE'), what='the main window')

    def check_report_values(self):
        interval = self.spectra[FIRST_CLOSED_BLOCK - 1:self.last]
        means = [recording_file.mean_spectrum([block[channel] for block in interval]) for channel in range(4)]
        for box, of in (('Calcolo valori max banda', recording_file.band_maxima),
                        ('Calcolo valori medi banda', recording_file.band_means)):
            self.program.click(box)
            driver.wait(lambda: self.program.has_state(box, 'CHECKED'), what=box)
            self.desktop.screenshot('journey-5-report')
            for name, spectrum in zip(recording_file.CHANNELS, means):
                self.check_panel(name, of(spectrum), box)

    def check_panel(self, name, expected, what):
        def values():
            lines = self.program.printed('Spettro ' + name)
            return [float(line.partition('=')[2]) for line in lines[1:]]
        driver.wait(lambda: len(values()) == 4 and any(values()), what='the values of ' + name)
        # Every spectrum line is rounded down before the band is formed, and the band again.
        for (band, value), number in zip(expected.items(), values()):
            self.assertAlmostEqual(number, value - 0.1, delta=0.1 + TOLERANCE, msg='%s of %s, %s' % (band, name, what))

    def check_coherence(self):
        for pair in ('F1-F2', 'T5-T6', 'F1-T5', 'F2-T6'):
            text = self.program.printed('Coerenza ' + pair)
            self.assertEqual(len(text), 1)
            self.assertTrue(text[0].startswith('Coerenza %s=' % pair), text)
            self.assertLessEqual(abs(float(text[0].partition('=')[2])), 100)

    def check_scale(self):
        self.keys('alt+v', 'Right', window='Korvinel - Analisi finale')
        self.program.expect('the scale', lambda: self.program.label('Scala del rapporto'), 'Microvolts=31')
        self.program.expect('the scale line', lambda: 'Scala: 31 microvolts' in self.program.printed(REPORT), True)

    def comments(self):
        program = self.program
        program.click('Commenti sui segnali')
        program.expect('the comments', lambda: len(program.printed(COMMENTS)), 18)
        self.assertIn('non costituiscono in alcun modo un responso medico', '\n'.join(program.printed(COMMENTS)))
        self.desktop.screenshot('journey-6-comments')
        self.keys('Escape', window='Korvinel - Commenti')
        driver.wait(lambda: program.has_state('Korvinel - Analisi finale', 'ACTIVE'), what='the report')

    # Print

    def texts_of_box(self):
        box = driver.wait(self.program.boxes, what='a box')[-1]
        return '\n'.join(each.get_name() for each in self.program.walk(box)
                         if each.get_role_name() == 'label' and each.get_name())

    def print(self):
        self.program.click("Stampa l'immagine")
        self.assertEqual(self.texts_of_box(), PROMPT[1])
        self.keys('Return', window=PROMPT[0])
        text = self.program.answer('OK')[1]
        self.assertTrue(text.startswith('Nessuna stampante installata.'), text)
        pages = glob.glob(os.path.join(self.folder, NAME + '-*.pdf'))
        self.assertEqual(len(pages), 1)
        self.assertTrue(text.endswith(os.path.basename(pages[0])), text)
        self.assertEqual(printing.pages_of(pages[0]), 1)


if __name__ == '__main__':
    driver.run_tests()
