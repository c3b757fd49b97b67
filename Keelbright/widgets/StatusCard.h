#pragma once

#include "Keelbright/widgets/Card.h"

namespace keelbright {

class FigureLabel;
class SymbolLabel;

/// One figure: an icon in its colour, the value and what it is.
class StatusCard : public Card
{
    Q_OBJECT

public:
    StatusCard(const QString& title, const QString& value, const QString& icon, Role color,
               QWidget* parent = nullptr);

    void setValue(const QString& value);
    void setColorRole(Role color);
    [[nodiscard]] QString value() const;

private:
    QString m_title;
    SymbolLabel* m_icon;
    FigureLabel* m_value;
};

} // namespace keelbright
