#pragma once

#include "Keelbright/widgets/Banner.h"
#include "Keelbright/widgets/CardButton.h"
#include "Keelbright/widgets/rows/RowWidget.h"
#include "KeelbrightCore/backup/BackupProgress.h"
#include "KeelbrightCore/backup/BackupSource.h"
#include "KeelbrightCore/backup/RiskAlert.h"

#include <functional>

namespace keelbright {

class BarProgress;
class ElidedLabel;
class NumberLabel;

/// An alert on a tint of its severity's colour.
class RiskAlertCard : public Banner
{
    Q_OBJECT

public:
    explicit RiskAlertCard(const RiskAlert& alert, QWidget* parent = nullptr);
    [[nodiscard]] static Role color(RiskAlert::Severity severity);
};

/// A protected folder as a row of a `RowList`: tile, name, path and a button that calls `onRemove`.
/// There is no button if `onRemove` is empty.
class SourceRowCard : public RowWidget
{
    Q_OBJECT

public:
    explicit SourceRowCard(const BackupSource& source, std::function<void()> onRemove = {},
                           Role tile = Role::accent, QWidget* parent = nullptr);
};

/// The short form of a running backup: current file, a bar with its percentage and three numbers. It is one
/// button; its owner connects to `clicked`.
class ProgressPanel : public CardButton
{
    Q_OBJECT

public:
    explicit ProgressPanel(const BackupProgress& progress, QWidget* parent = nullptr);

    void setProgress(const BackupProgress& progress);
    /// The finished files divided by the expected ones, from 0 to 1; 0 while none are expected.
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
