"""The phone in a browser, as who has the address meets it, and as everybody else does.

Usage: web_test.py VORNPHONE BODY_PROBE
"""

import base64
import contextlib
import os
import pathlib
import socket
import stat
import sys
import unittest
import urllib.error
import urllib.request

from phone_process import WEB_PACKAGES, PhoneTest, family_of, free_port, is_running, signal, wait_for


def ask_for_socket(port, path):
    """What the server answers to a browser that wants a socket: the status, and what comes first on it."""
    with socket.create_connection(("127.0.0.1", port), 10) as connection:
        key = base64.b64encode(os.urandom(16)).decode()
        connection.sendall(f"GET {path} HTTP/1.1\r\nHost: 127.0.0.1:{port}\r\nUpgrade: websocket\r\n"
                           f"Connection: Upgrade\r\nSec-WebSocket-Key: {key}\r\nSec-WebSocket-Version: 13\r\n"
                           "Sec-WebSocket-Protocol: binary\r\n\r\n".encode())
        answer = b""
        connection.settimeout(5)
        try:
            while b"RFB 003" not in answer and (more := connection.recv(4096)):
                answer += more
        except TimeoutError:
            pass
        return answer


def listening_ports(process_ids):
    """(address, port) of the TCP sockets on which these processes listen."""
    inodes = set()
    for one in process_ids:
        # A process may end meanwhile, and then listens no more.
        with contextlib.suppress(OSError):
            for link in pathlib.Path(f"/proc/{one}/fd").iterdir():
                with contextlib.suppress(OSError):
                    target = os.readlink(link)
                    if target.startswith("socket:["):
                        inodes.add(target[8:-1])
    found = set()
    for table in ("tcp", "tcp6"):
        for line in pathlib.Path(f"/proc/net/{table}").read_text().splitlines()[1:]:
            fields = line.split()
            if fields[3] == "0A" and fields[9] in inodes:
                address, port = fields[1].split(":")
                found.add((address, int(port, 16)))
    return found


class InABrowser(PhoneTest):
    def test_who_has_the_token_reaches_the_phone(self):
        _, port, token = self.web()
        self.door()
        self.assertIn(b"RFB 003", ask_for_socket(port, f"/websockify?token={token}"))

    def test_who_has_no_token_or_a_wrong_one_is_refused(self):
        _, port, token = self.web()
        self.door()
        for path in ("/websockify", "/websockify?token=", "/websockify?token=" + "0" * 32,
                     f"/websockify?token={token[:-1]}", f"/websockify?token={token}0", "/", "/?token=.*"):
            with self.subTest(path=path):
                self.assertNotIn(b"RFB", ask_for_socket(port, path))

    def test_a_vnc_client_without_the_token_hears_nothing(self):
        _, port, _ = self.web()
        self.door()
        with socket.create_connection(("127.0.0.1", port), 10) as client:
            client.settimeout(3)
            try:
                self.assertNotIn(b"RFB", client.recv(64))
            except TimeoutError:
                pass

    def test_nothing_else_listens_and_that_on_the_loopback_only(self):
        process, port, token = self.web()
        self.door()
        self.assertIn(b"RFB 003", ask_for_socket(port, f"/websockify?token={token}"))
        self.assertEqual(listening_ports([process.pid, *family_of(process.pid)]), {("0100007F", port)})

    def test_the_phones_own_socket_lies_where_nobody_else_may_go(self):
        self.web()
        folder = self.door()
        self.assertEqual(stat.S_IMODE(folder.stat().st_mode), 0o700)

    def test_the_token_is_in_no_list_of_processes_and_in_no_page(self):
        process, port, token = self.web()
        for one in [process.pid, *family_of(process.pid)]:
            self.assertNotIn(token, pathlib.Path(f"/proc/{one}/cmdline").read_text())
        with urllib.request.urlopen(f"http://127.0.0.1:{port}/") as page:
            self.assertNotIn(token, page.read().decode())
        with self.assertRaises(urllib.error.HTTPError):
            urllib.request.urlopen(f"http://127.0.0.1:{port}/../tokens")

    def test_each_start_has_another_token(self):
        self.assertNotEqual(self.web()[2], self.web()[2])

    def test_a_folder_for_running_programs_that_lies_deep_does(self):
        deep = self.running / ("d" * 90)
        deep.mkdir()
        _, port, token = self.web(XDG_RUNTIME_DIR=str(deep))
        self.assertTrue(wait_for(lambda: b"RFB 003" in ask_for_socket(port, f"/websockify?token={token}")))

    def test_another_program_is_shown_as_well(self):
        _, port, token = self.web("--run", self.programs["probe"])
        self.door()
        self.assertIn(b"RFB 003", ask_for_socket(port, f"/websockify?token={token}"))


