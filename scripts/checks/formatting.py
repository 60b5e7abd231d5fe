"""Every C++ file is as clang-format leaves it.

    /usr/bin/python3 formatting.py [ROOT]

Debian package: clang-format.
"""
import subprocess
import sys

import sources


def main():
    root = sys.argv[1] if len(sys.argv) > 1 else sources.ROOT
    found = sources.files(root, sources.CPP)
    if subprocess.run(['clang-format', '--dry-run', '-Werror', *found], cwd=root).returncode:
        sys.exit('not as clang-format leaves it; mend it with clang-format -i')
    sources.end([], len(found))


main()
