"""Files of C++ and Python are named like_this, documents like-this; identifiers are lint.py's part.

    /usr/bin/python3 file_names.py [ROOT]
"""
import os
import re
import sys

import sources

RULES = {'.cpp': r'[a-z][a-z0-9_]*', '.h': r'[a-z][a-z0-9_]*', '.py': r'[a-z][a-z0-9_]*',
         '.md': r'[a-z0-9][a-z0-9-]*|README|CHANGELOG|CONTRIBUTING'}


def main():
    root = sys.argv[1] if len(sys.argv) > 1 else sources.ROOT
    found = sources.files(root, tuple(RULES))
    faults = []
    for path in found:
        stem, ending = os.path.splitext(os.path.basename(path))
        if not re.fullmatch(RULES[ending], stem):
            faults.append('%s:1: the name does not follow the rule for %s files: %s' % (path, ending, RULES[ending]))
    sources.end(faults, len(found))


main()
