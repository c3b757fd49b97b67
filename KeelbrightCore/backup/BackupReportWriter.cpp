#include "KeelbrightCore/backup/BackupReportWriter.h"

#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/text/DateFormatter.h"

#include <QJsonDocument>
#include <algorithm>
#include <array>
#include <charconv>
#include <functional>
#include <optional>

namespace keelbright::BackupReportWriter {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype listedErrors = 20;

/// "20260301-090500", in UTC.
QString stamp(const QDateTime& date)
{
    constexpr qsizetype lengthWithoutZone = 15;
    return DateFormatter::iso8601(date).remove(u':').remove(u'-').replace(u'T', u'-').left(lengthWithoutZone);
}

bool isReport(const FileURL& url)
{
    const FileExistence found = FileManager::defaultManager().fileExists(url);
    return found.exists && !found.isDirectory;
}

FileURL fileOf(const FileURL& reportsDir, const QString& name, const QString& ending)
{
    return reportsDir.appending(name + ending);
}

const QStringList& endings()
{
    static const QStringList both{u".json"_s, u".md"_s};
    return both;
}

bool isTaken(const FileURL& reportsDir, const QString& name)
{
    return std::ranges::any_of(
        endings(), [&](const QString& ending) { return isReport(fileOf(reportsDir, name, ending)); });
}

void rename(const FileURL& reportsDir, const QString& from, const QString& to)
{
    for (const QString& ending : endings()) {
        const FileURL file = fileOf(reportsDir, from, ending);
        if (isReport(file))
            (void)FileManager::defaultManager().moveItem(file, fileOf(reportsDir, to, ending));
    }
}

/// Gives an earlier report of this name another one, and returns that. What can't be renamed stays.
std::optional<QString> moveAside(const FileURL& reportsDir, const QString& name)
{
    if (!isTaken(reportsDir, name))
        return std::nullopt;
    int number = 2;
    while (isTaken(reportsDir, name + u'-' + QString::number(number)))
        ++number;
    QString other = name + u'-' + QString::number(number);
    rename(reportsDir, name, other);
    return other;
}

/// One decimal, with a point in every locale. Not by Qt, which rounds halves differently.
QString oneDecimal(double value)
{
    std::array<char, 512> digits{};
    const auto end =
        std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::fixed, 1);
    return QString::fromLatin1(digits.data(), end.ptr - digits.data());
}

QString sourceLines(const QStringList& paths)
{
    QStringList lines;
    for (const QString& path : paths)
        lines.append(u"- `"_s + path + u'`');
    return lines.join(u'\n');
}

QString errorList(const QStringList& errors)
{
    if (errors.isEmpty())
        return u"_None_"_s;
    return errors.first(std::min(errors.size(), listedErrors)).join("\n- "_L1);
}

using WriteFile = std::function<std::expected<void, FileError>(const FileURL&, const QByteArray&)>;

QString nameOf(const BackupReport& report)
{
    return u"backup-report-"_s + stamp(report.startedAt);
}

/// `earlier` is the name that an earlier report of this name has been given.
std::expected<WrittenReport, FileError> writeBoth(const BackupReport& report, const FileURL& reportsDir,
                                                  const std::optional<QString>& earlier,
                                                  const WriteFile& writeFile)
{
    const QString name = nameOf(report);
    WrittenReport written{reportsDir.appending(name + ".json"_L1), reportsDir.appending(name + ".md"_L1)};
    if (const auto done =
            writeFile(written.jsonURL, QJsonDocument(report.toJson()).toJson(QJsonDocument::Indented));
        !done) {
        if (earlier)
            rename(reportsDir, *earlier, name);
        return std::unexpected(done.error());
    }
    if (const auto done = writeFile(written.mdURL, generateMarkdown(report).toUtf8()); !done)
        return std::unexpected(done.error());
    return written;
}

} // namespace

std::expected<WrittenReport, FileError> write(const BackupReport& report, const FileURL& reportsDir)
{
    const auto writeFile = [](const FileURL& url, const QByteArray& data) {
        return FileManager::defaultManager().writeAtomically(url, data);
    };
    return writeBoth(report, reportsDir, moveAside(reportsDir, nameOf(report)), writeFile);
}

std::expected<WrittenReport, FileError> write(const BackupReport& report, const FileURL& reportsDir,
                                              CopyDestination& folder)
{
    const auto writeFile = [&folder](const FileURL& url, const QByteArray& data) {
        return folder.writeAtomically(url.nativeLastPathComponent(), data);
    };
    // Nothing is renamed where another folder has taken the path meanwhile, or a link.
    const auto earlier =
        folder.isInPlace() ? moveAside(reportsDir, nameOf(report)) : std::optional<QString>();
    return writeBoth(report, reportsDir, earlier, writeFile);
}

QString generateMarkdown(const BackupReport& report)
{
    const QString date =
        DateFormatter::string(report.startedAt, DateFormatter::Style::long_, DateFormatter::Style::medium);
    const QStringList lines{
        u"# Keel Bright Backup Report"_s,
        QString(),
        u"**Date:** "_s + date,
        u"**Duration:** "_s + oneDecimal(report.durationSeconds()) + u's',
        QString(),
        u"## Sources"_s,
        sourceLines(report.sourcePaths),
        QString(),
        u"## Destination"_s,
        u'`' + report.destinationPath + u'`',
        QString(),
        u"## Summary"_s,
        QString(),
        u"| Metric | Value |"_s,
        u"|--------|-------|"_s,
        u"| Files Copied | "_s + QString::number(report.filesCopied) + " |"_L1,
        u"| Files Skipped | "_s + QString::number(report.filesSkipped) + " |"_L1,
        u"| Data Copied | "_s + report.copiedSizeFormatted() + " |"_L1,
        u"| Errors | "_s + QString::number(report.errors.size()) + " |"_L1,
        QString(),
        u"## Recovery Manifest"_s,
        u'`' + report.manifestPath + u'`',
        QString(),
        u"## Skipped / Errors"_s,
        u"- "_s + errorList(report.errors),
    };
    return lines.join(u'\n');
}

} // namespace keelbright::BackupReportWriter
