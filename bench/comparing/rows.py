"""Everything that can be measured, by the name under which it can be asked for."""

from dataclasses import dataclass
from typing import Callable

from comparing import apps, backups, checks, images, walks, window

IMAGES = tuple(images.MAKERS)
PLACES = ("tmpfs", "disk", *IMAGES)


@dataclass(frozen=True)
class Row:
    name: str
    what: str
    measure: Callable
    places: tuple = ("tmpfs", "disk")


# In an order in which a tree is made once: what needs the most room comes last and stays shortest.
ROWS = (
    Row("start", "start to the first painted window, memory then", window.start, ("tmpfs",)),
    Row("memory", "memory after every screen was visited twice", window.memory, ("tmpfs",)),
    Row("rest", "wake-ups of every thread at rest", window.rest, ("tmpfs",)),
    Row("treemap", "a treemap laid out and coloured", walks.treemap, ("tmpfs",)),
    Row("apps", "the scan of 5,000 applications", apps.scan, ("tmpfs",)),
    Row("estimate", "the estimate of a backup beside du", walks.estimate),
    Row("size", "the size of a folder beside du", walks.size),
    Row("junk", "the junk estimate beside du", walks.junk),
    Row("caches", "the whole junk scan of a Linux home with 300,000 cache files beside du", walks.caches),
    Row("level", "a level of the storage browser beside gdu", walks.level),
    Row("cold", "the same beside du and gdu, on a file system mounted just before", walks.cold, IMAGES),
    Row("plan", "the plan of the organizer", walks.plan),
    Row("backup", "first and second backups beside cp and rsync", backups.small, ("tmpfs", *IMAGES)),
    Row("check", "the check of copies beside cmp, on a file system mounted just before", checks.check, IMAGES),
    Row("busy", "backups beside busy programs", backups.busy, ("tmpfs",)),
    Row("large", "one file of 4 GB beside cp", backups.large),
    Row("deep", "estimate and size of 1,000,000 files in a deep tree beside du", walks.deep),
    Row("largest", "the 50 largest of 1,000,000 files: time and memory", walks.largest),
    Row("stalls", "the main thread while every screen scans a large machine", window.stalls, ("tmpfs",)),
    Row("million", "the main thread and the memory in backups and a check of 1,000,000 files", backups.deep, ("tmpfs",)),
)


def chosen(names):
    """The rows of those names, all of them for none; ValueError for a name that there is not."""
    unknown = set(names) - {row.name for row in ROWS}
    if unknown:
        raise ValueError(f"no such row: {', '.join(sorted(unknown))}")
    return [row for row in ROWS if not names or row.name in names]
