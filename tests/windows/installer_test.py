"""The installer and the uninstaller, under wine in a virtual display.

    /usr/bin/python3 installer_test.py FOLDER

FOLDER holds korvinel-VERSION-setup.exe.
"""
import glob
import os
import shutil
import subprocess
import sys
import time
import unittest

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, HERE)
from wine import Windows, WineProgram, driver

FOLDER = os.path.abspath(sys.argv.pop(1))
SETUP, = glob.glob(os.path.join(FOLDER, 'korvinel-*-setup.exe'))
DEFAULTS = os.path.join(HERE, '../../packaging/windows/installer/defaults')
REGISTRY = r'HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall\Korvinel'


def content(*path):
    with open(os.path.join(*path), 'rb') as file:
        return file.read()


def silently(program):
    """Runs it silently; returns its exit code. Without "_?=" the uninstaller would copy itself and exit at once. The
    folder has no blank, because wine would quote it."""
    where = '_?=C:\\Korvinel' if program.endswith('disinstalla.exe') else '/D=C:\\Korvinel'
    return subprocess.run(['wine', program, '/S', where], timeout=120, check=False, stdout=subprocess.DEVNULL,
                          stderr=subprocess.DEVNULL).returncode


def registered():
    return subprocess.run(['wine', 'reg', 'query', REGISTRY], check=False, stdout=subprocess.DEVNULL,
                          stderr=subprocess.DEVNULL, timeout=60).returncode == 0


