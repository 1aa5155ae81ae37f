"""Checks who includes whom. Usage: include_rules.py ROOT; prints each violation, exits 1 if any."""

import pathlib
import re
import sys

LIBRARY = ("include", "support", "widgets", "wizard", "profiles", "session")

# A library folder -> the library folders whose headers it may name.
ALLOWED = {
    "include": {"include"},
    "support": {"include", "support"},
    "widgets": {"include", "support", "widgets"},
    "wizard": {"include", "support", "widgets", "wizard"},
    "profiles": {"include", "support", "widgets", "wizard", "profiles"},
    "session": {"include", "support", "widgets", "wizard", "session"},
}

# Single headers that a folder may name beyond that. The wizard's default preference is a setting of
# the device, the read of which belongs to profiles/; it knows no dialog, so that no circle closes.
ALLOWED_HEADERS = {"wizard": {"profiles/readdmint.h"}}

NETWORK_MANAGER_HEADERS = "network/links/networkmanager"
NETWORK_MANAGER = f"platform/host/{NETWORK_MANAGER_HEADERS}"

# Rooms of the host -> those that they stand without, by which their includes would begin.
APART = {
    "platform/host/base": ("network/", "settings/", "toolkit/"),
    "platform/host/settings": ("network/", "toolkit/"),
    "platform/host/network": ("settings/", "toolkit/"),
    "platform/host/network/store": ("network/links/",),
    "platform/host/network/links": ("network/store/",),
    f"{NETWORK_MANAGER}/bus": (f"{NETWORK_MANAGER_HEADERS}/services/", f"{NETWORK_MANAGER_HEADERS}/opening/"),
    f"{NETWORK_MANAGER}/services": (f"{NETWORK_MANAGER_HEADERS}/opening/",),
}

# Headers that the phone's own Qt has under the same name.
QT_NAMES_OF_THE_HOST = {"qwssocket_qws.h"}

INCLUDE = re.compile(r'^\s*#\s*include\s*[<"]([^>"]+)[>"]', re.MULTILINE)
QT_HEADER = re.compile(r"^(Qt[A-Z]\w*/)?Q[A-Za-z]+$|^q[a-z0-9_]+\.h$|^Qt[A-Z]\w*/")
QT_VERSION = re.compile(r"\bQT_VERSION(_CHECK)?\b|\bQT_VERSION_STR\b")


def sources(root, folder):
    for path in sorted((root / folder).rglob("*")):
        if path.suffix in (".h", ".cpp") and path.is_file():
            yield path


class Tree:
    def __init__(self, root):
        self.root = root
        self.violations = []
        self.library_headers = {}
        for folder in LIBRARY:
            for path in sources(root, folder):
                if path.suffix == ".h":
                    self.library_headers.setdefault(path.name, folder)
        self.host_headers = {
            path.name
            for path in sources(root, "platform/host")
            if path.suffix == ".h" and path.name not in QT_NAMES_OF_THE_HOST
        }
        self.platform_headers = {path.name for path in sources(root, "platform/include")}

    def refuse(self, path, header, reason):
        self.violations.append(f"{path.relative_to(self.root)}: includes {header}: {reason}")

    def library_folder_of(self, header):
        """The library folder that an include line names, or None."""
        first = header.split("/")[0]
        if "/" in header:
            return first if first in LIBRARY else None
        return self.library_headers.get(header)

    def is_host_header(self, header):
        if header.startswith("platform/host/"):
            return True
        first = header.split("/")[0]
        if "/" in header:
            return (self.root / "platform/host" / header).is_file() and first not in LIBRARY
        return header in self.host_headers and header not in self.platform_headers

    def check_library(self):
        for folder in LIBRARY:
            for path in sources(self.root, folder):
                text = path.read_text(encoding="utf-8")
                for header in INCLUDE.findall(text):
                    self.check_library_include(folder, path, header)
                if folder != "support" and QT_VERSION.search(text):
                    self.violations.append(
                        f"{path.relative_to(self.root)}: asks for the Qt version outside support/")

    def check_library_include(self, folder, path, header):
        target = self.library_folder_of(header)
        if target is not None:
            if target not in ALLOWED[folder] and header not in ALLOWED_HEADERS.get(folder, ()):
                self.refuse(path, header, f"{folder}/ may not include {target}/")
        elif self.is_host_header(header):
            self.refuse(path, header, "the library does not know the host")
        elif folder != "support" and re.match(r"(Qt[A-Z]\w*/)?Q[A-Z]\w*$", header):
            self.refuse(path, header, "only lower-case Qt headers exist on both Qts")

    def check_without_qt(self, folder):
        for path in sources(self.root, folder):
            for header in INCLUDE.findall(path.read_text(encoding="utf-8")):
                if QT_HEADER.match(header):
                    self.refuse(path, header, f"{folder}/ knows no Qt")
                elif re.match(r"y[a-z]+\.h$|toolkit/", header):
                    self.refuse(path, header, f"{folder}/ knows no toolkit")

    def check_rooms(self):
        for folder, others in APART.items():
            for path in sources(self.root, folder):
                for header in INCLUDE.findall(path.read_text(encoding="utf-8")):
                    if header.startswith(others):
                        self.refuse(path, header, f"{folder}/ stands without {header.rsplit('/', 1)[0]}/")

    def check_platform(self):
        for path in list(sources(self.root, "platform")):
            for header in INCLUDE.findall(path.read_text(encoding="utf-8")):
                own = (path.parent / header).is_file() or header in self.platform_headers
                if not own and self.library_folder_of(header) is not None:
                    self.refuse(path, header, "the platform does not know the library")
        for path in sources(self.root, "platform/include"):
            for header in INCLUDE.findall(path.read_text(encoding="utf-8")):
                if self.is_host_header(header):
                    self.refuse(path, header, "platform/include/ does not know the host")
                if re.match(r"(Qt[A-Z]\w*/)?Q[A-Z]\w*$", header):
                    self.refuse(path, header, "only lower-case Qt headers exist on both Qts")

    def check_apps(self):
        for path in [*sources(self.root, "apps"), *sources(self.root, "examples")]:
            for header in INCLUDE.findall(path.read_text(encoding="utf-8")):
                target = self.library_folder_of(header)
                # An app with rooms names its headers from its own folder.
                app = self.root.joinpath(*path.relative_to(self.root).parts[:2])
                own = (path.parent / header).is_file() or (app / header).is_file()
                if target not in (None, "include") and not own:
                    self.refuse(path, header, "apps use exported headers only")
                if path.is_relative_to(self.root / "examples") and self.is_host_header(header):
                    self.refuse(path, header, "an example is an application like any other")


def check(root):
    tree = Tree(pathlib.Path(root).resolve())
    tree.check_library()
    for folder in ("platform/host/base", "platform/host/network", "platform/host/settings"):
        tree.check_without_qt(folder)
    tree.check_rooms()
    tree.check_platform()
    tree.check_apps()
    return tree.violations


if __name__ == "__main__":
    found = check(sys.argv[1])
    print("\n".join(found) or "every include follows the rules")
    sys.exit(1 if found else 0)
