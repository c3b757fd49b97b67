"""The check for macOS reads objects and lists rightly, compiles what has changed and nothing else, and says why
where it can't be done. The compiler is a stand-in here."""

import importlib.machinery
import importlib.util
import os
import shutil
import struct
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path
from unittest import mock

SCRIPT = Path(__file__).parents[2] / "tools" / "mac-check"

LIST = """--- !tapi-tbd
tbd-version:     4
targets:         [ x86_64-macos, arm64e-macos ]
exports:
  - targets:         [ x86_64-macos ]
    symbols:         [ '_fstat$INODE64' ]
  - targets:         [ x86_64-macos, x86_64-maccatalyst, arm64e-macos ]
    symbols:         [ _open, _close,
                       _read ]
    weak-symbols:    [ _weak ]
--- !tapi-tbd
targets:         [ arm64-macos ]
exports:
  - targets:         [ arm64-macos ]
    symbols:         [ _only_arm ]
  - targets:         [ arm64-maccatalyst ]
    symbols:         [ _elsewhere ]
...
"""

COMPILER = """import sys
words = sys.argv
kind = "-c" if "-c" in words else "c++-header"
source, output, rule = (words[words.index(word) + 1] for word in (kind, "-o", "-MF"))
with open("calls", "a", encoding="utf-8") as calls:
    calls.write(source + "\\n")
if "wrong" in open(source, encoding="utf-8").read():
    sys.exit("a fault")
open(output, "w", encoding="utf-8").close()
open(rule, "w", encoding="utf-8").write(f"{output}: {source} \\\\\\n  Included.h /usr/include/stdio.h\\n")
"""


def load():
    loader = importlib.machinery.SourceFileLoader("mac_check", str(SCRIPT))
    module = importlib.util.module_from_spec(importlib.util.spec_from_loader("mac_check", loader))
    with mock.patch.object(sys, "dont_write_bytecode", True):
        loader.exec_module(module)
    return module


def mach_object(symbols):
    """An object for macOS with these symbols: name, kind, value."""
    texts, entries = b"\0", b""
    for name, kind, value in symbols:
        entries += struct.pack("<IBBHQ", len(texts), kind, 0, 0, value)
        texts += name.encode() + b"\0"
    table = 32 + 24
    command = struct.pack("<6I", 2, 24, table, len(symbols), table + len(entries), len(texts))
    return struct.pack("<8I", 0xFEEDFACF, 0, 0, 1, 1, 24, 0, 0) + command + entries + texts


