"""A drive below the made-up machine that keeps whoever uses it waiting."""

import os
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
        self.server = subprocess.Popen(["/usr/bin/python3", FAILING_DRIVE, self.folder, place, "held", "1", "EIO"])
        scenario.addCleanup(self.server.wait)
        scenario.addCleanup(self.server.kill)
        scenario.addCleanup(subprocess.run, ["umount", "-l", place], check=False)
        deadline = time.monotonic() + 10
        while not os.path.ismount(place):
            if self.server.poll() is not None or time.monotonic() > deadline:
                raise unittest.SkipTest("no file system of our own can be mounted here")
            time.sleep(0.05)

    def release(self):
        self.server.send_signal(signal.SIGUSR1)

    def hang(self):
        """Answers nothing any more."""
        self.server.send_signal(signal.SIGSTOP)


def is_asked_by(process):
    """Whether a thread of the process waits for the answer of a drive."""
    def wait_channel(task):
        try:
            return (task / "wchan").read_text(encoding="ascii")
        except OSError:
            return ""
    return any("fuse" in wait_channel(task) or "request_wait" in wait_channel(task)
               for task in Path(f"/proc/{process}/task").iterdir())
