#pragma once

#include "Keelbright/widgets/theme/Roles.h"

#include <QString>
#include <QWidget>

namespace keelbright {

/// A symbol in a colour by role. It is decoration: a screen reader reads the text beside it instead.
class SymbolLabel : public QWidget
{
    Q_OBJECT

public:
    /// `size` is the side of the picture in device-independent pixels.
    SymbolLabel(QString key, int size, Role color, QWidget* parent = nullptr);

    void setKey(const QString& key);

    [[nodiscard]] QString key() const { return m_key; }

    void setColorRole(Role color);

    [[nodiscard]] Role colorRole() const { return m_color; }

    [[nodiscard]] QSize sizeHint() const override { return {m_size, m_size}; }

protected:
    void paintEvent(QPaintEvent* event) override;

    [[nodiscard]] int symbolSize() const { return m_size; }

private:
    QString m_key;
    int m_size;
    Role m_color;
};

/// A symbol on a rounded square that is tinted with its colour.
class Tile : public SymbolLabel
{
    Q_OBJECT

public:
    Tile(const QString& key, Role color, int side = Metrics::tile, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override { return {m_side, m_side}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int m_side;
};

} // namespace keelbright
