"""What a drive was asked to write and to flush, in this order, and what is on it after a power cut."""

import bisect
import os
import random
import struct
import subprocess
from dataclasses import dataclass
from pathlib import Path
from typing import NamedTuple, Optional

HEAD = struct.Struct("<QQ")  # offset and size of a write; its data follow
FLUSH = HEAD.pack((1 << 64) - 1, 0)


def write_entry(offset, data):
    return HEAD.pack(offset, len(data)) + data


class Entry(NamedTuple):
    offset: int
    size: int
    place: int  # of the data in the log
    is_flush: bool

    def end(self):
        return self.place + self.size


@dataclass(frozen=True, order=True)
class Cut:
    """The power goes after so many entries of the log: of the writes that no flush covers, all have arrived, or
    a random half, if there is a seed."""

    after: int
    seed: Optional[int] = None

    def __str__(self):
        arrived = "all arrived" if self.seed is None else f"half arrived, seed {self.seed}"
        return f"cut after entry {self.after}, {arrived}"


class Log:
    """A log that is no longer written."""

    def __init__(self, path):
        self.path = Path(path)
        self.entries = []
        with open(path, "rb") as file:
            size, place = os.fstat(file.fileno()).st_size, 0
            while place < size:
                head = os.pread(file.fileno(), HEAD.size, place)
                offset, length = HEAD.unpack(head)
                entry = Entry(offset, length, place + HEAD.size, head == FLUSH)
                if entry.end() > size:
                    raise ValueError("the log ends in the middle of a write")
                self.entries.append(entry)
                place = entry.end()
        self.ends = [entry.end() for entry in self.entries]

    def __len__(self):
        return len(self.entries)

    def entries_within(self, size):
        """The number of entries in the first bytes of the log."""
        return bisect.bisect_right(self.ends, size)

    def flushed(self, after):
        """The number of entries that are safe if the power goes after so many: those up to the last flush."""
        while after and not self.entries[after - 1].is_flush:
            after -= 1
        return after

    def arrived(self, cut):
        """The entries after the last flush whose writes have arrived."""
        loose = range(self.flushed(cut.after), cut.after)
        if cut.seed is None:
            return list(loose)
        chance = random.Random(cut.seed)
        return [index for index in loose if chance.random() < 0.5]

    def apply(self, image, indices):
        """Repeats these writes on an image."""
        with open(self.path, "rb") as log, open(image, "r+b") as target:
            for entry in (self.entries[index] for index in indices if not self.entries[index].is_flush):
                os.pwrite(target.fileno(), os.pread(log.fileno(), entry.size, entry.place), entry.offset)


class Replay:
    """Makes the image of a drive after each of several cuts, which have to come in ascending order."""

    def __init__(self, log, base, folder):
        self.log = log
        self.safe = Path(folder) / "safe.image"
        self.after_cut = Path(folder) / "cut.image"
        self.flushed = 0
        copy_image(base, self.safe)

    def image(self, cut):
        """The image after the cut, until the next one is made."""
        flushed = self.log.flushed(cut.after)
        if flushed < self.flushed:
            raise ValueError("the cuts do not ascend")
        self.log.apply(self.safe, range(self.flushed, flushed))
        self.flushed = flushed
        copy_image(self.safe, self.after_cut)
        self.log.apply(self.after_cut, self.log.arrived(cut))
        return self.after_cut


def copy_image(source, target):
    """Copies an image with its holes."""
    subprocess.run(["cp", "--sparse=auto", source, target], check=True)
