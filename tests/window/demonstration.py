"""A whole examination in a virtual display, as `./run` performs it without a screen.

    /usr/bin/python3 demonstration.py BUILD_FOLDER DEMO_FOLDER [OPTION OF THE INSTRUMENT...]

Starts the simulated instrument and the program, records with a note, stops, opens the file, replays it, opens the
report and its comments, prints, and leaves the screenshots, the data file and the printed page in the demo folder.
"""
import glob
import os
import shutil
import sys
import time

BUILD, DEMO = (os.path.abspath(each) for each in sys.argv[1:3])
os.environ['KORVINEL_SCREENSHOTS'] = DEMO
sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import driver

driver.KORVINEL = os.path.join(BUILD, 'korvinel')
driver.INSTRUMENT = os.path.join(BUILD, 'tools/instrument/korvinel-instrument')
SIGNAL = sys.argv[3:] or ['--model', 'eyes-closed']
BLOCKS = 6


def say(text):
    print(text, flush=True)


def record(desktop, program):
    desktop.screenshot('1-start')
    program.type('Nome del file', 'dimostrazione')
    program.type('Nome del soggetto', 'Rossi Anna')
    say('handshake with the instrument, four seconds')
    program.press('Start')
    driver.wait(lambda: program.value('Blocco iniziale') >= 1, 20, 'the first block')
    program.press('Registra')
    program.expect('the record button', lambda: program.label('Stato della registrazione'), 'Registrazione Attiva')
    driver.wait(lambda: program.value('Blocco iniziale') == 2, 20, 'the recording')
    program.press('Annota')
    program.expect('the note box', lambda: program.label('Stato della registrazione'),
                   'Scrivi una nota poi premi Invio')
    program.type('Nota', 'occhi chiusi')
    program.click('Nota')
    driver.keys('Return')
    say('recording %d blocks of three seconds' % BLOCKS)
    driver.wait(lambda: program.value('Blocco iniziale') >= BLOCKS, 10 + 4 * BLOCKS, '%d blocks' % BLOCKS)
    desktop.screenshot('2-recording')
    program.press('Stop')
    program.answer('OK', 15)


def review(desktop, program, recording):
    say('opening ' + os.path.basename(recording))
    program.press('Apri File')
    program.choose_file(recording)
    driver.wait(lambda: program.label('Blocco e durata totale').startswith('Totale='), 20, 'the summary')
    desktop.screenshot('3-opened')
    program.press('Display')
    driver.wait(lambda: program.value('Blocco iniziale') >= 3, 20, 'the replay')
    desktop.screenshot('4-replay')
    driver.wait(lambda: program.value('Blocco iniziale') == 1, 30, 'the end of the replay')


def report(desktop, program):
    say('report, comments and print')
    program.press('Analisi')
    driver.wait(lambda: program.printed('Spettro T6'), what='the report')
    program.press('Calcolo valori max banda')
    time.sleep(0.5)
    desktop.screenshot('5-report')
    program.press('Commenti')
    driver.wait(lambda: program.printed('Testo dei commenti'), what='the comments')
    time.sleep(0.5)
    desktop.screenshot('6-comments')
    program.press('Uscita')
    time.sleep(0.5)
    program.press('Stampa')
    program.answer('OK')
    program.answer('OK', 20)  # the notice that names the page


def main():
    os.makedirs(DEMO, exist_ok=True)
    with driver.Desktop('1366x768') as desktop:
        os.environ['CUPS_SERVER'] = os.path.join(desktop.home, 'no-print-server')  # the page goes into a file
        desktop.start_instrument(driver.INSTRUMENT, 1, *SIGNAL)
        program = desktop.start_program([driver.KORVINEL])
        recordings = os.path.join(desktop.data, 'drive_c/QUARVEL5/DATAFILE')
        recording = os.path.join(recordings, 'dimostrazione.QVD')
        record(desktop, program)
        review(desktop, program, recording)
        report(desktop, program)
        program.press('End')
        program.wait_for_end()
        for made in glob.glob(os.path.join(recordings, '*')):
            shutil.copy(made, DEMO)
    say('The screenshots, the data file and the printed page are in %s:' % DEMO)
    for name in sorted(os.listdir(DEMO)):
        say('  ' + name)


main()
