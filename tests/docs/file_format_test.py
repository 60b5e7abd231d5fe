"""docs/file-format.md is enough to read a recording: its sample reader is run on recordings with known content.

    /usr/bin/python3 file_format_test.py
"""
import json
import os
import re
import sys
import tempfile
import unittest

SOURCE = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
GOLDEN = os.path.join(SOURCE, 'tests/data/golden')


def document(name):
    with open(os.path.join(SOURCE, 'docs', name), encoding='utf-8') as file:
        return file.read()


def reader_of_document():
    names = {}
    exec(re.search(r'```python\n(.*?)```', document('file-format.md'), re.S).group(1), names)
    return names['read_recording']


def golden(name):
    with open(os.path.join(GOLDEN, name), encoding='utf-8') as file:
        return json.load(file)


class FileFormatTest(unittest.TestCase):
    def setUp(self):
        self.read = reader_of_document()
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)

    def recording(self, content):
        path = os.path.join(self.folder.name, 'recording.QVD')
        with open(path, 'wb') as file:
            file.write(content)
        return path

    def samples(self, first=128):
        return [[(first + i + 50 * channel) % 200 + 28 for i in range(256)] for channel in range(4)]

    def v3(self, block):
        return b''.join(bytes(channel) + b'-\r\n' for channel in block)

    def test_reads_every_sample_of_a_recording(self):
        subject, date, tag, notes, blocks = self.read(os.path.join(GOLDEN, 'eeg.QVD'))
        self.assertEqual((subject, date, tag, notes), ('Rossi', '21/11/2026', 'V3', [(1, 'Nota: ')]))
        self.assertEqual(blocks, golden('eeg.json')['expected']['recorded'])

    def test_reads_the_notes_as_the_program_does(self):
        expected = golden('examination.opened.json')
        subject, _, tag, notes, blocks = self.read(os.path.join(GOLDEN, 'examination.QVD'))
        self.assertEqual((subject, tag), (expected['subject'], expected['fileVersionTag']))
        self.assertEqual(notes, [tuple(note) for note in expected['notes']])
        self.assertEqual(len(blocks) - 1, expected['fileBlockCount'])  # the program counts one block less

    def test_reads_the_second_version(self):
        block = self.samples()
        numbers = ['%d.5' % sample for channel in block for sample in channel]
        text = ''.join(number + (',' if i % 7 else '\r\n') for i, number in enumerate(numbers))
        path = self.recording(b'"Nicol\xf2","01/02/2003 V4","4canali",0\r\n' + text.encode())
        subject, _, tag, notes, blocks = self.read(path)
        self.assertEqual((subject, tag, notes), ('Nicol\u00f2', 'V4', []))
        self.assertEqual(blocks, [[[sample + 0.5 for sample in channel] for channel in block]])

    def test_leaves_a_block_out_that_the_end_cuts_short(self):
        content = b'"R","01/02/2003 V3","4canali",1\r\n1,"Nota: "\r\n' + self.v3(self.samples()) * 2
        self.assertEqual(len(self.read(self.recording(content[:-1]))[4]), 1)

    def test_the_example_is_read_as_it_says(self):
        example = re.search(r'## An example\n(.*?)\n## ', document('file-format.md'), re.S).group(1)
        rows = re.findall(r'^    ((?:[0-9A-F]{2} )+)', example, re.M)
        content = bytes.fromhex(''.join(rows))
        header = content[:55]
        self.assertEqual(content[55:58], bytes((128, 130, 127)))
        block = self.samples()
        subject, date, tag, notes, blocks = self.read(self.recording(header + self.v3(block)))
        self.assertEqual((subject, date, tag, notes), ('Rossi', '21/11/2026', 'V3', [(2, 'occhi aperti')]))
        self.assertEqual(blocks, [block])


if __name__ == '__main__':
    result = unittest.main(verbosity=1, exit=False).result
    failed = len(result.failures) + len(result.errors)
    print('%d passed, %d failed' % (result.testsRun - failed - len(result.skipped), failed))
    sys.exit(failed > 0)
