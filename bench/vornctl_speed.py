"""Measures vornctl as whole processes, each figure against its yardstick in the same run.

Usage: vornctl_speed.py VORNCTL BARE_LIST [--runs N] [--limit RATIO] [--growth RATIO]

- "profile list" over 1,000 profiles against a bare C loop that opens, reads and closes the 1,000 files:
  at most 6 times as long (--limit).
- show, create, set and delete of one profile with 1,000 profiles stored against the same with 10: they do
  not depend on the number, so at most 1.25 times as long (--growth), which leaves room for the noise of a
  process's start and of the disk.

Compares medians, and exits with 1 when a limit is missed.
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
    # What is prepared here must not wait for the disk when the first command does.
    os.sync()
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


def judge(what, ratio, limit):
    print(f"{what:<31} {ratio:8.2f} times (limit {limit:.2f}): {'kept' if ratio <= limit else 'MISSED'}")
    return ratio <= limit


def listing(vornctl, bare, folder, runs, limit):
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
    return judge("list to bare loop", list_ms / bare_ms, limit)


def single(vornctl, folder, runs, growth):
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
    for run in range(runs):
        # Each side begins every second time, so that neither has the other's files warm.
        order = list(env) if run % 2 else list(reversed(env))
        for step, words in steps.items():
            for count in order:
                times[step, count].append(clock([vornctl, "profile", *words], env[count]))
    kept = True
    for step in steps:
        few, many = (statistics.median(times[step, count]) for count in env)
        print(f"profile {step:<8} 10 stored {few:6.2f} ms   1,000 stored {many:6.2f} ms")
        kept = judge(f"{step} with 1,000 to 10", many / few, growth) and kept
    return kept


def main():
    arguments = argparse.ArgumentParser()
    arguments.add_argument("vornctl")
    arguments.add_argument("bare")
    arguments.add_argument("--runs", type=int, default=41)
    arguments.add_argument("--limit", type=float, default=6.0)
    arguments.add_argument("--growth", type=float, default=1.25)
    options = arguments.parse_args()
    with tempfile.TemporaryDirectory(prefix="vornctl-speed-") as name:
        folder = pathlib.Path(name)
        listed = listing(options.vornctl, options.bare, folder, options.runs, options.limit)
        single_ones = single(options.vornctl, folder, options.runs, options.growth)
    sys.exit(not (listed and single_ones))


if __name__ == "__main__":
    main()
