"""The work of the sweep that moves the user's files: cleaning junk, removing an application, sorting
loose files.

What has to hold after a failed call:
- The work ends by itself. Every item is whole at its old or at its new place, never at both; at most one
  item stays, and both the list on the screen and the log's line agree with that.
- In the Trash each item has its record, and each record its item. Files that were there before, and
  files with the name that an item would get, are unchanged.
- The log holds its old line and the new one; only the old one if it could not be written; only the new
  one if it could not be read. No temporary file is left, and config.json is unchanged.
After a kill the same holds, except that one record may be without its item, which is at its old place;
the next run moves the remaining items.
"""

import json
import os
import re
import shutil
from dataclasses import dataclass, field
from pathlib import Path
from urllib.parse import unquote_to_bytes

from survival import Work, last_object, sealed

DATE = re.compile(rb"\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d")
OLD_LINE = {"id": "11111111-2222-3333-4444-555555555555", "timestamp": "2026-01-02T03:04:05Z",
            "kind": "Backup", "title": "Old", "detail": "line", "bytesAffected": 1, "itemCount": 1}
CONFIGURATION = b'{"as": "it was"}'
ODD = "100% \udcff odd\nname +\u00fc"  # a percent sign, a byte that is not UTF-8, a line break


@dataclass
class CareOutcome:
    """How the work ended, and the paths that it still lists."""

    ended: bool
    left: list = field(default_factory=list)

    @staticmethod
    def of(output, code):
        left = (last_object(output) or {}).get("left")
        if left is None:
            return CareOutcome(False)
        return CareOutcome(code == 0, [os.fsdecode(unquote_to_bytes(path)) for path in left])


class CareWork(Work):
    def finish(self):
        return CareOutcome.of(self.output(), self.process.returncode)


def snapshot(path):
    """The whole content of an item; None if there is none."""
    if path.is_symlink():
        return path.readlink()
    if path.is_dir():
        return {child.name: snapshot(child) for child in path.iterdir()}
    try:
        return path.read_bytes()
    except FileNotFoundError:
        return None


def write(path, size=500):
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_bytes(sealed(os.fsencode(path.name).decode("latin-1")[:20], 1, size))


class Places:
    """Where each item is, and the faults of the places."""

    def __init__(self, mode, machine):
        self.wrong = []
        self.orphans = 0  # records without an item
        places = mode.places(machine, self)
        self.moved, self.stayed = [], []
        for item, content in mode.contents.items():
            old = snapshot(machine.root / item)
            new = places.get(item)
            for where, found in (("old", old), ("new", new)):
                if found not in (None, content):
                    self.wrong.append(f"{item!r} is not whole at its {where} place")
            if old is None and new is None:
                self.wrong.append(f"{item!r} is gone")
            if old is not None and new is not None:
                self.wrong.append(f"{item!r} is in both places")
            (self.stayed if new is None else self.moved).append(item)
        for path, content in mode.bystanders.items():
            if snapshot(machine.root / path) != content:
                self.wrong.append(f"{path!r} is not what it was")


