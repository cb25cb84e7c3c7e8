#!/usr/bin/env python3
"""Checks that all C++ files are laid out as clang-format would.

Usage: check_format.py REPOSITORY CLANG_FORMAT
"""
import subprocess
import sys
from pathlib import Path

from check_includes import sources

if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    files = sources(Path(sys.argv[1]))
    if not files:
        sys.exit("No C++ files found.")
    done = subprocess.run([sys.argv[2], "--dry-run", "--Werror", *files], cwd=sys.argv[1])
    if done.returncode == 0:
        print(f"{len(files)} files are laid out well.")
    else:
        print("clang-format -i on the files named above mends this.")
    sys.exit(done.returncode)
