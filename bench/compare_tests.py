"""What a comparison makes of its numbers: medians, ratios, verdicts, the exit code, the rows and trees."""

import contextlib
import importlib.machinery
import importlib.util
import io
import os
import signal
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path
from unittest import mock

from comparing import backups, images, running, trees, walks, window
from comparing.comparisons import Comparison, exit_code, line
from comparing.rows import PLACES, ROWS, chosen
from comparing.trees import Place, Sizes

COMPARE = Path(__file__).with_name("compare")


def comparison(ours, peers, at_most=1.0, unit="s"):
    return Comparison("work", "tmpfs", ours, peers, "peer", at_most, unit)


class ComparisonTests(unittest.TestCase):
    def test_one_slow_round_does_not_count(self):
        self.assertEqual(comparison([1, 9, 2], [4, 4, 4]).own, 2)
        self.assertEqual(comparison([4, 4, 4], [1, 9, 2]).other, 2)

    def test_the_median_of_an_even_number_of_rounds_lies_between_the_middle_ones(self):
        self.assertEqual(comparison([1, 2, 4, 9], [1] * 4).own, 3)

    def test_the_ratio_is_that_of_the_medians(self):
        self.assertEqual(comparison([3, 1, 2], [8, 4, 100]).ratio, 0.25)

    def test_the_spread_is_that_of_the_pairs(self):
        self.assertEqual(comparison([3, 1, 2], [6, 1, 8]).spread, (0.25, 1))

    def test_nothing_beside_nothing_is_held_and_anything_beside_nothing_is_not(self):
        self.assertTrue(comparison([0], [0]).is_held)
        self.assertFalse(comparison([1], [0]).is_held)

    def test_a_ratio_at_its_bound_is_held_and_one_above_is_not(self):
        self.assertTrue(comparison([0.8], [1], 0.8).is_held)
        self.assertFalse(comparison([0.81], [1], 0.8).is_held)

    def test_the_verdict_is_on_the_ratio_that_is_shown(self):
        self.assertTrue(comparison([1.004], [1]).is_held)
        self.assertFalse(comparison([1.006], [1]).is_held)

    def test_without_a_bound_nothing_is_missed(self):
        self.assertTrue(comparison([9], [1], None).is_held)
        self.assertNotIn("MISSED", line(comparison([9], [1], None)))

    def test_a_line_shows_both_sides_the_ratio_its_spread_and_the_bound(self):
        self.assertEqual(line(comparison([3, 1, 2], [6, 1, 8])).split(),
                         ["work", "tmpfs", "2.000", "s", "6.000", "s", "0.33", "0.25", "1.00", "1.00", "peer"])

    def test_a_line_shows_a_missed_bound(self):
        self.assertEqual(line(comparison([0.02], [0.016], 1.0, "ms")).split(),
                         ["work", "tmpfs", "20.0", "ms", "16.0", "ms", "1.25", "1.25", "1.25", "1.00", "peer",
                          "MISSED"])


class ExitCodeTests(unittest.TestCase):
    held, missed = comparison([1], [2]), comparison([2], [1])

    def test_all_held_is_0(self):
        self.assertEqual(exit_code([self.held, self.held], is_quick=False), 0)

    def test_one_missed_is_1(self):
        self.assertEqual(exit_code([self.held, self.missed, self.held], is_quick=False), 1)

    def test_a_quick_run_judges_nothing(self):
        self.assertEqual(exit_code([self.missed], is_quick=True), 0)


