"""The parts of the campaign `cuts`, and that it finds what is lost; FAULT_RUNNER in the environment is the
program for the latter."""

import os
import subprocess
import sys
import tempfile
import time
import unittest
from contextlib import ExitStack
from pathlib import Path

import drives
from cut_rules import BROKEN, EMPTY, MISSING, ZEROS, Documents, Records, Runs, look
from drive_log import FLUSH, Cut, Log, Replay, write_entry
from recorded_run import RecordingDrive, reason_missing
from survival import DEVICE

HERE = Path(__file__).parent
RUNNER = os.environ.get("FAULT_RUNNER")
BLOCK = 4096


class WithFolder(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)


class LogTests(WithFolder):
    """Blocks of a drive of four, each filled with one letter; the base is all dots."""

    def log(self, *entries):
        """Entries are a flush, or the number of a block and its letter."""
        path = self.folder / "log"
        path.write_bytes(b"".join(FLUSH if entry == "flush" else write_entry(entry[0] * BLOCK, entry[1:] * BLOCK)
                                  for entry in self.as_bytes(entries)))
        return Log(path)

    @staticmethod
    def as_bytes(entries):
        return [entry if entry == "flush" else bytes([int(entry[0])]) + entry[1:].encode() for entry in entries]

    def replay(self, log):
        base = self.folder / "base"
        base.write_bytes(b"." * (4 * BLOCK))
        return Replay(log, base, self.folder)

    def blocks(self, image):
        content = image.read_bytes()
        self.assertEqual(len(content), 4 * BLOCK)
        letters = [content[number * BLOCK:(number + 1) * BLOCK] for number in range(4)]
        self.assertTrue(all(len(set(block)) == 1 for block in letters))
        return "".join(chr(block[0]) for block in letters)

    def test_entries_are_read_in_their_order(self):
        log = self.log("0a", "flush", "3b")
        self.assertEqual([(entry.offset, entry.size, entry.is_flush) for entry in log.entries],
                         [(0, BLOCK, False), ((1 << 64) - 1, 0, True), (3 * BLOCK, BLOCK, False)])

    def test_a_log_that_ends_in_a_write_is_refused(self):
        path = self.folder / "log"
        path.write_bytes(write_entry(0, b"abc")[:-1])
        with self.assertRaises(ValueError):
            Log(path)

    def test_the_size_of_the_log_gives_its_number_of_entries(self):
        log = self.log("0a", "flush", "3b")
        first = BLOCK + 16
        self.assertEqual([log.entries_within(size) for size in (0, first - 1, first, first + 16, 3 * BLOCK)],
                         [0, 0, 1, 2, 3])

    def test_what_comes_after_the_cut_is_not_there(self):
        replay = self.replay(self.log("0a", "1b", "2c"))
        self.assertEqual(self.blocks(replay.image(Cut(0))), "....")
        self.assertEqual(self.blocks(replay.image(Cut(2))), "ab..")
        self.assertEqual(self.blocks(replay.image(Cut(3))), "abc.")

    def test_a_later_write_replaces_an_earlier_one(self):
        replay = self.replay(self.log("0a", "flush", "0b", "0c"))
        self.assertEqual([self.blocks(replay.image(Cut(after))) for after in (2, 3, 4)], ["a...", "b...", "c..."])

    def test_what_was_flushed_is_there_and_of_the_rest_each_half(self):
        log = self.log("0a", "1b", "flush", "2c", "3d")
        seen = {self.blocks(self.replay(log).image(Cut(5, seed))) for seed in range(50)}
        self.assertEqual(seen, {"ab..", "abc.", "ab.d", "abcd"})

    def test_a_flush_after_the_cut_covers_nothing(self):
        log = self.log("0a", "1b", "flush")
        seen = {self.blocks(self.replay(log).image(Cut(2, seed))) for seed in range(50)}
        self.assertEqual(seen, {"....", "a...", ".b..", "ab.."})

    def test_a_cut_before_the_last_flush_is_refused_afterwards(self):
        replay = self.replay(self.log("0a", "flush", "1b"))
        replay.image(Cut(3))
        with self.assertRaises(ValueError):
            replay.image(Cut(1))


