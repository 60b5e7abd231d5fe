#!/usr/bin/python3
"""An instrument whose blocks do not depend on the clock: block_feeder.py LINK LOG makes LINK point to a pseudo-terminal
and answers the test command with "OK". After every start command it sends the same whole blocks of 1024 bytes, the first
at once and then one every three seconds, until the stop command. It logs each action as a line in LOG."""
import math
import os
import pty
import select
import sys
import time
import tty

TEST, START, STOP = b"TEST\xc0", bytes([83, 1, 4, 120, 65, 8, 66, 165]), b"\xff\x01"
BLOCK_SECONDS = 3.0


def block(number):
    """10 Hz on all four channels, with another amplitude and phase in every block, far from the artefact threshold."""
    samples = bytearray()
    for sample in range(256):
        for channel in range(4):
            phase = 2 * math.pi * 20 * sample / 256 + 0.7 * channel + 0.3 * number
            samples.append(128 + round((12 + 3 * channel + number % 5) * math.sin(phase)) + (sample * 7 + number) % 5)
    return bytes(samples)


def main(link, log):
    near, far = pty.openpty()
    tty.setraw(far)
    if os.path.lexists(link):
        os.remove(link)
    os.symlink(os.ttyname(far), link)
    heard, number, due = b"", 0, None

    def tell(what):
        print(what, file=log, flush=True)

    tell("ready")
    while True:
        wait = None if due is None else max(0.0, due - time.monotonic())
        if select.select([near], [], [], wait)[0]:
            heard += os.read(near, 4096)
        elif due is not None:
            number += 1
            os.write(near, block(number))
            tell("block %d" % number)
            due += BLOCK_SECONDS
        for command in (TEST, START, STOP):
            if command not in heard:
                continue
            heard = b""
            number, due = 0, None
            if command == TEST:
                os.write(near, b"OK")
                tell("test")
            elif command == START:
                due = time.monotonic()
                tell("start")
            else:
                tell("stop")


main(sys.argv[1], open(sys.argv[2], "w", encoding="ascii"))
