"""Runs programs and measures their time and memory; writes recordings for them: an alpha wave, a drift and noise on
every channel, the same bytes on every machine."""
import collections
import math
import os
import random
import subprocess
import sys
import time

Run = collections.namedtuple('Run', 'wall processor peak_mb')  # seconds, seconds, megabytes
VARIANTS = 8


def run(arguments):
    """Runs a program to its end; a failure ends the measurement."""
    start = time.monotonic()
    process = subprocess.Popen(arguments, stdout=subprocess.DEVNULL)
    _, status, use = os.wait4(process.pid, 0)
    process.returncode = os.waitstatus_to_exitcode(status)
    if process.returncode != 0:
        sys.exit('%s ended with %d' % (arguments[0], process.returncode))
    return Run(time.monotonic() - start, use.ru_utime + use.ru_stime, use.ru_maxrss * 1024 / 1e6)


def recording(blocks, seed):
    """The bytes of a data file with this number of blocks."""
    source = random.Random(seed)
    noise = [source.gauss(0, 10) for _ in range(4096)]
    content = bytearray(b'"Misura","21/11/2026 V3","4canali",1\r\n1,"Nota: "\r\n')
    for block in range(blocks):
        wave = [30 * math.sin(2 * math.pi * (18 + seed) * s / 256 + block) + s / 32 for s in range(256)]
        for channel in range(4):
            start = source.randrange(len(noise) - 256)
            content += bytes(stored(128 + (1 - channel / 8) * wave[s] + noise[start + s]) for s in range(256)) + b'-\r\n'
    return bytes(content)


def stored(value):
    byte = max(1, min(255, int(value + 0.5)))
    return {9: 8, 10: 11, 26: 27}.get(byte, byte)


def write_recordings(folder, files, blocks):
    """Writes this number of files with a few different contents; returns their paths."""
    contents = [recording(blocks, seed) for seed in range(min(files, VARIANTS))]
    paths = [os.path.join(folder, 'r%05d.QVD' % number) for number in range(files)]
    for number, path in enumerate(paths):
        with open(path, 'wb') as file:
            file.write(contents[number % len(contents)])
    return paths
