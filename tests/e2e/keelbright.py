"""The steps through the program's window that scenarios and the tour share."""

from window import Program

WINDOW = "Keel Bright"
CHOOSE_DESTINATION = ("Select a folder or external drive to store your backups.", "Choose Backup Destination")
CHOOSE_FOLDER = ("Select folders to protect.", "Add Folder")


class KeelBright(Program):
    """The program, from its first window on."""

    def pass_welcome(self):
        self.button("Continue").press()
        self.label("Choose a Backup Destination")

    def choose_destination(self, button, path):
        """Presses the button of that name and answers the chooser that it opens."""
        self.button(button).press()
        self.choose_folder(*CHOOSE_DESTINATION, str(path))

    def pass_onboarding(self, destination=None):
        self.pass_welcome()
        if destination is not None:
            self.choose_destination("Choose Destination…", destination)
            self.button(destination.name)
        self.button("Get Started").press()
        self.find("list", "Screens")

    def go_to(self, screen):
        """Clicks a row of the sidebar."""
        self.find("list", "Screens").find("list item", screen).click()

    def confirm_backup(self):
        """From any screen to a run that is under way."""
        self.go_to("Dashboard")
        self.button("Backup Now").press()
        self.label("Preflight Check")
        self.button("Confirm & Start").press()

    def back_up(self):
        """A whole run, until its result shows."""
        self.confirm_backup()
        self.button("View Full Report")

    def leave(self):
        """Closes the window as its user does; gives the exit code."""
        self.screen.ask_to_close(WINDOW)
        return self.wait_for_end()
