#!/usr/bin/python3
"""Draws time and memory of a command over the number of blocks in a file and over the number of files.

    growth.py FOLDER COMMAND...

Writes FOLDER/growth-blocks.svg and FOLDER/growth-files.svg. COMMAND gets the file names after its own arguments.
"""
import os
import statistics
import sys
import tempfile

import measuring

BLOCKS = (10, 20, 50, 100, 150, 199)
FILES_OF_A_PILE = 20  # enough to outweigh the program's start
FILES = (10, 30, 100, 300, 1000, 3000, 10000)
BLOCKS_OF_A_FILE = 20
TIMES = 3

WIDTH, HEIGHT, LEFT, TOP, RIGHT, FOOT = 460, 260, 56, 30, 56, 40
TIME_INK, MEMORY_INK, GREY = '#1976d2', '#00796b', '#90a4ae'


def measured(command, files, blocks):
    with tempfile.TemporaryDirectory() as folder:
        paths = measuring.write_recordings(folder, files, blocks)
        runs = [measuring.run(command + paths) for _ in range(TIMES)]
    result = statistics.median(run.processor for run in runs), max(run.peak_mb for run in runs)
    print('%6d files of %3d blocks: %.3f s of processor, %.1f MB at most' % (files, blocks, *result), flush=True)
    return result


def ceiling(value):
    """The smallest of ... 1, 2, 5, 10 ... that is not below the value."""
    step = 10.0 ** -6
    while True:
        for factor in (1, 2, 5):
            if factor * step >= value:
                return factor * step
        step *= 10


def picture(title, label, places, results):
    """An SVG chart with linear axes: linear growth is a straight line."""
    right, top = places[-1], [ceiling(max(column)) for column in zip(*results)]

    def across(place):
        return LEFT + (WIDTH - LEFT - RIGHT) * place / right

    def down(value, largest):
        return HEIGHT - FOOT - (HEIGHT - TOP - FOOT) * value / largest

    def text(x, y, words, ink='#263238', anchor='middle'):
        return '<text x="%.1f" y="%.1f" fill="%s" text-anchor="%s">%s</text>' % (x, y, ink, anchor, words)

    parts = ['<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 %d %d" font-family="sans-serif" font-size="11">' %
             (WIDTH, HEIGHT), '<rect width="100%" height="100%" fill="white"/>', text(WIDTH / 2, 16, title)]
    for fifth in range(6):
        y = down(fifth, 5)
        parts.append('<line x1="%d" x2="%d" y1="%.1f" y2="%.1f" stroke="%s" stroke-width="0.5"/>' %
                     (LEFT, WIDTH - RIGHT, y, y, GREY))
        parts.append(text(LEFT - 6, y + 4, '%g s' % (top[0] * fifth / 5), TIME_INK, 'end'))
        parts.append(text(WIDTH - RIGHT + 6, y + 4, '%g MB' % (top[1] * fifth / 5), MEMORY_INK, 'start'))
    for place in places:
        if place == places[0] or place >= right / 4:
            parts.append(text(across(place), HEIGHT - FOOT + 14, place))
    parts.append(text(WIDTH / 2, HEIGHT - 8, label))
    for column, ink in ((0, TIME_INK), (1, MEMORY_INK)):
        points = [(across(place), down(result[column], top[column])) for place, result in zip(places, results)]
        parts.append('<polyline fill="none" stroke="%s" stroke-width="1.5" points="%s"/>' %
                     (ink, ' '.join('%.1f,%.1f' % point for point in points)))
        parts += ['<circle cx="%.1f" cy="%.1f" r="2.5" fill="%s"/>' % (*point, ink) for point in points]
    return '\n'.join(parts + ['</svg>', ''])


def save(folder, name, content):
    with open(os.path.join(folder, name), 'w', encoding='utf-8') as file:
        file.write(content)


def main():
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    folder, command = sys.argv[1], sys.argv[2:]
    by_blocks = [measured(command, FILES_OF_A_PILE, blocks) for blocks in BLOCKS]
    save(folder, 'growth-blocks.svg', picture('Processor time and peak memory', 'blocks in each of %d files' %
                                              FILES_OF_A_PILE, BLOCKS, by_blocks))
    by_files = [measured(command, files, BLOCKS_OF_A_FILE) for files in FILES]
    save(folder, 'growth-files.svg', picture('Processor time and peak memory', 'files of %d blocks' %
                                             BLOCKS_OF_A_FILE, FILES, by_files))


if __name__ == '__main__':
    main()
