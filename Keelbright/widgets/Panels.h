#pragma once

#include <QWidget>

class QHBoxLayout;
class QVBoxLayout;

namespace keelbright {

class ElidedLabel;
class Label;
class SymbolLabel;
enum class Role;

/// The header of a side panel or of the panel beside it: a symbol, a title, a line below it and
/// actions at the right.
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
    /// Adds a widget at the right end and takes ownership of it.
    void addTrailing(QWidget* widget);

private:
    SymbolLabel* m_symbol;
    ElidedLabel* m_title;
    ElidedLabel* m_subtitle;
    QHBoxLayout* m_layout;
};

/// A widget with a background in one colour, such as that of a panel.
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

/// Two panels side by side with a line between them that the user can drag. The right one takes the
/// remaining width. Takes ownership of both.
[[nodiscard]] QWidget* makeSplit(QWidget* left, QWidget* right, int leftWidth, QWidget* parent = nullptr);

} // namespace keelbright
