#include "Keelbright/screens/undo/UndoWindow.h"

#include "Keelbright/screens/undo/UndoResultPanel.h"
#include "Keelbright/screens/undo/UndoRunningPanel.h"
#include "Keelbright/state/UndoTexts.h"
#include "Keelbright/widgets/Announcement.h"
#include "Keelbright/widgets/theme/Roles.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QVBoxLayout>

namespace keelbright {

namespace {

constexpr int lookInterval = 100; // milliseconds

} // namespace

UndoWindow::UndoWindow(UndoStore& store, QWidget* parent)
    : QDialog(parent)
    , m_store(store)
    , m_layout(new QVBoxLayout(this))
{
    setWindowTitle(UndoTexts::action(store.kind()));
    setMinimumSize(minimumWindowSize);
    resize(startingSize);
    m_layout->setContentsMargins(Metrics::pageMarginX, Metrics::pageMarginY, Metrics::pageMarginX,
                                 Metrics::pageMarginY);
    m_look.setInterval(lookInterval);
    connect(&m_look, &QTimer::timeout, this, &UndoWindow::redrawRunning);
    connect(&store, &UndoStore::changed, this, &UndoWindow::redrawRunning);
    showRunning();
}

void UndoWindow::showRunning()
{
    m_running = new UndoRunningPanel;
    connect(m_running, &UndoRunningPanel::cancelPressed, &m_store, &UndoStore::cancel);
    replacePanel(m_running);
    redrawRunning();
    m_look.start();
}

void UndoWindow::redrawRunning()
{
    if (m_running == nullptr || !m_store.isUndoing())
        return;
    m_running->setProgress(m_store.tried(), m_store.total());
    m_running->setCancelling(m_store.isCancelling());
}

void UndoWindow::showResult(const UndoResult& result)
{
    m_look.stop();
    m_running = nullptr;
    setWindowTitle(
        UndoTexts::action(result.isFromTrash() ? UndoStore::Kind::trash : UndoStore::Kind::organise));
    auto* panel = new UndoResultPanel(result);
    connect(panel, &UndoResultPanel::closePressed, this, &QDialog::accept);
    connect(panel, &UndoResultPanel::copyPressed, this,
            [result] { QGuiApplication::clipboard()->setText(UndoTexts::listOf(result)); });
    replacePanel(panel);
    announce(*panel, UndoTexts::headline(result));
}

void UndoWindow::replacePanel(QWidget* panel)
{
    if (m_panel != nullptr) {
        // A click on its button may still be running.
        m_layout->removeWidget(m_panel);
        m_panel->hide();
        m_panel->deleteLater();
    }
    m_layout->addWidget(panel);
    m_panel = panel;
    panel->show();
}

void UndoWindow::reject()
{
    if (m_running != nullptr && m_store.isUndoing() && !m_store.isCancelling())
        m_store.cancel();
    else
        QDialog::reject();
}

void UndoWindow::keyPressEvent(QKeyEvent* event)
{
    // A dialog presses a button of its choice with Enter, wherever the focus is.
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        event->ignore();
    else
        QDialog::keyPressEvent(event);
}

} // namespace keelbright
