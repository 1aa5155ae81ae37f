"""Reads how shared objects and programs are hardened. Usage: hardening.py MODE FILES...

Each has to be bound before it runs with its tables read-only from then on (full RELRO), to have a stack that
is not executed, and a RUNPATH, if any, without empty elements, each of which would stand for whatever folder
a program is started in. A shared object exports nothing of the C++ run-time library. MODE is "optimised" for
what was compiled with stack protector and fortified calls, which then have to show, else "plain".
"""

import re
import subprocess
import sys

# Calls of the C library that have a checked form, which fortified code always calls.
CHECKABLE = {"printf", "fprintf", "vprintf", "vfprintf", "dprintf", "vdprintf"}

# The mangled names of what belongs to std and __gnu_cxx; a lower-case letter after S names one of std.
RUNTIME = re.compile(r"_Z(T[ISTV]|GV|Z)*N?K?(S[a-z]|9__gnu_cxx)")


def output_of(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def run_path_faults(dynamic):
    for path in re.findall(r"\((?:RUNPATH|RPATH)\)\s+Library r\w+path: \[(.*)\]", dynamic):
        if "" in path.split(":"):
            yield f"empty elements in its RUNPATH [{path}]"


def faults_of(file, optimised):
    """What is wrong with one file, in words that follow its name."""
    dynamic = output_of("readelf", "-dW", file)
    segments = output_of("readelf", "-lW", file)
    if "GNU_RELRO" not in segments:
        yield "no read-only relocations (-z relro)"
    if not re.search(r"FLAGS\).*BIND_NOW|FLAGS_1\).*\bNOW\b", dynamic):
        yield "not bound before it runs (-z now)"
    if re.search(r"GNU_STACK.* RWE ", segments):
        yield "a stack that is executed"
    yield from run_path_faults(dynamic)
    if "(SONAME)" in dynamic:
        names = [line.split()[-1] for line in output_of("nm", "-D", "--defined-only", file).splitlines()]
        yield from (f"exports {name[:80]}" for name in names if RUNTIME.match(name))
    needed = {line.split()[-1].split("@")[0] for line in output_of("nm", "-D", "-u", file).splitlines()}
    if optimised and "__stack_chk_fail" not in needed:
        yield "no stack protector"
    if optimised:
        yield from (f"calls {name} unchecked" for name in sorted(needed & CHECKABLE))


def main(mode, *files):
    if mode not in ("optimised", "plain") or not files:
        sys.exit("usage: hardening.py optimised|plain FILES...")
    found = [f"{file}: {fault}" for file in files for fault in faults_of(file, mode == "optimised")]
    print("\n".join(found) or f"{len(files)} files are hardened")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
