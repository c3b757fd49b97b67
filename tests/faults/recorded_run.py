"""A run on a drive whose writes and flushes are recorded."""

import os
import random
import shutil
import signal
import subprocess
import threading
from contextlib import ExitStack, contextmanager
from dataclasses import dataclass
from pathlib import Path

import drives
from cut_rules import Records, Runs
from drive_log import Log, copy_image
from survival import HANG_SECONDS, Backup, Machine, start

HERE = Path(__file__).parent
SIZE = 320 * drives.MEGABYTE
SLICE = 0.001  # seconds for which a slowed program runs before it is stopped again
SURPLUS = 4  # by which the drive is faster than needed where the program is slowed
OFTEN = ("-o", "commit=1")  # commits every second; xfs does so when a program calls fsync
SECONDS_AFTER = 0.5  # the neighbour goes on for so long after the report


class Failed(Exception):
    """A run that has to go well has not, or the campaign ends early."""


@dataclass(frozen=True)
class Shape:
    """A kind of run."""

    drive: str
    is_second: bool
    has_neighbour: bool  # a program that calls fsync now and then; the file system commits often
    is_drive_slow: bool  # else the program is slowed

    def kind(self):
        return "second run" if self.is_second else "first run"

    def name(self):
        """The name of a folder for it."""
        return str(self).replace(", ", "-").replace(" ", "-")

    def __str__(self):
        return ", ".join([self.drive, self.kind(),
                          "with fsync" if self.has_neighbour else "alone",
                          "slow drive" if self.is_drive_slow else "slow program"])


class RecordingDrive:
    """An image in a file system that records what a loop device does to it."""

    def __init__(self, image, log, folder, speed):
        self.log, self.folder = log, folder
        log.touch()
        folder.mkdir()
        self.server = start(["/usr/bin/python3", HERE / "recording_drive.py", image, log, folder, str(int(speed))],
                            stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE)
        self.image = folder / "image"
        try:
            drives.wait_until(lambda: self.image.exists() or self.server.poll() is not None,
                              "the recording drive does not appear")
            if self.server.poll() is not None:
                raise drives.Missing(self.server.stderr.read().decode(errors="replace").strip())
        except (drives.Missing, OSError):
            self.end()
            raise

    def logged(self):
        """The size of the log up to now."""
        return self.log.stat().st_size

    def make_fast(self):
        self.server.send_signal(signal.SIGUSR1)

    def end(self):
        if self.folder.is_mount():
            drives.run(["umount", "--lazy"], self.folder)
        try:
            self.server.wait(HANG_SECONDS)
        except subprocess.TimeoutExpired:
            self.server.kill()
            self.server.wait()
        self.server.stderr.close()


