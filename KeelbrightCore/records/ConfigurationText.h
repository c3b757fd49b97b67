#pragma once

#include "KeelbrightCore/records/AppConfiguration.h"

#include <QByteArray>
#include <optional>

namespace keelbright {

/// Writes configurations as the text of `config.json`. Keeps the text of the last report, as a report
/// of 100,000 error lines takes too long to be written once more for each setting that is saved
/// beside it. One thread at a time.
class ConfigurationText
{
public:
    /// `AppConfiguration::toJson` as QJsonDocument writes it indented.
    [[nodiscard]] QByteArray of(const AppConfiguration& configuration);

private:
    /// As the value of its key in the configuration.
    [[nodiscard]] const QByteArray& ofReport(const BackupReport& report);

    std::optional<BackupReport> m_report;
    QByteArray m_reportText; ///< of `m_report`
};

} // namespace keelbright
