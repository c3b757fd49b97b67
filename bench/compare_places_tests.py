"""File systems of their own, made fresh for what is measured on them, and walks on them with nothing in memory."""

import os
import tempfile
import unittest
from pathlib import Path
from unittest import mock

from comparing import images, walks
from comparing.rows import IMAGES
from comparing.trees import QUICK, ImagePlace, Sizes


class ColdWalkTests(unittest.TestCase):
    class Bench:
        """Notes what is done instead of doing it."""

        rounds = 2
        sizes = QUICK

        def __init__(self, folder):
            self.place = self
            self.name = "ext4"
            self.folder = Path(folder)
            self.done = []

        def fresh(self, _):
            return self.folder

        def remount(self, _):
            self.done.append("remount")

        def drop(self, *_):
            self.done.append("drop")

        def measure(self, *arguments):
            self.done.append(" ".join(arguments[:2]))
            return {"wall": 1}

        def peer(self, *command):
            self.done.append(command[0])
            return {"wall": 2}

    def test_nothing_is_in_memory_before_any_walk(self):
        with tempfile.TemporaryDirectory() as folder:
            bench = self.Bench(folder)
            comparisons = list(walks.cold(bench))
        self.assertEqual([(one.peer, one.at_most) for one in comparisons], [("du -sb", 0.75), ("gdu -n -p", 1.0)] * 4)
        expected = []
        for service in ("scan", "size", "junk", "level"):
            expected += ["remount", f"cold {service}", "remount", "du", "remount", "gdu"] * 2
        self.assertEqual(bench.done, [*expected, "drop"])


class ImageTests(unittest.TestCase):
    def setUp(self):
        self.folder = Path(self.enter(tempfile.TemporaryDirectory()))
        self.trees = Path(self.enter(tempfile.TemporaryDirectory()))

    def enter(self, context):
        self.addCleanup(context.cleanup)
        return context.name

    def place(self, kind):
        if reason := images.reason_missing(kind):
            self.skipTest(f"{kind}: {reason}")
        place = ImagePlace(kind, self.trees, self.folder, Sizes(small=20))
        self.addCleanup(place.close)
        return place

    def test_every_fresh_folder_is_an_empty_file_system_of_its_kind(self):
        for kind in IMAGES:
            with self.subTest(kind):
                place = self.place(kind)
                one, other = place.fresh("one"), place.fresh("other")
                self.assertEqual(len({os.stat(folder).st_dev for folder in (one, other, self.folder)}), 3)
                mounts = Path("/proc/self/mounts").read_text(encoding="utf-8")
                self.assertIn(f" {one} {kind} ", mounts)
                self.assertEqual({path.name for path in one.iterdir()} - {"lost+found"}, set())
                place.close()

    def test_fresh_of_the_same_name_holds_nothing_of_before(self):
        place = self.place("ext4")
        (place.fresh("drive") / "file").touch()
        self.assertTrue((place.at("drive") / "file").exists())
        self.assertFalse((place.fresh("drive") / "file").exists())

    def test_what_lies_on_an_image_is_there_after_it_was_mounted_again(self):
        place = self.place("ext4")
        (place.fresh("drive") / "file").write_text("content", encoding="ascii")
        place.remount("drive")
        self.assertEqual((place.at("drive") / "file").read_text(encoding="ascii"), "content")

    def test_the_trees_lie_elsewhere_and_nothing_is_left(self):
        place = self.place("ext4")
        self.assertEqual(place.small().parent, self.trees)
        place.fresh("drive")
        place.close()
        self.assertEqual(list(self.folder.iterdir()), [])

    def test_an_image_that_can_not_be_mounted_leaves_nothing(self):
        if reason := images.reason_missing("ext4"):
            self.skipTest(reason)
        with mock.patch.object(images.Image, "_mount", side_effect=SystemExit("no")), self.assertRaises(SystemExit):
            images.Image("ext4", self.folder / "drive")
        self.assertEqual(list(self.folder.iterdir()), [])


if __name__ == "__main__":
    unittest.main()
