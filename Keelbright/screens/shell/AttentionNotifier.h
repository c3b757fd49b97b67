#pragma once

#include "Keelbright/state/Notifier.h"

#include <QObject>

namespace keelbright {

/// Draws attention to the program's own icon, such as by a bounce in the Dock. Whoever then brings the
/// program to the front has clicked.
class AttentionNotifier : public QObject, public Notifier
{
    Q_OBJECT

public:
    /// `ask` draws the attention; called for each notification.
    explicit AttentionNotifier(std::function<void()> ask);

    void show(const Notification& notification, std::function<void()> onClick) override;

private:
    void follow(Qt::ApplicationState state);

    std::function<void()> m_ask;
    std::function<void()> m_onClick;
};

} // namespace keelbright
