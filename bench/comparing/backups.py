"""Backups, with the window watching, beside cp and rsync."""

import os
import sys

from comparing.comparisons import Comparison
from comparing.running import busy_programs, in_turn
from comparing.walks import FRAME, cpus, walls


# Of "cp -a" and of "rsync -aIW", by the file system of the drive.
FIRST_RUN = {"tmpfs": 0.85, "ext4": 0.72, "xfs": 0.85, "btrfs": 0.90}
SECOND_RUN = {"tmpfs": 0.80, "ext4": 0.85, "xfs": 1.10, "btrfs": 1.05}
FIRST_RUN_PROCESSOR = {"tmpfs": 1.5}
PEAK_MEGABYTES = 60

# The calls that a copy within the kernel can't do without.
PLAIN_COPY = """
import os, sys
source = os.open(sys.argv[1], os.O_RDONLY)
target = os.open(sys.argv[2], os.O_WRONLY | os.O_CREAT | os.O_EXCL)
while os.copy_file_range(source, target, 1 << 24):
    pass
"""


def back_up(bench, tree, drive, files):
    """A run counts only where it copied everything."""
    numbers = bench.measure("backup", tree, drive)
    if numbers["errors"] != 0 or numbers["files"] != files:
        sys.exit(f"a backup of {files} files copied {numbers['files']:.0f}, with {numbers['errors']:.0f} errors")
    return numbers


def stalls(work, bench, runs):
    """How long the main thread was away at most, and how much of that it worked itself: the rest is others'."""
    for key, name in (("stall", "longest stall"), ("work", "longest own work")):
        longest = max(run[key] for run in runs)
        yield Comparison(f"{name}, {work}", bench.place.name, [longest], [FRAME], "one frame", 1.0, "ms")


class Flushed:
    """A backup ends with everything on the drive, so the peers' copies have to as well."""

    def __init__(self, bench):
        self._flushes = bench.place.name != "tmpfs"
        self._bench = bench
        self.suffix = ", sync -f" if self._flushes else ""

    def __call__(self, *command):
        if not self._flushes:
            return self._bench.peer(*command)
        return self._bench.peer("sh", "-c", '"$@" && for last; do :; done && sync -f "$last"', "sh", *command)


def small(bench):
    """First and second runs in turn with the peers', and with the calls that no copy can do without."""
    tree, place, peer = bench.place.small(), bench.place, Flushed(bench)
    files = bench.sizes.small
    first, cp, plain, second, again, replacing, skipping, rsync = in_turn(
        bench.rounds,
        lambda: back_up(bench, tree, place.fresh("drive"), files),
        lambda: peer("cp", "-a", tree, place.fresh("copy")),
        lambda: bench.measure("plain", tree, place.fresh("plain")),
        lambda: back_up(bench, tree, place.at("drive"), files),
        lambda: peer("rsync", "-aIW", f"{tree}/", place.at("copy") / tree.name),
        lambda: bench.measure("plain", tree, place.at("plain")),
        lambda: peer("rsync", "-a", f"{tree}/", place.at("copy") / tree.name),
        lambda: peer("rsync", "-a", f"{tree}/", place.fresh("copy")))
    place.drop("drive", "copy", "plain")
    name = place.name
    one, two = f"backup of {files:,} files, first run", f"backup of {files:,} files, second run"
    yield Comparison(one, name, walls(first), walls(cp), "cp -a" + peer.suffix, FIRST_RUN[name])
    yield Comparison(one, name, walls(first), walls(rsync), "rsync -a" + peer.suffix)
    yield Comparison(one, name, walls(first), walls(plain), "the plain calls")
    yield Comparison(f"{one}, processor", name, cpus(first), cpus(cp), "cp -a" + peer.suffix,
                     FIRST_RUN_PROCESSOR.get(name))
    yield Comparison(two, name, walls(second), walls(again), "rsync -aIW" + peer.suffix, SECOND_RUN[name])
    yield Comparison(two, name, walls(second), walls(skipping), "rsync -a (skips by size and time)")
    yield Comparison(two, name, walls(second), walls(replacing), "the plain calls")
    yield from stalls("backup", bench, first + second)


def busy(bench):
    """Beside twice as many busy programs as there are processors: each file waits for the main thread,
    and must not wait for everybody else besides."""
    tree, place, files = bench.place.small(), bench.place, bench.sizes.small
    programs = 2 * os.cpu_count()
    with busy_programs(programs):
        first, cp, second, again = in_turn(
            bench.rounds,
            lambda: back_up(bench, tree, place.fresh("drive"), files),
            lambda: bench.peer("cp", "-a", tree, place.fresh("copy")),
            lambda: back_up(bench, tree, place.at("drive"), files),
            lambda: bench.peer("rsync", "-aIW", f"{tree}/", place.at("copy") / tree.name))
    place.drop("drive", "copy")
    beside = f"beside {programs} busy programs"
    yield Comparison(f"first run, {beside}", place.name, walls(first), walls(cp), "cp -a", 3.0)
    yield Comparison(f"second run, {beside}", place.name, walls(second), walls(again), "rsync -aIW", 3.0)


def large(bench):
    tree, place, peer = bench.place.large(), bench.place, Flushed(bench)

    def ours():
        try:
            return back_up(bench, tree, place.fresh("drive"), 1)
        finally:
            place.drop("drive")

    def copy(*command):
        try:
            return peer(*command, tree / "large.bin", place.fresh("copy") / "large.bin")
        finally:
            place.drop("copy")

    own, cp, plain = in_turn(bench.rounds, ours, lambda: copy("cp"), lambda: copy(sys.executable, "-c", PLAIN_COPY))
    work = f"one file of {bench.sizes.large >> 20:,} MiB"
    # Between disks `cp` has the calls of the kernel alone to compare with; see docs/performance.md.
    is_disk = place.name == "disk"
    yield Comparison(work, place.name, walls(own), walls(cp), "cp" + peer.suffix, None if is_disk else 1.05)
    yield Comparison(work, place.name, walls(own), walls(plain), "the plain calls" + peer.suffix,
                     1.03 if is_disk else None)
    place.drop("large")


def deep(bench):
    """The main thread while a million files are copied, then copied over."""
    tree, files = bench.place.deep(), bench.sizes.deep
    first = back_up(bench, tree, bench.place.fresh("drive"), files)
    second = back_up(bench, tree, bench.place.at("drive"), files)
    check_peak = bench.measure("check", tree, bench.place.at("drive"))["peak"]
    bench.place.drop("drive")
    work = f"backup of {files:,} files"
    small_peak = back_up(bench, bench.place.shallow(), bench.place.fresh("drive"), files // 100)["peak"]
    small_check_peak = bench.measure("check", bench.place.shallow(), bench.place.at("drive"))["peak"]
    bench.place.drop("drive", "shallow")
    yield from stalls(work, bench, [first, second])
    for run, name in ((first, "first"), (second, "second")):
        yield Comparison(f"{work}, {name} run, memory", bench.place.name, [run["peak"] / 1000], [small_peak / 1000],
                         f"its own at {files // 100:,}", 1.1, "MB")
    yield Comparison(f"check of {files:,} copies, memory", bench.place.name, [check_peak / 1000],
                     [small_check_peak / 1000], f"its own at {files // 100:,}", 1.1, "MB")
    peaks = [first["peak"] / 1000, second["peak"] / 1000]
    yield Comparison(f"{work}, peak memory", bench.place.name, [max(peaks)], [PEAK_MEGABYTES],
                     f"{PEAK_MEGABYTES} MB", 1.0, "MB")
