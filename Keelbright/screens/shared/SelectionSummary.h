#pragma once

#include <QWidget>

namespace keelbright {

class ElidedLabel;

/// How much is ticked, in a bar at the bottom: the number, and its size below. A change is announced
/// to a screen reader.
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