class CareMode:
    """The base of the three kinds of work. Paths are relative to the machine."""

    hold = "work"
    sample = None
    kind = ""  # of the log's line

    def __init__(self, name, drive_kind=None):
        self.name, self.drive_kind = name, drive_kind
        self.contents, self.bystanders = {}, {}

    def items(self):
        raise NotImplementedError

    def arguments(self, machine):
        raise NotImplementedError

    def places(self, machine, found):
        """The contents of the items at their new places, by their old paths."""
        raise NotImplementedError

    def others(self):
        """Files that must stay unchanged."""
        return []

    def make_template(self, machine, runner):
        self.furnish(machine, machine)
        self.contents = {item: snapshot(machine.root / item) for item in self.items()}
        self.bystanders = {path: snapshot(machine.root / path) for path in self.others()}

    def furnish(self, machine, template):
        for folder in ("Users", "Applications", "Library"):
            shutil.rmtree(machine.root / folder, ignore_errors=True)
        for child in machine.drive.iterdir():
            if child.name != "lost+found":
                shutil.rmtree(child, ignore_errors=True)
        machine.documents.mkdir(parents=True)
        machine.support.mkdir(parents=True)
        (machine.support / "activity.json").write_text(json.dumps([OLD_LINE]))
        (machine.support / "config.json").write_bytes(CONFIGURATION)
        for path in self.others():
            write(machine.root / path)
        for item, names in self.items().items():
            for name in names:
                write(machine.root / item / name if name else machine.root / item, 300 + 9 * len(name))

    def start(self, runner, machine, hold=None):
        return CareWork(runner, self.arguments(machine), hold)

    def is_whole(self, outcome):
        return outcome.ended and not outcome.left

    def check_failure(self, machine, outcome, hit):
        places = Places(self, machine)
        faults = list(places.wrong)
        if not outcome.ended:
            faults.append("the work did not end with success")
        if len(places.stayed) > 1:
            faults.append(f"more than one stayed: {places.stayed}")
        if places.orphans:
            faults.append("a record without its item")
        faults += self.listing_faults(machine, places, outcome)
        if machine.temporary_files():
            faults.append(f"left: {machine.temporary_files()}")
        has_line, log_faults = self.log_faults(machine, places, hit)
        kind = "an item stays" if places.stayed else "unharmed" if has_line else "the log lacks a line"
        return kind, faults + log_faults

    def listing_faults(self, machine, places, outcome):
        """The work must still list exactly the items that stayed."""
        stayed = [str(machine.root / item) for item in places.stayed]
        return [] if outcome.left == stayed else [f"still listed: {outcome.left}, stayed: {stayed}"]

    def log_faults(self, machine, places, hit):
        faults = self.record_faults(machine)
        log = json.loads((machine.support / "activity.json").read_bytes())
        is_of_log = "Keelbright" in hit.line
        if log == [OLD_LINE]:
            if places.moved and not is_of_log:
                faults.append("no line in the log")
            return False, faults
        if log[1:] != [OLD_LINE] and not (is_of_log and len(log) == 1):
            faults.append(f"the log: {log}")
        if (log[0]["kind"], log[0]["itemCount"]) != (self.kind, self.counted(places)):
            faults.append(f"{places.moved} moved, and the log has: {log[0]}")
        return True, faults

    def record_faults(self, machine):
        faults = machine.whole_or_absent_records()
        if (machine.support / "config.json").read_bytes() != CONFIGURATION:
            faults.append("config.json is not what it was")
        return faults

    def counted(self, places):
        return len(places.moved)

    def check_kill(self, runner, machine):
        places = Places(self, machine)
        faults = places.wrong + self.record_faults(machine)
        if places.orphans > 1:
            faults.append("more than one record without its item")
        outcome = self.start(runner, machine).finish()
        after = Places(self, machine)
        if not self.is_whole(outcome) or after.stayed or after.orphans != places.orphans:
            faults.append(f"the next run: {outcome}, stayed: {after.stayed}")
        faults += after.wrong + self.record_faults(machine)
        return "whole, a record left" if places.orphans else "whole", faults


class Trashing(CareMode):
    """Work that moves items to the Trash of the home or of the drive."""

    def others(self):
        trash = "Users/mira/.local/share/Trash"
        return [f"{trash}/files/older", f"{trash}/info/older.trashinfo", "Users/mira/Library/Notes/mine"]

    def places(self, machine, found):
        places = {}
        trashes = [(machine.root / "Users/mira/.local/share/Trash", machine.root)]
        for trash, top in trashes + [(path, machine.drive) for path in machine.root.rglob(".Trash-*")]:
            if top == machine.drive and trash.parent != machine.drive:
                found.wrong.append(f"a Trash in a wrong place: {trash}")
            self._check_trash(trash, top, machine, places, found)
        return places

    def _check_trash(self, trash, top, machine, places, found):
        names = set(os.listdir(trash / "files")) if (trash / "files").is_dir() else set()
        records = set(os.listdir(trash / "info")) if (trash / "info").is_dir() else set()
        for record in records:
            name = record.removesuffix(".trashinfo")
            if name == "older":
                continue
            if name not in names:
                found.orphans += 1
                continue
            lines = (trash / "info" / record).read_bytes().split(b"\n")
            if len(lines) != 4 or lines[0] != b"[Trash Info]" or not lines[1].startswith(b"Path=") or \
                    not DATE.fullmatch(lines[2].removeprefix(b"DeletionDate=")):
                found.wrong.append(f"the record of {name!r} is not whole")
                continue
            place = os.path.join(top, os.fsdecode(unquote_to_bytes(lines[1].removeprefix(b"Path="))))
            places[os.path.relpath(place, machine.root)] = snapshot(trash / "files" / name)
        for name in names - {record.removesuffix(".trashinfo") for record in records}:
            found.wrong.append(f"{name!r} is in the Trash without a record")


