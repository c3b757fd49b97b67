"""Estimates, sizes, levels and searches beside du, gdu and the plain walk."""

import sys

from comparing.comparisons import Comparison, fixed
from comparing.running import in_turn
from comparing.trees import bytes_of_small, make_level, make_small

FRAME = 0.016

# On two processors, of "du -sb" with everything in memory.
WARM_WALL = 0.65
WARM_PROCESSOR = 1.15
# With nothing in memory.
COLD_OF_DU = 0.75
COLD_OF_GDU = 1.0


def walls(runs):
    return [run["wall"] for run in runs]


def cpus(runs):
    return [run["cpu"] for run in runs]


def beside_du(bench, work, service, tree):
    """Wall and processor; both read the sizes of all files, and both are warm."""
    bench.peer("du", "-sb", tree)
    ours, peers = in_turn(bench.rounds, lambda: bench.measure(service, tree), lambda: bench.peer("du", "-sb", tree))
    yield from warm(bench, work, ours, peers)


def warm(bench, work, ours, peers):
    place = bench.place.name
    yield Comparison(f"{work}, wall", place, walls(ours), walls(peers), "du -sb", WARM_WALL)
    yield Comparison(f"{work}, processor", place, cpus(ours), cpus(peers), "du -sb", WARM_PROCESSOR)


def estimate(bench):
    yield from beside_du(bench, "estimate", "scan", bench.place.small())


def size(bench):
    yield from beside_du(bench, "size of a folder", "size", bench.place.small())


def junk(bench):
    """The estimate of the health score, with the small files as the caches of a home."""
    home = bench.place.fresh("home")
    caches = home / "Library" / "Caches"
    caches.parent.mkdir(parents=True)
    small = bench.place.small()
    small.rename(caches)
    try:
        ours, peers = in_turn(bench.rounds, lambda: bench.measure("junk", home),
                              lambda: bench.peer("du", "-sb", caches))
    finally:
        caches.rename(small)
        bench.place.drop("home")
    yield from warm(bench, "junk estimate", ours, peers)


def scan_caches(bench, machine, count):
    """A scan counts only where it found everything."""
    numbers = bench.measure("linux-junk", machine)
    if numbers["bytes"] != bytes_of_small(count):
        sys.exit(f"a scan of {bytes_of_small(count)} bytes of caches found {numbers['bytes']:.0f}")
    return numbers


def caches(bench):
    """The whole scan for junk of a Linux home after years of use, where every file is a cache."""
    count, machine = bench.sizes.caches, bench.place.fresh("machine")
    make_small(machine / "home" / "mira" / ".cache", count)
    bench.peer("du", "-sb", machine)
    ours, peers = in_turn(bench.rounds, lambda: scan_caches(bench, machine, count),
                          lambda: bench.peer("du", "-sb", machine))
    yield from warm(bench, f"junk scan of {count:,} cache files", ours, peers)
    bench.place.drop("machine")


def level(bench):
    tree = bench.place.level()
    bench.peer("gdu", "-n", "-p", tree)
    ours, peers, du = in_turn(bench.rounds, lambda: bench.measure("level", tree),
                              lambda: bench.peer("gdu", "-n", "-p", tree), lambda: bench.peer("du", "-sb", tree))
    work = name_of_level(bench)
    yield Comparison(work, bench.place.name, walls(ours), walls(peers), "gdu -n -p", 0.8)
    yield from warm(bench, work, ours, du)
    bench.place.drop("level")


def name_of_level(bench):
    return f"level of {bench.sizes.level_folders} folders of {bench.sizes.level_files:,} files"


def cold(bench):
    """Each walk on a file system that was mounted just before, with nothing of it in memory."""
    place = bench.place
    drive = place.fresh("drive")
    home = drive / "home"
    caches = home / "Library" / "Caches"
    make_small(caches, bench.sizes.small)
    make_level(drive / "level", bench.sizes.level_folders, bench.sizes.level_files)

    def mounted(work, *arguments):
        place.remount("drive")
        return work(*arguments)

    for work, service, given, tree in (
            ("estimate", "scan", caches, caches), ("size of a folder", "size", caches, caches),
            ("junk estimate", "junk", home, caches), (name_of_level(bench), "level", drive / "level", drive / "level")):
        ours, du, gdu = in_turn(bench.rounds, lambda: mounted(bench.measure, "cold", service, given),
                                lambda: mounted(bench.peer, "du", "-sb", tree),
                                lambda: mounted(bench.peer, "gdu", "-n", "-p", tree))
        yield Comparison(f"{work}, cold", place.name, walls(ours), walls(du), "du -sb", COLD_OF_DU)
        yield Comparison(f"{work}, cold", place.name, walls(ours), walls(gdu), "gdu -n -p", COLD_OF_GDU)
    place.drop("drive")


def deep(bench):
    files = f"{bench.sizes.deep:,} files, deep"
    yield from beside_du(bench, f"estimate of {files}", "scan", bench.place.deep())
    yield from beside_du(bench, f"size of {files}", "size", bench.place.deep())


def largest(bench):
    """The plain walk of the same tree is the peer in time, the search in a small one in memory."""
    many, few = bench.place.deep(), bench.place.shallow()
    ours, plain, small = in_turn(bench.rounds, lambda: bench.measure("largest", many),
                                 lambda: bench.measure("walk", many), lambda: bench.measure("largest", few))
    files = f"50 largest of {bench.sizes.deep:,} files"
    yield Comparison(files, bench.place.name, walls(ours), walls(plain), "the plain walk", 1.1)
    yield Comparison(f"{files}, memory", bench.place.name, [one["peak"] / 1000 for one in ours],
                     [one["peak"] / 1000 for one in small], f"its own at {bench.sizes.deep // 100:,}", 1.1, "MB")
    bench.place.drop("shallow")


def plan(bench):
    loose = bench.place.loose()
    ours = [bench.measure("plan", loose)["wall"] for _ in range(bench.rounds)]
    yield Comparison(f"plan for {bench.sizes.small:,} loose files", bench.place.name, ours, fixed(0.5, ours),
                     "half a second", 1.0)
    bench.place.drop("loose")


def treemap(bench):
    ours = [bench.measure("treemap", bench.sizes.cells)["wall"] for _ in range(bench.rounds)]
    yield Comparison(f"treemap of {bench.sizes.cells:,} cells", "memory", ours, fixed(FRAME, ours), "one frame", 1.0,
                     "ms")
