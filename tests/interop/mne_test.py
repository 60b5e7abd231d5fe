"""Reads an exported EDF+ file with MNE-Python: header, annotations, and signals sample by sample.

    /usr/bin/python3 mne_test.py BUILD_FOLDER

Debian package: python3-mne
"""
import datetime
import os
import subprocess
import sys
import tempfile
import unittest

import mne
import numpy

HERE = os.path.dirname(os.path.abspath(__file__))
RECORDING = os.path.join(HERE, '../data/golden/examination.QVD')
BLOCKS, BLOCK_BYTES = 40, 1036
NOTES = [(3, 'inizio'), (11, 'occhi aperti'), (11, 'seconda nota'), (29, 'rilassamento'), (40, 'fine')]
TOOL = ''


def recorded_microvolts():
    """[channel][sample], directly from the bytes of the recording."""
    with open(RECORDING, 'rb') as file:
        raw = numpy.frombuffer(file.read()[-BLOCKS * BLOCK_BYTES:], dtype=numpy.uint8)
    records = raw.reshape(BLOCKS, 4, 259)[:, :, :256].astype(int) - 128
    return records.transpose(1, 0, 2).reshape(4, -1)


class ExportedRecording(unittest.TestCase):
    def setUp(self):
        folder = self.enterContext(tempfile.TemporaryDirectory())
        self.edf = os.path.join(folder, 'examination.edf')
        subprocess.run([TOOL, 'export', RECORDING, '-o', self.edf], check=True)
        self.raw = mne.io.read_raw_edf(self.edf, preload=True, verbose='error')

    def test_every_sample_is_the_recorded_one(self):
        found = self.raw.get_data() * 1e6
        self.assertEqual(found.shape, (4, BLOCKS * 256))
        worst = numpy.abs(found - recorded_microvolts()).max()
        print('samples compared: %d, largest difference: %g microvolts' % (found.size, worst))
        self.assertLess(worst, 1e-6)

    def test_channels_rate_and_header(self):
        self.assertEqual(self.raw.ch_names, ['EEG F1', 'EEG F2', 'EEG T5', 'EEG T6'])
        self.assertEqual(self.raw.info['sfreq'], 128)
        self.assertEqual(self.raw.info['meas_date'], datetime.datetime(2026, 11, 21, tzinfo=datetime.timezone.utc))

    def test_annotations_are_the_blocks_times_and_the_notes(self):
        found = sorted((round(each['onset'], 4), str(each['description'])) for each in self.raw.annotations)
        expected = [(2.0 * block, 'block %d at %d s' % (block + 1, 3 * block)) for block in range(BLOCKS)]
        expected += [(2.0 * (block - 1), text) for block, text in NOTES]
        self.assertEqual(found, sorted(expected))


if __name__ == '__main__':
    TOOL = os.path.abspath(os.path.join(sys.argv.pop(1), 'tools/recording_tool/korvinel-recording'))
    outcome = unittest.main(verbosity=2, exit=False, warnings='ignore').result
    failed = len(outcome.failures) + len(outcome.errors)
    print('%d passed, %d failed' % (outcome.testsRun - failed, failed))
    sys.exit(failed > 0)
