"""The backups of the sweep, and the rules for the drive after a failed system call."""

import shutil
import sys
from pathlib import Path

from survival import DEVICE, Backup, has_links, has_unnamed_files, sealed, sealed_version, write_sparse

OLD, NEW = 1, 2
LINK = "link"
FOLDERS = {"Documents": "", "folder": "folder/", "inner": "folder/inner/"}
MANIFEST = "recovery-manifest.json"


def few_files():
    """Twenty files: small ones in three folders, a tiny, a large and a sparse one, and one of odd permissions."""
    files = {f"f{number:04}": 90 + 700 * number for number in range(10)}
    files |= {f"folder/f{number:04}": 2_000 for number in range(10, 14)}
    files |= {f"folder/inner/f{number:04}": 300 for number in range(14, 16)}
    return files | {"large": 700_000, "sparse": 900_000, "odd mode": 500, "zero": 64}


def many_files():
    """150 files in three folders, some of them large or sparse."""
    folders = ("", "folder/", "folder/inner/")
    files = {f"{folders[number % 3]}f{number:04}": 200 + 90 * (number % 50) for number in range(148)}
    return files | {"large": 700_000, "sparse": 900_000}


def link_target(version):
    return Path(f"f{version:04}")


def make_documents(machine, files, version):
    for name, size in files.items():
        path = machine.documents / name
        path.parent.mkdir(parents=True, exist_ok=True)
        write_sparse(path, sealed(path.name, version, size, b"\0" if name == "sparse" else None))
        if name == "odd mode":
            path.chmod(0o1646)
    if has_links(machine.drive):
        link = machine.documents / LINK
        link.unlink(missing_ok=True)
        link.symlink_to(link_target(version))


class BackupMode:
    """A kind of run: the version on the drive before it, and the part of the run that is watched."""

    drive_kind = None  # the drive is a folder of the machine, unless the sweep sets another
    sample = None  # of how many calls of a kind fail in turn; None for all
    files = few_files()

    def __init__(self, name, hold, before, reports_before=0):
        self.name, self.hold, self.before = name, hold, before
        self.reports_before = reports_before

    def make_template(self, machine, runner):
        """Makes the drive and the records as they are before a run of this kind."""
        if self.before is None:
            return
        make_documents(machine, self.files, self.before)
        outcome = self.start(runner, machine).finish()
        if not self.is_whole(outcome):
            sys.exit(f"The run for the template failed: {outcome}")
        self.reports_before = 2
        # Renamed to another time, so that no later run replaces them.
        for report in machine.reports.iterdir():
            report.rename(report.with_stem("backup-report-20200101-000000"))

    def furnish(self, machine, template):
        """Makes the machine as it is before a run."""
        if not any(machine.documents.iterdir()):
            make_documents(machine, self.files, NEW)
        machine.use_device(DEVICE)
        machine.clear_drive()
        shutil.rmtree(machine.support, ignore_errors=True)
        if self.before is not None:
            shutil.copytree(template.drive / "Keelbright", machine.drive / "Keelbright", symlinks=True)
            shutil.copytree(template.support, machine.support)

    def start(self, runner, machine, hold=None):
        return Backup(runner, machine, hold)

    def is_whole(self, outcome):
        """Whether the outcome is that of an undisturbed run."""
        return outcome.ended and not outcome.errors

    def check_failure(self, machine, outcome, hit):
        if self.hold == "records":
            return check_records(self, machine, outcome)
        return check_failure(self, machine, outcome, hit)

    def rules(self, machine, outcome, hit):
        return Rules(self, machine, outcome, hit)

    def check_kill(self, runner, machine):
        return check_kill(runner, self, machine)


class WorkersMode(BackupMode):
    """A run in which several threads prepare the copies, and in which a call of each of them may fail."""

    sample = 12
    files = many_files()

    def rules(self, machine, outcome, hit):
        return SeveralRules(self, machine, outcome, hit)


