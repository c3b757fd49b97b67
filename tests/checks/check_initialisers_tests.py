"""An initialiser that calls a member function of its class must be found, and any other one left alone."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

CHECK = Path(__file__).parents[2] / "tools" / "check-initialisers"

HEADER = """#pragma once

class Panel : public QWidget
{
public:
    explicit Panel(QWidget* parent = nullptr);

private:
    QWidget* makeList();
    [[nodiscard]] const Folder& folder() const;
    [[nodiscard]] static QWidget* makeHeader(QWidget* parent);

    QWidget* m_first;
    QWidget* m_second;
};
"""


class CheckInitialisersTests(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name)
        (self.root / "Keelbright" / "screens").mkdir(parents=True)
        self.header = self.root / "Keelbright" / "screens" / "Panel.h"
        self.header.write_text(HEADER, encoding="utf-8")

    def faults_with(self, first, second="new QWidget(this)"):
        self.header.with_suffix(".cpp").write_text(
            "Panel::Panel(QWidget* parent)\n"
            "    : QWidget(parent)\n"
            f"    , m_first({first})\n"
            f"    , m_second({second})\n"
            "{\n"
            "    m_second = makeList();\n"
            "}\n",
            encoding="utf-8")
        result = subprocess.run([sys.executable, CHECK, self.root], capture_output=True, text=True, check=False)
        self.assertEqual(result.stderr, "")
        self.assertEqual(result.returncode, 1 if result.stdout else 0)
        return result.stdout.splitlines()

    def test_a_member_function_is_found(self):
        self.assertEqual(self.faults_with("makeList()"),
                         ["Keelbright/screens/Panel.cpp:3: initialised by the member function makeList"])

    def test_a_member_function_within_an_argument_is_found(self):
        self.assertEqual(self.faults_with("makeHeader(this)", "new Switch(folder().name, this)"),
                         ["Keelbright/screens/Panel.cpp:4: initialised by the member function folder"])

    def test_static_and_free_functions_and_those_of_other_objects_are_fine(self):
        self.assertEqual(self.faults_with("makeHeader(this)", "makeChevron(parent)"), [])
        self.assertEqual(self.faults_with("other.folder()", "other->makeList()"), [])
        self.assertEqual(self.faults_with("Other::makeList()"), [])


if __name__ == "__main__":
    unittest.main()
