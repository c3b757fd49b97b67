#include "Keelbright/widgets/SearchField.h"

#include "Keelbright/widgets/theme/Symbol.h"
#include "Keelbright/widgets/theme/Theme.h"

#include <QAction>
#include <QKeyEvent>
#include <QShortcut>

namespace keelbright {

using namespace Qt::StringLiterals;

SearchField::SearchField(const QString& prompt, QWidget* parent)
    : QLineEdit(parent)
{
    setAccessibleName(prompt);
    setPlaceholderText(prompt);
    setClearButtonEnabled(true);
    setFont(Theme::instance().font(FontRole::body));
    auto* lens = addAction(QIcon(), LeadingPosition);
    const auto paintLens = [lens] {
        lens->setIcon(Symbol::icon(u"magnifyingglass"_s, Theme::instance().color(Role::secondaryText)));
    };
    paintLens();
    connect(&Theme::instance(), &Theme::changed, this, paintLens);
    auto* shortcut = new QShortcut(QKeySequence::Find, this);
    connect(shortcut, &QShortcut::activated, this, [this] {
        setFocus(Qt::ShortcutFocusReason);
        selectAll();
    });
}

void SearchField::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && !text().isEmpty()) {
        clear();
        return;
    }
    QLineEdit::keyPressEvent(event);
}

} // namespace keelbright
