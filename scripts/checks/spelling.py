"""Every word of comments, messages, documents and compound names stands in a dictionary or in words.txt beside this.

    /usr/bin/python3 spelling.py [ROOT]

English comments and documents are held to British English, the manual to Italian, messages to either. Debian packages:
hunspell hunspell-en-gb hunspell-it.
"""
import collections
import os
import re
import subprocess
import sys

import sources
import words

LIST = 'scripts/checks/words.txt'
ENDINGS = ('.cpp', '.h', '.py', '.md', '.txt', '.desktop', '.xml', '.Debian', '.1', '.cmake', '.sh', '/run', '/build', '/test')
FOREIGN = ('LICENSE', 'tests/data', 'tests/fuzz/corpus', 'tests/fuzz/seeds', LIST)  # not written here, or not text
LANGUAGES = (words.ENGLISH, words.ITALIAN, words.EITHER, words.NAME)
ACCENTED = {'a': 'à', 'e': 'èé', 'i': 'ì', 'o': 'ò', 'u': 'ù'}
ELISIONS = set('l un d c s m t v n all dall dell nell sull coll quell quest cos dov com anch'.split())


def british(word):
    """What the dictionary is asked: without the genitive."""
    return {re.sub(r"('s|')$", '', word)}


def of_name(word):
    """A name has no apostrophe: notesOfAnothersFile."""
    return {word, re.sub('s$', '', word)}


def italian(word):
    """Without the elision before it; an apostrophe at the end may stand for an accent."""
    *before, word = [part for part in re.split(r"'(?=.)", word)]
    if not {part.lower() for part in before} <= ELISIONS:
        return {'-'.join(before)}
    stem = word.rstrip("'")
    forms = {stem}
    if word != stem:
        forms.update(stem[:-1] + accented for accented in ACCENTED.get(stem[-1].lower(), ''))
    return forms


def unknown(forms, dictionary):
    """Of these forms, those that the dictionary lacks."""
    answer = subprocess.run(['hunspell', '-l', '-i', 'utf-8', '-d', dictionary], input='\n'.join(sorted(forms)),
                            capture_output=True, encoding='utf-8', check=True)
    if answer.stderr:
        sys.exit(answer.stderr)
    return set(answer.stdout.split())


def misspelt(found, forms_of, dictionary):
    """Of the words found, those with no form in the dictionary."""
    forms = {word: forms_of(word) for word in found}
    lacking = unknown(set().union(*forms.values()), dictionary)
    return {word for word in found if forms[word] <= lacking}


def places_of_words(root):
    """language -> word -> [(path, line)]"""
    found = {language: collections.defaultdict(list) for language in LANGUAGES}
    checked = [path for path in sources.files(root, ENDINGS) if not path.startswith(FOREIGN)]
    for path in checked:
        for line, word, language in words.of_file(path, sources.read(root, path)):
            found[language][word].append((path, line))
    return found, checked


def unknown_words(found):
    """(word, places) in no dictionary of their language."""
    bad = {words.ENGLISH: misspelt(found[words.ENGLISH], british, 'en_GB'),
           words.ITALIAN: misspelt(found[words.ITALIAN], italian, 'it_IT')}
    bad[words.EITHER] = misspelt(misspelt(found[words.EITHER], british, 'en_GB'), italian, 'it_IT')
    bad[words.NAME] = misspelt(misspelt(found[words.NAME], of_name, 'en_GB'), of_name, 'it_IT')
    for language in bad:
        for word in bad[language]:
            yield word, found[language][word]


def entries(root):
    """The words of the list, and what is wrong with it."""
    path = os.path.join(root, LIST)
    if not os.path.exists(path):
        return [], []
    listed = [line.split('#')[0].strip() for line in sources.read(root, LIST).split('\n')]
    listed = [word for word in listed if word]
    disorder = [after for before, after in zip(listed, listed[1:]) if before.casefold() >= after.casefold()]
    return listed, ['%s: "%s" is not in its place' % (LIST, word) for word in disorder]


def main():
    root = sys.argv[1] if len(sys.argv) > 1 else sources.ROOT
    found, checked = places_of_words(root)
    listed, faults = entries(root)
    allowed, used = {word.casefold() for word in listed}, set()
    for word, places in unknown_words(found):
        bare = re.sub(r"('s|')$", '', word).casefold()
        used.add(bare)
        if bare not in allowed:
            faults += ['%s:%d: "%s" is in no dictionary and not in %s' % (*place, word, LIST) for place in places]
    faults += ['%s: "%s" is not needed' % (LIST, word) for word in listed if word.casefold() not in used]
    sources.end(sorted(faults), len(checked))


main()
