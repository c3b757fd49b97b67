import os
import subprocess

from dbusmock import MOCK_IFACE, DBusTestCase
from held_drive import HeldDrive
from keelbright import WINDOW
from scenario import Scenario
from window import wait_until

LOGIND = "org.freedesktop.login1.Manager"
PORTAL = "org.freedesktop.portal.Desktop"
PORTAL_PATH = "/org/freedesktop/portal/desktop"
REQUEST_PATH = PORTAL_PATH + "/request/1"
NOTIFICATIONS = "org.freedesktop.Notifications"


def locks_of(logind):
    return [tuple(map(str, lock[:4])) for lock in logind.ListInhibitors(dbus_interface=LOGIND)]


def calls_of(service, method):
    """The arguments of each call of the method, oldest first."""
    return [tuple(arguments) for _, arguments in service.GetMethodCalls(method, dbus_interface=MOCK_IFACE)]


class DesktopServices(Scenario):
    """What the program asks of a desktop's services, which python3-dbusmock plays."""

    @classmethod
    def setUpClass(cls):
        DBusTestCase.start_system_bus()
        cls.addClassCleanup(DBusTestCase.tearDownClass)

    def setUp(self):
        super().setUp()
        self.machine.variables = {"DBUS_SYSTEM_BUS_ADDRESS": os.environ["DBUS_SYSTEM_BUS_ADDRESS"]}
        self.logind = None
        self.drive = None

    def end_with_the_test(self, process):
        self.addCleanup(process.wait)
        self.addCleanup(process.terminate)

    def play(self, template):
        """Starts the service of that template; gives its object."""
        process, service = DBusTestCase.spawn_server_template(template, {}, stdout=subprocess.DEVNULL)
        self.end_with_the_test(process)
        return service

    def play_portal(self):
        """Starts a portal that grants whatever it is asked for; gives itself and what it has granted."""
        self.end_with_the_test(DBusTestCase.spawn_server(PORTAL, PORTAL_PATH, "org.freedesktop.portal.Inhibit",
                                                         stdout=subprocess.DEVNULL))
        bus = DBusTestCase.get_dbus()
        portal = bus.get_object(PORTAL, PORTAL_PATH)
        portal.AddMethod("", "Inhibit", "sua{sv}", "o", f"ret = dbus.ObjectPath('{REQUEST_PATH}')",
                         dbus_interface=MOCK_IFACE)
        portal.AddObject(REQUEST_PATH, "org.freedesktop.portal.Request", {}, [("Close", "", "", "")],
                         dbus_interface=MOCK_IFACE)
        return portal, bus.get_object(PORTAL, REQUEST_PATH)

    def start_run(self):
        """Starts a run that can't end before the drive with some of its files is released."""
        self.drive = HeldDrive(self, self.machine.home / "Pictures/Scans")
        (self.drive.folder / "Scan.txt").write_bytes(b"scanned")
        window = self.start()
        window.pass_onboarding(self.machine.drive)
        self.assertEqual(locks_of(self.logind), [])
        window.confirm_backup()
        wait_until(lambda: len(locks_of(self.logind)) == 1, "logind is not asked")
        return window

    def test_a_run_keeps_the_computer_awake_until_its_end(self):
        self.logind = self.play("logind")
        portal, granted = self.play_portal()
        window = self.start_run()
        [(what, who, why, mode)] = locks_of(self.logind)
        self.assertEqual((what, who, mode), ("sleep", "Keel Bright", "block"))
        wait_until(lambda: len(calls_of(portal, "Inhibit")) == 1, "the portal is not asked")
        [(_, flags, options)] = calls_of(portal, "Inhibit")
        self.assertEqual((int(flags), str(options["reason"])), (4, why), "suspend only")
        self.assertEqual(calls_of(granted, "Close"), [])
        self.drive.release()
        window.button("View Full Report")
        wait_until(lambda: locks_of(self.logind) == [], "logind's lock is left")
        wait_until(lambda: len(calls_of(granted, "Close")) == 1, "what the portal has granted is left")

    def test_a_crash_lets_the_computer_sleep_again(self):
        self.logind = self.play("logind")
        window = self.start_run()
        window.process.kill()
        self.drive.release()  # what waits for a drive does not end before it has its answer
        window.process.wait()
        wait_until(lambda: locks_of(self.logind) == [], "logind's lock is left")

    def test_the_end_of_a_run_is_notified_where_the_window_is_not_in_front(self):
        service = self.play("notification_daemon")

        window = self.start()
        window.pass_onboarding(self.machine.drive)
        window.screen.focus(WINDOW)
        window.back_up()
        self.assertEqual(calls_of(service, "Notify"), [], "who looks at the window is not notified")
        window.check_before_backup()
        window.screen.take_focus_away()
        window.button("Confirm & Start").press()
        wait_until(lambda: len(calls_of(service, "Notify")) == 1, "nothing is notified")
        [(program, _, icon, title, text, actions, _, _)] = calls_of(service, "Notify")
        self.assertEqual((program, icon, title, actions[0]),
                         ("Keel Bright", "keelbright", "Backup completed", "default"))
        self.assertRegex(text, r"^[0-9.,]+ files · [0-9.,]+ [KMG]B$")
        service.EmitSignal(NOTIFICATIONS, "ActionInvoked", "us", [1, "default"], dbus_interface=MOCK_IFACE)
        window.label("Backup Report")
