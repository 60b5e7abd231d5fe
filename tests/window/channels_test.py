"""Each channel stays in its place: the real program records a different tone on each channel, with the bytes timed as
on a real cable, through rejected blocks, "Registra", a time-out with OK and a program stopped for 20 seconds.

    /usr/bin/python3 channels_test.py BUILD_FOLDER
"""
import math
import os
import signal
import sys
import time
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import driver
import recording_file

CYCLES = (12, 20, 28, 40)  # of channels 1..4 in a block: 6, 10, 14 and 20 Hz
FRAMES = 512  # of the raw file, 4 seconds: whole cycles, and one artefact at its end
SILENT_STREAM = ("Errore di comunicazione!\nVerificare se lo strumento e' acceso\n"
                 'Premere OK per continuare\noppure Cancel per terminare.')
RESTARTED = 'Allineamento dei canali incerto: flusso riavviato'


def raw_tones():
    frames = bytearray()
    for number in range(FRAMES):
        frame = [round(128 + 30 * math.sin(2 * math.pi * cycles * number / 256)) for cycles in CYCLES]
        if number >= FRAMES - 4:
            frame[1] = 255
        frames += bytes(frame)
    return bytes(frames)


def places(block):
    """(1, 2, 3, 4) if every channel has its own tone and no other; 0 for a mixture."""
    found = []
    for samples in block:
        lines = recording_file.transform([sample - 128 for sample in samples])
        powers = [abs(lines[cycles]) ** 2 for cycles in CYCLES]
        found.append(next((tone + 1 for tone in range(4) if powers[tone] > 0.95 * sum(powers)), 0))
    return tuple(found)


class ChannelsTest(unittest.TestCase):
    def setUp(self):
        self.desktop = self.enterContext(driver.Desktop('1366x768'))
        raw = os.path.join(self.desktop.folder, 'tones.raw')
        with open(raw, 'wb') as file:
            file.write(raw_tones())
        self.log = os.path.join(self.desktop.folder, 'instrument.log')
        self.desktop.start_instrument(driver.INSTRUMENT, 1, '--play', raw, '--chunk', '14', '--latency', '4',
                                      '--fault', 'silent-after=4', '--log', self.log)
        self.program = self.desktop.start_program([driver.KORVINEL])

    def reject_beyond(self, threshold):
        program = self.program
        program.press('Artefatti')
        box = driver.wait(program.boxes, what='the box of the threshold')[-1]
        line = next(each for each in program.walk(box) if 'EditableText' in each.get_interfaces())
        program.atspi.EditableText.set_text_contents(line, threshold)
        program.answer('OK')

    def wait_for_blocks(self, count):
        target = self.program.value('Blocco iniziale') + count
        driver.wait(lambda: self.program.value('Blocco iniziale') >= target, 40, 'block %d' % target)

    def starts(self):
        with open(self.log, encoding='ascii') as file:
            return file.read().count('received start')

    def test_every_recorded_block_holds_each_channel_in_its_place(self):
        program = self.program
        program.type('Nome del file', 'canali')
        program.type('Nome del soggetto', 'Rossi')
        self.reject_beyond('70')
        program.press('Start')
        driver.wait(lambda: self.starts() >= 1, 20, 'the stream')
        program.press('Registra')
        self.assertEqual(program.answer('OK', 30), ('Error!', SILENT_STREAM))
        self.wait_for_blocks(1)

        os.kill(program.process.pid, signal.SIGSTOP)
        time.sleep(20)
        os.kill(program.process.pid, signal.SIGCONT)
        driver.wait(lambda: program.label('Stato della registrazione') == RESTARTED, 10, 'the restart')
        self.wait_for_blocks(2)
        program.press('Stop')
        program.answer('OK', 20)
        program.press('End')
        self.assertEqual(program.wait_for_end(), 0)

        recording = recording_file.Recording(os.path.join(self.desktop.data, 'drive_c/QUARVEL5/DATAFILE/canali.QVD'))
        self.assertGreaterEqual(len(recording.blocks), 4)
        self.assertEqual([places(block) for block in recording.blocks], [(1, 2, 3, 4)] * len(recording.blocks))
        # One each for Start, "Registra", the time-out and the standstill, and one for each block with an artefact.
        self.assertGreater(self.starts(), 4)


if __name__ == '__main__':
    driver.run_tests()
