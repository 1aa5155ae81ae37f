"""Debian's chromium without a window, driven over the WebDriver protocol of its chromedriver."""

import base64
import json
import pathlib
import shutil
import subprocess
import tempfile
import urllib.error
import urllib.request

from phone_process import free_port, wait_for

PACKAGES = {"chromium": "/usr/bin/chromium", "chromium-driver": "/usr/bin/chromedriver"}

# Chromium talks to nobody but the page.
FLAGS = ["--headless", "--no-sandbox", "--disable-gpu", "--disable-background-networking",
         "--disable-component-update", "--disable-sync", "--no-first-run", "--disable-dev-shm-usage",
         "--window-size=400,800"]

KEYS = {"Return": "\ue007", "Escape": "\ue00c", "Up": "\ue013", "Down": "\ue015", "F1": "\ue031", "F2": "\ue032",
        "Backspace": "\ue003"}


class Browser:
    def __init__(self):
        self.profile = tempfile.mkdtemp(prefix="vornbrowser-")
        self.port = free_port()
        self.driver = subprocess.Popen([PACKAGES["chromium-driver"], f"--port={self.port}"],
                                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.session = ""
        wait_for(self.is_ready, 30)
        options = {"args": [*FLAGS, f"--user-data-dir={self.profile}"], "binary": PACKAGES["chromium"]}
        made = self.call("POST", "/session", {"capabilities": {"alwaysMatch": {"goog:chromeOptions": options}}})
        self.session = f"/session/{made['sessionId']}"

    def is_ready(self):
        try:
            return self.call("GET", "/status")["ready"]
        except (OSError, urllib.error.URLError):
            return False

    def call(self, method, path, body=None):
        request = urllib.request.Request(f"http://127.0.0.1:{self.port}{path}", method=method,
                                         data=None if body is None else json.dumps(body).encode(),
                                         headers={"Content-Type": "application/json"})
        try:
            with urllib.request.urlopen(request, timeout=60) as answer:
                return json.load(answer)["value"]
        except urllib.error.HTTPError as error:
            raise AssertionError(error.read().decode()) from error

    def open(self, url):
        # The same page with another token behind the # would not be loaded again.
        self.call("POST", f"{self.session}/url", {"url": "about:blank"})
        self.call("POST", f"{self.session}/url", {"url": url})

    def script(self, text):
        return self.call("POST", f"{self.session}/execute/sync", {"script": text, "args": []})

    def press(self, *keys):
        """Named keys, and texts letter by letter."""
        letters = [letter for key in keys for letter in KEYS.get(key, key)]
        actions = [{"type": kind, "value": letter} for letter in letters for kind in ("keyDown", "keyUp")]
        self.call("POST", f"{self.session}/actions", {"actions": [{"type": "key", "id": "keys", "actions": actions}]})

    def tap(self, x, y):
        at = {"type": "pointerMove", "duration": 0, "x": x, "y": y}
        press = [{"type": "pointerDown", "button": 0}, {"type": "pointerUp", "button": 0}]
        self.call("POST", f"{self.session}/actions",
                  {"actions": [{"type": "pointer", "id": "finger", "actions": [at, *press]}]})

    def picture(self, file):
        pathlib.Path(file).write_bytes(base64.b64decode(self.call("GET", f"{self.session}/screenshot")))

    def close(self):
        if self.session:
            self.call("DELETE", self.session)
        self.driver.terminate()
        self.driver.wait(20)
        shutil.rmtree(self.profile, ignore_errors=True)
