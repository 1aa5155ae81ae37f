"""packaging/symbols.py finds a name that is gone. Usage: symbols_test.py LIBRARY"""

import pathlib
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent.parent / "packaging"))
import symbols

LIBRARY = str(pathlib.Path(sys.argv.pop(1)).resolve())


class Symbols(unittest.TestCase):
    def check(self, change):
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder) / "file.symbols"
            path.write_text(change(symbols.written(LIBRARY, path)), encoding="utf-8")
            return symbols.check(LIBRARY, path)

    def test_what_is_written_is_what_the_library_has(self):
        self.assertEqual(self.check(lambda text: text), "")

    def test_a_function_that_is_gone_is_told(self):
        self.assertIn("Gone::away()", self.check(lambda text: text + ' (c++)"Gone::away()@Base" 1.0.0\n'))

    def test_a_new_function_is_no_fault(self):
        self.assertEqual(self.check(lambda text: text.replace(' (c++)"DmtData::DmtData()@Base" 1.0.0\n', "")), "")

    def test_what_stays_keeps_its_version(self):
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder) / "file.symbols"
            path.write_text(' (c++)"DmtData::DmtData()@Base" 0.9.0\n APPLOG_ClosePort@Base 0.8.0\n', encoding="utf-8")
            text = symbols.written(LIBRARY, path)
        self.assertIn(' (c++)"DmtData::DmtData()@Base" 0.9.0\n', text)
        self.assertIn(" APPLOG_ClosePort@Base 0.8.0\n", text)

    def test_what_only_the_project_links_needs_the_same_version(self):
        with tempfile.TemporaryDirectory() as folder:
            text = symbols.written(LIBRARY, pathlib.Path(folder) / "none")
        self.assertIn('"^(.* (for|to) )?settingshost(::.*)?@Base$" 1.0.0 1\n', text)
        self.assertNotIn("settingshost::getSetting", text)


if __name__ == "__main__":
    unittest.main()
