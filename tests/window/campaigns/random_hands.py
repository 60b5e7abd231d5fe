"""Random presses, keys, drags and answers on the real window, the same for the same seed.

    /usr/bin/python3 random_hands.py BUILD_FOLDER [MINUTES [SEED]]

The program may end (End is one of the buttons), but never by a crash; it is then started again. Ends with
"N passed, N failed".
"""
import os
import random
import sys
import time

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), '..'))
import driver

BUTTONS = ['Start', 'Start', 'Stop', 'Registra', 'Annota', 'Canali', 'Artefatti', 'Apri File', 'Display', 'Analisi',
           'Stampa']
REPORT_BUTTONS = ['Numeri', 'Spiega', 'Commenti', 'Calcolo valori max banda', 'Calcolo valori medi banda']
SLIDERS = ['Blocco iniziale', 'Scala in microvolt', "Velocita' del display", 'Scala del rapporto in microvolt']
TEXTS = ['', 'prova', 'a"b,c', '100', '-5', 'novanta', "Niccolo' Rossi", 'x' * 200, 'accento \u00e0\u00e8']
KEYS = ['Return', 'Escape', 'Tab', 'Tab', 'space', 'Left', 'Right', 'Home', 'End', 'Page_Down', 'x', 'alt+F4']


class Hands:
    def __init__(self, desktop, seed):
        self.desktop, self.dice = desktop, random.Random(seed)
        self.acts = self.starts = self.faults = 0
        self.program = None

    def play(self, minutes):
        end = time.monotonic() + 60 * minutes
        while time.monotonic() < end:
            if self.program is None:
                self.program = self.desktop.start_program([driver.KORVINEL])
                self.starts += 1
            self.act()
            self.acts += 1
            self.look()

    def act(self):
        try:
            self.choose()()
        except Exception as error:  # an object that has just gone, or a box in front of it
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

    def look(self):
        """A program that has ended may have done so only by its own exit."""
        code = self.program.process.poll()
        if code is None:
            return
        if code != 0:
            self.faults += 1
            print('the program ended with %d after %d acts' % (code, self.acts))
        self.desktop.end(self.program.process)
        self.program = None


def still_works(hands):
    """The last program answers: it stops whatever runs and ends."""
    if hands.program is None:
        return True
    end = time.monotonic() + 60
    while time.monotonic() < end and hands.program.process.poll() is None:
        for act in (lambda: driver.keys('Escape'), hands.answer, lambda: hands.program.press('Stop'),
                    lambda: hands.program.press('End')):
            try:
                act()
            except Exception as error:
                if type(error).__name__ not in ('Error', 'GError', 'TimeoutError', 'StopIteration', 'AttributeError'):
                    raise
            time.sleep(0.3)
    if hands.program.process.poll() is None:
        print('the program did not end when it was asked to')
        print('\n'.join(hands.program.tree()))
        hands.desktop.screenshot('random-hands-stuck')
    code = hands.program.process.poll()
    if code:
        print('the program ended with %d when it was asked to end' % code)
    return code == 0


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
        alive = still_works(hands)
    print('%d acts, %d starts of the program, %d crashes' % (hands.acts, hands.starts, hands.faults))
    failed = (hands.faults > 0) + (not alive)
    print('%d passed, %d failed' % (2 - failed, failed))
    sys.exit(failed > 0)


if __name__ == '__main__':
    main()
