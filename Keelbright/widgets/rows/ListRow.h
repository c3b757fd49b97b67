#pragma once

#include "Keelbright/widgets/theme/Roles.h"

#include <QList>
#include <QPixmap>
#include <QString>
#include <optional>

namespace keelbright {

/// What an action does, whatever it is called in the user's language.
enum class RowActionId {
    addToBackup,
    open,
    organise,
    remove,
    resolve, ///< leads to where the row's finding can be acted on
    reveal,
    trash,
};

/// Something that can be done with a row.
struct RowAction
{
    RowActionId id;
    QString symbol;             ///< empty for a button with text
    QString name;               ///< the text, or the tool tip of a symbol
    bool isDelete = false;      ///< the Delete key does the same
    Role hue = Role::mutedText; ///< of the symbol

    bool operator==(const RowAction&) const = default;
};

/// One row of a long list as it is shown: made when it is painted, pointed at or read out, and never
/// stored. From the left: mark, rank, picture, texts, value, actions, chevron. Empty parts take no room.
struct ListRow
{
    enum class Mark {
        none,
        checkBox, ///< on or off
        circle,   ///< a round mark that can also be half on, in `symbolColor`
    };
    enum class Picture {
        symbol, ///< plain
        tile,   ///< on a rounded square in its tint
        disc,   ///< on a circle in its tint
        dot,    ///< no symbol: a small disc in the colour
        image,  ///< `image`
    };

    Mark mark = Mark::none;
    Qt::CheckState markState = Qt::Unchecked;
    QString rank;
    Picture picture = Picture::symbol;
    QString symbol;
    Role symbolColor = Role::accent;
    QPixmap image;

    QString title;
    QString tag; ///< a small text on a tint after the title
    Role tagColor = Role::secondaryText;
    QString aside; ///< faint text after the title
    QString detail;
    QString detailSymbol;                           ///< before the detail
    Qt::TextElideMode detailElide = Qt::ElideRight; ///< paths are cut in the middle
    QString capsule;                                ///< a small number on a tint after the detail
    Role capsuleColor = Role::secondaryText;

    QString toolTip; ///< shown when the row is pointed at, and read out at its end

    QString value;
    Role valueColor = Role::secondaryText;
    std::optional<double> bar; ///< a thin bar below the row, from 0 to 1
    Role barColor = Role::accent;
    double barOpacity = 1;

    QList<RowAction> actions;
    /// Room for this number of symbols is kept free, which lines up the values of rows with fewer.
    qsizetype actionRoom = 0;
    QList<RowAction> menuActions; ///< only in the context menu, after `actions`, and for the Delete key
    bool hasChevron = false;
    Role chevronColor = Role::accent; ///< `Role::window` keeps its room and draws nothing
};

} // namespace keelbright
