#pragma once

#include "Keelbright/widgets/SymbolLabel.h"
#include "KeelbrightCore/apps/AppInfo.h"

namespace keelbright {

class AppIcons;

/// The icon of an application; a tile until it is read, and if there is none.
class AppIconLabel : public Tile
{
    Q_OBJECT

public:
    /// The icons outlive the label.
    AppIconLabel(AppIcons& icons, const AppFacts& app, int side, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    AppIcons& m_icons;
    const FileURL m_source;
    const QString m_name; ///< in the icon theme
};

} // namespace keelbright
