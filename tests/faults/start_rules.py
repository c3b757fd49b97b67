"""The starts of the sweep: the program loads its settings and writes them again, in steps.

What has to hold after a failed call:
- The start ends by itself. The next one loads the whole settings and leaves them whole in config.json; a
  link in its place still leads to the file.
- Only if the file with the settings could not be read, the next start may find others. Then the file lies
  unchanged beside config.json, under a name with the date.
- No temporary file and no whole copy is left after the next start.
After a kill the next start loads the whole settings, too; a temporary file may be left.
"""

import json
import os
import shutil
from dataclasses import dataclass, field

from survival import Work, last_object

# Some pages of a full home long, so that there can be room for the first steps and not for the last.
SETTINGS = {
    "selectedDestination": {"id": "11111111-2222-4333-8444-555555555555", "url": "file:///Volumes/Drive"},
    "customSources": [{"id": f"22222222-3333-4444-8555-{number:012}", "url": f"file:///Users/mira/Folder{number}",
                       "isEnabled": number % 3 > 0} for number in range(60)],
    "enabledRecommendedFolders": ["Documents", "Music"],
    "lastBackupTime": "2026-03-01T09:05:42Z",
}
# What a start that is killed in its middle leaves under the file's name.
HALF = {"customSources": [], "enabledRecommendedFolders": ["Documents"]}
COPY_SUFFIX = ".before-start"
UNUSABLE_SUFFIX = ".unusable-*"


@dataclass
class StartOutcome:
    """Whether the start ended by itself, and what it loaded."""

    ended: bool
    loaded: dict = field(default_factory=dict)

    @staticmethod
    def of(output, code):
        loaded = last_object(output)
        return StartOutcome(False) if loaded is None else StartOutcome(code == 0, loaded)


class Start(Work):
    """A start of the program without its window."""

    def __init__(self, runner, machine, hold=None):
        super().__init__(runner, ["--work=start", machine.root], hold)

    def finish(self):
        return StartOutcome.of(self.output(), self.process.returncode)


def write_settings(machine, settings=None):
    machine.support.mkdir(parents=True, exist_ok=True)
    (machine.support / "config.json").write_text(json.dumps(settings or SETTINGS), encoding="utf-8")


def read_settings(path):
    try:
        return json.loads(path.read_bytes())
    except (OSError, ValueError):
        return None


def faults_of_next_start(runner, machine):
    """Starts undisturbed; the faults if anything of the settings is missing, in memory or on the drive."""
    outcome = Start(runner, machine).finish()
    faults = []
    if not outcome.ended or outcome.loaded != SETTINGS:
        faults.append(f"the next start loads {outcome}")
    config = machine.support / "config.json"
    if read_settings(config) != SETTINGS:
        faults.append(f"the next start leaves {read_settings(config)}")
    if config.resolve().with_name(config.resolve().name + COPY_SUFFIX).exists():
        faults.append("the next start leaves the whole copy")
    return faults


class Starting:
    """A kind of start: on a whole file, on a link to one, or after a start that was killed in its middle."""

    drive_kind = None
    sample = None
    hold = "work"

    def __init__(self, name, is_link=False, is_half=False):
        self.name, self.is_link, self.is_half = name, is_link, is_half
        self.runner = None

    def make_template(self, machine, runner):
        self.runner = runner

    def furnish(self, machine, template):
        shutil.rmtree(machine.support, ignore_errors=True)
        write_settings(machine)
        config = machine.support / "config.json"
        if self.is_link:
            self._target(machine).parent.mkdir(parents=True, exist_ok=True)
            for path in self._target(machine).parent.iterdir():
                path.unlink()
            config.rename(self._target(machine))
            config.symlink_to(os.path.relpath(self._target(machine), machine.support))
        if self.is_half:
            config.rename(machine.support / f"config.json{COPY_SUFFIX}")
            write_settings(machine, HALF)

    def _target(self, machine):
        return machine.support.parent / "kept elsewhere/settings"

    def start(self, runner, machine, hold=None):
        return Start(runner, machine, hold)

    def is_whole(self, outcome):
        return outcome.ended and outcome.loaded == SETTINGS

    def check_failure(self, machine, outcome, _hit):
        faults = [] if outcome.ended else ["the start did not end with success"]
        faults += [f"left: {path}" for path in machine.temporary_files()]
        is_lost_in_memory = outcome.loaded != SETTINGS
        file = self._target(machine) if self.is_link else machine.support / "config.json"
        kept = [path for path in file.parent.glob(file.name + UNUSABLE_SUFFIX) if read_settings(path) == SETTINGS]
        faults += self._link_faults(machine)
        if is_lost_in_memory and kept:
            return "kept under a dated name", faults
        if is_lost_in_memory:
            faults.append(f"loaded: {outcome.loaded}")
        return "unharmed", faults + faults_of_next_start(self.runner, machine)

    def check_kill(self, runner, machine):
        left = machine.temporary_files()
        faults = self._link_faults(machine) + faults_of_next_start(runner, machine)
        return "whole, a temporary name left" if left else "whole", faults

    def _link_faults(self, machine):
        config = machine.support / "config.json"
        if self.is_link and not (config.is_symlink() and self._target(machine).is_file()):
            return ["the link is gone"]
        return []