class RulesTests(WithFolder):
    """A second run, from version 1 to version 2, unless a test says otherwise."""

    KEPT, ODD, LEAVES, COMES = "f00000", "folder0/f00001", "folder0/f00007", "folder0/f00008"

    def setUp(self):
        super().setUp()
        self.documents = Documents(60)
        self.device = self.folder / DEVICE
        self.mirror = self.device / "Latest/Personal Files/Documents"
        before = {"Latest/recovery-manifest.json": b"{1}", "Reports/backup-report-1.json": b"{1}"}
        after = before | {"Latest/recovery-manifest.json": b"{2}", "Reports/backup-report-2.json": b"{2}",
                          "Reports/backup-report-2.md": b"2"}
        self.runs = Runs(1, 2, Records(before), Records(after))
        self.backed_up(1)

    def backed_up(self, version):
        """Puts the copies and records of a version on the drive; copies of what is no more stay."""
        source = self.folder / "source"
        source.mkdir(exist_ok=True)
        self.documents.write(source, version)
        for name in self.documents.names(version):
            self.copy(source / name, self.mirror / name)
        records = self.runs.records_before if version == 1 else self.runs.records
        for path, content in records.content.items():
            (self.device / path).parent.mkdir(parents=True, exist_ok=True)
            (self.device / path).write_bytes(content)

    @staticmethod
    def copy(source, target):
        target.parent.mkdir(parents=True, exist_ok=True)
        target.unlink(missing_ok=True)
        if source.is_symlink():
            target.symlink_to(source.readlink())
        else:
            target.write_bytes(source.read_bytes())

    def lost(self, has_ended=False):
        return look(self.device, self.documents, self.runs, has_ended).lost

    def test_half_of_the_documents_keep_their_size(self):
        same = sum(Documents.size(number, 1) == Documents.size(number, 2) for number in range(60))
        self.assertEqual(same, 30)

    def test_the_version_of_before_is_allowed_in_a_run(self):
        found = look(self.device, self.documents, self.runs, False)
        self.assertEqual(found.lost, {})
        self.assertEqual(found.looked_at, len(self.documents.names(1)))

    def test_the_new_version_is_allowed_in_a_run(self):
        source = self.folder / "source"
        self.documents.write(source, 2)
        for name in (self.KEPT, self.ODD, "link0"):
            self.copy(source / name, self.mirror / name)
        self.assertEqual(self.lost(), {})

    def test_a_missing_copy_is_lost(self):
        (self.mirror / self.KEPT).unlink()
        self.assertEqual(self.lost(), {self.KEPT: MISSING})

    def test_an_empty_copy_is_lost(self):
        (self.mirror / self.ODD).write_bytes(b"")
        self.assertEqual(self.lost(), {self.ODD: EMPTY})

    def test_a_copy_full_of_zeros_is_lost(self):
        (self.mirror / self.ODD).write_bytes(bytes(Documents.size(1, 2)))
        self.assertEqual(self.lost(), {self.ODD: ZEROS})

    def test_a_part_of_a_copy_is_lost(self):
        content = (self.mirror / self.KEPT).read_bytes()
        (self.mirror / self.KEPT).write_bytes(content[:-1])
        self.assertEqual(self.lost(), {self.KEPT: BROKEN})

    def test_the_content_of_another_file_is_a_loss(self):
        (self.mirror / self.KEPT).write_bytes((self.mirror / self.ODD).read_bytes())
        self.assertEqual(self.lost(), {self.KEPT: BROKEN})

    def test_a_link_that_leads_elsewhere_is_lost(self):
        (self.mirror / "link3").unlink()
        (self.mirror / "link3").symlink_to("nowhere")
        self.assertEqual(self.lost(), {"link3": "nowhere"})

    def test_a_copy_whose_source_is_no_more_is_lost_as_well(self):
        self.backed_up(2)
        (self.mirror / self.LEAVES).unlink()
        self.assertEqual(self.lost(), {self.LEAVES: MISSING})
        self.assertEqual(self.lost(has_ended=True), {self.LEAVES: MISSING})

    def test_after_the_end_every_copy_of_the_run_is_there(self):
        self.backed_up(2)
        self.assertEqual(self.lost(has_ended=True), {})

    def test_after_the_end_the_version_of_before_is_a_loss(self):
        self.backed_up(2)
        self.documents.write(self.folder / "source", 1)
        self.copy(self.folder / "source" / self.KEPT, self.mirror / self.KEPT)
        self.assertEqual(self.lost(has_ended=True), {self.KEPT: 1})

    def test_a_new_document_has_to_be_there_only_after_the_end(self):
        self.assertEqual(self.lost(), {})
        self.backed_up(2)
        (self.mirror / self.COMES).unlink()
        self.assertEqual(self.lost(has_ended=True), {self.COMES: MISSING})

    def test_a_report_on_the_drive_is_the_end_of_the_run(self):
        (self.device / "Reports/backup-report-2.json").write_bytes(b"{2}")
        lost = self.lost()
        self.assertEqual(lost[self.KEPT], 1)
        self.assertEqual(lost[self.COMES], MISSING)

    def test_both_reports_have_to_be_there_only_after_the_end(self):
        self.backed_up(2)
        (self.device / "Reports/backup-report-2.md").unlink()
        self.assertEqual(self.lost(), {})
        self.assertEqual(self.lost(has_ended=True), {"Reports/backup-report-2.md": MISSING})

    def test_a_lost_report_and_an_empty_manifest_are_losses(self):
        (self.device / "Reports/backup-report-1.json").unlink()
        (self.device / "Latest/recovery-manifest.json").write_bytes(b"")
        self.assertEqual(self.lost(), {"Reports/backup-report-1.json": MISSING,
                                       "Latest/recovery-manifest.json": EMPTY})

    def test_the_manifest_of_the_run_is_allowed_before_its_end(self):
        (self.device / "Latest/recovery-manifest.json").write_bytes(b"{2}")
        self.assertEqual(self.lost(), {})

    def test_nothing_is_promised_of_a_first_run_before_its_end(self):
        self.runs = Runs(None, 1, Records(), self.runs.records_before)
        (self.device / "Reports/backup-report-1.json").unlink()
        (self.mirror / self.KEPT).write_bytes(b"")
        (self.mirror / self.ODD).unlink()
        found = look(self.device, self.documents, self.runs, False)
        self.assertEqual((found.lost, found.looked_at, found.unfinished), ({}, 0, 1))


