"""Shows that tests/scripts/check-script fails when a script's status or output is wrong, with a made-up program."""
import os
import subprocess
import tempfile
import unittest
from pathlib import Path

CHECK_SCRIPT = Path(__file__).parent.parent / "scripts/check-script"
PROGRAM = """#!/bin/sh
echo "ran $1 with $2 in $(pwd)"
echo "display ${DISPLAY-none}, log ${NALT_LOG-none}, $(ls -A "$HOME" | wc -l) files at home"
echo trouble >&2
exit 3
"""
OUTPUT = "ran SCRIPTS/a.lua with WORK/ in WORK\ndisplay none, log none, 0 files at home\n"


class CheckScript(unittest.TestCase):
    def run_check(self, **files):
        """Exit status and output of check-script for a.lua with files such as a.expected beside it."""
        with tempfile.TemporaryDirectory() as folder:
            program = Path(folder) / "program"
            program.write_text(PROGRAM, encoding="utf-8")
            program.chmod(0o755)
            (Path(folder) / "a.lua").touch()
            for suffix, content in files.items():
                (Path(folder) / f"a.{suffix}").write_text(content, encoding="utf-8")
            done = subprocess.run([CHECK_SCRIPT, program, Path(folder) / "a.lua"], capture_output=True, text=True,
                                  env={**os.environ, "DISPLAY": ":0", "NALT_LOG": "log"})
            return done.returncode, done.stdout + done.stderr

    def test_the_expected_status_and_output_pass_in_silence(self):
        self.assertEqual(self.run_check(status="3", expected=OUTPUT), (0, ""))
        self.assertEqual(self.run_check(status="3"), (0, ""))

    def test_another_status_fails_and_shows_the_errors(self):
        self.assertEqual(self.run_check(), (1, "Exit status 3, expected 0.\nStandard error:\ntrouble\n"))

    def test_another_output_fails_and_shows_the_difference(self):
        status, output = self.run_check(status="3", expected=OUTPUT.replace("none", "some"))
        self.assertEqual(status, 1)
        self.assertIn("-display some, log some, 0 files at home\n+display none, log none, 0 files at home\n", output)

    def test_missing_output_fails(self):
        self.assertEqual(self.run_check(status="3", expected=OUTPUT + "more\n")[0], 1)


if __name__ == "__main__":
    unittest.main()
