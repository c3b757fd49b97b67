"""The made-up machine of a scenario, and the expected content of its backup."""

import json
import os
import stat
import subprocess
from pathlib import Path

SKIPPED_FOLDERS = {"node_modules", ".git", "build", "dist", "cache", ".cache", "DerivedData", ".Trash",
                   "__pycache__", ".DS_Store"}
SKIPPED_EXTENSIONS = {".dmg", ".pkg", ".iso", ".tmp", ".app", ".framework", ".dylib", ".o"}


class Machine:
    """A whole machine in a folder, filled by `make-mac`."""

    def __init__(self, root, make_mac):
        self.root = Path(root)
        self.home = Path(subprocess.run([make_mac, root], check=True, capture_output=True,
                                        text=True).stdout.rstrip("\n"))
        self.drive = self.root / "Volumes/Backup Drive"
        self.support = self.home / ".local/share/Keelbright"
        self.runtime = self.root / "runtime"
        self.runtime.mkdir(mode=0o700)
        self.variables = {}  # additional environment variables

    def environment(self):
        """The environment of a program there: its own home, language and zone, nothing of the real user."""
        kept = {name: value for name, value in os.environ.items() if not name.startswith("XDG_")}
        return kept | {"HOME": str(self.home), "KEELBRIGHT_TEST_ROOT": str(self.root),
                       "XDG_RUNTIME_DIR": str(self.runtime), "LC_ALL": "C.UTF-8", "LANGUAGE": "", "TZ": "Europe/Berlin",
                       "SHELL": "/bin/zsh", "DBUS_SYSTEM_BUS_ADDRESS": "unix:path=/nowhere"} | self.variables

    def config(self):
        return read_json(self.support / "config.json")

    def activity(self):
        return read_json(self.support / "activity.json")

    def device_folder(self, destination=None):
        """The only folder in the destination, which the backup made for this machine."""
        folders = list(((destination or self.drive) / "Keelbright").iterdir())
        assert len(folders) == 1, folders
        return folders[0]

    def personal_files(self):
        return self.device_folder() / "Latest/Personal Files"

    def reports(self):
        """The reports of all runs, oldest first, each as the path of its JSON file."""
        return sorted((self.device_folder() / "Reports").glob("backup-report-*.json"))

    def trashed(self):
        """The names in the home's Trash."""
        return sorted(file.name for file in (self.home / ".local/share/Trash/files").iterdir())

    def expected_backup(self, folders):
        return ExpectedBackup([self.home / folder for folder in folders])


class LinuxMachine(Machine):
    """A Linux desktop in a folder, filled by `make-linux`."""

    def __init__(self, root, make_linux):
        super().__init__(root, make_linux)
        self.drive = self.root / "media/mira/Backup Drive"

    def environment(self):
        return super().environment() | {"KEELBRIGHT_TEST_MACHINE": "linux"}


class ExpectedBackup:
    """What a run over these folders must copy, computed from the rules without the program."""

    def __init__(self, sources):
        self.files = {}  # from the path below Personal Files to the source
        self.skipped = 0
        for source in sources:
            self._walk(source, Path(source.name))

    @property
    def bytes_copied(self):
        return sum(source.lstat().st_size for source in self.files.values())

    @property
    def estimated_files(self):
        return len(self._regular())

    @property
    def estimated_bytes(self):
        return sum(source.lstat().st_size for source in self._regular())

    def _regular(self):
        return [source for source in self.files.values() if stat.S_ISREG(source.lstat().st_mode)]

    def _walk(self, folder, target):
        for item in folder.iterdir():
            if item.name.startswith("."):
                continue
            if item.is_dir() and item.name in SKIPPED_FOLDERS:
                self.skipped += 1
                continue
            if item.suffix.lower() in SKIPPED_EXTENSIONS:
                self.skipped += 1
            elif not item.is_dir():
                self.files[target / item.name] = item
            if item.is_dir() and not item.is_symlink():
                self._walk(item, target / item.name)

    def differences(self, personal_files, without=()):
        """The files that are missing, unexpected or different on the destination."""
        expected = {target: source for target, source in self.files.items() if target not in without}
        present = {path.relative_to(personal_files) for path in personal_files.rglob("*")
                   if path.is_symlink() or not path.is_dir()}
        found = [f"missing: {path}" for path in sorted(expected.keys() - present)]
        found += [f"unexpected: {path}" for path in sorted(present - expected.keys())]
        found += [f"differs: {path}" for path in sorted(expected.keys() & present)
                  if not same(expected[path], personal_files / path)]
        return found


def same(source, copy):
    """Whether kind, content, permissions and times are equal."""
    if source.is_symlink() or copy.is_symlink():
        return source.is_symlink() and copy.is_symlink() and os.readlink(source) == os.readlink(copy)
    before, after = source.stat(), copy.stat()
    return (stat.S_IFMT(before.st_mode) == stat.S_IFMT(after.st_mode)
            and stat.S_IMODE(before.st_mode) == stat.S_IMODE(after.st_mode)
            and before.st_mtime_ns == after.st_mtime_ns
            and source.read_bytes() == copy.read_bytes())


def read_json(path):
    return json.loads(path.read_text(encoding="utf-8"))


def decimal_size(count):
    """A byte count as the program shows it: decimal units, fewer decimals for smaller units."""
    if count == 0:
        return "Zero KB"
    if count < 1000:
        return "1 byte" if count == 1 else f"{count} bytes"
    for decimals, unit in ((0, "KB"), (1, "MB"), (2, "GB"), (2, "TB")):
        count /= 1000
        if round(count, decimals) < 1000:
            break
    text = f"{count:.{decimals}f}"
    return (text.rstrip("0").rstrip(".") if decimals else text) + " " + unit
