"""Changes the program in small ways and asks whether the tests notice.

    /usr/bin/python3 tests/mutation/campaign.py COUNT [--seed N] [--only PATH_PART] [--jobs N] [--budget SECONDS] [--again]

One build in build/mutation holds every change behind a switch (places.py, switch.h). The tests first run unchanged and
tell which of them reach which place; then COUNT changes, the same for the same seed and spread evenly over the folders,
are made one by one, and the tests that reach the place run: those of the source's own test file and the quickest first,
then the others, up to a budget of SECONDS of tests for each change (60; 0: all of them). Each change writes a line into
build/mutation/results.tsv, `noticed by TEST` or `survived`; what stands there is not run again, so that an interrupted
campaign goes on (--again: the survivors run again). Survivors that equivalents.tsv lists, each with the reason why nobody
can see it, count as settled. Ends with "N passed, N failed".
"""
import argparse
import concurrent.futures
import os
import sys

import table
from changed_build import ChangedBuild
from judging import Tests
from sources import SOURCE, Sources

WORK = os.path.join(SOURCE, 'build', 'mutation')
RESULTS = os.path.join(WORK, 'results.tsv')
EQUIVALENTS = os.path.join(os.path.dirname(os.path.abspath(__file__)), 'equivalents.tsv')


def options():
    parser = argparse.ArgumentParser()
    parser.add_argument('count', type=int)
    parser.add_argument('--seed', type=int, default=1)
    parser.add_argument('--only', default='')
    parser.add_argument('--jobs', type=int, default=2)
    parser.add_argument('--budget', type=float, default=60)
    parser.add_argument('--again', action='store_true')
    return parser.parse_args()


def prepared(budget):
    """The changed program, built and measured."""
    sources = Sources(WORK)
    build = ChangedBuild(WORK, sources)
    texts = sources.copy_all()
    build.configure()
    sources.find(texts, build.compile_commands)
    build.make()
    tests = Tests(sources.copy, build.folder, budget=budget or float('inf'))
    tests.measure()
    return sources, tests


def still_open(changes, known, again):
    return [change for change in changes
            if change.key() not in known or again and known[change.key()].startswith('survived')]


def judge_all(changes, tests, jobs, known):
    """Adds each outcome to `known` and to the table as it comes."""
    with open(RESULTS, 'a', encoding='utf-8') as log, concurrent.futures.ThreadPoolExecutor(jobs) as pool:
        asked = {pool.submit(tests.judge, change.number, change.name): change for change in changes}
        for answer in concurrent.futures.as_completed(asked):
            change = asked[answer]
            known[change.key()] = answer.result()
            log.write(table.row(change, known[change.key()]))
            log.flush()


def main():
    given = options()
    sources, tests = prepared(given.budget)
    changes = [change for change in table.changes_of(sources.files) if given.only in change.name]
    tried = table.chosen(changes, given.count, given.seed)
    print('%d changes stand in the build; %d are tried' % (len(changes), len(tried)), flush=True)
    known = table.read_table(RESULTS)
    judge_all(still_open(tried, known, given.again), tests, given.jobs, known)
    good, bad = table.print_figures({change: known[change.key()] for change in tried},
                                    table.read_table(EQUIVALENTS))
    print('%d passed, %d failed' % (good, bad))
    return 1 if bad else 0


if __name__ == '__main__':
    sys.exit(main())
