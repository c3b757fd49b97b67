"""The junk cleaner and the application manager in the home of a Linux desktop."""

import os

from keelbright import WINDOW
from machine import LinuxMachine
from scenario import Scenario
from window import wait_until

MAKE_LINUX = os.environ["KEELBRIGHT_MAKE_LINUX"]


class LinuxHome(Scenario):
    @staticmethod
    def make_machine(folder):
        return LinuxMachine(folder, MAKE_LINUX)

    def start_at(self, screen):
        window = self.start()
        window.pass_onboarding()
        window.go_to(screen)
        return window

    def open_app(self, app, identifier, files):
        """The details of an application whose files have been found."""
        window = self.start_at("App Manager")
        window.label("5 of 5 apps")
        window.choose_row(app)
        window.label(identifier)
        window.label(f"Total: {files}")
        return window

    def test_lists_the_caches_and_moves_one_to_the_trash(self):
        window = self.start_at("Junk Cleaner")
        window.choose_row("Browser Caches")
        window.row("firefox")
        window.row("chromium")
        window.choose_row("User Caches")
        window.row("mesa_shader_cache")
        window.choose_row("thumbnails")
        window.keys(WINDOW, "space")
        window.label("1 item selected")
        window.button("Move to Trash").press()
        window.answer("Move 1 item to Trash?", "Move to Trash")
        window.wait_row_gone("thumbnails")
        window.label("Nothing selected")
        self.assertFalse((self.machine.home / ".cache/thumbnails").exists())
        self.assertTrue((self.machine.home / ".cache/mesa_shader_cache").exists())
        self.assertEqual(self.machine.trashed(), ["Drafts", "Old letter.odt", "thumbnails"])
        [entry] = self.machine.activity()
        self.assertEqual((entry["kind"], entry["itemCount"], entry["bytesAffected"]), ("Junk Clean", 1, 84_060_000))

    def test_moves_an_own_application_with_its_files_to_the_trash(self):
        window = self.open_app("Tide Table", "tidetable", "50 MB")
        window.button("Remove…").press()
        question = window.window('Remove "Tide Table"?')
        question.label("Associated files (50 MB) will also be moved to Trash.")
        question.button("Move App + Files to Trash").press()
        window.label("4 of 4 apps")
        window.label("Select an app to see details")
        home = self.machine.home
        for gone in (".local/share/applications/tidetable.desktop", ".config/tidetable", ".local/share/tidetable",
                     ".cache/tidetable"):
            self.assertFalse((home / gone).exists(), gone)
        self.assertTrue((home / ".local/share/applications/appimagekit_0a1b-Krita.desktop").exists())
        self.assertIn("tidetable.desktop", self.machine.trashed())
        self.assertEqual(len(self.machine.trashed()), 2 + 4)
        entry = self.machine.activity()[0]
        self.assertEqual((entry["title"], entry["detail"], entry["itemCount"]),
                         ("Tide Table removed", "App + 3 leftover files moved to Trash", 4))

    def test_names_the_command_for_an_application_of_a_package(self):
        window = self.open_app("Maps", "org.gnome.Maps", "27 MB")
        window.button("Remove…").press()
        question = window.window('Remove "Maps"?')
        said = ("The app belongs to a package. This command removes it: flatpak uninstall org.gnome.Maps "
                "Associated files (27 MB) can be moved to Trash.")
        wait_until(lambda: said in (" ".join(text.split()) for text in question.labels()),
                   lambda: f"no such question; there is\n{question.outline()}")
        question.button("Move Files to Trash").press()
        window.label("No leftover files found.")
        window.label("5 of 5 apps")
        self.assertFalse((self.machine.home / ".var/app/org.gnome.Maps").exists())
        self.assertTrue((self.machine.root / "var/lib/flatpak/app/org.gnome.Maps/current").exists())
        self.assertEqual(self.machine.trashed(), ["Drafts", "Old letter.odt", "org.gnome.Maps"])
