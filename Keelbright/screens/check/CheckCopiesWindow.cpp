#include "Keelbright/screens/check/CheckCopiesWindow.h"

#include "Keelbright/screens/check/CheckResultPanel.h"
#include "Keelbright/screens/check/CheckRunningPanel.h"
#include "Keelbright/screens/check/CheckStartPanel.h"
#include "Keelbright/state/CheckTexts.h"
#include "Keelbright/state/Workspace.h"
#include "Keelbright/widgets/Announcement.h"
#include "Keelbright/widgets/BottomBar.h"
#include "Keelbright/widgets/Button.h"
#include "Keelbright/widgets/Page.h"
#include "Keelbright/widgets/theme/Roles.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QVBoxLayout>

namespace keelbright {

namespace {

constexpr int narrowWidth = 720;

} // namespace

CheckCopiesWindow::CheckCopiesWindow(const ScreenContext& context, QWidget* parent)
    : QDialog(parent)
    , m_context(context)
    , m_vm(context.state, context.files)
    , m_layout(new QVBoxLayout(this))
{
    setWindowTitle(tr("Check Copies"));
    setMinimumSize(minimumWindowSize);
    resize(startingSize);
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setSpacing(0);
    auto* bar = new BottomBar(this);
    auto* close = new Button(Button::Kind::bordered, tr("Close"), {}, bar);
    bar->content()->setContentsMargins(Metrics::pageMarginX, 0, Metrics::pageMarginX, 0);
    bar->content()->addStretch();
    bar->content()->addWidget(close);
    m_layout->addWidget(bar);
    connect(close, &QPushButton::clicked, this, &CheckCopiesWindow::reject);
    connect(&m_vm, &CopyCheckVM::changed, this, &CheckCopiesWindow::redraw);
    connect(&m_vm, &CopyCheckVM::progressChanged, this, &CheckCopiesWindow::redrawProgress);
    redraw();
}

void CheckCopiesWindow::reject()
{
    if (m_vm.phase() == CopyCheckVM::Phase::running)
        m_vm.cancel();
    else
        QDialog::reject();
}

void CheckCopiesWindow::keyPressEvent(QKeyEvent* event)
{
    // A dialog presses a button of its choice with Enter, wherever the focus is.
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        event->ignore();
    else
        QDialog::keyPressEvent(event);
}

void CheckCopiesWindow::redraw()
{
    switch (m_vm.phase()) {
    case CopyCheckVM::Phase::ready:
        showStart();
        return;
    case CopyCheckVM::Phase::running:
    case CopyCheckVM::Phase::cancelling:
        showRunning();
        return;
    case CopyCheckVM::Phase::finished:
        showResult();
        return;
    }
}

void CheckCopiesWindow::redrawProgress()
{
    if (m_running == nullptr)
        return;
    m_running->setProgress(m_vm.progress(), m_vm.pace());
    m_running->setTimeLeft(m_vm.timeLeft());
}

void CheckCopiesWindow::showStart()
{
    if (m_start == nullptr) {
        auto* panel = new CheckStartPanel;
        connect(panel, &CheckStartPanel::startPressed, &m_vm, &CopyCheckVM::checkOriginals);
        connect(panel, &CheckStartPanel::listPressed, &m_vm, &CopyCheckVM::checkList);
        replacePanel(panel, true);
        m_start = panel;
    }
    m_start->setDriveName(m_vm.driveName());
    m_start->setRefusals(m_vm.refusalForOriginals(), m_vm.refusal());
}

void CheckCopiesWindow::showRunning()
{
    if (m_running == nullptr) {
        auto* panel = new CheckRunningPanel;
        connect(panel, &CheckRunningPanel::cancelPressed, &m_vm, &CopyCheckVM::cancel);
        replacePanel(panel, true);
        m_running = panel;
        announce(*panel, tr("Check running"));
    }
    m_running->setCancelling(m_vm.phase() == CopyCheckVM::Phase::cancelling);
    redrawProgress();
}

void CheckCopiesWindow::showResult()
{
    const auto& report = m_vm.report();
    if (!report)
        return;
    if (m_result == nullptr) {
        auto* panel = new CheckResultPanel(*report);
        connect(panel, &CheckResultPanel::revealPressed, this,
                [this](const FileURL& item) { m_context.workspace.reveal(item); });
        connect(panel, &CheckResultPanel::copyPressed, this, &CheckCopiesWindow::copyFindings);
        connect(panel, &CheckResultPanel::savePressed, &m_vm, &CopyCheckVM::saveChecksums);
        connect(panel, &CheckResultPanel::againPressed, &m_vm, &CopyCheckVM::startOver);
        replacePanel(panel, false);
        m_result = panel;
        announce(*panel, CheckTexts::headline(*report));
    }
    m_result->setCanSave(m_vm.canSaveChecksums());
    m_result->setSavingNote(m_vm.savingNote(), m_vm.hasSavingFailed());
}

void CheckCopiesWindow::copyFindings() const
{
    if (const auto& report = m_vm.report())
        QGuiApplication::clipboard()->setText(CheckTexts::listOf(*report));
}

void CheckCopiesWindow::replacePanel(QWidget* panel, bool isNarrow)
{
    if (m_page != nullptr) {
        // A click on one of its buttons may still be running.
        m_page->hide();
        m_page->deleteLater();
    }
    m_start = nullptr;
    m_running = nullptr;
    m_result = nullptr;
    auto* page = new Page(this);
    if (isNarrow) {
        page->setMaximumContentWidth(narrowWidth);
        page->content()->addStretch(4);
        page->content()->addWidget(panel);
        page->content()->addStretch(5);
    } else {
        page->content()->addWidget(panel, 1);
    }
    m_layout->insertWidget(0, page, 1);
    m_page = page;
    page->show();
}

} // namespace keelbright
