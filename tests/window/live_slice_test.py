"""The real program in a real window with the simulated instrument: from typed names to the end of the program.

    /usr/bin/python3 live_slice_test.py BUILD_FOLDER
"""
import os
import sys
import time
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import driver

LIGHT_GREEN, BLUE = (0, 255, 0), (0, 0, 128)
DURATION_NOTICE = ('Attenzione: per una Analisi affidabile \noccorrono almeno 7 minuti di dati eeg!\n'
                   'Per analisi finale, premere Analisi')
SILENT_STREAM = ("Errore di comunicazione!\nVerificare se lo strumento e' acceso\n"
                 'Premere OK per continuare\noppure Cancel per terminare.')
NO_ANSWER = ("Errore di comunicazione!\nVerificare se i cavi sono connessi\n"
             "oppure se lo strumento e' acceso!\nPremere OK per continuare.")


def setUpModule():
    WindowTest.desktop = unittest.enterModuleContext(driver.Desktop('1366x768'))


class WindowTest(unittest.TestCase):
    desktop = None  # shared: the accessibility library can use one bus per process

    def setUp(self):
        self.desktop.move_to_new_home()
        self.started = []
        self.addCleanup(self.end_all)

    def end_all(self):
        for process in reversed(self.started):
            self.desktop.end(process)

    def start_instrument(self, *arguments):
        instrument = self.desktop.start_instrument(driver.INSTRUMENT, 1, *arguments)
        self.started.append(instrument)
        return instrument

    def start_program(self):
        self.program = self.desktop.start_program([driver.KORVINEL])
        self.started.append(self.program.process)
        return self.program

    def start_examination(self, program):
        program.type('Nome del file', 'prova')
        program.type('Nome del soggetto', "Niccolo' Rossi")
        program.press('Start')
        program.expect('the first trace', lambda: program.printed('Tracciato 1'), ['Aspetta 4 secondi..'])

    def wait_for_block(self, program, number):
        driver.wait(lambda: program.value('Blocco iniziale') >= number, 20, 'block %d' % number)

    def processor_share_of_two_turns(self, program):
        """Does not query the program meanwhile: that would cost more than its own work."""
        seconds = 6
        before = program.processor_seconds()
        time.sleep(seconds)
        return (program.processor_seconds() - before) / seconds

    def pixels_of(self, program, surface):
        return self.desktop.pixels(program.extents(surface))


