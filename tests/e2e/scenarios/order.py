"""The organizer, the full scan, the log, and restoring from a backup."""

import json

from keelbright import WINDOW
from scenario import Scenario
from window import wait_until

JUNK_CLEAN, ORGANISE = 2, 3  # in the menu of kinds, after "All" and "Backup"


class Organizer(Scenario):
    def test_sorts_a_quick_target_after_asking(self):
        downloads = self.machine.home / "Downloads"
        before = sorted(file.name for file in downloads.iterdir())
        window = self.start()
        window.pass_onboarding()
        window.go_to("Smart Organizer")
        window.label("Pick a folder above")
        window.button("Downloads").press()
        window.label("5 files selected")
        window.button("Organise Now").press()
        question = window.find("dialog", "Move 5 files into subfolders?")
        question.label('Files will be moved into named subfolders inside "Downloads". This can be undone in Finder (⌘Z).')
        window.answer("Move 5 files into subfolders?", "Cancel")
        self.assertEqual(sorted(file.name for file in downloads.iterdir()), before)
        window.button("Organise Now").press()
        window.answer("Move 5 files into subfolders?", "Organise")
        window.label("Already organised!")
        self.assertEqual(sorted(file.name for file in downloads.rglob("*") if file.is_file()), before)
        self.assertEqual([file for file in downloads.iterdir() if file.is_file()], [])
        [entry] = self.machine.activity()
        self.assertEqual((entry["kind"], entry["title"], entry["detail"]),
                         ("Organise", "Files organised", "5 files sorted into subfolders in Downloads"))

    def test_puts_everything_back_with_undo(self):
        downloads = self.machine.home / "Downloads"
        before = sorted(downloads.iterdir())
        window = self.start()
        window.pass_onboarding()
        window.go_to("Smart Organizer")
        window.button("Downloads").press()
        window.label("5 files selected")
        window.button("Organise Now").press()
        window.answer("Move 5 files into subfolders?", "Organise")
        window.label("Already organised!")
        window.keys(WINDOW, "Control_L", "z")
        window.label("5 files selected")
        self.assertEqual(sorted(downloads.iterdir()), before)
        [entry] = self.machine.activity()
        self.assertEqual(entry["title"], "Files organised")

    def test_leaves_files_that_are_not_ticked(self):
        downloads = self.machine.home / "Downloads"
        window = self.start()
        window.pass_onboarding()
        window.go_to("Smart Organizer")
        window.button("Downloads").press()
        window.label("5 files selected")
        window.choose_row("Archives")
        window.row("photo-export.zip")
        window.button("Deselect").press()
        window.label("4 files selected")
        window.button("Organise Now").press()
        window.answer("Move 4 files into subfolders?", "Organise")
        wait_until(lambda: not (downloads / "contacts.csv").exists(), "nothing is moved")
        self.assertTrue((downloads / "photo-export.zip").exists())


class FullScan(Scenario):
    def test_each_kind_of_finding_opens_its_screen(self):
        window = self.start()
        window.pass_onboarding()
        self.scan(window)
        window.choose_row("Xcode & Simulators")
        window.button("Fix").press()
        window.label("Junk Cleaner")
        self.scan(window)
        window.choose_row("No backup on record")
        window.keys(WINDOW, "End")  # an application
        window.button("Fix").press()
        window.label("App Manager")
        self.scan(window)
        window.choose_row("No backup on record")
        window.button("Back Up").press()
        window.label("Here's how your Mac is doing.")

    @staticmethod
    def scan(window):
        window.go_to("Scan Results")
        window.label("Ready to scan")
        window.button("Start Full Scan").press()
        window.find("list", "Findings", 60)


