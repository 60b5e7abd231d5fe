#!/usr/bin/python3
"""Band amplitudes, correlation and coherence of recordings in plain floating point, for comparison with the recording
tool's batch.

    band_powers.py FILE.QVD...        one line per file: its name, blocks, the mean amplitude of the four bands for
                                      each channel, and the mean correlation and coherence for each pair

Uses numpy and scipy at their best: a file is one array of blocks x channels x samples, and every step is one call over
all of it. No rounding to four decimals, no running means. Needs Debian's python3-scipy.
"""
import sys

import numpy
from scipy import fft

SAMPLES, CHANNELS = 256, 4
RECORD = SAMPLES + 3
FIRST, SECOND = numpy.array([0, 2, 0, 1]), numpy.array([1, 3, 2, 3])  # the pairs
BANDS = ((0, 7), (7, 16), (16, 26), (26, 64))
MOST_BLOCKS = 199


def blocks_of(path):
    """An array of blocks x channels x samples: complete blocks only, without the last one, as in the program."""
    with open(path, 'rb') as file:
        content = file.read()
    header, _, rest = content.partition(b'\r\n')
    for _ in range(int(header.rsplit(b',', 1)[1])):
        _, _, rest = rest.partition(b'\r\n')
    count = min(len(rest) // (RECORD * CHANNELS) - 1, MOST_BLOCKS)
    records = numpy.frombuffer(rest, numpy.uint8, count * CHANNELS * RECORD).reshape(count, CHANNELS, RECORD)
    return records[:, :, :SAMPLES].astype(numpy.float64)


def low_passed(spectra):
    """The samples without the spectrum indexes 80 to 176, with the program's gain and folded imaginary part."""
    kept = spectra.copy()
    kept[:, :, 79:176] = 0
    signal = fft.ifft(kept, axis=2, overwrite_x=True)
    return (signal.real + signal.imag) * 1.06 + 128


def without_mean(spectra):
    spectra[:, :, 0] = spectra[:, :, 1] / 2
    return spectra


def amplitudes(samples, spectra):
    """Uncalibrated microvolts: the largest magnitude is scaled to three times the mean deviation."""
    magnitude = numpy.abs(spectra[:, :, :128])
    peak = numpy.maximum(magnitude.max(axis=2, keepdims=True), 0.1)
    deviation = numpy.abs(samples - samples.mean(axis=2, keepdims=True)).mean(axis=2, keepdims=True)
    return magnitude * (3 * deviation / peak)


def correlations(samples):
    centred = samples - samples.mean(axis=2, keepdims=True)
    product = numpy.einsum('bps,bps->bp', centred[:, FIRST], centred[:, SECOND])
    energy = numpy.einsum('bcs,bcs->bc', centred, centred)
    size = numpy.sqrt(energy[:, FIRST] * energy[:, SECOND])
    return 100 * numpy.divide(product, size, out=numpy.zeros_like(product), where=size > 0)


def coherences(spectra):
    phase = numpy.angle(spectra[:, :, :128])
    return 100 * numpy.cos(phase[:, FIRST] - phase[:, SECOND])


def measures(path):
    samples = blocks_of(path)
    samples = low_passed(without_mean(fft.fft(samples, axis=2)))
    spectra = without_mean(fft.fft(samples, axis=2))
    mean = amplitudes(samples, spectra).mean(axis=0)
    powers = [mean[:, first:last].mean(axis=1) for first, last in BANDS]
    return len(samples), numpy.concatenate(
        [*powers, correlations(samples).mean(axis=0), coherences(spectra).mean(axis=(0, 2))])


def main():
    for path in sys.argv[1:]:
        blocks, numbers = measures(path)
        print(path, blocks, *('%.4f' % number for number in numbers))


if __name__ == '__main__':
    main()
