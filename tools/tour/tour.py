#!/usr/bin/python3
"""Walks the released program through onboarding, a destination and a backup of a made-up home, in
its real window, and leaves pictures of each screen and the backup itself under build/tour.

Run by ./run on a machine without a display: tools/on-virtual-display tools/tour/tour.py"""

import os
import shutil
import sys
import tempfile
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tests/e2e"))
sys.dont_write_bytecode = True

from desktop import Desktop  # noqa: E402
from keelbright import CHOOSE_DESTINATION, WINDOW, KeelBright  # noqa: E402
from machine import Machine  # noqa: E402
from window import wait_until  # noqa: E402

PROGRAM = ROOT / "build/release/bin/keelbright"
MAKE_MAC = ROOT / "build/release/bin/make-mac"
TOUR = ROOT / "build/tour"
MANY = 15_000  # files that keep a run going while its picture is taken


class Tour:
    def __init__(self):
        shutil.rmtree(TOUR, ignore_errors=True)
        TOUR.mkdir(parents=True)
        self.folder = tempfile.mkdtemp(prefix="tour-")
        self.machine = Machine(self.folder, MAKE_MAC)
        self.add_archive()
        self.desktop = Desktop("light")
        self.window = KeelBright([PROGRAM], self.machine.environment(), TOUR / "output.log")

    def add_archive(self):
        archive = self.machine.home / "Pictures/Archive"
        first = archive / "IMG_00000.jpg"
        archive.mkdir()
        first.write_bytes(b"a small picture" * 100)
        for number in range(1, MANY):
            os.link(first, archive / f"IMG_{number:05}.jpg")

    def picture(self, name, title=WINDOW, at_rest=True):
        file = TOUR / f"{name}.png"
        self.window.screen.picture(title, file, at_rest)
        print(f"   {file.relative_to(ROOT)}", flush=True)

    def in_both_schemes(self, name):
        self.picture(name)
        self.set_scheme("dark")
        self.picture(name + "-dark")
        self.set_scheme("light")

    def set_scheme(self, scheme):
        """A picture of the wrong scheme would be a lie."""
        self.desktop.set_scheme(scheme)
        wait_until(lambda: (max(self.window.screen.colour(WINDOW, 60, 400)) > 128) == (scheme == "light"),
                   f"the window does not turn {scheme}")

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

    def is_well_on_its_way(self):
        ring = self.window.seen("progress bar")
        return ring is not None and (ring.value or 0) >= 20

    def backup(self):
        self.window.go_to("Protected Items")
        self.window.label("Choose What to Protect")
        self.in_both_schemes("protected-items")
        self.window.go_to("Dashboard")
        self.window.button("Backup Now").press()
        self.window.button("Confirm & Start")
        self.in_both_schemes("preflight")
        self.window.button("Confirm & Start").press()
        wait_until(lambda: self.is_well_on_its_way() or self.window.seen("push button", "View Full Report"),
                   "the backup does not begin")
        self.picture("progress", at_rest=False)
        self.window.button("View Full Report")
        self.in_both_schemes("finished")
        self.window.button("View Full Report").press()
        self.window.label("Source Folders")
        self.in_both_schemes("report")

    def dashboard_and_settings(self):
        self.window.go_to("Dashboard")
        self.window.label("Here's how your Mac is doing.")
        self.window.button("Recalculate health score")
        self.in_both_schemes("dashboard")
        self.window.go_to("Settings")
        self.window.label("About Keel Bright")
        self.in_both_schemes("settings")

    def keep_the_backup(self):
        """Nor does a tour that ends with a wrong backup count."""
        expected = self.machine.expected_backup(["Desktop", "Documents", "Pictures"])
        differences = expected.differences(self.machine.personal_files())
        if differences:
            sys.exit("the backup is not what it should be:\n" + "\n".join(differences))
        kept = shutil.move(self.machine.drive / "Keelbright", TOUR / "Keelbright")
        print(f"   {kept.relative_to(ROOT)}: the backup, {len(expected.files)} files, each compared to the byte",
              flush=True)

    def walk(self):
        try:
            self.onboarding()
            self.backup()
            self.dashboard_and_settings()
            if self.window.leave() != 0:
                sys.exit(f"the program ended with a failure:\n{self.window.output()}")
            self.keep_the_backup()
        finally:
            self.window.kill()
            self.desktop.leave()
            shutil.rmtree(self.folder)


Tour().walk()
