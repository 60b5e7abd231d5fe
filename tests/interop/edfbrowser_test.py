"""Exported EDF+ in EDFbrowser, in a virtual display; its window is left among the screenshots.

    /usr/bin/python3 edfbrowser_test.py BUILD_FOLDER

Debian packages: edfbrowser, and those of the window tests
"""
import os
import subprocess
import sys
import unittest

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, os.path.join(HERE, '../window'))
import driver

RECORDING = os.path.join(HERE, '../data/golden/examination.QVD')


class ExportedRecording(unittest.TestCase):
    def test_opens_without_a_complaint(self):
        desktop = self.enterContext(driver.Desktop('1366x768'))
        edf = os.path.join(desktop.home, 'examination.edf')
        tool = os.path.join(os.path.dirname(driver.KORVINEL), 'tools/recording/korvinel-recording')
        subprocess.run([tool, 'export', RECORDING, '-o', edf], check=True)
        desktop.start(['edfbrowser', edf])

        def titles():
            found = subprocess.run(['xdotool', 'search', '--onlyvisible', '--name', '.'], capture_output=True, text=True, check=False)
            names = [subprocess.run(['xdotool', 'getwindowname', each], capture_output=True, text=True, check=False).stdout.strip()
                     for each in found.stdout.split()]
            return [name for name in names if name]

        driver.wait(titles, 30, 'a window')
        try:
            driver.wait(lambda: any('examination.edf' in name for name in titles()), 20, 'the opened file')
        finally:
            subprocess.run(['sleep', '3'], check=True)  # what it has to complain about comes up at once
            desktop.screenshot('edfbrowser')
        self.assertFalse([name for name in titles() if 'rror' in name or 'arning' in name])


if __name__ == '__main__':
    driver.run_tests()