class TheEnd(PhoneTest):
    def expect_nothing_left(self, family):
        self.assertTrue(wait_for(lambda: not [one for one in family if is_running(one)]), family)

    def test_ends_all_that_was_started(self):
        for number, status in ((signal.SIGTERM, 143), (signal.SIGINT, 130)):
            with self.subTest(number=number):
                process, _, _ = self.web()
                self.door()
                family = family_of(process.pid)
                self.assertGreaterEqual(len(family), 2)
                process.send_signal(number)
                self.assertEqual(process.wait(20), status)
                self.expect_nothing_left(family)
                self.assertEqual(list(self.running.glob("vornphone-*")), [])

    def test_that_cannot_be_prepared_ends_all_as_well(self):
        process, _, _ = self.web()
        self.door()
        family = family_of(process.pid)
        process.kill()
        process.wait()
        self.expect_nothing_left(family)

    def test_of_the_program_is_the_phones_with_its_status(self):
        process, _, _ = self.web("--run", self.programs["probe"], "7")
        self.assertEqual(process.wait(20), 7)
        self.assertEqual(list(self.running.glob("vornphone-*")), [])

    def test_of_the_server_is_told_and_ends_the_phone(self):
        process, _, _ = self.web()
        self.door()
        family = family_of(process.pid)
        servers = [one for one in family
                   if "websockify" in pathlib.Path(f"/proc/{one}/cmdline").read_text()]
        os.kill(servers[0], signal.SIGKILL)
        self.assertEqual(process.wait(20), 3)
        self.assertIn("vornphone: websockify has ended", process.stderr.read())
        self.expect_nothing_left(family)


class WhatKeepsItFrom(PhoneTest):
    def expect_told(self, *parts, arguments, **environment):
        status, output, errors = self.run_phone(*arguments, **environment)
        self.assertEqual((status, output), (3, ""), errors)
        for part in parts:
            self.assertIn(part, errors)
        self.assertEqual(list(self.running.glob("vornphone-*")), [])

    def test_a_port_that_is_in_use_is_told(self):
        with socket.socket() as taken:
            taken.bind(("127.0.0.1", 0))
            taken.listen()
            port = taken.getsockname()[1]
            self.expect_told(f"port {port} of 127.0.0.1 is in use", f"vornphone --web {port + 1}",
                             arguments=["--web", str(port)])

    def test_an_address_that_is_not_this_machines_is_told(self):
        self.expect_told("of 192.0.2.1 cannot be had", arguments=["--web", str(free_port()), "--web-address",
                                                                  "192.0.2.1"])

    def test_packages_that_are_not_installed_are_named(self):
        self.expect_told("as root: apt-get install websockify", arguments=["--web", str(free_port())],
                         PATH="/nowhere")

    def test_what_is_no_port_is_refused(self):
        for port in ("0", "65536", "http", "-1"):
            status, _, errors = self.run_phone("--web", port)
            self.assertEqual(status, 2, port)
            self.assertIn("--web", errors)

    def test_the_whole_screen_and_a_browser_do_not_go_together(self):
        self.assertEqual(self.run_phone("--screen", "--web", "6080")[0], 2)

    def test_a_program_that_is_not_there_is_named(self):
        status, _, errors = self.run_phone("--web", str(free_port()), "--run", "/no/such/program")
        self.assertEqual(status, 127)
        self.assertIn("/no/such/program cannot be run", errors)


if __name__ == "__main__":
    PhoneTest.programs = {"vornphone": sys.argv[1], "probe": sys.argv[2]}
    missing = [name for name, file in WEB_PACKAGES.items() if not pathlib.Path(file).exists()]
    if missing:
        print("skipped: not installed:", *missing)
        sys.exit(77)
    unittest.main(argv=sys.argv[:1], verbosity=2)
