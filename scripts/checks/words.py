"""The words of a file with their line and language: comments, messages, documents, names in the code."""
import re

ENGLISH, ITALIAN, EITHER, NAME = 'English', 'Italian', 'either', 'a name of the code'

CPP_TOKEN = re.compile(r'R"(?P<mark>\w*)\((?P<raw>.*?)\)(?P=mark)"|"(?P<string>(?:\\.|[^"\\\n])*)"|\'(?:\\.|[^\'\\\n])+\''
                       r'|//(?P<line>[^\n]*)|/\*(?P<block>.*?)\*/', re.S)
PYTHON_TOKEN = re.compile(r'"""(?P<block>.*?)"""|"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])*\'|#(?P<line>[^\n]*)', re.S)
SHELL_COMMENT = re.compile(r'(?:^|(?<=\s))#(?P<line>[^\n]*)')
CODE = re.compile(r'^```.*?^```|`[^`]+`|(?<=\n\n)(?: {4}[^\n]*\n)+|\]\([^)]*\)|<[^>\n]*>|https?://\S+|NOLINT[^:\n]*'
                  r'|noqa: \w+', re.S | re.M)
QUOTED = re.compile(r'"[^"]{1,300}"|«[^»]*»')
ROFF = re.compile(r'^\.[^\n]*|\\f\w|\\[-&e]', re.M)
WORD = re.compile(r"[^\W\d_]+(?:'[^\W\d_]+)*'?")
NO_WORD = re.compile(r'[\w.~/\\$-]*(?:[\d_\\/$~]|[a-z][A-Z]|[A-Z]{2}[a-z]|::|\.\w|\(\))[\w./()\\~$-]*')  # of code, a file, a unit
STRING_MARK = re.compile(r'\\[nrt"]|%\w')
COMPOUND = re.compile(r'\b(?:[a-z]+[A-Z]|[A-Z][a-z]+)\w*')
FOREIGN = re.compile(r'^\s*#.*$|\b(?:std|Qt)::[\w:]+|\bQ[A-Z]\w+|\b[A-Z]+\b', re.M)
PART = re.compile(r'[A-Z]?[a-z]{3,}')


def blank(match):
    """The same number of lines and characters, without a word."""
    return re.sub(r'[^\n]', ' ', match.group())


def placed(pattern, text, first_line=1):
    for match in pattern.finditer(text):
        yield first_line + text.count('\n', 0, match.start()), match


def plain(text, line, language):
    """Of text without markup. Names of code and paths are no words."""
    for place, match in placed(WORD, NO_WORD.sub(blank, text), line):
        yield place, match.group(), language


def prose(text, line, language):
    """Of comments and documents; what stands in quotation marks is what the windows show, in either language."""
    text = CODE.sub(blank, text)
    for place, match in placed(QUOTED, text, line):
        yield from plain(match.group(), place, EITHER)
    yield from plain(QUOTED.sub(blank, text), line, language)


def comments(text, token):
    for line, match in placed(token, text):
        for part in ('line', 'block'):
            yield from prose(match.groupdict().get(part) or '', line, ENGLISH)


def messages(text):
    for line, match in placed(CPP_TOKEN, text):
        yield from plain(STRING_MARK.sub(blank, match['string'] or match['raw'] or ''), line, EITHER)


def names(text):
    """The parts of compound names such as acquisitionTick, but of libraries'."""
    for line, match in placed(COMPOUND, FOREIGN.sub(blank, CPP_TOKEN.sub(blank, text))):
        for part in PART.findall(match.group()):
            yield line, part, NAME


def of_cpp(path, text):
    yield from comments(text, CPP_TOKEN)
    yield from names(text)
    if path.startswith(('src', 'tools')):
        yield from messages(text)


def language_of(path):
    """The glossary has a column of Italian words."""
    if path.startswith('docs/manuale'):
        return ITALIAN
    return EITHER if path == 'docs/glossary.md' or path.startswith('packaging') else ENGLISH


def of_file(path, text):
    if path.endswith(('.cpp', '.h')):
        return of_cpp(path, text)
    if path.endswith('.py'):
        return comments(text, PYTHON_TOKEN)
    if path.endswith(('.md', '.txt', '.desktop', '.xml', '.Debian')) and not path.endswith('CMakeLists.txt'):
        return prose(text, 1, language_of(path))
    if path.endswith('.1'):
        return prose(ROFF.sub(blank, text), 1, EITHER)
    return comments(text, SHELL_COMMENT)
