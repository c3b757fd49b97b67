#pragma once

#include <QWidget>

namespace keelbright {

enum class Role;

/// What a side panel says where it has no list: a symbol, a title and, where there is more to say,
/// a line below, centred. The title is announced to a screen reader when it comes up.
class PanelNote : public QWidget
{
    Q_OBJECT

public:
    /// An empty detail takes no room.
    PanelNote(const QString& symbol, Role color, const QString& title, const QString& detail = {},
              QWidget* parent = nullptr);

protected:
    void showEvent(QShowEvent* event) override;
};

} // namespace keelbright
