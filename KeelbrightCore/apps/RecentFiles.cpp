// The records that are XML: the documents that programs have opened, and the state of GNOME's shell.

#include "KeelbrightCore/apps/UsageRecords.h"

#include <QXmlStreamReader>
#include <algorithm>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

/// "2026-01-15T09:30:12.123456Z", or the seconds since 1970 that older programs wrote.
std::optional<QDateTime> dateIn(const QXmlStreamAttributes& attributes)
{
    if (attributes.hasAttribute("modified"_L1)) {
        const QDateTime date =
            QDateTime::fromString(attributes.value("modified"_L1).toString(), Qt::ISODateWithMs);
        return date.isValid() ? std::optional(date.toUTC()) : std::nullopt;
    }
    bool isNumber = false;
    const qint64 seconds = attributes.value("timestamp"_L1).toLongLong(&isNumber);
    return isNumber ? AppUse::dateOf(seconds) : std::nullopt;
}

/// The program of a command line such as "'/usr/bin/evince %u'".
QString programIn(const QString& commandLine)
{
    QString text = commandLine.trimmed();
    if (text.startsWith(u'\'') || text.startsWith(u'"'))
        text.remove(0, 1);
    text = text.section(u' ', 0, 0);
    if (text.endsWith(u'\'') || text.endsWith(u'"'))
        text.chop(1);
    return text.section(u'/', -1);
}

void add(UsageRecords::Uses& uses, const QString& key, const AppUse& use)
{
    if (key.isEmpty())
        return;
    AppUse& known = uses[key];
    known.count += use.count;
    known.last = std::max(known.last, use.last);
}

/// No desktop of GNOME counts openings. Its shell adds one to the score for each seven seconds in which the
/// application has the focus, so five minutes of focus stand for one use.
qint64 usesOf(double score)
{
    constexpr double secondsPerScore = 7;
    constexpr double secondsPerUse = 300;
    constexpr double maximumScore = 1e9; // a larger number is no score
    // The shell halves the scores from time to time, but an application with a record has been used.
    const bool isScore = score >= 0 && score <= maximumScore; // which no NaN is
    return isScore ? std::max(qint64{1}, static_cast<qint64>(score * secondsPerScore / secondsPerUse)) : 1;
}

/// Calls `take` with the attributes of each element of that name, until the end or the first mistake.
/// Own entities, which could expand to any size, are one.
template <typename Take> void forEachElement(const QByteArray& data, QStringView name, const Take& take)
{
    QXmlStreamReader xml(data);
    xml.setNamespaceProcessing(false);
    while (!xml.atEnd()) {
        const QXmlStreamReader::TokenType token = xml.readNext();
        if (token == QXmlStreamReader::EntityReference ||
            (token == QXmlStreamReader::DTD && !xml.entityDeclarations().isEmpty()))
            return;
        if (token == QXmlStreamReader::StartElement && xml.qualifiedName() == name)
            take(xml.attributes());
    }
}

} // namespace

UsageReading::Recent UsageReading::recentFiles(const QByteArray& xbel)
{
    Recent recent;
    forEachElement(xbel, u"bookmark:application", [&recent](const QXmlStreamAttributes& attributes) {
        constexpr qint64 maximumCount = 1'000'000; // of one document; a larger number is no count
        const qint64 count = attributes.value("count"_L1).toLongLong();
        if (count < 1 || count > maximumCount)
            return;
        const AppUse use{.count = count, .last = dateIn(attributes)};
        add(recent.byProgram, programIn(attributes.value("exec"_L1).toString()), use);
        add(recent.byName, attributes.value("name"_L1).toString(), use);
    });
    return recent;
}

UsageRecords::Uses UsageReading::gnomeState(const QByteArray& xml)
{
    UsageRecords::Uses uses;
    forEachElement(xml, u"application", [&uses](const QXmlStreamAttributes& attributes) {
        constexpr auto suffix = ".desktop"_L1;
        QString id = attributes.value("id"_L1).toString();
        if (!id.endsWith(suffix))
            return;
        id.chop(suffix.size());
        add(uses, id,
            {.count = usesOf(attributes.value("score"_L1).toDouble()),
             .last = AppUse::dateOf(attributes.value("last-seen"_L1).toLongLong())});
    });
    return uses;
}

} // namespace keelbright
