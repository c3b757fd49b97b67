#pragma once

#include <QList>
#include <QStringList>
#include <QWidget>

namespace keelbright {

class Button;
class ElidedLabel;
class SymbolLabel;

/// The way from where a walk started to where it is. Every crumb but the last leads back there. In
/// a narrow window the first ones give way to a button with a menu of them.
class BreadcrumbBar : public QWidget
{
    Q_OBJECT

public:
    explicit BreadcrumbBar(QWidget* parent = nullptr);

    /// At least one.
    void setCrumbs(const QStringList& names);

    [[nodiscard]] const QStringList& crumbs() const { return m_names; }

    /// How many of the first crumbs are in the menu at the present width.
    [[nodiscard]] int foldedCount() const { return m_foldedCount; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// To the level before.
    void backPressed();
    void crumbPressed(int index);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Stop
    {
        Button* crumb;
        SymbolLabel* chevron; ///< behind it
    };

    void addStop(int index);
    void fold();
    [[nodiscard]] int foldedWithin(int width) const;
    void place();
    void showFolded();

    QStringList m_names;
    Button* m_back;
    Button* m_folded;
    SymbolLabel* m_foldedChevron;
    QList<Stop> m_stops;
    ElidedLabel* m_last;
    int m_foldedCount = 0;
};

} // namespace keelbright
