#include "KeelbrightCore/apps/SpotlightMetadata.h"
#include "tests/fuzz/Fuzzer.h"

namespace keelbright {
namespace {

using fuzzing::require;

QString writtenLines(const QMap<QString, QString>& values)
{
    QString text;
    for (auto line = values.cbegin(); line != values.cend(); ++line)
        text += line.key() + QStringLiteral(" = ") + line.value() + u'\n';
    return text;
}

void requireUtc(const std::optional<QDateTime>& date)
{
    require(!date || (date->isValid() && date->timeSpec() == Qt::UTC), "a date is one, and in UTC");
}

} // namespace
} // namespace keelbright

/// The input is the whole output of the metadata tool.
int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    using namespace keelbright;
    const QByteArray output = fuzzing::bytesOf(data, size);
    QMap<QString, QString> values = AppScanner::parseMdls(QString::fromUtf8(output));
    for (const QString& value : values)
        require(value != QStringLiteral("(null)") && !value.contains(u'\n'), "a value is one of a line");
    // Such a key is possible only if another kind of blank precedes the sign that ends it.
    values.removeIf([](const auto& line) { return line.key().endsWith(QStringLiteral(" =")); });
    require(AppScanner::parseMdls(writtenLines(values)) == values,
            "lines that are written are read as they were");
    const AppScanner::SpotlightMeta metadata = AppScanner::metadataFromOutput(output);
    requireUtc(metadata.lastUsed);
    requireUtc(metadata.dateAdded);
    return 0;
}
