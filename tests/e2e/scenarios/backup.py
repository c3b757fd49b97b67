import os
import stat
import time

from held_drive import HeldDrive
from keelbright import WINDOW
from machine import decimal_size, read_json
from scenario import Scenario
from window import wait_until

FOLDERS = ["Desktop", "Documents", "Pictures"]  # protected from the first start


class Backup(Scenario):
    def test_copies_every_protected_file_to_the_byte(self):
        expected = self.machine.expected_backup(FOLDERS)
        window = self.start()
        window.pass_onboarding(self.machine.drive)
        window.back_up()
        window.label("Backup Complete")
        self.assertEqual(expected.differences(self.machine.personal_files()), [])
        self.assertFalse((self.machine.personal_files() / "Documents/Empty folder").exists())

    def test_checks_the_copies_and_finds_the_damaged_one(self):
        window = self.start()
        window.pass_onboarding(self.machine.drive)
        window.back_up()
        copies = sorted(file for file in self.machine.personal_files().rglob("*")
                        if file.is_symlink() or file.is_file())
        damaged = next(file for file in copies if not file.is_symlink() and file.stat().st_size > 0)
        times = damaged.stat()
        with open(damaged, "r+b") as copy:
            first = copy.read(1)
            copy.seek(0)
            copy.write(bytes([first[0] ^ 1]))
        os.utime(damaged, ns=(times.st_atime_ns, times.st_mtime_ns))
        window.keys(WINDOW, "Control_L", "Shift_L", "c")
        check = window.window("Check Copies")
        check.button("Start Check").press()
        check.label(f"1 of {len(copies)} copies on {self.machine.drive.name} is damaged or can't be read.")
        window.row(str(damaged.relative_to(self.machine.personal_files())))
        with open(damaged, "r+b") as copy:
            copy.write(first)
        os.utime(damaged, ns=(times.st_atime_ns, times.st_mtime_ns))
        check.button("Check Again…").press()
        check.button("Start Check").press()
        check.label(f"All {len(copies)} copies on {self.machine.drive.name} are readable and equal to their originals.")

    def test_shows_the_estimate_before_it_starts(self):
        expected = self.machine.expected_backup(FOLDERS)
        window = self.start()
        window.pass_onboarding(self.machine.drive)
        window.button("Backup Now").press()
        window.button("Confirm & Start")
        labels = window.labels()
        for text in ("Preflight Check", "Backup Estimate", "Estimated Files:", str(expected.estimated_files),
                     "Estimated Size:", decimal_size(expected.estimated_bytes), "Destination Free Space:"):
            self.assertIn(text, labels)
        self.assertRegex(labels[labels.index("Destination Free Space:") + 1], r"^[0-9.]+ [KMGT]B$")
        self.assertNotIn("Warnings", labels)
        self.assertNotIn("Errors", labels)
        window.button("Cancel").press()
        window.label("Here's how your Mac is doing.")
        self.assertFalse((self.machine.drive / "Keelbright").exists())

    def test_leaves_report_manifest_configuration_and_a_line_in_the_log(self):
        expected = self.machine.expected_backup(FOLDERS)
        sources = [str(self.machine.home / folder) for folder in FOLDERS]
        window = self.start()
        window.pass_onboarding(self.machine.drive)
        window.back_up()
        self.leave()

        [report_file] = self.machine.reports()
        report = read_json(report_file)
        latest = self.machine.device_folder() / "Latest"
        self.assertEqual(list(report), sorted(report))
        for key, value in {"sourcePaths": sources, "destinationPath": str(self.machine.drive),
                           "personalFilesPath": str(latest / "Personal Files"), "errors": [],
                           "manifestPath": str(latest / "recovery-manifest.json"),
                           "filesCopied": len(expected.files), "filesSkipped": expected.skipped,
                           "bytesCopied": expected.bytes_copied}.items():
            self.assertEqual(report[key], value, key)
        markdown = report_file.with_suffix(".md").read_text(encoding="utf-8")
        self.assertTrue(markdown.startswith("# Keel Bright Backup Report\n\n**Date:** "), markdown)
        self.assertIn(f"| Files Copied | {len(expected.files)} |\n| Files Skipped | {expected.skipped} |\n"
                      f"| Data Copied | {decimal_size(expected.bytes_copied)} |\n| Errors | 0 |\n", markdown)
        self.assertTrue(markdown.endswith("## Skipped / Errors\n- _None_"), markdown)

        manifest = read_json(latest / "recovery-manifest.json")
        self.assertEqual(manifest["appVersion"], "1.0.0-mvp")
        self.assertEqual(manifest["shellInfo"], "/bin/zsh")
        self.assertEqual(manifest["sourceFolders"], sources)
        self.assertEqual(manifest["installedApps"], ["Harbour Mail", "Just Installed", "Never Indexed",
                                                     "Old Scanner", "Sketchbook", "Tidewater", "Without list"])
        self.assertEqual(manifest["dotfilesPresent"], {".bash_profile": False, ".gitconfig": True,
                                                       ".ssh": False, ".zshrc": True})

        config = self.machine.config()
        self.assertEqual(config["lastReport"], report)
        self.assertEqual(config["lastBackupTime"], report["completedAt"])
        self.assertEqual(config["enabledRecommendedFolders"], FOLDERS)
        [entry] = self.machine.activity()
        self.assertEqual((entry["kind"], entry["title"], entry["itemCount"], entry["bytesAffected"]),
                         ("Backup", "Backup completed", len(expected.files), expected.bytes_copied))
        self.assertEqual(entry["detail"],
                         f"{len(expected.files)} files · {decimal_size(expected.bytes_copied)}")

    def test_shows_its_result_and_report(self):
        expected = self.machine.expected_backup(FOLDERS)
        window = self.start()
        window.pass_onboarding(self.machine.drive)
        window.back_up()
        personal_files = str(self.machine.personal_files())
        labels = window.labels()
        for text in ("Backup Complete", "Files Copied", str(len(expected.files)), "Data Copied",
                     decimal_size(expected.bytes_copied), "Skipped", str(expected.skipped),
                     "Files backed up to:", personal_files):
            self.assertIn(text, labels)
        window.button("Open Personal Files in Finder")
        window.button("View Full Report").press()
        window.label("Backup Report")
        labels = window.labels()
        for text in ("Files Copied", "Data Copied", "Duration", "Skipped", "Source Folders",
                     str(self.machine.home / "Documents"), "Backup Location"):
            self.assertIn(text, labels)

    def test_a_second_run_takes_what_changed_and_removes_nothing(self):
        window = self.start()
        window.pass_onboarding(self.machine.drive)
        window.back_up()
        gone = self.machine.home / "Documents/Letters/Letter to Grandma.docx"
        kept = self.machine.personal_files() / "Documents/Letters/Letter to Grandma.docx"
        content = gone.read_bytes()
        gone.unlink()
        (self.machine.home / "Desktop/To do.txt").write_text("Nothing\n", encoding="utf-8")
        (self.machine.home / "Desktop/New.txt").write_text("New\n", encoding="utf-8")
        # Reports are named by the second in which their run starts.
        first_second = self.machine.reports()[0].stem
        time.sleep(1.1)
        expected = self.machine.expected_backup(FOLDERS)
        window.back_up()
        self.assertEqual(expected.differences(self.machine.personal_files()),
                         ["unexpected: Documents/Letters/Letter to Grandma.docx"])
        self.assertEqual(kept.read_bytes(), content)
        reports = self.machine.reports()
        self.assertEqual(len(reports), 2)
        self.assertEqual(reports[0].stem, first_second)
        self.assertEqual(read_json(reports[1])["filesCopied"], len(expected.files))
        self.assertEqual(len(self.machine.activity()), 2)

    def test_continues_after_a_file_that_can_not_be_copied(self):
        pipe = self.machine.home / "Documents/pipe"
        os.mkfifo(pipe)
        expected = self.machine.expected_backup(FOLDERS)
        del expected.files[pipe.relative_to(self.machine.home)]
        window = self.start()
        window.pass_onboarding(self.machine.drive)
        window.back_up()
        window.label("Backup Finished with Warnings")
        self.assertEqual(expected.differences(self.machine.personal_files()), [])
        [line] = self.machine.config()["lastReport"]["errors"]
        self.assertTrue(line.startswith("Skip pipe: "), line)
        window.button("View Full Report").press()
        window.label("Skipped Files (1)")
        window.label(line)
        window.go_to("Dashboard")
        window.label("Attention")
        window.label("Backup completed with warnings")
        window.label("1 file(s) were skipped. View the report for details.")
        self.assertEqual(self.machine.activity()[0]["title"], "Backup completed with warnings")


