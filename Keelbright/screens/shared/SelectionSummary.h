#pragma once

#include <QWidget>

namespace keelbright {

class ElidedLabel;

/// How much is ticked, for a bar at the bottom: the count, and the size below it. A screen reader
/// announces each change.
class SelectionSummary : public QWidget
{
    Q_OBJECT

public:
    explicit SelectionSummary(QWidget* parent = nullptr);

    /// An empty size takes no room.
    void setSelection(const QString& count, const QString& size);

private:
    ElidedLabel* m_count;
    ElidedLabel* m_size;
};

} // namespace keelbright
