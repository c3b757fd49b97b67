#!/usr/bin/python3
"""Walks the released program through onboarding, a destination and a backup of a made-up home, in
its real window, and leaves pictures of each screen and the backup itself under build/tour.

Run by ./run on a machine without a display: tools/on-virtual-display tools/tour/tour.py"""

import shutil
import sys
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tests/e2e"))
sys.dont_write_bytecode = True

from desktop import Desktop  # noqa: E402
from keelbright import CHOOSE_DESTINATION, WINDOW, KeelBright  # noqa: E402
from machine import Machine  # noqa: E402

PROGRAM = ROOT / "build/release/bin/keelbright"
MAKE_MAC = ROOT / "build/release/bin/make-mac"
TOUR = ROOT / "build/tour"
LONG_ENOUGH = 4_000  # files that keep a run going while its picture is taken


class Tour:
    def __init__(self):
        shutil.rmtree(TOUR, ignore_errors=True)
        self.machine = Machine(TOUR / "machine", MAKE_MAC)
        self.desktop = Desktop("light")
        self.window = KeelBright([PROGRAM], self.machine.environment(), TOUR / "output.log")
        self.pictures = 0

    def picture(self, name, title=WINDOW):
        file = TOUR / f"{name}.png"
        self.window.screen.picture(title, file)
        self.pictures += 1
        print(f"   {file.relative_to(ROOT)}", flush=True)

    def in_both_schemes(self, name):
        self.picture(name)
        self.desktop.set_scheme("dark")
        time.sleep(0.3)
        self.picture(name + "-dark")
        self.desktop.set_scheme("light")
        time.sleep(0.3)

    def onboarding(self):
        self.window.button("Continue")
        self.in_both_schemes("onboarding")
        self.window.pass_welcome()
        self.window.button("Choose Destination…").press()
        self.window.window(CHOOSE_DESTINATION[0])
        self.picture("folder-chooser", CHOOSE_DESTINATION[0])
        self.window.choose_folder(*CHOOSE_DESTINATION, str(self.machine.drive))
        self.window.button("Backup Drive")
        self.picture("destination")
        self.window.button("Get Started").press()

    def backup(self):
        self.window.go_to("Protected Items")
        self.window.label("Choose What to Protect")
        self.in_both_schemes("protected-items")
        self.window.go_to("Dashboard")
        self.window.button("Backup Now").press()
        self.window.button("Confirm & Start")
        self.in_both_schemes("preflight")
        self.window.button("Confirm & Start").press()
        self.picture("progress")
        self.window.button("View Full Report")
        self.in_both_schemes("finished")
        self.window.button("View Full Report").press()
        self.window.label("Source Folders")
        self.in_both_schemes("report")

    def dashboard_and_settings(self):
        self.window.go_to("Dashboard")
        self.window.label("Here's how your Mac is doing.")
        self.in_both_schemes("dashboard")
        self.window.go_to("Settings")
        self.window.label("About Keel Bright")
        self.in_both_schemes("settings")

    def check_the_backup(self):
        """A tour past a wrong backup would be a lie."""
        expected = self.machine.expected_backup(["Desktop", "Documents", "Pictures"])
        differences = expected.differences(self.machine.personal_files())
        if differences:
            sys.exit("the backup is not what it should be:\n" + "\n".join(differences))
        print(f"   {self.machine.device_folder().relative_to(ROOT)}: {len(expected.files)} files, each compared "
              "to the byte", flush=True)

    def walk(self):
        try:
            self.onboarding()
            self.backup()
            self.dashboard_and_settings()
            self.check_the_backup()
            if self.window.leave() != 0:
                sys.exit(f"the program ended with a failure:\n{self.window.output()}")
        finally:
            self.window.kill()
            self.desktop.leave()


Tour().walk()
