"""Drives the window of a program as a person with a screen reader, a keyboard and a mouse does: everything
is found by its role and its accessible name."""

import os
import subprocess
import time

import pyatspi
from gi.repository import GLib
from Xlib import X, XK, Xatom, display, error
from Xlib.ext import xtest
from Xlib.protocol import event as protocol

PATIENCE = 20.0  # seconds to wait for something before it counts as missing
PAUSE = 0.03


class Missing(AssertionError):
    """Something did not appear in time; the message says what was there instead."""


def wait_until(condition, what, patience=PATIENCE):
    """Gives the first true value of `condition`, or fails with `what` (a text or a function that gives one)."""
    deadline = time.monotonic() + patience
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > deadline:
            raise Missing(what() if callable(what) else what)
        time.sleep(PAUSE)


def role_of(accessible):
    role = accessible.getRoleName()
    return "push button" if role == "button" else role  # its name from AT-SPI 2.53 on


class Element:
    """One element of the accessibility tree."""

    def __init__(self, program, accessible):
        self.program = program
        self.accessible = accessible

    def __repr__(self):
        return f"{self.role} “{self.name}”"

    @property
    def name(self):
        return self.accessible.name

    @property
    def role(self):
        return role_of(self.accessible)

    @property
    def description(self):
        return self.accessible.description

    @property
    def text(self):
        content = self.accessible.queryText()
        return content.getText(0, content.characterCount)

    @property
    def value(self):
        """None where the element has just disappeared."""
        try:
            return self.accessible.queryValue().currentValue
        except (NotImplementedError, LookupError, GLib.Error):
            return None

    def has(self, state):
        return self.accessible.getState().contains(state)

    @property
    def is_enabled(self):
        return self.has(pyatspi.STATE_ENABLED)

    @property
    def is_checked(self):
        return self.has(pyatspi.STATE_CHECKED)

    @property
    def is_focused(self):
        return self.has(pyatspi.STATE_FOCUSED)

    def press(self):
        """Runs the first action of the element, once it is enabled."""
        wait_until(lambda: self.is_enabled, f"{self} is never enabled")
        assert self.accessible.queryAction().doAction(0), f"{self} can't be pressed"

    def write(self, text):
        assert self.accessible.queryEditableText().setTextContents(text), f"{self} takes no text"
        wait_until(lambda: self.text == text, lambda: f"{self} shows {self.text!r} instead of {text!r}")

    @property
    def box(self):
        """Its rectangle on the screen."""
        return self.accessible.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)

    @property
    def middle(self):
        box = self.box
        return box.x + box.width // 2, box.y + box.height // 2

    def click(self, button=1):
        """Clicks its middle with the mouse, once it no longer moves; 3 is the right button."""
        seen = []

        def rests():
            seen.append(self.middle)
            return len(seen) > 3 and len(set(seen[-4:])) == 1
        wait_until(rests, f"{self} does not come to rest")
        self.program.screen.click(*seen[-1], button)

    # Searches below this element, only among visible elements.

    def all(self, role=None, name=None):
        return [element for element, its_role, its_name in self._walk()
                if role in (None, its_role) and name in (None, its_name)]

    def seen(self, role, name=None):
        """The element if it is visible now, else None."""
        found = self.all(role, name)
        return found[0] if found else None

    def find(self, role, name=None, patience=PATIENCE):
        """Waits for the element."""
        return wait_until(lambda: self.seen(role, name),
                          lambda: f"no {role} “{name or ''}”; there is\n{self.outline()}", patience)

    def wait_gone(self, role, name, patience=PATIENCE):
        wait_until(lambda: self.seen(role, name) is None, f"{role} “{name}” does not disappear", patience)

    def button(self, name):
        return self.find("push button", name)

    def label(self, name):
        return self.find("label", name)

    def labels(self):
        return [name for _, role, name in self._walk() if role == "label"]

    def outline(self):
        return "\n".join(f"  {role} “{name}”" for _, role, name in self._walk() if name)

    def _walk(self):
        """Each visible element with its role and name, except elements that disappear meanwhile."""
        pending = [self.accessible]
        while pending:
            accessible = pending.pop()
            try:
                if accessible is not self.accessible and not accessible.getState().contains(pyatspi.STATE_SHOWING):
                    continue
                role, name = role_of(accessible), accessible.name
                children = [child for child in accessible if child is not None]
            except (LookupError, ValueError, GLib.Error):
                continue
            yield Element(self.program, accessible), role, name
            pending += reversed(children)


