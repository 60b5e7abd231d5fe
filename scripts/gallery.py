"""The pictures of the README and the manual, taken from the real program in a virtual display. Those that the manual
explains part by part carry numbered discs, large enough to be read in print.

    /usr/bin/python3 scripts/gallery.py BUILD_FOLDER [PICTURES_FOLDER]

Records a short examination with the simulated instrument, then opens a long one prepared from the instrument's samples,
and writes small PNGs to docs/pictures. Debian packages: the group "run" of packages.debian.
"""
import datetime
import os
import select
import subprocess
import sys
import time
import tty

SOURCE = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
sys.path.insert(0, os.path.join(SOURCE, 'tests/window'))
import driver

BUILD = os.path.abspath(sys.argv[1])
PICTURES = os.path.abspath(sys.argv[2] if len(sys.argv) > 2 else os.path.join(SOURCE, 'docs/pictures'))
INSTRUMENT = os.path.join(BUILD, 'tools/instrument/korvinel-instrument')
# What the manual's first table explains, in its order.
PARTS = ['Tracciato 1', 'Spettro sinistro', 'Coerenza', 'Valori numerici 1', 'Messaggi', ('Striscia del tempo', 0.5, 0.82),
         ('Blocco iniziale', 0.5, 0.5), ('Intervallo e disturbo a 50 Hz', 0.94, 0.5), ('Start', 0.12, 0.5),
         ("Stato dell'esame", 0.9, 0.5), ('F1: ', 0.88, 0.32)]
BLOCKS, SECONDS, FRAME, SAMPLES = 190, 2, 4, 256  # a block of signal is two seconds
COLOURS = 48
DISC = 13  # pixels from its centre to its rim


