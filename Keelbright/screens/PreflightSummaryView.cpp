#include "Keelbright/screens/PreflightSummaryView.h"

#include "Keelbright/state/AppState.h"
#include "Keelbright/state/Delivery.h"
#include "Keelbright/state/L10n.h"
#include "Keelbright/widgets/Announcement.h"
#include "Keelbright/widgets/Banner.h"
#include "Keelbright/widgets/BottomBar.h"
#include "Keelbright/widgets/Button.h"
#include "Keelbright/widgets/Card.h"
#include "Keelbright/widgets/Headers.h"
#include "Keelbright/widgets/NumberLabel.h"
#include "Keelbright/widgets/Page.h"
#include "Keelbright/widgets/Progress.h"

#include <QHBoxLayout>
#include <QHideEvent>
#include <QShortcut>
#include <QShowEvent>
#include <QVBoxLayout>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

/// Narrow enough for the eye to find the value of a label.
constexpr int formWidth = 680;

/// Names the row of the number, so that a screen reader reads title and number together.
void setNumber(NumberLabel* number, const QString& title, const QString& text)
{
    number->setText(text);
    number->parentWidget()->setAccessibleName(title + u' ' + text);
}

} // namespace

PreflightSummaryView::PreflightSummaryView(AppState& state, QWidget* parent)
    : QWidget(parent)
    , m_state(state)
    , m_page(new Page(this))
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_page, 1);
    m_page->setMaximumContentWidth(formWidth);
    auto* header = new PageHeader(L10n::Preflight::title(), {}, m_page);
    header->setSymbol(u"checkmark.shield.fill"_s, Role::accent);
    m_page->content()->addWidget(header);
    addAnalyzing();
    addEstimate();
    addBanners();
    m_page->content()->addStretch();
    addActions();
    // Also while the checks run and there is no button yet.
    const auto* leave = new QShortcut(Qt::Key_Escape, this);
    connect(leave, &QShortcut::activated, this, [this] { m_state.setSelectedScreen(Screen::dashboard); });
    // The drive may come or go while the result is being read.
    connect(&state, &AppState::isDestinationAwayChanged, this, [this] {
        if (isVisible())
            startCheck();
    });
    redraw();
}

void PreflightSummaryView::addAnalyzing()
{
    auto* card = new Card(m_page);
    auto* row = new QHBoxLayout;
    row->setSpacing(12);
    row->addWidget(new Spinner(L10n::Preflight::analyzing(), 20, card));
    row->addWidget(new Label(L10n::Preflight::analyzing(), FontRole::body, Role::secondaryText, card), 1);
    card->content()->addLayout(row);
    m_analyzing = card;
    m_page->content()->addWidget(card);
}

void PreflightSummaryView::addEstimate()
{
    m_estimate = new Card(m_page);
    m_estimate->content()->setSpacing(10);
    m_estimate->content()->addWidget(
        new Label(L10n::Preflight::estimateTitle(), FontRole::sectionTitle, Role::primaryText, m_estimate));
    m_fileCount = addEstimateRow(L10n::Preflight::totalFiles());
    m_size = addEstimateRow(L10n::Preflight::totalSize());
    m_freeSpace = addEstimateRow(L10n::Preflight::destinationFree());
    m_page->content()->addWidget(m_estimate);
}

NumberLabel* PreflightSummaryView::addEstimateRow(const QString& title)
{
    m_estimate->content()->addWidget(new Separator(Qt::Horizontal, m_estimate));
    auto* row = new QWidget(m_estimate);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(new Label(title, FontRole::body, Role::secondaryText, row));
    layout->addStretch();
    auto* value = new NumberLabel({}, FontRole::bodyStrong, Role::primaryText, row);
    layout->addWidget(value);
    m_estimate->content()->addWidget(row);
    return value;
}

void PreflightSummaryView::addBanners()
{
    m_errors = new Banner(Role::red, u"xmark.octagon.fill"_s, L10n::Preflight::errorTitle(), m_page);
    m_warnings =
        new Banner(Role::orange, u"exclamationmark.triangle.fill"_s, L10n::Preflight::warningTitle(), m_page);
    m_page->content()->addWidget(m_errors);
    m_page->content()->addWidget(m_warnings);
}

void PreflightSummaryView::addActions()
{
    m_actions = new BottomBar(this);
    auto* cancel = new Button(Button::Kind::bordered, L10n::Preflight::cancel(), {}, m_actions);
    m_confirm = new Button(Button::Kind::primary, L10n::Preflight::confirmBackup(), {}, m_actions);
    connect(cancel, &QPushButton::clicked, this, [this] { m_state.setSelectedScreen(Screen::dashboard); });
    connect(m_confirm, &QPushButton::clicked, this, &PreflightSummaryView::confirm);
    m_actions->alignWithPage(formWidth);
    m_actions->content()->addStretch();
    m_actions->content()->addWidget(cancel);
    m_actions->content()->addWidget(m_confirm);
    layout()->addWidget(m_actions);
}

void PreflightSummaryView::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (!event->spontaneous())
        startCheck();
}

void PreflightSummaryView::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    if (!event->spontaneous())
        m_check.giveUp();
}

void PreflightSummaryView::startCheck()
{
    m_isAnalyzing = true;
    m_result.reset();
    redraw();
    const std::shared_ptr<const Cancellation> cancellation = m_check.begin();
    deliver(m_state.runPreflight(cancellation), this, [this, cancellation](const PreflightResult& result) {
        // The result of a check that was given up is incomplete.
        if (!cancellation->isCancelled())
            setResult(result);
    });
}

void PreflightSummaryView::confirm()
{
    m_state.confirmBackup(m_result ? m_result->estimatedBytes : 0);
}

void PreflightSummaryView::setResult(const PreflightResult& result)
{
    m_result = result;
    m_isAnalyzing = false;
    redraw();
}

void PreflightSummaryView::redraw()
{
    m_analyzing->setVisible(m_isAnalyzing);
    m_estimate->setVisible(m_result.has_value());
    m_actions->setVisible(m_result.has_value());
    const PreflightResult result = m_result.value_or(PreflightResult{});
    m_errors->setLines(result.errors);
    m_errors->setVisible(!result.errors.isEmpty());
    m_warnings->setLines(result.warnings);
    m_warnings->setVisible(!result.warnings.isEmpty());
    m_confirm->setEnabled(result.canProceed());
    if (m_result)
        redrawEstimate(result);
}

void PreflightSummaryView::redrawEstimate(const PreflightResult& result)
{
    setNumber(m_fileCount, L10n::Preflight::totalFiles(), QString::number(result.estimatedFileCount));
    setNumber(m_size, L10n::Preflight::totalSize(), L10n::Formatters::bytes(result.estimatedBytes));
    const qint64 freeSpace = result.destinationFreeSpace;
    setNumber(m_freeSpace, L10n::Preflight::destinationFree(),
              freeSpace > 0 ? L10n::Formatters::bytes(freeSpace) : tr("Unknown"));
    m_freeSpace->setColorRole(result.canProceed() ? Role::primaryText : Role::redText);
    announce(*m_estimate, L10n::Preflight::estimateTitle());
}

} // namespace keelbright
