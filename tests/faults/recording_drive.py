#!/usr/bin/python3
"""A drive that records: the file `image` in a file system of its own, which logs each write and each flush
of it in their order.

    recording_drive.py IMAGE LOG MOUNTPOINT SPEED

The writes go to IMAGE and, as `drive_log` reads them, to LOG. SPEED is in bytes a second: the drive sleeps so
that it writes no more; 0 is as fast as it can. The signal USR1 makes it fast. Runs until it is unmounted.
"""

import errno
import os
import signal
import stat
import sys
import time

from drive_log import FLUSH, write_entry

try:
    import fuse
except ImportError:
    sys.exit("python3-fuse is not installed")

fuse.fuse_python_api = (0, 2)

IMAGE, LOG, MOUNT_POINT, SPEED = sys.argv[1:5]
SECONDS_OF_A_FLUSH = 0.02  # of a slow drive


class Speed:
    bytes_a_second = int(SPEED)

    @classmethod
    def make_fast(cls, *_):
        cls.bytes_a_second = 0

    @classmethod
    def wait_for_write(cls, size):
        if cls.bytes_a_second:
            time.sleep(size / cls.bytes_a_second)

    @classmethod
    def wait_for_flush(cls):
        if cls.bytes_a_second:
            time.sleep(SECONDS_OF_A_FLUSH)


class Image:
    direct_io = False
    keep_cache = False

    def __init__(self, _path, _flags):
        self.image = os.open(IMAGE, os.O_RDWR)
        self.log = os.open(LOG, os.O_WRONLY | os.O_CREAT | os.O_APPEND, 0o600)

    def read(self, length, offset):
        return os.pread(self.image, length, offset)

    def write(self, data, offset):
        # In one call, so that the size of the log always is the end of an entry.
        os.write(self.log, write_entry(offset, data))
        os.pwrite(self.image, data, offset)
        Speed.wait_for_write(len(data))
        return len(data)

    def fsync(self, _only_data):
        os.write(self.log, FLUSH)
        Speed.wait_for_flush()

    def fgetattr(self):
        return os.fstat(self.image)

    def release(self, _flags):
        os.close(self.image)
        os.close(self.log)


class RecordingDrive(fuse.Fuse):
    file_class = Image

    def getattr(self, path):
        if path == "/image":
            return os.stat(IMAGE)
        if path != "/":
            raise OSError(errno.ENOENT, os.strerror(errno.ENOENT))
        return fuse.Stat(st_mode=stat.S_IFDIR | 0o700, st_nlink=2)

    def readdir(self, _path, _offset):
        for name in (".", "..", "image"):
            yield fuse.Direntry(name)


def main():
    signal.signal(signal.SIGUSR1, Speed.make_fast)
    drive = RecordingDrive(dash_s_do="setsingle")
    drive.parse(["-f", "-s", "-o", "big_writes,max_write=131072", MOUNT_POINT])
    drive.main()


if __name__ == "__main__":
    main()
