"""Measures vornctl as whole processes, each figure against its yardstick in the same run.

Usage: vornctl_speed.py VORNCTL BARE_LIST [--runs N] [--limit RATIO]

- "profile list" over 1,000 profiles against a bare C loop that opens, reads and closes the 1,000 files;
  exits with 1 when the ratio of the medians is above the limit (6).
- show, create, set and delete of one profile with 10 and with 1,000 profiles stored.
"""

import argparse
import os
import pathlib
import statistics
import subprocess
import sys
import tempfile
import time

PROFILES = "vornlocal/download/appwrite/NetProfile"


def make_root(root, count):
    folder = root / PROFILES
    folder.mkdir(parents=True)
    record = bytearray(1168)
    record[8:16] = b"internet"
    for number in range(count):
        (folder / f"Profile{number}").mkdir()
        (folder / f"Profile{number}" / "profile").write_bytes(record)
    return root


def clock(command, env):
    start = time.perf_counter()
    subprocess.run(command, env=env, stdout=subprocess.DEVNULL, check=True)
    return (time.perf_counter() - start) * 1e3


def alternate(jobs, runs):
    """The medians of the jobs, run in turn so that whatever slows the machine slows each."""
    times = [[] for _ in jobs]
    for job in jobs:
        job()
    for _ in range(runs):
        for job, mine in zip(jobs, times):
            mine.append(job())
    return [statistics.median(mine) for mine in times]


def listing(vornctl, bare, folder, runs):
    root = make_root(folder / "list", 1000)
    env = {**os.environ, "VORN_ROOT": str(root)}
    list_ms, json_ms, bare_ms = alternate(
        [
            lambda: clock([vornctl, "profile", "list"], env),
            lambda: clock([vornctl, "profile", "list", "--json"], env),
            lambda: clock([bare, str(root / PROFILES), "1000"], env),
        ],
        runs,
    )
    print(f"profile list, 1,000 profiles    {list_ms:8.2f} ms")
    print(f"profile list --json             {json_ms:8.2f} ms")
    print(f"bare loop over the same files   {bare_ms:8.2f} ms")
    print(f"ratio (list to bare loop)       {list_ms / bare_ms:8.2f}")
    return list_ms / bare_ms


def single(vornctl, folder, runs):
    env = {
        count: {**os.environ, "VORN_ROOT": str(make_root(folder / str(count), count))}
        for count in (10, 1000)
    }
    steps = {
        "create": ["create", "New", "apn=x"],
        "show": ["show", "New"],
        "set": ["set", "New", "apn=y"],
        "delete": ["delete", "New"],
    }
    times = {(step, count): [] for step in steps for count in env}
    for _ in range(runs):
        for step, words in steps.items():
            for count in env:
                times[step, count].append(clock([vornctl, "profile", *words], env[count]))
    for step in steps:
        few, many = (statistics.median(times[step, count]) for count in env)
        print(f"profile {step:<8} 10 stored {few:6.2f} ms   1,000 stored {many:6.2f} ms")


def main():
    arguments = argparse.ArgumentParser()
    arguments.add_argument("vornctl")
    arguments.add_argument("bare")
    arguments.add_argument("--runs", type=int, default=41)
    arguments.add_argument("--limit", type=float, default=6.0)
    options = arguments.parse_args()
    with tempfile.TemporaryDirectory(prefix="vornctl-speed-") as name:
        ratio = listing(options.vornctl, options.bare, pathlib.Path(name), options.runs)
        single(options.vornctl, pathlib.Path(name), options.runs)
    sys.exit(ratio > options.limit)


if __name__ == "__main__":
    main()
