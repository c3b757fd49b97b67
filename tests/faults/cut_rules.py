"""The documents of the runs whose power is cut, and the rules for the drive after a cut."""

from dataclasses import dataclass, field
from typing import Optional

from survival import sealed, sealed_version, write_sparse

LINKS = 8
LARGE, SPARSE = (11, 12), (13, 14)  # of each 500 files
MISSING, EMPTY, ZEROS, BROKEN = "missing", "empty", "full of zeros", "not whole"


class Documents:
    """Files that differ between versions: half of them keep their size. Some are in the first version only, some
    come with the second. Most are small, a few have megabytes or holes. A link leads elsewhere in each
    version."""

    def __init__(self, count):
        self.count = count

    def names(self, version):
        """The names in a version, below the folder of documents."""
        names = [self.name(number) for number in range(self.count) if self._is_in(number, version)]
        return names + [f"link{number}" for number in range(LINKS)]

    @staticmethod
    def name(number):
        return f"folder{number // 100}/f{number:05}" if number % 3 else f"f{number:05}"

    @staticmethod
    def _is_in(number, version):
        if number % 25 == 7:
            return version == 1
        return version > 1 if number % 25 == 8 else True

    @staticmethod
    def size(number, version):
        grown = version * 3_001 if number % 2 else 0
        size = 64 + (number * 7_919 + grown) % 8_000
        if number % 500 in LARGE:
            return size + 3_000_000
        if number % 500 in SPARSE:
            return size + 500_000
        if number % 39 == 0:
            return size + 200_000
        return size + 30_000 if number % 10 == 3 else size

    def bytes(self, version):
        """The size of what is stored of a version."""
        return sum(self.size(number, version) for number in range(self.count) if number % 500 not in SPARSE)

    def write(self, folder, version):
        """Makes the documents in the folder those of a version."""
        for number in range(self.count):
            path = folder / self.name(number)
            path.parent.mkdir(parents=True, exist_ok=True)
            if self._is_in(number, version):
                self.write_file(path, version, self.size(number, version), number % 500 in SPARSE)
            else:
                path.unlink(missing_ok=True)
        for number in range(LINKS):
            link = folder / f"link{number}"
            link.unlink(missing_ok=True)
            link.symlink_to(self.target(version))

    @staticmethod
    def write_file(path, version, size, is_sparse):
        if is_sparse:
            write_sparse(path, sealed(path.name, version, size, b"\0"))
        else:
            path.write_bytes(sealed(path.name, version, size))

    @staticmethod
    def target(version):
        return f"f{version:05}"

    def version_at(self, path):
        """The version of a copy, or what is wrong with it."""
        if path.name.startswith("link"):
            target = str(path.readlink()) if path.is_symlink() else MISSING
            return next((version for version in (1, 2) if target == self.target(version)), target)
        try:
            content = path.read_bytes()
        except FileNotFoundError:
            return MISSING
        except OSError as error:
            return error.strerror
        version = sealed_version(path.name, content)
        if version is not None:
            return version
        if not content:
            return EMPTY
        return ZEROS if not content.strip(b"\0") else BROKEN


@dataclass
class Records:
    """The bytes of the manifest and the reports, by their paths below the device's folder."""

    content: dict = field(default_factory=dict)

    @staticmethod
    def of(device):
        paths = [device / "Latest/recovery-manifest.json", *sorted((device / "Reports").glob("backup-report-*"))]
        return Records({str(path.relative_to(device)): path.read_bytes() for path in paths if path.is_file()})

    def reports(self):
        return {path: content for path, content in self.content.items() if path.startswith("Reports/")}


@dataclass
class Runs:
    """What the runs on a drive have done: the version before the cut run, that of the run, and the records of
    both; the version before is None for a first run."""

    before: Optional[int]
    version: int
    records_before: Records
    records: Records


@dataclass
class Found:
    """What lies on the drive after a cut, and what must not be so."""

    looked_at: int = 0
    lost: dict = field(default_factory=dict)  # what is wrong, by name
    unfinished: int = 0  # names of which nothing is promised, with a part of a file


def look(device, documents, runs, has_ended):
    """Looks at the device's folder on the drive after a cut, before or after the end of the run."""
    records = Records.of(device)
    counts = has_ended or has_report(records, runs)
    found = Found()
    mirror = device / "Latest/Personal Files/Documents"
    for name, allowed in allowed_versions(documents, runs, counts).items():
        version = documents.version_at(mirror / name)
        found.looked_at += bool(allowed)
        if allowed and version not in allowed:
            found.lost[name] = version
        elif not allowed and version not in (MISSING, runs.version):
            found.unfinished += 1
    # Not all reports of a run come to the drive at the same time.
    found.lost |= lost_records(records, runs, has_ended)
    return found


def has_report(records, runs):
    """Whether a report of the run is whole on the drive."""
    own = runs.records.reports().items() - runs.records_before.reports().items()
    return any(records.content.get(path) == content for path, content in own)


def allowed_versions(documents, runs, run_counts):
    """The versions of which one must lie under each name; none if nothing is promised."""
    new = set(documents.names(runs.version))
    old = set(documents.names(runs.before)) if runs.before is not None else set()
    allowed = {name: {runs.before} for name in sorted(old)}
    for name in sorted(new):
        if run_counts:
            allowed[name] = {runs.version}
        else:
            allowed[name] = {runs.before, runs.version} if name in old else set()
    return allowed


def lost_records(records, runs, has_ended):
    """The manifest is that of before or that of the run, and a report is never lost."""
    lost = {}
    kept = runs.records if has_ended else runs.records_before
    for path, content in kept.content.items():
        now = records.content.get(path)
        if now == content or now is not None and now == runs.records.content.get(path):
            continue
        lost[path] = MISSING if now is None else EMPTY if not now else BROKEN
    return lost

