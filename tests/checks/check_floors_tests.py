"""A house with one wrong include must be found out, and a right one left in peace."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

CHECK = Path(__file__).parents[2] / "tools" / "check-floors"


class CheckFloorsTests(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name)
        self.write("KeelbrightCore/platform/Ground.h", "#include <unistd.h>\n#include <QString>\n#ifdef __linux__\n#endif\n")
        self.write("KeelbrightCore/backup/Runner.h", '#include "KeelbrightCore/platform/Ground.h"\n#include <QObject>\n')
        self.write("Keelbright/state/State.h", '#include "KeelbrightCore/backup/Runner.h"\n')
        self.write("Keelbright/widgets/theme/DesktopSettings.cpp", "#include <QDBusConnection>\n#include <QColor>\n")
        self.write("Keelbright/screens/shell/Window.cpp", '#include "Keelbright/state/State.h"\n#include <QWidget>\n')
        self.write("Keelbright/main.cpp", '#include "Keelbright/screens/shell/Window.h"\n')

    def write(self, path, text):
        file = self.root / path
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(text, encoding="utf-8")

    def check(self):
        return subprocess.run([sys.executable, CHECK, self.root], capture_output=True, text=True, check=False)

    def assert_found_out(self, path, text, fault):
        self.write(path, text)
        result = self.check()
        self.assertEqual((result.returncode, result.stdout), (1, f"{path}:1: {fault}\n"), result.stderr)

    def test_a_house_in_order_is_left_in_peace(self):
        result = self.check()
        self.assertEqual((result.returncode, result.stdout, result.stderr), (0, "", ""))

    def test_a_lower_floor_may_not_include_a_higher_one(self):
        self.write("KeelbrightCore/records/Store.h", "")
        self.assert_found_out("KeelbrightCore/backup/Wrong.h", '#include "KeelbrightCore/records/Store.h"\n',
                              "KeelbrightCore/backup may not include KeelbrightCore/records/Store.h: it stands above")

    def test_a_screen_may_include_its_own_room_and_what_is_shared(self):
        self.write("Keelbright/screens/JunkCleanerView.cpp",
                   '#include "Keelbright/screens/junk/Panel.h"\n#include "Keelbright/screens/shared/Card.h"\n')
        self.write("Keelbright/screens/junk/Panel.h", '#include "Keelbright/screens/shared/Card.h"\n')
        self.write("Keelbright/screens/shell/Factory.cpp", '#include "Keelbright/screens/JunkCleanerView.h"\n')
        self.test_a_house_in_order_is_left_in_peace()

    def test_a_room_may_not_include_another_one(self):
        self.assert_found_out("Keelbright/screens/junk/Wrong.h", '#include "Keelbright/screens/apps/Panel.h"\n',
                              "junk may not include Keelbright/screens/apps/Panel.h: it is in another room")

    def test_what_is_shared_may_not_include_a_room(self):
        self.assert_found_out("Keelbright/screens/shared/Wrong.h", '#include "Keelbright/screens/apps/Panel.h"\n',
                              "shared may not include Keelbright/screens/apps/Panel.h: it is in another room")

    def test_a_screen_may_not_include_the_room_of_another_one(self):
        self.assert_found_out("Keelbright/screens/JunkCleanerView.cpp", '#include "Keelbright/screens/apps/Panel.h"\n',
                              "JunkCleanerView may not include Keelbright/screens/apps/Panel.h: it is in another room")

    def test_a_screen_may_not_include_another_screen(self):
        self.assert_found_out("Keelbright/screens/JunkCleanerView.cpp", '#include "Keelbright/screens/DashboardView.h"\n',
                              "JunkCleanerView may not include Keelbright/screens/DashboardView.h: it is in another room")

    def test_a_room_may_not_include_a_screen(self):
        self.assert_found_out("Keelbright/screens/junk/Wrong.h", '#include "Keelbright/screens/JunkCleanerView.h"\n',
                              "junk may not include Keelbright/screens/JunkCleanerView.h: it is in another room")

    def test_the_shell_may_include_the_window_of_a_room_and_nothing_else_of_it(self):
        self.write("Keelbright/screens/check/CheckCopiesWindow.h", "")
        self.write("Keelbright/screens/check/Panel.h", "")
        self.write("Keelbright/screens/shell/Opener.cpp", '#include "Keelbright/screens/check/CheckCopiesWindow.h"\n')
        self.test_a_house_in_order_is_left_in_peace()
        self.assert_found_out("Keelbright/screens/shell/Wrong.cpp", '#include "Keelbright/screens/check/Panel.h"\n',
                              "shell may not include Keelbright/screens/check/Panel.h: it is in another room")

    def test_only_screens_lie_at_the_top(self):
        self.write("Keelbright/screens/Helper.h", "")
        result = self.check()
        self.assertEqual((result.returncode, result.stdout),
                         (1, "Keelbright/screens/Helper.h: only the screens themselves lie at the top of Keelbright/screens\n"))

    def test_an_unknown_room_is_reported(self):
        self.write("Keelbright/screens/cellar/Helper.h", "")
        result = self.check()
        self.assertEqual((result.returncode, result.stdout),
                         (1, "Keelbright/screens/cellar/Helper.h: cellar is no known room\n"))

    def test_a_missing_header_is_judged_by_its_folder(self):
        self.assert_found_out("KeelbrightCore/backup/Wrong.h", '#include "Keelbright/state/Gone.h"\n',
                              "KeelbrightCore/backup may not include Keelbright/state/Gone.h: it stands above")

    def test_a_relative_path_is_no_way_around(self):
        self.assert_found_out("Keelbright/state/Wrong.cpp", '#include "../widgets/../screens/shell/Window.cpp"\n',
                              "Keelbright/state may not include ../widgets/../screens/shell/Window.cpp: it stands above")

    def test_only_the_ground_floor_includes_system_headers(self):
        self.assert_found_out("Keelbright/screens/shell/Wrong.cpp", "#include <sys/stat.h>\n",
                              "only KeelbrightCore/platform may include <sys/stat.h>")

    def test_only_the_ground_floor_asks_for_the_system(self):
        self.assert_found_out("KeelbrightCore/backup/Wrong.cpp", "#if defined(Q_OS_LINUX)\n",
                              "only KeelbrightCore/platform may ask for the system")

    def test_dbus_stays_with_what_talks_to_the_desktop(self):
        self.assert_found_out("Keelbright/screens/shell/Wrong.cpp", "#include <QDBusMessage>\n",
                              "only what talks to the desktop and KeelbrightCore/platform may include <QDBusMessage>")

    def test_the_logic_includes_no_header_of_a_window(self):
        self.assert_found_out("Keelbright/state/Wrong.cpp", "#include <QColor>\n",
                              "Keelbright/state knows no window, so it may not include <QColor>")

    def test_the_program_includes_nothing_of_its_tests(self):
        self.write("tests/support/Help.h", "")
        self.assert_found_out("Keelbright/screens/shell/Wrong.cpp", '#include "tests/support/Help.h"\n',
                              "the program may not include tests/support/Help.h")

    def test_a_file_outside_every_floor_is_reported(self):
        self.write("KeelbrightCore/attic/Old.h", "")
        result = self.check()
        self.assertEqual((result.returncode, result.stdout),
                         (1, "KeelbrightCore/attic/Old.h: stands on no known floor\n"))

    def test_a_tree_without_sources_is_no_success(self):
        with tempfile.TemporaryDirectory() as empty:
            result = subprocess.run([sys.executable, CHECK, empty], capture_output=True, text=True, check=False)
        self.assertNotEqual(result.returncode, 0)


if __name__ == "__main__":
    unittest.main()