class LiveSlice(WindowTest):
    def test_from_typed_names_to_the_end_of_the_program(self):
        self.start_instrument('--model', 'eyes-closed', '--seed', '1')
        program = self.start_program()
        self.assertEqual(program.find('Korvinel - EEG Analysis 4 channels  V 8.1  ita').get_role_name(), 'frame')
        self.assertEqual(program.printed('Messaggi'), [' Eseguire questo programma in grafica 1024x768'])
        self.assertTrue(program.has_state('Nome del file', 'FOCUSED'))
        self.desktop.screenshot('1-start')

        self.start_examination(program)
        self.wait_for_block(program, 1)
        self.assertTrue(program.label('Data').startswith('Data ='))
        self.assertEqual(program.label('Stato della registrazione'), 'Registrazione disattiva')
        share = self.processor_share_of_two_turns(program)
        self.assertLess(share, 0.03, 'of one processor core while acquiring')
        self.wait_for_block(program, 3)
        for trace in ('Tracciato 1', 'Tracciato 2'):
            pixels = self.pixels_of(program, trace)
            self.assertIn(LIGHT_GREEN, pixels)
            self.assertIn(BLUE, pixels)
        self.desktop.screenshot('2-acquisition')

        program.press('Stop')
        self.assertEqual(program.answer('OK'), ('Korvinel', DURATION_NOTICE))
        self.assertEqual(program.printed('Tracciato 1'), ['Fine della registrazione!'])
        self.assertEqual(program.label('Stato della registrazione'), 'Registrazione Disattiva')
        seconds = 3 * (int(program.value('Blocco iniziale')) + 1)  # the last turn has counted its block
        self.assertEqual(program.label('Blocco e durata totale'), 'Totale= %ds' % seconds)
        self.desktop.screenshot('3-stopped')
        program.press('End')
        self.assertEqual(program.wait_for_end(), 0)

    def test_missing_names_are_asked_for(self):
        program = self.start_program()
        program.press('Start')
        self.assertEqual(program.answer('OK'), ('Korvinel', 'Scrivere nome del file!'))
        program.type('Nome del file', 'prova')
        program.press('Start')
        self.assertEqual(program.answer('OK'), ('Korvinel', 'Scrivere nome del soggetto!'))
        driver.wait(lambda: program.has_state('Nome del soggetto', 'FOCUSED'), what='the keyboard')
        driver.keys('N', 'i', 'c', 'o', 'comma', 'grave', 'e')
        program.expect('what can be typed', lambda: program.text('Nome del soggetto'), 'Nico`e')
        program.press('End')
        self.assertEqual(program.wait_for_end(), 0)

    def test_boxes_take_only_what_the_files_can_hold(self):
        program = self.start_program()
        program.type('Nome del file', 'a"b,c/d\\e:f')
        self.assertEqual(program.text('Nome del file'), 'abcdef')
        program.type('Nome del soggetto', 'Ni\u010d, "e" D\u2019Al\u00ec/1')
        self.assertEqual(program.text('Nome del soggetto'), 'Ni\u010d e D\u2019Al\u00ec/1')
        program.press('Start')
        _, told = program.answer('OK')
        self.assertIn('Il file non pu\u00f2 contenere queste lettere del nome del soggetto:\n\u010d', told)
        self.desktop.screenshot('4-cleaned')

    def test_scales_say_their_values(self):
        program = self.start_program()
        program.move('Scala in microvolt', 80)
        # The descriptions of two labels are the scales' names.
        program.expect('the amplitude label', lambda: [each.get_name() for each in program.walk()].count(
            'EEG microvolts80'), 1)
        program.move("Velocita' del display", 12)
        program.expect('the speed label', lambda: [each.get_name() for each in program.walk()].count(
            " Velocita' display=12"), 1)

    def test_threshold_is_asked_for_at_its_place_on_the_screen(self):
        program = self.start_program()
        program.press('Artefatti')
        box = driver.wait(program.boxes, what='the input box')[-1]
        place = program.atspi.Component.get_extents(box, program.atspi.CoordType.SCREEN)
        self.assertLess(abs(place.x - 200 / 1440 * 96), 60)  # except for the window manager's frame
        self.assertLess(abs(place.y - 400 / 1440 * 96), 60)
        self.desktop.screenshot('5-threshold')
        driver.keys('9', '5', 'Return')
        driver.wait(lambda: not program.boxes(), what='the input box to close')
        program.press('Artefatti')
        self.assertIn('valore attuale= 95', program.answer('Cancel')[1])

    def test_a_fault_ends_its_operation_only_and_is_told(self):
        program = self.start_program()
        program.press('Artefatti')
        driver.wait(program.boxes, what='the input box')
        driver.keys('4', '0', '0', '0', '0', 'Return')
        driver.wait(lambda: program.label('Stato della registrazione').startswith('Operazione interrotta: '),
                    what='the fault in the status label')
        program.press('Artefatti')
        self.assertIn('valore attuale= 130', program.answer('Cancel')[1])

    def test_a_missing_file_under_the_root_is_named_and_nothing_starts(self):
        os.makedirs(os.path.join(self.desktop.data, 'drive_c/QUARVEL5'))
        program = self.start_program()
        driver.wait(program.boxes, what='the box')
        self.desktop.screenshot('6-missing-file')
        title, text = program.answer('OK')
        self.assertEqual(title, 'Korvinel')
        self.assertIn("Korvinel non può partire.", text)
        self.assertIn('C:\\QUARVEL5\\Instal8s.val', text)
        self.assertEqual(program.wait_for_end(), 1)


class CommunicationErrors(WindowTest):
    def test_cancel_ends_the_program_when_no_instrument_is_there(self):
        program = self.start_program()
        self.start_examination_without_port(program)
        driver.wait(program.boxes, what='the error box')
        self.desktop.screenshot('7-no-instrument')
        self.assertEqual(program.answer('Cancel'), ('Error!', NO_ANSWER))
        self.assertEqual(program.wait_for_end(), 0)

    def start_examination_without_port(self, program):
        program.type('Nome del file', 'prova')
        program.type('Nome del soggetto', 'Rossi')
        program.press('Start')

    def test_an_instrument_that_is_pulled_out_comes_back_after_ok(self):
        self.start_instrument('--fault', 'hang-up-after=2', '--replug', '1')
        program = self.start_program()
        self.start_examination(program)
        self.wait_for_block(program, 1)
        self.assertEqual(program.answer('OK', 15), ('Error!', SILENT_STREAM))
        self.wait_for_block(program, 2)
        self.desktop.screenshot('8-plugged-in-again')
        program.press('End')
        self.assertEqual(program.wait_for_end(), 0)


class Ending(WindowTest):
    def test_end_during_the_handshake_ends_the_program_at_once(self):
        self.start_instrument()
        program = self.start_program()
        self.start_examination(program)
        program.press('End')
        self.assertEqual(program.wait_for_end(2), 0)

    def test_closing_the_window_while_acquiring_waits_for_the_turn_and_shows_the_notice(self):
        self.start_instrument()
        program = self.start_program()
        self.start_examination(program)
        self.wait_for_block(program, 1)
        driver.keys('alt+F4')
        program.expect('the first trace', lambda: program.printed('Tracciato 1')[-1:], ['Attendere..'], 1)
        self.assertEqual(program.answer('OK'), ('Korvinel', DURATION_NOTICE))
        self.assertEqual(program.wait_for_end(), 0)

    def test_closing_an_idle_window_ends_the_program(self):
        program = self.start_program()
        driver.keys('alt+F4')
        self.assertEqual(program.wait_for_end(), 0)


if __name__ == '__main__':
    driver.run_tests()
