"""The campaigns leave nothing if they are terminated."""

import subprocess
import sys
import unittest
from pathlib import Path

HERE = Path(__file__).parent


class WorkingFolderTests(unittest.TestCase):
    def end(self, script):
        """Terminates a script once it has printed its working folder and a process that it has started."""
        with subprocess.Popen([sys.executable, "-c", "import time\nfrom survival import *\n" + script], cwd=HERE,
                              stdout=subprocess.PIPE, text=True) as process:
            folder, started = process.stdout.readline().strip(), process.stdout.readline().strip()
            self.assertTrue(Path(folder).is_dir())
            self.assertTrue(Path(f"/proc/{started}").exists())
            process.terminate()
            self.assertEqual(process.wait(), 143)
        return Path(folder), Path(f"/proc/{started}")

    def test_neither_a_folder_nor_a_process_is_left(self):
        folder, started = self.end("""
with working_folder() as folder:
    work = Work("sleep", ["60"])
    print(folder, work.process.pid, sep="\\n", flush=True)
    time.sleep(60)
""")
        self.assertFalse(folder.exists())
        self.assertFalse(started.exists())

    def test_a_tree_deeper_than_the_longest_path_is_not_left(self):
        folder, _ = self.end("""
with working_folder() as folder:
    os.chdir(folder)
    for level in range(3_000):
        os.mkdir("level")
        os.chdir("level")
    os.chdir("/")
    print(folder, os.getpid(), sep="\\n", flush=True)
    time.sleep(60)
""")
        self.assertFalse(folder.exists())


if __name__ == "__main__":
    unittest.main()
