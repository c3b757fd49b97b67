#pragma once

#include "Keelbright/widgets/CardButton.h"

namespace keelbright {

class SymbolLabel;

/// A button in a side panel that scans a folder, or that lets the user choose one. The active one stands
/// on a tint and has a chevron.
class QuickTargetRow : public CardButton
{
    Q_OBJECT

public:
    QuickTargetRow(const QString& symbol, const QString& text, QWidget* parent = nullptr);

    void setActive(bool isActive);

protected:
    void paintEvent(QPaintEvent* event) override;

    /// A press does not make it active; the model does.
    void nextCheckState() override {}

private:
    SymbolLabel* m_chevron;
};

} // namespace keelbright
