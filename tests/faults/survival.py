"""Shared by the campaigns: a made-up machine with a backup drive, the program's work in separate
processes, and checks of the files that it leaves."""

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

MISSING = 77  # exit code if the machine lacks a permission or a tool
HANG_SECONDS = 60
DEVICE = "miras Mac"
TEMPORARY = re.compile(r"^\.[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}\.tmp$")
CHECKSUM_SIZE = 20
RUNNING = weakref.WeakSet()


def sealed(name, version, size, fill=None):
    """Content that holds its file's name and version and ends with its checksum."""
    head = name[:32].encode() + b"\n%d\n" % version
    filler = fill if fill is not None else bytes([ord("a") + version % 26])
    body = head + filler * max(0, size - len(head) - CHECKSUM_SIZE)
    return body + hashlib.sha1(body).digest()


def sealed_version(name, content):
    """The version of the content if it is whole and has this name; else None."""
    body, checksum = content[:-CHECKSUM_SIZE], content[-CHECKSUM_SIZE:]
    head = name[:32].encode() + b"\n"
    if not body.startswith(head) or hashlib.sha1(body).digest() != checksum:
        return None
    return int(body[len(head):body.index(b"\n", len(head))])


def write_sparse(path, content):
    """Writes the content with holes for its blocks of zeros."""
    block = 4096
    with open(path, "wb") as file:
        for place in range(0, len(content), block):
            piece = content[place:place + block]
            if piece.strip(b"\0"):
                file.seek(place)
                file.write(piece)
        file.truncate(len(content))


def last_object(output):
    """The JSON object in the last line of what was printed; None if there is none."""
    try:
        found = json.loads(output.strip().splitlines()[-1])
    except (IndexError, ValueError):
        return None
    return found if isinstance(found, dict) else None


@dataclass
class Outcome:
    """The outcome of a backup; `ended` if it ended by itself and with success."""

    ended: bool
    copied: int = 0
    skipped: int = 0
    errors: list = field(default_factory=list)
    last_error: str = ""
    manifest_path: str = ""

    @staticmethod
    def of(output, code):
        record = last_object(output)
        if record is None or "copied" not in record:
            return Outcome(False)
        return Outcome(code == 0, record["copied"], record["skipped"], record["errors"], record["lastError"],
                       record.get("manifestPath", ""))


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
        """Sets the device folder of the drive that is checked."""
        self.device = self.drive / "Keelbright" / name
        self.latest = self.device / "Latest"
        self.reports = self.device / "Reports"
        self.mirror = self.latest / "Personal Files/Documents"

    def clear_drive(self):
        shutil.rmtree(self.drive / "Keelbright", ignore_errors=True)

    def whole_or_absent_records(self):
        """The faults of the records, each of which must be absent or whole."""
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
    """Starts a process that is killed at the end of the script, if it has not ended before."""
    process = subprocess.Popen(command, **options)
    RUNNING.add(process)
    return process


class Work:
    """Work of the program that runs in a separate process."""

    def __init__(self, runner, arguments, hold=None):
        options = [f"--hold={hold}"] if hold else []
        self.process = start([runner, *options, *arguments], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                             stderr=subprocess.DEVNULL)

    def threads(self):
        """Waits until the work holds, and gives the ids of the threads that will continue it."""
        return [int(number) for number in self._line().split()]

    def resume(self):
        try:
            self.process.stdin.write(b"\n")
            self.process.stdin.flush()
        except BrokenPipeError:
            pass  # it was killed while it held

    def kill(self):
        self.process.kill()

    def output(self, seconds=HANG_SECONDS):
        """Waits until the work has ended, and gives its output."""
        try:
            return self.process.communicate(timeout=seconds)[0]
        except subprocess.TimeoutExpired as expired:
            self.process.kill()
            self.process.wait()
            raise Hang("the work does not end") from expired

    def _line(self):
        # Byte by byte, so that no part of the outcome is left in a buffer here.
        line = b""
        while not line.endswith(b"\n"):
            if not select.select([self.process.stdout], [], [], HANG_SECONDS)[0]:
                self.process.kill()
                raise Hang("the work does not start")
            byte = os.read(self.process.stdout.fileno(), 1)
            if not byte:
                raise Hang("the work ended before it started")
            line += byte
        return line


class Backup(Work):
    """A backup of the machine's documents."""

    def __init__(self, runner, machine, hold=None):
        super().__init__(runner, [machine.root, machine.drive, machine.documents], hold)

    def finish(self, seconds=HANG_SECONDS):
        return Outcome.of(self.output(seconds), self.process.returncode)


class Watcher:
    """strace on the threads of the work; it counts the calls of each by themselves."""

    def __init__(self, threads, calls, injection, log):
        options = ["-e", f"inject={injection}"] if injection else []
        targets = [option for thread in threads for option in ("-p", str(thread))]
        self.logs = [Path(f"{log}.{thread}") for thread in threads]
        self.process = start(
            ["strace", "-y", "-s", "300", "-o", log, "--output-separately", "-e", f"trace={calls}", *options,
             *targets], stdin=subprocess.DEVNULL, stderr=subprocess.PIPE)
        said = b""
        while said.count(b"attached") < len(threads):
            piece = os.read(self.process.stderr.fileno(), 4096)
            if not piece:
                raise PermissionError(said.decode(errors="replace").strip() or "strace ends at once")
            said += piece

    def finish(self):
        """The lines of each thread."""
        try:
            self.process.communicate(timeout=HANG_SECONDS)
        except subprocess.TimeoutExpired as expired:
            self.process.kill()
            raise Hang("strace does not end") from expired
        lines = []
        for log in self.logs:
            lines.append(log.read_text(errors="replace").splitlines())
            log.unlink()
        return lines


def reason_missing():
    """Why system calls can't be made to fail on this machine; None if they can."""
    if shutil.which("strace") is None:
        return "strace is not installed"
    with subprocess.Popen(["sleep", "60"]) as sleeper:
        try:
            with tempfile.TemporaryDirectory() as folder:
                watcher = Watcher([sleeper.pid], "read", None, f"{folder}/log")
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
    trial = Path(folder) / "trial link"
    try:
        trial.symlink_to("nowhere")
        trial.unlink()
        return True
    except OSError:
        return False


@contextlib.contextmanager
def working_folder():
    """A temporary folder, if possible in memory, because every backup flushes its whole drive. It is removed in
    the end, and processes that still use it are killed, also if the script is terminated."""
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(128 + signal.SIGTERM))
    memory = "/dev/shm"
    in_memory = "TMPDIR" not in os.environ and os.access(memory, os.W_OK)
    folder = tempfile.mkdtemp(prefix="keelbright-faults-", dir=memory if in_memory else None)
    try:
        yield folder
    finally:
        for process in RUNNING:
            process.kill()
            process.wait()
        # Python's rmtree fails for trees that are deeper than the longest path.
        subprocess.run(["rm", "-rf", folder], check=True)


def skip(reason):
    print(f"Skipped: {reason}.")
    sys.exit(MISSING)
