#include "Keelbright/widgets/SearchField.h"

#include "Keelbright/widgets/Button.h"
#include "Keelbright/widgets/SymbolLabel.h"
#include "Keelbright/widgets/theme/Theme.h"

#include <QAction>
#include <QKeyEvent>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

constexpr int lensSize = 16;
constexpr int inset = 6; ///< between an edge of the field and its part
constexpr int gap = 4;   ///< between a part and the text

} // namespace

SearchField::SearchField(const QString& prompt, QWidget* parent)
    : QLineEdit(parent)
    , m_lens(new SymbolLabel(u"magnifyingglass"_s, lensSize, Role::secondaryText, this))
    , m_clear(new Button(Button::Kind::plainIcon, tr("Clear search"), u"xmark.circle.fill"_s, this))
    , m_find(new QAction(tr("Find"), this))
{
    setAccessibleName(prompt);
    setPlaceholderText(prompt);
    setFont(Theme::instance().font(FontRole::body));
    m_lens->setAccessibleName(tr("Search"));
    m_lens->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_clear->setCompact(true);
    m_clear->setCursor(Qt::ArrowCursor);
    m_clear->hide();
    setTextMargins(inset + lensSize + gap - 2, 0, inset + m_clear->sizeHint().width(), 0);
    connect(m_clear, &QPushButton::clicked, this, [this] {
        clear();
        setFocus(Qt::OtherFocusReason);
    });
    connect(this, &QLineEdit::textChanged, this, [this] { m_clear->setVisible(!text().isEmpty()); });
    m_find->setShortcut(QKeySequence::Find);
    m_find->setEnabled(false);
    QWidget::addAction(m_find);
    connect(m_find, &QAction::triggered, this, [this] {
        setFocus(Qt::ShortcutFocusReason);
        selectAll();
    });
}

void SearchField::showEvent(QShowEvent* event)
{
    QLineEdit::showEvent(event);
    m_find->setEnabled(true);
}

void SearchField::hideEvent(QHideEvent* event)
{
    QLineEdit::hideEvent(event);
    m_find->setEnabled(false);
}

void SearchField::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && !text().isEmpty()) {
        clear();
        return;
    }
    QLineEdit::keyPressEvent(event);
}

void SearchField::resizeEvent(QResizeEvent* event)
{
    QLineEdit::resizeEvent(event);
    placeParts();
}

void SearchField::placeParts()
{
    m_lens->setGeometry(inset, (height() - lensSize) / 2, lensSize, lensSize);
    const QSize size = m_clear->sizeHint();
    m_clear->setGeometry(width() - size.width() - inset / 2, (height() - size.height()) / 2, size.width(),
                         size.height());
}

} // namespace keelbright
