"""What the tests of whole programs in the laboratory stand on: a root of their own, the modem, the far end."""

import json
import os
import pathlib
import socket
import subprocess
import sys
import tempfile
import time
import unittest

HERE = pathlib.Path(__file__).resolve().parent

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
                           stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=False)
    return int(shown.stdout.split()[0]) if shown.stdout else 0


def order(line):
    """An order to the modem, as modem.py describes them."""
    with socket.socket(socket.AF_UNIX) as modem:
        modem.connect("/run/lab/modem.sock")
        modem.sendall(line.encode() + b"\n")
        modem.recv(3)


def commands():
    """What the modem was told so far."""
    with open("/run/lab/modem.log", encoding="utf-8") as log:
        return [line.partition("> ")[2].strip() for line in log if "> " in line and not line.startswith("<")]


def until(condition, seconds=30):
    end = time.monotonic() + seconds
    while not condition():
        if time.monotonic() > end:
            return False
        time.sleep(0.02)
    return True


def daemon(name):
    """Starts a service that was killed."""
    subprocess.run([HERE / "daemon", name], check=True, stdin=subprocess.DEVNULL)


def kill(name, signal):
    with open(f"/run/lab/{name}.pid", encoding="ascii") as file:
        os.kill(int(file.read()), signal)


class Programs(unittest.TestCase):
    """Programs with a root of their own, whose links are NetworkManager's."""

    vornctl = ""  # its path
    device = "ttyHS0"  # has to be down at the end
    user = []  # the words in front of a program that make it run as somebody else

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name
        self.environment = {**os.environ, "VORN_ROOT": self.folder, "XDG_RUNTIME_DIR": self.folder,
                            "QT_QPA_PLATFORM": "offscreen", "HOME": self.folder, "LC_ALL": "C.UTF-8",
                            "VORN_OPERATORS": str(HERE / "operators.xml")}
        os.mkdir(self.folder + "/etc")
        self.configure({"bearer": "networkmanager"})
        self.first_command = len(commands()) if os.path.exists("/run/lab/modem.log") else 0
        self.addCleanup(self.assert_down)

    def configure(self, keys):
        pathlib.Path(self.folder, "etc/network.json").write_text(json.dumps(keys), encoding="utf-8")

    def assert_down(self):
        if os.path.exists("/run/lab/modem.sock"):
            order("forget")
        self.assertTrue(until(lambda: state(self.device) in (0, 20, 30)), self.device)

    def run_program(self, *words, text="", environment=()):
        return subprocess.run([*self.user, *words], env={**self.environment, **dict(environment)}, text=True,
                              timeout=60, check=False, input=text, stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE)

    def ctl(self, *words, text="", status=0):
        """What vornctl prints; it has to end with the status."""
        done = self.run_program(self.vornctl, *words, text=text)
        self.assertEqual(done.returncode, status, done.stdout + done.stderr)
        return done

    def findings(self):
        """What doctor finds: the problem and the remedy of each path."""
        done = self.run_program(self.vornctl, "doctor", "--json")
        found = json.loads(done.stdout)
        self.assertEqual(done.returncode, 1 if found else 0, done.stderr)
        return {one["path"]: (one["problem"], one["remedy"]) for one in found}

    def failure(self, profile):
        """Cause and detail of an opening that fails, and what was said to people."""
        done = self.ctl("link", "open", "--json", profile, status=11)
        event = json.loads(done.stdout.splitlines()[-1])
        self.assertEqual(event["event"], "failed")
        return event["cause"], event["detail"], done.stderr

    def dialled(self):
        """What the modem was told in this test."""
        return commands()[self.first_command:]

    def serve_a_page(self):
        """http://lab.example:8080/, which says "a page for ADDRESS"."""
        server = subprocess.Popen(["nsenter", "-t", os.environ["PEER"], "-n", "python3", "-c", SERVER],
                                  stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        self.addCleanup(server.stdout.close)
        self.addCleanup(server.wait)
        self.addCleanup(server.kill)
        server.stdout.readline()


def main():
    """Usage of each test: TEST VORNCTL [PROGRAM]... -- [unittest arguments]"""
    Programs.vornctl = sys.argv[1]
    end = sys.argv.index("--") if "--" in sys.argv else len(sys.argv)
    unittest.main(module="__main__", argv=[sys.argv[0], *sys.argv[end + 1:]], verbosity=2)
