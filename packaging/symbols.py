"""The symbols files of the packages. Usage: symbols.py --renew|--check LIBRARY...

A symbols file names what programs may link of a library and since which version it is there. --check has
dpkg-gensymbols compare the libraries with the files; a name that is gone is a failure, for programs that are
built with it would not start any more. --renew writes the files anew and leaves the versions of what stays.
What only this project's own programs link needs exactly the version that they were built with.
"""

import pathlib
import re
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent
HEADERS = (*ROOT.glob("include/*.h"), *ROOT.glob("platform/include/*.h"),
           *ROOT.glob("platform/host/toolkit/qt2/*.h"))
PUBLIC = re.compile(r"\bVORN(?:QTNAPI_EXPORT|_PLATFORM_API)\s+(?:[\w*&]+\s+)*?[*&]?(\w+)\s*(?:[:;({\n]|$)", re.MULTILINE)
SECTION = re.compile(r"^(?:(?:vtable|typeinfo|typeinfo name|VTT) for |(?:non-virtual|virtual) thunk to )")
# The linker's own.
IGNORED = {"__bss_start", "_edata", "_end", "_init", "_fini"}


def public_names():
    """Each class and function that an installed header exports."""
    return {match.group(1) for header in HEADERS for match in PUBLIC.finditer(header.read_text(encoding="utf-8"))}


def exported(library):
    """The demangled name of each symbol that a library exports."""
    output = subprocess.run(["nm", "-D", "-C", "--defined-only", library], check=True, capture_output=True,
                            text=True).stdout
    return sorted({line.split(" ", 2)[2] for line in output.splitlines()} - IGNORED)


def owner(symbol):
    """YPopup for "vtable for YPopup" and "YPopup::show()"."""
    return re.match(r"\w*", SECTION.sub("", symbol)).group()


def package_of(library):
    return re.sub(r"^(.*)\.so\.(\d+).*", r"\1\2", pathlib.Path(library).name)


def soname(library):
    return re.sub(r"(\.so\.\d+).*", r"\1", pathlib.Path(library).name)


def since(path):
    """The version of each line that a file has."""
    text = path.read_text(encoding="utf-8") if path.exists() else ""
    return dict(re.findall(r"^ (.*@Base\"?) (\S+)$", text, re.MULTILINE))


def line(name):
    """A name as the file has it; one of C stands for itself."""
    return f"{name}@Base" if re.fullmatch(r"\w+", name) else f'(c++)"{name}@Base"'


def version():
    text = (ROOT / "include/vornqtnapi_version.h").read_text(encoding="utf-8")
    return re.search(r'_STR "(.*)"', text).group(1)


def written(library, path):
    """The text of a library's symbols file."""
    package, now, old, public = package_of(library), version(), since(path), public_names()
    names = exported(library)
    # Without optimisation a library has copies of what is inline in Qt.
    private = sorted(name for name in {owner(name) for name in names} - public if not re.match("Q[A-Z]", name))
    lines = [f"{soname(library)} {package} #MINVER#"]
    if private:
        lines.append(f"| {package} (= ${{binary:Version}})")
    lines += [f" {line(name)} {old.get(line(name), now)}" for name in names if owner(name) in public]
    lines += [f" {name}@Base {now} 1" if name in names else
              f' (c++|regex|optional)"^(.* (for|to) )?{name}(::.*)?@Base$" {now} 1' for name in private]
    return "\n".join(lines) + "\n"


def check(library, path):
    """What dpkg-gensymbols says against a library, or nothing.

    It takes a name for gone only where the library is newer than the version in which the name came.
    """
    package = package_of(library)
    with tempfile.TemporaryDirectory() as folder:
        control = pathlib.Path(folder) / "debian/control"
        control.parent.mkdir()
        control.write_text(f"Source: vornqtnapi\n\nPackage: {package}\nArchitecture: any\n", encoding="utf-8")
        done = subprocess.run(
            ["dpkg-gensymbols", "-c1", f"-p{package}", f"-v{version()}+next", f"-I{path}", f"-e{library}",
             f"-P{folder}", "-O/dev/null"], cwd=folder, capture_output=True, text=True, check=False)
    return "" if done.returncode == 0 else done.stdout + done.stderr


def main(mode, *libraries):
    found = []
    for library in map(str, (pathlib.Path(name).resolve() for name in libraries)):
        path = ROOT / f"debian/{package_of(library)}.symbols"
        if mode == "--renew":
            path.write_text(written(library, path), encoding="utf-8")
        else:
            found.append(check(library, path))
    print("".join(found) or f"{len(libraries)} libraries have what their symbols files name")
    if any(found):
        print("Where a name is meant to be gone: packaging/symbols.py --renew with these libraries.")
    return 1 if any(found) else 0


if __name__ == "__main__":
    if len(sys.argv) < 3 or sys.argv[1] not in ("--renew", "--check"):
        sys.exit(__doc__)
    sys.exit(main(*sys.argv[1:]))
