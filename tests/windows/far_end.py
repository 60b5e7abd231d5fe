#!/usr/bin/python3
"""The far end of a serial line under test: far_end.py LINK makes LINK point to a pseudo-terminal. It takes each command from
the file LINK.order and writes its answer to LINK.done: "send HEX" sends these bytes and waits until the near end's system
holds them, "take N" answers with the next N bytes written by the near end, in hexadecimal digits, "unplug" removes the
device, "plug" makes a new one if there is none."""
import array
import fcntl
import os
import pty
import select
import sys
import termios
import time
import tty


class FarEnd:
    def __init__(self, link):
        self.link, self.near, self.far = link, None, None
        self.plug()

    def plug(self):
        if self.near is not None:
            return
        self.near, self.far = pty.openpty()
        tty.setraw(self.far)
        self.unlink()
        os.symlink(os.ttyname(self.far), self.link)

    def unplug(self):
        os.close(self.far)
        os.close(self.near)
        self.near = None
        self.unlink()

    def unlink(self):
        if os.path.lexists(self.link):
            os.remove(self.link)

    def pending(self):
        count = array.array('i', [0])
        fcntl.ioctl(self.far, termios.FIONREAD, count)
        return count[0]

    def send(self, digits):
        wanted = self.pending() + len(digits) // 2
        os.write(self.near, bytes.fromhex(digits))
        end = time.monotonic() + 2
        while self.pending() < wanted and time.monotonic() < end:
            time.sleep(0.001)

    def take(self, count):
        got = b''
        while len(got) < int(count) and select.select([self.near], [], [], 2)[0]:
            got += os.read(self.near, int(count) - len(got))
        return got.hex()

    def obey(self, order):
        word, _, rest = order.partition(' ')
        return {'send': self.send, 'take': self.take}[word](rest) if rest else getattr(self, word)()


def main(link):
    far_end = FarEnd(link)
    while True:
        if not os.path.exists(link + '.order'):
            time.sleep(0.001)
            continue
        with open(link + '.order') as file:
            order = file.read()
        os.remove(link + '.order')
        answer = far_end.obey(order) or ''
        with open(link + '.answer', 'w') as file:
            file.write(answer)
        os.rename(link + '.answer', link + '.done')


main(sys.argv[1])
