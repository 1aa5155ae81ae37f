"""Each rule of hardening.py refuses an object that breaks it. Usage: hardening_test.py COMPILER."""

import pathlib
import subprocess
import sys
import tempfile
import unittest

import hardening

COMPILER = "c++"

SOURCE = """#include <stdio.h>
#include <string.h>
extern "C" unsigned long told(const char* text, FILE* to)
{
    char buffer[40];
    strcpy(buffer, text);
    fprintf(to, buffer);
    return strlen(buffer);
}
namespace std { void leftOver() {} }
"""

GOOD = {"stack": "-fstack-protector-strong", "fortify": "-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2",
        "now": "-Wl,-z,now", "relro": "-Wl,-z,relro", "executed": "-Wl,-z,noexecstack",
        "path": "-Wl,-rpath,$ORIGIN", "runtime": "-Wl,--version-script,hidden.map"}

# What is put in the place of a good option, and what is said of it.
BAD = {"stack": ("-fno-stack-protector", "no stack protector"),
       "fortify": ("-U_FORTIFY_SOURCE", "calls fprintf unchecked"),
       "now": ("-Wl,-z,lazy", "not bound before it runs (-z now)"),
       "relro": ("-Wl,-z,norelro", "no read-only relocations (-z relro)"),
       "executed": ("-Wl,-z,execstack", "a stack that is executed"),
       "path": ("-Wl,-rpath,$ORIGIN:", "empty elements in its RUNPATH [$ORIGIN:]")}


class Hardening(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        (self.folder / "source.cpp").write_text(SOURCE, encoding="utf-8")
        (self.folder / "hidden.map").write_text("{ global: told; local: *; };\n", encoding="utf-8")

    def faults(self, optimised=True, **changed):
        options = " ".join({**GOOD, **changed}.values()).split()
        subprocess.run([COMPILER, "-O2", "-w", "-shared", "-fPIC", "-Wl,-soname,libtried.so", *options,
                        "source.cpp", "-o", "libtried.so"], cwd=self.folder, check=True)
        return list(hardening.faults_of(str(self.folder / "libtried.so"), optimised))

    def test_a_hardened_object_passes(self):
        self.assertEqual(self.faults(), [])

    def test_each_lack_is_told(self):
        for name, (option, fault) in BAD.items():
            with self.subTest(name):
                self.assertEqual(self.faults(**{name: option}), [fault])

    def test_what_is_not_optimised_needs_no_protector(self):
        self.assertEqual(self.faults(False, stack="-fno-stack-protector", fortify="-U_FORTIFY_SOURCE"), [])

    def test_names_of_the_run_time_library_are_told(self):
        faults = self.faults(runtime="")
        self.assertTrue(faults and all(fault.startswith("exports _Z") for fault in faults), faults)

    def test_names_of_everybody_else_are_not(self):
        for name in ("_Z4toldPKc", "_ZN9YListItem4textEv", "_ZN8napihost10rootFolderB5cxx11Ev", "told"):
            self.assertFalse(hardening.RUNTIME.match(name), name)


if __name__ == "__main__":
    COMPILER = sys.argv.pop(1)
    unittest.main()
