"""Shows that check_tidy.py finds a check that is off without a reason."""
import unittest

from check_tidy import check

CONFIG = "# -misc-a: noise\nChecks: >-\n  -*,\n  misc-*,\n  -misc-a\n"


class CheckTidy(unittest.TestCase):
    def test_a_reason_for_each_is_fine(self):
        self.assertEqual(check(CONFIG, {"misc-a"}), [])

    def test_a_missing_reason_is_a_fault(self):
        self.assertEqual(check(CONFIG.replace("# -misc-a: noise\n", ""), {"misc-a"}),
                         ["misc-a is switched off without a reason"])
        self.assertEqual(check(CONFIG.replace("noise", ""), {"misc-a"}), ["misc-a is switched off without a reason"])

    def test_a_reason_for_nothing_is_a_fault(self):
        self.assertEqual(check("# -misc-b: slow\n" + CONFIG, {"misc-a", "misc-b"}),
                         ["misc-b has a reason but isn't switched off"])

    def test_a_check_that_does_not_exist_is_a_fault(self):
        self.assertEqual(check(CONFIG, {"misc-b"}), ["clang-tidy knows no check misc-a"])


if __name__ == "__main__":
    unittest.main()
