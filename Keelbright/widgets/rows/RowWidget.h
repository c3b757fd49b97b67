#pragma once

#include "Keelbright/widgets/theme/Roles.h"

#include <QWidget>

class QHBoxLayout;

namespace keelbright {

class ElidedLabel;

/// One row of a short, fixed list: a leading widget, a title, a second line below it, and trailing
/// widgets. Its context menu holds the actions of its buttons. A list that grows with the user's data
/// is a `RowListView` instead.
class RowWidget : public QWidget
{
    Q_OBJECT

public:
    /// A second line without room is cut at its end; a path is cut in the middle.
    enum class Detail { text, path };

    /// Takes `leading` over, which may be null. An empty detail takes no room.
    RowWidget(QWidget* leading, const QString& title, const QString& detail = {}, Detail kind = Detail::text,
              QWidget* parent = nullptr);

    void setTitle(const QString& title);
    void setTitleColor(Role color);
    void setDetail(const QString& detail);
    /// Takes the widget over; it stands right after the title.
    void addBesideTitle(QWidget* widget);
    /// Takes the widget over; it stands at the end of the row.
    void addTrailing(QWidget* widget);

    [[nodiscard]] ElidedLabel* titleLabel() const { return m_title; }

    [[nodiscard]] ElidedLabel* detailLabel() const { return m_detail; }

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void updateAccessibleName();

    ElidedLabel* m_title;
    ElidedLabel* m_detail;
    QHBoxLayout* m_titleLine;
    QHBoxLayout* m_layout;
};

/// A short text on a tint, such as "Not found" after a name.
class Tag : public QWidget
{
    Q_OBJECT

public:
    /// `secondaryText` gives a grey one.
    Tag(const QString& text, Role hue, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Role m_hue;
};

} // namespace keelbright
