from keelbright import CHOOSE_DESTINATION
from scenario import Scenario


class Onboarding(Scenario):
    def test_shows_what_the_program_does(self):
        window = self.start()
        for text in ("Keel Bright",
                     "A calm, minimal backup for your personal Mac environment.",
                     "Personal files",
                     "Desktop, Documents, Pictures — copied cleanly to your backup drive.",
                     "Developer setup metadata",
                     "Dotfile presence, shell info, and installed app names saved in a recovery manifest.",
                     "Storage browser",
                     "See exactly what's taking up space in your backup, folder by folder."):
            window.label(text)
        self.assertIsNone(window.seen("push button", "Back"))
        window.button("Continue").press()
        for text in ("Choose a Backup Destination",
                     "Select an external drive or a local folder. Keel Bright will create a readable folder "
                     "structure inside.",
                     "You can change this later in Settings."):
            window.label(text)
        self.assertIsNone(window.seen("push button", "Continue"))

    def test_can_be_passed_without_a_destination(self):
        window = self.start()
        window.pass_onboarding()
        self.assertEqual(window.find("list", "Screens").all("list item")[0].name, "Dashboard")
        self.leave()
        self.assertNotIn("selectedDestination", self.machine.config())

    def test_goes_back_and_keeps_the_destination(self):
        window = self.start()
        window.pass_welcome()
        window.choose_destination("Choose Destination…", self.machine.drive)
        window.button("Backup Drive")
        window.button("Back").press()
        window.label("Personal files")
        window.wait_gone("push button", "Back")
        window.button("Continue").press()
        window.button("Backup Drive")
        self.assertEqual(self.machine.config()["selectedDestination"]["url"],
                         self.machine.drive.as_uri())

    def test_a_dismissed_chooser_changes_nothing(self):
        window = self.start()
        window.pass_welcome()
        window.button("Choose Destination…").press()
        window.window(CHOOSE_DESTINATION[0]).button("Cancel").press()
        window.wait_gone("dialog", CHOOSE_DESTINATION[0])
        window.button("Choose Destination…")
        self.assertNotIn("selectedDestination", self.machine.config())

    def test_works_from_the_keyboard(self):
        window = self.start()
        window.keys("Keel Bright", "Return")
        window.label("Choose a Backup Destination")
        window.keys("Keel Bright", "Return")
        window.find("list", "Screens")
