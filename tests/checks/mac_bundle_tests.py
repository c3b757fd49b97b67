"""The description of the bundle is one that macOS can read, and says all that it asks a program for."""

import plistlib
import re
import unittest
from pathlib import Path

ROOT = Path(__file__).parents[2]
VALUES = {
    "MACOSX_BUNDLE_EXECUTABLE_NAME": "Keel Bright",
    "MACOSX_BUNDLE_ICON_FILE": "keelbright.icns",
    "PROJECT_VERSION": "1.2.3",
    "CMAKE_OSX_DEPLOYMENT_TARGET": "12.0",
}


class MacBundleTests(unittest.TestCase):
    def setUp(self):
        template = (ROOT / "packaging/mac/Info.plist.in").read_text(encoding="utf-8")
        self.plist = plistlib.loads(re.sub(r"\$\{(\w+)\}", lambda name: VALUES[name.group(1)], template).encode())

    def test_it_names_the_program_its_version_and_its_oldest_system(self):
        self.assertEqual(self.plist["CFBundleExecutable"], "Keel Bright")
        self.assertEqual(self.plist["CFBundleIdentifier"], "com.keelbright.keelbright")
        self.assertEqual(self.plist["CFBundlePackageType"], "APPL")
        self.assertEqual(self.plist["CFBundleShortVersionString"], "1.2.3")
        self.assertEqual(self.plist["CFBundleIconFile"], "keelbright.icns")
        self.assertEqual(self.plist["LSMinimumSystemVersion"], "12.0")
        self.assertIs(self.plist["NSHighResolutionCapable"], True)

    def test_it_says_what_each_guarded_place_is_read_for(self):
        for place in ("DesktopFolder", "DocumentsFolder", "DownloadsFolder", "RemovableVolumes", "NetworkVolumes"):
            text = self.plist[f"NS{place}UsageDescription"]
            self.assertTrue(text.startswith("Keel Bright "), text)
            self.assertTrue(text.endswith("."), text)

    def test_the_oldest_system_is_the_one_that_the_check_compiles_for(self):
        check = (ROOT / "tools/mac-check").read_text(encoding="utf-8")
        build = (ROOT / "CMakeLists.txt").read_text(encoding="utf-8")
        self.assertEqual(re.search(r'SYSTEM = "macos\.([\d.]+)"', check).group(1), VALUES["CMAKE_OSX_DEPLOYMENT_TARGET"])
        self.assertIn(f'set(CMAKE_OSX_DEPLOYMENT_TARGET "{VALUES["CMAKE_OSX_DEPLOYMENT_TARGET"]}"', build)


if __name__ == "__main__":
    unittest.main()