class DriveTests(WithFolder):
    def test_writes_and_flushes_of_the_device_are_recorded(self):
        if reason := reason_missing(self.folder):
            self.skipTest(reason)
        image, base = self.folder / "image", self.folder / "base"
        base.write_bytes(bytes(drives.MEGABYTE))
        image.write_bytes(base.read_bytes())
        with ExitStack() as stack:
            recorder = RecordingDrive(image, self.folder / "log", self.folder / "recorder", 0)
            stack.callback(recorder.end)
            device = drives.LoopDevice(recorder.image, "--direct-io=on")
            stack.callback(device.detach)
            with open(device.path, "r+b", buffering=0) as drive:
                drive.write(b"a" * BLOCK)
                os.fsync(drive.fileno())
                after_flush = recorder.logged()
                drive.seek(10 * BLOCK)
                drive.write(b"b" * BLOCK)
        log = Log(self.folder / "log")
        cut = log.entries_within(after_flush)
        self.assertTrue(log.entries[cut - 1].is_flush)
        replay = Replay(log, base, self.folder)
        half = replay.image(Cut(cut, seed=1)).read_bytes()
        self.assertEqual(half.rstrip(b"\0"), b"a" * BLOCK)
        self.assertEqual(replay.image(Cut(len(log))).read_bytes(), image.read_bytes())
        self.assertEqual(image.read_bytes()[10 * BLOCK:].rstrip(b"\0"), b"b" * BLOCK)


class CampaignTests(WithFolder):
    def setUp(self):
        super().setUp()
        if RUNNER is None:
            self.skipTest("FAULT_RUNNER is not set")
        trials = self.folder / "trials"
        trials.mkdir()
        if reason := reason_missing(trials) or drives.reason_missing("ext4", trials):
            self.skipTest(reason)

    def campaign(self, runner, *options):
        return [sys.executable, HERE / "cuts", runner, "--quick", "--only=ext4", *options]

    def test_it_finds_what_a_program_loses_that_does_not_flush(self):
        forgetful = self.folder / "forgetful"
        calls = "syncfs,fsync,fdatasync,sync_file_range"
        forgetful.write_text(f"#!/bin/sh\nexec strace -f --seccomp-bpf -o /dev/null -e trace={calls} "
                             f"-e inject={calls}:retval=0 '{RUNNER}' \"$@\"\n")
        forgetful.chmod(0o755)
        result = subprocess.run(self.campaign(forgetful, "--cuts=24", "--seconds=2"), capture_output=True,
                                text=True, check=False)
        self.assertEqual(result.returncode, 1, result.stdout + result.stderr)
        self.assertRegex(result.stdout, r"FAULT ext4, first run, .* cut after entry \d+, .*(missing|empty|zeros)")

    def test_nothing_is_left_if_it_is_terminated_at_its_begin(self):
        self.terminate_once("recorder ")

    def test_nothing_is_left_if_it_is_terminated_in_a_run(self):
        self.terminate_once("slow-drive/drive ", "slow-program/drive ")

    def terminate_once(self, *places):
        """Terminates the campaign once something is mounted on one of these places."""
        environment = os.environ | {"TMPDIR": str(self.folder)}
        with subprocess.Popen(self.campaign(RUNNER, "--seconds=60"), env=environment,
                              stdout=subprocess.DEVNULL) as process:
            until = time.monotonic() + 60
            while not any(place in line for line in self.mounts() for place in places):
                self.assertIsNone(process.poll())
                self.assertLess(time.monotonic(), until)
                time.sleep(0.01)
            process.terminate()
            self.assertEqual(process.wait(), 143)
        self.assertEqual(self.mounts(), [])
        self.assertNotIn(str(self.folder), drives.run(["losetup", "--list"]))
        self.assertEqual(list(self.folder.glob("keelbright*")), [])

    def mounts(self):
        return [line for line in Path("/proc/mounts").read_text().splitlines() if str(self.folder) in line]


if __name__ == "__main__":
    unittest.main(verbosity=2)  # with the reasons for what is skipped
