"""Every text of the sources has a translation in every catalogue, with the same place markers.

Usage: catalogues_test.py TREE toolkit|phone
"""
import json
import re
import sys
import unittest
from pathlib import Path

TREE = Path(sys.argv.pop(1))
# Where the sources are, where their catalogues, what their ids begin with and one text that they have.
PROGRAMS = {
    "toolkit": (("include", "session", "profiles", "wizard", "widgets", "platform/host/toolkit"),
                "platform/host/toolkit/texts", "", ("TXT_RID_SOFTKEY_CANCEL", "Cancel")),
    "phone": (("apps/phone",), "apps/phone/texts", "PHONE_", ("TXT_RID_PHONE_TITLE_HOME", "Connections")),
}
FOLDERS, CATALOGUE_FOLDER, PREFIX, KNOWN = PROGRAMS[sys.argv.pop(1)]
CATALOGUES = TREE / CATALOGUE_FOLDER
EXPECTED = {"ar", "de", "es", "fr", "ja", "pt", "ru", "zh_CN", "zh_TW"}
LANGUAGES = tuple(sorted(path.stem for path in CATALOGUES.glob("*.json")))
ID = r'"((?:TXT|FMT)_RID_' + PREFIX + r'[A-Z0-9_]+)"'
# The default stands behind the id, in one or several pieces. Tables may keep the two in braces.
WITH_DEFAULT = re.compile(ID + r'\s*,\s*((?:"(?:[^"\\]|\\.)*"\s*)+)')


def sources():
    for folder in FOLDERS:
        for path in sorted((TREE / folder).rglob("*")):
            if path.suffix in (".cpp", ".h"):
                yield path.read_text(encoding="utf-8")


def ids_in_sources():
    return {found for text in sources() for found in re.findall(ID, text)}


def defaults_in_sources():
    """Pairs of id and default, as often as they occur."""
    for text in sources():
        for name, pieces in WITH_DEFAULT.findall(text):
            yield name, "".join(re.findall(r'"((?:[^"\\]|\\.)*)"', pieces))


def catalogue(language):
    def no_duplicates(pairs):
        names = [name for name, _ in pairs]
        twice = {name for name in names if names.count(name) > 1}
        if twice:
            raise ValueError(f"{language}.json: twice: {sorted(twice)}")
        return dict(pairs)

    text = (CATALOGUES / f"{language}.json").read_text(encoding="utf-8")
    return json.loads(text, object_pairs_hook=no_duplicates)


def markers(text):
    return sorted(re.findall(r"%\d", text))


class Catalogues(unittest.TestCase):
    def test_the_sources_and_the_catalogues_were_read(self):
        self.assertIn(KNOWN[0], ids_in_sources())
        self.assertIn(KNOWN, set(defaults_in_sources()))
        self.assertLessEqual(EXPECTED, set(LANGUAGES))

    def test_every_text_of_the_sources_is_translated(self):
        for language in LANGUAGES:
            with self.subTest(language):
                self.assertEqual(ids_in_sources() - catalogue(language).keys(), set())

    def test_no_translation_is_empty_or_has_blanks_around_it(self):
        for language in LANGUAGES:
            for name, text in catalogue(language).items():
                with self.subTest(language=language, name=name):
                    self.assertTrue(text)
                    self.assertEqual(text, text.strip())

    def test_the_place_markers_are_those_of_the_default(self):
        for name, default in defaults_in_sources():
            for language in LANGUAGES:
                with self.subTest(language=language, name=name):
                    self.assertEqual(markers(catalogue(language)[name]), markers(default))

    def test_one_text_has_one_default(self):
        defaults = {}
        for name, default in defaults_in_sources():
            with self.subTest(name):
                self.assertEqual(defaults.setdefault(name, default), default)

    def test_the_catalogues_have_the_same_texts_in_order(self):
        names = [list(catalogue(language)) for language in LANGUAGES]
        for language, own in zip(LANGUAGES, names):
            with self.subTest(language):
                self.assertEqual(own, sorted(names[0]))


if __name__ == "__main__":
    unittest.main()
