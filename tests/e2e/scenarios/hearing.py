"""The program as a person hears it: all that is known of it comes from events on the accessibility bus."""

import os

from keelbright import WINDOW
from listener import Listener
from scenario import Scenario

CANCELLED = "This backup was cancelled before everything was copied."


class Hearing(Scenario):
    FILES = 20_000

    def setUp(self):
        super().setUp()
        # Before the program, as a screen reader is there first.
        self.listener = Listener()
        self.addCleanup(self.listener.leave)

    def make_a_long_run(self):
        many = self.machine.home / "Documents/Many"
        many.mkdir(parents=True)
        first = many / "first.txt"
        first.write_bytes(b"text")
        for number in range(self.FILES):
            os.link(first, many / f"{number:05}.txt")

    def test_a_backup_is_announced_from_start_to_end_on_any_screen(self):
        self.make_a_long_run()
        window = self.start()
        window.pass_onboarding(self.machine.drive)
        window.confirm_backup()
        self.listener.wait_for_notice("Backup running")
        window.go_to("Settings")
        self.listener.wait_for_notice("Backup Complete")
        quarters = [text for text in self.listener.notices() if text.endswith("% complete")]
        self.assertEqual(quarters, sorted(set(quarters)))
        self.assertIn("Backup 75% complete", quarters)

    def test_a_cancel_and_what_became_of_it_are_announced(self):
        self.make_a_long_run()
        window = self.start()
        window.pass_onboarding(self.machine.drive)
        window.confirm_backup()
        self.listener.wait_for_notice("Backup running")
        window.button("Cancel Backup").press()
        self.listener.wait_for_notice("Cancelling...")
        self.listener.wait_for_notice(CANCELLED)

    def test_a_backup_that_cannot_start_is_announced_with_its_reason(self):
        (self.machine.drive / "Keelbright").write_text("a file in the way", encoding="utf-8")
        window = self.start()
        window.pass_onboarding(self.machine.drive)
        window.confirm_backup()
        self.listener.collect(lambda event: event[0] == "notice"
                              and event[1].startswith("Could not create backup folders: "), "the reason")

    def test_an_alert_is_announced(self):
        window = self.start()
        window.pass_onboarding()
        window.button("Backup Now").press()
        self.listener.wait_for_notice("No Destination Selected. Go to Settings and choose a backup destination first.")

    def test_cleaning_is_announced_with_its_result(self):
        window = self.start()
        window.pass_onboarding()
        window.go_to("Junk Cleaner")
        window.choose_row("Log Files")
        window.choose_row("Sketchbook")
        window.keys(WINDOW, "space")
        self.listener.collect(lambda event: event[0] == "ticked" and event[1].startswith("Sketchbook, "), "the tick")
        self.listener.wait_for_notice("1 item selected, 3 MB")
        window.button("Move to Trash").press()
        window.answer("Move 1 item to Trash?", "Move to Trash")
        self.listener.wait_for_notice("1 item moved to Trash")

    def test_a_folder_that_is_added_to_the_backup_is_announced(self):
        window = self.start()
        window.pass_onboarding()
        window.go_to("Storage Browser")
        window.button("Documents").press()
        window.choose_in_row("Letters", 0)
        self.listener.wait_for_notice("Letters was added to the backup sources")

    def test_walks_through_every_screen_by_its_focus_events(self):
        window = self.start()
        window.pass_onboarding()
        for screen in ("Protected Items", "App Manager", "Junk Cleaner", "Storage Browser", "Smart Organizer",
                       "Scan Results", "Activity Log", "Backup Report", "Restore Browser", "New Mac Recovery",
                       "Settings"):
            window.keys(WINDOW, "Down")
            self.assertEqual(self.listener.wait_for_focus(screen), "list item")
