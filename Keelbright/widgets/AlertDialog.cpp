#include "Keelbright/widgets/AlertDialog.h"

#include "Keelbright/widgets/Button.h"
#include "Keelbright/widgets/Label.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace keelbright {

namespace {

constexpr int textWidth = 372;

} // namespace

AlertDialog::AlertDialog(const AlertRequest& request, QWidget* parent)
    : QDialog(parent)
    , m_cancel(new Button(Button::Kind::bordered, request.cancel, {}, this))
{
    const auto kind = request.isDestructive ? Button::Kind::destructive : Button::Kind::primary;
    m_action = new Button(kind, request.action, {}, this);
    if (!request.secondAction.isEmpty())
        m_secondAction = new Button(kind, request.secondAction, {}, this);
    setWindowTitle(request.title);
    setAccessibleName(request.title);
    setAccessibleDescription(request.message);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 22, 24, 20);
    layout->setSpacing(8);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    auto* title = makeWrappingLabel(request.title, FontRole::headline, Role::primaryText, this);
    m_message = makeWrappingLabel(request.message, FontRole::body, Role::secondaryText, this);
    title->setFixedWidth(textWidth);
    m_message->setFixedWidth(textWidth);
    layout->addWidget(title);
    layout->addWidget(m_message);
    layout->addSpacing(12);
    addButtons(*layout);
    Button* safe = request.isDestructive ? m_cancel : m_action;
    safe->setDefault(true);
    safe->setFocus();
}

void AlertDialog::addButtons(QVBoxLayout& layout)
{
    connect(m_action, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_cancel, &QPushButton::clicked, this, &QDialog::reject);
    if (m_secondAction != nullptr) {
        connect(m_secondAction, &QPushButton::clicked, this, [this] { done(secondAccepted); });
        // Three captions are too long for one line.
        for (Button* button : {m_action, m_secondAction, m_cancel}) {
            button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
            layout.addWidget(button);
        }
        return;
    }
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(8);
    buttons->addStretch();
    buttons->addWidget(m_cancel);
    buttons->addWidget(m_action);
    layout.addLayout(buttons);
}

void AlertDialog::setMessage(const QString& message)
{
    m_message->setText(message);
    setAccessibleDescription(message);
}

void DialogAlertPresenter::present(QWidget* parent, const AlertRequest& request,
                                   std::function<void()> confirmed)
{
    auto* dialog = new AlertDialog(request, parent);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(dialog, &QDialog::accepted, dialog, std::move(confirmed));
    if (request.dismissed)
        QObject::connect(dialog, &QDialog::rejected, dialog, request.dismissed);
    QObject::connect(dialog, &QDialog::finished, dialog, [request](int result) {
        if (result == AlertDialog::secondAccepted && request.secondConfirmed)
            request.secondConfirmed();
    });
    dialog->open();
}

void DialogAlertPresenter::setMessage(QWidget* parent, const QString& message)
{
    for (auto* dialog : parent->findChildren<AlertDialog*>(Qt::FindDirectChildrenOnly)) {
        if (dialog->isVisible())
            dialog->setMessage(message);
    }
}

} // namespace keelbright
