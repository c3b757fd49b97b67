#include "Keelbright/widgets/AlertDialog.h"

#include "Keelbright/widgets/Button.h"
#include "Keelbright/widgets/Label.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace keelbright {

AlertDialog::AlertDialog(const AlertRequest& request, QWidget* parent)
    : QDialog(parent)
    , m_action(new Button(request.isDestructive ? Button::Kind::destructive : Button::Kind::primary,
                          request.action, {}, this))
    , m_cancel(new Button(Button::Kind::bordered, request.cancel, {}, this))
{
    setWindowTitle(request.title);
    setAccessibleName(request.title);
    setAccessibleDescription(request.message);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 22, 24, 20);
    layout->setSpacing(8);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    auto* title = makeWrappingLabel(request.title, FontRole::headline, Role::primaryText, this);
    auto* message = makeWrappingLabel(request.message, FontRole::body, Role::secondaryText, this);
    title->setFixedWidth(372);
    message->setFixedWidth(372);
    layout->addWidget(title);
    layout->addWidget(message);
    layout->addSpacing(12);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(8);
    buttons->addStretch();
    buttons->addWidget(m_cancel);
    buttons->addWidget(m_action);
    layout->addLayout(buttons);
    connect(m_action, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_cancel, &QPushButton::clicked, this, &QDialog::reject);
    Button* safe = request.isDestructive ? m_cancel : m_action;
    safe->setDefault(true);
    safe->setFocus();
}

void DialogAlertPresenter::present(QWidget* parent, const AlertRequest& request,
                                   std::function<void()> confirmed)
{
    auto* dialog = new AlertDialog(request, parent);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(dialog, &QDialog::accepted, dialog, std::move(confirmed));
    if (request.dismissed)
        QObject::connect(dialog, &QDialog::rejected, dialog, request.dismissed);
    dialog->open();
}

} // namespace keelbright
