#pragma once

#include <QWidget>

namespace keelbright {

enum class Role;

/// The content of a panel without a list: a picture, a title and perhaps a detail, centred. Its title
/// is announced to a screen reader when it appears.
class PanelNote : public QWidget
{
    Q_OBJECT

public:
    /// An empty detail takes no room.
    PanelNote(const QString& symbol, Role color, const QString& title, const QString& detail = {},
              QWidget* parent = nullptr);

protected:
    /// Takes ownership of the picture.
    PanelNote(QWidget* picture, const QString& title, const QString& detail, QWidget* parent);

    void showEvent(QShowEvent* event) override;
};

/// A note for running work: a spinner above its title.
class BusyState : public PanelNote
{
    Q_OBJECT

public:
    BusyState(const QString& title, const QString& detail = {}, int diameter = 32, QWidget* parent = nullptr);
};

} // namespace keelbright
