#!/usr/bin/python3
"""The far end of a serial line under test: far_end.py LINK makes LINK point to a pseudo-terminal and obeys the commands
received on it, one per line: "echo TEXT" sends TEXT back, "codes" sends the bytes 0..255, "count N" sends N bytes
0..250 0..250 ..., "unplug" removes the device and makes a new one after a second."""
import os
import pty
import sys
import time
import tty


def plug(link):
    near, far = pty.openpty()
    tty.setraw(far)
    if os.path.lexists(link):
        os.remove(link)
    os.symlink(os.ttyname(far), link)
    return near, far


def answer(order):
    word, _, rest = order.partition(b" ")
    if word == b"echo":
        return rest
    if word == b"codes":
        return bytes(range(256))
    if word == b"count":
        return bytes(i % 251 for i in range(int(rest)))
    return b""


def main(link):
    near, far = plug(link)
    pending = b""
    while True:
        pending += os.read(near, 4096)
        while b"\n" in pending:
            order, _, pending = pending.partition(b"\n")
            if order == b"unplug":
                os.close(far)
                os.close(near)
                time.sleep(1)
                near, far = plug(link)
                pending = b""
            os.write(near, answer(order))


main(sys.argv[1])
