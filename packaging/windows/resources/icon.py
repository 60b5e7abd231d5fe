#!/usr/bin/python3
"""icon.py DRAWING.svg ICON.ico: renders the drawing at the sizes Windows uses into one file. Needs rsvg-convert."""
import struct
import subprocess
import sys

SIZES = (16, 24, 32, 48, 64, 128, 256)


def main(drawing, icon):
    pictures = [subprocess.run(['rsvg-convert', '-w', str(size), '-h', str(size), drawing], check=True,
                               capture_output=True).stdout for size in SIZES]
    offset = 6 + 16 * len(SIZES)
    with open(icon, 'wb') as file:
        file.write(struct.pack('<HHH', 0, 1, len(SIZES)))
        for size, picture in zip(SIZES, pictures):
            file.write(struct.pack('<BBBBHHII', size % 256, size % 256, 0, 0, 1, 32, len(picture), offset))
            offset += len(picture)
        file.writelines(pictures)


main(*sys.argv[1:3])
