"""File systems made for the campaigns, in memory or in an image file, and mounted while in use. Needs root,
a loop device and the programs of the file system."""

import shutil
import subprocess
import time
from pathlib import Path

SIZE = 64 << 20
KINDS = {
    "tmpfs": None,
    "ext4": (["mkfs.ext4", "-q"], ["mount"]),
    "exfat": (["mkfs.exfat"], ["mount.exfat-fuse"]),
    "ntfs": (["mkntfs", "--quick", "--quiet"], ["ntfs-3g", "-o", "windows_names"]),
}


class Missing(Exception):
    """The machine lacks a permission or a program for the drive."""


def run(command, *arguments):
    program = shutil.which(command[0], path="/usr/sbin:/sbin:/usr/bin:/bin")
    if program is None:
        raise Missing(f"{command[0]} is not installed")
    result = subprocess.run([program, *command[1:], *map(str, arguments)], capture_output=True, text=True,
                            check=False)
    if result.returncode != 0:
        raise Missing(f"{command[0]}: {(result.stdout + result.stderr).strip()}")
    return result.stdout.strip()


class MountedDrive:
    """A file system mounted on a folder."""

    def __init__(self, kind, folder):
        self.folder = Path(folder)
        self.folder.mkdir(parents=True, exist_ok=True)
        self.device = None
        if KINDS[kind] is None:
            run(["mount", "-t", kind, "-o", f"size={SIZE}", kind], self.folder)
            return
        make, mount = KINDS[kind]
        image = self.folder.with_name(self.folder.name + ".image")
        with open(image, "wb") as file:
            file.truncate(SIZE)
        self.device = run(["losetup", "--find", "--show"], image)
        try:
            run(make, self.device)
            run(mount, self.device, self.folder)
            self._wait()
        except Missing:
            run(["losetup", "--detach"], self.device)
            raise

    def _wait(self):
        # Some mount programs return before the file system is there.
        until = time.monotonic() + 60
        while not self.folder.is_mount():
            if time.monotonic() > until:
                raise Missing("the drive does not appear")
            time.sleep(0.01)

    def unmount(self):
        try:
            run(["umount", "--lazy"], self.folder)
        finally:
            if self.device:
                run(["losetup", "--detach"], self.device)


def reason_missing(kind, folder):
    """Why this kind of drive can't be made on this machine; None if it can."""
    try:
        MountedDrive(kind, Path(folder) / "trial drive").unmount()
        return None
    except Missing as missing:
        return str(missing)
