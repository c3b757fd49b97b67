#pragma once

#include <QWidget>

namespace keelbright {

enum class Role;

/// What a panel says where it has no list: a picture, a title and, where there is more to say, words
/// below, centred. The title is announced to a screen reader when it comes up.
class PanelNote : public QWidget
{
    Q_OBJECT

public:
    /// An empty detail takes no room.
    PanelNote(const QString& symbol, Role color, const QString& title, const QString& detail = {},
              QWidget* parent = nullptr);

protected:
    /// Takes the picture over.
    PanelNote(QWidget* picture, const QString& title, const QString& detail, QWidget* parent);

    void showEvent(QShowEvent* event) override;
};

/// Something is under way: a spinner above what it is.
class BusyState : public PanelNote
{
    Q_OBJECT

public:
    BusyState(const QString& title, const QString& detail = {}, int diameter = 32, QWidget* parent = nullptr);
};

} // namespace keelbright
