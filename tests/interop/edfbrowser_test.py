"""Opens an exported EDF+ file in EDFbrowser, in a virtual display, and keeps a screenshot.

    /usr/bin/python3 edfbrowser_test.py BUILD_FOLDER

Debian packages: edfbrowser and those of the window tests
"""
import os
import subprocess
import sys
import time
import unittest

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, os.path.join(HERE, '../window'))
import driver

RECORDING = os.path.join(HERE, '../data/golden/examination.QVD')


class ExportedRecording(unittest.TestCase):
    def test_opens_without_a_complaint(self):
        desktop = self.enterContext(driver.Desktop('1366x768'))
        edf = os.path.join(desktop.home, 'examination.edf')
        tool = os.path.join(os.path.dirname(driver.KORVINEL), 'tools/recording_tool/korvinel-recording')
        subprocess.run([tool, 'export', RECORDING, '-o', edf], check=True)
        browser = desktop.start_program(['edfbrowser', edf])
        # EDFbrowser does not offer a file with errors for display.
        browser.press('Select All')
        browser.press('Add signal(s)')
        driver.wait(lambda: not browser.boxes(), 20, 'the signals')
        time.sleep(2)  # it draws when idle
        desktop.screenshot('edfbrowser')
        self.assertTrue(any('examination.edf' in (each.get_name() or '') for each in browser.walk()))


if __name__ == '__main__':
    driver.run_tests()
