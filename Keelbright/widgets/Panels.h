#pragma once

#include <QWidget>

class QHBoxLayout;
class QVBoxLayout;

namespace keelbright {

class ElidedLabel;
class Label;
class SymbolLabel;
enum class Role;

/// The head of a side panel or of what it leads to: a symbol, a title, a line below it, and actions
/// at the right.
class PanelHeader : public QWidget
{
    Q_OBJECT

public:
    /// An empty symbol or subtitle takes no room.
    PanelHeader(const QString& title, const QString& subtitle, const QString& symbol, Role color,
                QWidget* parent = nullptr);

    void setTitle(const QString& title);
    void setSubtitle(const QString& subtitle);
    void setSymbol(const QString& key, Role color);
    /// Takes the widget over; the first one added stands leftmost.
    void addTrailing(QWidget* widget);

private:
    SymbolLabel* m_symbol;
    ElidedLabel* m_title;
    ElidedLabel* m_subtitle;
    QHBoxLayout* m_layout;
};

/// A ground in one colour that fills what it is given, such as a panel.
class Ground : public QWidget
{
    Q_OBJECT

public:
    explicit Ground(Role color, QWidget* parent = nullptr);

    /// Without margins and spacing.
    [[nodiscard]] QVBoxLayout* content() const { return m_content; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Role m_color;
    QVBoxLayout* m_content;
};

/// Two panels side by side with a line between them that can be drawn; the right one takes what is
/// left. Takes both over.
[[nodiscard]] QWidget* makeSplit(QWidget* left, QWidget* right, int leftWidth, QWidget* parent = nullptr);

} // namespace keelbright