def samples_of_instrument(folder, blocks):
    """What the instrument streams, eyes open and then closed, at many times the real speed."""
    link = os.path.join(folder, 'gallery-port')
    models = 'eyes-open:%d,eyes-closed' % (blocks // 2 * SECONDS)
    process = subprocess.Popen([INSTRUMENT, '--link', link, '--model', models, '--speed', '100'],
                               stdout=subprocess.PIPE)
    try:
        process.stdout.readline()
        port = os.open(link, os.O_RDWR | os.O_NOCTTY)
        tty.setraw(port)
        os.write(port, bytes((83, 1, 4, 120, 65, 8, 66, 165)))
        stream = b''
        while len(stream) < blocks * SAMPLES * FRAME and select.select([port], [], [], 10)[0]:
            stream += os.read(port, 65536)
        os.close(port)
    finally:
        driver.end_process(process)
        process.stdout.close()
    return stream


def write_recording(path, stream, blocks):
    """In the format of docs/file-format.md."""
    date = datetime.date.today().strftime('%d/%m/%Y')
    middle = blocks // 2
    with open(path, 'wb') as file:
        file.write(b'"Rossi Anna","%s V3","4canali",2\r\n' % date.encode())
        file.write(b'2,"occhi aperti"\r\n%d,"occhi chiusi"\r\n' % (middle + 1))
        for block in range(blocks):
            frames = stream[block * SAMPLES * FRAME:(block + 1) * SAMPLES * FRAME]
            for channel in range(FRAME):
                file.write(bytes({0: 1, 9: 8, 10: 11, 26: 27}.get(byte, byte) for byte in frames[channel::FRAME]))
                file.write(b'-\r\n')


def take(program, name, window=None, numbered=()):
    """Saves the program's window, or one of its parts, as NAME.png with few colours; each object of `numbered`, by its
    name, gets a disc with its number, the first 1. Of (name, x, y) the disc lies at these fractions of the object."""
    time.sleep(0.4)
    path = os.path.join(PICTURES, name + '.png')
    place = extents(program, window or main_window(program))
    left, top = max(place.x, 0), max(place.y, 0)
    area = '%dx%d+%d+%d' % (place.width, place.height, left, top)
    discs = [argument for number, each in enumerate(numbered, 1)
             for argument in disc(number, *spot(program, each, left, top))]
    picture = subprocess.run(['import', '-window', 'root', '-crop', area, '+repage', 'png:-'], check=True, capture_output=True).stdout
    subprocess.run(['/usr/bin/convert', 'png:-', *discs, '-dither', 'None', '-colors', str(COLOURS), '-strip', '-define',
                    'png:compression-level=9', 'png8:' + path], input=picture, check=True)
    print(path, os.path.getsize(path), flush=True)


def extents(program, found):
    return program.atspi.Component.get_extents(found, program.atspi.CoordType.SCREEN)


def named(program, name):
    """The object with this name; of a name that ends with a blank, the one that begins with it."""
    if not name.endswith(' '):
        return program.find(name)
    return driver.wait(lambda: next((each for each in program.walk() if each.get_name().startswith(name)), None), what=name)


def spot(program, marked, left, top):
    """Where a disc is drawn: by default near the object's upper right corner."""
    name, x, y = marked if isinstance(marked, tuple) else (marked, None, None)
    place = extents(program, named(program, name))
    if x is None:
        return place.x + place.width - DISC - 2 - left, place.y + DISC + 2 - top
    return place.x + round(x * place.width) - left, place.y + round(y * place.height) - top


def disc(number, x, y):
    """The drawing of a white number on dark red with a white rim, legible on any ground, in grey print too."""
    rim = 'circle %d,%d %d,%d' % (x, y, x, y + DISC)
    return ['-fill', '#b71c1c', '-stroke', 'white', '-strokewidth', '2', '-draw', rim, '-fill', 'white', '-stroke', 'none',
            '-font', 'DejaVu-Sans-Bold', '-pointsize', '16', '-gravity', 'NorthWest',
            '-draw', "text %d,%d '%d'" % (x - (5 if number < 10 else 10), y - 9, number)]


def main_window(program):
    return next(top for top in tops(program) if top.get_name().startswith('Korvinel - EEG'))


def tops(program):
    return [top for top in (program.root.get_child_at_index(i) for i in range(program.root.get_child_count())) if top]


def reach(program, block, timeout):
    driver.wait(lambda: program.value('Blocco iniziale') >= block, timeout, 'block %d' % block)


def live_pictures(program):
    take(program, 'first-page')
    program.press('Ho capito')
    take(program, 'start')
    program.type('Nome del file', 'esame-rossi')
    program.type('Nome del soggetto', 'Rossi Anna')
    program.press('Start')
    reach(program, 1, 20)
    program.press('Registra')
    reach(program, 8, 60)
    program.press('Annota')
    program.expect('the note box', lambda: program.label('Stato della registrazione'),
                   'Scrivi una nota poi premi Invio')
    program.type('Nota', 'occhi chiusi')
    take(program, 'note')
    program.click('Nota')
    driver.keys('Return')
    reach(program, 14, 60)
    take(program, 'main-window', numbered=PARTS)
    program.press('Artefatti')
    driver.wait(program.boxes, what='the question')
    take(program, 'threshold', program.boxes()[-1])
    program.answer('Cancel')
    program.press('Stop')
    driver.wait(program.boxes, 15, 'the notice')
    take(program, 'stopped')
    program.answer('OK')


def file_pictures(program, recording):
    program.press('Apri File')
    program.choose_file(recording)
    driver.wait(lambda: program.label('Blocco e durata totale').startswith('Totale='), 60, 'the summary')
    take(program, 'opened')
    program.move('Blocco iniziale', 110)
    program.press('Display')
    reach(program, 114, 20)
    take(program, 'replay')
    program.press('Stop')
    driver.wait(lambda: program.value('Blocco iniziale') == 1, 20, 'the end of the replay')
    program.drag('Striscia del tempo', 0.55, 0.85)
    driver.wait(lambda: program.label('Data').startswith('Intervallo='), what='the interval')
    take(program, 'interval')


def report_pictures(program):
    program.press('Analisi')
    driver.wait(lambda: program.printed('Spettro T6'), what='the report')
    program.press('Calcolo valori max banda')
    take(program, 'report', program.find('Korvinel - Analisi finale'))
    program.press('Commenti')
    driver.wait(lambda: program.printed('Testo dei commenti'), what='the comments')
    take(program, 'comments', next(top for top in tops(program) if 'ommenti' in top.get_name()))
    program.press('Uscita')


def main():
    os.makedirs(PICTURES, exist_ok=True)
    with driver.Desktop('1280x800') as desktop:
        stream = samples_of_instrument(desktop.folder, BLOCKS)
        desktop.start_instrument(INSTRUMENT, 1, '--model', 'eyes-closed', '--seed', '1')
        program = desktop.start_program([os.path.join(BUILD, 'korvinel')])
        recordings = os.path.join(desktop.data, 'drive_c/QUARVEL5/DATAFILE')
        recording = os.path.join(recordings, 'controllo.QVD')
        write_recording(recording, stream, BLOCKS)
        live_pictures(program)
        file_pictures(program, recording)
        report_pictures(program)
        program.press('End')
        program.wait_for_end()


main()
