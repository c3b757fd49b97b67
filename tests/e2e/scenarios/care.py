"""The junk cleaner and the storage browser, which move files to the Trash."""

import re

from keelbright import WINDOW
from scenario import Scenario
from window import wait_until

ADD_TO_BACKUP, TRASH = 0, 3  # in the menu of a folder


class JunkCleaner(Scenario):
    def setUp(self):
        super().setUp()
        self.logs = self.machine.home / "Library/Logs"

    def open_log_files(self):
        window = self.start()
        window.pass_onboarding()
        window.go_to("Dashboard")
        window.button("Quick Clean").press()
        window.choose_row("Log Files")
        window.row("DiagnosticReports")
        window.label("2 items · 17 MB total")
        return window

    def test_moves_what_is_ticked_to_the_trash_after_asking(self):
        window = self.open_log_files()
        window.label("Nothing selected")
        self.assertFalse(window.button("Move to Trash").is_enabled)
        window.choose_row("Sketchbook")
        window.keys(WINDOW, "space")
        window.label("1 item selected")
        window.button("Move to Trash").press()
        question = window.find("dialog", "Move 1 item to Trash?")
        question.label("Selected junk (3 MB) will be moved to Trash. Nothing is permanently deleted — you can restore "
                       "from Trash if needed.")
        window.answer("Move 1 item to Trash?", "Cancel")
        self.assertTrue((self.logs / "Sketchbook").exists())
        window.button("Move to Trash").press()
        window.answer("Move 1 item to Trash?", "Move to Trash")
        window.wait_row_gone("Sketchbook")
        window.label("Nothing selected")
        self.assertFalse((self.logs / "Sketchbook").exists())
        self.assertTrue((self.logs / "DiagnosticReports").exists())
        self.assertEqual(self.machine.trashed(), ["Sketchbook"])
        [entry] = self.machine.activity()
        self.assertEqual((entry["kind"], entry["title"], entry["itemCount"], entry["bytesAffected"]),
                         ("Junk Clean", "Junk files moved to Trash", 1, 3_000_000))

    def test_takes_a_whole_category_and_everything(self):
        window = self.open_log_files()
        of_category, of_all = window.all("push button", "Select All")
        of_category.press()
        window.label("2 items selected")
        window.label("17 MB")
        window.all("push button", "Deselect All")[1].press()
        window.label("Nothing selected")
        of_all.press()
        wait_until(lambda: [text for text in window.labels() if text.endswith(" items selected")], "nothing is selected")


class StorageBrowser(Scenario):
    def setUp(self):
        super().setUp()
        self.lofoten = self.machine.home / "Pictures/Lofoten 2024"

    def open(self):
        window = self.start()
        window.pass_onboarding()
        window.go_to("Storage Browser")
        window.label("Choose a Folder to Explore")
        return window

    def make_three_levels(self):
        deep = self.machine.home / "Pictures/Lofoten 2024/Day one"
        deep.mkdir()
        # Large enough for a cell of its own at every level.
        with (deep / "Evening.jpg").open("wb") as photograph:
            photograph.truncate(6_000_000_000)

    def test_walks_three_levels_down_and_back_in_the_list(self):
        self.make_three_levels()
        window = self.open()
        window.button("Home").press()
        window.choose_row("Pictures")
        window.choose_row("Lofoten 2024")
        window.choose_row("Day one")
        window.row("Evening.jpg")
        window.button("Back").press()
        window.row("IMG_4123.jpg")
        _shortcut, crumb = window.all("push button", "Pictures")
        crumb.press()
        window.row("Wedding")
        window.button("Back").press()
        window.row("Documents")
        self.assertFalse(window.button("Back").is_enabled)

    def test_walks_three_levels_down_and_back_in_the_treemap(self):
        self.make_three_levels()
        window = self.open()
        window.button("Home").press()
        window.row("Pictures")
        window.find("radio button", "Treemap").press()
        window.wait_gone("list", "Entries")
        down = ("Pictures", "Lofoten 2024", "Day one")
        for folder in down:
            window.choose_row(folder)
        window.row("Evening.jpg")
        for folder in reversed(down):
            window.button("Back").press()
            window.row(folder)
        self.assertFalse(window.button("Back").is_enabled)

    def test_walks_three_levels_back_among_the_largest_files(self):
        self.make_three_levels()
        window = self.open()
        window.button("Home").press()
        for folder in ("Pictures", "Lofoten 2024", "Day one"):
            window.choose_row(folder)
        window.row("Evening.jpg")
        window.find("radio button", "Largest Files").press()
        window.label("Top 1 largest files in Day one")
        # The list stays on the way back, and is made again when it is asked for.
        for folder in ("Lofoten 2024", "Pictures", self.machine.home.name):
            window.button("Back").press()
            window.label(f"Top 1 largest files in {folder}")
        self.assertFalse(window.button("Back").is_enabled)
        window.find("radio button", "List").press()
        window.find("radio button", "Largest Files").press()
        again = re.compile(rf"Top \d\d largest files in {self.machine.home.name}")
        wait_until(lambda: [text for text in window.labels() if again.fullmatch(text)],
                   "the list is not made again")

    def test_shows_a_folder_in_three_ways(self):
        window = self.open()
        window.button("Pictures").press()
        window.row("Lofoten 2024")
        window.find("radio button", "Treemap").press()
        window.row("Wedding, 350 KB")
        window.find("radio button", "Largest Files").press()
        window.row("1")
        window.find("radio button", "List").press()
        window.row("Lofoten 2024")

    def test_moves_an_entry_to_the_trash(self):
        window = self.open()
        window.button("Pictures").press()
        window.choose_in_row("Wedding", TRASH)
        question = window.find("dialog", 'Move "Wedding" to Trash?')
        question.label("This cannot be undone from here. You can recover it from the Trash.")
        window.answer('Move "Wedding" to Trash?', "Cancel")
        self.assertTrue((self.machine.home / "Pictures/Wedding").exists())
        window.choose_in_row("Wedding", TRASH)
        window.answer('Move "Wedding" to Trash?', "Move to Trash")
        window.wait_row_gone("Wedding")
        self.assertEqual(self.machine.trashed(), ["Wedding"])

    def test_moves_a_large_file_to_the_trash(self):
        window = self.open()
        window.button("Downloads").press()
        window.row("ubuntu.ISO")
        window.find("radio button", "Largest Files").press()
        window.label("Top 5 largest files in Downloads")
        window.find("list", "Largest files").all("list item")[0].click()
        window.button("Move to Trash").press()
        window.answer('Move "ubuntu.ISO" to Trash?', "Move to Trash")
        wait_until(lambda: not (self.machine.home / "Downloads/ubuntu.ISO").exists(), "the file stays")
        self.assertEqual(self.machine.trashed(), ["ubuntu.ISO"])

    def test_adds_a_folder_to_the_backup(self):
        window = self.open()
        window.button("Pictures").press()
        window.choose_in_row("Wedding", ADD_TO_BACKUP)
        wait_until(lambda: self.machine.config()["customSources"], "no source is added")
        [source] = self.machine.config()["customSources"]
        self.assertEqual(source["url"].rstrip("/"), (self.machine.home / "Pictures/Wedding").as_uri())

    def test_hands_a_folder_to_the_organizer(self):
        window = self.open()
        window.button("Downloads").press()
        window.row("ubuntu.ISO")
        window.button("Organise").press()
        window.label("Smart Organizer")
        window.button("Organise Now")
        window.label("5 files selected")
