"""The base of all scenarios: a machine, the program on it, and a picture after a failure."""

import os
import shutil
import tempfile
import unittest
from pathlib import Path

from keelbright import WINDOW, KeelBright
from machine import Machine

PROGRAM = os.environ["KEELBRIGHT_PROGRAM"]
MAKE_MAC = os.environ["KEELBRIGHT_MAKE_MAC"]
PICTURES = Path(os.environ["KEELBRIGHT_PICTURES"])


class Scenario(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        folder = tempfile.mkdtemp(prefix="keelbright-e2e-")
        self.addCleanup(shutil.rmtree, folder)
        self.machine = self.make_machine(folder)
        self.window = None
        self.drives = []  # held ones

    @staticmethod
    def make_machine(folder):
        """Where the scenario plays."""
        return Machine(folder, MAKE_MAC)

    def start(self):
        """Starts the program, which must not be running."""
        self.window = KeelBright([PROGRAM], self.machine.environment(), self.machine.root / "output.log")
        self.addCleanup(self.kill, self.window)
        return self.window

    def kill(self, window):
        """Ends the program without asking it."""
        window.process.kill()
        for drive in self.drives:
            drive.end()  # not even a killed program ends while it waits for a drive
        window.process.wait()

    def leave(self):
        self.assertEqual(self.window.leave(), 0, self.window.output())

    def show_failure(self):
        if self.window is None:
            return
        print(f"What the program printed:\n{self.window.output()}")
        if self.window.process.poll() is None:
            picture = PICTURES / f"{self.id()}.png"
            self.window.screen.picture(WINDOW, picture)
            print(f"What the window showed (picture: {picture}):\n{self.window.outline()}")


class ResultWithPictures(unittest.TextTestResult):
    """Lets a scenario show its window before it is torn down."""

    def addError(self, test, err):  # noqa: N802
        self._show(test)
        super().addError(test, err)

    def addFailure(self, test, err):  # noqa: N802
        self._show(test)
        super().addFailure(test, err)

    @staticmethod
    def _show(test):
        if isinstance(test, Scenario):
            test.show_failure()


def main():
    unittest.main(module=None, testRunner=unittest.TextTestRunner(resultclass=ResultWithPictures, verbosity=2))