class CommandTests(unittest.TestCase):
    def run_with(self, *arguments, tool="exit 0"):
        """With a program in the place of the services."""
        with tempfile.TemporaryDirectory() as folder:
            program = Path(folder) / "measure"
            program.write_text(f"#!/bin/sh\n{tool}\n", encoding="ascii")
            program.chmod(0o755)
            return subprocess.run([sys.executable, COMPARE, "--program", program, "--tmpfs", folder, "--disk", folder,
                                   "--only", "treemap", "--rounds", "1", *arguments],
                                  capture_output=True, text=True, check=False)

    def test_a_held_bound_ends_with_0(self):
        done = self.run_with(tool="echo wall 0.001; echo cpu 0.001")
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertIn("1 comparisons, 0 outside their bounds", done.stdout)

    def test_a_missed_bound_ends_with_1(self):
        done = self.run_with(tool="echo wall 0.017; echo cpu 0.017")
        self.assertEqual(done.returncode, 1, done.stderr)
        self.assertIn("MISSED", done.stdout)

    def test_a_missed_bound_of_a_quick_run_is_reported_and_ends_with_0(self):
        done = self.run_with("--quick", tool="echo wall 0.017; echo cpu 0.017")
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertIn("MISSED", done.stdout)

    def test_a_failing_service_is_an_error_even_of_a_quick_run(self):
        done = self.run_with("--quick", tool="echo broken >&2; exit 3")
        self.assertNotEqual(done.returncode, 0)
        self.assertIn("broken", done.stderr)

    def test_an_unknown_row_is_refused(self):
        done = self.run_with("--only", "backup,lunch")
        self.assertEqual(done.returncode, 2)
        self.assertIn("no such row: lunch", done.stderr)

    def test_an_unknown_place_is_refused(self):
        self.assertEqual(self.run_with("--places", "moon").returncode, 2)

    def test_nothing_is_left_where_it_is_ended_from_outside(self):
        with tempfile.TemporaryDirectory() as folder:
            program = Path(folder) / "measure"
            program.write_text("#!/bin/sh\nexec sleep 60\n", encoding="ascii")
            program.chmod(0o755)
            place = Path(folder) / "place"
            place.mkdir()
            with subprocess.Popen([sys.executable, COMPARE, "--program", program, "--tmpfs", place, "--quick", "--only",
                                   "plan", "--places", "tmpfs"], stdout=subprocess.DEVNULL) as process:
                while not list(place.glob("*/loose")):
                    time.sleep(0.01)
                process.terminate()
                self.assertEqual(process.wait(), 128 + signal.SIGTERM)
            self.assertEqual(list(place.iterdir()), [])


class ArgumentTests(unittest.TestCase):
    @staticmethod
    def read(*given):
        """What the script makes of these arguments, in this process."""
        loader = importlib.machinery.SourceFileLoader("compare_script", str(COMPARE))
        script = importlib.util.module_from_spec(importlib.util.spec_from_loader(loader.name, loader))
        loader.exec_module(script)
        with mock.patch.object(sys, "argv", ["compare", *given]):
            return script.read_arguments()

    def refusal(self, *given):
        said = io.StringIO()
        with contextlib.redirect_stderr(said), self.assertRaises(SystemExit) as ended:
            self.read(*given)
        self.assertEqual(ended.exception.code, 2)
        return said.getvalue()

    def test_images_are_refused_to_a_plain_user(self):
        with mock.patch("os.geteuid", return_value=1000):
            self.assertIn("can't measure on ext4: only root can mount an image",
                          self.refusal("--places", "tmpfs,ext4"))

    def test_images_are_refused_where_their_program_is_missing(self):
        without = {"mkfs.xfs": None}
        with mock.patch("os.geteuid", return_value=0), \
             mock.patch.object(images, "program", side_effect=lambda name: without.get(name, name)):
            self.assertEqual(self.read("--places", "ext4,btrfs").places, ["ext4", "btrfs"])
            self.assertIn("can't measure on xfs: mkfs.xfs is not installed", self.refusal("--places", "tmpfs,xfs"))

    def test_without_a_choice_no_image_is_needed(self):
        with mock.patch("os.geteuid", return_value=1000):
            self.assertEqual(self.read().places, ["tmpfs", "disk"])


