#include "KeelbrightCore/records/ConfigurationText.h"

#include "KeelbrightCore/platform/formats/JsonWriter.h"

#include <utility>

namespace keelbright {

namespace {

QByteArray textOfReport(const BackupReport& report)
{
    BackupReport withoutErrors = report;
    withoutErrors.errors.clear();
    JsonWriter writer(1);
    writer.beginObject();
    const QJsonObject members = withoutErrors.toJson();
    for (auto member = members.begin(); member != members.end(); ++member) {
        writer.key(member.key());
        if (member.key() == BackupReport::errorsKey)
            writer.value(report.errors);
        else
            writer.value(member.value());
    }
    writer.endObject();
    return writer.take();
}

} // namespace

QByteArray ConfigurationText::of(const AppConfiguration& configuration)
{
    AppConfiguration settings = configuration;
    const std::optional<BackupReport> report = std::exchange(settings.lastReport, std::nullopt);
    QJsonObject members = settings.toJson();
    if (report)
        members.insert(AppConfiguration::lastReportKey, QJsonValue::Null);
    JsonWriter writer;
    writer.beginObject();
    for (auto member = members.begin(); member != members.end(); ++member) {
        writer.key(member.key());
        if (report && member.key() == AppConfiguration::lastReportKey)
            writer.writtenValue(ofReport(*report));
        else
            writer.value(member.value());
    }
    writer.endObject();
    QByteArray text = writer.take();
    return text.append('\n');
}

const QByteArray& ConfigurationText::ofReport(const BackupReport& report)
{
    // Lists that are shared, as in a copy of the report, are equal without a look at their lines.
    if (m_report != report) {
        m_reportText = textOfReport(report);
        m_report = report;
    }
    return m_reportText;
}

} // namespace keelbright
