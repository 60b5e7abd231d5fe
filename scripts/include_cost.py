"""What it costs to include a header of src/, and to change it.

    scripts/include_cost.py [--build FOLDER] [HEADER...]    a header as it is included: frame/main_state.h

For each header: the project's headers and all headers that including it reads, the lines after preprocessing, the
processor seconds to compile a file with that include alone, and how many of the build's compilations a change of it
repeats. FOLDER is a configured build (build/release if not given); nothing in it needs to be built. Without headers,
the record and what is included most.
"""

import argparse
import json
import re
import resource
import shlex
import subprocess
import sys
import tempfile
from functools import cache
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
INCLUDE = re.compile(r'^\s*#\s*include\s*"([^"]+)"', re.MULTILINE)
USUAL = ["frame/main_state.h", "frame/main_window.h", "frame/program_values.h", "report/report_state.h",
         "platform/controls.h", "platform/surface.h", "platform/files.h", "platform/timing.h", "values/fixed.h",
         "values/runtime_error.h"]
COMPILER = ["g++", "-std=c++20", f"-I{ROOT / 'src'}"]


@cache
def included_by(file, folders):
    """The project's files that a file includes itself, of all systems."""
    found = set()
    for name in INCLUDE.findall(file.read_text(encoding="utf-8", errors="replace")):
        places = [place / name for place in (file.parent, *folders)]
        found.update([place.resolve() for place in places if place.is_file()][:1])
    return frozenset(found)


def reached_from(file, folders):
    reached, waiting = set(), [file]
    while waiting:
        for header in included_by(waiting.pop(), folders) - reached:
            reached.add(header)
            waiting.append(header)
    return reached


def compilations(build):
    """For each compilation of a build, the project's files that it reads."""
    commands = json.loads((build / "compile_commands.json").read_text(encoding="utf-8"))
    for entry in commands:
        source = Path(entry["file"])
        if source.is_relative_to(build.resolve()):
            continue  # made by the build itself
        words = shlex.split(entry["command"])
        folders = tuple(Path(word[2:]) for word in words if word.startswith("-I"))
        yield reached_from(source.resolve(), folders)


def processor_seconds(command):
    before = resource.getrusage(resource.RUSAGE_CHILDREN)
    subprocess.run(command, check=True)
    after = resource.getrusage(resource.RUSAGE_CHILDREN)
    return after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime


def cost_of_including(header):
    with tempfile.TemporaryDirectory() as folder:
        source = Path(folder, "only.cpp")
        source.write_text(f'#include "{header}"\n', encoding="utf-8")
        listed = subprocess.run([*COMPILER, "-M", source], check=True, capture_output=True, text=True).stdout
        headers = [Path(name) for name in listed.replace("\\\n", " ").split()[2:]]
        lines = subprocess.run([*COMPILER, "-E", "-P", source], check=True, capture_output=True).stdout.count(b"\n")
        seconds = min(processor_seconds([*COMPILER, "-c", source, "-o", "/dev/null"]) for _ in range(3))
    own = sum(name.is_relative_to(ROOT) for name in headers)
    return own, len(headers), lines, seconds


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--build", type=Path, default=ROOT / "build/release")
    parser.add_argument("headers", nargs="*", default=USUAL, metavar="HEADER")
    options = parser.parse_args()
    if not (options.build / "compile_commands.json").is_file():
        sys.exit(f"include_cost.py: {options.build} is not a configured build")
    readers = list(compilations(options.build))
    print(f"{'header':26} {'project':>8} {'all':>5} {'lines':>7} {'seconds':>8}   compilations")
    for header in options.headers:
        if not (ROOT / "src" / header).is_file():
            sys.exit(f"include_cost.py: there is no src/{header}")
        own, every, lines, seconds = cost_of_including(header)
        again = sum((ROOT / "src" / header) in reader for reader in readers)
        print(f"{header:26} {own:8} {every:5} {lines:7} {seconds:8.2f}   {again} of {len(readers)}")


if __name__ == "__main__":
    main()
