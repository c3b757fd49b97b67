"""File systems made for the campaigns, in memory or in an image file, and mounted while in use. Needs root,
a loop device and the programs of the file system."""

import contextlib
import shutil
import subprocess
import time
from dataclasses import dataclass
from pathlib import Path

MEGABYTE = 1 << 20


@dataclass(frozen=True)
class Kind:
    make: tuple
    mount: tuple = ("mount",)
    size: int = 64 * MEGABYTE


KINDS = {
    "tmpfs": Kind(()),
    "ext4": Kind(("mkfs.ext4", "-q")),
    "xfs": Kind(("mkfs.xfs", "-q"), size=320 * MEGABYTE),
    "btrfs": Kind(("mkfs.btrfs", "-q"), size=320 * MEGABYTE),
    "exfat": Kind(("mkfs.exfat",), ("mount.exfat-fuse",)),
    "ntfs": Kind(("mkntfs", "--quick", "--quiet"), ("ntfs-3g", "-o", "windows_names")),
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


def wait_until(condition, fault):
    until = time.monotonic() + 60
    while not condition():
        if time.monotonic() > until:
            raise Missing(fault)
        time.sleep(0.01)


class LoopDevice:
    """An image file as a block device."""

    def __init__(self, image, *options):
        self.image = image
        self.path = run(["losetup", "--find", "--show", *options], image)

    def detach(self):
        run(["losetup", "--detach"], self.path)
        # The device stays until its last user has closed it, and only then is everything in the image.
        wait_until(lambda: not run(["losetup", "--noheadings", "--associated"], self.image),
                   f"{self.path} stays in use")


def make_image(kind, image, size=None):
    """Makes a file system in a new image file."""
    with open(image, "wb") as file:
        file.truncate(size or KINDS[kind].size)
    device = LoopDevice(image)
    try:
        run(KINDS[kind].make, device.path)
    finally:
        device.detach()


class MountedDrive:
    """A file system mounted on a folder: a new one, or that of an image."""

    def __init__(self, kind, folder, image=None, loop_options=(), mount_options=()):
        self.kind = kind
        self.folder = Path(folder)
        self.folder.mkdir(parents=True, exist_ok=True)
        self.device = None
        if kind == "tmpfs":
            run(["mount", "-t", kind, "-o", f"size={KINDS[kind].size}", kind], self.folder)
            return
        if image is None:
            image = self.folder.with_name(self.folder.name + ".image")
            make_image(kind, image)
        self.device = LoopDevice(image, *loop_options)
        try:
            run([*KINDS[kind].mount, *mount_options], self.device.path, self.folder)
            # Some mount programs return before the file system is there.
            wait_until(self.folder.is_mount, "the drive does not appear")
        except Missing:
            self.device.detach()
            raise

    def unmount(self):
        try:
            run(["umount", "--lazy"], self.folder)
            if self.kind == "btrfs":
                # Older kernels remember the drive, and then refuse an earlier state of it.
                run(["btrfs", "device", "scan", "--forget"], self.device.path)
        finally:
            if self.device:
                self.device.detach()


def reason_missing(kind, folder):
    """Why this kind of drive can't be made on this machine; None if it can."""
    try:
        MountedDrive(kind, Path(folder) / "trial drive").unmount()
        return None
    except Missing as missing:
        return str(missing)


@contextlib.contextmanager
def small_home(folder):
    """A file system of 1 MB on the folder; gives the reason if it can't be mounted, else None."""
    try:
        run(["mount", "-t", "tmpfs", "-o", "size=1m", "tmpfs"], folder)
    except Missing as missing:
        yield str(missing)
        return
    try:
        yield None
    finally:
        run(["umount", "--lazy"], folder)
