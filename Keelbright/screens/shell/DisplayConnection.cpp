#include "Keelbright/screens/shell/DisplayConnection.h"

#include "KeelbrightCore/platform/system/Console.h"

#include <QApplication>
#include <QList>
#include <QMutex>
#include <QMutexLocker>
#include <cstdlib>
#include <utility>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;

/// A line of Qt's, which is printed only where a display was found.
struct HeldMessage
{
    QtMsgType type;
    QByteArray category;
    QString text;
};

/// Qt's message handler is a plain function, so what it reaches is global.
struct MessageHold
{
    QMutex mutex;
    QList<HeldMessage> messages;
    QtMessageHandler before = nullptr; ///< not known before the other one is in its place

    void print(QtMsgType type, const QMessageLogContext& context, const QString& text) const
    {
        if (before != nullptr)
            before(type, context, text);
    }
};

MessageHold& messageHold()
{
    static MessageHold hold;
    return hold;
}

/// The only fatal message at this time says that no platform could be started.
[[noreturn]] void endWithoutDisplay()
{
    printErrorLine(u"keelbright: there is no display to show the window on"_s);
    std::_Exit(1);
}

void holdMessage(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (type == QtFatalMsg)
        endWithoutDisplay();
    MessageHold& hold = messageHold();
    if (type == QtDebugMsg) {
        hold.print(type, context, text); // somebody asked for it and looks for the cause
        return;
    }
    const QMutexLocker locker(&hold.mutex);
    hold.messages.append({type, context.category, text});
}

void printHeldMessages()
{
    MessageHold& hold = messageHold();
    const QMutexLocker locker(&hold.mutex);
    for (const HeldMessage& message : std::exchange(hold.messages, {})) {
        const QMessageLogContext context(nullptr, 0, nullptr, message.category.constData());
        hold.print(message.type, context, message.text);
    }
}

} // namespace

std::unique_ptr<QApplication> connectToDisplay(const std::function<std::unique_ptr<QApplication>()>& make)
{
    messageHold().before = qInstallMessageHandler(holdMessage);
    std::unique_ptr<QApplication> application = make();
    qInstallMessageHandler(messageHold().before);
    printHeldMessages();
    return application;
}

} // namespace keelbright
