"""Drives the real program in a real window on a machine without a screen.

`Desktop` is a private X server, window manager, session bus and accessibility bus; `Program` reads and operates the
program's window through the accessibility bus (AT-SPI), as a screen reader does, and through the mouse and keyboard.
Every process started here is ended here.

Debian packages: xvfb openbox at-spi2-core dbus-daemon python3-gi gir1.2-atspi-2.0 xdotool imagemagick x11-utils
It needs Debian's own /usr/bin/python3, which has `gi`.

What Qt reports on the accessibility bus:
- a button or check box: its text as name, its role in the window as description;
- a label: its text as name, its role as description;
- a text box: its role as name, its content through Text and EditableText;
- a painted surface: its role as name, the texts printed on it as description, one per line;
- a message box: the role 'alert', its title as name, its texts as labels.
"""
import os
import shutil
import subprocess
import sys
import tempfile
import time
import unittest
import warnings

# The programs under test; set by run_tests().
KORVINEL = INSTRUMENT = ''

SCREENSHOTS = os.environ.get('KORVINEL_SCREENSHOTS', 'build/screenshots')

TOOLS = ('Xvfb', 'openbox', 'dbus-daemon', 'xdotool', 'xprop', 'import')

OPENBOX_SETTINGS = '''<?xml version="1.0" encoding="UTF-8"?>
<openbox_config xmlns="http://openbox.org/3.4/rc">%s</openbox_config>'''
TASK_BAR = '<margins><bottom>%d</bottom></margins>'
ALL_MAXIMISED = '<applications><application type="normal"><maximized>yes</maximized></application></applications>'


def wait(condition, timeout=10.0, what='condition'):
    """Polls the condition until it is true and returns its value."""
    end = time.monotonic() + timeout
    while True:
        try:
            value = condition()
        except Exception as error:
            if type(error).__name__ not in ('Error', 'GError'):
                raise
            value = None  # an object of the window has just disappeared
        if value:
            return value
        if time.monotonic() > end:
            raise TimeoutError('waited %.0f s for %s' % (timeout, what))
        time.sleep(0.05)


def end_process(process):
    """Ends it with SIGTERM, then by force."""
    if process.poll() is None:
        process.terminate()
        try:
            process.wait(5)
        except subprocess.TimeoutExpired:
            process.kill()
            process.wait()


