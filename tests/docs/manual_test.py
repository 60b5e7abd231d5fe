"""The user's manual quotes the program: every quoted text exists in the sources, and every message in the sources is in
the manual.

    /usr/bin/python3 manual_test.py

The manual quotes texts in «guillemets», with <br> between lines and without the variable parts.
"""
import glob
import os
import re
import sys
import unittest

SOURCE = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
LITERAL = r'"((?:[^"\\]|\\.)*)"'
ESCAPES = {'r': '\n', 'n': '\n', '"': '"', '\\': '\\'}

# Calls whose text is shown to the user or becomes the reason in a message.
SHOWN = re.compile(r'\b(notice|ask|input|refuse|showStatus|NotPrinted|fail|print|printAt)\s*\('
                   r'|(statusLabel|dateLabel|box)\.setText\s*\('
                   r'|\b(messageText\d|headerText\d|text|printPrompt)\s*\+?=')
# Every text of these is shown, except those about ports: an unusable port counts as a silent instrument.
ALL_SHOWN = {'src/frame/fault_text.cpp', 'src/frame/fault_sentence.cpp'}
OF_PORTS = re.compile(r'Cause::(port|noPort)')


def sources():
    """(name, code without comments) of every file with texts that a user can see."""
    for path in sorted(glob.glob(os.path.join(SOURCE, 'src/**/*.*'), recursive=True)):
        name = os.path.relpath(path, SOURCE)
        if not name.endswith(('.cpp', '.h')) or '/headless/' in name or '/windows/' in name:
            continue
        with open(path, encoding='utf-8') as file:
            code = file.read()
        code = '\n'.join(line for line in code.split('\n') if not line.lstrip().startswith(('//', '#include')))
        code = code.replace("'\"'", '')
        yield name, re.sub(r'"\s*\n\s*"', '', code)  # adjacent literals are one text


def lines_of(literal):
    text = re.sub(r'\\(.)', lambda match: ESCAPES.get(match.group(1), ' '), literal)
    return [line for line in re.split(r'\n|<(?:path|newPath|text|reason)>', text) if line.strip()]


def texts_of_sources():
    return [line for _, code in sources() for literal in re.findall(LITERAL, code) for line in lines_of(literal)]


def messages_of_sources():
    """(file, line of a message); single words and parts of a line do not count as messages."""
    for name, code in sources():
        for statement in re.split(r'[;{}]', code):
            if not (SHOWN.search(statement) or name in ALL_SHOWN) or OF_PORTS.search(statement):
                continue
            for literal in re.findall(LITERAL, statement):
                for line in lines_of(literal):
                    if len(re.findall(r'[A-Za-z]{2,}', line)) >= 3:
                        yield name, line.strip(' "')


def manual():
    with open(os.path.join(SOURCE, 'docs/manuale/manuale.md'), encoding='utf-8') as file:
        return file.read()


def quotations():
    for quoted in re.findall(r'«(.*?)»', re.sub(r'\s*\n\s*', ' ', manual())):
        yield from (line for line in quoted.split('<br>') if line.strip())


def headings():
    return set(re.findall(r'^#+ (.*)$', manual(), re.M))


class ManualTest(unittest.TestCase):
    def test_every_quoted_text_stands_in_the_program(self):
        texts = texts_of_sources()
        quoted = [each for each in quotations() if each not in headings()]
        self.assertGreater(len(quoted), 150)
        for text in quoted:
            self.assertTrue(any(text in each for each in texts), 'the program does not say «%s»' % text)

    def test_every_message_of_the_program_stands_in_the_manual(self):
        messages = set(messages_of_sources())
        self.assertGreater(len(messages), 60)
        quoted = '\n'.join(quotations())
        explained = re.sub(r'\s+', ' ', manual())
        for name, line in sorted(messages):
            self.assertTrue(line in quoted or line in explained, '%s: the manual misses «%s»' % (name, line))

    def test_the_letters_of_the_keyboard_are_those_of_the_windows(self):
        windows = re.search(r'## Usare la tastiera\n(.*?)\n## ', manual(), re.S).group(1).split('e nel rapporto:')
        for window, section in zip(('main_window', 'report_window'), windows):
            with open(os.path.join(SOURCE, 'src/app/%s_help.h' % window), encoding='utf-8') as file:
                letters = re.findall(r"'([A-Z])'", file.read())
            self.assertGreater(len(letters), 5)
            self.assertEqual(sorted(re.findall(r'Alt\+([A-Z])', section)), sorted(letters))

    def test_every_picture_is_there_and_every_picture_is_used(self):
        named = set(re.findall(r'!\[[^\]]*\]\(\.\./pictures/([^)]+)\)', manual()))
        there = {os.path.basename(path) for path in glob.glob(os.path.join(SOURCE, 'docs/pictures/*'))}
        self.assertEqual(named, there)


if __name__ == '__main__':
    result = unittest.main(verbosity=1, exit=False).result
    failed = len(result.failures) + len(result.errors)
    print('%d passed, %d failed' % (result.testsRun - failed - len(result.skipped), failed))
    sys.exit(failed > 0)
