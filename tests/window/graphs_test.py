"""What stands beside and over the graphs of the main window, and in the report's windows: which sites a graph shows, the
notes, and whose examination it is.

    /usr/bin/python3 graphs_test.py BUILD_FOLDER
"""
import glob
import os
import sys
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import driver

COVERED = 'Perché è coperto'
GONE = ('Esame precedente, non più in memoria. '
        'Premere Start per un nuovo esame o Apri File per rivederne uno.')
RED = (255, 0, 0)
STRIP_SECONDS = 600


def file_of(subject, blocks, notes, level):
    """The bytes of a recording: a sine of ten hertz, larger at the later channels; `level` 0 is flat."""
    import math
    lines = ['"%s","21/11/2026 V3","4canali",%d\r\n' % (subject, len(notes))]
    lines += ['%d,"%s"\r\n' % note for note in notes]
    content = ''.join(lines).encode('cp1252')
    for block in range(blocks):
        for channel in range(1, 5):
            samples = [round(128 + level * channel * math.sin(2 * math.pi * (20 * i / 256 + channel / 9)) +
                             level * math.sin(i * i * (block + 3))) for i in range(256)]
            content += bytes(samples) + b'-\r\n'
    return content


def setUpModule():
    GraphsTest.desktop = unittest.enterModuleContext(driver.Desktop('1366x768'))


