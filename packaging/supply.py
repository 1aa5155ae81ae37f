"""What a build is made of: bill of materials, dependencies, licences. Usage: supply.py BUILD OUTPUT

Looked at is what BUILD would install: the libraries that each file loads, down to the last, and the headers and archives
that were compiled into it. Debian's own records tell which package, which version, and under which licence.
"""

import hashlib
import json
import os
import pathlib
import re
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent
# Loaded or read by name when they are there, which no file of ours records.
BY_OTHERS = "loaded by others"
BY_NAME = {"libsystemd0": "loaded when it is there", "mobile-broadband-provider-info": "read when it is there"}


def output(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def is_elf(path):
    with path.open("rb") as file:
        return file.read(4) == b"\x7fELF"


def installed(build):
    """Name and SHA-256 of each program and library that a build installs, with where the build has it."""
    with tempfile.TemporaryDirectory() as folder:
        output("cmake", "--install", str(build), "--prefix", folder)
        for path in sorted(pathlib.Path(folder).rglob("*")):
            if path.is_file() and not path.is_symlink() and is_elf(path):
                yield path.relative_to(folder), hashlib.sha256(path.read_bytes()).hexdigest(), needed(path)


def needed(path):
    """Each file that a program or library loads, down to the last, and whether it asks for that one itself."""
    asked = set(re.findall(r"\(NEEDED\).*\[(.*)\]", output("readelf", "-d", str(path))))
    return {loaded: name in asked for name, loaded in re.findall(r"(\S+) => (/\S+)", output("ldd", str(path)))}


def owners(paths):
    """The Debian package of each path that has one."""
    # Debian has moved files to /usr and knows some of them by their old place.
    known, asked = {}, set()
    for path in paths:
        real = os.path.realpath(path)
        asked |= {path, real, real.removeprefix("/usr")}
    done = subprocess.run(["dpkg-query", "-S", "--", *sorted(asked)], capture_output=True, text=True, check=False)
    for line in done.stdout.splitlines():
        package, _, path = line.partition(": ")
        if not package.startswith("diversion"):
            known[path] = package.split(",")[0].split(":")[0]
    for path in paths:
        real = os.path.realpath(path)
        owner = known.get(path) or known.get(real) or known.get(real.removeprefix("/usr"))
        if owner:
            yield owner


def targets(build):
    """The objects and archives of what a build installs, by way of Ninja's own record."""
    installed_ones = re.compile(r"(\S*(?:\.so\.\d+\.\d+\.\d+|/libvornbody\.so|/vornctl|/vornphone)): ")
    todo = [match.group(1) for match in map(installed_ones.match, output("ninja", "-C", str(build), "-t", "targets", "all").splitlines())
            if match]
    wanted, seen = set(), set()
    while todo:
        name = todo.pop()
        if name in seen:
            continue
        seen.add(name)
        text = output("ninja", "-C", str(build), "-t", "query", name)
        inputs = re.findall(r"^    (?:\| )?(\S+)$", text.split("outputs:")[0], re.MULTILINE)
        for given in inputs:
            if given.endswith(".o"):
                wanted.add(given)
            elif given.endswith((".a", ".so")) or ".so." in given:
                wanted.add(given) if given.startswith("/") else todo.append(given)
    return wanted


def compiled_in(build):
    """The headers and archives of the machine that went into what is installed."""
    wanted = targets(build)
    archives = {name for name in wanted if name.startswith("/") and name.endswith(".a")}
    headers, current = set(), None
    for line in output("ninja", "-C", str(build), "-t", "deps").splitlines():
        if not line.startswith(" "):
            current = line.split(":")[0]
        elif current in wanted and line.strip().startswith("/usr/"):
            headers.add(line.strip())
    return archives | headers


def dependencies(build):
    """(package, how) of everything, and the installed files."""
    files = list(installed(build))
    itself = {path for _, _, needs in files for path, asked in needs.items() if asked}
    found = {package: "loaded" for package in owners(itself)}
    for how, packages in (("compiled in", owners(compiled_in(build))), *((how, [name]) for name, how in BY_NAME.items()),
                          (BY_OTHERS, owners({path for _, _, needs in files for path in needs}))):
        for package in packages:
            found.setdefault(package, how)
    return found, files


def field(package, name):
    done = subprocess.run(["dpkg-query", "-W", f"-f=${{{name}}}\n", package], capture_output=True, text=True, check=False)
    return done.stdout.splitlines()[0] if done.returncode == 0 and done.stdout.strip() else ""


def copyright_of(package):
    path = pathlib.Path(f"/usr/share/doc/{package}/copyright")
    return path.read_text(encoding="utf-8", errors="replace") if path.exists() else ""


def licences_of(text):
    """The names of the licences that a copyright file has, in its order."""
    return list(dict.fromkeys(name.strip() for name in re.findall(r"^License: *(\S.*)$", text, re.MULTILINE)))


def told(root):
    """The packages for which docs/dependencies.md has a reason, each with how it is there."""
    text = (root / "docs/dependencies.md").read_text(encoding="utf-8")
    rows = re.findall(r"^\| (`[^|]+`) \| [^|]+ \| ([^|]+) \|", text, re.MULTILINE)
    return {name: how.strip() for names, how in rows for name in re.findall(r"`([^`]+)`", names)}


def short(name):
    return "SPDXRef-" + re.sub(r"[^A-Za-z0-9.-]", "-", name)


def bill(found, files, version, stamp):
    """The SPDX document."""
    packages = [{"name": "vornqtnapi", "SPDXID": "SPDXRef-vornqtnapi", "versionInfo": version, "downloadLocation": "NOASSERTION",
                 "filesAnalyzed": False, "licenseConcluded": "NOASSERTION", "licenseDeclared": "NOASSERTION",
                 "copyrightText": "NOASSERTION"}]
    relations = [("SPDXRef-DOCUMENT", "DESCRIBES", "SPDXRef-vornqtnapi")]
    kinds = {"loaded": "DYNAMIC_LINK", BY_OTHERS: "DEPENDS_ON", "compiled in": "STATIC_LINK"}
    for package, how in sorted(found.items()):
        source, number = field(package, "source:Package"), field(package, "Version")
        packages.append({"name": package, "SPDXID": short(package), "versionInfo": number,
                         "supplier": "Organization: Debian", "downloadLocation": "NOASSERTION", "filesAnalyzed": False,
                         "licenseConcluded": "NOASSERTION", "licenseDeclared": "NOASSERTION", "copyrightText": "NOASSERTION",
                         "licenseComments": "; ".join(licences_of(copyright_of(package))) or "see LICENCES.txt",
                         "sourceInfo": f"built from the Debian source package {source}",
                         "externalRefs": [{"referenceCategory": "PACKAGE-MANAGER", "referenceType": "purl",
                                           "referenceLocator": f"pkg:deb/debian/{package}@{number}"}]})
        relations.append(("SPDXRef-vornqtnapi", kinds[how], short(package)) if how in kinds else
                         (short(package), "OPTIONAL_DEPENDENCY_OF", "SPDXRef-vornqtnapi"))
    entries = [{"fileName": f"./{name}", "SPDXID": short(str(name)), "checksums": [{"algorithm": "SHA256", "checksumValue": digest}],
                "licenseConcluded": "NOASSERTION", "copyrightText": "NOASSERTION"} for name, digest, _ in files]
    relations += [("SPDXRef-vornqtnapi", "CONTAINS", entry["SPDXID"]) for entry in entries]
    return {"spdxVersion": "SPDX-2.3", "dataLicense": "CC0-1.0", "SPDXID": "SPDXRef-DOCUMENT", "name": f"vornqtnapi-{version}",
            "documentNamespace": f"https://vornqtnapi.example/spdx/{version}/{digest_of(entries)}",
            "creationInfo": {"created": stamp, "creators": ["Tool: vornqtnapi packaging/supply"]},
            "packages": packages, "files": entries,
            "relationships": [{"spdxElementId": one, "relationshipType": kind, "relatedSpdxElement": other}
                              for one, kind, other in relations]}


def digest_of(entries):
    return hashlib.sha256(json.dumps(entries).encode()).hexdigest()[:16]


def licences(found):
    """The copyright files of all packages behind each other; one that several have stands once."""
    texts = {}
    for package in sorted(found):
        texts.setdefault(copyright_of(package), []).append(package)
    rule = "=" * 100
    return "".join(f"{rule}\n{', '.join(packages)}\n{rule}\n\n{text}\n" for text, packages in texts.items())


def main(build, folder):
    build, folder = pathlib.Path(build), pathlib.Path(folder)
    found, files = dependencies(build)
    version = re.search(r'_STR "(.*)"', (ROOT / "include/vornqtnapi_version.h").read_text(encoding="utf-8")).group(1)
    stamp = output("date", "-u", "-d", f"@{os.environ.get('SOURCE_DATE_EPOCH') or commit_time()}", "+%Y-%m-%dT%H:%M:%SZ").strip()
    folder.mkdir(parents=True, exist_ok=True)
    text = json.dumps(bill(found, files, version, stamp), indent=2)
    (folder / "bom.spdx.json").write_text(text + "\n", encoding="utf-8")
    (folder / "LICENCES.txt").write_text(licences(found), encoding="utf-8")
    lines = [f"{package} {field(package, 'Version')} ({how})" for package, how in sorted(found.items())]
    (folder / "dependencies.txt").write_text("\n".join(lines) + "\n", encoding="utf-8")
    print("\n".join(lines))
    reasons = told(ROOT)
    silent = [package for package, how in found.items() if how != BY_OTHERS and reasons.get(package) != how]
    without = [package for package in found if field(package, "Version") and not copyright_of(package)]
    for package in silent:
        print(f"docs/dependencies.md does not say why {package} is {found[package]}", file=sys.stderr)
    for package in without:
        print(f"{package} has no copyright file", file=sys.stderr)
    return 1 if silent or without else 0


def commit_time():
    done = subprocess.run(["git", "-C", ROOT, "log", "-1", "--format=%ct"], capture_output=True, text=True, check=False)
    return done.stdout.strip() or "0"


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    sys.exit(main(*sys.argv[1:]))