class Desktop:
    """with Desktop() as desktop: a private screen, and an empty home for the programs started on it."""

    def __init__(self, screen='1366x768', maximised=False, task_bar=0):
        self.screen, self.maximised, self.task_bar, self.processes = screen, maximised, task_bar, []

    def __enter__(self):
        missing = [tool for tool in TOOLS if shutil.which(tool) is None]
        if missing:
            sys.exit('the window tests need: ' + ' '.join(missing))
        self.folder = tempfile.mkdtemp(prefix='korvinel-desktop-')
        try:
            self._start_all()
        except BaseException:
            self.__exit__()
            raise
        return self

    def _start_all(self):
        os.chmod(self.folder, 0o700)
        for name in ('AT_SPI_BUS_ADDRESS', 'QT_ACCESSIBILITY', 'WAYLAND_DISPLAY', 'DBUS_SESSION_BUS_ADDRESS',
                     'QT_SCALE_FACTOR', 'QT_STYLE_OVERRIDE', 'QT_QPA_PLATFORMTHEME'):
            os.environ.pop(name, None)
        os.environ.update(XDG_RUNTIME_DIR=self.folder, LANG='C.UTF-8', QT_LINUX_ACCESSIBILITY_ALWAYS_ON='1',
                          QT_QPA_PLATFORM='xcb', NO_AT_BRIDGE='0')
        self.move_to_new_home()
        self._start_screen()
        bus = self.start(['dbus-daemon', '--session', '--nofork', '--print-address=1'], stdout=subprocess.PIPE)
        os.environ['DBUS_SESSION_BUS_ADDRESS'] = bus.stdout.readline().decode().strip()
        self._start_window_manager()
        self.start(['/usr/libexec/at-spi-bus-launcher', '--launch-immediately'])

    def move_to_new_home(self):
        """Gives programs started from now on an empty home; `self.data` is the program's data folder in it."""
        self.home = tempfile.mkdtemp(prefix='home-', dir=self.folder)
        self.data = os.path.join(self.home, '.local/share/korvinel')
        os.environ.update(HOME=self.home, XDG_DATA_HOME=os.path.join(self.home, '.local/share'),
                          XDG_CONFIG_HOME=os.path.join(self.home, '.config'))

    def _start_screen(self):
        reading, writing = os.pipe()
        self.start(['Xvfb', '-displayfd', str(writing), '-screen', '0', self.screen + 'x24', '-nolisten', 'tcp',
                    '-noreset'], pass_fds=[writing])
        os.close(writing)
        with os.fdopen(reading, encoding='ascii') as answer:
            number = answer.readline().strip()
        if not number:
            raise RuntimeError('Xvfb did not start')
        os.environ['DISPLAY'] = ':' + number

    def _start_window_manager(self):
        settings = os.path.join(self.folder, 'openbox.xml')
        with open(settings, 'w', encoding='utf-8') as file:
            file.write(OPENBOX_SETTINGS % (TASK_BAR % self.task_bar + (ALL_MAXIMISED if self.maximised else '')))
        self.start(['openbox', '--config-file', settings])

        def managed():
            answer = subprocess.run(['xprop', '-root', '_NET_SUPPORTING_WM_CHECK'], capture_output=True, check=False)
            return b'window id' in answer.stdout

        wait(managed, what='the window manager')  # a window shown before it runs gets no frame

    def start(self, arguments, **options):
        # A test in the background ignores SIGINT, and under nohup SIGHUP; the programs it starts must not.
        arguments = ['env', '--default-signal=HUP,INT,TERM', *arguments]
        options.setdefault('stdout', subprocess.DEVNULL)
        options.setdefault('stderr', subprocess.DEVNULL)
        process = subprocess.Popen(arguments, **options)
        self.processes.append(process)
        return process

    def start_instrument(self, program, port=1, *arguments):
        """Starts the simulated instrument on this serial port; returns once it is ready."""
        link = os.path.join(self.data, 'ports', 'COM%d' % port)
        os.makedirs(os.path.dirname(link), exist_ok=True)
        process = self.start([program, '--link', link, *arguments], stdout=subprocess.PIPE)
        line = process.stdout.readline().decode()
        if 'ready on' not in line:
            raise RuntimeError('the instrument did not start: %r' % line)
        return process

    def start_program(self, arguments, timeout=30):
        return Program(self.start(arguments, stderr=None), timeout)

    def screenshot(self, name):
        """Saves the whole screen as NAME.png among the build's screenshots."""
        os.makedirs(SCREENSHOTS, exist_ok=True)
        path = os.path.join(SCREENSHOTS, name + '.png')
        subprocess.run(['import', '-window', 'root', path], check=True)
        return path

    def end(self, process):
        end_process(process)
        if process.stdout:
            process.stdout.close()
        self.processes.remove(process)

    def pixels(self, place):
        """The colours in a rectangle of the screen, as a list of (red, green, blue)."""
        area = '%dx%d+%d+%d' % (place.width, place.height, place.x, place.y)
        picture = subprocess.run(['import', '-window', 'root', '-crop', area, '-depth', '8', 'rgb:-'],
                                 check=True, capture_output=True).stdout
        return list(zip(picture[0::3], picture[1::3], picture[2::3]))

    def __exit__(self, *_):
        for process in reversed(list(self.processes)):
            self.end(process)
        shutil.rmtree(self.folder, ignore_errors=True)


