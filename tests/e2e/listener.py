"""What a screen reader gets from the accessibility bus.

Runs as a separate process, because a screen reader listens while the driver acts. It prints a line for
each event that Orca speaks of: "notice" for a notification that appears, "focus" for what takes the focus,
"ticked" for what is ticked, each with the name and the role that the program gives when asked. Events arrive in their order."""

import json
import queue
import subprocess
import sys
import threading
import time

import pyatspi
from gi.repository import GLib

KINDS = {"object:state-changed:showing": "notice", "object:state-changed:focused": "focus",
         "object:state-changed:checked": "ticked"}
PATIENCE = 20.0  # seconds


class Listener:
    """Starts the process and collects what it prints, for scenarios."""

    def __init__(self):
        # pylint: disable=consider-using-with
        self.process = subprocess.Popen([sys.executable, __file__], stdin=subprocess.PIPE,
                                        stdout=subprocess.PIPE, text=True)
        assert self.process.stdout.readline() == "ready\n"
        self.heard = []  # (kind, name, role) of every event so far
        self._lines = queue.Queue()
        threading.Thread(target=self._read, daemon=True).start()

    def _read(self):
        for line in self.process.stdout:
            self._lines.put(tuple(json.loads(line)))

    def collect(self, until, what):
        """Collects events until one fulfils the condition, and gives it; fails after a while."""
        deadline = time.monotonic() + PATIENCE
        while True:
            try:
                event = self._lines.get(timeout=max(0.0, deadline - time.monotonic()))
            except queue.Empty:
                raise AssertionError(f"{what} is never heard; there was {self.heard}") from None
            self.heard.append(event)
            if until(event):
                return event

    def wait_for_notice(self, text):
        self.collect(lambda event: event[:2] == ("notice", text), f"the notice “{text}”")

    def wait_for_focus(self, name):
        """Gives the role of what took the focus."""
        return self.collect(lambda event: event[:2] == ("focus", name), f"the focus on “{name}”")[2]

    def notices(self):
        return [name for kind, name, _ in self.heard if kind == "notice"]

    def leave(self):
        self.process.stdin.close()
        self.process.wait(10)
        self.process.stdout.close()


def report(event):
    if event.detail1 != 1:
        return
    try:
        kind, name = KINDS[str(event.type)], event.source.name
        if kind != "notice" or event.source.getRole() == pyatspi.ROLE_NOTIFICATION:
            print(json.dumps([kind, name, event.source.getRoleName()]), flush=True)
    except (LookupError, GLib.Error):
        pass  # it disappeared meanwhile


def listen():
    def end(*_):
        pyatspi.Registry.stop()
        return False

    pyatspi.Registry.registerEventListener(report, *KINDS)
    GLib.io_add_watch(sys.stdin, GLib.PRIORITY_DEFAULT, GLib.IO_HUP, end)
    print("ready", flush=True)
    pyatspi.Registry.start()


if __name__ == "__main__":
    listen()
