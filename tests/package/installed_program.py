"""installed_program.py PROGRAMS_FOLDER: performs an examination with the installed program and instrument, started as
by the menu entry "prova senza strumento", and checks that its recording is there."""
import os
import sys

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path[:0] = [HERE, os.path.join(HERE, '../window')]  # the driver: copied beside this file, or in its folder
import driver

PROGRAMS = sys.argv[1]
BLOCKS = 3
HEADER = b'"Rossi Anna"'
BLOCK_BYTES = 1036


def child_of(process):
    """The process of the korvinel that the script has started."""
    for task in os.listdir('/proc'):
        if not task.isdigit():
            continue
        try:
            with open('/proc/%s/stat' % task, encoding='ascii') as file:
                name, _, rest = file.read().partition('(')[2].rpartition(')')
        except OSError:
            continue
        if name == 'korvinel' and int(rest.split()[1]) == process.pid:
            return int(task)
    return None


class Trial(driver.Program):
    """The program that a script runs: found by its own process number, ended with the script."""

    def __init__(self, process):
        self.number = driver.wait(lambda: child_of(process), 30, 'the program')
        super().__init__(process, 30)

    def _find_root(self):
        desktop = self.atspi.get_desktop(0)
        desktop.clear_cache()
        for i in range(desktop.get_child_count()):
            child = desktop.get_child_at_index(i)
            if child is not None and child.get_process_id() == self.number and child.get_child_count():
                return child
        return None


def record(program):
    program.type('Nome del file', 'installata')
    program.type('Nome del soggetto', 'Rossi Anna')
    program.press('Start')
    driver.wait(lambda: program.value('Blocco iniziale') >= 1, 30, 'the first block')
    program.press('Registra')
    program.expect('the record button', lambda: program.label('Stato della registrazione'), 'Registrazione Attiva')
    driver.wait(lambda: program.value('Blocco iniziale') >= BLOCKS, 30, '%d blocks' % BLOCKS)
    program.press('Stop')
    program.answer('OK', 30)


def main():
    with driver.Desktop('1366x768') as desktop:
        os.environ['PATH'] = PROGRAMS + ':' + os.environ['PATH']
        program = Trial(desktop.start(['korvinel-prova', '--model', 'eyes-closed'], stderr=None))
        record(program)
        program.press('End')
        program.wait_for_end()
        folder = os.path.join(desktop.home, '.local/share/korvinel-prova/korvinel/drive_c/QUARVEL5/DATAFILE')
        with open(os.path.join(folder, 'installata.QVD'), 'rb') as file:
            recording = file.read()
        if not recording.startswith(HEADER):
            sys.exit('the recording begins with %r' % recording[:40])
        if len(recording) < BLOCKS * BLOCK_BYTES:
            sys.exit('the recording has only %d bytes' % len(recording))
        print('the examination is recorded')


main()
