"""Collects what the tests have run in a build with --coverage, writes the report, and compares the branches that no test
takes with the list of those that are known.

    /usr/bin/python3 coverage.py BUILD [--rows]

BUILD/report/index.html shows every line. --rows prints the new ones as rows for untaken.tsv. Debian package: gcovr.
"""
import collections
import json
import os
import subprocess
import sys

import branches
import kept_list

HERE = os.path.dirname(os.path.abspath(__file__))
ROOT = os.path.dirname(os.path.dirname(HERE))
# Folders whose untaken branches have been gone through, in the sources; of the others only the number is shown.
EXAMINED = ('src/analysis/', 'src/device/', 'src/display/', 'src/eeg/', 'src/frame/', 'src/recording/', 'src/report/',
            'src/values/', 'src/wiring/')


def collect(root, build):
    """What gcovr counts, as JSON, of everything below src and tools."""
    path = os.path.join(build, 'coverage.json')
    subprocess.run(['gcovr', '--root', root, '--filter', os.path.join(root, 'src/'), '--filter',
                    os.path.join(root, 'tools/'), '-j', str(os.cpu_count()), '--json', path, build], check=True)
    with open(path, encoding='utf-8') as file:
        return json.load(file)


def lines_of(root, name):
    with open(os.path.join(root, name), encoding='utf-8') as file:
        return file.read().split('\n')


def write_report(root, build, collected):
    """The HTML pages, with the branches of the source text alone."""
    written = os.path.join(build, 'written.json')
    with open(written, 'w', encoding='utf-8') as file:
        json.dump(collected, file)
    os.makedirs(os.path.join(build, 'report'), exist_ok=True)
    subprocess.run(['gcovr', '--root', root, '--add-tracefile', written, '--html-title', 'Korvinel: what the tests run',
                    '--html-details', os.path.join(build, 'report', 'index.html')], check=True)


def examine(root, build):
    """The untaken branches, and for each folder how many branches there are."""
    collected, untaken, number = collect(root, build), [], collections.Counter()
    for file in collected['files']:
        lines = lines_of(root, file['file'])
        untaken += branches.untaken_of(file, lines)
        branches.only_written(file, lines)
        number[os.path.dirname(file['file'])] += sum(len(line['branches']) for line in file['lines'])
    write_report(root, build, collected)
    return untaken, number


def print_figures(untaken, number):
    missing = collections.Counter()
    for one in untaken:
        missing[os.path.dirname(one.name)] += one.branch.split(' of ')[0].count(',') + 1
    print('%-32s %10s %10s' % ('folder', 'branches', 'untaken'))
    for folder in sorted(set(number) | set(missing)):
        print('%-32s %10d %10d' % (folder, number[folder], missing[folder]))


def main(build, rows_wanted):
    untaken, number = examine(ROOT, os.path.abspath(build))
    rows, faults = kept_list.read(os.path.join(HERE, 'untaken.tsv'))
    examined = [one for one in untaken if one.name.startswith(EXAMINED) and one.name.endswith('.cpp')]
    new, stale = kept_list.compare(examined, rows)
    for one in new:
        print('\t'.join([*kept_list.key(one), '']) if rows_wanted else
              '%s:%d: never taken, %s: %s' % (one.name, one.line, one.branch, one.text))
    for fault in [*faults, *('no longer untaken: ' + row for row in stale)]:
        print('untaken.tsv: ' + fault)
    print_figures(untaken, number)
    print('%d listed branches still want a test' % sum(row[-1].startswith('open') for row in rows))
    failed = len(new) + len(stale) + len(faults)
    print('%d passed, %d failed' % (sum(number.values()) - len(new), failed))
    return failed > 0


if __name__ == '__main__':
    sys.exit(main(sys.argv[1], '--rows' in sys.argv))
