"""Builds the library with the preset `phone`, with stand-ins for Qt 2.3, its moc and the platform.

Usage: phone_build_test.py SOURCE_ROOT WORK_FOLDER [CMAKE [COMPILER]]. The stand-ins: the declarations of
qt2/ as Qt's headers, the headers of platform/include/ as those of the platform, a moc that writes what
Q_OBJECT declares, and libraries that offer exactly the names that the library asks of them.
"""

import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import unittest

HERE = pathlib.Path(__file__).resolve().parent
ROOT = WORK = pathlib.Path()
CMAKE, COMPILER = "cmake", "c++"

LIBRARIES = {"qte-mt": "qt/lib", "napi": "sdk/lib", "ytoolkit": "sdk/lib", "vornsettings": "sdk/lib"}


def run(*arguments, expected=0, **environment):
    clean = {name: value for name, value in os.environ.items() if name not in ("QTDIR", "VORN_SDK")}
    result = subprocess.run([str(argument) for argument in arguments], capture_output=True, text=True,
                            cwd=ROOT, env={**clean, "LC_ALL": "C", **environment}, check=False)
    if expected is not None and (result.returncode == 0) != (expected == 0):
        raise AssertionError(f"{arguments}:\n{result.stdout}\n{result.stderr}")
    return result.stdout + result.stderr


def configure(folder, *options, **more):
    return run(CMAKE, "--preset", "phone", "-B", folder, f"-DCMAKE_CXX_COMPILER={COMPILER}",
               "-DCMAKE_BUILD_TYPE=Debug", "-DCMAKE_CXX_FLAGS_DEBUG=-O0", *options, **more)


def lay_out():
    """QTDIR and VORN_SDK as folders of stand-ins; the libraries are empty at first."""
    shutil.rmtree(WORK, ignore_errors=True)
    for folder in ("qt/include", "qt/bin", "qt/lib", "sdk/include", "sdk/lib"):
        (WORK / folder).mkdir(parents=True)
    for header in (HERE / "qt2").glob("*.h"):
        shutil.copy(header, WORK / "qt/include")
    for header in (ROOT / "platform/include").glob("*.h"):
        shutil.copy(header, WORK / "sdk/include")
    (WORK / "qt/bin/moc").symlink_to(HERE / "standin/moc")
    for name, folder in LIBRARIES.items():
        make_library(name, folder, ())


def make_library(name, folder, symbols):
    source = WORK / f"{name}.s"
    lines = [".bss\n"]
    for symbol in symbols:
        lines.append(f'.globl "{symbol}"\n.type "{symbol}", %object\n.size "{symbol}", 64\n'
                     f'"{symbol}": .zero 64\n')
    lines.append('.section .note.GNU-stack,"",%progbits\n')
    source.write_text("".join(lines))
    run(COMPILER, "-shared", "-nostdlib", f"-Wl,-soname,lib{name}.so.1", "-o",
        WORK / folder / f"lib{name}.so", source)


def undefined_symbols(build):
    """What the objects ask for and none of them has: mangled name to readable name."""
    objects = sorted(build.rglob("*.o"))
    wanted, offered = set(), set()
    for line in run("nm", *objects).splitlines():
        match = re.match(r"[0-9a-f]*\s+([A-Za-z])\s+(\S+)$", line)
        if match:
            (wanted if match.group(1) in "Uw" else offered).add(match.group(2))
    names = sorted(wanted - offered)
    readable = run("c++filt", *names).splitlines()
    return dict(zip(names, readable))


def library_of(readable):
    """Which stand-in offers a name; None for what the C and C++ run-time libraries have."""
    owner = re.sub(r"^(vtable|VTT|typeinfo|non-virtual thunk to|virtual thunk to)( for)? ", "", readable)
    if re.match(r"NAPI_\w+$", owner):
        return "napi"
    if re.match(r"(APPLOG|Dmt|SETUP_)\w*", owner):
        return "vornsettings"
    if re.match(r"Y[A-Z]\w*(::|$)", owner):
        return "ytoolkit"
    if re.match(r"(Q[A-Z]\w*(<.*>)?(::|$)|q[A-Z]\w*)", owner) or re.match(r"operator.*\bQ[A-Z]", owner):
        return "qte-mt"
    return None


