#pragma once

#include "Keelbright/screens/shared/ScreenContext.h"
#include "Keelbright/state/Screen.h"

#include <QPointer>
#include <QWidget>
#include <optional>

class QVBoxLayout;

namespace keelbright {

/// The detail area: shows the view of the state's selected screen, or the welcome view if none is
/// selected. A view is made when its screen is selected and destroyed when the screen is left.
class DetailView : public QWidget
{
    Q_OBJECT

public:
    /// The members of the context must outlive the view.
    explicit DetailView(const ScreenContext& context, QWidget* parent = nullptr);

    /// The view on screen.
    [[nodiscard]] QWidget* currentView() const { return m_view; }

Q_SIGNALS:
    /// Another view has come; the one before still exists.
    void viewChanged();

private:
    void showSelectedScreen();

    ScreenContext m_context;
    QVBoxLayout* m_layout;
    std::optional<Screen> m_screen;
    QPointer<QWidget> m_view;
};

} // namespace keelbright
