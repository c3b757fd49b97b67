#pragma once

#include <QWidget>

class QVBoxLayout;

namespace keelbright {

/// The placeholder of a screen or list with nothing to show: an icon above a title and a message,
/// centred.
class EmptyStateView : public QWidget
{
    Q_OBJECT

public:
    EmptyStateView(const QString& title, const QString& message, const QString& icon,
                   QWidget* parent = nullptr);

    /// Adds a widget below the message and takes ownership of it.
    void addAction(QWidget* action);
    using QWidget::addAction;

private:
    QVBoxLayout* m_column;
};

} // namespace keelbright
