"""Random presses, keys, drags and answers on the real window, the same for the same seed.

    /usr/bin/python3 random_hands.py BUILD_FOLDER [MINUTES [SEED]]

Each program runs for some actions and is then ended: by End, by closing its window, or by closing it after a pause. It
must end without a crash and leave complete recordings and no temporary file; then the next one is started. Ends with
"N passed, N failed".
"""
import os
import random
import sys
import time

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), '..'))
import driver
import recording_file

BUTTONS = ['Start', 'Start', 'Stop', 'Registra', 'Annota', 'Canali', 'Artefatti', 'Apri File', 'Display', 'Analisi',
           'Stampa']
REPORT_BUTTONS = ['Numeri', 'Spiega', 'Commenti', 'Calcolo valori max banda', 'Calcolo valori medi banda']
SLIDERS = ['Blocco iniziale', 'Scala in microvolt', "Velocita' del display", 'Scala del rapporto in microvolt']
WAYS_TO_END = ['End', 'close', 'nothing, then close']
TEXTS = ['', 'prova', 'a"b,c', '100', '70', '-5', 'novanta', "Niccolo' Rossi", 'x' * 200, 'accento \u00e0\u00e8']
KEYS = ['Return', 'Escape', 'Tab', 'Tab', 'space', 'Left', 'Right', 'Home', 'End', 'Page_Down', 'x', 'alt+F4']


class Hands:
    def __init__(self, desktop, seed):
        self.desktop, self.dice = desktop, random.Random(seed)
        self.acts = self.starts = self.faults = self.life = self.recordings = 0
        self.program = None
        self.ends = dict.fromkeys(WAYS_TO_END, 0)

    def play(self, minutes):
        end = time.monotonic() + 60 * minutes
        while time.monotonic() < end:
            if self.program is None:
                self.program = self.desktop.start_program([driver.KORVINEL])
                self.starts += 1
                self.life = self.dice.randrange(30, 150)
            if self.life == 0:
                self.end_program()
                continue
            self.life -= 1
            self.act()
            self.acts += 1
            self.look()

    def act(self):
        self.try_to(self.choose())

    def try_to(self, act):
        try:
            act()
        except Exception as error:  # an object that has just disappeared, or is behind a box
            if type(error).__name__ not in ('Error', 'GError', 'TimeoutError', 'StopIteration', 'AttributeError',
                                            'CalledProcessError'):
                raise

    def choose(self):
        return self.dice.choices([self.press, self.press_in_report, self.type, self.move, self.key, self.drag,
                                  self.answer, self.let_go_by], [30, 8, 12, 8, 10, 6, 18, 8])[0]

    def press(self):
        name = 'End' if self.dice.random() < 0.01 else self.dice.choice(BUTTONS)
        self.find_and(self.program.press, name)

    def press_in_report(self):
        self.find_and(self.program.press, self.dice.choice(REPORT_BUTTONS))

    def find_and(self, act, name):
        self.program.find(name, timeout=0.05)
        act(name)

    def type(self):
        name = self.dice.choice(['Nome del file', 'Nome del soggetto', 'Nota'])
        text = 'n%d' % self.dice.randrange(1000) if self.dice.random() < 0.5 else self.dice.choice(TEXTS)
        self.find_and(lambda found: self.program.type(found, text), name)

    def move(self):
        value = self.dice.randrange(0, 201)
        self.find_and(lambda found: self.program.move(found, value), self.dice.choice(SLIDERS))

    def key(self):
        name = self.dice.choice(KEYS)
        if name != 'alt+F4' or self.dice.random() < 0.05:
            driver.keys(name)

    def drag(self):
        surface = self.dice.choice(['Striscia del tempo', 'Striscia del tempo', 'Tracciato 1'])
        first, last = self.dice.random(), self.dice.uniform(-0.2, 1.2)
        self.find_and(lambda found: self.program.drag(found, first, last), surface)

    def answer(self):
        boxes = self.program.boxes()
        if boxes:
            buttons = [each for each in self.program.walk(boxes[-1]) if each.get_role_name() == 'push button']
            if buttons:
                self.program.atspi.Action.do_action(self.dice.choice(buttons), 0)

    def let_go_by(self):
        time.sleep(self.dice.choice([0.1, 0.5, 3.2]))

    def end_program(self):
        """Ends it in the three ways by turns; answers open boxes first."""
        way = WAYS_TO_END[sum(self.ends.values()) % 3]
        self.ends[way] += 1
        if way.startswith('nothing'):
            time.sleep(8)
        end = time.monotonic() + 60
        while time.monotonic() < end and self.program.process.poll() is None:
            for step in (self.answer, lambda: self.program.press('End') if way == 'End' else driver.keys('alt+F4')):
                self.try_to(step)
                time.sleep(0.3)
        if self.program.process.poll() is None:
            self.fault('the program did not end by: ' + way)
            print('\n'.join(self.program.tree()))
            self.desktop.screenshot('random-hands-stuck')
            self.program.process.kill()
            self.program.process.wait()
            self.program = None
            return
        self.look()

    def fault(self, text):
        self.faults += 1
        print('%s, after %d acts' % (text, self.acts))

    def look(self):
        """If the program has ended, checks that it exited by itself and left its recordings complete."""
        code = self.program.process.poll()
        if code is None:
            return
        if code != 0:
            self.fault('the program ended with %d' % code)
        self.desktop.end(self.program.process)
        self.program = None
        self.look_at_files()

    def look_at_files(self):
        folder = os.path.join(os.environ['XDG_DATA_HOME'], 'korvinel/drive_c/QUARVEL5/DATAFILE')
        names = os.listdir(folder)
        for name in names:
            if name.upper().startswith('TEMPOR1') and self.holds_blocks(os.path.join(folder, name)):
                self.fault('a recording was left in ' + name)
        recordings = [name for name in names if name.upper().endswith('.QVD')]
        self.recordings = len(recordings)
        for name in recordings:
            try:
                recording = recording_file.Recording(os.path.join(folder, name))
            except (ValueError, IndexError) as error:
                self.fault('%s cannot be read: %s' % (name, error))
                continue
            if recording.rest != 0:
                self.fault('%s ends in mid-block' % name)

    @staticmethod
    def holds_blocks(path):
        with open(path, 'rb') as file:
            return len(file.read().partition(b'\r\n')[2]) > 0


def main():
    build = os.path.abspath(sys.argv[1])
    minutes = float(sys.argv[2]) if len(sys.argv) > 2 else 5
    seed = int(sys.argv[3]) if len(sys.argv) > 3 else 1
    driver.KORVINEL = os.path.join(build, 'korvinel')
    driver.INSTRUMENT = os.path.join(build, 'tools/instrument/korvinel-instrument')
    with driver.Desktop('1366x768') as desktop:
        desktop.start_instrument(driver.INSTRUMENT, 1, '--model', 'eyes-closed', '--seed', '1')
        hands = Hands(desktop, seed)
        hands.play(minutes)
        if hands.program is not None:
            hands.end_program()
    print('%d acts, %d starts of the program, %d recordings, %d faults; ended by %s' %
          (hands.acts, hands.starts, hands.recordings, hands.faults, hands.ends))
    failed = int(hands.faults > 0)
    print('%d passed, %d failed' % (1 - failed, failed))
    sys.exit(failed)


if __name__ == '__main__':
    main()