class Cleaning(Trashing):
    kind = "Junk Clean"

    def items(self):
        library = "Users/mira/Library"
        inside = ["a", "deep/b", "deep/deeper/c"]
        return {f"{library}/Caches/com.example.browser": inside, f"{library}/Caches/{ODD}": ["a", "b"],
                f"{library}/Logs/Editor": ["log"], f"{library}/Logs/com.example.browser": ["log", "log2"],
                f"{library}/Developer/Xcode/DerivedData": inside + ["d"],
                f"{library}/Application Support/MobileSync/Backup/older": ["phone"]}

    def arguments(self, machine):
        return ["--work=clean", machine.root]

    def listing_faults(self, machine, places, outcome):
        stayed = {str(machine.root / item) for item in places.stayed}
        return [] if set(outcome.left) == stayed else [f"still listed: {outcome.left}, stayed: {stayed}"]


class Removing(Trashing):
    kind = "App Removed"

    def bundle(self):
        return f"{'Volumes/Drive/' if self.drive_kind else ''}Applications/Editor.app"

    def items(self):
        library = "Users/mira/Library"
        return {self.bundle(): ["Contents/Info.plist", "Contents/MacOS/Editor"],
                f"{library}/Preferences/com.example.editor.plist": [""],
                f"{library}/Caches/com.example.editor": ["a", "deep/b"],
                f"{library}/Application Support/Editor": ["state"],
                f"{library}/Containers/com.example.editor": ["Data/x"],
                f"{library}/Group Containers/TEAM.com.example.editor": ["y"],
                "Library/LaunchAgents/com.example.editor.plist": [""]}

    def arguments(self, machine):
        return ["--work=remove", machine.root, machine.root / self.bundle()]

    def listing_faults(self, machine, places, outcome):
        return []  # the application is no longer listed, whether or not it stayed

    def counted(self, places):
        return len(places.moved) + len(places.stayed)  # the log counts what was tried


class Organizing(CareMode):
    kind = "Organise"
    PLACES = {"photo.jpg": "Images/photo 2.jpg", "report.pdf": "Documents/report.pdf",
              "song.mp3": "Audio/song.mp3", "a.tar.gz": "Archives/a.tar.gz",
              "Tool.app": "Installers/Tool.app", "no kind": "Other/no kind"}

    def folder(self):
        return f"{'Volumes/Drive' if self.drive_kind else 'Users/mira'}/Downloads"

    def names(self):
        names = dict(self.PLACES)
        if not self.drive_kind:  # not every file system takes this name
            names[f"{ODD}.png"] = f"Images/{ODD}.png"
        return names

    def items(self):
        return {f"{self.folder()}/{name}": ["Contents/Info.plist", "Contents/x"] if name == "Tool.app" else [""]
                for name in self.names()}

    def others(self):
        return [f"{self.folder()}/{path}" for path in ("Images/photo.jpg", "Folder/inside", ".hidden")]

    def arguments(self, machine):
        return ["--work=organize", machine.root, machine.root / self.folder()]

    def places(self, machine, found):
        top = machine.root / self.folder()
        known = {Path(place) for place in self.names().values()}
        known |= {Path(other).relative_to(self.folder()) for other in self.others()}
        for path in top.glob("*/*"):
            if path.relative_to(top) not in known and not path.parent.name.endswith(".app"):
                found.wrong.append(f"{path} does not belong there")
        places = {f"{self.folder()}/{name}": snapshot(top / place) for name, place in self.names().items()}
        return {item: content for item, content in places.items() if content is not None}

    def listing_faults(self, machine, places, outcome):
        return [] if not outcome.left else [f"still listed: {outcome.left}"]
