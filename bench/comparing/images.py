"""File systems of their own, each made fresh in an image file: what is created where a tree has just been
removed is not slow by itself. Needs root and the programs of the file system."""

import os
import shutil
import subprocess
import sys

SIZE = 8 << 30  # a hole until it is written to
SYSTEM_PATH = os.pathsep.join(("/usr/sbin", "/sbin", "/usr/bin", "/bin"))
MAKERS = {
    "ext4": ("mkfs.ext4", "-q", "-F"),
    "xfs": ("mkfs.xfs", "-q", "-f"),
    "btrfs": ("mkfs.btrfs", "-q", "-f"),
}


def program(name):
    """Its path, also where the user's own one does not lead to the tools of the system; None if there is none."""
    return shutil.which(name, path=SYSTEM_PATH)


def reason_missing(kind):
    """Why this machine can't make such an image; None if it can."""
    if os.geteuid() != 0:
        return "only root can mount an image"
    missing = [name for name in (MAKERS[kind][0], "mount", "umount") if program(name) is None]
    return f"{', '.join(missing)} is not installed" if missing else None


def run(name, *arguments):
    done = subprocess.run([program(name), *map(str, arguments)], capture_output=True, text=True, check=False)
    if done.returncode != 0:
        sys.exit(f"{name} {' '.join(map(str, arguments))} ended with {done.returncode}:\n{done.stdout}{done.stderr}")


class Image:
    """A fresh file system in a file beside the folder on which it is mounted."""

    def __init__(self, kind, folder):
        self.folder = folder
        self._file = folder.with_name(folder.name + ".image")
        self._is_mounted = False
        try:
            with open(self._file, "wb") as out:
                out.truncate(SIZE)
            maker, *options = MAKERS[kind]
            run(maker, *options, self._file)
            folder.mkdir()
            self._mount()
        except BaseException:
            self.remove()
            raise

    def remount(self):
        """Forgets everything that was read of it: neither the file system nor the file below it is in memory."""
        self._unmount()
        descriptor = os.open(self._file, os.O_RDWR)
        try:
            os.fsync(descriptor)
            os.posix_fadvise(descriptor, 0, 0, os.POSIX_FADV_DONTNEED)
        finally:
            os.close(descriptor)
        self._mount()

    def remove(self):
        if self._is_mounted:
            self._unmount()
        if self.folder.exists():
            self.folder.rmdir()
        self._file.unlink(missing_ok=True)

    def _mount(self):
        run("mount", "-o", "loop", self._file, self.folder)
        self._is_mounted = True

    def _unmount(self):
        run("umount", self.folder)
        self._is_mounted = False
