"""A drive below the made-up machine that keeps whoever uses it waiting."""

import os
import select
import signal
import subprocess
import time
import unittest
from pathlib import Path

FAILING_DRIVE = Path(__file__).parents[1] / "support/failing_drive.py"


class HeldDrive:
    """A folder of the machine, shown as a file system of its own at another place; it is there until the scenario
    ends, which is skipped where none can be mounted. What is to be read there waits until it is released."""

    def __init__(self, scenario, place):
        self.folder = scenario.machine.root / "behind"
        for made in (self.folder, place):
            made.mkdir(parents=True, exist_ok=True)
        # pylint: disable=consider-using-with
        self.server = subprocess.Popen(["/usr/bin/python3", FAILING_DRIVE, self.folder, place, "held", "1", "EIO"],
                                       stdout=subprocess.PIPE)
        scenario.addCleanup(self.server.stdout.close)
        scenario.addCleanup(self.end)
        scenario.addCleanup(subprocess.run, ["umount", "-l", place], check=False)
        scenario.drives.append(self)
        deadline = time.monotonic() + 10
        while not os.path.ismount(place):
            if self.server.poll() is not None or time.monotonic() > deadline:
                raise unittest.SkipTest("no file system of our own can be mounted here")
            time.sleep(0.05)

    def has_a_reader(self):
        """Whether somebody waits for what is to be read, or has waited."""
        return bool(select.select([self.server.stdout], [], [], 0)[0])

    def release(self):
        self.server.send_signal(signal.SIGUSR1)

    def hang(self):
        """Answers nothing any more."""
        self.server.send_signal(signal.SIGSTOP)

    def end(self):
        """Whoever waits gets an error."""
        self.server.kill()
        self.server.wait()


def is_asked_by(process):
    """Whether a thread of the process waits for the answer of a drive to anything but a read."""
    def wait_channel(task):
        try:
            return (task / "wchan").read_text(encoding="ascii")
        except OSError:
            return ""
    return any("fuse" in wait_channel(task) or "request_wait" in wait_channel(task)
               for task in Path(f"/proc/{process}/task").iterdir())