class GraphsTest(unittest.TestCase):
    desktop = None

    def setUp(self):
        self.desktop.move_to_new_home()
        self.folder = os.path.join(self.desktop.data, 'drive_c/QUARVEL5/DATAFILE')

    def start(self):
        self.program = self.desktop.start_program([driver.KORVINEL])
        self.addCleanup(self.desktop.end, self.program.process)
        driver.wait(lambda: self.described('Titolo della striscia del tempo'), what='the captions')
        return self.program

    def write(self, name, *of):
        path = os.path.join(self.folder, name)
        with open(path, 'wb') as file:
            file.write(file_of(*of))
        return path

    def described(self, name):
        return self.program.find(name).get_description()

    def sites(self):
        return [self.described(name) for name in
                ('Sito e scala del tracciato 1', 'Sito e scala del tracciato 2', 'Sito dello spettro sinistro',
                 'Sito dello spettro destro', 'Siti della coerenza', 'Sito dei valori numerici 1',
                 'Sito dei valori numerici 2', 'Titolo della striscia del tempo')]

    def open(self, path):
        self.program.press('Apri File')
        self.program.choose_file(path)
        driver.wait(lambda: self.program.label('Blocco e durata totale').startswith('Totale='), 20, 'the summary')

    def give_up_the_list(self):
        self.program.press('Apri File')
        driver.wait(lambda: self.program.find('Nome file:'), what='the list of files')
        driver.wait(lambda: len(self.program.boxes()) == 1, what='the list of files')
        driver.keys('Escape')
        driver.wait(lambda: not self.program.boxes(), what='the list to close')

    def shown(self, role):
        """The sentences on the covers that are visible."""
        states = self.program.atspi.StateType
        return [each.get_name() for each in self.program.walk()
                if each.get_description() == role and each.get_state_set().contains(states.SHOWING)]

    # An examination

    def test_the_sites_of_each_graph_during_an_examination_and_its_notes(self):
        instrument = self.desktop.start_instrument(driver.INSTRUMENT, 1, '--model', 'eyes-closed', '--seed', '1')
        self.addCleanup(self.desktop.end, instrument)
        program = self.start()
        first = ['F1', 'F2', 'F1', 'F2', 'F1-F2', 'F1', 'F2', 'Sincronia F1-F2']
        second = ['T5', 'T6', 'T5', 'T6', 'T5-T6', 'T5', 'T6', 'Sincronia T5-T6']
        self.assertEqual(self.sites(), first)
        program.type('Nome del file', 'uno')
        program.type('Nome del soggetto', 'Rossi Anna')
        program.press('Start')
        driver.wait(lambda: program.value('Blocco iniziale') >= 1, 20, 'a block')
        program.press('Registra')
        driver.wait(lambda: program.value('Blocco iniziale') == 2, 20, 'the recording')
        program.expect('whose graphs', lambda: self.described('Esame mostrato'), 'Rossi Anna, uno.QVD')
        program.press('Canali')
        program.expect('the other pair with its first block', self.sites, second)
        self.write_a_quick_note()
        self.desktop.screenshot('graphs-1-note')
        program.press('Stop')
        program.answer('OK', 20)

    def write_a_quick_note(self):
        program = self.program
        program.press('Annota')
        driver.wait(lambda: program.has_state('Nota', 'FOCUSED'), what='the keyboard in the note box')
        driver.wait(lambda: program.has_state('tosse', 'SHOWING'), what='the quick notes')
        program.click('tosse')
        program.expect('the note', lambda: program.text('Nota'), 'tosse')
        self.assertTrue(program.has_state('Nota', 'FOCUSED'), 'the keyboard stays in the note box')
        self.desktop.screenshot('graphs-0-quick')
        self.edit_quick_notes()
        driver.wait(lambda: program.has_state('Nota', 'FOCUSED'), what='the keyboard in the note box again')
        driver.keys('Return')
        driver.wait(lambda: any(line.endswith('tosse') for line in self.notes()), what='the note in the list')

    def edit_quick_notes(self):
        """They are kept among the user's settings."""
        self.program.press('Modifica…')
        driver.wait(lambda: self.program.has_state('Note rapide', 'FOCUSED'), what='the line of the quick notes')
        self.program.type('Note rapide', 'tosse; luce accesa')
        driver.keys('Return')
        driver.wait(lambda: self.program.has_state('luce accesa', 'SHOWING'), what='the new quick note')
        settings = glob.glob(os.path.join(self.desktop.home, '.config/**/impostazioni.txt'), recursive=True)
        self.assertEqual(len(settings), 1)
        with open(settings[0], encoding='utf-8') as file:
            self.assertIn('luce accesa', file.read())

    def notes(self):
        listed = self.program.find('Elenco delle note')
        return [listed.get_child_at_index(i).get_name() for i in range(listed.get_child_count())]

    # A file

    def test_notes_of_a_file_are_read_found_and_stay_marked_in_a_replay(self):
        program = self.start()
        path = self.write('due.QVD', 'Bianchi', 30, [(5, 'occhi aperti'), (21, 'movimento')], 12)
        self.open(path)
        self.desktop.screenshot('graphs-2-opened')
        self.assertFalse(program.has_state('Elenco delle note', 'SHOWING'), 'the summary is to be read first')
        program.press('Note: 2')
        driver.wait(lambda: program.has_state('Elenco delle note', 'SHOWING'), what='the list')
        self.assertEqual(self.notes(), ['0:15   occhi aperti', '1:03   movimento'])
        self.desktop.screenshot('graphs-3-notes')
        program.click('1:03   movimento')
        program.expect('the slider', lambda: program.value('Blocco iniziale'), 21)
        self.point_at_a_mark()
        program.move("Velocita' del display", 20)
        program.press('Display')
        driver.wait(lambda: program.value('Blocco iniziale') == 1, 30, 'the end of the replay')
        self.check_marks([5, 21])
        self.desktop.screenshot('graphs-4-replayed')

    def point_at_a_mark(self):
        strip = self.program.extents('Striscia del tempo')
        driver.mouse('mousemove', strip.x + round(63 * strip.width / STRIP_SECONDS) - 30, strip.y + 20)
        driver.mouse('mousemove', strip.x + round(63 * strip.width / STRIP_SECONDS), strip.y + 20)
        self.program.find('1:03 movimento')
        driver.keys('alt+z', 'Home', *['Right'] * 5)
        self.program.find('Secondo 15, blocco 5\n0:15 occhi aperti')

    def check_marks(self, blocks):
        strip = self.program.extents('Striscia del tempo')
        strip.y, strip.height = strip.y + 2, 1
        places = [int(3 * block * strip.width / STRIP_SECONDS) for block in blocks]

        def marked():
            pixels = self.desktop.pixels(strip)
            return all(RED in pixels[x - 2:x + 3] for x in places)
        driver.wait(marked, what='the marks of the notes at %s' % places)

    # Another person

    def test_no_part_shows_another_persons_examination_as_if_it_were_open(self):
        program = self.start()
        path = self.write('due.QVD', 'Bianchi', 30, [(5, 'occhi aperti')], 12)
        other = self.write('tre.QVD', 'Neri', 10, [(2, 'tosse')], 9)
        self.open(path)
        self.assertEqual(self.described('Esame mostrato'), 'Bianchi, due.QVD')
        self.assertEqual(self.shown(COVERED), [])
        program.press('Analisi')
        about = 'Che cosa riguarda il rapporto'
        program.expect('the report', lambda: program.label(about), 'Rapporto di due.QVD, 0:00-1:27.')
        program.press('Commenti')
        driver.wait(lambda: program.printed('Testo dei commenti'), what='the comments')
        self.desktop.screenshot('graphs-5-comments')
        self.open(other)
        stale = "Questo rapporto riguarda due.QVD, 0:00-1:27, non l'esame ora aperto."
        program.expect('the old report', lambda: program.label(about), stale)
        program.expect('the old comments', lambda: program.label('Che cosa riguardano i commenti'), stale)
        self.desktop.screenshot('graphs-6-old-report')
        program.press('Uscita')
        self.give_up_the_list()
        driver.wait(lambda: self.shown(COVERED), what='the covers')
        self.assertEqual(set(self.shown(COVERED)),
                         {GONE, "Dati dell'esame precedente. I nomi qui sopra valgono per il prossimo esame."})
        self.desktop.screenshot('graphs-7-covered')
        self.open(other)
        self.assertEqual(self.shown(COVERED), [])

    def test_a_report_without_data_says_so_in_both_windows(self):
        program = self.start()
        self.open(self.write('piatto.QVD', 'Bianchi', 8, [(2, 'tosse')], 0))
        program.press('Analisi')
        missing = 'Rapporto non calcolato: segnale piatto in F1, F2, T5 e T6.'
        program.expect('the report', lambda: self.shown('Perché il rapporto è coperto'), [missing])
        program.press('Commenti')
        program.expect('the comments', lambda: self.shown('Perché i commenti sono coperti'), [missing])
        self.assertEqual(len(program.printed('Testo dei commenti')), 18)  # they stay beneath
        self.desktop.screenshot('graphs-8-flat')


if __name__ == '__main__':
    driver.run_tests()
