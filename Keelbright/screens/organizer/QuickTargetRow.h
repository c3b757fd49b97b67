#pragma once

#include "Keelbright/widgets/CardButton.h"

namespace keelbright {

class SymbolLabel;

/// A folder in a side panel that a press scans, or the way to choose one. The one in use stands on
/// a tint and points to what it leads to.
class QuickTargetRow : public CardButton
{
    Q_OBJECT

public:
    QuickTargetRow(const QString& symbol, const QString& text, QWidget* parent = nullptr);

    void setActive(bool isActive);

protected:
    void paintEvent(QPaintEvent* event) override;

    /// The press does not make it active; the model does.
    void nextCheckState() override {}

private:
    SymbolLabel* m_chevron;
};

} // namespace keelbright
