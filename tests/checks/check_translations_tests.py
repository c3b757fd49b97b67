"""A text that escapes translation and a wrong translation must be found, and right ones left alone."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

CHECK = Path(__file__).parents[2] / "tools" / "check-translations"

HEADER = """#pragma once
class QLabel;
namespace keelbright {
class Panel : public QWidget
{
    Q_OBJECT
public:
    explicit Panel(QWidget* parent = nullptr);
private:
    QLabel* m_label;
};
}
"""

TRANSLATED = [("Hello", None, "Hallo"), ("&amp;Save %1…", None, "%1 &amp;speichern …"),
              ("%n files", "numerus", ["%n Datei", "%n Dateien"])]


def message(source, kind, translation, translation_type=""):
    forms = translation if isinstance(translation, str) else "".join(
        f"<numerusform>{form}</numerusform>" for form in translation)
    numerus = ' numerus="yes"' if kind else ""
    return (f"<message{numerus}><source>{source}</source>"
            f"<translation{translation_type}>{forms}</translation></message>")


class CheckTranslationsTests(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name)
        for place in ("Keelbright/screens", "KeelbrightCore", "translations"):
            (self.root / place).mkdir(parents=True)
        (self.root / "Keelbright/screens/Panel.h").write_text(HEADER, encoding="utf-8")
        self.write_source("")
        self.write_translations(TRANSLATED)

    def write_source(self, line, before=""):
        (self.root / "Keelbright/screens/Panel.cpp").write_text(
            '#include "Keelbright/screens/Panel.h"\n'
            "namespace keelbright {\n"
            f"{before}\n"
            "Panel::Panel(QWidget* parent)\n"
            "    : QWidget(parent)\n"
            "{\n"
            f"    {line}\n"
            '    m_label->setText(tr("Hello")); // "Not shown at all"\n'
            '    setToolTip(tr("&Save %1…").arg(tr("%n files", nullptr, count)));\n'
            "}\n"
            "}\n", encoding="utf-8")

    def write_translations(self, messages, more=""):
        (self.root / "translations/keelbright_de.ts").write_text(
            '<?xml version="1.0" encoding="utf-8"?>\n<!DOCTYPE TS>\n<TS version="2.1" language="de">\n'
            "<context><name>keelbright::Panel</name>" + "".join(message(*one) for one in messages) + more +
            "</context></TS>\n", encoding="utf-8")

    def faults(self):
        result = subprocess.run([sys.executable, CHECK, self.root], capture_output=True, text=True, check=False)
        self.assertEqual(result.returncode, 1 if result.stdout else 0, result.stderr)
        return result.stdout.splitlines()

    def assert_language_fault(self, fault):
        self.assertEqual(self.faults(), [f"translations/keelbright_de.ts: keelbright::Panel: {fault}"])

    def test_a_translated_tree_is_left_alone(self):
        self.assertEqual(self.faults(), [])

    def test_a_text_without_tr_is_found(self):
        self.write_source('m_label->setText(u"Bare words"_s);')
        self.assertEqual(self.faults(), ['Keelbright/screens/Panel.cpp:7: shown without tr: "Bare words"'])

    def test_a_text_without_tr_is_found_behind_a_translated_one(self):
        self.write_source('menu->addAction(tr("Hello"), QStringLiteral("Bare"));')
        self.assertEqual(self.faults(), ['Keelbright/screens/Panel.cpp:7: shown without tr: "Bare"'])

    def test_a_text_without_tr_is_found_in_a_field(self):
        self.write_source('const Request request{.title = u"Bare words"_s};')
        self.assertEqual(self.faults(), ['Keelbright/screens/Panel.cpp:7: shown without tr: "Bare words"'])

    def test_a_text_without_tr_is_found_where_a_function_gives_it_back(self):
        self.write_source("", before='QString Panel::name() { return u"Bare words"_s; }')
        self.assertEqual(self.faults(), ['Keelbright/screens/Panel.cpp:3: shown without tr: "Bare words"'])

    def test_keys_of_symbols_and_names_of_objects_are_fine(self):
        self.write_source('new Tile(u"folder.fill"_s, this); view = findChild<QWidget*>(u"listView"_s);')
        self.assertEqual(self.faults(), [])

    def test_a_text_that_a_function_of_ours_hides_is_found(self):
        self.write_source('m_label->setText(text("Hello"));',
                          before='QString text(const char* words) { return Panel::tr(words); }')
        self.assertEqual(self.faults(), [
            'Keelbright/screens/Panel.cpp:7: shown without tr: "Hello"',
            "Keelbright/screens/Panel.cpp:3: tr(words) hides its text: mark it with QT_TRANSLATE_NOOP"])

    def test_a_context_without_texts_is_found(self):
        self.write_source('m_label->setText(QCoreApplication::translate("Kinds", key));')
        self.assertEqual(self.faults(), ['Keelbright/screens/Panel.cpp:7: no text is marked for the context "Kinds"'])

    def test_a_text_that_lupdate_overlooks_is_found(self):
        self.write_source('const QString s = QCoreApplication::translate("Panel", "%n left", nullptr, '
                          "static_cast<int>(n));")
        self.assertIn('Keelbright/screens/Panel.cpp:7: lupdate does not find "%n left"', self.faults())

    def test_a_context_that_nobody_asks_for_is_found(self):
        self.write_source("", before='const char* names[] = {QT_TRANSLATE_NOOP("Nobody", "Hello")};')
        self.assertIn("the texts of the context Nobody are asked for by nobody", self.faults())

    def test_a_missing_and_a_superfluous_text_are_found(self):
        self.write_translations([*TRANSLATED[1:], ("Bye", None, "Tschüs")])
        self.assertEqual(self.faults(), [
            'translations/keelbright_de.ts: keelbright::Panel: "Hello" is missing',
            'translations/keelbright_de.ts: keelbright::Panel: "Bye" is in no source any more'])

    def test_an_unfinished_translation_is_found(self):
        self.write_translations([*TRANSLATED[1:], ("Hello", None, "Hallo", ' type="unfinished"')])
        self.assert_language_fault('"Hello" is unfinished')

    def test_an_empty_translation_is_found(self):
        self.write_translations([*TRANSLATED[1:], ("Hello", None, "")])
        self.assert_language_fault('"Hello" is empty')

    def test_a_lost_value_is_found(self):
        self.write_translations([TRANSLATED[0], TRANSLATED[2], ("&amp;Save %1…", None, "&amp;Speichern …")])
        self.assert_language_fault("\"&Save %1…\" has [] instead of ['%1']")

    def test_a_lost_mnemonic_is_found(self):
        self.write_translations([TRANSLATED[0], TRANSLATED[2], ("&amp;Save %1…", None, "%1 speichern …")])
        self.assert_language_fault('"&Save %1…" has another number of mnemonics (&)')

    def test_a_lost_ellipsis_is_found(self):
        self.write_translations([TRANSLATED[0], TRANSLATED[2], ("&amp;Save %1…", None, "%1 &amp;speichern")])
        self.assert_language_fault("\"&Save %1…\" differs in its end: '…'")

    def test_a_number_may_be_left_out_of_the_form_for_one_only(self):
        self.write_translations([*TRANSLATED[:2], ("%n files", "numerus", ["Eine Datei", "%n Dateien"])])
        self.assertEqual(self.faults(), [])
        self.write_translations([*TRANSLATED[:2], ("%n files", "numerus", ["%n Datei", "Dateien"])])
        self.assert_language_fault("\"%n files\" has [] instead of ['%n']")

    def test_a_text_that_has_become_a_plural_is_found(self):
        self.write_translations([*TRANSLATED[:2], ("%n files", None, "%n Dateien")])
        self.assert_language_fault('"%n files" has changed between one and several forms')


if __name__ == "__main__":
    unittest.main()
