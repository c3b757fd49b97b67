#include "Keelbright/screens/shell/Translations.h"
#include "Keelbright/widgets/MenuButton.h"
#include "Keelbright/widgets/rows/RowListView.h"
#include "KeelbrightCore/platform/system/Host.h"
#include "KeelbrightCore/platform/text/DateFormatter.h"
#include "tests/gallery/ScreenStates.h"
#include "tests/gallery/Stage.h"
#include "tests/screens/shell/ScreenLooks.h"
#include "tests/support/PaintedText.h"
#include "tests/support/TranslationFile.h"
#include "tests/support/WindowChecks.h"

#include <QApplication>
#include <QDirIterator>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QRegularExpression>
#include <memory>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

/// German before the first text is asked for: some are looked up once.
class GermanEnvironment : public ::testing::Environment
{
public:
    void SetUp() override
    {
        m_translations = std::make_unique<Translations>(QStringList{u"de"_s});
        ASSERT_EQ(m_translations->language(), u"de"_s);
    }

    void TearDown() override { m_translations.reset(); }

private:
    std::unique_ptr<Translations> m_translations;
};

[[maybe_unused]] const ::testing::Environment* const germanEnvironment =
    ::testing::AddGlobalTestEnvironment(new GermanEnvironment);

const TranslationFile& german()
{
    static const TranslationFile file(u"de"_s);
    return file;
}

/// The window speaks German on a machine whose files have English names.
class GermanScreenTests : public ::testing::TestWithParam<ScreenState>
{
protected:
    GermanScreenTests()
    {
        Theme::instance().install();
        stage.mac.setLocale(QLocale(QLocale::German, QLocale::Germany));
        GetParam().play(stage);
    }

    Stage stage;
};

void addMenu(const QMenu& menu, QStringList& texts)
{
    for (const QAction* action : menu.actions()) {
        texts.append({action->text(), action->toolTip()});
        if (const QMenu* inner = action->menu())
            addMenu(*inner, texts);
    }
}

void addRows(const RowListView& list, QStringList& texts)
{
    const RowModel& model = *list.rowModel();
    for (int row = 0; row < model.rowCount(); ++row) {
        if (!model.headerAt(row).isEmpty()) {
            texts.append(model.headerAt(row));
            continue;
        }
        texts.append(model.accessibleText(row));
        const ListRow shown = model.rowAt(row);
        texts.append({shown.title, shown.tag, shown.aside, shown.detail, shown.capsule, shown.value});
        for (const RowAction& action : shown.actions + shown.menuActions)
            texts.append(action.name);
    }
}

/// What a user can see or hear of the window, whole where it is drawn cut short.
QStringList textsOf(const QWidget& window)
{
    QStringList texts{window.windowTitle()};
    for (const auto* widget : window.findChildren<QWidget*>()) {
        if (const auto* bar = qobject_cast<const QMenuBar*>(widget)) {
            for (const QAction* action : bar->actions()) {
                texts.append(action->text());
                addMenu(*action->menu(), texts);
            }
        }
        if (!widget->isVisible())
            continue;
        texts.append({widget->accessibleName(), widget->accessibleDescription(), widget->toolTip()});
        if (const auto* label = qobject_cast<const QLabel*>(widget))
            texts.append(label->text());
        if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
            texts.append(button->text());
        if (const auto* field = qobject_cast<const QLineEdit*>(widget))
            texts.append(field->placeholderText());
        if (const auto* choices = qobject_cast<const MenuButton*>(widget))
            addMenu(*choices->choiceMenu(), texts);
        if (const auto* list = qobject_cast<const RowListView*>(widget))
            addRows(*list, texts);
    }
    return texts;
}

/// The names of all that lies on the machine, which are shown as they are.
QSet<QString> wordsOfMachine(const Stage& stage)
{
    QSet<QString> words = TranslationFile::wordsIn(stage.mac.root().path());
    QDirIterator files(stage.mac.root().path(), QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        files.next();
        words.unite(TranslationFile::wordsIn(files.fileName()));
    }
    return words;
}

QSet<QString> wordsOfDates()
{
    QSet<QString> words;
    for (int month = 1; month <= 12; ++month) {
        const QDateTime date(QDate(2026, month, 1), QTime(9, 5));
        words.unite(TranslationFile::wordsIn(
            DateFormatter::string(date, DateFormatter::Style::long_, DateFormatter::Style::short_)));
    }
    return words;
}

