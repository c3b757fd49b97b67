"""The trees that everything is measured on, made once at each place and kept while they are needed."""

import os
import shutil
import stat
from dataclasses import dataclass, replace

from comparing.images import Image

KINDS = (".jpg", ".PDF", ".mov", ".mp3", ".zip", ".swift", ".dmg", ".xyz", "")
SIZES = (100, 500, 1000, 2000, 4000, 6000)
CONTENT = b"x" * max(SIZES)
BLOCK = 1 << 20


@dataclass(frozen=True)
class Sizes:
    """How large the trees are."""

    small: int = 100_000
    level_folders: int = 40
    level_files: int = 2_500
    deep: int = 1_000_000
    large: int = 4 << 30
    applications: int = 5_000
    caches: int = 300_000
    cells: int = 10_000

    def but(self, **changes):
        return replace(self, **changes)


QUICK = Sizes(small=500, level_files=20, deep=2_000, large=4 << 20, applications=40, caches=600, cells=100)


def write(folder, name, content, mode=0o644):
    out = os.open(name, os.O_CREAT | os.O_WRONLY | os.O_EXCL, mode, dir_fd=folder)
    try:
        os.write(out, content)
    finally:
        os.close(out)


class Folder:
    """An open folder, made where it is missing."""

    def __init__(self, path):
        path.mkdir(parents=True, exist_ok=True)
        self._descriptor = os.open(path, os.O_RDONLY | os.O_DIRECTORY)

    def __enter__(self):
        return self._descriptor

    def __exit__(self, *_):
        os.close(self._descriptor)


def size_of(number):
    """The size of the file with this number in its folder."""
    return SIZES[number * 7 % len(SIZES)]


def make_files(folder, count, endings=(".txt",)):
    with Folder(folder) as descriptor:
        for number in range(count):
            ending = endings[number % len(endings)]
            write(descriptor, f"file {number:06d}{ending}", CONTENT[:size_of(number)])


def make_small(root, files):
    """A hundred files to a folder, fifty folders to a group."""
    for number in range(0, files, 100):
        folder = root / f"group{number // 5000:03d}" / f"folder{number // 100:05d}"
        make_files(folder, min(100, files - number))


def bytes_of_small(files):
    """What `make_small` writes."""
    return sum(size_of(number % 100) for number in range(files))


def make_level(root, folders, files):
    """Folders side by side, each with as many files."""
    for number in range(folders):
        make_files(root / f"folder{number:03d}", files)


def make_deep(root, files):
    """A hundred branches, each as deep as it must be for a hundred files a level: a hundred levels
    for a million files."""
    branches = min(100, files)
    for branch in range(branches):
        folder = root / f"branch{branch:02d}"
        left = files // branches
        while left > 0:
            make_files(folder, min(100, left))
            left -= 100
            folder = folder / "deeper"


def make_large(path, size):
    block = os.urandom(BLOCK)
    with open(path, "wb") as out:
        for _ in range(size // BLOCK):
            out.write(block)
        os.fsync(out.fileno())


PROPERTIES = """<?xml version="1.0" encoding="UTF-8"?>
<plist version="1.0"><dict>
<key>CFBundleIdentifier</key><string>org.example.app{0}</string>
<key>CFBundleName</key><string>Application {0}</string>
<key>CFBundleShortVersionString</key><string>1.{0}</string>
</dict></plist>
"""


def make_applications(root, count, tool):
    """Bundles in "Applications" of a machine whose root this is, and its metadata tool."""
    (root / "usr" / "bin").mkdir(parents=True)
    (root / "usr" / "bin" / "mdls").symlink_to(tool)
    for number in range(count):
        with Folder(root / "Applications" / f"Application {number}.app" / "Contents") as contents:
            write(contents, "Info.plist", PROPERTIES.format(number).encode())
            os.mkdir("MacOS", dir_fd=contents)
        with Folder(root / "Applications" / f"Application {number}.app" / "Contents" / "MacOS") as programs:
            write(programs, f"Application {number}", CONTENT[:4000], mode=0o755)


def remove(path):
    """A tree of any depth, also one with folders that may not be written to."""
    def open_up(function, name, _):
        os.chmod(os.path.dirname(name), stat.S_IRWXU)
        function(name)
    if path.exists():
        shutil.rmtree(path, onerror=open_up)


class Place:
    """A folder on one kind of file system, with the trees that were asked for."""

    def __init__(self, name, folder, sizes):
        self.name = name
        self.folder = folder
        self.sizes = sizes

    def small(self):
        return self._tree("small", lambda root: make_small(root, self.sizes.small))

    def level(self):
        return self._tree("level", lambda root: make_level(root, self.sizes.level_folders, self.sizes.level_files))

    def deep(self):
        return self._tree("deep", lambda root: make_deep(root, self.sizes.deep))

    def shallow(self):
        """The deep tree with a hundredth of its files."""
        return self._tree("shallow", lambda root: make_deep(root, self.sizes.deep // 100))

    def loose(self):
        """Files of many kinds in one folder."""
        return self._tree("loose", lambda root: make_files(root, self.sizes.small, KINDS))

    def large(self):
        def make(root):
            root.mkdir()
            make_large(root / "large.bin", self.sizes.large)
        return self._tree("large", make)

    def fresh(self, name):
        """An empty folder."""
        folder = self.folder / name
        remove(folder)
        folder.mkdir()
        return folder

    def at(self, name):
        """A folder that was made fresh, as it is now."""
        return self.folder / name

    def drop(self, *names):
        for name in names:
            remove(self.folder / name)

    def close(self):
        """Nothing of it stays outside its folder."""

    def _tree(self, name, make):
        root = self.folder / name
        if not root.exists():
            make(root)
        return root


class ImagePlace(Place):
    """Where every fresh folder is a file system of its own, made for it. The trees lie in a folder elsewhere."""

    def __init__(self, kind, trees, images, sizes):
        super().__init__(kind, trees, sizes)
        self._folder = images
        self._images = {}

    def fresh(self, name):
        self.drop(name)
        self._images[name] = Image(self.name, self._folder / name)
        return self._images[name].folder

    def at(self, name):
        return self._images[name].folder

    def remount(self, name):
        self._images[name].remount()

    def drop(self, *names):
        super().drop(*names)
        for name in names:
            if image := self._images.pop(name, None):
                image.remove()

    def close(self):
        self.drop(*list(self._images))
