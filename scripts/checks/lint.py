"""clang-tidy on every source of a build, by the command that compiles it; what was clean before is not read again.

    /usr/bin/python3 lint.py BUILD [ROOT] [-- FOLDER...]

BUILD is a configured build folder; the folders are src, tools and bench unless others are named. A clean result is kept
below ~/.cache/korvinel-tidy (or $XDG_CACHE_HOME) under the hash of all that it depends on in the checkout, so a new
clone profits too. Debian package: clang-tidy.
"""
import concurrent.futures
import functools
import hashlib
import json
import os
import re
import shlex
import shutil
import subprocess
import sys
import time

import sources

FOLDERS = ['src', 'tools', 'bench']
WINDOWS = 'src/platform/windows/'
MINGW = 'x86_64-w64-mingw32'
WINDOWS_COMPILER = MINGW + '-g++-posix'
INCLUDE = re.compile(r'^\s*#\s*include\s*"([^"]+)"', re.M)
KEPT_DAYS = 60
CACHE = os.path.join(os.environ.get('XDG_CACHE_HOME') or os.path.expanduser('~/.cache'), 'korvinel-tidy')


def arguments_of(command):
    """Of a compiling, what concerns the reading of a source."""
    given = iter(shlex.split(command)[1:])
    kept = []
    for argument in given:
        if argument in ('-o', '-c'):
            next(given)
        elif not argument.startswith('-O'):
            kept.append(argument)
    return kept + ['-Wno-unknown-warning-option']


def commands(build, root):
    """source -> arguments; of a source that several targets compile, the first."""
    with open(os.path.join(build, 'compile_commands.json'), encoding='utf-8') as file:
        entries = json.load(file)
    found = {}
    for entry in entries:
        found.setdefault(os.path.relpath(entry['file'], root), arguments_of(entry['command']))
    return found


@functools.cache
def windows_arguments(root):
    """clang looks for the headers of C++ where Debian's compiler for Windows does not have them."""
    library = subprocess.run([WINDOWS_COMPILER, '-print-libgcc-file-name'], capture_output=True, encoding='utf-8').stdout
    headers = os.path.join(os.path.dirname(library), 'include/c++')
    return ['--target=' + MINGW, '-std=c++20', '-Wall', '-Wextra', '-I' + os.path.join(root, 'src'),
            '-isystem', headers, '-isystem', os.path.join(headers, MINGW)]


class Sources:
    """A checkout's sources with what each depends on."""

    def __init__(self, root, tool):
        self.root, self.tool = root, tool

    @functools.cache
    def read(self, path):
        return sources.read(self.root, path)

    @functools.cache
    def included(self, path, folders):
        """The files of the checkout that a file includes itself."""
        found = set()
        for name in INCLUDE.findall(self.read(path)):
            for folder in (os.path.dirname(path), *folders):
                candidate = os.path.normpath(os.path.join(folder, name))
                if os.path.isfile(os.path.join(self.root, candidate)):
                    found.add(candidate)
                    break
        return found

    def with_headers(self, path, arguments):
        folders = tuple(os.path.relpath(argument[2:], self.root) for argument in arguments if argument.startswith('-I'))
        reached, waiting = set(), {path}
        while waiting:
            reached |= waiting
            waiting = set().union(*(self.included(file, folders) for file in waiting)) - reached
        return sorted(reached)

    def settings(self, path):
        """Every .clang-tidy from the source's folder up."""
        while path:
            path = os.path.dirname(path)
            name = os.path.join(path, '.clang-tidy')
            if os.path.isfile(os.path.join(self.root, name)):
                yield name

    def key(self, path, arguments):
        digest = hashlib.sha256(self.tool.encode())
        digest.update('\0'.join(arguments).replace(self.root, '').encode())
        for name in (*self.settings(path), *self.with_headers(path, arguments)):
            digest.update(('\0%s\0%s' % (name, self.read(name))).encode())
        return digest.hexdigest()


def findings(root, path, arguments):
    """What clang-tidy says of a source; nothing if it is clean."""
    result = subprocess.run(['clang-tidy', '--quiet', path, '--', *arguments], cwd=root, capture_output=True,
                            encoding='utf-8', errors='replace')
    if result.returncode == 0:
        return ''
    return result.stdout.strip() or result.stderr.strip()


def is_clean(files, path, arguments):
    """Prints what clang-tidy finds in a source."""
    mark = os.path.join(CACHE, files.key(path, arguments))
    if os.path.exists(mark):
        os.utime(mark)
        return True
    found = findings(files.root, path, arguments)
    if found:
        print(found, flush=True)
    else:
        open(mark, 'w').close()
    return not found


def forget_old_results():
    for entry in os.scandir(CACHE):
        if entry.stat().st_mtime < time.time() - KEPT_DAYS * 86400:
            os.remove(entry.path)


def tasks(build, root, folders):
    """(source, arguments) of all of them, and those that cannot be read here: only Windows' own, without its headers."""
    known = commands(build, root)
    found, left = [], []
    for path in sources.files(root, ('.cpp',), folders):
        if path in known:
            found.append((path, known[path]))
        elif path.startswith(WINDOWS) and not shutil.which(WINDOWS_COMPILER):
            left.append(path)
        elif path.startswith(WINDOWS):
            found.append((path, windows_arguments(root)))
        else:
            sys.exit('%s is compiled by no target of %s' % (path, build))
    return found, left


def main():
    given = sys.argv[1:] + ['--']
    options, folders = given[:given.index('--')], [name for name in given[given.index('--') + 1:] if name != '--']
    root = os.path.abspath(options[1]) if len(options) > 1 else sources.ROOT
    found, left = tasks(os.path.abspath(options[0]), root, folders or FOLDERS)
    tool = subprocess.run(['clang-tidy', '--version'], capture_output=True, encoding='utf-8', check=True).stdout
    os.makedirs(CACHE, exist_ok=True)
    forget_old_results()
    files = Sources(root, tool)
    with concurrent.futures.ThreadPoolExecutor(int(os.environ.get('KORVINEL_JOBS') or os.cpu_count())) as pool:
        clean = list(pool.map(lambda task: is_clean(files, *task), found))
    if left:
        print('left out, without the packages of packaging/windows: %s' % ' '.join(left))
    sources.end([path + ': see above' for (path, _), good in zip(found, clean) if not good], len(found))


main()
