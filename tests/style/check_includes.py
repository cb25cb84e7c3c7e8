#!/usr/bin/env python3
"""Checks who includes whom in src/, tests/, bench/ and fuzz/.

A folder of src/ may include only itself and folders that stand before it in FOLDERS; no file of src/ includes anything
from outside src/; an include in quotes names a file that exists, seen from src/ or from the repository's root; and no
file includes itself, directly or through others.

Usage: check_includes.py REPOSITORY
Prints one line for each fault. Exit status 1 if there are any.
"""
import re
import sys
from pathlib import Path

# The one order of the folders.
FOLDERS = ["platform", "fltapi", "scene/image", "core", "scene/view", "tools", "palettes", "exchange", "script", "app"]

ROOTS = ["src", "tests", "bench", "fuzz"]
# Headers that the build makes, by the template they are made from.
TEMPLATE_SUFFIX = ".in"
INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*"([^"]*)"', re.MULTILINE)
COMMENT_OR_STRING = re.compile(r'//[^\n]*|/\*.*?\*/|"(?:\\.|[^"\\\n])*"', re.DOTALL)


def without_comments(text):
    """The text with its comments blanked, line breaks kept, so that a commented include doesn't count."""
    def blank(match):
        found = match.group()
        return found if found.startswith('"') else "\n" * found.count("\n")
    return COMMENT_OR_STRING.sub(blank, text)


def folder_of(file):
    """The folder of FOLDERS that a path seen from src/ is in, or None."""
    return next((f for f in FOLDERS if file.startswith(f + "/")), None)


def sources(repository):
    """All C++ files, as paths seen from the repository."""
    return sorted(str(path.relative_to(repository))
                  for root in ROOTS
                  for path in (repository / root).rglob("*")
                  if path.suffix in (".h", ".cpp"))


def resolve(repository, file, included):
    """The file that an include means, seen from the repository, or None. Names are seen from src/ or the root only."""
    for base in ("src/", ""):
        candidate = base + included
        path = repository / candidate
        if ".." not in Path(included).parts and (path.is_file() or Path(str(path) + TEMPLATE_SUFFIX).is_file()):
            return candidate
    return None


def read_includes(repository, file):
    """(line, text between the quotes) for each include in quotes."""
    text = without_comments((repository / file).read_text(encoding="utf-8"))
    return [(text.count("\n", 0, match.start(1)) + 1, match.group(1)) for match in INCLUDE.finditer(text)]


def order_fault(file, target):
    """Why `file` may not include `target`, or None."""
    if not file.startswith("src/"):
        return None
    if not target.startswith("src/"):
        return "a file of src/ includes nothing from outside"
    mine, theirs = folder_of(file[4:]), folder_of(target[4:])
    if mine is None:
        return "is in none of the folders " + ", ".join(FOLDERS)
    if theirs is None:
        return f"{target} is in none of the folders " + ", ".join(FOLDERS)
    if FOLDERS.index(theirs) > FOLDERS.index(mine):
        return f"{mine} comes before {theirs} and may not include it"
    return None


def circles(graph):
    """Each circle of includes once, as a list of files whose last includes its first."""
    found, done = [], set()
    for start in sorted(graph):
        # Depth first without recursion: `trail` is the way to the file at hand, with what of its includes is left.
        if start in done:
            continue
        trail, on_trail = [(start, iter(graph[start]))], {start: 0}
        while trail:
            target = next(trail[-1][1], None)
            if target is None:
                file, _ = trail.pop()
                del on_trail[file]
                done.add(file)
            elif target in on_trail:
                found.append([file for file, _ in trail[on_trail[target]:]])
            elif target not in done:
                on_trail[target] = len(trail)
                trail.append((target, iter(graph.get(target, []))))
    return found


def check(repository):
    """All faults, one line each."""
    faults, graph = [], {}
    for file in sources(repository):
        graph[file] = []
        if file.startswith("src/") and folder_of(file[4:]) is None:
            faults.append(f"{file}: is in none of the folders " + ", ".join(FOLDERS))
        for line, included in read_includes(repository, file):
            target = resolve(repository, file, included)
            if target is None:
                faults.append(f'{file}:{line}: "{included}" is no file seen from src/ or from the repository')
                continue
            graph[file].append(target)
            fault = order_fault(file, target)
            if fault:
                faults.append(f"{file}:{line}: {fault}")
    faults += ["circle: " + " -> ".join(circle + circle[:1]) for circle in circles(graph)]
    return faults


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    all_faults = check(Path(sys.argv[1]))
    print("\n".join(all_faults) if all_faults else "Includes are in order.")
    sys.exit(1 if all_faults else 0)
