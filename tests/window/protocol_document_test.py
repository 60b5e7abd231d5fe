"""docs/instrument-protocol.md is enough to write an instrument: its sample instrument is connected to the real program.

    /usr/bin/python3 protocol_document_test.py BUILD_FOLDER
"""
import os
import re
import subprocess
import sys
import unittest

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, HERE)
import driver


def instrument_of_document():
    with open(os.path.join(HERE, '../../docs/instrument-protocol.md'), encoding='utf-8') as file:
        return re.search(r'```python\n(.*?)```', file.read(), re.S).group(1)


class ProtocolDocumentTest(unittest.TestCase):
    def test_the_instrument_of_the_document_is_understood(self):
        desktop = self.enterContext(driver.Desktop('1366x768'))
        instrument = desktop.start([sys.executable, '-c', instrument_of_document()], stdout=subprocess.PIPE)
        device = instrument.stdout.readline().decode().strip()
        ports = os.path.join(desktop.data, 'ports')
        os.makedirs(ports)
        os.symlink(device, os.path.join(ports, 'COM1'))
        program = desktop.start_program([driver.KORVINEL])
        program.type('Nome del file', 'documento')
        program.type('Nome del soggetto', 'Rossi Anna')
        program.press('Start')
        driver.wait(lambda: program.value('Blocco iniziale') >= 2, 30, 'the second block')
        program.press('Stop')
        program.answer('OK', 20)
        self.assert_alpha(program, 'Valori numerici 1')
        program.press('End')
        program.wait_for_end()

    def assert_alpha(self, program, panel):
        """The document's sine, 40 microvolts from peak to peak, stands out in its band."""
        lines = dict(line.split('=') for line in program.printed(panel) if '=' in line)
        alpha = float(lines['Alfa'].removesuffix('uV'))
        self.assertGreater(alpha, 30)
        self.assertLess(alpha, 50)
        for band in ('Delta', 'Beta'):
            self.assertLess(float(lines[band].removesuffix('uV')), alpha / 3)


driver.run_tests()