class RowTests(unittest.TestCase):
    def test_every_row_has_places_that_there_are(self):
        for row in ROWS:
            self.assertLessEqual(set(row.places), set(PLACES), row.name)

    def test_backups_have_a_bound_at_each_of_their_places(self):
        row, = chosen(["backup"])
        self.assertEqual(set(row.places), set(backups.FIRST_RUN))
        self.assertEqual(set(row.places), set(backups.SECOND_RUN))

    def test_without_a_choice_every_row_is_measured(self):
        self.assertEqual(chosen([]), list(ROWS))

    def test_rows_are_chosen_by_name(self):
        self.assertEqual([row.name for row in chosen(["large", "estimate"])], ["estimate", "large"])

    def test_names_are_unique(self):
        self.assertEqual(len({row.name for row in ROWS}), len(ROWS))


def children_of(process):
    return Path(f"/proc/{process}/task/{process}/children").read_text(encoding="ascii").split()


def processor_ticks(process):
    return int(Path(f"/proc/{process}/stat").read_text(encoding="ascii").rpartition(")")[2].split()[11])


def is_there(process):
    """Whether it still runs; who started it may never ask for its end."""
    try:
        return Path(f"/proc/{process}/stat").read_text(encoding="ascii").rpartition(")")[2].split()[0] != "Z"
    except (FileNotFoundError, ProcessLookupError):
        return False


class RunningTests(unittest.TestCase):
    def wait_until(self, condition):
        """However long a busy machine takes for it."""
        until = time.monotonic() + 60
        while not condition():
            self.assertLess(time.monotonic(), until, "what was waited for did not come")
            time.sleep(0.05)

    def test_works_take_turns(self):
        order = []
        results = running.in_turn(2, lambda: order.append("a") or 1, lambda: order.append("b") or 2)
        self.assertEqual((order, results), (["a", "b", "a", "b"], [[1, 1], [2, 2]]))

    def test_numbers_are_read_from_among_other_output(self):
        self.assertEqual(running.numbers_in(["wall 0.5", "stall:App Manager 0.002", "a warning of some library", ""]),
                         {"wall": 0.5, "stall:App Manager": 0.002})

    def test_a_peer_reports_what_it_took(self):
        taken = running.peer("sleep", 0.05)
        self.assertGreaterEqual(taken["wall"], 0.05)
        self.assertLess(taken["cpu"], taken["wall"])

    def test_a_failing_peer_ends_everything(self):
        with self.assertRaisesRegex(SystemExit, "false ended with 1"):
            running.peer("false")

    def test_a_thread_that_slept_came_or_went_was_awake(self):
        self.assertEqual(window.wakeups({"1": 5, "2": 7}, {"1": 5, "2": 7}), 0)
        self.assertEqual(window.wakeups({"1": 5, "2": 7}, {"1": 8, "2": 7}), 3)
        self.assertEqual(window.wakeups({"1": 5, "2": 7}, {"1": 5, "3": 1}), 2)

    def test_busy_programs_are_busy_as_long_as_asked_for(self):
        with running.busy_programs(2):
            programs = children_of(os.getpid())
            self.wait_until(lambda: all(processor_ticks(program) for program in programs))
        self.assertEqual(len(programs), 2)
        self.assertFalse(any(is_there(program) for program in programs))

    def test_busy_programs_end_where_who_started_them_is_killed(self):
        starting = "import time; from comparing import running\nwith running.busy_programs(2): time.sleep(60)"
        with subprocess.Popen([sys.executable, "-c", starting], cwd=COMPARE.parent) as process:
            self.wait_until(lambda: len(children_of(process.pid)) == 2)
            programs = children_of(process.pid)
            process.kill()
        self.wait_until(lambda: not any(is_there(program) for program in programs))

    def test_a_busy_program_ends_where_who_started_it_was_gone_before_it_began(self):
        with subprocess.Popen(["true"]) as gone:
            pass
        subprocess.run(running.busy_while_there(gone.pid), check=False, stderr=subprocess.DEVNULL, timeout=60)

    def test_wakeups_of_a_process_are_counted(self):
        with subprocess.Popen(["sh", "-c", "while :; do sleep 0.01; done"]) as process:
            before = window.switches(process.pid)
            self.wait_until(lambda: window.wakeups(before, window.switches(process.pid)) > 3)
            process.kill()


