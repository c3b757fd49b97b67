"""Steps in the program's window, shared by the scenarios and the tour."""

from window import Program, wait_until

WINDOW = "Keel Bright"
CHOOSE_DESTINATION = ("Select a folder or external drive to store your backups.", "Choose Backup Destination")
CHOOSE_FOLDER = ("Select folders to protect.", "Add Folder")


class KeelBright(Program):
    """The running program."""

    def pass_welcome(self):
        self.button("Continue").press()
        self.label("Choose a Backup Destination")

    def choose_destination(self, button, path):
        """Presses the button with this name and answers the chooser that it opens."""
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

    # A row's accessible name consists of its texts and numbers and begins with its title.

    def row_seen(self, title):
        """A visible row, or None."""
        rows = (row for row in self.all("list item") if row.name == title or row.name.startswith(title + ", "))
        return next(rows, None)

    def row(self, title):
        return wait_until(lambda: self.row_seen(title), lambda: f"no row “{title}”; there is\n{self.outline()}")

    def wait_row_gone(self, title):
        wait_until(lambda: self.row_seen(title) is None, f"the row “{title}” does not disappear")

    def choose_row(self, title):
        self.row(title).click()

    # Popup menus are missing in the accessibility tree, so their entries are chosen by number, from 0.

    def choose_in_row(self, title, entry):
        """Chooses an entry of the row's context menu."""
        self.screen.focus(WINDOW)
        self.row(title).click(3)
        self.choose_entry(entry)

    def choose_from(self, menu, entry):
        """Opens a menu button and chooses an entry of it."""
        self.screen.focus(WINDOW)
        self.button(menu).press()
        self.choose_entry(entry)

    def choose_entry(self, entry):
        self.screen.wait_for_menu()
        for _ in range(entry + 1):
            self.screen.keys("Down")
        self.screen.keys("Return")

    def answer(self, question, button):
        """Answers a dialog and waits until it is gone."""
        dialog = self.find("dialog", question)
        dialog.button(button).press()
        self.wait_gone("dialog", question)

    def check_before_backup(self):
        """Goes to the check before a backup, from any screen."""
        self.go_to("Dashboard")
        self.button("Backup Now").press()
        self.label("Preflight Check")

    def confirm_backup(self):
        """Starts a backup from any screen."""
        self.check_before_backup()
        self.button("Confirm & Start").press()

    def back_up(self):
        """Runs a whole backup, until its result is shown."""
        self.confirm_backup()
        self.button("View Full Report")

    def leave(self):
        """Closes the window as a user does; gives the exit code."""
        self.screen.ask_to_close(WINDOW)
        return self.wait_for_end()
