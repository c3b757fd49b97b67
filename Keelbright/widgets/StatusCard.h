#pragma once

#include "Keelbright/widgets/Card.h"

namespace keelbright {

/// A card with one number: an icon in its colour, the value and a title.
class StatusCard : public Card
{
    Q_OBJECT

public:
    StatusCard(const QString& title, const QString& value, const QString& icon, Role color,
               QWidget* parent = nullptr);
};

} // namespace keelbright