class WindowTests(unittest.TestCase):
    class Bench:
        """Its services can't lay the machine."""

        is_quick = True

        def __init__(self, folder):
            self.place = Place("tmpfs", Path(folder), Sizes())
            self.measure = self
            self.started = []

        def __call__(self, *_):
            sys.exit("there is no room")

        def beside(self, name):
            return name

        def start(self, *_, **__):
            self.started.append(subprocess.Popen(["sleep", "60"], stdout=subprocess.PIPE, text=True))
            return self.started[-1]

    def test_no_program_is_left_where_the_machine_can_not_be_laid(self):
        with tempfile.TemporaryDirectory() as folder:
            bench = self.Bench(folder)
            with self.assertRaises(SystemExit):
                list(window.rest(bench))
        left = [process for process in bench.started if process.poll() is None]
        for process in left:
            process.kill()
            process.communicate()
        self.assertEqual(left, [])


class BackupTests(unittest.TestCase):
    class Bench:
        def __init__(self, **numbers):
            self.numbers = numbers

        def measure(self, *_):
            return self.numbers

    def test_a_run_that_copied_everything_counts(self):
        bench = self.Bench(files=5, errors=0, wall=1)
        self.assertEqual(backups.back_up(bench, "tree", "drive", 5)["wall"], 1)

    def test_a_run_that_left_a_file_out_does_not(self):
        for numbers in ({"files": 4, "errors": 0}, {"files": 5, "errors": 1}):
            with self.assertRaises(SystemExit):
                backups.back_up(self.Bench(**numbers), "tree", "drive", 5)


class CacheTests(unittest.TestCase):
    class Bench:
        def __init__(self, found):
            self.found = found

        def measure(self, *_):
            return {"bytes": self.found, "wall": 1}

    def test_a_scan_that_found_everything_counts(self):
        everything = trees.bytes_of_small(250)
        self.assertEqual(walks.scan_caches(self.Bench(everything), "machine", 250)["wall"], 1)

    def test_a_scan_that_left_something_out_does_not(self):
        with self.assertRaises(SystemExit):
            walks.scan_caches(self.Bench(trees.bytes_of_small(250) - 1), "machine", 250)


class TreeTests(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        sizes = Sizes(small=1_000, level_folders=4, level_files=7, deep=20_000, large=3 << 20)
        self.place = Place("tmpfs", Path(folder.name), sizes)

    @staticmethod
    def files(root):
        return [Path(folder) / name for folder, _, names in os.walk(root) for name in names]

    def test_a_hundred_small_files_to_a_folder(self):
        files = self.files(self.place.small())
        self.assertEqual((len(files), len({file.parent for file in files})), (1_000, 10))
        self.assertEqual(max(file.stat().st_size for file in files), 6_000)
        self.assertEqual(sum(file.stat().st_size for file in files), trees.bytes_of_small(1_000))

    def test_a_level_is_folders_side_by_side(self):
        files = self.files(self.place.level())
        self.assertEqual((len(files), {file.parent.parent for file in files}), (28, {self.place.folder / "level"}))

    def test_a_deep_tree_is_deep(self):
        root = self.place.deep()
        files = self.files(root)
        self.assertEqual((len(files), max(len(file.relative_to(root).parts) for file in files)), (20_000, 3))

    def test_a_small_deep_tree_has_its_files_too(self):
        self.assertEqual(len(self.files(Place("tmpfs", self.place.folder, Sizes(deep=20)).deep())), 20)

    def test_a_large_file_takes_room(self):
        file, = self.files(self.place.large())
        self.assertEqual(file.stat().st_size, 3 << 20)
        self.assertGreaterEqual(file.stat().st_blocks * 512, 3 << 20)

    def test_a_tree_is_made_once(self):
        before = self.place.small().stat().st_mtime_ns
        self.assertEqual(self.place.small().stat().st_mtime_ns, before)

    def test_a_dropped_tree_is_gone(self):
        root = self.place.small()
        self.place.drop("small", "never made")
        self.assertFalse(root.exists())


if __name__ == "__main__":
    unittest.main()
