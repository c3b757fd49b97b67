#include "Keelbright/screens/review/ScanFindingsModel.h"

#include "tests/support/Printing.h"
#include "tests/support/TestMac.h"

#include <QAbstractItemModelTester>
#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

using Category = ScanFinding::Category;
using Severity = ScanFinding::Severity;

constexpr qint64 gibibyte = 1'073'741'824;

class ScanFindingsModelTests : public ::testing::Test
{
protected:
    [[nodiscard]] static ScanFinding finding(Category category, const QString& title,
                                             const ScanFinding::Action& action = ScanFinding::NavigateTo{
                                                 u"Junk Cleaner"_s})
    {
        return {.category = category,
                .title = title,
                .detail = u"Explained"_s,
                .sizeBytes = 0,
                .action = action,
                .severity = Severity::low};
    }

    [[nodiscard]] ListRow rowOf(const ScanFinding& shown)
    {
        model.setFindings({shown});
        return model.rowAt(1);
    }

    [[nodiscard]] QStringList rows() const
    {
        QStringList texts;
        for (int row = 0; row < model.rowCount(); ++row) {
            const QString header = model.headerAt(row);
            texts.append(header.isEmpty() ? model.rowAt(row).title : header);
        }
        return texts;
    }

    TestMac mac;
    ScanFindingsModel model;
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

} // namespace

TEST_F(ScanFindingsModelTests, groupsAreInAFixedOrderAndKeepTheOrderOfTheReport)
{
    model.setFindings({finding(Category::apps, u"Tidewater"_s), finding(Category::storage, u"Disk"_s),
                       finding(Category::junk, u"Caches"_s), finding(Category::apps, u"Sketchbook"_s),
                       finding(Category::backup, u"Backup overdue"_s), finding(Category::junk, u"Logs"_s)});
    EXPECT_EQ(rows(), (QStringList{u"BACKUP"_s, u"Backup overdue"_s, u"JUNK"_s, u"Caches"_s, u"Logs"_s,
                                   u"STORAGE"_s, u"Disk"_s, u"APPS"_s, u"Tidewater"_s, u"Sketchbook"_s}));
}

TEST_F(ScanFindingsModelTests, aCategoryWithoutFindingsIsLeftOut)
{
    model.setFindings({finding(Category::backup, u"Backup is current"_s)});
    EXPECT_EQ(rows(), (QStringList{u"BACKUP"_s, u"Backup is current"_s}));
    model.setFindings({});
    EXPECT_EQ(model.rowCount(), 0);
}

TEST_F(ScanFindingsModelTests, aRowShowsSeverityTextsAndSize)
{
    ScanFinding shown = finding(Category::junk, u"User Caches"_s);
    shown.severity = Severity::medium;
    shown.sizeBytes = 412'000'000;
    const ListRow row = rowOf(shown);
    EXPECT_EQ(row.picture, ListRow::Picture::dot);
    EXPECT_EQ(row.symbolColor, Role::orange);
    EXPECT_EQ(row.title, u"User Caches"_s);
    EXPECT_EQ(row.detail, u"Explained"_s);
    EXPECT_EQ(row.value, u"412 MB"_s);
}

TEST_F(ScanFindingsModelTests, theSeverityIsPartOfTheAccessibleText)
{
    const QList<std::tuple<Severity, Role, QString>> severities{
        {Severity::low, Role::green, u"low severity"_s},
        {Severity::medium, Role::orange, u"medium severity"_s},
        {Severity::high, Role::red, u"high severity"_s},
    };
    for (const auto& [severity, color, text] : severities) {
        ScanFinding shown = finding(Category::junk, u"User Caches"_s);
        shown.severity = severity;
        EXPECT_EQ(rowOf(shown).symbolColor, color);
        EXPECT_TRUE(model.accessibleText(1).contains(u"User Caches"_s));
        EXPECT_TRUE(model.accessibleText(1).endsWith(text)) << model.accessibleText(1).toStdString();
    }
}

TEST_F(ScanFindingsModelTests, oneGibibyteIsPlainAndAByteMoreIsRed)
{
    ScanFinding shown = finding(Category::junk, u"User Caches"_s);
    shown.sizeBytes = gibibyte;
    EXPECT_EQ(rowOf(shown).value, u"1.07 GB"_s);
    EXPECT_EQ(rowOf(shown).valueColor, Role::primaryText);
    shown.sizeBytes = gibibyte + 1;
    EXPECT_EQ(rowOf(shown).valueColor, Role::red);
}

TEST_F(ScanFindingsModelTests, withoutASizeThereIsNone)
{
    ScanFinding shown = finding(Category::junk, u"User Caches"_s);
    for (const qint64 bytes : {0, -1}) {
        shown.sizeBytes = bytes;
        EXPECT_EQ(rowOf(shown).value, QString());
    }
}

TEST_F(ScanFindingsModelTests, theButtonSaysWhatItDoes)
{
    const auto nameFor = [](const ScanFinding::Action& action) {
        const std::optional<RowAction> button =
            ScanFindingsModel::actionButton(finding(Category::apps, u"Any"_s, action));
        EXPECT_TRUE(!button || button->symbol.isEmpty());
        return button ? button->name : u"no button"_s;
    };
    for (const QString& screen : {u"Junk Cleaner"_s, u"App Manager"_s, u"Storage Browser"_s, u"Settings"_s})
        EXPECT_EQ(nameFor(ScanFinding::NavigateTo{screen}), u"Fix"_s) << screen.toStdString();
    EXPECT_EQ(nameFor(ScanFinding::NavigateTo{u"Dashboard"_s}), u"Back Up"_s);
    EXPECT_EQ(nameFor(ScanFinding::NavigateTo{u"dashboard"_s}), u"no button"_s);
    EXPECT_EQ(nameFor(ScanFinding::NavigateTo{u""_s}), u"no button"_s);
    EXPECT_EQ(nameFor(ScanFinding::OpenURL{mac.home()}), u"Open"_s);
}

TEST_F(ScanFindingsModelTests, aFindingThatNamesNoScreenHasNoButton)
{
    EXPECT_TRUE(
        rowOf(finding(Category::apps, u"Any"_s, ScanFinding::NavigateTo{u"Nowhere"_s})).actions.isEmpty());
    EXPECT_EQ(rowOf(finding(Category::apps, u"Any"_s)).actions.size(), 1);
}

TEST_F(ScanFindingsModelTests, aHundredThousandFindingsKeepTheirOrder)
{
    QList<ScanFinding> findings;
    for (int i = 0; i < 100'000; ++i)
        findings.append(finding(i % 2 == 0 ? Category::apps : Category::junk, QString::number(i)));
    model.setFindings(findings);
    EXPECT_EQ(model.rowCount(), 100'002);
    EXPECT_EQ(model.headerAt(0), u"JUNK"_s);
    EXPECT_EQ(model.rowAt(1).title, u"1"_s);
    EXPECT_EQ(model.headerAt(50'001), u"APPS"_s);
    EXPECT_EQ(model.rowAt(100'001).title, u"99998"_s);
}

} // namespace keelbright::testing
