"""Shows that check_dependencies.py finds each way in which the two tables can differ."""
import unittest

from check_dependencies import check

PACKAGES = "# package use purpose\ng++ build compiler with C++20\nxvfb test display for tests\n"
README = """# Program
| `not` | this | table |

## Dependencies
| Package | Use | Purpose |
|---|---|---|
| `g++` | build | compiler with C++20 |
| `xvfb` | test | display for tests |

## More
| `nor` | that | one |
"""


class CheckDependencies(unittest.TestCase):
    def test_equal_tables_agree(self):
        self.assertEqual(check(PACKAGES, README), [])

    def test_a_package_without_row_is_a_fault(self):
        self.assertEqual(check(PACKAGES + "mold test quick linker\n", README),
                         ["README.md lacks the row: | `mold` | test | quick linker |"])

    def test_a_row_without_package_is_a_fault(self):
        self.assertEqual(check(PACKAGES.replace("xvfb test display for tests\n", ""), README),
                         ["README.md has a row that packages.txt lacks: xvfb | test | display for tests"])

    def test_another_purpose_or_use_is_a_fault_on_both_sides(self):
        self.assertEqual(len(check(PACKAGES, README.replace("display for tests", "screen"))), 2)
        self.assertEqual(len(check(PACKAGES, README.replace("| test |", "| build |"))), 2)

    def test_another_order_is_a_fault(self):
        first, second, third = PACKAGES.splitlines()
        self.assertEqual(check("\n".join([first, third, second]), README),
                         ["README.md and packages.txt list the packages in different orders"])

    def test_incomplete_lines_and_unknown_uses_are_faults(self):
        self.assertIn("packages.txt: incomplete or unknown use: mold test", check(PACKAGES + "mold test\n", README))
        self.assertIn("packages.txt: incomplete or unknown use: mold link quick", check(PACKAGES + "mold link quick\n", README))

    def test_a_package_listed_twice_is_a_fault(self):
        self.assertIn("packages.txt: xvfb is listed twice", check(PACKAGES + "xvfb test display for tests\n", README))


if __name__ == "__main__":
    unittest.main()
