#include "Keelbright/screens/shell/AttentionNotifier.h"

#include <QGuiApplication>
#include <utility>

namespace keelbright {

AttentionNotifier::AttentionNotifier(std::function<void()> ask)
    : m_ask(std::move(ask))
{
    connect(qGuiApp, &QGuiApplication::applicationStateChanged, this, &AttentionNotifier::follow);
}

void AttentionNotifier::show(const Notification&, std::function<void()> onClick)
{
    m_onClick = std::move(onClick);
    m_ask();
}

void AttentionNotifier::follow(Qt::ApplicationState state)
{
    if (state != Qt::ApplicationActive)
        return;
    if (const auto onClick = std::exchange(m_onClick, nullptr))
        onClick();
}

} // namespace keelbright
