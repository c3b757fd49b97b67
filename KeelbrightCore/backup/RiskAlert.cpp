#include "KeelbrightCore/backup/RiskAlert.h"

#include <utility>

namespace keelbright {

RiskAlert::RiskAlert(QString alertTitle, QString text, Severity level)
    : id(QUuid::createUuid())
    , title(std::move(alertTitle))
    , message(std::move(text))
    , severity(level)
{}

} // namespace keelbright
