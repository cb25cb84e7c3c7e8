"""Shows that check_includes.py finds each kind of fault in small made-up trees, and nothing in sound ones."""
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

import check_includes


class CheckIncludes(unittest.TestCase):
    def faults(self, files):
        """The faults of a tree given as {path: text}."""
        with tempfile.TemporaryDirectory() as folder:
            for name, text in files.items():
                path = Path(folder) / name
                path.parent.mkdir(parents=True, exist_ok=True)
                path.write_text(text, encoding="utf-8")
            return check_includes.check(Path(folder))

    def test_the_program_prints_the_faults_and_fails_when_there_are_any(self):
        with tempfile.TemporaryDirectory() as folder:
            def run():
                done = subprocess.run([sys.executable, check_includes.__file__, folder], capture_output=True, text=True)
                return done.returncode, done.stdout

            self.assertEqual(run(), (0, "Includes are in order.\n"))
            (Path(folder) / "src/core").mkdir(parents=True)
            (Path(folder) / "src/core/A.h").write_text('#include "core/B.h"\n#include "core/C.h"\n', encoding="utf-8")
            self.assertEqual(run(), (1, 'src/core/A.h:1: "core/B.h" is no file seen from src/ or from the repository\n'
                                        'src/core/A.h:2: "core/C.h" is no file seen from src/ or from the repository\n'))

    def test_a_sound_tree_has_no_faults(self):
        self.assertEqual(self.faults({
            "src/platform/A.h": "#pragma once\n#include <string>\n",
            "src/core/B.h": '#include "platform/A.h"\n',
            "src/scene/view/C.cpp": '#include "core/B.h"\n#  include "scene/image/D.h"\n',
            "src/scene/image/D.h": "",
            "tests/core/B.cpp": '#include "core/B.h"\n#include "tests/support/T.h"\n',
            "tests/support/T.h": "",
        }), [])

    def test_an_empty_repository_has_no_faults(self):
        self.assertEqual(self.faults({}), [])

    def test_a_folder_may_not_include_a_later_one(self):
        self.assertEqual(self.faults({
            "src/core/B.h": '\n#include "app/Gui.h"\n',
            "src/app/Gui.h": "",
        }), ["src/core/B.h:2: core comes before app and may not include it"])

    def test_the_two_folders_of_scene_stand_on_either_side_of_core(self):
        self.assertEqual(self.faults({
            "src/scene/image/A.h": '#include "core/B.h"\n',
            "src/core/B.h": '#include "scene/view/C.h"\n',
            "src/scene/view/C.h": "",
        }), ["src/core/B.h:1: core comes before scene/view and may not include it",
             "src/scene/image/A.h:1: scene/image comes before core and may not include it"])

    def test_every_pair_of_folders_is_judged_by_the_order(self):
        for i, lower in enumerate(check_includes.FOLDERS):
            for upper in check_includes.FOLDERS[i + 1:]:
                self.assertEqual(self.faults({
                    f"src/{lower}/L.h": "",
                    f"src/{upper}/U.cpp": f'#include "{lower}/L.h"\n',
                }), [])
                self.assertEqual(len(self.faults({
                    f"src/{lower}/L.cpp": f'#include "{upper}/U.h"\n',
                    f"src/{upper}/U.h": "",
                })), 1)

    def test_a_circle_is_found_also_within_one_folder(self):
        self.assertEqual(self.faults({
            "src/core/A.h": '#include "core/B.h"\n',
            "src/core/B.h": '#include "core/C.h"\n',
            "src/core/C.h": '#include "core/A.h"\n',
            "src/core/D.cpp": '#include "core/A.h"\n',
        }), ["circle: src/core/A.h -> src/core/B.h -> src/core/C.h -> src/core/A.h"])

    def test_a_file_that_includes_itself_is_a_circle(self):
        self.assertEqual(self.faults({"src/core/A.h": '#include "core/A.h"\n'}),
                         ["circle: src/core/A.h -> src/core/A.h"])

    def test_two_roads_to_one_file_are_no_circle(self):
        self.assertEqual(self.faults({
            "src/core/A.h": '#include "core/B.h"\n#include "core/C.h"\n',
            "src/core/B.h": '#include "core/D.h"\n',
            "src/core/C.h": '#include "core/D.h"\n',
            "src/core/D.h": "",
        }), [])

    def test_an_include_that_is_no_file_is_a_fault(self):
        self.assertEqual(self.faults({"src/core/A.h": '#include "core/Gone.h"\n'}),
                         ['src/core/A.h:1: "core/Gone.h" is no file seen from src/ or from the repository'])

    def test_names_relative_to_the_including_file_are_faults(self):
        self.assertEqual(len(self.faults({"src/core/A.h": '#include "B.h"\n', "src/core/B.h": ""})), 1)
        self.assertEqual(len(self.faults({"src/core/A.h": '#include "../core/B.h"\n', "src/core/B.h": ""})), 1)

    def test_sources_do_not_include_from_the_tests(self):
        self.assertEqual(self.faults({"src/core/A.cpp": '#include "tests/T.h"\n', "tests/T.h": ""}),
                         ["src/core/A.cpp:1: a file of src/ includes nothing from outside"])

    def test_a_file_outside_of_the_known_folders_is_a_fault(self):
        found = self.faults({"src/misc/A.cpp": "", "src/scene/B.h": ""})
        self.assertEqual([fault.split(":")[0] for fault in found], ["src/misc/A.cpp", "src/scene/B.h"])

    def test_includes_in_comments_do_not_count(self):
        self.assertEqual(self.faults({
            "src/core/A.h": '// #include "app/G.h"\n/*\n#include "app/G.h"\n*/\nconst char* s = "/*";\n'
                            '#include "app/G.h"\nconst char* t = "*/";\n',
            "src/app/G.h": "",
        }), ["src/core/A.h:6: core comes before app and may not include it"])

    def test_a_header_made_from_a_template_counts_as_a_file(self):
        self.assertEqual(self.faults({"tests/A.cpp": '#include "tests/support/S.h"\n', "tests/support/S.h.in": ""}), [])


if __name__ == "__main__":
    unittest.main()
