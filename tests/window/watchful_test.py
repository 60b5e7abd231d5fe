"""What watches over an examination in the real window: the icon, the desktop kept awake, the sounds' switch.

    /usr/bin/python3 watchful_test.py BUILD_FOLDER
"""
import os
import subprocess
import sys
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import driver

# A desktop and a login manager on one bus, which write down what they are asked.
KEEPER = '''
import os, sys
import gi
from gi.repository import Gio, GLib

INTERFACES = """<node>
<interface name="org.freedesktop.ScreenSaver">
<method name="Inhibit"><arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="u" direction="out"/></method>
<method name="UnInhibit"><arg type="u" direction="in"/></method>
</interface>
<interface name="org.freedesktop.login1.Manager">
<method name="Inhibit"><arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="s" direction="in"/>
<arg type="s" direction="in"/><arg type="h" direction="out"/></method>
</interface>
</node>"""
cookie = 40

def answer(connection, sender, path, interface, method, words, invocation):
    global cookie
    print(interface.split('.')[2], method, *words.unpack(), flush=True)
    if interface.endswith('Manager'):
        reading, writing = os.pipe()
        files = Gio.UnixFDList.new()
        files.append(writing)
        os.close(writing)
        GLib.io_add_watch(reading, GLib.IO_HUP, lambda *_: print('login1 closed', flush=True))
        return invocation.return_value_with_unix_fd_list(GLib.Variant('(h)', (0,)), files)
    cookie += 1
    invocation.return_value(GLib.Variant('(u)', (cookie,)) if method == 'Inhibit' else None)

bus = Gio.bus_get_sync(Gio.BusType.SESSION)
described = Gio.DBusNodeInfo.new_for_xml(INTERFACES).interfaces
for path, interface in zip(('/org/freedesktop/ScreenSaver', '/org/freedesktop/login1'), described):
    bus.register_object(path, interface, answer)
for name in ('org.freedesktop.ScreenSaver', 'org.freedesktop.login1'):
    Gio.bus_own_name_on_connection(bus, name, 0, None, None)
GLib.timeout_add(100, lambda: print('ready', flush=True))
GLib.MainLoop().run()
'''


def setUpModule():
    Watchful.desktop = unittest.enterModuleContext(driver.Desktop('1366x768'))


class Watchful(unittest.TestCase):
    desktop = None

    def setUp(self):
        os.environ['DBUS_SYSTEM_BUS_ADDRESS'] = os.environ['DBUS_SESSION_BUS_ADDRESS']
        self.desktop.move_to_new_home()
        instrument = self.desktop.start_instrument(driver.INSTRUMENT, 1, '--model', 'eyes-closed', '--seed', '1')
        self.addCleanup(self.desktop.end, instrument)

    def start_program(self):
        program = self.desktop.start_program([driver.KORVINEL])
        self.addCleanup(self.desktop.end, program.process)
        return program

    def start_keeper(self):
        asked = os.path.join(self.desktop.home, 'asked')
        with open(asked, 'wb') as file:
            keeper = self.desktop.start(['/usr/bin/python3', '-c', KEEPER], stdout=file)
        self.addCleanup(self.desktop.end, keeper)
        driver.wait(lambda: 'ready' in self.lines(asked), what='the desktop that keeps awake')
        return lambda: self.lines(asked)[1:]

    def lines(self, path):
        with open(path, encoding='utf-8') as file:
            return file.read().splitlines()

    def begin(self, program, name):
        program.type('Nome del file', name)
        program.type('Nome del soggetto', 'Rossi Anna')
        program.press('Start')

    def icon(self):
        """The window's icon as the desktop has it."""
        found = subprocess.run(['xdotool', 'search', '--name', 'Korvinel - EEG'], capture_output=True, text=True, check=True)
        return subprocess.run(['xprop', '-id', found.stdout.split()[0], '_NET_WM_ICON'], capture_output=True, check=True).stdout

    def test_the_desktop_stays_awake_from_start_to_the_end(self):
        asked = self.start_keeper()
        program = self.start_program()
        self.assertEqual(asked(), [])
        self.begin(program, 'sveglio')
        both = ['ScreenSaver Inhibit Korvinel Esame EEG in corso',
                'login1 Inhibit sleep:idle Korvinel Esame EEG in corso block']
        program.expect('the requests', lambda: sorted(asked()), sorted(both))
        driver.wait(lambda: program.value('Blocco iniziale') >= 1, 20, 'the first block')
        self.assertEqual(len(asked()), 2)
        program.press('Stop')
        program.answer('OK', 15)
        program.expect('the release', lambda: sorted(asked()[2:]), ['ScreenSaver UnInhibit 41', 'login1 closed'])

    def test_the_icon_has_a_badge_while_it_records_and_the_caption_is_unchanged(self):
        program = self.start_program()
        usual = self.icon()
        self.begin(program, 'bollino')
        driver.wait(lambda: program.value('Blocco iniziale') >= 1, 20, 'the first block')
        self.assertEqual(self.icon(), usual)
        program.press('Registra')
        driver.wait(lambda: self.icon() != usual, what='the badge')
        self.desktop.screenshot('recording-badge')
        program.find('Korvinel - EEG Analysis 4 channels  V 8.1  ita')
        program.press('Stop')
        program.answer('OK', 15)
        driver.wait(lambda: self.icon() == usual, what='the usual icon')

    def test_the_sounds_are_switched_off_for_the_next_session_too(self):
        for checked in (True, False):
            program = self.start_program()
            self.assertEqual(program.has_state('Suoni', 'CHECKED'), checked)
            if checked:
                program.press('Suoni')
                driver.wait(lambda: not program.has_state('Suoni', 'CHECKED'), what='the change')
            program.press('End')
            program.wait_for_end()


if __name__ == '__main__':
    driver.run_tests()
