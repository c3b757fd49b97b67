#pragma once

#include "Keelbright/widgets/theme/Roles.h"

#include <QWidget>

class QHBoxLayout;

namespace keelbright {

class Label;

/// The header of a screen: its title, a line below it and its actions at the right. The texts wrap if
/// the actions leave them too little room.
class PageHeader : public QWidget
{
    Q_OBJECT

public:
    /// An empty subtitle takes no room.
    PageHeader(const QString& title, const QString& subtitle, QWidget* parent = nullptr);

    void setTitle(const QString& title);
    void setSubtitle(const QString& subtitle);
    /// A symbol before the title.
    void setSymbol(const QString& key, Role color);
    /// Adds a widget at the right end and takes ownership of it.
    void addAction(QWidget* action);
    using QWidget::addAction;

private:
    QHBoxLayout* m_titleRow;
    Label* m_title;
    Label* m_subtitle;
    QHBoxLayout* m_actions;
};

/// The header of a section of a page, with widgets at the right.
class SectionHeader : public QWidget
{
    Q_OBJECT

public:
    /// No symbol if the key is empty.
    explicit SectionHeader(const QString& title, const QString& symbolKey = {}, Role color = Role::accent,
                           QWidget* parent = nullptr);

    void setTitle(const QString& title);
    /// Adds a widget at the right end and takes ownership of it.
    void addTrailing(QWidget* widget);

private:
    Label* m_title;
    QHBoxLayout* m_layout;
};

/// A fine line.
class Separator : public QWidget
{
    Q_OBJECT

public:
    explicit Separator(Qt::Orientation orientation = Qt::Horizontal, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace keelbright
