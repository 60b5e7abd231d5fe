#!/usr/bin/python3
"""Compares the run time of a command over recordings with that of `band_powers.py`, in alternating runs.

    compare_batch.py [--files N] [--blocks N] [--times N] COMMAND...

COMMAND, e.g. `korvinel-recording batch`, gets the file names after its own arguments. Prints the median and the range
of the wall-clock and processor seconds of both, and the ratio of the medians. Debian package: python3-scipy
"""
import argparse
import os
import statistics
import sys
import tempfile

import measuring

PLAIN = os.path.join(os.path.dirname(os.path.abspath(__file__)), 'band_powers.py')


def main():
    options = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    options.add_argument('--files', type=int, default=200)
    options.add_argument('--blocks', type=int, default=199)
    options.add_argument('--times', type=int, default=5)
    options.add_argument('command', nargs=argparse.REMAINDER)
    given = options.parse_args()
    if not given.command:
        options.error('which command is to be measured?')
    with tempfile.TemporaryDirectory() as folder:
        files = measuring.write_recordings(folder, given.files, given.blocks)
        runs = {'command': [], 'numpy': []}
        for _ in range(given.times):
            runs['command'].append(measuring.run(given.command + files))
            runs['numpy'].append(measuring.run(['/usr/bin/python3', PLAIN, *files]))
    print('%d files of %d blocks, %d times each' % (given.files, given.blocks, given.times))
    for name, results in runs.items():
        print('%-8s %s s wall, %s s processor' % (name, spread([r.wall for r in results]),
                                                  spread([r.processor for r in results])))
    ratio = [statistics.median(r.wall for r in runs[name]) for name in ('numpy', 'command')]
    print('ratio of the medians: %.1f' % (ratio[0] / ratio[1]))
    return 0


def spread(values):
    return '%.3f (%.3f to %.3f)' % (statistics.median(values), min(values), max(values))


if __name__ == '__main__':
    sys.exit(main())
