"""vornphone's start: on displays that are there or not, and with another program in the phone.

Usage: launch_test.py VORNPHONE BODY_PROBE
"""

import re
import subprocess
import sys
import unittest

from phone_process import PhoneTest, family_of, is_running, signal, wait_for

SCREENS = [  # The size, and the logical screen that comes of it; Xvfb says that each has 96 dots an inch.
    ("480x800", (384, 640)),
    ("800x480", (640, 384)),
    ("720x1280", (576, 1024)),
    ("240x320", (160, 213)),
    ("1024x768", (819, 614)),
]


class WithoutADisplay(PhoneTest):
    def expect_told(self, *arguments, **environment):
        status, output, errors = self.run_phone(*arguments, **environment)
        self.assertEqual((status, output), (3, ""), errors)
        self.assertEqual(len(errors.splitlines()), 2, errors)
        self.assertIn("vornphone: no display can be used", errors)
        self.assertIn('"vornphone --web 6080" shows the phone in a browser', errors)

    def test_the_desk_says_so_and_what_to_do(self):
        self.expect_told()

    def test_the_whole_screen_says_so_and_what_to_do(self):
        self.expect_told("--screen")

    def test_another_program_is_not_even_started(self):
        self.expect_told("--run", self.programs["probe"], "7")

    def test_a_display_that_is_not_there_is_named(self):
        status, _, errors = self.run_phone(DISPLAY=":31999")
        self.assertEqual(status, 3)
        self.assertIn("DISPLAY: :31999", errors)

    def test_a_platform_that_is_not_there_is_named(self):
        status, _, errors = self.run_phone(QT_QPA_PLATFORM="nosuch")
        self.assertEqual(status, 3)
        self.assertIn("QT_QPA_PLATFORM: nosuch", errors)


class OnADisplay(PhoneTest):
    def test_a_display_that_goes_away_ends_the_phone_with_a_word(self):
        for arguments in ((), ("--screen",)):
            with self.subTest(arguments=arguments):
                display, server = self.display()
                process = self.start("vornphone", *arguments, DISPLAY=display)
                self.assertTrue(wait_for(lambda: self.has_windows(process.pid)))
                server.kill()
                self.assertEqual(process.wait(20), 3)
                self.assertEqual(process.stderr.read().splitlines()[-1], "vornphone: the display has gone away")

    @staticmethod
    def has_windows(process_id):
        # A program that has loaded the body shows it at once.
        with open(f"/proc/{process_id}/maps", encoding="utf-8") as maps:
            return "libvornbody" in maps.read()

    def seen_by_program(self, *arguments, size="800x800"):
        display, _ = self.display(size)
        status, output, errors = self.run_phone(*arguments, "--run", self.programs["probe"], "7", DISPLAY=display)
        self.assertEqual(status, 7, errors)
        pattern = r"window (\S+) (\d+)x(\d+) screen (\d+)x(\d+) ratio ([\d.]+) row ([\d.]+)\n"
        match = re.fullmatch(pattern, output)
        self.assertTrue(match, output + errors)
        return match[1], *(float(number) for number in match.groups()[1:])

    def test_another_program_is_in_the_phone_on_the_desk_and_ends_as_it_wants(self):
        window, _, _, width, height, _, _ = self.seen_by_program()
        self.assertEqual((window, width, height), ("phone::DeskBody", 240, 320))

    def test_a_desk_that_is_not_high_enough_has_the_keys_beside_the_screen(self):
        window, width, height, *_ = self.seen_by_program(size="1024x600")
        self.assertEqual(window, "phone::DeskBody")
        self.assertLess(height, 600)
        self.assertGreater(width, height)

    def test_the_whole_screen_is_filled_with_rows_for_a_finger(self):
        for size, logical in SCREENS:
            with self.subTest(size=size):
                window, width, height, *screen, ratio, row = self.seen_by_program("--screen", size=size)
                self.assertEqual(window, "phone::ScreenBody")
                self.assertAlmostEqual(width, int(size.split("x")[0]), delta=ratio)
                self.assertAlmostEqual(height, int(size.split("x")[1]), delta=ratio)
                self.assertEqual(tuple(screen), logical)
                self.assertGreaterEqual(row, 44)

    def test_the_phone_itself_takes_no_more_than_the_screen(self):
        display, _ = self.display("800x480")
        process = self.start("vornphone", "--screen", DISPLAY=display)
        size = wait_for(lambda: re.search(r'"vornphone"\)  (\d+x\d+)\+0\+0', subprocess.run(
            ["xwininfo", "-display", display, "-root", "-tree"], capture_output=True, text=True, check=True).stdout))
        self.assertEqual(size and size[1], "800x480")
        self.assertIsNone(process.poll())

    def test_a_scale_that_the_person_has_chosen_holds(self):
        display, _ = self.display("480x800")
        _, output, errors = self.run_phone("--screen", "--run", self.programs["probe"], "0",
                                           DISPLAY=display, QT_SCALE_FACTOR="3")
        self.assertIn("ratio 3.00", output, errors)

    def test_a_program_that_is_not_there_is_named(self):
        display, _ = self.display()
        status, _, errors = self.run_phone("--run", "/no/such/program", DISPLAY=display)
        self.assertEqual(status, 127)
        self.assertEqual(errors, "vornphone: /no/such/program cannot be run: No such file or directory\n")

    def test_a_file_that_is_no_program_is_named(self):
        display, _ = self.display()
        file = self.world / "file"
        file.touch()
        status, _, errors = self.run_phone("--run", str(file), DISPLAY=display)
        self.assertEqual(status, 126)
        self.assertIn(f"{file} cannot be run: Permission denied", errors)

    def test_the_arguments_of_a_program_are_its_own(self):
        display, _ = self.display()
        status, output, _ = self.run_phone("--run", "echo", "--help", "--screen", DISPLAY=display)
        self.assertEqual(status, 0)
        self.assertIn("--screen", self.run_phone("--run", "printf", "%s", "--screen", DISPLAY=display)[1])
        self.assertTrue(output)

    def test_a_program_that_is_not_named_is_asked_for(self):
        status, _, errors = self.run_phone("--run")
        self.assertEqual(status, 2)
        self.assertIn("--run", errors)

    def test_being_told_to_end_ends_it(self):
        display, _ = self.display()
        process = self.start("vornphone", DISPLAY=display)
        self.assertTrue(wait_for(lambda: self.has_windows(process.pid)))
        children = family_of(process.pid)
        process.send_signal(signal.SIGTERM)
        process.wait(10)
        self.assertFalse([one for one in children if is_running(one)])


if __name__ == "__main__":
    PhoneTest.programs = {"vornphone": sys.argv[1], "probe": sys.argv[2]}
    unittest.main(argv=sys.argv[:1], verbosity=2)
