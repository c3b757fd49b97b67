#include "Keelbright/screens/NewMacRecoveryView.h"

#include "Keelbright/screens/recovery/ManifestSummary.h"
#include "Keelbright/screens/shared/PageSection.h"
#include "Keelbright/state/AppState.h"
#include "Keelbright/widgets/Announcement.h"
#include "Keelbright/widgets/Button.h"
#include "Keelbright/widgets/Card.h"
#include "Keelbright/widgets/DisplayText.h"
#include "Keelbright/widgets/Headers.h"
#include "Keelbright/widgets/Label.h"
#include "Keelbright/widgets/SymbolLabel.h"

#include <QHBoxLayout>
#include <QVBoxLayout>
#include <array>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

struct Step
{
    QLatin1StringView icon;
    Role color = Role::accent;
    const char* title = nullptr;
    const char* body = nullptr;
};

constexpr std::array steps{
    Step{"doc.fill"_L1, Role::accent,
         QT_TRANSLATE_NOOP("keelbright::NewMacRecoveryView", "Restore personal files"),
         QT_TRANSLATE_NOOP("keelbright::NewMacRecoveryView",
                           "Open your backup drive and copy Personal Files back to your new Mac manually, "
                           "or use the Restore Browser.")},
    Step{"terminal.fill"_L1, Role::purple,
         QT_TRANSLATE_NOOP("keelbright::NewMacRecoveryView", "Rebuild your app environment"),
         QT_TRANSLATE_NOOP("keelbright::NewMacRecoveryView",
                           "Use the recovery manifest to see which apps were installed. Reinstall via Mac "
                           "App Store, Homebrew, or direct download. Keel Bright does not restore app "
                           "binaries.")},
    Step{"checklist"_L1, Role::teal,
         QT_TRANSLATE_NOOP("keelbright::NewMacRecoveryView", "Review your setup checklist"),
         QT_TRANSLATE_NOOP("keelbright::NewMacRecoveryView",
                           "The manifest includes dotfile presence and shell info. Re-apply .zshrc, "
                           ".gitconfig, and SSH keys from your backup.")},
};

constexpr int stepTile = 34;

QWidget* makeStep(const Step& step, std::size_t number)
{
    const QString count = NewMacRecoveryView::tr("Step %1").arg(QString::number(number));
    const QString title = NewMacRecoveryView::tr(step.title);
    auto* card = new Card;
    card->setAccessibleName(NewMacRecoveryView::tr("%1: %2").arg(count, title));
    auto* row = new QHBoxLayout;
    row->setSpacing(14);
    row->addWidget(new Tile(step.icon, step.color, stepTile, card), 0, Qt::AlignTop);
    auto* texts = new QVBoxLayout;
    texts->setSpacing(0);
    texts->addWidget(new Label(count, FontRole::groupTitle, textRole(step.color), card));
    texts->addSpacing(1);
    texts->addWidget(makeWrappingLabel(title, FontRole::sectionTitle, Role::primaryText, card));
    texts->addSpacing(4);
    texts->addWidget(
        makeWrappingLabel(NewMacRecoveryView::tr(step.body), FontRole::body, Role::secondaryText, card));
    row->addLayout(texts, 1);
    card->content()->addLayout(row);
    return card;
}

} // namespace

NewMacRecoveryView::NewMacRecoveryView(const AppState& state, FileChooser& files, QWidget* parent)
    : Page(parent)
    , m_state(state)
    , m_vm(files, this)
{
    addHeader();
    addSteps();
    addManifestSection();
    content()->addStretch();
    connect(&m_vm, &NewMacRecoveryVM::changed, this, &NewMacRecoveryView::showManifest);
    redraw();
}

void NewMacRecoveryView::addHeader()
{
    auto* header = new PageHeader(tr("Setting Up a New Mac"),
                                  tr("Keel Bright helps you pick up where you left off. Follow these steps "
                                     "after your first login on a new Mac."),
                                  this);
    header->setSymbol(u"sparkles"_s, Role::accent);
    content()->addWidget(header);
}

void NewMacRecoveryView::addSteps()
{
    auto* cards = new QVBoxLayout;
    cards->setSpacing(Metrics::cardSpacing - Metrics::cardShadow);
    for (std::size_t i = 0; i < steps.size(); ++i)
        cards->addWidget(makeStep(steps.at(i), i + 1));
    content()->addLayout(cards);
}

void NewMacRecoveryView::addManifestSection()
{
    auto* section = new PageSection(new SectionHeader(tr("Recovery Manifest")), this);
    auto* card = new Card(section);
    auto* row = new QHBoxLayout;
    row->setSpacing(16);
    row->addWidget(
        makeWrappingLabel(tr("Load your recovery-manifest.json to review what was on your previous Mac."),
                          FontRole::body, Role::secondaryText, card),
        1);
    auto* load = new Button(Button::Kind::primary, tr("Load Manifest…"), u"doc.badge.arrow.up"_s, card);
    connect(load, &QPushButton::clicked, this, [this] { m_vm.loadManifest(m_state.backupsFolder()); });
    row->addWidget(load);
    card->content()->addLayout(row);

    m_errorLine = new QWidget(card);
    auto* error = new QHBoxLayout(m_errorLine);
    error->setContentsMargins(0, 0, 0, 0);
    error->setSpacing(7);
    auto* symbol = new SymbolLabel(u"exclamationmark.circle"_s, 16, Role::red, m_errorLine);
    symbol->setAccessibleName(tr("Error"));
    error->addWidget(symbol, 0, Qt::AlignTop);
    m_errorText = makeWrappingLabel({}, FontRole::body, Role::redText, m_errorLine);
    error->addWidget(m_errorText, 1);
    card->content()->addWidget(m_errorLine);
    section->content()->addWidget(card);
    content()->addWidget(section);
}

void NewMacRecoveryView::showManifest()
{
    redraw();
    const std::optional<QString>& error = m_vm.loadError();
    announce(*this, error ? displayText(*error) : tr("Summary from your previous Mac"));
    reveal(error ? m_errorLine : m_summary);
}

void NewMacRecoveryView::redraw()
{
    m_errorLine->setVisible(m_vm.loadError().has_value());
    m_errorText->setText(displayText(m_vm.loadError().value_or(QString())));
    delete std::exchange(m_summary, nullptr);
    const std::optional<BackupManifest>& manifest = m_vm.manifestData();
    if (!manifest)
        return;
    m_summary = new PageSection(new SectionHeader(tr("Summary from your previous Mac")), this);
    static_cast<PageSection*>(m_summary)->content()->addWidget(new ManifestSummary(*manifest));
    // Above the stretch that ends the page.
    content()->insertWidget(content()->count() - 1, m_summary);
    m_summary->show();
}

} // namespace keelbright
