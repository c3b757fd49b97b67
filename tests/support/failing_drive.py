#!/usr/bin/python3
"""A drive that fails: shows a folder as a file system of its own, and from some moment on answers one
kind of request with an error.

    failing_drive.py FOLDER MOUNTPOINT REQUEST AFTER ERROR

REQUEST is read, block, write, open, create, rename, mkdir, list, flush, close or none; AFTER counts bytes for read and
write, requests for all others; ERROR is a name like EIO. The signal USR1 lets it fail at once. Runs until it
is unmounted. With block, each read that covers the byte AFTER of a file fails, and no other.

A REQUEST of size, blocks or cached-size makes no request fail: AFTER is then the size that the drive gives for
every file, whatever can be read of it. With blocks the file seems to be one hole as well; with cached-size the
system keeps what it has read. With names, AFTER is the number of bytes that the drive allows in a name;
with forms, the drive takes both ways to encode an accented letter for the same. With held, what is to be read
waits until the signal USR1 comes; the line "held" is printed when somebody waits for the first time.
"""

import errno
import os
import signal
import stat
import sys
import time
import unicodedata

try:
    import fuse
except ImportError:
    sys.exit("python3-fuse is not installed")

fuse.fuse_python_api = (0, 2)

FOLDER, MOUNT_POINT, REQUEST, AFTER, ERROR = sys.argv[1:6]
LIES = ("size", "blocks", "cached-size")


class Budget:
    """How much of the requests of one kind is still answered."""

    left = int(AFTER)

    @classmethod
    def spend(cls, request, amount=1):
        if request != REQUEST:
            return
        if cls.left < amount:
            cls.left = 0  # once failed, always failed
            raise OSError(getattr(errno, ERROR), os.strerror(getattr(errno, ERROR)))
        cls.left -= amount

    @classmethod
    def use_up(cls, *_):
        cls.left = 0


class Hold:
    """What lets a reader wait."""

    is_announced = False

    @classmethod
    def wait(cls):
        if not cls.is_announced and Budget.left > 0:
            cls.is_announced = True
            print("held", flush=True)
        while Budget.left > 0:
            time.sleep(0.02)


def place_of(path):
    if REQUEST == "names" and len(os.fsencode(path).rsplit(b"/", 1)[-1]) > int(AFTER):
        raise OSError(errno.ENAMETOOLONG, os.strerror(errno.ENAMETOOLONG))
    return FOLDER + (unicodedata.normalize("NFC", path) if REQUEST == "forms" else path)


def given_status(status):
    """The status that the drive gives for a file."""
    if REQUEST not in LIES or not stat.S_ISREG(status.st_mode):
        return status
    blocks = 0 if REQUEST == "blocks" else -(-int(AFTER) // 512)
    return fuse.Stat(st_mode=status.st_mode, st_ino=status.st_ino, st_dev=status.st_dev, st_nlink=status.st_nlink,
                     st_uid=status.st_uid, st_gid=status.st_gid, st_size=int(AFTER), st_atime=int(status.st_atime),
                     st_mtime=int(status.st_mtime), st_ctime=int(status.st_ctime), st_blocks=blocks,
                     st_blksize=4096, st_rdev=0)


class OpenFile:
    direct_io = REQUEST in ("size", "blocks")
    keep_cache = False

    def __init__(self, path, flags, *mode):
        Budget.spend("create" if mode else "open")
        self.descriptor = os.open(place_of(path), flags & ~os.O_APPEND, *mode)

    def read(self, length, offset):
        if REQUEST == "held":
            Hold.wait()
        Budget.spend("read", length)
        if REQUEST == "block" and offset <= int(AFTER) < offset + length:
            raise OSError(getattr(errno, ERROR), os.strerror(getattr(errno, ERROR)))
        return os.pread(self.descriptor, length, offset)

    def write(self, data, offset):
        Budget.spend("write", len(data))
        return os.pwrite(self.descriptor, data, offset)

    def ftruncate(self, length):
        os.ftruncate(self.descriptor, length)

    def fgetattr(self):
        return given_status(os.fstat(self.descriptor))

    def fsync(self, _only_data):
        Budget.spend("flush")
        os.fsync(self.descriptor)

    def flush(self):
        Budget.spend("close")

    def release(self, _flags):
        os.close(self.descriptor)


class FailingDrive(fuse.Fuse):
    file_class = OpenFile

    def getattr(self, path):
        return given_status(os.lstat(place_of(path)))

    def readdir(self, path, _offset):
        Budget.spend("list")
        return [fuse.Direntry(name) for name in (".", "..", *os.listdir(place_of(path)))]

    def readlink(self, path):
        return os.readlink(place_of(path))

    def symlink(self, target, path):
        os.symlink(target, place_of(path))

    def mkdir(self, path, mode):
        Budget.spend("mkdir")
        os.mkdir(place_of(path), mode)

    def rename(self, old, new):
        Budget.spend("rename")
        os.rename(place_of(old), place_of(new))

    def unlink(self, path):
        os.unlink(place_of(path))

    def rmdir(self, path):
        os.rmdir(place_of(path))

    def truncate(self, path, length):
        os.truncate(place_of(path), length)

    def chmod(self, path, mode):
        os.chmod(place_of(path), mode)

    def chown(self, path, user, group):
        os.chown(place_of(path), user, group, follow_symlinks=False)

    def utimens(self, path, accessed, modified):
        times = tuple(int(moment.tv_sec) * 1_000_000_000 + int(moment.tv_nsec) for moment in (accessed, modified))
        os.utime(place_of(path), ns=times, follow_symlinks=False)

    def statfs(self):
        return os.statvfs(FOLDER)


def main():
    signal.signal(signal.SIGUSR1, Budget.use_up)
    drive = FailingDrive(dash_s_do="setsingle")
    drive.parse(["-f", "-s", MOUNT_POINT])
    drive.main()


if __name__ == "__main__":
    main()
