"""vornphone as a process, for tests: its programs, a world for it, displays of any size."""

import os
import pathlib
import select
import shutil
import signal
import socket
import subprocess
import tempfile
import time
import unittest

# What a browser needs of the system, by the file that shows it to be there.
WEB_PACKAGES = {"novnc": "/usr/share/novnc/core/rfb.js", "websockify": "/usr/bin/websockify"}


def wait_for(condition, seconds=20):
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        if value := condition():
            return value
        time.sleep(0.05)
    return condition()


def free_port():
    with socket.socket() as taken:
        taken.bind(("127.0.0.1", 0))
        return taken.getsockname()[1]


def is_running(process_id):
    try:
        return pathlib.Path(f"/proc/{process_id}/stat").read_text().rsplit(")", 1)[1].split()[0] != "Z"
    except (FileNotFoundError, ProcessLookupError):
        return False


def family_of(process_id):
    """The processes that a process has started, and those that they have."""
    try:
        own = pathlib.Path(f"/proc/{process_id}/task/{process_id}/children").read_text().split()
    except (FileNotFoundError, ProcessLookupError):
        return []
    return [one for child in own for one in [int(child), *family_of(int(child))]]


class PhoneTest(unittest.TestCase):
    """Each test has a root, a folder for running programs, and whatever it starts ends with it."""

    programs = {}  # by name, set by the main program

    def setUp(self):
        self.world = pathlib.Path(tempfile.mkdtemp(prefix="vornbody-"))
        self.addCleanup(shutil.rmtree, self.world, ignore_errors=True)
        self.running = self.world / "running"
        self.running.mkdir(mode=0o700)
        (self.world / "root/etc").mkdir(parents=True)
        (self.world / "root/etc/network.json").write_text(
            '{"bearer": "machine", "interfaces": {"cellular": "lo", "wifi": "lo"}}')
        self.environment = {
            **{name: value for name, value in os.environ.items()
               if not name.startswith(("VORN_", "QT_", "DISPLAY", "WAYLAND"))},
            "VORN_ROOT": str(self.world / "root"), "XDG_RUNTIME_DIR": str(self.running),
            "LC_ALL": "C.UTF-8", "VORN_THEME": "light", "VORN_LANG": "en",
            "ASAN_OPTIONS": "detect_leaks=0"}

    def start(self, program, *arguments, **environment):
        process = subprocess.Popen(
            [self.programs.get(program, program), *arguments], env={**self.environment, **environment},
            stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
        self.addCleanup(self.finish, process)
        return process

    def finish(self, process):
        if process.poll() is None:
            process.terminate()
            try:
                process.wait(10)
            except subprocess.TimeoutExpired:
                process.kill()
                process.wait()
        process.stdout.close()
        process.stderr.close()

    def run_phone(self, *arguments, **environment):
        """vornphone that ends by itself: its status, output and errors."""
        process = self.start("vornphone", *arguments, **environment)
        output, errors = process.communicate(timeout=60)
        return process.returncode, output, errors

    def display(self, size="640x480", *options):
        """An X server of its own; the name of the display, and the server."""
        read_end, write_end = os.pipe()
        server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(write_end), "-screen", "0", f"{size}x24", "-nolisten", "tcp", "-noreset", *options],
            pass_fds=[write_end], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(write_end)
        self.addCleanup(lambda: (server.kill(), server.wait()))
        # It ends when nobody reads its line to the end.
        with open(read_end, encoding="ascii") as told:
            self.assertTrue(select.select([told], [], [], 30)[0], "the X server does not start")
            number = told.readline().strip()
        return f":{number}", server

    def web(self, *arguments, **environment):
        """vornphone in a browser: the process, its port and its token."""
        port = free_port()
        process = self.start("vornphone", "--web", str(port), *arguments, **environment)
        line = process.stdout.readline()
        self.assertRegex(line, rf"^The phone is at http://127\.0\.0\.1:{port}/#[0-9a-f]{{32}}$",
                         line or process.stderr.read())
        return process, port, line.strip().rsplit("#", 1)[1]

    def door(self):
        """The folder of the phone that is shown in a browser."""
        found = wait_for(lambda: list(self.running.glob("vornphone-*/door")))
        return found[0].parent


__all__ = ["PhoneTest", "WEB_PACKAGES", "family_of", "free_port", "is_running", "signal", "wait_for"]
