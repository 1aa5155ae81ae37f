"""Runs one transcript of vornctl and compares. Usage: run_case.py VORNCTL PRELOAD CASE

VORN_RENEW=1 in the environment writes what was printed into the case instead.
"""

import difflib
import os
import pathlib
import subprocess
import sys
import tempfile

import world

HERE = pathlib.Path(__file__).resolve().parent
PREFIXES = ("| ", "! ", "= ", "|\n", "!\n", "|~ ", "!~ ")


def environment(folder, vornctl, preload, disk):
    """Nothing of the caller's environment reaches the program but what a sanitizer needs."""
    keep = {k: v for k, v in os.environ.items() if k in ("LSAN_OPTIONS", "UBSAN_OPTIONS")}
    return {
        **keep,
        "ASAN_OPTIONS": "verify_asan_link_order=0",
        "PATH": f"{HERE / 'bin'}:/usr/local/bin:/usr/bin:/bin",
        "HOME": str(folder / "home"),
        "LC_ALL": "C",
        "VORN_ROOT": str(folder / "root"),
        "DBUS_SYSTEM_BUS_ADDRESS": f"unix:path={folder / 'no-bus'}",
        "VORN_TEST_VORNCTL": vornctl,
        "VORN_TEST_PRELOAD": preload,
        "VORN_TEST_CALLS": str(folder / "here" / "calls"),
        "VORN_TEST_DISK": disk,
        "VORN_OPERATORS": str(HERE / "operators.xml"),
        "PYTHONDONTWRITEBYTECODE": "1",
    }


def visible(raw, folder):
    """The bytes as text in which nothing is hidden and nothing depends on where the test runs."""
    text = raw.decode("utf-8", "backslashreplace").replace(str(folder / "root"), "ROOT")
    text = text.replace(str(folder), "FOLDER")
    return "".join(c if c == "\n" or c.isprintable() else f"<U+{ord(c):04X}>" for c in text)


def prefixed(prefix, text):
    lines = text.splitlines(keepends=True)
    return "".join(
        (prefix + " " + line if line != "\n" else prefix + "\n")
        if line.endswith("\n")
        else f"{prefix}~ {line}\n"
        for line in lines
    )


def run_line(line, folder, env):
    done = subprocess.run(
        ["bash", "-c", line],
        cwd=folder / "here",
        env=env,
        stdin=subprocess.DEVNULL,
        capture_output=True,
        timeout=50,
        check=False,
    )
    text = prefixed("|", visible(done.stdout, folder))
    text += prefixed("!", visible(done.stderr, folder))
    return text + (f"= {done.returncode}\n" if done.returncode else "")


def replay(case, vornctl, preload):
    """The transcript as it comes out now."""
    result = []
    with tempfile.TemporaryDirectory(prefix="vornctl-") as name:
        folder = pathlib.Path(name)
        for child in ("home", "here"):
            (folder / child).mkdir()
        env = None
        for line in case.read_text(encoding="utf-8").splitlines(keepends=True):
            if line.startswith("world "):
                disk = world.build(HERE / "worlds" / (line.split()[1] + ".json"), folder / "root")
                env = environment(folder, vornctl, preload, disk)
            if line.startswith(PREFIXES):
                continue
            result.append(line)
            if line.startswith("$ "):
                result.append(run_line(line[2:].rstrip("\n"), folder, env))
    return "".join(result)


def main():
    vornctl, preload, case = sys.argv[1], sys.argv[2], pathlib.Path(sys.argv[3])
    expected = case.read_text(encoding="utf-8")
    if "\n$ " not in expected or "world " not in expected:
        sys.exit(f"{case}: no world or no line to run")
    got = replay(case, vornctl, preload)
    if os.environ.get("VORN_RENEW") == "1":
        case.write_text(got, encoding="utf-8")
        return
    if got != expected:
        sys.stdout.writelines(
            difflib.unified_diff(
                expected.splitlines(keepends=True), got.splitlines(keepends=True), "expected", "got"
            )
        )
        sys.exit(1)


if __name__ == "__main__":
    main()
