#pragma once

#include <QLineEdit>
#include <QPoint>

namespace keelbright {

/// A path on one line, cut in the middle where it does not fit, that can be selected and copied
/// whole. A press that selects nothing is announced as a click.
class PathText : public QLineEdit
{
    Q_OBJECT

public:
    /// `name` is told to a screen reader.
    PathText(const QString& name, const QString& path, QWidget* parent = nullptr);

    /// What stands on screen at the present width while nothing is selected.
    [[nodiscard]] QString shownText() const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

Q_SIGNALS:
    void clicked();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void applyColors();

    QString m_path;
    QPoint m_pressed;
};

} // namespace keelbright
