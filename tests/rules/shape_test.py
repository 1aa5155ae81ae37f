"""What has grown too long or is named otherwise is told, and what is as it should be is left alone."""

import pathlib
import tempfile
import unittest

import shape

SHORT = "int one()\n{\n    return 1;\n}\n"


def of_lines(count, name="longer"):
    return f"int {name}()\n{{\n" + "    work();\n" * (count - 3) + "}\n"


class Shape(unittest.TestCase):
    def faults(self, **sources):
        with tempfile.TemporaryDirectory() as folder:
            for name, text in sources.items():
                path = pathlib.Path(folder, name.replace("__", "/"))
                path.parent.mkdir(parents=True, exist_ok=True)
                path.with_suffix(path.suffix or ".cpp").write_text(text, encoding="utf-8")
            return shape.faults_of(pathlib.Path(folder))

    def test_one_function_in_a_hundred_may_be_longer(self):
        self.assertEqual(self.faults(tests__a=SHORT * 99 + of_lines(25)), [])
        self.assertEqual(len(self.faults(tests__a=SHORT * 50 + of_lines(25))), 1)
        self.assertEqual(self.faults(tests__a=SHORT * 50 + of_lines(24)), [])

    def test_each_part_is_measured_alone(self):
        found = self.faults(session__a=SHORT * 9 + of_lines(25), apps__a=SHORT * 200)
        self.assertIn("session/a.cpp:37: longer: 25 lines", found[0])

    def test_none_is_far_longer(self):
        self.assertEqual(len(self.faults(tests__a=SHORT * 50 + SHORT * 99 + of_lines(86))), 1)

    def test_a_table_of_cases_is_no_function(self):
        self.assertEqual(self.faults(tests__a=of_lines(30, "plainNumbers")), [])

    def test_a_source_of_the_library_has_less_than_300_lines_and_one_of_the_host_less_than_400(self):
        self.assertEqual(self.faults(wizard__a="\n" * 299, platform__a="\n" * 399, tests__a="\n" * 500), [])
        self.assertEqual(len(self.faults(wizard__a="\n" * 300, platform__a="\n" * 400)), 2)

    def test_a_folder_has_at_most_20_units_and_a_header_is_one_with_its_source(self):
        units = {f"apps__unit{number}": "" for number in range(20)}
        self.assertEqual(self.faults(**units, **{"apps__unit7.h": "", "apps__room__unit20": ""}), [])
        self.assertEqual(self.faults(**units, apps__unit20=""),
                         ["apps: 21 units stand side by side; with more than 20 a folder needs rooms"])
        self.assertEqual(self.faults(**{f"platform__include__unit{number}": "" for number in range(21)}), [])

    def test_private_data_members_are_told_from_all_others(self):
        good = "class A\n{\npublic:\n    int shown;\n\nprivate:\n    static const int count = 1;\n    int m_own;\n};\n"
        self.assertEqual(self.faults(apps__a=good, tests__b="struct B\n{\n    int shown;\n};\n"), [])
        self.assertEqual(len(self.faults(apps__a=good.replace("m_own", "own"))), 1)
        self.assertEqual(len(self.faults(apps__a=good.replace("shown", "m_shown"))), 1)
        self.assertEqual(self.faults(include__a=good.replace("m_own", "own")), [])


if __name__ == "__main__":
    unittest.main()
