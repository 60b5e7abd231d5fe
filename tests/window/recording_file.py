"""Reads a recording and calculates what the screen must show, independently of the program: from docs/file-format.md
and the definitions of the spectra alone.
"""
import cmath
import re

CHANNELS = ('F1', 'F2', 'T5', 'T6')
SAMPLES, BLOCK_BYTES = 256, 4 * 259
# First and last index of each band; index i is (i - 1) / 2 Hz.
BANDS = {'Delta': (1, 7), 'Theta': (8, 16), 'Alfa': (17, 26), 'Beta': (27, 64)}


class Recording:
    """`subject`, `date`, `tag`, `notes` as (block, text), `blocks` as four lists of 256 samples each."""

    def __init__(self, path):
        with open(path, 'rb') as file:
            data = file.read()
        header, data = self._line(data)
        self.subject, stamp, self.kind, count = self._fields(header)
        self.date, self.tag = stamp[:-2].rstrip(' '), stamp[-2:]
        self.notes = []
        for _ in range(int(count)):
            line, data = self._line(data)
            block, text = self._fields(line)
            self.notes.append((float(block), text))
        self.rest = len(data) % BLOCK_BYTES
        self.blocks = [self._block(data[start:start + BLOCK_BYTES])
                       for start in range(0, len(data) - self.rest, BLOCK_BYTES)]

    @staticmethod
    def _line(data):
        line, _, rest = data.partition(b'\r\n')
        return line.decode('cp1252'), rest

    @staticmethod
    def _fields(line):
        return [quoted if quoted or not plain else plain for quoted, plain in re.findall(r'"([^"]*)"|([^,"]+)', line)]

    @staticmethod
    def _block(data):
        channels = [data[259 * channel:259 * (channel + 1)] for channel in range(4)]
        if any(channel[256:] != b'-\r\n' for channel in channels):
            raise ValueError('a channel does not end in its mark')
        return [list(channel[:SAMPLES]) for channel in channels]


def calibration_factors(path):
    """The factors, one for each spectrum index from 1."""
    with open(path, encoding='cp1252') as file:
        return [float(field) for field in re.split(r'[,\s]+', file.read().strip())]


def transform(values):
    """The Fourier transform; the number of values is a power of two."""
    if len(values) == 1:
        return [complex(values[0])]
    even, odd = transform(values[0::2]), transform(values[1::2])
    turned = [cmath.exp(-2j * cmath.pi * i / len(values)) * value for i, value in enumerate(odd)]
    return [a + b for a, b in zip(even, turned)] + [a - b for a, b in zip(even, turned)]


def amplitudes(samples, factors):
    """Microvolts at the indexes 1..128, as a list from 0: the spectrum, scaled so that its largest line is three times
    the mean absolute deviation of the samples."""
    mean = sum(samples) / len(samples)
    deviation = sum(abs(sample - mean) for sample in samples) / len(samples)
    lines = [abs(line) for line in transform(samples)[:SAMPLES // 2]]
    lines[0] = lines[1] / 2  # replaces the mean of the samples
    largest = max(lines)
    factors = factors + [1.0] * (len(lines) - len(factors))
    return [3 * deviation * line / largest * factor for line, factor in zip(lines, factors)]


def mean_spectrum(spectra):
    """The mean over several blocks."""
    return [sum(values) / len(spectra) for values in zip(*spectra)]


def band_maxima(spectrum):
    return {band: max(spectrum[first - 1:last]) for band, (first, last) in BANDS.items()}


def band_means(spectrum):
    return {band: sum(spectrum[first - 1:last]) / (last - first + 1) for band, (first, last) in BANDS.items()}
