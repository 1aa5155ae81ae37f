"""A person at an interactive bash: types on a terminal, and reads what appears there."""

import os
import pathlib
import pty
import select
import signal
import termios
import time

LIMIT = 60  # seconds; only a failing test waits so long


class Shell:
    def __init__(self, argv, env, cwd):
        self.screen = b""
        self.status = None
        self.pid, self.terminal = pty.fork()
        if self.pid == 0:
            os.chdir(cwd)
            os.execvpe(argv[0], argv, env)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        os.close(self.terminal)
        if self.status is None:
            os.kill(self.pid, signal.SIGKILL)
            os.waitpid(self.pid, 0)

    def wait(self):
        """Waits for the end of the program: its exit status, or the negative number of a signal."""
        self.status = os.waitstatus_to_exitcode(os.waitpid(self.pid, 0)[1])
        return self.status

    def echo_is_on(self):
        return bool(termios.tcgetattr(self.terminal)[3] & termios.ECHO)

    def type(self, keys):
        os.write(self.terminal, keys.encode())

    def read_until(self, text, since=0):
        """Waits until the screen holds the text behind `since`; what stands before it there."""
        wanted = text.encode()
        deadline = time.monotonic() + LIMIT
        while wanted not in self.screen[since:]:
            left = deadline - time.monotonic()
            if left <= 0 or not select.select([self.terminal], [], [], left)[0]:
                raise AssertionError(f"{text!r} did not appear in {self.screen[since:]!r}")
            try:
                data = os.read(self.terminal, 65536)
            except OSError:
                data = b""
            if not data:
                raise AssertionError(f"ended without {text!r}: {self.screen[since:]!r}")
            self.screen += data
        return self.screen[since : self.screen.index(wanted, since)].decode("utf-8", "replace")


def environment(folder, vornctl, root, locale="C.UTF-8"):
    keep = {k: v for k, v in os.environ.items() if k in ("LSAN_OPTIONS", "UBSAN_OPTIONS")}
    return {
        **keep,
        "PATH": f"{pathlib.Path(vornctl).parent}:/usr/local/bin:/usr/bin:/bin",
        "HOME": str(folder),
        "TERM": "dumb",
        "LC_ALL": locale,
        "PS1": "$ ",
        "INPUTRC": "/dev/null",
        "VORN_ROOT": str(root),
        "VORN_OPERATORS": str(pathlib.Path(__file__).resolve().parent / "operators.xml"),
    }
