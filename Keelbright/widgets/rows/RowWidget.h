#pragma once

#include "Keelbright/widgets/theme/Roles.h"

#include <QWidget>

class QHBoxLayout;

namespace keelbright {

class ElidedLabel;

/// One row of a short, fixed list: what leads, a name, a line below it, and what stands at the
/// end. Its context menu holds what its buttons do. A list that grows with the user's data is a model
/// with a delegate instead.
class RowWidget : public QWidget
{
    Q_OBJECT

public:
    /// What the second line is decides where it is cut.
    enum class Detail { words, path };

    /// `leading` (may be null) is taken over. An empty detail takes no room.
    RowWidget(QWidget* leading, const QString& title, const QString& detail = {}, Detail kind = Detail::words,
              QWidget* parent = nullptr);

    void setTitle(const QString& title);
    void setTitleColor(Role color);
    void setDetail(const QString& detail);
    /// Right behind the name, such as a tag; taken over.
    void addBesideTitle(QWidget* widget);
    /// At the end of the row; taken over.
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

/// A small word on a tint, such as "Not found" behind a name.
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
