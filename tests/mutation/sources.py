"""The campaign's copy of the sources, and all places in them that can be changed."""
import concurrent.futures
import dataclasses
import hashlib
import json
import os
import pickle
import re
import shutil
import subprocess

import insertion
import places

SOURCE = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
FOLDERS = ['src/values', 'src/eeg', 'src/frame', 'src/device', 'src/analysis', 'src/recording', 'src/display',
           'src/report', 'src/wiring', 'tools/recording_tool']
PLACES_A_BLOCK = 256


def run(command, **options):
    return subprocess.run(command, text=True, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, errors='replace',
                          **options)


def read(path):
    with open(path, encoding='utf-8') as file:
        return file.read()


def write(path, text):
    """Leaves a file alone that already has this text, so that it is not compiled again."""
    if os.path.exists(path) and read(path) == text:
        return
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, 'w', encoding='utf-8') as file:
        file.write(text)


@dataclasses.dataclass
class Changed:
    """A source with its places. `free`: constants that the compiler must not evaluate, so that they can be changed."""
    name: str
    text: str
    places: list = ()
    free: list = ()
    first: int = 0  # number of its first place

    def stamp(self):
        return hashlib.sha256('\0'.join([self.name, self.text]).encode()).hexdigest()

    def numbered(self):
        number, pairs = self.first, []
        for place in self.places:
            pairs.append((number, place))
            number += place.count
        return pairs

    def with_places(self):
        return insertion.with_places(self.text, self.numbered(), self.free)


class Sources:
    """`copy`: the folder that is built. `memory`: a cache of the places found in each text, because finding takes long."""

    def __init__(self, work, source=SOURCE, folders=FOLDERS):
        self.source, self.folders = source, folders
        self.copy = os.path.join(work, 'source')
        self.memory = os.path.join(work, 'places.pickle')
        self.files = []

    def copy_all(self):
        """Updates the copy from the work tree; returns the texts of the files to be changed."""
        listed = run(['git', '-C', self.source, 'ls-files', '--cached', '--others', '--exclude-standard']).stdout
        names = {name for name in listed.split('\n') if os.path.isfile(os.path.join(self.source, name))}
        self.remove_others(names)
        texts = {name: read(os.path.join(self.source, name)) for name in names if self.is_changed(name)}
        for name in names - texts.keys():
            self.copy_one(name)
        for name in texts:
            if not os.path.exists(os.path.join(self.copy, name)):
                self.copy_one(name)
        return texts

    def is_changed(self, name):
        return name.endswith(('.cpp', '.h')) and os.path.dirname(name) in self.folders

    def copy_one(self, name):
        path, target = os.path.join(self.source, name), os.path.join(self.copy, name)
        if not os.path.exists(target) or os.path.getmtime(target) != os.path.getmtime(path):
            os.makedirs(os.path.dirname(target), exist_ok=True)
            shutil.copy2(path, target)

    def remove_others(self, names):
        for folder, _, files in os.walk(self.copy):
            for file in files:
                path = os.path.join(folder, file)
                if os.path.relpath(path, self.copy) not in names:
                    os.remove(path)

    def find(self, texts, compile_commands):
        """Fills `files`, sorted by name. Reads the work tree: the copy's headers may hold switches from an earlier run, with
        which the syntax tree would be poorer."""
        memory = self.remembered()
        arguments = Arguments(compile_commands, self.copy)
        self.files = [Changed(name, text) for name, text in sorted(texts.items())]
        unknown = [file for file in self.files if file.stamp() not in memory]
        with concurrent.futures.ProcessPoolExecutor(2) as pool:
            found = pool.map(places.places_of, [os.path.join(self.source, file.name) for file in unknown],
                             [file.text for file in unknown],
                             [[word.replace(self.copy, self.source) for word in arguments.of(file.name)] for file in unknown])
            memory.update(zip([file.stamp() for file in unknown], found))
        for file in self.files:
            file.places, file.free = memory[file.stamp()]
        self.number()
        self.remember()

    def number(self):
        """A file keeps its numbers while its places fit, so that a change in another file does not recompile it."""
        path = os.path.join(os.path.dirname(self.memory), 'numbers.json')
        blocks = json.loads(read(path)) if os.path.exists(path) else {}  # name: [first, how many]
        for file in self.files:
            count = sum(place.count for place in file.places)
            if blocks.get(file.name, [0, -1])[1] < count:
                end = max([first + size for first, size in blocks.values()], default=1)
                blocks[file.name] = [end, PLACES_A_BLOCK * (1 + count // PLACES_A_BLOCK)]
            file.first = blocks[file.name][0]
        write(path, json.dumps(blocks))

    def remembered(self):
        if not os.path.exists(self.memory):
            return {}
        with open(self.memory, 'rb') as file:
            return pickle.load(file)

    def remember(self):
        """Caches the places, without those that did not compile."""
        memory = self.remembered() | {file.stamp(): (file.places, file.free) for file in self.files}
        with open(self.memory, 'wb') as file:
            pickle.dump(memory, file)

    def write_all(self):
        for file in self.files:
            write(os.path.join(self.copy, file.name), file.with_places())


class Arguments:
    """The compiler options of each source; a header has those of the sources beside it."""

    KEPT = re.compile(r'^-(I|D|std|isystem)')

    def __init__(self, compile_commands, folder):
        with open(compile_commands, encoding='utf-8') as file:
            commands = json.load(file)
        self.by_name = {os.path.relpath(command['file'], folder): self.kept(command['command'])
                        for command in commands}

    def kept(self, command):
        words = command.replace('\\', '').replace('-isystem ', '-isystem').split()
        return [word for word in words if self.KEPT.match(word)]

    def of(self, name):
        beside = [kept for other, kept in sorted(self.by_name.items())
                  if os.path.dirname(other) == os.path.dirname(name)]
        own = self.by_name.get(name) or next(iter(beside), self.all())
        return (['-x', 'c++-header'] if name.endswith('.h') else []) + own + ['-ferror-limit=0', '-w']

    def all(self):
        return list(dict.fromkeys(word for _, kept in sorted(self.by_name.items()) for word in kept))
