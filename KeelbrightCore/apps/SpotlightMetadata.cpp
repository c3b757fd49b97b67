#include "KeelbrightCore/apps/SpotlightMetadata.h"

#include "KeelbrightCore/apps/ScanWork.h"
#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/files/MachinePlaces.h"
#include "KeelbrightCore/platform/files/OutOfMemory.h"
#include "KeelbrightCore/platform/system/Logging.h"
#include "KeelbrightCore/platform/system/Subprocess.h"
#include "KeelbrightCore/platform/system/WaitForMemory.h"
#include "KeelbrightCore/platform/text/DateFormatter.h"

#include <QStringDecoder>
#include <QStringTokenizer>
#include <algorithm>
#include <memory>
#include <new>
#include <utility>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

bool isBlankOrTab(QChar character)
{
    return character == u'\t' || character.category() == QChar::Separator_Space;
}

/// Unlike `QStringView::trimmed`, leaves a carriage return where it is.
QStringView withoutBlanks(QStringView text)
{
    const auto first = std::find_if_not(text.begin(), text.end(), isBlankOrTab);
    const auto last = std::find_if_not(text.rbegin(), std::make_reverse_iterator(first), isBlankOrTab);
    return {first, last.base()};
}

std::optional<QString> valueOf(const QMap<QString, QString>& values, const QString& key)
{
    const auto found = values.find(key);
    return found == values.end() ? std::nullopt : std::optional(*found);
}

/// 0 for anything but a sign, which may be absent, and digits that fit.
qint64 wholeNumber(const QString& text)
{
    const bool hasSign = text.startsWith(u'+') || text.startsWith(u'-');
    const QStringView digits = QStringView(text).sliced(hasSign ? 1 : 0);
    const auto isDigit = [](QChar character) { return character >= u'0' && character <= u'9'; };
    return std::ranges::all_of(digits, isDigit) ? text.toLongLong() : 0;
}

std::expected<void, FileError> askTool(const FileURL& bundle, Subprocess::Receiver receive)
{
    const FileURL tool = MachinePlaces::metadataTool(FileManager::defaultManager());
    return Subprocess::start(tool,
                             {"-name", "kMDItemLastUsedDate", "-name", "kMDItemUseCount", "-name",
                              "kMDItemDateAdded", bundle.nativePath()},
                             std::move(receive));
}

/// Nothing is known, too, where memory runs out for it.
AppScanner::SpotlightMeta metadataOf(const Subprocess::Result& result)
{
    try {
        if (result.isOutputWhole)
            return AppScanner::metadataFromOutput(result.standardOutput);
    } catch (const std::bad_alloc&) {
        qCDebug(appsLog) << "not enough memory for the metadata of an application";
    }
    return {};
}

} // namespace

void AppScanner::spotlightMetadata(const FileURL& bundle, MetadataReceiver receive)
{
    const auto answer = std::make_shared<MetadataReceiver>(std::move(receive));
    whenHelperMayStart([bundle, answer] {
        const auto started =
            orOutOfMemory(FileError::Operation::launched, bundle.nativePath(), [&bundle, &answer] {
                return askTool(bundle, [answer](const Subprocess::Result& result) {
                    startStep([answer, result] {
                        helperHasEnded();
                        (*answer)(metadataOf(result));
                    });
                });
            });
        if (started)
            return;
        // A step of its own, so that a machine without the tool does not go deeper with each application.
        waitingForMemory([&answer] {
            startStep([answer] {
                helperHasEnded();
                (*answer)({});
            });
        });
    });
}

AppScanner::SpotlightMeta AppScanner::metadataFromOutput(const QByteArray& output)
{
    QStringDecoder decoder(QStringConverter::Utf8, QStringConverter::Flag::Stateless);
    const QString text = decoder(output);
    if (decoder.hasError())
        return {};
    const QMap<QString, QString> values = parseMdls(text);
    return {.lastUsed = parseDate(valueOf(values, u"kMDItemLastUsedDate"_s)),
            .useCount = wholeNumber(values.value(u"kMDItemUseCount"_s)),
            .dateAdded = parseDate(valueOf(values, u"kMDItemDateAdded"_s))};
}

QMap<QString, QString> AppScanner::parseMdls(const QString& text)
{
    constexpr QStringView separator = u" = ";
    QMap<QString, QString> values;
    for (const QStringView line : QStringTokenizer{text, u'\n'}) {
        const qsizetype place = line.indexOf(separator);
        if (place < 0)
            continue;
        const QStringView value = withoutBlanks(line.sliced(place + separator.size()));
        if (value != u"(null)")
            values.insert(withoutBlanks(line.first(place)).toString(), value.toString());
    }
    return values;
}

std::optional<QDateTime> AppScanner::parseDate(const std::optional<QString>& text)
{
    if (!text)
        return std::nullopt;
    if (const auto date = DateFormatter::fromPattern(*text, u"yyyy-MM-dd HH:mm:ss Z"_s))
        return date;
    return DateFormatter::fromPattern(*text, u"yyyy-MM-dd HH:mm:ss.SSSSSS Z"_s);
}

} // namespace keelbright
