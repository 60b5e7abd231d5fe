"""The files that the checks look at: those that lie there, so that a copy without git is checked too."""
import os
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
CPP = ('.cpp', '.h')


def is_made(name):
    """A folder that is built, not written."""
    return name.startswith('.') or name in ('__pycache__', 'demo') or name.split('-')[0] == 'build'


def files(root, endings, below=('.',)):
    """Paths relative to `root`, sorted. A check that finds none has failed."""
    found = set()
    for start in below:
        for folder, folders, names in os.walk(os.path.join(root, start)):
            folders[:] = [name for name in folders if not is_made(name)]
            paths = [os.path.join(folder, name) for name in names]
            found.update(os.path.relpath(path, root) for path in paths if path.endswith(endings))
    if not found:
        sys.exit('no file to check below %s' % root)
    return sorted(found)


def read(root, path):
    with open(os.path.join(root, path), encoding='utf-8') as file:
        return file.read()


def end(faults, checked):
    """Ends a check: every fault on a line of its own, or how much was looked at."""
    for fault in faults:
        print(fault)
    if faults:
        sys.exit('%d faults' % len(faults))
    print('%d files, no fault' % checked)
