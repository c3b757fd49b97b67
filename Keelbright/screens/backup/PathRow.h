#pragma once

#include "Keelbright/widgets/CardButton.h"

namespace keelbright {

/// A row for a path on disk: an icon, a label and the path, which can be selected and copied. A click
/// anywhere in the row emits `clicked`.
class PathRow : public CardButton
{
    Q_OBJECT

public:
    PathRow(const QString& label, const QString& path, const QString& icon, Role color,
            QWidget* parent = nullptr);
};

} // namespace keelbright
