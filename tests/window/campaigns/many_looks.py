"""A file opened, replayed and reported again and again in the real window: memory and open files do not grow.

    /usr/bin/python3 many_looks.py BUILD_FOLDER [TIMES [SUBJECT]]

Prints the figures and ends with "N passed, N failed".
"""
import math
import os
import random
import sys

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), '..'))
import driver
from long_examination import Figures

FIRST = 40  # by then, everything created on first use exists
BLOCKS, SAMPLES = 6, 256


def write_recording(path, subject):
    """Ten hertz and noise, in the format of docs/file-format.md."""
    dice = random.Random(1)
    with open(path, 'wb') as file:
        file.write(b'"%s","21/11/2026 V3","4canali",0\r\n' % subject.encode('cp1252'))
        for _ in range(4 * BLOCKS):
            file.write(bytes(128 + round(20 * math.sin(2 * math.pi * 10 * i / 128) + dice.gauss(0, 6))
                             for i in range(SAMPLES)) + b'-\r\n')


def look(program, recording):
    program.press('Apri File')
    program.answer('Annulla')
    program.press('Apri File')
    program.choose_file(recording)
    driver.wait(lambda: program.label('Blocco e durata totale').startswith('Totale='), 30, 'the summary')
    program.press('Display')
    driver.wait(lambda: program.value('Blocco iniziale') > 1, 30, 'the replay')
    driver.wait(lambda: program.value('Blocco iniziale') == 1, 30, 'its end')
    program.press('Analisi')
    driver.wait(lambda: program.printed('Spettro T6'), what='the report')
    program.press('Uscita')
    driver.wait(lambda: not any('finale' in (top.get_name() or '') for top in tops(program)), what='the report to close')


def tops(program):
    return [top for top in (program.root.get_child_at_index(i) for i in range(program.root.get_child_count())) if top]


def main():
    build = os.path.abspath(sys.argv[1])
    times = int(sys.argv[2]) if len(sys.argv) > 2 else 300
    driver.KORVINEL = os.path.join(build, 'korvinel')
    with driver.Desktop('1366x768') as desktop:
        program = desktop.start_program([driver.KORVINEL])
        recording = os.path.join(desktop.data, 'drive_c/QUARVEL5/DATAFILE/sguardi.QVD')
        write_recording(recording, 'Rossi')
        for number in range(1, times + 1):
            look(program, recording)
            if number == FIRST:
                early = Figures(program)
            if number % 20 == 0:
                print(number, Figures(program), flush=True)
        late = Figures(program)
        program.press('End')
        ended = program.wait_for_end()
    each = (late.kilobytes - early.kilobytes) / (times - FIRST)
    print('after %d: %s; after %d: %s; %.2f kB each' % (FIRST, early, times, late, each))
    checks = {'less than 1 kB each': each < 1, 'descriptors flat': late.descriptors == early.descriptors,
              'the program ended with 0': ended == 0}
    for what, good in checks.items():
        print('%s  %s' % ('ok    ' if good else 'FAILED', what))
    failed = sum(not good for good in checks.values())
    print('%d passed, %d failed' % (len(checks) - failed, failed))
    sys.exit(failed > 0)


if __name__ == '__main__':
    main()
