"""The settings portal, by which a desktop announces its colour scheme to programs.

Runs as a separate process on the session bus and reads the scheme from its standard input, "light" or
"dark" on each line."""

import subprocess
import sys

from gi.repository import Gio, GLib

NAME = "org.freedesktop.portal.Desktop"
PATH = "/org/freedesktop/portal/desktop"
INTERFACE = "org.freedesktop.portal.Settings"
NAMESPACE, KEY = "org.freedesktop.appearance", "color-scheme"
SCHEMES = {"dark": 1, "light": 2}
DESCRIPTION = """<node><interface name="org.freedesktop.portal.Settings">
  <method name="Read"><arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="v" direction="out"/></method>
  <signal name="SettingChanged"><arg type="s"/><arg type="s"/><arg type="v"/></signal>
</interface></node>"""


class Desktop:
    """Starts and controls the portal's process for scenarios."""

    def __init__(self, scheme="light"):
        # pylint: disable=consider-using-with
        self.process = subprocess.Popen([sys.executable, __file__, scheme], stdin=subprocess.PIPE,
                                        stdout=subprocess.PIPE, text=True)
        assert self.process.stdout.readline() == "ready\n"

    def set_scheme(self, scheme):
        self.process.stdin.write(scheme + "\n")
        self.process.stdin.flush()

    def leave(self):
        self.process.stdin.close()
        self.process.stdout.close()
        self.process.wait(10)


def serve(scheme):
    loop = GLib.MainLoop()
    bus = Gio.bus_get_sync(Gio.BusType.SESSION)
    now = {"scheme": scheme}

    def answer(_bus, _sender, _path, _interface, _method, arguments, invocation):
        if arguments.unpack() == (NAMESPACE, KEY):
            # This older method wraps the value twice, as desktops do.
            value = GLib.Variant("v", GLib.Variant("u", SCHEMES[now["scheme"]]))
            invocation.return_value(GLib.Variant.new_tuple(value))
        else:
            invocation.return_dbus_error("org.freedesktop.portal.Error.NotFound", "no such setting")

    def take(channel, _condition):
        line = channel.readline()
        if not line:
            loop.quit()
            return False
        now["scheme"] = line.strip()
        value = GLib.Variant("(ssv)", (NAMESPACE, KEY, GLib.Variant("u", SCHEMES[now["scheme"]])))
        bus.emit_signal(None, PATH, INTERFACE, "SettingChanged", value)
        return True

    def report_ready(*_):
        print("ready", flush=True)

    interface = Gio.DBusNodeInfo.new_for_xml(DESCRIPTION).interfaces[0]
    bus.register_object(PATH, interface, answer, None, None)
    Gio.bus_own_name_on_connection(bus, NAME, Gio.BusNameOwnerFlags.NONE, report_ready, None)
    GLib.io_add_watch(sys.stdin, GLib.PRIORITY_DEFAULT, GLib.IO_IN | GLib.IO_HUP, take)
    loop.run()


if __name__ == "__main__":
    serve(sys.argv[1])