class RecordedRun:
    """Makes a drive, runs a backup on it, and keeps the drive of before, the log and the records."""

    def __init__(self, shape, options, folder, ending):
        self.shape, self.options, self.ending = shape, options, ending
        self.documents = options.documents
        self.folder = Path(folder)
        self.machine_root = self.folder / "machine"
        self.base = self.folder / "base.image"
        self.before = 1 if shape.is_second else None
        self.version = 2 if shape.is_second else 1

    def record(self):
        self.folder.mkdir()
        drives.make_image(self.shape.drive, self.base, SIZE)
        before = self._make_base() if self.shape.is_second else Records()
        served = self.folder / "served.image"
        copy_image(self.base, served)
        with ExitStack() as stack:
            recorder = RecordingDrive(served, self.folder / "log", self.folder / "recorder", self._drive_speed())
            stack.callback(recorder.end)
            drive = drives.MountedDrive(self.shape.drive, self.folder / "drive", recorder.image, ["--direct-io=on"],
                                        self._mount_options())
            stack.callback(drive.unmount)
            stack.callback(recorder.make_fast)
            began, ended, records = self._run(drive.folder, recorder)
        self.runs = Runs(self.before, self.version, before, records)
        self.log = Log(self.folder / "log")
        self.began, self.ended = self.log.entries_within(began), self.log.entries_within(ended)
        served.unlink()

    def flushes(self):
        """The number of flushes in the course of the run."""
        return sum(entry.is_flush for entry in self.log.entries[self.began:self.ended])

    def remove(self):
        shutil.rmtree(self.folder, ignore_errors=True)

    def _drive_speed(self):
        speed = self.documents.bytes(self.version) / self.options.seconds
        return speed if self.shape.is_drive_slow else SURPLUS * speed

    def _mount_options(self):
        return OFTEN if self.shape.has_neighbour and self.shape.drive != "xfs" else ()

    def _machine(self, drive, version):
        machine = Machine(self.machine_root, drive)
        self.documents.write(machine.documents, version)
        return machine

    def _make_base(self):
        """Makes the backup of before on the drive."""
        drive = drives.MountedDrive(self.shape.drive, self.folder / "drive", self.base)
        try:
            machine = self._machine(drive.folder, self.before)
            check(Backup(self.options.runner, machine).finish())
            # Renamed to another time, so that the reports of the next run do not replace them.
            for report in machine.reports.iterdir():
                report.rename(report.with_stem("backup-report-20200101-000000"))
            return Records.of(machine.device)
        finally:
            drive.unmount()

    def _run(self, drive, recorder):
        """Runs the backup; gives the size of the log at its begin and its end, and the records that it has left."""
        machine = self._machine(drive, self.version)
        with self._neighbour(drive):
            began = recorder.logged()
            backup = Backup(self.options.runner, machine)
            with self._slowed(backup.process), beside(lambda done: self._end_early(backup, recorder, done)):
                outcome = backup.finish(HANG_SECONDS + 5 * self.options.seconds)
            ended = recorder.logged()
            check(outcome)
            records = Records.of(machine.device)
            self.ending.wait(SECONDS_AFTER)
        if self.ending.is_set():
            raise Failed("ended early")
        return began, ended, records

    def _end_early(self, backup, recorder, done):
        while not done.wait(0.1):
            if self.ending.is_set():
                recorder.make_fast()
                backup.kill()
                return

    @contextmanager
    def _neighbour(self, drive):
        if not self.shape.has_neighbour:
            yield
            return
        with beside(lambda done: write_and_sync(drive / "neighbour", self.options.seconds / 30, done)):
            yield

    @contextmanager
    def _slowed(self, process):
        if self.shape.is_drive_slow:
            yield
            return
        pause = SLICE * self.options.seconds / self.options.course
        with beside(lambda done: stop_and_go(process, pause, done)):
            yield


@contextmanager
def beside(work):
    """Does work in a thread, which is given an event that asks for its end."""
    done = threading.Event()
    thread = threading.Thread(target=work, args=(done,))
    thread.start()
    try:
        yield
    finally:
        done.set()
        thread.join()


def write_and_sync(path, interval, done):
    """A program that calls fsync now and then."""
    with open(path, "wb", buffering=0) as file:
        while not done.wait(random.uniform(0, 2 * interval)):
            file.write(os.urandom(3_000))
            os.fsync(file.fileno())


def stop_and_go(process, pause, done):
    """Stops a program again and again, so that it takes long without any work for the processor."""
    while not done.wait(SLICE):
        process.send_signal(signal.SIGSTOP)
        done.wait(pause)
        process.send_signal(signal.SIGCONT)


def check(outcome):
    if not outcome.ended or outcome.errors or outcome.last_error:
        raise Failed(f"a run that has to go well: {outcome}")


def reason_missing(folder):
    """Why no drive can be recorded on this machine; None if one can."""
    folder = Path(folder) / "trial recording"
    folder.mkdir()
    image = folder / "image"
    image.write_bytes(bytes(drives.MEGABYTE))
    try:
        recorder = RecordingDrive(image, folder / "log", folder / "recorder", 0)
    except drives.Missing as missing:
        return str(missing)
    try:
        drives.LoopDevice(recorder.image, "--direct-io=on").detach()
        return None
    except drives.Missing as missing:
        return str(missing)
    finally:
        recorder.end()
