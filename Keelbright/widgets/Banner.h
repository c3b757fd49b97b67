#pragma once

#include "Keelbright/widgets/theme/Roles.h"

#include <QStringList>
#include <QWidget>

class QVBoxLayout;

namespace keelbright {

class Label;

/// A panel tinted with a hue: a symbol, a title, and lines or other content below it.
class Banner : public QWidget
{
    Q_OBJECT

public:
    /// `title` is announced to a screen reader when the banner appears.
    Banner(Role hue, const QString& symbolKey, const QString& title, QWidget* parent = nullptr);

    void setTitle(const QString& title);
    /// Replaces the lines below the title.
    void setLines(const QStringList& lines);

    /// Texts added here should be in `mutedText`, which is readable on the tint.
    [[nodiscard]] QVBoxLayout* content() const { return m_content; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void updateAccessibleTexts();

    Role m_hue;
    Label* m_title;
    QVBoxLayout* m_content;
    QVBoxLayout* m_lines;
    QStringList m_texts;
};

} // namespace keelbright
