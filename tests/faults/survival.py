"""A made-up machine with a backup drive, work of the program in processes of their own, and a look at
what it left. What the sweep, the campaign of kills and the races share."""

import contextlib
import hashlib
import json
import os
import re
import select
import shutil
import signal
import subprocess
import sys
import tempfile
import weakref
from dataclasses import dataclass, field
from pathlib import Path

MISSING = 77  # what a script ends with where the machine lacks a right or a tool
HANG_SECONDS = 60
DEVICE = "miras Mac"
TEMPORARY = re.compile(r"^\.[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}\.tmp$")
CHECKSUM_SIZE = 20
UNDER_WAY = weakref.WeakSet()


def sealed(name, version, size, fill=None):
    """Content that names its file and its version and ends in its own checksum."""
    head = name[:32].encode() + b"\n%d\n" % version
    filler = fill if fill is not None else bytes([ord("a") + version % 26])
    body = head + filler * max(0, size - len(head) - CHECKSUM_SIZE)
    return body + hashlib.sha1(body).digest()


def sealed_version(name, content):
    """The version of whole content of that name; None for any other."""
    body, checksum = content[:-CHECKSUM_SIZE], content[-CHECKSUM_SIZE:]
    head = name[:32].encode() + b"\n"
    if not body.startswith(head) or hashlib.sha1(body).digest() != checksum:
        return None
    return int(body[len(head):body.index(b"\n", len(head))])


def write_sparse(path, content):
    """Leaves a hole for every run of zeros."""
    block = 4096
    with open(path, "wb") as file:
        for place in range(0, len(content), block):
            piece = content[place:place + block]
            if piece.strip(b"\0"):
                file.seek(place)
                file.write(piece)
        file.truncate(len(content))


@dataclass
class Outcome:
    """What a backup came to; `ended` where it did so by itself and with success."""

    ended: bool
    copied: int = 0
    skipped: int = 0
    errors: list = field(default_factory=list)
    last_error: str = ""
    manifest_path: str = ""

    @staticmethod
    def of(output, code):
        try:
            record = json.loads(output.strip().splitlines()[-1])
            return Outcome(code == 0, record["copied"], record["skipped"], record["errors"],
                           record["lastError"], record.get("manifestPath", ""))
        except (IndexError, ValueError, TypeError, KeyError):
            return Outcome(False)


class Hang(Exception):
    """Work that does not end."""


class Machine:
    """The folder of a machine with its documents, and a drive: a folder of it, or the given one."""

    def __init__(self, root, drive=None):
        self.root = Path(root)
        self.drive = Path(drive) if drive else self.root / "Volumes/Drive"
        self.documents = self.root / "Users/mira/Documents"
        self.support = self.root / "Users/mira/.local/share/Keelbright"
        self.use_device(DEVICE)
        for folder in (self.drive, self.documents, self.root / "etc", self.root / "Applications"):
            folder.mkdir(parents=True, exist_ok=True)
        (self.root / "etc/machine-info").write_text("PRETTY_HOSTNAME=\"mira's Mac!\"\n")

    def use_device(self, name):
        """The folder of the drive that is looked at."""
        self.device = self.drive / "Keelbright" / name
        self.latest = self.device / "Latest"
        self.reports = self.device / "Reports"
        self.mirror = self.latest / "Personal Files/Documents"

    def clear_drive(self):
        shutil.rmtree(self.drive / "Keelbright", ignore_errors=True)

    def whole_or_absent_records(self):
        """What is wrong with the records: each is absent or can be read to its end."""
        wrong = []
        records = [self.latest / "recovery-manifest.json", self.support / "config.json",
                   self.support / "activity.json"]
        if self.reports.is_dir():
            records += self.reports.glob("*.json")
            for text in self.reports.glob("*.md"):
                if "## Skipped / Errors\n- " not in text.read_text():
                    wrong.append(f"{text.name} is not whole")
        for record in records:
            try:
                json.loads(record.read_bytes())
            except FileNotFoundError:
                pass
            except ValueError as error:
                wrong.append(f"{record.name} is not whole: {error}")
        return wrong

    def temporary_files(self):
        return [path for top in (self.drive, self.support) for path in sorted(top.rglob("*"))
                if TEMPORARY.match(path.name)]


