"""Half an hour of live acquisition with repeated Start and Stop: memory, open files, turns and processor share.

    /usr/bin/python3 long_examination.py BUILD_FOLDER [MINUTES]

Prints the figures and ends with "N passed, N failed".
"""
import collections
import os
import statistics
import sys
import time

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), '..'))
import driver

BLOCKS_AN_EXAMINATION = 60


class Figures:
    def __init__(self, program):
        with open('/proc/%d/status' % program.process.pid, encoding='ascii') as file:
            lines = dict(line.split(':', 1) for line in file)
        self.kilobytes = int(lines['VmRSS'].split()[0])
        self.descriptors = len(os.listdir('/proc/%d/fd' % program.process.pid))

    def __str__(self):
        return '%d kB, %d descriptors' % (self.kilobytes, self.descriptors)


def examine(program, number, until):
    """Records one examination; returns the lengths of its turns in seconds."""
    program.type('Nome del file', 'lungo%d' % number)
    program.press('Start')
    slider = program.find('Blocco iniziale', interface='Value')
    # The slider still shows the last block of the previous examination.
    driver.wait(lambda: program.value('Blocco iniziale') == 1, 30, 'the first block')
    turns, shown, since = [], 0, None
    while shown < BLOCKS_AN_EXAMINATION and time.monotonic() < until:
        value = int(program.atspi.Value.get_current_value(slider))
        if value > shown:
            now = time.monotonic()
            if since is not None and value == shown + 1 and shown > 3:
                turns.append(now - since)
            shown, since = value, now
            if shown == 1 and not turns:
                program.press('Registra')
        elif value < shown:
            shown, since = value, None  # "Registra" restarts the count
        time.sleep(0.01)
    program.press('Stop')
    program.answer('OK', 30)
    return turns


def main():
    build = os.path.abspath(sys.argv[1])
    minutes = float(sys.argv[2]) if len(sys.argv) > 2 else 30
    driver.KORVINEL = os.path.join(build, 'korvinel')
    driver.INSTRUMENT = os.path.join(build, 'tools/instrument/korvinel-instrument')
    with driver.Desktop('1366x768') as desktop:
        desktop.start_instrument(driver.INSTRUMENT, 1, '--model', 'eyes-closed', '--seed', '1')
        program = desktop.start_program([driver.KORVINEL])
        program.type('Nome del soggetto', 'Rossi')
        begin, processor = time.monotonic(), program.processor_seconds()
        turns, number, early = [], 0, None
        while time.monotonic() < begin + 60 * minutes:
            number += 1
            turns += examine(program, number, begin + 60 * minutes)
            early = early or Figures(program)
        late = Figures(program)
        share = 100 * (program.processor_seconds() - processor) / (time.monotonic() - begin)
        program.press('End')
        ended = program.wait_for_end()
    checks = report(early, late, turns, share, number)
    checks['the program ended with 0'] = ended == 0
    for what, good in checks.items():
        print('%s  %s' % ('ok    ' if good else 'FAILED', what))
    failed = sum(not good for good in checks.values())
    print('%d passed, %d failed' % (len(checks) - failed, failed))
    sys.exit(failed > 0)


def report(early, late, turns, share, examinations):
    print('%d examinations, %d turns; processor share %.2f %%' % (examinations, len(turns), share))
    print('after the first: %s; after the last: %s' % (early, late))
    histogram = collections.Counter(round(turn, 2) for turn in turns)
    for length in sorted(histogram):
        print('turn of %.2f s: %d' % (length, histogram[length]))
    mean = statistics.mean(turns)
    print('mean turn %.4f s, median %.4f s' % (mean, statistics.median(turns)))
    return {
        'memory flat (4 MB)': late.kilobytes < early.kilobytes + 4096,
        'descriptors flat': late.descriptors == early.descriptors,
        'no drift of the turn (median within 2 %)': abs(statistics.median(turns) - 3) < 0.06,
    }


if __name__ == '__main__':
    main()
