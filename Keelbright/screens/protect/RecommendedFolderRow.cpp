#include "Keelbright/screens/protect/RecommendedFolderRow.h"

#include "Keelbright/screens/protect/FadingTile.h"
#include "Keelbright/state/AppState.h"
#include "Keelbright/widgets/ToggleSwitch.h"

#include <QCoreApplication>

namespace keelbright {

namespace {

/// A text from the table of recommended folders, in the user's language.
QString translated(const QString& text)
{
    return QCoreApplication::translate("RecommendedFolder", text.toUtf8().constData());
}

} // namespace

RecommendedFolderRow::RecommendedFolderRow(AppState& state, qsizetype index, QWidget* parent)
    : RecommendedFolderRow(state, index,
                           new FadingTile(state.recommendedFolders().at(index).icon,
                                          state.recommendedFolders().at(index).isEnabled),
                           parent)
{}

RecommendedFolderRow::RecommendedFolderRow(AppState& state, qsizetype index, FadingTile* tile,
                                           QWidget* parent)
    : RowWidget(tile, translated(state.recommendedFolders().at(index).name),
                translated(state.recommendedFolders().at(index).description), Detail::text, parent)
    , m_state(state)
    , m_index(index)
    , m_tile(tile)
    , m_notFound(new Tag(tr("Not found"), Role::orange, this))
    , m_switch(new ToggleSwitch(translated(state.recommendedFolders().at(index).name), this))
{
    addBesideTitle(m_notFound);
    addTrailing(m_switch);
    redraw();
    connect(m_switch, &QCheckBox::toggled, this, &RecommendedFolderRow::setProtected);
}

const RecommendedFolder& RecommendedFolderRow::folder() const
{
    return m_state.recommendedFolders().at(m_index);
}

void RecommendedFolderRow::redraw()
{
    const bool exists = folder().exists();
    m_tile->setOn(folder().isEnabled);
    setTitleColor(exists ? Role::primaryText : Role::secondaryText);
    m_notFound->setVisible(!exists);
    m_switch->setChecked(folder().isEnabled);
}

void RecommendedFolderRow::setProtected(bool isProtected)
{
    // redraw() also toggles the switch, and that must not save the state again.
    if (folder().isEnabled != isProtected)
        m_state.setRecommendedFolderEnabled(m_index, isProtected);
}

} // namespace keelbright
