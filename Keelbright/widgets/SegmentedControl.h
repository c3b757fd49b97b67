#pragma once

#include <QList>
#include <QWidget>

namespace keelbright {

class Segment;

/// A choice between a few texts side by side. The arrow keys change it; to a screen reader the texts
/// are radio buttons.
class SegmentedControl : public QWidget
{
    Q_OBJECT

public:
    SegmentedControl(const QString& name, const QStringList& choices, QWidget* parent = nullptr);

    /// Does not emit `chosen`.
    void setCurrentIndex(int index);

Q_SIGNALS:
    /// The user chose this text, which may have been the current one already.
    void chosen(int index);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QList<Segment*> m_segments;
    bool m_isSettingIndex = false;
};

} // namespace keelbright
