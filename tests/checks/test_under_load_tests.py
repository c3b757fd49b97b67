"""The suite beside busy programs, with a suite of a few lines in its place: what is said, and what is left."""

import json
import os
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path

TOOL = Path(__file__).parents[2] / "tools" / "test-under-load"
PRESETS = {"version": 6,
           "configurePresets": [{"name": "release", "generator": "Ninja", "binaryDir": "${sourceDir}/build"}],
           "testPresets": [{"name": "release", "configurePreset": "release"}]}


def family_of(process):
    """The process and all below it."""
    family = [process]
    for member in family:
        try:
            below = Path(f"/proc/{member}/task/{member}/children").read_text(encoding="ascii")
        except FileNotFoundError:
            continue
        family.extend(int(child) for child in below.split())
    return family


class TestUnderLoadTests(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.tree = Path(folder.name)
        (self.tree / "tools").mkdir()
        (self.tree / "build").mkdir()
        shutil.copy(TOOL, self.tree / "tools")
        (self.tree / "CMakePresets.json").write_text(json.dumps(PRESETS), encoding="ascii")

    def start(self, tests, *options):
        lines = [f'add_test({name} "/bin/sh" "-c" [=[{script}]=])' for name, script in tests.items()]
        (self.tree / "build/CTestTestfile.cmake").write_text("\n".join(lines), encoding="ascii")
        return subprocess.Popen([sys.executable, self.tree / "tools/test-under-load", *options],
                                stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)

    def result_of(self, tests, *options):
        with self.start(tests, *options) as process:
            output, errors = process.communicate()
        return process.returncode, output, errors

    def wait_for(self, path):
        while not path.exists():
            time.sleep(0.01)

    def test_counts_how_often_each_test_failed(self):
        mark = self.tree / "mark"
        code, output, _ = self.result_of({"good": "exit 0", "once": f"test -e {mark} || ! touch {mark}",
                                          "always": "exit 1", "missing": "exit 77"}, "--times=2", "--busy=1")
        self.assertEqual(code, 1)
        self.assertEqual([line for line in output.splitlines() if line.startswith("failed")],
                         ["failed 2 of 2 times: always", "failed 2 of 2 times: missing", "failed 1 of 2 times: once"])

    def test_says_where_all_passed(self):
        code, output, _ = self.result_of({"good": "exit 0"}, "--times=2", "--busy=1")
        self.assertEqual((code, output.splitlines()[-1]), (0, "passed 2 of 2 times beside 1 busy programs"))

    def test_runs_beside_busy_programs_on_so_many_processors(self):
        # Of the tool's children one is ctest, and the two others are at work.
        script = f'cat /proc/$(cut -d" " -f4 /proc/$PPID/stat)/task/*/children > {self.tree}/children; nproc > {self.tree}/cores'
        code, _, errors = self.result_of({"look": script}, "--times=1", "--busy=2", "--cores=1")
        self.assertEqual(code, 0, errors)
        self.assertEqual(len((self.tree / "children").read_text(encoding="ascii").split()), 3)
        self.assertEqual((self.tree / "cores").read_text(encoding="ascii"), "1\n")

    def test_hands_on_the_delays_and_the_options_of_ctest(self):
        code, output, errors = self.result_of({"slow": '[ "$KEELBRIGHT_SLOW_MACHINE" = frames=9 ]', "bad": "exit 1"},
                                              "--times=1", "--busy=0", "--slow=frames=9", "-R", "^slow$")
        self.assertEqual(code, 0, output + errors)

    def test_a_suite_without_tests_is_no_success(self):
        code, _, errors = self.result_of({"good": "exit 0"}, "--times=1", "--busy=0", "-R", "nothing",
                                         "--no-tests=error")
        self.assertEqual(code, 2)
        self.assertIn("No tests were found", errors)

    def test_no_process_is_left_where_it_is_ended_from_outside(self):
        mark = self.tree / "mark"
        # One of them leaves the session, and what had started it is gone.
        script = f"setsid sleep 600 & setsid sh -c 'sleep 600 & touch {mark}'; wait"
        with self.start({"long": script}) as process:
            self.wait_for(mark)
            family = family_of(process.pid)
            self.assertGreaterEqual(len(family), 8, "the tool, four busy programs, ctest, its test and two sleepers")
            process.send_signal(signal.SIGTERM)
            self.assertEqual(process.wait(), 128 + signal.SIGTERM)
        for member in family:
            with self.assertRaises(ProcessLookupError):
                os.kill(member, 0)


if __name__ == "__main__":
    unittest.main()
