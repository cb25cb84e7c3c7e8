#!/usr/bin/env python3
"""Checks .clang-tidy of the repository and its folders: clang-tidy knows every check that is switched off, and a comment of the form "# -check: why" tells
the reason for each. It doesn't run the checks over the sources, which takes long: `cmake --preset tidy && cmake --build --preset tidy`.

Usage: check_tidy.py REPOSITORY CLANG_TIDY
"""
import re
import subprocess
import sys
from pathlib import Path

REASON = re.compile(r"^# -([\w.-]+): \S", re.MULTILINE)
SWITCHED_OFF = re.compile(r"^\s+-([\w.-]+),?$", re.MULTILINE)


def check(config, known):
    """All faults, one line each. `known` holds the names of clang-tidy's checks."""
    off, reasons = SWITCHED_OFF.findall(config), REASON.findall(config)
    faults = [f"{name} is switched off without a reason" for name in off if name not in reasons]
    faults += [f"{name} has a reason but isn't switched off" for name in reasons if name not in off]
    faults += [f"clang-tidy knows no check {name}" for name in off if name not in known]
    return faults


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    repository, clang_tidy = Path(sys.argv[1]), sys.argv[2]
    if not (repository / ".clang-tidy").is_file():
        sys.exit("There is no .clang-tidy.")
    listed = subprocess.run([clang_tidy, "--list-checks", "--checks=*"], capture_output=True, text=True, check=True)
    all_faults = []
    for path in [repository / folder / ".clang-tidy" for folder in (".", "src", "tests", "bench", "fuzz")]:
        if path.is_file():
            all_faults += [f"{path}: {fault}" for fault in check(path.read_text(encoding="utf-8"), set(listed.stdout.split()))]
            parsed = subprocess.run([clang_tidy, "--dump-config", f"--config-file={path}"], capture_output=True, text=True)
            if parsed.returncode or "error:" in parsed.stderr:
                all_faults.append(f"{path}: clang-tidy can't read it: {parsed.stderr.strip()}")
    print("\n".join(all_faults) if all_faults else "All checks that are off have their reasons.")
    sys.exit(1 if all_faults else 0)
