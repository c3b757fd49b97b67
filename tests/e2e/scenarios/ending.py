import shutil

from held_drive import HeldDrive, is_asked_by
from keelbright import WINDOW
from scenario import Scenario
from window import wait_until

# Leaves a mark that it runs, and hangs for as long as its machine is there.
HANGING_TOOL = """#!/bin/sh
root=${0%/usr/bin/mdls}
: > "$root/started/$$"
while [ -d "$root/started" ]; do sleep 0.2; done
"""


class Ending(Scenario):
    """What hangs when the program is to end does not hold it."""

    def start_with_hanging_tools(self):
        tool = self.machine.root / "usr/bin/mdls"
        tool.write_text(HANGING_TOOL)
        tool.chmod(0o755)
        started = self.machine.root / "started"
        started.mkdir()
        self.addCleanup(shutil.rmtree, started)
        window = self.start()
        window.pass_onboarding()
        wait_until(lambda: any(started.iterdir()), "no tool is asked")
        return window

    def start_with_a_hanging_drive(self):
        """Starts the program with a home of which one folder is on a drive that does not answer any more."""
        drive = HeldDrive(self, self.machine.home / "Library/Developer/Xcode/Archives")
        drive.hang()
        window = self.start()
        window.pass_onboarding()
        # The score waits for the drive.
        wait_until(lambda: any(element.name == "Calculating the health score" for element in window.all()),
                   window.outline)
        wait_until(lambda: is_asked_by(window.process.pid), "nobody walks on the drive")
        return window

    def start_with_a_hanging_check(self):
        """Starts the program and a check of copies whose drive does not answer any more."""
        drive = HeldDrive(self, self.machine.drive)
        window = self.start()
        window.pass_onboarding(self.machine.drive)
        window.back_up()
        window.keys(WINDOW, "Control_L", "Shift_L", "c")
        check = window.window("Check Copies")
        start = check.button("Start Check")
        drive.hang()
        start.press()
        check.button("Cancel Check")
        wait_until(lambda: is_asked_by(window.process.pid), "nobody reads from the drive")
        return window

    def test_a_tool_that_hangs_does_not_hold_quit(self):
        self.start_with_hanging_tools()
        self.leave()

    def test_a_tool_that_hangs_does_not_hold_a_request_to_end(self):
        window = self.start_with_hanging_tools()
        window.process.terminate()
        self.assertEqual(window.wait_for_end(), 0, window.output())

    def test_a_walk_that_hangs_does_not_hold_quit(self):
        self.start_with_a_hanging_drive()
        self.leave()

    def test_a_walk_that_hangs_does_not_hold_a_request_to_end(self):
        window = self.start_with_a_hanging_drive()
        window.process.terminate()
        self.assertEqual(window.wait_for_end(), 0, window.output())

    def test_a_check_of_copies_that_hangs_does_not_hold_quit(self):
        self.start_with_a_hanging_check()
        self.leave()

    def test_a_check_of_copies_that_hangs_does_not_hold_a_request_to_end(self):
        window = self.start_with_a_hanging_check()
        window.process.terminate()
        self.assertEqual(window.wait_for_end(), 0, window.output())