class LongRun(Scenario):
    """A run that is in the middle of many files until the drive with the last of them answers."""

    FILES = 10_000

    def setUp(self):
        super().setUp()
        many, first = self.machine.home / "Documents/Many", None
        for number in range(self.FILES):
            file = many / f"{number // 1000:03}" / f"{number:05}.txt"
            if number % 1000 == 0:
                file.parent.mkdir(parents=True)
                file.write_bytes(b"%05d" % number * 20)
                first = file
            else:  # hard links, because a run takes its time by the number of names
                os.link(first, file)
        self.drive = HeldDrive(self, self.machine.home / FOLDERS[-1] / "Scans")
        for number in range(100):
            (self.drive.folder / f"Scan {number}.txt").write_bytes(b"%05d" % number * 20)

    def start_run(self):
        """Starts a run that can't end before the drive is released."""
        window = self.start()
        window.pass_onboarding(self.machine.drive)
        window.confirm_backup()
        return window

    def has_begun(self):
        return any(self.machine.drive.glob("Keelbright/*/Latest/Personal Files/Documents/Many/*"))

    def assert_whole_part(self):
        """Asserts that every file on the drive is a whole copy, and that no temporary file is left."""
        expected = self.machine.expected_backup(FOLDERS)
        differences = expected.differences(self.machine.personal_files())
        self.assertEqual([line for line in differences if not line.startswith("missing: ")], [])
        self.assertGreater(len(differences), 0, "the run was over before it was stopped")
        for path in (self.machine.device_folder()).rglob("*"):
            self.assertFalse(path.name.endswith(".tmp") and stat.S_ISREG(path.lstat().st_mode), path)

    def test_cancelling_stops_before_the_next_file(self):
        window = self.start_run()
        wait_until(self.drive.has_a_reader, "the run does not get to the drive")
        window.button("Cancel Backup").press()
        window.label("Cancelling...")
        self.drive.release()
        window.button("View Full Report")
        window.label("Backup Complete")
        self.assert_whole_part()
        report = self.machine.config()["lastReport"]
        self.assertLess(report["filesCopied"], len(self.machine.expected_backup(FOLDERS).files))
        self.assertEqual(report["errors"], [])
        self.assertEqual(read_json(self.machine.reports()[0]), report)
        self.assertTrue((self.machine.device_folder() / "Latest/recovery-manifest.json").exists())
        self.assertEqual(self.machine.activity()[0]["itemCount"], report["filesCopied"])

    def test_continues_while_other_screens_are_shown(self):
        window = self.start_run()
        window.label("Backing up to Backup Drive")
        window.go_to("Dashboard")
        window.label("Backing Up…")
        window.go_to("Protected Items")
        window.label("Choose What to Protect")
        window.go_to("Dashboard")
        self.drive.release()
        window.find("push button", "Backup Now", 60)
        self.assertEqual(self.machine.expected_backup(FOLDERS).differences(self.machine.personal_files()), [])

    def test_closing_the_window_asks_once(self):
        window = self.start_run()
        window.label("Backing up to Backup Drive")
        window.screen.ask_to_close(WINDOW)
        question = window.find("dialog", "Stop the backup?")
        question.label("A backup is running. If you stop now, everything copied so far stays on the destination, "
                       "and the rest is copied the next time.")
        window.screen.ask_to_close(WINDOW)
        question.button("Keep going").press()
        window.wait_gone("dialog", "Stop the backup?")
        self.assertIsNone(window.process.poll(), "the program goes on")
        window.screen.ask_to_close(WINDOW)
        window.answer("Stop the backup?", "Stop")
        self.drive.release()
        self.assertEqual(window.wait_for_end(), 0, window.output())
        self.assert_whole_part()

    def test_no_half_file_is_left_by_a_kill(self):
        window = self.start_run()
        wait_until(self.has_begun, "nothing is copied")
        window.process.kill()
        self.drive.release()  # what waits for a drive does not end before it has its answer
        window.process.wait()
        self.assert_whole_part()

    def test_a_request_to_end_stops_the_run_and_the_next_one_finishes_it(self):
        window = self.start_run()
        config = self.machine.config()
        wait_until(self.has_begun, "nothing is copied")
        window.process.terminate()
        self.assertEqual(window.wait_for_end(), 0, window.output())
        self.drive.release()
        self.assert_whole_part()
        self.assertEqual(self.machine.config(), config)
        window = self.start()
        window.pass_onboarding()
        window.confirm_backup()
        window.find("push button", "View Full Report", 60)
        self.assertEqual(self.machine.expected_backup(FOLDERS).differences(self.machine.personal_files()), [])
