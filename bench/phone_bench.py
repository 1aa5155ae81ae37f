"""Measures vornphone's home page against a bare Qt program with one list of as many rows, in the same run.

Usage: phone_bench.py PHONE_START BARE_START [--rows N] [--runs N] [--limit RATIO] [--frame MS]

- until it is painted, and memory then: at most 1.5 times that of the bare program (--limit);
- scrolling through all rows: no frame over 16 ms (--frame).

The two take turns; compares medians, and exits with 1 when a limit is missed.
"""

import argparse
import json
import os
import pathlib
import statistics
import subprocess
import sys
import tempfile
import time

from vornctl_speed import make_root


def measured(command, environment):
    start = {**environment, "VORN_BENCH_START": repr(time.clock_gettime(time.CLOCK_MONOTONIC))}
    done = subprocess.run(command, env=start, check=True, text=True, stdout=subprocess.PIPE,
                          stderr=subprocess.DEVNULL)
    return json.loads(done.stdout)


def median(figures, name):
    return statistics.median(figure[name] for figure in figures)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("phone")
    parser.add_argument("bare")
    parser.add_argument("--rows", type=int, default=1000)
    parser.add_argument("--runs", type=int, default=15)
    parser.add_argument("--limit", type=float, default=1.5)
    parser.add_argument("--frame", type=float, default=16)
    options = parser.parse_args()
    phone, bare = [], []
    with tempfile.TemporaryDirectory(prefix="phone-bench-") as folder:
        make_root(pathlib.Path(folder), options.rows)
        environment = {**os.environ, "VORN_ROOT": folder, "VORN_LANG": "en", "QT_QPA_PLATFORM": "offscreen",
                       "XDG_RUNTIME_DIR": folder}
        for _ in range(options.runs):
            phone.append(measured([options.phone], environment))
            bare.append(measured([options.bare, str(options.rows)], environment))
    failed = False
    for name, unit in (("seen", "ms"), ("memory", "KiB")):
        ratio = median(phone, name) / median(bare, name)
        failed |= ratio > options.limit
        print(f"{name}: {median(phone, name):.0f} {unit}, bare {median(bare, name):.0f} {unit}, "
              f"ratio {ratio:.2f} (limit {options.limit})")
    worst = statistics.median(figure["worst"] for figure in phone)
    failed |= worst > options.frame
    print(f"frame: median {median(phone, 'frame'):.2f} ms, worst {worst:.2f} ms (limit {options.frame})")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
