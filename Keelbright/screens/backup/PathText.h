#pragma once

#include <QLineEdit>
#include <QPoint>

namespace keelbright {

/// A path on one line, cut in the middle if it does not fit. The whole path can be selected and copied;
/// Tab selects it. A click that selects nothing emits `clicked`.
class PathText : public QLineEdit
{
    Q_OBJECT

public:
    /// `name` is the accessible name.
    PathText(const QString& name, const QString& path, QWidget* parent = nullptr);

    /// The text as it is drawn at the current width while nothing is selected.
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
