#pragma once

#include <QWidget>

namespace keelbright {

/// Something small is under way: a spinner and what it is, on one line.
class BusyLine : public QWidget
{
    Q_OBJECT

public:
    explicit BusyLine(const QString& text, QWidget* parent = nullptr);
};

} // namespace keelbright
