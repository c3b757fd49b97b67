#pragma once

#include "Keelbright/widgets/Banner.h"
#include "Keelbright/widgets/Card.h"
#include "Keelbright/widgets/rows/RowWidget.h"
#include "KeelbrightCore/backup/BackupProgress.h"
#include "KeelbrightCore/backup/BackupSource.h"
#include "KeelbrightCore/backup/RiskAlert.h"

#include <functional>

namespace keelbright {

class BarProgress;
class ElidedLabel;
class NumberLabel;

/// A message to the user on a tint of its severity's colour.
class RiskAlertCard : public Banner
{
    Q_OBJECT

public:
    explicit RiskAlertCard(const RiskAlert& alert, QWidget* parent = nullptr);
    [[nodiscard]] static Role color(RiskAlert::Severity severity);
};

/// A protected folder, as a row of a `RowList`: tile, name and path, and a button that removes it
/// where there is something to call.
class SourceRowCard : public RowWidget
{
    Q_OBJECT

public:
    explicit SourceRowCard(const BackupSource& source, std::function<void()> onRemove = {},
                           Role tile = Role::accent, QWidget* parent = nullptr);
};

/// A running backup in short: the file at hand, a bar with its percentage, and three numbers.
class ProgressPanel : public Card
{
    Q_OBJECT

public:
    explicit ProgressPanel(const BackupProgress& progress, QWidget* parent = nullptr);

    void setProgress(const BackupProgress& progress);
    /// Files done over files expected, from 0 to 1; 0 while none are expected.
    [[nodiscard]] static double fraction(const BackupProgress& progress);

private:
    NumberLabel* addNumber(const QString& symbol, class QHBoxLayout* row);

    ElidedLabel* m_currentFile;
    BarProgress* m_bar;
    NumberLabel* m_percent;
    NumberLabel* m_copied;
    NumberLabel* m_skipped;
    NumberLabel* m_size;
};

} // namespace keelbright
