#!/usr/bin/env python3
"""Programs as their owners use them, over a link that the modem is dialled for.

Usage, in a laboratory with a modem: end_to_end_test.py VORNCTL VORN_EXAMPLE VORNPHONE [-- unittest arguments]
"""

import json
import pathlib
import signal
import subprocess
import sys

import programs

EXAMPLE, PHONE = sys.argv[2:4]
PAGE = "http://lab.example:8080/"


class EndToEnd(programs.Programs):
    def create(self):
        self.ctl("profile", "create", "Internet", "apn=internet.example", "user=ursula", "--password",
                 text="horse\n")

    def hold(self):
        """A link that is up, and the program that holds it."""
        held = subprocess.Popen([self.vornctl, "link", "open", "--hold", "Internet"], env=self.environment,
                                text=True, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        self.addCleanup(held.stdout.close)
        self.addCleanup(held.wait, 30)
        while "10.99.0.2" not in held.stdout.readline():
            self.assertIsNone(held.poll())
        return held

    def assert_fetched(self):
        done = self.run_program(EXAMPLE, "Internet", PAGE)
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)
        self.assertIn("device hso0, address 10.99.0.2, bearer GPRS", done.stdout)
        # The length of the page, which names the address that the server has seen.
        self.assertIn(f"{len('a page for 10.99.0.2')} bytes", done.stdout)

    def test_the_operators_profile_fetches_a_page_over_a_dialled_link(self):
        self.serve_a_page()
        self.ctl("profile", "create", "Internet", "--operator", "laboratory", "--plan", "contract")
        self.assert_fetched()
        self.assertIn('AT$QCPDPP=1,2,"horse","ursula"', self.dialled())
        self.assertTrue([c for c in self.dialled() if c.endswith('"IP","internet.example"')])

    def test_the_profile_of_the_sim_cards_operator_fetches_a_page_over_a_dialled_link(self):
        self.serve_a_page()
        self.ctl("profile", "create", "Internet", "--from-sim", "--plan", "prepaid")
        self.assert_fetched()
        self.assertTrue([c for c in self.dialled() if c.endswith('"IP","prepaid.example"')])

    def test_the_wizards_profile_opens_a_dialled_link_and_leaves_pictures_of_the_way(self):
        self.ctl("setting", "set", "DefConnPrefer", "2")
        pictures = pathlib.Path(self.folder, "pictures")
        done = self.run_program(PHONE, "--tour", str(pictures), environment={"VORN_LANG": "en"}.items())
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)
        self.assertIn("device hso0, address 10.99.0.2", done.stdout)
        self.assertTrue((pictures / "08-connecting.png").stat().st_size)

    def test_vornctl_opens_a_link_and_closes_it(self):
        self.create()
        done = self.ctl("link", "open", "Internet")
        self.assertIn("hso0", done.stdout)
        self.assertIn("10.99.0.2", done.stdout)

    def test_vornctl_holds_a_link_until_it_is_interrupted(self):
        self.create()
        held = self.hold()
        self.assertEqual(programs.state("ttyHS0"), 100)
        held.send_signal(signal.SIGINT)
        self.assertEqual(held.wait(30), 0)

    def test_vornctl_tells_a_broken_link(self):
        self.create()
        held = self.hold()
        programs.order("send _OWANCALL: 1, 0")
        self.assertIn("broken", held.stdout.read())
        self.assertEqual(held.wait(30), 12)

    def test_vornctl_tells_the_steps_of_an_opening_in_front_of_its_outcome(self):
        self.create()
        done = self.ctl("link", "open", "--verbose", "--json", "Internet")
        lines = [json.loads(line) for line in done.stdout.splitlines()]
        events = [line["event"] for line in lines]
        self.assertEqual((events[0], events[-2:]), ("opening", ["connected", "closed"]))
        steps = [line["text"] for line in lines if line["event"] == "step"]
        for part in ("asking", "ttyHS0", "activating the profile", "preparing", "configuring", "addressing",
                     "connected"):
            self.assertTrue([step for step in steps if part in step], f"{part}: {steps}")
        self.assertNotIn("horse", done.stdout + done.stderr)

    def test_vornctl_says_why_the_network_refused(self):
        self.create()
        programs.order("AT_OWANCALL=1,1 => +CME ERROR: 133")
        cause, detail, told = self.failure("Internet")
        self.assertEqual((cause, detail), (4, 133))
        self.assertIn("cause 4, detail 133", told)
        self.assertNotIn("horse", told)


if __name__ == "__main__":
    programs.main()
