"""Dead links and dead paths are found, and what is no path of the tree is left alone."""

import pathlib
import tempfile
import unittest

import links
import paths
import readmes


class Documents(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)
        (self.root / "docs").mkdir()
        (self.root / "docs/page.md").write_text("", encoding="utf-8")
        (self.root / "check").write_text("", encoding="utf-8")

    def document(self, text):
        path = self.root / "docs/page.md"
        path.write_text(text, encoding="utf-8")
        return path

    def dead_paths(self, text):
        return [line.split(": ")[1] for line in paths.dead_paths(self.document(text), self.root)]

    def dead_links(self, text):
        return [line.split(": ")[1] for line in links.dead_links(self.document(text))]

    def test_a_path_that_is_there_is_no_finding(self):
        self.assertEqual(self.dead_paths("`docs/page.md`, `docs/`, `./check`, `check --help`"), [])

    def test_a_path_that_is_not_there_is_found(self):
        self.assertEqual(self.dead_paths("see `docs/other.md` and `docs/page.md`"),
                         ["docs/other.md is not there"])

    def test_what_is_no_path_of_the_tree_is_left_alone(self):
        self.assertEqual(self.dead_paths("`etc/network.json`, `docs/NAME/x`, `docs/*.md`, docs/none.md"), [])

    def test_a_link_that_leads_nowhere_is_found(self):
        self.assertEqual(self.dead_links('[a](page.md) [b](gone.md) <img src="gone.png">'),
                         ["gone.md is not there", "gone.png is not there"])

    def test_links_elsewhere_are_left_alone(self):
        self.assertEqual(self.dead_links("[a](https://example.org/x) [b](#part) [c](page.md#part)"), [])

    def test_a_folder_of_sources_that_nothing_speaks_of_is_found(self):
        for folder in ("told", "untold", "own"):
            (self.root / folder).mkdir()
            (self.root / folder / "a.cpp").write_text("", encoding="utf-8")
        (self.root / "README.md").write_text("`told/` is told of here", encoding="utf-8")
        (self.root / "own/README.md").write_text("", encoding="utf-8")
        self.assertEqual([line.split(":")[0] for line in readmes.folders_without(self.root)], ["untold"])


if __name__ == "__main__":
    unittest.main()