/// What the stage's machine holds in no file of its own: names of several words, and what others wrote.
const QStringList& madeUpTexts()
{
    static const QStringList texts{
        QString::fromLatin1(longName),
        u"The whole long story of how we rowed around the Lofoten in three weeks of rain, as told by"_s,
        u"on the evening after (final, corrected)"_s, u"The whole long story"_s,
        u"some more folders, so that the path is longer than the card is wide"_s, u"A folder that is gone"_s,
        u"Sketchbook for Everyone Who Would Rather Draw Than Write, Student Edition 2026"_s, u"Old Scanner"_s,
        u"Garden diary"_s, u"Summer in the archipelago"_s, u"Miras Mac"_s, u"Tide Table"_s,
        // Of the command that removes a package.
        u"flatpak uninstall"_s,
        // Of the answer of the App Store.
        u"keeps what you draw, wherever you are. Sketch on the train, sort at home, and find every page "
        "again years later."_s,
        u"Example Ltd."_s, u"Graphics & Design"_s,
        // Lines in the log that no present version writes.
        u"Full scan finished"_s, u"7 findings"_s,
        u"appVersion"_s, // a key of the manifest
    };
    return texts;
}

/// The text without names that are shown as they are: paths, and whatever has an ending.
QString withoutNames(QString text)
{
    for (const QString& name : madeUpTexts())
        text.remove(name);
    static const QRegularExpression names(u"\\S*/\\S*|\\S*\\.[^\\s“]\\S*"_s);
    return text.remove(names);
}

/// Each word that is neither in a translation nor on the machine, with its text.
QString foreignWords(const QStringList& texts, const Stage& stage)
{
    const QSet<QString> known = german().words() | wordsOfMachine(stage) | wordsOfDates() |
                                TranslationFile::wordsIn(u"Ctrl "_s + Host::operatingSystemVersionString());
    QStringList found;
    for (const QString& text : texts) {
        for (const QString& word : TranslationFile::wordsIn(withoutNames(text)) - known)
            found.append(u"\"%1\" in: %2"_s.arg(word, text));
    }
    found.removeDuplicates();
    found.sort();
    return found.join(u'\n');
}

QStringList cutTranslations(QWidget& window)
{
    QStringList found;
    for (auto* widget : window.findChildren<QWidget*>()) {
        if (!widget->isVisible() || widget->visibleRegion().isEmpty())
            continue;
        for (const PaintedText& text : textsPaintedBy(*widget)) {
            if (german().isCut(text.text))
                found.append(u"%1 in %2"_s.arg(text.text, nameOf(*widget)));
        }
    }
    return found;
}

} // namespace

TEST_P(GermanScreenTests, everyTextIsGerman)
{
    QStringList texts = textsOf(stage.window());
    for (const AlertRequest& request : stage.alerts.requests())
        texts.append({request.title, request.message, request.action, request.cancel, request.secondAction});
    for (const FolderChooserRequest& request : stage.folderChooser.requests())
        texts.append({request.message, request.prompt});
    EXPECT_EQ(foreignWords(texts, stage).toStdString(), "");
}

TEST_P(GermanScreenTests, noTextIsCut)
{
    EXPECT_EQ(faultsInEveryLook(stage, cutTexts), "");
    EXPECT_EQ(faultsInEveryLook(stage, cutTranslations), "");
}

TEST_P(GermanScreenTests, noTextLiesOnAnother)
{
    EXPECT_EQ(faultsInEveryLook(stage, coveredTexts), "");
}

INSTANTIATE_TEST_SUITE_P(States, GermanScreenTests, ::testing::ValuesIn(screenStates()), testNameOfState);

/// The checks above can fail.
class GermanCheckTests : public ::testing::Test
{
protected:
    GermanCheckTests()
    {
        stage.mira.populate();
        stage.goTo(Screen::settings);
    }

    Stage stage;
};

TEST_F(GermanCheckTests, anEnglishTextIsFound)
{
    QLabel label(u"Choose something"_s, &stage.window());
    label.show();
    EXPECT_EQ(foreignWords(textsOf(stage.window()), stage).toStdString(),
              "\"choose\" in: Choose something\n\"something\" in: Choose something");
}

TEST_F(GermanCheckTests, anEnglishNameForScreenReadersIsFound)
{
    QWidget widget(&stage.window());
    widget.setAccessibleName(u"Choose"_s);
    widget.show();
    EXPECT_EQ(foreignWords(textsOf(stage.window()), stage).toStdString(), "\"choose\" in: Choose");
}

TEST_F(GermanCheckTests, aTranslationThatIsCutShortIsFound)
{
    EXPECT_TRUE(german().isCut(u"Backup-Fort…"_s));
    EXPECT_FALSE(german().isCut(u"Backup-Fortschritt"_s));
    EXPECT_FALSE(german().isCut(u"Wird gescannt …"_s));
    EXPECT_FALSE(german().isCut(u"IMG_41…"_s));
}

} // namespace keelbright::testing
