"""The phone in a real browser: it connects, makes a profile there by keys, and takes pictures.

Usage: browser_test.py VORNPHONE VORNCTL PICTURES
"""

import pathlib
import subprocess
import sys
import unittest

from browser import PACKAGES, Browser
from phone_process import WEB_PACKAGES, PhoneTest, wait_for

# The colours of the picture, at every fourth pixel.
COLOURS = """
    const canvas = document.querySelector('canvas');
    if (!canvas || !canvas.width) return [];
    const data = canvas.getContext('2d').getImageData(0, 0, canvas.width, canvas.height).data;
    const found = new Set();
    for (let at = 0; at < data.length; at += 16) found.add(data[at] << 16 | data[at + 1] << 8 | data[at + 2]);
    return [canvas.width, canvas.height, found.size];
"""
CORNER = "return [...document.querySelector('canvas').getContext('2d').getImageData(1, 1, 1, 1).data].slice(0, 3)"
PICTURE = "return document.querySelector('canvas').toDataURL()"
NOTE = "const note = document.getElementById('note'); return note.hidden ? '' : note.textContent"


class InARealBrowser(PhoneTest):
    def setUp(self):
        super().setUp()
        self.browser = Browser()
        self.addCleanup(self.browser.close)

    def profiles(self):
        listed = subprocess.run([self.programs["vornctl"], "profile", "list", "--names"], env=self.environment,
                                capture_output=True, text=True, check=False)
        return listed.stdout.split()

    def open_phone(self):
        process, port, token = self.web()
        self.browser.open(f"http://127.0.0.1:{port}/#{token}")
        self.assertTrue(wait_for(lambda: (self.browser.script(COLOURS) or [0, 0, 0])[-1] > 20),
                        self.browser.script(NOTE))
        return process, port, token

    def press_and_see(self, *keys):
        """The picture changes with the keys."""
        before = self.browser.script(PICTURE)
        self.browser.press(*keys)
        self.assertTrue(wait_for(lambda: self.browser.script(PICTURE) != before), keys)

    def test_connects_makes_a_profile_and_takes_pictures(self):
        process, _, _ = self.open_phone()
        self.assertEqual(self.browser.script(NOTE), "")
        self.assertEqual(self.browser.script(CORNER), [0xDD, 0xE2, 0xE9])
        pictures = pathlib.Path(self.programs["pictures"])
        self.browser.picture(pictures / "browser-home.png")
        self.press_and_see("F1")
        # Below what connects.
        self.press_and_see("Down", "Down")
        self.press_and_see("Return")
        # Down to the access point, with which there is something to save.
        self.press_and_see("Down", "Down", "Down", "Down")
        self.press_and_see("internet")
        self.browser.picture(pictures / "browser-wizard.png")
        self.press_and_see("F2")
        self.assertTrue(wait_for(lambda: self.profiles() == ["Profile1"]), self.profiles())
        process.terminate()
        self.assertTrue(wait_for(lambda: "The phone is off" in self.browser.script(NOTE)))

    def test_a_key_of_the_case_can_be_clicked(self):
        self.open_phone()
        before = self.browser.script(PICTURE)
        box = self.browser.script("const box = document.querySelector('canvas').getBoundingClientRect();"
                                  "return [box.left, box.top, box.width, box.height]")
        # The left soft key.
        self.browser.tap(round(box[0] + box[2] * 0.2), round(box[1] + box[3] * 0.614))
        self.assertTrue(wait_for(lambda: self.browser.script(PICTURE) != before))

    def test_an_address_without_its_key_or_with_an_old_one_is_explained(self):
        _, port, _ = self.web()
        self.browser.open(f"http://127.0.0.1:{port}/")
        self.assertTrue(wait_for(lambda: "This address is not whole" in self.browser.script(NOTE)))
        self.browser.open(f"http://127.0.0.1:{port}/#{'0' * 32}")
        self.assertTrue(wait_for(lambda: "does not answer to this address" in self.browser.script(NOTE)))


if __name__ == "__main__":
    PhoneTest.programs = dict(zip(("vornphone", "vornctl", "pictures"), sys.argv[1:]))
    missing = [name for name, file in {**WEB_PACKAGES, **PACKAGES}.items() if not pathlib.Path(file).exists()]
    if missing:
        print("skipped: not installed:", *missing)
        sys.exit(77)
    unittest.main(argv=sys.argv[:1], verbosity=2)