class Installer(unittest.TestCase):
    def setUp(self):
        self.desktop = self.enterContext(driver.Desktop('1366x1000'))
        windows = self.enterContext(Windows(os.path.join(FOLDER, 'wine'), os.path.join(FOLDER, 'no-instrument')))
        self.drive = windows.drive
        self.root = os.path.join(self.drive, 'QUARVEL5')
        self.program = os.path.join(self.drive, 'Korvinel')
        self.uninstaller = os.path.join(self.program, 'disinstalla.exe')

    def shortcuts(self):
        found = glob.glob(os.path.join(self.drive, 'ProgramData/Microsoft/Windows/Start Menu/Programs/Korvinel/*'))
        return sorted(os.path.basename(path) for path in found)

    def use_the_tool(self):
        recording = os.path.join(self.root, 'DATAFILE/esame.QVD')
        shutil.copy(os.path.join(HERE, '../data/golden/examination.QVD'), recording)
        tool = ['wine', os.path.join(self.program, 'korvinel-recording.exe')]
        for command in (['check', 'esame.QVD'], ['report', 'esame.QVD', '-o', 'esame.pdf'],
                        ['export', 'esame.QVD', '-o', 'esame.edf'], ['import', 'esame.edf', '-o', 'b.QVD']):
            self.assertEqual(subprocess.run(tool + command, cwd=os.path.dirname(recording), check=False, timeout=60,
                                            stderr=subprocess.DEVNULL).returncode, 0)
        names = ('esame.QVD', 'esame.pdf', 'esame.edf', 'b.QVD')
        self.assertEqual(sorted(os.listdir(os.path.dirname(recording))), sorted(names))
        self.assertTrue(content(self.root, 'DATAFILE/esame.pdf').startswith(b'%PDF'))
        for name in names:
            os.remove(os.path.join(self.root, 'DATAFILE', name))

    def test_installs_the_program_that_starts_and_removes_it_again(self):
        self.assertEqual(silently(SETUP), 0)
        for name in ('korvinel.exe', 'Qt6Core.dll', 'platforms/qwindows.dll', 'korvinel-recording.exe', 'libsoxr.dll',
                     'licenze/LGPL-3.0-only.txt', 'licenze/LGPL-2.1.txt', 'licenze/soxr.txt', 'licenze/EDFlib.txt'):
            self.assertTrue(os.path.exists(os.path.join(self.program, name)), name)
        self.assertIn(b'Korvinel', content(self.program, 'manuale/manuale.html'))
        self.assertTrue(content(self.program, 'manuale/manuale.pdf').startswith(b'%PDF'))
        self.assertTrue(registered())
        shortcuts = self.shortcuts()
        for name in ('Disinstalla Korvinel', 'Korvinel', 'Manuale', 'Porta seriale', 'Registrazioni', 'Riga di comando'):
            self.assertIn(name + '.lnk', shortcuts)
        for name in ('Instal8s.val', 'Factors.val'):
            self.assertEqual(content(self.root, name), content(DEFAULTS, name))
        self.assertEqual(os.listdir(os.path.join(self.root, 'DATAFILE')), [])

        self.use_the_tool()
        program = WineProgram(self.desktop, os.path.join(self.program, 'korvinel.exe'))
        self.assertEqual(silently(self.uninstaller), 3, 'while the program runs')
        self.assertEqual(silently(SETUP), 3, 'while the program runs')
        self.assertEqual(program.end(), 0)

        self.assertEqual(silently(self.uninstaller), 0)
        left = [os.path.join(folder, name) for folder, _, names in os.walk(self.program) for name in names]
        self.assertEqual([os.path.basename(path) for path in left if not path.endswith('disinstalla.exe')], [])
        self.assertEqual(self.shortcuts(), [])
        self.assertFalse(registered())

    def test_keeps_what_is_in_the_data_folder(self):
        mine = {'Instal8s.val': b'"Korvinel","Ita",7,0,0,0,0\r\n"",""\r\n', 'Factors.val': b'2\r\n' * 64,
                'DATAFILE/mia.QVD': b'a recording', 'appunti.txt': b'notes'}
        os.makedirs(os.path.join(self.root, 'DATAFILE'))
        for name, bytes_ in mine.items():
            with open(os.path.join(self.root, name), 'wb') as file:
                file.write(bytes_)
        self.assertEqual(silently(SETUP), 0)
        self.assertEqual(silently(SETUP), 0, 'over itself')
        self.assertEqual({name: content(self.root, name) for name in mine}, mine)
        strange = os.path.join(self.program, 'not ours.txt')
        with open(strange, 'wb') as file:
            file.write(b'x')
        self.assertEqual(silently(self.uninstaller), 0)
        self.assertEqual({name: content(self.root, name) for name in mine}, mine)
        self.assertTrue(os.path.exists(strange))
        self.assertFalse(os.path.exists(os.path.join(self.program, 'korvinel.exe')))

    def test_its_pages_lead_to_the_installed_program(self):
        setup = self.desktop.start(['wine', SETUP])
        title = 'Installazione di Korvinel'
        find = lambda: subprocess.run(['xdotool', 'search', '--onlyvisible', '--name', title], check=False,
                                      capture_output=True).stdout.split()
        driver.wait(find, 60, 'the installer')
        time.sleep(1)
        for page in ('1-welcome', '2-licence', '3-folder'):
            self.desktop.screenshot('installer-' + page)
            driver.keys('Return')
            time.sleep(1.5)
        program = os.path.join(self.drive, 'Program Files/Korvinel')
        driver.wait(lambda: os.path.exists(os.path.join(program, 'disinstalla.exe')), 60, 'the installed files')
        time.sleep(4)
        self.desktop.screenshot('installer-4-finish')
        driver.keys('Return')
        self.assertEqual(setup.wait(30), 0)
        self.assertTrue(os.path.exists(os.path.join(program, 'korvinel.exe')))
        self.assertEqual(sorted(os.listdir(self.root)), ['DATAFILE', 'Factors.val', 'Instal8s.val'])
        self.show_the_command_line()

    def show_the_command_line(self):
        shortcut = r'C:\ProgramData\Microsoft\Windows\Start Menu\Programs\Korvinel\Riga di comando.lnk'
        self.desktop.start(['wine', 'start', shortcut])
        find = lambda: subprocess.run(['xdotool', 'search', '--onlyvisible', '--name', 'cmd'], check=False,
                                      capture_output=True).stdout.split()
        driver.wait(find, 30, 'the terminal')
        time.sleep(3)
        self.desktop.screenshot('installer-5-command-line')


result = unittest.main(verbosity=2, exit=False, warnings='ignore').result
failed = len(result.failures) + len(result.errors)
print('%d passed, %d failed' % (result.testsRun - failed, failed))
sys.exit(failed > 0)
