#pragma once

#include "Keelbright/screens/storage/StorageFileTypes.h"

#include <QWidget>

namespace keelbright {

class FlowLayout;

/// The kinds of files side by side on a bar, each as wide as its share but never invisible. Its tool
/// tips name them.
class ShareBar : public QWidget
{
    Q_OBJECT

public:
    explicit ShareBar(QWidget* parent = nullptr);

    void setShares(const QList<FileTypeShare>& shares, qint64 totalBytes);

    /// Where each share stands, from the left.
    [[nodiscard]] QList<QRectF> segments() const;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QList<FileTypeShare> m_shares;
    qint64 m_totalBytes = 0;
};

/// What a folder holds, by kind: the bar, and below it what its colours mean.
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