class State:
    """The files on the drive after a run."""

    def __init__(self, machine, files):
        self.wrong = machine.whole_or_absent_records()
        self.files = files
        self.versions = {}
        for name in files:
            self.versions[name] = self._version(machine.mirror / name)
        if (machine.documents / LINK).is_symlink():
            link = machine.mirror / LINK
            target = link.readlink() if link.is_symlink() else None
            self.versions[LINK] = next((version for version in (OLD, NEW) if target == link_target(version)), None)
        manifest = machine.latest / MANIFEST
        self.has_manifest = manifest.is_file()
        self.reports = len(list(machine.reports.glob("*"))) if machine.reports.is_dir() else 0
        self.temporary = machine.temporary_files()

    def _version(self, path):
        try:
            content = path.read_bytes()
        except FileNotFoundError:
            return None
        version = sealed_version(path.name, content)
        if version is None:
            self.wrong.append(f"{path.name} is not whole")
        return version

    def missing(self):
        return [name for name, version in self.versions.items() if version != NEW]

    def broken_temporary_files(self):
        known = {Path(name).name for name in self.files}
        return [path.name for path in self.temporary if not is_whole(path, known)]


def is_whole(path, known):
    if path.is_symlink():
        return True
    content = path.read_bytes()
    head = content.split(b"\n", 1)[0].decode(errors="replace")
    if head in known:
        return sealed_version(head, content) is not None
    # A record's temporary file is complete if it ends like JSON or has the report's last section.
    return content.rstrip().endswith((b"}", b"]")) or b"## Skipped / Errors\n- " in content


class Rules:
    """The rules that must hold after a failed call; collects the faults."""

    def __init__(self, mode, machine, outcome, hit):
        self.mode, self.machine, self.outcome, self.hit = mode, machine, outcome, hit
        self.state = State(machine, mode.files)
        self.faults = list(self.state.wrong)
        self.kind = self._kind()
        self._temporary_files()

    def demand(self, holds, fault):
        if not holds:
            self.faults.append(fault)

    def _kind(self):
        outcome = self.outcome
        self.demand(outcome.ended, "the run did not end with success")
        self.demand(len(outcome.errors) + bool(outcome.last_error) <= 1, "more than one line")
        if outcome.last_error:
            self.demand(not any(version == NEW for version in self.state.versions.values()),
                        "a run that could not start has copied a file")
            return "a run that could not start reported"
        if not outcome.errors:
            self._all_is_new("no line")
            self._counters(0)
            return "unharmed"
        return self._kind_of_line(outcome.errors[0])

    def _kind_of_line(self, line):
        missing = self.state.missing()
        if line.startswith(("Manifest write failed: ", "Report write failed: ", "Skip Drive: ")):
            self.demand(not missing, f"missing although only a record failed: {missing}")
            if line.startswith("Manifest"):
                self.demand(self.outcome.manifest_path == "Failed", "the report names a manifest that failed")
            return "a record reported"
        self._records_are_there()
        if line.startswith("Dir error "):
            self.demand(len(missing) == 1, f"one line, and missing are {missing}")
            self._counters(1)
            return "a file reported"
        if line.startswith("Cannot "):
            return "a folder reported"
        self.demand(line.startswith("Skip "), "a line of an unknown kind")
        name = line[len("Skip "):].split(": ", 1)[0]
        if name in self._names():
            self.demand([Path(path).name for path in missing] == [name], f"reported {name}, missing {missing}")
            self._counters(1)
            return "a file reported"
        below = FOLDERS.get(name)
        self.demand(below is not None and all(path.startswith(below) for path in missing),
                    f"reported {name}, missing {missing}")
        return "a folder reported"

    def _names(self):
        """The names of all files, by which error lines call them."""
        return {Path(path).name for path in self.state.versions}

    def _counters(self, skipped):
        total = len(self.state.versions)
        self.demand((self.outcome.copied, self.outcome.skipped) == (total - skipped, skipped),
                    f"the counters say {self.outcome.copied} and {self.outcome.skipped}")

    def _all_is_new(self, why):
        self.demand(not self.state.missing(), f"{why}, and missing are {self.state.missing()}")
        self._records_are_there()

    def _records_are_there(self):
        self.demand(self.state.has_manifest, "no manifest")
        expected = self.mode.reports_before + 2
        self.demand(self.state.reports == expected, f"{self.state.reports} report files, not {expected}")

    def _temporary_files(self):
        failed = [self.hit, *self.hit.others]
        swaps = sum(hit.call.startswith("renameat") for hit in failed)
        whole_copies = swaps if self.kind == "a file reported" else 0
        self.demand(len(self.state.temporary) <= whole_copies, f"left: {self.state.temporary}")
        self.demand(not self.state.broken_temporary_files(), "a temporary file is not whole")


