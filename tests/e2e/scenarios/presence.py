import subprocess

from gi.repository import Gio, GLib
from scenario import PROGRAM, Scenario


class Presence(Scenario):
    def test_the_session_bus_opens_a_screen(self):
        window = self.start()
        window.pass_onboarding()
        bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        arguments = GLib.Variant("(sava{sv})", ("storage-browser", [], {}))
        bus.call_sync("com.keelbright.keelbright", "/com/keelbright/keelbright", "org.freedesktop.Application",
                      "ActivateAction", arguments, None, Gio.DBusCallFlags.NO_AUTO_START, 10_000)
        window.label("Storage Browser")

    def test_a_menu_entry_leads_to_the_check_before_a_backup(self):
        window = self.start()
        second = subprocess.run([PROGRAM, "--back-up-now"], env=self.machine.environment(), check=True,
                                capture_output=True, text=True, timeout=60)
        self.assertEqual(second.stdout + second.stderr, "")
        window.label("A calm, minimal backup for your personal Mac environment.")
        window.pass_onboarding(self.machine.drive)
        window.label("Preflight Check")
        window.button("Cancel").press()
        self.assertFalse((self.machine.drive / "Keelbright").exists())