class Screen:
    """The X screen: keys, mouse, windows, pictures."""

    def __init__(self):
        self.display = display.Display()
        self.root = self.display.screen().root

    def keys(self, *names):
        """Presses the keys together, as in keys("Control_L", "comma")."""
        codes = [self.display.keysym_to_keycode(XK.string_to_keysym(name)) for name in names]
        for code in codes:
            xtest.fake_input(self.display, X.KeyPress, code)
        for code in reversed(codes):
            xtest.fake_input(self.display, X.KeyRelease, code)
        self.display.sync()

    def click(self, x, y, button=1):
        xtest.fake_input(self.display, X.MotionNotify, x=x, y=y)
        xtest.fake_input(self.display, X.ButtonPress, button)
        xtest.fake_input(self.display, X.ButtonRelease, button)
        self.display.sync()

    # No window manager runs here, so the driver gives windows the focus and asks them to close.

    def focus(self, title):
        self._window(title).set_input_focus(X.RevertToPointerRoot, X.CurrentTime)
        self.display.sync()

    def take_focus_away(self):
        """As another program's window does that comes to the front."""
        self.display.set_input_focus(X.NONE, X.RevertToNone, X.CurrentTime)
        self.display.sync()

    def ask_to_close(self, title):
        """Sends what a desktop sends when the close button of a window is clicked."""
        window = self._window(title)
        protocols = self.display.intern_atom("WM_PROTOCOLS")
        delete = self.display.intern_atom("WM_DELETE_WINDOW")
        window.send_event(protocol.ClientMessage(window=window, client_type=protocols,
                                                 data=(32, [delete, X.CurrentTime, 0, 0, 0])))
        self.display.sync()

    def wait_for_menu(self):
        """Until a menu is up, which takes all keys then."""
        wait_until(self._menu_seen, "no menu comes up")

    def picture(self, title, file, at_rest=True):
        """Saves a picture of the window, at once or when it no longer changes."""
        os.makedirs(os.path.dirname(os.path.abspath(file)), exist_ok=True)
        window = self._window(title)
        # Nothing in the picture should look hovered.
        xtest.fake_input(self.display, X.MotionNotify, x=self.root.get_geometry().width - 1, y=0)
        self.display.sync()

        def grab():
            return subprocess.run(["import", "-silent", "-window", str(window.id), "png:-"],
                                  check=True, capture_output=True, timeout=60).stdout

        before, now, tries = b"", grab(), 0
        while at_rest and before != now and tries < 8:  # a blinking cursor never stops changing
            time.sleep(0.2)
            before, now, tries = now, grab(), tries + 1
        with open(file, "wb") as picture:
            picture.write(now)

    def colour(self, title, x, y):
        """Red, green and blue of one pixel of the window, from 0 to 255."""
        image = self._window(title).get_image(x, y, 1, 1, X.ZPixmap, 0xFFFFFFFF)
        blue, green, red = image.data[:3]
        return red, green, blue

    def _window(self, title):
        return wait_until(lambda: self._window_seen(title), f"no window “{title}” on the screen")

    def _menu_seen(self):
        # A popup is placed by the program, not by a window manager; so is a tool tip, which says what it is.
        kind, tip = (self.display.intern_atom(name) for name in ("_NET_WM_WINDOW_TYPE", "_NET_WM_WINDOW_TYPE_TOOLTIP"))
        for window in self.root.query_tree().children:
            try:
                kinds = window.get_full_property(kind, Xatom.ATOM)
                attributes = window.get_attributes()
                if kinds and tip not in kinds.value and attributes.override_redirect \
                        and attributes.map_state == X.IsViewable:
                    return True
            except error.XError:
                continue  # it disappeared meanwhile
        return False

    def _window_seen(self, title):
        for window in self.root.query_tree().children:
            try:
                shown = window.get_full_text_property(self.display.intern_atom("_NET_WM_NAME"))
                # Qt appends the program's name to a title.
                if shown and shown.split(" — ")[0] == title and window.get_attributes().map_state == X.IsViewable:
                    return window
            except error.XError:
                continue  # it disappeared meanwhile
        return None


class Program(Element):
    """A running program with its windows."""

    def __init__(self, command, environment, log):
        self.screen = Screen()
        self.log = log
        with open(log, "ab") as output:
            # pylint: disable=consider-using-with
            self.process = subprocess.Popen(command, env=environment, stdin=subprocess.DEVNULL,
                                            stdout=output, stderr=subprocess.STDOUT)
        try:
            super().__init__(self, wait_until(self._application, "the program shows no window", 60))
        except BaseException:
            self.kill()
            raise

    def _application(self):
        if self.process.poll() is not None:
            raise Missing(f"the program ended with {self.process.returncode} before it showed a window:\n"
                          f"{self.output()}")
        for application in pyatspi.Registry.getDesktop(0):
            if application is not None and application.get_process_id() == self.process.pid:
                # Every value must be read from the program, not from a cache.
                application.set_cache_mask(pyatspi.cache.NONE)
                if application.childCount:
                    return application
        return None

    def output(self):
        with open(self.log, encoding="utf-8", errors="replace") as log:
            return log.read()

    def window(self, title):
        """The window or dialog with this title."""
        return wait_until(lambda: self.window_seen(title), lambda: f"no window “{title}”; there is\n{self.outline()}")

    def window_seen(self, title):
        for accessible in self.accessible:
            if accessible is not None and accessible.name == title and \
                    accessible.getState().contains(pyatspi.STATE_SHOWING):
                return Element(self, accessible)
        return None

    def keys(self, title, *names):
        """Presses the keys together in this window."""
        self.screen.focus(title)
        window = self.window(title)
        wait_until(lambda: window.has(pyatspi.STATE_ACTIVE), f"“{title}” never gets the focus")
        self.screen.keys(*names)

    def choose_folder(self, title, prompt, path):
        """Answers the program's folder chooser."""
        dialog = self.window(title)
        dialog.find("text", "Directory:").write(path)
        dialog.button(prompt).press()
        wait_until(lambda: self.window_seen(title) is None, f"“{title}” does not close")

    def choose_file(self, title, prompt, path):
        """Answers the program's file chooser, to open or to save."""
        dialog = self.window(title)
        dialog.find("text", "File name:").write(path)
        dialog.button(prompt).press()
        wait_until(lambda: self.window_seen(title) is None, f"“{title}” does not close")

    def wait_for_end(self, patience=PATIENCE):
        """Waits for the end of the program and gives its exit code."""
        try:
            return self.process.wait(patience)
        except subprocess.TimeoutExpired as expired:
            raise Missing("the program does not end") from expired

    def kill(self):
        if self.process.poll() is None:
            self.process.kill()
            self.process.wait()
