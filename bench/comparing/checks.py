"""The check of the copies beside cmp, from a drive of which nothing is in memory."""

import sys

from comparing.backups import back_up
from comparing.comparisons import Comparison
from comparing.running import in_turn

OF_CMP = 1.1
# The originals, then the copies.
COMPARE_ALL = 'cd "$1" && find . -type f -exec cmp -s {} "$2"/{} \\;'


def walls(runs):
    return [run["wall"] for run in runs]


def checked(bench, tree, drive, files):
    """A check counts only where it compared everything and found no fault."""
    numbers = bench.measure("check", tree, drive)
    if numbers["same"] != files or numbers["faults"] != 0:
        sys.exit(f"a check of {files} copies found {numbers['same']:.0f} the same and {numbers['faults']:.0f} damaged")
    return numbers


def beside_cmp(bench, work, tree, files):
    place = bench.place
    drive = place.fresh("drive")
    back_up(bench, tree, drive, files)
    copies = next(drive.glob("Keelbright/*/Latest/Personal Files")) / tree.name

    def mounted(work, *arguments):
        place.remount("drive")
        return work(*arguments)

    ours, cmp = in_turn(bench.rounds, lambda: mounted(checked, bench, tree, drive, files),
                        lambda: mounted(bench.peer, "sh", "-c", COMPARE_ALL, "sh", tree, copies))
    place.drop("drive")
    yield Comparison(f"check of {work}, cold", place.name, walls(ours), walls(cmp), "cmp", OF_CMP)


def check(bench):
    few = bench.sizes.deep // 100
    yield from beside_cmp(bench, f"{few:,} copies", bench.place.shallow(), few)
    yield from beside_cmp(bench, f"one copy of {bench.sizes.large >> 20:,} MiB", bench.place.large(), 1)
    bench.place.drop("shallow", "large")
