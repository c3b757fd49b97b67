#pragma once

#include <QList>
#include <QStringList>
#include <QWidget>

namespace keelbright {

class Button;
class ElidedLabel;
class SymbolLabel;

/// The levels of a walk through folders, from the first to the one on display. Every crumb but the last
/// is a button that leads back to its level. In a narrow window the first ones are in a menu.
class BreadcrumbBar : public QWidget
{
    Q_OBJECT

public:
    explicit BreadcrumbBar(QWidget* parent = nullptr);

    /// Must hold at least one name.
    void setCrumbs(const QStringList& names);

    [[nodiscard]] const QStringList& crumbs() const { return m_names; }

    /// The number of crumbs in the menu at the present width; they are the first ones.
    [[nodiscard]] int foldedCount() const { return m_foldedCount; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The user wants the level before the one on display.
    void backPressed();
    /// The user wants the level with this index in `crumbs`.
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