class MacCheckTests(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name).resolve()
        self.check = load()
        self.check.ROOT = self.root
        self.check.WORK = self.root / "build/mac-check"

    def write(self, path, text):
        file = self.root / path
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(text, encoding="utf-8")
        return file

    # symbols

    def test_an_object_shows_what_it_defines_and_what_it_leaves_open(self):
        external, section, debugging = 0x01, 0x0E, 0x20
        file = self.root / "some.o"
        file.write_bytes(mach_object([("_mine", external | section, 8), ("_open", external, 0),
                                      ("_common", external, 16), ("_hidden", section, 0),
                                      ("_note", external | debugging, 0)]))
        self.assertEqual(self.check.symbols_of(file), ({"_mine", "_common"}, {"_open"}))

    def test_what_is_no_object_for_a_mac_is_refused(self):
        file = self.root / "some.o"
        file.write_bytes(b"\x7fELF" + bytes(60))
        with self.assertRaises(self.check.Fault):
            self.check.symbols_of(file)

    def test_the_list_is_read_for_each_processor(self):
        self.assertEqual(self.check.system_symbols(LIST, ("x86_64",)),
                         {"_fstat$INODE64", "_open", "_close", "_read", "_weak"})
        self.assertEqual(self.check.system_symbols(LIST, ("arm64", "arm64e")),
                         {"_open", "_close", "_read", "_weak", "_only_arm"})

    def test_what_nothing_defines_is_found(self):
        ours, theirs = "__ZN10keelbright4openEv", "__ZN7QString5clearEv"
        missing, used = self.check.open_symbols(
            {"_open", "_syncfs", "_CFRelease", "_mine", "_EVP_DigestInit", "___cxa_throw",
             "_objc_msgSend", "_qt_version_tag_6_4", ours, theirs},
            {"_mine"}, {"_open"}, {"_CFRelease"}, True)
        self.assertEqual((missing, used), ({"_syncfs", ours}, {"_open"}))

    def test_of_some_sources_alone_what_others_define_is_not_missed(self):
        self.assertEqual(self.check.open_symbols({"__ZN10keelbright4openEv"}, set(), set(), set(), False),
                         (set(), set()))

    def test_the_declarations_name_their_headers_and_what_they_declare(self):
        self.check.FRAMEWORKS = self.write(
            "Frameworks.h", "// <Kit/Kit.h>\n// <Other/Part.h>\n#pragma once\nextern const int kName;\n"
            "void Call(int one,\n          int two);\n")
        self.assertEqual(self.check.framework_headers(), (["Kit/Kit.h", "Other/Part.h"], {"_kName", "_Call"}))

    # compiling

    def compilation(self, *words):
        compiler = self.write("compiler.py", COMPILER)
        return self.check.Compilation([sys.executable, str(compiler)], list(words), dict(os.environ))

    def calls(self):
        calls = self.root / "calls"
        return calls.read_text(encoding="utf-8").split() if calls.exists() else []

    def test_what_has_not_changed_is_not_compiled_again(self):
        source, included = self.write("source.cpp", "one"), self.write("Included.h", "one")
        _, is_new, fault = self.compilation().run("source.cpp", "aarch64")
        self.assertEqual((is_new, fault, self.calls()), (True, None, ["source.cpp"]))

        later = time.time() + 100
        os.utime(source, (later, later))
        self.assertEqual(self.compilation().run("source.cpp", "aarch64")[1], False)

        included.write_text("two", encoding="utf-8")
        self.assertEqual(self.compilation().run("source.cpp", "aarch64")[1], True)
        self.assertEqual(self.compilation("-DOTHER").run("source.cpp", "aarch64")[1], True)
        self.assertEqual(self.compilation("-DOTHER").run("source.cpp", "x86_64")[1], True)
        self.assertEqual(self.compilation("-DOTHER").run("source.cpp", "x86_64")[1], False)
        self.assertEqual(len(self.calls()), 4)

    def test_what_was_compiled_may_be_moved(self):
        self.write("source.cpp", "one")
        self.write("Included.h", "one")
        folder = f"-I{self.root}/headers"
        self.assertEqual(self.compilation(folder).run("source.cpp", "aarch64")[1], True)
        moved = self.root.with_name(self.root.name + "-moved")
        self.addCleanup(shutil.rmtree, moved)
        shutil.copytree(self.root, moved)
        shutil.rmtree(self.root)
        self.root.mkdir()  # which the end of the test removes
        self.root = self.check.ROOT = moved
        self.check.WORK = moved / "build/mac-check"
        self.assertEqual(self.compilation(f"-I{moved}/headers").run("source.cpp", "aarch64")[1], False)

    def test_shared_headers_are_read_once_in_each_folder(self):
        self.write("shared.h", "one")
        self.write("source.cpp", "one")
        self.write("Included.h", "one")
        for _ in range(2):
            compilation = self.compilation()
            compilation.share("shared.h", "aarch64")
            compilation.run("source.cpp", "aarch64")
        self.assertEqual(self.calls(), ["shared.h", "source.cpp"])
        self.assertEqual(compilation.shared, {
            "aarch64": ["-include-pch", str(self.check.WORK / "objects/aarch64/shared.h.pch")], "x86_64": []})

    def test_shared_headers_that_cannot_be_read_are_a_fault(self):
        self.write("shared.h", "wrong")
        with self.assertRaisesRegex(self.check.Fault, "a fault"):
            self.compilation().share("shared.h", "aarch64")

    def test_what_does_not_compile_is_tried_again(self):
        self.write("source.cpp", "wrong")
        for _ in range(2):
            _, is_new, fault = self.compilation().run("source.cpp", "aarch64")
            self.assertEqual((is_new, fault), (True, "a fault\n"))
        self.assertEqual(len(self.calls()), 2)

    def test_sources_of_another_system_are_left_out(self):
        subprocess.run(["git", "init", "-q"], cwd=self.root, check=True)
        for path in ("Keelbright/main.cpp", "KeelbrightCore/platform/linux/Calls.cpp",
                     "KeelbrightCore/platform/mac/Calls.cpp", "tests/Tests.cpp"):
            self.write(path, "")
        self.assertEqual(self.check.sources(), ["Keelbright/main.cpp", "KeelbrightCore/platform/mac/Calls.cpp"])

    def test_the_options_are_those_of_the_build(self):
        self.write("CMakeLists.txt", "project(Keelbright VERSION 1.2.3 LANGUAGES CXX)\n")
        self.write("cmake/Compile.cmake", "target_compile_options(KeelbrightCompile INTERFACE\n  -Wall -Wextra\n"
                   "  $<$<BOOL:${X}>:-Werror>)\ntarget_compile_definitions(KeelbrightCompile INTERFACE\n  QT_A QT_B=1)\n")
        options = self.check.options()
        for word in ("-Wall", "-Wextra", "-Werror", "-DQT_A", "-DQT_B=1", '-DKEELBRIGHT_VERSION="1.2.3"'):
            self.assertIn(word, options)
        self.write("cmake/Compile.cmake", "")
        with self.assertRaises(self.check.Fault):
            self.check.options()

    # the compiler

    def test_a_compiler_that_does_not_come_in_time_is_skipped(self):
        npm = self.write("bin/npm", "#!/bin/sh\nexec sleep 60\n")
        npm.chmod(0o755)
        with mock.patch.dict(os.environ, {"PATH": f"{npm.parent}:{os.environ['PATH']}"}), \
                mock.patch.object(self.check, "PATIENCE", 0.2):
            with self.assertRaisesRegex(self.check.Skipped, "could not be fetched in 0.2 seconds"):
                self.check.install()

    def test_without_npm_it_is_skipped_with_its_reason(self):
        script = self.root / "tools/mac-check"
        script.parent.mkdir()
        shutil.copy(SCRIPT, script)
        result = subprocess.run([sys.executable, script], env={"PATH": str(self.root)}, capture_output=True, text=True,
                                check=False)
        self.assertEqual((result.returncode, result.stdout, result.stderr),
                         (77, "Skipped: there is no npm, which the compiler comes with.\n", ""))

    def test_a_compiler_that_cannot_be_fetched_is_a_reason_to_skip(self):
        npm = self.write("bin/npm", "#!/bin/sh\necho 'npm error no address for the name' >&2\nexit 1\n")
        npm.chmod(0o755)
        with mock.patch.dict(os.environ, {"PATH": f"{npm.parent}:{os.environ['PATH']}"}):
            with self.assertRaisesRegex(self.check.Skipped, "npm error no address for the name"):
                self.check.install()

    def test_another_compiler_than_the_pinned_one_is_refused(self):
        npm = self.write("bin/npm", "#!/bin/sh\nexit 0\n")
        npm.chmod(0o755)
        with mock.patch.dict(os.environ, {"PATH": f"{npm.parent}:{os.environ['PATH']}"}):
            with self.assertRaisesRegex(self.check.Fault, "not the pinned one"):
                self.check.install()


if __name__ == "__main__":
    unittest.main()