def called_symbols(build):
    """What the code itself asks for, and not only a table of virtual functions."""
    called, in_code = set(), False
    for line in run("readelf", "-rW", *sorted(build.rglob("*.o"))).splitlines():
        if line.startswith("Relocation section"):
            in_code = "'.rela.text" in line or "'.rel.text" in line
        elif in_code:
            called |= set(re.findall(r"^[0-9a-f]+\s+[0-9a-f]+\s+R_\w+\s+[0-9a-f]+\s+([\w.]+)", line))
    return called


def allocating(library, kinds):
    """Which of the usual operators new and delete are among a library's symbols of these kinds of nm."""
    usual = r"(operator new|operator delete)\((?:unsigned \w+|void\*(?:, unsigned \w+)?)\)(?:@.*)?$"
    return set(re.findall(rf"^[0-9a-f ]*[{kinds}] {usual}", run("nm", "-C", library), re.MULTILINE))


def header_and_name(readable):
    """ylabel.h and setText for YLabel::setText(QString const&); None for destructors and other affairs."""
    match = re.match(r"(Y\w+|Dmt\w+|SETUP_\w+)::(?:operator)?(\w+|->)\(", readable)
    if match:
        owner, name = match.groups()
        return "dmt.h" if owner.startswith("Dmt") else owner.lower().replace("_", "") + ".h", name
    if library_of(readable) == "napi":
        return "napi.h", readable
    return None


