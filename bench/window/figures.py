#!/usr/bin/python3
"""Measures the program in its window several times.

    figures.py BUILD_FOLDER [--times N] [--idle SECONDS] [--screen offscreen|xvfb]

Prints median and range of each figure; see window_figures.cpp. Opens the largest file: 199 blocks and one not counted.
"""
import argparse
import os
import statistics
import subprocess
import sys
import tempfile
import time

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path[:0] = [os.path.dirname(HERE), os.path.join(os.path.dirname(os.path.dirname(HERE)), 'tests', 'window')]
import driver  # noqa: E402
import measuring  # noqa: E402


def figures(program, recording, idle):
    """The figures of one run, by name."""
    with tempfile.TemporaryDirectory() as home:
        answer = subprocess.run([program, home, recording, str(idle), str(time.monotonic_ns())], check=True,
                                capture_output=True, text=True).stdout
    return {name: float(value) for name, value in (line.split() for line in answer.splitlines())}


def waiting_share(desktop, seconds):
    """The share of a core during an acquisition, from the second block on."""
    instrument = desktop.start_instrument(driver.INSTRUMENT, 1)
    program = desktop.start_program([driver.KORVINEL])
    program.type('Nome del file', 'misura')
    program.type('Nome del soggetto', 'Misura')
    program.press('Start')
    driver.wait(lambda: program.value('Blocco iniziale') >= 2, 30, 'two blocks')
    before, start = program.processor_seconds(), time.monotonic()
    time.sleep(seconds)
    share = (program.processor_seconds() - before) / (time.monotonic() - start)
    for process in (program.process, instrument):
        desktop.end(process)
    return share


def report(runs):
    for name in runs[0]:
        values = [run[name] for run in runs]
        print('%-20s %10.4f  (%.4f to %.4f)' % (name, statistics.median(values), min(values), max(values)))


def main():
    options = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    options.add_argument('build')
    options.add_argument('--times', type=int, default=5)
    options.add_argument('--idle', type=int, default=10)
    options.add_argument('--screen', choices=('offscreen', 'xvfb'), default='xvfb')
    given = options.parse_args()
    build = os.path.abspath(given.build)
    program = os.path.join(build, 'bench/korvinel-window-figures')
    driver.KORVINEL = os.path.join(build, 'korvinel')
    driver.INSTRUMENT = os.path.join(build, 'tools/instrument/korvinel-instrument')
    with tempfile.TemporaryDirectory() as folder:
        recording = measuring.write_recordings(folder, 1, 200)[0]
        if given.screen == 'offscreen':
            os.environ['QT_QPA_PLATFORM'] = 'offscreen'
            return report([figures(program, recording, given.idle) for _ in range(given.times + 1)][1:])
        with driver.Desktop('1366x768') as desktop:
            # No screen reader is simulated here. The first run only warms up the machine.
            os.environ.pop('QT_LINUX_ACCESSIBILITY_ALWAYS_ON', None)
            report([figures(program, recording, given.idle) for _ in range(given.times + 1)][1:])
            os.environ['QT_LINUX_ACCESSIBILITY_ALWAYS_ON'] = '1'
            report([{'waiting_share': waiting_share(desktop, given.idle)}])
    return None


if __name__ == '__main__':
    main()
