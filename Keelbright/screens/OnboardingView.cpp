#include "Keelbright/screens/OnboardingView.h"

#include "Keelbright/state/AppState.h"
#include "Keelbright/widgets/BottomBar.h"
#include "Keelbright/widgets/Button.h"
#include "Keelbright/widgets/Card.h"
#include "Keelbright/widgets/Label.h"
#include "Keelbright/widgets/StepStack.h"
#include "Keelbright/widgets/SymbolLabel.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;

constexpr int columnWidth = 480;
constexpr int lastStep = 1;
constexpr int heroTile = 84;

/// A page with a centred column of readable width, which is returned in `column`.
QWidget* makeStep(QVBoxLayout*& column, const QString& icon, const QString& title, const QString& text)
{
    auto* page = new QWidget;
    page->setAccessibleName(title);
    auto* middle = new QWidget(page);
    middle->setFixedWidth(columnWidth);
    column = new QVBoxLayout(middle);
    column->setContentsMargins(0, Metrics::pageMarginY, 0, Metrics::pageMarginY);
    column->setSpacing(0);
    auto* layout = new QHBoxLayout(page);
    layout->addStretch();
    layout->addWidget(middle);
    layout->addStretch();

    column->addStretch(4);
    column->addWidget(new Tile(icon, Role::accent, heroTile), 0, Qt::AlignHCenter);
    column->addSpacing(20);
    Label* heading = makeWrappingLabel(title, FontRole::pageTitle, Role::primaryText);
    Label* line = makeWrappingLabel(text, FontRole::body, Role::secondaryText);
    heading->setAlignment(Qt::AlignHCenter);
    line->setAlignment(Qt::AlignHCenter);
    column->addWidget(heading);
    column->addSpacing(6);
    column->addWidget(line);
    column->addSpacing(26);
    return page;
}

QWidget* makeFeatureRow(const OnboardingView::Feature& feature)
{
    auto* row = new QWidget;
    row->setAccessibleName(feature.title);
    row->setAccessibleDescription(feature.body);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(14, 11, 14, 11);
    layout->setSpacing(13);
    layout->addWidget(new Tile(feature.icon, Role::accent, 34), 0, Qt::AlignVCenter);
    auto* texts = new QVBoxLayout;
    texts->setSpacing(2);
    texts->addWidget(new Label(feature.title, FontRole::bodyStrong, Role::primaryText));
    texts->addWidget(makeWrappingLabel(feature.body, FontRole::secondary, Role::secondaryText));
    layout->addLayout(texts, 1);
    return row;
}

} // namespace

const QList<OnboardingView::Feature>& OnboardingView::features()
{
    static const QList<Feature> features{
        {u"folder.fill"_s, tr("Personal files"),
         tr("Desktop, Documents, Pictures — copied cleanly to your backup drive.")},
        {u"terminal.fill"_s, tr("Developer setup metadata"),
         tr("Dotfile presence, shell info, and installed app names saved in a recovery manifest.")},
        {u"chart.bar.doc.horizontal"_s, tr("Storage browser"),
         tr("See exactly what's taking up space in your backup, folder by folder.")},
    };
    return features;
}

OnboardingView::OnboardingView(AppState& state, QWidget* parent)
    : QWidget(parent)
    , m_state(state)
    , m_steps(new StepStack(this))
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    m_steps->addPage(makeWelcomeStep());
    m_steps->addPage(makeDestinationStep());
    layout->addWidget(m_steps, 1);
    layout->addWidget(makeBottomRow());
    connect(&state, &AppState::selectedDestinationChanged, this, &OnboardingView::showDestination);
    showDestination();
    setStep(0);
}

QWidget* OnboardingView::makeWelcomeStep()
{
    QVBoxLayout* column = nullptr;
    QWidget* page = makeStep(column, u"shippingbox.fill"_s, tr("Keel Bright"),
                             tr("A calm, minimal backup for your personal Mac environment."));
    auto* list = new RowList;
    for (const Feature& feature : features())
        list->addRow(makeFeatureRow(feature));
    column->addWidget(list);
    column->addStretch(5);
    return page;
}

QWidget* OnboardingView::makeDestinationStep()
{
    QVBoxLayout* column = nullptr;
    QWidget* page =
        makeStep(column, u"externaldrive.fill"_s, tr("Choose a Backup Destination"),
                 tr("Select an external drive or a local folder. Keel Bright will create a readable "
                    "folder structure inside."));
    m_destination = new Button(Button::Kind::bordered, {}, {}, page);
    m_destination->setMaximumWidth(columnWidth);
    connect(m_destination, &QPushButton::clicked, this, [this] { m_state.pickDestination(); });
    column->addWidget(m_destination, 0, Qt::AlignHCenter);
    column->addSpacing(14);
    column->addWidget(
        new Label(tr("You can change this later in Settings."), FontRole::secondary, Role::secondaryText), 0,
        Qt::AlignHCenter);
    column->addStretch(5);
    return page;
}

QWidget* OnboardingView::makeBottomRow()
{
    auto* bar = new BottomBar(this);
    m_back = new Button(Button::Kind::bordered, tr("Back"), {}, bar);
    m_main = new Button(Button::Kind::primary, tr("Continue"), {}, bar);
    connect(m_back, &QPushButton::clicked, this, [this] { setStep(m_step - 1); });
    connect(m_main, &QPushButton::clicked, this, &OnboardingView::goForward);
    bar->content()->addWidget(m_back);
    bar->content()->addStretch();
    bar->content()->addWidget(m_main);
    return bar;
}

void OnboardingView::goForward()
{
    if (m_step == lastStep)
        m_state.setIsOnboardingCompleted(true);
    else
        setStep(m_step + 1);
}

void OnboardingView::setStep(int step)
{
    m_step = step;
    // Hiding the focused button would move the focus to an arbitrary widget.
    if (step == 0 && m_back->hasFocus())
        m_main->setFocus();
    m_steps->setCurrentIndex(step);
    m_back->setVisible(step > 0);
    m_main->setCaption(step == lastStep ? tr("Get Started") : tr("Continue"));
}

void OnboardingView::showDestination()
{
    const auto& destination = m_state.selectedDestination();
    m_destination->setSymbol(destination ? u"checkmark.circle.fill"_s : u"externaldrive.badge.plus"_s);
    m_destination->setHue(destination ? Role::green : Role::accent);
    m_destination->setCaption(destination ? destination->url.lastPathComponent() : tr("Choose Destination…"));
    m_destination->setAccessibleDescription(destination ? tr("Backup destination, press to choose another")
                                                        : QString());
}

void OnboardingView::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (focusWidget() == nullptr)
        m_main->setFocus(Qt::ActiveWindowFocusReason);
}

} // namespace keelbright
