#pragma once

#include <QList>
#include <QWidget>

namespace keelbright {

class Segment;

/// A choice of one of a few, side by side. Arrows move between them; a screen reader meets radio
/// buttons.
class SegmentedControl : public QWidget
{
    Q_OBJECT

public:
    SegmentedControl(const QString& name, const QStringList& choices, QWidget* parent = nullptr);

    [[nodiscard]] int currentIndex() const;
    /// Without `chosen`.
    void setCurrentIndex(int index);

Q_SIGNALS:
    /// The user chose it, also the one that was chosen already.
    void chosen(int index);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QList<Segment*> m_segments;
    bool m_isFollowing = false;
};

} // namespace keelbright
