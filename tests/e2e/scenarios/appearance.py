from desktop import Desktop
from keelbright import WINDOW
from scenario import Scenario
from window import wait_until


class Appearance(Scenario):
    def background(self):
        """The brightness of the window's background, from 0 to 255."""
        return max(self.window.screen.colour(WINDOW, 60, 400))

    def test_follows_the_desktop_while_it_runs(self):
        desktop = Desktop("dark")
        self.addCleanup(desktop.leave)
        window = self.start()
        window.button("Continue")
        wait_until(lambda: self.background() < 60, "the window never turns dark")
        desktop.set_scheme("light")
        wait_until(lambda: self.background() > 230, "the window never turns light")
        desktop.set_scheme("dark")
        wait_until(lambda: self.background() < 60, "the window never turns dark again")


class Language(Scenario):
    def test_is_the_users(self):
        self.machine.variables["LANGUAGE"] = "de_AT:en"
        window = self.start()
        window.button("Weiter").press()
        window.label("Wählen Sie ein Backup-Ziel")
        window.button("Zurück")

    def test_is_english_where_the_user_prefers_it(self):
        self.machine.variables["LANGUAGE"] = "en_GB:de"
        window = self.start()
        window.button("Continue").press()
        window.label("Choose a Backup Destination")