class ActivityLog(Scenario):
    def open(self):
        entries = [("Junk Clean", "Junk files moved to Trash", "2 items across 3 categories", 5_000_000, 2),
                   ("Backup", "Backup completed", "12 files · 1 MB", 1_000_000, 12)]
        self.machine.support.mkdir(parents=True)
        (self.machine.support / "activity.json").write_text(json.dumps(
            [{"id": f"00000000-0000-4000-8000-00000000000{number}", "timestamp": "2026-01-05T10:00:00Z", "kind": kind,
              "title": title, "detail": detail, "bytesAffected": size, "itemCount": count}
             for number, (kind, title, detail, size, count) in enumerate(entries)]), encoding="utf-8")
        window = self.start()
        window.pass_onboarding()
        window.go_to("Activity Log")
        window.label("2 actions · 6 MB freed total")
        return window

    def test_filters_by_kind(self):
        window = self.open()
        window.row("Backup completed")
        window.choose_from("Filter", JUNK_CLEAN)
        window.wait_row_gone("Backup completed")
        window.row("Junk files moved to Trash")
        window.choose_from("Filter", ORGANISE)
        window.label("No Organise entries")
        window.label("2 actions · 6 MB freed total")

    def test_exports_all_of_it(self):
        target = self.machine.home / "Documents/log.csv"
        window = self.open()
        window.choose_from("Filter", JUNK_CLEAN)
        window.button("Export").press()
        dialog = wait_until(lambda: next((found for found in window.all("dialog")), None), "no chooser")
        field = wait_until(lambda: next((field for field in dialog.all("text")
                                         if field.text == "Keelbright-Activity.csv"), None), "no name is proposed")
        field.write(str(target))
        dialog.find("push button", "Save").press()
        wait_until(target.exists, "nothing is written")
        window.label("2 actions · 6 MB freed total")  # who answers has written to the end
        lines = target.read_text(encoding="utf-8").splitlines()
        self.assertEqual(lines[0], "Timestamp,Type,Title,Detail,Items,Size")
        self.assertEqual(len(lines), 3)

    def test_is_cleared(self):
        window = self.open()
        window.button("Clear activity log").press()
        window.label("No activity yet")
        self.assertEqual(self.machine.activity(), [])


class Restoring(Scenario):
    OPEN_BACKUP = ("Navigate to your Keelbright/DeviceName folder on your backup drive.", "Open")
    LOAD_MANIFEST = ("Select the recovery-manifest.json from your backup.", "Load")

    def test_opens_the_folder_of_a_backup(self):
        window = self.start()
        window.pass_onboarding(self.machine.drive)
        window.back_up()
        window.go_to("Restore Browser")
        window.label("No Backup Folder Opened")
        window.button("Open Backup Folder").press()
        window.choose_folder(*self.OPEN_BACKUP, str(self.machine.device_folder()))
        window.label("Latest/")
        window.button("Open in Finder")
        window.label("No Snapshots Found")
        (self.machine.device_folder() / "Snapshots/2024-05-01-0930").mkdir(parents=True)
        window.button("Open Backup Folder").press()
        window.choose_folder(*self.OPEN_BACKUP, str(self.machine.device_folder()))
        window.label("Snapshots (1)")

    def test_reads_a_manifest_good_and_broken(self):
        window = self.start()
        window.pass_onboarding(self.machine.drive)
        window.back_up()
        manifest = self.machine.device_folder() / "Latest/recovery-manifest.json"
        window.go_to("New Mac Recovery")
        window.button("Load Manifest…").press()
        window.choose_file(*self.LOAD_MANIFEST, str(manifest))
        window.label("Summary from your previous Mac")
        window.label("Apps on previous Mac (7)")
        window.label("/bin/zsh")
        broken = self.machine.home / "broken.json"
        broken.write_text("{", encoding="utf-8")
        window.button("Load Manifest…").press()
        window.choose_file(*self.LOAD_MANIFEST, str(broken))
        wait_until(lambda: [text for text in window.labels() if text.startswith("Could not read manifest: ")],
                   "no message about the broken file")
        self.assertNotIn("Summary from your previous Mac", window.labels())
        window.keys(WINDOW, "F9")
