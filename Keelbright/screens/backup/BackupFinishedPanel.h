#pragma once

#include "KeelbrightCore/backup/BackupReport.h"

#include <QWidget>

namespace keelbright {

/// The result of a finished backup: three numbers, the path of the files and buttons for what comes
/// next.
class BackupFinishedPanel : public QWidget
{
    Q_OBJECT

public:
    explicit BackupFinishedPanel(const BackupReport& report, QWidget* parent = nullptr);

    /// The headline for a report.
    [[nodiscard]] static QString headline(const BackupReport& report);

Q_SIGNALS:
    void openFilesPressed();
    void viewReportPressed();
    void backPressed();

private:
    void addOutcome(const BackupReport& report);
    void addNumbers(const BackupReport& report);
    void addPlace(const BackupReport& report);
    void addButtons();
};

} // namespace keelbright
