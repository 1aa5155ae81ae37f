"""Pins what a shared object exports. Usage: exported_symbols.py LIBRARY LIST.

LIST has one name a line: a class (every member of it may be exported, and its type information), or a
free function with its parameters. Whatever else is exported, or listed and not exported, is a failure.
"""

import re
import subprocess
import sys


def owner(symbol):
    """YPopup for 'vtable for YPopup' and 'YPopup::show()'; a free function is its own owner."""
    symbol = re.sub(r"^(vtable|typeinfo|typeinfo name|VTT|guard variable) for ", "", symbol)
    symbol = re.sub(r"^(non-virtual|virtual) thunk to ", "", symbol)
    match = re.match(r"(\w+)(::|$)", symbol)
    return match.group(1) if match else symbol


def main(library, listing):
    output = subprocess.run(["nm", "-D", "-C", "--defined-only", library],
                            check=True, capture_output=True, text=True).stdout
    symbols = {line.split(" ", 2)[2] for line in output.splitlines()}
    # Sanitizers, the C++ library and Qt's inline classes put symbols of their own into every object.
    foreign = re.compile(r"^(__|_edata|_end|_init|_fini|std::|operator|void std::|bool std::|Q[A-Z]|"
                         r"(vtable|typeinfo|typeinfo name) for (Q[A-Z]|std::))|@@")
    exported = {owner(symbol) for symbol in symbols if not foreign.search(symbol)}
    with open(listing, encoding="utf-8") as lines:
        expected = {line.strip() for line in lines if line.strip()}
    for name in sorted(exported - expected):
        print(f"exported, but not listed: {name}")
    for name in sorted(expected - exported):
        print(f"listed, but not exported: {name}")
    return 0 if exported == expected else 1


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