def start(command, **options):
    """A process that ends with the script, if not before."""
    process = subprocess.Popen(command, **options)
    UNDER_WAY.add(process)
    return process


class Work:
    """Work of the program under way in a process of its own."""

    def __init__(self, runner, arguments, hold=None):
        options = [f"--hold={hold}"] if hold else []
        self.process = start([runner, *options, *arguments], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                             stderr=subprocess.DEVNULL)

    def thread(self):
        """The thread that does what is held back; waits until it has come so far."""
        return int(self._line())

    def go_on(self):
        try:
            self.process.stdin.write(b"\n")
            self.process.stdin.flush()
        except BrokenPipeError:
            pass  # it was killed while it waited for this

    def kill(self):
        self.process.kill()

    def output(self):
        """What it has printed, once it has ended."""
        try:
            return self.process.communicate(timeout=HANG_SECONDS)[0]
        except subprocess.TimeoutExpired as expired:
            self.process.kill()
            self.process.wait()
            raise Hang("the work does not end") from expired

    def _line(self):
        # Byte by byte, so that nothing of the outcome waits in a buffer of ours.
        line = b""
        while not line.endswith(b"\n"):
            if not select.select([self.process.stdout], [], [], HANG_SECONDS)[0]:
                self.process.kill()
                raise Hang("the work does not begin")
            byte = os.read(self.process.stdout.fileno(), 1)
            if not byte:
                raise Hang("the work ended before it began")
            line += byte
        return line


class Backup(Work):
    """A backup of the machine's documents."""

    def __init__(self, runner, machine, hold=None):
        super().__init__(runner, [machine.root, machine.drive, machine.documents], hold)

    def finish(self):
        return Outcome.of(self.output(), self.process.returncode)


class Watcher:
    """strace on one thread of some work."""

    def __init__(self, thread, calls, injection, log):
        options = ["-e", f"inject={injection}"] if injection else []
        self.log = log
        self.process = start(
            ["strace", "-y", "-s", "300", "-o", log, "-e", f"trace={calls}", *options, "-p", str(thread)],
            stdin=subprocess.DEVNULL, stderr=subprocess.PIPE)
        said = b""
        while b"attached" not in said:
            piece = os.read(self.process.stderr.fileno(), 4096)
            if not piece:
                raise PermissionError(said.decode(errors="replace").strip() or "strace ends at once")
            said += piece

    def finish(self):
        try:
            self.process.communicate(timeout=HANG_SECONDS)
        except subprocess.TimeoutExpired as expired:
            self.process.kill()
            raise Hang("strace does not end") from expired
        return Path(self.log).read_text(errors="replace").splitlines()


def reason_missing():
    """Why no system call can be failed here; None where one can."""
    if shutil.which("strace") is None:
        return "strace is not installed"
    with subprocess.Popen(["sleep", "60"]) as sleeper:
        try:
            with tempfile.TemporaryDirectory() as folder:
                watcher = Watcher(sleeper.pid, "read", None, f"{folder}/log")
                sleeper.kill()
                watcher.finish()
            return None
        except PermissionError as error:
            return str(error)
        finally:
            sleeper.kill()


def has_unnamed_files(folder):
    try:
        os.close(os.open(folder, os.O_TMPFILE | os.O_WRONLY))
        return True
    except OSError:
        return False


def has_links(folder):
    trial = Path(folder) / "link on trial"
    try:
        trial.symlink_to("nowhere")
        trial.unlink()
        return True
    except OSError:
        return False


@contextlib.contextmanager
def working_folder():
    """In memory where there is some: every backup ends with a flush of the whole drive. It goes in the end, and
    with it what still works there, also where the script is told to end."""
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(128 + signal.SIGTERM))
    memory = "/dev/shm"
    in_memory = "TMPDIR" not in os.environ and os.access(memory, os.W_OK)
    folder = tempfile.mkdtemp(prefix="keelbright-faults-", dir=memory if in_memory else None)
    try:
        yield folder
    finally:
        for process in UNDER_WAY:
            process.kill()
            process.wait()
        # Python's own gives up on trees that are deeper than the longest path.
        subprocess.run(["rm", "-rf", folder], check=True)


def give_up(reason):
    print(f"Skipped: {reason}.")
    sys.exit(MISSING)
