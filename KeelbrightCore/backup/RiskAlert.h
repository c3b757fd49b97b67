#pragma once

#include <QString>
#include <QUuid>

namespace keelbright {

/// A message to the user on the Dashboard.
struct RiskAlert
{
    enum class Severity { low, medium, high };

    /// With a new id.
    RiskAlert(QString alertTitle, QString text, Severity level);

    QUuid id;
    QString title;
    QString message;
    Severity severity;
};

} // namespace keelbright
