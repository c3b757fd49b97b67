#pragma once

#include "Keelbright/widgets/Card.h"

namespace keelbright {

class NumberLabel;
class SymbolLabel;

/// One number: an icon in its colour, the value and what it is.
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
    NumberLabel* m_value;
};

} // namespace keelbright