class Program:
    def __init__(self, process, timeout):
        import gi
        gi.require_version('Atspi', '2.0')
        from gi.repository import Atspi
        self.atspi, self.process = Atspi, process
        Atspi.init()
        Atspi.set_timeout(2000, -1)
        warnings.simplefilter('ignore', DeprecationWarning)  # from Atspi, about calls without a replacement yet
        self.root = wait(self._find_root, timeout, 'the program on the accessibility bus')

    def _find_root(self):
        if self.process.poll() is not None:
            raise RuntimeError('the program ended with %d' % self.process.returncode)
        desktop = self.atspi.get_desktop(0)
        desktop.clear_cache()  # it still lists earlier programs
        for i in range(desktop.get_child_count()):
            child = desktop.get_child_at_index(i)
            if child is not None and child.get_process_id() == self.process.pid and child.get_child_count():
                return child
        return None

    # What the window shows

    def walk(self, start=None):
        start = start or self.root
        yield start
        for i in range(start.get_child_count()):
            child = start.get_child_at_index(i)
            if child is not None:
                yield from self.walk(child)

    def find(self, name, timeout=10.0, interface=None):
        """The object with this name, or else with this description."""
        def look():
            objects = list(self.walk())
            for read in ('get_name', 'get_description'):
                for found in objects:
                    if getattr(found, read)() == name and (interface is None or interface in found.get_interfaces()):
                        return found
            return None
        return wait(look, timeout, 'an object %r' % name)

    def label(self, role):
        """The text of the label with this role."""
        return self.find(role).get_name()

    def printed(self, surface):
        """The texts printed on a surface."""
        description = self.find(surface).get_description()
        return description.split('\n') if description else []

    def text(self, name):
        return self.atspi.Text.get_text(self.find(name, interface='Text'), 0, -1)

    def value(self, name):
        return self.atspi.Value.get_current_value(self.find(name, interface='Value'))

    def has_state(self, name, state):
        return self.find(name).get_state_set().contains(getattr(self.atspi.StateType, state))

    def expect(self, what, read, expected, timeout=10.0):
        """Waits until `read` returns the expected value; a failure shows both."""
        try:
            wait(lambda: read() == expected, timeout, what)
        except TimeoutError:
            raise AssertionError('%s: expected %r, there is %r' % (what, expected, read())) from None

    def tree(self, start=None, depth=0):
        """The window's objects as text, for debugging."""
        start = start or self.root
        lines = ['%s[%s] %r %r' % ('  ' * depth, start.get_role_name(), start.get_name(), start.get_description())]
        for i in range(start.get_child_count()):
            child = start.get_child_at_index(i)
            if child is not None:
                lines += self.tree(child, depth + 1)
        return lines

    # What the user does

    def press(self, name):
        found = self.find(name, interface='Action')
        action = self.atspi.Action
        names = [action.get_action_name(found, i) for i in range(action.get_n_actions(found))]
        action.do_action(found, next(i for i, each in enumerate(names) if each in ('Press', 'Toggle')))

    def type(self, name, text):
        self.atspi.EditableText.set_text_contents(self.find(name, interface='EditableText'), text)

    def move(self, name, value):
        self.atspi.Value.set_current_value(self.find(name, interface='Value'), float(value))

    def extents(self, name):
        return self.atspi.Component.get_extents(self.find(name), self.atspi.CoordType.SCREEN)

    def click(self, name):
        place = self.extents(name)
        mouse('mousemove', place.x + place.width // 2, place.y + place.height // 2, 'click', 1)

    def drag(self, name, from_x, to_x):
        """Drags across the object at half its height; from_x and to_x are fractions of its width."""
        place = self.extents(name)
        y = place.y + place.height // 2
        steps = [place.x + round(place.width * (from_x + (to_x - from_x) * i / 6)) for i in range(7)]
        moves = ['mousemove', steps[0], y, 'mousedown', 1]
        for x in steps[1:]:
            moves += ['mousemove', x, y, 'sleep', '0.03']
        mouse(*moves, 'mouseup', 1)

    # Boxes

    def boxes(self):
        """Open message boxes and dialogs, the latest last."""
        tops = [self.root.get_child_at_index(i) for i in range(self.root.get_child_count())]
        return [top for top in tops if top is not None and top.get_role_name() in ('alert', 'dialog')]

    def answer(self, button, timeout=10.0):
        """Waits for a box with this button, presses it, waits until the box is closed. Returns (title, its texts)."""
        def look():
            for box in reversed(self.boxes()):
                for found in self.walk(box):
                    if found.get_role_name() == 'push button' and found.get_name() == button:
                        return box, found
            return None
        box, found = wait(look, timeout, 'a box with a button %r' % button)
        texts = [each.get_name() for each in self.walk(box) if each.get_role_name() == 'label' and each.get_name()]
        title, count = box.get_name(), len(self.boxes())
        self.atspi.Action.do_action(found, 0)
        wait(lambda: self.process.poll() is not None or len(self.boxes()) < count, what='the box to close')
        return title, '\n'.join(texts)

    def choose_file(self, path):
        self.type('Nome file:', path)
        self.answer('Apri')

    # Its process

    def wait_for_end(self, timeout=15.0):
        """Waits until the program ends by itself; returns its exit code."""
        try:
            return self.process.wait(timeout)
        except subprocess.TimeoutExpired:
            raise AssertionError('the program has not ended') from None

    def processor_seconds(self):
        """Processor time used so far."""
        with open('/proc/%d/stat' % self.process.pid, encoding='ascii') as file:
            fields = file.read().rpartition(')')[2].split()
        return (int(fields[11]) + int(fields[12])) / os.sysconf('SC_CLK_TCK')


def mouse(*arguments):
    subprocess.run(['xdotool', *map(str, arguments)], check=True)
    time.sleep(0.1)


def keys(*names):
    mouse('key', *names)


def resize_active_window(width, height):
    """Also moves it to the corner of the screen. First waits until the window manager reports it as active, which comes
    after the keyboard focus."""
    def active():
        return subprocess.run(['xdotool', 'getactivewindow'], capture_output=True, check=False).stdout.strip()
    mouse('windowmove', wait(active, what='the active window').decode(), 0, 0)
    mouse('windowsize', active().decode(), width, height)


def type_text(text):
    """Types into whatever has the keyboard focus."""
    mouse('type', '--delay', '50', text)


def run_tests():
    """Runs the tests of the calling file: FILE BUILD_FOLDER [TEST...]. Ends with one line "N passed, N failed"."""
    global KORVINEL, INSTRUMENT
    if len(sys.argv) < 2:
        sys.exit('%s needs the build folder' % sys.argv[0])
    build = os.path.abspath(sys.argv.pop(1))
    KORVINEL = os.path.join(build, 'korvinel')
    INSTRUMENT = os.path.join(build, 'tools/instrument/korvinel-instrument')
    for program in (KORVINEL, INSTRUMENT):
        if not os.access(program, os.X_OK):
            sys.exit('there is no program %s to test' % program)
    result = unittest.main(verbosity=2, exit=False, warnings='ignore').result
    failed = len(result.failures) + len(result.errors)
    print('%d passed, %d failed' % (result.testsRun - failed, failed))
    sys.exit(failed > 0)
