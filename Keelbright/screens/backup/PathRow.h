#pragma once

#include "Keelbright/widgets/CardButton.h"

namespace keelbright {

/// A place on disk that opens at a press anywhere: an icon, what the place is, and its path, which
/// can be selected and copied.
class PathRow : public CardButton
{
    Q_OBJECT

public:
    PathRow(const QString& label, const QString& path, const QString& icon, Role color,
            QWidget* parent = nullptr);
};

} // namespace keelbright
