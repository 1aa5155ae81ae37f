"""Programs as their owners use them, over a link that the modem is dialled for.

Usage, in a laboratory with a modem: end_to_end_test.py VORNCTL VORN_EXAMPLE [unittest arguments]
"""

import json
import os
import signal
import subprocess
import sys
import tempfile
import time
import unittest

VORNCTL, EXAMPLE = sys.argv.pop(1), sys.argv.pop(1)

# Answers each request with the caller's address; runs at the far end of the network.
SERVER = """
import http.server
class Page(http.server.BaseHTTPRequestHandler):
    def do_GET(self):
        self.send_response(200)
        self.end_headers()
        self.wfile.write(b"a page for " + self.client_address[0].encode())
server = http.server.HTTPServer(("10.77.0.1", 8080), Page)
print("there", flush=True)
server.serve_forever()
"""


def state(device):
    shown = subprocess.run(["nmcli", "-g", "GENERAL.STATE", "device", "show", device], text=True,
                           stdout=subprocess.PIPE, check=True)
    return int(shown.stdout.split()[0])


def modem_commands():
    with open("/run/lab/modem.log", encoding="utf-8") as log:
        return [line.partition("> ")[2].strip() for line in log if "> " in line and not line.startswith("<")]


class EndToEnd(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.environment = {**os.environ, "VORN_ROOT": folder.name, "XDG_RUNTIME_DIR": folder.name,
                            "QT_QPA_PLATFORM": "offscreen", "HOME": folder.name}
        os.mkdir(folder.name + "/etc")
        with open(folder.name + "/etc/network.json", "w", encoding="utf-8") as file:
            json.dump({"bearer": "networkmanager"}, file)
        self.ctl("profile", "create", "Internet", "apn=internet.example", "user=ursula", "--password",
                 text="horse\n")
        self.order("forget")
        self.first_command = len(modem_commands())
        self.addCleanup(self.assert_hung_up)

    def assert_hung_up(self):
        self.order("forget")
        end = time.monotonic() + 10
        while state("ttyHS0") != 30 and time.monotonic() < end:
            time.sleep(0.05)
        self.assertEqual(state("ttyHS0"), 30)

    def ctl(self, *words, text=""):
        done = subprocess.run([VORNCTL, *words], env=self.environment, text=True, timeout=60, check=False,
                              input=text, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)
        return done

    def commands(self):
        return modem_commands()[self.first_command:]

    def order(self, line):
        subprocess.run(["python3", "-c", "import socket, sys\n"
                        "s = socket.socket(socket.AF_UNIX)\ns.connect('/run/lab/modem.sock')\n"
                        "s.sendall(sys.argv[1].encode() + b'\\n')\ns.recv(3)", line], check=True)

    def test_the_example_fetches_a_page_over_a_dialled_link(self):
        server = subprocess.Popen(["nsenter", "-t", os.environ["PEER"], "-n", "python3", "-c", SERVER],
                                  stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        self.addCleanup(server.stdout.close)
        self.addCleanup(server.wait)
        self.addCleanup(server.kill)
        server.stdout.readline()
        done = subprocess.run([EXAMPLE, "Internet", "http://lab.example:8080/"], env=self.environment,
                              text=True, timeout=60, check=False, stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE)
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)
        self.assertIn("device hso0, address 10.99.0.2, bearer GPRS", done.stdout)
        # The length of the page, which names the address that the server has seen.
        self.assertIn(f"{len('a page for 10.99.0.2')} bytes", done.stdout)
        self.assertIn('AT$QCPDPP=1,2,"horse","ursula"', self.commands())

    def test_vornctl_opens_a_link_and_closes_it(self):
        done = self.ctl("link", "open", "Internet")
        self.assertIn("hso0", done.stdout)
        self.assertIn("10.99.0.2", done.stdout)
        self.assertTrue([c for c in self.commands() if c.endswith('"IP","internet.example"')])

    def test_vornctl_holds_a_link_until_it_is_interrupted(self):
        with subprocess.Popen([VORNCTL, "link", "open", "--hold", "Internet"], env=self.environment,
                              text=True, stdout=subprocess.PIPE) as held:
            while "10.99.0.2" not in held.stdout.readline():
                pass
            self.assertEqual(state("ttyHS0"), 100)
            held.send_signal(signal.SIGINT)
            held.wait(30)

    def test_vornctl_tells_a_broken_link(self):
        with subprocess.Popen([VORNCTL, "link", "open", "--hold", "Internet"], env=self.environment,
                              text=True, stdout=subprocess.PIPE) as held:
            while "10.99.0.2" not in held.stdout.readline():
                pass
            self.order("send _OWANCALL: 1, 0")
            self.assertIn("broken", held.stdout.read())
            self.assertNotEqual(held.wait(30), 0)

    def test_vornctl_lists_the_modem_and_the_ethernet(self):
        devices = {device["port"]: device for device in json.loads(self.ctl("device", "list", "--json").stdout)}
        modem = devices["ttyHS0"]
        self.assertEqual((modem["kind"], modem["state"], modem["sim"], modem["problem"]),
                         ("modem", "disconnected", "ready", ""))
        self.assertEqual(modem["registration"], "home")
        self.assertEqual(devices["eth9"]["kind"], "ethernet")

    def test_vornctl_tells_the_steps_of_an_opening_in_front_of_its_outcome(self):
        done = self.ctl("link", "open", "--verbose", "--json", "Internet")
        events = [json.loads(line)["event"] for line in done.stdout.splitlines()]
        self.assertEqual((events[0], events[-2:]), ("opening", ["connected", "closed"]))
        self.assertGreater(events.count("step"), 1)
        self.assertNotIn("horse", done.stdout)

    def test_vornctl_finds_nothing_that_keeps_the_link_from_opening(self):
        self.ctl("doctor")

    def test_vornctl_says_why_the_network_refused(self):
        self.order("AT_OWANCALL=1,1 => +CME ERROR: 133")
        done = subprocess.run([VORNCTL, "link", "open", "Internet"], env=self.environment, text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, timeout=60, check=False)
        self.assertNotEqual(done.returncode, 0)
        self.assertIn("133", done.stdout)
        self.assertNotIn("horse", done.stdout)


if __name__ == "__main__":
    unittest.main(verbosity=2)
