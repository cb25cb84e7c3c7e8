#!/usr/bin/env python3
"""Checks that the table under "Dependencies" in README.md says what cmake/packages.txt says: same packages, same order,
same use, same purpose.

Usage: check_dependencies.py REPOSITORY
"""
import sys
from pathlib import Path

USES = ("build", "test", "deep")


def package_table(text):
    """(package, use, purpose) of each line of cmake/packages.txt that is no comment."""
    return [tuple(line.split(None, 2)) for line in text.splitlines() if line.strip() and not line.startswith("#")]


def readme_table(text):
    """(package, use, purpose) of each row of the table under the heading "Dependencies"."""
    rows, inside = [], False
    for line in text.splitlines():
        if line.startswith("#"):
            inside = line.strip("# ") == "Dependencies"
        elif inside and line.startswith("| `"):
            cells = [cell.strip() for cell in line.strip("| ").split("|")]
            rows.append((cells[0].strip("`"), *cells[1:]))
    return rows


def check(packages_text, readme_text):
    """All faults, one line each."""
    packages, readme = package_table(packages_text), readme_table(readme_text)
    faults = [f"packages.txt: incomplete or unknown use: {' '.join(row)}"
              for row in packages if len(row) != 3 or row[1] not in USES]
    faults += [f"packages.txt: {name} is listed twice"
               for name in sorted({row[0] for row in packages if [r[0] for r in packages].count(row[0]) > 1})]
    faults += [f"README.md lacks the row: | `{row[0]}` | {' | '.join(row[1:])} |" for row in packages if row not in readme]
    faults += [f"README.md has a row that packages.txt lacks: {' | '.join(row)}" for row in readme if row not in packages]
    if not faults and packages != readme:
        faults.append("README.md and packages.txt list the packages in different orders")
    return faults


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    repository = Path(sys.argv[1])
    all_faults = check((repository / "cmake/packages.txt").read_text(encoding="utf-8"),
                       (repository / "README.md").read_text(encoding="utf-8"))
    print("\n".join(all_faults) if all_faults else "README.md and packages.txt agree.")
    sys.exit(1 if all_faults else 0)
