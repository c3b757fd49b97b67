#pragma once

#include "Keelbright/screens/storage/StorageFileTypes.h"

#include <QWidget>

namespace keelbright {

class FlowLayout;

/// The kinds of files side by side on a bar, each with a width that follows its share and is at least
/// 2 points. The tool tip of a segment is its kind and size.
class ShareBar : public QWidget
{
    Q_OBJECT

public:
    explicit ShareBar(QWidget* parent = nullptr);

    void setShares(const QList<FileTypeShare>& shares, qint64 totalBytes);

    /// The place of each share, from the left.
    [[nodiscard]] QList<QRectF> segments() const;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QList<FileTypeShare> m_shares;
    qint64 m_totalBytes = 0;
};

/// The content of a folder by kind: the bar, and the legend of its colours below.
class BreakdownBar : public QWidget
{
    Q_OBJECT

public:
    explicit BreakdownBar(QWidget* parent = nullptr);

    void setShares(const QList<FileTypeShare>& shares, qint64 totalBytes);

private:
    ShareBar* m_bar;
    FlowLayout* m_legend;
    QList<FileTypeShare> m_shares;
};

} // namespace keelbright