class PhoneBuild(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        lay_out()
        cls.build = WORK / "build"
        cls.moc_log = WORK / "moc.log"
        folders = (f"-DQTDIR={WORK / 'qt'}", f"-DVORN_SDK={WORK / 'sdk'}")
        cls.configuring = configure(cls.build, *folders)
        # The first pass stops at the linker and tells what the stand-ins have to offer.
        cls.building = run(CMAKE, "--build", cls.build, "--", "-k", "0", expected=None,
                           MOC_LOG=str(cls.moc_log))
        cls.undefined = undefined_symbols(cls.build)
        for name, folder in LIBRARIES.items():
            make_library(name, folder,
                         [symbol for symbol, text in cls.undefined.items() if library_of(text) == name])
        cls.building += run(CMAKE, "--build", cls.build, "-v")
        cls.library = cls.build / "cmake/phone/libvornqtnapi.so.1"
        cls.commands = json.loads((cls.build / "compile_commands.json").read_text())

    def sources(self, pattern):
        return {path.relative_to(ROOT).as_posix()
                for folder in ("session", "profiles", "wizard", "widgets", "support", "include")
                for path in (ROOT / folder).rglob(pattern)}

    def test_compiles_each_source_of_the_library_and_nothing_of_the_host(self):
        compiled = {pathlib.Path(command["file"]) for command in self.commands}
        ours = {path.relative_to(ROOT).as_posix() for path in compiled if "moc_" not in path.name}
        self.assertEqual(self.sources("*.cpp"), ours)

    def test_defines_what_the_thread_build_of_qt_embedded_needs(self):
        for command in self.commands:
            for part in ("-DQWS", "-DQT_THREAD_SUPPORT", "-std=gnu++17", "-fno-exceptions", "-fno-rtti",
                         "-fPIC", "-fvisibility=hidden"):
                self.assertIn(part, command["command"].split())

    def test_includes_qt_2_and_the_platform_and_nothing_of_the_host(self):
        for command in self.commands:
            text = command["command"]
            self.assertIn(f"-isystem {WORK / 'qt/include'}", text)
            self.assertIn(f"-isystem {WORK / 'sdk/include'}", text)
            self.assertNotIn("platform/", text.replace(str(WORK), ""))
            self.assertNotIn("qt6", text.lower())

    def test_runs_moc_once_for_each_class_header_without_defines_or_folders(self):
        expected = {name for name in self.sources("*.h")
                    if re.search(r"^\s*Q_OBJECT\b", (ROOT / name).read_text(), re.MULTILINE)}
        runs = self.moc_log.read_text().splitlines()
        self.assertEqual(len(expected), len(runs))
        for name in expected:
            output = self.build / "cmake/phone/moc" / f"moc_{pathlib.Path(name).stem}.cpp"
            self.assertIn(f"-o {output} {ROOT / name}", runs)

    def test_links_qt_2_and_the_libraries_of_the_platform_only(self):
        dynamic = run("readelf", "-d", self.library)
        needed = set(re.findall(r"NEEDED.*\[(.*)\]", dynamic))
        asked = {library_of(text) for text in self.undefined.values()} - {None}
        self.assertLessEqual({"qte-mt", "napi", "ytoolkit", "vornsettings"}, asked)
        self.assertLessEqual({f"lib{name}.so.1" for name in LIBRARIES}, needed)
        self.assertEqual(set(), {name for name in needed if re.search("Qt|vorn(?!settings)", name)})

    def test_has_the_soname_and_no_folder_of_the_building_machine(self):
        dynamic = run("readelf", "-d", self.library)
        self.assertIn("soname: [libvornqtnapi.so.1]", dynamic)
        self.assertNotIn("RUNPATH", dynamic)
        self.assertNotIn("RPATH", dynamic)

    def test_asks_the_platform_for_nothing_that_the_document_does_not_name(self):
        sections = {match.group(1): match.group(2) for match in re.finditer(
            r"^### `(\w+\.h)`$(.*?)(?=^#|\Z)", (ROOT / "docs/phone-build.md").read_text(), re.M | re.S)}
        called = called_symbols(self.build)
        asked = {header_and_name(text) for symbol, text in self.undefined.items() if symbol in called}
        asked -= {None}
        self.assertLessEqual({("napi.h", "NAPI_OpenLink"), ("ylineedit.h", "setText"), ("dmt.h", "->"),
                              ("setuputility.h", "isFeatureAvailable"), ("ypopup.h", "YPopup")}, asked)
        self.assertEqual([], sorted(f"{name} of {header}" for header, name in asked
                                    if not re.search(rf"`{name}\b|`{name}`", sections.get(header, ""))))

    def test_exports_what_the_library_of_the_host_exports(self):
        rules = ROOT / "tests/rules"
        run(sys.executable, rules / "exported_symbols.py", self.library, rules / "exported_symbols.txt")

    def test_keeps_the_run_time_library_to_itself(self):
        exported = run("nm", "-D", "-C", "--defined-only", self.library)
        self.assertNotIn("std::", exported)
        self.assertNotIn("__gnu_cxx", exported)

    def test_allocates_with_the_operators_of_the_program(self):
        self.assertEqual({"operator new", "operator delete"}, allocating(self.library, "U"))
        self.assertEqual(set(), allocating(self.library, "TtWw"))

    def test_has_operators_of_its_own_with_the_run_time_library_inside_only(self):
        configure(self.build, "-DVORN_STATIC_RUNTIME=ON")
        run(CMAKE, "--build", self.build)
        needed = run("readelf", "-d", self.library)
        inside = allocating(self.library, "TtWw")
        configure(self.build, "-DVORN_STATIC_RUNTIME=OFF")
        run(CMAKE, "--build", self.build)
        self.assertNotRegex(needed, "NEEDED.*(stdc|gcc)")
        self.assertEqual({"operator new", "operator delete"}, inside)

    def test_throws_nothing_through_its_callers(self):
        self.assertEqual([], [text for text in self.undefined.values()
                              if re.match(r"__cxa_(throw|rethrow|begin_catch|allocate_exception)", text)])

    def test_compiles_without_a_warning(self):
        self.assertNotIn("warning:", self.building)

    def test_installs_the_library_and_its_headers(self):
        prefix = WORK / "installed"
        run(CMAKE, "--install", self.build, "--prefix", prefix)
        installed = {path.relative_to(prefix).as_posix() for path in prefix.rglob("*") if path.is_file()}
        headers = {f"include/vornqtnapi/{pathlib.Path(name).name}" for name in self.sources("*.h")
                   if name.startswith("include/")}
        self.assertEqual(headers, {name for name in installed if name.endswith(".h")})
        self.assertTrue(any(name.endswith("/libvornqtnapi.so.1") or "libvornqtnapi.so.1." in name
                            for name in installed))


class Configuring(unittest.TestCase):
    """What is missing is named before anything is compiled."""

    def setUp(self):
        self.work = WORK.parent / "phone-missing"
        shutil.rmtree(self.work, ignore_errors=True)
        shutil.copytree(WORK / "qt", self.work / "qt", symlinks=True)
        shutil.copytree(WORK / "sdk", self.work / "sdk")

    def complaint(self, *options):
        given = [f"-DQTDIR={self.work / 'qt'}", f"-DVORN_SDK={self.work / 'sdk'}", *options]
        said = configure(self.work / "build", *given, expected=1)
        return re.sub(r"\s+", " ", said)

    def test_asks_for_qtdir(self):
        self.assertIn("QTDIR is not set", self.complaint("-DQTDIR="))

    def test_asks_for_the_platform(self):
        self.assertIn("VORN_SDK is not set", self.complaint("-DVORN_SDK="))

    def test_refuses_a_folder_without_qt(self):
        self.assertIn("which has no include/qglobal.h", self.complaint(f"-DQTDIR={self.work}"))

    def test_refuses_another_qt(self):
        header = self.work / "qt/include/qglobal.h"
        header.write_text(header.read_text().replace("QT_VERSION 2310", "QT_VERSION 0x060402"))
        self.assertIn("is not Qt 2.3", self.complaint())

    def test_names_the_missing_moc(self):
        (self.work / "qt/bin/moc").unlink()
        self.assertIn("There is no moc at", self.complaint())

    def test_names_each_missing_header_of_the_platform(self):
        (self.work / "sdk/include/napi.h").unlink()
        (self.work / "sdk/include/yglobal.h").unlink()
        self.assertIn("has no napi.h, yglobal.h.", self.complaint())

    def test_names_the_missing_library(self):
        (self.work / "sdk/lib/libnapi.so").unlink()
        self.assertIn("There is no library", self.complaint())

    def test_takes_other_names_for_the_libraries_of_the_platform(self):
        lib = self.work / "sdk/lib"
        (lib / "libvornsettings.so").rename(lib / "libapplog.so")
        shutil.copy(lib / "libapplog.so", lib / "libdmt.so")
        configure(self.work / "build", f"-DQTDIR={self.work / 'qt'}", f"-DVORN_SDK={self.work / 'sdk'}",
                  "-DVORN_SDK_SETTINGS=applog;dmt")

    def test_takes_a_toolchain_file(self):
        compiler = self.work / "phone-g++"
        compiler.symlink_to(shutil.which(COMPILER))
        toolchain = self.work / "phone.cmake"
        toolchain.write_text("set(CMAKE_SYSTEM_NAME Linux)\nset(CMAKE_SYSTEM_PROCESSOR phone)\n"
                             f"set(CMAKE_CXX_COMPILER {compiler})\n")
        run(CMAKE, "--preset", "phone", "-B", self.work / "build", "--toolchain", toolchain,
            f"-DQTDIR={self.work / 'qt'}", f"-DVORN_SDK={self.work / 'sdk'}")
        commands = json.loads((self.work / "build/compile_commands.json").read_text())
        self.assertTrue(commands)
        for command in commands:
            self.assertIn(f"{compiler} ", command["command"])

    def test_takes_the_folders_from_the_environment(self):
        configure(self.work / "build", QTDIR=str(self.work / "qt"), VORN_SDK=str(self.work / "sdk"))


if __name__ == "__main__":
    ROOT, WORK = pathlib.Path(sys.argv[1]).resolve(), pathlib.Path(sys.argv[2]).resolve() / "phone"
    CMAKE, COMPILER = sys.argv[3:5] or (CMAKE, COMPILER)
    unittest.main(argv=sys.argv[:1], defaultTest=["PhoneBuild", "Configuring"])
