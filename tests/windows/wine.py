"""Drives the program under wine in a virtual display, in a private wine prefix. wine does not support the accessibility
bus, so the windows are operated by mouse and keyboard, at the positions in their layouts.
"""
import os
import re
import subprocess
import sys
import time

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, os.path.join(HERE, '../window'))
import driver

SOURCE = os.path.join(HERE, '../../src')
TITLE = 'Korvinel - EEG Analysis 4 channels  V 8.1  ita'
BUTTONS = ('Start', 'Stop', 'Registra', 'Annota', 'Canali', 'Artefatti', 'Apri File', 'Display', 'Analisi', 'Stampa', 'End')


class Windows:
    """with Windows(FOLDER, PORT): a fresh wine prefix in FOLDER, with COM5 at the device PORT. COM1 is not touched: under
    wine it may be the machine's console."""

    def __init__(self, folder, port):
        self.folder, self.port = folder, port
        self.drive = os.path.join(folder, 'drive_c')

    def __enter__(self):
        os.environ['WINEPREFIX'] = self.folder
        self._do('start_windows "%s"' % self.port)
        return self

    def __exit__(self, *_):
        self._do('end_windows')

    @staticmethod
    def _do(what):
        subprocess.run(['bash', '-c', '. "%s/prefix.sh"; %s' % (HERE, what)], check=True, timeout=200)


def plan(header):
    """The rectangles of a window's layout: name -> (x, y, width, height)."""
    with open(os.path.join(SOURCE, header), encoding='utf-8') as file:
        text = file.read()
    rects = re.findall(r'Rect (\w+)\{(\w+), (\d+), (\d+), (\d+)\}', text)
    return {name: tuple(map(int, rest)) for name, *rest in rects if rest[0].isdigit()}


class WineProgram:
    """The program under wine, operated through its windows on the X server."""

    def __init__(self, desktop, path):
        self.process = desktop.start(['wine', path])
        self.main = self.window(TITLE, 60)
        driver.wait(self.has_keyboard, 15, 'the keyboard')
        rects = plan('display/window_geometry.h')
        x, y, width, height = rects['buttonRow']
        each = (width + 8) // len(BUTTONS) - 8
        for i, name in enumerate(BUTTONS):
            rects[name] = (x + i * (each + 8), y, each, height)
        self.rects = rects

    @staticmethod
    def windows(title):
        found = subprocess.run(['xdotool', 'search', '--onlyvisible', '--name', '^' + re.escape(title) + '$'],
                               capture_output=True, check=False).stdout.split()
        return [int(window) for window in found]

    def window(self, title, timeout=15):
        return driver.wait(lambda: self.windows(title), timeout, 'the window ' + title)[-1]

    def gone(self, title, timeout=15):
        driver.wait(lambda: not self.windows(title), timeout, 'the end of the window ' + title)

    def click(self, name, window=None, rects=None, size=(1024, 730)):
        """Clicks the middle of a rectangle of the layout, which is made for a client area of this size."""
        window = window or self.main
        shell = subprocess.run(['xdotool', 'getwindowgeometry', '--shell', str(window)], capture_output=True, check=True)
        true = dict(line.split('=') for line in shell.stdout.decode().split())
        x, y, width, height = (rects or self.rects)[name]
        driver.mouse('mousemove', '--window', window, round((x + width / 2) * int(true['WIDTH']) / size[0]),
                     round((y + height / 2) * int(true['HEIGHT']) / size[1]))
        driver.mouse('click', 1)

    def has_keyboard(self):
        active = subprocess.run(['xdotool', 'getactivewindow'], capture_output=True, check=False).stdout.strip()
        return active == str(self.main).encode()

    def type(self, text):
        time.sleep(0.5)  # wine moves the keyboard focus with a delay that cannot be observed
        driver.mouse('type', '--delay', '50', text)

    def answer(self, title):
        """Waits for the box with this title and presses its default button."""
        self.window(title)
        time.sleep(0.5)
        driver.keys('Return')
        self.gone(title)

    def end(self):
        self.click('End')
        return self.process.wait(20)
