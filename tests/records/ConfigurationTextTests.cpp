#include "KeelbrightCore/records/ConfigurationText.h"
#include "tests/records/SampleConfiguration.h"
#include "tests/support/Printing.h"

#include <QJsonDocument>
#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

QStringList errorLines(int count)
{
    QStringList lines;
    for (int i = 0; i < count; ++i)
        lines.append(u"Skip IMG_%1.heic: “IMG_%1.heic” could not be copied."_s.arg(i));
    return lines;
}

QByteArray byTheLibrary(const AppConfiguration& configuration)
{
    return QJsonDocument(configuration.toJson()).toJson(QJsonDocument::Indented);
}

} // namespace

TEST(ConfigurationText, isTheJsonOfTheConfigurationWithAndWithoutWhatMayBeAbsent)
{
    ConfigurationText text;
    EXPECT_EQ(text.of({}), byTheLibrary({}));
    AppConfiguration configuration = sampleConfiguration();
    EXPECT_EQ(text.of(configuration), byTheLibrary(configuration));
    configuration.lastBackupTime.reset();
    configuration.selectedDestination.reset();
    EXPECT_EQ(text.of(configuration), byTheLibrary(configuration));
    configuration.lastReport.reset();
    EXPECT_EQ(text.of(configuration), byTheLibrary(configuration));
    configuration = {};
    configuration.lastReport = sampleReport();
    EXPECT_EQ(text.of(configuration), byTheLibrary(configuration));
}

TEST(ConfigurationText, holdsAnyTextAsItIs)
{
    const QString lookalike = u"\n    \"lastReport\": null"_s;
    AppConfiguration configuration = sampleConfiguration();
    configuration.customSources.first().url = FileURL::fromPath(u"/Users"_s).appending(lookalike);
    configuration.enabledRecommendedFolders = {lookalike, u"lastReport"_s, u"null"_s};
    configuration.lastReport->sourcePaths = {lookalike, u"errors"_s};
    configuration.lastReport->errors = {lookalike,          QString(),
                                        u"    }\n}\n"_s,    u"a \"quote\" and a \\"_s,
                                        u"“é” 𝄞\r\b\f\0"_s, QString(QChar(0xdc00))};
    EXPECT_EQ(ConfigurationText().of(configuration), byTheLibrary(configuration));
}

TEST(ConfigurationText, aChangeOfAnyFieldOfTheReportIsInTheNextText)
{
    const QList<void (*)(BackupReport&)> changes{
        [](BackupReport& report) { report.id = QUuid::createUuid(); },
        [](BackupReport& report) { report.jobId = QUuid::createUuid(); },
        [](BackupReport& report) { report.startedAt = report.startedAt.addSecs(1); },
        [](BackupReport& report) { report.completedAt = report.completedAt.addSecs(1); },
        [](BackupReport& report) { report.sourcePaths.append(u"/Users/mira/Music"_s); },
        [](BackupReport& report) { report.destinationPath += u'2'; },
        [](BackupReport& report) { report.personalFilesPath += u'2'; },
        [](BackupReport& report) { ++report.filesCopied; },
        [](BackupReport& report) { ++report.filesSkipped; },
        [](BackupReport& report) { ++report.bytesCopied; },
        [](BackupReport& report) { report.errors.append(u"Skip a"_s); },
        [](BackupReport& report) { report.errors.last() = u"Skip b"_s; },
        [](BackupReport& report) { report.manifestPath = u"Failed"_s; },
    };
    ConfigurationText text;
    AppConfiguration configuration = sampleConfiguration();
    for (const auto change : changes) {
        const QByteArray before = text.of(configuration);
        change(*configuration.lastReport);
        EXPECT_NE(text.of(configuration), before);
        EXPECT_EQ(text.of(configuration), byTheLibrary(configuration));
    }
}

TEST(ConfigurationText, aHundredThousandErrorLinesAreInItAsInTheJson)
{
    AppConfiguration configuration = sampleConfiguration();
    configuration.lastReport->errors = errorLines(100'000);
    ConfigurationText text;
    EXPECT_TRUE(text.of(configuration) == byTheLibrary(configuration));
    configuration.enabledRecommendedFolders.append(u"Music"_s);
    EXPECT_TRUE(text.of(configuration) == byTheLibrary(configuration));
}

} // namespace keelbright::testing
