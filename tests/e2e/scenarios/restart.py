import json

from keelbright import CHOOSE_FOLDER, WINDOW
from scenario import Scenario


class Restart(Scenario):
    def test_shows_the_onboarding_again_with_all_that_was_chosen(self):
        window = self.start()
        window.pass_onboarding(self.machine.drive)
        window.back_up()
        self.leave()

        window = self.start()
        window.label("A calm, minimal backup for your personal Mac environment.")
        window.pass_welcome()
        window.button("Backup Drive")
        window.button("Get Started").press()
        window.go_to("Backup Report")
        window.label("Files Copied")
        window.go_to("Settings")
        window.label("Backup Drive")
        window.label(str(self.machine.drive))

    def test_prints_where_it_looks_for_the_recommended_folders(self):
        self.start()
        home = self.machine.home
        self.leave()
        lines = self.window.output().splitlines()
        start = lines.index("--- Keel Bright Diagnostics ---")
        places = ["Desktop", "Documents", "Pictures", "Downloads", "Movies", "Music"]
        self.assertEqual(lines[start + 1:start + 7],
                         [f"Folder: {name}, Path: {home / name}, Exists: true" for name in places])
        self.assertEqual(lines[start + 7], f"Folder: Photos Library, Path: {home}/Pictures/"
                                           "Photos Library.photoslibrary, Exists: true")
        self.assertEqual(lines[start + 8], "-------------------------------")


    def test_opens_where_it_stood(self):
        self.start().button("Continue")
        self.leave()
        file = self.machine.support / "window.json"
        place = json.loads(file.read_text())
        self.assertEqual((place["width"], place["height"], place["isMaximized"]), (1180, 760, False))
        file.write_text(json.dumps({**place, "x": 120, "y": 90, "width": 900, "height": 650}))

        box = self.start().window(WINDOW).box
        self.assertEqual((box.x, box.y, box.width, box.height), (120, 90, 900, 650))
        self.leave()
        self.assertEqual(json.loads(file.read_text()),
                         {"x": 120, "y": 90, "width": 900, "height": 650, "isMaximized": False})

    def test_is_brought_back_from_a_screen_that_is_gone(self):
        self.machine.support.mkdir(parents=True, exist_ok=True)
        (self.machine.support / "window.json").write_text(
            json.dumps({"x": 3000, "y": 200, "width": 900, "height": 650, "isMaximized": False}))
        box = self.start().window(WINDOW).box
        self.assertEqual((box.x, box.y), (500, 200))


class SettingsWindow(Scenario):
    def test_opens_with_control_and_comma_and_closes_with_escape(self):
        window = self.start()
        window.pass_onboarding()
        window.keys("Keel Bright", "Control_L", "comma")
        settings = window.window("Settings")
        for text in ("Backup Destination", "No destination selected", "Protected Folders", "Desktop",
                     "Recommended", "About Keel Bright", "Version", "1.0.0", "Engine",
                     "Local file copy · FileManager", "Encryption", "Not enabled", "Cloud backup",
                     "Not available"):
            settings.label(text)
        window.keys("Settings", "Escape")
        window.wait_gone("dialog", "Settings")

    def test_shows_what_the_main_window_changes(self):
        extra = self.machine.home / "Extra"
        extra.mkdir()
        window = self.start()
        window.pass_onboarding()
        window.go_to("Settings")
        window.keys("Keel Bright", "Control_L", "comma")
        settings, main = window.window("Settings"), window.window("Keel Bright")
        settings.button("Change").press()
        window.choose_folder("Select a folder or external drive to store your backups.",
                             "Choose Backup Destination", str(self.machine.drive))
        settings.label(str(self.machine.drive))
        main.label(str(self.machine.drive))
        main.button("Add Custom Folder…").press()
        window.choose_folder(*CHOOSE_FOLDER, str(extra))
        settings.label("Extra")
        main.label("Extra")
        self.assertEqual([source["url"].rstrip("/") for source in self.machine.config()["customSources"]],
                         [extra.as_uri()])
