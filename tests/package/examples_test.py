"""The installed examples: built against the installation, run in vornphone, worked by keys.

Usage: examples_test.py PREFIX WORK [COMPILER FLAGS]; examples are built below WORK.
"""

import json
import os
import pathlib
import shutil
import socket
import struct
import subprocess
import sys
import threading
import time
import http.server
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "body"))

from phone_process import PhoneTest, free_port, wait_for  # noqa: E402

KEYS = {"Return": 0xFF0D, "Escape": 0xFF1B, "Up": 0xFF52, "Down": 0xFF54, "F1": 0xFFBE, "F2": 0xFFBF}


class Person:
    """A VNC client inside the door, who presses keys."""

    def __init__(self, door):
        self.connection = socket.socket(socket.AF_UNIX)
        self.connection.connect(str(door))
        for answer, size in ((b"RFB 003.003\n", 12), (b"\1", 4), (b"", 24)):
            assert len(self.connection.recv(size, socket.MSG_WAITALL)) == size
            self.connection.sendall(answer)

    def press(self, *keys):
        for key in keys:
            for code in [KEYS[key]] if key in KEYS else [ord(letter) for letter in key]:
                for down in (1, 0):
                    self.connection.sendall(struct.pack(">BBHI", 4, down, 0, code))
                time.sleep(0.1)


class Pages(http.server.BaseHTTPRequestHandler):
    def do_GET(self):
        self.send_response(200)
        self.send_header("Content-Length", "5")
        self.end_headers()
        self.wfile.write(b"hello")

    def log_message(self, *arguments):
        pass


class InstalledExample(PhoneTest):
    prefix = work = None

    def ctl(self, *arguments):
        subprocess.run([self.prefix / "bin/vornctl", *arguments], env=self.environment, check=True,
                       stdout=subprocess.DEVNULL)

    def network(self, **profiles):
        file = self.world / "root/etc/network.json"
        file.write_text(json.dumps({"bearer": "scenario", "scenario": {"profiles": profiles}}))

    def example(self, name, *arguments):
        """The example in the phone."""
        process = self.start(str(self.prefix / "bin/vornphone"), "--web", str(free_port()), "--run",
                             str(self.work / name / name), *arguments)
        told = process.stdout.readline() + process.stdout.readline()
        self.assertIn("The phone is at ", told, told or process.stderr.read())
        return process

    def worked(self, name, *arguments):
        """The example in the phone, and the person at it."""
        process = self.example(name, *arguments)
        door = wait_for(lambda: next(iter(self.running.glob("vornphone-*/door")), None))
        self.assertTrue(door)
        person = Person(door)
        self.addCleanup(person.connection.close)
        time.sleep(1)
        return process, person

    def expect(self, process, status, output):
        said, errors = process.communicate(timeout=30)
        self.assertEqual((said, process.returncode), (output, status), errors)

    def test_session_fetches_a_page(self):
        self.ctl("profile", "create", "Internet", "apn=internet")
        server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Pages)
        self.addCleanup(server.server_close)
        self.addCleanup(server.shutdown)
        threading.Thread(target=server.serve_forever, daemon=True).start()
        process = self.example("session", "Internet", f"http://127.0.0.1:{server.server_port}/")
        said, errors = process.communicate(timeout=30)
        self.assertEqual(process.returncode, 0, said + errors)
        self.assertIn("link 0 closed", said)
        self.assertIn(": 5 bytes", said)

    def test_choose_prints_what_is_chosen(self):
        for name in ("Home", "Work"):
            self.ctl("profile", "create", name, "apn=internet")
        process, person = self.worked("choose")
        person.press("Down", "Return")
        self.expect(process, 0, "Work\n")

    def test_choose_takes_no_for_an_answer(self):
        process, person = self.worked("choose")
        person.press("Escape")
        self.expect(process, 1, "")

    def test_form_gives_what_stands_in_its_fields(self):
        process, person = self.worked("form")
        person.press("Office", "Down", "10.0.0.53", "F1")
        self.expect(process, 0, "Office: 10.0.0.53\n")

    def test_form_takes_no_half_of_an_address(self):
        process, person = self.worked("form")
        person.press("Down", "10", "F1")
        time.sleep(0.5)
        self.assertIsNone(process.poll())
        person.press("Return", "F2")
        self.expect(process, 1, "")

    def test_failures_tries_again_what_may_pass(self):
        self.ctl("profile", "create", "Internet", "apn=internet")
        self.network(Internet={"outcome": "fail", "cause": 2})
        process = self.example("failures", "Internet", "1")
        said, _ = process.communicate(timeout=30)
        self.assertEqual(process.returncode, 1)
        self.assertEqual([line.split(":")[0] for line in said.splitlines()],
                         ["try 1", "failed", "try 2", "failed", "try 3", "failed", "given up"])

    def test_failures_opens_a_link_again_that_breaks(self):
        self.ctl("profile", "create", "Internet", "apn=internet")
        self.network(Internet={"breakAfterMs": 1000})
        process = self.example("failures", "Internet", "30")
        lines = [process.stdout.readline().strip() for _ in range(5)]
        self.assertEqual(lines, ["try 1", "up", "broken", "try 1", "up"])

    def test_failures_lets_the_user_mend_the_profile(self):
        self.ctl("profile", "create", "Internet", "apn=internet")
        self.network(Internet={"outcome": "fail", "cause": 5})
        process, person = self.worked("failures", "Internet", "1")
        self.assertEqual(process.stdout.readline(), "try 1\n")
        self.assertTrue(process.stdout.readline().startswith("failed: "))
        time.sleep(0.5)
        person.press("Escape")
        self.expect(process, 1, "given up: the connection is as it was\n")

    def test_failures_without_a_profile_lets_the_user_make_one(self):
        process, person = self.worked("failures", "Nothing", "1")
        person.press("Escape")
        self.expect(process, 1, "given up: there is no connection\n")

    def test_failures_ends_well_when_nothing_fails(self):
        self.ctl("profile", "create", "Internet", "apn=internet")
        process = self.example("failures", "Internet", "1")
        self.expect(process, 0, "try 1\nup\ndone\n")


def build(prefix, work, flags):
    examples = next(prefix.rglob("examples/session")).parent
    names = sorted(path.parent.name for path in examples.glob("*/CMakeLists.txt"))
    assert names == ["choose", "failures", "form", "session"], names
    shutil.rmtree(work, ignore_errors=True)
    for name in names:
        for command in (["-S", examples / name, "-B", work / name, f"-DCMAKE_PREFIX_PATH={prefix}",
                         f"-DCMAKE_CXX_FLAGS={flags}", "-G", "Ninja"], ["--build", work / name]):
            done = subprocess.run(["cmake", *command], stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                                  check=False)
            assert done.returncode == 0, done.stdout


if __name__ == "__main__":
    InstalledExample.prefix, InstalledExample.work = (pathlib.Path(path).resolve() for path in sys.argv[1:3])
    build(InstalledExample.prefix, InstalledExample.work, " ".join(sys.argv[3:]))
    os.environ.pop("QT_QPA_PLATFORM", None)
    unittest.main(argv=sys.argv[:1], verbosity=2)