class SeveralRules(Rules):
    """The rules after several failed calls, one of each thread: every failure makes at most one line, and
    every file that is missing has one."""

    def _kind(self):
        outcome, lines = self.outcome, self.outcome.errors
        self.demand(outcome.ended, "the run did not end with success")
        self.demand(len(lines) + bool(outcome.last_error) <= 1 + len(self.hit.others), "more lines than failed calls")
        if outcome.last_error:
            self.demand(not any(version == NEW for version in self.state.versions.values()),
                        "a run that could not start has copied a file")
            return "a run that could not start reported"
        is_record = [line.startswith(("Manifest write failed: ", "Report write failed: ", "Skip Drive: "))
                     for line in lines]
        if not any(is_record):
            self._records_are_there()
        self._lines_of_files([line for line, record in zip(lines, is_record) if not record])
        if not lines:
            return "unharmed"
        return "a record reported" if all(is_record) else "a file reported"

    def _lines_of_files(self, lines):
        """Every missing file has a line or lies in a folder that has one."""
        missing = self.state.missing()
        named, folders, without_folder = [], [], 0
        for line in lines:
            name = line.removeprefix("Skip ").split(": ", 1)[0]
            if line.startswith("Cannot "):
                folders.append("")
            elif line.startswith("Dir error "):
                without_folder += 1
            elif name in FOLDERS:
                folders.append(FOLDERS[name])
            else:
                self.demand(name in self._names(), f"a line of an unknown kind: {line}")
                named.append(name)
        self.demand(len(set(named)) == len(named), f"more than one line for a file: {named}")
        absent = {Path(path).name for path in missing}
        self.demand(set(named) <= absent, f"reported {named}, missing {missing}")
        unexplained = [path for path in missing if Path(path).name not in named
                       and not any(path.startswith(folder) for folder in folders)]
        self.demand(len(unexplained) == without_folder, f"missing without a line: {unexplained}, lines: {lines}")
        if not folders:
            self._counters(len(missing))


def check_failure(mode, machine, outcome, hit):
    faults = []
    if any("machine-info" in failed.line for failed in [hit, *hit.others]):
        faults, mode = check_other_name(mode, machine)
    rules = mode.rules(machine, outcome, hit)
    return rules.kind, faults + rules.faults


def check_other_name(mode, machine):
    """If the machine's name can't be read, the backup is in a folder of another name, and the backup of
    before is unchanged beside it."""
    names = [path.name for path in (machine.drive / "Keelbright").iterdir() if path.name != DEVICE]
    if not names:
        return [], mode
    old = State(machine, mode.files)
    faults = [f"{name} of the earlier backup is version {version}" for name, version in old.versions.items()
              if version != mode.before]
    machine.use_device(names[0])
    return faults, type(mode)(mode.name, mode.hold, None)


def check_kill(runner, mode, machine):
    state = State(machine, mode.files)
    faults = list(state.wrong)
    allowed = {NEW, mode.before}
    faults += [f"{name} is version {version}" for name, version in state.versions.items()
               if version not in allowed]
    if has_unnamed_files(machine.drive):
        faults += [f"{name} is not whole" for name in state.broken_temporary_files()]
    left = len(state.temporary)
    outcome = Backup(runner, machine).finish()
    after = State(machine, mode.files)
    if not outcome.ended or outcome.errors or outcome.last_error:
        faults.append(f"the next run: {outcome}")
    faults += after.wrong + [f"missing after the next run: {name}" for name in after.missing()]
    if not (machine.support / "config.json").exists() or not (machine.support / "activity.json").exists():
        faults.append("the next run saved no records")
    return "whole" if left == 0 else "whole, a temporary name left", faults


def check_records(mode, machine, outcome):
    """A record that could not be written is old or absent, and the run is still whole."""
    state = State(machine, mode.files)
    faults = list(state.wrong)
    if not outcome.ended or outcome.errors or state.missing():
        faults.append(f"the run: {outcome}")
    if state.temporary:
        faults.append(f"left: {state.temporary}")
    return "unharmed", faults
